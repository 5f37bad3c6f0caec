#include "childprocess.h"

#include "trouble.h"

namespace {

constexpr int endPatience = 10000; // ms

}

void startchild(QProcess& child, ChildEnd end, const QString& program, const QStringList& arguments)
{
    // Both programs put the next one in their own place: the number of the process stays. In a session of its
    // own the child does not hear of Ctrl+C in the terminal; this process does, and tidies up.
    const QString signal = end == ChildEnd::Killed ? QStringLiteral("KILL") : QStringLiteral("TERM");
    child.start(QStringLiteral("setpriv"), QStringList{"--pdeathsig", signal, "setsid", program} + arguments);
    if (!child.waitForStarted())
        throw Trouble(QStringLiteral("%1 cannot be started: %2.").arg(program, child.errorString()));
}

bool childruns(QProcess& child)
{
    // Without an event loop only a wait takes notice of the end.
    child.waitForFinished(0);
    return child.state() != QProcess::NotRunning;
}

void endchild(QProcess& child)
{
    child.terminate();
    if (child.waitForFinished(endPatience))
        return;
    child.kill();
    child.waitForFinished(endPatience);
}
