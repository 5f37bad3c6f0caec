#include "controller.h"
#include "itemroles.h"
#include "midiwindow.h"
#include "mymodel.h"
#include "testmain.h"
#include "vdjmodel.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>

#include <limits>

using Output = MidiWindow::Output;

namespace {

constexpr int least = std::numeric_limits<int>::min();
constexpr int most = std::numeric_limits<int>::max();

/// Everything that a slot of the marks could change.
struct Everything
{
    explicit Everything(const MidiWindow& midi)
        : list(midi.window.dmxModel->getList()), buttons(midi.window.buttons),
          pads(midi.window.vdjModel->getList()), cells(midi.window.controllerModel->getList())
    {
    }
    bool operator==(const Everything& other) const
    {
        return list == other.list && buttons == other.buttons && pads == other.pads && cells == other.cells;
    }

    QList<Record> list;
    QList<Record> buttons;
    QList<QList<Record>> pads;
    QList<QList<Record>> cells;
};

/// What happens to the marks in a row of the repaint test, after the Live Button of row 0 was placed at pad
/// and cell (2, 2).
enum class Change { Place, Replace, Take, Remove, Clean, Switch };

} // namespace

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(MidiWindow::Output)

class MarksTest : public QObject
{
    Q_OBJECT

private slots:
    void placingOnAPadMarksTheListAlone();
    void placingOnACellMarksTheListAlone();
    void placingClearsTheEntryThatTheRowsIdNames();
    void placingOnACellMakesItCurrentAndFocused();
    void placingOnAPadLeavesTheFocus();
    void replacedButtonIsMarkedUntilItsLastPadIsGone();
    void replacedButtonIsMarkedUntilItsLastCellIsGone();
    void secondColumnOfThePadsDoesNotCount();
    void sideButtonsOfTheControllerCount();
    void padsAndControllerDoNotCountForEachOther();
    void placingAgainOnTheSamePadKeepsTheMark();
    void placingAgainInTheSecondColumnClearsTheMark();
    void movesChangeNoMark();
    void unmarkingFindsRowsByIdAndEntriesByRow();
    void losingAPadMovesTheFocusOverTheListToThePads();
    void losingACellMovesTheFocusOverTheListToTheGrid();
    void emptyPadsIdChangesNothing();

    void takenOffButtonLeavesEveryPadAndCell();
    void takenOffPadsAreNumberedWithinEightRows();
    void takingOffLeavesTheMarkAndOtherButtons();
    void takingOffLeavesTheSecondColumn();
    void takingOffKeepsACellsColoursAndUse();
    void takingOffEndsInTheList_data();
    void takingOffEndsInTheList();

    void outputButtonsWriteBothMarks();
    void cleanEmptiesThePadsAndClearsTheListsMarks();
    void cleanShowsTheFirstBank();
    void cleanGoesToTheList();
    void cleanWithoutShowIsHarmless();
    void marksShowAtOnce_data();
    void marksShowAtOnce();

    void rowsOutsideTheListChangeNothing_data();
    void rowsOutsideTheListChangeNothing();
    void idsOutsideTheShowChangeNothing_data();
    void idsOutsideTheShowChangeNothing();
    void cellsOutsideTheGridAreNotMadeCurrent();
    void rowsWithStrangeIdsAreMarkedAlone_data();
    void rowsWithStrangeIdsAreMarkedAlone();
    void fewerButtonsThanRowsAreHarmless();
    void emptiedGridsAreHarmless();
};

void MarksTest::placingOnAPadMarksTheListAlone()
{
    MidiWindow midi(Output::Pads);
    midi.setchecks("11111");
    midi.drop(2, midi.pad(5));
    QCOMPARE(midi.marks(), QList<int>{2});
    QCOMPARE(midi.checks(), QString("11011"));
    midi.drop(4, midi.pad(63, 1));
    QCOMPARE(midi.marks(), (QList<int>{2, 4}));
    QCOMPARE(midi.checks(), QString("11010"));
}

void MarksTest::placingOnACellMarksTheListAlone()
{
    MidiWindow midi;
    midi.setchecks("11111");
    midi.drop(3, midi.cell(2, 2));
    QCOMPARE(midi.marks(), QList<int>{3});
    QCOMPARE(midi.checks(), QString("11101"));
    midi.drop(0, midi.cell(9, 11));
    QCOMPARE(midi.marks(), (QList<int>{0, 3}));
    QCOMPARE(midi.checks(), QString("01101"));
}

void MarksTest::placingClearsTheEntryThatTheRowsIdNames()
{
    for (const Output output : {Output::Pads, Output::Midi}) {
        MidiWindow midi(output);
        QVERIFY(midi.window.dmxModel->setData(midi.window.dmxModel->index(1, 0), "4", ItemRole::Id));
        midi.setchecks("11111");
        midi.drop(1, output == Output::Pads ? midi.pad(0) : midi.cell(2, 2));
        QCOMPARE(midi.marks(), QList<int>{1});
        QCOMPARE(midi.checks(), QString("11110"));
    }
}

void MarksTest::placingOnACellMakesItCurrentAndFocused()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    midi.list->setFocus();
    midi.drop(1, midi.cell(4, 7));
    QCOMPARE(midi.grid->currentIndex(), midi.cell(4, 7));
    QVERIFY(midi.grid->hasFocus());
}

void MarksTest::placingOnAPadLeavesTheFocus()
{
    MidiWindow midi(Output::Pads);
    QVERIFY(midi.window.showready());
    midi.list->setFocus();
    midi.pads->setCurrentIndex(midi.pad(1));
    midi.drop(1, midi.pad(6));
    QVERIFY(midi.list->hasFocus());
    QCOMPARE(midi.pads->currentIndex(), midi.pad(1));
}

void MarksTest::replacedButtonIsMarkedUntilItsLastPadIsGone()
{
    MidiWindow midi(Output::Pads);
    midi.drop(0, midi.pad(0));
    midi.drop(0, midi.pad(63));
    midi.setchecks("11111");
    midi.drop(1, midi.pad(63));
    QCOMPARE(midi.marks(), (QList<int>{0, 1}));
    QCOMPARE(midi.checks(), QString("10111"));
    midi.drop(2, midi.pad(0));
    QCOMPARE(midi.marks(), (QList<int>{1, 2}));
    QCOMPARE(midi.checks(), QString("00011"));
}

void MarksTest::replacedButtonIsMarkedUntilItsLastCellIsGone()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.drop(0, midi.cell(9, 9));
    midi.setchecks("11111");
    midi.drop(1, midi.cell(9, 9));
    QCOMPARE(midi.marks(), (QList<int>{0, 1}));
    QCOMPARE(midi.checks(), QString("10111"));
    midi.drop(2, midi.cell(2, 2));
    QCOMPARE(midi.marks(), (QList<int>{1, 2}));
    QCOMPARE(midi.checks(), QString("00011"));
}

void MarksTest::secondColumnOfThePadsDoesNotCount()
{
    MidiWindow midi(Output::Pads);
    midi.drop(0, midi.pad(0, 0));
    midi.drop(0, midi.pad(0, 1));
    midi.drop(1, midi.pad(0, 0));
    QCOMPARE(midi.marks(), QList<int>{1});
    QCOMPARE(midi.pad(0, 1).data(ItemRole::Id).toString(), QString("0"));
}

void MarksTest::sideButtonsOfTheControllerCount()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.drop(0, midi.cell(11, 9));
    midi.drop(1, midi.cell(2, 2));
    QCOMPARE(midi.marks(), (QList<int>{0, 1}));
    midi.drop(1, midi.cell(11, 9));
    QCOMPARE(midi.marks(), QList<int>{1});
}

void MarksTest::padsAndControllerDoNotCountForEachOther()
{
    MidiWindow midi(Output::Pads);
    midi.drop(0, midi.pad(0));
    midi.drop(0, midi.cell(2, 2));
    midi.drop(1, midi.cell(2, 2));
    QCOMPARE(midi.marks(), QList<int>{1});

    midi.drop(2, midi.cell(3, 3));
    midi.drop(2, midi.pad(1));
    midi.drop(1, midi.pad(1));
    QCOMPARE(midi.marks(), QList<int>{1});
    QCOMPARE(midi.cell(3, 3).data(ItemRole::Id).toString(), QString("2"));
}

void MarksTest::placingAgainOnTheSamePadKeepsTheMark()
{
    MidiWindow midi(Output::Pads);
    for (const QModelIndex& target : {midi.pad(3), midi.cell(2, 2)}) {
        midi.drop(1, target);
        midi.drop(1, target);
        QCOMPARE(midi.marks(), QList<int>{1});
        QCOMPARE(target.data(ItemRole::Id).toString(), QString("1"));
    }
}

void MarksTest::placingAgainInTheSecondColumnClearsTheMark()
{
    MidiWindow midi(Output::Pads);
    midi.drop(1, midi.pad(3, 1));
    QCOMPARE(midi.marks(), QList<int>{1});
    midi.drop(1, midi.pad(3, 1));
    QCOMPARE(midi.marks(), QList<int>());
    QCOMPARE(midi.pad(3, 1).data(ItemRole::Id).toString(), QString("1"));
}

void MarksTest::movesChangeNoMark()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.drop(1, midi.cell(2, 3));
    midi.drop(2, midi.pad(0));
    midi.drop(3, midi.pad(1));
    midi.setchecks("01010");
    const QList<int> before{0, 1, 2, 3};
    QCOMPARE(midi.marks(), before);
    MidiWindow::drop(midi.cell(2, 2), midi.cell(2, 3));
    MidiWindow::drop(midi.cell(2, 2), midi.cell(9, 9));
    MidiWindow::drop(midi.pad(0), midi.pad(1));
    MidiWindow::drop(midi.pad(0), midi.pad(40, 1));
    QCOMPARE(midi.cell(9, 9).data().toString(), QString("Blackout"));
    QCOMPARE(midi.pad(40, 1).data().toString(), QString("Circle"));
    QCOMPARE(midi.marks(), before);
    QCOMPARE(midi.checks(), QString("01010"));
}

void MarksTest::unmarkingFindsRowsByIdAndEntriesByRow()
{
    for (const char* slot : {"dmxtoremove", "dmxtoremove2"}) {
        MidiWindow midi;
        // Two rows with the same id, and one whose own id is another one's row.
        for (const int row : {0, 3})
            QVERIFY(midi.window.dmxModel->setData(midi.window.dmxModel->index(row, 0), "2", ItemRole::Id));
        for (int row = 0; row < 5; ++row)
            midi.window.CheckChanged(row, 0);
        midi.setchecks("11111");
        QVERIFY(QMetaObject::invokeMethod(&midi.window, slot, Q_ARG(int, 2)));
        QCOMPARE(midi.marks(), (QList<int>{1, 4}));
        QCOMPARE(midi.checks(), QString("01001"));
    }
}

void MarksTest::losingAPadMovesTheFocusOverTheListToThePads()
{
    MidiWindow midi(Output::Pads);
    QVERIFY(midi.window.showready());
    midi.window.child<QWidget>("padsname")->setFocus();
    const FocusPath focus;
    midi.window.dmxtoremove(0);
    QCOMPARE(focus.names(), (QStringList{"dmxlistview", "vdjlistview"}));
}

void MarksTest::losingACellMovesTheFocusOverTheListToTheGrid()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    midi.window.child<QWidget>("padsname")->setFocus();
    const FocusPath focus;
    midi.window.dmxtoremove2(0);
    QCOMPARE(focus.names(), (QStringList{"dmxlistview", "tablecontroller"}));
}

void MarksTest::emptyPadsIdChangesNothing()
{
    MidiWindow midi;
    midi.drop(1, midi.pad(0));
    midi.drop(2, midi.cell(2, 2));
    midi.setchecks("11111");
    // A row of the list that carries the empty pads' id: the many empty pads keep its mark.
    QVERIFY(midi.window.dmxModel->setData(midi.window.dmxModel->index(2, 0), "-1", ItemRole::Id));
    const Everything before(midi);
    midi.window.dmxtoremove(-1);
    QVERIFY(Everything(midi) == before);
    midi.window.dmxtoremove2(-1);
    QVERIFY(Everything(midi) == before);
}

void MarksTest::takenOffButtonLeavesEveryPadAndCell()
{
    MidiWindow midi;
    const QList<QModelIndex> pads{midi.pad(0), midi.pad(7), midi.pad(63)};
    const QList<QModelIndex> cells{midi.cell(2, 2), midi.cell(9, 9), midi.cell(11, 4), midi.cell(5, 11)};
    const QList<QModelIndex> all = pads + cells;
    for (const QModelIndex& target : all)
        midi.drop(3, target);
    emit midi.window.dmxModel->ItemUnchecked(3);

    const QList<int> roles{Qt::EditRole, ItemRole::DspName, ItemRole::Page, ItemRole::Id, Qt::DecorationRole};
    const auto empty = [](const QString& name, const QString& color) {
        return QStringList{name, name, "0", "-1", color};
    };
    QCOMPARE(midi.values(pads.at(0), roles), empty("PAD 1", "#ffffff"));
    QCOMPARE(midi.values(pads.at(1), roles), empty("PAD 8", "#ffffff"));
    QCOMPARE(midi.values(pads.at(2), roles), empty("PAD 8", "#ffffff"));
    QCOMPARE(midi.values(cells.at(0), roles), empty("PAD 1", "#000000"));
    QCOMPARE(midi.values(cells.at(1), roles), empty("PAD 64", "#000000"));
    QCOMPARE(midi.values(cells.at(2), roles), empty("BOTTOM 3", "#000000"));
    QCOMPARE(midi.values(cells.at(3), roles), empty("RIGHT 4", "#000000"));
    QVERIFY(midi.window.isVDJempty());
    QVERIFY(midi.window.isMIDIempty());
}

void MarksTest::takenOffPadsAreNumberedWithinEightRows()
{
    MidiWindow midi(Output::Pads);
    QTest::mouseClick(midi.window.child<QAbstractButton>("radioButton_16pads"), Qt::LeftButton);
    for (int row = 0; row < 64; ++row)
        midi.drop(0, midi.pad(row));
    midi.window.dmxcheckchange(0);
    for (int row = 0; row < 64; ++row)
        QCOMPARE(midi.pad(row).data().toString(), QString("PAD %1").arg(row - row / 8 * 8 + 1));
}

void MarksTest::takingOffLeavesTheMarkAndOtherButtons()
{
    MidiWindow midi;
    midi.drop(3, midi.pad(0));
    midi.drop(1, midi.pad(1));
    midi.drop(3, midi.cell(2, 2));
    midi.drop(1, midi.cell(2, 3));
    midi.setchecks("11011");
    midi.window.dmxcheckchange(3);
    QCOMPARE(midi.marks(), (QList<int>{1, 3}));
    QCOMPARE(midi.checks(), QString("11011"));
    QCOMPARE(midi.pad(1).data().toString(), QString("Blackout"));
    QCOMPARE(midi.pad(1).data(ItemRole::Id).toString(), QString("1"));
    QCOMPARE(midi.cell(2, 3).data().toString(), QString("Blackout"));
    QCOMPARE(midi.cell(2, 3).data(ItemRole::Id).toString(), QString("1"));
    QCOMPARE(midi.pad(2).data(Qt::DecorationRole).value<QColor>(), QColor(Qt::black));
}

void MarksTest::takingOffLeavesTheSecondColumn()
{
    MidiWindow midi(Output::Pads);
    midi.drop(3, midi.pad(0, 0));
    midi.drop(3, midi.pad(0, 1));
    midi.window.dmxcheckchange(3);
    QCOMPARE(midi.pad(0, 0).data(ItemRole::Id).toString(), QString("-1"));
    QCOMPARE(midi.pad(0, 1).data(ItemRole::Id).toString(), QString("3"));
    QCOMPARE(midi.pad(0, 1).data().toString(), QString("Circle"));
}

void MarksTest::takingOffKeepsACellsColoursAndUse()
{
    MidiWindow midi;
    const QModelIndex cell = midi.cell(2, 2);
    const QList<int> roles{ItemRole::Avail, ItemRole::ColorOff, ItemRole::ColorOn, ItemRole::Blink};
    const QStringList values{"0", "red", "green", "1"};
    midi.drop(3, cell);
    for (int i = 0; i < roles.size(); ++i)
        QVERIFY(midi.window.controllerModel->setData(cell, values.at(i), roles.at(i)));
    midi.window.dmxcheckchange(3);
    QCOMPARE(cell.data(ItemRole::Id).toString(), QString("-1"));
    QCOMPARE(midi.values(cell, roles), values);
}

void MarksTest::takingOffEndsInTheList_data()
{
    QTest::addColumn<Output>("output");
    QTest::addColumn<QString>("view");
    QTest::newRow("pads") << Output::Pads << "vdjlistview";
    QTest::newRow("controller") << Output::Midi << "tablecontroller";
}

void MarksTest::takingOffEndsInTheList()
{
    QFETCH(Output, output);
    QFETCH(QString, view);
    MidiWindow midi(output);
    QVERIFY(midi.window.showready());
    for (const QModelIndex& target : {midi.pad(1), midi.pad(6), midi.cell(3, 3), midi.cell(8, 11)})
        midi.drop(4, target);
    midi.grid->setCurrentIndex(midi.cell(2, 2));
    midi.list->setCurrentIndex(midi.window.dmxModel->index(0, 0));
    midi.window.child<QWidget>("padsname")->setFocus();
    const FocusPath focus;
    midi.window.dmxcheckchange(4);
    QVERIFY(focus.names().contains(view));
    QCOMPARE(focus.names().constLast(), QString("dmxlistview"));
    QCOMPARE(midi.pads->currentIndex(), midi.pad(6));
    QCOMPARE(midi.grid->currentIndex(), midi.cell(8, 11));
    QCOMPARE(midi.list->currentIndex(), midi.window.dmxModel->index(4, 0));
}

void MarksTest::outputButtonsWriteBothMarks()
{
    MidiWindow midi(Output::Pads);
    midi.drop(1, midi.pad(0));
    midi.drop(2, midi.pad(8, 1));
    midi.drop(3, midi.cell(11, 2));
    midi.drop(4, midi.cell(2, 2));
    QTest::mouseClick(midi.window.child<QAbstractButton>("radio_outputmidi"), Qt::LeftButton);
    QCOMPARE(midi.marks(), (QList<int>{3, 4}));
    QCOMPARE(midi.checks(), QString("00011"));
    // Column 1 of the pads is not looked at here either.
    QTest::mouseClick(midi.window.child<QAbstractButton>("radio_outputpage"), Qt::LeftButton);
    QCOMPARE(midi.marks(), QList<int>{1});
    QCOMPARE(midi.checks(), QString("01000"));
}

void MarksTest::cleanEmptiesThePadsAndClearsTheListsMarks()
{
    MidiWindow midi(Output::Pads);
    const QList<QList<Record>> empty = midi.window.vdjModel->getList();
    midi.drop(0, midi.pad(0));
    midi.drop(1, midi.pad(9, 1));
    midi.drop(2, midi.pad(63));
    midi.drop(3, midi.cell(2, 2));
    midi.setchecks("10111");
    const QList<QList<Record>> controller = midi.window.controllerModel->getList();
    QTest::mouseClick(midi.window.child<QPushButton>("cleanpads_button"), Qt::LeftButton);
    QVERIFY(midi.window.isVDJempty());
    QCOMPARE(midi.window.vdjModel->getList(), empty);
    QCOMPARE(midi.pad(9, 1).data().toString(), QString("PAD 10"));
    QCOMPARE(midi.marks(), QList<int>());
    QCOMPARE(midi.checks(), QString("10111"));
    QCOMPARE(midi.window.controllerModel->getList(), controller);
}

void MarksTest::cleanShowsTheFirstBank()
{
    MidiWindow midi(Output::Pads);
    midi.window.banks = QStringList{"Intro", "Two", "Three", "Four", "Five", "Six", "Seven", "Eight"};
    auto* bank = midi.window.child<QComboBox>("bankcombo");
    auto* bankname = midi.window.child<QLineEdit>("bankname");
    bank->setCurrentIndex(5);
    midi.window.child<QLineEdit>("padsname")->setText("Club");
    QTest::mouseClick(midi.window.child<QAbstractButton>("radioButton_16pads"), Qt::LeftButton);
    QTest::mouseClick(midi.window.child<QPushButton>("cleanpads_button"), Qt::LeftButton);
    QCOMPARE(bank->currentIndex(), 0);
    QCOMPARE(bankname->text(), QString("Intro"));
    for (int row = 0; row < 64; ++row)
        QCOMPARE(midi.pads->isRowHidden(row), row > 7);
    QCOMPARE(midi.window.banks.join(' '), QString("Intro Two Three Four Five Six Seven Eight"));
    QCOMPARE(midi.window.child<QLineEdit>("padsname")->text(), QString("Club"));
    QVERIFY(midi.window.child<QAbstractButton>("radioButton_16pads")->isChecked());
    QVERIFY(!midi.pads->isColumnHidden(1));

    // With the first bank shown already its name and rows are put right all the same.
    bankname->setText("typed, not finished");
    midi.pads->setRowHidden(3, true);
    midi.window.on_cleanpads_button_clicked();
    QCOMPARE(bankname->text(), QString("Intro"));
    QVERIFY(!midi.pads->isRowHidden(3));
}

void MarksTest::cleanGoesToTheList()
{
    MidiWindow midi(Output::Pads);
    QVERIFY(midi.window.showready());
    midi.list->setCurrentIndex(midi.window.dmxModel->index(3, 0));
    QTest::mouseClick(midi.window.child<QPushButton>("cleanpads_button"), Qt::LeftButton);
    QVERIFY(midi.list->hasFocus());
    QCOMPARE(midi.list->currentIndex(), midi.window.dmxModel->index(0, 0));
}

void MarksTest::cleanWithoutShowIsHarmless()
{
    const TestHome home;
    TestWindow window;
    const QList<QList<Record>> empty = window.vdjModel->getList();
    QTest::mouseClick(window.child<QPushButton>("cleanpads_button"), Qt::LeftButton);
    QCOMPARE(window.vdjModel->getList(), empty);
    QVERIFY(window.buttons.isEmpty());
}

void MarksTest::marksShowAtOnce_data()
{
    QTest::addColumn<Output>("output");
    QTest::addColumn<Change>("change");
    const auto add = [](const char* name, Change change) {
        QTest::addRow("pads: %s", name) << Output::Pads << change;
        QTest::addRow("controller: %s", name) << Output::Midi << change;
    };
    add("placed", Change::Place);
    add("replaced", Change::Replace);
    add("taken", Change::Take);
    add("removed", Change::Remove);
    add("cleaned", Change::Clean);
    add("other output", Change::Switch);
}

void MarksTest::marksShowAtOnce()
{
    QFETCH(Output, output);
    QFETCH(Change, change);
    MidiWindow midi(output);
    const bool onpads = output == Output::Pads;
    const QModelIndex target = onpads ? midi.pad(2) : midi.cell(2, 2);
    midi.drop(0, target);
    QVERIFY(midi.window.showready());
    // Nothing else may be a reason to paint the list, neither the focus nor its current row.
    midi.list->setFocus();
    midi.list->setCurrentIndex(midi.window.dmxModel->index(0, 0));
    QCoreApplication::processEvents();

    // The check mark of the row in question; its text does not change.
    const int row = change == Change::Place ? 2 : 0;
    const QRect cell = midi.list->visualRect(midi.window.dmxModel->index(row, 0));
    const QRect mark(cell.topLeft(), QSize(cell.height(), cell.height()));
    const auto shown = [&] { return painted(midi.list->viewport()).copy(mark); };
    const QImage before = shown();
    switch (change) {
    case Change::Place:
        midi.drop(2, onpads ? midi.pad(5) : midi.cell(5, 5));
        break;
    case Change::Replace:
        midi.drop(3, target);
        break;
    case Change::Take:
        // The last pad of the button is gone before the window is told.
        const_cast<QAbstractItemModel*>(target.model())->setData(target, "-1", ItemRole::Id);
        QVERIFY(
            QMetaObject::invokeMethod(&midi.window, onpads ? "dmxtoremove" : "dmxtoremove2", Q_ARG(int, 0)));
        break;
    case Change::Remove:
        (onpads ? midi.pads : midi.grid)->setCurrentIndex(target);
        QVERIFY(QMetaObject::invokeMethod(&midi.window, onpads ? "ondeletevdjaction_triggered"
                                                               : "ondeleteaction_triggered"));
        break;
    case Change::Clean:
        QVERIFY(QMetaObject::invokeMethod(&midi.window, onpads ? "on_cleanpads_button_clicked"
                                                               : "on_cleanmidi_button_clicked"));
        break;
    case Change::Switch:
        QTest::mouseClick(
            midi.window.child<QAbstractButton>(onpads ? "radio_outputmidi" : "radio_outputpage"),
            Qt::LeftButton);
        break;
    }
    QTRY_VERIFY(shown() != before);
}

void MarksTest::rowsOutsideTheListChangeNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::newRow("none") << -1;
    QTest::newRow("behind the last") << 5;
    QTest::newRow("least") << least;
    QTest::newRow("most") << most;
}

void MarksTest::rowsOutsideTheListChangeNothing()
{
    QFETCH(int, row);
    MidiWindow midi;
    // The first Live Button, whose id is also what no number reads as.
    midi.drop(0, midi.pad(0));
    midi.drop(0, midi.cell(2, 2));
    midi.setchecks("11111");
    const Everything before(midi);
    midi.window.CheckChanged(row, 0);
    QVERIFY(Everything(midi) == before);
    midi.window.CheckChanged(row, row);
    QVERIFY(Everything(midi) == before);
    midi.window.CheckChangedCon(row, 3, 3);
    QVERIFY(Everything(midi) == before);
    midi.window.CheckChangedCon(row, row, row);
    QVERIFY(Everything(midi) == before);
    midi.window.dmxcheckchange(row);
    QVERIFY(Everything(midi) == before);
}

void MarksTest::idsOutsideTheShowChangeNothing_data() { rowsOutsideTheListChangeNothing_data(); }

void MarksTest::idsOutsideTheShowChangeNothing()
{
    QFETCH(int, row);
    MidiWindow midi;
    midi.drop(1, midi.pad(0));
    midi.drop(1, midi.cell(2, 2));
    midi.setchecks("11111");
    const Everything before(midi);
    midi.window.dmxtoremove(row);
    QVERIFY(Everything(midi) == before);
    midi.window.dmxtoremove2(row);
    QVERIFY(Everything(midi) == before);
}

void MarksTest::cellsOutsideTheGridAreNotMadeCurrent()
{
    MidiWindow midi;
    for (const QPoint& cell :
         {QPoint(-1, -1), QPoint(12, 0), QPoint(0, 12), QPoint(least, most), QPoint(most, least)}) {
        midi.window.resetdmxlist();
        QCOMPARE(midi.marks(), QList<int>());
        midi.window.CheckChangedCon(2, cell.x(), cell.y());
        QCOMPARE(midi.marks(), QList<int>{2});
        QVERIFY(!midi.grid->currentIndex().isValid());
    }
    midi.window.CheckChanged(3, most);
    QCOMPARE(midi.marks(), (QList<int>{2, 3}));
}

void MarksTest::rowsWithStrangeIdsAreMarkedAlone_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("beyond the show") << "5";
    QTest::newRow("far beyond") << "2147483647";
    QTest::newRow("negative") << "-1";
    QTest::newRow("least") << "-2147483648";
}

void MarksTest::rowsWithStrangeIdsAreMarkedAlone()
{
    QFETCH(QString, id);
    MidiWindow midi;
    midi.setchecks("11111");
    QVERIFY(midi.window.dmxModel->setData(midi.window.dmxModel->index(2, 0), id, ItemRole::Id));
    midi.window.CheckChanged(2, 0);
    QCOMPARE(midi.marks(), QList<int>{2});
    QCOMPARE(midi.checks(), QString("11111"));
    midi.window.CheckChangedCon(2, 2, 2);
    QCOMPARE(midi.checks(), QString("11111"));
}

void MarksTest::fewerButtonsThanRowsAreHarmless()
{
    MidiWindow midi;
    for (int row = 0; row < 5; ++row)
        midi.drop(row, midi.cell(2, 2 + row));
    midi.window.buttons.clear();
    midi.window.CheckChanged(4, 0);
    midi.window.CheckChangedCon(3, 2, 2);
    QCOMPARE(midi.marks(), (QList<int>{0, 1, 2, 3, 4}));
    midi.window.dmxtoremove(4);
    QCOMPARE(midi.marks(), (QList<int>{0, 1, 2, 3}));
    midi.drop(0, midi.cell(2, 5));
    QCOMPARE(midi.marks(), (QList<int>{0, 1, 2}));
    midi.window.dmxcheckchange(0);
    QCOMPARE(midi.cell(2, 5).data().toString(), QString("PAD 4"));
    midi.window.resetdmxlist();
    QCOMPARE(midi.marks(), (QList<int>{1, 2, 4}));
    QVERIFY(midi.window.buttons.isEmpty());
}

void MarksTest::emptiedGridsAreHarmless()
{
    MidiWindow midi;
    midi.drop(1, midi.cell(2, 2));
    midi.drop(2, midi.pad(0));
    midi.window.cleanMIDI();
    midi.window.cleanVDJ();
    midi.window.CheckChangedCon(3, 2, 2);
    midi.window.dmxcheckchange(1);
    QCOMPARE(midi.marks(), (QList<int>{1, 2, 3}));
    midi.window.dmxtoremove(2);
    midi.window.dmxtoremove2(1);
    QCOMPARE(midi.marks(), QList<int>{3});
}

LUMIPAD_TEST_MAIN(MarksTest)

#include "tst_marks.moc"
