// Editing the cells of the controller grid: colours, blink, the switch pad, removing and cleaning.

#include "mainwindow.h"

#include "controller.h"
#include "devices.h"
#include "itemroles.h"
#include "mymodel.h"
#include "styles.h"
#include "ui_mainwindow.h"
#include "usagemarks.h"

#include <QColorDialog>
#include <QMenu>

namespace {

QIcon swatch(const QString& color)
{
    QPixmap pixmap(10, 10);
    pixmap.fill(QColor(color));
    return pixmap;
}

/// A menu entry's text: the chosen one carries a check mark where the others have a blank.
QString choice(const QString& text, bool chosen)
{
    return (chosen ? QString::fromUtf8("\u2714") : QStringLiteral(" ")) + text;
}

} // namespace

/// A styled context menu that goes away with its last use.
QMenu* MainWindow::newmenu()
{
    auto* menu = new QMenu(this);
    connect(menu, &QMenu::aboutToHide, menu, &QObject::deleteLater);
    menu->setStyleSheet(Style::menu());
    return menu;
}

void MainWindow::customMenuRequested(QPoint pos)
{
    const QModelIndex cell = ui->tablecontroller->indexAt(pos);
    if (!cell.isValid())
        return;
    menuIndex = cell;
    // A cell that the device does not have cannot be selected; the menu must not reach what was selected
    // before.
    if (!cell.flags().testFlag(Qt::ItemIsEnabled))
        ui->tablecontroller->clearSelection();

    QMenu* menu = newmenu();
    if (cell.data(ItemRole::Id).toInt() >= 0) {
        menu->addAction(QStringLiteral("Remove"), this, &MainWindow::ondeleteaction_triggered);
        menu->addSeparator();
        fillcolormenu(menu->addMenu(QStringLiteral("Off Color")), ItemRole::ColorOff);
        fillcolormenu(menu->addMenu(QStringLiteral("On Color")), ItemRole::ColorOn);
        QAction* blink = menu->addAction(QStringLiteral("Blink"), this, &MainWindow::onblinkaction_triggered);
        blink->setCheckable(true);
        blink->setChecked(cell.data(ItemRole::Blink).toString() == QLatin1String("1"));
    }
    menu->addSeparator();
    QAction* toggle =
        menu->addAction(QStringLiteral("Set as Switch"), this, &MainWindow::ontoggleaction_triggered);
    toggle->setCheckable(true);
    toggle->setChecked(switchPad == QList<int>{cell.row(), cell.column()});
    menu->popup(ui->tablecontroller->viewport()->mapToGlobal(pos));
}

/// Fills the submenu of one of the pad's own colours, \a role ColorOff or ColorOn.
void MainWindow::fillcolormenu(QMenu* menu, int role)
{
    const QString own = menuIndex.data(role).toString();
    const Record device = devices.value(currentDevice);
    menu->setStyleSheet(Style::menu());
    menu->addAction(choice(QStringLiteral("default"), own.isEmpty()), this,
                    [this, role] { setpadcolor(role, 0); });
    menu->addSeparator();
    if (device.value(Key::fullRgb()) != QLatin1String("false")) {
        menu->addAction(swatch(own), QStringLiteral("Select ..."), this, [this, role] { askpadcolor(role); });
        return;
    }
    const QStringList colors = ::palette(device);
    for (int i = 0; i < colors.size(); ++i) {
        const QString& color = colors.at(i);
        menu->addAction(swatch(color), choice(color, color == own), this,
                        [this, role, i] { setpadcolor(role, i + 1); });
    }
}

/// Writes \a value into every selected cell.
void MainWindow::setpads(int role, const QString& value)
{
    const QModelIndexList cells = ui->tablecontroller->selectionModel()->selectedIndexes();
    for (const QModelIndex& cell : cells)
        controllerModel->setData(cell, value, role);
    ui->tablecontroller->viewport()->update();
}

void MainWindow::setpadcolor(int role, int n)
{
    setpads(role, n < 1 ? QString() : ::palette(devices.value(currentDevice)).value(n - 1));
}

void MainWindow::colorpadchange(int n) { setpadcolor(ItemRole::ColorOff, n); }

void MainWindow::coloronpadchange(int n) { setpadcolor(ItemRole::ColorOn, n); }

void MainWindow::askpadcolor(int role)
{
    const QColor current(menuIndex.data(role).toString());
    const QColor color = QColorDialog::getColor(current, this, QStringLiteral("Choose a Color"));
    if (color.isValid())
        setpads(role, color.name());
}

void MainWindow::rgbpadchange() { askpadcolor(ItemRole::ColorOff); }

void MainWindow::rgbonpadchange() { askpadcolor(ItemRole::ColorOn); }

void MainWindow::onblinkaction_triggered()
{
    const bool blinks = menuIndex.data(ItemRole::Blink).toString() == QLatin1String("1");
    setpads(ItemRole::Blink, blinks ? QString() : QStringLiteral("1"));
}

void MainWindow::ondeleteaction_triggered()
{
    const QModelIndexList cells = ui->tablecontroller->selectionModel()->selectedIndexes();
    for (const QModelIndex& cell : cells)
        emptycell(cell.row(), cell.column());
    focusgrid(ui->tablecontroller);
}

void MainWindow::ondeletemidiaction_triggered(int row, int col) { emptycell(row, col); }

/// Makes a cell an empty, usable pad and unmarks its Live Button if no other cell holds it. The pad's own
/// colours and blink stay for the next Live Button.
void MainWindow::emptycell(int row, int col)
{
    const QModelIndex cell = controllerModel->index(row, col);
    if (!cell.isValid())
        return;
    const int id = cell.data(ItemRole::Id).toInt();
    clearpad(controllerModel, cell, getpadtext(row, col), QStringLiteral("#000000"));
    controllerModel->setData(cell, QStringLiteral("1"), ItemRole::Avail);
    controllerModel->setData(cell, QStringLiteral("#ffffff"), Qt::ForegroundRole);
    if (countid(*controllerModel, controllerModel->columnCount(), id) == 0)
        unmark(dmxModel, &buttons, id);
}

void MainWindow::ontoggleaction_triggered()
{
    if (!menuIndex.isValid())
        return;
    const QList<int> cell{menuIndex.row(), menuIndex.column()};
    if (switchPad == cell) {
        switchPad = {-1, -1};
        emptycell(cell.at(0), cell.at(1));
    } else {
        // A former switch becomes an ordinary pad; without one this is a cell outside the grid.
        emptycell(switchPad.at(0), switchPad.at(1));
        makeswitch(cell.at(0), cell.at(1));
    }
    focusgrid(ui->tablecontroller);
}

void MainWindow::makeswitch(int row, int col)
{
    emptycell(row, col);
    const QModelIndex cell = controllerModel->index(row, col);
    controllerModel->setData(cell, QStringLiteral("SWITCH"), Qt::EditRole);
    controllerModel->setData(cell, QStringLiteral("SWITCH"), ItemRole::DspName);
    controllerModel->setData(cell, QStringLiteral("0"), ItemRole::Avail);
    controllerModel->setData(cell, QStringLiteral("green"), Qt::ForegroundRole);
    switchPad = {row, col};
}

void MainWindow::on_cleanmidi_button_clicked()
{
    for (int row = 0; row < controllerModel->rowCount(); ++row) {
        for (int col = 0; col < controllerModel->columnCount(); ++col) {
            const QModelIndex cell = controllerModel->index(row, col);
            const QString avail = getpadavail(row, col);
            // A cell that the device does not have keeps the colour that it had.
            const QString color = avail == QLatin1String("1")
                                      ? QStringLiteral("#000000")
                                      : cell.data(Qt::DecorationRole).value<QColor>().name();
            clearpad(controllerModel, cell, getpadtext(row, col), color);
            controllerModel->setData(cell, avail, ItemRole::Avail);
        }
    }
    markused(dmxModel, &buttons, {});
    ui->tablecontroller->viewport()->update();
    ui->dmxlistview->viewport()->update();
    ui->dmxlistview->setFocus();
}
