#pragma once

#include "record.h"

/// The controller grid: the face of a MIDI controller as cells. Lines (rows and columns alike) 0 and 11 hold
/// the side buttons, lines 2 to 9 the pads; lines 1 and 10 are thin spacers without controls.
namespace Grid {
constexpr int Lines = 12;
constexpr int FirstSide = 0;
constexpr int LastSide = 11;
constexpr int FirstPad = 2; ///< also the line of the first side button of each side
constexpr int PadsPerLine = 8;

// How large a cell is drawn, in pixels. The spacer lines are thin in their own direction.
constexpr int CellWidth = 95;
constexpr int CellHeight = 30;
constexpr int SpacerSize = 5;

/// Whether the cell is one of the 12 by 12.
constexpr bool contains(int row, int col) { return row >= 0 && row < Lines && col >= 0 && col < Lines; }

/// Whether the line (a row or a column) lies between the pads and a side.
constexpr bool isspacer(int line) { return line == 1 || line == 10; }
} // namespace Grid

namespace controller {

/// The label of a cell without a Live Button: "TOP 1" to "TOP 8", "LEFT 1", "RIGHT 1", "BOTTOM 1" and on for
/// the side buttons, "PAD 1" (top left) to "PAD 64", row by row. Empty for spacers, corners and cells
/// outside the grid.
QString padtext(int row, int col);

/// Whether the cell is a control of \a device: "1" or "0". Reads the device's numbers of side buttons (keys
/// `top`, `bottom`, `left`, `right`, decimal; no number reads as 0). The pads belong to every device, the
/// spacers and everything outside the grid to none.
QString padavail(int row, int col, const Record& device);

} // namespace controller
