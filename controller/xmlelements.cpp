#include "xmlelements.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

namespace {

Record attributesof(const QDomElement& element)
{
    Record record;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        record.insert(attribute.name(), attribute.value());
    }
    return record;
}

/// The node that follows \a node in document order below \a root; null behind the last one.
QDomNode nextnode(const QDomNode& node, const QDomNode& root)
{
    if (!node.firstChild().isNull())
        return node.firstChild();
    QDomNode last = node;
    while (last != root && last.nextSibling().isNull())
        last = last.parentNode();
    return last == root ? QDomNode() : last.nextSibling();
}

} // namespace

QList<XmlElement> readelements(const QString& path, const QStringList& tags)
{
    // A pipe or device under this name is no mapping; reading it could block for ever.
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > maxXmlSize || !file.open(QIODevice::ReadOnly))
        return {};
    QDomDocument document;
    if (!document.setContent(&file))
        return {};
    QList<XmlElement> elements;
    for (QDomNode node = document; !node.isNull(); node = nextnode(node, document)) {
        const QDomElement element = node.toElement();
        if (!element.isNull() && tags.contains(element.tagName()))
            elements.append({element.tagName(), attributesof(element)});
    }
    return elements;
}
