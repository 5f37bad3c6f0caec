// Runs one fuzz target over files, each in a process of its own: replay FILE-OR-FOLDER...
// The last name printed is the file that shows a fault.

#include "fuzz.h"

#include <QDirIterator>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utility>

namespace {

/// What reading one input may take of memory. Programs under a sanitizer keep freed memory and are not held
/// to it.
constexpr long maxKilobytes = 300L * 1024;

/// The most memory that the process has had so far, in kilobytes. It never falls.
long peakmemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
#ifdef Q_OS_MACOS
    return usage.ru_maxrss / 1024;
#else
    return usage.ru_maxrss;
#endif
}

QStringList filesof(const QString& path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList files;
    QDirIterator folder(path, QDir::Files | QDir::Hidden);
    while (folder.hasNext())
        files.append(folder.next());
    files.sort();
    return files;
}

/// Gives the file \a path to the target.
void replay(const QString& path)
{
    QFile file(path);
    Fuzz::require(file.open(QIODevice::ReadOnly), "the input can be read");
    const QByteArray input = file.readAll();
    const long before = peakmemory();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.constData()),
                           static_cast<std::size_t>(input.size()));
    if (Fuzz::maxSeconds <= 3)
        Fuzz::require(peakmemory() - before <= maxKilobytes, "an input is read in little memory");
}

/// The same in a child, so that no input hides behind the memory of one before it. Ends the program when the
/// child does not come to its end.
void replayalone(const QString& path)
{
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
    const pid_t child = fork();
    Fuzz::require(child >= 0, "there is room for another process");
    if (child == 0) {
        replay(path);
        std::exit(0);
    }
    int status = 0;
    Fuzz::require(waitpid(child, &status, 0) == child && status == 0, "the input shows no fault");
}

} // namespace

int main(int argc, char* argv[])
{
    QStringList files;
    for (int i = 1; i < argc; ++i)
        files += filesof(QFile::decodeName(argv[i]));
    Fuzz::require(!files.isEmpty(), "there are inputs");
    for (const QString& file : std::as_const(files))
        replayalone(file);
    return 0;
}
