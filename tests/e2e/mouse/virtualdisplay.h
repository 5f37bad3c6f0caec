#pragma once

#include "xconnection.h"

#include <QProcess>
#include <QRect>
#include <QString>

/// An X display that nobody sees, of its own server, with a connection to it. There is no window manager on
/// it: windows lie where the program puts them and have no frames.
class VirtualDisplay
{
public:
    /// Starts the server, which picks a free number itself, and connects. Throws `Trouble` when Xvfb is
    /// missing or does not start.
    VirtualDisplay();
    ~VirtualDisplay();
    Q_DISABLE_COPY(VirtualDisplay)

    /// Its name for the variable DISPLAY, such as ":7".
    QString name() const { return m_name; }
    XConnection* connection() const { return m_connection; }
    /// The whole screen in pixels, from (0, 0).
    QRect area() const;
    /// Whether the server still runs.
    bool runs();

private:
    QProcess m_server;
    QString m_name;
    XConnection* m_connection = nullptr;
};
