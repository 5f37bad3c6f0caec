#include "cells.h"
#include "controller.h"
#include "devices.h"
#include "itemroles.h"
#include "keylist.h"
#include "mapperwriter.h"
#include "testfiles.h"

#include <QColor>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <initializer_list>
#include <utility>

using namespace controller;

Q_DECLARE_METATYPE(Mapping)

namespace {

using Pads = QVector<QVector<MapperPad>>;

/// A cell of the controller grid with what the user did to it; an id below 0 leaves it without Live Button.
struct Cell
{
    int row;
    int col;
    int id;
    QString name;
    QString color;
    QString on = QString();
    QString off = QString();
    QString blink = QString();
};

/// The cells of a grid of labelled cells, with \a cells changed as the program would.
Pads padsOf(const QList<Cell>& cells)
{
    Controller grid;
    grid.insertRows(0, Grid::Lines);
    for (int row = 0; row < Grid::Lines; ++row) {
        for (int col = 0; col < Grid::Lines; ++col) {
            grid.setData(grid.index(row, col), padtext(row, col), Qt::EditRole);
            grid.setData(grid.index(row, col), padtext(row, col), ItemRole::DspName);
        }
    }
    for (const Cell& cell : cells) {
        const QModelIndex index = grid.index(cell.row, cell.col);
        grid.setData(index, cell.id, ItemRole::Id);
        grid.setData(index, cell.name.toUpper(), Qt::EditRole);
        grid.setData(index, cell.name, ItemRole::DspName);
        grid.setData(index, cell.color, Qt::DecorationRole);
        grid.setData(index, cell.on, ItemRole::ColorOn);
        grid.setData(index, cell.off, ItemRole::ColorOff);
        grid.setData(index, cell.blink, ItemRole::Blink);
    }
    return mapperpads(grid);
}

const DeviceLists& builtIn()
{
    static const DeviceLists lists = readdefaultmappers(QStringLiteral(":/mappings/Mappings"));
    return lists;
}

/// The built-in device by the name that the user chooses; an empty record for a name that is none.
Record deviceNamed(const QString& name)
{
    for (const Record& device : builtIn().devices) {
        if (device.value(Key::name()) == name)
            return device;
    }
    return Record();
}

/// The names of the built-in devices.
const QStringList deviceNames()
{
    return {"Akai APC Mini",           "Novation Launchpad Mini MK3", "Novation Launchpad Mini",
            "Novation Launchpad MKII", "Novation Launchpad PRO",      "Novation Launchpad S",
            "Novation Launchpad"};
}

/// The path of the factory mapping of \a device.
QString factoryMapping(const Record& device)
{
    const int mapper = getmapperid(builtIn().mappers, device.value(Key::device()), 1);
    return builtIn().mappers.value(mapper).value(Key::path());
}

/// The export of \a device with its own default colours, from its factory mapping, on 5 March 2026.
Mapping mappingFor(const Record& device, bool combined)
{
    Mapping mapping;
    mapping.device = device.value(Key::device());
    mapping.date = QDate(2026, 3, 5);
    mapping.combined = combined;
    mapping.fullRgb = ledcolors(device) == LedColors::Any;
    mapping.defaultOff = mapping.fullRgb ? QString() : palettecolor(device, Key::off());
    mapping.defaultOn = mapping.fullRgb ? QString() : palettecolor(device, Key::on());
    mapping.keys = getkeynames(device.value(Key::path()), factoryMapping(device));
    return mapping;
}

QString oddLayout() { return QStringLiteral(TEST_DATA_DIR "/golden/oddpad-layout.xml"); }
QString oddFactoryMapping() { return QStringLiteral(TEST_DATA_DIR "/golden/oddpad-mapping.xml"); }

/// The export of a device with every kind of control, LED and factory action, on the last day of 2026.
Mapping oddMapping(bool combined)
{
    Mapping mapping;
    mapping.device = QStringLiteral("ODDPAD");
    mapping.date = QDate(2026, 12, 31);
    mapping.combined = combined;
    mapping.defaultOff = QStringLiteral("black");
    mapping.defaultOn = QStringLiteral("white");
    mapping.keys = getkeynames(oddLayout(), oddFactoryMapping());
    return mapping;
}

Mapping withSwitch(Mapping mapping, int row, int column)
{
    mapping.switchRow = row;
    mapping.switchColumn = column;
    return mapping;
}

QByteArray written(const Mapping& mapping) { return mapperxml(mapping).toUtf8(); }

/// The text with its apostrophes as the file has them; so the expected actions below read as VirtualDJ's.
QString apos(QString text) { return text.replace('\'', QLatin1String("&apos;")); }

/// A line of the file, without its line feed.
QString mapLine(const QString& name, const QString& action)
{
    return "\t<map value=\"" + name + "\" action=\"" + apos(action) + "\"/>";
}

/// The lines of the controls.
QStringList controlLines(const Mapping& mapping)
{
    return mapperxml(mapping).split('\n').filter(QStringLiteral("\t<map "));
}

/// The line of the control or LED \a name; a text that says so when there is none.
QString lineOf(const Mapping& mapping, const QString& name)
{
    const QStringList lines = controlLines(mapping).filter("value=\"" + name + "\"");
    return lines.value(0, "(no line of " + name + ")");
}

/// A key record of the control "KEY" with the LED "LED_KEY" in the cell (4, 5).
Record keyOf(const QString& type, const QString& action = QString(), const QString& ledAction = QString(),
             const QString& ledType = QStringLiteral("led"))
{
    return {{"type", type},           {"value", "KEY"}, {"led", "LED_KEY"}, {"action", action},
            {"ledaction", ledAction}, {"row", "4"},     {"col", "5"},       {"ledtype", ledType}};
}

Record keyAt(Record key, const QString& row, const QString& col)
{
    key["row"] = row;
    key["col"] = col;
    return key;
}

/// A device with the default colours green and yellow, in whose cell (4, 5) \a pad lies.
Mapping mappingOf(const Record& key, bool combined, const MapperPad& pad = MapperPad())
{
    Mapping mapping;
    mapping.device = QStringLiteral("DEVICE");
    mapping.date = QDate(2026, 3, 5);
    mapping.combined = combined;
    mapping.defaultOff = QStringLiteral("yellow");
    mapping.defaultOn = QStringLiteral("green");
    mapping.keys = {key};
    mapping.pads = Pads(Grid::Lines, QVector<MapperPad>(Grid::Lines));
    mapping.pads[4][5] = pad;
    return mapping;
}

MapperPad liveButton(const QString& name)
{
    MapperPad pad;
    pad.id = 3;
    pad.button = name;
    pad.color = QStringLiteral("#ff8000");
    return pad;
}

/// The LED actions that a control with the Live Button "Fog" gets when its LED shows \a lit: without factory
/// actions, with one behind `$os2l`, and of OS2L alone.
QStringList ledActions(const QString& lit)
{
    return {mapLine("LED_KEY", "var '$os2l' ? os2l_button 'Fog' ? " + lit),
            mapLine("LED_KEY", "var '$os2l' ? os2l_button 'Fog' ? " + lit + " : loop ? on : off"),
            mapLine("LED_KEY", "os2l_button 'Fog' ? " + lit)};
}

/// The same from the writer.
QStringList writtenLedActions(const QString& type, const QString& ledType, const MapperPad& pad, bool fullRgb)
{
    QStringList lines;
    for (const auto& [combined, ledAction] : std::initializer_list<std::pair<bool, QString>>{
             {true, QString()}, {true, "loop ? on : off"}, {false, "loop ? on : off"}}) {
        Mapping mapping = mappingOf(keyOf(type, "loop", ledAction, ledType), combined, pad);
        mapping.fullRgb = fullRgb;
        lines += lineOf(mapping, "LED_KEY");
    }
    return lines;
}

/// A folder with mapper files for the next export.
class MapperFolder
{
public:
    /// Stores the text of \a mapping; the path of the file, empty when it could not be stored.
    QString store(const Mapping& mapping)
    {
        QFile file(m_folder.filePath(QStringLiteral("mapper %1.xml").arg(++m_count)));
        const QByteArray text = written(mapping);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            return QString();
        return file.fileName();
    }

    /// \a mapping as exported anew from the file that it writes.
    Mapping reexported(Mapping mapping, const QString& layoutPath)
    {
        mapping.keys = getkeynames(layoutPath, store(mapping));
        return mapping;
    }

private:
    QTemporaryDir m_folder;
    int m_count = 0;
};

/// Whether the file keeps the LED action of \a key also behind the steady colours of a Live Button: it has
/// alternatives of its own, or there is nothing to keep.
bool keepsLedAction(const Record& key)
{
    const QString action = key.value(Key::ledAction());
    return action.isEmpty() || action.contains(QStringLiteral(" : "));
}

bool isKind(const Record& key, std::initializer_list<const char*> types)
{
    for (const char* type : types) {
        if (key.value(Key::type()) == QLatin1String(type))
            return true;
    }
    return false;
}

/// The Live Button number \a n of a show, in one of several states, for the control \a key.
Cell variedCell(const Record& key, int n)
{
    const int row = key.value(Key::row()).toInt();
    const int col = key.value(Key::col()).toInt();
    const QString name = QStringLiteral("Cue %1 Grün").arg(n);
    const QString color = QColor(n % 256, 255 - n % 256, 128).name();
    switch (n % 5) {
    case 0:
        return {row, col, n, name, color};
    case 1:
        return {row, col, n, name, color, "red"};
    case 2:
        return {row, col, n, name, color, QString(), "#00ff80", "1"};
    case 3:
        return {row, col, n, name, color, "#AA5500", "black", "0"};
    default:
        return {row, col, -1, "PAD", "#000000", "red", "black", "1"}; // colours kept from a removed button
    }
}

} // namespace

class MapperWriterTest : public QObject
{
    Q_OBJECT

private slots:
    void writesTheMapperByteForByte_data();
    void writesTheMapperByteForByte();
    void writesHeaderAndClosingLineWithoutControls();
    void writesTheDateWithoutLeadingZeros_data();
    void writesTheDateWithoutLeadingZeros();
    void writesThePressAndTheLightOfAControl_data();
    void writesThePressAndTheLightOfAControl();
    void togglesAtTheSwitchCellOnly();
    void takesEveryIdFromZeroForALiveButton();
    void lightsAPad_data();
    void lightsAPad();
    void lightsASwitchPad_data();
    void lightsASwitchPad();
    void lightsAButton_data();
    void lightsAButton();
    void writesSlidersAndControlsWithoutACell_data();
    void writesSlidersAndControlsWithoutACell();
    void writesNothingForAnUnknownType();
    void keepsNamesAsTheyStand();
    void escapesFactoryActions_data();
    void escapesFactoryActions();
    void takesCellsThatAreNoNumbersForZero_data();
    void takesCellsThatAreNoNumbersForZero();
    void leavesCellsOutsideTheGridWithoutLiveButton_data();
    void leavesCellsOutsideTheGridWithoutLiveButton();
    void takesMissingCellsForEmptyOnes();
    void readsTheCellsOfTheGrid();
    void readsTheBlinkOfACell_data();
    void readsTheBlinkOfACell();
    void readsTheIdOfACell_data();
    void readsTheIdOfACell();
    void readsTheColorOfACell_data();
    void readsTheColorOfACell();
    void exportsTheSameFileAgain_data();
    void exportsTheSameFileAgain();
    void losesOnlyLedActionsWithoutAlternatives_data();
    void losesOnlyLedActionsWithoutAlternatives();
    void losesLedActionsOfOneWord();
    void gainsAnActionForASilencedControl();
    void losesTheActionsOfASwitch();
    void exportsTheOs2lOnlyFileAgain_data();
    void exportsTheOs2lOnlyFileAgain();
};

void MapperWriterTest::writesTheMapperByteForByte_data()
{
    QTest::addColumn<Mapping>("mapping");
    const auto inBothModes = [](const QString& name, Mapping mapping) {
        mapping.combined = true;
        QTest::newRow(qPrintable(name + "-combined")) << mapping;
        mapping.combined = false;
        QTest::newRow(qPrintable(name + "-os2l-only")) << mapping;
    };

    Mapping odd = withSwitch(oddMapping(true), 2, 4);
    odd.pads = padsOf({
        {0, 3, 0, "Tint & Tone", "#112233", "amber", "white", "1"},
        {0, 4, 1, "After", "#445566", "amber", "", "1"},
        {2, 2, 2, "Strobe", "#ff0000"},
        {2, 3, 3, "Rock 'n' Roll", "#00ff00", "amber", "", "1"},
        {2, 5, 4, "Say \"Hi\"", "#0000ff", "", "white"},
        {2, 6, 5, "<Intro> Ä夜", "#0000ff", "amber", "amber"},
        {3, 0, 6, "Spot", "#ffffff"},
        {2, 0, -1, "LEFT 1", "#000000", "amber", "amber", "1"},
        {10, 0, 7, "Under the fader", "#ffffff"},
    });
    inBothModes("oddpad", odd);
    QTest::newRow("oddpad-switch-button") << withSwitch(odd, 2, 0);

    Mapping club = withSwitch(mappingFor(deviceNamed("Akai APC Mini"), true), 2, 3);
    club.pads = padsOf({{2, 2, 0, "Strobe", "#ff0000", "red", "", "1"}});
    inBothModes("apc-mini-club", club);

    Mapping names = withSwitch(club, 9, 11);
    names.date = QDate(2027, 11, 10);
    names.defaultOff = QStringLiteral("black");
    names.defaultOn = QStringLiteral("yellow");
    names.pads = padsOf({
        {2, 2, 0, "Rock 'n' Roll", "#ff0000"},
        {2, 9, 1, "Say \"Hello\"", "#00ff00", "red", "black"},
        {3, 3, -1, "PAD 10", "#000000", "red", "green", "1"},
        {5, 5, 2, "Tunnel & Fog", "#0000ff", "", "red", "1"},
        {6, 2, 3, "100% %1 %2", "#808080", "", "", "0"},
        {9, 2, 4, "Grünes Licht", "#00ff80", "black", "", "1"},
        {9, 9, 5, "<Intro>", "#ffff00", "red", "green", "1"},
        {11, 2, 6, "夜の光 🎉", "#101010", "red", "red", "1"},
        {11, 9, 7, "D'Été & \"Früh\" <1>", "#101010"},
        {2, 11, 8, "a : b ? c", "#a0a0a0"},
    });
    inBothModes("apc-mini-names", names);

    Mapping rgb = withSwitch(mappingFor(deviceNamed("Novation Launchpad MKII"), true), 9, 9);
    rgb.date = QDate(2026, 10, 1);
    rgb.pads = padsOf({
        {2, 2, 0, "Strobe", "#FF0000"},
        {2, 3, 1, "Rock 'n' Roll", "#00ff80", "#ffffff"},
        {2, 4, 2, "Say \"Hello\"", "#8000ff", "", "#101010", "1"},
        {3, 9, 3, "Tunnel & Fog", "#0000ff", "#00ffff", "#000040", "1"},
        {6, 6, 4, "<Été>", "#ffff00", "", "", "1"},
        {9, 2, 5, "Blackout", "#000000", "", "", "0"},
        {0, 2, 6, "Fog Burst", "#808080", "#ff0000", "#00ff00", "1"},
        {9, 11, 7, "Lumière", "#ffe4c4"},
        {9, 9, -1, "SWITCH", "#000000", "#ffffff", "#ff0000", "1"},
    });
    inBothModes("launchpad-mkii", rgb);
    QTest::newRow("launchpad-mkii-switch-button") << withSwitch(rgb, 0, 9);

    // The pads "1.1" and "2.1" of this device share a cell, and the cell below them belongs to no pad.
    Mapping two = withSwitch(mappingFor(deviceNamed("Novation Launchpad S"), true), 9, 9);
    two.date = QDate(2028, 2, 29);
    two.pads = padsOf({
        {2, 2, 0, "Strobe", "#ff0000"},
        {3, 2, 1, "Nowhere", "#00ff00"},
        {2, 3, 2, "Rock 'n' Roll", "#00ff80", "#00FF00"},
        {5, 9, 3, "Tunnel & Fog", "#0000ff", "", "#550000", "1"},
        {7, 4, 4, "<Intro> \"Ærø\"", "#0000ff", "#FFFF00", "#005500", "1"},
        {0, 2, 5, "Blackout", "#000000", "#FFAA00", "", "1"},
        {9, 11, 6, "Lumière", "#ffffff"},
    });
    inBothModes("launchpad-s", two);
    QTest::newRow("launchpad-s-switch-button") << withSwitch(two, 0, 9);
}

void MapperWriterTest::writesTheMapperByteForByte()
{
    QFETCH(Mapping, mapping);
    QFile golden(QStringLiteral(TEST_DATA_DIR "/golden/") + QTest::currentDataTag() + ".xml");
    QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(golden.fileName()));
    COMPARE_FILES(written(mapping), golden.readAll());
}

void MapperWriterTest::writesHeaderAndClosingLineWithoutControls()
{
    const QByteArray expected = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<mapper device=\"ODDPAD\" author=\"Lumipad\" version=\"840\" "
                                "date=\"31-12-2026\">\n"
                                "</mapper>\n";
    for (const bool combined : {true, false}) {
        Mapping mapping = withSwitch(oddMapping(combined), 2, 2);
        mapping.pads = padsOf({{2, 3, 0, "Strobe", "#ff0000"}});
        mapping.keys = getkeynames(oddLayout(), "/nowhere/gone mapping.xml");
        COMPARE_FILES(written(mapping), expected);
    }
}

void MapperWriterTest::writesTheDateWithoutLeadingZeros_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("text");
    QTest::newRow("short day and month") << QDate(2026, 3, 5) << "5-3-2026";
    QTest::newRow("long day and month") << QDate(2026, 12, 31) << "31-12-2026";
    QTest::newRow("short day") << QDate(2027, 10, 1) << "1-10-2027";
    QTest::newRow("short month") << QDate(2028, 2, 29) << "29-2-2028";
}

void MapperWriterTest::writesTheDateWithoutLeadingZeros()
{
    QFETCH(QDate, date);
    QFETCH(QString, text);
    Mapping mapping;
    mapping.device = QStringLiteral("APCMINI");
    mapping.date = date;
    QCOMPARE(mapperxml(mapping).section('\n', 1, 1),
             "<mapper device=\"APCMINI\" author=\"Lumipad\" version=\"840\" date=\"" + text + "\">");
}

void MapperWriterTest::writesThePressAndTheLightOfAControl_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("combined");
    QTest::addColumn<bool>("placed"); // whether it carries the Live Button "Fog"
    QTest::addColumn<bool>("isSwitch");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("ledAction");
    QTest::addColumn<QString>("press");
    QTest::addColumn<QString>("light");

    const QString do1 = "loop 4 ? loop_exit : loop 4";
    const QString show1 = "loop 4 ? on : off";

    // clang-format off
    QTest::newRow("pad, switch")
        << "pad" << true << false << true << "" << ""
        << "toggle '$os2l'" << "var '$os2l' ? color 'green' : color 'yellow'";
    QTest::newRow("pad, switch with factory actions")
        << "pad" << true << false << true << do1 << show1
        << "toggle '$os2l'" << "var '$os2l' ? color 'green' : color 'yellow'";
    QTest::newRow("pad, switch that is no switch in OS2L-only mode")
        << "pad" << false << false << true << do1 << show1
        << "nothing" << "color 'black'";
    QTest::newRow("pad, empty")
        << "pad" << true << false << false << "" << ""
        << "var '$os2l' ? nothing" << "var '$os2l' ? color 'black'";
    QTest::newRow("pad, empty with a factory LED action alone")
        << "pad" << true << false << false << "" << show1
        << "var '$os2l' ? nothing" << "var '$os2l' ? color 'black'";
    QTest::newRow("pad, empty with a factory action alone")
        << "pad" << true << false << false << do1 << ""
        << "var '$os2l' ? nothing : loop 4 ? loop_exit : loop 4" << "var '$os2l' ? color 'black' : ";
    QTest::newRow("pad, empty with factory actions")
        << "pad" << true << false << false << do1 << show1
        << "var '$os2l' ? nothing : loop 4 ? loop_exit : loop 4"
        << "var '$os2l' ? color 'black' : loop 4 ? on : off";
    QTest::newRow("pad, empty in OS2L-only mode")
        << "pad" << false << false << false << "" << ""
        << "nothing" << "color 'black'";
    QTest::newRow("pad, empty in OS2L-only mode with factory actions")
        << "pad" << false << false << false << do1 << show1
        << "nothing" << "color 'black'";
    QTest::newRow("pad, Live Button in OS2L-only mode")
        << "pad" << false << true << false << "" << ""
        << "os2l_button 'Fog'" << "os2l_button 'Fog' ? color 'green' : color 'yellow'";
    QTest::newRow("pad, Live Button in OS2L-only mode with factory actions")
        << "pad" << false << true << false << do1 << show1
        << "os2l_button 'Fog'" << "os2l_button 'Fog' ? color 'green' : color 'yellow'";
    QTest::newRow("pad, Live Button")
        << "pad" << true << true << false << "" << ""
        << "var '$os2l' ? os2l_button 'Fog'"
        << "var '$os2l' ? os2l_button 'Fog' ? color 'green' : color 'yellow'";
    QTest::newRow("pad, Live Button with a factory LED action alone")
        << "pad" << true << true << false << "" << show1
        << "var '$os2l' ? os2l_button 'Fog'"
        << "var '$os2l' ? os2l_button 'Fog' ? color 'green' : color 'yellow' : loop 4 ? on : off";
    QTest::newRow("pad, Live Button with a factory action alone")
        << "pad" << true << true << false << do1 << ""
        << "var '$os2l' ? os2l_button 'Fog' : loop 4 ? loop_exit : loop 4"
        << "var '$os2l' ? os2l_button 'Fog' ? color 'green' : color 'yellow'";
    QTest::newRow("pad, Live Button with factory actions")
        << "pad" << true << true << false << do1 << show1
        << "var '$os2l' ? os2l_button 'Fog' : loop 4 ? loop_exit : loop 4"
        << "var '$os2l' ? os2l_button 'Fog' ? color 'green' : color 'yellow' : loop 4 ? on : off";
    QTest::newRow("pad, Live Button on the switch")
        << "pad" << true << true << true << do1 << show1
        << "var '$os2l' ? os2l_button 'Fog' : loop 4 ? loop_exit : loop 4"
        << "var '$os2l' ? os2l_button 'Fog' ? color 'green' : color 'yellow' : loop 4 ? on : off";

    QTest::newRow("button, switch")
        << "button" << true << false << true << "" << ""
        << "toggle '$os2l'" << "var '$os2l'";
    QTest::newRow("button, switch with factory actions")
        << "button" << true << false << true << do1 << show1
        << "toggle '$os2l'" << "var '$os2l'";
    QTest::newRow("button, switch that is no switch in OS2L-only mode")
        << "button" << false << false << true << do1 << show1
        << "nothing" << "off";
    QTest::newRow("button, empty")
        << "button" << true << false << false << "" << ""
        << "var '$os2l' ? nothing" << "var '$os2l' ? off";
    QTest::newRow("button, empty with a factory LED action alone")
        << "button" << true << false << false << "" << show1
        << "var '$os2l' ? nothing" << "var '$os2l' ? off";
    QTest::newRow("button, empty with a factory action alone")
        << "button" << true << false << false << do1 << ""
        << "var '$os2l' ? nothing : loop 4 ? loop_exit : loop 4" << "var '$os2l' ? off : ";
    QTest::newRow("button, empty with factory actions")
        << "button" << true << false << false << do1 << show1
        << "var '$os2l' ? nothing : loop 4 ? loop_exit : loop 4" << "var '$os2l' ? off : loop 4 ? on : off";
    QTest::newRow("button, empty in OS2L-only mode")
        << "button" << false << false << false << "" << ""
        << "nothing" << "off";
    QTest::newRow("button, empty in OS2L-only mode with factory actions")
        << "button" << false << false << false << do1 << show1
        << "nothing" << "off";
    QTest::newRow("button, Live Button in OS2L-only mode")
        << "button" << false << true << false << "" << ""
        << "os2l_button 'Fog'" << "os2l_button 'Fog' ? on : off";
    QTest::newRow("button, Live Button in OS2L-only mode with factory actions")
        << "button" << false << true << false << do1 << show1
        << "os2l_button 'Fog'" << "os2l_button 'Fog' ? on : off";
    QTest::newRow("button, Live Button")
        << "button" << true << true << false << "" << ""
        << "var '$os2l' ? os2l_button 'Fog'" << "var '$os2l' ? os2l_button 'Fog' ? on : off";
    QTest::newRow("button, Live Button with a factory LED action alone")
        << "button" << true << true << false << "" << show1
        << "var '$os2l' ? os2l_button 'Fog'"
        << "var '$os2l' ? os2l_button 'Fog' ? on : off : loop 4 ? on : off";
    QTest::newRow("button, Live Button with a factory action alone")
        << "button" << true << true << false << do1 << ""
        << "var '$os2l' ? os2l_button 'Fog' : loop 4 ? loop_exit : loop 4"
        << "var '$os2l' ? os2l_button 'Fog' ? on : off";
    QTest::newRow("button, Live Button with factory actions")
        << "button" << true << true << false << do1 << show1
        << "var '$os2l' ? os2l_button 'Fog' : loop 4 ? loop_exit : loop 4"
        << "var '$os2l' ? os2l_button 'Fog' ? on : off : loop 4 ? on : off";
    QTest::newRow("button, Live Button on the switch")
        << "button" << true << true << true << do1 << show1
        << "var '$os2l' ? os2l_button 'Fog' : loop 4 ? loop_exit : loop 4"
        << "var '$os2l' ? os2l_button 'Fog' ? on : off : loop 4 ? on : off";
    // clang-format on
}

void MapperWriterTest::writesThePressAndTheLightOfAControl()
{
    QFETCH(QString, type);
    QFETCH(bool, combined);
    QFETCH(bool, placed);
    QFETCH(bool, isSwitch);
    QFETCH(QString, action);
    QFETCH(QString, ledAction);
    QFETCH(QString, press);
    QFETCH(QString, light);
    Mapping mapping = mappingOf(keyOf(type, action, ledAction), combined);
    mapping.pads[4][5].button = QStringLiteral("PAD 20"); // an empty pad's label is never written
    if (placed)
        mapping.pads[4][5] = liveButton("Fog");
    if (isSwitch)
        mapping = withSwitch(mapping, 4, 5);
    QCOMPARE(controlLines(mapping), QStringList({mapLine("KEY", press), mapLine("LED_KEY", light)}));
}

void MapperWriterTest::togglesAtTheSwitchCellOnly()
{
    for (const char* type : {"pad", "button"}) {
        for (int row = -1; row < Grid::Lines; ++row) {
            for (int col = -1; col < Grid::Lines; ++col) {
                const Mapping mapping = withSwitch(mappingOf(keyOf(type, "sync"), true), row, col);
                const bool here = row == 4 && col == 5;
                QCOMPARE(lineOf(mapping, "KEY"),
                         mapLine("KEY", here ? "toggle '$os2l'" : "var '$os2l' ? nothing : sync"));
            }
        }
    }
}

void MapperWriterTest::takesEveryIdFromZeroForALiveButton()
{
    MapperPad pad = liveButton("Fog");
    for (const int id : {0, 1, 4711, INT_MAX}) {
        pad.id = id;
        QCOMPARE(lineOf(mappingOf(keyOf("pad"), false, pad), "KEY"), mapLine("KEY", "os2l_button 'Fog'"));
    }
    for (const int id : {-1, -2, INT_MIN}) {
        pad.id = id;
        QCOMPARE(lineOf(mappingOf(keyOf("pad"), false, pad), "KEY"), mapLine("KEY", "nothing"));
    }
}

void MapperWriterTest::lightsAPad_data()
{
    QTest::addColumn<bool>("fullRgb");
    QTest::addColumn<bool>("blink");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("lit");

    // clang-format off
    QTest::newRow("named") << false << false << "" << "" << "color 'green' : color 'yellow'";
    QTest::newRow("named, on") << false << false << "red" << "" << "color 'red' : color 'yellow'";
    QTest::newRow("named, off") << false << false << "" << "black" << "color 'green' : color 'black'";
    QTest::newRow("named, both") << false << false << "red" << "black" << "color 'red' : color 'black'";
    QTest::newRow("named, blinking") << false << true << "" << ""
        << "blink ? color 'green' : color 'yellow' : color 'yellow'";
    QTest::newRow("named, blinking, on") << false << true << "red" << ""
        << "blink ? color 'red' : color 'yellow' : color 'yellow'";
    QTest::newRow("named, blinking, off") << false << true << "" << "black"
        << "blink ? color 'green' : color 'black' : color 'black'";
    QTest::newRow("named, blinking, both") << false << true << "red" << "black"
        << "blink ? color 'red' : color 'black' : color 'black'";
    QTest::newRow("RGB") << true << false << "" << "" << "color '#ff8000' : color 40% '#ff8000'";
    QTest::newRow("RGB, on") << true << false << "#FFFFFF" << "" << "color '#FFFFFF' : color 40% '#ff8000'";
    QTest::newRow("RGB, off") << true << false << "" << "#010203" << "color '#ff8000' : color '#010203'";
    QTest::newRow("RGB, both") << true << false << "#ffffff" << "#010203"
        << "color '#ffffff' : color '#010203'";
    QTest::newRow("RGB, blinking") << true << true << "" << ""
        << "blink ? color '#ff8000' : color 40% '#ff8000' : color 40% '#ff8000'";
    QTest::newRow("RGB, blinking, on") << true << true << "#ffffff" << ""
        << "blink ? color '#ffffff' : color 40% '#ff8000' : color 40% '#ff8000'";
    QTest::newRow("RGB, blinking, off") << true << true << "" << "#010203"
        << "blink ? color '#ff8000' : color '#010203' : color '#010203'";
    QTest::newRow("RGB, blinking, both") << true << true << "#ffffff" << "#010203"
        << "blink ? color '#ffffff' : color '#010203' : color '#010203'";
    // clang-format on
}

void MapperWriterTest::lightsAPad()
{
    QFETCH(bool, fullRgb);
    QFETCH(bool, blink);
    QFETCH(QString, on);
    QFETCH(QString, off);
    QFETCH(QString, lit);
    MapperPad pad = liveButton("Fog");
    pad.blink = blink;
    pad.colorOn = on;
    pad.colorOff = off;
    QCOMPARE(writtenLedActions("pad", QString(), pad, fullRgb), ledActions(lit));
}

void MapperWriterTest::lightsASwitchPad_data()
{
    QTest::addColumn<bool>("fullRgb");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("off");
    QTest::addColumn<QString>("lit");
    QTest::newRow("named") << false << ""
                           << ""
                           << "color 'green' : color 'yellow'";
    QTest::newRow("named, on") << false << "red"
                               << ""
                               << "color 'red' : color 'yellow'";
    QTest::newRow("named, off") << false << ""
                                << "black"
                                << "color 'green' : color 'black'";
    QTest::newRow("named, both") << false << "red"
                                 << "black"
                                 << "color 'red' : color 'black'";
    QTest::newRow("RGB") << true << ""
                         << ""
                         << "color '#ff8000' : color 30% '#ff8000'";
    QTest::newRow("RGB, own colours do not count") << true << "#ffffff"
                                                   << "#010203"
                                                   << "color '#ff8000' : color 30% '#ff8000'";
}

void MapperWriterTest::lightsASwitchPad()
{
    QFETCH(bool, fullRgb);
    QFETCH(QString, on);
    QFETCH(QString, off);
    QFETCH(QString, lit);
    MapperPad pad;
    pad.color = QStringLiteral("#ff8000");
    pad.colorOn = on;
    pad.colorOff = off;
    for (const bool blink : {false, true}) {
        pad.blink = blink; // a switch never blinks
        Mapping mapping = withSwitch(mappingOf(keyOf("pad", "loop", "loop ? on : off"), true, pad), 4, 5);
        mapping.fullRgb = fullRgb;
        QCOMPARE(lineOf(mapping, "LED_KEY"), mapLine("LED_KEY", "var '$os2l' ? " + lit));
    }
}

void MapperWriterTest::lightsAButton_data()
{
    QTest::addColumn<QString>("ledType");
    QTest::addColumn<bool>("fullRgb");
    QTest::addColumn<QString>("lit");
    QTest::newRow("plain LED, named") << "led" << false << "on : off";
    QTest::newRow("plain LED, RGB") << "led" << true << "on : off";
    QTest::newRow("colour LED, named") << "color" << false << "color 'green' : color 'yellow'";
    QTest::newRow("colour LED, RGB") << "color" << true << "color '#ff8000' : color 30% '#ff8000'";
    QTest::newRow("no LED type, named") << "" << false << "on : off";
    QTest::newRow("no LED type, RGB") << "" << true << "on : off";
    QTest::newRow("other letter case") << "Color" << true << "on : off";
}

void MapperWriterTest::lightsAButton()
{
    QFETCH(QString, ledType);
    QFETCH(bool, fullRgb);
    QFETCH(QString, lit);
    MapperPad pad = liveButton("Fog");
    QCOMPARE(writtenLedActions("button", ledType, pad, fullRgb), ledActions(lit));
    // Buttons neither blink nor take colours of their own.
    pad.blink = true;
    pad.colorOn = QStringLiteral("red");
    pad.colorOff = QStringLiteral("black");
    QCOMPARE(writtenLedActions("button", ledType, pad, fullRgb), ledActions(lit));
}

void MapperWriterTest::writesSlidersAndControlsWithoutACell_data()
{
    QTest::addColumn<Record>("key");
    QTest::addColumn<QString>("combined");
    QTest::addColumn<QString>("os2lOnly");

    const QString volume = QStringLiteral("deck 1 volume");
    // clang-format off
    QTest::newRow("slider") << keyAt(keyOf("slider", volume), "10", "0")
        << "var '$os2l' ? os2l_cmd 1 : deck 1 volume" << "os2l_cmd 1";
    QTest::newRow("eighth slider") << keyAt(keyOf("slider", volume), "10", "7")
        << "var '$os2l' ? os2l_cmd 8 : deck 1 volume" << "os2l_cmd 8";
    QTest::newRow("slider without factory action") << keyAt(keyOf("slider"), "10", "7")
        << "var '$os2l' ? os2l_cmd 8" << "os2l_cmd 8";
    QTest::newRow("slider over the Live Button and the switch") << keyOf("slider", volume)
        << "var '$os2l' ? os2l_cmd 6 : deck 1 volume" << "os2l_cmd 6";
    QTest::newRow("slider without a column") << keyAt(keyOf("slider", volume), "10", "")
        << "var '$os2l' ? os2l_cmd 1 : deck 1 volume" << "os2l_cmd 1";
    QTest::newRow("slider in a column that is no number") << keyAt(keyOf("slider", volume), "10", "four")
        << "var '$os2l' ? os2l_cmd 1 : deck 1 volume" << "os2l_cmd 1";
    QTest::newRow("slider far outside") << keyAt(keyOf("slider", volume), "-1", "998")
        << "var '$os2l' ? os2l_cmd 999 : deck 1 volume" << "os2l_cmd 999";
    QTest::newRow("slider in the last column that a number can name")
        << keyAt(keyOf("slider", volume), "10", "2147483647")
        << "var '$os2l' ? os2l_cmd 2147483648 : deck 1 volume" << "os2l_cmd 2147483648";
    QTest::newRow("ignore") << keyOf("ignore", "var '$page' 0 ? on : off")
        << "var '$page' 0 ? on : off" << "var '$page' 0 ? on : off";
    QTest::newRow("ignore without factory action") << keyOf("ignore") << "" << "";
    QTest::newRow("empty") << keyOf("empty", "shift") << "var '$os2l' ? nothing : shift" << "nothing";
    QTest::newRow("empty without factory action") << keyOf("empty") << "nothing" << "nothing";
    // clang-format on
}

void MapperWriterTest::writesSlidersAndControlsWithoutACell()
{
    QFETCH(Record, key);
    QFETCH(QString, combined);
    QFETCH(QString, os2lOnly);
    const QStringList whenCombined(mapLine("KEY", combined));
    const QStringList whenOs2lOnly(mapLine("KEY", os2lOnly));
    for (const MapperPad& pad : {MapperPad(), liveButton("Fog")}) {
        QCOMPARE(controlLines(withSwitch(mappingOf(key, true, pad), 4, 5)), whenCombined);
        QCOMPARE(controlLines(withSwitch(mappingOf(key, false, pad), 4, 5)), whenOs2lOnly);
    }
}

void MapperWriterTest::writesNothingForAnUnknownType()
{
    for (const char* type : {"", "Pad", "PAD", "knob", "pad ", "led"}) {
        for (const bool combined : {true, false}) {
            Mapping mapping = mappingOf(keyOf(type, "sync", "sync"), combined, liveButton("Fog"));
            QCOMPARE(controlLines(mapping), QStringList());
            mapping.keys.append(keyOf("ignore", "sync")); // and goes on with the next control
            QCOMPARE(controlLines(mapping), QStringList(mapLine("KEY", "sync")));
        }
    }
    QCOMPARE(controlLines(mappingOf(Record(), true, liveButton("Fog"))), QStringList());
}

void MapperWriterTest::keepsNamesAsTheyStand()
{
    const QString odd = QStringLiteral("Jo's \"Æ夜🎉\" & <More> &amp; %1 ? a : b");
    const QString press = "os2l_button &apos;" + odd + "&apos;";
    const auto linesOf = [&odd](const char* type) {
        Record key = keyOf(type);
        key["value"] = "%2 & '<\"";
        key["led"] = "LED_%2 & '<\"";
        return controlLines(mappingOf(key, false, liveButton(odd)));
    };
    const QString pressLine = "\t<map value=\"%2 & '<\"\" action=\"" + press + "\"/>";
    const QString lightLine = "\t<map value=\"LED_%2 & '<\"\" action=\"" + press + " ? ";
    QCOMPARE(linesOf("pad"),
             QStringList({pressLine, lightLine + "color &apos;green&apos; : color &apos;yellow&apos;\"/>"}));
    QCOMPARE(linesOf("button"), QStringList({pressLine, lightLine + "on : off\"/>"}));
    QCOMPARE(lineOf(mappingOf(keyOf("pad"), false, liveButton("")), "KEY"), mapLine("KEY", "os2l_button ''"));
}

void MapperWriterTest::escapesFactoryActions_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("escaped");
    QTest::newRow("apostrophes") << "color 'red'"
                                 << "color &apos;red&apos;";
    QTest::newRow("double quotes") << "set \"$a\" 1"
                                   << "set &quot;$a&quot; 1";
    QTest::newRow("spaced ampersand") << "sync & play"
                                      << "sync &amp; play";
    QTest::newRow("spaced ampersands") << "sync & play & stop"
                                       << "sync &amp; play &amp; stop";
    QTest::newRow("ampersands that share a blank") << "sync & & play"
                                                   << "sync &amp; & play";
    QTest::newRow("bare ampersand") << "sync&play &stop& "
                                    << "sync&play &stop& ";
    QTest::newRow("comparison") << "get_bpm < 120 > 1"
                                << "get_bpm < 120 > 1";
    QTest::newRow("entity") << "say &apos;"
                            << "say &apos;";
    QTest::newRow("placeholder") << "get_text '%1 %2'"
                                 << "get_text &apos;%1 %2&apos;";
}

void MapperWriterTest::escapesFactoryActions()
{
    QFETCH(QString, action);
    QFETCH(QString, escaped);
    const QString os2l = QStringLiteral("\" action=\"var &apos;$os2l&apos; ? ");
    const QString key = QStringLiteral("\t<map value=\"KEY");
    const QString led = QStringLiteral("\t<map value=\"LED_KEY");
    const QString end = escaped + "\"/>";

    Mapping mapping = mappingOf(keyOf("pad", action, action), true);
    mapping.keys += keyOf("button", action, action);
    mapping.keys += keyOf("slider", action);
    mapping.keys += keyOf("ignore", action);
    mapping.keys += keyOf("empty", action);
    QCOMPARE(controlLines(mapping),
             QStringList({key + os2l + "nothing : " + end, led + os2l + "color &apos;black&apos; : " + end,
                          key + os2l + "nothing : " + end, led + os2l + "off : " + end,
                          key + os2l + "os2l_cmd 6 : " + end, key + "\" action=\"" + end,
                          key + os2l + "nothing : " + end}));

    mapping.pads[4][5] = liveButton("Fog");
    const QString fog = QStringLiteral("os2l_button &apos;Fog&apos;");
    QCOMPARE(controlLines(mapping).mid(0, 4),
             QStringList({key + os2l + fog + " : " + end,
                          led + os2l + fog + " ? color &apos;green&apos; : color &apos;yellow&apos; : " + end,
                          key + os2l + fog + " : " + end, led + os2l + fog + " ? on : off : " + end}));
}

void MapperWriterTest::takesCellsThatAreNoNumbersForZero_data()
{
    QTest::addColumn<QString>("number");
    QTest::newRow("empty") << "";
    QTest::newRow("word") << "two";
    QTest::newRow("fraction") << "4.5";
    QTest::newRow("number and word") << "4th";
    QTest::newRow("too large") << "99999999999999999999";
}

void MapperWriterTest::takesCellsThatAreNoNumbersForZero()
{
    QFETCH(QString, number);
    for (const char* type : {"pad", "button"}) {
        Mapping mapping = mappingOf(keyAt(keyOf(type), number, "7"), false);
        mapping.pads[0][7] = liveButton("Above");
        QCOMPARE(lineOf(mapping, "KEY"), mapLine("KEY", "os2l_button 'Above'"));
        mapping = mappingOf(keyAt(keyOf(type), "7", number), false);
        mapping.pads[7][0] = liveButton("Left");
        QCOMPARE(lineOf(mapping, "KEY"), mapLine("KEY", "os2l_button 'Left'"));
        mapping.combined = true;
        mapping.pads[7][0].id = -1;
        QCOMPARE(lineOf(withSwitch(mapping, 7, 0), "KEY"), mapLine("KEY", "toggle '$os2l'"));
    }
}

void MapperWriterTest::leavesCellsOutsideTheGridWithoutLiveButton_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("col");
    QTest::newRow("below") << "12"
                           << "5";
    QTest::newRow("right") << "4"
                           << "12";
    QTest::newRow("above") << "-2"
                           << "5";
    QTest::newRow("left") << "4"
                          << "-2";
    QTest::newRow("far below") << "2147483647"
                               << "2147483647";
    QTest::newRow("far above") << "-2147483648"
                               << "-2147483648";
}

void MapperWriterTest::leavesCellsOutsideTheGridWithoutLiveButton()
{
    QFETCH(QString, row);
    QFETCH(QString, col);
    Mapping mapping = mappingOf(keyAt(keyOf("pad", "sync", "sync"), row, col), false);
    mapping.keys += keyAt(keyOf("button", "sync", "sync"), row, col);
    mapping.pads = Pads(Grid::Lines, QVector<MapperPad>(Grid::Lines, liveButton("Fog")));
    QCOMPARE(controlLines(mapping),
             QStringList({mapLine("KEY", "nothing"), mapLine("LED_KEY", "color 'black'"),
                          mapLine("KEY", "nothing"), mapLine("LED_KEY", "off")}));
    mapping.combined = true;
    QCOMPARE(controlLines(mapping), QStringList({mapLine("KEY", "var '$os2l' ? nothing : sync"),
                                                 mapLine("LED_KEY", "var '$os2l' ? color 'black' : sync"),
                                                 mapLine("KEY", "var '$os2l' ? nothing : sync"),
                                                 mapLine("LED_KEY", "var '$os2l' ? off : sync")}));
}

void MapperWriterTest::takesMissingCellsForEmptyOnes()
{
    Mapping mapping = withSwitch(oddMapping(true), 9, 9);
    mapping.pads = padsOf({{2, 2, 0, "Strobe", "#ff0000"}, {2, 3, 1, "Fog", "#00ff00"}});
    const QByteArray whole = written(mapping);
    QVERIFY(whole.contains("&apos;Fog&apos;"));
    mapping.pads.resize(3);
    mapping.pads[0].clear();
    mapping.pads[2].resize(4);
    COMPARE_FILES(written(mapping), whole);

    mapping.pads = padsOf({});
    const QByteArray empty = written(mapping);
    mapping.pads.clear();
    COMPARE_FILES(written(mapping), empty);
    mapping.pads = mapperpads(Controller());
    QVERIFY(mapping.pads.isEmpty());
}

void MapperWriterTest::readsTheCellsOfTheGrid()
{
    const Pads pads = padsOf({{9, 11, 17, "Été d'Or", "#FFD700", "Red", "#AA5500", "1"}});
    QCOMPARE(pads.size(), 12);
    for (int row = 0; row < Grid::Lines; ++row) {
        QCOMPARE(pads.at(row).size(), 12);
        for (int col = 0; col < Grid::Lines; ++col) {
            if (row == 9 && col == 11)
                continue;
            const MapperPad& pad = pads.at(row).at(col);
            QCOMPARE(pad.id, -1);
            QCOMPARE(pad.colorOff + pad.colorOn, QString());
            QVERIFY(!pad.blink);
            QCOMPARE(pad.color, QString("#000000"));
        }
    }
    const MapperPad& pad = pads.at(9).at(11);
    QCOMPARE(pad.id, 17);
    QCOMPARE(pad.button, QString("Été d'Or")); // what OS2L sends, not the text in the cell
    QCOMPARE(pad.colorOff, QString("#AA5500"));
    QCOMPARE(pad.colorOn, QString("Red"));
    QVERIFY(pad.blink);
    QCOMPARE(pad.color, QString("#ffd700"));
}

void MapperWriterTest::readsTheBlinkOfACell_data()
{
    QTest::addColumn<QString>("blink");
    QTest::addColumn<bool>("blinks");
    QTest::newRow("1") << "1" << true;
    QTest::newRow("0") << "0" << false;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("01") << "01" << false;
    QTest::newRow("blank before") << " 1" << false;
    QTest::newRow("2") << "2" << false;
    QTest::newRow("true") << "true" << false;
}

void MapperWriterTest::readsTheBlinkOfACell()
{
    QFETCH(QString, blink);
    QFETCH(bool, blinks);
    Mapping mapping = mappingOf(keyOf("pad"), false);
    mapping.pads = padsOf({{4, 5, 0, "Fog", "#ff0000", "", "", blink}});
    QCOMPARE(lineOf(mapping, "LED_KEY"),
             mapLine("LED_KEY",
                     blinks ? "os2l_button 'Fog' ? blink ? color 'green' : color 'yellow' : color 'yellow'"
                            : "os2l_button 'Fog' ? color 'green' : color 'yellow'"));
}

void MapperWriterTest::readsTheIdOfACell_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<bool>("placed");
    QTest::newRow("0") << "0" << true;
    QTest::newRow("12") << "12" << true;
    QTest::newRow("-1") << "-1" << false;
    QTest::newRow("-7") << "-7" << false;
    QTest::newRow("empty") << "" << true;
    QTest::newRow("no number") << "none" << true;
}

void MapperWriterTest::readsTheIdOfACell()
{
    QFETCH(QString, id);
    QFETCH(bool, placed);
    Controller grid;
    grid.insertRows(0, Grid::Lines);
    grid.setData(grid.index(4, 5), "Fog", ItemRole::DspName);
    grid.setData(grid.index(4, 5), id, ItemRole::Id);
    Mapping mapping = mappingOf(keyOf("pad"), false);
    mapping.pads = mapperpads(grid);
    QCOMPARE(lineOf(mapping, "KEY"), mapLine("KEY", placed ? "os2l_button 'Fog'" : "nothing"));
}

void MapperWriterTest::readsTheColorOfACell_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("upper case") << "#ABCDEF"
                                << "#abcdef";
    QTest::newRow("named") << "red"
                           << "#ff0000";
    QTest::newRow("short") << "#f80"
                           << "#ff8800";
    QTest::newRow("with opacity") << "#80102030"
                                  << "#102030";
    QTest::newRow("empty") << ""
                           << "#000000";
    QTest::newRow("no colour") << "reddish"
                               << "#000000";
    QTest::newRow("no hexadecimal number") << "#gg0000"
                                           << "#000000";
}

void MapperWriterTest::readsTheColorOfACell()
{
    QFETCH(QString, color);
    QFETCH(QString, text);
    Mapping mapping = mappingOf(keyOf("pad"), false);
    mapping.fullRgb = true;
    mapping.pads = padsOf({{4, 5, 0, "Fog", color}});
    QCOMPARE(lineOf(mapping, "LED_KEY"),
             mapLine("LED_KEY", "os2l_button 'Fog' ? color '" + text + "' : color 40% '" + text + "'"));
}

void MapperWriterTest::exportsTheSameFileAgain_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("switchKey"); // index of the control that is the switch; none when negative
    for (const QString& device : deviceNames()) {
        QTest::addRow("%s", qPrintable(device)) << device << -1;
        QTest::addRow("%s, switch pad", qPrintable(device)) << device << 33;
        QTest::addRow("%s, switch beside the pads", qPrintable(device)) << device << 66;
    }
}

void MapperWriterTest::exportsTheSameFileAgain()
{
    QFETCH(QString, device);
    QFETCH(int, switchKey);
    const Record record = deviceNamed(device);
    Mapping mapping = mappingFor(record, true);
    QVERIFY(mapping.keys.size() >= 72);
    if (switchKey >= 0) {
        const Record& key = mapping.keys.at(switchKey);
        QVERIFY(isKind(key, {"pad", "button"}));
        mapping = withSwitch(mapping, key.value(Key::row()).toInt(), key.value(Key::col()).toInt());
    }
    QSet<QPair<QString, QString>> lossy; // cells where a Live Button costs the factory's LED action
    for (const Record& key : std::as_const(mapping.keys)) {
        if (!keepsLedAction(key))
            lossy.insert({key.value(Key::row()), key.value(Key::col())});
    }
    QList<Cell> cells;
    int placed = 0;
    for (int i = 0; i < mapping.keys.size(); ++i) {
        const Record& key = mapping.keys.at(i);
        const Cell cell = variedCell(key, i);
        if (i == switchKey || !isKind(key, {"pad", "button"}) ||
            lossy.contains({key.value(Key::row()), key.value(Key::col())}))
            continue;
        cells += cell;
        placed += cell.id >= 0 ? 1 : 0;
    }
    QVERIFY2(placed >= 16, qPrintable(QString::number(placed)));
    mapping.pads = padsOf(cells);

    MapperFolder folder;
    const Mapping again = folder.reexported(mapping, record.value(Key::path()));
    COMPARE_FILES(written(again), written(mapping));
}

void MapperWriterTest::losesOnlyLedActionsWithoutAlternatives_data()
{
    QTest::addColumn<Mapping>("mapping");
    QTest::addColumn<QString>("layout");
    for (const QString& name : deviceNames()) {
        const Record device = deviceNamed(name);
        QTest::addRow("%s", qPrintable(name)) << mappingFor(device, true) << device.value(Key::path());
    }
    QTest::newRow("a device that has such LED actions") << oddMapping(true) << oddLayout();
}

void MapperWriterTest::losesOnlyLedActionsWithoutAlternatives()
{
    QFETCH(Mapping, mapping);
    QFETCH(QString, layout);
    QList<Cell> cells;
    Mapping lessened = mapping;
    for (int i = 0; i < mapping.keys.size(); ++i) {
        const Record& key = mapping.keys.at(i);
        if (isKind(key, {"pad", "button"}))
            cells += {key.value(Key::row()).toInt(), key.value(Key::col()).toInt(), i,
                      QStringLiteral("Cue %1").arg(i), "#ff0000"};
        if (!keepsLedAction(key))
            lessened.keys[i][Key::ledAction()].clear();
        if (isKind(key, {"empty"}) && key.value(Key::action()).isEmpty())
            lessened.keys[i][Key::action()] = QStringLiteral("nothing");
    }
    QVERIFY(cells.size() >= 11);
    mapping.pads = lessened.pads = padsOf(cells);

    MapperFolder folder;
    const Mapping again = folder.reexported(mapping, layout);
    COMPARE_FILES(written(again), written(lessened));
    COMPARE_FILES(written(folder.reexported(again, layout)), written(lessened));
}

void MapperWriterTest::losesLedActionsOfOneWord()
{
    MapperFolder folder;
    Mapping first = oddMapping(true);
    first.pads = padsOf({{2, 3, 0, "Fog", "#00ff00"}, {3, 0, 1, "Spot", "#ffffff"}});
    QCOMPARE(lineOf(first, "LED_PAD_B"),
             mapLine("LED_PAD_B", "var '$os2l' ? os2l_button 'Fog' ? color 'white' : color 'black' : off"));
    QCOMPARE(lineOf(first, "LED_SPOT"),
             mapLine("LED_SPOT", "var '$os2l' ? os2l_button 'Spot' ? on : off : on"));

    const Mapping second = folder.reexported(first, oddLayout());
    QCOMPARE(lineOf(second, "LED_PAD_B"),
             mapLine("LED_PAD_B", "var '$os2l' ? os2l_button 'Fog' ? color 'white' : color 'black'"));
    QCOMPARE(lineOf(second, "LED_SPOT"), mapLine("LED_SPOT", "var '$os2l' ? os2l_button 'Spot' ? on : off"));
    QCOMPARE(lineOf(second, "PAD_B"), lineOf(first, "PAD_B"));
    QCOMPARE(lineOf(second, "SPOT"), lineOf(first, "SPOT"));

    // A blinking pad has one alternative more and so keeps the word, as a pad without Live Button does.
    first.pads[2][3].blink = true;
    const Mapping blinking = folder.reexported(first, oddLayout());
    QCOMPARE(lineOf(blinking, "LED_PAD_B"),
             mapLine("LED_PAD_B", "var '$os2l' ? os2l_button 'Fog' ? blink ? color 'white' : "
                                  "color 'black' : color 'black' : off"));
    first.pads[2][3].id = -1;
    QCOMPARE(lineOf(folder.reexported(first, oddLayout()), "LED_PAD_B"),
             mapLine("LED_PAD_B", "var '$os2l' ? color 'black' : off"));
}

void MapperWriterTest::gainsAnActionForASilencedControl()
{
    MapperFolder folder;
    Mapping mapping = oddMapping(true);
    QCOMPARE(lineOf(mapping, "SPARE"), mapLine("SPARE", "nothing"));
    // What was written for want of an action is read as the factory's.
    for (int i = 0; i < 2; ++i) {
        mapping = folder.reexported(mapping, oddLayout());
        QCOMPARE(lineOf(mapping, "SPARE"), mapLine("SPARE", "var '$os2l' ? nothing : nothing"));
        QCOMPARE(lineOf(mapping, "SHIFT"), mapLine("SHIFT", "var '$os2l' ? nothing : shift"));
    }
}

void MapperWriterTest::losesTheActionsOfASwitch()
{
    MapperFolder folder;
    const Mapping onPad = withSwitch(oddMapping(true), 2, 2);
    Mapping again = folder.reexported(onPad, oddLayout());
    QCOMPARE(lineOf(again, "PAD_A"), mapLine("PAD_A", "toggle '$os2l'"));
    QCOMPARE(lineOf(again, "LED_PAD_A"), lineOf(onPad, "LED_PAD_A"));
    again = withSwitch(again, -1, -1);
    QCOMPARE(lineOf(again, "PAD_A"), mapLine("PAD_A", "var '$os2l' ? nothing"));
    QCOMPARE(lineOf(again, "LED_PAD_A"), mapLine("LED_PAD_A", "var '$os2l' ? color 'black'"));

    const Mapping onButton = withSwitch(oddMapping(true), 2, 0);
    again = folder.reexported(onButton, oddLayout());
    QCOMPARE(lineOf(again, "SIDE"), mapLine("SIDE", "toggle '$os2l'"));
    QCOMPARE(lineOf(again, "LED_SIDE"), mapLine("LED_SIDE", "var '$os2l'"));
    again = withSwitch(again, -1, -1);
    QCOMPARE(lineOf(again, "SIDE"), mapLine("SIDE", "var '$os2l' ? nothing"));
    QCOMPARE(lineOf(again, "LED_SIDE"), mapLine("LED_SIDE", "var '$os2l' ? off"));
}

void MapperWriterTest::exportsTheOs2lOnlyFileAgain_data()
{
    QTest::addColumn<QString>("device");
    for (const QString& device : deviceNames())
        QTest::addRow("%s", qPrintable(device)) << device;
}

void MapperWriterTest::exportsTheOs2lOnlyFileAgain()
{
    QFETCH(QString, device);
    const Record record = deviceNamed(device);
    Mapping mapping = mappingFor(record, false);
    mapping.pads = padsOf({{2, 3, 0, "Fog", "#ff0000", "", "", "1"}, {9, 9, 1, "Cue", "#00ff00"}});
    QVERIFY(written(mapping).contains("os2l_button &apos;Fog&apos;"));
    QVERIFY(written(mapping).contains("os2l_button &apos;Cue&apos;"));
    MapperFolder folder;
    COMPARE_FILES(written(folder.reexported(mapping, record.value(Key::path()))), written(mapping));
}

QTEST_GUILESS_MAIN(MapperWriterTest)
#include "tst_mapperwriter.moc"
