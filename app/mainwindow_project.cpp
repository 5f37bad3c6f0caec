// Projects: saving the work and loading it again.

#include "mainwindow.h"

#include "bounds.h"
#include "controller.h"
#include "devices.h"
#include "lightshow.h"
#include "messages.h"
#include "project.h"
#include "readfile.h"
#include "textfile.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"
#include "vdjmodel.h"

#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace {

QString projectfilter() { return MainWindow::tr("OS2L Projects (*.os2l)"); }

} // namespace

void MainWindow::on_actionSave_2_triggered()
{
    finishediting();
    if (showName.isEmpty()) {
        message(tr("Nothing to Save. Load a Show"));
        return;
    }
    for (const OutputMode& output : outputs) {
        if (output.radio->isChecked())
            saveoutput(output);
    }
}

void MainWindow::saveoutput(const OutputMode& output)
{
    if (show::gridempty(*output.grid)) {
        message(tr("Nothing to Save. Pads are empty"));
        return;
    }
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save your Lumipad Project"), projectsPath, projectfilter(),
                                     nullptr, QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty())
        return;
    if (QFileInfo::exists(path) &&
        !confirmoverwrite(tr("Project %1 already exists.").arg(QFileInfo(path).baseName())))
        return;
    output.savework(path);
}

void MainWindow::savepadsproject(const QString& path)
{
    project::Head head;
    head.pads = {ui->radioButton_16pads->isChecked(), banks};
    saveproject(path, {{head}, project::padcells(*vdjModel)});
}

void MainWindow::savemidiproject(const QString& path)
{
    project::Head head;
    head.controller = {devices.value(ui->devicescombo->currentIndex()).value(Key::device()),
                       {switchPad.at(0), switchPad.at(1)},
                       ui->combo_offcolor->currentIndex(),
                       ui->combo_oncolor->currentIndex()};
    saveproject(path, {{head}, project::controllercells(*controllerModel)});
}

/// Completes the head of \a work by what both kinds of projects hold, writes the file and says how that went.
void MainWindow::saveproject(const QString& path, project::Project work)
{
    project::Head& head = work.heads.first();
    head.show = iniPath;
    head.showName = showName;
    head.exportName = ui->padsname->text();
    const bool saved = writetextfile(path, project::projectxml(work));
    const QString name = QFileInfo(path).baseName();
    message(saved ? tr("Project %1 is saved.").arg(name) : tr("Project %1 was not saved.").arg(name));
}

void MainWindow::on_actionLoad_Project_triggered()
{
    if (!showName.isEmpty() && !projectempty()) {
        const auto answer = showmessage(
            messageBoxStyle, tr("Are you sure you want to load a Project before saving current ?"), QString(),
            QMessageBox::Yes | QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Cancel);
        if (answer == QMessageBox::Save)
            on_actionSave_2_triggered();
        else if (answer != QMessageBox::Yes)
            return;
    }
    if (!loadproject())
        message(tr("Failed to load the Project's Show."));
}

bool MainWindow::loadproject()
{
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Select a Lumipad Project"), projectsPath, projectfilter());
    return loadprojectname(path);
}

bool MainWindow::loadprojectname(const QString& path)
{
    project::Project work;
    if (!readprojectfile(path, &work))
        return false;
    const app::History::Step step(history.get());
    for (const project::Head& head : std::as_const(work.heads)) {
        // Of several shows the last one stays.
        if (&head == &work.heads.constLast())
            restoreshow(head);
        restorehead(head);
    }

    const OutputMode& output = outputs.at(work.ismidi() ? MidiOutput : PadsOutput);
    const auto restore = [&](const auto& cells) {
        for (const auto& cell : cells) {
            project::putcell(output.grid, cell);
            CheckChanged(cell.id.toInt(), cell.row);
        }
    };
    std::visit(restore, work.cells);
    output.radio->setChecked(true);
    showoutput(output, output.windowWidth);
    if (!work.ismidi()) {
        ui->bankcombo->setCurrentIndex(0);
        showbank(0);
        const bool sixteen = !work.heads.isEmpty() && work.heads.constLast().pads.sixteenPads;
        (sixteen ? ui->radioButton_16pads : ui->radioButton_8pads)->setChecked(true);
        ui->vdjlistview->setColumnHidden(1, !sixteen);
    }
    history->clear();
    return true;
}

/// Reads the project file \a path into \a work. False when it cannot be read or one of its shows is gone;
/// also when it has more heads than a person could have put together.
bool MainWindow::readprojectfile(const QString& path, project::Project* work)
{
    const auto text = readregularfile(path, maxXmlSize);
    if (!text)
        return false;
    *work = project::readproject(*text);
    return work->heads.size() <= maxProjects &&
           std::all_of(work->heads.cbegin(), work->heads.cend(),
                       [](const project::Head& head) { return QFileInfo(head.show).isFile(); });
}

/// Reads the show of a project. One that exists but cannot be read leaves an empty list and empty grids, not
/// those of another show, and the work still belongs to it: saved again, it can be loaded again.
void MainWindow::restoreshow(const project::Head& head)
{
    showName = head.showName;
    if (!loadshowname(head.show))
        replaceshow({}, head.show);
}

/// Puts back everything that a project's head holds beside the show.
void MainWindow::restorehead(const project::Head& head)
{
    if (!head.pads.banks.isEmpty())
        banks = head.pads.banks;
    switchPad = {head.controller.switchPad.row, head.controller.switchPad.column};
    ui->padsname->setText(head.exportName);
    const int device = getdeviceindex(head.controller.device);
    if (!head.controller.device.isEmpty() && device >= 0)
        ui->devicescombo->setCurrentIndex(device);
    if (head.controller.offColor)
        ui->combo_offcolor->setCurrentIndex(*head.controller.offColor);
    if (head.controller.onColor)
        ui->combo_oncolor->setCurrentIndex(*head.controller.onColor);
}
