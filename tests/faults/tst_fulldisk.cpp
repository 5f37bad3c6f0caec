// A disk that fills during each write of the program: the file is the whole earlier one or the whole new one,
// and a project is called saved only when it is.

#include "fulldisk.h"
#include "session.h"
#include "smalldisk.h"
#include "testmain.h"

#include <utility>

namespace {

constexpr qint64 page = 4096; ///< what a disk in memory gives out
constexpr int diskpages = 64;

const TestHome* testhome = nullptr;
bool smalldisk = false;

} // namespace

class FullDiskTest : public QObject
{
    Q_OBJECT

private slots:
    void keepsAWholeFileWhereverTheDiskIsFull_data() { addwriterows(); }
    void keepsAWholeFileWhereverTheDiskIsFull();
    void keepsAWholeFileOnASmallDisk_data() { addwriterows(); }
    void keepsAWholeFileOnASmallDisk();

private:
    /// The session's file on a healthy disk, as it is now and with one Live Button more; the first one is
    /// left on the disk if there is to be an earlier one.
    static QPair<QByteArray, QByteArray> versions(const Session& session, bool earlier)
    {
        session.write();
        const QByteArray before = contents(session.path());
        session.put(1, 3);
        session.write();
        const QByteArray after = contents(session.path());
        QFile::remove(session.path());
        return {earlier ? before : contents(session.path()), after};
    }
    static void putback(const Session& session, bool earlier, const QByteArray& before)
    {
        QFile::remove(session.path());
        if (earlier)
            writefile(session.path(), before);
    }
};

void FullDiskTest::keepsAWholeFileWhereverTheDiskIsFull()
{
    QFETCH(int, kind);
    QFETCH(bool, earlier);
    const Session session(*testhome, Write(kind));
    const auto [before, after] = versions(session, earlier);
    QVERIFY(before != after && after.size() > 1000);
    const int whole = static_cast<int>(after.size());
    QList<int> sizes{whole - 1, whole};
    for (int size = 0; size < whole; size += 1021)
        sizes.append(size);
    for (const int size : std::as_const(sizes)) {
        putback(session, earlier, before);
        QString said;
        {
            const FullDisk disk(static_cast<rlim_t>(size));
            said = session.write();
        }
        session.checkwhole(said, before, after);
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(contents(session.path()) == after, size == after.size());
    }
}

void FullDiskTest::keepsAWholeFileOnASmallDisk()
{
    if (!smalldisk) {
        QTest::qSkip("This machine lets nobody mount a small disk", __FILE__, __LINE__);
        return;
    }
    QFETCH(int, kind);
    QFETCH(bool, earlier);
    const Session session(*testhome, Write(kind));
    const auto [before, after] = versions(session, earlier);
    const QString ballast = testhome->path(QStringLiteral("Documents/ballast"));
    int written = 0;
    for (int room = 0; room * page <= after.size() + page; ++room) {
        putback(session, earlier, before);
        QFile filling(ballast);
        QVERIFY(filling.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filling.write(QByteArray(int(page), 'b')) == page) {
        }
        // The last page may have been cut short; the disk is full to the last byte here.
        QVERIFY(filling.resize(filling.size() / page * page - room * page));
        const QString said = session.write();
        session.checkwhole(said, before, after);
        QVERIFY(filling.remove());
        if (QTest::currentTestFailed())
            return;
        written += contents(session.path()) == after ? 1 : 0;
    }
    QVERIFY2(written > 0, "with room for the whole file it is written");
}

int main(int argc, char* argv[])
{
    const TestHome home;
    const SmallDisk disk(home.path(QStringLiteral("Documents")), int(diskpages * page / 1024));
    testhome = &home;
    smalldisk = disk.ismounted();
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const DialogWatch watch;
    FullDiskTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_fulldisk.moc"
