#pragma once

#include <QByteArray>
#include <QString>
#include <QTest>

/// The bytes of a file; a text that no file of a test holds when there is none.
QByteArray contents(const QString& path);

/// Replaces the file by \a bytes; ends the test program when that fails.
void writefile(const QString& path, const QByteArray& bytes);

/// The bytes of \a text in UTF-16, behind a byte order mark.
QByteArray utf16(const QString& text);

/// Where two files part, for the message of a failed test: the number of the first line that differs and the
/// line in both; empty for equal files. Of a long line only the part around the difference is shown, as Qt
/// Test cuts long messages.
QString firstDifference(const QByteArray& actual, const QByteArray& expected);

/// Fails the test with the first difference between two files' bytes.
#define COMPARE_FILES(actual, expected)                                                                      \
    do {                                                                                                     \
        const QString difference = firstDifference(actual, expected);                                        \
        QVERIFY2(difference.isEmpty(), qPrintable(difference));                                              \
    } while (false)
