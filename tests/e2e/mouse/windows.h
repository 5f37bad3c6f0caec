#pragma once

#include "xconnection.h"

#include <QRect>
#include <QString>
#include <QVector>

/// One window as X knows it.
struct ScreenWindow
{
    WindowId id = 0; ///< 0 for no window
    QRect geometry;  ///< on the screen
    QString title;

    bool exists() const { return id != 0; }
};

/// The visible windows of the process, the lowest first. Without a window manager every window that it shows
/// is a child of the root window, drag pictures and popups included.
QVector<ScreenWindow> windowsof(XConnection* display, qint64 process);

/// Asks a window to close, as a click on the close box of its frame does.
void requestclose(XConnection* display, WindowId window);

/// Gives the keyboard to a window, as a window manager does.
void givekeyboard(XConnection* display, WindowId window);
/// Whether the window has the keyboard.
bool haskeyboard(XConnection* display, WindowId window);
