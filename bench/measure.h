#pragma once

#include <QString>

#include <functional>
#include <vector>

/// What one run of a piece of work took.
struct Cost
{
    double cpu = 0;    ///< seconds of CPU time, user and system; other programs do not add to it
    double memory = 0; ///< peak memory in bytes; 0 where it is not measured
};

/// One piece of work and what its runs took.
struct Work
{
    std::function<Cost()> run;
    std::vector<Cost> costs; ///< one entry per round
};

/// The CPU time of \a work in this process.
Cost cputime(const std::function<void()>& work);

/// Lets the windows of this process lay out and paint what has changed.
void settle();

/// Runs all \a works once per round, one after the other, \a rounds times (at least 1) after a round that is
/// not counted. What slows the machine down for a while thus meets all works of a round alike.
void measure(const std::vector<Work*>& works, int rounds);

/// The median of \a what over all rounds.
double median(const Work& work, double Cost::*what);

/// How many times as much \a work takes as \a floor: the median of the ratios within each round.
double ratio(const Work& work, const Work& floor, double Cost::*what);

/// Whether the rounds of \a work differ so much that a ratio of two such times says little: the middle half
/// of them lies further apart than a tenth of the median.
bool isnoisy(const Work& work);

/// Ends the program with \a sentence, because its numbers would mean nothing, unless \a condition holds.
void require(bool condition, const QString& sentence);
