#pragma once

#include "storedtexts.h"

/// The shape of a VirtualDJ pads page: 8 banks of 8 or 16 pads, held as 64 rows of 2 columns. The bank of a
/// row is row / 8; column 0 holds pads 1 to 8 of the bank, column 1 pads 9 to 16.
namespace padspage {

constexpr int bankCount = 8;
constexpr int rowsPerBank = 8;
constexpr int padRows = bankCount * rowsPerBank;
constexpr int padColumns = 2;

// How large a pad is drawn, in pixels.
constexpr int padWidth = 150;
constexpr int padHeight = 30;

/// What a pad is called that was never filled: its place in the bank.
inline QString freshname(int row, int column)
{
    return Stored::pad(row % rowsPerBank + 1 + column * rowsPerBank);
}

/// What a pad is called that lost its Live Button. The number comes from the row alone: a pad of the second
/// column is called 1 to 8 too.
inline QString emptiedname(int row) { return Stored::pad(row % rowsPerBank + 1); }

/// What a pad is called whose text was cleared, and what its tool tip calls it: the row of the whole grid,
/// whatever the bank and the column.
inline QString rowname(int row) { return Stored::pad(row + 1); }

} // namespace padspage
