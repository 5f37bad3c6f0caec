#pragma once

#include <QString>

#include <stdexcept>

/// What ends a story: a step whose effect cannot be seen. Carries one sentence for the person who reads the
/// output.
class Trouble : public std::runtime_error
{
public:
    explicit Trouble(const QString& sentence) : std::runtime_error(sentence.toUtf8().constData()) {}

    /// The sentence, as it was given.
    QString sentence() const { return QString::fromUtf8(what()); }
};
