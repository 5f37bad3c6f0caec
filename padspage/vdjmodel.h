#pragma once

#include "recordmodel.h"

#include <QList>

/// The pads page grid: 64 rows by 2 columns of pad records once `fillpads` has set it up. An occupied pad can
/// be dragged and its text edited; every pad accepts drops.
class VDJModel : public RecordModel
{
    Q_OBJECT

public:
    explicit VDJModel(QObject* parent = nullptr);
    /// Starts with a copy of \a list, rows of two pad records each.
    explicit VDJModel(const QList<QList<Record>>& list, QObject* parent = nullptr);

    /// Seven fields per pad; the caller owns the result.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
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

protected:
    Record newrecord() const override;
    /// Pad and texts of an occupied pad; none for an empty one. Plain text.
    QVariant tooltip(const QModelIndex& index) const override;
    /// An empty display text becomes "PAD " + (row + 1).
    QString accepted(const QModelIndex& index, int role, const QString& text) const override;
    /// A Live Button from the list replaces what the pad held; a pad of this grid moves onto an empty pad and
    /// swaps with an occupied one. Refused for a source that does not exist.
    bool drop(const show::Payload& payload, const QModelIndex& target) override;

private:
    void writepad(const QModelIndex& pad, const Record& values);
};

namespace padspage {

/// Replaces whatever \a model holds with 8 empty banks; each bank's pads are named "PAD 1" to "PAD 8" in
/// column 0 and "PAD 9" to "PAD 16" in column 1.
void fillpads(VDJModel* model);

/// Empties \a pad: no Live Button, black. Changes nothing for an index outside the grid.
void emptypad(VDJModel* model, const QModelIndex& pad);

/// The same when the list takes the Live Button away: the pad is left white.
void takeoff(VDJModel* model, const QModelIndex& pad);

} // namespace padspage
