#pragma once

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

/// Far above any real show (a few pages, a few hundred Live Buttons), and small enough that a damaged or
/// hostile file that claims millions of either neither stalls the program nor fills the memory.
constexpr int maxLivePages = 1000;
constexpr int maxLiveButtons = 50000;

/// Reads \a path (`Live/live.ini` of a show, INI format as QSettings reads it, objects excepted: their text
/// is kept). Gives nothing when the file cannot be opened. Page and button groups that are missing give
/// records with the generated keys only. Values are UTF-8 where their bytes are valid UTF-8, else Latin-1;
/// Qt's escapes work in both. A value with unquoted commas comes through whole, its parts joined with ", ".
/// Counts that are no number or do not fit 32 bits read as 0; the bounds above end reading early.
std::optional<LightShow> readlightshow(const QString& path);

/// The colour text of a hexadecimal number: "#" and \a color, filled up with "0" on the left to six digits
/// and kept whole beyond; the empty text gives "#ffffff".
QString getcolor(const QString& color);

/// How many records of \a buttons lie on Live page \a page.
int buttonsperpage(const QList<Record>& buttons, int page);

} // namespace show
