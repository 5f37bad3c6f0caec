// The pads page: its banks, its names, and the export.

#include "mainwindow.h"

#include "controller.h"
#include "itemroles.h"
#include "mymodel.h"
#include "padspagewriter.h"
#include "textfile.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"
#include "vdjmodel.h"

#include <QFileInfo>
#include <QMenu>

namespace {

const char* const defaultPageName = "OS2L DMX";

}

/// Gives banks and page their first names.
void MainWindow::resetbanks()
{
    banks.clear();
    for (int bank = 1; bank <= bankCount; ++bank)
        banks.append(QStringLiteral("BANK ") + QString::number(bank));
    ui->bankname->setText(banks.constFirst());
    ui->padsname->setText(QLatin1String(defaultPageName));
}

void MainWindow::initpadlist()
{
    fillpads(vdjModel);
    for (int column = 0; column < padColumns; ++column)
        ui->vdjlistview->setColumnWidth(column, 150);
    ui->bankcombo->setCurrentIndex(0);
    showbank(0);

    fillcells(controllerModel, devices.value(currentDevice));
    sizecells();
}

void MainWindow::updatebankcombo()
{
    ui->bankcombo->clear();
    for (int bank = 1; bank <= bankCount; ++bank)
        ui->bankcombo->addItem(QString::number(bank));
    for (int item = 0; item < ui->bankcombo->count(); ++item)
        ui->bankcombo->setItemData(item, QSize(30, 30), Qt::SizeHintRole);
}

void MainWindow::showbank(int bank)
{
    for (int row = 0; row < vdjModel->rowCount(); ++row)
        ui->vdjlistview->setRowHidden(row, row / rowsPerBank != bank);
    ui->bankname->setText(banks.value(bank));
}

void MainWindow::on_bankcombo_currentIndexChanged(int index) { showbank(index); }

void MainWindow::on_bankname_editingFinished()
{
    const int bank = ui->bankcombo->currentIndex();
    if (bank < 0)
        return;
    while (banks.size() <= bank)
        banks.append(QString());
    banks[bank] = ui->bankname->text();
}

void MainWindow::on_padsname_editingFinished()
{
    if (ui->padsname->text().isEmpty())
        ui->padsname->setText(QLatin1String(defaultPageName));
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
    if (!pad.isValid() || pad.data(ItemRole::Id).toInt() < 0)
        return;
    QMenu* menu = newmenu();
    menu->addAction(QStringLiteral("Remove"), this, &MainWindow::ondeletevdjaction_triggered);
    menu->popup(ui->vdjlistview->viewport()->mapToGlobal(pos));
}

void MainWindow::ondeletevdjaction_triggered()
{
    const QModelIndexList pads = ui->vdjlistview->selectionModel()->selectedIndexes();
    for (const QModelIndex& pad : pads) {
        const int id = pad.data(ItemRole::Id).toInt();
        // The number comes from the row alone: a pad of column 1 is renamed 1 to 8 too.
        const QString name = QStringLiteral("PAD ") + QString::number(pad.row() % rowsPerBank + 1);
        clearpad(vdjModel, pad, name, QStringLiteral("#000000"));
        // Column 1 is not searched: a Live Button that stands only there loses its mark.
        if (countid(*vdjModel, 1, id) == 0)
            unmark(dmxModel, &buttons, id);
    }
    focusgrid(ui->vdjlistview);
}

void MainWindow::on_cleanpads_button_clicked()
{
    fillpads(vdjModel);
    uncheckall();
    ui->bankcombo->setCurrentIndex(0);
    showbank(0);
    ui->dmxlistview->setCurrentIndex(dmxModel->index(0, 0));
    ui->dmxlistview->setFocus();
}

bool MainWindow::isVDJempty() { return gridempty(*vdjModel); }

void MainWindow::on_pushButton_2_clicked() { on_actionExport_triggered(); }

void MainWindow::on_actionExport_triggered()
{
    finishediting();
    if (showName.isEmpty()) {
        message(QStringLiteral("Nothing to Export. Load a Show"));
        return;
    }
    const QString nopads = QStringLiteral("Nothing to Export. Pads are empty");
    if (ui->radio_outputpage->isChecked()) {
        if (isVDJempty())
            message(nopads);
        else
            exportpage();
    }
    if (ui->radio_outputmidi->isChecked()) {
        if (isMIDIempty())
            message(nopads);
        else
            exportmapping();
    }
}

bool MainWindow::exportpage()
{
    PadsPage page;
    page.name = ui->padsname->text();
    page.bankNames = banks;
    page.sixteenPads = ui->radioButton_16pads->isChecked();
    page.pads = padspagepads(*vdjModel);
    const QString path = padsPath + QLatin1Char('/') + page.name + QStringLiteral(".xml");
    if (QFileInfo::exists(path) &&
        !confirmoverwrite(QStringLiteral("Pads Page ") + page.name + QStringLiteral(" already exists.")))
        return false;
    writetextfile(path, padspagexml(page));
    message(QStringLiteral("Pads Page ") + page.name + QStringLiteral(" is created."),
            QStringLiteral("Select it from VirtualDJ Pads dropdown"));
    return true;
}
