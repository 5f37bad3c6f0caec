#include "controller.h"
#include "itemroles.h"
#include "midikeys.h"

#include <QTest>

using namespace controller;

namespace {

/// A controller with eight buttons at the bottom and on the right, and none elsewhere.
const Record device{{"top", "0"}, {"left", "0"}, {"bottom", "8"}, {"right", "8"}};

/// What every cell of `fillall` holds, whatever its place.
const Record strobe{{"name", "STROBE"}, {"dspname", "Strobe"}, {"pagenr", "2"},       {"id", "7"},
                    {"avail", "1"},     {"color", "#ff0000"},  {"coloroff", "green"}, {"coloron", "yellow"},
                    {"blink", "1"},     {"textcolor", "blue"}};

/// A grid whose every cell, also of those out of use, holds a Live Button with colours of its own.
void fillall(Controller* grid)
{
    const QList<std::pair<int, const char*>> keys{
        {Qt::EditRole, "name"},           {ItemRole::DspName, "dspname"},
        {ItemRole::Page, "pagenr"},       {ItemRole::Id, "id"},
        {ItemRole::Avail, "avail"},       {Qt::DecorationRole, "color"},
        {ItemRole::ColorOff, "coloroff"}, {ItemRole::ColorOn, "coloron"},
        {ItemRole::Blink, "blink"},       {Qt::ForegroundRole, "textcolor"}};
    fillcells(grid, device);
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            for (const auto& [role, key] : keys)
                grid->setData(grid->index(row, col), strobe.value(key), role);
        }
    }
}

/// `strobe` with the values of \a changes instead.
Record changed(const Record& changes)
{
    Record record = strobe;
    for (auto value = changes.cbegin(); value != changes.cend(); ++value)
        record.insert(value.key(), value.value());
    return record;
}

/// The grid of `fillall` with \a record in one cell.
QList<QList<Record>> with(int row, int col, const Record& record)
{
    Controller grid;
    fillall(&grid);
    QList<QList<Record>> cells = grid.getList();
    cells[row][col] = record;
    return cells;
}

} // namespace

/// What a cell of the controller grid looks like that lost its Live Button, or became the switch.
class EmptyCellTest : public QObject
{
    Q_OBJECT

private slots:
    void emptyingMakesAUsablePadThatKeepsItsColours_data();
    void emptyingMakesAUsablePadThatKeepsItsColours();
    void takingOffLeavesEverythingElse();
    void switchIsAnEmptyPadOutOfUse();
    void emptyingTheSwitchMakesItAPadAgain();
    void cleaningEmptiesEveryCell();
    void cleaningFollowsTheDevice();
    void placesOutsideTheGridChangeNothing();
};

void EmptyCellTest::emptyingMakesAUsablePadThatKeepsItsColours_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("label");
    QTest::newRow("first pad") << 2 << 2 << "PAD 1";
    QTest::newRow("last pad") << 9 << 9 << "PAD 64";
    QTest::newRow("side button") << 11 << 3 << "BOTTOM 2";
    QTest::newRow("button that the device lacks") << 0 << 2 << "TOP 1";
    QTest::newRow("spacer") << 1 << 5 << "";
    QTest::newRow("corner") << 0 << 0 << "";
}

void EmptyCellTest::emptyingMakesAUsablePadThatKeepsItsColours()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QString, label);
    Controller grid;
    fillall(&grid);
    emptycell(&grid, grid.index(row, col));
    QCOMPARE(grid.getList(), with(row, col,
                                  changed({{"name", label},
                                           {"dspname", label},
                                           {"pagenr", "0"},
                                           {"id", "-1"},
                                           {"avail", "1"},
                                           {"color", "#000000"},
                                           {"textcolor", "#ffffff"}})));
}

void EmptyCellTest::takingOffLeavesEverythingElse()
{
    Controller grid;
    fillall(&grid);
    grid.setData(grid.index(4, 4), "0", ItemRole::Avail);
    takeoff(&grid, grid.index(4, 4));
    QCOMPARE(grid.getList(), with(4, 4,
                                  changed({{"name", "PAD 19"},
                                           {"dspname", "PAD 19"},
                                           {"pagenr", "0"},
                                           {"id", "-1"},
                                           {"avail", "0"},
                                           {"color", "#000000"}})));
}

void EmptyCellTest::switchIsAnEmptyPadOutOfUse()
{
    Controller grid;
    fillall(&grid);
    makeswitch(&grid, grid.index(4, 4));
    QCOMPARE(grid.getList(), with(4, 4,
                                  changed({{"name", "SWITCH"},
                                           {"dspname", "SWITCH"},
                                           {"pagenr", "0"},
                                           {"id", "-1"},
                                           {"avail", "0"},
                                           {"color", "#000000"},
                                           {"textcolor", "green"}})));
    QCOMPARE(grid.flags(grid.index(4, 4)), Qt::ItemFlags(Qt::NoItemFlags));
}

void EmptyCellTest::emptyingTheSwitchMakesItAPadAgain()
{
    Controller grid;
    fillcells(&grid, device);
    const QList<QList<Record>> before = grid.getList();
    makeswitch(&grid, grid.index(5, 6));
    QVERIFY(grid.getList() != before);
    emptycell(&grid, grid.index(5, 6));
    QCOMPARE(grid.getList(), before);
}

void EmptyCellTest::cleaningEmptiesEveryCell()
{
    Controller grid;
    fillall(&grid);
    cleancells(&grid, device);
    Controller fresh;
    fillcells(&fresh, device);
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            const Record cell = grid.getList().at(row).at(col);
            const Record expected = fresh.getList().at(row).at(col);
            for (const char* key : {"name", "dspname", "pagenr", "id", "avail"})
                QCOMPARE(cell.value(key), expected.value(key));
            // A pad keeps its colours, blink and text; a cell that the device lacks all of its colours.
            QCOMPARE(cell.value("color"), QString(expected.value("avail") == "1" ? "#000000" : "#ff0000"));
            for (const char* key : {"coloroff", "coloron", "blink", "textcolor"})
                QCOMPARE(cell.value(key), strobe.value(key));
        }
    }
}

void EmptyCellTest::cleaningFollowsTheDevice()
{
    Controller grid;
    fillall(&grid);
    cleancells(&grid, {{"top", "2"}});
    QCOMPARE(grid.index(0, 2).data(ItemRole::Avail).toString(), QString("1"));
    QCOMPARE(grid.index(0, 4).data(ItemRole::Avail).toString(), QString("0"));
    QCOMPARE(grid.index(11, 2).data(ItemRole::Avail).toString(), QString("0"));
}

void EmptyCellTest::placesOutsideTheGridChangeNothing()
{
    Controller grid;
    fillall(&grid);
    const QList<QList<Record>> before = grid.getList();
    Controller other;
    fillcells(&other, device);
    for (const QModelIndex& outside :
         {QModelIndex(), grid.index(12, 0), grid.index(0, 12), grid.index(-1, -1), other.index(2, 2)}) {
        takeoff(&grid, outside);
        emptycell(&grid, outside);
        makeswitch(&grid, outside);
    }
    QCOMPARE(grid.getList(), before);
    Controller none;
    cleancells(&none, device);
    QCOMPARE(none.rowCount(), 0);
}

QTEST_GUILESS_MAIN(EmptyCellTest)
#include "tst_emptycell.moc"
