// The loaded light show: reading it, its list of Live Buttons and the page filter.

#include "mainwindow.h"

#include "controller.h"
#include "itemroles.h"
#include "lightshow.h"
#include "mymodel.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"
#include "vdjmodel.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>

bool MainWindow::loadshow()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, QStringLiteral("Select a Show"),
                                          homePath + QStringLiteral("/TheLightingController/LightShows"));
    if (folder.isEmpty())
        return false;
    const QString path = folder + QStringLiteral("/Live/live.ini");
    if (!QFileInfo::exists(path)) {
        QMessageBox::warning(nullptr, QStringLiteral("Lumipad"),
                             QStringLiteral("LightShow Settings file not found. Please select a different "
                                            "LightShow Folder"));
        return false;
    }
    showName = QFileInfo(folder).fileName();
    loadshowname(path);
    return true;
}

bool MainWindow::loadshowname(const QString& path)
{
    const auto show = readlightshow(path);
    if (!show)
        return false;
    switchPad = {-1, -1};
    cleanDMX();
    cleanVDJ();
    cleanMIDI();
    initpadlist();
    resetbanks();
    ui->combobox->clear();
    pages = show->pages;
    buttons = show->buttons;
    initlist();
    updatecombo();
    iniPath = path;
    setWindowTitle(QStringLiteral("Lumipad - ") + showName);
    return true;
}

QString MainWindow::getcolor(const QString& color) { return ::getcolor(color); }

int MainWindow::buttonsperpage(int page) { return ::buttonsperpage(buttons, page); }

void MainWindow::initlist()
{
    if (!dmxModel->insertRows(0, buttons.size()))
        return;
    for (int row = 0; row < buttons.size(); ++row) {
        const Record& button = buttons.at(row);
        const QModelIndex index = dmxModel->index(row, 0);
        const QString title = button.value(Key::title());
        dmxModel->setData(index, title, Qt::EditRole);
        dmxModel->setData(index, button.value(Key::pageId()), ItemRole::Page);
        dmxModel->setData(index, title, ItemRole::DspName);
        dmxModel->setData(index, QStringLiteral("1"), ItemRole::Source);
        dmxModel->setData(index, button.value(Key::buttonId()), ItemRole::Id);
        dmxModel->setData(index, QStringLiteral("#FFFFFF"), Qt::BackgroundRole);
        dmxModel->setData(index, QStringLiteral("#FFFFFF"), Qt::ForegroundRole);
        dmxModel->setData(index, button.value(Key::color()), Qt::DecorationRole);
        dmxModel->setData(index, Qt::Unchecked, Qt::CheckStateRole);
    }
}

void MainWindow::updatecombo()
{
    ui->combobox->clear();
    for (const Record& page : qAsConst(pages))
        ui->combobox->addItem(page.value(Key::pageName()));
    for (int item = 0; item < ui->combobox->count(); ++item)
        ui->combobox->setItemData(item, QSize(30, 30), Qt::SizeHintRole);
}

void MainWindow::updatelist(int index)
{
    if (index < 0)
        return;
    // A header that may repaint computes all row positions anew at each row that it hides or shows.
    QHeaderView* const rows = ui->dmxlistview->verticalHeader();
    rows->setUpdatesEnabled(false);
    for (int row = 0; row < dmxModel->rowCount(); ++row) {
        const int page = dmxModel->index(row, 0).data(ItemRole::Page).toInt();
        ui->dmxlistview->setRowHidden(row, index > 0 && page != index);
    }
    rows->setUpdatesEnabled(true);
}

void MainWindow::on_combobox_currentIndexChanged(int index) { updatelist(index); }

void MainWindow::resetdmxlist()
{
    const auto used = ui->radio_outputpage->isChecked()
                          ? usedids(*vdjModel, 1)
                          : usedids(*controllerModel, controllerModel->columnCount());
    markused(dmxModel, &buttons, used);
    ui->dmxlistview->viewport()->update();
    ui->dmxlistview->setCurrentIndex(dmxModel->index(0, 0));
}
