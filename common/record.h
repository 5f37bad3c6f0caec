#pragma once

#include <QMap>
#include <QString>

/// One record of the program: a page, a Live Button, a pad, a device. Numbers and flags travel as decimal
/// text ("1"/"0", "-1") and are compared exactly; a missing key reads as the empty string.
using Record = QMap<QString, QString>;

/// The keys of the records, named once.
namespace Key {
// The light show's records
inline QString pageId() { return QStringLiteral("pageid"); }
inline QString pageName() { return QStringLiteral("name"); }
inline QString buttonCount() { return QStringLiteral("nb_buttons"); }
inline QString title() { return QStringLiteral("title"); }
inline QString buttonId() { return QStringLiteral("buttonid"); }
inline QString check() { return QStringLiteral("check"); }
inline QString source() { return QStringLiteral("source"); }
// The pads' records. Project files have these words too: a word that is changed here makes them unreadable
inline QString name() { return QStringLiteral("name"); }
inline QString pageNr() { return QStringLiteral("pagenr"); }
inline QString id() { return QStringLiteral("id"); }
inline QString avail() { return QStringLiteral("avail"); }
inline QString colorOff() { return QStringLiteral("coloroff"); }
inline QString colorOn() { return QStringLiteral("coloron"); }
inline QString blink() { return QStringLiteral("blink"); }
// Both
inline QString dspName() { return QStringLiteral("dspname"); }
inline QString color() { return QStringLiteral("color"); }
inline QString textColor() { return QStringLiteral("textcolor"); }
} // namespace Key
