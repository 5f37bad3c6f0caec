#include "program.h"

#include "childprocess.h"
#include "home.h"

namespace {

/// What the program is told about the world.
QProcessEnvironment surroundings(const Home& home, const QString& display)
{
    QProcessEnvironment environment;
    // Of our own surroundings, only what tells the sanitizers and the loader how to work.
    for (const char* name :
         {"PATH", "LD_LIBRARY_PATH", "QT_PLUGIN_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            environment.insert(name, qEnvironmentVariable(name));
    }
    environment.insert("DISPLAY", display);
    environment.insert("HOME", home.path());
    environment.insert("XDG_CONFIG_HOME", home.path(".config"));
    environment.insert("XDG_RUNTIME_DIR", home.runtimefolder());
    environment.insert("LC_ALL", "C.UTF-8");
    environment.insert("TZ", home.timezone());
    environment.insert("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    environment.insert("QT_QPA_PLATFORM", "xcb");
    environment.insert("QT_XCB_GL_INTEGRATION", "none");
    // The virtual display makes up a resolution of its own, by which the window would be scaled.
    environment.insert("QT_FONT_DPI", "96");
    return environment;
}

} // namespace

Program::~Program()
{
    if (!runs())
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void Program::start(const QString& program, const Home& home, const QString& display,
                    const QProcessEnvironment& more)
{
    QProcessEnvironment environment = surroundings(home, display);
    environment.insert(more);
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.setStandardOutputFile(home.logfile());
    m_process.setStandardInputFile(QProcess::nullDevice());
    startchild(m_process, ChildEnd::Killed, program);
    m_started = true;
}

bool Program::runs() { return childruns(m_process); }

int Program::exitcode() const
{
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}
