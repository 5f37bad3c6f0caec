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

/// Calls \a visit with each element below \a parent, which lie at most `maxXmlDepth` deep, that is one of \a
/// tags.
template<class Visit>
void visitelements(const QDomNode& parent, const QStringList& tags, const Visit& visit)
{
    for (QDomElement element = parent.firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        if (tags.contains(element.tagName()))
            visit(element);
        visitelements(element, tags, visit);
    }
}

/// The same for the document \a xml.
template<class Visit>
void visitelements(const QByteArray& xml, const QStringList& tags, Malformed malformed, XmlRefusal* refusal,
                   const Visit& visit)
{
    const XmlText safe = safexml(xml);
    if (refusal)
        *refusal = safe.refusal;
    if (!holdsany(safe.text, tags))
        return;
    QDomDocument document;
    // After an error the document holds what was read ahead of it.
    if (document.setContent(safe.text) || malformed == Malformed::WhatWasRead)
        visitelements(document, tags, visit);
}

} // namespace

QList<XmlElement> elementsof(const QByteArray& xml, const QStringList& tags, Malformed malformed,
                             XmlRefusal* refusal)
{
    QList<XmlElement> elements;
    visitelements(xml, tags, malformed, refusal, [&elements](const QDomElement& element) {
        elements.append({element.tagName(), recordof(element.attributes())});
    });
    return elements;
}

QList<XmlElement> readelements(const QString& path, const QStringList& tags)
{
    const auto xml = readregularfile(path, maxXmlSize);
    return xml ? elementsof(*xml, tags) : QList<XmlElement>();
}

QHash<QString, QString> readpairs(const QString& path, const QString& tag, const QString& key,
                                  const QString& value)
{
    QHash<QString, QString> pairs;
    if (const auto xml = readregularfile(path, maxXmlSize)) {
        visitelements(*xml, {tag}, Malformed::Nothing, nullptr, [&](const QDomElement& element) {
            pairs.insert(withcontrols(element.attribute(key)), withcontrols(element.attribute(value)));
        });
    }
    return pairs;
}
