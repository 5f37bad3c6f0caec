#pragma once

#include "record.h"

/// The keys that only the records of MIDI controllers, their mappings and their controls have.
namespace Key {
inline QString device() { return QStringLiteral("device"); }
inline QString path() { return QStringLiteral("path"); }
inline QString fullRgb() { return QStringLiteral("fullrgb"); }
inline QString colors() { return QStringLiteral("colors"); }
inline QString off() { return QStringLiteral("off"); }
inline QString on() { return QStringLiteral("on"); }
inline QString top() { return QStringLiteral("top"); }
inline QString left() { return QStringLiteral("left"); }
inline QString right() { return QStringLiteral("right"); }
inline QString bottom() { return QStringLiteral("bottom"); }
inline QString faders() { return QStringLiteral("faders"); }
inline QString value() { return QStringLiteral("value"); }
inline QString led() { return QStringLiteral("led"); }
inline QString action() { return QStringLiteral("action"); }
inline QString ledAction() { return QStringLiteral("ledaction"); }
inline QString ledType() { return QStringLiteral("ledtype"); }
inline QString row() { return QStringLiteral("row"); }
inline QString col() { return QStringLiteral("col"); }
inline QString type() { return QStringLiteral("type"); }
} // namespace Key

/// The controls of a layout: what stands as `type` in the records of controls, and the tags of a layout's
/// elements.
namespace ControlKind {
inline QString pad() { return QStringLiteral("pad"); }
inline QString button() { return QStringLiteral("button"); }
inline QString slider() { return QStringLiteral("slider"); }
/// Keeps what it does in the mapping.
inline QString ignore() { return QStringLiteral("ignore"); }
/// Does nothing while the lights have the controller.
inline QString empty() { return QStringLiteral("empty"); }
} // namespace ControlKind

/// What the light of a button can show: what stands as `ledtype` in its record.
namespace ButtonLight {
inline QString plain() { return QStringLiteral("led"); }
inline QString colored() { return QStringLiteral("color"); }
} // namespace ButtonLight
