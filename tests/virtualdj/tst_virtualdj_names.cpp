#include "hands.h"
#include "judge.h"
#include "testfiles.h"
#include "testmain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTextDocument>
#include <QTextStream>
#include <QTextTable>
#include <QtTest>

#include <utility>

using VirtualDj::Place;

namespace {

const QString device = QStringLiteral("Akai APC Mini");
const QString plain = QStringLiteral("Plain");
const QString isRight = QStringLiteral("right");
const QString isWrong = QStringLiteral("wrong");
const QString silent = QStringLiteral("silent");
const QString broken = QStringLiteral("broken");
const QString whole = QStringLiteral("whole");

/// A row of the table of awkward names in docs/virtualdj.md.
struct Row
{
    QString sign; ///< the sign in words, as the manual has it
    QString name;
    QStringList cells; ///< what becomes of it: see `columns`
};

/// The columns of the table behind sign and name.
enum Column {
    PageSends,
    PageText,
    PageBanks,
    MappingSends,
    MappingLight,
    MappingFactory,
    NextFactory,
    ColumnCount
};

QString quoted(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2)).replace(QChar(0x200F), QLatin1String("\\u200f"));
}

/// The text of a table's cell that stands there as JSON, in back-quotes.
QString unquoted(QString cell)
{
    while (cell.startsWith('`') && cell.endsWith('`'))
        cell = cell.mid(1, cell.size() - 2).trimmed();
    QJsonParseError error;
    const QJsonArray array = QJsonDocument::fromJson(('[' + cell + ']').toUtf8(), &error).array();
    if (error.error != QJsonParseError::NoError)
        qFatal("This is no text in JSON: %s", qPrintable(cell));
    return array.at(0).toString();
}

/// The table in docs/virtualdj.md.
QList<Row> documented()
{
    QList<Row> rows;
    const QStringList lines =
        QString::fromUtf8(contents(QStringLiteral(DOCS_DIR "/virtualdj.md"))).split('\n');
    bool inside = false;
    for (const QString& line : lines) {
        QStringList cells = line.split('|');
        if (line.startsWith("| sign |"))
            inside = true;
        else if (!line.startsWith('|'))
            inside = false;
        else if (inside && !line.startsWith("| ---")) {
            for (QString& cell : cells)
                cell = cell.trimmed();
            if (cells.size() != ColumnCount + 4)
                qFatal("A row has other columns: %s", qPrintable(line));
            rows.append({cells.at(1), unquoted(cells.at(2)), cells.mid(3, ColumnCount)});
        }
    }
    return rows;
}

/// The table of the manual: what becomes of each sign on the pads page and on a controller, in words.
QMap<QString, QStringList> inmanual()
{
    QTextDocument manual;
    manual.setHtml(QString::fromUtf8(contents(QStringLiteral(DOCS_DIR "/manual/manual.html"))));
    QMap<QString, QStringList> rows;
    QList<QTextFrame*> frames = manual.rootFrame()->childFrames();
    for (QTextFrame* frame : std::as_const(frames)) {
        auto* table = qobject_cast<QTextTable*>(frame);
        const auto text = [table](int row, int column) {
            const QTextTableCell cell = table->cellAt(row, column);
            QTextCursor cursor = cell.firstCursorPosition();
            cursor.setPosition(cell.lastPosition(), QTextCursor::KeepAnchor);
            return cursor.selectedText().simplified();
        };
        if (!table || table->columns() != 3 || text(0, 0) != QLatin1String("The name holds"))
            continue;
        for (int row = 1; row < table->rows(); ++row)
            rows.insert(text(row, 0), {text(row, 1), text(row, 2)});
    }
    return rows;
}

/// \a name with a blank for every tab and line break.
QString blanked(QString name) { return name.replace('\t', ' ').replace('\n', ' '); }

/// How the manual tells that a pad with the name \a name sends \a sent; empty when it sends the name.
QString called(const QString& name, const QString& sent)
{
    if (sent == whole)
        return QString();
    if (sent == silent)
        return QStringLiteral("calls nothing");
    if (unquoted(sent) == blanked(name))
        return QStringLiteral("calls it with a blank in its place");
    return name.startsWith(unquoted(sent)) ? QStringLiteral("calls only the part before it")
                                           : QStringLiteral("calls another name");
}

/// How the manual tells that the pad shows \a text; empty when it shows its name.
QString shown(const QString& name, const QString& text)
{
    if (text == isRight)
        return QString();
    return unquoted(text) == blanked(name) ? QStringLiteral("shows it with a blank in its place")
                                           : QStringLiteral("shows a wrong text");
}

/// What the manual says of a row, on the pads page and on a controller.
QStringList inwords(const Row& row)
{
    const auto words = [](QStringList parts) {
        parts.removeAll(QString());
        return parts.isEmpty() ? QStringLiteral("works") : parts.join(QStringLiteral("; "));
    };
    const auto unless = [](const QString& cell, const char* text) {
        return cell == isRight ? QString() : QString(text);
    };
    const QStringList& cells = row.cells;
    return {
        cells.at(PageSends) == broken
            ? QStringLiteral("the whole page does not load")
            : words({called(row.name, cells.at(PageSends)),
                     cells.at(PageSends) == whole ? shown(row.name, cells.at(PageText)) : QString(),
                     unless(cells.at(PageBanks), "the pad is dead in later banks")}),
        cells.at(MappingSends) == broken
            ? QStringLiteral("the whole mapping does not load")
            : words({called(row.name, cells.at(MappingSends)),
                     unless(cells.at(MappingLight), "its light is wrong"),
                     unless(cells.at(MappingFactory), "what the pad did before is lost"),
                     cells.at(MappingFactory) == isRight
                         ? unless(cells.at(NextFactory), "what the pad did before is lost to the next export")
                         : QString()})};
}

} // namespace

/// What becomes of Live Button names that the files' languages use for themselves. They are written as they
/// stand; the table in docs/virtualdj.md records what reaches the light show, and the manual tells it.
class NamesTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void recordsWhatReachesTheLightShow();
    void manualTellsTheSame();
    void textsOfTheirOwnSaveAPage();
    void bankAndPageNamesBreakAPage_data();
    void bankAndPageNamesBreakAPage();
    void bankNamesAndTextsAreCut_data();
    void bankNamesAndTextsAreCut();
    void ownMappingsBreakTheExport_data();
    void ownMappingsBreakTheExport();
    void cleanupTestCase();

private:
    QString sent(const VirtualDj::Effects& effects);
    QString press(const QString& script, VirtualDj::World* world);
    void observepage(Hands* hands, Row* row);
    void observemapping(Hands* hands, Row* row, VirtualDj::FactoryActions* factory);

    QList<Row> m_documented;
    Os2l::LightShow m_show;
    Os2l::Sender m_sender{m_show.port()};
    int m_presses = 0;
};

namespace {

QList<Hands::LiveButton> buttonsof(const QList<Row>& rows)
{
    QList<Hands::LiveButton> buttons{{plain, "#00ff00"}};
    for (const Row& row : rows)
        buttons.append({row.name, "#ff0000"});
    return buttons;
}

VirtualDj::FactoryActions factoryactions(const VirtualDj::Device& of)
{
    VirtualDj::Deviations met;
    return VirtualDj::factoryof(
        VirtualDj::readmapping(contents(QStringLiteral(LAYOUTS_DIR "/") + device + " mapping.xml")), of,
        &met);
}

/// Whether \a script does in every state while OS2L is off what the factory's does.
bool keepsfactory(const QString& script, const QString& factory)
{
    const VirtualDj::Chain does = VirtualDj::parse(script).chain;
    const VirtualDj::Chain should = VirtualDj::parse(factory).chain;
    QMap<QString, QSet<int>> constants;
    VirtualDj::collectconstants(should, &constants);
    VirtualDj::States states(constants, {{QStringLiteral("$os2l"), 0}});
    bool same = true;
    do {
        states.restart();
        const VirtualDj::Effects did = VirtualDj::perform(does, &states);
        states.restart();
        same = same && did == VirtualDj::perform(should, &states);
    } while (states.next());
    return same;
}

/// Whether the light \a script is green while a button is active, yellow while it is not.
bool lights(const QString& script)
{
    const VirtualDj::Chain shows = VirtualDj::parse(script).chain;
    VirtualDj::States states({}, {{QStringLiteral("$os2l"), 1}});
    QSet<QRgb> colors;
    do
        colors.insert(VirtualDj::lightof(VirtualDj::ask(shows, &states)).color);
    while (states.next());
    return colors == QSet<QRgb>{qRgb(0, 255, 0), qRgb(255, 255, 0)};
}

} // namespace

void NamesTest::initTestCase()
{
    m_documented = documented();
    QVERIFY(m_documented.size() > 20);
}

void NamesTest::cleanupTestCase() { QTextStream(stdout) << m_presses << " presses of awkward names\n"; }

/// What the lighting program gets from a press and release: the name in JSON, "silent", or all of it.
QString NamesTest::sent(const VirtualDj::Effects& effects)
{
    ++m_presses;
    for (const bool on : {true, false}) {
        for (const VirtualDj::Effect& effect : effects) {
            if (effect.kind == VirtualDj::Effect::Kind::Os2lButton)
                m_sender.button(effect.name, on);
        }
    }
    QList<Os2l::Event> events;
    const qint64 bytes = m_sender.sent();
    if (bytes > 0 && !m_show.receive(bytes, &events))
        return isWrong;
    if (events.isEmpty())
        return silent;
    return events.size() == 2 && events.at(0).on && !events.at(1).on ? quoted(events.at(0).name) : isWrong;
}

QString NamesTest::press(const QString& script, VirtualDj::World* world)
{
    return sent(VirtualDj::perform(VirtualDj::parse(script).chain, world));
}

/// Puts the name on a pad of bank 1 and another Live Button on the same pad of bank 2.
void NamesTest::observepage(Hands* hands, Row* row)
{
    const VirtualDj::PadsPageFile file = VirtualDj::readpadspage(hands->exportpage());
    if (!file.error.isEmpty()) {
        row->cells = QStringList{broken, "-", "-"};
        return;
    }
    VirtualDj::Desk desk;
    const VirtualDj::PadsPageFile::Pad pad = file.pads.value(1);
    const QString sends = press(pad.action, &desk);
    const QString shows = VirtualDj::shownname(pad.name, &desk);
    desk.setvariable(QStringLiteral("dmxbank"), 1);
    const QString later = press(pad.action, &desk);
    row->cells =
        QStringList{sends == quoted(row->name) ? whole : sends, shows == row->name ? isRight : quoted(shows),
                    later == quoted(plain) ? isRight
                    : later == silent      ? silent
                                           : isWrong};
}

void NamesTest::observemapping(Hands* hands, Row* row, VirtualDj::FactoryActions* factory)
{
    const VirtualDj::MappingFile file = VirtualDj::readmapping(hands->exportmapping());
    if (!file.error.isEmpty()) {
        row->cells += QStringList{broken, "-", "-"};
        return;
    }
    const QString control = QStringLiteral("ROW1_PAD1");
    VirtualDj::Desk desk;
    desk.setvariable(QStringLiteral("$os2l"), 1);
    const QString action = file.actions.value(control);
    const QString sends = press(action, &desk);
    row->cells += QStringList{sends == quoted(row->name) ? whole : sends,
                              lights(file.actions.value("LED_" + control)) ? isRight : isWrong,
                              keepsfactory(action, factory->value(control)) ? isRight : isWrong};
}

void NamesTest::recordsWhatReachesTheLightShow()
{
    const TestHome home;
    home.makepadsfolder();
    home.makefolder("Documents/VirtualDJ/Mappers");
    QList<Row> observed;
    QStringList mappings;
    VirtualDj::FactoryActions factory;
    {
        Hands hands(home, buttonsof(m_documented));
        for (const Row& row : std::as_const(m_documented)) {
            observed.append({row.sign, row.name, {}});
            const int button = static_cast<int>(observed.size());
            hands.cleanpads();
            hands.droponpad(button, 0, 0);
            hands.droponpad(0, 1, 0);
            observepage(&hands, &observed.last());
        }
        hands.turntomidi();
        hands.choosedevice(device);
        factory = factoryactions(hands.midi.device);
        hands.choosemapping(device + " mapping (factory)", factory);
        hands.choosedefaults(3, 1);
        for (int row = 0; row < observed.size(); ++row) {
            hands.droponcell(row + 1, {2, 2});
            hands.namepage(QStringLiteral("Row %1").arg(row));
            observemapping(&hands, &observed[row], &factory);
            mappings.append(hands.mappingname());
        }
    }
    Hands hands(home, buttonsof({}));
    hands.turntomidi();
    hands.choosedevice(device);
    hands.droponcell(0, {2, 2});
    for (int row = 0; row < observed.size(); ++row) {
        if (observed.at(row).cells.at(MappingSends) == broken) {
            observed[row].cells.append("-");
            continue;
        }
        hands.choosemapping(mappings.at(row), factory);
        hands.namepage(QStringLiteral("Again %1").arg(row));
        const VirtualDj::MappingFile file = VirtualDj::readmapping(hands.exportmapping());
        const QString control = QStringLiteral("ROW1_PAD1");
        observed[row].cells.append(
            keepsfactory(file.actions.value(control), factory.value(control)) ? isRight : isWrong);
    }
    QStringList differing;
    for (int row = 0; row < observed.size(); ++row) {
        const Row& seen = observed.at(row);
        if (seen.cells != m_documented.at(row).cells)
            differing.append("| " + seen.sign + " | ``" + quoted(seen.name) + "`` | " +
                             seen.cells.join(" | ") + " |");
    }
    if (!differing.isEmpty())
        QTextStream(stdout) << "What was seen:\n" << differing.join('\n') << '\n';
    QVERIFY2(differing.isEmpty(), "docs/virtualdj.md tells otherwise");
}

void NamesTest::manualTellsTheSame()
{
    QMap<QString, QStringList> words;
    for (const Row& row : std::as_const(m_documented)) {
        const QStringList told = inwords(row);
        QVERIFY2(words.value(row.sign, told) == told, qPrintable(row.sign + " has rows that differ"));
        words.insert(row.sign, told);
    }
    const QMap<QString, QStringList> manual = inmanual();
    for (auto row = words.cbegin(); row != words.cend(); ++row) {
        QVERIFY2(manual.value(row.key()) == row.value(),
                 qPrintable("The manual should tell: " + row.key() + " | " + row.value().join(" | ") +
                            "\nand tells: " + manual.value(row.key()).join(" | ")));
    }
    QCOMPARE(manual.size(), words.size());
}

void NamesTest::textsOfTheirOwnSaveAPage()
{
    const TestHome home;
    home.makepadsfolder();
    Hands hands(home, {{"Say \"Hi\"", "#ff0000"}, {"Tunnel & Fog", "#ff0000"}});
    hands.droponpad(0, 0, 0);
    hands.editpad(0, 0, "HI");
    VirtualDj::Judge judge;
    judge.page(hands.exportpage(), hands.page);
    QCOMPARE(judge.complaints, QStringList());
    // An ampersand is in the action all the same.
    hands.droponpad(1, 0, 0);
    hands.editpad(0, 0, "TUNNEL");
    QVERIFY(!VirtualDj::readpadspage(hands.exportpage()).error.isEmpty());
}

void NamesTest::bankAndPageNamesBreakAPage_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("breaks");
    QTest::newRow("quote") << "a\"b" << true;
    QTest::newRow("ampersand") << "a & b" << true;
    QTest::newRow("less than") << "a<b" << true;
    QTest::newRow("greater than") << "a>b" << false;
    QTest::newRow("letters") << QString::fromUtf8("夜 ß 🎉 אור") << false;
}

void NamesTest::bankAndPageNamesBreakAPage()
{
    QFETCH(QString, name);
    QFETCH(bool, breaks);
    const TestHome home;
    home.makepadsfolder();
    Hands hands(home, {{plain, "#ff0000"}});
    hands.droponpad(0, 0, 0);
    hands.namepage(name);
    QCOMPARE(!VirtualDj::readpadspage(hands.exportpage()).error.isEmpty(), breaks);
    hands.namepage("Page");
    hands.namebank(0, name);
    QCOMPARE(!VirtualDj::readpadspage(hands.exportpage()).error.isEmpty(), breaks);
}

void NamesTest::bankNamesAndTextsAreCut_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shows");
    QTest::addColumn<QString>("later"); // what the next bank shows, whose own name is "Second"
    const QString script = "b' : var 'dmxbank' 1 ? get_text 'Second'";
    QTest::newRow("one apostrophe") << "Fir'st"
                                    << "Fir"
                                    << "";
    QTest::newRow("two apostrophes") << "Rock 'n' Roll"
                                     << "Rock "
                                     << "Second";
    QTest::newRow("back-quote") << "a`b"
                                << "a" + script << script;
    QTest::newRow("curly apostrophe") << "Fir’st"
                                      << "Fir’st"
                                      << "Second";
}

/// The name of a bank and the text of a pad stand in scripts of the same kind.
void NamesTest::bankNamesAndTextsAreCut()
{
    QFETCH(QString, name);
    QFETCH(QString, shows);
    QFETCH(QString, later);
    const TestHome home;
    home.makepadsfolder();
    Hands hands(home, {{plain, "#ff0000"}});
    const QStringList names{name, "Second"};
    for (int bank = 0; bank < names.size(); ++bank) {
        hands.droponpad(0, bank, 0);
        hands.editpad(bank, 0, names.at(bank));
        hands.namebank(bank, names.at(bank));
    }
    const VirtualDj::PadsPageFile file = VirtualDj::readpadspage(hands.exportpage());
    QCOMPARE(file.error, QString());
    VirtualDj::Desk desk;
    for (const QString& expected : {shows, later}) {
        QCOMPARE(VirtualDj::shownname(file.parameters.value(1).name, &desk), expected);
        QCOMPARE(VirtualDj::shownname(file.pads.value(1).name, &desk), expected);
        QCOMPARE(press(file.pads.value(1).action, &desk), quoted(plain));
        desk.setvariable(QStringLiteral("dmxbank"), 1);
    }
}

void NamesTest::ownMappingsBreakTheExport_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<bool>("breaks");
    QTest::newRow("ampersand between blanks") << "play &amp; sync" << false;
    QTest::newRow("ampersand without blanks") << "play&amp;sync" << true;
    QTest::newRow("two ampersands") << "play &amp;&amp; sync ? stop : cue" << true;
    QTest::newRow("less than") << "get_bpm &lt; 120" << true;
    QTest::newRow("quotes") << "browser_window &quot;songs&quot;" << false;
}

void NamesTest::ownMappingsBreakTheExport()
{
    QFETCH(QString, action);
    QFETCH(bool, breaks);
    const TestHome home;
    writefile(home.makefolder("Documents/VirtualDJ/Mappers") + "/mine.xml",
              ("<mapper device=\"APCMINI\"><map value=\"ROW1_PAD2\" action=\"" + action + "\"/></mapper>")
                  .toUtf8());
    Hands hands(home, {{plain, "#ff0000"}});
    hands.turntomidi();
    hands.choosedevice(device);
    hands.droponcell(0, {2, 2});
    hands.choosemapping("mine", {});
    QCOMPARE(!VirtualDj::readmapping(hands.exportmapping()).error.isEmpty(), breaks);
}

LUMIPAD_TEST_MAIN(NamesTest)
#include "tst_virtualdj_names.moc"
