#pragma once

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

} // namespace Toolkit
