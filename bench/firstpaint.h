#pragma once

#include "application.h"

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>

/// Ends the event loop when the window it watches is painted. The children are painted and the picture is
/// handed to the screen in the same run of the loop, so all of that is still done.
class QuitAtFirstPaint : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            QCoreApplication::quit();
        return QObject::eventFilter(watched, event);
    }
};

/// Starts as the program does, shows one \a Window and gives the exit code: 0 after its first paint, 1 when
/// it is not painted within half a minute.
template<class Window>
int showuntilpainted(int argc, char* argv[])
{
    followscreenscale();
    QApplication app(argc, argv);
    Window window;
    QuitAtFirstPaint watcher;
    window.installEventFilter(&watcher);
    window.show();
    QTimer patience;
    QObject::connect(&patience, &QTimer::timeout, &app, [] { QCoreApplication::exit(1); });
    patience.start(30000);
    return QApplication::exec();
}
