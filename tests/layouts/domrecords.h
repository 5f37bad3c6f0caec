#pragma once

#include "record.h"

#include <QDomElement>
#include <QList>

// Layouts and mappings as the toolkit's DOM has them, for checks that know nothing of the program's readers.

inline QList<QDomElement> childrenof(const QDomElement& parent)
{
    QList<QDomElement> all;
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        all.append(child);
    return all;
}

/// The attributes of \a element.
inline Record recordof(const QDomElement& element)
{
    Record record;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i)
        record.insert(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
    return record;
}
