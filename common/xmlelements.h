#pragma once

#include "bounds.h"
#include "record.h"
#include "xmltext.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

/// One element of an XML file: its tag and its attributes.
struct XmlElement
{
    QString tag;
    Record attributes;
};

/// What `elementsof` gives of a malformed document.
enum class Malformed { Nothing, WhatWasRead };

/// Every element of the document \a xml whose tag is in \a tags, at any depth, in document order, as a DOM
/// tree holds them. Nothing for a document that `safexml` refuses; \a refusal then takes the reason.
QList<XmlElement> elementsof(const QByteArray& xml, const QStringList& tags,
                             Malformed malformed = Malformed::Nothing, XmlRefusal* refusal = nullptr);

/// The same for the file \a path. Empty for a file that is missing, unreadable, malformed or larger than
/// `maxXmlSize` bytes.
QList<XmlElement> readelements(const QString& path, const QStringList& tags);

/// For every element \a tag of the file \a path: its attribute \a value by its attribute \a key. Of several
/// elements with the same key the last counts; an attribute that is missing reads as the empty text. Empty
/// where `readelements` is.
QHash<QString, QString> readpairs(const QString& path, const QString& tag, const QString& key,
                                  const QString& value);
