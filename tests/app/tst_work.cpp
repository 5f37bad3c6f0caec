#include "controller.h"
#include "itemroles.h"
#include "midiwindow.h"
#include "mymodel.h"
#include "testmain.h"
#include "vdjmodel.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

using Output = MidiWindow::Output;

namespace {

constexpr int padsPage = 0;
constexpr int controllerGrid = 1;

QComboBox* combo(const MidiWindow& midi, const char* name) { return midi.window.child<QComboBox>(name); }

QLineEdit* field(const MidiWindow& midi, const char* name) { return midi.window.child<QLineEdit>(name); }

/// The rows of pads that the user sees.
QList<int> shownRows(const MidiWindow& midi)
{
    QList<int> rows;
    for (int row = 0; row < midi.window.vdjModel->rowCount(); ++row) {
        if (!midi.pads->isRowHidden(row))
            rows.append(row);
    }
    return rows;
}

} // namespace

class WorkTest : public QObject
{
    Q_OBJECT

private slots:
    void takesThePadsPageAsItIs();
    void takesTheControllerAsItIs();
    void takesNameAndMarksWithTheShownOutputOnly();
    void takesNoNameThatIsStillBeingTyped();
    void putsThePadsPage();
    void putsTheController();
    void putsDefaultColoursOfADeviceThatHasNone();
    void leavesWhatTheWorkDoesNotName();
    void marksWhatThePadsHoldWhenTheWorkHasNoMarks();
    void leavesFocusAndSelection();
    void putsPadsIntoAGridWithoutRows();
    void tellsWorkApart();
};

void WorkTest::takesThePadsPageAsItIs()
{
    MidiWindow midi(Output::Pads);
    midi.drop(3, midi.pad(18, 1));
    midi.setchecks(QStringLiteral("01010"));
    combo(midi, "bankcombo")->setCurrentIndex(2);
    midi.window.banks[2] = QStringLiteral("Drops");
    midi.window.child<QRadioButton>("radioButton_16pads")->click();
    field(midi, "padsname")->setText(QStringLiteral("Friday"));
    const app::Work work = midi.window.takework(padsPage);
    QCOMPARE(work.pads, midi.window.vdjModel->getList());
    QCOMPARE(work.banks, midi.window.banks);
    QCOMPARE(work.bank, 2);
    QVERIFY(work.sixteenPads);
    QCOMPARE(work.name.value(), QStringLiteral("Friday"));
    QCOMPARE(work.marks.value().buttons, midi.window.buttons);
    QStringList marks;
    for (const QList<Record>& row : work.marks.value().list)
        marks.append(row.constFirst().value(Key::check()));
    QCOMPARE(marks, QStringList({"0", "0", "0", "1", "0"}));
}

void WorkTest::takesTheControllerAsItIs()
{
    MidiWindow midi(Output::Midi);
    combo(midi, "devicescombo")->setCurrentIndex(midi.window.getdeviceindex("LAUNCHPADMINI"));
    combo(midi, "mididevices")->setCurrentIndex(1);
    combo(midi, "combo_offcolor")->setCurrentIndex(2);
    combo(midi, "combo_oncolor")->setCurrentIndex(3);
    midi.drop(1, midi.cell(4, 4));
    midi.window.switchPad = {2, 3};
    const app::Work work = midi.window.takework(controllerGrid);
    QCOMPARE(work.pads, midi.window.controllerModel->getList());
    QCOMPARE(work.device, midi.window.getdeviceindex("LAUNCHPADMINI"));
    QCOMPARE(work.mapping, 1);
    QCOMPARE(work.offColor, 2);
    QCOMPARE(work.onColor, 3);
    QCOMPARE(work.palette.value(3), combo(midi, "combo_oncolor")->currentText());
    QCOMPARE(work.switchPad, QList<int>({2, 3}));
}

void WorkTest::takesNameAndMarksWithTheShownOutputOnly()
{
    MidiWindow midi(Output::Midi);
    QVERIFY(midi.window.takework(controllerGrid).name);
    QVERIFY(midi.window.takework(controllerGrid).marks);
    QVERIFY(!midi.window.takework(padsPage).name);
    QVERIFY(!midi.window.takework(padsPage).marks);
}

void WorkTest::takesNoNameThatIsStillBeingTyped()
{
    MidiWindow midi(Output::Pads);
    QLineEdit* const name = field(midi, "padsname");
    name->selectAll();
    QTest::keyClicks(name, QStringLiteral("Finale"));
    QCOMPARE(midi.window.takework(padsPage).name.value(), QStringLiteral("OS2L DMX"));
    QTest::keyClick(name, Qt::Key_Return);
    QCOMPARE(midi.window.takework(padsPage).name.value(), QStringLiteral("Finale"));
}

void WorkTest::putsThePadsPage()
{
    MidiWindow midi(Output::Pads);
    app::Work work = midi.window.takework(padsPage);
    work.pads[41][1][Key::name()] = QStringLiteral("Fog");
    work.pads[41][1][Key::id()] = QStringLiteral("4");
    work.banks = QStringList({"A", "B", "C", "D", "E", "F"});
    work.bank = 5;
    work.sixteenPads = true;
    work.name = QStringLiteral("Saturday");
    work.marks->list[4][0][Key::check()] = QStringLiteral("1");
    work.marks->buttons[2][Key::check()] = QStringLiteral("1");
    midi.window.putwork(padsPage, work);
    QCOMPARE(midi.window.vdjModel->getList(), work.pads);
    QCOMPARE(midi.window.banks, work.banks);
    QCOMPARE(combo(midi, "bankcombo")->currentText(), QStringLiteral("6"));
    QCOMPARE(field(midi, "bankname")->text(), QStringLiteral("F"));
    QCOMPARE(shownRows(midi), QList<int>({40, 41, 42, 43, 44, 45, 46, 47}));
    QVERIFY(midi.window.child<QRadioButton>("radioButton_16pads")->isChecked());
    QVERIFY(!midi.pads->isColumnHidden(1));
    QCOMPARE(field(midi, "padsname")->text(), QStringLiteral("Saturday"));
    QCOMPARE(midi.marks(), QList<int>({4}));
    QCOMPARE(midi.checks(), QStringLiteral("00100"));
    QVERIFY(midi.window.takework(padsPage) == work);

    work.sixteenPads = false;
    midi.window.putwork(padsPage, work);
    QVERIFY(midi.window.child<QRadioButton>("radioButton_8pads")->isChecked());
    QVERIFY(midi.pads->isColumnHidden(1));
}

void WorkTest::putsTheController()
{
    MidiWindow midi(Output::Midi);
    const int mini = midi.window.getdeviceindex("LAUNCHPADMINI");
    combo(midi, "devicescombo")->setCurrentIndex(mini);
    app::Work work = midi.window.takework(controllerGrid);
    work.pads[0][3][Key::blink()] = QStringLiteral("1");
    work.mapping = 1;
    work.offColor = 1;
    work.onColor = 4;
    work.switchPad = {9, 9};
    work.name = QStringLiteral("Saturday");
    combo(midi, "devicescombo")->setCurrentIndex(0);
    midi.window.putwork(controllerGrid, work);
    QCOMPARE(midi.window.controllerModel->getList(), work.pads);
    QCOMPARE(combo(midi, "devicescombo")->currentIndex(), mini);
    QCOMPARE(midi.window.currentDevice, mini);
    QCOMPARE(midi.window.currentDeviceId, QStringLiteral("LAUNCHPADMINI"));
    QCOMPARE(combo(midi, "mididevices")->currentText(),
             midi.window.mappers.value(midi.window.getmapperid("LAUNCHPADMINI", 1)).value(Key::name()));
    QCOMPARE(combo(midi, "combo_offcolor")->currentText(), work.palette.at(1));
    QCOMPARE(combo(midi, "combo_oncolor")->currentText(), work.palette.at(4));
    QCOMPARE(midi.window.switchPad, QList<int>({9, 9}));
    QCOMPARE(field(midi, "padsname")->text(), QStringLiteral("Saturday"));
    QVERIFY(midi.window.takework(controllerGrid) == work);
}

void WorkTest::putsDefaultColoursOfADeviceThatHasNone()
{
    // A full-RGB device keeps the default colours of the one that was chosen before it, and so does its
    // project file.
    MidiWindow midi(Output::Midi);
    int rgb = -1;
    for (int device = 0; device < midi.window.devices.size(); ++device) {
        if (midi.window.devices.at(device).value(QStringLiteral("fullrgb")) == QLatin1String("true"))
            rgb = device;
    }
    QVERIFY(rgb >= 0);
    combo(midi, "devicescombo")->setCurrentIndex(midi.window.getdeviceindex("LAUNCHPADMINI"));
    combo(midi, "combo_oncolor")->setCurrentIndex(combo(midi, "combo_oncolor")->count() - 1);
    combo(midi, "devicescombo")->setCurrentIndex(rgb);
    const app::Work work = midi.window.takework(controllerGrid);
    combo(midi, "devicescombo")->setCurrentIndex(0);
    QVERIFY(combo(midi, "combo_oncolor")->count() <= work.onColor);
    midi.window.putwork(controllerGrid, work);
    QCOMPARE(combo(midi, "combo_oncolor")->currentIndex(), work.onColor);
    QVERIFY(combo(midi, "combo_oncolor")->isHidden() ||
            midi.window.child<QWidget>("groupBox_colors")->isHidden());
    QVERIFY(midi.window.takework(controllerGrid) == work);
}

void WorkTest::leavesWhatTheWorkDoesNotName()
{
    MidiWindow midi(Output::Pads);
    app::Work work = midi.window.takework(padsPage);
    work.name.reset();
    field(midi, "padsname")->setText(QStringLiteral("Saturday"));
    midi.drop(1, midi.cell(4, 4));
    const auto cells = midi.window.controllerModel->getList();
    midi.window.putwork(padsPage, work);
    QCOMPARE(field(midi, "padsname")->text(), QStringLiteral("Saturday"));
    QCOMPARE(midi.window.controllerModel->getList(), cells);
}

void WorkTest::marksWhatThePadsHoldWhenTheWorkHasNoMarks()
{
    MidiWindow midi(Output::Pads);
    midi.drop(0, midi.pad(3));
    midi.drop(2, midi.pad(4, 1)); // the second column keeps no mark
    app::Work work = midi.window.takework(padsPage);
    work.marks.reset();
    midi.window.on_cleanpads_button_clicked();
    midi.window.putwork(padsPage, work);
    QCOMPARE(midi.marks(), QList<int>({0}));
    QCOMPARE(midi.checks(), QStringLiteral("10000"));
    // The marks of the other output are no business of a grid that is not shown.
    QTest::mouseClick(midi.window.child<QAbstractButton>("radio_outputmidi"), Qt::LeftButton);
    midi.window.putwork(padsPage, work);
    QCOMPARE(midi.marks(), QList<int>());
}

void WorkTest::leavesFocusAndSelection()
{
    MidiWindow midi(Output::Midi);
    QVERIFY(midi.window.showready());
    midi.drop(0, midi.cell(4, 4));
    midi.list->setFocus();
    midi.list->setCurrentIndex(midi.window.dmxModel->index(2, 0));
    midi.grid->setCurrentIndex(midi.cell(5, 5));
    const app::Work work = midi.window.takework(controllerGrid);
    combo(midi, "devicescombo")->setCurrentIndex(3);
    midi.list->setFocus();
    const FocusPath path;
    midi.window.putwork(controllerGrid, work);
    QCOMPARE(path.names(), QStringList());
    QCOMPARE(midi.list->currentIndex().row(), 2);
    QCOMPARE(midi.grid->currentIndex(), midi.cell(5, 5));
    QCOMPARE(midi.grid->selectionModel()->selectedIndexes(), QModelIndexList({midi.cell(5, 5)}));
}

void WorkTest::putsPadsIntoAGridWithoutRows()
{
    MidiWindow midi(Output::Pads);
    midi.drop(0, midi.pad(3));
    const app::Work pads = midi.window.takework(padsPage);
    const app::Work cells = midi.window.takework(controllerGrid);
    midi.window.cleanVDJ();
    midi.window.cleanMIDI();
    midi.window.putwork(padsPage, pads);
    midi.window.putwork(controllerGrid, cells);
    QVERIFY(midi.window.takework(padsPage) == pads);
    QVERIFY(midi.window.takework(controllerGrid) == cells);
    QCOMPARE(shownRows(midi), QList<int>({0, 1, 2, 3, 4, 5, 6, 7}));
    QVERIFY(midi.pads->isColumnHidden(1));
    QCOMPARE(midi.grid->rowHeight(1), 5);
    QCOMPARE(midi.grid->columnWidth(2), 95);
}

void WorkTest::tellsWorkApart()
{
    MidiWindow midi(Output::Pads);
    const app::Work work = midi.window.takework(padsPage);
    QVERIFY(work == app::Work(work));
    QVector<app::Work> others(14, work);
    others[0].pads[7][1][Key::color()] = QStringLiteral("#123456");
    others[1].banks[7] = QStringLiteral("bank 8");
    others[2].bank = 1;
    others[3].sixteenPads = true;
    others[4].device = 1;
    others[5].mapping = 1;
    others[6].palette.append(QStringLiteral("red"));
    others[7].offColor = 1;
    others[8].onColor = 1;
    others[9].switchPad.append(2);
    others[10].name = QStringLiteral("os2l dmx");
    others[11].marks.reset();
    others[12].marks->list[1][0][Key::check()] = QStringLiteral("1");
    others[13].marks->buttons[1][Key::check()] = QStringLiteral("1");
    for (int i = 0; i < others.size(); ++i)
        QVERIFY2(others.at(i) != work, qPrintable(QString::number(i)));
}

LUMIPAD_TEST_MAIN(WorkTest)

#include "tst_work.moc"
