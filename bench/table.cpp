#include "table.h"

#include <cstdio>

namespace {

void print(const QString& text)
{
    std::puts(text.toLocal8Bit().constData());
    std::fflush(stdout);
}

QString columns(const QString& what, const QString& measured, const QString& against, const QString& ratio,
                const QString& aim)
{
    return what.leftJustified(50) + measured.rightJustified(12) + against.rightJustified(12) +
           ratio.rightJustified(8) + aim.rightJustified(15);
}

void line(const QString& what, const QString& measured, const QString& against, double value, double aim,
          const QString& unit)
{
    const QString text = columns(QStringLiteral("  ") + what, measured, against,
                                 against.isEmpty() ? QString() : QString::number(value, 'f', 2),
                                 aim > Table::noAim ? QStringLiteral("at most ") + QString::number(aim) + unit
                                                    : QStringLiteral("-"));
    if (aim > Table::noAim)
        print(text + (value <= aim ? QStringLiteral("  met") : QStringLiteral("  not met")));
    else
        print(text);
}

void compare(const QString& what, const QString& measured, const QString& against, double ratio, double aim)
{
    line(what, measured, against, ratio, aim, QString());
}

QString milliseconds(const Work& work)
{
    return QString::number(median(work, &Cost::cpu) * 1e3, 'f', 3) + QStringLiteral(" ms");
}

QString megabytes(double bytes) { return QString::number(bytes / 1e6, 'f', 1) + QStringLiteral(" MB"); }

QString megabytes(const Work& work) { return megabytes(median(work, &Cost::memory)); }

} // namespace

void Table::head()
{
    print(columns(QStringLiteral("CPU time, or peak memory in MB"), QStringLiteral("measured"),
                  QStringLiteral("against"), QStringLiteral("times"), QStringLiteral("aim")));
}

void Table::section(const QString& title) { print(title); }

void Table::times(const QString& what, const Work& work, const Work& floor, double aim)
{
    compare(what, milliseconds(work), milliseconds(floor), ratio(work, floor, &Cost::cpu), aim);
}

void Table::memory(const QString& what, const Work& work, const Work& floor, double aim)
{
    compare(what, megabytes(work), megabytes(floor), ratio(work, floor, &Cost::memory), aim);
}

void Table::more(const QString& what, const Work& work, const Work& floor, double most)
{
    const double bytes = median(work, &Cost::memory) - median(floor, &Cost::memory);
    line(what, megabytes(bytes), QString(), bytes / 1e6, most, QStringLiteral(" MB"));
}

void Table::atmost(const QString& what, const Work& work, double most)
{
    line(what, milliseconds(work), QString(), median(work, &Cost::cpu) * 1e3, most, QStringLiteral(" ms"));
}

void Table::instructions(const QString& what, double work, double floor, double aim)
{
    const auto millions = [](double count) {
        return QString::number(count / 1e6, 'f', 1) + QStringLiteral(" Mi");
    };
    compare(what, millions(work), millions(floor), work / floor, aim);
}
