#include "bounds.h"
#include "keylist.h"
#include "testrecords.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/resource.h>

using namespace controller;

namespace {

/// A layout and a mapping in a folder of their own.
class Pair
{
public:
    Pair(const QByteArray& layout, const QByteArray& mapping)
    {
        put(layoutpath(), layout);
        put(mapperpath(), mapping);
    }
    QString layoutpath() const { return m_folder.filePath("layout.xml"); }
    QString mapperpath() const { return m_folder.filePath("mapper.xml"); }
    QString folder() const { return m_folder.path(); }
    QList<Record> keys() const { return getkeynames(layoutpath(), mapperpath()); }

private:
    static void put(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            qFatal("The test's own folder cannot be written.");
    }
    QTemporaryDir m_folder;
};

/// The key list of a layout and a mapping that are given by their elements.
QList<Record> keysof(const QByteArray& controls, const QByteArray& maps)
{
    return Pair("<layout name=\"X\">" + controls + "</layout>", "<mapper device=\"X\">" + maps + "</mapper>")
        .keys();
}

QByteArray map(const QByteArray& value, const QByteArray& action)
{
    return "<map value=\"" + value + "\" action=\"" + action + "\"/>";
}

/// The most memory that the test has held so far, in megabytes.
long peakmemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

class KeylistTest : public QObject
{
    Q_OBJECT

private slots:
    void listsPadsButtonsSlidersIgnoredAndEmptyControlsInTurn();
    void keepsTheFieldsOfEveryType();
    void keepsPlacesAsTheyAreWritten();
    void pairsAPadWithItsActionAndItsLed();
    void takesTheLastMapOfAName();
    void keepsControlCharactersOfActions();
    void takesAnActionThatIsTooLongForAnEmptyOne();
    void comparesNamesExactly_data();
    void comparesNamesExactly();
    void givesAPadWithoutLedPrefixOneActionForBoth();
    void tellsColourLedsFromPlainOnes_data();
    void tellsColourLedsFromPlainOnes();
    void lightsButtonsByTheirOwnActionUntilALedIsFound();
    void countsALedEntryWithoutActionAsFound();
    void findsTheLedOfAButtonWithoutPrefixUnderItsName();
    void looksForLedsAnewInEveryList();
    void matchesANamelessControlWithANamelessMap();
    void listsAControlAsOftenAsTheLayoutNamesIt();
    void leavesOutMapsThatNoControlNames();
    void readsMapElementsOnly();
    void findsElementsAtAnyDepth();
    void resolvesEntities();
    void freesActionsFromEarlierWrapping();
    void givesNothingWithoutBothFiles();
    void takesAMalformedFileAsOneWithoutElements_data();
    void takesAMalformedFileAsOneWithoutElements();
    void takesAFolderAsAFileWithoutElements();
    void isNotHeldUpByHostileMappings_data();
    void isNotHeldUpByHostileMappings();
    void listsTheRepeatedControlsOfTheLargestDevice();
};

void KeylistTest::listsPadsButtonsSlidersIgnoredAndEmptyControlsInTurn()
{
    const QList<Record> keys =
        keysof("<empty name=\"E1\"/><ignore name=\"I1\"/><slider name=\"S1\"/><button name=\"B1\"/>"
               "<pad name=\"P1\"/><knob name=\"K\"/><pad name=\"P2\"/><button name=\"B2\"/>"
               "<slider name=\"S2\"/><ignore name=\"I2\"/><empty name=\"E2\"/><PAD name=\"P3\"/>",
               "");
    QCOMPARE(column(keys, "value"),
             (QStringList{"P1", "P2", "B1", "B2", "S1", "S2", "I1", "I2", "E1", "E2"}));
    QCOMPARE(column(keys, "type"), (QStringList{"pad", "pad", "button", "button", "slider", "slider",
                                                "ignore", "ignore", "empty", "empty"}));
}

void KeylistTest::keepsTheFieldsOfEveryType()
{
    const QList<Record> keys =
        keysof("<pad name=\"P\" row=\"2\" col=\"3\" colorled=\"LED_\" group=\"top\"/>"
               "<button name=\"B\" row=\"11\" col=\"4\" led=\"LED_\"/>"
               "<slider name=\"S\" row=\"10\" col=\"0\"/><ignore name=\"I\"/><empty name=\"E\"/>",
               map("P", "p") + map("LED_P", "lp") + map("B", "b") + map("LED_B", "lb") + map("S", "s") +
                   map("I", "i") + map("E", "e"));
    QCOMPARE(
        lines(keys),
        (QStringList{"action=p|col=3|led=LED_P|ledaction=lp|row=2|type=pad|value=P",
                     "action=b|col=4|led=LED_B|ledaction=lb|ledtype=led|row=11|type=button|value=B",
                     "action=s|col=0|row=10|type=slider|value=S", "action=i|col=|row=|type=ignore|value=I",
                     "action=e|col=|row=|type=empty|value=E"}));
}

void KeylistTest::keepsPlacesAsTheyAreWritten()
{
    const QList<Record> keys = keysof("<pad name=\"A\" row=\"02\" col=\"-7\"/><slider name=\"B\" row=\" 3\" "
                                      "col=\"many\"/><ignore name=\"C\" row=\"4\" col=\"5\"/>",
                                      "");
    QCOMPARE(column(keys, "row"), (QStringList{"02", " 3", "4"}));
    QCOMPARE(column(keys, "col"), (QStringList{"-7", "many", "5"}));
}

void KeylistTest::pairsAPadWithItsActionAndItsLed()
{
    const QByteArray pads = "<pad name=\"PAD_1_1\" colorled=\"LED_\"/><pad name=\"PAD_1_2\" colorled=\"L\"/>"
                            "<pad name=\"PAD_1_3\" colorled=\"LED_\"/>";
    const QList<Record> keys =
        keysof(pads, map("LED_PAD_1_1", "color 'red'") + map("PAD_1_1", "sampler_pad 1") +
                         map("LED_PAD_1_2", "off") + map("LED_PAD_1_3", "blink"));
    QCOMPARE(column(keys, "led"), (QStringList{"LED_PAD_1_1", "LPAD_1_2", "LED_PAD_1_3"}));
    QCOMPARE(column(keys, "action"), (QStringList{"sampler_pad 1", "", ""}));
    QCOMPARE(column(keys, "ledaction"), (QStringList{"color 'red'", "", "blink"}));
}

void KeylistTest::takesTheLastMapOfAName()
{
    const QByteArray controls = "<pad name=\"P\" colorled=\"LED_\"/><button name=\"B\" led=\"LED_\"/>"
                                "<slider name=\"S\"/>";
    const QByteArray first =
        map("P", "one") + map("LED_P", "one") + map("B", "one") + map("LED_B", "one") + map("S", "one");
    const QByteArray second = map("S", "two") + map("LED_B", "two") + map("LED_P", "two") + map("P", "two");
    QList<Record> keys = keysof(controls, first + second);
    QCOMPARE(column(keys, "action"), (QStringList{"two", "one", "two"}));
    QCOMPARE(column(keys, "ledaction"), (QStringList{"two", "two", "(none)"}));

    // A last entry that does nothing counts as much as any other.
    keys = keysof(controls, first + map("P", "") + "<map value=\"LED_P\"/><map value=\"S\"/>" +
                                map("LED_B", "toggle &apos;$os2l&apos;"));
    QCOMPARE(column(keys, "action"), (QStringList{"", "one", ""}));
    QCOMPARE(column(keys, "ledaction"), (QStringList{"", "", "(none)"}));
}

void KeylistTest::keepsControlCharactersOfActions()
{
    const QList<Record> keys = keysof("<pad name=\"P\x01\"/>", map("P\x01", "a\x01\x1f\tb\nc"));
    QCOMPARE(column(keys, "value"), QStringList{"P\x01"});
    QCOMPARE(column(keys, "action"), QStringList{"a\x01\x1f\tb\nc"});
}

void KeylistTest::takesAnActionThatIsTooLongForAnEmptyOne()
{
    const QByteArray longest(maxActionLength, 'x');
    const QList<Record> keys =
        keysof("<pad name=\"P\"/><pad name=\"Q\"/><pad name=\"R\"/>",
               map("P", longest) + map("Q", longest + 'x') + map("R", longest + 'x') + map("R", "play"));
    QVERIFY(keys.value(0).value("action") == longest);
    QCOMPARE(keys.value(1).value("action"), QString());
    QCOMPARE(keys.value(2).value("action"), QString("play"));
}

void KeylistTest::comparesNamesExactly_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char* value : {"pad_1_1", "Pad_1_1", " PAD_1_1", "PAD_1_1 ", "PAD_1_10", "PAD_1_", "PAD", ""})
        QTest::newRow(*value == '\0' ? "nothing" : value) << QByteArray(value);
}

void KeylistTest::comparesNamesExactly()
{
    QFETCH(QByteArray, value);
    const QByteArray controls = "<pad name=\"PAD_1_1\" colorled=\"LED_\"/>"
                                "<button name=\"PAD_1_1\" colorled=\"LED_\"/><slider name=\"PAD_1_1\"/>";
    const QList<Record> keys = keysof(controls, map(value, "wrong") + map("LED_" + value, "wrong"));
    QCOMPARE(column(keys, "action"), (QStringList{"", "", ""}));
    QCOMPARE(column(keys, "ledaction"), (QStringList{"", "", "(none)"}));
}

void KeylistTest::givesAPadWithoutLedPrefixOneActionForBoth()
{
    const QList<Record> keys =
        keysof("<pad name=\"P\"/><pad name=\"Q\" colorled=\"\"/><pad name=\"R\" led=\"LED_\"/>",
               map("P", "p") + map("LED_P", "wrong") + map("Q", "q") + map("R", "r") + map("LED_R", "wrong"));
    QCOMPARE(column(keys, "led"), (QStringList{"P", "Q", "R"}));
    QCOMPARE(column(keys, "action"), (QStringList{"p", "q", "r"}));
    QCOMPARE(column(keys, "ledaction"), (QStringList{"p", "q", "r"}));
}

void KeylistTest::tellsColourLedsFromPlainOnes_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("led");
    QTest::addColumn<QString>("ledtype");
    QTest::newRow("colour") << QByteArray("colorled=\"CLED_\"") << "CLED_B"
                            << "color";
    QTest::newRow("plain") << QByteArray("led=\"LED_\"") << "LED_B"
                           << "led";
    QTest::newRow("both") << QByteArray("colorled=\"CLED_\" led=\"LED_\"") << "CLED_B"
                          << "color";
    QTest::newRow("no colour") << QByteArray("colorled=\"\" led=\"LED_\"") << "LED_B"
                               << "led";
    QTest::newRow("colour is a blank") << QByteArray("colorled=\" \" led=\"LED_\"") << " B"
                                       << "color";
    QTest::newRow("neither") << QByteArray() << "B"
                             << "led";
    QTest::newRow("both empty") << QByteArray("colorled=\"\" led=\"\"") << "B"
                                << "led";
}

void KeylistTest::tellsColourLedsFromPlainOnes()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, led);
    QFETCH(QString, ledtype);
    const QList<Record> keys =
        keysof("<button name=\"B\" " + attributes + "/>", map("B", "act") + map(led.toUtf8(), "lit"));
    QCOMPARE(column(keys, "led"), QStringList{led});
    QCOMPARE(column(keys, "ledtype"), QStringList{ledtype});
    QCOMPARE(column(keys, "ledaction"), QStringList{"lit"});
}

void KeylistTest::lightsButtonsByTheirOwnActionUntilALedIsFound()
{
    const QByteArray buttons = "<button name=\"B1\" led=\"LED_\"/><button name=\"B2\" colorled=\"LED_\"/>"
                               "<button name=\"B3\" led=\"LED_\"/><button name=\"B4\" led=\"LED_\"/>"
                               "<button name=\"B5\" colorled=\"LED_\"/>";
    const QByteArray actions = map("B1", "b1") + map("B2", "var &apos;$os2l&apos; ? nothing : b2") +
                               map("B3", "b3") + map("B4", "b4") + map("B5", "b5");
    // The place of an entry in the mapping does not matter, the place of its button in the layout does.
    QCOMPARE(column(keysof(buttons, map("LED_B3", "lit") + actions), "ledaction"),
             (QStringList{"b1", "b2", "lit", "", ""}));
    QCOMPARE(column(keysof(buttons, actions + map("LED_B5", "lit")), "ledaction"),
             (QStringList{"b1", "b2", "b3", "b4", "lit"}));
    QCOMPARE(column(keysof(buttons, actions + map("LED_B1", "lit") + map("LED_B4", "lit too")), "ledaction"),
             (QStringList{"lit", "", "", "lit too", ""}));
    QCOMPARE(column(keysof(buttons, actions), "ledaction"), (QStringList{"b1", "b2", "b3", "b4", "b5"}));

    // Neither a pad's LED nor one that no button names counts.
    QCOMPARE(column(keysof("<pad name=\"P\" colorled=\"LED_\"/>" + buttons,
                           actions + map("LED_P", "pad") + map("LED_B9", "lit")),
                    "ledaction"),
             (QStringList{"pad", "b1", "b2", "b3", "b4", "b5"}));
}

void KeylistTest::countsALedEntryWithoutActionAsFound()
{
    const QByteArray buttons = "<button name=\"B1\" led=\"LED_\"/><button name=\"B2\" led=\"LED_\"/>";
    const QByteArray actions = map("B1", "b1") + map("B2", "b2");
    QCOMPARE(column(keysof(buttons, actions + map("LED_B1", "")), "ledaction"), (QStringList{"", ""}));
    QCOMPARE(column(keysof(buttons, actions + "<map value=\"LED_B1\"/>"), "ledaction"),
             (QStringList{"", ""}));
    QCOMPARE(column(keysof(buttons, actions + map("LED_B1", "var &apos;$os2l&apos;")), "ledaction"),
             (QStringList{"", ""}));
}

void KeylistTest::findsTheLedOfAButtonWithoutPrefixUnderItsName()
{
    const QList<Record> keys =
        keysof("<button name=\"B1\"/><button name=\"B2\" led=\"LED_\"/>", map("B1", "b1") + map("B2", "b2"));
    QCOMPARE(column(keys, "action"), (QStringList{"b1", "b2"}));
    QCOMPARE(column(keys, "ledaction"), (QStringList{"b1", ""}));
}

void KeylistTest::looksForLedsAnewInEveryList()
{
    const QByteArray button = "<button name=\"B\" led=\"LED_\"/>";
    QCOMPARE(column(keysof(button, map("B", "b") + map("LED_B", "lit")), "ledaction"), QStringList{"lit"});
    QCOMPARE(column(keysof(button, map("B", "b")), "ledaction"), QStringList{"b"});
}

void KeylistTest::matchesANamelessControlWithANamelessMap()
{
    const QByteArray controls = "<pad colorled=\"LED_\"/><slider/><ignore name=\"\"/>";
    QCOMPARE(column(keysof(controls, "<map action=\"nameless\"/>" + map("LED_", "lit")), "action"),
             (QStringList{"nameless", "nameless", "nameless"}));
    const QList<Record> keys = keysof(controls, map("", "empty") + map("LED_", "lit"));
    QCOMPARE(column(keys, "value"), (QStringList{"", "", ""}));
    QCOMPARE(column(keys, "action"), (QStringList{"empty", "empty", "empty"}));
    QCOMPARE(column(keys, "ledaction"), (QStringList{"lit", "(none)", "(none)"}));
}

void KeylistTest::listsAControlAsOftenAsTheLayoutNamesIt()
{
    const QList<Record> keys = keysof(
        "<ignore name=\"N\"/><pad name=\"N\" row=\"1\"/><ignore name=\"N\"/><pad name=\"N\" row=\"2\"/>",
        map("N", "n"));
    QCOMPARE(lines(keys), (QStringList{"action=n|col=|led=N|ledaction=n|row=1|type=pad|value=N",
                                       "action=n|col=|led=N|ledaction=n|row=2|type=pad|value=N",
                                       "action=n|col=|row=|type=ignore|value=N",
                                       "action=n|col=|row=|type=ignore|value=N"}));
}

void KeylistTest::leavesOutMapsThatNoControlNames()
{
    const QList<Record> keys = keysof("<pad name=\"PAD_1_1\" colorled=\"LED_\"/>",
                                      map("ONEXIT", "exit") + map("PAD_1_1", "a") + map("PAD_VEL_1_1", "b"));
    QCOMPARE(lines(keys),
             QStringList{"action=a|col=|led=LED_PAD_1_1|ledaction=|row=|type=pad|value=PAD_1_1"});
}

void KeylistTest::readsMapElementsOnly()
{
    const QByteArray wrong = "value=\"S\" action=\"wrong\"/>";
    const QList<Record> keys =
        keysof("<slider name=\"S\"/>", map("S", "right") + "<info " + wrong + "<Map " + wrong + "<mapper " +
                                           wrong + "<maps " + wrong + "<!--<map " + wrong + "-->");
    QCOMPARE(column(keys, "action"), QStringList{"right"});
}

void KeylistTest::findsElementsAtAnyDepth()
{
    const QList<Record> keys =
        keysof("<a><pad name=\"P1\" row=\"1\"><pad name=\"P2\"/></pad></a><b><c><pad name=\"P3\"/></c></b>",
               "<a>" + map("P1", "1") + "<b><c>" + map("P3", "3") + "</c></b></a>" + map("P2", "2"));
    QCOMPARE(column(keys, "value"), (QStringList{"P1", "P2", "P3"}));
    QCOMPARE(column(keys, "action"), (QStringList{"1", "2", "3"}));
}

void KeylistTest::resolvesEntities()
{
    const QList<Record> keys =
        keysof("<pad name=\"A&amp;B\" colorled=\"&lt;\"/>",
               map("A&#38;B", "color &apos;red&apos; &amp; say &quot;&lt;&gt;&quot; &#228;&#x20AC;") +
                   map("&lt;A&amp;B", "off"));
    QCOMPARE(column(keys, "value"), QStringList{"A&B"});
    QCOMPARE(column(keys, "action"), QStringList{QString::fromUtf8("color 'red' & say \"<>\" ä€")});
    QCOMPARE(column(keys, "led"), QStringList{"<A&B"});
    QCOMPARE(column(keys, "ledaction"), QStringList{"off"});
}

void KeylistTest::freesActionsFromEarlierWrapping()
{
    const QByteArray os2l = "var &apos;$os2l&apos; ? ";
    const QByteArray button = "os2l_button &apos;Strobe&apos;";
    const QList<Record> keys =
        keysof("<pad name=\"P\" colorled=\"LED_\"/><pad name=\"Q\" colorled=\"LED_\"/>"
               "<button name=\"B\" led=\"LED_\"/><slider name=\"S\"/><ignore name=\"I\"/><empty name=\"E\"/>",
               map("P", os2l + button + " : sampler_pad 1") +
                   map("LED_P", os2l + button + " ? color 'red' : color 'green' : play ? on : off") +
                   map("Q", "toggle &apos;$os2l&apos;") + map("LED_Q", os2l + "color 'black' : off") +
                   map("B", os2l + "nothing : play") + map("LED_B", os2l + "off : play ? on : off") +
                   map("S", os2l + "os2l_cmd 1 : volume") + map("I", os2l + "nothing : ignored") +
                   map("E", os2l + "nothing : shift"));
    QCOMPARE(column(keys, "action"),
             (QStringList{"sampler_pad 1", "", "play", "volume", "ignored", "shift"}));
    QCOMPARE(column(keys, "ledaction"),
             (QStringList{"play ? on : off", "off", "play ? on : off", "(none)", "(none)", "(none)"}));
}

void KeylistTest::givesNothingWithoutBothFiles()
{
    const Pair files("<layout><pad name=\"P\"/></layout>", "<mapper/>");
    const QString missing = files.folder() + "/missing.xml";
    QCOMPARE(column(files.keys(), "value"), QStringList{"P"});
    QVERIFY(getkeynames(missing, files.mapperpath()).isEmpty());
    QVERIFY(getkeynames(files.layoutpath(), missing).isEmpty());
    QVERIFY(getkeynames(files.layoutpath(), ":/nowhere/mapping.xml").isEmpty());
    QVERIFY(getkeynames(QString(), files.mapperpath()).isEmpty());
    QVERIFY(getkeynames(files.layoutpath(), QString()).isEmpty());
    QVERIFY(getkeynames(QString(), QString()).isEmpty());
}

void KeylistTest::takesAMalformedFileAsOneWithoutElements_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut short") << QByteArray("<x><pad name=\"P\"/><map value=\"P\" action=\"a\"/>");
    QTest::newRow("text") << QByteArray("pad map");
    QTest::newRow("bare ampersand") << QByteArray(
        "<x><pad name=\"P\"/><map value=\"P\" action=\"a\"/><map value=\"Q\" action=\"&\"/></x>");
    QTest::newRow("zero bytes") << QByteArray(100, '\0');
    QTest::newRow("larger than any mapping")
        << QByteArray("<x><pad name=\"P\"/><map value=\"P\" action=\"a\"/></x>") +
               QByteArray(8 * 1024 * 1024, '\n');
}

void KeylistTest::takesAMalformedFileAsOneWithoutElements()
{
    QFETCH(QByteArray, bytes);
    const QByteArray layout = "<layout><pad name=\"P\"/></layout>";
    const QByteArray mapping = "<mapper><map value=\"P\" action=\"a\"/></mapper>";
    QCOMPARE(column(Pair(layout, mapping).keys(), "action"), QStringList{"a"});
    QVERIFY(Pair(bytes, mapping).keys().isEmpty());
    QCOMPARE(column(Pair(layout, bytes).keys(), "action"), QStringList{""});
    QVERIFY(Pair(bytes, bytes).keys().isEmpty());
}

void KeylistTest::takesAFolderAsAFileWithoutElements()
{
    const Pair files("<layout><pad name=\"P\"/></layout>", "<mapper/>");
    QVERIFY(getkeynames(files.folder(), files.mapperpath()).isEmpty());
    QCOMPARE(lines(getkeynames(files.layoutpath(), files.folder())),
             QStringList{"action=|col=|led=P|ledaction=|row=|type=pad|value=P"});
}

void KeylistTest::isNotHeldUpByHostileMappings_data()
{
    QTest::addColumn<QByteArray>("mapping");
    QTest::newRow("one entity in every action")
        << "<!DOCTYPE m [<!ENTITY e \"" + QByteArray("x").repeated(4000) + "\">]><m>" +
               QByteArray("<map value=\"P\" action=\"&e;\"/>").repeated(60000) + "</m>";
    QTest::newRow("maps nested deeply")
        << QByteArray("<map value=\"Q\">").repeated(50000) + QByteArray("</map>").repeated(50000);
    QTest::newRow("action without end")
        << "<m>" + map("P", "var &apos;$os2l&apos; ? " + QByteArray("a ? b : ").repeated(60000)) + "</m>";
}

void KeylistTest::isNotHeldUpByHostileMappings()
{
    QFETCH(QByteArray, mapping);
    const Pair files("<layout><pad name=\"P\"/></layout>", mapping);
    const long before = peakmemory();
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(lines(files.keys()), QStringList{"action=|col=|led=P|ledaction=|row=|type=pad|value=P"});
    QVERIFY2(timer.elapsed() < 30000, qPrintable(QString("%1 ms").arg(timer.elapsed())));
    QVERIFY2(peakmemory() - before < 300, qPrintable(QString("%1 MB").arg(peakmemory() - before)));
}

void KeylistTest::listsTheRepeatedControlsOfTheLargestDevice()
{
    const QString path = ":/mappings/Mappings/Novation Launchpad PRO";
    const QList<Record> keys = getkeynames(path + ".xml", path + " mapping.xml");
    QCOMPARE(keys.size(), 24 + 64 + 28);
    const QStringList types = column(keys, "type");
    QCOMPARE(types.mid(0, 92).count("pad"), 92);
    QCOMPARE(types.mid(92).count("ignore"), 24);
    const QStringList names = column(keys, "value");
    QCOMPARE(names.count("DNC_NOTUSED_MODE"), 8);
    QCOMPARE(names.filter("PAD_VEL").size(), 0);
    QCOMPARE(names.count("ONEXIT"), 0);
    // The resource's own text is XML; what the list holds is what that text means.
    const Record pad = keys.value(names.indexOf("PAD_1_1"));
    QCOMPARE(pad.value("led"), QString("LED_PAD_1_1"));
    QVERIFY(!pad.value("action").isEmpty());
    QVERIFY(!pad.value("ledaction").isEmpty());
    QVERIFY(!pad.value("ledaction").contains("&apos;"));
}

QTEST_APPLESS_MAIN(KeylistTest)
#include "tst_keylist.moc"
