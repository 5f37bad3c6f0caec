#include "bounds.h"
#include "fulldisk.h"
#include "testfiles.h"
#include "textfile.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

static bool synchronizing = true; ///< whether the disk takes what was written when it is asked

/// In the place of the system's own for the whole program.
extern "C" int fsync(int file)
{
    if (synchronizing)
        return static_cast<int>(::syscall(SYS_fsync, file));
    errno = EDQUOT;
    return -1;
}

namespace {

constexpr uid_t nobody = 65534;

/// A folder in which nobody can make new files, for as long as the object lives; what is in it can be
/// written. The administrator could all the same, so the program is somebody else meanwhile.
class ClosedFolder
{
public:
    explicit ClosedFolder(const QString& path) : m_path(QFile::encodeName(path))
    {
        if (::geteuid() == 0) {
            const QFileInfoList files = QDir(path).entryInfoList(QDir::Files);
            for (const QFileInfo& file : files) {
                if (::chown(QFile::encodeName(file.filePath()).constData(), nobody, nobody) != 0)
                    qFatal("Cannot give a file away");
            }
            m_wasroot = ::seteuid(nobody) == 0;
        }
        if (!m_wasroot && ::chmod(m_path.constData(), 0555) != 0)
            qFatal("Cannot close a folder");
    }
    ~ClosedFolder()
    {
        if (m_wasroot && ::seteuid(0) != 0)
            qFatal("Cannot become the administrator again");
        ::chmod(m_path.constData(), 0755);
    }
    Q_DISABLE_COPY(ClosedFolder)

private:
    const QByteArray m_path;
    bool m_wasroot = false;
};

/// A disk of its own for a folder, for as long as the object lives.
class SmallDisk
{
public:
    SmallDisk(const QString& path, const char* size) : m_path(QFile::encodeName(path))
    {
        m_mounted = ::mount("tmpfs", m_path.constData(), "tmpfs", 0, size) == 0;
    }
    ~SmallDisk()
    {
        if (m_mounted)
            ::umount2(m_path.constData(), MNT_DETACH);
    }
    Q_DISABLE_COPY(SmallDisk)

    bool ismounted() const { return m_mounted; }

private:
    const QByteArray m_path;
    bool m_mounted = false;
};

} // namespace

class TextFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void writesUtf8AsItStands();
    void replacesALongerAndAShorterFile();
    void overwritesAFileInAFolderThatTakesNoNewOnes();
    void tellsThatAFileCouldNotBeMade();
    void keepsTheFileWhenItMayNotGrow_data();
    void keepsTheFileWhenItMayNotGrow();
    void keepsTheFileInAClosedFolderWhenItMayNotGrow_data();
    void keepsTheFileInAClosedFolderWhenItMayNotGrow();
    void keepsTheFileInAClosedFolderOnAFullDisk();
    void keepsTheFileOnAFullDisk();
    void keepsTheFileWhenTheDiskRefusesItLate();
    void leavesAFileThatIsTooLargeToBePutBack();
    void leavesAPipeAlone();

private:
    QString path(const QString& name = QStringLiteral("file")) const { return m_folder->filePath(name); }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TextFileTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    // Somebody else must come in too.
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0755), 0);
}

void TextFileTest::writesUtf8AsItStands()
{
    QVERIFY(writetextfile(path(), QStringLiteral(u"a\r\nB\u00fchne\n\u20ac")));
    QCOMPARE(contents(path()), QByteArray("a\r\nB\xc3\xbchne\n\xe2\x82\xac"));
    QCOMPARE(files(), QStringList("file"));
}

void TextFileTest::replacesALongerAndAShorterFile()
{
    for (const int size : {10, 100000, 3, 0}) {
        QVERIFY(writetextfile(path(), QString(size, 'x')));
        QCOMPARE(contents(path()), QByteArray(size, 'x'));
    }
}

void TextFileTest::overwritesAFileInAFolderThatTakesNoNewOnes()
{
    for (const int size : {10, 100000, 3, 0}) {
        writefile(path(), "earlier file");
        const ClosedFolder closed(m_folder->path());
        QVERIFY(writetextfile(path(), QString(size, 'x')));
        QCOMPARE(contents(path()), QByteArray(size, 'x'));
    }
}

void TextFileTest::tellsThatAFileCouldNotBeMade()
{
    QVERIFY(!writetextfile(path("missing/file"), "text"));
    QVERIFY(!writetextfile(m_folder->path(), "text"));
    QVERIFY(!writetextfile(QString(), "text"));
    const ClosedFolder closed(m_folder->path());
    QVERIFY(!writetextfile(path(), "text"));
    QCOMPARE(files(), QStringList());
}

void TextFileTest::keepsTheFileWhenItMayNotGrow_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("as large as the earlier one") << 5000;
    QTest::newRow("half") << 50000;
    QTest::newRow("all but one byte") << 99999;
}

void TextFileTest::keepsTheFileWhenItMayNotGrow()
{
    QFETCH(int, room);
    writefile(path(), QByteArray(5000, 'o'));
    bool written = true;
    {
        const FullDisk disk(static_cast<rlim_t>(room));
        written = writetextfile(path(), QString(100000, 'n'));
    }
    QVERIFY(!written);
    QCOMPARE(contents(path()), QByteArray(5000, 'o'));
    QCOMPARE(files(), QStringList("file"));
}

void TextFileTest::keepsTheFileInAClosedFolderWhenItMayNotGrow_data() { keepsTheFileWhenItMayNotGrow_data(); }

void TextFileTest::keepsTheFileInAClosedFolderWhenItMayNotGrow()
{
    QFETCH(int, room);
    writefile(path(), QByteArray(5000, 'o'));
    bool written = true;
    {
        const ClosedFolder closed(m_folder->path());
        const FullDisk disk(static_cast<rlim_t>(room));
        written = writetextfile(path(), QString(100000, 'n'));
    }
    QVERIFY(!written);
    QCOMPARE(contents(path()), QByteArray(5000, 'o'));
}

void TextFileTest::keepsTheFileInAClosedFolderOnAFullDisk()
{
    const SmallDisk disk(m_folder->path(), "size=64k,mode=755");
    if (!disk.ismounted()) {
        QTest::qSkip("Only the administrator can make a disk of its own for this test.", __FILE__, __LINE__);
        return;
    }
    for (const int size : {70000, 100000, 10000000}) {
        writefile(path(), QByteArray(5000, 'o'));
        writefile(path("other"), QByteArray(20000, 'x'));
        bool written = true;
        {
            const ClosedFolder closed(m_folder->path());
            written = writetextfile(path(), QString(size, 'n'));
        }
        QVERIFY(!written);
        QCOMPARE(contents(path()), QByteArray(5000, 'o'));
        {
            const ClosedFolder closed(m_folder->path());
            QVERIFY(writetextfile(path(), QString(20000, 'n')));
        }
        QCOMPARE(contents(path()), QByteArray(20000, 'n'));
    }
}

void TextFileTest::keepsTheFileOnAFullDisk()
{
    const SmallDisk disk(m_folder->path(), "size=64k,mode=755");
    if (!disk.ismounted()) {
        QTest::qSkip("Only the administrator can make a disk of its own for this test.", __FILE__, __LINE__);
        return;
    }
    writefile(path(), QByteArray(5000, 'o'));
    QVERIFY(!writetextfile(path(), QString(100000, 'n')));
    QCOMPARE(contents(path()), QByteArray(5000, 'o'));
    QCOMPARE(files(), QStringList("file"));
}

void TextFileTest::keepsTheFileWhenTheDiskRefusesItLate()
{
    // As disks with quotas and disks elsewhere do: writing succeeds, and only who asks learns that it did
    // not.
    writefile(path(), "earlier file");
    synchronizing = false;
    const bool saved = writetextfile(path(), QStringLiteral("text"));
    const bool inplace = [this] {
        const ClosedFolder closed(m_folder->path());
        return writetextfile(path(), QStringLiteral("text"));
    }();
    synchronizing = true;
    QVERIFY(!saved);
    QVERIFY(!inplace);
    QCOMPARE(contents(path()), QByteArray("earlier file"));
    QCOMPARE(files(), QStringList("file"));
    QVERIFY(writetextfile(path(), QStringLiteral("text")));
}

void TextFileTest::leavesAFileThatIsTooLargeToBePutBack()
{
    for (const bool toolarge : {false, true}) {
        const int size = maxKeptFile + (toolarge ? 1 : 0);
        writefile(path(), "earlier file");
        QVERIFY(QFile::resize(path(), size)); // its zeros take no room on the disk
        const ClosedFolder closed(m_folder->path());
        QCOMPARE(writetextfile(path(), "text"), !toolarge);
        QCOMPARE(QFileInfo(path()).size(), toolarge ? size : 4);
    }
}

void TextFileTest::leavesAPipeAlone()
{
    QCOMPARE(mkfifo(QFile::encodeName(path()).constData(), 0666), 0);
    {
        // Nobody reads from the pipe: a writer that opened it would wait for ever.
        const ClosedFolder closed(m_folder->path());
        QVERIFY(!writetextfile(path(), "text"));
    }
    struct stat status
    {
    };
    QCOMPARE(::stat(QFile::encodeName(path()).constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

QTEST_GUILESS_MAIN(TextFileTest)
#include "tst_textfile.moc"
