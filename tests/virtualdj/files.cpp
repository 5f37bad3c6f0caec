#include "files.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <functional>
#include <utility>

namespace VirtualDj {

namespace {

QString text(const QXmlStreamAttributes& attributes, const char* name)
{
    return attributes.value(QLatin1String(name)).toString();
}

/// Reads a document whose root element is \a root: hands the root's attributes to \a begin and every child,
/// which it must read or skip, to \a child. The reason when the document is not well-formed or another one;
/// empty otherwise.
QString readdocument(const QByteArray& bytes, const QString& root,
                     const std::function<void(const QXmlStreamAttributes&)>& begin,
                     const std::function<void(QXmlStreamReader*)>& child)
{
    QXmlStreamReader xml(bytes);
    xml.setNamespaceProcessing(false);
    if (xml.readNextStartElement()) {
        if (xml.name() != root)
            return QStringLiteral("the root element is ") + xml.name().toString();
        begin(xml.attributes());
        while (xml.readNextStartElement())
            child(&xml);
    }
    while (!xml.atEnd())
        xml.readNext();
    return xml.hasError() ? QStringLiteral("line %1, column %2: %3")
                                .arg(QString::number(xml.lineNumber()), QString::number(xml.columnNumber()),
                                     xml.errorString())
                          : QString();
}

/// The number in an element's name such as "pad12"; 0 when \a name is no \a kind with a number.
int numbered(const QString& name, const QString& kind)
{
    const QString digits = name.mid(kind.size());
    const int number = name.startsWith(kind) ? digits.toInt() : 0;
    return QString::number(number) == digits ? number : 0;
}

} // namespace

QByteArray bytesof(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("There is no file %s", qPrintable(path));
    return file.readAll();
}

PadsPageFile readpadspage(const QByteArray& bytes)
{
    PadsPageFile page;
    QString twice;
    const auto child = [&](QXmlStreamReader* xml) {
        const QString element = xml->name().toString();
        const QXmlStreamAttributes attributes = xml->attributes();
        const QString action = xml->readElementText();
        const int pad = numbered(element, QStringLiteral("pad"));
        const int parameter = numbered(element, QStringLiteral("param"));
        if (page.pads.contains(pad) || page.parameters.contains(parameter))
            twice = element;
        else if (pad > 0)
            page.pads.insert(pad, {text(attributes, "name"), text(attributes, "color"), action});
        else if (parameter > 0)
            page.parameters.insert(parameter, {text(attributes, "name"), action});
        else
            page.strangers.append(element);
    };
    page.error = readdocument(
        bytes, QStringLiteral("page"),
        [&](const QXmlStreamAttributes& attributes) { page.name = text(attributes, "name"); }, child);
    if (page.error.isEmpty() && !twice.isEmpty())
        page.error = twice + QStringLiteral(" is there twice");
    return page;
}

MappingFile readmapping(const QByteArray& bytes)
{
    MappingFile mapping;
    const auto child = [&](QXmlStreamReader* xml) {
        if (xml->name() == QLatin1String("map")) {
            const QString control = text(xml->attributes(), "value");
            const QString action = text(xml->attributes(), "action");
            if (mapping.actions.value(control, action) != action)
                mapping.contradictions.append(control);
            mapping.actions.insert(control, action);
        } else {
            mapping.strangers.append(xml->name().toString());
        }
        xml->skipCurrentElement();
    };
    mapping.error = readdocument(
        bytes, QStringLiteral("mapper"),
        [&](const QXmlStreamAttributes& attributes) { mapping.device = text(attributes, "device"); }, child);
    return mapping;
}

Device readdevice(const QString& path)
{
    Device device;
    device.name = QFileInfo(path).baseName();
    QMap<Control::Type, QList<Control>> controls;
    const auto add = [&](const QXmlStreamReader& xml) {
        static const QMap<QString, Control::Type> types{{QStringLiteral("pad"), Control::Type::Pad},
                                                        {QStringLiteral("button"), Control::Type::Button},
                                                        {QStringLiteral("slider"), Control::Type::Slider},
                                                        {QStringLiteral("ignore"), Control::Type::Ignore},
                                                        {QStringLiteral("empty"), Control::Type::Empty}};
        if (!types.contains(xml.name().toString()))
            return;
        const QXmlStreamAttributes attributes = xml.attributes();
        Control control;
        control.type = types.value(xml.name().toString());
        control.name = text(attributes, "name");
        const QString colorled = text(attributes, "colorled");
        const QString prefix = colorled.isEmpty() ? text(attributes, "led") : colorled;
        control.plainLed = colorled.isEmpty();
        if (!prefix.isEmpty())
            control.led = prefix + control.name;
        if (attributes.hasAttribute(QLatin1String("row"))) {
            control.row = text(attributes, "row").toInt();
            control.column = text(attributes, "col").toInt();
        }
        controls[control.type].append(control);
    };
    QXmlStreamReader xml(bytesof(path));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("layout")) {
            const QXmlStreamAttributes attributes = xml.attributes();
            device.id = text(attributes, "name");
            device.fullRgb = text(attributes, "fullrgb") == QLatin1String("true");
            device.colors = text(attributes, "colors").split(QLatin1Char(','));
            device.offColor = text(attributes, "coloroff").toInt();
            device.onColor = text(attributes, "coloron").toInt();
        } else {
            add(xml);
        }
    }
    if (xml.hasError())
        qFatal("The layout %s cannot be read", qPrintable(path));
    for (const QList<Control>& kind : std::as_const(controls))
        device.controls += kind;
    return device;
}

} // namespace VirtualDj
