// The user at the controller grid.

#include "look.h"
#include "user.h"

#include <QFileInfo>

namespace {

// The context menu of a cell that holds a Live Button, and of one that holds none.
const char* const offColor = "Off Color";
const char* const onColor = "On Color";
const char* const blink = "Blink";
const char* const setAsSwitch = "Set as Switch";

QStringList occupiedmenu() { return {"Remove", "-", offColor, onColor, blink, "-", setAsSwitch}; }
QStringList emptymenu() { return {setAsSwitch}; }

/// The menu of a cell's colours, which go by their numbers here.
QStringList palettemenu(int count)
{
    QStringList entries = {"default", "-"};
    for (int number = 1; number <= count; ++number)
        entries.append(QString::number(number));
    return entries;
}

} // namespace

QRect User::cellrect(Cell cell)
{
    const QRect table = rect(QStringLiteral("tablecontroller"));
    if (!m_cells.complete()) {
        // The Clean button lies over the first cell.
        const QRect covered = rect(QStringLiteral("cleanmidi_button")).translated(-table.topLeft());
        await(
            [&] {
                m_cells = CellGrid(screen(table), covered);
                return m_cells.complete();
            },
            QStringLiteral("The lines of the controller grid cannot be seen."));
    }
    return m_cells.rect(cell).translated(table.topLeft());
}

QPoint User::cell(Cell cell) { return cellrect(cell).topLeft() + holdPoint; }

bool User::cellis(Cell cell, QRgb color)
{
    // The strip at the right side is free of text.
    return this->color(cellrect(cell).topRight() + QPoint(-2, 3)) == color;
}

void User::selectcells(const QVector<Cell>& cells)
{
    pointer().click(cell(cells.constFirst()));
    settle();
    for (int i = 1; i < cells.size(); ++i) {
        keyboard().press(QStringLiteral("Ctrl"));
        pointer().click(cell(cells.at(i)));
        keyboard().release(QStringLiteral("Ctrl"));
        settle();
        await(
            [&] { return cellis(cells.at(i), Look::cellSelected); },
            QStringLiteral("The cell %1, %2 is not selected.").arg(cells.at(i).row).arg(cells.at(i).column));
    }
}

void User::opencellmenu(Cell cell)
{
    pointer().click(this->cell(cell), MouseButton::Right);
    awaitmenus(1);
}

/// Opens the menu of one of the cell's own colours.
void User::opencolormenu(Cell cell, PadColor which)
{
    opencellmenu(cell);
    clickmenu(1, occupiedmenu(), which == PadColor::Off ? offColor : onColor);
}

void User::setcolor(Cell cell, PadColor which, int number, int count)
{
    opencolormenu(cell, which);
    clickmenu(2, palettemenu(count), QString::number(number));
    awaitmenusgone();
}

void User::askcolor(Cell cell, PadColor which, const QString& color)
{
    opencolormenu(cell, which);
    clickmenu(2, {"default", "-", "Select ..."}, "Select ...");
    const ScreenWindow dialog = awaitdialog(QStringLiteral("Choose a Color"));
    // The mouse goes into the dialog, as it would to its buttons: a window that the mouse has not left since
    // the menu was open takes no notice of it until the next click.
    const QRect& area = dialog.geometry;
    pointer().move({area.center().x(), area.bottom() - 8});
    // Alt+H leads to the edit of the HTML notation.
    keyboard().key(QStringLiteral("Alt+H"));
    keyboard().key(QStringLiteral("Ctrl+A"));
    keyboard().type(color);
    keyboard().key(QStringLiteral("Return"));
    awaitalone(QStringLiteral("The colour dialog"));
    focusmain();
    settle();
}

void User::toggleblink(Cell cell)
{
    opencellmenu(cell);
    clickmenu(1, occupiedmenu(), blink);
    awaitmenusgone();
}

void User::setswitch(Cell cell)
{
    opencellmenu(cell);
    clickmenu(1, emptymenu(), setAsSwitch);
    awaitmenusgone();
    await([&] { return cellis(cell, Look::cellUnusable); },
          QStringLiteral("The cell %1, %2 did not become the switch.").arg(cell.row).arg(cell.column));
}

void User::unsetswitch(Cell cell)
{
    opencellmenu(cell);
    clickmenu(1, emptymenu(), setAsSwitch);
    awaitmenusgone();
    await([&] { return !cellis(cell, Look::cellUnusable); },
          QStringLiteral("The cell %1, %2 is still the switch.").arg(cell.row).arg(cell.column));
}

void User::exportmapper(const QString& device, const QString& name, Earlier earlier)
{
    click(QStringLiteral("pushButton_2"));
    confirm(earlier);
    awaitbox(QStringLiteral("The message that the mapping is created"), 1);
    answerbox(1);
    if (QFileInfo(home().mapper(device, name)).size() == 0)
        giveup(QStringLiteral("The mapping %1 for %2 was not written.").arg(name, device));
}
