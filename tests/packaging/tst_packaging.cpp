#include "application.h"
#include "dialog.h"
#include "testfiles.h"
#include "testmain.h"
#include "testwindow.h"

#include <QDirIterator>
#include <QDomDocument>
#include <QImage>
#include <QLabel>
#include <QMimeDatabase>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

namespace {

/// The folder that everything has been installed into.
const QTemporaryDir& prefix()
{
    static const QTemporaryDir folder;
    return folder;
}

QByteArray installed(const QString& file) { return contents(prefix().filePath(file)); }
QByteArray source(const QString& file) { return contents(QStringLiteral(SOURCE "/") + file); }
QByteArray built(const QString& file) { return contents(QStringLiteral(BUILD "/") + file); }

/// What the only group of \a pattern matches in \a text; a sentence when nothing does.
QString found(const QByteArray& text, const char* pattern)
{
    const QRegularExpression expression(QLatin1String(pattern), QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = expression.match(QString::fromUtf8(text));
    return match.hasMatch() ? match.captured(1) : QStringLiteral("nothing there");
}

/// The text that follows the key \a key of the property list \a plist.
QString plistvalue(const QByteArray& plist, const QString& key)
{
    QDomDocument document;
    document.setContent(plist);
    const QDomNodeList keys = document.elementsByTagName(QStringLiteral("key"));
    for (int i = 0; i < keys.count(); ++i) {
        const QDomElement element = keys.at(i).toElement();
        if (element.text() == key)
            return element.nextSiblingElement().text();
    }
    return QStringLiteral("nothing there");
}

/// How a PDF holds \a text in its description of itself.
QByteArray pdftext(const QString& text)
{
    QByteArray bytes;
    for (const QChar letter : text)
        bytes += QByteArray().append(char(letter.row())).append(char(letter.cell()));
    return bytes;
}

} // namespace

class PackagingTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void installsWhatUsersNeedAndNothingElse();
    void installsAReadmeThatLeadsNowhereElse();
    void startsFromItsMenuEntryWithoutArguments();
    void knowsProjects_data();
    void knowsProjects();
    void drawsEveryIconInItsSize();
    void bearsOneVersion();
    void namesItselfAlike();
};

void PackagingTest::initTestCase()
{
    QProcess cmake;
    cmake.start(QStringLiteral(CMAKE), {"--install", BUILD, "--prefix", prefix().path()});
    QVERIFY(cmake.waitForFinished(120000));
    QVERIFY2(cmake.exitCode() == 0, cmake.readAllStandardError().constData());
}

void PackagingTest::installsWhatUsersNeedAndNothingElse()
{
    QStringList expected{"bin/lumipad",
                         "share/applications/lumipad.desktop",
                         "share/doc/lumipad/CHANGELOG.md",
                         "share/doc/lumipad/Manual.pdf",
                         "share/doc/lumipad/README.md",
                         "share/doc/lumipad/docs/images/controller.png",
                         "share/doc/lumipad/docs/images/window.png",
                         "share/doc/lumipad/examples/Demo Show/Live/live.ini",
                         "share/doc/lumipad/examples/README.md",
                         "share/icons/hicolor/scalable/apps/lumipad.svg",
                         "share/icons/hicolor/scalable/mimetypes/application-x-lumipad-project.svg",
                         "share/metainfo/local.kestrel.Lumipad.metainfo.xml",
                         "share/mime/packages/lumipad.xml"};
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        const QString folder = QStringLiteral("share/icons/hicolor/%1x%1/").arg(size);
        expected << folder + "apps/lumipad.png" << folder + "mimetypes/application-x-lumipad-project.png";
    }
    QStringList all;
    QDirIterator entry(prefix().path(), QDir::Files | QDir::Hidden | QDir::System,
                       QDirIterator::Subdirectories);
    while (entry.hasNext())
        all.append(QDir(prefix().path()).relativeFilePath(entry.next()));
    all.sort();
    expected.sort();
    QCOMPARE(all, expected);
    QVERIFY(QFileInfo(prefix().filePath("bin/lumipad")).isExecutable());
    QCOMPARE(installed("share/doc/lumipad/Manual.pdf"), source("resources/icons/Images/Manual.pdf"));
}

void PackagingTest::installsAReadmeThatLeadsNowhereElse()
{
    const QByteArray readme = installed("share/doc/lumipad/README.md");
    // Its ends are those of the part for users.
    QVERIFY(source("README.md").startsWith(readme + "\n## "));
    QVERIFY(readme.contains("\n## How to use it\n"));
    static const QRegularExpression link(QStringLiteral("\\]\\(([^):]*)\\)"));
    int links = 0;
    for (auto found = link.globalMatch(QString::fromUtf8(readme)); found.hasNext(); ++links) {
        const QString file = found.next().captured(1);
        QVERIFY2(QFile::exists(prefix().filePath("share/doc/lumipad/" + file)), qPrintable(file));
    }
    QVERIFY(links > 0);
}

void PackagingTest::startsFromItsMenuEntryWithoutArguments()
{
    const QByteArray entry = installed("share/applications/lumipad.desktop");
    QCOMPARE(found(entry, "^Exec=(.*)$"), QString("lumipad"));
    QCOMPARE(found(entry, "^Icon=(.*)$"), QString("lumipad"));
    QCOMPARE(found(entry, "^Name=(.*)$"), QString("Lumipad"));
    // It would promise that a file could be opened by it.
    QVERIFY(!entry.contains("MimeType"));
}

void PackagingTest::knowsProjects_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("project");
    const QByteArray pads = source("tests/project/golden/pads-eight.os2l");
    const QByteArray midi = source("tests/project/golden/midi.os2l");
    QTest::newRow("by its name") << "Club.os2l" << QByteArray() << true;
    QTest::newRow("by its name in capitals") << "CLUB.OS2L" << QByteArray() << true;
    QTest::newRow("pads, by what it holds") << "Club" << pads << true;
    QTest::newRow("controller, by what it holds") << "Club" << midi << true;
    QTest::newRow("both") << "Club.os2l" << pads << true;
    QTest::newRow("a mapping") << "Club" << source("tests/controller/golden/apc-mini-club-combined.xml")
                               << false;
    QTest::newRow("a pads page") << "Club" << source("tests/padspage/golden/one-used-bank.xml") << false;
}

void PackagingTest::knowsProjects()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, project);
    // Beside ours only the types that the toolkit itself knows.
    qputenv("XDG_DATA_DIRS", prefix().filePath("share").toUtf8());
    const QMimeType type = QMimeDatabase().mimeTypeForFileNameAndData(name, bytes);
    QCOMPARE(type.name() == "application/x-lumipad-project", project);
    if (project) {
        QCOMPARE(type.iconName(), QString("application-x-lumipad-project"));
        QVERIFY(type.inherits("application/xml"));
        QCOMPARE(type.preferredSuffix(), QString("os2l"));
    }
}

void PackagingTest::drawsEveryIconInItsSize()
{
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        for (const char* name : {"apps/lumipad", "mimetypes/application-x-lumipad-project"}) {
            const QString file =
                QStringLiteral("share/icons/hicolor/%1x%1/%2.png").arg(size).arg(QLatin1String(name));
            const QImage icon(prefix().filePath(file));
            QVERIFY2(icon.size() == QSize(size, size), qPrintable(file));
            // A corner shows the desktop, the middle does not.
            QVERIFY2(icon.pixelColor(0, 0).alpha() < 128, qPrintable(file));
            QVERIFY2(icon.pixelColor(size / 2, size / 2).alpha() == 255, qPrintable(file));
        }
    }
}

void PackagingTest::bearsOneVersion()
{
    const QString version = found(source("CMakeLists.txt"), "^project\\(Lumipad VERSION ([0-9.]+) ");
    QCOMPARE(version, QString("2.0"));
    const TestWindow window; // brings the resources of the box
    const Dialog about;
    QCOMPARE(about.findChild<QLabel*>("label_7")->text(), "Lumipad ver." + version + " - 2020 - Kestrel");
    nameapplication();
    QCOMPARE(QCoreApplication::applicationVersion(), version);

    const QByteArray changelog = source("CHANGELOG.md");
    QCOMPARE(found(changelog, "^## \\[([0-9][^\\]]*)\\]"), version);
    const QString date = found(changelog, "^## \\[[0-9][^\\]]*\\] - ([0-9]{4}-[0-9]{2}-[0-9]{2})$");
    QVERIFY(QDate::fromString(date, Qt::ISODate).isValid());

    const QByteArray metainfo = installed("share/metainfo/local.kestrel.Lumipad.metainfo.xml");
    QCOMPARE(found(metainfo, "<release version=\"([^\"]*)\""), version);
    QCOMPARE(found(metainfo, "<release version=\"[^\"]*\" date=\"([^\"]*)\""), date);
    QCOMPARE(found(built("CPackConfig.cmake"), "^set\\(CPACK_PACKAGE_VERSION \"([^\"]*)\"\\)"), version);
    QCOMPARE(found(built("packaging/changelog"), "^lumipad \\(([^)]*)\\)"), version);
    QCOMPARE(found(built("packaging/lumipad.1"), "\"Lumipad ([^\"]*)\""), version);
    QCOMPARE(plistvalue(built("packaging/Info.plist"), "CFBundleShortVersionString"), version);
    QCOMPARE(plistvalue(built("packaging/Info.plist"), "CFBundleVersion"), version);
    QVERIFY(installed("share/doc/lumipad/Manual.pdf").contains(pdftext("Lumipad " + version + " manual")));
    QCOMPARE(found(built("packaging/lumipad.rc"), "\"ProductVersion\", \"([^\\\\]*)"), version);
}

void PackagingTest::namesItselfAlike()
{
    const QByteArray metainfo = installed("share/metainfo/local.kestrel.Lumipad.metainfo.xml");
    QCOMPARE(found(metainfo, "<id>(.*)</id>"), QString("local.kestrel.Lumipad"));
    QCOMPARE(found(metainfo, "<launchable type=\"desktop-id\">(.*)</launchable>"),
             QString("lumipad.desktop"));
    QCOMPARE(plistvalue(built("packaging/Info.plist"), "CFBundleIdentifier"),
             QString("local.kestrel.Lumipad"));
    QCOMPARE(plistvalue(built("packaging/Info.plist"), "public.filename-extension").trimmed(),
             QString("os2l"));
    nameapplication();
    QCOMPARE(QGuiApplication::desktopFileName(), QString("lumipad"));
    // No licence has been chosen, and both say so.
    QCOMPARE(found(metainfo, "<project_license>(.*)</project_license>"), QString("LicenseRef-none-chosen"));
    QCOMPARE(found(built("packaging/copyright"), "^License: (.*)$"), QString("none-chosen"));
}

LUMIPAD_TEST_MAIN(PackagingTest)
#include "tst_packaging.moc"
