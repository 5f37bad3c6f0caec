// The user before dialogs, message boxes and the File menu.

#include "look.h"
#include "pixels.h"
#include "user.h"

/// The buttons of the message box, from the left. They are its only boxes of their colour, and above its text
/// each shows a plain strip as wide as itself.
QVector<QRect> User::boxbuttons() const
{
    const ScreenWindow window = otherwindows().value(0);
    const QRect& box = window.geometry;
    QVector<QRect> buttons;
    if (!window.exists() || !isdrawn(window))
        return buttons;
    const QVector<QRect> strips = rectangles(screen(box), Look::button, {40, 2});
    for (const QRect& strip : strips)
        if (strip.top() == strips.constFirst().top())
            buttons.append(strip.translated(box.topLeft()));
    return buttons;
}

ScreenWindow User::awaitbox(const QString& what, int buttons)
{
    ScreenWindow box = awaitwindow(what);
    await(
        [&] {
            idle();
            return boxbuttons().size() == buttons;
        },
        QStringLiteral("%1 does not show its buttons, of which there are %2.").arg(what).arg(buttons));
    return box;
}

void User::pressbutton(int number)
{
    const ScreenWindow box = awaitwindow(QStringLiteral("The box"));
    QVector<QRect> buttons;
    await(
        [&] {
            idle();
            buttons = boxbuttons();
            return buttons.size() >= number;
        },
        QStringLiteral("The box has no button number %1.").arg(number));
    pointer().click(buttons.at(number - 1).center());
    awaitgone(box, QStringLiteral("The box"));
}

void User::answerbox(int number)
{
    pressbutton(number);
    awaitalone(QStringLiteral("The box"));
    focusmain();
    settle();
}

ScreenWindow User::awaitdialog(const QString& title)
{
    ScreenWindow dialog;
    await(
        [&] {
            dialog = otherwindows().value(0);
            return dialog.exists() && dialog.title == title;
        },
        QStringLiteral("The dialog \"%1\" did not appear.").arg(title));
    focus(dialog);
    return dialog;
}

void User::typefile(const QString& title, const QString& path)
{
    const ScreenWindow dialog = awaitdialog(title);
    keyboard().type(path);
    keyboard().key(QStringLiteral("Return"));
    awaitgone(dialog, QStringLiteral("The dialog \"%1\"").arg(title));
}

void User::filemenu(const QString& entry)
{
    static const QStringList entries = {"Load DMX Show", "New Project", "Load Project", "Save Project",
                                        "Export",        "About",       "Exit"};
    if (!entries.contains(entry))
        giveup(QStringLiteral("The File menu has no entry \"%1\".").arg(entry));
    // The menu bar lies above the central widget.
    pointer().click(onscreen({0, 0, 0, 0}).topLeft() + QPoint(15, -10));
    const ScreenWindow menu = awaitwindow(QStringLiteral("The File menu"));
    for (int i = 0; i <= entries.indexOf(entry); ++i)
        keyboard().key(QStringLiteral("Down"));
    keyboard().key(QStringLiteral("Return"));
    awaitgone(menu, QStringLiteral("The File menu"));
}

void User::loadshow(const QString& name)
{
    click(QStringLiteral("loadini"));
    typefile(QStringLiteral("Select a Show"), home().showfolder(name));
    awaitalone(QStringLiteral("The folder dialog"));
    focusmain();
    awaittitle(QStringLiteral("Lumipad - ") + name);
    settle();
}

void User::closeandconfirm()
{
    requestclose();
    awaitbox(QStringLiteral("The question whether to exit"), 2);
    pressbutton(1);
    awaitend(0);
}

/// Answers the question whether something earlier may be replaced with Yes, if it is to come up.
void User::confirm(Earlier earlier)
{
    if (earlier == Earlier::None)
        return;
    awaitbox(QStringLiteral("The question whether to overwrite"), 2);
    pressbutton(1);
}
