#pragma once

#include "record.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// What a project file (`.os2l`, XML in UTF-8) holds: the attributes of its `project` element and of one
/// `key` element per cell of the grid. A written file has one project; a file from elsewhere may have any
/// number.
struct Project
{
    QList<Record> projects;
    QList<Record> keys;
};

/// The text of the project file. The first project's `type`, "pads" or "midi", decides which attributes are
/// written, and in which order; a missing one is written empty. Values are written as they stand, without
/// escaping: one with a double quote, "&" or "<" gives a file that cannot be read whole.
QString projectxml(const Project& project);

/// Reads the elements of a project file, in document order. A malformed file gives those that are whole ahead
/// of the error; one that `elementsof` does not read gives none.
Project readproject(const QByteArray& text);
