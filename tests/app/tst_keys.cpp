#include "controller.h"
#include "itemroles.h"
#include "midiwindow.h"
#include "mymodel.h"
#include "testfiles.h"
#include "testmain.h"
#include "vdjmodel.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QRegularExpression>
#include <QSignalSpy>

#include <tuple>

using Output = MidiWindow::Output;

namespace {

/// The window on the screen, worked by its keys.
struct KeyWindow : MidiWindow
{
    explicit KeyWindow(Output output) : MidiWindow(output) { QVERIFY(window.showready()); }

    void enter(QTableView* view, const QModelIndex& index) const
    {
        view->setFocus();
        view->setCurrentIndex(index);
    }
    QModelIndex button(int row) const { return window.dmxModel->index(row, 0); }
    QComboBox* bankcombo() const { return window.child<QComboBox>("bankcombo"); }
    void click(const char* name) const { window.child<QAbstractButton>(name)->click(); }

    /// Presses a key where the keyboard is.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QVERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void copy() { press(Qt::Key_C, Qt::ControlModifier); }
    static void cut() { press(Qt::Key_X, Qt::ControlModifier); }
    static void paste() { press(Qt::Key_V, Qt::ControlModifier); }

    static QString id(const QModelIndex& pad) { return pad.data(ItemRole::Id).toString(); }
    /// The Live Buttons of the whole grid \a model: "row,column id" each.
    static QStringList placed(const QAbstractItemModel* model)
    {
        QStringList all;
        for (int row = 0; row < model->rowCount(); ++row) {
            for (int column = 0; column < model->columnCount(); ++column) {
                const QString id = model->index(row, column).data(ItemRole::Id).toString();
                if (id != QLatin1String("-1"))
                    all.append(QStringLiteral("%1,%2 %3").arg(row).arg(column).arg(id));
            }
        }
        return all;
    }
    QStringList padlist() const { return placed(window.vdjModel); }
    QStringList cells() const { return placed(window.controllerModel); }

    void choosedevice(const char* id)
    {
        window.child<QComboBox>("devicescombo")
            ->setCurrentIndex(window.getdeviceindex(QString::fromLatin1(id)));
    }

    /// Fills a show of \a count Live Buttons on one page.
    void loadmany(int count)
    {
        TestPage page{QStringLiteral("Many"), {}};
        for (int i = 0; i < count; ++i)
            page.buttons.append({QStringLiteral("Button %1").arg(i), i});
        loadshow(QStringLiteral("Many"), {page});
    }
};

} // namespace

Q_DECLARE_METATYPE(MidiWindow::Output)

class KeysTest : public QObject
{
    Q_OBJECT

private slots:
    void copyAndPasteDropOnAPad();
    void copyAndPasteDropOnACell();
    void pasteIsRefusedWhereADropIs();
    void pasteTouchesNothingThatIsNotShown();
    void cutAndPasteMovesOrSwapsAPad();
    void cutAndPasteMovesOrSwapsACell();
    void cutTakesOnlyWhatAMouseCanDrag();
    void cutPadIsNotPastedAfterItChanged();
    void cutPadStaysInWhatIsShown();
    void copyOfAPadTakesItsLiveButtonOnceMore();
    void copyLeavesTheNameOnTheSystemClipboard();
    void takenThingsGoWithTheirShow();
    void enterFillsTheShownBank();
    void enterFillsBothColumnsWhenTheyAreShown();
    void enterFillsTheControllerRowByRowThenItsSides();
    void enterPassesWhatIsNoFreePad();
    void enterPassesCellsThatTheDeviceLacks();
    void enterWalksTheShownPageOfTheShow();
    void enterDoesNothingWhenNothingIsFree();
    void doubleClickInTheListDoesNothing();
    void deleteRemovesTheSelectedPad_data();
    void deleteRemovesTheSelectedPad();
    void deleteRemovesTheSelectedCells();
    void deleteTouchesNothingThatIsNotShown();
    void arrowsReachTheSwitch();
    void arrowsReachALiveButtonWhereTheDeviceHasNoPad();
    void keysBelongToTheTextThatIsEdited();
    void commandsLeaveTheKeyboardWhereItIs();
    void nameThatIsTypedIsAStepOfItsOwn();
    void menusOpenAtTheCurrentCell_data();
    void menusOpenAtTheCurrentCell();
    void menuOfAnEmptyPadDoesNotOpen();
    void menuByKeyAppliesToTheCurrentCell();
    void tabReachesNothingThatIsCovered();
    void coveredPadsTakeNoKeys();
    void focusLeavesAGridThatGetsCovered();
    void arrowsStartAtTheFirstShownCell_data();
    void arrowsStartAtTheFirstShownCell();
    void menuShowsTheKeys();
    void readmeAndManualNameTheKeys_data();
    void readmeAndManualNameTheKeys();
    void everyMenuEntryIsReachedByKeys();
    void theWholeJobGoesByKeys();
};

void KeysTest::copyAndPasteDropOnAPad()
{
    KeyWindow keys(Output::Pads);
    const QSignalSpy dropped(keys.window.vdjModel, &VDJModel::ItemDroped);
    const QSignalSpy lost(keys.window.vdjModel, &VDJModel::ItemToUncheck);
    keys.enter(keys.list, keys.button(3));
    KeyWindow::copy();
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::paste();
    QCOMPARE(KeyWindow::values(keys.pad(2), {Qt::EditRole, ItemRole::DspName, ItemRole::Page, ItemRole::Id}),
             QStringList({"Circle", "Circle", "2", "3"}));
    QCOMPARE(dropped.count(), 1);
    QCOMPARE(dropped.at(0), QVariantList({3, 2}));
    QCOMPARE(keys.marks(), QList<int>({3}));
    // What was taken stays, and takes the place of another Live Button as a drop does.
    keys.drop(0, keys.pad(4));
    keys.enter(keys.pads, keys.pad(4));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"2,0 3", "4,0 3"}));
    QCOMPARE(lost.count(), 1);
    QCOMPARE(keys.marks(), QList<int>({3}));
}

void KeysTest::copyAndPasteDropOnACell()
{
    KeyWindow keys(Output::Midi);
    keys.enter(keys.list, keys.button(1));
    KeyWindow::copy();
    keys.enter(keys.grid, keys.cell(4, 4));
    KeyWindow::paste();
    QCOMPARE(keys.cells(), QStringList({"4,4 1"}));
    QCOMPARE(keys.marks(), QList<int>({1}));
    QCOMPARE(keys.grid->currentIndex(), keys.cell(4, 4));
}

void KeysTest::pasteIsRefusedWhereADropIs()
{
    KeyWindow keys(Output::Midi);
    keys.enter(keys.list, keys.button(1));
    KeyWindow::copy();
    keys.grid->setFocus();
    // No control of this device, and the switch.
    keys.window.menuIndex = keys.cell(3, 3);
    keys.window.ontoggleaction_triggered();
    for (const QModelIndex& cell : {keys.cell(0, 3), keys.cell(3, 3), keys.cell(1, 1)}) {
        keys.grid->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
        keys.grid->setFocus();
        KeyWindow::paste();
    }
    QCOMPARE(keys.cells(), QStringList());
    // Nothing was taken yet.
    const KeyWindow fresh(Output::Pads);
    fresh.enter(fresh.pads, fresh.pad(2));
    KeyWindow::paste();
    QCOMPARE(fresh.padlist(), QStringList());
}

void KeysTest::pasteTouchesNothingThatIsNotShown()
{
    KeyWindow keys(Output::Pads);
    keys.enter(keys.list, keys.button(1));
    KeyWindow::copy();
    keys.enter(keys.pads, keys.pad(2));
    keys.bankcombo()->setCurrentIndex(1);
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList());
    keys.bankcombo()->setCurrentIndex(0);
    keys.pads->selectionModel()->setCurrentIndex(keys.pad(2, 1), QItemSelectionModel::NoUpdate);
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList());
    keys.enter(keys.pads, keys.pad(2));
    keys.click("radio_outputmidi");
    QTest::keyClick(keys.pads, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(keys.padlist(), QStringList());
    QCOMPARE(keys.cells(), QStringList());
}

void KeysTest::cutAndPasteMovesOrSwapsAPad()
{
    KeyWindow keys(Output::Pads);
    keys.drop(0, keys.pad(2));
    keys.drop(4, keys.pad(5));
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::cut();
    QCOMPARE(keys.padlist(), QStringList({"2,0 0", "5,0 4"}));
    keys.enter(keys.pads, keys.pad(7));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"5,0 4", "7,0 0"}));
    QCOMPARE(keys.pad(2).data().toString(), QStringLiteral("PAD 3"));
    // A pad is moved once.
    keys.enter(keys.pads, keys.pad(1));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"5,0 4", "7,0 0"}));
    keys.enter(keys.pads, keys.pad(7));
    KeyWindow::cut();
    keys.enter(keys.pads, keys.pad(5));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"5,0 0", "7,0 4"}));
    QCOMPARE(keys.marks(), QList<int>({0, 4}));
}

void KeysTest::cutAndPasteMovesOrSwapsACell()
{
    KeyWindow keys(Output::Midi);
    keys.drop(0, keys.cell(2, 2));
    keys.drop(4, keys.cell(5, 5));
    keys.window.controllerModel->setData(keys.cell(2, 2), QStringLiteral("red"), ItemRole::ColorOn);
    keys.enter(keys.grid, keys.cell(2, 2));
    KeyWindow::cut();
    keys.enter(keys.grid, keys.cell(5, 5));
    KeyWindow::paste();
    QCOMPARE(keys.cells(), QStringList({"2,2 4", "5,5 0"}));
    QCOMPARE(keys.cell(5, 5).data(ItemRole::ColorOn).toString(), QStringLiteral("red"));
    KeyWindow::cut();
    keys.enter(keys.grid, keys.cell(11, 4));
    KeyWindow::paste();
    QCOMPARE(keys.cells(), QStringList({"2,2 4", "11,4 0"}));
    QCOMPARE(keys.cell(5, 5).data().toString(), QStringLiteral("PAD 28"));
}

void KeysTest::cutTakesOnlyWhatAMouseCanDrag()
{
    KeyWindow keys(Output::Pads);
    keys.drop(0, keys.pad(2));
    keys.enter(keys.list, keys.button(1));
    KeyWindow::copy();
    // An empty pad, and a Live Button of the list: what was taken before stays taken.
    keys.enter(keys.pads, keys.pad(3));
    KeyWindow::cut();
    keys.enter(keys.list, keys.button(4));
    KeyWindow::cut();
    keys.enter(keys.pads, keys.pad(5));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"2,0 0", "5,0 1"}));
}

void KeysTest::cutPadIsNotPastedAfterItChanged()
{
    KeyWindow keys(Output::Pads);
    keys.drop(0, keys.pad(2));
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::cut();
    keys.drop(1, keys.pad(2));
    keys.enter(keys.pads, keys.pad(5));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"2,0 1"}));
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::cut();
    KeyWindow::press(Qt::Key_Delete);
    keys.enter(keys.pads, keys.pad(5));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList());
}

void KeysTest::cutPadStaysInWhatIsShown()
{
    KeyWindow keys(Output::Pads);
    keys.drop(0, keys.pad(2));
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::cut();
    keys.bankcombo()->setCurrentIndex(1);
    keys.enter(keys.pads, keys.pad(9));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"2,0 0"}));
    keys.click("radio_outputmidi");
    keys.enter(keys.grid, keys.cell(4, 4));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"2,0 0"}));
    QCOMPARE(keys.cells(), QStringList());
    // Back at its place it is still taken.
    keys.click("radio_outputpage");
    keys.bankcombo()->setCurrentIndex(0);
    keys.enter(keys.pads, keys.pad(3));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"3,0 0"}));
}

void KeysTest::copyOfAPadTakesItsLiveButtonOnceMore()
{
    KeyWindow keys(Output::Pads);
    keys.drop(3, keys.pad(2));
    keys.window.vdjModel->setData(keys.pad(2), QStringLiteral("SPIN"), Qt::EditRole);
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::copy();
    keys.enter(keys.pads, keys.pad(6));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"2,0 3", "6,0 3"}));
    QCOMPARE(keys.pad(2).data().toString(), QStringLiteral("SPIN"));
    QCOMPARE(keys.pad(6).data().toString(), QStringLiteral("Circle"));
    // The same for the controller, which it can be pasted into as well.
    keys.click("radio_outputmidi");
    keys.enter(keys.grid, keys.cell(2, 2));
    KeyWindow::paste();
    QCOMPARE(keys.cells(), QStringList({"2,2 3"}));
    KeyWindow::copy();
    keys.enter(keys.grid, keys.cell(2, 3));
    KeyWindow::paste();
    QCOMPARE(keys.cells(), QStringList({"2,2 3", "2,3 3"}));
    // An empty cell and a Live Button that the show does not have give nothing to take.
    keys.enter(keys.grid, keys.cell(9, 9));
    KeyWindow::copy();
    keys.window.controllerModel->setData(keys.cell(2, 3), QStringLiteral("77"), ItemRole::Id);
    keys.enter(keys.grid, keys.cell(2, 3));
    KeyWindow::copy();
    keys.enter(keys.grid, keys.cell(2, 4));
    KeyWindow::paste();
    QCOMPARE(keys.cells(), QStringList({"2,2 3", "2,3 77", "2,4 3"}));
}

void KeysTest::copyLeavesTheNameOnTheSystemClipboard()
{
    const KeyWindow keys(Output::Pads);
    keys.enter(keys.list, keys.button(3));
    KeyWindow::copy();
    const QMimeData* data = QApplication::clipboard()->mimeData();
    QCOMPARE(data->text(), QStringLiteral("Circle"));
    QVERIFY(!data->hasFormat(QStringLiteral("application/x-color")));
    QVERIFY(!data->hasFormat(QStringLiteral("application/vnd.text.list")));
}

void KeysTest::takenThingsGoWithTheirShow()
{
    KeyWindow keys(Output::Pads);
    keys.enter(keys.list, keys.button(3));
    KeyWindow::copy();
    keys.loadshow(QStringLiteral("Other"));
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList());
    keys.drop(0, keys.pad(2));
    KeyWindow::cut();
    keys.window.on_actionNew_2_triggered();
    keys.drop(0, keys.pad(2));
    keys.enter(keys.pads, keys.pad(4));
    KeyWindow::paste();
    QCOMPARE(keys.padlist(), QStringList({"2,0 0"}));
}

void KeysTest::enterFillsTheShownBank()
{
    KeyWindow keys(Output::Pads);
    keys.loadmany(20);
    keys.bankcombo()->setCurrentIndex(1);
    keys.enter(keys.list, keys.button(0));
    for (int time = 0; time < 8; ++time)
        KeyWindow::press(time % 2 ? Qt::Key_Return : Qt::Key_Enter,
                         time % 2 ? Qt::NoModifier : Qt::KeypadModifier);
    QCOMPARE(keys.padlist(),
             QStringList({"8,0 0", "9,0 1", "10,0 2", "11,0 3", "12,0 4", "13,0 5", "14,0 6", "15,0 7"}));
    QCOMPARE(keys.marks(), QList<int>({0, 1, 2, 3, 4, 5, 6, 7}));
    QCOMPARE(keys.list->currentIndex().row(), 8);
    QVERIFY(keys.list->hasFocus());
    // The second column is not shown.
    KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.padlist().size(), 8);
    QCOMPARE(keys.list->currentIndex().row(), 8);
}

void KeysTest::enterFillsBothColumnsWhenTheyAreShown()
{
    KeyWindow keys(Output::Pads);
    keys.loadmany(20);
    keys.click("radioButton_16pads");
    keys.enter(keys.list, keys.button(0));
    for (int time = 0; time < 17; ++time)
        KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.padlist().size(), 16);
    QCOMPARE(KeyWindow::id(keys.pad(7)), QStringLiteral("7"));
    QCOMPARE(KeyWindow::id(keys.pad(0, 1)), QStringLiteral("8"));
    QCOMPARE(KeyWindow::id(keys.pad(7, 1)), QStringLiteral("15"));
    QCOMPARE(keys.list->currentIndex().row(), 16);
}

void KeysTest::enterFillsTheControllerRowByRowThenItsSides()
{
    KeyWindow keys(Output::Midi);
    keys.loadmany(120);
    // Four buttons above, eight at every other side.
    keys.choosedevice("LAUNCHPADPRO");
    keys.enter(keys.list, keys.button(0));
    for (int time = 0; time < 100; ++time) {
        KeyWindow::press(Qt::Key_Return);
        QVERIFY(keys.list->hasFocus());
    }
    QCOMPARE(keys.cells().size(), 64 + 4 + 8 + 8 + 8);
    const auto at = [&keys](int row, int column) { return KeyWindow::id(keys.cell(row, column)).toInt(); };
    QCOMPARE(at(2, 2), 0);
    QCOMPARE(at(2, 9), 7);
    QCOMPARE(at(3, 2), 8);
    QCOMPARE(at(9, 9), 63);
    QCOMPARE(at(0, 2), 64);
    QCOMPARE(at(0, 5), 67);
    QCOMPARE(at(2, 0), 68);
    QCOMPARE(at(9, 0), 75);
    QCOMPARE(at(2, 11), 76);
    QCOMPARE(at(9, 11), 83);
    QCOMPARE(at(11, 2), 84);
    QCOMPARE(at(11, 9), 91);
    QCOMPARE(keys.list->currentIndex().row(), 92);
}

void KeysTest::enterPassesWhatIsNoFreePad()
{
    KeyWindow keys(Output::Midi);
    keys.drop(4, keys.cell(2, 3));
    keys.window.menuIndex = keys.cell(2, 2);
    keys.window.ontoggleaction_triggered();
    keys.enter(keys.list, keys.button(0));
    KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.cells(), QStringList({"2,3 4", "2,4 0"}));
    QCOMPARE(keys.cell(2, 2).data().toString(), QStringLiteral("SWITCH"));
    // Without a Live page, but with the id of a Live Button, as a project from elsewhere can have it.
    keys.click("radio_outputpage");
    keys.window.vdjModel->setData(keys.pad(0), QStringLiteral("2"), ItemRole::Id);
    keys.enter(keys.list, keys.button(1));
    KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.padlist(), QStringList({"0,0 2", "1,0 1"}));
}

void KeysTest::enterPassesCellsThatTheDeviceLacks()
{
    KeyWindow keys(Output::Midi);
    keys.loadmany(70);
    keys.choosedevice("LAUNCHPADPRO");
    keys.drop(0, keys.cell(4, 0));
    keys.choosedevice("APCMINI");
    // Taken off there, the cell takes drops again, but there is no button at its place.
    keys.window.ondeletemidiaction_triggered(4, 0);
    keys.enter(keys.list, keys.button(0));
    // 64 pads, and the APC mini's buttons at the right and below.
    for (int time = 0; time < 90; ++time)
        KeyWindow::press(Qt::Key_Return);
    QVERIFY(!keys.cells().filter(QRegularExpression(QStringLiteral("^9,9 63$"))).isEmpty());
    QVERIFY(keys.cells().filter(QRegularExpression(QStringLiteral("^4,0 "))).isEmpty());
    // The last Live Button fills what the others left.
    QCOMPARE(keys.cells().size(), 64 + 8 + 8);
}

void KeysTest::enterWalksTheShownPageOfTheShow()
{
    KeyWindow keys(Output::Pads);
    keys.enter(keys.list, keys.button(0));
    keys.window.child<QComboBox>("combobox")->setCurrentIndex(2);
    // The current Live Button is on another page: nobody sees what would be placed.
    KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.padlist(), QStringList());
    KeyWindow::press(Qt::Key_Down);
    QCOMPARE(keys.list->currentIndex().row(), 3);
    for (int time = 0; time < 3; ++time)
        KeyWindow::press(Qt::Key_Return);
    // The last one stays current.
    QCOMPARE(keys.padlist(), QStringList({"0,0 3", "1,0 4", "2,0 4"}));
    QCOMPARE(keys.list->currentIndex().row(), 4);
}

void KeysTest::enterDoesNothingWhenNothingIsFree()
{
    KeyWindow keys(Output::Pads);
    for (int row = 0; row < 8; ++row)
        keys.drop(4, keys.pad(row));
    keys.enter(keys.list, keys.button(1));
    const QStringList before = keys.padlist();
    KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.padlist(), before);
    QCOMPARE(keys.list->currentIndex().row(), 1);
    QCOMPARE(keys.marks(), QList<int>({4}));
    keys.bankcombo()->setCurrentIndex(-1);
    KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.padlist(), before);
}

void KeysTest::doubleClickInTheListDoesNothing()
{
    const KeyWindow keys(Output::Pads);
    QTest::mouseDClick(keys.list->viewport(), Qt::LeftButton, Qt::NoModifier,
                       keys.list->visualRect(keys.button(1)).center());
    QCOMPARE(keys.padlist(), QStringList());
}

void KeysTest::deleteRemovesTheSelectedPad_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("delete") << int(Qt::Key_Delete);
    QTest::newRow("backspace") << int(Qt::Key_Backspace);
}

void KeysTest::deleteRemovesTheSelectedPad()
{
    QFETCH(const int, key);
    KeyWindow keys(Output::Pads);
    keys.drop(0, keys.pad(2));
    keys.drop(4, keys.pad(5));
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::press(static_cast<Qt::Key>(key));
    QCOMPARE(keys.padlist(), QStringList({"5,0 4"}));
    QCOMPARE(keys.pad(2).data().toString(), QStringLiteral("PAD 3"));
    QCOMPARE(keys.marks(), QList<int>({4}));
    QVERIFY(keys.pads->hasFocus());
    // The pad is empty now.
    const auto before = keys.window.vdjModel->getList();
    KeyWindow::press(static_cast<Qt::Key>(key));
    QCOMPARE(keys.window.vdjModel->getList(), before);
    QVERIFY(!keys.pads->viewport()->findChild<QLineEdit*>());
}

void KeysTest::deleteRemovesTheSelectedCells()
{
    KeyWindow keys(Output::Midi);
    for (int column = 2; column < 6; ++column)
        keys.drop(column - 2, keys.cell(2, column));
    keys.window.controllerModel->setData(keys.cell(2, 2), QStringLiteral("red"), ItemRole::ColorOn);
    keys.window.menuIndex = keys.cell(4, 4);
    keys.window.ontoggleaction_triggered();
    keys.grid->setFocus();
    keys.select({keys.cell(2, 2), keys.cell(2, 4), keys.cell(4, 4), keys.cell(5, 5)});
    KeyWindow::press(Qt::Key_Delete);
    QCOMPARE(keys.cells(), QStringList({"2,3 1", "2,5 3"}));
    QCOMPARE(keys.marks(), QList<int>({1, 3}));
    QCOMPARE(keys.cell(2, 2).data(ItemRole::ColorOn).toString(), QStringLiteral("red"));
    QCOMPARE(keys.cell(4, 4).data().toString(), QStringLiteral("SWITCH"));
    QVERIFY(keys.grid->hasFocus());
    // All of it is one step.
    keys.window.undo();
    QCOMPARE(keys.cells(), QStringList({"2,2 0", "2,3 1", "2,4 2", "2,5 3"}));
}

void KeysTest::deleteTouchesNothingThatIsNotShown()
{
    KeyWindow keys(Output::Pads);
    keys.click("radioButton_16pads");
    keys.drop(0, keys.pad(2));
    keys.drop(1, keys.pad(2, 1));
    const QStringList before = keys.padlist();
    keys.enter(keys.pads, keys.pad(2));
    keys.bankcombo()->setCurrentIndex(3);
    KeyWindow::press(Qt::Key_Delete);
    QCOMPARE(keys.padlist(), before);
    keys.bankcombo()->setCurrentIndex(0);
    keys.enter(keys.pads, keys.pad(2, 1));
    keys.click("radioButton_8pads");
    keys.pads->setFocus();
    KeyWindow::press(Qt::Key_Backspace);
    QCOMPARE(keys.padlist(), before);
    keys.enter(keys.pads, keys.pad(2));
    keys.click("radio_outputmidi");
    QTest::keyClick(keys.pads, Qt::Key_Delete);
    QCOMPARE(keys.padlist(), before);
}

void KeysTest::arrowsReachTheSwitch()
{
    KeyWindow keys(Output::Midi);
    keys.window.menuIndex = keys.cell(4, 4);
    keys.window.ontoggleaction_triggered();
    keys.enter(keys.grid, keys.cell(4, 2));
    KeyWindow::press(Qt::Key_Right);
    KeyWindow::press(Qt::Key_Right);
    QCOMPARE(keys.grid->currentIndex(), keys.cell(4, 4));
    QVERIFY(keys.grid->selectionModel()->selectedIndexes().isEmpty());
    // No key but its menu does anything to it.
    KeyWindow::press(Qt::Key_Delete);
    QCOMPARE(keys.cell(4, 4).data().toString(), QStringLiteral("SWITCH"));
    for (const auto& [key, row, column] :
         {std::tuple(Qt::Key_Down, 5, 4), std::tuple(Qt::Key_Up, 4, 4), std::tuple(Qt::Key_Left, 4, 3),
          std::tuple(Qt::Key_Right, 4, 4), std::tuple(Qt::Key_Up, 3, 4), std::tuple(Qt::Key_Down, 4, 4)}) {
        KeyWindow::press(key);
        QCOMPARE(keys.grid->currentIndex(), keys.cell(row, column));
    }
    KeyWindow::press(Qt::Key_F10, Qt::ShiftModifier);
    choose(KeyWindow::openmenu(), QStringLiteral("Set as Switch"));
    QCOMPARE(keys.window.switchPad, QList<int>({-1, -1}));
    QVERIFY(keys.cell(4, 4).flags().testFlag(Qt::ItemIsEnabled));
}

void KeysTest::arrowsReachALiveButtonWhereTheDeviceHasNoPad()
{
    for (const Qt::Key remove : {Qt::Key_Delete, Qt::Key_F10}) {
        KeyWindow keys(Output::Midi);
        keys.choosedevice("LAUNCHPADPRO");
        keys.drop(0, keys.cell(4, 0));
        keys.drop(1, keys.cell(4, 2));
        keys.choosedevice("APCMINI");
        keys.enter(keys.grid, keys.cell(4, 2));
        KeyWindow::press(Qt::Key_Left);
        QCOMPARE(keys.grid->currentIndex(), keys.cell(4, 0));
        if (remove == Qt::Key_Delete) {
            KeyWindow::press(remove);
        } else {
            KeyWindow::press(remove, Qt::ShiftModifier);
            choose(KeyWindow::openmenu(), QStringLiteral("Remove"));
        }
        QCOMPARE(keys.cells(), QStringList({"4,2 1"}));
        QCOMPARE(keys.marks(), QList<int>({1}));
    }
}

void KeysTest::keysBelongToTheTextThatIsEdited()
{
    KeyWindow keys(Output::Pads);
    keys.drop(0, keys.pad(2));
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::press(Qt::Key_F2);
    auto* editor = keys.pads->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->setText(QStringLiteral("abc"));
    KeyWindow::press(Qt::Key_Backspace);
    KeyWindow::press(Qt::Key_Home);
    KeyWindow::press(Qt::Key_Delete);
    QCOMPARE(editor->text(), QStringLiteral("b"));
    editor->selectAll();
    KeyWindow::cut();
    KeyWindow::paste();
    KeyWindow::paste();
    QCOMPARE(editor->text(), QStringLiteral("bb"));
    KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.padlist(), QStringList({"2,0 0"}));
    QTRY_COMPARE(keys.pad(2).data().toString(), QStringLiteral("bb"));
}

void KeysTest::commandsLeaveTheKeyboardWhereItIs()
{
    KeyWindow keys(Output::Pads);
    for (const char* name : {"padsname", "bankname"}) {
        auto* edit = keys.window.child<QLineEdit>(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("FRIDAY"));
        const Dialogs dialogs({Answers::key(Qt::Key_Return)});
        KeyWindow::press(Qt::Key_S, Qt::ControlModifier);
        // Without a window manager nothing activates the window again.
        keys.window.activateWindow();
        QTRY_VERIFY(edit->hasFocus());
        KeyWindow::press(Qt::Key_X);
        QCOMPARE(edit->text(), QStringLiteral("FRIDAYx"));
    }
    keys.drop(0, keys.pad(2));
    keys.enter(keys.pads, keys.pad(2));
    KeyWindow::press(Qt::Key_F2);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Go"));
    keys.window.undo();
    QVERIFY(keys.pads->hasFocus());
    QCOMPARE(keys.pad(2).data().toString(), QStringLiteral("Strobe"));
}

void KeysTest::nameThatIsTypedIsAStepOfItsOwn()
{
    KeyWindow keys(Output::Pads);
    auto* name = keys.window.child<QLineEdit>("padsname");
    for (const bool clean : {true, false}) {
        keys.drop(0, keys.pad(2));
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, QStringLiteral("Friday"));
        // As menu entries and buttons do that leave the focus where it is until they are done.
        if (clean)
            keys.window.on_cleanpads_button_clicked();
        else
            keys.window.on_actionNew_2_triggered();
        QCOMPARE(keys.padlist(), QStringList());
        keys.window.undo();
        QCOMPARE(keys.padlist(), QStringList({"2,0 0"}));
        QCOMPARE(name->text(), QStringLiteral("Friday"));
        keys.window.undo();
        QCOMPARE(name->text(), QStringLiteral("OS2L DMX"));
    }
}

void KeysTest::menusOpenAtTheCurrentCell_data()
{
    QTest::addColumn<Output>("output");
    QTest::addColumn<int>("key"); // 0: the request that the window system makes of the key
    QTest::addColumn<int>("modifiers");
    const int menu = int(Qt::Key_Menu);
    const int f10 = int(Qt::Key_F10);
    QTest::newRow("pads page, Menu") << Output::Pads << menu << int(Qt::NoModifier);
    QTest::newRow("pads page, Shift+F10") << Output::Pads << f10 << int(Qt::ShiftModifier);
    QTest::newRow("pads page, request") << Output::Pads << 0 << 0;
    QTest::newRow("controller, Menu") << Output::Midi << menu << int(Qt::NoModifier);
    QTest::newRow("controller, Shift+F10") << Output::Midi << f10 << int(Qt::ShiftModifier);
    QTest::newRow("controller, request") << Output::Midi << 0 << 0;
}

void KeysTest::menusOpenAtTheCurrentCell()
{
    QFETCH(const Output, output);
    QFETCH(const int, key);
    QFETCH(const int, modifiers);
    KeyWindow keys(output);
    QTableView* const view = output == Output::Pads ? keys.pads : keys.grid;
    const QModelIndex current = output == Output::Pads ? keys.pad(6) : keys.cell(8, 3);
    keys.drop(0, current);
    keys.enter(view, current);
    if (key == 0) {
        const QPoint center = view->rect().center();
        QContextMenuEvent request(QContextMenuEvent::Keyboard, center, view->mapToGlobal(center));
        QApplication::sendEvent(view, &request);
    } else {
        KeyWindow::press(static_cast<Qt::Key>(key), Qt::KeyboardModifiers(QFlag(modifiers)));
    }
    QMenu* menu = KeyWindow::openmenu();
    QVERIFY(menu);
    QCOMPARE(menu->pos(), view->viewport()->mapToGlobal(view->visualRect(current).center()));
    choose(menu, QStringLiteral("Remove"));
    QCOMPARE(KeyWindow::id(current), QStringLiteral("-1"));
}

void KeysTest::menuOfAnEmptyPadDoesNotOpen()
{
    const KeyWindow keys(Output::Pads);
    keys.enter(keys.pads, keys.pad(3));
    KeyWindow::press(Qt::Key_Menu);
    QVERIFY(!KeyWindow::openmenu());
    // Neither does that of a pad which is not shown.
    keys.drop(0, keys.pad(3));
    keys.bankcombo()->setCurrentIndex(2);
    KeyWindow::press(Qt::Key_Menu);
    QVERIFY(!KeyWindow::openmenu());
    // Nor that of the pad which happens to lie where the window system's request points.
    keys.drop(0, keys.pad(20));
    const QPoint center = keys.pads->visualRect(keys.pad(20)).center();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, center, keys.pads->mapToGlobal(center));
    QApplication::sendEvent(keys.pads, &request);
    QVERIFY(!KeyWindow::openmenu());
}

void KeysTest::menuByKeyAppliesToTheCurrentCell()
{
    KeyWindow keys(Output::Midi);
    keys.drop(0, keys.cell(2, 2));
    keys.drop(1, keys.cell(2, 3));
    keys.enter(keys.grid, keys.cell(2, 2));
    keys.grid->selectionModel()->setCurrentIndex(keys.cell(2, 3), QItemSelectionModel::NoUpdate);
    KeyWindow::press(Qt::Key_F10, Qt::ShiftModifier);
    choose(KeyWindow::openmenu(), QStringLiteral("Remove"));
    QCOMPARE(keys.cells(), QStringList({"2,2 0"}));
}

void KeysTest::tabReachesNothingThatIsCovered()
{
    const KeyWindow keys(Output::Midi);
    keys.window.child<QWidget>("loadini")->setFocus();
    QStringList visited;
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        for (int step = 0; step < 30; ++step) {
            visited.append(QApplication::focusWidget()->objectName());
            KeyWindow::press(key);
        }
    }
    QVERIFY(visited.contains(QStringLiteral("tablecontroller")));
    QVERIFY(!visited.contains(QStringLiteral("vdjlistview")));
    keys.click("radio_outputpage");
    for (int step = 0; step < 30; ++step) {
        visited.append(QApplication::focusWidget()->objectName());
        KeyWindow::press(Qt::Key_Tab);
    }
    QVERIFY(visited.contains(QStringLiteral("vdjlistview")));
}

void KeysTest::coveredPadsTakeNoKeys()
{
    KeyWindow keys(Output::Midi);
    keys.drop(0, keys.pad(2));
    // A slot that answers to the pads page gives its grid the focus even now.
    keys.pads->setCurrentIndex(keys.pad(2));
    keys.pads->setFocus();
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_A, Qt::Key_Delete, Qt::Key_Menu})
        QTest::keyClick(keys.pads, key);
    QVERIFY(!keys.pads->viewport()->findChild<QLineEdit*>());
    QVERIFY(!KeyWindow::openmenu());
    QCOMPARE(keys.padlist(), QStringList({"2,0 0"}));
    KeyWindow::press(Qt::Key_Tab);
    QVERIFY(!keys.pads->hasFocus());
}

void KeysTest::focusLeavesAGridThatGetsCovered()
{
    KeyWindow keys(Output::Pads);
    keys.drop(0, keys.pad(2));
    keys.enter(keys.pads, keys.pad(2));
    keys.window.child<QAbstractButton>("radio_outputmidi")->setChecked(true);
    keys.window.on_radio_outputmidi_clicked();
    QVERIFY(keys.grid->hasFocus());
}

void KeysTest::arrowsStartAtTheFirstShownCell_data()
{
    QTest::addColumn<bool>("tab");
    QTest::newRow("entered by Tab") << true;
    QTest::newRow("by an arrow") << false;
}

void KeysTest::arrowsStartAtTheFirstShownCell()
{
    QFETCH(const bool, tab);
    KeyWindow keys(Output::Midi);
    const auto start = [tab](QWidget* before, QTableView* view) {
        if (tab) {
            before->setFocus();
            KeyWindow::press(Qt::Key_Tab);
        } else {
            view->setFocus();
            KeyWindow::press(Qt::Key_Right);
        }
        QVERIFY(view->hasFocus());
    };
    // The top left cell of the controller grid is no pad, and the first pad is out of use as the switch.
    keys.window.menuIndex = keys.cell(2, 2);
    keys.window.ontoggleaction_triggered();
    start(keys.window.child<QWidget>("cleanmidi_button"), keys.grid);
    QCOMPARE(keys.grid->currentIndex(), keys.cell(2, 3));
    QCOMPARE(keys.grid->selectionModel()->selectedIndexes(), QModelIndexList({keys.cell(2, 3)}));
    // The arrows cross the spacers.
    for (int step = 0; step < 7; ++step)
        KeyWindow::press(Qt::Key_Right);
    QCOMPARE(keys.grid->currentIndex(), keys.cell(2, 11));

    keys.click("radio_outputpage");
    keys.pads->setCurrentIndex(keys.pad(3));
    keys.bankcombo()->setCurrentIndex(2);
    start(keys.window.child<QWidget>("bankname"), keys.pads);
    QCOMPARE(keys.pads->currentIndex(), keys.pad(16));
    keys.list->setCurrentIndex(keys.button(0));
    keys.window.child<QComboBox>("combobox")->setCurrentIndex(2);
    start(keys.window.child<QWidget>("combobox"), keys.list);
    QCOMPARE(keys.list->currentIndex(), keys.button(3));
}

void KeysTest::menuShowsTheKeys()
{
    const TestHome home;
    const TestWindow window;
    QMap<QString, QString> shortcuts;
    const auto actions = window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QAction* action : actions) {
        QVERIFY2(!action->text().contains(QLatin1Char('\t')), qPrintable(action->objectName()));
        if (!action->shortcut().isEmpty())
            shortcuts.insert(action->objectName(), action->shortcut().toString(QKeySequence::PortableText));
    }
    const QMap<QString, QString> wanted{
        {QStringLiteral("actionNew"), QStringLiteral("Ctrl+O")},
        {QStringLiteral("actionLoad_Project"), QStringLiteral("Ctrl+Shift+O")},
        {QStringLiteral("actionSave_2"), QStringLiteral("Ctrl+S")},
        {QStringLiteral("actionExport"), QStringLiteral("Ctrl+Shift+E")},
        {QStringLiteral("actionExit"), QStringLiteral("Ctrl+Q")},
        {QStringLiteral("actionManual"), QStringLiteral("F1")},
    };
    QCOMPARE(shortcuts, wanted);
}

void KeysTest::readmeAndManualNameTheKeys_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QString>("readme");
    QTest::addColumn<QString>("manual");
    QTest::newRow("show") << QByteArray("actionNew") << "load a show"
                          << "Load a show";
    QTest::newRow("project") << QByteArray("actionLoad_Project") << "load a project"
                             << "Load a project";
    QTest::newRow("save") << QByteArray("actionSave_2") << "save"
                          << "Save the project";
    QTest::newRow("export") << QByteArray("actionExport") << "export"
                            << "Export";
    QTest::newRow("exit") << QByteArray("actionExit") << "exit"
                          << "Exit";
    QTest::newRow("manual") << QByteArray("actionManual") << "the manual"
                            << "This manual";
}

void KeysTest::readmeAndManualNameTheKeys()
{
    QFETCH(const QByteArray, action);
    QFETCH(const QString, readme);
    QFETCH(const QString, manual);
    const KeyWindow keys(Output::Pads);
    const QString key = keys.window.child<QAction>(action.constData())->shortcut().toString();
    const QString project = QStringLiteral(EXAMPLES_DIR "/../");
    const auto words = [](const QString& path) { return QString::fromUtf8(contents(path)).simplified(); };
    QVERIFY(words(project + "README.md").contains(key + " (" + readme + ")"));
    QVERIFY(
        words(project + "docs/manual/manual.html").contains("<td>" + key + "</td><td>" + manual + "</td>"));
}

void KeysTest::everyMenuEntryIsReachedByKeys()
{
    KeyWindow keys(Output::Pads);
    const QSignalSpy emptied(keys.window.child<QAction>("actionNew_2"), &QAction::triggered);
    keys.list->setFocus();
    QTest::keyClick(keys.list, Qt::Key_Alt);
    QCOMPARE(QApplication::focusWidget(), keys.window.menuBar());
    KeyWindow::press(Qt::Key_Down);
    QMenu* menu = KeyWindow::openmenu();
    QVERIFY(menu);
    choose(menu, QStringLiteral("New Project"));
    QCOMPARE(emptied.count(), 1);
}

void KeysTest::theWholeJobGoesByKeys()
{
    KeyWindow keys(Output::Pads);
    keys.window.child<QWidget>("combobox")->setFocus();
    KeyWindow::press(Qt::Key_Tab);
    QVERIFY(keys.list->hasFocus());
    for (int time = 0; time < 3; ++time)
        KeyWindow::press(Qt::Key_Return);
    QCOMPARE(keys.padlist(), QStringList({"0,0 0", "1,0 1", "2,0 2"}));
    KeyWindow::press(Qt::Key_Z, Qt::ControlModifier);
    KeyWindow::press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(keys.padlist(), QStringList({"0,0 0"}));
    QCOMPARE(keys.marks(), QList<int>({0}));
    KeyWindow::press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(keys.padlist(), QStringList({"0,0 0", "1,0 1"}));
    // To the radio buttons, and over to the controller.
    KeyWindow::press(Qt::Key_Tab);
    KeyWindow::press(Qt::Key_Right);
    QVERIFY(keys.window.child<QAbstractButton>("radio_outputmidi")->isChecked());
    QVERIFY(keys.grid->isVisible());
}

LUMIPAD_TEST_MAIN(KeysTest)

#include "tst_keys.moc"
