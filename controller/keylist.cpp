#include "keylist.h"

#include "midikeys.h"
#include "os2laction.h"
#include "xmlelements.h"

#include <QFileInfo>

namespace controller {

namespace {

/// The factory action of every name in the mapping; empty when it is too long for one.
QHash<QString, QString> readactions(const QString& mapperpath)
{
    auto actions = readpairs(mapperpath, QStringLiteral("map"), Key::value(), Key::action());
    for (QString& action : actions) {
        if (action.size() > maxActionLength)
            action.clear();
    }
    return actions;
}

QString ledname(const Record& control, const QString& prefix)
{
    return control.value(prefix) + control.value(Key::name());
}

} // namespace

QList<Record> getkeynames(const QString& layoutpath, const QString& mapperpath)
{
    if (!QFileInfo::exists(mapperpath))
        return {};
    const QString colorled = QStringLiteral("colorled");
    const QStringList types{ControlKind::pad(), ControlKind::button(), ControlKind::slider(),
                            ControlKind::ignore(), ControlKind::empty()};
    const auto controls = readelements(layoutpath, types);
    const QHash<QString, QString> actions = readactions(mapperpath);
    const auto factoryaction = [&](const QString& name) { return removeos2l(actions.value(name)); };

    QList<Record> keys;
    // Never cleared between buttons: from the first button with a LED entry on, one without stays dark.
    bool ledfound = false;
    for (const QString& type : types) {
        for (const XmlElement& control : controls) {
            if (control.tag != type)
                continue;
            const Record& attributes = control.attributes;
            const QString name = attributes.value(Key::name());
            Record key{{Key::value(), name},
                       {Key::action(), factoryaction(name)},
                       {Key::row(), attributes.value(Key::row())},
                       {Key::col(), attributes.value(Key::col())},
                       {Key::type(), type}};
            if (type == ControlKind::pad()) {
                key.insert(Key::led(), ledname(attributes, colorled));
                key.insert(Key::ledAction(), factoryaction(key.value(Key::led())));
            } else if (type == ControlKind::button()) {
                const bool plain = attributes.value(colorled).isEmpty();
                const QString led = ledname(attributes, plain ? Key::led() : colorled);
                ledfound = ledfound || actions.contains(led);
                key.insert(Key::led(), led);
                key.insert(Key::ledType(), plain ? ButtonLight::plain() : ButtonLight::colored());
                key.insert(Key::ledAction(), ledfound ? factoryaction(led) : key.value(Key::action()));
            }
            keys.append(key);
        }
    }
    return keys;
}

} // namespace controller
