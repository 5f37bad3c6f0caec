#include "judge.h"

#include <QtTest>

using namespace VirtualDj;

namespace {

/// A world whose factory questions, active buttons and blink are what a test says.
class TestDesk : public Desk
{
public:
    QStringList facts;
    QStringList active;
    bool lit = false;

    bool factorytruth(const QString& text) override { return facts.contains(text); }
    bool blinkphase(const QString&) override { return lit; }
    bool buttonactive(const QString& name, int) override { return active.contains(name); }
};

/// What a button with the script \a text does, in words.
QString done(const QString& text, World* world) { return describe(perform(parse(text).chain, world)); }

/// What an LED with the script \a text shows, in words.
QString lit(const QString& text, World* world) { return describe(lightof(ask(parse(text).chain, world))); }

} // namespace

/// The rules of VirtualDJ's script, as its documentation and others' measurements tell them.
class ScriptTest : public QObject
{
    Q_OBJECT

private slots:
    void does_data();
    void does();
    void shows_data();
    void shows();
    void doesWhatStandsBesideAQuestion();
    void cyclesBothWays();
    void keepsPlainVariablesToADeck();
    void tellsTheDirectionOfATurn();
    void showsScriptsBetweenBackQuotes_data();
    void showsScriptsBetweenBackQuotes();
    void blinks();
    void asksTheLightingProgramForAButton();
    void knowsColors();
    void takesNoMoreThan255Statements();
    void survivesAnyText();
    void visitsEveryState();
};

void ScriptTest::does_data()
{
    // a to e are factory actions; of the questions a to e, b and d are true.
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("effects");
    const auto row = [](const char* script, const char* effects) {
        QTest::newRow(script) << script << effects;
    };
    row("a & c", "[a], [c]");
    row("b ? a : c", "[a]");
    row("a ? b : c", "[c]");
    row("a ? b", "nothing");
    row("b ? c", "[c]");
    row("b ? : c", "nothing");
    row("a ? : c", "[c]");
    row("b ? d ? a : c : e", "[a]");
    row("b ? a ? c : d : e", "[d]");
    row("a ? d ? b : c : e", "[e]");
    row("a ? b : d ? c : e", "[c]");
    row("a ? b : c ? d : e", "[e]");
    row("a ? b ? c : d", "nothing");
    row("b ? a : c & d", "[a]");
    row("a ? b : c & d", "[c], [d]");
    row("b ? a & c : d", "[a], [c]");
    row("a & b ? c : d", "[a], [c]");
    row("b & a ? c : d", "[b], [d]");
    row("b && d ? a : c", "[a]");
    row("b && a ? c : e", "[e]");
    row("b&&d?a:c", "[a]");
    row("b && d", "[b], [d]");
    row("(b ? a : c) & d", "[a], [d]");
    row("b ? (a ? c : d) : e", "[d]");
    row("b ? (a ? c) : e", "nothing");
    row("(a", "[a]");
    row("b?a:c", "[a]");
    row("a&c", "[a], [c]");
    row("", "nothing");
    row("   ", "nothing");
    row(": a", "nothing");
    row("? a", "nothing");
    row("a : c", "[a]");
    row("nothing", "nothing");
    row("on & off & color 'red' & blink & get_text 'x' & var 'x'", "nothing");
    row("set 'x' 3", "x becomes 3");
    row("set \"x\" 3 & var 'x' 3 ? a : c", "x becomes 3, [a]");
    row("toggle '$x' & toggle '$x'", "$x becomes 1, $x becomes 0");
    row("set 'x' 5 & toggle 'x'", "x becomes 5, x becomes 0");
    row("var 'x' ? a : c", "[c]");
    row("var 'x' 0 ? a : c", "[a]");
    row("set 'x' 2 & var 'x' ? a : c", "x becomes 2, [a]");
    row("set 'x' 2 & var 'x' 1 ? a : c", "x becomes 2, [c]");
    row("sampler_pad 1", "[sampler_pad 1]");
    row("sampler_stop \"all\"", "[sampler_stop 'all']");
    row("deck 1 effect_select 2 +1", "[deck 1 effect_select 2 +1]");
    row("repeat 100ms 500ms & sampler_volume_master -5%",
        "[repeat 100ms 500ms], [sampler_volume_master -5%]");
    row("os2l_button 'Strobe'", "Live Button \"Strobe\"");
    row("os2l_button \"Strobe\"", "Live Button \"Strobe\"");
    row("os2l_button 'a : b ? c & (d)'", "Live Button \"a : b ? c & (d)\"");
    row("os2l_button ' Fog '", "Live Button \" Fog \"");
    row("os2l_button 'say \"Hi\"'", "Live Button \"say \"Hi\"\"");
    row("os2l_button \"it's\"", "Live Button \"it's\"");
    row("os2l_button 'Rock 'n' Roll'", "Live Button \"Rock \" (dropped words: 2)");
    row("os2l_button 'Don't' : a", "Live Button \"Don\" (dropped words: 2)");
    row("os2l_button 'back\\'slash'", "Live Button \"back\\\" (dropped words: 2)");
    row("os2l_button 'open", "Live Button \"open\"");
    row("os2l_button ''", "Live Button \"\"");
    row("os2l_cmd 3", "OS2L command 3");
    row("'os2l_button' 'Strobe'", "['os2l_button' 'Strobe']");
    row("Os2l_button 'Strobe'", "[Os2l_button 'Strobe']");
}

void ScriptTest::does()
{
    QFETCH(QString, script);
    QFETCH(QString, effects);
    TestDesk desk;
    desk.facts = QStringList{"b", "d"};
    QCOMPARE(done(script, &desk), effects);
}

void ScriptTest::shows_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("light");
    const auto row = [](const char* script, const char* light) { QTest::newRow(script) << script << light; };
    row("on", "on");
    row("off", "dark");
    row("nothing", "dark");
    row("", "dark");
    row("color 'red'", "#ff0000");
    row("color red", "#ff0000");
    row("color '#12ab34'", "#12ab34");
    row("color 40% '#ff8000'", "#663300");
    row("color 'black'", "dark");
    row("color 'transparent'", "dark");
    row("color 'nosuch'", "dark");
    row("yes", "on");
    row("no", "dark");
    row("yes ? color 'red' : off", "#ff0000");
    row("no ? color 'red' : on", "on");
    row("no ? color 'red'", "dark");
    row("no ? color 'red' : ", "dark");
    row("yes ? : color 'red'", "dark");
    row("yes & no", "on");
    row("no & yes", "dark");
    row("color 'red' & color 'blue'", "#ff0000");
    row("volume & yes ? color 'red' : color 'blue'", "#ff0000");
    row("volume & no ? color 'red' : color 'blue'", "#0000ff");
    row("var 'x'", "dark");
    row("var 'x' 0", "on");
    row("var 'set'", "on");
    row("var 'set' 2", "on");
    row("var 'set' 1", "dark");
    row("toggle 'set'", "on");
    row("(yes ? color 'red' : off)", "#ff0000");
}

void ScriptTest::shows()
{
    QFETCH(QString, script);
    QFETCH(QString, light);
    TestDesk desk;
    desk.facts = QStringList{"yes"};
    desk.setvariable("set", 2);
    QCOMPARE(lit(script, &desk), light);
}

void ScriptTest::doesWhatStandsBesideAQuestion()
{
    TestDesk desk;
    const auto done = [&desk](const char* script) {
        Effects does;
        ask(parse(script).chain, &desk, &does);
        return describe(does);
    };
    QCOMPARE(done("volume & yes ? color 'red' : color 'blue'"), QString("[volume]"));
    QCOMPARE(done("yes ? play : no ? stop : (set 'x' 1 & on)"), QString("nothing"));
    QCOMPARE(done("yes ? play : no ? stop : (on & set 'x' 1)"), QString("x becomes 1"));
    QCOMPARE(done("(volume & yes ? on : off) && no ? on : off"), QString("[volume]"));
    Effects does;
    shownname("a `volume & yes ? get_text 'b'`", &desk, &does);
    QCOMPARE(describe(does), QString("[volume]"));
}

void ScriptTest::cyclesBothWays()
{
    TestDesk desk;
    for (const char* expected : {"x becomes 1", "x becomes 2", "x becomes 0", "x becomes 1"})
        QCOMPARE(done("cycle 'x' 3", &desk), QString(expected));
    for (const char* expected : {"x becomes 0", "x becomes 2", "x becomes 1"})
        QCOMPARE(done("cycle 'x' -3", &desk), QString(expected));
    QCOMPARE(done("cycle 'y' 1", &desk), QString("y becomes 0"));
    QCOMPARE(done("cycle 'y' -1", &desk), QString("y becomes 0"));
    desk.setvariable("x", 9);
    QCOMPARE(done("cycle 'x' 3", &desk), QString("x becomes 0"));
}

void ScriptTest::keepsPlainVariablesToADeck()
{
    TestDesk desk;
    done("set 'x' 1 & set '$x' 2", &desk);
    desk.deck = 2;
    QCOMPARE(lit("var 'x'", &desk), QString("dark"));
    QCOMPARE(lit("var '$x' 2", &desk), QString("on"));
    desk.deck = 1;
    QCOMPARE(lit("var 'x' 1", &desk), QString("on"));
}

void ScriptTest::tellsTheDirectionOfATurn()
{
    TestDesk desk;
    desk.turned = 1;
    QCOMPARE(done("param_bigger 0 ? a : b", &desk), QString("[a]"));
    desk.turned = -1;
    QCOMPARE(done("param_bigger 0 ? a : b", &desk), QString("[b]"));
    desk.turned = 0;
    desk.facts = QStringList{"param_bigger 93%"};
    QCOMPARE(done("param_bigger 93% ? a : b", &desk), QString("[a]"));
}

void ScriptTest::showsScriptsBetweenBackQuotes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "Strobe"
                           << "Strobe";
    QTest::newRow("script") << "`get_text 'Strobe'`"
                            << "Strobe";
    QTest::newRow("empty text") << "`get_text ''`"
                                << "";
    QTest::newRow("choice") << "`var 'x' 1 ? get_text 'A' : var 'x' 2 ? get_text 'B'`"
                            << "B";
    QTest::newRow("no branch") << "`var 'x' 1 ? get_text 'A'`"
                               << "";
    QTest::newRow("mixed") << "Bank `get_text 'A'`!"
                           << "Bank A!";
    QTest::newRow("back-quote in the text") << "`get_text 'A`B'`"
                                            << "AB'";
    QTest::newRow("unclosed") << "A`get_text 'B'"
                              << "AB";
    QTest::newRow("empty") << "``"
                           << "";
}

void ScriptTest::showsScriptsBetweenBackQuotes()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    TestDesk desk;
    desk.setvariable("x", 2);
    QCOMPARE(shownname(name, &desk), text);
}

void ScriptTest::blinks()
{
    TestDesk desk;
    for (const char* script :
         {"blink ? color 'red' : color 'blue'", "blink 500ms ? color 'red' : color 'blue'"}) {
        desk.lit = true;
        QCOMPARE(lit(script, &desk), QString("#ff0000"));
        desk.lit = false;
        QCOMPARE(lit(script, &desk), QString("#0000ff"));
    }
}

void ScriptTest::asksTheLightingProgramForAButton()
{
    TestDesk desk;
    const QString script = "os2l_button 'Fog' ? color 'green' : color 'yellow'";
    QCOMPARE(lit(script, &desk), QString("#ffff00"));
    desk.active = QStringList{"Fog"};
    QCOMPARE(lit(script, &desk), QString("#00ff00"));
    QCOMPARE(lit("os2l_button 'Strobe'", &desk), QString("dark"));
}

void ScriptTest::knowsColors()
{
    QCOMPARE(colornamed("green"), QColor(0, 255, 0));
    QCOMPARE(colornamed("#0a0B0c"), QColor(10, 11, 12));
    QCOMPARE(colornamed("darkred"), QColor(127, 0, 0));
    QCOMPARE(colornamed("transparent").alpha(), 0);
    for (const char* none : {"", "#", "#12345", "#1234567", "lime", "Red", "dark", "darkness"})
        QVERIFY2(!colornamed(none).isValid(), none);
    QCOMPARE(dimmed(QColor(255, 100, 0), 30), QColor(76, 30, 0));
}

void ScriptTest::takesNoMoreThan255Statements()
{
    const QString longest = QStringLiteral("a & ").repeated(maxStatements - 1) + "a";
    QVERIFY(!parse(longest).tooLong);
    QCOMPARE(parse(longest).statements, maxStatements);
    const Script longer = parse(longest + " & a");
    QVERIFY(longer.tooLong);
    QCOMPARE(longer.statements, maxStatements);
}

void ScriptTest::survivesAnyText()
{
    TestDesk desk;
    for (const QString& text :
         {QStringLiteral("(").repeated(100000), QStringLiteral("a?").repeated(100000),
          QStringLiteral("a?b:").repeated(100000), QStringLiteral("&").repeated(1000), QStringLiteral(")))"),
          QStringLiteral("'"), QStringLiteral("\"'\"'\""), QStringLiteral("a && "), QStringLiteral("& a"),
          QStringLiteral(
              "cycle & set & toggle & var & color & color 40% & os2l_button & os2l_cmd & get_text")}) {
        const Script script = parse(text);
        QVERIFY(script.statements <= maxStatements);
        perform(script.chain, &desk);
        ask(script.chain, &desk);
    }
}

void ScriptTest::visitsEveryState()
{
    const Chain chain = parse("var '$p' 3 ? a ? b : c : blink ? os2l_button 'X' : nothing").chain;
    QMap<QString, QSet<int>> constants;
    collectconstants(chain, &constants);
    QCOMPARE(constants, (QMap<QString, QSet<int>>{{"$p", {3}}}));
    States states(constants, {});
    QStringList seen;
    do {
        states.restart();
        ask(chain, &states);
        seen.append(states.describe());
    } while (states.next());
    seen.sort();
    QStringList expected;
    for (const char* page : {"0", "4"}) {
        expected << QStringLiteral("var $p = %1, blink  = 0").arg(page);
        for (const char* active : {"0", "1"})
            expected << QStringLiteral("var $p = %1, blink  = 1, button X = %2").arg(page, active);
    }
    for (const char* a : {"0", "1"}) {
        for (const char* branch : {"0", "1"})
            expected << QStringLiteral("var $p = 3, a = %1, %2 = %3").arg(a, *a == '1' ? "b" : "c", branch);
    }
    expected.sort();
    QCOMPARE(seen, expected);
}

QTEST_GUILESS_MAIN(ScriptTest)
#include "tst_virtualdj_script.moc"
