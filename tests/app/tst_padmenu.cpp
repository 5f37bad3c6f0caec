#include "controller.h"
#include "itemroles.h"
#include "midiwindow.h"
#include "mymodel.h"
#include "testmain.h"
#include "vdjmodel.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QImage>
#include <QPointer>
#include <QPushButton>

#include <limits>

using Output = MidiWindow::Output;

namespace {

constexpr int least = std::numeric_limits<int>::min();
constexpr int most = std::numeric_limits<int>::max();

const QString menuStyle =
    "QMenu {padding: 2px; background-color: black; border:1px solid #505050;}QMenu::item{color:#aaaaaa; "
    "background-color: #101010;}QMenu::item:selected{color:white;background: #404040;}QMenu::separator"
    "{height: 1px; margin: 5px; background: #909090; }";

const QString offmenu = "Off Color";
const QString onmenu = "On Color";
const QStringList gridPath{"dmxlistview", "tablecontroller"};

/// The devices that the tests choose.
const QString ApcMini = "APCMINI";
const QString LaunchpadMk2 = "LAUNCHPAD2";
const QString Launchpad = "LAUNCHPAD";

void choosedevice(const MidiWindow& midi, const QString& device)
{
    midi.window.child<QComboBox>("devicescombo")->setCurrentIndex(devicerow(device));
}

void set(const MidiWindow& midi, const QModelIndex& cell, int role, const QString& value)
{
    if (!midi.window.controllerModel->setData(cell, value, role))
        qFatal("The grid refuses a value of the test");
}

/// Everything a pad's record holds, in the order of the arguments of `record`.
QStringList record(const QModelIndex& cell)
{
    return MidiWindow::values(cell, {Qt::EditRole, ItemRole::DspName, ItemRole::Page, ItemRole::Id,
                                     ItemRole::Avail, Qt::DecorationRole, Qt::ForegroundRole,
                                     ItemRole::ColorOff, ItemRole::ColorOn, ItemRole::Blink});
}

/// An empty pad labelled \a label, with the colours and the blink that it kept.
QStringList emptyrecord(const QString& label, const QString& off, const QString& on, const QString& blink)
{
    return {label, label, "0", "-1", "1", "#000000", "#ffffff", off, on, blink};
}

QStringList switchrecord(const QString& off = QString(), const QString& on = QString(),
                         const QString& blink = QString())
{
    // QColor names "green" by its number.
    return {"SWITCH", "SWITCH", "0", "-1", "0", "#000000", "#008000", off, on, blink};
}

void giveowncolors(const MidiWindow& midi, const QModelIndex& cell)
{
    set(midi, cell, ItemRole::ColorOff, "red");
    set(midi, cell, ItemRole::ColorOn, "yellow");
    set(midi, cell, ItemRole::Blink, "1");
}

/// The colour of every pixel of an entry's icon, which must be 10 by 10; invalid when they differ.
QColor iconcolor(const QAction* action)
{
    const QIcon icon = action->icon();
    if (icon.availableSizes() != QList<QSize>{QSize(10, 10)})
        return QColor();
    const QImage image = icon.pixmap(10, 10).toImage();
    QImage plain(image.size(), image.format());
    plain.fill(image.pixelColor(0, 0));
    return image == plain ? image.pixelColor(0, 0) : QColor();
}

/// Picks \a color in the colour dialog and accepts it.
Answer pick(const QColor& color)
{
    return [color](QDialog* dialog) {
        auto* colors = qobject_cast<QColorDialog*>(dialog);
        const auto* box = dialog->findChild<QDialogButtonBox*>();
        if (!colors || !box)
            return;
        colors->setCurrentColor(color);
        QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
    };
}

Answer cancelcolor()
{
    return [](QDialog* dialog) {
        if (const auto* box = dialog->findChild<QDialogButtonBox*>())
            QTest::mouseClick(box->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    };
}

/// Lets everything go that waits to be deleted.
void deletewaiting()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class PadMenuTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void cellWithALiveButtonOffersEverything();
    void everyOtherCellOffersTheSwitchAlone_data();
    void everyOtherCellOffersTheSwitchAlone();
    void menuComesByAnyRoad();
    void menuComesUnderTheMouse();
    void menusAreStyled();
    void placesOutsideEveryCellHaveNoMenu();
    void paletteIsOfferedWithTheOwnColourTicked_data();
    void paletteIsOfferedWithTheOwnColourTicked();
    void paletteHasASwatchForEveryColour();
    void offAndOnMenusShowTheirOwnColour();
    void longPaletteIsOfferedWhole();
    void fullColourDevicesOfferTheDialog_data();
    void fullColourDevicesOfferTheDialog();
    void blinkIsTickedForOneAlone_data();
    void blinkIsTickedForOneAlone();
    void switchIsTickedOnItsCellAlone();
    void rightClickKeepsTheSelectionItHits();

    void menuOfACellThatTheDeviceLacksActsOnThatCellAlone_data();
    void menuOfACellThatTheDeviceLacksActsOnThatCellAlone();
    void removeEmptiesEverySelectedCell();
    void removeKeepsTheMarkWhileACellHoldsTheButton();
    void removeCountsTheControllerAlone();
    void removeGoesOverTheListToTheGrid();
    void removeShowsAtOnce();
    void emptiedCellIsUnmarkedLikeARemovedOne();
    void paletteColourGoesToEverySelectedCell_data();
    void paletteColourGoesToEverySelectedCell();
    void defaultTakesTheOwnColourAway();
    void paletteNumbersBeyondThePaletteAreHarmless_data();
    void paletteNumbersBeyondThePaletteAreHarmless();
    void dialogColourGoesToEverySelectedCell_data();
    void dialogColourGoesToEverySelectedCell();
    void dialogStartsWithTheCellsColour();
    void cancelledDialogChangesNothing();
    void blinkFollowsTheClickedCell();

    void switchIsSetOnTheClickedCellAlone();
    void switchIsTakenBack();
    void switchMoves();
    void switchTakesTheLiveButtonOff();
    void switchGoesOverTheListToTheGrid();
    void switchShowsAtOnce();
    void switchWithoutMenuCellChangesNothing();
    void deviceChangeMakesTheSwitchUsable();

    void cleanEmptiesTheGridAndKeepsTheRest();
    void cleanShowsTheFormerSwitchAsAPad();
    void cleanUnmarksFully();
    void cleanLeavesThePadsPage();
    void cleanLeavesTheColourOfUnusableCells();
    void cleanGoesToTheListAtOnce();

    void rightClicksLeaveNothingBehind();
    void deviceChangesUnderTheOpenMenu();
    void rowsGoUnderTheOpenMenu();
    void rowsGoUnderTheColourDialog();

    void padsPageMenuComesOnOccupiedPadsAlone();
    void padsPageMenuComesUnderTheMouse();
    void padsPageMenuIsStyled();
    void padsPageRemoveNumbersByRow_data();
    void padsPageRemoveNumbersByRow();
    void padsPageRemoveUnmarksWithTheLastPad();
    void padsPageRemoveDoesNotSearchTheSecondColumn();
    void padsPageRemoveTakesTheMarkOfTheSecondColumn();
    void padsPageRemoveGoesOverTheListToThePads();
    void padsPageRemoveWithoutSelectionChangesNoPad();
    void padsPageRightClicksLeaveNothingBehind();
    void padsGoUnderTheOpenMenu();
};

void PadMenuTest::cleanup()
{
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    deletewaiting();
}

void PadMenuTest::cellWithALiveButtonOffersEverything()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(4, 5));
    QVERIFY(midi.window.showready());
    const QMenu* menu = midi.rightclick(midi.grid, midi.cell(4, 5));
    QVERIFY(menu);
    QCOMPARE(entries(menu),
             (QStringList{"Remove", "-", "Off Color>", "On Color>", "Blink", "-", "Set as Switch"}));
    QCOMPARE(midi.window.menuIndex, midi.cell(4, 5));
    for (const char* text : {"Remove", "Off Color", "On Color"})
        QVERIFY(!entry(menu, text)->isCheckable());
    for (const char* text : {"Blink", "Set as Switch"}) {
        QVERIFY(entry(menu, text)->isCheckable());
        QVERIFY(!entry(menu, text)->isChecked());
    }
    const auto actions = menu->actions();
    for (const QAction* action : actions)
        QVERIFY(action->isEnabled());
}

void PadMenuTest::everyOtherCellOffersTheSwitchAlone_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("pad") << 4 << 5;
    QTest::newRow("side button") << 11 << 2;
    QTest::newRow("cell that the device lacks") << 0 << 2;
    QTest::newRow("corner") << 11 << 11;
    QTest::newRow("spacer") << 10 << 10;
}

void PadMenuTest::everyOtherCellOffersTheSwitchAlone()
{
    QFETCH(int, row);
    QFETCH(int, col);
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    const QMenu* menu = midi.rightclick(midi.grid, midi.cell(row, col));
    QVERIFY(menu);
    QCOMPARE(entries(menu), (QStringList{"-", "Set as Switch"}));
    QCOMPARE(midi.window.menuIndex, midi.cell(row, col));
    QVERIFY(menu->actions().at(1)->isCheckable());
    QVERIFY(!menu->actions().at(1)->isChecked());
}

void PadMenuTest::menuComesByAnyRoad()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(3, 3));
    QVERIFY(midi.window.showready());
    const QPoint pos = midi.grid->visualRect(midi.cell(3, 3)).center();
    const auto seen = [&] {
        const QMenu* menu = MidiWindow::openmenu();
        QString first = menu ? entries(menu).constFirst() : QString("no menu");
        cleanup();
        return first;
    };
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, midi.grid->viewport()->mapToGlobal(pos));
    QCoreApplication::sendEvent(midi.grid->viewport(), &event);
    QCOMPARE(seen(), QString("Remove"));
    emit midi.grid->customContextMenuRequested(pos);
    QCOMPARE(seen(), QString("Remove"));
    QVERIFY(QMetaObject::invokeMethod(&midi.window, "customMenuRequested", Q_ARG(QPoint, pos)));
    QCOMPARE(seen(), QString("Remove"));
}

void PadMenuTest::menuComesUnderTheMouse()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    midi.window.move(0, 0);
    const QPoint pos = midi.grid->visualRect(midi.cell(3, 2)).center();
    const QMenu* menu = midi.rightclick(midi.grid, pos);
    QVERIFY(menu);
    QCOMPARE(menu->pos(), midi.grid->viewport()->mapToGlobal(pos));
    QCOMPARE(menu->parentWidget(), &midi.window);
}

void PadMenuTest::menusAreStyled()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(3, 3));
    QVERIFY(midi.window.showready());
    const QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
    QVERIFY(menu);
    QCOMPARE(menu->styleSheet(), menuStyle);
    QCOMPARE(entry(menu, offmenu)->menu()->styleSheet(), menuStyle);
    QCOMPARE(entry(menu, onmenu)->menu()->styleSheet(), menuStyle);
}

void PadMenuTest::placesOutsideEveryCellHaveNoMenu()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(3, 3));
    QVERIFY(midi.window.showready());
    const QRect corner = midi.grid->visualRect(midi.cell(11, 11));
    QVERIFY(midi.grid->viewport()->rect().contains(corner.bottomRight() + QPoint(20, 20)));
    QVERIFY(!midi.rightclick(midi.grid, corner.center() + QPoint(corner.width(), 0)));
    QVERIFY(!midi.rightclick(midi.grid, corner.center() + QPoint(0, corner.height())));
    QVERIFY(!midi.window.menuIndex.isValid());
    for (const QPoint& pos : {QPoint(-1, -1), QPoint(5000, 5000), QPoint(least, least), QPoint(most, most)}) {
        midi.window.customMenuRequested(pos);
        QVERIFY(!MidiWindow::openmenu());
    }
}

void PadMenuTest::paletteIsOfferedWithTheOwnColourTicked_data()
{
    const QString tick = QString::fromUtf8("✔");
    QTest::addColumn<QString>("own");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("none") << "" << QStringList{tick + "default", "-", " black", " green", " red", " yellow"};
    QTest::newRow("red") << "red"
                         << QStringList{" default", "-", " black", " green", tick + "red", " yellow"};
    QTest::newRow("black") << "black"
                           << QStringList{" default", "-", tick + "black", " green", " red", " yellow"};
    QTest::newRow("other case") << "Red"
                                << QStringList{" default", "-", " black", " green", " red", " yellow"};
    QTest::newRow("of another device")
        << "#FF0000" << QStringList{" default", "-", " black", " green", " red", " yellow"};
}

void PadMenuTest::paletteIsOfferedWithTheOwnColourTicked()
{
    QFETCH(QString, own);
    QFETCH(QStringList, texts);
    const QList<std::pair<int, QString>> menus{{ItemRole::ColorOff, offmenu}, {ItemRole::ColorOn, onmenu}};
    for (const auto& [role, submenu] : menus) {
        MidiWindow midi;
        midi.drop(0, midi.cell(3, 3));
        set(midi, midi.cell(3, 3), role, own);
        QVERIFY(midi.window.showready());
        const QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
        QVERIFY(menu);
        QCOMPARE(entries(entry(menu, submenu)->menu()), texts);
        cleanup();
    }
}

void PadMenuTest::paletteHasASwatchForEveryColour()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(3, 3));
    set(midi, midi.cell(3, 3), ItemRole::ColorOn, "green");
    QVERIFY(midi.window.showready());
    const QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
    QVERIFY(menu);
    for (const QString& submenu : {offmenu, onmenu}) {
        const QList<QAction*> actions = entry(menu, submenu)->menu()->actions();
        QVERIFY(actions.at(0)->icon().isNull());
        QCOMPARE(iconcolor(actions.at(2)), QColor(0, 0, 0));
        QCOMPARE(iconcolor(actions.at(3)), QColor(0, 128, 0));
        QCOMPARE(iconcolor(actions.at(4)), QColor(255, 0, 0));
        QCOMPARE(iconcolor(actions.at(5)), QColor(255, 255, 0));
    }
}

void PadMenuTest::offAndOnMenusShowTheirOwnColour()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(3, 3));
    set(midi, midi.cell(3, 3), ItemRole::ColorOff, "green");
    set(midi, midi.cell(3, 3), ItemRole::ColorOn, "yellow");
    QVERIFY(midi.window.showready());
    const QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
    QVERIFY(menu);
    QVERIFY(entries(entry(menu, offmenu)->menu()).contains(QString::fromUtf8("✔green")));
    QVERIFY(entries(entry(menu, offmenu)->menu()).contains(" yellow"));
    QVERIFY(entries(entry(menu, onmenu)->menu()).contains(QString::fromUtf8("✔yellow")));
    QVERIFY(entries(entry(menu, onmenu)->menu()).contains(" green"));
}

void PadMenuTest::longPaletteIsOfferedWhole()
{
    MidiWindow midi;
    choosedevice(midi, Launchpad);
    midi.drop(0, midi.cell(3, 3));
    set(midi, midi.cell(3, 3), ItemRole::ColorOff, "#55FF00");
    QVERIFY(midi.window.showready());
    QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
    QVERIFY(menu);
    const QString palette = QString::fromUtf8(" default|-| #000000| #550000| #AA0000| #FF0000| #005500| "
                                              "#00AA00| #00FF00| #555500| #AA5500| #FF5500|"
                                              " #55AA00| #AAAA00| #FFAA00|✔#55FF00| #AAFF00| #FFFF00");
    const QMenu* off = entry(menu, offmenu)->menu();
    QCOMPARE(entries(off).join('|'), palette);
    QCOMPARE(iconcolor(entry(off, " #AA5500")), QColor(0xAA, 0x55, 0));
    choose(menu, " #FFAA00", onmenu);
    QCOMPARE(midi.cell(3, 3).data(ItemRole::ColorOn).toString(), QString("#FFAA00"));
    QCOMPARE(midi.cell(3, 3).data(ItemRole::ColorOff).toString(), QString("#55FF00"));
}

void PadMenuTest::fullColourDevicesOfferTheDialog_data()
{
    QTest::addColumn<QString>("fullrgb");
    QTest::addColumn<QString>("own");
    QTest::addColumn<QString>("first");
    QTest::newRow("default") << "true"
                             << "" << QString::fromUtf8("✔default");
    QTest::newRow("own colour") << "true"
                                << "#12ab34"
                                << " default";
    QTest::newRow("neither true nor false") << ""
                                            << "#12ab34"
                                            << " default";
    QTest::newRow("false in capitals") << "False"
                                       << "#12ab34"
                                       << " default";
}

void PadMenuTest::fullColourDevicesOfferTheDialog()
{
    QFETCH(QString, fullrgb);
    QFETCH(QString, own);
    QFETCH(QString, first);
    MidiWindow midi;
    choosedevice(midi, LaunchpadMk2);
    midi.window.devices[devicerow(LaunchpadMk2)]["fullrgb"] = fullrgb;
    midi.drop(0, midi.cell(3, 3));
    set(midi, midi.cell(3, 3), ItemRole::ColorOff, own);
    set(midi, midi.cell(3, 3), ItemRole::ColorOn, own);
    QVERIFY(midi.window.showready());
    const QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
    QVERIFY(menu);
    for (const QString& submenu : {offmenu, onmenu}) {
        const QMenu* colors = entry(menu, submenu)->menu();
        QCOMPARE(entries(colors), (QStringList{first, "-", "Select ..."}));
        if (!own.isEmpty())
            QCOMPARE(iconcolor(entry(colors, "Select ...")), QColor(0x12, 0xab, 0x34));
    }
}

void PadMenuTest::blinkIsTickedForOneAlone_data()
{
    QTest::addColumn<QString>("blink");
    QTest::addColumn<bool>("ticked");
    QTest::newRow("blinks") << "1" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("zero") << "0" << false;
    QTest::newRow("word") << "true" << false;
    QTest::newRow("other number") << "01" << false;
}

void PadMenuTest::blinkIsTickedForOneAlone()
{
    QFETCH(QString, blink);
    QFETCH(bool, ticked);
    MidiWindow midi;
    midi.drop(0, midi.cell(3, 3));
    set(midi, midi.cell(3, 3), ItemRole::Blink, blink);
    QVERIFY(midi.window.showready());
    const QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
    QVERIFY(menu);
    QCOMPARE(entry(menu, "Blink")->isChecked(), ticked);
}

void PadMenuTest::switchIsTickedOnItsCellAlone()
{
    MidiWindow midi;
    midi.window.switchPad = {3, 4};
    QVERIFY(midi.window.showready());
    const auto ticked = [&](int row, int col) {
        const QMenu* menu = midi.rightclick(midi.grid, midi.cell(row, col));
        const bool is = menu && entry(menu, "Set as Switch")->isChecked();
        cleanup();
        return is;
    };
    QVERIFY(ticked(3, 4));
    QVERIFY(!ticked(4, 3));
    QVERIFY(!ticked(3, 3));
    QVERIFY(!ticked(4, 4));
    // The switch stays the switch, also with a Live Button that a project brought there.
    set(midi, midi.cell(3, 4), ItemRole::Id, "2");
    QVERIFY(ticked(3, 4));
}

void PadMenuTest::rightClickKeepsTheSelectionItHits()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    midi.select({midi.cell(3, 3), midi.cell(4, 4)});
    QVERIFY(midi.rightclick(midi.grid, midi.cell(4, 4)));
    QCOMPARE(midi.grid->selectionModel()->selectedIndexes().size(), 2);
    cleanup();
    QVERIFY(midi.rightclick(midi.grid, midi.cell(5, 5)));
    QCOMPARE(midi.grid->selectionModel()->selectedIndexes(), QModelIndexList{midi.cell(5, 5)});
}

void PadMenuTest::menuOfACellThatTheDeviceLacksActsOnThatCellAlone_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("submenu");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("value");
    QTest::newRow("Remove") << "Remove" << QString() << int(ItemRole::Id) << "-1";
    QTest::newRow("off colour") << " #00FF00" << offmenu << int(ItemRole::ColorOff) << "#00FF00";
    QTest::newRow("on colour") << " #FFFF00" << onmenu << int(ItemRole::ColorOn) << "#FFFF00";
    QTest::newRow("Blink") << "Blink" << QString() << int(ItemRole::Blink) << "1";
    QTest::newRow("switch") << "Set as Switch" << QString() << int(Qt::EditRole) << "SWITCH";
}

void PadMenuTest::menuOfACellThatTheDeviceLacksActsOnThatCellAlone()
{
    QFETCH(QString, entry);
    QFETCH(QString, submenu);
    QFETCH(int, role);
    QFETCH(QString, value);
    MidiWindow midi;
    midi.drop(0, midi.cell(11, 2));
    midi.drop(1, midi.cell(2, 2));
    midi.drop(2, midi.cell(3, 3));
    // This one has no buttons at the bottom.
    choosedevice(midi, Launchpad);
    QVERIFY(midi.window.showready());
    const QModelIndexList selection{midi.cell(2, 2), midi.cell(3, 3)};
    midi.select(selection);
    const QList<QStringList> before{record(selection.at(0)), record(selection.at(1))};
    choose(midi.rightclick(midi.grid, midi.cell(11, 2)), entry, submenu);
    QCOMPARE(midi.cell(11, 2).data(role).toString(), value);
    QCOMPARE((QList<QStringList>{record(selection.at(0)), record(selection.at(1))}), before);
    QCOMPARE(midi.grid->selectionModel()->selectedIndexes(), selection);
    cleanup();

    // The next menu, on a cell that the device has, is for the selected cells again.
    choose(midi.rightclick(midi.grid, midi.cell(2, 2)), "Blink");
    for (const QModelIndex& cell : selection)
        QCOMPARE(cell.data(ItemRole::Blink).toString(), QString("1"));
}

void PadMenuTest::removeEmptiesEverySelectedCell()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.drop(1, midi.cell(9, 9));
    midi.drop(2, midi.cell(11, 4));
    midi.drop(3, midi.cell(5, 5));
    midi.setchecks("11111");
    giveowncolors(midi, midi.cell(2, 2));
    giveowncolors(midi, midi.cell(5, 5));
    set(midi, midi.cell(9, 9), Qt::ForegroundRole, "green");
    const QStringList other = record(midi.cell(5, 5));
    QVERIFY(midi.window.showready());
    midi.select({midi.cell(2, 2), midi.cell(9, 9), midi.cell(11, 4), midi.cell(6, 6)});
    choose(midi.rightclick(midi.grid, midi.cell(9, 9)), "Remove");

    QVERIFY(!MidiWindow::openmenu());
    QCOMPARE(record(midi.cell(2, 2)), emptyrecord("PAD 1", "red", "yellow", "1"));
    QCOMPARE(record(midi.cell(9, 9)), emptyrecord("PAD 64", "", "", ""));
    QCOMPARE(record(midi.cell(11, 4)), emptyrecord("BOTTOM 3", "", "", ""));
    QCOMPARE(record(midi.cell(6, 6)), emptyrecord("PAD 37", "", "", "0"));
    QCOMPARE(record(midi.cell(5, 5)), other);
    QCOMPARE(midi.marks(), QList<int>{3});
    QCOMPARE(midi.checks(), QString("00011"));
}

void PadMenuTest::removeKeepsTheMarkWhileACellHoldsTheButton()
{
    MidiWindow midi;
    midi.drop(1, midi.cell(2, 2));
    midi.drop(1, midi.cell(4, 11));
    midi.drop(1, midi.cell(11, 9));
    midi.setchecks("11111");
    midi.select({midi.cell(2, 2)});
    midi.window.ondeleteaction_triggered();
    QCOMPARE(midi.marks(), QList<int>{1});
    QCOMPARE(midi.checks(), QString("11111"));
    midi.select({midi.cell(4, 11), midi.cell(11, 9)});
    midi.window.ondeleteaction_triggered();
    QCOMPARE(midi.marks(), QList<int>());
    QCOMPARE(midi.checks(), QString("10111"));
    QVERIFY(midi.window.isMIDIempty());
}

void PadMenuTest::removeCountsTheControllerAlone()
{
    MidiWindow midi;
    midi.drop(1, midi.pad(0));
    midi.drop(1, midi.cell(2, 2));
    midi.select({midi.cell(2, 2)});
    midi.window.ondeleteaction_triggered();
    QCOMPARE(midi.marks(), QList<int>());
    QCOMPARE(midi.pad(0).data(ItemRole::Id).toString(), QString("1"));
}

void PadMenuTest::removeGoesOverTheListToTheGrid()
{
    MidiWindow midi;
    midi.drop(1, midi.cell(2, 2));
    QVERIFY(midi.window.showready());
    midi.select({midi.cell(2, 2)});
    midi.window.child<QWidget>("padsname")->setFocus();
    const FocusPath focus;
    midi.window.ondeleteaction_triggered();
    QCOMPARE(focus.names(), gridPath);
}

void PadMenuTest::removeShowsAtOnce()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.select({midi.cell(2, 2)});
    QVERIFY(midi.window.showready());
    midi.grid->setFocus();
    QCoreApplication::processEvents();
    const QPoint swatch = midi.grid->visualRect(midi.cell(2, 2)).topLeft() + QPoint(12, 14);
    const auto shown = [&] { return painted(midi.grid->viewport()).pixelColor(swatch); };
    QTRY_COMPARE(shown(), QColor(255, 0, 0));
    midi.window.ondeleteaction_triggered();
    QTRY_COMPARE(shown(), QColor(0, 0, 0));
}

void PadMenuTest::emptiedCellIsUnmarkedLikeARemovedOne()
{
    MidiWindow midi;
    midi.drop(2, midi.cell(2, 2));
    midi.drop(2, midi.cell(3, 3));
    giveowncolors(midi, midi.cell(3, 3));
    midi.setchecks("11111");
    midi.window.ondeletemidiaction_triggered(2, 2);
    QCOMPARE(record(midi.cell(2, 2)), emptyrecord("PAD 1", "", "", ""));
    QCOMPARE(midi.marks(), QList<int>{2});
    QCOMPARE(midi.checks(), QString("11111"));
    midi.window.ondeletemidiaction_triggered(3, 3);
    QCOMPARE(record(midi.cell(3, 3)), emptyrecord("PAD 10", "red", "yellow", "1"));
    QCOMPARE(midi.marks(), QList<int>());
    QCOMPARE(midi.checks(), QString("11011"));
    // A cell that the device lacks becomes usable too.
    midi.window.ondeletemidiaction_triggered(0, 5);
    QCOMPARE(record(midi.cell(0, 5)), emptyrecord("TOP 4", "", "", "0"));
    const QList<QList<Record>> before = midi.window.controllerModel->getList();
    for (const QPoint& cell :
         {QPoint(-1, -1), QPoint(12, 0), QPoint(0, 12), QPoint(least, most), QPoint(most, least)})
        midi.window.ondeletemidiaction_triggered(cell.x(), cell.y());
    QCOMPARE(midi.window.controllerModel->getList(), before);
}

void PadMenuTest::paletteColourGoesToEverySelectedCell_data()
{
    QTest::addColumn<QString>("submenu");
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("other");
    QTest::newRow("off") << offmenu << int(ItemRole::ColorOff) << int(ItemRole::ColorOn);
    QTest::newRow("on") << onmenu << int(ItemRole::ColorOn) << int(ItemRole::ColorOff);
}

void PadMenuTest::paletteColourGoesToEverySelectedCell()
{
    QFETCH(QString, submenu);
    QFETCH(int, role);
    QFETCH(int, other);
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    QVERIFY(midi.window.showready());
    midi.select({midi.cell(2, 2), midi.cell(3, 3), midi.cell(11, 4)});
    choose(midi.rightclick(midi.grid, midi.cell(2, 2)), " red", submenu);
    for (const QModelIndex& cell : {midi.cell(2, 2), midi.cell(3, 3), midi.cell(11, 4)}) {
        QCOMPARE(cell.data(role).toString(), QString("red"));
        QCOMPARE(cell.data(other).toString(), QString());
    }
    QCOMPARE(midi.cell(4, 4).data(role).toString(), QString());

    midi.select({midi.cell(3, 3)});
    const bool off = role == ItemRole::ColorOff;
    const QStringList colors{"", "black", "green", "red", "yellow"};
    for (int n = 0; n < colors.size(); ++n) {
        QVERIFY(QMetaObject::invokeMethod(&midi.window, off ? "colorpadchange" : "coloronpadchange",
                                          Q_ARG(int, n)));
        QCOMPARE(midi.cell(3, 3).data(role).toString(), colors.at(n));
        QCOMPARE(midi.cell(2, 2).data(role).toString(), QString("red"));
    }
}

void PadMenuTest::defaultTakesTheOwnColourAway()
{
    for (const QString& device : {ApcMini, LaunchpadMk2}) {
        MidiWindow midi;
        choosedevice(midi, device);
        midi.drop(0, midi.cell(2, 2));
        giveowncolors(midi, midi.cell(2, 2));
        giveowncolors(midi, midi.cell(3, 3));
        QVERIFY(midi.window.showready());
        midi.select({midi.cell(2, 2), midi.cell(3, 3)});
        const QList<int> roles{ItemRole::ColorOff, ItemRole::ColorOn};
        choose(midi.rightclick(midi.grid, midi.cell(2, 2)), " default", offmenu);
        QCOMPARE(midi.values(midi.cell(2, 2), roles), (QStringList{"", "yellow"}));
        choose(midi.rightclick(midi.grid, midi.cell(2, 2)), " default", onmenu);
        QCOMPARE(midi.values(midi.cell(2, 2), roles), (QStringList{"", ""}));
        QCOMPARE(midi.values(midi.cell(3, 3), roles), (QStringList{"", ""}));
        choose(midi.rightclick(midi.grid, midi.cell(2, 2)), QString::fromUtf8("✔default"), onmenu);
        QCOMPARE(midi.values(midi.cell(2, 2), roles), (QStringList{"", ""}));
    }
}

void PadMenuTest::paletteNumbersBeyondThePaletteAreHarmless_data()
{
    QTest::addColumn<int>("n");
    QTest::newRow("below") << -1;
    QTest::newRow("above") << 5;
    QTest::newRow("most") << most;
    QTest::newRow("least") << least;
}

void PadMenuTest::paletteNumbersBeyondThePaletteAreHarmless()
{
    QFETCH(int, n);
    MidiWindow midi;
    midi.select({midi.cell(3, 3)});
    set(midi, midi.cell(3, 3), Qt::EditRole, "kept");
    midi.window.colorpadchange(n);
    midi.window.coloronpadchange(n);
    QCOMPARE(midi.cell(3, 3).data().toString(), QString("kept"));
    QCOMPARE(midi.values(midi.cell(4, 4), {ItemRole::ColorOff, ItemRole::ColorOn}), (QStringList{"", ""}));
    midi.window.currentDevice = n;
    midi.window.colorpadchange(1);
    midi.window.coloronpadchange(n);
    QCOMPARE(midi.cell(3, 3).data().toString(), QString("kept"));
}

void PadMenuTest::dialogColourGoesToEverySelectedCell_data()
{
    QTest::addColumn<QString>("submenu");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("slot");
    QTest::addColumn<QStringList>("colors");
    QTest::newRow("off") << offmenu << int(ItemRole::ColorOff) << "rgbpadchange"
                         << QStringList{"#0a64ff", ""};
    QTest::newRow("on") << onmenu << int(ItemRole::ColorOn) << "rgbonpadchange" << QStringList{"", "#0a64ff"};
}

void PadMenuTest::dialogColourGoesToEverySelectedCell()
{
    QFETCH(QString, submenu);
    QFETCH(int, role);
    QFETCH(QString, slot);
    QFETCH(QStringList, colors);
    MidiWindow midi;
    choosedevice(midi, LaunchpadMk2);
    midi.drop(0, midi.cell(2, 2));
    QVERIFY(midi.window.showready());
    midi.select({midi.cell(2, 2), midi.cell(9, 9)});
    const Dialogs dialogs({pick(QColor(0x0A, 0x64, 0xFF)), pick(Qt::white)});
    choose(midi.rightclick(midi.grid, midi.cell(2, 2)), "Select ...", submenu);
    QTRY_COMPARE(dialogs.count(), 1);
    QCOMPARE(dialogs.at(0).title, QString("Choose a Color"));
    QCOMPARE(dialogs.at(0).parent, &midi.window);
    const QList<int> roles{ItemRole::ColorOff, ItemRole::ColorOn};
    QCOMPARE(midi.values(midi.cell(2, 2), roles), colors);
    QCOMPARE(midi.values(midi.cell(9, 9), roles), colors);
    QCOMPARE(midi.values(midi.cell(5, 5), roles), (QStringList{"", ""}));

    midi.select({midi.cell(5, 5)});
    QVERIFY(QMetaObject::invokeMethod(&midi.window, qPrintable(slot)));
    QCOMPARE(midi.cell(5, 5).data(role).toString(), QString("#ffffff"));
    QCOMPARE(midi.values(midi.cell(2, 2), roles), colors);
}

void PadMenuTest::dialogStartsWithTheCellsColour()
{
    MidiWindow midi;
    choosedevice(midi, LaunchpadMk2);
    midi.drop(0, midi.cell(2, 2));
    set(midi, midi.cell(2, 2), ItemRole::ColorOff, "#112233");
    set(midi, midi.cell(2, 2), ItemRole::ColorOn, "#445566");
    set(midi, midi.cell(3, 3), ItemRole::ColorOff, "#ffffff");
    QVERIFY(midi.window.showready());
    // The clicked cell's colour, whatever is selected first.
    midi.select({midi.cell(3, 3), midi.cell(2, 2)});
    QStringList first;
    const Answer look = Answers::looking(
        [&first](QDialog* dialog) {
            if (const auto* colors = qobject_cast<QColorDialog*>(dialog))
                first.append(colors->currentColor().name());
        },
        cancelcolor());
    const Dialogs dialogs({look, look});
    choose(midi.rightclick(midi.grid, midi.cell(2, 2)), "Select ...", offmenu);
    QTRY_COMPARE(dialogs.count(), 1);
    choose(midi.rightclick(midi.grid, midi.cell(2, 2)), "Select ...", onmenu);
    QTRY_COMPARE(dialogs.count(), 2);
    QCOMPARE(first, (QStringList{"#112233", "#445566"}));
}

void PadMenuTest::cancelledDialogChangesNothing()
{
    MidiWindow midi;
    choosedevice(midi, LaunchpadMk2);
    midi.drop(0, midi.cell(2, 2));
    set(midi, midi.cell(2, 2), ItemRole::ColorOff, "#112233");
    set(midi, midi.cell(3, 3), ItemRole::ColorOn, "#445566");
    QVERIFY(midi.window.showready());
    midi.select({midi.cell(2, 2), midi.cell(3, 3)});
    midi.rightclick(midi.grid, midi.cell(2, 2));
    cleanup();
    const QList<QList<Record>> before = midi.window.controllerModel->getList();
    const Dialogs dialogs({cancelcolor(), cancelcolor(), Answers::key(Qt::Key_Escape), Answers::closebox()});
    midi.window.rgbpadchange();
    midi.window.rgbonpadchange();
    midi.window.rgbpadchange();
    midi.window.rgbonpadchange();
    QCOMPARE(dialogs.count(), 4);
    QCOMPARE(midi.window.controllerModel->getList(), before);
}

void PadMenuTest::blinkFollowsTheClickedCell()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.drop(1, midi.cell(3, 3));
    set(midi, midi.cell(3, 3), ItemRole::Blink, "1");
    set(midi, midi.cell(6, 6), ItemRole::Blink, "1");
    QVERIFY(midi.window.showready());
    const auto blinks = [&] {
        QStringList all;
        for (const QModelIndex& cell : {midi.cell(2, 2), midi.cell(3, 3), midi.cell(4, 4), midi.cell(6, 6)})
            all.append(cell.data(ItemRole::Blink).toString());
        return all;
    };
    const QModelIndexList selected{midi.cell(2, 2), midi.cell(3, 3), midi.cell(4, 4)};
    midi.select(selected);
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Blink");
    QCOMPARE(blinks(), (QStringList{"", "", "", "1"}));
    choose(midi.rightclick(midi.grid, midi.cell(2, 2)), "Blink");
    QCOMPARE(blinks(), (QStringList{"1", "1", "1", "1"}));
    set(midi, midi.cell(2, 2), ItemRole::Blink, "0");
    midi.rightclick(midi.grid, midi.cell(2, 2));
    cleanup();
    midi.window.onblinkaction_triggered();
    QCOMPARE(blinks(), (QStringList{"1", "1", "1", "1"}));
    midi.window.onblinkaction_triggered();
    QCOMPARE(blinks(), (QStringList{"", "", "", "1"}));
}

void PadMenuTest::switchIsSetOnTheClickedCellAlone()
{
    MidiWindow midi;
    giveowncolors(midi, midi.cell(3, 3));
    QVERIFY(midi.window.showready());
    midi.select({midi.cell(3, 3), midi.cell(4, 4)});
    const QStringList other = record(midi.cell(4, 4));
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Set as Switch");
    QCOMPARE(midi.window.switchPad, (QList<int>{3, 3}));
    QCOMPARE(record(midi.cell(3, 3)), switchrecord("red", "yellow", "1"));
    QCOMPARE(record(midi.cell(4, 4)), other);
    QCOMPARE(midi.cell(3, 3).flags(), Qt::ItemFlags(Qt::NoItemFlags));
}

void PadMenuTest::switchIsTakenBack()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Set as Switch");
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Set as Switch");
    QCOMPARE(midi.window.switchPad, (QList<int>{-1, -1}));
    QCOMPARE(record(midi.cell(3, 3)), emptyrecord("PAD 10", "", "", "0"));
    // Also a cell that the device lacks is usable then, until the device is chosen anew.
    choose(midi.rightclick(midi.grid, midi.cell(0, 2)), "Set as Switch");
    choose(midi.rightclick(midi.grid, midi.cell(0, 2)), "Set as Switch");
    QCOMPARE(record(midi.cell(0, 2)), emptyrecord("TOP 1", "", "", "0"));
    midi.window.updatelayout();
    QCOMPARE(midi.cell(0, 2).data(ItemRole::Avail).toString(), QString("0"));
}

void PadMenuTest::switchMoves()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Set as Switch");
    choose(midi.rightclick(midi.grid, midi.cell(11, 5)), "Set as Switch");
    QCOMPARE(midi.window.switchPad, (QList<int>{11, 5}));
    QCOMPARE(record(midi.cell(3, 3)), emptyrecord("PAD 10", "", "", "0"));
    QCOMPARE(record(midi.cell(11, 5)), switchrecord("", "", "0"));
}

void PadMenuTest::switchTakesTheLiveButtonOff()
{
    MidiWindow midi;
    midi.drop(1, midi.cell(3, 3));
    midi.drop(2, midi.cell(4, 4));
    midi.drop(2, midi.cell(5, 5));
    midi.drop(3, midi.cell(6, 6));
    midi.setchecks("11111");
    QVERIFY(midi.window.showready());
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Set as Switch");
    QCOMPARE(record(midi.cell(3, 3)), switchrecord());
    QCOMPARE(midi.marks(), (QList<int>{2, 3}));
    QCOMPARE(midi.checks(), QString("10111"));
    choose(midi.rightclick(midi.grid, midi.cell(4, 4)), "Set as Switch");
    QCOMPARE(midi.marks(), (QList<int>{2, 3}));
    // What sits on the old switch cell, here put there behind its back, goes too.
    set(midi, midi.cell(4, 4), ItemRole::Id, "3");
    set(midi, midi.cell(6, 6), ItemRole::Id, "-1");
    choose(midi.rightclick(midi.grid, midi.cell(5, 5)), "Set as Switch");
    QCOMPARE(record(midi.cell(4, 4)), emptyrecord("PAD 19", "", "", ""));
    QCOMPARE(midi.marks(), QList<int>());
    QCOMPARE(midi.checks(), QString("10001"));
}

void PadMenuTest::switchGoesOverTheListToTheGrid()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    // Set, moved, taken back.
    for (const QModelIndex& cell : {midi.cell(3, 3), midi.cell(4, 4), midi.cell(4, 4)}) {
        midi.rightclick(midi.grid, cell);
        cleanup();
        midi.window.child<QWidget>("padsname")->setFocus();
        const FocusPath focus;
        midi.window.ontoggleaction_triggered();
        QCOMPARE(focus.names(), gridPath);
    }
}

void PadMenuTest::switchShowsAtOnce()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    midi.grid->setFocus();
    midi.rightclick(midi.grid, midi.cell(3, 3));
    cleanup();
    QCoreApplication::processEvents();
    const QPoint corner = midi.grid->visualRect(midi.cell(3, 3)).topLeft() + QPoint(1, 1);
    const auto shown = [&] { return painted(midi.grid->viewport()).pixelColor(corner); };
    QVERIFY(shown() != QColor(0x30, 0x30, 0x30));
    midi.window.ontoggleaction_triggered();
    QTRY_COMPARE(shown(), QColor(0x30, 0x30, 0x30));
}

void PadMenuTest::switchWithoutMenuCellChangesNothing()
{
    MidiWindow midi;
    const QList<QList<Record>> before = midi.window.controllerModel->getList();
    midi.window.ontoggleaction_triggered();
    QCOMPARE(midi.window.switchPad, (QList<int>{-1, -1}));
    QCOMPARE(midi.window.controllerModel->getList(), before);
}

void PadMenuTest::deviceChangeMakesTheSwitchUsable()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Set as Switch");
    choosedevice(midi, Launchpad);
    QCOMPARE(midi.window.switchPad, (QList<int>{3, 3}));
    QCOMPARE(midi.cell(3, 3).data().toString(), QString("SWITCH"));
    QCOMPARE(midi.cell(3, 3).data(ItemRole::Avail).toString(), QString("1"));
}

void PadMenuTest::cleanEmptiesTheGridAndKeepsTheRest()
{
    MidiWindow midi;
    const QList<QList<Record>> empty = midi.window.controllerModel->getList();
    midi.drop(0, midi.cell(2, 2));
    midi.drop(1, midi.cell(11, 9));
    giveowncolors(midi, midi.cell(2, 2));
    giveowncolors(midi, midi.cell(7, 7));
    set(midi, midi.cell(2, 2), Qt::ForegroundRole, "green");
    midi.window.ondeletemidiaction_triggered(0, 5);
    QTest::mouseClick(midi.window.child<QPushButton>("cleanmidi_button"), Qt::LeftButton);

    QVERIFY(midi.window.isMIDIempty());
    QStringList first = emptyrecord("PAD 1", "red", "yellow", "1");
    first[6] = "#008000";
    QCOMPARE(record(midi.cell(2, 2)), first);
    QCOMPARE(record(midi.cell(11, 9)), emptyrecord("BOTTOM 8", "", "", ""));
    QCOMPARE(record(midi.cell(7, 7)), emptyrecord("PAD 46", "red", "yellow", "1"));
    QCOMPARE(midi.cell(0, 5).data(ItemRole::Avail).toString(), QString("0"));
    const QList<int> roles{Qt::EditRole, ItemRole::DspName, ItemRole::Page,
                           ItemRole::Id, ItemRole::Avail,   Qt::DecorationRole};
    const Controller fresh(empty);
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col)
            QCOMPARE(midi.values(midi.cell(row, col), roles), midi.values(fresh.index(row, col), roles));
    }
}

void PadMenuTest::cleanShowsTheFormerSwitchAsAPad()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Set as Switch");
    QTest::mouseClick(midi.window.child<QPushButton>("cleanmidi_button"), Qt::LeftButton);
    QCOMPARE(midi.window.switchPad, (QList<int>{3, 3}));
    QStringList former = emptyrecord("PAD 10", "", "", "0");
    former[6] = "#008000";
    QCOMPARE(record(midi.cell(3, 3)), former);

    // A switch set later empties what sits on the old cell by then.
    midi.drop(1, midi.cell(3, 3));
    choose(midi.rightclick(midi.grid, midi.cell(4, 4)), "Set as Switch");
    QCOMPARE(midi.cell(3, 3).data().toString(), QString("PAD 10"));
    QCOMPARE(midi.marks(), QList<int>());
}

void PadMenuTest::cleanUnmarksFully()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.drop(2, midi.pad(3));
    midi.setchecks("11111");
    QTest::mouseClick(midi.window.child<QPushButton>("cleanmidi_button"), Qt::LeftButton);
    QCOMPARE(midi.marks(), QList<int>());
    QCOMPARE(midi.checks(), QString("00000"));
}

void PadMenuTest::cleanLeavesThePadsPage()
{
    MidiWindow midi;
    midi.drop(0, midi.pad(3));
    midi.drop(0, midi.cell(2, 2));
    const QList<QList<Record>> before = midi.window.vdjModel->getList();
    QTest::mouseClick(midi.window.child<QPushButton>("cleanmidi_button"), Qt::LeftButton);
    QCOMPARE(midi.window.vdjModel->getList(), before);
}

void PadMenuTest::cleanLeavesTheColourOfUnusableCells()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(11, 2));
    choosedevice(midi, Launchpad);
    QTest::mouseClick(midi.window.child<QPushButton>("cleanmidi_button"), Qt::LeftButton);
    QCOMPARE(midi.values(midi.cell(11, 2), {Qt::EditRole, ItemRole::Id, ItemRole::Avail, Qt::DecorationRole}),
             (QStringList{"BOTTOM 1", "-1", "0", "#ff0000"}));
    // As it is: what names no colour is not made one either.
    set(midi, midi.cell(11, 2), Qt::DecorationRole, "no colour");
    QTest::mouseClick(midi.window.child<QPushButton>("cleanmidi_button"), Qt::LeftButton);
    QCOMPARE(midi.window.controllerModel->getList().at(11).at(2).value("color"), QString("no colour"));
}

void PadMenuTest::cleanGoesToTheListAtOnce()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    QVERIFY(midi.window.showready());
    QCoreApplication::processEvents();
    const QPoint swatch = midi.grid->visualRect(midi.cell(2, 2)).topLeft() + QPoint(12, 14);
    const auto shown = [&] { return painted(midi.grid->viewport()).pixelColor(swatch); };
    QTRY_COMPARE(shown(), QColor(255, 0, 0));
    midi.list->setFocus();
    QCoreApplication::processEvents();
    midi.window.on_cleanmidi_button_clicked();
    QTRY_COMPARE(shown(), QColor(0, 0, 0));
    midi.window.child<QWidget>("padsname")->setFocus();
    midi.window.on_cleanmidi_button_clicked();
    QVERIFY(midi.list->hasFocus());
}

void PadMenuTest::rightClicksLeaveNothingBehind()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(3, 3));
    QVERIFY(midi.window.showready());
    const auto children = [&] { return midi.window.findChildren<QObject*>().size(); };
    const auto clickaround = [&] {
        for (const QModelIndex& cell : {midi.cell(3, 3), midi.cell(4, 4)}) {
            QMenu* menu = midi.rightclick(midi.grid, cell);
            QVERIFY(menu);
            QTest::keyClick(menu, Qt::Key_Escape);
            deletewaiting();
        }
    };
    clickaround();
    const auto before = children();
    for (int i = 0; i < 500; ++i)
        clickaround();
    QCOMPARE(children(), before);

    for (const char* text : {"Blink", "Remove", "Set as Switch"}) {
        midi.drop(0, midi.cell(3, 3));
        QPointer<QMenu> menu = midi.rightclick(midi.grid, midi.cell(3, 3));
        QVERIFY(menu);
        choose(menu, text);
        deletewaiting();
        QVERIFY2(!menu, text);
    }
    QCOMPARE(children(), before);
}

void PadMenuTest::deviceChangesUnderTheOpenMenu()
{
    MidiWindow midi;
    choosedevice(midi, Launchpad);
    midi.drop(0, midi.cell(3, 3));
    QVERIFY(midi.window.showready());
    QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
    QVERIFY(menu);
    choosedevice(midi, LaunchpadMk2);
    choose(menu, " #FFFF00", offmenu);
    QCOMPARE(midi.cell(3, 3).data().toString(), QString("Strobe"));

    choosedevice(midi, ApcMini);
    menu = midi.rightclick(midi.grid, midi.cell(3, 3));
    QVERIFY(menu);
    midi.window.devices.clear();
    choose(menu, " yellow", onmenu);
    QCOMPARE(midi.cell(3, 3).data().toString(), QString("Strobe"));
    // Without a device the menu still comes.
    QVERIFY(midi.rightclick(midi.grid, midi.cell(3, 3)));
}

void PadMenuTest::rowsGoUnderTheOpenMenu()
{
    for (const char* text : {"Remove", "Blink", "Set as Switch", " red", " default"}) {
        MidiWindow midi;
        midi.drop(0, midi.cell(3, 3));
        giveowncolors(midi, midi.cell(3, 3));
        set(midi, midi.cell(3, 3), ItemRole::ColorOff, "green");
        QVERIFY(midi.window.showready());
        QMenu* menu = midi.rightclick(midi.grid, midi.cell(3, 3));
        QVERIFY(menu);
        midi.window.cleanMIDI();
        choose(menu, text, QLatin1String(text).startsWith(QLatin1Char(' ')) ? offmenu : QString());
        QCOMPARE(midi.window.controllerModel->rowCount(), 0);
        // The grid is as good as new when it comes back.
        midi.window.switchPad = {-1, -1};
        midi.window.on_actionNew_2_triggered();
        QVERIFY(midi.window.isMIDIempty());
        QCOMPARE(record(midi.cell(3, 3)), emptyrecord("PAD 10", "", "", "0"));
        midi.window.onblinkaction_triggered();
        midi.window.ontoggleaction_triggered();
        midi.window.ondeleteaction_triggered();
        QVERIFY(midi.window.isMIDIempty());
    }
}

void PadMenuTest::rowsGoUnderTheColourDialog()
{
    MidiWindow midi;
    choosedevice(midi, LaunchpadMk2);
    midi.drop(0, midi.cell(3, 3));
    QVERIFY(midi.window.showready());
    midi.select({midi.cell(3, 3)});
    const Dialogs dialogs(
        {Answers::looking([&](QDialog*) { midi.window.cleanMIDI(); }, pick(Qt::red)), cancelcolor()});
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Select ...", offmenu);
    QTRY_COMPARE(dialogs.count(), 1);
    QCOMPARE(midi.window.controllerModel->rowCount(), 0);
    midi.window.rgbonpadchange();
    QCOMPARE(midi.window.controllerModel->rowCount(), 0);
}

void PadMenuTest::padsPageMenuComesOnOccupiedPadsAlone()
{
    MidiWindow midi(Output::Pads);
    QTest::mouseClick(midi.window.child<QAbstractButton>("radioButton_16pads"), Qt::LeftButton);
    midi.drop(0, midi.pad(3));
    midi.drop(1, midi.pad(5, 1));
    QVERIFY(midi.window.showready());
    for (int row = 0; row < 8; ++row) {
        for (int col = 0; col < 2; ++col) {
            const QMenu* menu = midi.rightclick(midi.pads, midi.pad(row, col));
            const bool occupied = (row == 3 && col == 0) || (row == 5 && col == 1);
            QCOMPARE(menu != nullptr, occupied);
            if (menu)
                QCOMPARE(entries(menu), QStringList{"Remove"});
            cleanup();
        }
    }
    for (const QPoint& pos : {QPoint(-1, -1), QPoint(5000, 5000), QPoint(least, least), QPoint(most, most)}) {
        midi.window.customMenuRequestedvdj(pos);
        QVERIFY(!MidiWindow::openmenu());
    }
    midi.window.cleanVDJ();
    QVERIFY(!midi.rightclick(midi.pads, QPoint(20, 20)));
}

void PadMenuTest::padsPageMenuComesUnderTheMouse()
{
    MidiWindow midi(Output::Pads);
    midi.drop(0, midi.pad(3));
    QVERIFY(midi.window.showready());
    midi.window.move(0, 0);
    const QPoint pos = midi.pads->visualRect(midi.pad(3)).center();
    const QMenu* menu = midi.rightclick(midi.pads, pos);
    QVERIFY(menu);
    QCOMPARE(menu->pos(), midi.pads->viewport()->mapToGlobal(pos));
    QCOMPARE(menu->parentWidget(), &midi.window);
}

void PadMenuTest::padsPageMenuIsStyled()
{
    MidiWindow midi(Output::Pads);
    midi.drop(0, midi.pad(3));
    QVERIFY(midi.window.showready());
    const QMenu* menu = midi.rightclick(midi.pads, midi.pad(3));
    QVERIFY(menu);
    QCOMPARE(menu->styleSheet(), menuStyle);
}

void PadMenuTest::padsPageRemoveNumbersByRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("name");
    QTest::newRow("first pad") << 0 << 0 << "PAD 1";
    QTest::newRow("last of the first bank") << 7 << 0 << "PAD 8";
    QTest::newRow("third of the second bank, second column") << 10 << 1 << "PAD 3";
    QTest::newRow("first of the second column") << 0 << 1 << "PAD 1";
    QTest::newRow("very last") << 63 << 1 << "PAD 8";
}

void PadMenuTest::padsPageRemoveNumbersByRow()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QString, name);
    MidiWindow midi(Output::Pads);
    QTest::mouseClick(midi.window.child<QAbstractButton>("radioButton_16pads"), Qt::LeftButton);
    midi.drop(2, midi.pad(row, col));
    midi.drop(1, midi.pad(20));
    midi.window.child<QComboBox>("bankcombo")->setCurrentIndex(row / 8);
    QVERIFY(midi.window.showready());
    QVERIFY(midi.window.vdjModel->setData(midi.pad(row, col), "my text", Qt::EditRole));
    QMenu* menu = midi.rightclick(midi.pads, midi.pad(row, col));
    QVERIFY(menu);
    choose(menu, "Remove");
    QCOMPARE(midi.values(midi.pad(row, col), {Qt::EditRole, ItemRole::DspName, ItemRole::Page, ItemRole::Id,
                                              Qt::DecorationRole, ItemRole::Avail}),
             (QStringList{name, name, "0", "-1", "#000000", ""}));
    QCOMPARE(midi.pad(20).data().toString(), QString("Blackout"));
    QCOMPARE(midi.marks(), QList<int>{1});
    QCOMPARE(midi.window.child<QComboBox>("bankcombo")->currentIndex(), row / 8);
}

void PadMenuTest::padsPageRemoveUnmarksWithTheLastPad()
{
    MidiWindow midi(Output::Pads);
    midi.drop(2, midi.pad(1));
    midi.drop(2, midi.pad(40));
    midi.drop(2, midi.cell(2, 2));
    midi.drop(3, midi.pad(2));
    midi.setchecks("11111");
    midi.pads->setCurrentIndex(midi.pad(1));
    midi.window.ondeletevdjaction_triggered();
    QCOMPARE(midi.marks(), (QList<int>{2, 3}));
    QCOMPARE(midi.checks(), QString("11111"));
    midi.pads->setCurrentIndex(midi.pad(40));
    midi.window.ondeletevdjaction_triggered();
    QCOMPARE(midi.marks(), QList<int>{3});
    QCOMPARE(midi.checks(), QString("11011"));
    QCOMPARE(midi.cell(2, 2).data(ItemRole::Id).toString(), QString("2"));
}

void PadMenuTest::padsPageRemoveDoesNotSearchTheSecondColumn()
{
    MidiWindow midi(Output::Pads);
    midi.drop(2, midi.pad(1, 0));
    midi.drop(2, midi.pad(1, 1));
    midi.pads->setCurrentIndex(midi.pad(1, 0));
    midi.window.ondeletevdjaction_triggered();
    QCOMPARE(midi.marks(), QList<int>());
    QCOMPARE(midi.pad(1, 1).data(ItemRole::Id).toString(), QString("2"));
}

void PadMenuTest::padsPageRemoveTakesTheMarkOfTheSecondColumn()
{
    MidiWindow midi(Output::Pads);
    midi.window.on_radioButton_16pads_clicked(true);
    midi.drop(2, midi.pad(1, 1));
    midi.drop(2, midi.pad(2, 1));
    midi.drop(4, midi.pad(3, 1));
    midi.drop(4, midi.pad(4, 0));
    midi.pads->setCurrentIndex(midi.pad(1, 1));
    midi.window.ondeletevdjaction_triggered();
    QCOMPARE(midi.marks(), QList<int>{4});
    midi.pads->setCurrentIndex(midi.pad(3, 1));
    midi.window.ondeletevdjaction_triggered();
    QCOMPARE(midi.marks(), QList<int>{4});
}

void PadMenuTest::padsPageRemoveGoesOverTheListToThePads()
{
    MidiWindow midi(Output::Pads);
    midi.drop(2, midi.pad(1));
    QVERIFY(midi.window.showready());
    midi.pads->setCurrentIndex(midi.pad(1));
    midi.window.child<QWidget>("padsname")->setFocus();
    const FocusPath focus;
    midi.window.ondeletevdjaction_triggered();
    QCOMPARE(focus.names(), (QStringList{"dmxlistview", "vdjlistview"}));
}

void PadMenuTest::padsPageRemoveWithoutSelectionChangesNoPad()
{
    MidiWindow midi(Output::Pads);
    midi.drop(2, midi.pad(1));
    const QList<QList<Record>> before = midi.window.vdjModel->getList();
    midi.pads->selectionModel()->clear();
    midi.window.ondeletevdjaction_triggered();
    QCOMPARE(midi.window.vdjModel->getList(), before);
    QCOMPARE(midi.marks(), QList<int>{2});
}

void PadMenuTest::padsPageRightClicksLeaveNothingBehind()
{
    MidiWindow midi(Output::Pads);
    midi.drop(2, midi.pad(1));
    QVERIFY(midi.window.showready());
    const auto children = [&] { return midi.window.findChildren<QObject*>().size(); };
    const auto clickonce = [&] {
        QMenu* menu = midi.rightclick(midi.pads, midi.pad(1));
        QVERIFY(menu);
        QTest::keyClick(menu, Qt::Key_Escape);
        deletewaiting();
    };
    clickonce();
    const auto before = children();
    for (int i = 0; i < 1000; ++i)
        clickonce();
    QCOMPARE(children(), before);
    QPointer<QMenu> menu = midi.rightclick(midi.pads, midi.pad(1));
    QVERIFY(menu);
    choose(menu, "Remove");
    deletewaiting();
    QVERIFY(!menu);
}

void PadMenuTest::padsGoUnderTheOpenMenu()
{
    MidiWindow midi(Output::Pads);
    midi.drop(2, midi.pad(1));
    QVERIFY(midi.window.showready());
    QMenu* menu = midi.rightclick(midi.pads, midi.pad(1));
    QVERIFY(menu);
    midi.window.cleanVDJ();
    choose(menu, "Remove");
    QCOMPARE(midi.window.vdjModel->rowCount(), 0);
    midi.window.on_cleanpads_button_clicked();
    QCOMPARE(midi.window.vdjModel->rowCount(), 64);
}

LUMIPAD_TEST_MAIN(PadMenuTest)

#include "tst_padmenu.moc"
