#include "controller.h"
#include "itemroles.h"
#include "mymodel.h"
#include "testmain.h"
#include "testshows.h"
#include "testwindow.h"
#include "vdjmodel.h"

#include <QComboBox>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QPaintEvent>
#include <QRadioButton>
#include <QTableView>

#include <climits>
#include <memory>

namespace {

/// The window in a home folder of its own, with the widgets of the pads page at hand.
struct PadsPageWindow
{
    TestHome home;
    TestWindow window;
    QTableView* view = window.child<QTableView>("vdjlistview");
    QComboBox* bankcombo = window.child<QComboBox>("bankcombo");
    QLineEdit* bankname = window.child<QLineEdit>("bankname");
    QLineEdit* padsname = window.child<QLineEdit>("padsname");
    QRadioButton* eightPads = window.child<QRadioButton>("radioButton_8pads");
    QRadioButton* sixteenPads = window.child<QRadioButton>("radioButton_16pads");

    QModelIndex pad(int row, int column) const { return window.vdjModel->index(row, column); }
    QString text(int row, int column) const { return pad(row, column).data().toString(); }

    /// Puts the Live Button "Fog" on a pad, shown as "FOG".
    void place(int row, int column) const
    {
        window.vdjModel->setData(pad(row, column), "FOG", Qt::EditRole);
        window.vdjModel->setData(pad(row, column), "Fog", ItemRole::DspName);
        window.vdjModel->setData(pad(row, column), "2", ItemRole::Page);
        window.vdjModel->setData(pad(row, column), "5", ItemRole::Id);
        window.vdjModel->setData(pad(row, column), "#ff8000", Qt::DecorationRole);
    }

    /// The rows of pads that the user sees, such as "0-7".
    QString shownRows() const
    {
        QList<int> rows;
        for (int row = 0; row < window.vdjModel->rowCount(); ++row)
            if (!view->isRowHidden(row))
                rows.append(row);
        if (rows.isEmpty())
            return QStringLiteral("none");
        if (rows.constLast() - rows.constFirst() != rows.size() - 1)
            return QStringLiteral("with gaps");
        return QStringLiteral("%1-%2").arg(rows.constFirst()).arg(rows.constLast());
    }

    QPoint middle(int row, int column) const { return view->visualRect(pad(row, column)).center(); }

    void doubleClick(int row, int column) const
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middle(row, column));
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middle(row, column));
    }
    /// The field in which a pad's text is being edited, or null.
    QLineEdit* editor() const { return view->viewport()->findChild<QLineEdit*>(); }

    /// Types \a text over what the field holds, and ends with \a last.
    static void type(QLineEdit* field, const QString& text, Qt::Key last = Qt::Key_Return)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClick(field, Qt::Key_Delete);
        QTest::keyClicks(field, text);
        QTest::keyClick(field, last);
    }

    /// Drops the payload at a place of the view, if it lets it be dropped there.
    bool dropAt(const QPoint& where, const QMimeData* data) const
    {
        QDragEnterEvent enter(where, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &enter);
        QDragMoveEvent move(where, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &move);
        QDropEvent release(where, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &release);
        return move.isAccepted();
    }

    /// Loads the small show and gives the payload of its Live Button \a row.
    std::unique_ptr<QMimeData> liveButton(int row)
    {
        if (window.showName.isEmpty()) {
            window.showName = QStringLiteral("Friday");
            window.loadshowname(writeshow(home, window.showName) + QStringLiteral("/Live/live.ini"));
        }
        return std::unique_ptr<QMimeData>(window.dmxModel->mimeData({window.dmxModel->index(row, 0)}));
    }
};

/// Watches whether a place of a widget is painted.
class PaintWatch : public QObject
{
public:
    PaintWatch(QWidget* widget, const QPoint& place) : m_place(place) { widget->installEventFilter(this); }
    bool painted = false;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && static_cast<QPaintEvent*>(event)->region().contains(m_place))
            painted = true;
        return false;
    }

private:
    QPoint m_place;
};

QStringList firstBanks()
{
    return {"BANK 1", "BANK 2", "BANK 3", "BANK 4", "BANK 5", "BANK 6", "BANK 7", "BANK 8"};
}

} // namespace

class VdjPageTest : public QObject
{
    Q_OBJECT

private slots:
    void startsWithTheFirstBankOfEmptyPads();
    void offersEightBanks();
    void fillsTheBankChoiceAnewAndShowsTheFirstBank();
    void showsTheRowsAndTheNameOfABank_data();
    void showsTheRowsAndTheNameOfABank();
    void showsTheBankThatIsChosenWithTheKeyboard();
    void setsUpEmptyPadsAndShowsTheFirstBankAgain_data();
    void setsUpEmptyPadsAndShowsTheFirstBankAgain();
    void keepsTheNameTypedForABank_data();
    void keepsTheNameTypedForABank();
    void keepsNoNameWhereNoBankIsChosen();
    void readsMissingBankNamesAsEmpty_data();
    void readsMissingBankNamesAsEmpty();
    void keepsTheNameOfABankThatHadNone();
    void putsThePageNameBackWhenItIsEmptied_data();
    void putsThePageNameBackWhenItIsEmptied();
    void keepsTheTypedPageName_data();
    void keepsTheTypedPageName();
    void showsAsManyPadsAsChosen_data();
    void showsAsManyPadsAsChosen();
    void keepsTheColumnsWhenALayoutIsUnchecked();
    void fillsTheViewWithItsColumns();
    void keepsHiddenPadsWhenTheLayoutChanges();
    void isEmptyUntilAPadHoldsALiveButton_data();
    void isEmptyUntilAPadHoldsALiveButton();
    void tellsTheTwoOutputsApart();
    void isEmptyWithoutPads();
    void editsTheTextOfAPadAfterADoubleClick_data();
    void editsTheTextOfAPadAfterADoubleClick();
    void namesAPadByItsRowWhenItsTextIsEmptied_data();
    void namesAPadByItsRowWhenItsTextIsEmptied();
    void keepsTheTextWhenEditingIsCancelled();
    void opensNoEditorOnAnEmptyPad();
    void takesALiveButtonOnThePadUnderTheMouse_data();
    void takesALiveButtonOnThePadUnderTheMouse();
    void movesAPadWithinTheView();
    void takesNoLiveButtonWhereNoPadIs();
};

void VdjPageTest::startsWithTheFirstBankOfEmptyPads()
{
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    QCOMPARE(page.window.vdjModel->rowCount(), 64);
    QCOMPARE(page.view->model(), page.window.vdjModel);
    QCOMPARE(page.shownRows(), QString("0-7"));
    QCOMPARE(page.bankcombo->currentIndex(), 0);
    QCOMPARE(page.bankcombo->currentText(), QString("1"));
    QCOMPARE(page.bankname->text(), QString("BANK 1"));
    QCOMPARE(page.padsname->text(), QString("OS2L DMX"));
    QCOMPARE(page.window.banks, firstBanks());
    QVERIFY(page.eightPads->isChecked());
    QVERIFY(!page.sixteenPads->isChecked());
    QVERIFY(!page.view->isColumnHidden(0));
    QVERIFY(page.view->isColumnHidden(1));
    QCOMPARE(page.text(0, 0), QString("PAD 1"));
    QCOMPARE(page.text(7, 0), QString("PAD 8"));
    QCOMPARE(page.text(0, 1), QString("PAD 9"));
    QCOMPARE(page.text(7, 1), QString("PAD 16"));
}

void VdjPageTest::offersEightBanks()
{
    const PadsPageWindow page;
    QStringList banks;
    for (int item = 0; item < page.bankcombo->count(); ++item) {
        banks.append(page.bankcombo->itemText(item));
        QCOMPARE(page.bankcombo->itemData(item, Qt::SizeHintRole), QVariant(QSize(30, 30)));
    }
    QCOMPARE(banks, QStringList({"1", "2", "3", "4", "5", "6", "7", "8"}));
}

void VdjPageTest::fillsTheBankChoiceAnewAndShowsTheFirstBank()
{
    PadsPageWindow page;
    page.bankcombo->setCurrentIndex(5);
    page.bankcombo->addItem(QStringLiteral("nine"));
    QVERIFY(QMetaObject::invokeMethod(&page.window, "updatebankcombo"));
    QStringList banks;
    for (int item = 0; item < page.bankcombo->count(); ++item) {
        banks.append(page.bankcombo->itemText(item));
        QCOMPARE(page.bankcombo->itemData(item, Qt::SizeHintRole), QVariant(QSize(30, 30)));
    }
    QCOMPARE(banks, QStringList({"1", "2", "3", "4", "5", "6", "7", "8"}));
    QCOMPARE(page.bankcombo->currentIndex(), 0);
    QCOMPARE(page.shownRows(), QString("0-7"));
    QCOMPARE(page.bankname->text(), QString("BANK 1"));
    QCOMPARE(page.window.banks, firstBanks());
}

void VdjPageTest::showsTheRowsAndTheNameOfABank_data()
{
    QTest::addColumn<int>("bank");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("name");

    QTest::newRow("1") << 0 << "0-7"
                       << "First";
    QTest::newRow("2") << 1 << "8-15"
                       << "Second";
    QTest::newRow("3") << 2 << "16-23"
                       << "Third";
    QTest::newRow("4") << 3 << "24-31"
                       << "";
    QTest::newRow("5") << 4 << "32-39"
                       << "Fifth";
    QTest::newRow("6") << 5 << "40-47"
                       << "Sixth";
    QTest::newRow("7") << 6 << "48-55"
                       << "Seventh";
    QTest::newRow("8") << 7 << "56-63"
                       << "Eighth";
    QTest::newRow("none") << -1 << "none"
                          << "";
    QTest::newRow("ninth") << 8 << "none"
                           << "";
    QTest::newRow("far above") << INT_MAX << "none"
                               << "";
    QTest::newRow("far below") << INT_MIN << "none"
                               << "";
}

void VdjPageTest::showsTheRowsAndTheNameOfABank()
{
    QFETCH(int, bank);
    QFETCH(QString, rows);
    QFETCH(QString, name);
    const QStringList names{"First", "Second", "Third", "", "Fifth", "Sixth", "Seventh", "Eighth"};
    for (const char* slot : {"showbank", "on_bankcombo_currentIndexChanged"}) {
        PadsPageWindow page;
        page.window.banks = names;
        // So that showing the first bank has something to do, too.
        page.bankcombo->setCurrentIndex(4);
        QCOMPARE(page.shownRows(), QString("32-39"));
        QVERIFY(QMetaObject::invokeMethod(&page.window, slot, Q_ARG(int, bank)));
        QCOMPARE(page.shownRows(), rows);
        QCOMPARE(page.bankname->text(), name);
        QCOMPARE(page.window.banks, names);
    }
}

void VdjPageTest::showsTheBankThatIsChosenWithTheKeyboard()
{
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    page.bankcombo->setFocus();
    QTest::keyClick(page.bankcombo, Qt::Key_Down);
    QTest::keyClick(page.bankcombo, Qt::Key_Down);
    QTest::keyClick(page.bankcombo, Qt::Key_Down);
    QCOMPARE(page.bankcombo->currentText(), QString("4"));
    QCOMPARE(page.shownRows(), QString("24-31"));
    QCOMPARE(page.bankname->text(), QString("BANK 4"));
    QTest::keyClick(page.bankcombo, Qt::Key_End);
    QCOMPARE(page.shownRows(), QString("56-63"));
    QCOMPARE(page.bankname->text(), QString("BANK 8"));
}

void VdjPageTest::setsUpEmptyPadsAndShowsTheFirstBankAgain_data()
{
    QTest::addColumn<int>("bank");
    QTest::newRow("from another bank") << 6;
    QTest::newRow("from no bank") << -1;
    // Here the bank choice itself does not change.
    QTest::newRow("from the first bank") << 0;
}

void VdjPageTest::setsUpEmptyPadsAndShowsTheFirstBankAgain()
{
    QFETCH(int, bank);
    PadsPageWindow page;
    const auto grid = page.window.vdjModel->getList();
    page.window.banks[0] = QStringLiteral("Opening");
    page.bankcombo->setCurrentIndex(bank);
    page.place(0, 0);
    page.place(63, 1);
    page.view->showRow(20);

    QVERIFY(QMetaObject::invokeMethod(&page.window, "initpadlist"));
    QCOMPARE(page.window.vdjModel->getList(), grid);
    QCOMPARE(page.bankcombo->currentIndex(), 0);
    QCOMPARE(page.shownRows(), QString("0-7"));
    QCOMPARE(page.bankname->text(), QString("Opening"));
    QCOMPARE(page.window.banks.mid(1), firstBanks().mid(1));
}

void VdjPageTest::keepsTheNameTypedForABank_data()
{
    QTest::addColumn<int>("bank");
    QTest::addColumn<QString>("name");
    QTest::addColumn<Qt::Key>("last");

    QTest::newRow("first bank") << 0 << "Opening" << Qt::Key_Return;
    QTest::newRow("fourth bank") << 3 << "Slow & 'Low'" << Qt::Key_Enter;
    QTest::newRow("last bank, left with the keyboard") << 7 << "Finale" << Qt::Key_Tab;
    QTest::newRow("no name") << 4 << "" << Qt::Key_Return;
    QTest::newRow("blanks") << 4 << "  " << Qt::Key_Tab;
}

void VdjPageTest::keepsTheNameTypedForABank()
{
    QFETCH(int, bank);
    QFETCH(QString, name);
    QFETCH(Qt::Key, last);
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    page.bankcombo->setCurrentIndex(bank);
    QCOMPARE(page.bankname->text(), firstBanks().at(bank));
    PadsPageWindow::type(page.bankname, name, last);

    QStringList expected = firstBanks();
    expected[bank] = name;
    QCOMPARE(page.window.banks, expected);
    page.bankcombo->setCurrentIndex((bank + 1) % 8);
    QCOMPARE(page.bankname->text(), firstBanks().at((bank + 1) % 8));
    page.bankcombo->setCurrentIndex(bank);
    QCOMPARE(page.bankname->text(), name);
    QCOMPARE(page.window.banks, expected);
}

void VdjPageTest::keepsNoNameWhereNoBankIsChosen()
{
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    page.bankcombo->setCurrentIndex(-1);
    QCOMPARE(page.shownRows(), QString("none"));
    QCOMPARE(page.bankname->text(), QString());
    PadsPageWindow::type(page.bankname, QStringLiteral("Nowhere"));
    QCOMPARE(page.window.banks, firstBanks());
}

void VdjPageTest::readsMissingBankNamesAsEmpty_data()
{
    QTest::addColumn<QStringList>("banks");
    QTest::newRow("none") << QStringList();
    QTest::newRow("two") << QStringList({"One", "Two"});
    QTest::newRow("seven") << QStringList({"One", "Two", "3", "4", "5", "6", "7"});
}

void VdjPageTest::readsMissingBankNamesAsEmpty()
{
    QFETCH(QStringList, banks);
    PadsPageWindow page;
    page.bankcombo->setCurrentIndex(4);
    page.window.banks = banks;
    for (int bank = 7; bank >= 0; --bank) {
        page.bankcombo->setCurrentIndex(bank);
        QCOMPARE(page.bankname->text(), banks.value(bank));
        QCOMPARE(page.shownRows(), QString("%1-%2").arg(bank * 8).arg(bank * 8 + 7));
    }
    QVERIFY(QMetaObject::invokeMethod(&page.window, "initpadlist"));
    QCOMPARE(page.bankname->text(), banks.value(0));
    QCOMPARE(page.window.banks, banks);
}

void VdjPageTest::keepsTheNameOfABankThatHadNone()
{
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    page.window.banks = QStringList{QStringLiteral("One")};
    page.bankcombo->setCurrentIndex(3);
    PadsPageWindow::type(page.bankname, QStringLiteral("Four"));
    QCOMPARE(page.window.banks, QStringList({"One", "", "", "Four"}));
    page.bankcombo->setCurrentIndex(2);
    QCOMPARE(page.bankname->text(), QString());
    PadsPageWindow::type(page.bankname, QStringLiteral("Three"));
    QCOMPARE(page.window.banks, QStringList({"One", "", "Three", "Four"}));
    page.bankcombo->setCurrentIndex(3);
    QCOMPARE(page.bankname->text(), QString("Four"));
}

void VdjPageTest::putsThePageNameBackWhenItIsEmptied_data()
{
    QTest::addColumn<Qt::Key>("last");
    QTest::newRow("with Return") << Qt::Key_Return;
    QTest::newRow("left with the keyboard") << Qt::Key_Tab;
}

void VdjPageTest::putsThePageNameBackWhenItIsEmptied()
{
    QFETCH(Qt::Key, last);
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    PadsPageWindow::type(page.padsname, QStringLiteral("Friday"));
    QCOMPARE(page.padsname->text(), QString("Friday"));
    PadsPageWindow::type(page.padsname, QString(), last);
    QCOMPARE(page.padsname->text(), QString("OS2L DMX"));
}

void VdjPageTest::keepsTheTypedPageName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("words") << "Friday Night";
    QTest::newRow("blank") << " ";
    QTest::newRow("signs") << "a/b & <c> %1";
}

void VdjPageTest::keepsTheTypedPageName()
{
    QFETCH(QString, name);
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    PadsPageWindow::type(page.padsname, name);
    QCOMPARE(page.padsname->text(), name);
    PadsPageWindow::type(page.padsname, name, Qt::Key_Tab);
    QCOMPARE(page.padsname->text(), name);
}

void VdjPageTest::showsAsManyPadsAsChosen_data()
{
    QTest::addColumn<bool>("withTheMouse");
    QTest::newRow("with the mouse") << true;
    QTest::newRow("with the keyboard") << false;
}

void VdjPageTest::showsAsManyPadsAsChosen()
{
    QFETCH(bool, withTheMouse);
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    const auto choose = [&](QRadioButton* radio, QRadioButton* from, Qt::Key key) {
        if (withTheMouse)
            QTest::mouseClick(radio, Qt::LeftButton, Qt::NoModifier, QPoint(8, radio->height() / 2));
        else
            QTest::keyClick(from, key);
    };
    page.eightPads->setFocus();
    for (int round = 0; round < 2; ++round) {
        choose(page.sixteenPads, page.eightPads, Qt::Key_Right);
        QVERIFY(page.sixteenPads->isChecked());
        QVERIFY(!page.eightPads->isChecked());
        QVERIFY(!page.view->isColumnHidden(1));
        choose(page.eightPads, page.sixteenPads, Qt::Key_Left);
        QVERIFY(page.eightPads->isChecked());
        QVERIFY(!page.sixteenPads->isChecked());
        QVERIFY(page.view->isColumnHidden(1));
    }
    QVERIFY(!page.view->isColumnHidden(0));
    // The choice of the output is one of its own.
    QVERIFY(page.window.child<QRadioButton>("radio_outputpage")->isChecked());
}

void VdjPageTest::keepsTheColumnsWhenALayoutIsUnchecked()
{
    PadsPageWindow page;
    for (const bool sixteen : {false, true}) {
        page.view->setColumnHidden(1, !sixteen);
        QVERIFY(QMetaObject::invokeMethod(&page.window, "on_radioButton_16pads_clicked", Q_ARG(bool, false)));
        QCOMPARE(page.view->isColumnHidden(1), !sixteen);
        QVERIFY(QMetaObject::invokeMethod(&page.window, "on_radioButton_8pads_clicked", Q_ARG(bool, false)));
        QCOMPARE(page.view->isColumnHidden(1), !sixteen);
    }
}

void VdjPageTest::fillsTheViewWithItsColumns()
{
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    const int width = page.view->viewport()->width();
    QCOMPARE(page.view->columnWidth(0), width);
    page.sixteenPads->click();
    QCOMPARE(page.view->columnWidth(0), 150);
    QCOMPARE(page.view->columnWidth(1), width - 150);
    page.eightPads->click();
    QCOMPARE(page.view->columnWidth(0), width);
    // All eight pads of a bank are in sight.
    QVERIFY(page.view->viewport()->rect().contains(page.view->visualRect(page.pad(0, 0))));
    QVERIFY(page.view->viewport()->rect().contains(page.view->visualRect(page.pad(7, 0))));
}

void VdjPageTest::keepsHiddenPadsWhenTheLayoutChanges()
{
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    page.sixteenPads->click();
    page.place(7, 1);
    const auto grid = page.window.vdjModel->getList();
    page.eightPads->click();
    QCOMPARE(page.window.vdjModel->getList(), grid);
    QVERIFY(!page.window.isVDJempty());
    page.sixteenPads->click();
    QCOMPARE(page.text(7, 1), QString("FOG"));
}

void VdjPageTest::isEmptyUntilAPadHoldsALiveButton_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("page");
    QTest::addColumn<bool>("empty");

    QTest::newRow("first pad") << 0 << 0 << "5"
                               << "1" << false;
    QTest::newRow("first Live Button") << 0 << 0 << "0"
                                       << "1" << false;
    QTest::newRow("hidden column") << 0 << 1 << "5"
                                   << "1" << false;
    QTest::newRow("hidden bank") << 8 << 0 << "5"
                                 << "1" << false;
    QTest::newRow("last pad, hidden twice") << 63 << 1 << "0"
                                            << "1" << false;
    // The id tells, whatever the page number; and no number is 0.
    QTest::newRow("id without page") << 10 << 0 << "5"
                                     << "0" << false;
    QTest::newRow("page without id") << 10 << 0 << "-1"
                                     << "3" << true;
    QTest::newRow("another negative id") << 10 << 0 << "-2"
                                         << "3" << true;
    QTest::newRow("no id") << 10 << 0 << ""
                           << "0" << false;
}

void VdjPageTest::isEmptyUntilAPadHoldsALiveButton()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, id);
    QFETCH(QString, page);
    QFETCH(bool, empty);
    PadsPageWindow pads;
    bool answer = false;
    QVERIFY(QMetaObject::invokeMethod(&pads.window, "isVDJempty", Q_RETURN_ARG(bool, answer)));
    QVERIFY(answer);
    QVERIFY(pads.view->isColumnHidden(1));
    pads.window.vdjModel->setData(pads.pad(row, column), id, ItemRole::Id);
    pads.window.vdjModel->setData(pads.pad(row, column), page, ItemRole::Page);
    QVERIFY(QMetaObject::invokeMethod(&pads.window, "isVDJempty", Q_RETURN_ARG(bool, answer)));
    QCOMPARE(answer, empty);
}

void VdjPageTest::tellsTheTwoOutputsApart()
{
    PadsPageWindow page;
    page.window.cleanMIDI();
    QVERIFY(page.window.isVDJempty());
    QVERIFY(page.window.isMIDIempty());
    page.place(63, 1);
    QVERIFY(!page.window.isVDJempty());
    QVERIFY(page.window.isMIDIempty());
    QVERIFY(page.window.controllerModel->insertRows(0, 12));
    QVERIFY(page.window.isMIDIempty());
    QVERIFY(
        page.window.controllerModel->setData(page.window.controllerModel->index(11, 9), "0", ItemRole::Id));
    QVERIFY(!page.window.isMIDIempty());
    page.window.initpadlist();
    QVERIFY(page.window.isVDJempty());
    QVERIFY(page.window.isMIDIempty());
}

void VdjPageTest::isEmptyWithoutPads()
{
    PadsPageWindow page;
    page.place(0, 0);
    page.window.cleanVDJ();
    QCOMPARE(page.window.vdjModel->rowCount(), 0);
    QVERIFY(page.window.isVDJempty());
    page.bankcombo->setCurrentIndex(3);
    QCOMPARE(page.shownRows(), QString("none"));
    QCOMPARE(page.bankname->text(), QString("BANK 4"));
}

void VdjPageTest::editsTheTextOfAPadAfterADoubleClick_data()
{
    QTest::addColumn<int>("bank");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("first pad") << 0 << 0 << 0;
    QTest::newRow("pad of a later bank") << 3 << 26 << 0;
    QTest::newRow("last pad") << 7 << 63 << 1;
}

void VdjPageTest::editsTheTextOfAPadAfterADoubleClick()
{
    QFETCH(int, bank);
    QFETCH(int, row);
    QFETCH(int, column);
    PadsPageWindow page;
    page.sixteenPads->click();
    page.bankcombo->setCurrentIndex(bank);
    page.place(row, column);
    QVERIFY(page.window.showready());
    auto expected = page.window.vdjModel->getList();
    expected[row][column][Key::name()] = QStringLiteral("Fog & Rain");

    page.doubleClick(row, column);
    QVERIFY(page.editor());
    QCOMPARE(page.editor()->text(), QString("FOG"));
    const PaintWatch watch(page.view->viewport(), page.middle(row, column));
    PadsPageWindow::type(page.editor(), QStringLiteral("Fog & Rain"));
    QTRY_VERIFY(!page.editor());
    // The Live Button's own name stays, so the pad still sends the same.
    QCOMPARE(page.window.vdjModel->getList(), expected);
    QTRY_VERIFY(watch.painted);
}

void VdjPageTest::namesAPadByItsRowWhenItsTextIsEmptied_data()
{
    QTest::addColumn<int>("bank");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::newRow("first pad") << 0 << 0 << 0 << "PAD 1";
    QTest::newRow("pad of a later bank") << 3 << 26 << 0 << "PAD 27";
    QTest::newRow("pad of the second column") << 0 << 2 << 1 << "PAD 3";
}

void VdjPageTest::namesAPadByItsRowWhenItsTextIsEmptied()
{
    QFETCH(int, bank);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, text);
    PadsPageWindow page;
    page.sixteenPads->click();
    page.bankcombo->setCurrentIndex(bank);
    page.place(row, column);
    QVERIFY(page.window.showready());
    page.doubleClick(row, column);
    QVERIFY(page.editor());
    PadsPageWindow::type(page.editor(), QString());
    QTRY_COMPARE(page.text(row, column), text);
    QCOMPARE(page.pad(row, column).data(ItemRole::DspName).toString(), QString("Fog"));
    QCOMPARE(page.pad(row, column).data(ItemRole::Id).toString(), QString("5"));
}

void VdjPageTest::keepsTheTextWhenEditingIsCancelled()
{
    PadsPageWindow page;
    page.place(2, 0);
    QVERIFY(page.window.showready());
    const auto before = page.window.vdjModel->getList();
    page.doubleClick(2, 0);
    QVERIFY(page.editor());
    PadsPageWindow::type(page.editor(), QStringLiteral("Rain"), Qt::Key_Escape);
    QTRY_VERIFY(!page.editor());
    QCOMPARE(page.window.vdjModel->getList(), before);
}

void VdjPageTest::opensNoEditorOnAnEmptyPad()
{
    PadsPageWindow page;
    page.place(3, 0);
    QVERIFY(page.window.showready());
    const auto before = page.window.vdjModel->getList();
    page.doubleClick(2, 0);
    QVERIFY(!page.editor());
    QTest::keyClick(page.view, Qt::Key_F2);
    QTest::keyClick(page.view, Qt::Key_A);
    QVERIFY(!page.editor());
    QCOMPARE(page.window.vdjModel->getList(), before);
    // The pad below it holds a Live Button, and there the same click opens one.
    page.doubleClick(3, 0);
    QVERIFY(page.editor());
}

void VdjPageTest::takesALiveButtonOnThePadUnderTheMouse_data()
{
    QTest::addColumn<int>("bank");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<bool>("corner");
    QTest::newRow("first pad") << 0 << 0 << 0 << false;
    QTest::newRow("last pad of the bank, at its edge") << 0 << 7 << 1 << true;
    QTest::newRow("pad of a later bank") << 3 << 26 << 0 << false;
    QTest::newRow("last pad, at its edge") << 7 << 63 << 1 << true;
}

void VdjPageTest::takesALiveButtonOnThePadUnderTheMouse()
{
    QFETCH(int, bank);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(bool, corner);
    PadsPageWindow page;
    page.sixteenPads->click();
    QVERIFY(page.window.showready());
    const auto strobe = page.liveButton(0);
    page.bankcombo->setCurrentIndex(bank);
    auto expected = page.window.vdjModel->getList();
    expected[row][column] = Record{{Key::name(), QStringLiteral("Strobe")},
                                   {Key::dspName(), QStringLiteral("Strobe")},
                                   {Key::pageNr(), QStringLiteral("1")},
                                   {Key::id(), QStringLiteral("0")},
                                   {Key::color(), QStringLiteral("#ff0000")}};
    const QPoint where = corner ? page.view->visualRect(page.pad(row, column)).topLeft() + QPoint(1, 1)
                                : page.middle(row, column);
    const PaintWatch watch(page.view->viewport(), page.middle(row, column));
    QVERIFY(page.dropAt(where, strobe.get()));
    QCOMPARE(page.window.vdjModel->getList(), expected);
    QTRY_VERIFY(watch.painted);
}

void VdjPageTest::movesAPadWithinTheView()
{
    PadsPageWindow page;
    page.sixteenPads->click();
    page.bankcombo->setCurrentIndex(1);
    page.place(10, 1);
    QVERIFY(page.window.showready());
    const std::unique_ptr<QMimeData> fog(page.window.vdjModel->mimeData({page.pad(10, 1)}));
    QVERIFY(page.dropAt(page.middle(15, 0), fog.get()));
    QCOMPARE(page.text(15, 0), QString("FOG"));
    QCOMPARE(page.text(10, 1), QString("PAD 3"));
    QCOMPARE(page.window.vdjModel->rowCount(), 64);
}

void VdjPageTest::takesNoLiveButtonWhereNoPadIs()
{
    PadsPageWindow page;
    QVERIFY(page.window.showready());
    const auto strobe = page.liveButton(0);
    page.bankcombo->setCurrentIndex(-1);
    const auto before = page.window.vdjModel->getList();
    const QPoint where(150, 105);
    page.dropAt(where, strobe.get());
    QCOMPARE(page.window.vdjModel->getList(), before);
    page.bankcombo->setCurrentIndex(0);
    QVERIFY(page.dropAt(where, strobe.get()));
    QCOMPARE(page.text(3, 0), QString("Strobe"));
}

LUMIPAD_TEST_MAIN(VdjPageTest)

#include "tst_vdj_page.moc"
