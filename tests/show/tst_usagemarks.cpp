#include "itemroles.h"
#include "mymodel.h"
#include "usagemarks.h"

#include <QSignalSpy>
#include <QStandardItemModel>
#include <QtTest>

#include <climits>

using namespace show;

namespace {

/// A grid of pads, empty but for what is put on them.
class Grid : public QStandardItemModel
{
public:
    Grid(int rows, int columns) : QStandardItemModel(rows, columns)
    {
        for (int row = 0; row < rows; ++row) {
            for (int col = 0; col < columns; ++col)
                put(row, col, QStringLiteral("-1"));
        }
    }
    void put(int row, int col, const QVariant& id) { setData(index(row, col), id, ItemRole::Id); }
};

/// The records of a show whose buttons have the ids 0, 1, 2 and so on.
QList<Record> liveButtons(int count, const QString& check = QStringLiteral("0"))
{
    QList<Record> buttons;
    for (int id = 0; id < count; ++id)
        buttons.append({{"buttonid", QString::number(id)}, {"check", check}, {"title", "Button"}});
    return buttons;
}

/// The `check` of every record, one letter each; "-" where there is none.
QString checks(const QList<Record>& buttons)
{
    QString result;
    for (const Record& button : buttons)
        result += button.value("check", "-");
    return result;
}

/// The check states that the list shows: "2" = marked, "0" = not.
QString states(const QAbstractItemModel& list)
{
    QString result;
    for (int row = 0; row < list.rowCount(); ++row)
        result += list.index(row, 0).data(Qt::CheckStateRole).toString();
    return result;
}

} // namespace

class TestUsageMarks : public QObject
{
    Q_OBJECT

private slots:
    void aGridOfEmptyPadsIsEmpty();
    void oneLiveButtonAnywhereFillsTheGrid_data();
    void oneLiveButtonAnywhereFillsTheGrid();
    void onlyNegativeNumbersAreEmptyPads_data();
    void onlyNegativeNumbersAreEmptyPads();

    void usedIdsAreThoseOfTheGivenColumns();
    void anIdOnSeveralPadsIsUsedOnce();
    void askingForNoColumnsUsesNone();
    void askingForMoreColumnsThanThereAreUsesThoseThatAre();

    void cellsAreCountedInTheGivenColumns();
    void countingComparesNumbers();
    void countingNowhereGivesNone();

    void usedButtonsAreMarkedAndAllOthersUnmarked();
    void marksFollowTheIdNotTheRow();
    void idsAreComparedAsTexts();
    void idsOutsideTheRecordsArePassedOver();
    void otherValuesStayAsTheyWere();
    void anEmptyListOrShowIsNoTrouble();

    void unmarkingFindsRowsByIdAndRecordsByRow();
    void unmarkingComparesNumbers();
    void unmarkingChangesTheMarkAlone();
    void unmarkingPassesOverRowsWithoutARecord();

    void markingARowShowsTheMarkAndClearsTheRecord();
    void unmarkingAllRowsLeavesTheRecords();
};

void TestUsageMarks::aGridOfEmptyPadsIsEmpty()
{
    QVERIFY(gridempty(Grid(64, 2)));
    QVERIFY(gridempty(Grid(12, 12)));
    QVERIFY(gridempty(Grid(0, 0)));
    QVERIFY(gridempty(Grid(0, 12)));
}

void TestUsageMarks::oneLiveButtonAnywhereFillsTheGrid_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("first pad") << 0 << 0;
    QTest::newRow("hidden second column") << 0 << 1;
    QTest::newRow("last row") << 63 << 0;
    QTest::newRow("last pad") << 63 << 1;
}

void TestUsageMarks::oneLiveButtonAnywhereFillsTheGrid()
{
    QFETCH(int, row);
    QFETCH(int, col);
    Grid grid(64, 2);
    grid.put(row, col, "0");
    QVERIFY(!gridempty(grid));
    grid.put(row, col, "-1");
    QVERIFY(gridempty(grid));
}

void TestUsageMarks::onlyNegativeNumbersAreEmptyPads_data()
{
    QTest::addColumn<QVariant>("id");
    QTest::addColumn<bool>("empty");
    QTest::newRow("-1") << QVariant("-1") << true;
    QTest::newRow("-7") << QVariant("-7") << true;
    QTest::newRow("0") << QVariant("0") << false;
    QTest::newRow("12") << QVariant("12") << false;
    QTest::newRow("a number, not a text") << QVariant(3) << false;
    QTest::newRow("empty text") << QVariant("") << false;
    QTest::newRow("no value") << QVariant() << false;
    QTest::newRow("a word") << QVariant("abc") << false;
    QTest::newRow("beyond 32 bits") << QVariant("-99999999999") << false;
}

void TestUsageMarks::onlyNegativeNumbersAreEmptyPads()
{
    QFETCH(QVariant, id);
    QFETCH(bool, empty);
    Grid grid(12, 12);
    grid.put(5, 6, id);
    QCOMPARE(gridempty(grid), empty);
    const QSet<QString> used = empty ? QSet<QString>() : QSet<QString>{id.toString()};
    QCOMPARE(usedids(grid, 12), used);
}

void TestUsageMarks::usedIdsAreThoseOfTheGivenColumns()
{
    Grid grid(64, 2);
    grid.put(0, 0, "0");
    grid.put(9, 0, "4");
    grid.put(63, 0, "12");
    grid.put(9, 1, "5");
    QCOMPARE(usedids(grid, 1), QSet<QString>({"0", "4", "12"}));
    QCOMPARE(usedids(grid, 2), QSet<QString>({"0", "4", "5", "12"}));
}

void TestUsageMarks::anIdOnSeveralPadsIsUsedOnce()
{
    Grid grid(12, 12);
    grid.put(2, 2, "3");
    grid.put(9, 9, "3");
    QCOMPARE(usedids(grid, 12), QSet<QString>({"3"}));
    grid.put(2, 2, "-1");
    QCOMPARE(usedids(grid, 12), QSet<QString>({"3"}));
}

void TestUsageMarks::askingForNoColumnsUsesNone()
{
    Grid grid(4, 2);
    grid.put(0, 0, "1");
    QCOMPARE(usedids(grid, 0), QSet<QString>());
    QCOMPARE(usedids(grid, -1), QSet<QString>());
}

void TestUsageMarks::askingForMoreColumnsThanThereAreUsesThoseThatAre()
{
    Grid grid(4, 1);
    QCOMPARE(usedids(grid, 2), QSet<QString>());
    grid.put(0, 0, "1");
    QCOMPARE(usedids(grid, 2), QSet<QString>({"1"}));
}

void TestUsageMarks::cellsAreCountedInTheGivenColumns()
{
    Grid grid(64, 2);
    grid.put(0, 0, "3");
    grid.put(9, 0, "13");
    grid.put(63, 0, "3");
    grid.put(63, 1, "3");
    QCOMPARE(countid(grid, 1, 3), 2);
    QCOMPARE(countid(grid, 2, 3), 3);
    QCOMPARE(countid(grid, 2, 13), 1);
    QCOMPARE(countid(grid, 2, 4), 0);
    grid.put(63, 1, "-1");
    QCOMPARE(countid(grid, 2, 3), 2);
}

void TestUsageMarks::countingComparesNumbers()
{
    Grid grid(12, 12);
    grid.put(2, 2, "03");
    grid.put(2, 3, 3);
    grid.put(2, 4, "3 x");
    QCOMPARE(countid(grid, 12, 3), 2);
    // What is no number counts as button 0.
    QCOMPARE(countid(grid, 12, 0), 1);
    grid.put(2, 5, "");
    grid.put(2, 6, QVariant());
    QCOMPARE(countid(grid, 12, 0), 3);
    QCOMPARE(countid(grid, 12, -1), 12 * 12 - 5);
}

void TestUsageMarks::countingNowhereGivesNone()
{
    Grid grid(4, 2);
    grid.put(0, 0, "1");
    QCOMPARE(countid(grid, 0, 1), 0);
    QCOMPARE(countid(grid, -1, 1), 0);
    QCOMPARE(countid(Grid(0, 2), 2, 1), 0);
}

void TestUsageMarks::usedButtonsAreMarkedAndAllOthersUnmarked()
{
    for (const QString& before : {QString("0"), QString("1")}) {
        QList<Record> buttons = liveButtons(5, before);
        MyModel list(buttons);
        markused(&list, &buttons, {"1", "4"});
        QCOMPARE(states(list), QString("02002"));
        QCOMPARE(checks(list.getList()), QString("01001"));
        QCOMPARE(checks(buttons), QString("01001"));
        markused(&list, &buttons, {});
        QCOMPARE(states(list), QString("00000"));
        QCOMPARE(checks(buttons), QString("00000"));
    }
}

void TestUsageMarks::marksFollowTheIdNotTheRow()
{
    QList<Record> buttons = liveButtons(3);
    MyModel list({buttons.at(2), buttons.at(0), buttons.at(1)});
    markused(&list, &buttons, {"2"});
    QCOMPARE(states(list), QString("200"));
    QCOMPARE(checks(buttons), QString("001"));
}

void TestUsageMarks::idsAreComparedAsTexts()
{
    QList<Record> buttons = liveButtons(3);
    MyModel list(buttons);
    markused(&list, &buttons, {"01", " 2", ""});
    QCOMPARE(states(list), QString("000"));
    QCOMPARE(checks(buttons), QString("000"));
}

void TestUsageMarks::idsOutsideTheRecordsArePassedOver()
{
    QList<Record> buttons = liveButtons(2);
    QList<Record> rows;
    for (const char* id : {"0", "2", "-1", "99999999999", "abc", "", "2147483647", "-2147483648"})
        rows.append({{"buttonid", id}, {"check", "0"}});
    rows.append({{"check", "0"}}); // no id at all
    MyModel list(rows);
    markused(&list, &buttons, {"2", "-1", "99999999999", "abc", "", "2147483647"});
    // The rows show what their id says; the records of the show have no such buttons.
    QCOMPARE(states(list), QString("022222202"));
    QCOMPARE(buttons, liveButtons(2));

    // A row whose id is no number does not stand for button 0.
    buttons = liveButtons(2, "1");
    MyModel words({Record{{"buttonid", "abc"}}, Record{{"buttonid", ""}}});
    markused(&words, &buttons, {"0"});
    QCOMPARE(states(words), QString("00"));
    QCOMPARE(buttons, liveButtons(2, "1"));
}

void TestUsageMarks::otherValuesStayAsTheyWere()
{
    QList<Record> buttons = liveButtons(3);
    MyModel list(buttons);
    const QSignalSpy changed(&list, &QAbstractItemModel::dataChanged);
    markused(&list, &buttons, {"0", "1", "2"});
    QCOMPARE(list.getList(), liveButtons(3, "1"));
    QCOMPARE(buttons, liveButtons(3, "1"));
    QCOMPARE(changed.count(), 0);
}

void TestUsageMarks::anEmptyListOrShowIsNoTrouble()
{
    QList<Record> buttons = liveButtons(2, "1");
    MyModel empty;
    markused(&empty, &buttons, {"0"});
    // Only what the list shows is marked or unmarked.
    QCOMPARE(buttons, liveButtons(2, "1"));

    QList<Record> none;
    MyModel list(liveButtons(2));
    markused(&list, &none, {"1"});
    QCOMPARE(states(list), QString("02"));
    QCOMPARE(none, QList<Record>());
}

void TestUsageMarks::unmarkingFindsRowsByIdAndRecordsByRow()
{
    QList<Record> buttons = liveButtons(3, "1");
    MyModel list({buttons.at(2), buttons.at(0), buttons.at(2)});
    unmark(&list, &buttons, 2);
    QCOMPARE(states(list), QString("020"));
    QCOMPARE(checks(buttons), QString("010"));
    unmark(&list, &buttons, 7);
    QCOMPARE(states(list), QString("020"));
    QCOMPARE(checks(buttons), QString("010"));
}

void TestUsageMarks::unmarkingComparesNumbers()
{
    QList<Record> rows;
    for (const char* id : {"0", "01", "1", "abc", "", "1x"})
        rows.append({{"buttonid", id}, {"check", "1"}});
    QList<Record> buttons = rows;
    MyModel list(rows);
    unmark(&list, &buttons, 1);
    QCOMPARE(states(list), QString("200222"));
    QCOMPARE(checks(buttons), QString("100111"));
    // What is no number counts as button 0.
    unmark(&list, &buttons, 0);
    QCOMPARE(states(list), QString("000000"));
    QCOMPARE(checks(buttons), QString("000000"));
}

void TestUsageMarks::unmarkingChangesTheMarkAlone()
{
    QList<Record> buttons = liveButtons(2, "1");
    MyModel list(buttons);
    const QSignalSpy changed(&list, &QAbstractItemModel::dataChanged);
    unmark(&list, &buttons, 0);
    QList<Record> expected = liveButtons(2, "1");
    expected[0]["check"] = "0";
    QCOMPARE(list.getList(), expected);
    QCOMPARE(buttons, expected);
    QCOMPARE(changed.count(), 0);
}

void TestUsageMarks::unmarkingPassesOverRowsWithoutARecord()
{
    QList<Record> buttons = liveButtons(1, "1");
    MyModel list(liveButtons(3, "1"));
    unmark(&list, &buttons, 2);
    QCOMPARE(states(list), QString("220"));
    QCOMPARE(buttons, liveButtons(1, "1"));

    MyModel empty;
    unmark(&empty, &buttons, 0);
    QCOMPARE(buttons, liveButtons(1, "1"));
}

void TestUsageMarks::markingARowShowsTheMarkAndClearsTheRecord()
{
    QList<Record> buttons = liveButtons(3, "1");
    MyModel list({buttons.at(2), buttons.at(1), buttons.at(0)});
    unmarkrows(&list);
    markrow(&list, &buttons, 0);
    // The record is the one with the row's id, wherever the row is.
    QCOMPARE(states(list), QString("200"));
    QCOMPARE(checks(buttons), QString("110"));
    for (const int row : {-1, 3, INT_MAX, INT_MIN})
        markrow(&list, &buttons, row);
    QCOMPARE(states(list), QString("200"));
    QCOMPARE(checks(buttons), QString("110"));

    QList<Record> few = liveButtons(1, "1");
    markrow(&list, &few, 1); // a row whose id no record has
    QCOMPARE(states(list), QString("220"));
    QCOMPARE(checks(few), QString("1"));
}

void TestUsageMarks::unmarkingAllRowsLeavesTheRecords()
{
    QList<Record> buttons = liveButtons(3, "1");
    MyModel list(buttons);
    unmarkrows(&list);
    QCOMPARE(states(list), QString("000"));
    QCOMPARE(list.getList(), liveButtons(3, "0"));
    QCOMPARE(checks(buttons), QString("111"));
    MyModel empty;
    unmarkrows(&empty);
    QCOMPARE(empty.rowCount(), 0);
}

QTEST_GUILESS_MAIN(TestUsageMarks)
#include "tst_usagemarks.moc"
