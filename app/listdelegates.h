#pragma once

#include <QStyledItemDelegate>

/// Draws the items of a list or of the pads page as their style sheet says, and the swatch of a selected one
/// in its very colour: the toolkit mixes the colour of the selection into it.
class SwatchDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

/// Draws the rows that a combo box pops up, the current one and the one under the mouse on
/// `Style::currentRow`. By itself the toolkit draws the popup as a menu, to which the sheet of its list does
/// not apply.
class PopupDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};
