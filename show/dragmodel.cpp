#include "dragmodel.h"

#include "payload.h"

QVariant DragModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QVariant();
    switch (section) {
    case 0:
        return QStringLiteral("Color");
    case 1:
        return QStringLiteral("Name");
    default:
        return QVariant();
    }
}

QStringList DragModel::mimeTypes() const { return payloadformats(); }

Qt::DropActions DragModel::supportedDropActions() const { return Qt::CopyAction | Qt::MoveAction; }

Qt::DropActions DragModel::supportedDragActions() const { return Qt::CopyAction; }
