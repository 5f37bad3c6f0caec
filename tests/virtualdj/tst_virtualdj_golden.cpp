#include "judge.h"
#include "testfiles.h"

#include <QDir>
#include <QDirIterator>
#include <QTextStream>
#include <QtTest>

/// Every golden file of all tests, judged by what its test has dropped where; of one that names break, what
/// is left when they are read as others.
class GoldenTest : public QObject
{
    Q_OBJECT

private slots:
    void pressesWhatWasDropped_data();
    void pressesWhatWasDropped();
    void judgesNoFileThatIsGone();
    void cleanupTestCase() { QTextStream(stdout) << m_judge.summary() << '\n'; }

private:
    VirtualDj::Judge m_judge;
};

namespace {

const QString expectedFolder = QStringLiteral(TEST_DATA_DIR "/expected");

/// The golden files that VirtualDJ would load, by the name of their expectation.
QMap<QString, QString> goldenfiles()
{
    QMap<QString, QString> files;
    QDirIterator all(QStringLiteral(TEST_DATA_DIR "/.."), {QStringLiteral("*.xml")}, QDir::Files,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QFileInfo file(all.next());
        QDir folder = file.dir();
        if (folder.dirName() != QLatin1String("golden"))
            continue;
        folder.cdUp();
        const QByteArray head = contents(file.filePath()).left(400);
        const bool ours = head.contains("author=\"Lumipad\"") || head.contains("<page ");
        if (ours)
            files.insert(folder.dirName() + QLatin1Char('-') + file.completeBaseName(), file.filePath());
    }
    return files;
}

} // namespace

void GoldenTest::pressesWhatWasDropped_data()
{
    QTest::addColumn<QString>("path");
    const QMap<QString, QString> files = goldenfiles();
    QVERIFY(files.size() >= 20);
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        QTest::newRow(qPrintable(file.key())) << file.value();
}

void GoldenTest::pressesWhatWasDropped()
{
    QFETCH(QString, path);
    const QString expectation =
        expectedFolder + QLatin1Char('/') + QLatin1String(QTest::currentDataTag()) + QStringLiteral(".json");
    QVERIFY2(QFile::exists(expectation),
             qPrintable("Nobody has written down what " + path + " should do: there is no " + expectation));
    m_judge.complaints.clear();
    const qint64 before = m_judge.presses;
    const VirtualDj::Expectation expected =
        VirtualDj::readexpectation(contents(expectation), QStringLiteral(LAYOUTS_DIR), expectedFolder);
    m_judge.file(contents(path), expected);
    QVERIFY2(m_judge.complaints.isEmpty(), qPrintable(m_judge.complaints.join('\n')));
    QVERIFY(m_judge.presses > before);
    // Every name that is read as another one has broken or garbled the file.
    const QList<QString> names = expected.broken.keys();
    for (const QString& name : names) {
        VirtualDj::Expectation others = expected;
        others.broken.remove(name);
        VirtualDj::Judge judge;
        judge.file(contents(path), others);
        QVERIFY2(!judge.complaints.isEmpty(), qPrintable(name));
    }
}

void GoldenTest::judgesNoFileThatIsGone()
{
    const QMap<QString, QString> files = goldenfiles();
    const QStringList expectations = QDir(expectedFolder).entryList({QStringLiteral("*.json")});
    for (const QString& expectation : expectations)
        QVERIFY2(files.contains(QFileInfo(expectation).completeBaseName()), qPrintable(expectation));
}

QTEST_GUILESS_MAIN(GoldenTest)
#include "tst_virtualdj_golden.moc"
