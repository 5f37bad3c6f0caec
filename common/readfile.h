#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes of the regular file \a path, which may be a resource (":/..."): the one way in which the program
/// reads files. Nothing for a file that is missing, cannot be opened or read to its end, or holds more than
/// \a most bytes, and for everything that is no regular file (folder, pipe, device). Never waits for another
/// program. \a read gets the number of bytes that were read, at most one more than \a most, whether they are
/// given or not: a file tells nothing certain about its size before.
std::optional<QByteArray> readregularfile(const QString& path, int most, int* read = nullptr);
