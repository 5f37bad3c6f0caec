// The user at the Live Buttons list and the pads page.

#include "padgeometry.h"
#include "user.h"

/// Where the mouse takes hold of a row of the Live Buttons list. Eight rows fill it, like the pads page.
QPoint User::listrow(int row) const
{
    const QRect list = rect(QStringLiteral("dmxlistview"));
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
