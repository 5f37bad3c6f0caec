#pragma once

#include "record.h"

#include <QList>
#include <QString>
#include <QStringList>

/// One element of an XML file: its tag and its attributes.
struct XmlElement
{
    QString tag;
    Record attributes;
};

/// Far above any real mapping (some hundred kilobytes), and small enough to be parsed at once.
constexpr int maxXmlSize = 8 * 1024 * 1024;

/// Every element of the XML file \a path whose tag is in \a tags, anywhere in the document, in document
/// order. Empty for a file that is missing, unreadable, malformed or larger than `maxXmlSize` bytes.
QList<XmlElement> readelements(const QString& path, const QStringList& tags);
