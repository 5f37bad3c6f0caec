#include "usagemarks.h"

#include "itemroles.h"

#include <algorithm>

bool gridempty(const QAbstractItemModel& grid) { return usedids(grid, grid.columnCount()).isEmpty(); }

QSet<QString> usedids(const QAbstractItemModel& grid, int columns)
{
    QSet<QString> used;
    columns = std::min(columns, grid.columnCount());
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < columns; ++column) {
            const QString id = grid.index(row, column).data(ItemRole::Id).toString();
            if (id.toInt() >= 0)
                used.insert(id);
        }
    }
    return used;
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
