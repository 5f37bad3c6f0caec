#include "menustyle.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

MenuStyle::MenuStyle(QObject* parent) { setParent(parent); }

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    painter->save();
    if (item && item->menuItemType == QStyleOptionMenuItem::Separator)
        painter->setClipRect(item->rect.adjusted(0, -1, 0, 1));
    QProxyStyle::drawControl(element, option, painter, widget);
    painter->restore();
}
