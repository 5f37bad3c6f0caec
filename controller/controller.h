#pragma once

#include "dragmodel.h"
#include "record.h"

#include <QList>

/// The controller grid: 12 by 12 pad records that mirror the face of the current MIDI controller (see
/// cells.h for its geometry). `setData` and drops emit no `dataChanged`: whoever changes cells has the view
/// repainted.
class Controller : public DragModel
{
    Q_OBJECT

public:
    /// Starts without rows.
    explicit Controller(QObject* parent = nullptr);
    /// Starts with a copy of \a grid. A row may hold fewer than 12 records: the cells that it lacks read as
    /// nothing and take nothing.
    explicit Controller(const QList<QList<Record>>& grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Always 12 for the grid itself, whatever the rows hold.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Invalid for an index without a cell and for roles the grid does not know. The tool tip is rich text
    /// with the pad's own colours as images, and invalid for a cell without a Live Button or out of use.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Stores \a value as text; false, with nothing changed, for an index without a cell and for roles
    /// without a key. The background is always white: setting it is accepted and stores nothing.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// Eleven fields per cell; the caller owns the result.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    /// Puts the payload's first item into the cell \a parent; \a row and \a column are not used. A pad of
    /// this grid moves there, or changes places with the Live Button that is there, without a signal. A Live
    /// Button from the list is copied there and reported by the signals below. A payload that is no whole
    /// item, a source that does not exist or a target without a cell is refused: false, with nothing
    /// changed. The ignore action does nothing and gives true.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
    /// Puts the new rows at the top, whatever \a row says, and announces them at \a row, which callers give
    /// as 0. False, with nothing changed, for a count below 1.
    bool insertRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    /// Announces rows \a row to \a row + \a count - 1 as removed, as far as they exist. Then, once for each
    /// of them, takes away every other row from \a row on, twelve at most: together often more than
    /// announced. Callers only ever remove all rows, where both agree. False for a negative row or count.
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
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

private:
    bool hascell(int row, int col) const;
    /// The cell's record, or null when \a index has no cell of this grid.
    const Record* cellat(const QModelIndex& index) const;
    QString tooltip(int row, int col) const;

    QList<QList<Record>> m_grid;
};

/// Replaces whatever \a grid holds with 12 rows of empty cells, labelled, and usable as far as \a device has
/// them.
void fillcells(Controller* grid, const Record& device);

/// Sets which cells of \a grid are usable on \a device; placed Live Buttons stay where they are.
void updateavail(Controller* grid, const Record& device);
