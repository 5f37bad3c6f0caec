#include "mydelegate.h"

#include "cells.h"
#include "itemroles.h"

#include <QPainter>

namespace {

/// Three corners are out of use whatever their record says, since emptying any cell marks it usable. The
/// corner (0, 0) goes by its record alone.
bool isinactive(const QModelIndex& index)
{
    const bool corner = (index.row() == Grid::FirstSide && index.column() == Grid::LastSide) ||
                        (index.row() == Grid::LastSide && index.column() == Grid::FirstSide) ||
                        (index.row() == Grid::LastSide && index.column() == Grid::LastSide);
    return corner || index.data(ItemRole::Avail).toString() == QLatin1String("0");
}

QColor background(const QStyleOptionViewItem& option)
{
    if (option.state.testFlag(QStyle::State_Selected))
        return QColor(0x40, 0x40, 0x40);
    if (option.state.testFlag(QStyle::State_MouseOver))
        return QColor(0x20, 0x20, 0x20);
    return Qt::black;
}

} // namespace

Mydelegate::Mydelegate(QObject* parent) : QStyledItemDelegate(parent) {}

void Mydelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QRect& cell = option.rect;
    QColor textcolor = Qt::white;
    painter->save();
    if (isinactive(index)) {
        textcolor = QColor(0x90, 0x90, 0x90);
        painter->fillRect(cell, QColor(0x30, 0x30, 0x30));
    } else {
        const int top = cell.top() + (cell.bottom() - cell.top() - 14) / 2;
        painter->fillRect(cell, background(option));
        painter->fillRect(cell.left() + 5, top, 15, 15, index.data(Qt::DecorationRole).value<QColor>());
    }
    painter->setPen(QPen(textcolor, 2));
    painter->setFont(option.font);
    const QRect place = cell.adjusted(25, 0, -5, 0);
    const QString name = index.data(Qt::DisplayRole).toString();
    painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                      painter->fontMetrics().elidedText(name, Qt::ElideRight, place.width()));
    painter->restore();
}
