#include "bounds.h"
#include "project.h"

#include "itemroles.h"
#include "toolkit.h"

#include <QColor>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QStandardItemModel>
#include <QStringList>
#include <QTest>

using namespace project;

namespace {

const char* const showPath = "/home/dj/LightShows/Friday/Live/live.ini";

QByteArray golden(const char* name)
{
    QFile file(QStringLiteral(TEST_DATA_DIR "/golden/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("A golden file is missing");
    return file.readAll();
}

/// Sets the values that a Live Button gives to its pad.
void place(PadCell* cell, const char* id, const char* page, const char* name, const char* color)
{
    cell->id = id;
    cell->pageNr = page;
    cell->name = name;
    cell->dspName = name;
    cell->color = color;
}

/// The 128 empty pads of the pads page; the pad in \a column of \a row is cell 2 * row + column.
PadCells emptypads()
{
    PadCells cells;
    for (int row = 0; row < 64; ++row) {
        for (int column = 0; column < 2; ++column) {
            const QString name = QStringLiteral("PAD %1").arg(row % 8 + 1 + 8 * column);
            cells.append({row, column, name, name, "0", "-1", "#000000"});
        }
    }
    return cells;
}

Head headof(const QString& exportName)
{
    Head head;
    head.show = showPath;
    head.showName = "Friday";
    head.exportName = exportName;
    return head;
}

Project eightpads()
{
    PadCells cells = emptypads();
    place(&cells[0], "0", "1", "Strobe", "#ff0000");
    cells[0].name = "STROBE";
    place(&cells[2 * 17], "1", "1", "Blackout", "#000000");
    place(&cells[2 * 5 + 1], "3", "2", "Circle", "#0000ff");
    Head head = headof("OS2L DMX");
    head.pads = {false, {"BANK 1", "BANK 2", "Drop", "BANK 4", "BANK 5", "BANK 6", "BANK 7", "BANK 8"}};
    return {{head}, cells};
}

Project sixteenpads()
{
    PadCells cells = emptypads();
    place(&cells[2 * 15 + 1], "4", "2", "Ballyhoo", "#ffff00");
    cells[2 * 15 + 1].name = QStringLiteral(u"Let's go > \u00e9t\u00e9 \u263a");
    place(&cells[2 * 63], "2", "1", "Slow Fade", "#00ff00");
    place(&cells[2 * 63 + 1], "2", "1", "Slow Fade", "#00ff00");
    place(&cells[1], "0", "1", "Strobe", "#ff0000");
    Head head = headof("Club night");
    head.pads = {
        true,
        {"Intro", "", "Peak > time", "Chill's", "BANK 5", "BANK 6", "BANK 7", QStringLiteral(u"Fin\u00e9")}};
    return {{head}, cells};
}

/// The label of a cell of the controller grid.
QString label(int row, int column)
{
    const auto spacer = [](int line) { return line == 1 || line == 10; };
    const bool corner = (row == 0 || row == 11) && (column == 0 || column == 11);
    if (spacer(row) || spacer(column) || corner)
        return QString();
    if (row == 0)
        return QStringLiteral("TOP %1").arg(column - 1);
    if (row == 11)
        return QStringLiteral("BOTTOM %1").arg(column - 1);
    if (column == 0)
        return QStringLiteral("LEFT %1").arg(row - 1);
    if (column == 11)
        return QStringLiteral("RIGHT %1").arg(row - 1);
    return QStringLiteral("PAD %1").arg(8 * (row - 2) + column - 1);
}

Project midi()
{
    ControllerCells cells;
    for (int row = 0; row < 12; ++row) {
        for (int column = 0; column < 12; ++column) {
            // The controller has pads, and buttons on the right and at the bottom.
            const auto between = [](int line) { return line >= 2 && line <= 9; };
            const bool usable =
                (between(row) && (between(column) || column == 11)) || (row == 11 && between(column));
            const QString name = label(row, column);
            cells.append({{row, column, name, name, "0", "-1", "#000000"}, usable ? "1" : "0", "", "", "0"});
        }
    }
    const auto at = [&cells](int row, int column) { return &cells[12 * row + column]; };
    place(at(2, 2), "0", "1", "Strobe", "#ff0000");
    at(2, 2)->colorOff = "green";
    at(2, 2)->colorOn = "red";
    at(2, 2)->blink = "1";
    at(11, 2)->name = "SWITCH";
    at(11, 2)->dspName = "SWITCH";
    at(11, 2)->avail = "0";
    place(at(9, 9), "3", "2", "Circle", "#0000ff");
    at(9, 9)->blink = "";
    place(at(2, 11), "2", "1", "Slow Fade", "#00ff00");
    at(2, 11)->colorOn = "#aa00ff";
    at(2, 11)->blink = "";
    place(at(11, 5), "4", "2", "Ballyhoo", "#ffff00");
    at(11, 5)->colorOff = "yellow";
    at(11, 5)->blink = "1";
    Head head = headof("Club night");
    head.controller = {"APCMINI", {11, 2}, 0, 2};
    return {{head}, cells};
}

QString numbertext(const std::optional<int>& number)
{
    return number ? QString::number(*number) : QString("none");
}

/// Everything that \a head says, to be compared.
QStringList valuesof(const Head& head)
{
    const ControllerSettings& controller = head.controller;
    return QStringList{head.show,
                       head.showName,
                       head.exportName,
                       head.pads.sixteenPads ? "16" : "8",
                       controller.device,
                       QString::number(controller.switchPad.row),
                       QString::number(controller.switchPad.column),
                       numbertext(controller.offColor),
                       numbertext(controller.onColor)} +
           head.pads.banks;
}

QStringList valuesof(const PadCell& cell)
{
    return {QString::number(cell.row),
            QString::number(cell.column),
            cell.name,
            cell.dspName,
            cell.pageNr,
            cell.id,
            cell.color};
}

QStringList valuesof(const ControllerCell& cell)
{
    return valuesof(static_cast<const PadCell&>(cell)) +
           QStringList{cell.avail, cell.colorOff, cell.colorOn, cell.blink};
}

template<class Value>
QList<QStringList> allvalues(const QList<Value>& values)
{
    QList<QStringList> all;
    for (const Value& value : values)
        all.append(valuesof(value));
    return all;
}

QList<QStringList> headsof(const Project& project) { return allvalues(project.heads); }

QList<QStringList> cellsof(const Project& project)
{
    return std::visit([](const auto& cells) { return allvalues(cells); }, project.cells);
}

/// Reads \a text and fails when that takes longer than a user would wait.
Project readsoon(const QByteArray& text)
{
    QElapsedTimer timer;
    timer.start();
    Project project = readproject(text);
    if (timer.elapsed() > 30000)
        QTest::qFail("Reading took too long", __FILE__, __LINE__);
    return project;
}

/// Text of 0 to \a length characters, none of which ends an attribute.
QString generated(QRandomGenerator* random, int length)
{
    static const QString letters =
        QStringLiteral(u"abcXYZ0189 _-,;:'>/\\()[]{}%1%n#=+*?!\u00e9\u00df\u263a\u4e2d");
    QString text;
    for (int n = random->bounded(length + 1); n > 0; --n)
        text += letters.at(random->bounded(letters.size()));
    return text;
}

} // namespace

Q_DECLARE_METATYPE(project::Project)

class ProjectTest : public QObject
{
    Q_OBJECT

private slots:
    void writesTheWholeFile_data();
    void writesTheWholeFile();
    void readsTheWholeFile_data();
    void readsTheWholeFile();
    void writesMissingValuesEmpty();
    void writesNoAttributeOfTheOtherKind();
    void writesValuesAsTheyStand();
    void readsBackWhatItWrote();
    void takesTheKindOfTheLastProject();
    void readsNumbers_data();
    void readsNumbers();
    void aPlaceThatIsNoNumberIsTheFirst();
    void takesCellsFromAGridAndPutsThemBack();
    void readsElementsOfAnyFile_data();
    void readsElementsOfAnyFile();
    void decodesEntities();
    void readsOddFilesInBoundedTime_data();
    void readsOddFilesInBoundedTime();
    void readsEveryTruncation();
};

void ProjectTest::writesTheWholeFile_data()
{
    QTest::addColumn<Project>("project");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("8 pads") << eightpads() << golden("pads-eight.os2l");
    QTest::newRow("16 pads") << sixteenpads() << golden("pads-sixteen.os2l");
    QTest::newRow("MIDI") << midi() << golden("midi.os2l");
}

void ProjectTest::writesTheWholeFile()
{
    QFETCH(Project, project);
    QFETCH(QByteArray, text);
    const QList<QByteArray> written = projectxml(project).toUtf8().split('\n');
    const QList<QByteArray> expected = text.split('\n');
    for (int line = 0; line < qMin(written.size(), expected.size()); ++line)
        QCOMPARE(written.at(line), expected.at(line));
    QCOMPARE(written.size(), expected.size());
}

void ProjectTest::readsTheWholeFile_data() { writesTheWholeFile_data(); }

void ProjectTest::readsTheWholeFile()
{
    QFETCH(Project, project);
    QFETCH(QByteArray, text);
    const Project read = readproject(text);
    QCOMPARE(read.ismidi(), project.ismidi());
    // What the other kind holds stays as a project starts.
    QCOMPARE(headsof(read), headsof(project));
    QCOMPARE(cellsof(read), cellsof(project));
    // A program that writes text files its own way may have touched the line ends.
    QCOMPARE(cellsof(readproject(text.replace("\n", "\r\n"))), cellsof(project));
}

void ProjectTest::writesMissingValuesEmpty()
{
    QCOMPARE(projectxml({}), QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                     "<project type=\"pads\" show=\"\" showname=\"\" export=\"\" "
                                     "layout=\"0\" banks=\"\" >\n"
                                     "</project>\n"));
    QCOMPARE(projectxml({{}, ControllerCells{ControllerCell()}}),
             QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                     "<project deviceid=\"\" type=\"midi\" show=\"\" showname=\"\" switch=\"-1,-1\" "
                     "offcolor=\"-1\" oncolor=\"-1\" export=\"\" >\n"
                     "\t<key row=\"0\" column=\"0\" name=\"\" dspname=\"\" pagenr=\"\" id=\"\" avail=\"\" "
                     "coloroff=\"\" coloron=\"\" blink=\"\" color=\"\" />\n"
                     "</project>\n"));
}

void ProjectTest::writesNoAttributeOfTheOtherKind()
{
    Head both = eightpads().heads.constFirst();
    both.controller = midi().heads.constFirst().controller;
    const QString pads = projectxml({{both}, eightpads().cells});
    for (const char* name : {" deviceid=", " switch=", " offcolor=", " avail=", " coloron=", " blink="})
        QVERIFY2(!pads.contains(QLatin1String(name)), name);
    const QString controller = projectxml({{both}, midi().cells});
    for (const char* name : {" layout=", " banks="})
        QVERIFY2(!controller.contains(QLatin1String(name)), name);
}

void ProjectTest::writesValuesAsTheyStand()
{
    Project project = eightpads();
    std::get<PadCells>(project.cells)[0].name = "a \"b\" & <c> %1 %2";
    QVERIFY(projectxml(project).contains(
        "\t<key row=\"0\" column=\"0\" name=\"a \"b\" & <c> %1 %2\" dspname=\"Strobe\" "));
    project.heads[0].pads.banks = QStringList{"A", "B", "", "C \\n", "%1"};
    QVERIFY(projectxml(project).contains(" banks=\"A,B,,C \\n,%1\" >\n"));
}

void ProjectTest::readsBackWhatItWrote()
{
    QRandomGenerator random(20201121);
    const auto fill = [&random](QString* text) { *text = generated(&random, 12); };
    const auto fillcell = [&fill](PadCell* cell) {
        for (QString* text : {&cell->name, &cell->dspName, &cell->pageNr, &cell->id, &cell->color})
            fill(text);
    };
    for (int round = 0; round < 60; ++round) {
        Project project = round % 2 == 0 ? sixteenpads() : midi();
        Head& head = project.heads[0];
        head.show = generated(&random, 40);
        head.showName = generated(&random, 40);
        head.exportName = generated(&random, 40);
        if (project.ismidi()) {
            head.controller = {generated(&random, 40),
                               {random.bounded(-1, 12), random.bounded(-1, 12)},
                               random.bounded(-1, 100),
                               random.bounded(-1, 100)};
            for (ControllerCell& cell : std::get<ControllerCells>(project.cells)) {
                fillcell(&cell);
                for (QString* text : {&cell.avail, &cell.colorOff, &cell.colorOn, &cell.blink})
                    fill(text);
            }
        } else {
            // A comma in a name parts it in two.
            for (QString& bank : head.pads.banks)
                bank = generated(&random, 12).remove(',');
            for (PadCell& cell : std::get<PadCells>(project.cells))
                fillcell(&cell);
        }
        const QString text = projectxml(project);
        const Project read = readproject(text.toUtf8());
        QCOMPARE(headsof(read), headsof(project));
        QCOMPARE(cellsof(read), cellsof(project));
        QCOMPARE(projectxml(read), text);
    }
}

void ProjectTest::takesTheKindOfTheLastProject()
{
    const QByteArray pads = "<project type=\"pads\" layout=\"1\" deviceid=\"A\" switch=\"3,4\"/>";
    const QByteArray controller = "<project type=\"midi\" banks=\"X,Y\" layout=\"1\"/>";
    const QByteArray key = "<key row=\"1\" column=\"2\" avail=\"1\"/>";
    const Project first = readproject("<all>" + controller + key + pads + "</all>");
    QVERIFY(!first.ismidi());
    // Each element counts with all its attributes, whatever its kind.
    QCOMPARE(first.heads.size(), 2);
    QCOMPARE(first.heads.at(0).pads.banks, QStringList({"X", "Y"}));
    QVERIFY(first.heads.at(0).pads.sixteenPads);
    QCOMPARE(first.heads.at(1).controller.device, QString("A"));
    QCOMPARE(first.heads.at(1).controller.switchPad.row, 3);
    QCOMPARE(first.heads.at(1).controller.switchPad.column, 4);
    QVERIFY(readproject("<all>" + pads + key + controller + "</all>").ismidi());
    QVERIFY(!readproject("<all>" + key + "</all>").ismidi());
    QVERIFY(!readproject("<project type=\"MIDI\"/>").ismidi());
}

void ProjectTest::readsNumbers_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("numbers"); // row and column of the switch, off and on colour
    QTest::newRow("missing") << QByteArray() << "-1 -1 none none";
    QTest::newRow("empty") << QByteArray("switch=\"\" offcolor=\"\" oncolor=\"\"") << "-1 -1 none none";
    QTest::newRow("numbers") << QByteArray("switch=\"2,11\" offcolor=\"3\" oncolor=\"0\"") << "2 11 3 0";
    QTest::newRow("negative") << QByteArray("switch=\"-1,-1\" offcolor=\"-1\" oncolor=\"-2\"")
                              << "-1 -1 -1 -2";
    QTest::newRow("no numbers") << QByteArray("switch=\"a,b\" offcolor=\"red\" oncolor=\"1.5\"") << "0 0 0 0";
    QTest::newRow("one part") << QByteArray("switch=\"5\" offcolor=\" 4 \" oncolor=\"+2\"") << "-1 -1 4 2";
    QTest::newRow("three parts") << QByteArray("switch=\"5,6,7\" offcolor=\"99999999999\" oncolor=\"0x3\"")
                                 << "5 6 0 0";
}

void ProjectTest::readsNumbers()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, numbers);
    const ControllerSettings read = readproject("<project " + attributes + "/>").heads.value(0).controller;
    QCOMPARE(QStringList({QString::number(read.switchPad.row), QString::number(read.switchPad.column),
                          numbertext(read.offColor), numbertext(read.onColor)})
                 .join(' '),
             numbers);
}

void ProjectTest::aPlaceThatIsNoNumberIsTheFirst()
{
    const Project read =
        readproject("<p><key/><key row=\"x\" column=\"\"/><key row=\"-3\" column=\"70\"/></p>");
    const auto cells = std::get<PadCells>(read.cells);
    QCOMPARE(cells.size(), 3);
    QCOMPARE(cells.at(0).row, 0);
    QCOMPARE(cells.at(0).column, 0);
    QCOMPARE(cells.at(1).row, 0);
    QCOMPARE(cells.at(1).column, 0);
    QCOMPARE(cells.at(2).row, -3);
    QCOMPARE(cells.at(2).column, 70);
    // What should be a number inside the grid stays the text that it is.
    QCOMPARE(cells.at(0).id, QString(""));
    QCOMPARE(cells.at(0).pageNr, QString(""));
}

void ProjectTest::takesCellsFromAGridAndPutsThemBack()
{
    QStandardItemModel grid(2, 2);
    const auto set = [&grid](int row, int column, int role, const QVariant& value) {
        grid.setData(grid.index(row, column), value, role);
    };
    set(0, 1, Qt::EditRole, "STROBE");
    set(0, 1, ItemRole::DspName, "Strobe");
    set(0, 1, ItemRole::Page, "3");
    set(0, 1, ItemRole::Id, "17");
    set(0, 1, ItemRole::Avail, "1");
    set(0, 1, ItemRole::ColorOff, "green");
    set(0, 1, ItemRole::ColorOn, "#AA00ff");
    set(0, 1, ItemRole::Blink, "1");
    set(0, 1, Qt::DecorationRole, QColor(0xFF, 0, 0x10));
    const QStringList pad{"0", "1", "STROBE", "Strobe", "3", "17", "#ff0010"};
    const PadCells pads = padcells(grid);
    QCOMPARE(pads.size(), 4);
    QCOMPARE(valuesof(pads.at(1)), pad);
    QCOMPARE(pads.at(2).row, 1);
    QCOMPARE(pads.at(2).column, 0);
    const ControllerCells cells = controllercells(grid);
    QCOMPARE(valuesof(cells.at(1)), pad + QStringList({"1", "green", "#AA00ff", "1"}));

    QStandardItemModel other(2, 2);
    for (const ControllerCell& cell : cells)
        putcell(&other, cell);
    const QModelIndex strobe = other.index(0, 1);
    QCOMPARE(strobe.data(Qt::EditRole).toString(), QString("STROBE"));
    QCOMPARE(strobe.data(ItemRole::Id).toString(), QString("17"));
    QCOMPARE(strobe.data(ItemRole::Blink).toString(), QString("1"));
    QCOMPARE(strobe.data(Qt::DecorationRole).toString(), QString("#ff0010"));
    // A pad of the pads page says nothing of what only controllers have.
    putcell(&other, PadCell{0, 1, "A", "B", "1", "2", "#010203"});
    QCOMPARE(strobe.data(Qt::EditRole).toString(), QString("A"));
    QCOMPARE(strobe.data(ItemRole::Blink).toString(), QString("1"));
    // Outside the grid nothing changes.
    putcell(&other, PadCell{2, 0, "A", "B", "1", "2", "#010203"});
    putcell(&other, PadCell{-1, -1, "A", "B", "1", "2", "#010203"});
    QCOMPARE(other.rowCount(), 2);
    QCOMPARE(other.index(1, 0).data(Qt::EditRole).toString(), QString());
}

void ProjectTest::readsElementsOfAnyFile_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("shows");
    QTest::addColumn<QStringList>("ids");
    const QByteArray begin = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    const QByteArray open = "<project show=\"A\" >";
    const QByteArray first = "<key id=\"1\" />";
    const QByteArray second = "<key id=\"2\" />";
    const QByteArray close = "</project>";
    using L = QStringList;
    QTest::newRow("nothing") << QByteArray() << L() << L();
    QTest::newRow("no XML") << QByteArray("not ours") << L() << L();
    QTest::newRow("no elements") << begin << L() << L();
    QTest::newRow("another program's") << begin + "<page><pad/></page>" << L() << L();
    QTest::newRow("whole") << begin + open + first + second + close << L{"A"} << L{"1", "2"};
    QTest::newRow("without a head line") << open + first + close << L{"A"} << L{"1"};
    QTest::newRow("cut short") << begin + open + first + second << L{"A"} << L{"1", "2"};
    QTest::newRow("cut inside an element") << begin + open + first + "<key id=\"2\" na" << L{"A"} << L{"1"};
    QTest::newRow("a quote in a name")
        << begin + open + first + "<key id=\"2\" name=\"a \"b\" c\" />" + second + close << L{"A"} << L{"1"};
    QTest::newRow("an ampersand in a name")
        << begin + open + first + "<key id=\"2\" name=\"a & b\" />" + second + close << L{"A"} << L{"1"};
    QTest::newRow("a less-than sign in a name")
        << begin + open + first + "<key id=\"2\" name=\"a < b\" />" + second + close << L{"A"} << L{"1"};
    QTest::newRow("two roots keep the first")
        << begin + open + first + close + "<project show=\"B\" >" + second + close << L{"A"} << L{"1"};
    QTest::newRow("two projects in one root")
        << begin + "<all>" + open + first + close + "<project show=\"B\" >" + second + close + "</all>"
        << L{"A", "B"} << L{"1", "2"};
    QTest::newRow("a project in a project")
        << begin + open + "<project show=\"B\" >" + first + close + second + close << L{"A", "B"}
        << L{"1", "2"};
    QTest::newRow("no project") << begin + "<keys>" + first + second + "</keys>" << L() << L{"1", "2"};
    QTest::newRow("a key alone") << begin + first << L() << L{"1"};
    QTest::newRow("keys at any depth")
        << begin + open + "<x><y>" + first + "</y></x>" + second + close << L{"A"} << L{"1", "2"};
    QTest::newRow("empty attributes")
        << begin + "<project show=\"\" ><key id=\"\" /></project>" << L{""} << L{""};
    QTest::newRow("no attributes") << begin + "<project><key/></project>" << L{""} << L{""};
    QTest::newRow("other case") << begin + "<Project show=\"A\"><KEY id=\"1\"/></Project>" << L() << L();
    QTest::newRow("comments") << begin + open + "<!-- " + first + " -->" + second + close << L{"A"} << L{"2"};
    QTest::newRow("zero bytes") << QByteArray(1000, '\0') << L() << L();
}

void ProjectTest::readsElementsOfAnyFile()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, shows);
    QFETCH(QStringList, ids);
    const Project read = readproject(text);
    QStringList readshows;
    for (const Head& head : read.heads)
        readshows.append(head.show);
    QStringList readids;
    for (const PadCell& cell : std::get<PadCells>(read.cells))
        readids.append(cell.id);
    QCOMPARE(readshows, shows);
    QCOMPARE(readids, ids);
}

void ProjectTest::decodesEntities()
{
    const Project read = readproject("<project showname=\"R&amp;B &quot;live&quot;\" >"
                                     "<key name=\"&lt;b&gt; &#233;&#x263A; it&apos;s\" /></project>");
    QCOMPARE(read.heads.value(0).showName, QString("R&B \"live\""));
    QCOMPARE(std::get<PadCells>(read.cells).value(0).name, QStringLiteral(u"<b> \u00e9\u263a it's"));
}

void ProjectTest::readsOddFilesInBoundedTime_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("shows"); // how many projects are read at most
    const QByteArray open = "<project show=\"A\" >";

    QByteArray entities = "<?xml version=\"1.0\"?><!DOCTYPE project [<!ENTITY a0 \"aaaaaaaaaaaaaaaaaaaa\">";
    for (int n = 1; n < 30; ++n) {
        const QByteArray one = "&a" + QByteArray::number(n - 1) + ';';
        entities += "<!ENTITY a" + QByteArray::number(n) + " \"" + one.repeated(20) + "\">";
    }
    QTest::newRow("an entity bomb in a value")
        << entities + "]><project show=\"&a29;\" ><key name=\"&a29;\" /></project>" << 1;
    QTest::newRow("an entity bomb in a text")
        << entities + "]><project show=\"A\" >&a29;<key/></project>" << 1;
    QTest::newRow("an entity that holds itself")
        << QByteArray("<!DOCTYPE project [<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">]>"
                      "<project show=\"&a;\" >&b;</project>")
        << 1;
    QTest::newRow("an entity from a file")
        << QByteArray("<!DOCTYPE project [<!ENTITY a SYSTEM \"file:///dev/zero\">]>"
                      "<project show=\"A\" >&a;<key/></project>")
        << 1;
    QTest::newRow("100,000 levels") << open + QByteArray("<a>").repeated(100000) + "<key/>" +
                                           QByteArray("</a>").repeated(100000) + "</project>"
                                    << 1;
    QTest::newRow("a million banks") << "<project banks=\"" + QByteArray("b,").repeated(1000000) +
                                            "\" switch=\"" + QByteArray("3,").repeated(1000000) + "\"/>"
                                     << 1;
    QTest::newRow("100,000 levels, none closed") << open + QByteArray("<a>").repeated(100000) << 1;
    QTest::newRow("100,000 projects, one in the other") << open.repeated(100000) << 100000;
    QByteArray wide = "<project show=\"A\" ><key";
    for (int n = 0; n < 40000; ++n)
        wide += " a" + QByteArray::number(n) + "=\"1\"";
    QTest::newRow("40,000 attributes") << wide + "/></project>" << 1;
    QTest::newRow("200,000 keys") << open + QByteArray("<key id=\"1\"/>").repeated(200000) + "</project>"
                                  << 1;
    QTest::newRow("a value of 4 MB") << open + "<key name=\"" + QByteArray(4 << 20, 'n') + "\"/></project>"
                                     << 1;
    QTest::newRow("an element name of 4 MB") << open + '<' + QByteArray(4 << 20, 'n') + "/></project>" << 1;

    QByteArray garbage(8 << 20, '\0');
    QRandomGenerator random(8);
    for (char& byte : garbage)
        byte = static_cast<char>(random.bounded(256));
    QTest::newRow("8 MB of garbage") << garbage << 0;
    QTest::newRow("8 MB of garbage in a project") << open + garbage << 1;
    QTest::newRow("8 MB of less-than signs") << QByteArray(8 << 20, '<') << 0;
    QTest::newRow("8 MB of zero bytes") << QByteArray(8 << 20, '\0') << 0;
    QTest::newRow("8 MB of white space") << open + QByteArray(8 << 20, ' ') << 1;
    QTest::newRow("an encoding that nobody knows")
        << QByteArray("<?xml version=\"1.0\" encoding=\"KLINGON\"?><project show=\"A\" ><key/></project>")
        << 1;
    QTest::newRow("half a character") << open + "<key name=\"\xe2\x98\"/></project>" << 1;
}

void ProjectTest::readsOddFilesInBoundedTime()
{
    QFETCH(QByteArray, text);
    QFETCH(int, shows);
    const Project read = readsoon(text);
    QVERIFY(read.heads.size() <= shows);
    for (const Head& head : read.heads)
        QVERIFY(head.show.size() < 100000 && head.pads.banks.size() <= maxBankNames);
}

void ProjectTest::readsEveryTruncation()
{
    const QByteArray text = golden("midi.os2l");
    const Project whole = midi();
    Size keys = 0;
    for (int size = 0; size <= text.size(); size += size < 600 ? 1 : 97) {
        const Project read = readproject(text.left(size));
        // What was read is never less than before, and is a beginning of the whole.
        const QList<QStringList> cells = cellsof(read);
        QVERIFY(cells.size() >= keys);
        keys = cells.size();
        if (read.ismidi())
            QCOMPARE(cells, cellsof(whole).mid(0, keys));
        QCOMPARE(headsof(read), headsof(whole).mid(0, read.heads.size()));
    }
    QVERIFY(keys > 100);
}

QTEST_GUILESS_MAIN(ProjectTest)

#include "tst_project.moc"
