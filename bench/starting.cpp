#include "sections.h"

#include "measure.h"
#include "table.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#ifdef Q_OS_MACOS
extern char** environ; // declared by no header there
#endif

namespace {

constexpr int rounds = 15;
constexpr double cpuAim = 2.5;
constexpr double memoryAim = 2;

double seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

double peakbytes(const rusage& usage)
{
#ifdef Q_OS_MACOS
    return static_cast<double>(usage.ru_maxrss);
#else
    return static_cast<double>(usage.ru_maxrss) * 1024;
#endif
}

/// Runs \a program to its end and gives what the whole process took. The system counts the peak of a process
/// from its parent's memory on, from before the program was put in its place: hence a parent that has grown
/// larger than the program would be measured instead of it.
Cost runprocess(const char* program)
{
    rusage own{};
    getrusage(RUSAGE_SELF, &own);

    char* arguments[] = {const_cast<char*>(program), nullptr};
    pid_t process = 0;
    require(posix_spawn(&process, program, nullptr, nullptr, arguments, environ) == 0,
            QStringLiteral("%1 cannot be started").arg(QLatin1String(program)));
    int status = 0;
    rusage usage{};
    require(wait4(process, &status, 0, &usage) == process && status == 0,
            QStringLiteral("%1 ended without a first paint").arg(QLatin1String(program)));
    require(peakbytes(usage) > peakbytes(own),
            QStringLiteral("the benchmark has grown too large to measure a start"));
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), peakbytes(usage)};
}

void benchplatform(const char* platform)
{
    qputenv("QT_QPA_PLATFORM", platform);
    Work window{[] { return runprocess(START_WINDOW); }, {}};
    Work empty{[] { return runprocess(START_EMPTY); }, {}};
    measure({&empty, &window}, rounds);
    Table::times(QStringLiteral("CPU time, %1").arg(QLatin1String(platform)), window, empty, cpuAim);
    Table::memory(QStringLiteral("peak memory, %1").arg(QLatin1String(platform)), window, empty, memoryAim);
}

} // namespace

void benchstarting()
{
    Table::section(QStringLiteral("Start to first paint, against an empty QMainWindow"));
    benchplatform("offscreen");
    if (qEnvironmentVariableIsSet("DISPLAY"))
        benchplatform("xcb");
}
