#include "testfiles.h"

#include <QFile>
#include <QStringList>

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(there is no such file)");
}

void writefile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write a file of the test");
}

QByteArray utf16(const QString& text)
{
    QByteArray bytes;
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    for (const QChar sign : marked) {
        bytes += static_cast<char>(sign.cell());
        bytes += static_cast<char>(sign.row());
    }
    return bytes;
}

QString firstDifference(const QByteArray& actual, const QByteArray& expected)
{
    if (actual == expected)
        return QString();
    const QStringList actualLines = QString::fromUtf8(actual).split('\n');
    const QStringList expectedLines = QString::fromUtf8(expected).split('\n');
    int line = 0;
    while (line < actualLines.size() && line < expectedLines.size() &&
           actualLines.at(line) == expectedLines.at(line))
        ++line;
    const QString actualLine = actualLines.value(line, "(end of file)");
    const QString expectedLine = expectedLines.value(line, "(end of file)");
    int column = 0;
    while (column < actualLine.size() && column < expectedLine.size() &&
           actualLine.at(column) == expectedLine.at(column))
        ++column;
    const int start = qMax(0, column - 200);
    return "line " + QString::number(line + 1) + ", column " + QString::number(column + 1) +
           "\n   written:  " + actualLine.mid(start, 400) + "\n   expected: " + expectedLine.mid(start, 400);
}
