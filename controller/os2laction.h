#pragma once

#include <QString>

namespace controller {

/// Escapes \a text for an attribute of a mapper file: every "'" becomes "&apos;", then every double quote
/// "&quot;", then every " & " (with its blanks) " &amp; ". Nothing else: VirtualDJ's actions hold the
/// ampersand in the spaced form only.
QString xmlparse(const QString& text);

/// Gives back the factory action behind an \a action that `mapperxml` has wrapped in a test of `$os2l`, so
/// that exporting from an exported file does not wrap it twice. Any other action passes unchanged.
/// Not everything can be told apart: the switch control's action comes back empty and its LED dark, and a LED
/// action without " : " ("off") is lost behind a Live Button that does not blink.
QString removeos2l(const QString& action);

} // namespace controller
