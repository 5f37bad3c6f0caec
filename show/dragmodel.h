#pragma once

#include <QAbstractTableModel>
#include <QList>

/// What the three models have in common: they exchange the one payload (see payload.h) by drag and drop.
class DragModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// "Color" and "Name" for the first two columns, shown nowhere: every view hides its headers.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// The two formats of the payload.
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDropActions() const override;
    /// Copy alone. With Shift held a drag would otherwise end as a move, after which the view itself empties
    /// the source, although the drop has already moved or swapped the pads: work would be lost.
    Qt::DropActions supportedDragActions() const override;

protected:
    /// Puts \a count copies of \a value at the top of \a rows whatever \a row says, and announces them at \a
    /// row, or at the nearest row that the model has. False, with nothing changed, for a count below 1.
    template<typename Row>
    bool insertattop(QList<Row>* rows, const Row& value, int row, int count, const QModelIndex& parent)
    {
        if (parent.isValid() || count < 1)
            return false;
        const int first = qBound(0, row, rows->size());
        beginInsertRows(parent, first, first + count - 1);
        for (int i = 0; i < count; ++i)
            rows->prepend(value);
        endInsertRows();
        return true;
    }

    /// Removes \a count of \a rows from \a row on, as far as they exist. False for a negative row or count.
    template<typename Row>
    bool removeexisting(QList<Row>* rows, int row, int count, const QModelIndex& parent)
    {
        if (parent.isValid() || row < 0 || count < 0)
            return false;
        const int existing = qMin(count, rows->size() - row);
        if (existing < 1)
            return true;
        beginRemoveRows(parent, row, row + existing - 1);
        rows->erase(rows->begin() + row, rows->begin() + row + existing);
        endRemoveRows();
        return true;
    }
};
