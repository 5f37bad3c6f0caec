#include "pictures.h"

#include "look.h"
#include "pixels.h"
#include "user.h"

void calm(User& user, const QStringList& combos)
{
    for (const QString& combo : combos) {
        const QRect box = user.rect(combo);
        const QPoint frame = box.topLeft() + QPoint(20, 0);
        user.await(
            [&] {
                user.hover(box.center());
                return user.color(frame) == Look::comboFrameUnderMouse;
            },
            QStringLiteral("%1 did not light up under the mouse.").arg(combo));
        user.await(
            [&] {
                user.idle();
                return user.color(frame) == Look::comboFrame;
            },
            QStringLiteral("%1 did not go dark when the mouse left it.").arg(combo));
    }
    user.pointer().click(user.listrow(1));
    user.settle();
}

void picturebox(User& user, const QString& name)
{
    const ScreenWindow box = user.awaitbox(QStringLiteral("The box"), 1);
    user.focus(box);
    user.await(
        [&] {
            return !rectangles(user.screen(box.geometry), Look::focusRing, {40, 1}).isEmpty();
        },
        QStringLiteral("The box does not show which button has the keyboard."));
    user.picture(name, box.geometry);
}

void pictureabove(User& user, const QString& name, const QString& lower, const QStringList& widgets)
{
    QRect part;
    for (const QString& widget : widgets)
        part = part.united(user.rect(widget));
    part.setBottom(qMin(part.bottom(), user.rect(lower).top() - 1));
    user.picture(name, part);
}

void picturecells(User& user, const QString& name, Cell first, Cell last)
{
    // With the lines at the right of the last cell and below it.
    user.picture(name, user.cellrect(first).united(user.cellrect(last)).adjusted(0, 0, 1, 1));
}
