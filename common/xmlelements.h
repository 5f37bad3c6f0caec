#pragma once

#include "record.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// One element of an XML file: its tag and its attributes.
struct XmlElement
{
    QString tag;
    Record attributes;
};

/// Far above any real mapping or project (some hundred kilobytes), and small enough to be parsed at once.
constexpr int maxXmlSize = 8 * 1024 * 1024;

/// What `elementsof` gives of a malformed document.
enum class Malformed { Nothing, WhatWasRead };

/// Every element of the document \a xml whose tag is in \a tags, at any depth, in document order. Nothing for
/// a document that defines entities or default attributes, or that crowds a tag with hundreds of attributes:
/// a small one of these can keep a reader busy for hours.
QList<XmlElement> elementsof(const QByteArray& xml, const QStringList& tags,
                             Malformed malformed = Malformed::Nothing);

/// The same for the file \a path. Empty for a file that is missing, unreadable, malformed or larger than
/// `maxXmlSize` bytes.
QList<XmlElement> readelements(const QString& path, const QStringList& tags);
