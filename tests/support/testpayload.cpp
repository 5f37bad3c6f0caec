#include "testpayload.h"

#include <QColor>
#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

QString listFormat() { return QStringLiteral("application/vnd.text.list"); }

QString colorFormat() { return QStringLiteral("application/x-color"); }

QByteArray stringBytes(const QStringList& strings)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString& string : strings)
        stream << string;
    return bytes;
}

QByteArray colorBytes(const QColor& color)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << color;
    return bytes;
}

std::unique_ptr<QMimeData> payload(const QByteArray& list, const QByteArray& colors)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(listFormat(), list);
    data->setData(colorFormat(), colors);
    return data;
}
