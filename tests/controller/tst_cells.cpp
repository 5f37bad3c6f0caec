#include "cells.h"
#include "controller.h"
#include "itemroles.h"

#include <QtTest>

#include <climits>

using namespace controller;

namespace {

/// The labels of the whole grid, row by row; cells are separated by commas.
QStringList labels()
{
    return {
        ",,TOP 1,TOP 2,TOP 3,TOP 4,TOP 5,TOP 6,TOP 7,TOP 8,,",
        ",,,,,,,,,,,",
        "LEFT 1,,PAD 1,PAD 2,PAD 3,PAD 4,PAD 5,PAD 6,PAD 7,PAD 8,,RIGHT 1",
        "LEFT 2,,PAD 9,PAD 10,PAD 11,PAD 12,PAD 13,PAD 14,PAD 15,PAD 16,,RIGHT 2",
        "LEFT 3,,PAD 17,PAD 18,PAD 19,PAD 20,PAD 21,PAD 22,PAD 23,PAD 24,,RIGHT 3",
        "LEFT 4,,PAD 25,PAD 26,PAD 27,PAD 28,PAD 29,PAD 30,PAD 31,PAD 32,,RIGHT 4",
        "LEFT 5,,PAD 33,PAD 34,PAD 35,PAD 36,PAD 37,PAD 38,PAD 39,PAD 40,,RIGHT 5",
        "LEFT 6,,PAD 41,PAD 42,PAD 43,PAD 44,PAD 45,PAD 46,PAD 47,PAD 48,,RIGHT 6",
        "LEFT 7,,PAD 49,PAD 50,PAD 51,PAD 52,PAD 53,PAD 54,PAD 55,PAD 56,,RIGHT 7",
        "LEFT 8,,PAD 57,PAD 58,PAD 59,PAD 60,PAD 61,PAD 62,PAD 63,PAD 64,,RIGHT 8",
        ",,,,,,,,,,,",
        ",,BOTTOM 1,BOTTOM 2,BOTTOM 3,BOTTOM 4,BOTTOM 5,BOTTOM 6,BOTTOM 7,BOTTOM 8,,",
    };
}

/// Rows 0 and 11 as tool tips and moves name them.
const char* const topindexes = ",TOP 0,TOP 1,TOP 2,TOP 3,TOP 4,TOP 5,TOP 6,TOP 7,TOP 8,,TOP 10";
const char* const bottomindexes =
    ",BOTTOM 0,BOTTOM 1,BOTTOM 2,BOTTOM 3,BOTTOM 4,BOTTOM 5,BOTTOM 6,BOTTOM 7,BOTTOM 8,,BOTTOM 10";

Record device(const char* top, const char* left, const char* bottom, const char* right)
{
    return {{"top", top}, {"left", left}, {"bottom", bottom}, {"right", right}};
}

/// The availability of the whole grid as drawn lines of "1" and "0".
QStringList availability(const Record& device)
{
    QStringList lines;
    for (int row = 0; row < 12; ++row) {
        QString line;
        for (int col = 0; col < 12; ++col)
            line += padavail(row, col, device);
        lines.append(line);
    }
    return lines;
}

/// What \a role holds in the whole grid, row by row, with \a separator between the cells.
QStringList cellTexts(const Controller& grid, int role, const QString& separator)
{
    QStringList lines;
    for (int row = 0; row < grid.rowCount(); ++row) {
        QStringList line;
        for (int col = 0; col < grid.columnCount(); ++col)
            line.append(grid.index(row, col).data(role).toString());
        lines.append(line.join(separator));
    }
    return lines;
}

/// The availability on a device with four buttons on top, none at the left and eight at the bottom and the
/// right.
QStringList fourOnTop()
{
    QStringList lines{"001111000000", "000000000000"};
    for (int row = 2; row <= 9; ++row)
        lines.append("001111111101");
    return lines + QStringList{"000000000000", "001111111100"};
}

} // namespace

class CellsTest : public QObject
{
    Q_OBJECT

private slots:
    void givesEveryCellItsLabel();
    void countsButtonsUpToTheCornersInToolTipsAndMoves();
    void givesNoLabelOutsideTheGrid();
    void letsTheDeviceDecideWhichCellsAreUsable_data();
    void letsTheDeviceDecideWhichCellsAreUsable();
    void hasNothingUsableOutsideTheGrid();
    void fillsTheGridWithLabelledEmptyCells();
    void fillsTheGridAnewWhateverItHeld();
    void updatesAvailabilityAndNothingElse();
};

void CellsTest::givesEveryCellItsLabel()
{
    for (int row = 0; row < 12; ++row) {
        QStringList found;
        for (int col = 0; col < 12; ++col)
            found.append(padtext(row, col));
        QCOMPARE(found.join(','), labels().at(row));
    }
}

void CellsTest::countsButtonsUpToTheCornersInToolTipsAndMoves()
{
    QStringList expected = labels();
    expected[0] = topindexes;
    expected[11] = bottomindexes;
    const Controller controller;
    for (int row = 0; row < 12; ++row) {
        QStringList found;
        for (int col = 0; col < 12; ++col)
            found.append(controller.getpadindex(row, col));
        QCOMPARE(found.join(','), expected.at(row));
    }
}

void CellsTest::givesNoLabelOutsideTheGrid()
{
    const Controller controller;
    for (const int line : {INT_MIN, -1, 12, INT_MAX}) {
        for (const int other : {0, 5, 11, line}) {
            QCOMPARE(padtext(line, other), QString());
            QCOMPARE(padtext(other, line), QString());
            QCOMPARE(controller.getpadindex(line, other), QString());
            QCOMPARE(controller.getpadindex(other, line), QString());
        }
    }
}

void CellsTest::letsTheDeviceDecideWhichCellsAreUsable_data()
{
    QTest::addColumn<Record>("device");
    QTest::addColumn<QString>("top");
    QTest::addColumn<QString>("left"); // as a line from top to bottom
    QTest::addColumn<QString>("bottom");
    QTest::addColumn<QString>("right"); // as a line from top to bottom

    const QString none = "000000000000";
    const QString eight = "001111111100";
    QTest::newRow("bottom and right") << device("0", "0", "8", "8") << none << none << eight << eight;
    QTest::newRow("four on top") << device("4", "0", "0", "8") << "001111000000" << none << none << eight;
    QTest::newRow("all sides") << device("4", "8", "8", "8") << "001111000000" << eight << eight << eight;
    QTest::newRow("one each") << device("1", "1", "1", "1") << "001000000000"
                              << "001000000000"
                              << "001000000000"
                              << "001000000000";
    // The spacer column stays unusable, and a ninth button would lie in it; a tenth lies in the corner,
    // which belongs to the top and bottom rows.
    QTest::newRow("nine each") << device("9", "9", "9", "9") << eight << eight << eight << eight;
    QTest::newRow("ten on top") << device("10", "0", "0", "0") << "001111111101" << none << none << none;
    QTest::newRow("ten at the bottom")
        << device("0", "0", "10", "0") << none << none << "001111111101" << none;
    QTest::newRow("ten at the sides") << device("0", "10", "0", "10") << none << eight << none << eight;
    QTest::newRow("far too many") << device("2147483647", "2147483647", "0", "0") << "001111111101" << eight
                                  << none << none;
    QTest::newRow("negative") << device("-3", "-1", "-2147483648", "-8") << none << none << none << none;
    QTest::newRow("no numbers") << device("many", "", "8.5", "99999999999") << none << none << none << none;
    QTest::newRow("no device") << Record() << none << none << none << none;
}

void CellsTest::letsTheDeviceDecideWhichCellsAreUsable()
{
    QFETCH(Record, device);
    QFETCH(QString, top);
    QFETCH(QString, left);
    QFETCH(QString, bottom);
    QFETCH(QString, right);

    const QStringList found = availability(device);
    QCOMPARE(found.at(0), top);
    QCOMPARE(found.at(1), QString("000000000000"));
    for (int row = 2; row <= 9; ++row)
        QCOMPARE(found.at(row), left.at(row) + QString("0111111110") + right.at(row));
    QCOMPARE(found.at(10), QString("000000000000"));
    QCOMPARE(found.at(11), bottom);
}

void CellsTest::hasNothingUsableOutsideTheGrid()
{
    const Record all = device("2147483647", "2147483647", "2147483647", "2147483647");
    for (const int line : {INT_MIN, -1, 12, INT_MAX}) {
        for (const int other : {0, 5, 11, line}) {
            QCOMPARE(padavail(line, other, all), QString("0"));
            QCOMPARE(padavail(other, line, all), QString("0"));
        }
    }
}

void CellsTest::fillsTheGridWithLabelledEmptyCells()
{
    Controller grid;
    fillcells(&grid, device("4", "0", "8", "8"));
    QCOMPARE(cellTexts(grid, Qt::EditRole, ","), labels());
    QCOMPARE(cellTexts(grid, ItemRole::DspName, ","), labels());
    QCOMPARE(cellTexts(grid, ItemRole::Avail, ""), fourOnTop());
    const QList<QList<Record>> rows = grid.getList();
    QCOMPARE(rows.size(), 12);
    for (const QList<Record>& row : rows) {
        QCOMPARE(row.size(), 12);
        for (Record cell : row) {
            for (const char* key : {"name", "dspname", "avail"})
                QCOMPARE(cell.remove(key), 1);
            QCOMPARE(cell, Record({{"id", "-1"},
                                   {"pagenr", "0"},
                                   {"color", "#000000"},
                                   {"textcolor", "#ffffff"},
                                   {"coloroff", ""},
                                   {"coloron", ""},
                                   {"blink", "0"}}));
        }
    }
}

void CellsTest::fillsTheGridAnewWhateverItHeld()
{
    Controller fresh;
    fillcells(&fresh, device("4", "0", "8", "8"));
    Controller grid({{{{"name", "A"}}}, {}}, nullptr);
    fillcells(&grid, device("8", "8", "8", "8"));
    for (const int role :
         {int(Qt::EditRole), int(Qt::DecorationRole), int(ItemRole::Id), int(ItemRole::Blink)})
        QVERIFY(grid.setData(grid.index(5, 5), "7", role));
    fillcells(&grid, device("4", "0", "8", "8"));
    QCOMPARE(grid.getList(), fresh.getList());
}

void CellsTest::updatesAvailabilityAndNothingElse()
{
    Controller grid;
    fillcells(&grid, device("8", "8", "8", "8"));
    // Live Buttons stay where they are, also in a cell that the new device does not have.
    for (const QModelIndex& cell : {grid.index(2, 2), grid.index(0, 9)}) {
        for (const int role :
             {int(Qt::EditRole), int(ItemRole::Id), int(ItemRole::Page), int(ItemRole::ColorOff)})
            QVERIFY(grid.setData(cell, "7", role));
    }
    QList<QList<Record>> expected = grid.getList();
    const QStringList availability = fourOnTop();
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col)
            expected[row][col]["avail"] = availability.at(row).at(col);
    }
    updateavail(&grid, device("4", "0", "8", "8"));
    QCOMPARE(grid.getList(), expected);

    Controller empty;
    updateavail(&empty, device("4", "0", "8", "8"));
    QCOMPARE(empty.rowCount(), 0);
}

QTEST_APPLESS_MAIN(CellsTest)
#include "tst_cells.moc"
