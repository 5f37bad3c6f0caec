#include "cells.h"
#include "domrecords.h"
#include "toolkit.h"

#include <QColor>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QtTest>

#include <utility>

using namespace controller;

namespace {

constexpr const char* folder = ":/mappings/Mappings/";
const char* const twoColors = "#000000,#550000,#AA0000,#FF0000,#005500,#00AA00,#00FF00,#555500,"
                              "#AA5500,#FF5500,#55AA00,#AAAA00,#FFAA00,#55FF00,#AAFF00,#FFFF00";

/// A device as its layout file must describe it. A control is a line such as
/// "pad PAD_1_1 row=2 col=2 colorled=LED_".
struct Device
{
    QString name;
    Record attributes;
    QStringList controls;
};

/// The 64 pads row by row, left to right; \a names takes the row and the number in the row, both from 1.
QStringList pads(const QString& names)
{
    QStringList lines;
    for (int row = 1; row <= 8; ++row) {
        for (int pad = 1; pad <= 8; ++pad)
            lines.append(QString("pad %1 row=%2 col=%3 colorled=LED_")
                             .arg(names.arg(row).arg(pad))
                             .arg(row + 1)
                             .arg(pad + 1));
    }
    return lines;
}

/// The pads of the two-colour Launchpads, whose "2.1" lies on "1.1".
QStringList twoColorPads()
{
    QStringList lines = pads("%1.%2");
    lines[8] = "pad 2.1 row=2 col=2 colorled=LED_";
    return lines;
}

/// The controls of one side, from left to right or from top to bottom; \a names are separated by blanks.
QStringList side(const QString& group, const QString& tag, const QString& led, const QString& names)
{
    QStringList lines;
    const QStringList all = names.split(' ');
    for (int i = 0; i < all.size(); ++i) {
        int row = i + 2;
        int col = i + 2;
        if (group == "top")
            row = 0;
        else if (group == "bottom")
            row = 11;
        else
            col = group == "left" ? 0 : 11;
        lines.append(QString("%1 %2 row=%3 col=%4 %5=LED_ group=%6")
                         .arg(tag, all.at(i), QString::number(row), QString::number(col), led, group));
    }
    return lines;
}

/// Controls without a place in the grid; \a names are separated by blanks.
QStringList unplaced(const QString& tag, const QString& names)
{
    QStringList lines;
    const QStringList all = names.split(' ');
    for (const QString& name : all)
        lines.append(tag + ' ' + name);
    return lines;
}

QStringList sliders()
{
    QStringList lines;
    for (int i = 0; i < 8; ++i)
        lines.append(QString("slider SLIDER%1 row=10 col=%2").arg(i + 1).arg(i));
    return lines;
}

Record attributes(const QString& id, const QString& top, const QString& left, const QString& bottom,
                  const QString& right)
{
    return {{"name", id},       {"fullrgb", "true"}, {"top", top},   {"left", left},
            {"bottom", bottom}, {"right", right},    {"faders", "0"}};
}

Device apcMini()
{
    Record record = attributes("APCMINI", "0", "0", "8", "8");
    record["fullrgb"] = "false";
    record["colors"] = "black,green,red,yellow";
    record["coloroff"] = "3";
    record["coloron"] = "1";
    record["faders"] = "8";
    return {"Akai APC Mini", record,
            unplaced("empty", "SHIFT") + pads("ROW%1_PAD%2") +
                side("bottom", "button", "led", "UP DOWN LEFT RIGHT VOLUME PAN SEND DEVICE") +
                side("right", "button", "led",
                     "CLIP_STOP SOLO REC_ARM MUTE SELECT BLANK1 BLANK2 STOP_ALL_CLIPS") +
                sliders() + unplaced("empty", "SLIDER9")};
}

Device launchpadMiniMk3()
{
    return {
        "Novation Launchpad Mini MK3", attributes("NLMINIMK3", "4", "0", "0", "8"),
        pads("PAD_%1_%2") + side("top", "pad", "colorled", "BUT_HOR_1 BUT_HOR_2 BUT_HOR_3 BUT_HOR_4") +
            side("right", "pad", "colorled",
                 "BUT_VERT_1 BUT_VERT_2 BUT_VERT_3 BUT_VERT_4 BUT_VERT_5 BUT_VERT_6 BUT_VERT_7 BUT_VERT_8") +
            unplaced("ignore", "SESSION DRUMS KEYS USER "
                               "FADER_1 FADER_2 FADER_3 FADER_4 FADER_5 FADER_6 FADER_7 FADER_8 "
                               "FADER_1_TYPE FADER_2_TYPE FADER_3_TYPE FADER_4_TYPE "
                               "FADER_5_TYPE FADER_6_TYPE FADER_7_TYPE FADER_8_TYPE "
                               "FADER_1_COLOR FADER_2_COLOR FADER_3_COLOR FADER_4_COLOR "
                               "FADER_5_COLOR FADER_6_COLOR FADER_7_COLOR FADER_8_COLOR "
                               "LED_FADER_1 LED_FADER_2 LED_FADER_3 LED_FADER_4 "
                               "LED_FADER_5 LED_FADER_6 LED_FADER_7 LED_FADER_8")};
}

Device launchpadMk2()
{
    return {"Novation Launchpad MKII", attributes("LAUNCHPAD2", "8", "0", "0", "8"),
            pads("PAD_%1_%2") +
                side("top", "button", "colorled",
                     "BUT_HOR_1 BUT_HOR_2 BUT_HOR_3 BUT_HOR_4 BUT_HOR_5 BUT_HOR_6 BUT_HOR_7 BUT_HOR_8") +
                side("right", "button", "colorled",
                     "BUT_VERT_1 BUT_VERT_2 BUT_VERT_3 BUT_VERT_4 "
                     "BUT_VERT_5 BUT_VERT_6 BUT_VERT_7 BUT_VERT_8")};
}

Device launchpadPro()
{
    return {"Novation Launchpad PRO", attributes("LAUNCHPADPRO", "4", "8", "8", "8"),
            unplaced("ignore", "DNC_ABLETON_MODE DNC_NOTE_MODE DNC_DRUM_MODE DNC_DEVICE_MODE DNC_USER_MODE "
                               "DNC_VOLFADER_MODE DNC_SAM1FADER_MODE DNC_SAM2FADER_MODE "
                               "DNC_NOTUSED_MODE DNC_NOTUSED_MODE DNC_NOTUSED_MODE DNC_NOTUSED_MODE "
                               "DNC_NOTUSED_MODE DNC_NOTUSED_MODE DNC_NOTUSED_MODE DNC_NOTUSED_MODE "
                               "DNC_LED_ABLETON_MODE DNC_LED_NOTE_MODE DNC_LED_DRUM_MODE "
                               "DNC_LED_DEVICE_MODE DNC_LED_USER_MODE DNC_LED_VOLFADER_MODE "
                               "DNC_LED_SAM1FADER_MODE DNC_LED_SAM2FADER_MODE") +
                pads("PAD_%1_%2") + side("top", "pad", "colorled", "TOP_UP TOP_DOWN TOP_LEFT TOP_RIGHT") +
                side("bottom", "pad", "colorled",
                     "BOTTOM_RECORD_ARM BOTTOM_TRACK_SELECT BOTTOM_MUTE BOTTOM_SOLO "
                     "BOTTOM_VOLUME BOTTOM_PAN BOTTOM_SENDS BOTTOM_STOP_CLIP") +
                side("left", "pad", "colorled",
                     "LEFT_SHIFT LEFT_CLICK LEFT_UNDO LEFT_DELETE "
                     "LEFT_QUANTISE LEFT_DUPLICATE LEFT_DOUBLE LEFT_CIRCLE") +
                side("right", "pad", "colorled",
                     "RIGHT_1 RIGHT_2 RIGHT_3 RIGHT_4 RIGHT_5 RIGHT_6 RIGHT_7 RIGHT_8")};
}

Device twoColorLaunchpad(const QString& name, const QString& id)
{
    Record record = attributes(id, "8", "0", "0", "8");
    record["fullrgb"] = "false";
    record["colors"] = twoColors;
    record["coloroff"] = "0";
    record["coloron"] = "3";
    return {name, record,
            twoColorPads() + side("right", "pad", "colorled", "Y1 Y2 Y3 Y4 Y5 Y6 Y7 Y8") +
                side("top", "pad", "colorled", "X1 X2 X3 X4 X5 X6 X7 X8")};
}

QList<Device> devices()
{
    return {apcMini(),
            launchpadMiniMk3(),
            twoColorLaunchpad("Novation Launchpad Mini", "LAUNCHPADMINI"),
            launchpadMk2(),
            launchpadPro(),
            twoColorLaunchpad("Novation Launchpad S", "LAUNCHPADS"),
            twoColorLaunchpad("Novation Launchpad", "LAUNCHPAD")};
}

QString layoutPath(const QString& name) { return QString(folder) + name + ".xml"; }
QString mappingPath(const QString& name) { return QString(folder) + name + " mapping.xml"; }

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The root element of the file; null when the file is no well-formed document.
QDomElement rootOf(const QString& path)
{
    QDomDocument document;
    return document.setContent(bytesOf(path)) ? document.documentElement() : QDomElement();
}

/// A control as the devices above write it, with every attribute that it has.
QString lineOf(const QDomElement& control)
{
    Record rest = recordof(control);
    QString line = control.tagName() + ' ' + rest.take("name");
    const QStringList order{"row", "col", "colorled", "led", "group"};
    for (const QString& key : order) {
        if (rest.contains(key))
            line += ' ' + key + '=' + rest.take(key);
    }
    for (auto it = rest.cbegin(); it != rest.cend(); ++it)
        line += " unknown " + it.key();
    return line;
}

/// The mapping's actions by the name of their control.
QHash<QString, QString> actionsOf(const QString& name)
{
    QHash<QString, QString> actions;
    const QList<QDomElement> maps = childrenof(rootOf(mappingPath(name)));
    for (const QDomElement& map : maps) {
        if (map.tagName() == "map")
            actions.insert(map.attribute("value"), map.attribute("action"));
    }
    return actions;
}

/// The APC Mini's side buttons that have no LED entry: the first six light by their own action, the blank
/// ones stay dark.
const QStringList& buttonsWithoutLed()
{
    static const QStringList names{"UP", "DOWN", "LEFT", "RIGHT", "VOLUME", "PAN", "BLANK1", "BLANK2"};
    return names;
}

/// The words that may follow a verb, as a pattern for all of them together; null for an unknown verb.
QString argumentsOf(const QString& verb)
{
    const QString number = "(?:[1-9]|[1-5][0-9]|6[0-4])";
    const QString percent = "(?:100|[1-9]?[0-9])%";
    const QString anyPercent = "(?:[+-]?" + percent + ")?";
    const QString beats = "(?:1/(?:2|4|8|16)|1|2|4|8|16|32)";
    const QString variable = R"('\$[a-z0-9]+')";
    static const QHash<QString, QString> verbs{
        {"beat_tap", ""},
        {"beatjump", "[+-](?:1|2|4|8|16|32)"},
        {"blink", "(?:[1-9][0-9]*(?:ms|bt))?"},
        {"browser_scroll", "[+-]1|'top'|'bottom'"},
        {"browser_window", "'folders'|'songs'"},
        {"clone_from_deck", "[1-4]"},
        {"color", "'[^']+'"},
        {"constant", percent},
        {"crossfader", anyPercent},
        {"cue_button", ""},
        {"cycle", variable + " [1-9]"},
        {"delete_cue", number},
        {"down", ""},
        {"effect_active", "[1-3]"},
        {"effect_select", "[1-3] [+-]1"},
        {"effect_slider", "[1-3] [1-9](?: " + percent + ")?"},
        {"eq_kill_high", ""},
        {"eq_kill_low", ""},
        {"eq_kill_mid", ""},
        {"filter", anyPercent},
        {"headphone_volume", anyPercent},
        {"hot_cue", number},
        {"key_lock", ""},
        {"load", ""},
        {"loaded", ""},
        {"loop", "(?:" + beats + ")?"},
        {"loop_double", ""},
        {"loop_half", ""},
        {"loop_roll", beats},
        {"master_volume", anyPercent},
        {"nothing", ""},
        {"off", ""},
        {"on", ""},
        {"param_bigger", percent},
        {"pfl", ""},
        {"pitch_bend", "[+-]" + percent},
        {"play", ""},
        {"play_pause", ""},
        {"quantize_all", ""},
        {"record", ""},
        {"reloop_exit", ""},
        {"repeat", "[1-9][0-9]*ms [1-9][0-9]*ms"},
        {"sampler_bank", "[+-]1"},
        {"sampler_edit", number},
        {"sampler_group_volume", "[1-8](?: " + percent + ")?"},
        {"sampler_loaded", number},
        {"sampler_mute", number},
        {"sampler_pad", number},
        {"sampler_rec", number},
        {"sampler_stop", number + "|'all'"},
        {"sampler_volume", number + "(?: " + percent + ")?"},
        {"sampler_volume_master", anyPercent},
        {"set", variable + " [0-9]"},
        {"shift", ""},
        {"slip_mode", ""},
        {"stop", ""},
        {"sync", ""},
        {"toggle", variable},
        {"var", variable + "(?: [0-9])?"},
        {"volume", anyPercent},
    };
    return verbs.value(verb);
}

/// What is wrong with one command, such as "deck 1 hot_cue 3"; empty when nothing is. \a colors are the only
/// colours of the device, none when it takes any.
QString commandFault(const QString& command, const QStringList& colors)
{
    QStringList words = command.split(' ');
    if (words.first() == "deck") {
        static const QRegularExpression deck("^[1-4]$");
        if (words.size() < 3 || !deck.match(words.at(1)).hasMatch())
            return "no deck in \"" + command + '"';
        words = words.mid(2);
    }
    const QString verb = words.takeFirst();
    const QString pattern = argumentsOf(verb);
    if (pattern.isNull())
        return "unknown verb in \"" + command + '"';
    const QString arguments = words.join(' ');
    const QRegularExpression wanted(QRegularExpression::anchoredPattern(pattern));
    if (!wanted.match(arguments).hasMatch() || command.endsWith(' '))
        return "bad arguments in \"" + command + '"';
    if (verb != "color")
        return {};
    const QString color = arguments.mid(1, arguments.size() - 2);
    const bool known = colors.isEmpty() ? QColor::isValidColor(color) : colors.contains(color);
    return known ? QString() : "unknown colour in \"" + command + '"';
}

/// An action cut at " ? " and " : ", apostrophes or not: so does the program when it takes OS2L out again.
class ActionReader
{
public:
    ActionReader(const QString& action, const QStringList& colors) : m_colors(colors)
    {
        static const QRegularExpression separator(" ([?:]) ");
        Size from = 0;
        auto found = separator.globalMatch(action);
        while (found.hasNext()) {
            const QRegularExpressionMatch match = found.next();
            m_pieces.append(action.mid(from, match.capturedStart() - from));
            m_separators.append(match.captured(1));
            from = match.capturedEnd();
        }
        m_pieces.append(action.mid(from));
    }

    /// What is wrong with the action; empty when nothing is.
    QString fault()
    {
        readAction();
        if (m_fault.isEmpty() && m_next < m_separators.size())
            m_fault = "an alternative without a condition after \"" + m_pieces.at(m_next) + '"';
        return m_fault;
    }

private:
    /// Commands alone, or a condition, its action, and the action otherwise.
    void readAction()
    {
        readCommands();
        if (!m_fault.isEmpty() || m_next >= m_separators.size() || m_separators.at(m_next) != "?")
            return;
        const QString condition = m_pieces.at(m_next);
        ++m_next;
        readAction();
        if (!m_fault.isEmpty())
            return;
        if (m_next >= m_separators.size()) {
            m_fault = "no alternative for \"" + condition + '"';
            return;
        }
        ++m_next;
        readAction();
    }

    void readCommands()
    {
        const QString& piece = m_pieces.at(m_next);
        QString unquoted = piece;
        static const QRegularExpression quoted("'[^']*'");
        unquoted.remove(quoted);
        static const QRegularExpression stray("['\"?:<>]");
        if (piece.trimmed().isEmpty())
            m_fault = "an empty piece";
        else if (unquoted.contains(stray))
            m_fault = "a stray sign in \"" + piece + '"';
        const QStringList commands = piece.split(" & ");
        for (const QString& command : commands) {
            if (m_fault.isEmpty())
                m_fault = commandFault(command, m_colors);
        }
    }

    QStringList m_pieces;
    QStringList m_separators; ///< "?" or ":", each between two pieces
    QStringList m_colors;
    QString m_fault;
    int m_next = 0; ///< the piece being read, and the separator behind it
};

QString actionFault(const QString& action, const QStringList& colors)
{
    return ActionReader(action, colors).fault();
}

/// The colours that the device's palette names; none for a device that takes any.
QStringList paletteOf(const Device& device)
{
    return device.attributes.value("colors").split(',', Qt::SkipEmptyParts);
}

} // namespace

Q_DECLARE_METATYPE(Device)

class MappingsTest : public QObject
{
    Q_OBJECT

private slots:
    void shipsALayoutAndAFactoryMappingForEveryDevice();
    void keepsEveryFileAsUtf8WithCrLf_data();
    void keepsEveryFileAsUtf8WithCrLf();

    void describesTheDevice_data() { devicesAsData(); }
    void describesTheDevice();
    void namesEveryControlInOrder_data() { devicesAsData(); }
    void namesEveryControlInOrder();
    void countsTheControlsOfEachKind_data();
    void countsTheControlsOfEachKind();
    void coversEveryUsableCellOnce_data() { devicesAsData(); }
    void coversEveryUsableCellOnce();

    void saysWhichDeviceAMappingIsFor_data() { devicesAsData(); }
    void saysWhichDeviceAMappingIsFor();
    void givesEveryControlAnAction_data() { devicesAsData(); }
    void givesEveryControlAnAction();
    void lightsEveryLed_data() { devicesAsData(); }
    void lightsEveryLed();
    void mapsNothingElseButKnownEntries_data() { devicesAsData(); }
    void mapsNothingElseButKnownEntries();
    void speaksVirtualDJsLanguage_data() { devicesAsData(); }
    void speaksVirtualDJsLanguage();
    void tellsPagesApart_data();
    void tellsPagesApart();
    void writesQuotesAsEntities_data() { devicesAsData(); }
    void writesQuotesAsEntities();
    void playsSamplesOnTheApcMini_data();
    void playsSamplesOnTheApcMini();

    void findsWhatIsWrongWithAnAction_data();
    void findsWhatIsWrongWithAnAction();
    void acceptsSoundActions_data();
    void acceptsSoundActions();

private:
    static void devicesAsData();
};

void MappingsTest::devicesAsData()
{
    QTest::addColumn<Device>("device");
    const QList<Device> all = devices();
    for (const Device& device : all)
        QTest::newRow(qPrintable(device.name)) << device;
}

void MappingsTest::shipsALayoutAndAFactoryMappingForEveryDevice()
{
    const QStringList expected{
        "Akai APC Mini mapping.xml",
        "Akai APC Mini.xml",
        "Novation Launchpad MKII mapping.xml",
        "Novation Launchpad MKII.xml",
        "Novation Launchpad Mini MK3 mapping.xml",
        "Novation Launchpad Mini MK3.xml",
        "Novation Launchpad Mini mapping.xml",
        "Novation Launchpad Mini.xml",
        "Novation Launchpad PRO mapping.xml",
        "Novation Launchpad PRO.xml",
        "Novation Launchpad S mapping.xml",
        "Novation Launchpad S.xml",
        "Novation Launchpad mapping.xml",
        "Novation Launchpad.xml",
    };
    const QStringList found = QDir(folder).entryList();
    for (const QString& name : expected)
        QVERIFY2(found.contains(name), qPrintable(name));
    // Whatever else is there comes in pairs too.
    for (const QString& name : found) {
        QString partner = name;
        if (name.endsWith(" mapping.xml"))
            partner.replace(" mapping.xml", ".xml");
        else
            partner.replace(".xml", " mapping.xml");
        QVERIFY2(partner != name && found.contains(partner), qPrintable(name));
    }
}

void MappingsTest::keepsEveryFileAsUtf8WithCrLf_data()
{
    QTest::addColumn<QString>("path");
    const QList<Device> all = devices();
    for (const Device& device : all) {
        QTest::newRow(qPrintable(device.name)) << layoutPath(device.name);
        QTest::newRow(qPrintable(device.name + " mapping")) << mappingPath(device.name);
    }
}

void MappingsTest::keepsEveryFileAsUtf8WithCrLf()
{
    QFETCH(QString, path);
    const QByteArray bytes = bytesOf(path);
    QVERIFY(bytes.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<"));
    QVERIFY(bytes.endsWith(">\r\n"));
    QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
    QCOMPARE(bytes.count('\r'), bytes.count("\r\n"));

    // Bytes that are no UTF-8 do not come back.
    QCOMPARE(QString::fromUtf8(bytes).toUtf8(), bytes);

    QDomDocument document;
    QString error;
    QVERIFY2(document.setContent(bytes, &error), qPrintable(error));
}

void MappingsTest::describesTheDevice()
{
    QFETCH(Device, device);
    const QDomElement root = rootOf(layoutPath(device.name));
    QCOMPARE(root.tagName(), QString("layout"));
    Record found = recordof(root);
    const QString description = found.take("description");
    QVERIFY2(description.startsWith(device.name), qPrintable(description));
    QCOMPARE(found, device.attributes);
}

void MappingsTest::namesEveryControlInOrder()
{
    QFETCH(Device, device);
    QStringList found;
    const QList<QDomElement> controls = childrenof(rootOf(layoutPath(device.name)));
    for (const QDomElement& control : controls)
        found.append(lineOf(control));
    for (int i = 0; i < qMin(found.size(), device.controls.size()); ++i)
        QCOMPARE(found.at(i), device.controls.at(i));
    QCOMPARE(found.size(), device.controls.size());
}

void MappingsTest::countsTheControlsOfEachKind_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("padCount");
    QTest::addColumn<int>("buttonCount");
    QTest::addColumn<int>("sliderCount");
    QTest::addColumn<int>("ignoreCount");
    QTest::addColumn<int>("emptyCount");
    QTest::newRow("APC Mini") << "Akai APC Mini" << 64 << 16 << 8 << 0 << 2;
    QTest::newRow("Mini MK3") << "Novation Launchpad Mini MK3" << 76 << 0 << 0 << 36 << 0;
    QTest::newRow("Mini") << "Novation Launchpad Mini" << 80 << 0 << 0 << 0 << 0;
    QTest::newRow("MKII") << "Novation Launchpad MKII" << 64 << 16 << 0 << 0 << 0;
    QTest::newRow("PRO") << "Novation Launchpad PRO" << 92 << 0 << 0 << 24 << 0;
    QTest::newRow("S") << "Novation Launchpad S" << 80 << 0 << 0 << 0 << 0;
    QTest::newRow("Launchpad") << "Novation Launchpad" << 80 << 0 << 0 << 0 << 0;
}

void MappingsTest::countsTheControlsOfEachKind()
{
    QFETCH(QString, name);
    QFETCH(int, padCount);
    QFETCH(int, buttonCount);
    QFETCH(int, sliderCount);
    QFETCH(int, ignoreCount);
    QFETCH(int, emptyCount);
    QHash<QString, int> counts;
    const QList<QDomElement> controls = childrenof(rootOf(layoutPath(name)));
    for (const QDomElement& control : controls)
        ++counts[control.tagName()];
    QCOMPARE(counts.value("pad"), padCount);
    QCOMPARE(counts.value("button"), buttonCount);
    QCOMPARE(counts.value("slider"), sliderCount);
    QCOMPARE(counts.value("ignore"), ignoreCount);
    QCOMPARE(counts.value("empty"), emptyCount);
    QCOMPARE(controls.size(), padCount + buttonCount + sliderCount + ignoreCount + emptyCount);
}

void MappingsTest::coversEveryUsableCellOnce()
{
    QFETCH(Device, device);
    const QDomElement root = rootOf(layoutPath(device.name));
    const Record layout = recordof(root);
    QHash<QPair<int, int>, QStringList> names;
    const QList<QDomElement> controls = childrenof(root);
    for (const QDomElement& control : controls) {
        if (control.tagName() != "pad" && control.tagName() != "button")
            continue;
        bool isRow = false;
        bool isCol = false;
        const int row = control.attribute("row").toInt(&isRow);
        const int col = control.attribute("col").toInt(&isCol);
        QVERIFY(isRow && isCol);
        names[{row, col}].append(control.attribute("name"));
    }

    const bool twoColor = device.attributes.value("colors") == twoColors;
    Size cells = 0;
    for (int row = 0; row < Grid::Lines; ++row) {
        for (int col = 0; col < Grid::Lines; ++col) {
            const QStringList here = names.value({row, col});
            cells += here.size();
            if (twoColor && row == 2 && col == 2)
                QCOMPARE(here, QStringList({"1.1", "2.1"}));
            else if (twoColor && row == 3 && col == 2)
                QCOMPARE(here, QStringList());
            else
                QVERIFY2(here.size() == padavail(row, col, layout).toInt(),
                         qPrintable(QString("row %1, column %2: %3").arg(row).arg(col).arg(here.join(' '))));
        }
    }
    Size placed = 0;
    for (const QStringList& here : std::as_const(names))
        placed += here.size();
    QCOMPARE(cells, placed);
}

void MappingsTest::saysWhichDeviceAMappingIsFor()
{
    QFETCH(Device, device);
    const QDomElement root = rootOf(mappingPath(device.name));
    QCOMPARE(root.tagName(), QString("mapper"));
    const Record found = recordof(root);
    QCOMPARE(QStringList(found.keys()), QStringList({"author", "date", "device", "version"}));
    QCOMPARE(found.value("device"), device.attributes.value("name"));
    QCOMPARE(found.value("author"), QString("Lumipad"));
    QCOMPARE(found.value("version"), QString("840"));
    const QStringList date = found.value("date").split('-');
    QCOMPARE(date.size(), 3);
    QVERIFY(QDate(date.at(2).toInt(), date.at(1).toInt(), date.at(0).toInt()).isValid());

    QStringList names;
    const QList<QDomElement> children = childrenof(root);
    for (const QDomElement& child : children) {
        if (child.tagName() == "info") {
            QVERIFY(!child.text().trimmed().isEmpty());
            continue;
        }
        QCOMPARE(child.tagName(), QString("map"));
        QCOMPARE(QStringList(recordof(child).keys()), QStringList({"action", "value"}));
        names.append(child.attribute("value"));
    }
    // The last of two entries would hide the first.
    QCOMPARE(names.removeDuplicates(), 0);
}

void MappingsTest::givesEveryControlAnAction()
{
    QFETCH(Device, device);
    const QHash<QString, QString> actions = actionsOf(device.name);
    for (const QString& control : std::as_const(device.controls)) {
        const QString name = control.section(' ', 1, 1);
        QVERIFY2(!actions.value(name).isEmpty(), qPrintable(name));
        // The device's own modes may lie idle; whatever the user can touch does something.
        if (!control.startsWith("ignore "))
            QVERIFY2(actions.value(name) != "nothing", qPrintable(name));
        // This variable is the program's own: it would take such an action for one it has written.
        QVERIFY2(!actions.value(name).contains("$os2l"), qPrintable(name));
    }
}

void MappingsTest::lightsEveryLed()
{
    QFETCH(Device, device);
    const QHash<QString, QString> actions = actionsOf(device.name);
    const QList<QDomElement> controls = childrenof(rootOf(layoutPath(device.name)));
    for (const QDomElement& control : controls) {
        if (control.tagName() != "pad" && control.tagName() != "button")
            continue;
        const QString name = control.attribute("name");
        const QString led = control.attribute("colorled") + control.attribute("led") + name;
        const bool dark = device.name == "Akai APC Mini" && buttonsWithoutLed().contains(name);
        QVERIFY2(actions.contains(led) != dark, qPrintable(led));
        // What lights a control must be a condition with its alternative, or exporting again from an exported
        // mapping would lose it. A button without an LED entry may light by its own action.
        const QString action = actions.value(dark ? name : led);
        QVERIFY2(action.contains(" ? ") && action.contains(" : "), qPrintable(led));
        QVERIFY2(action.indexOf(" ? ") < action.indexOf(" : "), qPrintable(led));
        QVERIFY2(!action.contains("$os2l"), qPrintable(led));
    }
}

void MappingsTest::mapsNothingElseButKnownEntries()
{
    QFETCH(Device, device);
    QStringList expected{"ONEXIT", "ONINIT"};
    if (device.name == "Novation Launchpad PRO") {
        for (int row = 1; row <= 8; ++row) {
            for (int pad = 1; pad <= 8; ++pad)
                expected.append(QString("PAD_VEL_%1_%2").arg(row).arg(pad));
        }
    }
    QStringList found = actionsOf(device.name).keys();
    for (const QString& control : std::as_const(device.controls)) {
        const QString name = control.section(' ', 1, 1);
        found.removeAll(name);
        if (control.contains("led=LED_"))
            found.removeAll("LED_" + name);
    }
    found.sort();
    QCOMPARE(found, expected);
}

void MappingsTest::speaksVirtualDJsLanguage()
{
    QFETCH(Device, device);
    const QHash<QString, QString> actions = actionsOf(device.name);
    QVERIFY(actions.size() > 2 * 64);
    for (auto it = actions.cbegin(); it != actions.cend(); ++it) {
        const QString fault = actionFault(it.value(), paletteOf(device));
        QVERIFY2(fault.isEmpty(), qPrintable(it.key() + ": " + fault));
    }
}

void MappingsTest::tellsPagesApart_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("pad");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<int>("pages");
    QTest::newRow("Mini MK3") << "Novation Launchpad Mini MK3"
                              << "PAD_1_1"
                              << "mk3page" << 4;
    QTest::newRow("Mini") << "Novation Launchpad Mini"
                          << "1.1"
                          << "minipage" << 2;
    QTest::newRow("MKII") << "Novation Launchpad MKII"
                          << "PAD_8_8"
                          << "mk2page" << 4;
    QTest::newRow("PRO") << "Novation Launchpad PRO"
                         << "PAD_4_5"
                         << "promode" << 8;
    QTest::newRow("S") << "Novation Launchpad S"
                       << "8.1"
                       << "lpspage" << 4;
    QTest::newRow("Launchpad") << "Novation Launchpad"
                               << "2.1"
                               << "lppage" << 4;
}

void MappingsTest::tellsPagesApart()
{
    QFETCH(QString, name);
    QFETCH(QString, pad);
    QFETCH(QString, variable);
    QFETCH(int, pages);
    const QHash<QString, QString> actions = actionsOf(name);
    const QStringList texts{actions.value(pad), actions.value("LED_" + pad)};
    for (const QString& text : texts) {
        QVERIFY2(text.startsWith(QString("var '$%1' 0 ? ").arg(variable)), qPrintable(text));
        QCOMPARE(text.count(QString("var '$%1' ").arg(variable)), pages);
        QVERIFY2(text.contains(QString(" : var '$%1' %2 ? ").arg(variable).arg(pages - 1)), qPrintable(text));
    }
    // Every page can be reached, and the controller starts on the first.
    QVERIFY(actions.value("ONINIT").contains(QString("set '$%1' 0").arg(variable)));
    const QStringList all = actions.values();
    if (!all.join('\n').contains(QString("cycle '$%1' %2").arg(variable).arg(pages))) {
        for (int page = 0; page < pages; ++page)
            QVERIFY(all.contains(QString("set '$%1' %2").arg(variable).arg(page)));
    }
}

void MappingsTest::writesQuotesAsEntities()
{
    QFETCH(Device, device);
    const QByteArray bytes = bytesOf(mappingPath(device.name));
    QVERIFY(bytes.contains("&apos;"));
    QVERIFY(bytes.contains(" &amp; "));
    QCOMPARE(bytes.count('\''), 0);
    QCOMPARE(bytes.count("&amp;"), bytes.count(" &amp; "));
}

void MappingsTest::playsSamplesOnTheApcMini_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("first pad") << QByteArray(
        "<map value=\"ROW1_PAD1\" action=\"var &apos;$sampleedit&apos; ? sampler_edit 1 : "
        "var &apos;$samplemute&apos; ? sampler_mute 1 : var &apos;$samplerec&apos; ? sampler_rec 1 : "
        "shift ? sampler_stop 1 : sampler_pad 1\"/>");
    QTest::newRow("first LED") << QByteArray(
        "<map value=\"LED_ROW1_PAD1\" action=\"sampler_rec 1 ? blink 500ms ? color &apos;red&apos; : off : "
        "sampler_loaded 1 ? sampler_mute 1 ? color &apos;red&apos; : sampler_pad 1 ? color &apos;green&apos; "
        ": color &apos;yellow&apos; : off\"/>");
    QTest::newRow("second row") << QByteArray(
        "<map value=\"ROW2_PAD3\" action=\"var &apos;$sampleedit&apos; ? sampler_edit 11 : "
        "var &apos;$samplemute&apos; ? sampler_mute 11 : var &apos;$samplerec&apos; ? sampler_rec 11 : "
        "shift ? sampler_stop 11 : sampler_pad 11\"/>");
    QTest::newRow("last LED") << QByteArray(
        "<map value=\"LED_ROW8_PAD8\" action=\"sampler_rec 64 ? blink 500ms ? color &apos;red&apos; : off : "
        "sampler_loaded 64 ? sampler_mute 64 ? color &apos;red&apos; : sampler_pad 64 ? "
        "color &apos;green&apos; : color &apos;yellow&apos; : off\"/>");
    QTest::newRow("first slider") << QByteArray("<map value=\"SLIDER1\" action=\"sampler_group_volume 1\"/>");
    QTest::newRow("eighth slider") << QByteArray(
        "<map value=\"SLIDER8\" action=\"sampler_group_volume 8\"/>");
    QTest::newRow("shift") << QByteArray("<map value=\"SHIFT\" action=\"shift\"/>");
    QTest::newRow("quieter") << QByteArray("<map value=\"PAN\" action=\"shift ? sampler_volume_master 0% : "
                                           "repeat 100ms 500ms &amp; sampler_volume_master -5%\"/>");
}

void MappingsTest::playsSamplesOnTheApcMini()
{
    QFETCH(QByteArray, line);
    QCOMPARE(bytesOf(mappingPath("Akai APC Mini")).count("\r\n\t" + line + "\r\n"), 1);
}

void MappingsTest::findsWhatIsWrongWithAnAction_data()
{
    QTest::addColumn<QString>("action");
    QTest::newRow("empty") << "";
    QTest::newRow("blank") << " ";
    QTest::newRow("apostrophe missing") << "var '$page ? play : stop";
    QTest::newRow("apostrophe too many") << "color ''red'";
    QTest::newRow("separator in a quoted text") << "color 'red ? green'";
    QTest::newRow("no alternative") << "shift ? play";
    QTest::newRow("no alternative further in") << "shift ? play ? on : off";
    QTest::newRow("no condition") << "play : stop";
    QTest::newRow("one alternative too many") << "shift ? play : stop : sync";
    QTest::newRow("empty condition") << " ? play : stop";
    QTest::newRow("empty action") << "shift ?  : stop";
    QTest::newRow("empty alternative") << "shift ? play : ";
    QTest::newRow("no blank before the question mark") << "shift? play : stop";
    QTest::newRow("no blanks around the colon") << "shift ? play:stop";
    QTest::newRow("narrow ampersand") << "play&stop";
    QTest::newRow("ampersand at the end") << "play & ";
    QTest::newRow("empty command") << "play &  & stop";
    QTest::newRow("two blanks") << "sampler_pad  1";
    QTest::newRow("blank at the end") << "play ";
    QTest::newRow("blank at the start") << " play";
    QTest::newRow("unknown verb") << "sampler_pads 1";
    QTest::newRow("unknown verb further in") << "shift ? play : stopp";
    QTest::newRow("wrong case") << "Play";
    QTest::newRow("argument missing") << "hot_cue";
    QTest::newRow("argument too many") << "play 1";
    QTest::newRow("no such sample") << "sampler_pad 65";
    QTest::newRow("variable without quotes") << "toggle $page";
    QTest::newRow("deck missing") << "deck play";
    QTest::newRow("no such deck") << "deck 5 play";
    QTest::newRow("deck alone") << "deck 1";
    QTest::newRow("no color") << "color 'no such'";
    QTest::newRow("double quote") << "color \"red\"";
    QTest::newRow("tag") << "play<stop";
}

void MappingsTest::findsWhatIsWrongWithAnAction()
{
    QFETCH(QString, action);
    QVERIFY(!actionFault(action, {}).isEmpty());
    QVERIFY(!actionFault(action, {"red", "green"}).isEmpty());
}

void MappingsTest::acceptsSoundActions_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("colors");
    QTest::addColumn<bool>("sound");
    const QStringList any;
    const QStringList three{"black", "green", "#FF0000"};
    QTest::newRow("verb") << "shift" << any << true;
    QTest::newRow("condition") << "var '$page' 0 ? sampler_bank -1 : nothing" << any << true;
    QTest::newRow("nested") << "shift ? deck 2 play ? on : off : deck 1 play ? on : off" << any << true;
    QTest::newRow("commands") << "repeat 100ms 500ms & sampler_volume_master -5%" << any << true;
    QTest::newRow("any colour") << "play ? color '#12ab34' : color 'orange'" << any << true;
    QTest::newRow("palette") << "play ? color '#FF0000' : color 'green'" << three << true;
    QTest::newRow("palette in another case") << "color '#ff0000'" << three << false;
    QTest::newRow("beside the palette") << "color 'orange'" << three << false;
}

void MappingsTest::acceptsSoundActions()
{
    QFETCH(QString, action);
    QFETCH(QStringList, colors);
    QFETCH(bool, sound);
    const QString fault = actionFault(action, colors);
    QVERIFY2(fault.isEmpty() == sound, qPrintable(fault));
}

QTEST_GUILESS_MAIN(MappingsTest)
#include "tst_mappings.moc"
