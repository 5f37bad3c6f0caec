#pragma once

#include "record.h"

#include <QList>
#include <QStringList>

// Records as texts, for tests that compare many of them.

/// One record on one line: its keys in alphabetical order.
inline QString line(const Record& record)
{
    QStringList parts;
    for (auto field = record.cbegin(); field != record.cend(); ++field)
        parts.append(field.key() + '=' + field.value());
    return parts.join('|');
}

inline QStringList lines(const QList<Record>& records)
{
    QStringList result;
    for (const Record& record : records)
        result.append(line(record));
    return result;
}

/// The texts under one key of all records.
inline QStringList column(const QList<Record>& records, const QString& key)
{
    QStringList result;
    for (const Record& record : records)
        result.append(record.contains(key) ? record.value(key) : QStringLiteral("(none)"));
    return result;
}
