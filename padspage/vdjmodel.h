#pragma once

#include "dragmodel.h"
#include "padgeometry.h"
#include "record.h"

#include <QList>

/// The pads page grid: 64 rows by 2 columns of pad records once `fillpads` has set it up. An occupied pad can
/// be dragged and its text edited; every pad accepts drops. `setData` emits no `dataChanged`: whoever changes
/// pads has the view repainted.
class VDJModel : public DragModel
{
    Q_OBJECT

public:
    explicit VDJModel(QObject* parent = nullptr);
    /// Starts with a copy of \a list, rows of two pad records each.
    explicit VDJModel(const QList<QList<Record>>& list, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Invalid for an index outside the grid and for roles the pads do not know.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Stores \a value as text; an empty display text becomes "PAD " + (row + 1). False, with nothing
    /// changed, outside the grid and for unknown roles.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// Seven fields per pad; the caller owns the result.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// Drops onto the pad \a parent (\a row and \a column are ignored): a Live Button from the list replaces
    /// what the pad held; a pad of this grid moves onto an empty pad and swaps with an occupied one. Refused,
    /// with nothing changed, without a pad under the mouse, for a payload that is damaged, and for a source
    /// that does not exist.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
    /// Puts the new rows at the top, whatever \a row says, and announces them at \a row, which callers give
    /// as 0. False, with nothing changed, for a count below 1.
    bool insertRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    /// Removes \a count rows at \a row, as far as they exist.
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// The whole grid, row by row.
    QList<QList<Record>> getList() const;

signals:
    /// A Live Button of list row \a index was dropped on pad row \a to.
    void ItemDroped(int index, int to);
    /// A pad was moved onto the empty pad of row \a to.
    void ItemMoved(int to);
    /// The Live Button with id \a to lost its pad to another one from the list.
    void ItemToUncheck(int to);

private:
    bool contains(const QModelIndex& index) const;
    void writepad(const QModelIndex& pad, const Record& values);

    QList<QList<Record>> m_list;
};

/// Replaces whatever \a model holds with 8 empty banks; each bank's pads are named "PAD 1" to "PAD 8" in
/// column 0 and "PAD 9" to "PAD 16" in column 1.
void fillpads(VDJModel* model);
