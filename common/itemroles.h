#pragma once

#include <Qt>

/// The item roles that the three models and the drag payloads share beside Qt's own.
namespace ItemRole {
enum {
    Page = Qt::UserRole,        ///< `pageid` of a Live Button, `pagenr` of a pad ("0" = empty pad)
    DspName = Qt::UserRole + 1, ///< the Live Button name that OS2L sends
    Source = Qt::UserRole + 2,  ///< origin mark; kept by the list only, pads refuse it
    Id = Qt::UserRole + 3,      ///< `buttonid` of a Live Button, `id` of a pad ("-1" = empty pad)
    Avail = Qt::UserRole + 4,   ///< controller only, as are the roles below: "1" = usable cell
    ColorOff = Qt::UserRole + 5,
    ColorOn = Qt::UserRole + 6,
    Blink = Qt::UserRole + 7
};
}
