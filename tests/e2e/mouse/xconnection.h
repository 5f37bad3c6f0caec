#pragma once

/// The X library's connection to a display, by name alone: the library's own headers define everyday words
/// (None, Bool, Status …) as macros, so only source files include them.
struct _XDisplay; // NOLINT(bugprone-reserved-identifier): the X library's name
using XConnection = _XDisplay;

/// How X numbers windows.
using WindowId = unsigned long;
