#pragma once

#include "dragmodel.h"
#include "record.h"

#include <QList>

/// The Live Buttons list: one column, one row per Live Button record, a drag source only.
/// `setData` emits no `dataChanged`: whoever changes rows has the view repainted.
class MyModel : public DragModel
{
    Q_OBJECT

public:
    explicit MyModel(QObject* parent = nullptr);
    /// Starts with a copy of \a list.
    explicit MyModel(const QList<Record>& list, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Invalid for an index outside the list and for roles the list does not know.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Stores \a value as text; false, with nothing changed, outside the list and for unknown roles.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// Eleven fields per Live Button; the caller owns the result.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// Writes a payload into row \a parent, reading one position later than `mimeData` writes. The view
    /// refuses drops, so only program code comes here.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
    /// Puts the new rows at the top, whatever \a row says, and announces them at \a row, which callers give
    /// as 0. False, with nothing changed, for a count below 1.
    bool insertRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    /// Removes \a count records at \a row, as far as they exist.
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// A copy of all records.
    QList<Record> getList() const;
    /// The title at \a index; empty outside the list.
    QString get_name(const QModelIndex& index) const;

signals:
    /// Asks to take the Live Button of list row \a index off every pad. Nothing in the list emits it.
    void ItemUnchecked(int index);

private:
    bool contains(const QModelIndex& index) const;

    QList<Record> m_list;
};
