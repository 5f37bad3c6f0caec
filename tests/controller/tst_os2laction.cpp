#include "mapperwriter.h"
#include "os2laction.h"

#include <QDomDocument>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QtTest>

using namespace controller;

namespace {

constexpr quint32 seed = 20260305;

/// Actions of VirtualDJ's script language, made up at random but always the same.
class Actions
{
public:
    /// A whole action: verbs, or conditions \a depth deep, each with both its alternatives.
    QString whole(int depth)
    {
        if (depth == 0 || chance(3))
            return chance(4) ? verb() + " & " + verb() : verb();
        return condition() + " ? " + whole(depth - 1) + " : " + whole(depth - 1);
    }
    /// An action whose last condition may leave out its second alternative.
    QString open(int depth)
    {
        if (depth == 0 || chance(4))
            return verb();
        const QString start = condition() + " ? ";
        return chance(3) ? start + whole(depth - 1) : start + whole(depth - 1) + " : " + open(depth - 1);
    }
    /// Words, separators and blanks in any order, which VirtualDJ would hardly understand.
    QString soup()
    {
        QString text;
        for (int i = int(m_random.bounded(12)); i > 0; --i)
            text +=
                pick({" ? ", " : ", " ? ", " : ", "a", "off", "'x'", "\"y\"", " ", "?", ":", "$os2l", "ä"});
        return text;
    }
    /// A Live Button's name without XML signs and separators.
    QString name() { return pick({"Strobe", "Don't", "Grün 2", "50%", "%1", "", "a?b:c", "夜", ": x", "?"}); }
    QString color() { return pick({"red", "#12ab34", "black", "#FF0000"}); }
    bool chance(int in) { return m_random.bounded(in) == 0; }

private:
    QString pick(const QStringList& texts) { return texts.at(int(m_random.bounded(texts.size()))); }
    QString verb()
    {
        return pick({"off", "on", "nothing", "sampler_pad 1", "sampler_bank -1", "color 'red'",
                     "color 30% '#00ff00'", "repeat 100ms 500ms & sampler_volume_master -5%", "hot_cue 3",
                     "blink 500ms", "set '$mk2page' `get_var '$x'`", "deck left play", "say \"hi\""});
    }
    QString condition()
    {
        return pick({"shift", "play", "blink", "blink 500ms", "var '$mk2page' 0", "sampler_loaded 1",
                     "var_equal '$page' 2", "var '$os2l'", "deck 1 loaded"});
    }

    QRandomGenerator m_random{seed};
};

/// Everything that a mapper file says, by the names of the controls.
using Written = QMap<QString, QString>;

/// What a mapper file for \a mapping says, as VirtualDJ and the next export read it.
Written written(const Mapping& mapping)
{
    QDomDocument document;
    QString message;
    if (!document.setContent(mapperxml(mapping).toUtf8(), &message))
        return {{"error", message}};
    Written actions;
    const QDomNodeList maps = document.elementsByTagName("map");
    for (int i = 0; i < maps.count(); ++i) {
        const QDomElement map = maps.at(i).toElement();
        actions.insert(map.attribute("value"), map.attribute("action"));
    }
    return actions;
}

/// A mapping in combined mode of one control, "C" with the LED "LED_C", at row 2 and column 3.
Mapping onecontrol(const QString& type, const QString& action, const QString& ledaction = QString())
{
    Mapping mapping;
    mapping.device = "APCMINI";
    mapping.date = QDate(2026, 3, 5);
    mapping.combined = true;
    mapping.defaultOff = "yellow";
    mapping.defaultOn = "green";
    Record key{{"value", "C"}, {"action", action}, {"row", "2"}, {"col", "3"}, {"type", type}};
    if (type == "pad" || type == "button") {
        key.insert("led", "LED_C");
        key.insert("ledaction", ledaction);
    }
    mapping.keys = {key};
    return mapping;
}

/// \a mapping with the Live Button \a name on its control.
Mapping placed(Mapping mapping, const QString& name = "Strobe", bool blink = false)
{
    mapping.pads = QVector<QVector<MapperPad>>(12, QVector<MapperPad>(12));
    mapping.pads[2][3] = {7, name, QString(), QString(), blink, "#12ab34"};
    return mapping;
}

/// \a mapping with its control as the switch.
Mapping switching(Mapping mapping)
{
    mapping.switchRow = 2;
    mapping.switchColumn = 3;
    return mapping;
}

/// The action that comes back from the written file of \a mapping.
QString actionback(const Mapping& mapping) { return removeos2l(written(mapping).value("C", "missing")); }

/// The LED action that comes back from the written file of \a mapping.
QString ledback(const Mapping& mapping) { return removeos2l(written(mapping).value("LED_C", "missing")); }

/// Whether \a action has a condition, and every alternative stands behind one.
bool conditional(const QString& action)
{
    const auto alternative = action.indexOf(" : ");
    const auto condition = action.indexOf(" ? ");
    return condition >= 0 && condition < alternative;
}

/// \a mapping in every look that a device or a pad can give it.
QList<Mapping> looks(const Mapping& mapping)
{
    QList<Mapping> result;
    for (const bool fullrgb : {false, true}) {
        for (const char* type : {"color", "led"}) {
            for (const char* own : {"", "red"}) {
                Mapping look = mapping;
                look.fullRgb = fullrgb;
                look.keys[0].insert("ledtype", type);
                if (!look.pads.isEmpty()) {
                    look.pads[2][3].colorOn = own;
                    look.pads[2][3].colorOff = own;
                }
                result.append(look);
            }
        }
    }
    return result;
}

} // namespace

class Os2lActionTest : public QObject
{
    Q_OBJECT

private slots:
    void escapesForAMapperFile_data();
    void escapesForAMapperFile();
    void givesBackTheFactoryAction_data();
    void givesBackTheFactoryAction();
    void changesNothingThatWasNotWrapped();
    void givesAnEndOfEveryWrappedText();
    void takesLongActionsAtOnce();
    void escapesAsIfOneSignAfterTheOther();

    void givesBackEveryActionThatWasWritten();
    void givesBackTheLedActionOfAControlWithoutLiveButton();
    void givesBackTheLedActionOfABlinkingPad();
    void givesBackTheLedActionBehindALiveButton();
    void keepsIgnoredControlsAsTheyAre();
    void bearsEveryNameWithoutSeparators();
    void givesBackWhatStandsInSeveralWrappings();

    void losesTheActionsOfTheSwitch();
    void losesTheLedActionOfAControlWithoutAction();
    void losesALedActionWithoutAlternativeBehindALiveButton_data();
    void losesALedActionWithoutAlternativeBehindALiveButton();
    void cutsALedActionWhoseAlternativeComesFirstBehindALiveButton();
    void silencesAnEmptyControlWithoutActionForGood();
    void stripsAnIgnoredControlThatTestsTheSwitchItself();
    void isMisledByANameWithSeparators();
    void losesFactoryActionsInASimpleMapping();
};

void Os2lActionTest::escapesForAMapperFile_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("escaped");
    QTest::newRow("all three") << "a & b 'c'"
                               << "a &amp; b &apos;c&apos;";
    QTest::newRow("double quotes") << "say \"it's\""
                                   << "say &quot;it&apos;s&quot;";
    QTest::newRow("tight ampersand") << "a&b"
                                     << "a&b";
    QTest::newRow("blank on one side") << "a& b &c"
                                       << "a& b &c";
    QTest::newRow("two tight ampersands") << "a && b"
                                          << "a && b";
    QTest::newRow("ampersand at the ends") << "& a &"
                                           << "& a &";
    QTest::newRow("tab around it") << "a\t&\tb"
                                   << "a\t&\tb";
    QTest::newRow("several") << "a & b & c"
                             << "a &amp; b &amp; c";
    QTest::newRow("sharing a blank") << "a & & b"
                                     << "a &amp; & b";
    QTest::newRow("other signs") << "<a> ; %1"
                                 << "<a> ; %1";
    QTest::newRow("entities already") << "&apos; &amp; &quot;"
                                      << "&apos; &amp; &quot;";
    QTest::newRow("other letters") << "Grün 夜"
                                   << "Grün 夜";
    QTest::newRow("nothing") << ""
                             << "";
}

void Os2lActionTest::escapesForAMapperFile()
{
    QFETCH(QString, text);
    QFETCH(QString, escaped);
    QCOMPARE(xmlparse(text), escaped);
}

void Os2lActionTest::givesBackTheFactoryAction_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("factory");
    QTest::newRow("switch") << "toggle '$os2l'"
                            << "";
    QTest::newRow("never wrapped") << "sampler_bank -1"
                                   << "sampler_bank -1";
    QTest::newRow("control without Live Button") << "var '$os2l' ? nothing : sampler_bank -1"
                                                 << "sampler_bank -1";
    QTest::newRow("Live Button") << "var '$os2l' ? os2l_button 'Strobe' : sampler_bank -1"
                                 << "sampler_bank -1";
    QTest::newRow("factory condition")
        << "var '$os2l' ? nothing : var '$mk2page' 0 ? sampler_bank -1 : nothing"
        << "var '$mk2page' 0 ? sampler_bank -1 : nothing";
    QTest::newRow("LED of a Live Button")
        << "var '$os2l' ? os2l_button 'Strobe' ? color 'red' : color 'green' : "
           "var '$mk2page' 0 ? color 'yellow' : off"
        << "var '$mk2page' 0 ? color 'yellow' : off";
    QTest::newRow("LED of one word behind a Live Button")
        << "var '$os2l' ? os2l_button 'Strobe' ? color 'red' : color 'green' : off"
        << "";
    QTest::newRow("no factory action") << "var '$os2l' ? nothing"
                                       << "";
    QTest::newRow("LED without Live Button") << "var '$os2l' ? color 'black' : off"
                                             << "off";

    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("factory test of the same variable") << "var '$os2l' 1 ? a : b"
                                                       << "b";
    QTest::newRow("alternative at once") << "var '$os2l' ?  : x"
                                         << "";
    QTest::newRow("no blanks") << "var '$os2l'?x:y"
                               << "";
    QTest::newRow("LED of the switch") << "var '$os2l'"
                                       << "";
    QTest::newRow("longer variable") << "var '$os2l2' ? a : b"
                                     << "var '$os2l2' ? a : b";
    QTest::newRow("empty LED action") << "var '$os2l' ? color 'black' : "
                                      << "";
    QTest::newRow("LED without factory action")
        << "var '$os2l' ? os2l_button 'Strobe' ? color 'red' : color 'green'"
        << "";
    QTest::newRow("blinking") << "var '$os2l' ? os2l_button 'S' ? blink ? color 'a' : color 'b' : color 'b' "
                                 ": off"
                              << "off";
    QTest::newRow("blinking without factory action")
        << "var '$os2l' ? os2l_button 'S' ? blink ? color 'a' : color 'b' : color 'b'"
        << "";
    QTest::newRow("nested factory LED") << "var '$os2l' ? os2l_button 'S' ? on : off : a ? b ? c : d : e"
                                        << "a ? b ? c : d : e";
    QTest::newRow("slider") << "var '$os2l' ? os2l_cmd 8 : crossfader"
                            << "crossfader";

    // Only the very texts that are written count as wrapping.
    QTest::newRow("toggle of another kind") << "toggle '$os2l' & play"
                                            << "toggle '$os2l' & play";
    QTest::newRow("toggle with a blank") << "toggle '$os2l' "
                                         << "toggle '$os2l' ";
    QTest::newRow("blank ahead") << " var '$os2l' ? a : b"
                                 << " var '$os2l' ? a : b";
    QTest::newRow("capitals") << "VAR '$os2l' ? a : b"
                              << "VAR '$os2l' ? a : b";
    QTest::newRow("capital variable") << "var '$OS2L' ? a : b"
                                      << "var '$OS2L' ? a : b";
    QTest::newRow("double quotes around") << "var \"$os2l\" ? a : b"
                                          << "var \"$os2l\" ? a : b";
    QTest::newRow("no apostrophes") << "var $os2l ? a : b"
                                    << "var $os2l ? a : b";
    QTest::newRow("further inside") << "shift ? var '$os2l' ? a : b : c"
                                    << "shift ? var '$os2l' ? a : b : c";
    QTest::newRow("ending early") << "var '$os2l"
                                  << "var '$os2l";
    QTest::newRow("condition at the end") << "var '$os2l' ? "
                                          << "";
    QTest::newRow("condition at once") << "var '$os2l' ?  ? a : b"
                                       << " ? a : b";
    QTest::newRow("spaced wide") << "var '$os2l'  ?  a  :  b"
                                 << " b";
}

void Os2lActionTest::givesBackTheFactoryAction()
{
    QFETCH(QString, action);
    QFETCH(QString, factory);
    QCOMPARE(removeos2l(action), factory);
}

void Os2lActionTest::changesNothingThatWasNotWrapped()
{
    Actions actions;
    for (int i = 0; i < 5000; ++i) {
        const QString action = "x" + actions.soup();
        QCOMPARE(removeos2l(action), action);
    }
}

void Os2lActionTest::givesAnEndOfEveryWrappedText()
{
    Actions actions;
    for (int i = 0; i < 20000; ++i) {
        const QString action = "var '$os2l'" + actions.soup();
        const QString factory = removeos2l(action);
        QVERIFY2(action.endsWith(factory) && factory.size() < action.size(), qPrintable(action));
    }
}

void Os2lActionTest::takesLongActionsAtOnce()
{
    const QString conditions = QString("a ? b : ").repeated(60000);
    const QString alternatives = QString("b : ").repeated(120000);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(removeos2l("var '$os2l' ? " + conditions + "c"), QString());
    QCOMPARE(removeos2l("var '$os2l' ? " + alternatives + "c"), alternatives.mid(4) + "c");
    // Replacing one sign after the other in the same text took minutes.
    const int many = 8 * 1024 * 1024;
    QCOMPARE(xmlparse(QString(many, '\'')).size(), 6 * many);
    QCOMPARE(xmlparse(QString(many / 8, '"')).size(), 6 * many / 8);
    QCOMPARE(xmlparse(QString(" &").repeated(many / 8) + ' ').count("&amp;"), many / 16);
    QVERIFY2(timer.elapsed() < 30000, qPrintable(QString("%1 ms").arg(timer.elapsed())));
}

void Os2lActionTest::escapesAsIfOneSignAfterTheOther()
{
    const QString signs = "'\" &&  ax\n;";
    QRandomGenerator random(7);
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (int length = random.bounded(20); length > 0; --length)
            text += signs.at(random.bounded(signs.size()));
        QString expected = text;
        expected.replace("'", "&apos;").replace("\"", "&quot;").replace(" & ", " &amp; ");
        QCOMPARE(xmlparse(text), expected);
    }
}

void Os2lActionTest::givesBackEveryActionThatWasWritten()
{
    Actions actions;
    for (int i = 0; i < 600; ++i) {
        QString action = actions.chance(20) ? QString() : actions.open(3);
        if (actions.chance(4))
            action = actions.soup();
        for (const char* type : {"pad", "button"}) {
            const Mapping control = onecontrol(type, action, "off");
            QCOMPARE(actionback(control), action);
            QCOMPARE(actionback(placed(control, actions.name())), action);
            QCOMPARE(actionback(placed(control, actions.name(), true)), action);
            // A Live Button on the switch's cell takes the place of the switch.
            QCOMPARE(actionback(switching(placed(control))), action);
        }
        QCOMPARE(actionback(onecontrol("slider", action)), action);
        if (!action.isEmpty())
            QCOMPARE(actionback(onecontrol("empty", action)), action);
    }
}

void Os2lActionTest::givesBackTheLedActionOfAControlWithoutLiveButton()
{
    Actions actions;
    for (int i = 0; i < 600; ++i) {
        QString ledaction = actions.chance(20) ? QString() : actions.open(3);
        if (actions.chance(4))
            ledaction = actions.soup();
        for (const char* type : {"pad", "button"}) {
            const QList<Mapping> everylook = looks(onecontrol(type, "sampler_pad 1", ledaction));
            for (const Mapping& look : everylook)
                QCOMPARE(ledback(look), ledaction);
        }
    }
}

void Os2lActionTest::givesBackTheLedActionOfABlinkingPad()
{
    Actions actions;
    for (int i = 0; i < 600; ++i) {
        QString ledaction = actions.chance(20) ? QString() : actions.open(3);
        if (actions.chance(4))
            ledaction = actions.soup();
        for (const char* action : {"", "sampler_pad 1"}) {
            const Mapping pad = placed(onecontrol("pad", action, ledaction), actions.name(), true);
            const QList<Mapping> everylook = looks(pad);
            for (const Mapping& look : everylook)
                QCOMPARE(ledback(look), ledaction);
        }
    }
}

void Os2lActionTest::givesBackTheLedActionBehindALiveButton()
{
    Actions actions;
    int tested = 0;
    for (int i = 0; i < 600; ++i) {
        const QString ledaction = actions.chance(4) ? actions.soup() : actions.open(3);
        // The others are lost or cut, see below.
        if (!ledaction.isEmpty() && !conditional(ledaction))
            continue;
        ++tested;
        for (const char* action : {"", "sampler_pad 1"}) {
            for (const char* type : {"pad", "button"}) {
                const Mapping control = placed(onecontrol(type, action, ledaction), actions.name());
                const QList<Mapping> everylook = looks(control);
                for (const Mapping& look : everylook)
                    QCOMPARE(ledback(look), ledaction);
            }
        }
    }
    QVERIFY2(tested > 200, "Too few actions came out with an alternative behind a condition.");
}

void Os2lActionTest::keepsIgnoredControlsAsTheyAre()
{
    Actions actions;
    for (int i = 0; i < 600; ++i) {
        QString action = actions.open(3);
        if (action.startsWith("var '$os2l'"))
            action.prepend("shift & ");
        Mapping control = onecontrol("ignore", action);
        QCOMPARE(actionback(control), action);
        control.combined = false;
        QCOMPARE(actionback(control), action);
    }
}

void Os2lActionTest::bearsEveryNameWithoutSeparators()
{
    for (const char* name : {"", " ", "'", "Rock 'n' Roll", "a:b", "a?b", ":", "?", "a :b", "a? b", "%1%2",
                             "Grün", "夜", "toggle '$os2l'", "var '$os2l'", "; &amp;"}) {
        const Mapping pad = placed(onecontrol("pad", "sampler_pad 1", "play ? on : off"), name);
        QCOMPARE(actionback(pad), QString("sampler_pad 1"));
        QCOMPARE(ledback(pad), QString("play ? on : off"));
    }
}

void Os2lActionTest::givesBackWhatStandsInSeveralWrappings()
{
    const QString once = "var '$os2l' ? os2l_button 'Old' : sampler_pad 1";
    for (const char* type : {"pad", "button", "slider", "empty"}) {
        QCOMPARE(actionback(onecontrol(type, once)), once);
        QCOMPARE(removeos2l(actionback(onecontrol(type, once))), QString("sampler_pad 1"));
    }
}

// The exceptions: what a second export from a written file cannot bring back.

void Os2lActionTest::losesTheActionsOfTheSwitch()
{
    for (const char* type : {"pad", "button"}) {
        const QList<Mapping> everylook =
            looks(switching(onecontrol(type, "sampler_pad 1", "play ? on : off")));
        for (const Mapping& look : everylook) {
            QCOMPARE(written(look).value("C"), QString("toggle '$os2l'"));
            QCOMPARE(actionback(look), QString());
        }
    }
    // The pad's dark colour is what stands where a factory action would.
    Mapping pad = switching(onecontrol("pad", "sampler_pad 1", "play ? on : off"));
    QCOMPARE(ledback(pad), QString("color 'yellow'"));
    pad.fullRgb = true;
    QCOMPARE(ledback(pad), QString("color 30% '#000000'"));
    QCOMPARE(ledback(switching(onecontrol("button", "sampler_pad 1", "play ? on : off"))), QString());
}

void Os2lActionTest::losesTheLedActionOfAControlWithoutAction()
{
    for (const char* type : {"pad", "button"}) {
        const QList<Mapping> everylook = looks(onecontrol(type, "", "play ? on : off"));
        for (const Mapping& look : everylook) {
            QCOMPARE(actionback(look), QString());
            QCOMPARE(ledback(look), QString());
        }
    }
}

void Os2lActionTest::losesALedActionWithoutAlternativeBehindALiveButton_data()
{
    QTest::addColumn<QString>("ledaction");
    for (const char* ledaction : {"off", "on", "color 'red'", "color 'red' & say 'x'", "play ? on",
                                  "blink 500ms ? play ? on", "a?b:c"})
        QTest::newRow(ledaction) << QString(ledaction);
}

void Os2lActionTest::losesALedActionWithoutAlternativeBehindALiveButton()
{
    QFETCH(QString, ledaction);
    for (const char* action : {"", "sampler_pad 1"}) {
        for (const char* type : {"pad", "button"}) {
            const QList<Mapping> everylook = looks(placed(onecontrol(type, action, ledaction)));
            for (const Mapping& look : everylook) {
                QVERIFY(written(look).value("LED_C").endsWith(" : " + ledaction));
                QCOMPARE(ledback(look), QString());
            }
        }
        // Blinking saves it: the pad has one alternative more to lose.
        QCOMPARE(ledback(placed(onecontrol("pad", action, ledaction), "Strobe", true)), ledaction);
    }
}

void Os2lActionTest::cutsALedActionWhoseAlternativeComesFirstBehindALiveButton()
{
    Actions actions;
    int tested = 0;
    for (int i = 0; i < 3000; ++i) {
        const QString ledaction = actions.soup();
        const auto alternative = ledaction.indexOf(" : ");
        if (alternative < 0 || conditional(ledaction))
            continue;
        ++tested;
        const QString kept = alternative == 0 ? QString() : ledaction.mid(alternative + 3);
        for (const char* type : {"pad", "button"})
            QCOMPARE(ledback(placed(onecontrol(type, "sampler_pad 1", ledaction))), kept);
    }
    QVERIFY2(tested > 200, "Too few actions came out with an alternative ahead of every condition.");
    QCOMPARE(ledback(placed(onecontrol("pad", "", "on : play ? on : off"))), QString("play ? on : off"));
    QCOMPARE(ledback(placed(onecontrol("pad", "", "on : off"))), QString("off"));
}

void Os2lActionTest::silencesAnEmptyControlWithoutActionForGood()
{
    QCOMPARE(actionback(onecontrol("empty", "")), QString("nothing"));
    QCOMPARE(actionback(onecontrol("empty", "nothing")), QString("nothing"));
}

void Os2lActionTest::stripsAnIgnoredControlThatTestsTheSwitchItself()
{
    QCOMPARE(actionback(onecontrol("ignore", "var '$os2l' 1 ? a : b")), QString("b"));
    QCOMPARE(actionback(onecontrol("ignore", "toggle '$os2l'")), QString());
}

void Os2lActionTest::isMisledByANameWithSeparators()
{
    const QString action = "sampler_pad 1";
    const QString ledaction = "play ? on : off";
    const Mapping colon = placed(onecontrol("pad", action, ledaction), "Slow : fast");
    QCOMPARE(actionback(colon), QString("fast' : sampler_pad 1"));
    const Mapping question = placed(onecontrol("pad", action, ledaction), "Why ? now");
    QCOMPARE(actionback(question), QString());
    QCOMPARE(ledback(question), ledaction);
}

void Os2lActionTest::losesFactoryActionsInASimpleMapping()
{
    for (const char* type : {"pad", "button", "slider", "empty"}) {
        Mapping control = onecontrol(type, "sampler_pad 1", "play ? on : off");
        control.combined = false;
        for (const Mapping& mapping : {control, switching(control), placed(control)}) {
            const Written texts = written(mapping);
            QVERIFY(!texts.isEmpty());
            for (const QString& text : texts) {
                QVERIFY2(!text.contains("sampler_pad") && !text.contains("play"), qPrintable(text));
                QVERIFY2(!text.contains("$os2l"), qPrintable(text));
                QCOMPARE(removeos2l(text), text);
            }
        }
    }
}

QTEST_APPLESS_MAIN(Os2lActionTest)
#include "tst_os2laction.moc"
