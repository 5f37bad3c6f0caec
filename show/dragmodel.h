#pragma once

#include <QAbstractTableModel>

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
};
