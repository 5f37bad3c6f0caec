#pragma once

#include <QString>

/// Texts that are stored in a record, a project or a file of VirtualDJ, or compared with one that is. They
/// are never translated, though the user sees most of them: a project saved in one language must load in
/// every other, and VirtualDJ and the user's own files know pads, banks and mappings by these names.
namespace Stored {
/// A pad without a Live Button, counted from 1.
inline QString pad(int number) { return QStringLiteral("PAD ") + QString::number(number); }
// The side buttons of a controller without a Live Button, counted from 1.
inline QString top(int number) { return QStringLiteral("TOP ") + QString::number(number); }
inline QString bottom(int number) { return QStringLiteral("BOTTOM ") + QString::number(number); }
inline QString left(int number) { return QStringLiteral("LEFT ") + QString::number(number); }
inline QString right(int number) { return QStringLiteral("RIGHT ") + QString::number(number); }
/// The pad that turns OS2L on and off.
inline QString switchPad() { return QStringLiteral("SWITCH"); }
/// The first name of a bank, counted from 1.
inline QString bank(int number) { return QStringLiteral("BANK ") + QString::number(number); }
/// The first name of the pads page or mapping.
inline QString pageName() { return QStringLiteral("OS2L DMX"); }
/// The entry ahead of the Live pages of a show.
inline QString allPages() { return QStringLiteral("All Pages"); }
/// The mapping of every controller that sends OS2L commands alone.
inline QString simpleMapping() { return QStringLiteral("Simple OS2L mapping"); }
/// The mapping that a controller comes with; \a device is its shown name.
inline QString factoryMapping(const QString& device) { return device + QStringLiteral(" mapping (factory)"); }
} // namespace Stored
