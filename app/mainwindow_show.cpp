// The loaded light show: reading it, its list of Live Buttons and the page filter.

#include "mainwindow.h"

#include "comboitems.h"
#include "itemroles.h"
#include "lightshow.h"
#include "mymodel.h"
#include "names.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"
#include "vdjmodel.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>

#include <utility>

bool MainWindow::loadshow()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Select a Show"), homePath + QStringLiteral("/TheLightingController/LightShows"));
    if (folder.isEmpty())
        return false;
    const QString path = folder + QStringLiteral("/Live/live.ini");
    if (!QFileInfo::exists(path)) {
        QMessageBox::warning(
            nullptr, tr("Lumipad"),
            tr("LightShow Settings file not found. Please select a different LightShow Folder"));
        return false;
    }
    showName = QFileInfo(folder).fileName();
    loadshowname(path);
    return true;
}

bool MainWindow::loadshowname(const QString& path)
{
    const auto show = show::readlightshow(path);
    if (!show)
        return false;
    replaceshow(*show, path);
    return true;
}

/// Begins anew with \a show, which \a path (`Live/live.ini`) is of.
void MainWindow::replaceshow(const show::LightShow& show, const QString& path)
{
    const app::History::Step step(history.get());
    switchPad = {-1, -1};
    cleanDMX();
    resetbanks();
    initpadlist();
    pages = show.pages;
    buttons = show.buttons;
    initlist();
    updatecombo();
    iniPath = path;
    // A project may give the show a name that no window manager takes.
    setWindowTitle(tr("Lumipad - %1").arg(shownname(showName)));
    // Views put the layout of new rows off until they have painted them once.
    for (QTableView* view : {ui->dmxlistview, ui->vdjlistview, ui->tablecontroller})
        view->doItemsLayout();
    history->clear();
}

QString MainWindow::getcolor(const QString& color) { return show::getcolor(color); }

int MainWindow::buttonsperpage(int page) { return show::buttonsperpage(buttons, page); }

void MainWindow::initlist() { show::filllist(dmxModel, buttons); }

void MainWindow::updatecombo()
{
    ui->combobox->clear();
    for (const Record& page : std::as_const(pages))
        ui->combobox->addItem(page.value(Key::pageName()));
    setitemsizes(ui->combobox, 30);
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
    const OutputMode& output = chosenoutput();
    show::markused(dmxModel, &buttons, show::usedids(*output.grid, output.markColumns));
    ui->dmxlistview->setCurrentIndex(dmxModel->index(0, 0));
}
