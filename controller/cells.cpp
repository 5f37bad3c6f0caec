#include "cells.h"

#include "midikeys.h"
#include "storedtexts.h"

namespace controller {

namespace {

/// Whether a side of \a count buttons has one at \a line: they start at the line of the first pad.
bool sidehas(int line, const QString& count)
{
    return line >= Grid::FirstPad && line - Grid::FirstPad < count.toInt();
}

bool isavailable(int row, int col, const Record& device)
{
    if (!Grid::contains(row, col) || Grid::isspacer(row) || Grid::isspacer(col))
        return false;
    // Rows before columns: in the corners (0, 11) and (11, 11) the top and bottom sides decide.
    if (row == Grid::LastSide)
        return sidehas(col, device.value(Key::bottom()));
    if (row == Grid::FirstSide)
        return sidehas(col, device.value(Key::top()));
    if (col == Grid::LastSide)
        return sidehas(row, device.value(Key::right()));
    if (col == Grid::FirstSide)
        return sidehas(row, device.value(Key::left()));
    return true;
}

} // namespace

QString padtext(int row, int col)
{
    const bool sidecolumn = col == Grid::FirstSide || col == Grid::LastSide;
    const bool siderow = row == Grid::FirstSide || row == Grid::LastSide;
    if (!Grid::contains(row, col) || Grid::isspacer(row) || Grid::isspacer(col) || (siderow && sidecolumn))
        return QLatin1String("");
    if (row == Grid::FirstSide)
        return Stored::top(col - 1);
    if (row == Grid::LastSide)
        return Stored::bottom(col - 1);
    if (col == Grid::FirstSide)
        return Stored::left(row - 1);
    if (col == Grid::LastSide)
        return Stored::right(row - 1);
    return Stored::pad(Grid::PadsPerLine * (row - Grid::FirstPad) + col - Grid::FirstPad + 1);
}

QString padavail(int row, int col, const Record& device)
{
    return isavailable(row, col, device) ? QStringLiteral("1") : QStringLiteral("0");
}

} // namespace controller
