#pragma once

#include "measure.h"

#include <QString>

/// The one table that all benchmarks print: a line per comparison, written as soon as it is known.
namespace Table {

/// No aim is set for this line.
constexpr double noAim = 0;

/// The names of the columns.
void head();
/// A line of its own above the comparisons of one subject.
void section(const QString& title);
/// \a work in CPU time against \a floor, with the most that the ratio should be and whether that is met.
void times(const QString& what, const Work& work, const Work& floor, double aim);
/// \a work in CPU time alone, with the most milliseconds that it should take and whether that is met.
void atmost(const QString& what, const Work& work, double milliseconds);
/// Numbers of instructions, in millions, instead of times.
void instructions(const QString& what, double work, double floor, double aim);
/// \a work in peak memory against \a floor.
void memory(const QString& what, const Work& work, const Work& floor, double aim);
/// The peak memory that \a work takes beyond \a floor, with the most megabytes that it should be and whether
/// that is met.
void more(const QString& what, const Work& work, const Work& floor, double megabytes);

} // namespace Table
