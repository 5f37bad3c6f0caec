#pragma once

#include <QString>

/// Replaces the file \a path with \a text as UTF-8, line feeds as they stand. True only when all of it was
/// written. False when that fails; an earlier file of that name then still holds what it held. Where its
/// folder takes no new files it is overwritten in place, and put back from memory on failure; one that cannot
/// be read or is larger than `maxKeptFile` is left alone there.
bool writetextfile(const QString& path, const QString& text);
