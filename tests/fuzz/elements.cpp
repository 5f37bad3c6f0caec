// The reader of XML elements: what it reads of a file is what a bare document tree of the toolkit reads.

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray xml = Fuzz::bytes(data, size);
    const QStringList tags{"project", "key", "mapper", "map", "layout", "pad", "button"};
    const auto whole = Fuzz::intime([&] { return elementsof(xml, tags); });
    const auto read = Fuzz::intime([&] { return elementsof(xml, tags, Malformed::WhatWasRead); });
    Fuzz::require(whole.isEmpty() || same(whole, read), "a file without an error is read in one way");
    if (read.isEmpty())
        return 0; // refused, or none of the elements is there

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
    Fuzz::require(wellformed == !whole.isEmpty(), "a file with an error counts as empty");
    return 0;
}
