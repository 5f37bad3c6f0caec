// The work of an output as a value, and the steps back and forth between two of them.

#include "mainwindow.h"

#include "controller.h"
#include "itemroles.h"
#include "mymodel.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"
#include "vdjmodel.h"

#include <QSignalBlocker>

namespace {

QStringList texts(const QComboBox* combo)
{
    QStringList all;
    for (int item = 0; item < combo->count(); ++item)
        all.append(combo->itemText(item));
    return all;
}

} // namespace

/// Lets the history follow the shown output, and hear of what begins outside of this window's slots.
void MainWindow::setuphistory()
{
    for (int output = 0; output < static_cast<int>(outputs.size()); ++output) {
        connect(outputat(output).radio, &QRadioButton::toggled, this, [this, output](bool checked) {
            if (checked)
                history->follow(output);
        });
        outputat(output).grid->watchchanges([this] { history->begin(); }, [this] { history->end(); });
    }
    connect(ui->radioButton_16pads, &QRadioButton::toggled, this, &MainWindow::choicechanged);
    for (const QComboBox* combo : {ui->mididevices, ui->combo_offcolor, ui->combo_oncolor})
        connect(combo, qOverload<int>(&QComboBox::currentIndexChanged), this, &MainWindow::choicechanged);
    // What is being typed becomes the name when the field is left; a text that was set is the name at once.
    connect(ui->padsname, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!ui->padsname->isModified())
            choices.name = text;
    });
}

void MainWindow::choicechanged()
{
    const app::History::Step step(history.get());
    choices.sixteenPads = ui->radioButton_16pads->isChecked();
    choices.mapping = ui->mididevices->currentIndex();
    choices.offColor = ui->combo_offcolor->currentIndex();
    choices.onColor = ui->combo_oncolor->currentIndex();
}

void MainWindow::undo()
{
    finishediting();
    history->undo();
}

void MainWindow::redo()
{
    finishediting();
    history->redo();
}

app::Work MainWindow::takework(int output) const
{
    app::Work work;
    work.pads = outputat(output).grid->rows();
    outputat(output).take(&work);
    if (&outputat(output) == &chosenoutput()) {
        work.name = choices.name;
        work.marks = app::Marks{dmxModel->rows(), buttons};
    }
    return work;
}

void MainWindow::putwork(int output, const app::Work& work)
{
    const OutputMode& mode = outputat(output);
    mode.grid->setrows(work.pads);
    mode.put(work);
    if (work.name)
        ui->padsname->setText(*work.name);
    if (work.marks)
        putmarks(*work.marks);
    else if (&mode == &chosenoutput())
        show::markused(dmxModel, &buttons, show::usedids(*mode.grid, mode.markColumns));
}

void MainWindow::takepadspage(app::Work* work) const
{
    work->banks = banks;
    work->bank = ui->bankcombo->currentIndex();
    work->sixteenPads = choices.sixteenPads;
}

void MainWindow::takecontroller(app::Work* work) const
{
    work->device = currentDevice;
    work->mapping = choices.mapping;
    work->palette = texts(ui->combo_offcolor);
    work->offColor = choices.offColor;
    work->onColor = choices.onColor;
    work->switchPad = switchPad;
}

void MainWindow::putpadspage(const app::Work& work)
{
    banks = work.banks;
    (work.sixteenPads ? ui->radioButton_16pads : ui->radioButton_8pads)->setChecked(true);
    ui->vdjlistview->setColumnHidden(1, !work.sixteenPads);
    ui->bankcombo->setCurrentIndex(work.bank);
    // The name of the bank may have changed though the bank is the same.
    showbank(work.bank);
}

void MainWindow::putcontroller(const app::Work& work)
{
    if (currentDevice != work.device) {
        // The slot of this choice would work out anew what the grid holds, and take the focus.
        const QSignalBlocker quiet(ui->devicescombo);
        ui->devicescombo->setCurrentIndex(work.device);
        updatemidicombo(work.device);
    }
    if (texts(ui->combo_offcolor) != work.palette)
        offerpalette(work.palette, work.offColor, work.onColor);
    ui->mididevices->setCurrentIndex(work.mapping);
    ui->combo_offcolor->setCurrentIndex(work.offColor);
    ui->combo_oncolor->setCurrentIndex(work.onColor);
    switchPad = work.switchPad;
    sizecells();
}

/// Puts the `check` of every Live Button back, in the list and in `buttons`, as far as they still exist.
void MainWindow::putmarks(const app::Marks& marks)
{
    for (int row = 0; row < dmxModel->rowCount() && row < marks.list.size(); ++row) {
        const QString check = marks.list.at(row).value(0).value(Key::check());
        dmxModel->setData(dmxModel->index(row, 0), check == QLatin1String("1") ? Qt::Checked : Qt::Unchecked,
                          Qt::CheckStateRole);
    }
    for (int button = 0; button < buttons.size() && button < marks.buttons.size(); ++button)
        buttons[button][Key::check()] = marks.buttons.at(button).value(Key::check());
}
