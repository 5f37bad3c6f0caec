#include "application.h"
#include "mainwindow.h"
#include "toolkit.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    drawatscreenscale();
    // A scale such as 1.25, rounded to a whole number, would leave the window too small for its texts, or too
    // big.
    QApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication app(argc, argv);
    nameapplication();
    MainWindow window;
    window.show();
    return QApplication::exec();
}
