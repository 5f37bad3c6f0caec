#pragma once

#include <QByteArray>

/// A VirtualDJ mapper file with \a controls pads (at least 1) as a user may have it: two lines for each, one
/// for the pad and one for its LED. Every other pad was exported by Lumipad and is wrapped in `$os2l`. The
/// first 64 pads bear the names of the pads of a Launchpad PRO, "PAD_1_1" to "PAD_8_8"; the next rows go on
/// with "PAD_9_1".
QByteArray mademapping(int controls);

/// A layout file with the pads of `mademapping`, all of them on the 8 by 8 pads of the controller grid.
QByteArray madelayout(int controls);
