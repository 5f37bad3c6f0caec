#include "application.h"
#include "mainwindow.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    // Qt 6 does both by itself: draw at the screen's scale, and use the "@2x" images there.
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication app(argc, argv);
    nameapplication();
    MainWindow window;
    window.show();
    return QApplication::exec();
}
