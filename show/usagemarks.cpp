#include "usagemarks.h"

#include "itemroles.h"
#include "occupied.h"

#include <algorithm>

namespace show {

bool gridempty(const QAbstractItemModel& grid) { return usedids(grid, grid.columnCount()).isEmpty(); }

QSet<QString> usedids(const QAbstractItemModel& grid, int columns)
{
    QSet<QString> used;
    columns = std::min(columns, grid.columnCount());
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column) {
            const QString id = grid.index(row, column).data(ItemRole::Id).toString();
            if (holdsbutton(id))
                used.insert(id);
        }
    }
    return used;
}

int countid(const QAbstractItemModel& grid, int columns, int id)
{
    int count = 0;
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column) {
            if (grid.index(row, column).data(ItemRole::Id).toInt() == id)
                ++count;
        }
    }
    return count;
}

void markused(QAbstractItemModel* list, QList<Record>* buttons, const QSet<QString>& used)
{
    for (int row = 0; row < list->rowCount(); ++row) {
        const QModelIndex index = list->index(row, 0);
        const QString id = index.data(ItemRole::Id).toString();
        const bool mark = used.contains(id);
        list->setData(index, mark ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
        bool isnumber = false;
        const int button = id.toInt(&isnumber);
        if (isnumber && button >= 0 && button < buttons->size())
            (*buttons)[button][Key::check()] = mark ? QStringLiteral("1") : QStringLiteral("0");
    }
}

void markrow(QAbstractItemModel* list, QList<Record>* buttons, int row)
{
    const QModelIndex index = list->index(row, 0);
    if (!list->setData(index, Qt::Checked, Qt::CheckStateRole))
        return;
    const int id = index.data(ItemRole::Id).toInt();
    if (id >= 0 && id < buttons->size())
        (*buttons)[id][Key::check()] = QStringLiteral("0");
}

void unmarkrows(QAbstractItemModel* list)
{
    for (int row = 0; row < list->rowCount(); ++row)
        list->setData(list->index(row, 0), Qt::Unchecked, Qt::CheckStateRole);
}

void unmark(QAbstractItemModel* list, QList<Record>* buttons, int id)
{
    for (int row = 0; row < list->rowCount(); ++row) {
        const QModelIndex index = list->index(row, 0);
        if (index.data(ItemRole::Id).toInt() != id)
            continue;
        list->setData(index, Qt::Unchecked, Qt::CheckStateRole);
        if (row < buttons->size())
            (*buttons)[row][Key::check()] = QStringLiteral("0");
    }
}

} // namespace show
