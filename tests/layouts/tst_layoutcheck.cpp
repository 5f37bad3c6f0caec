#include "layoutcheck.h"

#include "testfiles.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString layoutname = "Aardvark Grid.xml";
const QString mappingname = "Aardvark Grid mapping.xml";

/// The sound layout and mapping of a made-up device, in a folder where they can be spoilt.
class Pair
{
public:
    Pair()
    {
        for (const QString& name : {layoutname, mappingname}) {
            if (!QFile::copy(QStringLiteral(TEST_DATA_DIR "/eighth/mappings/Mappings/") + name, path(name)))
                qFatal("The test's own folder cannot be written.");
        }
    }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// Puts \a after in the place of \a before, which stands in the file once.
    void replace(const QString& name, const QByteArray& before, const QByteArray& after) const
    {
        const QByteArray text = contents(path(name));
        QCOMPARE(text.count(before), 1);
        writefile(path(name), QByteArray(text).replace(before, after));
    }
    QStringList faults() const { return layoutfaults(path(layoutname)); }

private:
    QTemporaryDir m_folder;
};

} // namespace

class LayoutCheckTest : public QObject
{
    Q_OBJECT

private slots:
    void findsNothingInASoundPair();
    void saysWhatIsWrong_data();
    void saysWhatIsWrong();
    void saysEverythingAtOnce();
    void saysWhatIsWrongWithTheName();
    void saysWhatIsNoLayout_data();
    void saysWhatIsNoLayout();
    void missesTheMapping();
    void knowsTheIdsOfTheOthers();
    void takesAMappingForItsLayout();
    void endsWithOneWhenAnythingIsWrong();
};

void LayoutCheckTest::findsNothingInASoundPair() { QCOMPARE(Pair().faults(), QStringList()); }

void LayoutCheckTest::saysWhatIsWrong_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("fault");
    const auto row = [](const char* what, const QString& file, const char* before, const char* after,
                        const char* fault) {
        QTest::newRow(what) << file << QByteArray(before) << QByteArray(after)
                            << file + QString::fromUtf8(fault);
    };
    const auto layout = [&row](const char* what, const char* before, const char* after, const char* fault) {
        row(what, layoutname, before, after, fault);
    };
    const auto mapping = [&row](const char* what, const char* before, const char* after, const char* fault) {
        row(what, mappingname, before, after, fault);
    };
    layout(
        "id in small letters", "name=\"AARDVARKGRID\"", "name=\"Aardvark\"",
        ", line 2: \"name\" must be the id by which VirtualDJ's mappings know the device, in capital letters "
        "and digits; it is \"Aardvark\".");
    layout("no description", "description=", "description=\"\" about=",
           ", line 2: \"description\" is missing; it names the device in a few words.");
    layout("control without a name", "<ignore name=\"WHEEL\"/>", "<ignore/>",
           ", line 79: this ignore has no \"name\".");
    layout(
        "attribute of another name", "description=", "about=",
        ", line 2: \"layout\" has an attribute \"about\", which nothing reads; it takes name, description, "
        "fullrgb, colors, coloroff, coloron, top, left, bottom, right, faders.");
    layout("LEDs not told", "fullrgb=\"false\"", "fullrgb=\"no\"",
           ", line 2: \"fullrgb\" must be \"true\" (the lights take any colour) or \"false\" (they have "
           "those of "
           "\"colors\"); it is \"no\".");
    layout("palette of a device for any colour", "fullrgb=\"false\"", "fullrgb=\"true\"",
           ", line 2: \"colors\" is of no use to a device that takes any colour (fullrgb=\"true\").");
    layout("no colour", "#FF8000", "#FF80",
           ", line 2: \"#FF80\" in \"colors\" is no colour; write \"#\" and six hexadecimal digits, or the "
           "name of "
           "a colour in small letters, and no blanks.");
    layout(
        "blank in the palette", "black,blue", "black, blue",
        ", line 2: \" blue\" in \"colors\" is no colour; write \"#\" and six hexadecimal digits, or the name "
        "of a colour in small letters, and no blanks.");
    layout("colour twice", "black,blue", "blue,blue", ", line 2: \"blue\" stands in \"colors\" twice.");
    layout("default beyond the palette", "coloron=\"3\"", "coloron=\"4\"",
           ", line 2: \"coloron\" must be the place of a colour in \"colors\", counted from 0 to 3; it is "
           "\"4\".");
    layout("default by name", "coloroff=\"1\"", "coloroff=\"blue\"",
           ", line 2: \"coloroff\" must be the place of a colour in \"colors\", counted from 0 to 3; it is "
           "\"blue\".");
    layout("one colour for both", "coloroff=\"1\"", "coloroff=\"3\"",
           ", line 2: \"coloroff\" and \"coloron\" are the same, so nobody could see whether a Live Button "
           "is on.");
    layout("too many side buttons", "left=\"0\"", "left=\"9\"",
           ", line 2: \"left\" must be the number of side buttons there, 0 to 8; it is \"9\".");
    layout("side not told", " bottom=\"0\"", "",
           ", line 2: \"bottom\" must be the number of side buttons there, 0 to 8; it is \"\".");
    layout("other number of faders", "faders=\"2\"", "faders=\"8\"",
           ", line 2: \"faders\" must be the number of \"slider\" elements, 2; it is \"8\".");
    layout("missing pad", "\t<pad name=\"P11\" row=\"2\" col=\"2\" colorled=\"LIGHT_\"/>\r\n", "",
           ", line 2: a control is missing: none lies in row 2, column 2 (PAD 1).");
    layout("two pads in a cell", "row=\"9\" col=\"9\"", "row=\"9\" col=\"8\"",
           ", line 66: the pad \"P88\" lies in row 9, column 8 (PAD 63), where \"P87\" is already.");
    layout("outside of the grid", "row=\"2\" col=\"2\"", "row=\"2\" col=\"12\"",
           ", line 3: the pad \"P11\" lies outside of the grid: \"row\" and \"col\" go from 0 to 11, and "
           "here they "
           "are \"2\" and \"12\".");
    layout("on a spacer", "row=\"2\" col=\"2\"", "row=\"1\" col=\"2\"",
           ", line 3: the pad \"P11\" lies in row 1, column 2, which is no control of this device: pads have "
           "rows "
           "and columns 2 to 9, and each side has as many buttons as \"top\", \"left\", \"bottom\" and "
           "\"right\" "
           "say.");
    layout("side button beyond the number", "top=\"2\"", "top=\"1\"",
           ", line 68: the button \"T2\" lies in row 0, column 3 (TOP 2), which is no control of this "
           "device: pads "
           "have rows and columns 2 to 9, and each side has as many buttons as \"top\", \"left\", \"bottom\" "
           "and "
           "\"right\" say.");
    layout("side button that is missing", "top=\"2\"", "top=\"3\"",
           ", line 2: a control is missing: none lies in row 0, column 4 (TOP 3).");
    layout("wrong side", "row=\"0\" col=\"2\" colorled=\"LIGHT_\" group=\"top\"",
           "row=\"0\" col=\"2\" colorled=\"LIGHT_\" group=\"left\"",
           ", line 67: the button \"T1\" says group=\"left\" and lies in row 0, column 2 (TOP 1).");
    layout("pad without a light", "name=\"P11\" row=\"2\" col=\"2\" colorled=\"LIGHT_\"",
           "name=\"P11\" row=\"2\" col=\"2\"",
           ", line 3: the pad \"P11\" needs \"colorled\": what stands before its name in the name of its "
           "light.");
    layout("button with two lights", "name=\"T1\" row=\"0\" col=\"2\"",
           "name=\"T1\" led=\"LED_\" row=\"0\" col=\"2\"",
           ", line 67: the button \"T1\" needs either \"colorled\" (a light with colours) or \"led\" (on and "
           "off): "
           "what stands before its name in the name of its light.");
    layout("slider without a place", "<slider name=\"F1\" row=\"10\" col=\"0\"/>", "<slider name=\"F1\"/>",
           ", line 77: the slider \"F1\" needs a \"row\" and a \"col\" from 0 to 11.");
    layout("unknown attribute", "<ignore name=\"WHEEL\"/>", "<ignore name=\"WHEEL\" row=\"1\"/>",
           ", line 79: \"ignore\" has an attribute \"row\", which nothing reads; it takes name.");
    layout("unknown kind", "<ignore name=\"WHEEL\"/>", "<knob name=\"WHEEL\"/>",
           ", line 79: \"knob\" is no kind of control; there are pad, button, slider, ignore and empty.");
    layout("name twice", "<empty name=\"SHIFT\"/>", "<empty name=\"P11\"/>",
           ", line 80: there is a control \"P11\" already.");
    layout("line feed alone", "</layout>\r\n", "</layout>\n",
           ": every line, the last too, must end with CR LF, as VirtualDJ's own files do.");
    layout("Latin-1", "a made-up device",
           "a m\xE4"
           "de-up device",
           ": it is not in UTF-8.");
    layout("no declaration", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n", "\r\n",
           ", line 1: it must begin with <?xml version=\"1.0\" encoding=\"UTF-8\"?>.");

    mapping("another device", "device=\"AARDVARKGRID\"", "device=\"APCMINI\"",
            ", line 2: the mapping is for the device \"APCMINI\", the layout for \"AARDVARKGRID\".");
    mapping("no entry for a control", "\t<map value=\"SHIFT\" action=\"shift\"/>\r\n", "",
            ": the control \"SHIFT\" of the layout has no entry, or one without an action.");
    mapping("other letters", "value=\"SHIFT\"", "value=\"Shift\"",
            ": the control \"SHIFT\" of the layout has no entry, or one without an action.");
    mapping("no action", "value=\"SHIFT\" action=\"shift\"", "value=\"SHIFT\" action=\"\"",
            ": the control \"SHIFT\" of the layout has no entry, or one without an action.");
    mapping("no entry for a light", "value=\"LIGHT_P11\"", "value=\"LED_P11\"",
            ": the light \"LIGHT_P11\" of the layout has no entry.");
    mapping("light that is always on", "action=\"deck 1 hot_cue 1 ? on : off\"", "action=\"on\"",
            ", line 138: the light \"LIGHT_R1\" needs a condition and both cases (\"shift ? on : off\"); "
            "other actions "
            "are lost when somebody starts from an exported mapping.");
    mapping("entry twice", "value=\"ONEXIT\"", "value=\"SHIFT\"",
            ", line 156: there is an entry \"SHIFT\" already, and only the last one counts.");
    mapping("the program's variable", "action=\"shift\"", "action=\"set &apos;$os2l&apos; 1\"",
            ", line 156: the action of \"SHIFT\" uses the variable $os2l, which is the program's own.");
    mapping("sign that is not escaped", "action=\"shift\"", "action=\"shift &lt; 2\"",
            ", line 156: the action of \"SHIFT\" has a \"<\", a \">\" or a \"&\" without a blank on both "
            "sides; the "
            "exported mapping would be no XML.");
    mapping("unknown element", "<map value=\"SHIFT\" action=\"shift\"/>",
            "<map value=\"SHIFT\" action=\"shift\"/><pad/>",
            ", line 156: \"pad\" is neither \"info\" nor \"map\".");
}

void LayoutCheckTest::saysWhatIsWrong()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, fault);
    const Pair pair;
    pair.replace(file, before, after);
    const QStringList faults = pair.faults();
    QVERIFY2(faults.contains(fault), qPrintable(faults.join('\n')));
}

void LayoutCheckTest::saysEverythingAtOnce()
{
    const Pair pair;
    pair.replace(layoutname, "coloron=\"3\"", "coloron=\"9\"");
    pair.replace(layoutname, "row=\"9\" col=\"9\"", "row=\"9\" col=\"8\"");
    pair.replace(mappingname, "\t<map value=\"WHEEL\"", "\t<map value=\"Wheel\"");
    const QString layout = layoutname + ", line ";
    QCOMPARE(pair.faults(),
             QStringList(
                 {layout + "2: \"coloron\" must be the place of a colour in \"colors\", counted from 0 to 3; "
                           "it is \"9\".",
                  layout + "66: the pad \"P88\" lies in row 9, column 8 (PAD 63), where \"P87\" is already.",
                  layout + "2: a control is missing: none lies in row 9, column 9 (PAD 64).",
                  mappingname + ": the control \"WHEEL\" of the layout has no entry, or one without an "
                                "action."}));
}

void LayoutCheckTest::saysWhatIsWrongWithTheName()
{
    const Pair pair;
    QVERIFY(QFile::rename(pair.path(layoutname), pair.path("Aardvark Grid.2.xml")));
    QCOMPARE(
        layoutfaults(pair.path("Aardvark Grid.2.xml")),
        QStringList{
            "Aardvark Grid.2.xml: the device is called what stands before the first dot of the name, here "
            "\"Aardvark Grid\"; take a name without one."});
    QVERIFY(QFile::rename(pair.path("Aardvark Grid.2.xml"), pair.path("Aardvark Grid.layout")));
    QCOMPARE(layoutfaults(pair.path("Aardvark Grid.layout")),
             QStringList{"Aardvark Grid.layout: the name must end with \".xml\"."});
}

void LayoutCheckTest::saysWhatIsNoLayout_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("fault");
    const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n";
    QTest::newRow("cut short") << layoutname << head + "<layout name=\"X\">\r\n"
                               << "this is no well-formed XML";
    QTest::newRow("empty") << layoutname << QByteArray() << "this is no well-formed XML";
    QTest::newRow("zero bytes") << layoutname << QByteArray(100, '\0')
                                << "the program refuses to read this document";
    QTest::newRow("another root") << layoutname << head + "<mapper/>\r\n"
                                  << "line 2: the outermost element is \"mapper\" and must be \"layout\".";
    QTest::newRow("entities") << layoutname
                              << head + "<!DOCTYPE l [<!ENTITY e \"x\">]>\r\n<layout name=\"&e;\"/>\r\n"
                              << "the program refuses to read this document";
    QTest::newRow("mapping cut short") << mappingname << head + "<mapper>\r\n"
                                       << "this is no well-formed XML";
    QTest::newRow("larger than any") << mappingname << QByteArray(9 * 1024 * 1024, ' ')
                                     << "there is no such file, or it cannot be read, or it is too large.";
}

void LayoutCheckTest::saysWhatIsNoLayout()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, fault);
    const Pair pair;
    writefile(pair.path(file), bytes);
    const QStringList faults = pair.faults();
    QVERIFY(!faults.isEmpty());
    QVERIFY2(faults.constLast().startsWith(file) && faults.constLast().contains(fault),
             qPrintable(faults.join('\n')));
}

void LayoutCheckTest::missesTheMapping()
{
    const Pair pair;
    QVERIFY(QFile::remove(pair.path(mappingname)));
    QCOMPARE(pair.faults(),
             QStringList{mappingname + ": there is no such file, or it cannot be read, or it is too large."});
}

void LayoutCheckTest::knowsTheIdsOfTheOthers()
{
    const Pair pair;
    QVERIFY(QFile::copy(pair.path(layoutname), pair.path("Copied Grid.xml")));
    QCOMPARE(
        pair.faults(),
        QStringList{layoutname + ", line 2: the id \"AARDVARKGRID\" is already the one of \"Copied Grid\"."});
}

void LayoutCheckTest::takesAMappingForItsLayout()
{
    const Pair pair;
    QProcess check;
    check.start(QStringLiteral(CHECK_LAYOUT), {pair.path(mappingname), pair.path(layoutname)});
    QVERIFY(check.waitForFinished(60000));
    QCOMPARE(check.readAllStandardOutput(), QByteArray("Aardvark Grid.xml and its mapping are in order.\n"));
    QCOMPARE(check.exitCode(), 0);
}

void LayoutCheckTest::endsWithOneWhenAnythingIsWrong()
{
    const Pair pair;
    QVERIFY(QFile::remove(pair.path(layoutname)));
    QProcess check;
    check.start(QStringLiteral(CHECK_LAYOUT), {pair.path(mappingname)});
    QVERIFY(check.waitForFinished(60000));
    QCOMPARE(
        check.readAllStandardOutput(),
        QByteArray("Aardvark Grid.xml: there is no such file, or it cannot be read, or it is too large.\n"));
    QCOMPARE(check.exitCode(), 1);
}

QTEST_APPLESS_MAIN(LayoutCheckTest)
#include "tst_layoutcheck.moc"
