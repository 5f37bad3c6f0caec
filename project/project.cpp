#include "project.h"

#include <QDomDocument>
#include <QStringList>

namespace {

bool ismidi(const Record& project) { return project.value(Key::type()) == QLatin1String("midi"); }

QStringList projectattributes(bool midi)
{
    if (midi)
        return {QStringLiteral("deviceid"), QStringLiteral("type"),   QStringLiteral("show"),
                QStringLiteral("showname"), QStringLiteral("switch"), QStringLiteral("offcolor"),
                QStringLiteral("oncolor"),  QStringLiteral("export")};
    return {QStringLiteral("type"),   QStringLiteral("show"),   QStringLiteral("showname"),
            QStringLiteral("export"), QStringLiteral("layout"), QStringLiteral("banks")};
}

QStringList keyattributes(bool midi)
{
    QStringList attributes{QStringLiteral("row"), QStringLiteral("column"),
                           Key::name(),           Key::dspName(),
                           Key::pageNr(),         Key::id()};
    if (midi)
        attributes << Key::avail() << Key::colorOff() << Key::colorOn() << Key::blink();
    return attributes << Key::color();
}

/// Every attribute is followed by one blank, the last one too.
QString attributetext(const QStringList& names, const Record& values)
{
    QString text;
    for (const QString& name : names)
        text += name + "=\"" + values.value(name) + "\" ";
    return text;
}

QList<Record> attributesof(const QDomDocument& document, const QString& tag)
{
    QList<Record> records;
    const QDomNodeList elements = document.elementsByTagName(tag);
    for (int i = 0; i < elements.count(); ++i) {
        Record record;
        const QDomNamedNodeMap attributes = elements.item(i).attributes();
        for (int k = 0; k < attributes.count(); ++k)
            record.insert(attributes.item(k).nodeName(), attributes.item(k).nodeValue());
        records.append(record);
    }
    return records;
}

} // namespace

// Plain joining, not QString::arg: a name may hold "%1", and arg would take it for a place to fill.
QString projectxml(const Project& project)
{
    const Record head = project.projects.value(0);
    const bool midi = ismidi(head);
    QString xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project " +
                  attributetext(projectattributes(midi), head) + ">\n";
    for (const Record& key : project.keys)
        xml += "\t<key " + attributetext(keyattributes(midi), key) + "/>\n";
    return xml + "</project>\n";
}

Project readproject(const QByteArray& text)
{
    QDomDocument document;
    document.setContent(text); // whether it is whole does not matter: what was read counts
    return {attributesof(document, QStringLiteral("project")), attributesof(document, QStringLiteral("key"))};
}
