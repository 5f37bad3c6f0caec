// Measures Lumipad against floors of the same run and prints one table; measures only, so whether an aim is
// met does not show in the exit code.

#include "sections.h"
#include "table.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace {

QString newfolder(const QTemporaryDir& parent, const QString& name)
{
    QString path = parent.filePath(name);
    require(QDir().mkpath(path), QStringLiteral("the folder %1 cannot be created").arg(path));
    return path;
}

/// Every window of this process and of those it starts takes a folder in \a parent for the user's home, so
/// that the user's own folders and settings neither change nor count.
void usehomein(const QTemporaryDir& parent)
{
    newfolder(parent, QStringLiteral("home/Documents"));
    const QByteArray home = QFile::encodeName(parent.filePath(QStringLiteral("home")));
    for (const char* name : {"HOME", "CFFIXED_USER_HOME"})
        qputenv(name, home);
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "WAYLAND_DISPLAY"})
        qunsetenv(name);
    // Only its owner may enter this one, else the toolkit warns at every start.
    const QString runtime = newfolder(parent, QStringLiteral("runtime"));
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
}

} // namespace

int main(int argc, char* argv[])
{
    try {
        const QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/lumipad-bench.XXXXXX"));
        require(folder.isValid(), QStringLiteral("no temporary folder can be created"));
        usehomein(folder);

        qputenv("QT_QPA_PLATFORM", "offscreen");
        // What the screen that is none cannot do would be told in the middle of the table.
        qputenv("QT_LOGGING_RULES", "default.warning=false");
        if (argc == 5 && qstrcmp(argv[1], "--count") == 0) {
            const QApplication app(argc, argv);
            countlisting(QString::fromLocal8Bit(argv[2]), QString::fromLatin1(argv[3]), atoi(argv[4]));
            return 0;
        }
        Table::head();
        benchstarting();
        benchworst();
        qputenv("QT_QPA_PLATFORM", "offscreen");
        const QApplication app(argc, argv);
        // These take a few milliseconds, and would show what the others leave behind on the heap.
        benchexporting(newfolder(folder, QStringLiteral("pads")));
        benchmapping(newfolder(folder, QStringLiteral("mappings")));
        benchlisting(newfolder(folder, QStringLiteral("shows")));
        benchacting(newfolder(folder, QStringLiteral("acts")));
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "lumipad_bench: %s\n", failure.what());
        return 1;
    }
}
