#include "application.h"
#include "mainwindow.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    followscreenscale();
    QApplication app(argc, argv);
    nameapplication();
    MainWindow window;
    window.show();
    return QApplication::exec();
}
