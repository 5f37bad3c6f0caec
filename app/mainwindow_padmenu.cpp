// Editing the cells of the controller grid: colours, blink, the switch pad, removing and cleaning.

#include "mainwindow.h"

#include "controller.h"
#include "devices.h"
#include "itemroles.h"
#include "mymodel.h"
#include "occupied.h"
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
    connect(menu, &QMenu::aboutToHide, this, [this, menu] {
        usedMenu = menu;
        QMetaObject::invokeMethod(this, "dropusedmenu", Qt::QueuedConnection);
    });
    menu->setStyleSheet(Style::menu());
    return menu;
}

/// Deletes the menu that was used last, unless it is still at work: what was chosen in it may run an event
/// loop.
void MainWindow::dropusedmenu()
{
    if (!menuAtWork)
        delete usedMenu;
}

void MainWindow::customMenuRequested(QPoint pos)
{
    const QModelIndex cell = ui->tablecontroller->indexAt(pos);
    if (!cell.isValid())
        return;
    menuIndex = cell;
    QMenu* menu = newmenu();
    if (show::holdsbutton(cell.data(ItemRole::Id).toString())) {
        menu->addAction(tr("Remove"), this, &MainWindow::ondeleteaction_triggered);
        menu->addSeparator();
        fillcolormenu(menu->addMenu(tr("Off Color")), ItemRole::ColorOff, &MainWindow::colorpadchange,
                      &MainWindow::rgbpadchange);
        fillcolormenu(menu->addMenu(tr("On Color")), ItemRole::ColorOn, &MainWindow::coloronpadchange,
                      &MainWindow::rgbonpadchange);
        QAction* blink = menu->addAction(tr("Blink"), this, &MainWindow::onblinkaction_triggered);
        blink->setCheckable(true);
        blink->setChecked(cell.data(ItemRole::Blink).toString() == QLatin1String("1"));
    }
    menu->addSeparator();
    QAction* toggle = menu->addAction(tr("Set as Switch"), this, &MainWindow::ontoggleaction_triggered);
    toggle->setCheckable(true);
    toggle->setChecked(switchPad == QList<int>{cell.row(), cell.column()});
    menu->popup(ui->tablecontroller->viewport()->mapToGlobal(pos));
}

/// Fills the submenu of one of the pad's own colours, which stands under \a role: palette colours are handed
/// to \a choose by their number, any other colour is left to \a ask.
void MainWindow::fillcolormenu(QMenu* menu, int role, void (MainWindow::*choose)(int),
                               void (MainWindow::*ask)())
{
    const auto entry = [this, choose](int n) { return [this, choose, n] { (this->*choose)(n); }; };
    const QString own = menuIndex.data(role).toString();
    const Record device = devices.value(currentDevice);
    menu->setStyleSheet(Style::menu());
    menu->addAction(choice(tr("default"), own.isEmpty()), this, entry(0));
    menu->addSeparator();
    if (controller::ledcolors(device) != controller::LedColors::Palette) {
        menu->addAction(swatch(own), tr("Select ..."), this, ask);
        return;
    }
    const QStringList colors = controller::palette(device);
    for (int i = 0; i < colors.size(); ++i) {
        const QString& color = colors.at(i);
        menu->addAction(swatch(color), choice(color, color == own), this, entry(i + 1));
    }
}

/// The cells that an entry of the menu applies to: the selected ones. A cell that the device does not have
/// cannot be selected; its menu is for that cell alone.
QModelIndexList MainWindow::menucells() const
{
    if (menuIndex.isValid() && !menuIndex.flags().testFlag(Qt::ItemIsEnabled))
        return {menuIndex};
    return ui->tablecontroller->selectionModel()->selectedIndexes();
}

/// Writes \a value into every cell that the menu applies to.
void MainWindow::setpads(int role, const QString& value)
{
    const app::History::Step step(history.get());
    const QModelIndexList cells = menucells();
    for (const QModelIndex& cell : cells)
        controllerModel->setData(cell, value, role);
}

void MainWindow::setpadcolor(int role, int n)
{
    setpads(role, n < 1 ? QString() : controller::palette(devices.value(currentDevice)).value(n - 1));
}

void MainWindow::colorpadchange(int n) { setpadcolor(ItemRole::ColorOff, n); }

void MainWindow::coloronpadchange(int n) { setpadcolor(ItemRole::ColorOn, n); }

void MainWindow::askpadcolor(int role)
{
    const QColor current(menuIndex.data(role).toString());
    menuAtWork = true;
    const QColor color = QColorDialog::getColor(current, this, tr("Choose a Color"));
    menuAtWork = false;
    QMetaObject::invokeMethod(this, "dropusedmenu", Qt::QueuedConnection);
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
    const app::History::Step step(history.get());
    removepads(outputs.at(MidiOutput), menucells());
    focusgrid(outputs.at(MidiOutput));
}

void MainWindow::ondeletemidiaction_triggered(int row, int col)
{
    const app::History::Step step(history.get());
    removepads(outputs.at(MidiOutput), {controllerModel->index(row, col)});
}

void MainWindow::ontoggleaction_triggered()
{
    if (!menuIndex.isValid())
        return;
    const app::History::Step step(history.get());
    const QList<int> cell{menuIndex.row(), menuIndex.column()};
    const QList<int> former = switchPad;
    // A former switch becomes an ordinary pad; without one this is a cell outside the grid.
    ondeletemidiaction_triggered(former.at(0), former.at(1));
    if (former == cell) {
        switchPad = {-1, -1};
    } else {
        ondeletemidiaction_triggered(cell.at(0), cell.at(1));
        controller::makeswitch(controllerModel, menuIndex);
        switchPad = cell;
    }
    focusgrid(outputs.at(MidiOutput));
}

void MainWindow::on_cleanmidi_button_clicked()
{
    finishediting();
    const app::History::Step step(history.get());
    controller::cleancells(controllerModel, devices.value(currentDevice));
    show::markused(dmxModel, &buttons, {});
    ui->dmxlistview->setFocus();
}
