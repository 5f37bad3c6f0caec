#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>

class QColor;
class QMimeData;

// Drag payloads made by hand, byte for byte what the program's own drags carry.

QString listFormat();
QString colorFormat();

/// The stream of \a strings.
QByteArray stringBytes(const QStringList& strings);

/// The stream of one colour.
QByteArray colorBytes(const QColor& color);

/// A payload with these bytes under the two formats.
std::unique_ptr<QMimeData> payload(const QByteArray& list, const QByteArray& colors);
