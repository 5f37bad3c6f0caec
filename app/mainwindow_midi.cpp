// The MIDI side: device and mapping choice, the controller grid's shape, and the export of the mapper.

#include "mainwindow.h"

#include "cells.h"
#include "comboitems.h"
#include "controller.h"
#include "devices.h"
#include "keylist.h"
#include "mapperwriter.h"
#include "os2laction.h"
#include "textfile.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"

#include <QFileInfo>
#include <QStyle>

#include <utility>

namespace {

constexpr int itemSide = 25; // of a row in a popup list, in pixels

/// Offers \a colors with a swatch each, and selects the one of the index \a current, if any.
void offercolors(QComboBox* combo, const QStringList& colors, int current)
{
    combo->clear();
    combo->addItems(colors);
    setitemsizes(combo, itemSide);
    const int side = combo->style()->pixelMetric(QStyle::PM_SmallIconSize);
    QPixmap swatch(side, side);
    for (int item = 0; item < colors.size(); ++item) {
        swatch.fill(QColor(colors.at(item)));
        combo->setItemData(item, swatch, Qt::DecorationRole);
    }
    combo->setCurrentIndex(current);
    combo->setIconSize(QSize(20, 20));
}

} // namespace

void MainWindow::readdefaultmappers()
{
    const controller::DeviceLists lists =
        controller::readdefaultmappers(QStringLiteral(":/mappings/Mappings"));
    devices = lists.devices;
    mappers = lists.mappers;
    ui->devicescombo->clear();
    for (const Record& device : std::as_const(devices))
        ui->devicescombo->addItem(device.value(Key::name()));
    setitemsizes(ui->devicescombo, itemSide);
}

void MainWindow::readmappers() { mappers.append(controller::readmappers(mappersPath, devices)); }

void MainWindow::updatemidicombo(int device)
{
    const Record record = devices.value(device);
    currentDevice = device;
    currentDeviceId = record.value(Key::device());
    ui->mididevices->clear();
    for (const Record& mapper : std::as_const(mappers)) {
        if (mapper.value(Key::device()) == currentDeviceId)
            ui->mididevices->addItem(mapper.value(Key::name()));
    }
    setitemsizes(ui->mididevices, itemSide);

    const bool anycolor = controller::ledcolors(record) == controller::LedColors::Any;
    // To show what is shown already would have the hidden side of the window styled at the start.
    if (ui->groupBox_colors->isHidden() != anycolor)
        ui->groupBox_colors->setHidden(anycolor);
    if (anycolor) {
        ui->label_10->setText(tr("Colors : Device has RGB Leds."));
        return;
    }
    ui->label_10->setText(tr("Default Colors"));
    offerpalette(controller::palette(record), record.value(Key::off()).toInt(),
                 record.value(Key::on()).toInt());
}

/// Offers the colours of \a palette as default colours, with the indexes \a off and \a on chosen.
void MainWindow::offerpalette(const QStringList& palette, int off, int on)
{
    offercolors(ui->combo_offcolor, palette, off);
    offercolors(ui->combo_oncolor, palette, on);
}

void MainWindow::on_devicescombo_currentIndexChanged(int index)
{
    const app::History::Step step(history.get());
    updatemidicombo(index);
    updatelayout();
}

int MainWindow::getdeviceindex(const QString& device) { return controller::getdeviceindex(devices, device); }

bool MainWindow::deviceinlist(const QString& device) { return getdeviceindex(device) >= 0; }

QString MainWindow::getdeviceoffcolor(int device)
{
    return controller::palettecolor(devices.value(device), Key::off());
}

QString MainWindow::getdeviceoncolor(int device)
{
    return controller::palettecolor(devices.value(device), Key::on());
}

int MainWindow::getmapperid(const QString& device, int n)
{
    return controller::getmapperid(mappers, device, n);
}

QString MainWindow::getpadtext(int row, int col) { return controller::padtext(row, col); }

QString MainWindow::getpadavail(int row, int col)
{
    return controller::padavail(row, col, devices.value(currentDevice));
}

void MainWindow::updatelayout()
{
    controller::updateavail(controllerModel, devices.value(currentDevice));
    sizecells();
    ui->tablecontroller->setFocus();
}

/// Gives the grid's lines their sizes: the spacers between the pads and the sides are thin.
void MainWindow::sizecells()
{
    for (int line = 0; line < Grid::Lines; ++line) {
        ui->tablecontroller->setColumnWidth(line, Grid::isspacer(line) ? Grid::SpacerSize : Grid::CellWidth);
        ui->tablecontroller->setRowHeight(line, Grid::isspacer(line) ? Grid::SpacerSize : Grid::CellHeight);
    }
}

bool MainWindow::isMIDIempty() { return show::gridempty(*controllerModel); }

void MainWindow::getkeynames(const QString& layoutPath, const QString& mapperPath)
{
    keyList = controller::getkeynames(layoutPath, mapperPath);
}

QString MainWindow::xmlparse(const QString& text) { return controller::xmlparse(text); }

QString MainWindow::removeos2l(const QString& action) { return controller::removeos2l(action); }

bool MainWindow::exportmapping()
{
    const Record device = devices.value(ui->devicescombo->currentIndex());
    const int choice = ui->mididevices->currentIndex();
    const int mapper = getmapperid(device.value(Key::device()), choice);
    const QString name = device.value(Key::name());
    const QString padsname = ui->padsname->text();
    getkeynames(device.value(Key::path()), mappers.value(mapper).value(Key::path()));

    controller::Mapping mapping;
    mapping.device = device.value(Key::device());
    mapping.date = QDate::currentDate();
    // The first choice of every device is "Simple OS2L mapping".
    mapping.combined = choice > 0;
    mapping.fullRgb = controller::ledcolors(device) == controller::LedColors::Any;
    if (!mapping.fullRgb) {
        const QStringList palette = controller::palette(device);
        mapping.defaultOff = palette.value(ui->combo_offcolor->currentIndex());
        mapping.defaultOn = palette.value(ui->combo_oncolor->currentIndex());
    }
    mapping.switchRow = switchPad.at(0);
    mapping.switchColumn = switchPad.at(1);
    mapping.keys = keyList;
    mapping.pads = controller::mapperpads(*controllerModel);

    const QString path = mappersPath + QLatin1Char('/') + name + QStringLiteral(" - ") + padsname +
                         QStringLiteral(" mapping.xml");
    if (QFileInfo::exists(path) &&
        !confirmoverwrite(tr("%1 - %2 mapping already exists.").arg(name, padsname)))
        return false;
    writetextfile(path, mapperxml(mapping));
    message(tr("Mapping %1 for %2 is created.").arg(padsname, name),
            tr("Select it from Controllers tab of VirtualDJ Settings."));
    return true;
}
