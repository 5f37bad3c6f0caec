// Lines are joined from many pieces; this joins each in one go. What joins has to name QString as its type:
// the sum itself only refers to its pieces.
#define QT_USE_QSTRINGBUILDER

#include "mapperwriter.h"

#include "itemroles.h"
#include "midikeys.h"
#include "occupied.h"
#include "os2laction.h"

#include <QAbstractItemModel>
#include <QColor>

namespace controller {

namespace {

QString quoted(const QString& verb, const QString& argument)
{
    return verb + QStringLiteral(" &apos;") + argument + QStringLiteral("&apos;");
}

QString line(const QString& name, const QString& action)
{
    return "\t<map value=\"" + name + "\" action=\"" + action + "\"/>\n";
}

/// The two outcomes of a VirtualDJ condition.
QString either(const QString& iftrue, const QString& iffalse) { return iftrue + " : " + iffalse; }

/// \a action while `$os2l` is set; else what \a factory says, if anything.
QString whileos2l(const QString& action, const QString& factory = QString())
{
    const QString wrapped = "var &apos;$os2l&apos; ? " + action;
    return factory.isEmpty() ? wrapped : either(wrapped, factory);
}

/// A switch LED or a button LED of a full-RGB device: the pad's colour, dimmed while off.
QString dimmed(const QString& color)
{
    return either(quoted(QStringLiteral("color"), color), quoted(QStringLiteral("color 30%"), color));
}

/// What the LED of a control shows in its three states.
struct Led
{
    QString lit;       ///< of a Live Button: a condition's outcomes, active and not
    QString dark;      ///< without a Live Button
    QString switchpad; ///< of the switch, whole
};

Led padled(const Mapping& mapping, const MapperPad& pad)
{
    const QString color = QStringLiteral("color");
    QString on;
    QString off;
    QString switched;
    if (mapping.fullRgb) {
        on = quoted(color, pad.colorOn.isEmpty() ? pad.color : pad.colorOn);
        off = pad.colorOff.isEmpty() ? quoted(QStringLiteral("color 40%"), pad.color)
                                     : quoted(color, pad.colorOff);
        switched = dimmed(pad.color);
    } else {
        on = quoted(color, pad.colorOn.isEmpty() ? mapping.defaultOn : pad.colorOn);
        off = quoted(color, pad.colorOff.isEmpty() ? mapping.defaultOff : pad.colorOff);
        switched = either(on, off);
    }
    return {pad.blink ? "blink ? " + either(on, either(off, off)) : either(on, off),
            quoted(color, QStringLiteral("black")), whileos2l(switched)};
}

Led buttonled(const Mapping& mapping, const MapperPad& pad, const QString& ledtype)
{
    QString lit = QStringLiteral("on : off");
    if (ledtype == ButtonLight::colored()) {
        lit = mapping.fullRgb ? dimmed(pad.color)
                              : either(quoted(QStringLiteral("color"), mapping.defaultOn),
                                       quoted(QStringLiteral("color"), mapping.defaultOff));
    }
    return {lit, QStringLiteral("off"), QStringLiteral("var &apos;$os2l&apos;")};
}

/// The two lines of a pad or button: what it does, and what its LED shows.
QString controllines(const Mapping& mapping, const Record& key, bool ispad)
{
    const int row = key.value(Key::row()).toInt();
    const int column = key.value(Key::col()).toInt();
    const MapperPad pad = mapping.pads.value(row).value(column);
    const Led led = ispad ? padled(mapping, pad) : buttonled(mapping, pad, key.value(Key::ledType()));
    const QString action = xmlparse(key.value(Key::action()));
    const QString ledaction = xmlparse(key.value(Key::ledAction()));
    const QString press = quoted(QStringLiteral("os2l_button"), pad.button);
    const QString shine = press + " ? " + led.lit;
    const QString nothing = QStringLiteral("nothing");

    const auto lines = [&key](const QString& pressed, const QString& shown) -> QString {
        return line(key.value(Key::value()), pressed) + line(key.value(Key::led()), shown);
    };
    const bool placed = show::holdsbutton(pad.id);
    if (!mapping.combined)
        return placed ? lines(press, shine) : lines(nothing, led.dark);
    if (placed)
        return lines(whileos2l(press, action), whileos2l(shine, ledaction));
    if (row == mapping.switchRow && column == mapping.switchColumn)
        return lines(QStringLiteral("toggle &apos;$os2l&apos;"), led.switchpad);
    if (action.isEmpty())
        return lines(whileos2l(nothing), whileos2l(led.dark));
    // The control's own action decides for the LED too, so the alternative may be empty.
    return lines(whileos2l(nothing, action), either(whileos2l(led.dark), ledaction));
}

QString controllines(const Mapping& mapping, const Record& key)
{
    const QString type = key.value(Key::type());
    const QString name = key.value(Key::value());
    if (type == ControlKind::pad())
        return controllines(mapping, key, true);
    if (type == ControlKind::button())
        return controllines(mapping, key, false);
    const QString action = xmlparse(key.value(Key::action()));
    if (type == ControlKind::slider()) {
        const QString command = "os2l_cmd " + QString::number(key.value(Key::col()).toInt() + qint64(1));
        return line(name, mapping.combined ? whileos2l(command, action) : command);
    }
    if (type == ControlKind::ignore())
        return line(name, action);
    if (type == ControlKind::empty()) {
        const QString nothing = QStringLiteral("nothing");
        return line(name, mapping.combined && !action.isEmpty() ? whileos2l(nothing, action) : nothing);
    }
    return QString();
}

/// Day, month and year without leading zeros.
QString datetext(const QDate& date)
{
    return QString::number(date.day()) + '-' + QString::number(date.month()) + '-' +
           QString::number(date.year());
}

} // namespace

// Plain joining, not QString::arg: a name may hold "%1", and arg would take it for a place to fill.
QString mapperxml(const Mapping& mapping)
{
    QString xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<mapper device=\"" + mapping.device +
                  "\" author=\"Lumipad\" version=\"840\" date=\"" + datetext(mapping.date) + "\">\n";
    for (const Record& key : mapping.keys)
        xml += controllines(mapping, key);
    return xml + "</mapper>\n";
}

QVector<QVector<MapperPad>> mapperpads(const QAbstractItemModel& grid)
{
    QVector<QVector<MapperPad>> rows;
    for (int row = 0; row < grid.rowCount(); ++row) {
        QVector<MapperPad> pads;
        for (int column = 0; column < grid.columnCount(); ++column) {
            const QModelIndex pad = grid.index(row, column);
            pads.append({pad.data(ItemRole::Id).toInt(), pad.data(ItemRole::DspName).toString(),
                         pad.data(ItemRole::ColorOff).toString(), pad.data(ItemRole::ColorOn).toString(),
                         pad.data(ItemRole::Blink).toString() == QLatin1String("1"),
                         pad.data(Qt::DecorationRole).value<QColor>().name()});
        }
        rows.append(pads);
    }
    return rows;
}

} // namespace controller
