#include "work.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>

namespace VirtualDj {

QString reason(Deviation deviation)
{
    switch (deviation) {
    case Deviation::CutName:
        return QStringLiteral("names are joined as they stand, and a quotation has no escape: it ends at the "
                              "name's first apostrophe");
    case Deviation::HiddenBank:
        return QStringLiteral(
            "a bank with a Live Button in the hidden column only is in the page, all empty");
    case Deviation::DarkSwitch:
        return QStringLiteral("a pad as switch of a full-RGB device has the colour of its empty cell, black");
    case Deviation::NoSwitch:
        return QStringLiteral("without a switch nothing on the controller reaches the lights");
    case Deviation::SharedCell:
        return QStringLiteral("on the two-colour Launchpads the pad 2.1 lies on the cell of the pad 1.1");
    case Deviation::UnwrittenCell:
        return QStringLiteral("on the two-colour Launchpads no control lies on the cell of PAD 9");
    case Deviation::SideButtonColours:
        return QStringLiteral("side buttons take no colours of their own and do not blink");
    case Deviation::LightWithoutAction:
        return QStringLiteral("a control without factory action and Live Button loses its factory light");
    case Deviation::ButtonLight:
        return QStringLiteral(
            "a side button whose mapping has no light is lit by its own action, as long as no "
            "earlier side button has had a light");
    case Deviation::SwitchActionLost:
        return QStringLiteral("the switch is written without the factory action behind it");
    case Deviation::SwitchLightLeft:
        return QStringLiteral("the off colour of a switch is taken for the factory light by the next export");
    case Deviation::ShortLightLost:
        return QStringLiteral(
            "a factory light without a choice is taken for part of the Live Button's light by "
            "the next export");
    case Deviation::Os2lOnlyKept:
        return QStringLiteral(
            "an OS2L-only mapping has no factory actions; its Live Buttons are what a combined "
            "export on top of it finds");
    }
    return QString();
}

QList<Deviation> alldeviations()
{
    QList<Deviation> all;
    for (int number = 0; number <= static_cast<int>(Deviation::Os2lOnlyKept); ++number)
        all.append(static_cast<Deviation>(number));
    return all;
}

QList<int> PageWork::usedbanks() const
{
    QList<int> used;
    for (int bank = 0; bank < bankCount; ++bank) {
        const Bank& pads = banks.at(static_cast<std::size_t>(bank));
        if (std::any_of(pads.begin(), pads.end(), [](const auto& pad) { return pad.has_value(); }))
            used.append(bank);
    }
    return used;
}

MappingWork::Cell MappingWork::cellof(const Control& control) const
{
    return cells.value({control.row, control.column});
}

bool MappingWork::isswitch(const Control& control) const
{
    return Place(control.row, control.column) == switchCell && !cellof(control).button;
}

FactoryActions factoryof(const MappingFile& mapping, const Device& device, Deviations* deviations)
{
    FactoryActions factory;
    bool lightseen = false;
    for (const Control& control : device.controls) {
        const QString action = mapping.actions.value(control.name);
        factory.insert(control.name, action);
        if (control.led.isEmpty())
            continue;
        const bool haslight = mapping.actions.contains(control.led);
        QString light = mapping.actions.value(control.led);
        if (control.type == Control::Type::Button) {
            lightseen = lightseen || haslight;
            if (!haslight && !action.isEmpty())
                ++(*deviations)[Deviation::ButtonLight];
            if (!lightseen)
                light = action;
        }
        factory.insert(control.led, light);
    }
    return factory;
}

namespace {

/// A factory light that the next export finds again behind that of a Live Button: one that chooses.
bool chooses(const QString& light)
{
    const auto question = light.indexOf(QLatin1String(" ? "));
    return question >= 0 && light.indexOf(QLatin1String(" : ")) > question;
}

/// The factory light that the next export finds for a pad or side button of a combined mapping.
QString lightafter(const MappingWork& work, const Control& control, Deviations* deviations)
{
    const MappingWork::Cell cell = work.cellof(control);
    QString light = work.factory.value(control.led);
    if (work.isswitch(control)) {
        if (control.type == Control::Type::Button)
            return QString();
        ++(*deviations)[Deviation::SwitchLightLeft];
        return work.device.fullRgb
                   ? QStringLiteral("color 30% '%1'").arg(cell.color)
                   : QStringLiteral("color '%1'").arg(cell.off.isEmpty() ? work.defaultOff : cell.off);
    }
    if (!cell.button)
        return work.factory.value(control.name).isEmpty() ? QString() : light;
    const bool blinks = cell.blink && control.type == Control::Type::Pad;
    if (blinks || light.isEmpty() || chooses(light))
        return light;
    ++(*deviations)[Deviation::ShortLightLost];
    return QString();
}

} // namespace

FactoryActions factoryafter(const MappingWork& work, const MappingFile& written, Deviations* deviations)
{
    if (!work.combined) {
        ++(*deviations)[Deviation::Os2lOnlyKept];
        return factoryof(written, work.device, deviations);
    }
    FactoryActions factory = work.factory;
    for (const Control& control : work.device.controls) {
        if (control.type == Control::Type::Empty && factory.value(control.name).isEmpty())
            factory.insert(control.name, QStringLiteral("nothing"));
        if (control.led.isEmpty())
            continue;
        factory.insert(control.led, lightafter(work, control, deviations));
        if (work.isswitch(control)) {
            factory.insert(control.name, QString());
            ++(*deviations)[Deviation::SwitchActionLost];
        }
    }
    return factory;
}

Taken taken(const QString& name, Deviations* deviations)
{
    const QStringList pieces = name.split(QLatin1Char('\''));
    Taken taken{pieces.constFirst(), 0};
    if (pieces.size() == 1)
        return taken;
    ++(*deviations)[Deviation::CutName];
    // Behind the first piece bare words and quotations take turns.
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    static const QRegularExpression signs(QStringLiteral("[?:&()\"]"));
    bool garbles = pieces.size() % 2 == 0;
    for (int piece = 1; piece < pieces.size(); ++piece) {
        const bool bare = piece % 2 == 1;
        garbles = garbles || (bare && pieces.at(piece).contains(signs));
        taken.dropped +=
            bare ? static_cast<int>(pieces.at(piece).split(blanks, Qt::SkipEmptyParts).size()) : 1;
    }
    if (garbles)
        qFatal("The name %s garbles scripts", qPrintable(name));
    return taken;
}

namespace {

PageWork readpage(const QJsonObject& json)
{
    PageWork page;
    page.name = json.value(QLatin1String("page")).toString();
    page.sixteen = json.value(QLatin1String("pads")).toInt() == padsPerBank;
    const QJsonObject banks = json.value(QLatin1String("banks")).toObject();
    for (auto bank = banks.begin(); bank != banks.end(); ++bank) {
        const auto number = static_cast<std::size_t>(bank.key().toInt() - 1);
        const QJsonObject content = bank.value().toObject();
        page.bankNames.at(number) = content.value(QLatin1String("name")).toString();
        const QJsonObject pads = content.value(QLatin1String("pads")).toObject();
        for (auto pad = pads.begin(); pad != pads.end(); ++pad) {
            const QJsonArray values = pad.value().toArray(); // text, colour, Live Button
            page.banks.at(number).at(static_cast<std::size_t>(pad.key().toInt() - 1)) =
                PageWork::Pad{values.at(0).toString(), values.at(1).toString(), values.at(2).toString()};
        }
    }
    return page;
}

MappingWork readmappingwork(const QJsonObject& json, const QString& layouts, const QString& folder)
{
    MappingWork work;
    const QString name = json.value(QLatin1String("device")).toString();
    const QString stem = layouts + QLatin1Char('/') + name;
    const QString layout = json.value(QLatin1String("layout")).toString();
    const QString mapping = json.value(QLatin1String("mapping")).toString();
    work.device = readdevice(layout.isEmpty() ? stem + QStringLiteral(".xml") : folder + '/' + layout);
    work.combined = json.value(QLatin1String("combined")).toBool();
    work.defaultOn = json.value(QLatin1String("on")).toString();
    work.defaultOff = json.value(QLatin1String("off")).toString();
    const QJsonArray place = json.value(QLatin1String("switch")).toArray();
    if (!place.isEmpty())
        work.switchCell = {place.at(0).toInt(), place.at(1).toInt()};
    Deviations met;
    work.factory = factoryof(readmapping(bytesof(mapping.isEmpty() ? stem + QStringLiteral(" mapping.xml")
                                                                   : folder + '/' + mapping)),
                             work.device, &met);
    const QJsonArray cells = json.value(QLatin1String("cells")).toArray();
    for (const QJsonValue& value : cells) {
        const QJsonObject object = value.toObject();
        const QJsonArray at = object.value(QLatin1String("at")).toArray();
        MappingWork::Cell cell;
        if (object.contains(QLatin1String("button")))
            cell.button = object.value(QLatin1String("button")).toString();
        cell.color = object.value(QLatin1String("color")).toString(cell.color);
        cell.on = object.value(QLatin1String("on")).toString();
        cell.off = object.value(QLatin1String("off")).toString();
        cell.blink = object.value(QLatin1String("blink")).toBool();
        work.cells.insert({at.at(0).toInt(), at.at(1).toInt()}, cell);
    }
    return work;
}

} // namespace

Expectation readexpectation(const QByteArray& json, const QString& layouts, const QString& folder)
{
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(json, &error).object();
    if (error.error != QJsonParseError::NoError)
        qFatal("An expectation cannot be read: %s", qPrintable(error.errorString()));
    Expectation expectation;
    const QJsonObject broken = object.value(QLatin1String("broken")).toObject();
    for (auto name = broken.begin(); name != broken.end(); ++name)
        expectation.broken.insert(name.key(), name.value().toString());
    if (object.contains(QLatin1String("page")))
        expectation.page = readpage(object);
    if (object.contains(QLatin1String("device")))
        expectation.mapping = readmappingwork(object, layouts, folder);
    if (!expectation.page && !expectation.mapping)
        qFatal("An expectation says nothing");
    return expectation;
}

} // namespace VirtualDj
