// The user dragging with the mouse.

#include "user.h"

namespace {

/// Whether the window \a picture is the drag picture held at \a mouse: it is the row, pad or cell, held where
/// the mouse took hold of it.
bool isheldat(const ScreenWindow& picture, QPoint mouse)
{
    const QPoint off = mouse - holdPoint - picture.geometry.topLeft();
    return picture.exists() && qAbs(off.x()) <= 2 && qAbs(off.y()) <= 2;
}

} // namespace

void User::drag(QPoint from, QPoint to, const QString& heldkey)
{
    pointer().move(from);
    pointer().press();
    await(
        [&] {
            // A drag begins once the mouse has gone some way; moves that come too early do not count.
            hover(from + QPoint(14, 0));
            return !otherwindows().isEmpty();
        },
        QStringLiteral("The drag did not begin."));
    if (!heldkey.isEmpty())
        keyboard().press(heldkey);
    // The second of two moves tells the receiver that the mouse moves on it, not only that it came.
    for (const QPoint& at : {to + QPoint(0, 4), to}) {
        pointer().move(at);
        await([&] { return isheldat(otherwindows().value(0), at); },
              QStringLiteral("The drag did not follow the mouse."));
    }
    pointer().release();
    awaitalone(QStringLiteral("The drag picture"));
    if (!heldkey.isEmpty())
        keyboard().release(heldkey);
    settle();
}

void User::dragbutton(int row, int pad, const QString& heldkey)
{
    drag(listrow(row), this->pad(pad), heldkey);
}

void User::dragpad(int from, int to, const QString& heldkey) { drag(pad(from), pad(to), heldkey); }

void User::dragtocell(int row, Cell to) { drag(listrow(row), cell(to), QString()); }

void User::dragcell(Cell from, Cell to) { drag(cell(from), cell(to), QString()); }
