#include "project.h"

#include "xmlelements.h"

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
    const QString head = QStringLiteral("project");
    const auto elements = elementsof(text, {head, QStringLiteral("key")}, Malformed::WhatWasRead);
    Project project;
    for (const XmlElement& element : elements)
        (element.tag == head ? project.projects : project.keys).append(element.attributes);
    return project;
}
