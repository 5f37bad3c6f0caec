// Projects: saving the work and loading it again.

#include "mainwindow.h"

#include "bounds.h"
#include "controller.h"
#include "itemroles.h"
#include "messages.h"
#include "project.h"
#include "readfile.h"
#include "textfile.h"
#include "ui_mainwindow.h"
#include "vdjmodel.h"

#include <QColor>
#include <QFileDialog>
#include <QFileInfo>

namespace {

QString projectfilter() { return QStringLiteral("OS2L Projects (*.os2l)"); }

/// One attribute of a cell in the project file and the item role that it is kept under.
struct Attribute
{
    QString key;
    int role;
};

QVector<Attribute> cellattributes(bool midi)
{
    QVector<Attribute> attributes{{Key::name(), Qt::EditRole},
                                  {Key::dspName(), ItemRole::DspName},
                                  {Key::pageNr(), ItemRole::Page},
                                  {Key::id(), ItemRole::Id}};
    if (midi)
        attributes << Attribute{Key::avail(), ItemRole::Avail}
                   << Attribute{Key::colorOff(), ItemRole::ColorOff}
                   << Attribute{Key::colorOn(), ItemRole::ColorOn}
                   << Attribute{Key::blink(), ItemRole::Blink};
    return attributes << Attribute{Key::color(), Qt::DecorationRole};
}

/// Every cell of \a grid, row by row.
QList<Record> cellsof(const QAbstractItemModel& grid, bool midi)
{
    const auto attributes = cellattributes(midi);
    QList<Record> keys;
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < grid.columnCount(); ++column) {
            const QModelIndex cell = grid.index(row, column);
            Record key{{QStringLiteral("row"), QString::number(row)},
                       {QStringLiteral("column"), QString::number(column)}};
            for (const Attribute& attribute : attributes)
                key.insert(attribute.key, cell.data(attribute.role).toString());
            key.insert(Key::color(), cell.data(Qt::DecorationRole).value<QColor>().name());
            keys.append(key);
        }
    }
    return keys;
}

} // namespace

void MainWindow::on_actionSave_2_triggered()
{
    finishediting();
    if (showName.isEmpty()) {
        message(QStringLiteral("Nothing to Save. Load a Show"));
        return;
    }
    const bool midi = ui->radio_outputmidi->isChecked();
    if (midi ? isMIDIempty() : isVDJempty()) {
        message(QStringLiteral("Nothing to Save. Pads are empty"));
        return;
    }
    const QString path =
        QFileDialog::getSaveFileName(this, QStringLiteral("Save your Lumipad Project"), projectsPath,
                                     projectfilter(), nullptr, QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty())
        return;
    if (QFileInfo::exists(path) && !confirmoverwrite(QStringLiteral("Project ") + QFileInfo(path).baseName() +
                                                     QStringLiteral(" already exists.")))
        return;
    if (midi)
        savemidiproject(path);
    else
        savepadsproject(path);
}

void MainWindow::savepadsproject(const QString& path)
{
    saveproject(path,
                {{Key::type(), QStringLiteral("pads")},
                 {QStringLiteral("layout"),
                  ui->radioButton_16pads->isChecked() ? QStringLiteral("1") : QStringLiteral("0")},
                 {QStringLiteral("banks"), banks.join(QLatin1Char(','))}},
                cellsof(*vdjModel, false));
}

void MainWindow::savemidiproject(const QString& path)
{
    const Record device = devices.value(ui->devicescombo->currentIndex());
    saveproject(path,
                {{Key::type(), QStringLiteral("midi")},
                 {QStringLiteral("deviceid"), device.value(Key::device())},
                 {QStringLiteral("switch"),
                  QString::number(switchPad.at(0)) + QLatin1Char(',') + QString::number(switchPad.at(1))},
                 {QStringLiteral("offcolor"), QString::number(ui->combo_offcolor->currentIndex())},
                 {QStringLiteral("oncolor"), QString::number(ui->combo_oncolor->currentIndex())}},
                cellsof(*controllerModel, true));
}

/// Completes \a head by what both kinds of projects hold, writes the file and says how that went.
void MainWindow::saveproject(const QString& path, Record head, const QList<Record>& keys)
{
    head.insert(QStringLiteral("show"), iniPath);
    head.insert(QStringLiteral("showname"), showName);
    head.insert(QStringLiteral("export"), ui->padsname->text());
    const bool saved = writetextfile(path, projectxml({{head}, keys}));
    message(QStringLiteral("Project ") + QFileInfo(path).baseName() +
            (saved ? QStringLiteral(" is saved.") : QStringLiteral(" was not saved.")));
}

void MainWindow::on_actionLoad_Project_triggered()
{
    if (!showName.isEmpty() && !projectempty()) {
        const auto answer = showmessage(
            messageBoxStyle,
            QStringLiteral("Are you sure you want to load a Project before saving current ?"), QString(),
            QMessageBox::Yes | QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Cancel);
        if (answer == QMessageBox::Save)
            on_actionSave_2_triggered();
        else if (answer != QMessageBox::Yes)
            return;
    }
    if (!loadproject())
        message(QStringLiteral("Failed to load the Project's Show."));
}

bool MainWindow::loadproject()
{
    const QString path = QFileDialog::getOpenFileName(this, QStringLiteral("Select a Lumipad Project"),
                                                      projectsPath, projectfilter());
    const auto text = readregularfile(path, maxXmlSize);
    if (!text)
        return false;
    const Project project = readproject(*text);
    for (const Record& head : project.projects) {
        if (!QFileInfo(head.value(QStringLiteral("show"))).isFile())
            return false;
    }
    for (const Record& head : project.projects)
        restoreproject(head);

    const Record last = project.projects.isEmpty() ? Record() : project.projects.constLast();
    const bool midi = last.value(Key::type()) == QLatin1String("midi");
    restorecells(midi ? static_cast<QAbstractItemModel*>(controllerModel) : vdjModel, project.keys, midi);
    if (midi) {
        ui->radio_outputmidi->setChecked(true);
        showmidilayout(midiWindowWidth);
    } else {
        ui->radio_outputpage->setChecked(true);
        showpadslayout();
        ui->bankcombo->setCurrentIndex(0);
        showbank(0);
        const bool sixteen = last.value(QStringLiteral("layout")) == QLatin1String("1");
        (sixteen ? ui->radioButton_16pads : ui->radioButton_8pads)->setChecked(true);
        ui->vdjlistview->setColumnHidden(1, !sixteen);
    }
    ui->vdjlistview->viewport()->update();
    ui->tablecontroller->viewport()->update();
    return true;
}

/// Reads the show of a project and puts back everything but the cells.
void MainWindow::restoreproject(const Record& head)
{
    // A show that exists but cannot be read leaves an empty list and empty grids, not those of another show.
    cleanDMX();
    cleanVDJ();
    cleanMIDI();
    initpadlist();
    resetbanks();
    showName = head.value(QStringLiteral("showname"));
    loadshowname(head.value(QStringLiteral("show")));

    const QString names = head.value(QStringLiteral("banks"));
    if (!names.isEmpty())
        banks = names.split(QLatin1Char(','));
    const QStringList cell = head.value(QStringLiteral("switch")).split(QLatin1Char(','));
    switchPad = cell.size() < 2 ? QList<int>{-1, -1} : QList<int>{cell.at(0).toInt(), cell.at(1).toInt()};
    ui->padsname->setText(head.value(QStringLiteral("export")));

    const QString device = head.value(QStringLiteral("deviceid"));
    if (!device.isEmpty() && deviceinlist(device))
        ui->devicescombo->setCurrentIndex(getdeviceindex(device));
    const QString offcolor = head.value(QStringLiteral("offcolor"));
    if (!offcolor.isEmpty())
        ui->combo_offcolor->setCurrentIndex(offcolor.toInt());
    const QString oncolor = head.value(QStringLiteral("oncolor"));
    if (!oncolor.isEmpty())
        ui->combo_oncolor->setCurrentIndex(oncolor.toInt());
}

/// Puts the cells of a project into \a grid; keys outside the grid are passed over.
void MainWindow::restorecells(QAbstractItemModel* grid, const QList<Record>& keys, bool midi)
{
    const auto attributes = cellattributes(midi);
    for (const Record& key : keys) {
        const int row = key.value(QStringLiteral("row")).toInt();
        const QModelIndex cell = grid->index(row, key.value(QStringLiteral("column")).toInt());
        for (const Attribute& attribute : attributes)
            grid->setData(cell, key.value(attribute.key), attribute.role);
        CheckChanged(key.value(Key::id()).toInt(), row);
    }
}
