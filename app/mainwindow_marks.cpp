// The marks of the Live Buttons that are used, kept in step with what the grids report.

#include "mainwindow.h"

#include "controller.h"
#include "itemroles.h"
#include "mymodel.h"
#include "padgeometry.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"
#include "vdjmodel.h"

/// Marks a row of the list; `buttons` says "0" all the same: only `resetdmxlist` writes "1" there.
void MainWindow::markrow(int row)
{
    const QModelIndex index = dmxModel->index(row, 0);
    if (!index.isValid())
        return;
    dmxModel->setData(index, Qt::Checked, Qt::CheckStateRole);
    const int id = index.data(ItemRole::Id).toInt();
    if (id >= 0 && id < buttons.size())
        buttons[id][Key::check()] = QStringLiteral("0");
    ui->dmxlistview->viewport()->update();
}

void MainWindow::CheckChanged(int index, int) { markrow(index); }

void MainWindow::CheckChangedCon(int index, int to, int col)
{
    if (!dmxModel->index(index, 0).isValid())
        return;
    markrow(index);
    ui->tablecontroller->setFocus();
    ui->tablecontroller->setCurrentIndex(controllerModel->index(to, col));
}

void MainWindow::dmxtoremove(int index)
{
    if (countid(*vdjModel, 1, index) == 0)
        unmark(dmxModel, &buttons, index);
    focusgrid(ui->vdjlistview);
}

void MainWindow::dmxtoremove2(int index)
{
    if (countid(*controllerModel, controllerModel->columnCount(), index) == 0)
        unmark(dmxModel, &buttons, index);
    focusgrid(ui->tablecontroller);
}

void MainWindow::dmxcheckchange(int index)
{
    const QModelIndex button = dmxModel->index(index, 0);
    if (!button.isValid())
        return;
    const int id = button.data(ItemRole::Id).toInt();
    for (int row = 0; row < vdjModel->rowCount(); ++row) {
        const QModelIndex pad = vdjModel->index(row, 0);
        if (pad.data(ItemRole::Id).toInt() != id)
            continue;
        const QString name = QStringLiteral("PAD ") + QString::number(row % rowsPerBank + 1);
        clearpad(vdjModel, pad, name, QStringLiteral("#FFFFFF"));
        ui->vdjlistview->setFocus();
        ui->vdjlistview->setCurrentIndex(pad);
    }
    for (int row = 0; row < controllerModel->rowCount(); ++row) {
        for (int col = 0; col < controllerModel->columnCount(); ++col) {
            const QModelIndex cell = controllerModel->index(row, col);
            if (cell.data(ItemRole::Id).toInt() != id)
                continue;
            clearpad(controllerModel, cell, getpadtext(row, col), QStringLiteral("#000000"));
            ui->tablecontroller->setFocus();
            ui->tablecontroller->setCurrentIndex(cell);
        }
    }
    ui->dmxlistview->setFocus();
    ui->dmxlistview->setCurrentIndex(button);
}

/// Clears the check marks of the list; `buttons` stays as it is.
void MainWindow::uncheckall()
{
    for (int row = 0; row < dmxModel->rowCount(); ++row)
        dmxModel->setData(dmxModel->index(row, 0), Qt::Unchecked, Qt::CheckStateRole);
    ui->dmxlistview->viewport()->update();
}

/// Moves the focus from the list to \a grid, and repaints both.
void MainWindow::focusgrid(QTableView* grid)
{
    ui->dmxlistview->setFocus();
    grid->setFocus();
    ui->dmxlistview->viewport()->update();
    grid->viewport()->update();
}
