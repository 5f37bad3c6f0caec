#pragma once

#include <QString>

/// Whether a pad holds a Live Button. Its `id` and its `pagenr` both tell, and a project file from elsewhere
/// can leave either of them empty or with any text; so it counts which of them is asked, and how.
namespace show {

/// Marks, menus, guards and the mapper: any id that reads as 0 or more, also one that is empty or no number.
constexpr bool holdsbutton(int id) { return id >= 0; }
inline bool holdsbutton(const QString& id) { return holdsbutton(id.toInt()); }

/// Tool tips, and whether a move swaps: only the very id that emptying a pad writes makes it vacant.
inline bool isvacant(const QString& id) { return id == QLatin1String("-1"); }

/// What may be dragged and edited: every page but the very one that emptying a pad writes.
inline bool haspage(const QString& pagenr) { return pagenr != QLatin1String("0"); }

/// The pads page file, and whether a drop from the list replaces a Live Button: any page that reads as 1 or
/// more.
constexpr bool onlivepage(int pagenr) { return pagenr > 0; }
inline bool onlivepage(const QString& pagenr) { return onlivepage(pagenr.toInt()); }

} // namespace show
