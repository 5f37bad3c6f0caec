// The marks of the Live Buttons that are used, kept in step with what the grids report.

#include "mainwindow.h"

#include "controller.h"
#include "itemroles.h"
#include "mymodel.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"

void MainWindow::CheckChanged(int index, int) { show::markrow(dmxModel, &buttons, index); }

void MainWindow::CheckChangedCon(int index, int to, int col)
{
    if (!dmxModel->index(index, 0).isValid())
        return;
    show::markrow(dmxModel, &buttons, index);
    ui->tablecontroller->setFocus();
    ui->tablecontroller->setCurrentIndex(controllerModel->index(to, col));
}

void MainWindow::dmxtoremove(int index)
{
    unmarkunused(outputs.at(PadsOutput), index);
    focusgrid(outputs.at(PadsOutput));
}

void MainWindow::dmxtoremove2(int index)
{
    unmarkunused(outputs.at(MidiOutput), index);
    focusgrid(outputs.at(MidiOutput));
}

/// Unmarks the Live Button \a id if no pad of the output that counts for marks holds it.
void MainWindow::unmarkunused(const OutputMode& output, int id)
{
    if (show::countid(*output.grid, output.markColumns, id) == 0)
        show::unmark(dmxModel, &buttons, id);
}

/// Empties \a pads of the output's grid, and unmarks the Live Buttons that are on none of its pads any more.
void MainWindow::removepads(const OutputMode& output, const QModelIndexList& pads)
{
    for (const QModelIndex& pad : pads) {
        if (!pad.isValid())
            continue;
        const int id = pad.data(ItemRole::Id).toInt();
        output.empty(pad);
        unmarkunused(output, id);
    }
}

void MainWindow::dmxcheckchange(int index)
{
    const QModelIndex button = dmxModel->index(index, 0);
    if (!button.isValid())
        return;
    const app::History::Step step(history.get());
    const int id = button.data(ItemRole::Id).toInt();
    for (const OutputMode& output : outputs) {
        for (int row = 0; row < output.grid->rowCount(); ++row) {
            for (int column = 0; column < output.markColumns; ++column) {
                const QModelIndex pad = output.grid->index(row, column);
                if (pad.data(ItemRole::Id).toInt() != id)
                    continue;
                output.takeoff(pad);
                output.view->setFocus();
                output.view->setCurrentIndex(pad);
            }
        }
    }
    ui->dmxlistview->setFocus();
    ui->dmxlistview->setCurrentIndex(button);
}

/// Moves the focus from the list to the output's grid.
void MainWindow::focusgrid(const OutputMode& output)
{
    ui->dmxlistview->setFocus();
    output.view->setFocus();
}
