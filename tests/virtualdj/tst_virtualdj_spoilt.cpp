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

/// Whether \a script, or the rest of one, does and shows nothing wherever it leads.
bool isidle(const QString& script)
{
    static const QRegularExpression idle(QStringLiteral(
        "^\\s*(nothing|off|color &apos;(black|transparent)&apos;|get_text &apos;&apos;)?\\s*`?$"));
    return idle.match(script).hasMatch();
}

/// The ways in which \a piece, one word, sign or quotation of a script as it stands in a file, is spoilt, so
/// that it must show. \a before and \a after are the rest of the script.
QStringList spoiltpieces(const QString& before, const QString& piece, const QString& after)
{
    // What is asked is on or off itself.
    if (piece == QLatin1String("?") && after == QLatin1String(" on : off"))
        return {};
    if (piece == QLatin1String("?"))
        return {QString(), QStringLiteral(":"), QStringLiteral("&amp;")};
    // In front of a last branch that is idle it makes no difference.
    if (piece == QLatin1String(":"))
        return isidle(after) ? QStringList()
                             : QStringList{QString(), QStringLiteral("?"), QStringLiteral("&amp;")};
    if (piece == QLatin1String("&amp;"))
        return {QStringLiteral(":"), QStringLiteral("?"), QStringLiteral("&")};
    // An unclosed back-quote runs to the end all the same.
    if (piece == QLatin1String("`"))
        return before.isEmpty() ? QStringList{QString(), QStringLiteral("``")} : QStringList();
    if (piece.startsWith(QLatin1String("&apos;"))) {
        const QString inner = piece.mid(6, piece.size() - 12);
        if (before.endsWith(QLatin1String("color ")) || before.endsWith(QLatin1String("% ")))
            return {QStringLiteral("&apos;cyan&apos;"), QStringLiteral("&apos;#010203&apos;")};
        QStringList all{"&apos;" + inner + "x&apos;", "&apos; " + inner + "&apos;", "&apos;<&apos;"};
        // An unclosed quotation runs to the end all the same.
        if (!after.trimmed().isEmpty() && after != QLatin1String("`"))
            all.append("&apos;" + inner);
        return all;
    }
    static const QRegularExpression number(QStringLiteral("^([+-]?)(\\d+)(.*)$"));
    const QRegularExpressionMatch match = number.match(piece);
    if (match.hasMatch())
        return {match.captured(1) + QString::number(match.captured(2).toInt() + 1) + match.captured(3)};
    return {piece + QLatin1Char('x')};
}

/// Whether \a piece is what a branch does or shows, and no part of the choice that leads there.
bool isvalue(const QString& before, const QString& piece)
{
    static const QRegularExpression verb(
        QStringLiteral("(color|get_text|os2l_button|toggle|set|os2l_cmd) $"));
    return piece == QLatin1String("nothing") || verb.match(before).hasMatch();
}

/// \a line with every piece of its scripts spoilt in every way, one after the other. \a scripts are the
/// beginnings and lengths of the scripts in the line. Of a line with \a idle branches only the values are
/// spoilt: whichever way leads to nothing, nothing comes of it.
QList<Spoilt> spoiltlines(const QString& line, const QList<QPair<int, int>>& scripts, bool idle)
{
    static const QRegularExpression pieces(QStringLiteral("&apos;.*?&apos;|&amp;|[?:`]|[^\\s?:`&]+"));
    QList<Spoilt> all;
    for (const auto& place : scripts) {
        const QString script = line.mid(place.first, place.second);
        auto matches = pieces.globalMatch(script);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            const QString before = script.left(match.capturedStart());
            if (idle && !isvalue(before, match.captured()))
                continue;
            const QStringList spoilt =
                spoiltpieces(before, match.captured(), script.mid(match.capturedEnd()));
            for (const QString& other : spoilt) {
                QString text = line;
                text.replace(place.first + match.capturedStart(), match.capturedLength(), other);
                all.append({line.trimmed().left(24) + ": " + before + " " + match.captured() + " -> " + other,
                            text});
            }
        }
    }
    return all;
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

/// Whether all that a line leads to, or in a pads page some of it, is nothing.
bool hasidlebranches(const QString& line)
{
    static const QRegularExpression names(
        QStringLiteral("<pad[2-8] |value=\"(E|LED_E|P4|LED_P4|LED_F|LED_G|GLOW_K2)\""));
    return names.match(line).hasMatch();
}

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
             with(QString(text).remove(QRegularExpression(QStringLiteral("/>|</\\w+>$"))))}};
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
    QTest::addColumn<bool>("page");
    QTest::newRow("page") << true;
    QTest::newRow("combined") << false;
    QTest::newRow("os2l-only") << false;
    QTest::newRow("rgb-switch-button") << false;
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
        const QList<Spoilt> spoiltline =
            spoiltlines(lines.at(line), scriptsof(lines.at(line)), hasidlebranches(lines.at(line)));
        for (const Spoilt& spoilt : spoiltline) {
            QStringList others = lines;
            others[line] = spoilt.text;
            all.append({spoilt.how, others.join('\n')});
        }
    }
    QStringList unnoticed;
    for (const Spoilt& spoilt : std::as_const(all)) {
        if (complaints(spoilt.text, expected).isEmpty())
            unnoticed.append(spoilt.how);
    }
    m_spoilt += all.size();
    QVERIFY(all.size() > 200);
    QVERIFY2(unnoticed.isEmpty(), qPrintable(unnoticed.join('\n')));
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
