// Keys: those of the commands, and all that a mouse does with Live Buttons and pads.

#include "mainwindow.h"

#include "cells.h"
#include "controller.h"
#include "itemroles.h"
#include "mymodel.h"
#include "occupied.h"
#include "ui_mainwindow.h"
#include "vdjmodel.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>

namespace {

/// Whether \a index is a cell that \a view does not hide: pads of other banks and of the second column, and
/// Live Buttons of other pages, are hidden.
bool isshown(const QTableView* view, const QModelIndex& index)
{
    return index.isValid() && !view->isRowHidden(index.row()) && !view->isColumnHidden(index.column());
}

/// Whether a drop on \a pad loses nothing.
bool isfree(const QModelIndex& pad)
{
    return pad.flags().testFlag(Qt::ItemIsDropEnabled) &&
           !show::holdsbutton(pad.data(ItemRole::Id).toString()) &&
           !show::haspage(pad.data(ItemRole::Page).toString());
}

/// Does what a mouse does that drags \a source and drops it on \a target. False when the drop is refused.
bool dragto(const QModelIndex& source, const QModelIndex& target, QAbstractItemModel* model)
{
    if (!source.flags().testFlag(Qt::ItemIsDragEnabled) || !target.flags().testFlag(Qt::ItemIsDropEnabled))
        return false;
    const std::unique_ptr<QMimeData> data(source.model()->mimeData({source}));
    return model->dropMimeData(data.get(), Qt::CopyAction, -1, -1, target);
}

bool isnavigation(int key)
{
    static const QList<int> keys{Qt::Key_Up,   Qt::Key_Down, Qt::Key_Left,   Qt::Key_Right,
                                 Qt::Key_Home, Qt::Key_End,  Qt::Key_PageUp, Qt::Key_PageDown};
    return keys.contains(key);
}

/// The step of an arrow key from a cell to the next, in columns and rows; none for every other key.
QPoint arrowstep(const QTableView* view, const QKeyEvent& key)
{
    if ((key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) != Qt::NoModifier)
        return {};
    const int forward = view->isRightToLeft() ? -1 : 1;
    switch (key.key()) {
    case Qt::Key_Left:
        return {-forward, 0};
    case Qt::Key_Right:
        return {forward, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

bool isenter(const QKeyEvent& key)
{
    const Qt::KeyboardModifiers others = key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    return (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) && others == Qt::NoModifier;
}

bool isremove(const QKeyEvent& key)
{
    // The toolkit knows a standard key for Backspace on a Mac only.
    const bool backspace = key.key() == Qt::Key_Backspace && key.modifiers() == Qt::NoModifier;
    return key.matches(QKeySequence::Delete) || backspace;
}

/// Not every window system makes a request for a menu out of Shift+F10. One that is made of a key all the
/// same finds the menu open, which takes no notice.
bool ismenukey(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Menu || (key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier);
}

} // namespace

/// The keys a person expects; none for "New Project", which asks nothing. The menu shows those of its
/// entries. Undo and Redo have no entry.
void MainWindow::setupkeys()
{
    ui->actionNew->setShortcuts(QKeySequence::Open);
    ui->actionLoad_Project->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+O")));
    ui->actionSave_2->setShortcuts(QKeySequence::Save);
    // Ctrl+E moves the cursor to the end of a line edit.
    ui->actionExport->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+E")));
    ui->actionExit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    ui->actionManual->setShortcut(QKeySequence(Qt::Key_F1));
    addAction(ui->actionManual); // it stands in no menu

    const auto addkey = [this](QKeySequence::StandardKey keys, void (MainWindow::*command)()) {
        auto* action = new QAction(ui->centralWidget);
        action->setShortcuts(keys);
        connect(action, &QAction::triggered, this, command);
        ui->centralWidget->addAction(action);
    };
    addkey(QKeySequence::Undo, &MainWindow::undo);
    addkey(QKeySequence::Redo, &MainWindow::redo);

    for (QTableView* view : {ui->dmxlistview, ui->vdjlistview, ui->tablecontroller})
        view->installEventFilter(this);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    auto* view = qobject_cast<QTableView*>(watched);
    if (view && event->type() == QEvent::KeyPress) {
        if (keypressed(view, *static_cast<QKeyEvent*>(event)))
            return true;
    } else if (view && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
            entercells(view);
    } else if (view && event->type() == QEvent::ContextMenu &&
               static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
        // It comes with the middle of the view, where any cell may be.
        opencellmenu(view);
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

/// Gives a list that is entered by the keyboard a current cell, if none that it shows is current: the arrow
/// keys start there. The first cell of the controller grid is no pad, from which they would not get away.
void MainWindow::entercells(QTableView* view)
{
    if (isshown(view, view->currentIndex()))
        return;
    QModelIndexList cells;
    if (view == chosenoutput().view) {
        cells = chosenoutput().places();
    } else {
        for (int row = 0; row < view->model()->rowCount(); ++row)
            cells.append(view->model()->index(row, 0));
    }
    const auto first = std::find_if(cells.cbegin(), cells.cend(), [view](const QModelIndex& cell) {
        return isshown(view, cell) && cell.flags().testFlag(Qt::ItemIsEnabled);
    });
    if (first != cells.cend())
        view->setCurrentIndex(*first);
}

/// Does what \a key means in \a view. False when that is left to the view itself.
bool MainWindow::keypressed(QTableView* view, const QKeyEvent& key)
{
    // Behind the shown grid: nothing may be edited that cannot be seen.
    const bool islist = view == ui->dmxlistview;
    if (!islist && view != chosenoutput().view)
        return key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab;
    // A text that is edited in place has all keys for itself.
    if (view->isPersistentEditorOpen(view->currentIndex()))
        return false;
    if (!isshown(view, view->currentIndex())) {
        view->selectionModel()->clearCurrentIndex();
        if (isnavigation(key.key())) {
            entercells(view);
            return true;
        }
    }
    if (key.matches(QKeySequence::Copy)) {
        copybutton(view);
        return false; // the view puts the name on the system's clipboard, as text
    }
    if (!islist)
        return gridkeypressed(key);
    if (isenter(key))
        placenext();
    return isenter(key);
}

/// The same for the keys of the shown grid alone.
bool MainWindow::gridkeypressed(const QKeyEvent& key)
{
    if (chosenoutput().view == ui->tablecontroller && steptocell(arrowstep(ui->tablecontroller, key)))
        return true;
    if (key.matches(QKeySequence::Cut))
        cutpad();
    else if (key.matches(QKeySequence::Paste))
        pastebutton();
    else if (isremove(key))
        removeselected();
    else
        return ismenukey(key) && opencellmenu(chosenoutput().view);
    return true;
}

/// Makes the next cell in the direction of an arrow key current, if the view itself would pass over it though
/// its menu does something: the switch, and a Live Button where the device has no pad. False when the next
/// cell is one that the view finds too.
bool MainWindow::steptocell(const QPoint& step)
{
    const QModelIndex from = ui->tablecontroller->currentIndex();
    if (step.isNull() || !from.isValid())
        return false;
    QModelIndex cell = from;
    do {
        cell = controllerModel->index(cell.row() + step.y(), cell.column() + step.x());
        if (!cell.isValid() || cell.flags().testFlag(Qt::ItemIsEnabled))
            return false;
    } while (!show::holdsbutton(cell.data(ItemRole::Id).toString()) &&
             switchPad != QList<int>{cell.row(), cell.column()});
    // It cannot be selected; what was shall not look as if it were meant.
    ui->tablecontroller->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::Clear);
    return true;
}

/// Opens the menu of the current cell. False for a view without menu or current cell.
bool MainWindow::opencellmenu(QTableView* view)
{
    const QModelIndex cell = view->currentIndex();
    if (view != chosenoutput().view || !isshown(view, cell))
        return false;
    // Its entries apply to the selected cells; a right click selects as well.
    if (!view->selectionModel()->isSelected(cell))
        view->setCurrentIndex(cell);
    view->scrollTo(cell);
    chosenoutput().openmenu(view->visualRect(cell).center());
    return true;
}

/// The pads of the shown bank, top to bottom, one column after the other.
QModelIndexList MainWindow::padplaces() const
{
    QModelIndexList places;
    for (int column = 0; column < vdjModel->columnCount(); ++column) {
        for (int row = 0; row < vdjModel->rowCount(); ++row) {
            const QModelIndex pad = vdjModel->index(row, column);
            if (isshown(ui->vdjlistview, pad))
                places.append(pad);
        }
    }
    return places;
}

/// The cells that the device has: the 64 pads row by row, then the side buttons above, left, right and below.
QModelIndexList MainWindow::cellplaces() const
{
    QModelIndexList places;
    const Record device = devices.value(currentDevice);
    const auto add = [&](int row, int column) {
        if (controller::padavail(row, column, device) != QLatin1String("0"))
            places.append(controllerModel->index(row, column));
    };
    constexpr int end = Grid::FirstPad + Grid::PadsPerLine;
    for (int row = Grid::FirstPad; row < end; ++row) {
        for (int column = Grid::FirstPad; column < end; ++column)
            add(row, column);
    }
    for (int column = Grid::FirstPad; column < end; ++column)
        add(Grid::FirstSide, column);
    for (int row = Grid::FirstPad; row < end; ++row)
        add(row, Grid::FirstSide);
    for (int row = Grid::FirstPad; row < end; ++row)
        add(row, Grid::LastSide);
    for (int column = Grid::FirstPad; column < end; ++column)
        add(Grid::LastSide, column);
    return places;
}

void MainWindow::placenext()
{
    QTableView* const list = ui->dmxlistview;
    const QModelIndex button = list->currentIndex();
    const OutputMode& output = chosenoutput();
    const QModelIndexList places = output.places();
    const auto pad = std::find_if(places.cbegin(), places.cend(), isfree);
    if (!isshown(list, button) || pad == places.cend() || !dragto(button, *pad, output.grid))
        return;
    // The controller grid takes the focus with every drop.
    list->setFocus();
    for (int row = button.row() + 1; row < dmxModel->rowCount(); ++row) {
        if (!list->isRowHidden(row)) {
            list->setCurrentIndex(dmxModel->index(row, 0));
            return;
        }
    }
}

void MainWindow::copybutton(QTableView* view)
{
    const QModelIndex cell = view->currentIndex();
    if (!isshown(view, cell))
        return;
    if (view == ui->dmxlistview) {
        taken = {cell, false, {}};
        return;
    }
    const QModelIndexList buttonsOfPad =
        dmxModel->match(dmxModel->index(0, 0), ItemRole::Id, cell.data(ItemRole::Id), 1, Qt::MatchExactly);
    if (!buttonsOfPad.isEmpty())
        taken = {buttonsOfPad.constFirst(), false, {}};
}

void MainWindow::cutpad()
{
    const QTableView* view = chosenoutput().view;
    const QModelIndex pad = view->currentIndex();
    if (isshown(view, pad) && pad.flags().testFlag(Qt::ItemIsDragEnabled))
        taken = {pad, true, pad.data(ItemRole::Id).toString()};
}

void MainWindow::pastebutton()
{
    const OutputMode& output = chosenoutput();
    const QModelIndex target = output.view->currentIndex();
    const QModelIndex source = taken.from;
    if (!isshown(output.view, target) || !source.isValid())
        return;
    // A mouse moves pads within what is shown only, and a pad that holds another Live Button by now is not
    // the one that was cut.
    if (taken.cut && (source.model() != output.grid || !isshown(output.view, source) ||
                      source.data(ItemRole::Id).toString() != taken.id))
        return;
    if (dragto(source, target, output.grid) && taken.cut)
        taken = Taken();
}

void MainWindow::removeselected()
{
    const OutputMode& output = chosenoutput();
    QModelIndexList pads = output.view->selectionModel()->selectedIndexes();
    // A cell that the device lacks cannot be selected, only be current.
    const QModelIndex current = output.view->currentIndex();
    if (current.isValid() && !current.flags().testFlag(Qt::ItemIsEnabled))
        pads = {current};
    const auto untouched = [&output](const QModelIndex& pad) {
        return !isshown(output.view, pad) || !show::holdsbutton(pad.data(ItemRole::Id).toString());
    };
    pads.erase(std::remove_if(pads.begin(), pads.end(), untouched), pads.end());
    if (pads.isEmpty())
        return;
    const app::History::Step step(history.get());
    removepads(output, pads);
    focusgrid(output);
}
