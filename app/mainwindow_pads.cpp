// The pads page: its banks, its names, and the export.

#include "mainwindow.h"

#include "comboitems.h"
#include "controller.h"
#include "itemroles.h"
#include "mymodel.h"
#include "occupied.h"
#include "padgeometry.h"
#include "padspagewriter.h"
#include "textfile.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"
#include "vdjmodel.h"

#include <QFileInfo>
#include <QMenu>

/// Gives banks and page their first names.
void MainWindow::resetbanks()
{
    banks.clear();
    for (int bank = 1; bank <= padspage::bankCount; ++bank)
        banks.append(Stored::bank(bank));
    ui->bankname->setText(banks.constFirst());
    ui->padsname->setText(Stored::pageName());
}

void MainWindow::initpadlist()
{
    const app::History::Step step(history.get());
    padspage::fillpads(vdjModel);
    for (int column = 0; column < padspage::padColumns; ++column)
        ui->vdjlistview->setColumnWidth(column, padspage::padWidth);
    ui->bankcombo->setCurrentIndex(0);
    showbank(0);

    controller::fillcells(controllerModel, devices.value(currentDevice));
    sizecells();
}

void MainWindow::updatebankcombo()
{
    ui->bankcombo->clear();
    for (int bank = 1; bank <= padspage::bankCount; ++bank)
        ui->bankcombo->addItem(QString::number(bank));
    setitemsizes(ui->bankcombo, 30);
}

void MainWindow::showbank(int bank)
{
    for (int row = 0; row < vdjModel->rowCount(); ++row)
        ui->vdjlistview->setRowHidden(row, row / padspage::rowsPerBank != bank);
    ui->bankname->setText(banks.value(bank));
}

void MainWindow::on_bankcombo_currentIndexChanged(int index) { showbank(index); }

void MainWindow::on_bankname_editingFinished()
{
    const int bank = ui->bankcombo->currentIndex();
    if (bank < 0)
        return;
    const app::History::Step step(history.get());
    while (banks.size() <= bank)
        banks.append(QString());
    banks[bank] = ui->bankname->text();
}

void MainWindow::on_padsname_editingFinished()
{
    const app::History::Step step(history.get());
    if (ui->padsname->text().isEmpty())
        ui->padsname->setText(Stored::pageName());
    ui->padsname->setModified(false);
    choices.name = ui->padsname->text();
}

void MainWindow::on_radioButton_8pads_clicked(bool checked)
{
    if (checked)
        ui->vdjlistview->hideColumn(1);
}

void MainWindow::on_radioButton_16pads_clicked(bool checked)
{
    if (checked)
        ui->vdjlistview->showColumn(1);
}

void MainWindow::customMenuRequestedvdj(QPoint pos)
{
    const QModelIndex pad = ui->vdjlistview->indexAt(pos);
    if (!pad.isValid() || !show::holdsbutton(pad.data(ItemRole::Id).toString()))
        return;
    QMenu* menu = newmenu();
    menu->addAction(tr("Remove"), this, &MainWindow::ondeletevdjaction_triggered);
    menu->popup(ui->vdjlistview->viewport()->mapToGlobal(pos));
}

void MainWindow::ondeletevdjaction_triggered()
{
    const app::History::Step step(history.get());
    removepads(outputs.at(PadsOutput), ui->vdjlistview->selectionModel()->selectedIndexes());
    focusgrid(outputs.at(PadsOutput));
}

void MainWindow::on_cleanpads_button_clicked()
{
    finishediting();
    const app::History::Step step(history.get());
    padspage::fillpads(vdjModel);
    show::unmarkrows(dmxModel);
    ui->bankcombo->setCurrentIndex(0);
    showbank(0);
    ui->dmxlistview->setCurrentIndex(dmxModel->index(0, 0));
    ui->dmxlistview->setFocus();
}

bool MainWindow::isVDJempty() { return show::gridempty(*vdjModel); }

void MainWindow::on_pushButton_2_clicked() { on_actionExport_triggered(); }

void MainWindow::on_actionExport_triggered()
{
    finishediting();
    if (showName.isEmpty()) {
        message(tr("Nothing to Export. Load a Show"));
        return;
    }
    for (const OutputMode& output : outputs) {
        if (!output.radio->isChecked())
            continue;
        if (show::gridempty(*output.grid))
            message(tr("Nothing to Export. Pads are empty"));
        else
            output.exportwork();
    }
}

bool MainWindow::exportpage()
{
    padspage::PadsPage page;
    page.name = ui->padsname->text();
    page.bankNames = banks;
    page.sixteenPads = ui->radioButton_16pads->isChecked();
    page.pads = padspage::padspagepads(*vdjModel);
    const QString path = padsPath + QLatin1Char('/') + page.name + QStringLiteral(".xml");
    if (QFileInfo::exists(path) && !confirmoverwrite(tr("Pads Page %1 already exists.").arg(page.name)))
        return false;
    writetextfile(path, padspagexml(page));
    message(tr("Pads Page %1 is created.").arg(page.name), tr("Select it from VirtualDJ Pads dropdown"));
    return true;
}
