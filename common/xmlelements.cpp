#include "xmlelements.h"

#include "readfile.h"

#include <QDomDocument>

#include <algorithm>

namespace {

Record recordof(const QDomNamedNodeMap& attributes)
{
    Record record;
    for (int n = 0; n < attributes.size(); ++n) {
        const QDomNode attribute = attributes.item(n);
        record.insert(attribute.nodeName(), withcontrols(attribute.nodeValue()));
    }
    return record;
}

/// Whether any of \a tags can stand in \a text. Half the files of the resources hold no layout, and the
/// window waits for them to be read.
bool holdsany(const QString& text, const QStringList& tags)
{
    return std::any_of(tags.cbegin(), tags.cend(),
                       [&text](const QString& tag) { return text.contains(QLatin1Char('<') + tag); });
}

/// Appends the elements below \a parent, which lie at most `maxXmlDepth` deep.
void collect(const QDomNode& parent, const QStringList& tags, QList<XmlElement>* elements)
{
    for (QDomElement element = parent.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        const QString tag = element.tagName();
        if (tags.contains(tag))
            elements->append({tag, recordof(element.attributes())});
        collect(element, tags, elements);
    }
}

} // namespace

QList<XmlElement> elementsof(const QByteArray& xml, const QStringList& tags, Malformed malformed,
                             XmlRefusal* refusal)
{
    const XmlText safe = safexml(xml);
    if (refusal)
        *refusal = safe.refusal;
    QList<XmlElement> elements;
    if (!holdsany(safe.text, tags))
        return elements;
    QDomDocument document;
    // After an error the document holds what was read ahead of it.
    if (document.setContent(safe.text) || malformed == Malformed::WhatWasRead)
        collect(document, tags, &elements);
    return elements;
}

QList<XmlElement> readelements(const QString& path, const QStringList& tags)
{
    const auto xml = readregularfile(path, maxXmlSize);
    return xml ? elementsof(*xml, tags) : QList<XmlElement>();
}
