#pragma once

#include "record.h"

#include <QList>
#include <QString>

namespace controller {

/// Pairs the layout file of a device with a VirtualDJ mapping (both may be resources): one key record for
/// every control that the layout names; all pads first, then buttons, sliders, `ignore` and `empty` controls,
/// each in the order of the layout file. A record holds `value` (the control's name), `action` (its factory
/// action), `row`, `col`, `type` (the tag); pads and buttons also `led` (name of the LED) and `ledaction`,
/// buttons `ledtype` ("color" or "led"). Of several `map` entries of one name the last counts; entries that
/// no control names are left out. Actions are freed from earlier OS2L wrapping.
/// An action beyond `maxActionLength` reads as empty.
/// Empty when a file is missing; a malformed file counts as one without elements.
QList<Record> getkeynames(const QString& layoutpath, const QString& mapperpath);

} // namespace controller
