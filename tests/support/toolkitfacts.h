#pragma once

#include <QSettings>
#include <QtGlobal>

/// Where Qt 5 and Qt 6 differ, and the program with them: docs/architecture.md lists what a user can see of
/// it.
namespace Toolkit {

/// The DOM takes for an error what that of Qt 5 reads, and turns tabs and line breaks in values into blanks.
constexpr bool strictDom = QT_VERSION_MAJOR >= 6;

/// A window that is closed already is asked again whether it may close.
constexpr bool asksClosedWindows = QT_VERSION_MAJOR < 6;

/// Settings read the names of groups and keys as UTF-8; those of Qt 5, and the program with either, read each
/// byte as a sign.
constexpr bool settingNamesAreUtf8 = QT_VERSION_MAJOR >= 6;

/// Has \a settings, of an INI file, read its values as UTF-8, which those of Qt 6 always do. To be called
/// before the first value is asked for.
inline void readasutf8([[maybe_unused]] QSettings* settings)
{
#if QT_VERSION_MAJOR < 6
    settings->setIniCodec("UTF-8");
#endif
}

} // namespace Toolkit
