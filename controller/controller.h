#pragma once

#include "recordmodel.h"

#include <QList>

/// The controller grid: 12 by 12 pad records that mirror the face of the current MIDI controller (see
/// cells.h for its geometry).
class Controller : public RecordModel
{
    Q_OBJECT

public:
    /// Starts without rows.
    explicit Controller(QObject* parent = nullptr);
    /// Starts with a copy of \a grid. A row may hold fewer than 12 records: the cells that it lacks read as
    /// nothing and take nothing.
    explicit Controller(const QList<QList<Record>>& grid, QObject* parent = nullptr);

    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// Eleven fields per cell; the caller owns the result.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// Only usable cells take drops and only cells with a Live Button can be dragged.
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// A copy of all cells, row by row.
    QList<QList<Record>> getList() const;
    /// The label of a cell in tool tips and after a move. As `padtext`, except that in the top and bottom
    /// rows only columns 0 and 10 have none: column 1 counts as button 0 and column 11 as button 10.
    QString getpadindex(int row, int col) const;

signals:
    /// A Live Button, row \a listRow of the list, was dropped on the cell (\a row, \a col).
    void ItemDroped(int listRow, int row, int col);
    /// The drop just reported took the place of the Live Button \a buttonId.
    void ItemToUncheck(int buttonId);

protected:
    Record newrecord() const override;
    /// Once for each of \a count rows, takes away every other row from \a row on, twelve at most: together
    /// often more than announced. Callers only ever remove all rows, where both agree.
    void takeaway(int row, int count) override;
    /// Rich text with the pad's own colours as images; none for a cell without a Live Button or out of use. A
    /// Live Button's name is shown as it stands, also where it looks like markup.
    QVariant tooltip(const QModelIndex& index) const override;
    /// A pad of this grid moves to \a target, or changes places with the Live Button that is there, without a
    /// signal. A Live Button from the list is copied there and reported by the signals. Refused for a source
    /// that does not exist.
    bool drop(const show::Payload& payload, const QModelIndex& target) override;
};

namespace controller {

/// Replaces whatever \a grid holds with 12 rows of empty cells, labelled, and usable as far as \a device has
/// them.
void fillcells(Controller* grid, const Record& device);

/// Sets which cells of \a grid are usable on \a device; placed Live Buttons stay where they are.
void updateavail(Controller* grid, const Record& device);

// What a cell looks like that holds no Live Button any more. A cell outside the grid changes nothing; the
// pad's own colours and blink stay for the next Live Button.

/// Takes the Live Button off a cell, and nothing else.
void takeoff(Controller* grid, const QModelIndex& cell);
/// Makes a cell an empty, usable pad; the switch becomes an ordinary pad by it.
void emptycell(Controller* grid, const QModelIndex& cell);
/// Makes a cell the switch: an empty pad that can be neither dragged nor dropped on.
void makeswitch(Controller* grid, const QModelIndex& cell);
/// Takes every Live Button off. A cell that \a device does not have keeps the colour that it had.
void cleancells(Controller* grid, const Record& device);

} // namespace controller
