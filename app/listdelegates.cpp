#include "listdelegates.h"

#include "styles.h"

void SwatchDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (!option->icon.isNull())
        option->icon.addPixmap(option->icon.pixmap(option->decorationSize), QIcon::Selected);
}

void PopupDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state & (QStyle::State_Selected | QStyle::State_MouseOver))
        option->backgroundBrush = Style::currentRow();
    // Or the desktop's style draws its own colours over the row, and into the swatch.
    option->state &= ~(QStyle::State_Selected | QStyle::State_MouseOver | QStyle::State_HasFocus);
}
