#pragma once

/// The shape of a VirtualDJ pads page: 8 banks of 8 or 16 pads, held as 64 rows of 2 columns. The bank of a
/// row is row / 8; column 0 holds pads 1 to 8 of the bank, column 1 pads 9 to 16.
constexpr int bankCount = 8;
constexpr int rowsPerBank = 8;
constexpr int padRows = bankCount * rowsPerBank;
constexpr int padColumns = 2;
