#include "readfile.h"
#include "testfiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

class ReadFileTest : public QObject
{
    Q_OBJECT

private slots:
    void givesEveryByteAsItStands();
    void readsUpToTheBoundAndRefusesOneByteMore();
    void readsAResource();
    void readsThroughALink();
    void refusesWhatIsNoRegularFile_data();
    void refusesWhatIsNoRegularFile();
    void doesNotTakeTheBeginningOfANameForTheName();
    void keepsTheBoundForFilesThatTellNoSize();
    void tellsHowMuchItHasReadOfWhatItRefuses();
    void takesAReadErrorForAnError();
    void doesNotReadASparseFileBeyondTheBound();

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void ReadFileTest::givesEveryByteAsItStands()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    bytes += "\r\n\x1a\r\n";
    writefile(path("bytes"), bytes.repeated(1000));
    QCOMPARE(readregularfile(path("bytes"), 1000000), std::make_optional(bytes.repeated(1000)));
    writefile(path("empty"), QByteArray());
    QCOMPARE(readregularfile(path("empty"), 0), std::make_optional(QByteArray()));
}

void ReadFileTest::readsUpToTheBoundAndRefusesOneByteMore()
{
    for (const int size : {1, 65535, 65536, 65537, 200000}) {
        writefile(path("file"), QByteArray(size, 'x'));
        QCOMPARE(readregularfile(path("file"), size).value_or("none").size(), size);
        QVERIFY(!readregularfile(path("file"), size - 1));
    }
}

void ReadFileTest::readsAResource()
{
    const QString name = QStringLiteral(":/mappings/Mappings/Akai APC Mini.xml");
    const QByteArray bytes = readregularfile(name, 1000000).value_or(QByteArray());
    QVERIFY(bytes.contains("<layout"));
    const int size = static_cast<int>(bytes.size());
    QVERIFY(readregularfile(name, size));
    QVERIFY(!readregularfile(name, size - 1));
    QVERIFY(!readregularfile(":/missing", 10));
    QVERIFY(!readregularfile(":/", 10));
}

void ReadFileTest::readsThroughALink()
{
    writefile(path("target"), "text");
    QVERIFY(QFile::link(path("target"), path("link")));
    QCOMPARE(readregularfile(path("link"), 10), std::make_optional(QByteArray("text")));
}

void ReadFileTest::refusesWhatIsNoRegularFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no name") << QString();
    QTest::newRow("missing") << path("missing");
    QTest::newRow("missing folder") << path("missing/file");
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("device") << QStringLiteral("/dev/zero");
    QTest::newRow("terminal") << QStringLiteral("/dev/tty");
    QTest::newRow("device for terminals") << QStringLiteral("/dev/ptmx");
    // Nobody writes into the pipe: a reader that waits for it waits for ever.
    QTest::newRow("pipe") << path("pipe");
    QTest::newRow("link to a pipe") << path("pipelink");
    QTest::newRow("link to nothing") << path("dangling");
    QTest::newRow("link to itself") << path("circle");
}

void ReadFileTest::refusesWhatIsNoRegularFile()
{
    mkfifo(QFile::encodeName(path("pipe")).constData(), S_IRUSR | S_IWUSR);
    QFile::link(path("pipe"), path("pipelink"));
    QFile::link(path("nothing"), path("dangling"));
    QFile::link(path("circle"), path("circle"));
    QFETCH(QString, name);
    QVERIFY(!readregularfile(name, 1000));
}

void ReadFileTest::doesNotTakeTheBeginningOfANameForTheName()
{
    writefile(path("file"), "text");
    QVERIFY(!readregularfile(path("file") + QChar(0) + "more", 1000));
}

void ReadFileTest::keepsTheBoundForFilesThatTellNoSize()
{
    const QString maps = QStringLiteral("/proc/self/maps");
    if (!QFile::exists(maps)) {
        QTest::qSkip("This system has no /proc.", __FILE__, __LINE__);
        return;
    }
    QCOMPARE(QFileInfo(maps).size(), 0);
    QVERIFY(readregularfile(maps, 10000000).value_or(QByteArray()).size() > 100);
    QVERIFY(!readregularfile(maps, 100));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!readregularfile("/proc/self/pagemap", 8 * 1024 * 1024));
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

void ReadFileTest::tellsHowMuchItHasReadOfWhatItRefuses()
{
    int read = -1;
    writefile(path("file"), QByteArray(200000, 'x'));
    QVERIFY(readregularfile(path("file"), 200000, &read));
    QCOMPARE(read, 200000);
    // It says its size, and so is not read at all.
    QVERIFY(!readregularfile(path("file"), 199999, &read));
    QCOMPARE(read, 0);
    QVERIFY(!readregularfile(path("missing"), 10, &read));
    QCOMPARE(read, 0);
    if (!QFile::exists("/proc/self/maps")) {
        QTest::qSkip("This system has no /proc.", __FILE__, __LINE__);
        return;
    }
    for (const int most : {0, 99, 1000}) {
        QVERIFY(!readregularfile("/proc/self/maps", most, &read));
        QCOMPARE(read, most + 1);
    }
}

void ReadFileTest::takesAReadErrorForAnError()
{
    // It can be opened, even by root, but its first byte cannot be read.
    if (!QFile::exists("/proc/self/mem")) {
        QTest::qSkip("This system has no /proc.", __FILE__, __LINE__);
        return;
    }
    QVERIFY(!readregularfile("/proc/self/mem", 1000));
}

void ReadFileTest::doesNotReadASparseFileBeyondTheBound()
{
    writefile(path("sparse"), QByteArray());
    QVERIFY(QFile::resize(path("sparse"), qint64(1) << 40));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!readregularfile(path("sparse"), 8 * 1024 * 1024));
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_APPLESS_MAIN(ReadFileTest)
#include "tst_readfile.moc"
