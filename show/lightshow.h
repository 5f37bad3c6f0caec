#pragma once

#include "bounds.h"
#include "record.h"

#include <QList>
#include <optional>

namespace show {

/// What a light show's `Live/live.ini` tells.
struct LightShow
{
    QList<Record> pages;   ///< entry 0 is "All Pages", entry i is Live page i
    QList<Record> buttons; ///< every Live Button; a record's index is its `buttonid`
};

/// Reads \a path (`Live/live.ini` of a show, INI format as QSettings reads it, objects excepted: their text
/// is kept). Gives nothing when the file cannot be opened, is no regular file, or is larger than
/// `maxLightShowSize` or `maxLightShowLines`. Page and button groups that are missing give records with the
/// generated keys only. Values are UTF-8 where their bytes are valid UTF-8, else Latin-1; Qt's escapes work
/// in both. A value with unquoted commas comes through as it is written. Counts that are no number or do not
/// fit 32 bits read as 0. The other bounds of a show end reading early, and cut names that are too long.
std::optional<LightShow> readlightshow(const QString& path);

/// The colour text of a hexadecimal number: "#" and \a color, filled up with "0" on the left to six digits
/// and kept whole beyond; the empty text gives "#ffffff".
QString getcolor(const QString& color);

/// How many records of \a buttons lie on Live page \a page.
int buttonsperpage(const QList<Record>& buttons, int page);

} // namespace show
