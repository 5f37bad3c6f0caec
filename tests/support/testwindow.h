#pragma once

#include "mainwindow.h"

/// How many devices are built in.
int devicecount();

/// The row in which the built-in device of this id is listed; ends the test program when there is none.
int devicerow(const QString& id);

/// The window with its state in the open, and with its close requests counted.
class TestWindow : public MainWindow
{
public:
    using MainWindow::banks;
    using MainWindow::buttons;
    using MainWindow::controllerModel;
    using MainWindow::currentDevice;
    using MainWindow::currentDeviceId;
    using MainWindow::delegate;
    using MainWindow::devices;
    using MainWindow::dmxModel;
    using MainWindow::documentsPath;
    using MainWindow::homePath;
    using MainWindow::iniPath;
    using MainWindow::keyList;
    using MainWindow::mappers;
    using MainWindow::mappersPath;
    using MainWindow::menuIndex;
    using MainWindow::messageBoxStyle;
    using MainWindow::padsPath;
    using MainWindow::pages;
    using MainWindow::programFolder;
    using MainWindow::projectsPath;
    using MainWindow::showName;
    using MainWindow::switchPad;
    using MainWindow::vdjModel;

    /// Starts with the first device, as the program does, and goes on with the Akai APC Mini, which most
    /// tests use.
    TestWindow();

    int closeRequests = 0;
    int closesAccepted = 0;

    /// The widget or action \a name; ends the test program when there is none of this class.
    template<class T>
    T* child(const char* name) const
    {
        T* found = findChild<T*>(QLatin1String(name));
        if (!found)
            qFatal("The window has no %s named %s", T::staticMetaObject.className(), name);
        return found;
    }

    /// Shows the window and waits until it can be seen and has the keyboard.
    bool showready();

protected:
    void closeEvent(QCloseEvent* event) override;
};
