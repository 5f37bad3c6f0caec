// The MIDI side: device and mapping choice, the controller grid's shape, and the export of the mapper.

#include "mainwindow.h"

#include "cells.h"
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

namespace {

void setitemsizes(QComboBox* combo)
{
    for (int item = 0; item < combo->count(); ++item)
        combo->setItemData(item, QSize(25, 25), Qt::SizeHintRole);
}

/// Offers \a colors with a swatch each, and selects the one that the number \a current names, if any.
void offercolors(QComboBox* combo, const QStringList& colors, const QString& current)
{
    combo->clear();
    combo->addItems(colors);
    setitemsizes(combo);
    const int side = combo->style()->pixelMetric(QStyle::PM_SmallIconSize);
    QPixmap swatch(side, side);
    for (int item = 0; item < colors.size(); ++item) {
        swatch.fill(QColor(colors.at(item)));
        combo->setItemData(item, swatch, Qt::DecorationRole);
    }
    combo->setCurrentIndex(current.toInt());
    combo->setIconSize(QSize(20, 20));
}

} // namespace

void MainWindow::readdefaultmappers()
{
    const DeviceLists lists = ::readdefaultmappers(QStringLiteral(":/mappings/Mappings"));
    devices = lists.devices;
    mappers = lists.mappers;
    ui->devicescombo->clear();
    for (const Record& device : qAsConst(devices))
        ui->devicescombo->addItem(device.value(Key::name()));
    setitemsizes(ui->devicescombo);
}

void MainWindow::readmappers() { mappers.append(::readmappers(mappersPath, devices)); }

void MainWindow::updatemidicombo(int device)
{
    const Record record = devices.value(device);
    currentDevice = device;
    currentDeviceId = record.value(Key::device());
    ui->mididevices->clear();
    for (const Record& mapper : qAsConst(mappers)) {
        if (mapper.value(Key::device()) == currentDeviceId)
            ui->mididevices->addItem(mapper.value(Key::name()));
    }
    setitemsizes(ui->mididevices);

    ui->groupBox_colors->setHidden(isfullrgb(record));
    if (isfullrgb(record)) {
        ui->label_10->setText(QStringLiteral("Colors : Device has RGB Leds."));
        return;
    }
    ui->label_10->setText(QStringLiteral("Default Colors"));
    offercolors(ui->combo_offcolor, ::palette(record), record.value(Key::off()));
    offercolors(ui->combo_oncolor, ::palette(record), record.value(Key::on()));
}

void MainWindow::on_devicescombo_currentIndexChanged(int index)
{
    updatemidicombo(index);
    updatelayout();
}

int MainWindow::getdeviceindex(const QString& device) { return ::getdeviceindex(devices, device); }

bool MainWindow::deviceinlist(const QString& device) { return getdeviceindex(device) >= 0; }

QString MainWindow::getdeviceoffcolor(int device) { return palettecolor(devices.value(device), Key::off()); }

QString MainWindow::getdeviceoncolor(int device) { return palettecolor(devices.value(device), Key::on()); }

int MainWindow::getmapperid(const QString& device, int n) { return ::getmapperid(mappers, device, n); }

QString MainWindow::getpadtext(int row, int col) { return padtext(row, col); }

QString MainWindow::getpadavail(int row, int col) { return padavail(row, col, devices.value(currentDevice)); }

void MainWindow::updatelayout()
{
    updateavail(controllerModel, devices.value(currentDevice));
    sizecells();
    ui->tablecontroller->setFocus();
    ui->tablecontroller->viewport()->update();
}

/// Gives the grid's lines their sizes: the spacers between the pads and the sides are thin.
void MainWindow::sizecells()
{
    for (int line = 0; line < Grid::Lines; ++line) {
        ui->tablecontroller->setColumnWidth(line, Grid::isspacer(line) ? 5 : 95);
        ui->tablecontroller->setRowHeight(line, Grid::isspacer(line) ? 5 : 30);
    }
}

bool MainWindow::isMIDIempty() { return gridempty(*controllerModel); }

void MainWindow::getkeynames(const QString& layoutPath, const QString& mapperPath)
{
    keyList = ::getkeynames(layoutPath, mapperPath);
}

QString MainWindow::xmlparse(const QString& text) { return ::xmlparse(text); }

QString MainWindow::removeos2l(const QString& action) { return ::removeos2l(action); }

bool MainWindow::exportmapping()
{
    const Record device = devices.value(ui->devicescombo->currentIndex());
    const int choice = ui->mididevices->currentIndex();
    const int mapper = getmapperid(device.value(Key::device()), choice);
    const QString name = device.value(Key::name());
    const QString padsname = ui->padsname->text();
    getkeynames(device.value(Key::path()), mappers.value(mapper).value(Key::path()));

    Mapping mapping;
    mapping.device = device.value(Key::device());
    mapping.date = QDate::currentDate();
    // The first choice of every device is "Simple OS2L mapping".
    mapping.combined = choice > 0;
    mapping.fullRgb = isfullrgb(device);
    if (!mapping.fullRgb) {
        mapping.defaultOff = ::palette(device).value(ui->combo_offcolor->currentIndex());
        mapping.defaultOn = ::palette(device).value(ui->combo_oncolor->currentIndex());
    }
    mapping.switchRow = switchPad.at(0);
    mapping.switchColumn = switchPad.at(1);
    mapping.keys = keyList;
    mapping.pads = mapperpads(*controllerModel);

    const QString title = name + QStringLiteral(" - ") + padsname;
    const QString path = mappersPath + QLatin1Char('/') + title + QStringLiteral(" mapping.xml");
    if (QFileInfo::exists(path) && !confirmoverwrite(title + QStringLiteral(" mapping already exists.")))
        return false;
    writetextfile(path, mapperxml(mapping));
    message(QStringLiteral("Mapping ") + padsname + QStringLiteral(" for ") + name +
                QStringLiteral(" is created."),
            QStringLiteral("Select it from Controllers tab of VirtualDJ Settings."));
    return true;
}
