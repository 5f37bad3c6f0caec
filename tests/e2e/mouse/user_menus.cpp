// The user in context menus.

#include "look.h"
#include "user.h"

#include <algorithm>

namespace {

/// Where the entry is in a menu with this geometry and these entries ("-" for a separator).
QRect entryrect(const QRect& menu, const QStringList& entries, const QString& entry)
{
    const int separators = entries.count(QStringLiteral("-"));
    const int height = (menu.height() - 2 * Look::menuFrame - separators * Look::menuSeparator) /
                       (entries.size() - separators);
    int top = menu.top() + Look::menuFrame;
    for (int i = 0; i < entries.indexOf(entry); ++i)
        top += entries.at(i) == QLatin1String("-") ? Look::menuSeparator : height;
    return {menu.left(), top, menu.width(), height};
}

} // namespace

void User::awaitmenus(int count)
{
    const auto isdrawn = [this](const ScreenWindow& menu) {
        return color(menu.geometry.topLeft()) == Look::menuBorder;
    };
    await(
        [&] {
            const QVector<ScreenWindow> menus = otherwindows();
            return menus.size() == count && std::all_of(menus.begin(), menus.end(), isdrawn);
        },
        QStringLiteral("There are not %1 open menus.").arg(count));
}

void User::clickmenu(int depth, const QStringList& entries, const QString& entry)
{
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
