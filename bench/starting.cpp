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
constexpr double cpuAim = 1.08;
constexpr double memoryAim = 1.05;

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

/// Runs \a program with up to one argument to its end and gives what the whole process took. The system
/// counts the peak of a process from its parent's memory on, from before the program was put in its place:
/// hence a parent that has grown larger than the program would be measured instead of it.
Cost runprocess(const char* program, const char* argument = nullptr)
{
    rusage own{};
    getrusage(RUSAGE_SELF, &own);

    char* arguments[] = {const_cast<char*>(program), const_cast<char*>(argument), nullptr};
    pid_t process = 0;
    require(posix_spawn(&process, program, nullptr, nullptr, arguments, environ) == 0,
            QStringLiteral("%1 cannot be started").arg(QLatin1String(program)));
    int status = 0;
    rusage usage{};
    require(wait4(process, &status, 0, &usage) == process && status == 0,
            QStringLiteral("%1 failed").arg(QLatin1String(program)));
    require(peakbytes(usage) > peakbytes(own),
            QStringLiteral("the benchmark has grown too large to measure a start"));
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), peakbytes(usage)};
}

void benchplatform(const char* platform)
{
    qputenv("QT_QPA_PLATFORM", platform);
    Work window{[] { return runprocess(START_WINDOW); }, {}};
    Work form{[] { return runprocess(START_FORM); }, {}};
    Work empty{[] { return runprocess(START_EMPTY); }, {}};
    measure({&empty, &form, &window}, rounds);
    const QString name = QLatin1String(platform);
    Table::times(QStringLiteral("CPU time, %1").arg(name), window, form, cpuAim);
    Table::memory(QStringLiteral("peak memory, %1").arg(name), window, form, memoryAim);
    Table::times(QStringLiteral("CPU time, %1, against an empty window").arg(name), window, empty,
                 Table::noAim);
    Table::memory(QStringLiteral("peak memory, %1, against an empty window").arg(name), window, empty,
                  Table::noAim);
}

} // namespace

void benchstarting()
{
    Table::section(QStringLiteral("Start to first paint, against the same form and style sheets alone"));
    benchplatform("offscreen");
    if (qEnvironmentVariableIsSet("DISPLAY"))
        benchplatform("xcb");
}

void benchworst()
{
    constexpr int worstRounds = 3;
    constexpr double mostMilliseconds = 3000;
    constexpr double mostMegabytes = 300;
    Table::section(
        QStringLiteral("Reading the worst file within the bounds; memory beyond an empty QMainWindow"));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto bench = [](const QString& what, const char* reader) {
        Work worst{[reader] { return runprocess(READ_WORST, reader); }, {}};
        Work empty{[] { return runprocess(START_EMPTY); }, {}};
        measure({&empty, &worst}, worstRounds);
        Table::atmost(what + QStringLiteral(", CPU time"), worst, mostMilliseconds);
        Table::more(what + QStringLiteral(", peak memory"), worst, empty, mostMegabytes);
    };
    bench(QStringLiteral("a show of 500,000 lines"), "show-lines");
    bench(QStringLiteral("a show whose pages share a group"), "show-shared");
    bench(QStringLiteral("a show with a long page id"), "show-pageid");
    bench(QStringLiteral("a project of 62,500 cells"), "project-cells");
    bench(QStringLiteral("a project with a name of 8 MB of tabs"), "project-name");
    bench(QStringLiteral("a project of four heads of 2 MB"), "project-heads");
    bench(QStringLiteral("a project with 8 MB of bank names"), "project-banks");
    bench(QStringLiteral("a mapping of 250,000 comments and texts"), "mapping-texts");
    bench(QStringLiteral("a folder of large mappings"), "mappers");
    bench(QStringLiteral("a folder of 4,096 small mappings"), "mappers-small");
    bench(QStringLiteral("an export of the longest actions"), "export");
    bench(QStringLiteral("a drop of 64 MB"), "drop");
}
