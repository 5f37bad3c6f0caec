#include "xmlelements.h"

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

Record recordof(const QXmlStreamAttributes& attributes)
{
    Record record;
    for (const QXmlStreamAttribute& attribute : attributes)
        record.insert(attribute.qualifiedName().toString(), attribute.value().toString());
    return record;
}

/// Whether any of \a tags can stand in \a xml. Half the files of the resources hold no layout, and the window
/// waits for them to be read.
bool holdsany(const QByteArray& xml, const QStringList& tags)
{
    return std::any_of(tags.cbegin(), tags.cend(),
                       [&xml](const QString& tag) { return xml.contains('<' + tag.toUtf8()); });
}

/// Whether reading \a xml could take for ever. The XML reader compares each attribute of a tag with all
/// before it, and entities let a small file grow without end; no file of ours or of VirtualDJ's has many of
/// the one or any of the other.
bool hostile(const QByteArray& xml)
{
    if (xml.contains("<!ENTITY") || xml.contains("<!ATTLIST"))
        return true;
    constexpr int maxAttributes = 256;
    int attributes = 0;
    char last = 0;
    return std::any_of(xml.cbegin(), xml.cend(), [&](char sign) {
        if (sign == '<')
            attributes = 0;
        else if ((sign == '"' || sign == '\'') && last == '=')
            ++attributes;
        if (static_cast<unsigned char>(sign) > ' ')
            last = sign;
        return attributes > maxAttributes;
    });
}

} // namespace

QList<XmlElement> elementsof(const QByteArray& xml, const QStringList& tags, Malformed malformed)
{
    QList<XmlElement> elements;
    QXmlStreamReader reader;
    if (xml.startsWith("\xFE\xFF") || xml.startsWith("\xFF\xFE")) {
        const QString text = QTextCodec::codecForName("UTF-16")->toUnicode(xml);
        if (hostile(text.toUtf8()))
            return elements;
        reader.addData(text);
    } else {
        // In any other encoding the signs that `hostile` looks for are single bytes; NULs would hide them.
        if (!holdsany(xml, tags) || xml.contains('\0') || hostile(xml))
            return elements;
        reader.addData(xml);
    }
    // Read as a stream: a document tree takes a stack frame for every level of nesting.
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        reader.readNext();
        const QString tag = reader.qualifiedName().toString();
        if (reader.isStartElement() && tags.contains(tag))
            elements.append({tag, recordof(reader.attributes())});
    }
    if (reader.hasError() && malformed == Malformed::Nothing)
        elements.clear();
    return elements;
}

QList<XmlElement> readelements(const QString& path, const QStringList& tags)
{
    // A pipe or device under this name is no mapping; reading it could block for ever.
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > maxXmlSize || !file.open(QIODevice::ReadOnly))
        return {};
    return elementsof(file.readAll(), tags);
}
