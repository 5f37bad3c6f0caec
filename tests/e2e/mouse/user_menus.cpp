// The user in context menus.

#include "look.h"
#include "user.h"

namespace {

/// Where the entry is in a menu with this geometry and these entries ("-" for a separator).
QRect entryrect(const QRect& menu, const QStringList& entries, const QString& entry)
{
    const int all = static_cast<int>(entries.size());
    const int separators = static_cast<int>(entries.count(QStringLiteral("-")));
    const int height =
        (menu.height() - 2 * Look::menuFrame - separators * Look::menuSeparator) / (all - separators);
    int top = menu.top() + Look::menuFrame;
    for (int i = 0; i < entries.indexOf(entry); ++i)
        top += entries.at(i) == QLatin1String("-") ? Look::menuSeparator : height;
    return {menu.left(), top, menu.width(), height};
}

} // namespace

void User::awaitmenus(int count)
{
    await(
        [&] {
            const QVector<ScreenWindow> menus = otherwindows();
            // A menu opened earlier may be covered by the next one.
            return menus.size() == count && isdrawn(menus.value(count - 1));
        },
        QStringLiteral("There are not %1 open menus.").arg(count));
}

void User::clickmenu(int depth, const QStringList& entries, const QString& entry)
{
    if (!entries.contains(entry))
        giveup(QStringLiteral("The menu has no entry \"%1\".").arg(entry));
    awaitmenus(depth);
    const QRect place = entryrect(otherwindows().constLast().geometry, entries, entry);
    await(
        [&] {
            hover(place.center());
            // Above and beside the text.
            return color(place.topLeft() + QPoint(6, 2)) == Look::menuEntryUnderMouse;
        },
        QStringLiteral("The entry \"%1\" of the menu did not light up.").arg(entry));
    pointer().click(place.center());
}

void User::awaitmenusgone()
{
    awaitalone(QStringLiteral("The menu"));
    settle();
}
