#include "form.h"

#include "trouble.h"

#include <QFile>
#include <QXmlStreamReader>

namespace {

/// The rectangle of a geometry property, on whose element the reader stands.
QRect readrect(QXmlStreamReader& xml)
{
    QHash<QString, int> numbers;
    xml.readNextStartElement();
    while (xml.readNextStartElement()) {
        const QString name = xml.name().toString();
        numbers.insert(name, xml.readElementText().toInt());
    }
    xml.skipCurrentElement();
    return {numbers.value("x"), numbers.value("y"), numbers.value("width"), numbers.value("height")};
}

} // namespace

Form::Form(const QString& path)
{
    QFile file(path);
    QXmlStreamReader xml(&file);
    if (file.open(QIODevice::ReadOnly) && xml.readNextStartElement()) {
        while (xml.readNextStartElement()) {
            if (xml.name() == QLatin1String("widget"))
                readwidget(xml, QPoint());
            else
                xml.skipCurrentElement();
        }
    }
    if (m_rects.isEmpty() || xml.hasError())
        throw Trouble(QStringLiteral("%1 cannot be read as a form.").arg(path));
}

/// Reads the widget on whose element the reader stands, with all inside it; \a parent is the corner of what
/// it lies in.
void Form::readwidget(QXmlStreamReader& xml, QPoint parent)
{
    const QString widget = xml.attributes().value(QLatin1String("name")).toString();
    QPoint corner = parent;
    while (xml.readNextStartElement()) {
        const QString name = xml.attributes().value(QLatin1String("name")).toString();
        if (xml.name() == QLatin1String("widget")) {
            readwidget(xml, corner);
        } else if (name == QLatin1String("geometry")) {
            const QRect rect = readrect(xml).translated(parent);
            corner = rect.topLeft();
            m_rects.insert(widget, rect);
        } else {
            xml.skipCurrentElement();
        }
    }
}

QRect Form::rect(const QString& name) const
{
    if (!m_rects.contains(name))
        throw Trouble(QStringLiteral("The form has no place for a widget named \"%1\".").arg(name));
    return m_rects.value(name);
}
