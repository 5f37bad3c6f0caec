#include "judge.h"
#include "testfiles.h"

#include <QRegularExpression>
#include <QTextStream>
#include <QtTest>

#include <utility>

using VirtualDj::Expectation;
using VirtualDj::Judge;

namespace {

const QString folder = QStringLiteral(TEST_DATA_DIR "/spoilt");

/// A file that was spoilt, and how.
struct Spoilt
{
    QString how;
    QString text;
};

/// The ways in which \a piece, one word, sign or quotation of a script as it stands in a file, is
/// spoilt. \a before and \a after are the rest of the script.
QStringList spoiltpieces(const QString& before, const QString& piece, const QString& after)
{
    if (piece == QLatin1String("?"))
        return {QString(), ":", "&amp;", "? paused ? eject :", "? eject &amp;"};
    if (piece == QLatin1String(":"))
        return {QString(), "?", "&amp;", ": paused ? eject :"};
    if (piece == QLatin1String("&amp;"))
        return {":", "?", "&"};
    // An unclosed back-quote runs to the end all the same.
    if (piece == QLatin1String("`"))
        return before.isEmpty() ? QStringList{QString(), "``"} : QStringList();
    if (piece.startsWith(QLatin1String("&apos;"))) {
        const QString inner = piece.mid(6, piece.size() - 12);
        if (before.endsWith(QLatin1String("color ")) || before.endsWith(QLatin1String("% ")))
            return {"&apos;cyan&apos;", "&apos;#010203&apos;"};
        QStringList all{"&apos;" + inner + "x&apos;", "&apos; " + inner + "&apos;", "&apos;<&apos;"};
        // An unclosed quotation runs to the end all the same.
        if (!after.trimmed().isEmpty() && after != QLatin1String("`"))
            all.append("&apos;" + inner);
        if (before.endsWith(QLatin1String("os2l_button ")))
            all += QStringList{piece + " on", piece + " 0", piece + " &apos;x&apos;"};
        return all;
    }
    static const QRegularExpression number(QStringLiteral("^([+-]?)(\\d+)(.*)$"));
    const QRegularExpressionMatch match = number.match(piece);
    if (match.hasMatch()) {
        QStringList all{match.captured(1) + QString::number(match.captured(2).toInt() + 1) +
                        match.captured(3)};
        if (before.endsWith(QLatin1String("os2l_cmd ")))
            all.append(piece + " 50%");
        return all;
    }
    QStringList all{piece + "x"};
    if (before.isEmpty() || before == QLatin1String("`"))
        all += QStringList{"eject &amp; " + piece, "paused ? eject : " + piece};
    return all;
}

/// \a line with every piece of its scripts spoilt in every way, one after the other. \a scripts are the
/// beginnings and lengths of the scripts in the line.
QList<Spoilt> spoiltlines(const QString& line, const QList<QPair<int, int>>& scripts)
{
    static const QRegularExpression pieces(QStringLiteral("&apos;.*?&apos;|&amp;|[?:`]|[^\\s?:`&]+"));
    const QString name = line.contains("<map") ? line.section('"', 1, 1) : line.trimmed().section(' ', 0, 0);
    QList<Spoilt> all;
    for (const auto& place : scripts) {
        const QString script = line.mid(place.first, place.second);
        auto matches = pieces.globalMatch(script);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const QString before = script.left(match.capturedStart());
            const QString after = script.mid(match.capturedEnd());
            const QStringList spoilt = spoiltpieces(before, match.captured(), after);
            for (const QString& other : spoilt) {
                QString text = line;
                text.replace(place.first + match.capturedStart(), match.capturedLength(), other);
                const QString how = before + '[' + match.captured() + " -> " + other + ']' + after;
                all.append({name + ": " + QString(how).replace("&apos;", "'"), text});
            }
        }
    }
    return all;
}

/// Whether the spoiling \a how makes no difference: what the script does or shows stays the same.
bool isequivalent(const QString& how)
{
    // Whatever the switch, nothing is done or shown; a full-RGB pad that is the switch is black in both
    // states.
    const QString dark = R"((nothing|off( : )?|color 'black'( : )?|color '#000000' : color 30% '#000000')$)";
    // A pad without Live Button, in this bank and all later ones.
    const QString idle = R"(nothing( : var 'dmxbank' \d \? nothing)*$)";
    const QString untold = R"(get_text ''( : var 'dmxbank' \d \? get_text '')*`$)";
    static const QStringList all{
        // Both branches are dark, so it does not matter what is asked, ...
        R"(\[var -> varx\] '\$os2l' \? )" + dark,
        R"(var \['\$os2l' -> (' \$os2l'|'\$os2lx')\] \? )" + dark,
        // ... and an action that only asks does nothing either.
        R"(var \['\$os2l' -> '\$os2l\] \? nothing$)",
        R"(var '\$os2l' \[\? -> (:|&amp;)?\] nothing$)",
        // A last branch that is dark may as well not be there.
        R"(\[: -> (&amp;)?\] (off|color 'black'|color 30% '#000000')?$)",
        R"(color '#000000' \[: -> \?\] color 30% '#000000'$)",
        R"((off|color 'black') \[: -> \?\] $)",
        // What is asked is on or off itself.
        R"(\[\? -> (:|&amp;)\] on : off$)",
        // Black has no brightness, and 30 % of a colour that is nearly black is black.
        R"(color \[30% -> 31%\] '#000000'$)",
        R"(color 30% \['#000000' -> '#010203'\]$)",
        // Which of the banks that leave the pad empty it is does not matter, ...
        R"(var 'dmxbank' \[\d -> \d\] \? ()" + idle + '|' + untold + ')',
        R"(pad2: `?var 'dmxbank' \[0 -> 1\] \? (nothing|get_text '') )",
        // ... nor whether there is a question before `nothing`, ...
        R"(var 'dmxbank' \d \[\? -> (:|&amp;)?\] )" + idle,
        R"(var \['dmxbank' -> 'dmxbank\] \d \? )" + idle,
        // ... nor whether the later banks are reached.
        R"(nothing \[: -> (\?|&amp;)?\] var 'dmxbank' \d \? )" + idle,
        R"(os2l_button 'Fog Burst' \[: -> &amp;\] var 'dmxbank' \d \? )" + idle,
        R"(get_text '' \[: -> (\?|&amp;)?\] var 'dmxbank' \d \? )" + untold,
        // With one bank both directions lead to it.
        R"(param_bigger 0 \[\? -> &amp;\] cycle 'dmxbank' 1 : cycle 'dmxbank' -1$)",
    };
    static const QRegularExpression any('(' + all.join(")|(") + ')');
    return any.match(how).hasMatch();
}

/// The scripts of a line of a mapping or pads page.
QList<QPair<int, int>> scriptsof(const QString& line)
{
    static const QRegularExpression attribute(QStringLiteral(" (?:name|color|action)=\"([^\"]*)\""));
    static const QRegularExpression content(QStringLiteral(">([^<]+)</"));
    QList<QPair<int, int>> scripts;
    for (const QRegularExpression& kind : {attribute, content}) {
        auto matches = kind.globalMatch(line);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            scripts.append({match.capturedStart(1), match.capturedLength(1)});
        }
    }
    return scripts;
}

/// \a line without the number of its pad.
QString unnumbered(QString line) { return line.remove(QRegularExpression(QStringLiteral("\\bpad\\d+"))); }

/// Every way to spoil a line as a whole: gone, under another name, there twice with another action, left
/// open.
QList<Spoilt> spoiltwhole(const QStringList& lines, int line)
{
    const QString text = lines.at(line);
    const auto with = [&lines, line](const QString& other) {
        QStringList all = lines;
        all[line] = other;
        return all.join('\n');
    };
    QStringList without = lines;
    without.removeAt(line);
    QString renamed = text;
    renamed.replace("<map value=\"", "<map value=\"x").replace("<pa", "<ta").replace("</pa", "</ta");
    QString other = text;
    other.replace("action=\"", "action=\"play &amp; ").replace("\">", "\">play &amp; ");
    return {{"gone: " + text.left(30), without.join('\n')},
            {"renamed: " + text.left(30), with(renamed)},
            {"contradicted: " + text.left(30), with(text + '\n' + other)},
            {"open: " + text.left(30),
             with(QString(text).remove(QRegularExpression(QStringLiteral("/>|</\\w+>$"))))},
            {"hidden: " + text.left(30), with("<more>" + text + "</more>")}};
}

/// What is wrong with a file as a whole.
QList<Spoilt> spoiltfiles(const QString& text)
{
    const auto replaced = [&text](const char* before, const char* after) {
        return Spoilt{QString("%1 -> %2").arg(before, after), QString(text).replace(before, after)};
    };
    return {
        {"empty", QString()},
        {"cut off", text.left(text.size() - 8)},
        {"something behind", text + "<more/>"},
        {"a control more", QString(text)
                               .replace("</mapper>", "\t<map value=\"ONINIT\" action=\"play\"/>\n</mapper>")
                               .replace("</page>", "<pad9>nothing</pad9>\n</page>")},
        {"an element more",
         QString(text)
             .replace("</mapper>", "<more><map value=\"A\" action=\"play\"/></more></mapper>")
             .replace("</page>", "<onload>set &apos;dmxbank&apos; 2</onload></page>")},
        {"a pad more",
         QString(text).replace("</page>", "<pad01>os2l_button &apos;Strobe&apos;</pad01></page>")},
        replaced("<mapper ", "<mapping "),
        replaced("<page ", "<pages "),
        replaced("device=\"STAGE", "device=\"STAGE2"),
        replaced("<page name=\"", "<page name=\"x"),
        replaced("dmxbank", "dmxbonk"),
        replaced("os2l_button", "os2l_bottom"),
        replaced("$os2l", "os2l"),
        replaced("First", "First & foremost"),
        replaced("Strobe", "Str\"obe"),
        replaced("Strobe", "Str<obe"),
        replaced("Strobe", "Fog Burst"),
        replaced("Fog Burst", "Fog'Burst"),
        {"control character", QString(text).replace("Strobe", QString("Str") + QChar(1) + "obe")}};
}

} // namespace

/// The judge judged: whatever is wrong with a line, of whatever kind, is noticed.
class SpoiltTest : public QObject
{
    Q_OBJECT

private slots:
    void noticesWhateverIsWrong_data();
    void noticesWhateverIsWrong();
    void noticesWorkThatIsNotInTheFile();
    void noticesScriptsThatAreTooLong();
    void cleanupTestCase();

private:
    Expectation expectation(const QString& name) const
    {
        return VirtualDj::readexpectation(contents(folder + '/' + name + ".json"),
                                          QStringLiteral(LAYOUTS_DIR), folder);
    }
    QStringList complaints(const QString& text, const Expectation& expected)
    {
        m_judge.complaints.clear();
        m_judge.file(text.toUtf8(), expected);
        return m_judge.complaints;
    }

    Judge m_judge;
    decltype(QStringList().size()) m_spoilt = 0;
};

void SpoiltTest::noticesWhateverIsWrong_data()
{
    QTest::addColumn<int>("least"); // spoilt files
    QTest::newRow("page") << 800;
    QTest::newRow("page-one-bank") << 450;
    QTest::newRow("combined") << 1100;
    QTest::newRow("os2l-only") << 500;
    QTest::newRow("rgb-switch-button") << 1100;
    QTest::newRow("rgb-switch-pad") << 130;
    QTest::newRow("rgb-switch-light-button") << 130;
}

void SpoiltTest::noticesWhateverIsWrong()
{
    const QString name = QLatin1String(QTest::currentDataTag());
    const QString text = QString::fromUtf8(contents(folder + '/' + name + ".xml"));
    const Expectation expected = expectation(name);
    QCOMPARE(complaints(text, expected), QStringList());

    const QStringList lines = text.split('\n');
    QList<Spoilt> all;
    const QList<Spoilt> files = spoiltfiles(text);
    for (const Spoilt& spoilt : files) {
        if (spoilt.text != text)
            all.append(spoilt);
    }
    for (int line = 2; line < lines.size() - 2; ++line) {
        all += spoiltwhole(lines, line);
        // A pad with the scripts of the one before it.
        if (unnumbered(lines.at(line)) == unnumbered(lines.at(line - 1)))
            continue;
        const QList<Spoilt> spoiltline = spoiltlines(lines.at(line), scriptsof(lines.at(line)));
        for (const Spoilt& spoilt : spoiltline) {
            QStringList others = lines;
            others[line] = spoilt.text;
            all.append({spoilt.how, others.join('\n')});
        }
    }
    QStringList wrong;
    int equivalent = 0;
    for (const Spoilt& spoilt : std::as_const(all)) {
        const bool same = isequivalent(spoilt.how);
        equivalent += same ? 1 : 0;
        if (complaints(spoilt.text, expected).isEmpty() != same)
            wrong.append(spoilt.how);
    }
    m_spoilt += static_cast<int>(all.size()) - equivalent;
    QFETCH(int, least);
    QVERIFY2(all.size() >= least, qPrintable(QString::number(all.size())));
    QVERIFY2(wrong.isEmpty(), qPrintable("Not noticed, or listed as equivalent: " + wrong.join('\n')));
}

void SpoiltTest::noticesWorkThatIsNotInTheFile()
{
    const QString page = QString::fromUtf8(contents(folder + "/page.xml"));
    Expectation expected = expectation("page");
    std::swap(expected.page->banks[1][0]->button, expected.page->banks[1][7]->button);
    QVERIFY(!complaints(page, expected).isEmpty());
    expected = expectation("page");
    expected.page->banks[4][3] = VirtualDj::PageWork::Pad{"X", "#ffffff", "X"};
    QVERIFY(!complaints(page, expected).isEmpty());
    expected = expectation("page");
    expected.page->sixteen = true;
    QVERIFY(!complaints(page, expected).isEmpty());

    const QString mapping = QString::fromUtf8(contents(folder + "/combined.xml"));
    const auto noticed = [&](const std::function<void(VirtualDj::MappingWork*)>& change) {
        Expectation other = expectation("combined");
        change(&*other.mapping);
        return !complaints(mapping, other).isEmpty();
    };
    QVERIFY(noticed([](auto* work) { work->cells[{2, 2}].button = "Other"; }));
    QVERIFY(noticed([](auto* work) { work->cells[{2, 2}].button.reset(); }));
    QVERIFY(noticed([](auto* work) { work->cells[{2, 5}].button = "Strobe"; }));
    QVERIFY(noticed([](auto* work) { work->cells[{2, 2}].blink = true; }));
    QVERIFY(noticed([](auto* work) { work->cells[{2, 2}].on = "red"; }));
    QVERIFY(noticed([](auto* work) { work->cells[{2, 2}].off = "red"; }));
    QVERIFY(noticed([](auto* work) { work->switchCell = {2, 5}; }));
    QVERIFY(noticed([](auto* work) { work->switchCell = {-1, -1}; }));
    QVERIFY(noticed([](auto* work) { work->defaultOn = "black"; }));
    QVERIFY(noticed([](auto* work) { work->defaultOff = "black"; }));
    QVERIFY(noticed([](auto* work) { work->combined = false; }));
    QVERIFY(noticed([](auto* work) { work->factory["A"] = "play"; }));
    QVERIFY(noticed([](auto* work) { work->factory["LED_A"] = "play"; }));
    QVERIFY(noticed([](auto* work) { work->device.id = "OTHER"; }));
}

void SpoiltTest::noticesScriptsThatAreTooLong()
{
    const QString page = QString::fromUtf8(contents(folder + "/page.xml"));
    const QString longer = QString(page).replace("3 : cycle &apos;dmxbank&apos; -3",
                                                 "3 : cycle &apos;dmxbank&apos; -3" +
                                                     QStringLiteral(" &amp; nothing").repeated(260));
    QCOMPARE(complaints(longer, expectation("page")),
             QStringList("the parameter has a script that is too long for VirtualDJ"));
}

void SpoiltTest::cleanupTestCase()
{
    QTextStream(stdout) << m_spoilt << " spoilt files, " << m_judge.summary() << '\n';
}

QTEST_GUILESS_MAIN(SpoiltTest)
#include "tst_virtualdj_spoilt.moc"
