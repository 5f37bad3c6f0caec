#pragma once

#include <QString>

/// Replaces the file \a path with \a text as UTF-8, line feeds as they stand. False when that fails; an
/// earlier file of that name is then left whole, as far as its folder allows files to be created.
bool writetextfile(const QString& path, const QString& text);
