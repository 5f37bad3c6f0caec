#pragma once

#include "record.h"

#include <QAbstractItemModel>
#include <QList>
#include <QSet>

/// The rules of the "used" mark: which Live Buttons of the list are placed on the pads of a grid.

/// Whether no cell of \a grid holds a Live Button, hidden cells included. An id that is empty or no number
/// reads as 0 and counts as one.
bool gridempty(const QAbstractItemModel& grid);

/// The Live Button ids, as text, that the first \a columns columns of \a grid hold.
QSet<QString> usedids(const QAbstractItemModel& grid, int columns);

/// Marks the rows of \a list whose id is in \a used and unmarks all others, in the list and in the `check`
/// of \a buttons (index = id; an id outside is passed over).
void markused(QAbstractItemModel* list, QList<Record>* buttons, const QSet<QString>& used);
