// Files and folders that another program changes between a dialog and what the program then does. The tests
// run as an ordinary user: an administrator may write everywhere.

#include "fulldisk.h"
#include "session.h"
#include "testmain.h"

#include <QComboBox>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace {

const TestHome* testhome = nullptr;

constexpr QFile::Permissions all = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
constexpr QFile::Permissions readable = QFile::ReadOwner | QFile::ExeOwner;

/// Gives up what an administrator may do, for good.
void becomeordinary()
{
    constexpr uid_t nobody = 65534;
    if (geteuid() != 0)
        return;
    if (setgroups(0, nullptr) != 0 || setgid(nobody) != 0 || setuid(nobody) != 0)
        qFatal("The test cannot become an ordinary user");
#ifdef Q_OS_LINUX
    prctl(PR_SET_DUMPABLE, 1); // else the leak check at the end may not look
#endif
}

/// What a file may become while a dialog is open.
void addchangerows()
{
    QTest::addColumn<QString>("became");
    for (const char* became :
         {"nothing", "unreadable", "a folder", "a link to nowhere", "a pipe", "an endless file"})
        QTest::newRow(became) << QString::fromLatin1(became);
}

void change(const QString& path, const QString& became)
{
    if (became == "unreadable") {
        QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
        return;
    }
    QVERIFY(QFile::remove(path));
    if (became == "a folder")
        QVERIFY(QDir().mkdir(path));
    else if (became == "a link to nowhere")
        QVERIFY(QFile::link(QStringLiteral("/nowhere"), path));
    else if (became == "a pipe")
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    else if (became == "an endless file")
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), path));
}

/// The answer that chooses \a chosen in a file dialog, with \a path changed once the dialog is closed.
Answer choosebutchange(const QString& chosen, const QString& path, const QString& became)
{
    return [=](QDialog* dialog) {
        Answers::choose(chosen)(dialog);
        change(path, became);
    };
}

} // namespace

class FoldersTest : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void keepsTheShowWhenTheOtherOneVanishes_data() { addchangerows(); }
    void keepsTheShowWhenTheOtherOneVanishes();
    void keepsTheWorkWhenTheProjectVanishes_data() { addchangerows(); }
    void keepsTheWorkWhenTheProjectVanishes();
    void exportsWithoutFactoryActionsWhenTheMappingVanishes_data() { addchangerows(); }
    void exportsWithoutFactoryActionsWhenTheMappingVanishes();
    void writesNothingWhenTheFolderVanishes_data() { addwriterows(); }
    void writesNothingWhenTheFolderVanishes();
    void writesWholeFilesIntoAFolderThatBecameUnwritable_data() { addwriterows(); }
    void writesWholeFilesIntoAFolderThatBecameUnwritable();
    void keepsTheFileThatBecameUnwritableToo_data() { addwriterows(); }
    void keepsTheFileThatBecameUnwritableToo();
    void keepsAWholeFileInAnUnwritableFolderOnAFullDisk_data() { addwriterows(); }
    void keepsAWholeFileInAnUnwritableFolderOnAFullDisk();

private:
    static QByteArray write(const Session& session)
    {
        session.write();
        return contents(session.path());
    }
};

/// Every test starts with folders that are as the program made them.
void FoldersTest::cleanup()
{
    for (const char* folder :
         {"Documents/Lumipad/projects", "Documents/VirtualDJ/Pads", "Documents/VirtualDJ/Mappers"}) {
        const QString path = testhome->makefolder(QLatin1String(folder));
        QVERIFY(QFile::setPermissions(path, all));
        QVERIFY(QDir(path).removeRecursively());
    }
    QVERIFY(QDir(testhome->path(QStringLiteral("TheLightingController"))).removeRecursively());
}

void FoldersTest::keepsTheShowWhenTheOtherOneVanishes()
{
    QFETCH(QString, became);
    const Session session(*testhome, Write::PadsProject);
    const QString other = writeshow(*testhome, QStringLiteral("Other"));
    const auto pads = session.window.vdjModel->getList();
    QList<Answer> answers{Answers::press(QMessageBox::Yes),
                          choosebutchange(other, other + QStringLiteral("/Live/live.ini"), became)};
    if (became == "nothing" || became == "a link to nowhere")
        answers << Answers::press(QMessageBox::Ok);
    const Dialogs dialogs(answers);
    session.window.child<QAction>("actionNew")->trigger();
    QCOMPARE(dialogs.count(), answers.size());
    if (answers.size() == 3)
        QCOMPARE(dialogs.at(2).text,
                 QString("LightShow Settings file not found. Please select a different LightShow Folder"));
    QCOMPARE(session.window.vdjModel->getList(), pads);
    QCOMPARE(session.window.windowTitle(), QString("Lumipad - Friday"));
    QCOMPARE(session.window.buttons.size(), 5);
}

void FoldersTest::keepsTheWorkWhenTheProjectVanishes()
{
    QFETCH(QString, became);
    const Session session(*testhome, Write::PadsProject);
    session.write();
    session.put(1, 3);
    const auto pads = session.window.vdjModel->getList();
    const Dialogs dialogs({Answers::press(QMessageBox::Yes),
                           choosebutchange(session.path(), session.path(), became),
                           Answers::press(QMessageBox::Ok)});
    session.window.child<QAction>("actionLoad_Project")->trigger();
    QCOMPARE(dialogs.at(2).text, QString("Failed to load the Project's Show."));
    QCOMPARE(session.window.vdjModel->getList(), pads);
}

void FoldersTest::exportsWithoutFactoryActionsWhenTheMappingVanishes()
{
    QFETCH(QString, became);
    const QString mapping =
        testhome->makefolder(QStringLiteral("Documents/VirtualDJ/Mappers")) + QStringLiteral("/mine.xml");
    writefile(mapping, "<mapper device=\"APCMINI\"><map value=\"ROW1_PAD2\" action=\"mine\"/></mapper>");
    const Session session(*testhome, Write::Mapping);
    auto* mappings = session.window.child<QComboBox>("mididevices");
    QCOMPARE(mappings->itemText(2), QString("mine"));
    mappings->setCurrentIndex(2);
    QVERIFY(write(session).contains("\"var &apos;$os2l&apos; ? nothing : mine\""));

    change(mapping, became);
    QVERIFY(session.write().endsWith(QLatin1String(" is created.")));
    const QByteArray text = contents(session.path());
    QVERIFY(text.startsWith("<?xml ") && text.endsWith("</mapper>\n") && !text.contains("mine\""));
    // Without a file there are no controls; one that cannot be read leaves them without actions of the
    // factory.
    const bool isgone = became == "nothing" || became == "a link to nowhere";
    QCOMPARE(text.contains("\"ROW1_PAD2\" action=\"var &apos;$os2l&apos; ? nothing\""), !isgone);
}

void FoldersTest::writesNothingWhenTheFolderVanishes()
{
    QFETCH(int, kind);
    QFETCH(bool, earlier);
    const Session session(*testhome, Write(kind));
    if (earlier)
        write(session);
    const auto vanish = [&] { QVERIFY(QDir(session.folder()).removeRecursively()); };
    if (!earlier && !isproject(Write(kind)))
        vanish(); // no dialog comes before the writing
    const QString said = session.write(vanish);
    QCOMPARE(said.endsWith(isproject(Write(kind)) ? " was not saved." : " is created."), true);
    QVERIFY(!QFileInfo::exists(session.folder()));
}

void FoldersTest::writesWholeFilesIntoAFolderThatBecameUnwritable()
{
    QFETCH(int, kind);
    QFETCH(bool, earlier);
    const Session session(*testhome, Write(kind));
    const QByteArray before = earlier ? write(session) : contents(session.path());
    session.put(1, 3);
    const auto lock = [&] { QVERIFY(QFile::setPermissions(session.folder(), readable)); };
    if (!earlier && !isproject(Write(kind)))
        lock();
    const QString said = session.write(lock);
    const QByteArray written = contents(session.path());
    QVERIFY(QFile::setPermissions(session.folder(), all));
    const QByteArray after = earlier ? write(session) : QByteArray("unlike any file");
    if (earlier)
        QVERIFY(written == after && written != before);
    else
        QVERIFY(!QFileInfo::exists(session.path()));
    session.checkwhole(said, before, after);
}

void FoldersTest::keepsTheFileThatBecameUnwritableToo()
{
    QFETCH(int, kind);
    QFETCH(bool, earlier);
    const Session session(*testhome, Write(kind));
    const QByteArray before = earlier ? write(session) : contents(session.path());
    session.put(1, 3);
    const auto lock = [&] {
        if (earlier)
            QVERIFY(QFile::setPermissions(session.path(), QFile::ReadOwner));
        QVERIFY(QFile::setPermissions(session.folder(), readable));
    };
    if (!earlier && !isproject(Write(kind)))
        lock();
    const QString said = session.write(lock);
    QVERIFY(QFile::setPermissions(session.folder(), all));
    QCOMPARE(contents(session.path()), before);
    session.checkwhole(said, before, "unlike any file");
}

void FoldersTest::keepsAWholeFileInAnUnwritableFolderOnAFullDisk()
{
    QFETCH(int, kind);
    QFETCH(bool, earlier);
    const Session session(*testhome, Write(kind));
    write(session);
    const QByteArray small("an earlier file, and a small one");
    session.put(1, 3);
    const QByteArray after = write(session);
    for (int size = 0; size < after.size(); size += 2039) {
        QFile::remove(session.path());
        if (earlier)
            writefile(session.path(), small);
        const QByteArray before = contents(session.path());
        QVERIFY(QFile::setPermissions(session.folder(), readable));
        QString said;
        {
            const FullDisk disk(static_cast<rlim_t>(size));
            said = session.write();
        }
        QVERIFY(QFile::setPermissions(session.folder(), all));
        session.checkwhole(said, before, after);
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(contents(session.path()), before);
    }
}

int main(int argc, char* argv[])
{
    becomeordinary();
    const TestHome home;
    testhome = &home;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const DialogWatch watch;
    FoldersTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_folders.moc"
