#include "cellgrid.h"

#include "look.h"

namespace {

// No text and no gap between two lines is as long as this.
constexpr int leastLine = 150;

bool isline(const QImage& image, QPoint from, QPoint step)
{
    for (int i = 0; i < leastLine; ++i) {
        const QPoint at = from + i * step;
        if (!image.rect().contains(at) || image.pixel(at) != Look::gridLine)
            return false;
    }
    return true;
}

/// The first pixel of line \a number, given the lines at the ends of all.
int start(const QVector<int>& ends, int number) { return number == 0 ? 0 : ends.at(number - 1) + 1; }

} // namespace

CellGrid::CellGrid(const QImage& image, QRect covered)
{
    for (int x = 0; x < image.width(); ++x)
        if (isline(image, {x, covered.bottom() + 1}, {0, 1}))
            m_rights.append(x);
    for (int y = 0; y < image.height(); ++y)
        if (isline(image, {covered.right() + 1, y}, {1, 0}))
            m_bottoms.append(y);
}

QRect CellGrid::rect(Cell cell) const
{
    return {QPoint(start(m_rights, cell.column), start(m_bottoms, cell.row)),
            QPoint(m_rights.at(cell.column) - 1, m_bottoms.at(cell.row) - 1)};
}
