// The reader of XML elements: what it reads of a file is what a bare document tree of the toolkit reads, and
// it refuses no file without a reason.

#include "bounds.h"
#include "fuzz.h"
#include "xmlelements.h"

#include <QDomDocument>

namespace {

/// Every element below \a node, itself included, in document order.
QList<XmlElement> elementsbelow(const QDomNode& node)
{
    QList<XmlElement> elements;
    QList<QDomNode> todo{node};
    while (!todo.isEmpty()) {
        const QDomNode next = todo.takeLast();
        const QDomNamedNodeMap attributes = next.attributes();
        Record record;
        for (int i = 0; i < attributes.count(); ++i)
            record.insert(attributes.item(i).nodeName(), withcontrols(attributes.item(i).nodeValue()));
        if (next.isElement())
            elements.append({next.nodeName(), record});
        for (QDomNode child = next.lastChild(); !child.isNull(); child = child.previousSibling())
            todo.append(child);
    }
    return elements;
}

bool same(const QList<XmlElement>& a, const QList<XmlElement>& b)
{
    return std::equal(a.cbegin(), a.cend(), b.cbegin(), b.cend(), [](const auto& one, const auto& other) {
        return one.tag == other.tag && one.attributes == other.attributes;
    });
}

/// Whether there can be a reason to refuse \a xml as \a refusal says.
bool hasreason(QByteArray xml, XmlRefusal refusal)
{
    const bool ascii = std::all_of(xml.cbegin(), xml.cend(), [](char sign) { return sign > 0; });
    xml.replace('\0', ""); // of UTF-16 the letters stay
    switch (refusal) {
    case XmlRefusal::None:
        break;
    case XmlRefusal::Encoding:
        return !ascii || xml.contains("encoding");
    case XmlRefusal::Entities:
        return xml.contains("<!ENTITY");
    case XmlRefusal::DefaultAttributes:
        return xml.contains("<!ATTLIST");
    case XmlRefusal::Nesting:
        return xml.count('<') + xml.count('(') > maxXmlDepth;
    case XmlRefusal::Attributes:
        return xml.count('"') + xml.count('\'') > 2 * maxXmlAttributes;
    case XmlRefusal::Parts:
        return xml.size() > maxXmlParts;
    }
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray xml = Fuzz::bytes(data, size);
    const QStringList tags{"project", "key", "mapper", "map", "layout", "pad", "button"};
    XmlRefusal refusal = XmlRefusal::None;
    const auto whole = Fuzz::intime([&] { return elementsof(xml, tags); });
    const auto read = Fuzz::intime([&] { return elementsof(xml, tags, Malformed::WhatWasRead, &refusal); });
    if (refusal != XmlRefusal::None) {
        Fuzz::require(whole.isEmpty() && read.isEmpty(), "nothing is read of a refused file");
        Fuzz::require(hasreason(xml, refusal), "a file is refused for a reason");
        return 0;
    }

    QDomDocument document;
    // Of the bare file the stricter DOM loses tabs and line breaks in values, and it ends at control
    // characters.
    const bool wellformed =
        QT_VERSION_MAJOR < 6 ? document.setContent(xml) : document.setContent(safexml(xml).text);
    QList<XmlElement> expected;
    const auto all = elementsbelow(document);
    for (const XmlElement& element : all)
        if (tags.contains(element.tag))
            expected.append(element);
    Fuzz::require(same(read, expected), "elements are read as a document tree has them");
    Fuzz::require(same(whole, wellformed ? expected : QList<XmlElement>()),
                  "a file with an error counts as empty");
    return 0;
}
