#include "checkout.h"

#include "testfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>

namespace {

void makeexecutable(const QString& file)
{
    QFile::setPermissions(file, QFile::permissions(file) | QFile::ExeOwner | QFile::ExeUser);
}

void copyscript(const QString& from, const QString& to)
{
    writefile(to, contents(from));
    makeexecutable(to);
}

} // namespace

bool Outcome::called(const QString& words) const
{
    return std::any_of(calls.cbegin(), calls.cend(),
                       [&words](const QString& call) { return call.startsWith(words); });
}

// The blank in the name of the copy is there for what a script forgets to quote.
Checkout::Checkout() : m_environment(QProcessEnvironment::systemEnvironment())
{
    for (const char* folder :
         {"cmake", "common", "show", "padspage", "controller", "project", "app", "resources", "scripts"})
        QDir().mkpath(path(QLatin1String(folder)));
    for (const char* script : {"run", "scripts/common.sh", "scripts/demo", "scripts/package"})
        copyscript(QStringLiteral(SOURCE "/") + QLatin1String(script), path(QLatin1String(script)));
    writefile(path("CMakeLists.txt"), QByteArray());
    writefile(path("app/main.cpp"), QByteArray());

    const QString tools = beside("tools");
    QDir().mkpath(tools);
    for (const char* tool :
         {"awk",  "basename", "bash", "cat",  "chmod", "cp",     "diff",  "dirname", "env",
          "find", "grep",     "id",   "ln",   "mkdir", "mktemp", "mount", "mv",      "readlink",
          "rm",   "sed",      "sh",   "sort", "tail",  "touch",  "uname", "unshare"}) {
        const QString found = QStandardPaths::findExecutable(QLatin1String(tool));
        if (!found.isEmpty())
            QFile::link(found, tools + QLatin1Char('/') + QLatin1String(tool));
    }
    m_environment.insert("PATH", tools);
    m_environment.insert("DISPLAY", ":4711");
    for (const char* variable : {"WAYLAND_DISPLAY", "TMPDIR", "LUMIPAD_QT"})
        m_environment.remove(QLatin1String(variable));

    standin("cmake",
            "if [[ $1 == --build ]]; then\n"
            "    mkdir -p \"$2/app\"\n"
            "    printf '#!/usr/bin/env bash\\necho \"started $* with ${TMPDIR:-no folder of its own}\"\\n' "
            ">\"$2/app/lumipad\"\n"
            "    chmod +x \"$2/app/lumipad\"\n"
            "else\n"
            "    mkdir -p \"$4\"\n"
            "    words=$*\n"
            "    printf '%s\\n' \"CMAKE_HOME_DIRECTORY:INTERNAL=$2\" "
            "\"LUMIPAD_QT_BEFORE:INTERNAL=${words##*-DLUMIPAD_QT=}\" "
            ">\"$4/CMakeCache.txt\"\n"
            "fi\n");
    standin("dpkg-query", "echo 'installed '\n");
    for (const char* tool : {"ninja", "apt-get", "sudo", "brew", "ctest", "git"})
        standin(QLatin1String(tool), QByteArray());
    leave(100000);
}

QString Checkout::path(const QString& relative) const
{
    return QDir::cleanPath(m_folder.filePath(QStringLiteral("the project/") + relative));
}

void Checkout::standin(const QString& tool, const QByteArray& lines) const
{
    without(tool);
    const QString file = beside("tools/" + tool);
    writefile(file, "#!/usr/bin/env bash\necho \"" + tool.toUtf8() + " $*\" >>\"" + beside("calls").toUtf8() +
                        "\"\n" + lines);
    makeexecutable(file);
}

void Checkout::without(const QString& tool) const { QFile::remove(beside("tools/" + tool)); }

void Checkout::leave(int megabytes) const
{
    standin("df", "echo Filesystem\necho /dev/disk 0 0 " + QByteArray::number(megabytes * 1024) + " 0% /\n");
}

Outcome Checkout::run(const QStringList& words, const QString& folder) const
{
    QFile::remove(beside("calls"));
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(folder.isEmpty() ? path() : folder);
    process.start(beside("tools/bash"), QStringList{"-c", "\"$@\"", "bash"} + words);
    process.waitForFinished(60000);
    Outcome outcome;
    if (process.exitStatus() == QProcess::NormalExit)
        outcome.code = process.exitCode();
    outcome.output = process.readAllStandardOutput();
    outcome.errors = process.readAllStandardError();
    if (QFileInfo::exists(beside("calls")))
        outcome.calls = QString::fromUtf8(contents(beside("calls"))).split('\n');
    outcome.calls.removeAll(QString());
    return outcome;
}
