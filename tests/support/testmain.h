#pragma once

#include "testdialogs.h"
#include "testhome.h"

#include <QApplication>
#include <QTest>

/// Starts the tests of \a TestClass in a home folder of their own, made before anything asks for it. The file
/// dialogs are the toolkit's own, whatever desktop the tests run on.
#define LUMIPAD_TEST_MAIN(TestClass)                                                                         \
    int main(int argc, char* argv[])                                                                         \
    {                                                                                                        \
        const TestHome home;                                                                                 \
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                                             \
        QApplication app(argc, argv);                                                                        \
        QApplication::setQuitOnLastWindowClosed(false);                                                      \
        const DialogWatch watch;                                                                             \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
