// The program is killed while it saves: the project on the disk is one of the two whole versions.

#include "testfiles.h"
#include "textfile.h"

#include <QFileInfo>

#include <QDir>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A file of the size of a project, every line of it marked by \a mark.
QString version(char mark)
{
    QString text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project >\n");
    for (int key = 0; key < 144; ++key)
        text += "\t<key row=\"" + QString::number(key / 12) + "\" name=\"" + QString(80, QLatin1Char(mark)) +
                "\" />\n";
    return text + "</project>\n";
}

/// Saves the two versions in turn until it is killed.
[[noreturn]] void saveforever(const QString& path, const QString& one, const QString& other)
{
    for (;;) {
        if (!writetextfile(path, one) || !writetextfile(path, other))
            _exit(1);
    }
}

} // namespace

class KilledTest : public QObject
{
    Q_OBJECT

private slots:
    void leavesOneWholeVersion();
};

void KilledTest::leavesOneWholeVersion()
{
    // In memory where that is possible: on a slow disk most of the time would go by between the writes.
    const QString memory = QStringLiteral("/dev/shm");
    const QTemporaryDir folder((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                               QStringLiteral("/lumipad"));
    QVERIFY(folder.isValid());
    const QString path = folder.filePath(QStringLiteral("mine.os2l"));
    const QString one = version('a');
    const QString other = version('b');
    QVERIFY(writetextfile(path, other));

    QElapsedTimer clock;
    clock.start();
    QRandomGenerator random(8);
    int ones = 0;
    int interrupted = 0;
    constexpr int kills = 200;
    for (int kill = 0; kill < kills; ++kill) {
        const pid_t saver = fork();
        QVERIFY(saver >= 0);
        if (saver == 0)
            saveforever(path, one, other);
        usleep(static_cast<useconds_t>(random.bounded(500, 8000)));
        QCOMPARE(::kill(saver, SIGKILL), 0);
        int status = 0;
        QCOMPARE(waitpid(saver, &status, 0), saver);
        QVERIFY2(WIFSIGNALED(status), "the saver could not save");

        const QByteArray now = contents(path);
        QVERIFY2(now == one.toUtf8() || now == other.toUtf8(),
                 qPrintable("killed in a file of " + QString::number(now.size()) + " bytes"));
        ones += now == one.toUtf8() ? 1 : 0;
        // What a killed save leaves beside the file shows that the kill came in its middle.
        const QStringList left = QDir(folder.path()).entryList(QDir::Files | QDir::Hidden);
        interrupted += left.size() > 1 ? 1 : 0;
        for (const QString& name : left)
            if (name != QLatin1String("mine.os2l"))
                QVERIFY(QFile::remove(folder.filePath(name)));
    }
    qInfo("%d of %d kills came in the middle of a save, %d left the one version, in %lld ms", interrupted,
          kills, ones, clock.elapsed());
    QVERIFY(interrupted > 0);
    QVERIFY(ones > 0 && ones < kills);
}

QTEST_GUILESS_MAIN(KilledTest)

#include "tst_killed.moc"
