#include "virtualdisplay.h"

#include "childprocess.h"
#include "trouble.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <X11/Xlib.h>

namespace {

// Wider than the window of the MIDI side, with room for a dialog that is not in its way.
const char* const screenShape = "1400x800x24";
constexpr int startPatience = 90000; // ms

/// Windows come and go while they are being looked at; one that has just gone must not end this program,
/// which is what the X library does with errors by default.
int ignoreerror(Display* /*display*/, XErrorEvent* /*error*/) { return 0; }

} // namespace

VirtualDisplay::VirtualDisplay()
{
    if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty())
        throw Trouble(
            QStringLiteral("Xvfb is missing, and without it no mouse can be moved; ./check installs it."));
    // Where it cannot make its socket it goes on trying without end.
    if (!QFileInfo(QStringLiteral("/tmp")).isWritable())
        throw Trouble(QStringLiteral("The virtual display needs /tmp, which cannot be written."));
    // The server writes its number on its output once it answers.
    startchild(m_server, ChildEnd::Terminated, QStringLiteral("Xvfb"),
               {"-displayfd", "1", "-screen", "0", screenShape, "-nolisten", "tcp", "-noreset"});
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(startPatience))
            throw Trouble(QStringLiteral("The virtual display did not start: %1")
                              .arg(QString::fromLocal8Bit(m_server.readAllStandardError())));
    }
    m_name = QLatin1Char(':') + QString::fromLatin1(m_server.readLine().trimmed());
    XSetErrorHandler(ignoreerror);
    m_connection = XOpenDisplay(m_name.toLatin1().constData());
    if (m_connection == nullptr)
        throw Trouble(QStringLiteral("The virtual display %1 cannot be reached.").arg(m_name));
}

VirtualDisplay::~VirtualDisplay()
{
    XCloseDisplay(m_connection);
    endchild(m_server);
}

QRect VirtualDisplay::area() const
{
    const int screen = DefaultScreen(m_connection);
    return {0, 0, DisplayWidth(m_connection, screen), DisplayHeight(m_connection, screen)};
}

bool VirtualDisplay::runs() { return childruns(m_server); }
