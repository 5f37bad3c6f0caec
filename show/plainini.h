#pragma once

#include <QByteArray>
#include <QChar>

#include <optional>

namespace show {

/// Stands for "@" in the values of `plainini`; a character that no font and no keyboard has. At the start of
/// a value QSettings takes "@Variant(" and its like for a stored object and builds it, with whatever sizes
/// and depths the file claims.
constexpr QChar atMark(0xE040);

/// The INI file \a bytes brought into a form that every QSettings reads alike: ASCII, without comments, one
/// line for each group and each value, in their order. Nothing when it has more than `maxLightShowLines`.
/// Groups, keys and values are those that QSettings reads from \a bytes, except that:
/// - each run of plain characters in a value is UTF-8 when it is valid UTF-8, else Latin-1 (QSettings ends a
///   run at a quote, a comma and a backslash; the lighting programs write names in the encoding of their
///   machine, so a file can hold both);
/// - a comma never makes a list: a title is one text;
/// - every "@" in a value, escaped or not, is an `atMark`.
std::optional<QByteArray> plainini(const QByteArray& bytes);

} // namespace show
