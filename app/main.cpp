#include "application.h"
#include "mainwindow.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    // Qt 6 does all three by itself: draw at the screen's scale, use the "@2x" images there, and keep to a
    // scale such as 1.25. Rounded to a whole number it would leave the window too small for its texts, or too
    // big.
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication app(argc, argv);
    nameapplication();
    MainWindow window;
    window.show();
    return QApplication::exec();
}
