#include "testwindow.h"

#include <QCloseEvent>
#include <QTest>

bool TestWindow::showready()
{
    show();
    activateWindow();
    return QTest::qWaitForWindowActive(this) && QTest::qWaitForWindowExposed(this);
}

void TestWindow::closeEvent(QCloseEvent* event)
{
    ++closeRequests;
    MainWindow::closeEvent(event);
    if (event->isAccepted())
        ++closesAccepted;
}
