#include "controller.h"
#include "itemroles.h"
#include "mydelegate.h"
#include "mymodel.h"
#include "testmain.h"
#include "testshows.h"
#include "testwindow.h"
#include "toolkitfacts.h"
#include "vdjmodel.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMetaMethod>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableView>

#include <memory>

namespace {

const QString exitText = QStringLiteral("Project is not empty.");
const QString exitQuestion = QStringLiteral("Are you sure you want to exit ?");
const QString replaceText =
    QStringLiteral("Are you sure you want to open a new Show \nbefore saving current Project ?");

/// Everything below \a folder, relative to it.
QStringList everythingin(const QString& folder)
{
    QStringList all;
    QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        all.append(QDir(folder).relativeFilePath(files.next()));
    all.sort();
    return all;
}

/// Opens the show in \a folder without the file dialog.
void open(TestWindow* window, const QString& folder)
{
    window->showName = QFileInfo(folder).fileName();
    QVERIFY(window->loadshowname(folder + QStringLiteral("/Live/live.ini")));
}

/// Drops the Live Button of list row \a button on the pad \a row, \a column.
void placeonpad(TestWindow* window, int button, int row, int column = 0)
{
    const std::unique_ptr<QMimeData> data(window->dmxModel->mimeData({window->dmxModel->index(button, 0)}));
    QVERIFY(window->vdjModel->dropMimeData(data.get(), Qt::CopyAction, -1, -1,
                                           window->vdjModel->index(row, column)));
}

/// Puts the Live Button \a id on a cell of the controller grid, which is built first when it has no rows.
void placeoncontroller(TestWindow* window, int id)
{
    if (window->controllerModel->rowCount() == 0)
        QVERIFY(window->controllerModel->insertRows(0, 12));
    QVERIFY(window->controllerModel->setData(window->controllerModel->index(4, 5), QString::number(id),
                                             ItemRole::Id));
}

QList<int> checkedrows(const TestWindow& window)
{
    QList<int> rows;
    for (int row = 0; row < window.dmxModel->rowCount(); ++row)
        if (window.dmxModel->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked)
            rows.append(row);
    return rows;
}

QStringList titles(const TestWindow& window)
{
    QStringList all;
    for (int row = 0; row < window.dmxModel->rowCount(); ++row)
        all.append(window.dmxModel->index(row, 0).data().toString());
    return all;
}

/// The titles of the rows that the filter shows.
QStringList shownlist(const TestWindow& window)
{
    const auto* view = window.child<QTableView>("dmxlistview");
    QStringList all;
    for (int row = 0; row < window.dmxModel->rowCount(); ++row)
        if (!view->isRowHidden(row))
            all.append(window.dmxModel->index(row, 0).data().toString());
    return all;
}

QStringList itemtexts(const QComboBox* combo)
{
    QStringList all;
    for (int item = 0; item < combo->count(); ++item)
        all.append(combo->itemText(item));
    return all;
}

void click(const TestWindow& window, const char* name)
{
    QTest::mouseClick(window.child<QAbstractButton>(name), Qt::LeftButton);
}

/// Counts how often a widget is painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }
    int count = 0;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

/// The output mode, and whether its grid holds a Live Button, as the guards see it.
enum class Work { NoShow, EmptyPads, FilledPads, EmptyController, FilledController };
Q_DECLARE_METATYPE(Work)

class MainWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void startsWithItsFirstValues();
    void makesItsTwoFoldersAndNothingElse();
    void makesNoFoldersOfVirtualDj();
    void leavesFilesInItsFoldersAlone();
    void makesNoFolderWithoutDocuments();
    void startsWhereItsFolderIsAFile();
    void everyActionIsASlot_data();
    void everyActionIsASlot();
    void slotsRunByName();
    void destructionEndsModelsAndDelegate();

    void midiButtonShowsTheMidiLayout();
    void padsButtonShowsThePadsLayout();
    void slotOfAnUncheckedButtonShowsTheOtherLayout();
    void switchingOutputRebuildsTheMarks();
    void switchingOutputRepaintsTheList();

    void closingAsksOnlyWhenWorkWouldBeLost_data();
    void closingAsksOnlyWhenWorkWouldBeLost();
    void closingAsksInItsOwnWords();
    void exitAsksOnlyOnce_data();
    void exitAsksOnlyOnce();
    void loadingAsksBeforeWorkIsReplaced_data();
    void loadingAsksBeforeWorkIsReplaced();
    void replaceQuestionIsWorded();
    void replaceQuestionAnsweredWithSaveSavesFirst();
    void menuAndButtonLoadAlike();

    void newProjectClearsPadsAndMarks();
    void newProjectRepaintsTheList();
    void newProjectWithoutShowIsHarmless();
    void cleanEmptiesItsModelInOneStep();

    void folderDialogStartsAtTheShows();
    void cancelledFolderDialogChangesNothing();
    void folderWithoutShowIsRefused();
    void unreadableShowChangesNothingButItsName();
    void showIsLoaded();
    void secondShowReplacesEverything();
    void renamedFirstBankGivesWayToANewShow();
    void showWithoutPagesIsLoaded();

    void filterShowsOnePage();
    void negativeFilterChangesNothing();
    void filterEntriesAreRoomy();
    void rowsAreFilledFromTheButtons();
    void buttonsOfAPageAreCounted();

    void onlyTheCommandWithoutAnEffectIsDisabled();
    void keysTriggerTheirActions_data();
    void keysTriggerTheirActions();
    void noKeyThrowsTheWorkAway();
    void keyOfADisabledActionDoesNothing();
    void tabVisitsEveryControl_data();
    void tabVisitsEveryControl();
    void everyControlHasAnAccessibleName();

private:
    static void prepare(TestWindow* window, const TestHome& home, Work work);
};

/// Brings \a window into the state \a work; all but the first have the show "Gig" loaded. In the other
/// output's grid lies a Live Button each time, which must not count.
void MainWindowTest::prepare(TestWindow* window, const TestHome& home, Work work)
{
    open(window, writeshow(home, QStringLiteral("Gig")));
    if (work != Work::EmptyPads)
        placeonpad(window, 0, 63, 1);
    if (work != Work::EmptyController)
        placeoncontroller(window, 1);
    if (work == Work::EmptyController || work == Work::FilledController)
        click(*window, "radio_outputmidi");
    if (work == Work::NoShow)
        window->showName.clear();
}

void MainWindowTest::startsWithItsFirstValues()
{
    const TestHome home;
    TestWindow window;
    QCOMPARE(window.windowTitle(), QStringLiteral("Lumipad"));
    QCOMPARE(window.showName, QString());
    QCOMPARE(window.iniPath, QString());
    QCOMPARE(window.currentDevice, devicerow("APCMINI")); // which every test window chooses
    QCOMPARE(window.switchPad, (QList<int>{-1, -1}));
    QVERIFY(!window.menuIndex.isValid());
    QVERIFY(window.pages.isEmpty());
    QVERIFY(window.buttons.isEmpty());
    QStringList banks;
    for (int bank = 1; bank <= 8; ++bank)
        banks.append(QStringLiteral("BANK %1").arg(bank));
    QCOMPARE(window.banks, banks);
    QCOMPARE(window.homePath, home.path());
    QCOMPARE(window.documentsPath, home.path(QStringLiteral("Documents")));
    QCOMPARE(window.programFolder, home.path(QStringLiteral("Documents/Lumipad")));
    QCOMPARE(window.projectsPath, home.path(QStringLiteral("Documents/Lumipad/projects")));
    QCOMPARE(window.padsPath, home.path(QStringLiteral("Documents/VirtualDJ/Pads")));
    QCOMPARE(window.mappersPath, home.path(QStringLiteral("Documents/VirtualDJ/Mappers")));
    QCOMPARE(window.dmxModel->rowCount(), 0);
    QCOMPARE(window.vdjModel->rowCount(), 64);
    QCOMPARE(window.child<QComboBox>("combobox")->count(), 0);
    QCOMPARE(itemtexts(window.child<QComboBox>("bankcombo")),
             QStringLiteral("1 2 3 4 5 6 7 8").split(QLatin1Char(' ')));
    QCOMPARE(window.child<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(window.child<QLineEdit>("bankname")->text(), QStringLiteral("BANK 1"));
    QCOMPARE(window.child<QLineEdit>("padsname")->text(), QStringLiteral("OS2L DMX"));
    QVERIFY(window.child<QRadioButton>("radio_outputpage")->isChecked());
    QVERIFY(!window.child<QRadioButton>("radio_outputmidi")->isChecked());
    QVERIFY(window.child<QRadioButton>("radioButton_8pads")->isChecked());
    QVERIFY(!window.child<QRadioButton>("radioButton_16pads")->isChecked());
    QVERIFY(window.isVDJempty());
    QVERIFY(window.isMIDIempty());
    QVERIFY(window.showready());
    QVERIFY(window.child<QWidget>("groupBox_pads")->isVisible());
    QVERIFY(!window.child<QWidget>("groupBox_midis")->isVisible());
    QVERIFY(!window.child<QWidget>("groupBox_controller")->isVisible());
}

void MainWindowTest::makesItsTwoFoldersAndNothingElse()
{
    const TestHome home;
    const TestWindow window;
    const QStringList wanted{QStringLiteral("Documents"), QStringLiteral("Documents/Lumipad"),
                             QStringLiteral("Documents/Lumipad/projects")};
    QCOMPARE(everythingin(home.path()), wanted);
}

void MainWindowTest::makesNoFoldersOfVirtualDj()
{
    const TestHome home;
    const QString folder = home.makefolder(QStringLiteral("Documents/VirtualDJ"));
    const TestWindow window;
    QCOMPARE(everythingin(folder), QStringList());
}

void MainWindowTest::leavesFilesInItsFoldersAlone()
{
    const TestHome home;
    QFile project(home.makefolder(QStringLiteral("Documents/Lumipad/projects")) +
                  QStringLiteral("/Mine.os2l"));
    QVERIFY(project.open(QIODevice::WriteOnly));
    project.write("work");
    project.close();
    const TestWindow window;
    QVERIFY(project.open(QIODevice::ReadOnly));
    QCOMPARE(project.readAll(), QByteArray("work"));
}

void MainWindowTest::makesNoFolderWithoutDocuments()
{
    const TestHome home(TestHome::Documents::Missing);
    TestWindow window;
    QVERIFY(window.showready());
    QCOMPARE(everythingin(home.path()), QStringList());
}

void MainWindowTest::startsWhereItsFolderIsAFile()
{
    const TestHome home;
    QFile file(home.path(QStringLiteral("Documents/Lumipad")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    TestWindow window;
    QVERIFY(window.showready());
    QCOMPARE(everythingin(home.path(QStringLiteral("Documents"))), QStringList{QStringLiteral("Lumipad")});
}

void MainWindowTest::everyActionIsASlot_data()
{
    QTest::addColumn<QByteArray>("result");
    const auto add = [](const char* signature, const char* result = "void") {
        QTest::newRow(signature) << QByteArray(result);
    };
    add("closeEvent(QCloseEvent*)");
    add("on_actionExit_triggered()");
    add("on_actionNew_triggered()");
    add("on_loadini_clicked()");
    add("on_actionNew_2_triggered()");
    add("on_pushButton_2_clicked()");
    add("on_actionExport_triggered()");
    add("on_combobox_currentIndexChanged(int)");
    add("on_bankcombo_currentIndexChanged(int)");
    add("on_radio_outputpage_clicked()");
    add("on_radio_outputmidi_clicked()");
    add("cleanDMX()");
    add("cleanVDJ()");
    add("cleanMIDI()");
    add("setstyles()");
    add("loadshow()", "bool");
    add("loadshowname(QString)", "bool");
    add("getcolor(QString)", "QString");
    add("buttonsperpage(int)", "int");
    add("initlist()");
    add("updatecombo()");
    add("updatelist(int)");
    add("resetdmxlist()");
    add("initpadlist()");
    add("updatebankcombo()");
    add("showbank(int)");
    add("on_bankname_editingFinished()");
    add("on_padsname_editingFinished()");
    add("on_radioButton_8pads_clicked(bool)");
    add("on_radioButton_16pads_clicked(bool)");
    add("isVDJempty()", "bool");
    add("isMIDIempty()", "bool");
    add("exportpage()", "bool");
}

void MainWindowTest::everyActionIsASlot()
{
    QFETCH(const QByteArray, result);
    const int index = MainWindow::staticMetaObject.indexOfSlot(QTest::currentDataTag());
    QVERIFY(index >= 0);
    QCOMPARE(QByteArray(MainWindow::staticMetaObject.method(index).typeName()), result);
}

void MainWindowTest::slotsRunByName()
{
    const TestHome home;
    TestWindow window;
    const auto call = [&window](const char* slot, QGenericReturnArgument result = QGenericReturnArgument(),
                                QGenericArgument argument = QGenericArgument()) {
        return QMetaObject::invokeMethod(&window, slot, Qt::DirectConnection, result, argument);
    };
    window.showName = QStringLiteral("Gig");
    bool loaded = false;
    QVERIFY(call("loadshowname", Q_RETURN_ARG(bool, loaded),
                 Q_ARG(QString, writeshow(home, QStringLiteral("Gig")) + QStringLiteral("/Live/live.ini"))));
    QVERIFY(loaded);
    QCOMPARE(window.dmxModel->rowCount(), 5);
    QString color;
    QVERIFY(call("getcolor", Q_RETURN_ARG(QString, color), Q_ARG(QString, QStringLiteral("FF"))));
    QCOMPARE(color, QStringLiteral("#0000FF"));
    int count = 0;
    QVERIFY(call("buttonsperpage", Q_RETURN_ARG(int, count), Q_ARG(int, 1)));
    QCOMPARE(count, 3);
    QVERIFY(call("cleanDMX"));
    QCOMPARE(window.dmxModel->rowCount(), 0);
    QVERIFY(call("initlist"));
    QCOMPARE(window.dmxModel->rowCount(), 5);
    QVERIFY(call("updatelist", QGenericReturnArgument(), Q_ARG(int, 2)));
    QCOMPARE(shownlist(window).size(), 2);
    QVERIFY(call("cleanVDJ"));
    QCOMPARE(window.vdjModel->rowCount(), 0);
    QVERIFY(call("initpadlist"));
    QCOMPARE(window.vdjModel->rowCount(), 64);
    placeonpad(&window, 3, 0);
    bool empty = true;
    QVERIFY(call("isVDJempty", Q_RETURN_ARG(bool, empty)));
    QVERIFY(!empty);
    QVERIFY(call("resetdmxlist"));
    QCOMPARE(checkedrows(window), QList<int>{3});
    QVERIFY(call("on_actionNew_2_triggered"));
    QVERIFY(window.isVDJempty());
}

void MainWindowTest::destructionEndsModelsAndDelegate()
{
    const TestHome home;
    auto window = std::make_unique<TestWindow>();
    const QPointer<QObject> pads = window->vdjModel;
    const QPointer<QObject> list = window->dmxModel;
    const QPointer<QObject> grid = window->controllerModel;
    const QPointer<QObject> delegate = window->delegate;
    QVERIFY(pads && list && grid && delegate);
    window.reset();
    QVERIFY(!pads && !list && !grid && !delegate);
}

void MainWindowTest::midiButtonShowsTheMidiLayout()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    QCOMPARE(window.child<QWidget>("label_padname")->property("text").toString(), QStringLiteral("Pad Page"));
    click(window, "radio_outputmidi");
    QVERIFY(!window.child<QWidget>("groupBox_pads")->isVisible());
    QVERIFY(window.child<QWidget>("groupBox_midis")->isVisible());
    QVERIFY(window.child<QWidget>("groupBox_controller")->isVisible());
    QVERIFY(window.child<QWidget>("groupBox_3")->isVisible());
    QCOMPARE(window.child<QWidget>("groupBox")->geometry(), QRect(290, 30, 1071, 51));
    QCOMPARE(window.width(), 1366);
    QCOMPARE(window.child<QWidget>("label_padname")->property("text").toString(),
             QStringLiteral("MIDI Mapping"));
}

void MainWindowTest::padsButtonShowsThePadsLayout()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    click(window, "radio_outputmidi");
    click(window, "radio_outputpage");
    QVERIFY(window.child<QWidget>("groupBox_pads")->isVisible());
    QVERIFY(!window.child<QWidget>("groupBox_midis")->isVisible());
    QVERIFY(!window.child<QWidget>("groupBox_controller")->isVisible());
    QVERIFY(window.child<QWidget>("groupBox_3")->isVisible());
    QCOMPARE(window.child<QWidget>("groupBox")->geometry(), QRect(290, 30, 341, 51));
    QCOMPARE(window.width(), 650);
    QCOMPARE(window.child<QWidget>("label_padname")->property("text").toString(),
             QStringLiteral("Pads Page"));
}

void MainWindowTest::slotOfAnUncheckedButtonShowsTheOtherLayout()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    QVERIFY(QMetaObject::invokeMethod(&window, "on_radio_outputmidi_clicked"));
    QCOMPARE(window.width(), 650);
    QCOMPARE(window.child<QWidget>("label_padname")->property("text").toString(),
             QStringLiteral("Pads Page"));
    window.child<QRadioButton>("radio_outputmidi")->setChecked(true);
    QVERIFY(QMetaObject::invokeMethod(&window, "on_radio_outputpage_clicked"));
    QCOMPARE(window.width(), 1365);
    QCOMPARE(window.child<QWidget>("groupBox")->geometry(), QRect(290, 30, 1071, 51));
    QVERIFY(window.child<QWidget>("groupBox_controller")->isVisible());
    QVERIFY(window.child<QWidget>("groupBox_midis")->isVisible());
    QVERIFY(!window.child<QWidget>("groupBox_pads")->isVisible());
    QCOMPARE(window.child<QWidget>("label_padname")->property("text").toString(),
             QStringLiteral("MIDI Mapping"));
}

void MainWindowTest::switchingOutputRebuildsTheMarks()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    placeonpad(&window, 1, 0);
    placeonpad(&window, 3, 40);
    // A pad of the second column does not count.
    placeonpad(&window, 4, 2, 1);
    placeoncontroller(&window, 2);

    click(window, "radio_outputmidi");
    QCOMPARE(checkedrows(window), QList<int>{2});
    QCOMPARE(window.buttons.at(2).value(QStringLiteral("check")), QStringLiteral("1"));
    QCOMPARE(window.buttons.at(1).value(QStringLiteral("check")), QStringLiteral("0"));

    window.child<QTableView>("dmxlistview")->setCurrentIndex(window.dmxModel->index(3, 0));
    click(window, "radio_outputpage");
    QCOMPARE(checkedrows(window), (QList<int>{1, 3}));
    QCOMPARE(window.buttons.at(1).value(QStringLiteral("check")), QStringLiteral("1"));
    QCOMPARE(window.buttons.at(2).value(QStringLiteral("check")), QStringLiteral("0"));
    QCOMPARE(window.child<QTableView>("dmxlistview")->currentIndex(), window.dmxModel->index(0, 0));

    window.cleanMIDI();
    click(window, "radio_outputmidi");
    QCOMPARE(checkedrows(window), QList<int>());
}

void MainWindowTest::switchingOutputRepaintsTheList()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    placeonpad(&window, 2, 0);
    auto* view = window.child<QTableView>("dmxlistview");
    view->setCurrentIndex(window.dmxModel->index(0, 0));
    view->setFocus();
    QTest::qWait(0);
    QCoreApplication::processEvents();
    PaintCounter paints(view->viewport());
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 0);
    window.resetdmxlist();
    QCOMPARE(checkedrows(window), QList<int>{2});
    QTRY_VERIFY(paints.count > 0);
}

void MainWindowTest::closingAsksOnlyWhenWorkWouldBeLost_data()
{
    QTest::addColumn<Work>("work");
    QTest::addColumn<QList<Answer>>("answers");
    QTest::addColumn<bool>("closes");
    const QList<Answer> none;
    QTest::newRow("no show, filled pads") << Work::NoShow << none << true;
    QTest::newRow("empty pads") << Work::EmptyPads << none << true;
    QTest::newRow("empty controller") << Work::EmptyController << none << true;
    for (const Work work : {Work::FilledPads, Work::FilledController}) {
        const QByteArray grid = work == Work::FilledPads ? "pads: " : "controller: ";
        const auto add = [&](const char* name, const Answer& answer, bool closes) {
            QTest::newRow((grid + name).constData()) << work << QList<Answer>{answer} << closes;
        };
        add("Yes", Answers::press(QMessageBox::Yes), true);
        add("Cancel", Answers::press(QMessageBox::Cancel), false);
        add("Return", Answers::key(Qt::Key_Return), false);
        add("Escape", Answers::key(Qt::Key_Escape), false);
        add("close box", Answers::closebox(), false);
    }
}

void MainWindowTest::closingAsksOnlyWhenWorkWouldBeLost()
{
    QFETCH(const Work, work);
    QFETCH(const QList<Answer>, answers);
    QFETCH(const bool, closes);
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    prepare(&window, home, work);
    const Dialogs dialogs(answers);
    QCOMPARE(window.close(), closes);
    QCOMPARE(window.isVisible(), !closes);
    QCOMPARE(window.closeRequests, 1);
    QCOMPARE(dialogs.count(), answers.size());
    if (work != Work::NoShow)
        QCOMPARE(window.showName, QStringLiteral("Gig"));
}

void MainWindowTest::closingAsksInItsOwnWords()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    prepare(&window, home, Work::FilledPads);
    const Dialogs dialogs({Answers::press(QMessageBox::Cancel)});
    window.close();
    const ShownDialog box = dialogs.at(0);
    QVERIFY(box.isMessageBox);
    QCOMPARE(box.text, exitText);
    QCOMPARE(box.informativeText, exitQuestion);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::Cancel);
    QCOMPARE(box.disabledButtons, QMessageBox::StandardButtons());
    QCOMPARE(box.defaultButton, QMessageBox::Cancel);
    QCOMPARE(box.styleSheet, window.messageBoxStyle);
    QCOMPARE(box.parent, nullptr);
}

void MainWindowTest::exitAsksOnlyOnce_data()
{
    QTest::addColumn<Work>("work");
    QTest::addColumn<QList<Answer>>("answers");
    QTest::addColumn<int>("closeRequests");
    QTest::addColumn<QString>("showName");
    const QList<Answer> none;
    const QString gig = QStringLiteral("Gig");
    QTest::newRow("no show, filled pads") << Work::NoShow << none << 1 << QString();
    // It closes twice.
    const int twice = Toolkit::asksClosedWindows ? 2 : 1;
    QTest::newRow("empty pads") << Work::EmptyPads << none << twice << QString();
    QTest::newRow("empty controller") << Work::EmptyController << none << twice << QString();
    for (const Work work : {Work::FilledPads, Work::FilledController}) {
        const QByteArray grid = work == Work::FilledPads ? "pads: " : "controller: ";
        const auto add = [&](const char* name, const Answer& answer, int requests, const QString& show) {
            QTest::newRow((grid + name).constData()) << work << QList<Answer>{answer} << requests << show;
        };
        add("Yes", Answers::press(QMessageBox::Yes), 1, QString());
        add("Cancel", Answers::press(QMessageBox::Cancel), 0, gig);
        add("Return", Answers::key(Qt::Key_Return), 0, gig);
        add("Escape", Answers::key(Qt::Key_Escape), 0, gig);
        add("close box", Answers::closebox(), 0, gig);
    }
}

void MainWindowTest::exitAsksOnlyOnce()
{
    QFETCH(const Work, work);
    QFETCH(const QList<Answer>, answers);
    QFETCH(const int, closeRequests);
    QFETCH(const QString, showName);
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    prepare(&window, home, work);
    const Dialogs dialogs(answers);
    window.child<QAction>("actionExit")->trigger();
    QCOMPARE(window.closeRequests, closeRequests);
    QCOMPARE(window.closesAccepted, closeRequests);
    QCOMPARE(window.isVisible(), closeRequests == 0);
    QCOMPARE(window.showName, showName);
    QCOMPARE(dialogs.count(), answers.size());
    if (!answers.isEmpty()) {
        QCOMPARE(dialogs.at(0).text, exitText);
        QCOMPARE(dialogs.at(0).informativeText, exitQuestion);
        QCOMPARE(dialogs.at(0).buttons, QMessageBox::Yes | QMessageBox::Cancel);
        QCOMPARE(dialogs.at(0).defaultButton, QMessageBox::Cancel);
        QCOMPARE(dialogs.at(0).styleSheet, window.messageBoxStyle);
        QCOMPARE(dialogs.at(0).parent, nullptr);
    }
}

void MainWindowTest::loadingAsksBeforeWorkIsReplaced_data()
{
    QTest::addColumn<Work>("work");
    QTest::addColumn<QList<Answer>>("answers");
    QTest::addColumn<bool>("asked");
    const Answer cancel = Answers::key(Qt::Key_Escape);
    QTest::newRow("no show, filled pads") << Work::NoShow << QList<Answer>{cancel} << false;
    QTest::newRow("empty pads") << Work::EmptyPads << QList<Answer>{cancel} << false;
    QTest::newRow("empty controller") << Work::EmptyController << QList<Answer>{cancel} << false;
    for (const Work work : {Work::FilledPads, Work::FilledController}) {
        const QByteArray grid = work == Work::FilledPads ? "pads: " : "controller: ";
        const auto add = [&](const char* name, const QList<Answer>& answers) {
            QTest::newRow((grid + name).constData()) << work << answers << true;
        };
        add("Yes, then no folder", {Answers::press(QMessageBox::Yes), cancel});
        add("Cancel", {Answers::press(QMessageBox::Cancel)});
        add("Return", {Answers::key(Qt::Key_Return)});
        add("Escape", {Answers::key(Qt::Key_Escape)});
        add("close box", {Answers::closebox()});
    }
}

void MainWindowTest::loadingAsksBeforeWorkIsReplaced()
{
    QFETCH(const Work, work);
    QFETCH(const QList<Answer>, answers);
    QFETCH(const bool, asked);
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    prepare(&window, home, work);
    const QString showName = window.showName;
    const auto pads = window.vdjModel->getList();
    const auto cells = window.controllerModel->getList();
    const Dialogs dialogs(answers);
    click(window, "loadini");
    QCOMPARE(dialogs.count(), answers.size());
    QCOMPARE(dialogs.at(0).isMessageBox, asked);
    QCOMPARE(dialogs.at(dialogs.count() - 1).isFileDialog, !asked || answers.size() == 2);
    QCOMPARE(window.showName, showName);
    QCOMPARE(window.vdjModel->getList(), pads);
    QCOMPARE(window.controllerModel->getList(), cells);
    QCOMPARE(titles(window).size(), 5);
}

void MainWindowTest::replaceQuestionIsWorded()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    prepare(&window, home, Work::FilledPads);
    const Dialogs dialogs({Answers::press(QMessageBox::Cancel)});
    click(window, "loadini");
    const ShownDialog box = dialogs.at(0);
    QCOMPARE(box.text, replaceText);
    QCOMPARE(box.informativeText, QString());
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::Save | QMessageBox::Cancel);
    QCOMPARE(box.disabledButtons, QMessageBox::StandardButtons());
    QCOMPARE(box.defaultButton, QMessageBox::Cancel);
    QCOMPARE(box.styleSheet, window.messageBoxStyle);
    QCOMPARE(box.parent, nullptr);
}

void MainWindowTest::replaceQuestionAnsweredWithSaveSavesFirst()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    prepare(&window, home, Work::FilledPads);
    const QString other = writeshow(home, QStringLiteral("Other"));
    // Whatever becomes of the saving, the show is chosen afterwards.
    const Dialogs dialogs(
        {Answers::press(QMessageBox::Save), Answers::key(Qt::Key_Escape), Answers::choose(other)});
    click(window, "loadini");
    QCOMPARE(dialogs.at(1).title, QStringLiteral("Save your Lumipad Project"));
    QCOMPARE(window.showName, QStringLiteral("Other"));
}

void MainWindowTest::menuAndButtonLoadAlike()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    prepare(&window, home, Work::FilledPads);
    const QString other = writeshow(home, QStringLiteral("Other"));
    const Dialogs dialogs({Answers::press(QMessageBox::Yes), Answers::choose(other)});
    window.child<QAction>("actionNew")->trigger();
    QCOMPARE(dialogs.at(0).text, replaceText);
    QCOMPARE(window.showName, QStringLiteral("Other"));
    QVERIFY(window.isVDJempty());
}

void MainWindowTest::newProjectClearsPadsAndMarks()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    placeonpad(&window, 1, 0);
    placeonpad(&window, 3, 63, 1);
    placeoncontroller(&window, 1);
    window.resetdmxlist();
    QCOMPARE(checkedrows(window), QList<int>{1});
    window.child<QComboBox>("bankcombo")->setCurrentIndex(3);
    window.child<QComboBox>("combobox")->setCurrentIndex(1);
    window.child<QTableView>("dmxlistview")->setCurrentIndex(window.dmxModel->index(2, 0));
    window.child<QLineEdit>("padsname")->setFocus();
    const auto buttons = window.buttons;
    const auto pages = window.pages;

    window.child<QAction>("actionNew_2")->trigger();
    QVERIFY(window.isVDJempty());
    QCOMPARE(window.vdjModel->rowCount(), 64);
    QCOMPARE(window.vdjModel->index(0, 0).data().toString(), QStringLiteral("PAD 1"));
    QCOMPARE(window.vdjModel->index(63, 1).data().toString(), QStringLiteral("PAD 16"));
    QVERIFY(window.isMIDIempty());
    QCOMPARE(checkedrows(window), QList<int>());
    QCOMPARE(window.child<QComboBox>("bankcombo")->currentIndex(), 0);
    QVERIFY(!window.child<QTableView>("vdjlistview")->isRowHidden(7));
    QVERIFY(window.child<QTableView>("vdjlistview")->isRowHidden(8));
    QCOMPARE(window.child<QTableView>("dmxlistview")->currentIndex(), window.dmxModel->index(0, 0));
    QVERIFY(window.child<QTableView>("dmxlistview")->hasFocus());
    // The show stays, with the filter, and so does the window's own copy of the marks.
    QCOMPARE(window.showName, QStringLiteral("Gig"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Lumipad - Gig"));
    QCOMPARE(window.buttons, buttons);
    QCOMPARE(window.buttons.at(1).value(QStringLiteral("check")), QStringLiteral("1"));
    QCOMPARE(window.pages, pages);
    QCOMPARE(window.child<QComboBox>("combobox")->currentIndex(), 1);
    QCOMPARE(shownlist(window).size(), 3);
}

void MainWindowTest::newProjectRepaintsTheList()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    placeonpad(&window, 2, 0);
    window.resetdmxlist();
    auto* view = window.child<QTableView>("dmxlistview");
    view->setCurrentIndex(window.dmxModel->index(0, 0));
    view->setFocus();
    QTest::qWait(0);
    QCoreApplication::processEvents();
    PaintCounter list(view->viewport());
    PaintCounter pads(window.child<QTableView>("vdjlistview")->viewport());
    QCoreApplication::processEvents();
    QCOMPARE(list.count, 0);
    window.child<QAction>("actionNew_2")->trigger();
    QTRY_VERIFY(list.count > 0);
    QTRY_VERIFY(pads.count > 0);
}

void MainWindowTest::newProjectWithoutShowIsHarmless()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    window.child<QAction>("actionNew_2")->trigger();
    QCOMPARE(window.vdjModel->rowCount(), 64);
    QCOMPARE(window.dmxModel->rowCount(), 0);
    QVERIFY(!window.child<QTableView>("dmxlistview")->currentIndex().isValid());
}

void MainWindowTest::cleanEmptiesItsModelInOneStep()
{
    const TestHome home;
    TestWindow window;
    open(&window, writeshow(home, QStringLiteral("Gig")));
    placeoncontroller(&window, 0);
    const QSignalSpy list(window.child<QTableView>("dmxlistview")->model(), &QAbstractItemModel::rowsRemoved);
    const QSignalSpy pads(window.child<QTableView>("vdjlistview")->model(), &QAbstractItemModel::rowsRemoved);
    const QSignalSpy grid(window.child<QTableView>("tablecontroller")->model(),
                          &QAbstractItemModel::rowsRemoved);
    for (int time = 0; time < 2; ++time) {
        window.cleanDMX();
        QCOMPARE(window.dmxModel->rowCount(), 0);
        QCOMPARE(list.count(), 1);
        window.cleanVDJ();
        QCOMPARE(window.vdjModel->rowCount(), 0);
        QCOMPARE(pads.count(), 1);
        window.cleanMIDI();
        QCOMPARE(window.controllerModel->rowCount(), 0);
        QCOMPARE(grid.count(), 1);
    }
    QCOMPARE(window.buttons.size(), 5);
}

void MainWindowTest::folderDialogStartsAtTheShows()
{
    const TestHome home;
    writeshow(home, QStringLiteral("Gig"));
    TestWindow window;
    QVERIFY(window.showready());
    const Dialogs dialogs({Answers::key(Qt::Key_Escape)});
    QVERIFY(!window.loadshow());
    const ShownDialog dialog = dialogs.at(0);
    QVERIFY(dialog.isFileDialog);
    QCOMPARE(dialog.title, QStringLiteral("Select a Show"));
    QCOMPARE(dialog.folder, home.path(QStringLiteral("TheLightingController/LightShows")));
    QVERIFY(dialog.foldersOnly);
    QCOMPARE(dialog.parent, static_cast<const QWidget*>(&window));
}

void MainWindowTest::cancelledFolderDialogChangesNothing()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    const QString iniPath = window.iniPath;
    const Dialogs dialogs({Answers::key(Qt::Key_Escape)});
    click(window, "loadini");
    QCOMPARE(dialogs.count(), 1);
    QCOMPARE(window.showName, QStringLiteral("Gig"));
    QCOMPARE(window.iniPath, iniPath);
    QCOMPARE(window.windowTitle(), QStringLiteral("Lumipad - Gig"));
    QCOMPARE(titles(window).size(), 5);
}

void MainWindowTest::folderWithoutShowIsRefused()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    const QString empty = home.makefolder(QStringLiteral("TheLightingController/LightShows/Empty"));
    const Dialogs dialogs({Answers::choose(empty), Answers::press(QMessageBox::Ok)});
    QVERIFY(!window.loadshow());
    const ShownDialog box = dialogs.at(1);
    QVERIFY(box.isMessageBox);
    QCOMPARE(box.title, QStringLiteral("Lumipad"));
    QCOMPARE(box.text,
             QStringLiteral("LightShow Settings file not found. Please select a different LightShow Folder"));
    QCOMPARE(box.informativeText, QString());
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(box.styleSheet, QString());
    QCOMPARE(box.parent, nullptr);
    QCOMPARE(window.showName, QStringLiteral("Gig"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Lumipad - Gig"));
    QCOMPARE(titles(window).size(), 5);
}

void MainWindowTest::unreadableShowChangesNothingButItsName()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    const QString gig = writeshow(home, QStringLiteral("Gig"));
    open(&window, gig);
    window.switchPad = {3, 4};
    window.child<QLineEdit>("padsname")->setText(QStringLiteral("Mine"));
    // A folder of that name exists and cannot be opened as a file, whoever the user is.
    home.makefolder(QStringLiteral("TheLightingController/LightShows/Broken/Live/live.ini"));
    const Dialogs dialogs(
        {Answers::choose(home.path(QStringLiteral("TheLightingController/LightShows/Broken")))});
    QVERIFY(window.loadshow());
    QCOMPARE(dialogs.count(), 1);
    QCOMPARE(window.showName, QStringLiteral("Broken"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Lumipad - Gig"));
    QCOMPARE(window.iniPath, gig + QStringLiteral("/Live/live.ini"));
    QCOMPARE(window.switchPad, (QList<int>{3, 4}));
    QCOMPARE(window.child<QLineEdit>("padsname")->text(), QStringLiteral("Mine"));
    QCOMPARE(titles(window).size(), 5);
    QVERIFY(!window.loadshowname(home.path(QStringLiteral("nowhere/live.ini"))));
    QCOMPARE(titles(window).size(), 5);
}

void MainWindowTest::showIsLoaded()
{
    const TestHome home;
    const QString folder = writeshow(home, QStringLiteral("Late Night & Fog.v2"));
    TestWindow window;
    QVERIFY(window.showready());
    const Dialogs dialogs({Answers::choose(folder)});
    click(window, "loadini");
    QCOMPARE(dialogs.count(), 1);
    QCOMPARE(window.showName, QStringLiteral("Late Night & Fog.v2"));
    QCOMPARE(window.windowTitle(), QStringLiteral("Lumipad - Late Night & Fog.v2"));
    QCOMPARE(window.iniPath, folder + QStringLiteral("/Live/live.ini"));
    QCOMPARE(itemtexts(window.child<QComboBox>("combobox")),
             (QStringList{QStringLiteral("All Pages"), QStringLiteral("Moods"), QStringLiteral("Movers")}));
    QCOMPARE(titles(window),
             (QStringList{QStringLiteral("Strobe"), QStringLiteral("Blackout"), QStringLiteral("Slow Fade"),
                          QStringLiteral("Circle"), QStringLiteral("Ballyhoo")}));
    QCOMPARE(shownlist(window).size(), 5);
}

void MainWindowTest::secondShowReplacesEverything()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    placeonpad(&window, 0, 20, 1);
    placeoncontroller(&window, 1);
    window.switchPad = {3, 4};
    window.child<QComboBox>("bankcombo")->setCurrentIndex(2);
    auto* bankname = window.child<QLineEdit>("bankname");
    bankname->setFocus();
    bankname->selectAll();
    QTest::keyClicks(bankname, QStringLiteral("Drops"));
    QTest::keyClick(bankname, Qt::Key_Return);
    QCOMPARE(window.banks.at(2), QStringLiteral("Drops"));
    window.child<QLineEdit>("padsname")->setText(QStringLiteral("Mine"));
    window.child<QComboBox>("combobox")->setCurrentIndex(2);

    const QString other = writeshow(home, QStringLiteral("Other"),
                                    {{QStringLiteral("Solo"), {{QStringLiteral("Fog"), 0x808080}}}});
    const Dialogs dialogs({Answers::press(QMessageBox::Yes), Answers::choose(other)});
    click(window, "loadini");
    QCOMPARE(window.windowTitle(), QStringLiteral("Lumipad - Other"));
    QCOMPARE(window.iniPath, other + QStringLiteral("/Live/live.ini"));
    QCOMPARE(titles(window), QStringList{QStringLiteral("Fog")});
    QCOMPARE(shownlist(window), QStringList{QStringLiteral("Fog")});
    QCOMPARE(window.buttons.size(), 1);
    QCOMPARE(window.pages.size(), 2);
    QCOMPARE(itemtexts(window.child<QComboBox>("combobox")),
             (QStringList{QStringLiteral("All Pages"), QStringLiteral("Solo")}));
    QCOMPARE(window.child<QComboBox>("combobox")->currentIndex(), 0);
    QVERIFY(window.isVDJempty());
    QCOMPARE(window.vdjModel->rowCount(), 64);
    QVERIFY(window.isMIDIempty());
    QCOMPARE(window.switchPad, (QList<int>{-1, -1}));
    QCOMPARE(window.banks.size(), 8);
    QCOMPARE(window.banks.at(2), QStringLiteral("BANK 3"));
    QCOMPARE(bankname->text(), QStringLiteral("BANK 1"));
    QCOMPARE(window.child<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(window.child<QLineEdit>("padsname")->text(), QStringLiteral("OS2L DMX"));
}

void MainWindowTest::renamedFirstBankGivesWayToANewShow()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    auto* bankname = window.child<QLineEdit>("bankname");
    bankname->setFocus();
    bankname->selectAll();
    QTest::keyClicks(bankname, QStringLiteral("Intro"));
    QTest::keyClick(bankname, Qt::Key_Return);
    QCOMPARE(window.banks.at(0), QStringLiteral("Intro"));
    open(&window, writeshow(home, QStringLiteral("Other")));
    QCOMPARE(window.banks.at(0), QStringLiteral("BANK 1"));
    QCOMPARE(bankname->text(), QStringLiteral("BANK 1"));
    // Coming back to the bank shows that name too.
    window.child<QComboBox>("bankcombo")->setCurrentIndex(1);
    window.child<QComboBox>("bankcombo")->setCurrentIndex(0);
    QCOMPARE(bankname->text(), QStringLiteral("BANK 1"));
}

void MainWindowTest::showWithoutPagesIsLoaded()
{
    const TestHome home;
    TestWindow window;
    open(&window, writeshow(home, QStringLiteral("Gig")));
    open(&window, writeshow(home, QStringLiteral("Bare"), {}));
    QCOMPARE(window.windowTitle(), QStringLiteral("Lumipad - Bare"));
    QCOMPARE(window.dmxModel->rowCount(), 0);
    QVERIFY(window.buttons.isEmpty());
    QCOMPARE(itemtexts(window.child<QComboBox>("combobox")), QStringList{QStringLiteral("All Pages")});
}

void MainWindowTest::filterShowsOnePage()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    auto* filter = window.child<QComboBox>("combobox");
    filter->setFocus();
    QTest::keyClick(filter, Qt::Key_Down);
    QCOMPARE(filter->currentText(), QStringLiteral("Moods"));
    QCOMPARE(shownlist(window), (QStringList{QStringLiteral("Strobe"), QStringLiteral("Blackout"),
                                             QStringLiteral("Slow Fade")}));
    QTest::keyClick(filter, Qt::Key_Down);
    QCOMPARE(shownlist(window), (QStringList{QStringLiteral("Circle"), QStringLiteral("Ballyhoo")}));
    QTest::keyClick(filter, Qt::Key_Home);
    QCOMPARE(filter->currentText(), QStringLiteral("All Pages"));
    QCOMPARE(shownlist(window).size(), 5);
}

void MainWindowTest::negativeFilterChangesNothing()
{
    const TestHome home;
    TestWindow window;
    open(&window, writeshow(home, QStringLiteral("Gig")));
    window.updatelist(2);
    QCOMPARE(shownlist(window).size(), 2);
    window.updatelist(-1);
    QCOMPARE(shownlist(window).size(), 2);
    window.updatelist(99);
    QCOMPARE(shownlist(window), QStringList());
    window.updatelist(0);
    QCOMPARE(shownlist(window).size(), 5);
}

void MainWindowTest::filterEntriesAreRoomy()
{
    const TestHome home;
    TestWindow window;
    open(&window, writeshow(home, QStringLiteral("Gig")));
    for (const char* name : {"combobox", "bankcombo"}) {
        const auto* combo = window.child<QComboBox>(name);
        QVERIFY(combo->count() > 2);
        for (int item = 0; item < combo->count(); ++item) {
            QCOMPARE(combo->itemData(item, Qt::SizeHintRole).toSize(), QSize(30, 30));
            QVERIFY(!combo->itemData(item).isValid());
            QVERIFY(combo->itemIcon(item).isNull());
        }
    }
}

void MainWindowTest::rowsAreFilledFromTheButtons()
{
    const TestHome home;
    TestWindow window;
    open(&window, writeshow(home, QStringLiteral("Gig")));
    const QModelIndex row = window.dmxModel->index(3, 0);
    QCOMPARE(row.data(Qt::EditRole).toString(), QStringLiteral("Circle"));
    QCOMPARE(row.data(ItemRole::Page).toString(), QStringLiteral("2"));
    QCOMPARE(row.data(ItemRole::DspName).toString(), QStringLiteral("Circle"));
    QCOMPARE(row.data(ItemRole::Source).toString(), QStringLiteral("1"));
    QCOMPARE(row.data(ItemRole::Id).toString(), QStringLiteral("3"));
    QCOMPARE(row.data(Qt::DecorationRole).value<QColor>(), QColor(0, 0, 255));
    QCOMPARE(row.data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::white));
    QCOMPARE(row.data(Qt::BackgroundRole).value<QColor>(), QColor(Qt::white));
    QCOMPARE(row.data(Qt::CheckStateRole).toInt(), static_cast<int>(Qt::Unchecked));
}

void MainWindowTest::buttonsOfAPageAreCounted()
{
    const TestHome home;
    TestWindow window;
    open(&window, writeshow(home, QStringLiteral("Gig")));
    QCOMPARE(window.buttonsperpage(0), 0);
    QCOMPARE(window.buttonsperpage(1), 3);
    QCOMPARE(window.buttonsperpage(2), 2);
    QCOMPARE(window.buttonsperpage(-1), 0);
}

void MainWindowTest::onlyTheCommandWithoutAnEffectIsDisabled()
{
    const TestHome home;
    TestWindow window;
    QStringList disabled;
    const auto actions = window.findChildren<QAction*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QAction* action : actions)
        if (!action->isEnabled())
            disabled.append(action->objectName());
    QCOMPARE(disabled, QStringList({QStringLiteral("actionSave")}));
    for (const char* button : {"loadini", "pushButton_2", "cleanpads_button", "cleanmidi_button"})
        QVERIFY2(window.child<QPushButton>(button)->isEnabled(), button);
}

void MainWindowTest::keysTriggerTheirActions_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QList<Answer>>("answers");
    const Answer escape = Answers::key(Qt::Key_Escape);
    const Answer ok = Answers::press(QMessageBox::Ok);
    QTest::newRow("open") << int(Qt::CTRL) + int(Qt::Key_O) << QByteArray("actionNew")
                          << QList<Answer>{escape};
    QTest::newRow("open a project") << int(Qt::CTRL) + int(Qt::SHIFT) + int(Qt::Key_O)
                                    << QByteArray("actionLoad_Project") << QList<Answer>{escape, ok};
    QTest::newRow("save") << int(Qt::CTRL) + int(Qt::Key_S) << QByteArray("actionSave_2")
                          << QList<Answer>{ok};
    QTest::newRow("export") << int(Qt::CTRL) + int(Qt::SHIFT) + int(Qt::Key_E) << QByteArray("actionExport")
                            << QList<Answer>{ok};
    QTest::newRow("quit") << int(Qt::CTRL) + int(Qt::Key_Q) << QByteArray("actionExit") << QList<Answer>();
}

void MainWindowTest::keysTriggerTheirActions()
{
    QFETCH(const int, key);
    QFETCH(const QByteArray, action);
    QFETCH(const QList<Answer>, answers);
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    // With the cursor in a name, as after typing it.
    window.child<QLineEdit>("padsname")->setFocus();
    const QSignalSpy triggered(window.child<QAction>(action.constData()), &QAction::triggered);
    const Dialogs dialogs(answers);
    const auto modifiers = Qt::KeyboardModifiers(QFlag(key & int(Qt::KeyboardModifierMask)));
    QTest::keyClick(&window, static_cast<Qt::Key>(key & ~int(Qt::KeyboardModifierMask)), modifiers);
    QCOMPARE(triggered.count(), 1);
    QCOMPARE(window.isVisible(), action != "actionExit");
}

void MainWindowTest::noKeyThrowsTheWorkAway()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    const QSignalSpy emptied(window.child<QAction>("actionNew_2"), &QAction::triggered);
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(emptied.count(), 0);
}

void MainWindowTest::keyOfADisabledActionDoesNothing()
{
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    auto* save = window.child<QAction>("actionSave_2");
    const QSignalSpy saved(save, &QAction::triggered);
    save->setEnabled(false);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(saved.count(), 0);
    save->setEnabled(true);
    const Dialogs dialogs({Answers::press(QMessageBox::Ok)});
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(saved.count(), 1);
}

void MainWindowTest::tabVisitsEveryControl_data()
{
    QTest::addColumn<bool>("midi");
    QTest::addColumn<QString>("road");
    QTest::newRow("pads page") << false
                               << QStringLiteral("loadini combobox dmxlistview radio_outputpage "
                                                 "radioButton_8pads cleanpads_button bankcombo bankname "
                                                 "vdjlistview padsname pushButton_2");
    QTest::newRow("MIDI mapping")
        << true
        << QStringLiteral(
               "loadini combobox dmxlistview radio_outputmidi devicescombo mididevices "
               "combo_offcolor combo_oncolor cleanmidi_button tablecontroller padsname pushButton_2");
}

void MainWindowTest::tabVisitsEveryControl()
{
    QFETCH(const bool, midi);
    QFETCH(const QString, road);
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    open(&window, writeshow(home, QStringLiteral("Gig")));
    if (midi)
        click(window, "radio_outputmidi");
    window.child<QPushButton>("loadini")->setFocus();
    QStringList visited;
    // More steps than there are controls: whoever holds the keyboard for good is found out.
    for (int step = 0; step < 30; ++step) {
        QWidget* focused = QApplication::focusWidget();
        QVERIFY(focused);
        if (step > 0 && focused->objectName() == QLatin1String("loadini"))
            break;
        visited.append(focused->objectName());
        QTest::keyClick(focused, Qt::Key_Tab);
    }
    QCOMPARE(visited.join(QLatin1Char(' ')), road);
}

void MainWindowTest::everyControlHasAnAccessibleName()
{
    const TestHome home;
    TestWindow window;
    for (const char* name :
         {"combobox", "dmxlistview", "loadini", "vdjlistview", "pushButton_2", "radio_outputpage",
          "radio_outputmidi", "padsname", "devicescombo", "mididevices", "combo_offcolor", "combo_oncolor",
          "radioButton_8pads", "radioButton_16pads", "bankcombo", "bankname", "cleanpads_button",
          "tablecontroller", "cleanmidi_button"}) {
        const QAccessibleInterface* interface =
            QAccessible::queryAccessibleInterface(window.child<QWidget>(name));
        QVERIFY2(interface && !interface->text(QAccessible::Name).isEmpty(), name);
    }
}

LUMIPAD_TEST_MAIN(MainWindowTest)

#include "tst_mainwindow.moc"
