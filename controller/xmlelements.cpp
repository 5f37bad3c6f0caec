#include "xmlelements.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>
#include <cctype>

namespace {

Record recordof(const QXmlStreamAttributes& attributes)
{
    Record record;
    for (const QXmlStreamAttribute& attribute : attributes)
        record.insert(attribute.qualifiedName().toString(), attribute.value().toString());
    return record;
}

/// Whether a tag of \a xml could carry more attributes than any mapping has: the XML reader compares each
/// with all before it, so that one tag of a few megabytes would keep it busy for hours.
bool crowded(const QByteArray& xml)
{
    constexpr int maxAttributes = 256;
    int attributes = 0;
    char last = 0;
    return std::any_of(xml.cbegin(), xml.cend(), [&](char sign) {
        if (sign == '<')
            attributes = 0;
        else if ((sign == '"' || sign == '\'') && last == '=')
            ++attributes;
        if (!std::isspace(static_cast<unsigned char>(sign)))
            last = sign;
        return attributes > maxAttributes;
    });
}

} // namespace

QList<XmlElement> readelements(const QString& path, const QStringList& tags)
{
    // A pipe or device under this name is no mapping; reading it could block for ever.
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > maxXmlSize || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray xml = file.readAll();
    if (crowded(xml))
        return {};
    // Read as a stream: a document tree takes a stack frame for every level of nesting.
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    QList<XmlElement> elements;
    while (!reader.atEnd()) {
        reader.readNext();
        // Entities of its own let a small file grow without end; mappings have none.
        if (reader.isDTD() && !reader.entityDeclarations().isEmpty())
            return {};
        const QString tag = reader.qualifiedName().toString();
        if (reader.isStartElement() && tags.contains(tag))
            elements.append({tag, recordof(reader.attributes())});
    }
    return reader.hasError() ? QList<XmlElement>() : elements;
}
