// The writer of mappings, read back by a second XML reader, and exporting again from what was exported. An
// input is a mapping; the `name` of its mapper element is the Live Button on the first pad.

#include "mapperwriter.h"
#include "fuzz.h"
#include "keylist.h"
#include "midikeys.h"
#include "xmlelements.h"

#include <QXmlStreamReader>

namespace {

/// A control of every kind whose action is kept; small, because it is read again for every input.
const QByteArray layout =
    "<layout><empty name=\"SHIFT\"/><pad name=\"ROW1_PAD1\" row=\"2\" col=\"2\" colorled=\"LED_\"/>"
    "<pad name=\"ROW1_PAD2\" row=\"2\" col=\"3\" colorled=\"LED_\"/>"
    "<pad name=\"ROW1_PAD3\" row=\"2\" col=\"4\" colorled=\"LED_\"/>"
    "<button name=\"UP\" row=\"11\" col=\"2\" led=\"LED_\"/><button name=\"DOWN\" row=\"11\" col=\"3\" "
    "colorled=\"LED_\"/><slider name=\"SLIDER1\" row=\"10\" col=\"0\"/></layout>";
constexpr int layoutcontrols = 7;

/// The mapping of the keys that \a text gives; with a Live Button on the first pad and a switch on the second
/// when there is a name for it.
controller::Mapping mappingof(const QByteArray& text, const QString& button = QString())
{
    static const Fuzz::InputFile layoutfile(layout);
    const Fuzz::InputFile file(text);
    controller::Mapping mapping;
    mapping.device = "APCMINI";
    mapping.date = QDate(2026, 3, 5);
    mapping.combined = true;
    mapping.defaultOff = "yellow";
    mapping.defaultOn = "green";
    mapping.keys = Fuzz::intime([&] { return controller::getkeynames(layoutfile.path(), file.path()); });
    if (!button.isEmpty()) {
        mapping.pads = QVector<QVector<controller::MapperPad>>(12, QVector<controller::MapperPad>(12));
        mapping.pads[2][2] = {0, button, "red", QString(), true};
        mapping.switchRow = 2;
        mapping.switchColumn = 3;
    }
    return mapping;
}

/// What pressing or moving the control \a key does in the written file.
QString actionof(const controller::Mapping& mapping, const Record& key)
{
    const QString type = key.value(Key::type());
    const QString factory = key.value(Key::action());
    const QString alternative = factory.isEmpty() ? QString() : " : " + factory;
    if (type == "slider")
        return "var '$os2l' ? os2l_cmd " + QString::number(key.value(Key::col()).toInt() + 1) + alternative;
    if (type == "empty" && factory.isEmpty())
        return "nothing";
    if (type == "pad" && key.value(Key::row()) == "2" && !mapping.pads.isEmpty()) {
        if (key.value(Key::col()) == "2")
            return "var '$os2l' ? os2l_button '" + mapping.pads.at(2).at(2).button + "'" + alternative;
        if (key.value(Key::col()) == "3")
            return "toggle '$os2l'";
    }
    return "var '$os2l' ? nothing" + alternative;
}

bool clean(const controller::Mapping& mapping, QString name)
{
    for (const Record& key : mapping.keys)
        name += key.value(Key::action()) + '\n' + key.value(Key::ledAction()) + '\n';
    name.remove(QLatin1String(" & ")).remove('"').remove('\n');
    return Fuzz::survives(name);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text = Fuzz::bytes(data, size);
    const QString button = elementsof(text, {"mapper"}).value(0).attributes.value("name");
    const controller::Mapping mapping = mappingof(text, button);
    Fuzz::require(mapping.keys.size() == layoutcontrols, "every control of the layout is there");
    const QByteArray written = Fuzz::intime([&] { return controller::mapperxml(mapping); }).toUtf8();
    if (!clean(mapping, button) || button.contains('"'))
        return 0;

    QXmlStreamReader xml(written);
    Fuzz::require(xml.readNextStartElement() && xml.name() == QLatin1String("mapper"),
                  "the file is a mapping");
    for (const Record& key : mapping.keys) {
        Fuzz::require(xml.readNextStartElement() &&
                          xml.attributes().value("value") == key.value(Key::value()),
                      "the controls come in order");
        Fuzz::require(xml.attributes().value("action") == actionof(mapping, key),
                      "a control does what is told");
        xml.skipCurrentElement();
        if (key.contains(Key::led())) {
            Fuzz::require(xml.readNextStartElement() &&
                              xml.attributes().value("value") == key.value(Key::led()),
                          "a control is followed by its LED");
            xml.skipCurrentElement();
        }
    }
    Fuzz::require(!xml.readNextStartElement() && !xml.hasError(), "the file is whole");

    // Without Live Buttons the second export is for good: only there does an unused control get its wrapping.
    const QString first = controller::mapperxml(mappingof(controller::mapperxml(mappingof(text)).toUtf8()));
    const QString second = controller::mapperxml(mappingof(first.toUtf8()));
    Fuzz::require(first == second, "exporting again from an exported file gives the same file");
    return 0;
}
