#include "controller.h"
#include "itemroles.h"
#include "midiwindow.h"
#include "modelsignals.h"
#include "mymodel.h"
#include "testfiles.h"
#include "testmain.h"
#include "vdjmodel.h"

#include <QAbstractButton>
#include <QColorDialog>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>
#include <QRandomGenerator>

#include <functional>

using Output = MidiWindow::Output;

namespace {

constexpr int padsPage = 0;
constexpr int controllerGrid = 1;

/// The window with what a user can do in it, and the files that it would write now.
struct Desk : MidiWindow
{
    explicit Desk(Output output)
        : MidiWindow(output), shown(output == Output::Pads ? padsPage : controllerGrid)
    {
        home->makepadsfolder();
        home->makefolder(QStringLiteral("Documents/VirtualDJ/Mappers"));
    }

    int shown;

    app::Work work() const { return window.takework(shown); }
    app::Work otherwork() const { return window.takework(1 - shown); }
    QComboBox* combo(const char* name) const { return window.child<QComboBox>(name); }
    void click(const char* name) const { window.child<QAbstractButton>(name)->click(); }
    void showoutput(Output output)
    {
        shown = output == Output::Pads ? padsPage : controllerGrid;
        click(output == Output::Pads ? "radio_outputpage" : "radio_outputmidi");
    }

    void type(const char* name, const QString& text) const
    {
        auto* edit = window.child<QLineEdit>(name);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    /// Does \a action of the menu of \a cell to that cell.
    void withmenu(const QModelIndex& cell, const std::function<void()>& action)
    {
        select({cell});
        window.menuIndex = cell;
        action();
    }

    void removepad(const QModelIndex& pad)
    {
        pads->setCurrentIndex(pad);
        window.ondeletevdjaction_triggered();
    }

    /// What Export and Save Project write for the shown output.
    QList<QByteArray> files()
    {
        const QString project = home->path(QStringLiteral("work.os2l"));
        const QString folder = shown == padsPage ? window.padsPath : window.mappersPath;
        const Dialogs dialogs({Answers::press(QMessageBox::Ok), Answers::press(QMessageBox::Ok)});
        if (shown == padsPage) {
            window.exportpage();
            window.savepadsproject(project);
        } else {
            window.exportmapping();
            window.savemidiproject(project);
        }
        QList<QByteArray> written{contents(project)};
        const QStringList names = QDir(folder).entryList(QDir::Files);
        for (const QString& name : names) {
            written.append(name.toUtf8());
            written.append(contents(folder + QLatin1Char('/') + name));
            QFile::remove(folder + QLatin1Char('/') + name);
        }
        return written;
    }
};

using Action = std::function<void(Desk&)>;

void adddesks()
{
    QTest::addColumn<Output>("output");
    QTest::addColumn<Action>("action");
}

/// Every kind of step of the pads page, after Strobe was placed at (2, 0) and Circle at (9, 1), with bank 1
/// shown.
void addpadssteps()
{
    const auto row = [](const char* name, const Action& action) {
        QTest::newRow(name) << Output::Pads << action;
    };
    row("drop on an empty pad", [](Desk& desk) { desk.drop(1, desk.pad(4)); });
    row("drop in the place of another", [](Desk& desk) { desk.drop(1, desk.pad(2)); });
    row("drop on a pad of the second column", [](Desk& desk) { desk.drop(1, desk.pad(2, 1)); });
    row("move", [](Desk& desk) { Desk::drop(desk.pad(2), desk.pad(5)); });
    row("swap", [](Desk& desk) { Desk::drop(desk.pad(2), desk.pad(9, 1)); });
    row("remove", [](Desk& desk) { desk.removepad(desk.pad(2)); });
    row("clean", [](Desk& desk) { desk.click("cleanpads_button"); });
    row("clean from a later bank", [](Desk& desk) {
        desk.combo("bankcombo")->setCurrentIndex(3);
        desk.click("cleanpads_button");
    });
    row("new project", [](Desk& desk) { desk.window.on_actionNew_2_triggered(); });
    row("pad text", [](Desk& desk) {
        desk.pads->setCurrentIndex(desk.pad(2));
        desk.pads->edit(desk.pad(2));
        auto* editor = desk.pads->viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->setText(QStringLiteral("BOOM"));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(desk.pad(2).data().toString(), QStringLiteral("BOOM"));
    });
    row("emptied pad text", [](Desk& desk) { desk.window.vdjModel->setData(desk.pad(2), QString()); });
    row("bank name", [](Desk& desk) { desk.type("bankname", QStringLiteral("Drops")); });
    row("page name", [](Desk& desk) { desk.type("padsname", QStringLiteral("Friday")); });
    row("16 pads", [](Desk& desk) { desk.click("radioButton_16pads"); });
    row("taken off every pad", [](Desk& desk) { emit desk.window.dmxModel->ItemUnchecked(0); });
}

/// Every kind of step of the controller, after Strobe was placed at (2, 2) and Circle at (3, 2), on the
/// Akai APC Mini, whose palette has four colours.
void addcontrollersteps()
{
    const auto row = [](const char* name, const Action& action) {
        QTest::newRow(name) << Output::Midi << action;
    };
    row("drop on an empty cell", [](Desk& desk) { desk.drop(1, desk.cell(5, 5)); });
    row("drop in the place of another cell", [](Desk& desk) { desk.drop(1, desk.cell(2, 2)); });
    row("move of a cell", [](Desk& desk) { Desk::drop(desk.cell(2, 2), desk.cell(6, 2)); });
    row("swap of cells", [](Desk& desk) { Desk::drop(desk.cell(2, 2), desk.cell(3, 2)); });
    row("remove from a cell", [](Desk& desk) {
        desk.withmenu(desk.cell(2, 2), [&desk] { desk.window.ondeleteaction_triggered(); });
    });
    row("clean cells", [](Desk& desk) { desk.click("cleanmidi_button"); });
    row("new mapping", [](Desk& desk) { desk.window.on_actionNew_2_triggered(); });
    row("off colour",
        [](Desk& desk) { desk.withmenu(desk.cell(2, 2), [&desk] { desk.window.colorpadchange(2); }); });
    row("on colour",
        [](Desk& desk) { desk.withmenu(desk.cell(2, 2), [&desk] { desk.window.coloronpadchange(3); }); });
    row("colour of the dialog", [](Desk& desk) {
        const Dialogs dialogs({[](QDialog* dialog) {
            qobject_cast<QColorDialog*>(dialog)->setCurrentColor(QColor(1, 2, 3));
            dialog->accept();
        }});
        desk.withmenu(desk.cell(2, 2), [&desk] { desk.window.rgbonpadchange(); });
    });
    row("blink", [](Desk& desk) {
        desk.withmenu(desk.cell(2, 2), [&desk] { desk.window.onblinkaction_triggered(); });
    });
    row("switch", [](Desk& desk) {
        desk.withmenu(desk.cell(2, 2), [&desk] { desk.window.ontoggleaction_triggered(); });
    });
    row("default off colour", [](Desk& desk) { desk.combo("combo_offcolor")->setCurrentIndex(2); });
    row("default on colour", [](Desk& desk) { desk.combo("combo_oncolor")->setCurrentIndex(2); });
    row("mapping name", [](Desk& desk) { desk.type("padsname", QStringLiteral("Friday")); });
    row("mapping", [](Desk& desk) { desk.combo("mididevices")->setCurrentIndex(1); });
    row("device", [](Desk& desk) { desk.combo("devicescombo")->setCurrentIndex(4); });
    row("taken off every cell", [](Desk& desk) { emit desk.window.dmxModel->ItemUnchecked(0); });
}

/// What the rows above begin with.
void fill(Desk& desk)
{
    desk.drop(0, desk.pad(2));
    desk.drop(3, desk.pad(9, 1));
    desk.drop(0, desk.cell(2, 2));
    desk.drop(3, desk.cell(3, 2));
    desk.setchecks(QStringLiteral("11111"));
}

/// One action of a user with the pads page, chosen by \a random.
void actonpads(Desk& desk, QRandomGenerator& random)
{
    const auto pad = [&] { return desk.pad(random.bounded(64), random.bounded(2)); };
    const QModelIndex first = pad();
    switch (random.bounded(14)) {
    case 0:
        desk.removepad(first);
        break;
    case 1:
        desk.window.vdjModel->setData(first, QString(random.bounded(3), QLatin1Char('x')), Qt::EditRole);
        break;
    case 2:
        desk.type("bankname", QString::number(random.bounded(4)));
        break;
    case 3:
        desk.type("padsname", QString::number(random.bounded(4)));
        break;
    case 4:
        desk.click(random.bounded(2) ? "radioButton_16pads" : "radioButton_8pads");
        break;
    case 5:
        desk.combo("bankcombo")->setCurrentIndex(random.bounded(8));
        break;
    case 6:
        if (random.bounded(6) == 0)
            desk.click("cleanpads_button");
        break;
    case 7:
        if (random.bounded(6) == 0)
            desk.window.on_actionNew_2_triggered();
        break;
    case 8:
        emit desk.window.dmxModel->ItemUnchecked(random.bounded(5));
        break;
    case 9:
    case 10:
        Desk::drop(first, pad());
        break;
    default:
        desk.drop(random.bounded(5), first);
    }
}

/// The same with the controller.
void actoncontroller(Desk& desk, QRandomGenerator& random)
{
    const auto cell = [&] { return desk.cell(random.bounded(12), random.bounded(12)); };
    const QModelIndex first = cell();
    switch (random.bounded(17)) {
    case 0:
        desk.withmenu(first, [&] { desk.window.ondeleteaction_triggered(); });
        break;
    case 1:
        desk.withmenu(first, [&] { desk.window.ontoggleaction_triggered(); });
        break;
    case 2:
        desk.withmenu(first, [&] { desk.window.onblinkaction_triggered(); });
        break;
    case 3:
        desk.withmenu(first, [&] { desk.window.colorpadchange(random.bounded(5)); });
        break;
    case 4:
        desk.withmenu(first, [&] { desk.window.coloronpadchange(random.bounded(5)); });
        break;
    case 5:
        desk.type("padsname", QString::number(random.bounded(4)));
        break;
    case 6:
        desk.combo("combo_offcolor")->setCurrentIndex(random.bounded(4));
        break;
    case 7:
        desk.combo("combo_oncolor")->setCurrentIndex(random.bounded(4));
        break;
    case 8:
        desk.combo("mididevices")->setCurrentIndex(random.bounded(2));
        break;
    case 9:
        desk.combo("devicescombo")->setCurrentIndex(random.bounded(devicecount()));
        break;
    case 10:
        if (random.bounded(6) == 0)
            desk.click("cleanmidi_button");
        break;
    case 11:
        if (random.bounded(6) == 0)
            desk.window.on_actionNew_2_triggered();
        break;
    case 12:
        emit desk.window.dmxModel->ItemUnchecked(random.bounded(5));
        break;
    case 13:
        Desk::drop(first, cell());
        break;
    default:
        desk.drop(random.bounded(5), first);
    }
}

/// \a work with bank \a bank shown.
app::Work atbank(app::Work work, int bank)
{
    work.bank = bank;
    return work;
}

} // namespace

Q_DECLARE_METATYPE(MidiWindow::Output)
Q_DECLARE_METATYPE(Action)

class UndoTest : public QObject
{
    Q_OBJECT

private slots:
    void takesEveryActionBackAndAgainAsOneStep_data();
    void takesEveryActionBackAndAgainAsOneStep();
    void makesNoStepOfWhatChangesNothing_data();
    void makesNoStepOfWhatChangesNothing();
    void comesBackFromAnyRowOfActions_data();
    void comesBackFromAnyRowOfActions();
    void answersToItsKeys();
    void leavesTheKeysToATextField();
    void takesATextOverThatIsBeingTyped();
    void showsTheBankOfTheStep();
    void leavesTheOtherOutputAlone();
    void keepsTheNameThatWasTypedForTheOtherOutput();
    void bringsANewProjectBackOnEachOutput();
    void marksWhatComesBackOfAnOutputThatWasNotShown();
    void countsOnlyWhatWasThereAtTheStart();
    void forgetsTheStepsWithANewShow();
    void forgetsTheStepsWithANewProject();
    void keepsTheStepsWhenNothingIsLoaded();
    void keepsTwoHundredSteps();
    void forgetsWhatWasUndoneWithTheNextStep();
    void isNotNoticed();
};

void UndoTest::takesEveryActionBackAndAgainAsOneStep_data()
{
    adddesks();
    addpadssteps();
    addcontrollersteps();
}

void UndoTest::takesEveryActionBackAndAgainAsOneStep()
{
    QFETCH(const Output, output);
    QFETCH(const Action, action);
    Desk desk(output);
    fill(desk);
    const app::Work before = desk.work();
    const QList<QByteArray> filesBefore = desk.files();
    action(desk);
    const app::Work after = desk.work();
    const QList<QByteArray> filesAfter = desk.files();
    QVERIFY(after != before);
    desk.window.undo();
    QVERIFY(atbank(desk.work(), before.bank) == before);
    QCOMPARE(desk.files(), filesBefore);
    desk.window.redo();
    QVERIFY(desk.work() == after);
    QCOMPARE(desk.files(), filesAfter);
    desk.window.undo();
    QVERIFY(atbank(desk.work(), before.bank) == before);
    desk.window.redo();
    QVERIFY(desk.work() == after);
}

void UndoTest::makesNoStepOfWhatChangesNothing_data()
{
    adddesks();
    const auto row = [](const char* name, Output output, const Action& action) {
        QTest::newRow(name) << output << action;
    };
    row("pad dropped on itself", Output::Pads, [](Desk& desk) { Desk::drop(desk.pad(2), desk.pad(2)); });
    row("refused drop", Output::Pads, [](Desk& desk) {
        const QMimeData nothing;
        desk.window.vdjModel->dropMimeData(&nothing, Qt::CopyAction, -1, -1, desk.pad(4));
    });
    row("the same text", Output::Pads,
        [](Desk& desk) { desk.window.vdjModel->setData(desk.pad(2), desk.pad(2).data(), Qt::EditRole); });
    row("the same bank name", Output::Pads, [](Desk& desk) { desk.type("bankname", "BANK 1"); });
    row("the same page name", Output::Pads, [](Desk& desk) { desk.type("padsname", "OS2L DMX"); });
    row("an emptied page name", Output::Pads, [](Desk& desk) { desk.type("padsname", QString()); });
    row("another bank shown", Output::Pads, [](Desk& desk) { desk.combo("bankcombo")->setCurrentIndex(4); });
    row("another page of the show", Output::Pads,
        [](Desk& desk) { desk.combo("combobox")->setCurrentIndex(1); });
    row("8 pads again", Output::Pads, [](Desk& desk) { desk.click("radioButton_8pads"); });
    row("output there and back", Output::Pads, [](Desk& desk) {
        desk.showoutput(Output::Midi);
        desk.showoutput(Output::Pads);
    });
    row("remove without a selection", Output::Midi, [](Desk& desk) {
        desk.select({});
        desk.window.ondeleteaction_triggered();
    });
    row("cancelled colour dialog", Output::Midi, [](Desk& desk) {
        const Dialogs dialogs({Answers::key(Qt::Key_Escape)});
        desk.withmenu(desk.cell(2, 2), [&desk] { desk.window.rgbpadchange(); });
    });
    row("default colour of a pad without its own", Output::Midi,
        [](Desk& desk) { desk.withmenu(desk.cell(2, 2), [&desk] { desk.window.colorpadchange(0); }); });
    row("export", Output::Midi, [](Desk& desk) { desk.files(); });
}

void UndoTest::makesNoStepOfWhatChangesNothing()
{
    QFETCH(const Output, output);
    QFETCH(const Action, action);
    Desk desk(output);
    fill(desk);
    const QModelIndex pad = output == Output::Pads ? desk.pad(7) : desk.cell(9, 9);
    desk.drop(1, pad);
    action(desk);
    // The step before is the one that is taken back.
    QCOMPARE(pad.data(ItemRole::Id).toString(), QStringLiteral("1"));
    desk.window.undo();
    QCOMPARE(pad.data(ItemRole::Id).toString(), QStringLiteral("-1"));
}

void UndoTest::comesBackFromAnyRowOfActions_data()
{
    QTest::addColumn<Output>("output");
    QTest::addColumn<int>("device");
    for (int device = 0; device < devicecount(); ++device) {
        QTest::newRow(qPrintable(QStringLiteral("pads page, device %1").arg(device)))
            << Output::Pads << device;
        QTest::newRow(qPrintable(QStringLiteral("device %1").arg(device))) << Output::Midi << device;
    }
}

void UndoTest::comesBackFromAnyRowOfActions()
{
    QFETCH(const Output, output);
    QFETCH(const int, device);
    constexpr int actions = 150;
    QRandomGenerator random(static_cast<quint32>(9000 + 10 * device + (output == Output::Pads ? 0 : 1)));
    Desk desk(output);
    desk.combo("devicescombo")->setCurrentIndex(device);
    desk.loadshow(QStringLiteral("Gig"));
    const app::Work first = desk.work();
    const QList<QByteArray> firstFiles = desk.files();
    for (int action = 1; action < actions; ++action) {
        if (output == Output::Pads)
            actonpads(desk, random);
        else
            actoncontroller(desk, random);
        if (random.bounded(20) == 0) {
            desk.showoutput(output == Output::Pads ? Output::Midi : Output::Pads);
            desk.showoutput(output);
        }
    }
    desk.type("padsname", QStringLiteral("Last"));
    const app::Work last = desk.work();
    const app::Work other = desk.otherwork();
    const QList<QByteArray> lastFiles = desk.files();
    QVERIFY(lastFiles != firstFiles);

    for (int action = 0; action < actions; ++action)
        desk.window.undo();
    // The bank is the one in which the first step happened.
    QVERIFY(atbank(desk.work(), first.bank) == first);
    QCOMPARE(desk.files(), firstFiles);
    for (int action = 0; action < actions; ++action)
        desk.window.redo();
    QVERIFY(desk.work() == last);
    QCOMPARE(desk.files(), lastFiles);
    QVERIFY(desk.otherwork() == other);
}

void UndoTest::answersToItsKeys()
{
    Desk desk(Output::Pads);
    QVERIFY(desk.window.showready());
    desk.list->setFocus();
    desk.drop(0, desk.pad(2));
    const app::Work after = desk.work();
    const QList<QKeySequence> undoKeys = QKeySequence::keyBindings(QKeySequence::Undo);
    const QList<QKeySequence> redoKeys = QKeySequence::keyBindings(QKeySequence::Redo);
    QVERIFY(undoKeys.contains(QKeySequence(QStringLiteral("Ctrl+Z"))));
    QVERIFY(!redoKeys.isEmpty());
    for (const QKeySequence& undo : undoKeys) {
        for (const QKeySequence& redo : redoKeys) {
            QTest::keySequence(desk.list, undo);
            QCOMPARE(desk.pad(2).data(ItemRole::Id).toString(), QStringLiteral("-1"));
            QCOMPARE(desk.marks(), QList<int>());
            QTest::keySequence(desk.list, redo);
            QVERIFY(desk.work() == after);
        }
    }
    QCOMPARE(QApplication::focusWidget(), desk.list);
}

void UndoTest::leavesTheKeysToATextField()
{
    Desk desk(Output::Pads);
    QVERIFY(desk.window.showready());
    desk.drop(0, desk.pad(2));
    auto* name = desk.window.child<QLineEdit>("padsname");
    name->setFocus();
    QTest::keyClicks(name, QStringLiteral("!"));
    QCOMPARE(name->text(), QStringLiteral("OS2L DMX!"));
    QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(name->text(), QStringLiteral("OS2L DMX"));
    QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(desk.pad(2).data(ItemRole::Id).toString(), QStringLiteral("0"));

    desk.pads->setFocus();
    desk.pads->setCurrentIndex(desk.pad(2));
    desk.pads->edit(desk.pad(2));
    auto* editor = desk.pads->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("Boom"));
    QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(editor->text(), QStringLiteral("Strobe"));
    QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(desk.pad(2).data(ItemRole::Id).toString(), QStringLiteral("0"));
}

void UndoTest::takesATextOverThatIsBeingTyped()
{
    Desk desk(Output::Pads);
    QVERIFY(desk.window.showready());
    auto* name = desk.window.child<QLineEdit>("bankname");
    name->setFocus();
    name->selectAll();
    QTest::keyClicks(name, QStringLiteral("Drops"));
    desk.window.undo();
    QCOMPARE(name->text(), QStringLiteral("BANK 1"));
    QCOMPARE(desk.window.banks.constFirst(), QStringLiteral("BANK 1"));
    desk.window.redo();
    QCOMPARE(name->text(), QStringLiteral("Drops"));
}

void UndoTest::showsTheBankOfTheStep()
{
    Desk desk(Output::Pads);
    QComboBox* const banks = desk.combo("bankcombo");
    banks->setCurrentIndex(2);
    desk.drop(0, desk.pad(17));
    banks->setCurrentIndex(5);
    desk.type("bankname", QStringLiteral("Drops"));
    banks->setCurrentIndex(0);
    desk.window.undo();
    QCOMPARE(banks->currentIndex(), 5);
    QCOMPARE(desk.window.child<QLineEdit>("bankname")->text(), QStringLiteral("BANK 6"));
    desk.window.undo();
    QCOMPARE(banks->currentIndex(), 2);
    QVERIFY(!desk.pads->isRowHidden(17));
    QVERIFY(desk.pads->isRowHidden(0));
    banks->setCurrentIndex(0);
    desk.window.redo();
    QCOMPARE(banks->currentIndex(), 2);
    desk.window.redo();
    QCOMPARE(desk.window.child<QLineEdit>("bankname")->text(), QStringLiteral("Drops"));
    // Clean shows the first bank, and taking it back the one that was shown before.
    desk.click("cleanpads_button");
    QCOMPARE(banks->currentIndex(), 0);
    desk.window.undo();
    QCOMPARE(banks->currentIndex(), 5);
    desk.window.redo();
    QCOMPARE(banks->currentIndex(), 0);
}

void UndoTest::leavesTheOtherOutputAlone()
{
    Desk desk(Output::Pads);
    desk.drop(0, desk.pad(2));
    desk.showoutput(Output::Midi);
    desk.drop(1, desk.cell(4, 4));
    const auto pads = desk.window.vdjModel->getList();
    desk.window.undo();
    desk.window.undo();
    QCOMPARE(desk.cell(4, 4).data(ItemRole::Id).toString(), QStringLiteral("-1"));
    QCOMPARE(desk.window.vdjModel->getList(), pads);
    desk.window.redo();
    const auto cells = desk.window.controllerModel->getList();
    desk.showoutput(Output::Pads);
    desk.window.undo();
    desk.window.undo();
    QCOMPARE(desk.pad(2).data(ItemRole::Id).toString(), QStringLiteral("-1"));
    QCOMPARE(desk.window.controllerModel->getList(), cells);
}

void UndoTest::keepsTheNameThatWasTypedForTheOtherOutput()
{
    Desk desk(Output::Pads);
    auto* name = desk.window.child<QLineEdit>("padsname");
    desk.type("padsname", QStringLiteral("Page"));
    desk.drop(0, desk.pad(2));
    desk.showoutput(Output::Midi);
    desk.type("padsname", QStringLiteral("Mapping"));
    desk.showoutput(Output::Pads);
    desk.window.undo();
    QCOMPARE(desk.pad(2).data(ItemRole::Id).toString(), QStringLiteral("-1"));
    QCOMPARE(name->text(), QStringLiteral("Mapping"));
    desk.window.undo();
    QCOMPARE(name->text(), QStringLiteral("OS2L DMX"));
}

void UndoTest::bringsANewProjectBackOnEachOutput()
{
    Desk desk(Output::Pads);
    fill(desk);
    const auto pads = desk.window.vdjModel->getList();
    const auto cells = desk.window.controllerModel->getList();
    const QList<int> marks = desk.marks();
    const QString checks = desk.checks();
    desk.window.on_actionNew_2_triggered();
    const auto nothing = desk.window.controllerModel->getList();
    QVERIFY(nothing != cells);
    desk.window.undo();
    QCOMPARE(desk.window.vdjModel->getList(), pads);
    QCOMPARE(desk.window.controllerModel->getList(), nothing);
    QCOMPARE(desk.marks(), marks);
    QCOMPARE(desk.checks(), checks);
    desk.showoutput(Output::Midi);
    desk.window.undo();
    QCOMPARE(desk.window.controllerModel->getList(), cells);
    QCOMPARE(desk.window.vdjModel->getList(), pads);
}

void UndoTest::marksWhatComesBackOfAnOutputThatWasNotShown()
{
    Desk desk(Output::Pads);
    desk.drop(0, desk.pad(2));
    desk.drop(3, desk.cell(3, 2));
    desk.window.on_actionNew_2_triggered();
    desk.showoutput(Output::Midi);
    QCOMPARE(desk.marks(), QList<int>());
    desk.window.undo();
    QCOMPARE(desk.marks(), QList<int>({3}));
    desk.window.redo();
    QCOMPARE(desk.marks(), QList<int>());
}

void UndoTest::countsOnlyWhatWasThereAtTheStart()
{
    Desk desk(Output::Pads);
    const app::Work before = desk.work();
    desk.window.undo();
    desk.window.redo();
    QVERIFY(desk.work() == before);
    QCOMPARE(desk.window.banks.size(), 8);
    QCOMPARE(desk.window.vdjModel->rowCount(), 64);
}

void UndoTest::forgetsTheStepsWithANewShow()
{
    Desk desk(Output::Midi);
    desk.drop(0, desk.cell(2, 2));
    desk.showoutput(Output::Pads);
    desk.drop(0, desk.pad(2));
    desk.loadshow(QStringLiteral("Other"));
    const app::Work before = desk.work();
    desk.window.undo();
    QVERIFY(desk.work() == before);
    desk.showoutput(Output::Midi);
    desk.window.undo();
    QVERIFY(desk.window.isMIDIempty());
}

void UndoTest::forgetsTheStepsWithANewProject()
{
    Desk desk(Output::Pads);
    desk.drop(0, desk.pad(2));
    const QString project = desk.home->path(QStringLiteral("work.os2l"));
    {
        const Dialogs dialogs({Answers::press(QMessageBox::Ok)});
        desk.window.savepadsproject(project);
    }
    desk.drop(1, desk.pad(3));
    const Dialogs dialogs({Answers::press(QMessageBox::Yes), Answers::choose(project)});
    desk.window.on_actionLoad_Project_triggered();
    const app::Work before = desk.work();
    QCOMPARE(desk.pad(2).data(ItemRole::Id).toString(), QStringLiteral("0"));
    desk.window.undo();
    desk.window.redo();
    QVERIFY(desk.work() == before);
    desk.drop(4, desk.pad(5));
    desk.window.undo();
    QVERIFY(desk.work() == before);
}

void UndoTest::keepsTheStepsWhenNothingIsLoaded()
{
    Desk desk(Output::Pads);
    const app::Work before = desk.work();
    desk.drop(0, desk.pad(2));
    const QString gone = desk.home->path(QStringLiteral("gone.os2l"));
    writefile(gone, "<project type=\"pads\" show=\"/nowhere/live.ini\" showname=\"Gone\"/>");
    {
        const Dialogs dialogs({Answers::press(QMessageBox::Yes), Answers::key(Qt::Key_Escape),
                               Answers::press(QMessageBox::Ok), Answers::press(QMessageBox::Yes),
                               Answers::choose(gone), Answers::press(QMessageBox::Ok),
                               Answers::press(QMessageBox::Cancel), Answers::press(QMessageBox::Yes),
                               Answers::key(Qt::Key_Escape)});
        desk.window.on_actionLoad_Project_triggered();
        desk.window.on_actionLoad_Project_triggered();
        desk.window.on_actionLoad_Project_triggered();
        desk.window.on_loadini_clicked();
    }
    QVERIFY(!desk.window.loadshowname(QStringLiteral("/nowhere/live.ini")));
    desk.window.undo();
    QVERIFY(desk.work() == before);
}

void UndoTest::keepsTwoHundredSteps()
{
    Desk desk(Output::Pads);
    for (int name = 0; name <= 210; ++name)
        desk.type("bankname", QString::number(name));
    for (int step = 0; step < 300; ++step)
        desk.window.undo();
    QCOMPARE(desk.window.banks.constFirst(), QStringLiteral("10"));
    for (int step = 0; step < 300; ++step)
        desk.window.redo();
    QCOMPARE(desk.window.banks.constFirst(), QStringLiteral("210"));
}

void UndoTest::forgetsWhatWasUndoneWithTheNextStep()
{
    Desk desk(Output::Pads);
    desk.drop(0, desk.pad(2));
    desk.window.undo();
    desk.drop(1, desk.pad(3));
    const app::Work after = desk.work();
    desk.window.redo();
    QVERIFY(desk.work() == after);
}

void UndoTest::isNotNoticed()
{
    Desk desk(Output::Pads);
    QVERIFY(desk.window.showready());
    desk.drop(0, desk.pad(2));
    desk.list->setFocus();
    const QStringList before = QDir(desk.home->path()).entryList(QDir::AllEntries | QDir::Hidden);
    const ModelSignals signalsOfPads(*desk.window.vdjModel, ModelSignals::OfViews);
    const FocusPath path;
    Desk::drop(desk.pad(2), desk.pad(5));
    desk.window.vdjModel->setData(desk.pad(5), QStringLiteral("BOOM"), Qt::EditRole);
    desk.click("radioButton_16pads");
    QCOMPARE(signalsOfPads.count(), 0);
    QCOMPARE(path.names(), QStringList());
    // Neither do undo and redo take the focus, or tell views of rows that come and go.
    desk.window.undo();
    desk.window.undo();
    desk.window.redo();
    QCOMPARE(signalsOfPads.count(), 0);
    QCOMPARE(path.names(), QStringList());
    QCOMPARE(QDir(desk.home->path()).entryList(QDir::AllEntries | QDir::Hidden), before);
}

LUMIPAD_TEST_MAIN(UndoTest)

#include "tst_undo.moc"
