#include "itemroles.h"
#include "vdjmodel.h"

#include <QColor>
#include <QSignalSpy>
#include <QTest>

using namespace padspage;

namespace {

/// A pads page whose every pad holds a Live Button.
void fillall(VDJModel* grid)
{
    fillpads(grid);
    for (int row = 0; row < grid->rowCount(); ++row) {
        for (int column = 0; column < grid->columnCount(); ++column) {
            const QModelIndex pad = grid->index(row, column);
            grid->setData(pad, "STROBE", Qt::EditRole);
            grid->setData(pad, "Strobe", ItemRole::DspName);
            grid->setData(pad, "2", ItemRole::Page);
            grid->setData(pad, "7", ItemRole::Id);
            grid->setData(pad, "#ff0000", Qt::DecorationRole);
        }
    }
}

} // namespace

/// What a pad of the pads page looks like that lost its Live Button.
class EmptyPadTest : public QObject
{
    Q_OBJECT

private slots:
    void emptiesThatPadAlone_data();
    void emptiesThatPadAlone();
    void leavesThePadWhiteThatTheListTakesAway();
    void passesOverPlacesOutsideTheGrid();
    void tellsTheViewOnce();
};

void EmptyPadTest::emptiesThatPadAlone_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");
    QTest::newRow("first") << 0 << 0 << "PAD 1";
    QTest::newRow("last of the first bank") << 7 << 0 << "PAD 8";
    QTest::newRow("second bank") << 10 << 0 << "PAD 3";
    QTest::newRow("second column is called by its row alone") << 10 << 1 << "PAD 3";
    QTest::newRow("last") << 63 << 1 << "PAD 8";
}

void EmptyPadTest::emptiesThatPadAlone()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, name);
    VDJModel grid;
    fillall(&grid);
    QList<QList<Record>> expected = grid.getList();
    expected[row][column] =
        Record{{"name", name}, {"dspname", name}, {"pagenr", "0"}, {"id", "-1"}, {"color", "#000000"}};
    emptypad(&grid, grid.index(row, column));
    QCOMPARE(grid.getList(), expected);
}

void EmptyPadTest::leavesThePadWhiteThatTheListTakesAway()
{
    VDJModel grid;
    fillall(&grid);
    takeoff(&grid, grid.index(3, 0));
    QCOMPARE(grid.index(3, 0).data(Qt::DecorationRole).value<QColor>(), QColor(Qt::white));
    QCOMPARE(grid.index(3, 0).data(ItemRole::Id).toString(), QString("-1"));
}

void EmptyPadTest::passesOverPlacesOutsideTheGrid()
{
    VDJModel grid;
    fillall(&grid);
    const QList<QList<Record>> before = grid.getList();
    VDJModel other;
    fillpads(&other);
    for (const QModelIndex& outside :
         {QModelIndex(), grid.index(64, 0), grid.index(0, 2), grid.index(-1, 0), other.index(0, 0)})
        emptypad(&grid, outside);
    QCOMPARE(grid.getList(), before);
}

void EmptyPadTest::tellsTheViewOnce()
{
    VDJModel grid;
    fillall(&grid);
    QCoreApplication::processEvents();
    QSignalSpy changed(&grid, &RecordModel::recordsChanged);
    emptypad(&grid, grid.index(0, 0));
    emptypad(&grid, grid.index(1, 0));
    QCOMPARE(changed.count(), 0);
    QTRY_COMPARE(changed.count(), 1);
    emptypad(&grid, grid.index(2, 0));
    QTRY_COMPARE(changed.count(), 2);
    emptypad(&grid, grid.index(64, 0));
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 2);
}

QTEST_GUILESS_MAIN(EmptyPadTest)
#include "tst_emptypad.moc"
