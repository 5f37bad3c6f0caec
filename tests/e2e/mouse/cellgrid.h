#pragma once

#include "cells.h"

#include <QImage>
#include <QRect>
#include <QVector>

/// A cell of the controller grid; row and column are 0 to 11.
struct Cell
{
    int row;
    int column;
};

/// The cells of the controller grid, found by the lines between them.
class CellGrid
{
public:
    CellGrid() = default;
    /// Looks for the lines in \a image, which shows the grid. The area \a covered lies over the first cell.
    CellGrid(const QImage& image, QRect covered);

    /// Whether all lines were found.
    bool complete() const { return m_rights.size() == Grid::Lines && m_bottoms.size() == Grid::Lines; }
    /// The cell in the image, without its lines; the grid must be complete.
    QRect rect(Cell cell) const;

private:
    QVector<int> m_rights;  ///< the line at the right of each column
    QVector<int> m_bottoms; ///< the line below each row
};
