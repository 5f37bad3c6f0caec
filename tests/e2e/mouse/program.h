#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>

class Home;

/// Lumipad itself, running as a process of its own.
class Program
{
public:
    /// Kills the program if it still runs.
    ~Program();

    /// Starts the program file \a program on the display \a display (as in DISPLAY) in \a home. Its
    /// surroundings are a plain desktop, whatever the user's own: no theme, no scale, no message bus; the
    /// variables \a more come on top of them. Throws `Trouble` when it cannot be started.
    void start(const QString& program, const Home& home, const QString& display,
               const QProcessEnvironment& more = {});

    /// Whether it was started and still runs.
    bool runs();
    /// Whether it was started and has ended, by itself or not.
    bool hasended() { return m_started && !runs(); }
    /// The number of its process; 0 while it does not run.
    qint64 process() const { return m_process.processId(); }
    /// The exit code after its end; -1 when a signal ended it.
    int exitcode() const;

private:
    QProcess m_process;
    bool m_started = false;
};
