#include "measure.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <stdexcept>

namespace {

double middle(std::vector<double> numbers)
{
    const auto half = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
    std::nth_element(numbers.begin(), half, numbers.end());
    return *half;
}

} // namespace

Cost cputime(const std::function<void()>& work)
{
    const std::clock_t start = std::clock();
    work();
    return {static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 0};
}

void settle() { QCoreApplication::processEvents(QEventLoop::AllEvents, 60000); }

void measure(const std::vector<Work*>& works, int rounds)
{
    for (const Work* work : works)
        work->run();
    for (int round = 0; round < rounds; ++round)
        for (Work* work : works)
            work->costs.push_back(work->run());
}

double median(const Work& work, double Cost::*what)
{
    std::vector<double> numbers;
    for (const Cost& cost : work.costs)
        numbers.push_back(cost.*what);
    return middle(numbers);
}

double ratio(const Work& work, const Work& floor, double Cost::*what)
{
    std::vector<double> ratios;
    for (std::size_t round = 0; round < work.costs.size(); ++round)
        ratios.push_back(work.costs[round].*what / floor.costs[round].*what);
    return middle(ratios);
}

bool isnoisy(const Work& work)
{
    std::vector<double> times;
    for (const Cost& cost : work.costs)
        times.push_back(cost.cpu);
    std::sort(times.begin(), times.end());
    const std::size_t quarter = times.size() / 4;
    return times[times.size() - 1 - quarter] - times[quarter] > 0.1 * middle(times);
}

void require(bool condition, const QString& sentence)
{
    if (!condition)
        throw std::runtime_error(sentence.toStdString());
}
