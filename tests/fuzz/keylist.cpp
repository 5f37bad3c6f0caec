// The key list of a layout and a mapping: one file that is both, against a second implementation that walks
// the whole mapping for every control.

#include "keylist.h"
#include "fuzz.h"
#include "os2laction.h"
#include "xmlelements.h"

namespace {

/// The action of the last map element called \a name; \a found is left alone when there is none.
QString lastaction(const QList<XmlElement>& maps, const QString& name, bool* found)
{
    QString action;
    for (const XmlElement& map : maps) {
        if (map.attributes.value("value") == name) {
            action = controller::removeos2l(map.attributes.value("action"));
            *found = true;
        }
    }
    return action;
}

Record keyof(const XmlElement& control, const QList<XmlElement>& maps, bool* ledfound)
{
    const QString name = control.attributes.value("name");
    bool found = false;
    Record key{{"value", name},
               {"action", lastaction(maps, name, &found)},
               {"row", control.attributes.value("row")},
               {"col", control.attributes.value("col")},
               {"type", control.tag}};
    const QString colorled = control.attributes.value("colorled");
    if (control.tag == "pad") {
        key["led"] = colorled + name;
        key["ledaction"] = lastaction(maps, key["led"], &found);
    } else if (control.tag == "button") {
        key["ledtype"] = colorled.isEmpty() ? "led" : "color";
        key["led"] = (colorled.isEmpty() ? control.attributes.value("led") : colorled) + name;
        key["ledaction"] = lastaction(maps, key["led"], ledfound);
        if (!*ledfound)
            key["ledaction"] = key["action"];
    }
    return key;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text = Fuzz::bytes(data, size);
    const Fuzz::InputFile file(text);
    const auto keys = Fuzz::intime([&] { return controller::getkeynames(file.path(), file.path()); });

    const auto maps = elementsof(text, {QStringLiteral("map")});
    QList<Record> expected;
    bool ledfound = false;
    for (const char* tag : {"pad", "button", "slider", "ignore", "empty"}) {
        const auto controls = elementsof(text, {QLatin1String(tag)});
        if (maps.size() > Fuzz::fewElements || controls.size() > Fuzz::fewElements)
            return 0;
        for (const XmlElement& control : controls)
            expected.append(keyof(control, maps, &ledfound));
    }
    Fuzz::require(keys == expected, "every control is paired with the last map element of its name");
    return 0;
}
