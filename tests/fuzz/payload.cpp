// What another program may drop: on all three models it is either refused, with nothing changed, or lands in
// one cell whole. An input is the target (one byte), the length of the list part (two bytes, high one first),
// the list part and the colour part.

#include "payload.h"
#include "cells.h"
#include "controller.h"
#include "devices.h"
#include "fuzz.h"
#include "itemroles.h"
#include "mymodel.h"
#include "vdjmodel.h"

#include <QDataStream>
#include <QMimeData>
#include <QTextDocument>

#include <memory>

namespace {

/// Drops \a data on \a target; the model must be as before when it refuses.
template<typename Model>
bool dropped(Model* model, const QMimeData& data, const QModelIndex& target)
{
    const auto before = model->getList();
    const bool taken = Fuzz::intime(
        [&] { return model->dropMimeData(&data, Qt::CopyAction, target.row(), target.column(), target); });
    const auto after = model->getList();
    Fuzz::require(taken || after == before, "a refused drop changes nothing");
    Fuzz::require(after.size() == before.size(), "a drop adds and removes nothing");
    return taken;
}

/// The dragged cell's fields behind its place, and its colour.
QStringList carried(const QModelIndex& cell)
{
    const std::unique_ptr<QMimeData> data(cell.model()->mimeData({cell}));
    QDataStream stream(data->data(show::payloadformats().at(0)));
    QStringList fields;
    for (QString field; !stream.atEnd(); fields.append(field))
        stream >> field;
    return fields.mid(2) << QString::fromLatin1(data->data(show::payloadformats().at(1)).toHex());
}

/// Drops \a data on \a target of a grid and moves what lies there then to \a other.
template<typename Grid>
void dropandmove(Grid* grid, const QMimeData& data, const QModelIndex& target, const QModelIndex& other)
{
    if (!dropped(grid, data, target) || target == other)
        return;
    const QStringList before = carried(target);
    const std::unique_ptr<QMimeData> drag(grid->mimeData({target}));
    Fuzz::require(dropped(grid, *drag, other), "a pad can be moved");
    Fuzz::require(carried(other) == before, "a moved pad carries what it held");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 3)
        return 0;
    const QByteArray streams = Fuzz::bytes(data + 3, size - 3);
    const int listsize = data[1] * 256 + data[2];
    QMimeData payload;
    payload.setData(show::payloadformats().at(0), streams.left(listsize));
    payload.setData(show::payloadformats().at(1), streams.mid(listsize));

    MyModel list({Record{{Key::title(), "Strobe"}}, Record{{Key::title(), "Blackout"}}});
    dropped(&list, payload, list.index(data[0] % 2, 0));

    // Filled once: that takes longer than all the rest.
    static const auto emptypads = [] {
        VDJModel pads;
        padspage::fillpads(&pads);
        return pads.getList();
    }();
    VDJModel pads(emptypads);
    dropandmove(&pads, payload, pads.index(data[0] % pads.rowCount(), data[0] / 128), pads.index(63, 1));
    Fuzz::require(!Qt::mightBeRichText(pads.index(63, 1).data(Qt::ToolTipRole).toString()),
                  "the tool tip of a pad is no markup");

    static const auto emptycells = [] {
        Controller grid;
        const auto lists = controller::readdefaultmappers(QStringLiteral(":/mappings/Mappings"));
        controller::fillcells(&grid, lists.devices.value(0));
        return grid.getList();
    }();
    Controller grid(emptycells);
    const QModelIndex cell = grid.index(data[0] % Grid::Lines, data[0] / Grid::Lines % Grid::Lines);
    const QModelIndex moved = grid.index(9, 9);
    dropandmove(&grid, payload, cell, moved);
    const auto marks = moved.data(Qt::ToolTipRole).toString().count('<');
    grid.setData(moved, "name", Qt::EditRole);
    Fuzz::require(moved.data(Qt::ToolTipRole).toString().count('<') == marks, "a name is never markup");
    return 0;
}
