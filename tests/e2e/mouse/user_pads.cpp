// The user at the Live Buttons list and the pads page.

#include "look.h"
#include "padgeometry.h"
#include "user.h"

using namespace padspage;

QPoint User::listrow(int row) const
{
    const QRect list = rect(QStringLiteral("dmxlistview"));
    // Eight rows fill it, as they fill the pads page.
    return list.topLeft() + QPoint(0, (row - 1) * (list.height() / rowsPerBank)) + holdPoint;
}

QPoint User::pad(int number) const
{
    const QRect pads = rect(QStringLiteral("vdjlistview"));
    const int column = (number - 1) / rowsPerBank;
    const int row = (number - 1) % rowsPerBank;
    return pads.topLeft() +
           QPoint(column * (pads.width() / padColumns), row * (pads.height() / rowsPerBank)) + holdPoint;
}

void User::openpadmenu(int pad)
{
    pointer().click(this->pad(pad), MouseButton::Right);
    awaitmenus(1);
    // The strip above the pad's text.
    await([&] { return color(this->pad(pad) - QPoint(0, 11)) == Look::cellSelected; },
          QStringLiteral("The pad %1 is not selected.").arg(pad));
}

void User::editpad(int number, const QString& text)
{
    focusmain();
    pointer().click(pad(number), MouseButton::Left, 2);
    keyboard().key(QStringLiteral("Ctrl+A"));
    keyboard().type(text);
    keyboard().key(QStringLiteral("Return"));
    settle();
}

void User::choosebank(int bank) { chooseitem(QStringLiteral("bankcombo"), bank, bankCount); }

void User::exportpads(Earlier earlier)
{
    click(QStringLiteral("pushButton_2"));
    confirm(earlier);
    awaitbox(QStringLiteral("The message that the page is created"), 1);
    answerbox(1);
}
