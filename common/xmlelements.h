#pragma once

#include "bounds.h"
#include "record.h"
#include "xmltext.h"

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

/// What `elementsof` gives of a malformed document.
enum class Malformed { Nothing, WhatWasRead };

/// Every element of the document \a xml whose tag is in \a tags, at any depth, in document order, as a DOM
/// tree holds them. Nothing for a document that `safexml` refuses; \a refusal then takes the reason.
QList<XmlElement> elementsof(const QByteArray& xml, const QStringList& tags,
                             Malformed malformed = Malformed::Nothing, XmlRefusal* refusal = nullptr);

/// The same for the file \a path. Empty for a file that is missing, unreadable, malformed or larger than
/// `maxXmlSize` bytes.
QList<XmlElement> readelements(const QString& path, const QStringList& tags);
