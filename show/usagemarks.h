#pragma once

#include "record.h"

#include <QAbstractItemModel>
#include <QList>
#include <QSet>

namespace show {

/// The rules of the "used" mark: which Live Buttons of the list are placed on the pads of a grid, and how one
/// is taken off.

/// Whether no cell of \a grid holds a Live Button, hidden cells included. An id that is empty or no number
/// reads as 0 and counts as one.
bool gridempty(const QAbstractItemModel& grid);

/// The Live Button ids, as text, that the first \a columns columns of \a grid hold.
QSet<QString> usedids(const QAbstractItemModel& grid, int columns);

/// In how many cells of the first \a columns columns of \a grid the Live Button \a id stands.
int countid(const QAbstractItemModel& grid, int columns, int id);

/// Marks the rows of \a list whose id is in \a used and unmarks all others, in the list and in the `check`
/// of \a buttons (index = id; an id outside is passed over).
void markused(QAbstractItemModel* list, QList<Record>* buttons, const QSet<QString>& used);

/// Marks \a row of \a list. `check` in \a buttons becomes "0" all the same: only `markused` writes "1" there.
/// A row that does not exist changes nothing.
void markrow(QAbstractItemModel* list, QList<Record>* buttons, int row);

/// Unmarks every row of \a list, and leaves `check` of the records as it is.
void unmarkrows(QAbstractItemModel* list);

/// Unmarks the rows of \a list whose id is \a id, in the list and in the `check` of \a buttons (at the
/// row's position; rows beyond its end are passed over).
void unmark(QAbstractItemModel* list, QList<Record>* buttons, int id);

} // namespace show
