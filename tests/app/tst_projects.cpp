#include "bounds.h"
#include "controller.h"
#include "fulldisk.h"
#include "itemroles.h"
#include "midiwindow.h"
#include "mymodel.h"
#include "testcheck.h"
#include "testfiles.h"
#include "testmain.h"
#include "testshows.h"
#include "testwindow.h"
#include "vdjmodel.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRandomGenerator>
#include <QTableView>

#include <sys/stat.h>

namespace {

const QString overwriteQuestion = QStringLiteral("Do you want to overwrite ?");
const QString replaceQuestion =
    QStringLiteral("Are you sure you want to load a Project before saving current ?");
const QString loadFailed = QStringLiteral("Failed to load the Project's Show.");
const QStringList firstBanks{"BANK 1", "BANK 2", "BANK 3", "BANK 4", "BANK 5", "BANK 6", "BANK 7", "BANK 8"};

Answer ok() { return Answers::press(QMessageBox::Ok); }

Answer cancel() { return Answers::key(Qt::Key_Escape); }

/// A project file with the attributes \a head and the elements \a keys.
QByteArray projectfile(const QByteArray& head, const QByteArray& keys = QByteArray())
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project " + head + " >\n" + keys + "</project>\n";
}

/// The window in a home folder of its own; the show "Friday" is there, and loaded unless asked otherwise.
struct Session
{
    enum class Show { Loaded, None };

    explicit Session(Show loaded = Show::Loaded)
    {
        if (loaded == Show::Loaded) {
            window.showName = QStringLiteral("Friday");
            window.loadshowname(ini);
        }
    }

    TestHome home;
    QString ini = writeshow(home, QStringLiteral("Friday")) + QStringLiteral("/Live/live.ini");
    TestWindow window;

    QString path(const QString& name) const { return window.projectsPath + QLatin1Char('/') + name; }
    QByteArray show() const { return " show=\"" + ini.toUtf8() + "\" showname=\"Friday\" "; }

    /// Everything in the projects folder, hidden and temporary files included.
    QStringList files() const
    {
        return QDir(window.projectsPath)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }
    /// A golden file, with this session's show in it.
    QByteArray golden(const QString& name) const
    {
        QByteArray text = contents(QStringLiteral(TEST_DATA_DIR "/../project/golden/") + name);
        return text.replace("/home/dj/LightShows/Friday/Live/live.ini", ini.toUtf8());
    }
    /// Drags Live Button \a button (0 Strobe, 1 Blackout, 2 Slow Fade, 3 Circle, 4 Ballyhoo) onto a cell.
    void put(int button, QAbstractItemModel* grid, int row, int column, const QString& text = QString()) const
    {
        const QModelIndex target = grid->index(row, column);
        MidiWindow::drop(window.dmxModel->index(button, 0), target);
        if (!text.isNull())
            grid->setData(target, text, Qt::EditRole);
    }
    void putpad(int button, int row, int column = 0, const QString& text = QString()) const
    {
        put(button, window.vdjModel, row, column, text);
    }
    void click(const char* name) const { window.child<QAbstractButton>(name)->click(); }
    void settext(const char* name, const QString& text) const
    {
        auto* edit = window.child<QLineEdit>(name);
        edit->setText(text);
        emit edit->editingFinished();
    }
    void setbank(int bank, const QString& name) const
    {
        window.child<QComboBox>("bankcombo")->setCurrentIndex(bank);
        settext("bankname", name);
    }
    void selectdevice(const QString& id)
    {
        window.child<QComboBox>("devicescombo")->setCurrentIndex(window.getdeviceindex(id));
    }

    /// What `pads-eight.os2l` holds.
    void puteightpads() const
    {
        putpad(0, 0, 0, QStringLiteral("STROBE"));
        putpad(1, 17);
        putpad(3, 5, 1);
        setbank(2, QStringLiteral("Drop"));
    }
    /// What `pads-sixteen.os2l` holds.
    void putsixteenpads() const
    {
        putpad(4, 15, 1, QStringLiteral(u"Let's go > \u00e9t\u00e9 \u263a"));
        putpad(2, 63);
        putpad(2, 63, 1);
        putpad(0, 0, 1);
        setbank(0, QStringLiteral("Intro"));
        setbank(1, QString());
        setbank(2, QStringLiteral("Peak > time"));
        setbank(3, QStringLiteral("Chill's"));
        setbank(7, QStringLiteral(u"Fin\u00e9"));
        settext("padsname", QStringLiteral("Club night"));
        click("radioButton_16pads");
    }
    /// What `midi.os2l` holds.
    void putmidi()
    {
        selectdevice(QStringLiteral("APCMINI"));
        click("radio_outputmidi");
        settext("padsname", QStringLiteral("Club night"));
        window.child<QComboBox>("combo_offcolor")->setCurrentIndex(0);
        window.child<QComboBox>("combo_oncolor")->setCurrentIndex(2);
        Controller* grid = window.controllerModel;
        put(0, grid, 2, 2);
        put(3, grid, 9, 9);
        put(2, grid, 2, 11);
        put(4, grid, 11, 5);
        grid->setData(grid->index(2, 2), "green", ItemRole::ColorOff);
        grid->setData(grid->index(2, 2), "red", ItemRole::ColorOn);
        grid->setData(grid->index(2, 2), "1", ItemRole::Blink);
        grid->setData(grid->index(2, 11), "#aa00ff", ItemRole::ColorOn);
        grid->setData(grid->index(11, 5), "yellow", ItemRole::ColorOff);
        grid->setData(grid->index(11, 5), "1", ItemRole::Blink);
        window.menuIndex = grid->index(11, 2);
        window.ontoggleaction_triggered();
    }

    /// Saves by the menu, answering the dialogs, and gives those.
    QList<ShownDialog> save(const QList<Answer>& answers) const
    {
        const Dialogs dialogs(answers);
        window.child<QAction>("actionSave_2")->trigger();
        return DialogWatch::shown();
    }
    /// Saves as the file \a path, which is not there yet.
    QList<ShownDialog> saveas(const QString& file) const { return save({Answers::choose(file), ok()}); }

    /// Loads by the menu, answering the dialogs, and gives those.
    QList<ShownDialog> load(const QList<Answer>& answers) const
    {
        const Dialogs dialogs(answers);
        window.child<QAction>("actionLoad_Project")->trigger();
        return DialogWatch::shown();
    }
    /// Loads a project file with the content \a text; work that is there is given up.
    QList<ShownDialog> loadtext(const QByteArray& text, const QList<Answer>& then = {})
    {
        const QString file = path("loaded.os2l");
        writefile(file, text);
        return loadfile(file, then);
    }
    QList<ShownDialog> loadfile(const QString& file, const QList<Answer>& then = {})
    {
        const bool midi = window.child<QRadioButton>("radio_outputmidi")->isChecked();
        QList<Answer> answers{Answers::choose(file)};
        if (!window.showName.isEmpty() && !(midi ? window.isMIDIempty() : window.isVDJempty()))
            answers.prepend(Answers::press(QMessageBox::Yes));
        return load(answers + then);
    }

    /// All that a user would miss if it were gone, as text.
    QStringList work() const
    {
        QStringList all{window.showName, window.iniPath, window.windowTitle(), window.banks.join('|')};
        for (const int line : window.switchPad)
            all.append(QString::number(line));
        for (const char* name : {"padsname", "bankname"})
            all.append(window.child<QLineEdit>(name)->text());
        all.append(window.child<QLabel>("label_padname")->text());
        for (const char* name :
             {"combobox", "devicescombo", "mididevices", "combo_offcolor", "combo_oncolor", "bankcombo"}) {
            const auto* combo = window.child<QComboBox>(name);
            all.append(QString::number(combo->count()) + ':' + QString::number(combo->currentIndex()));
        }
        for (const char* name :
             {"radio_outputpage", "radio_outputmidi", "radioButton_8pads", "radioButton_16pads"})
            all.append(QString::number(int(window.child<QRadioButton>(name)->isChecked())));
        const auto* pads = window.child<QTableView>("vdjlistview");
        all.append(QString::number(int(pads->isColumnHidden(1))) + QString::number(window.width()));
        for (int row = 0; row < window.vdjModel->rowCount(); ++row)
            all.append(QString::number(int(pads->isRowHidden(row))));
        const QList<const QAbstractItemModel*> models{window.dmxModel, window.vdjModel,
                                                      window.controllerModel};
        for (const QAbstractItemModel* model : models)
            for (int row = 0; row < model->rowCount(); ++row)
                for (int column = 0; column < model->columnCount(); ++column)
                    for (const int role : {int(Qt::EditRole), int(Qt::DecorationRole),
                                           int(Qt::CheckStateRole), 256, 257, 259, 260, 261, 262, 263})
                        all.append(model->index(row, column).data(role).toString());
        return all;
    }

    QList<int> checkedrows() const
    {
        QList<int> rows;
        for (int row = 0; row < window.dmxModel->rowCount(); ++row)
            if (window.dmxModel->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked)
                rows.append(row);
        return rows;
    }
    QList<int> shownrows() const
    {
        QList<int> rows;
        const auto* view = window.child<QTableView>("vdjlistview");
        for (int row = 0; row < window.vdjModel->rowCount(); ++row)
            if (!view->isRowHidden(row))
                rows.append(row);
        return rows;
    }
};

void compareMessage(const ShownDialog& box, const QString& text, const Session& session)
{
    QVERIFY(box.isMessageBox);
    QCOMPARE(box.text, text);
    QCOMPARE(box.informativeText, QString());
    QCOMPARE(int(box.buttons), int(QMessageBox::StandardButtons(QMessageBox::Ok)));
    QCOMPARE(box.defaultButton, QMessageBox::Ok);
    QCOMPARE(box.styleSheet, session.window.messageBoxStyle);
    QVERIFY(!box.parent);
}

void compareOverwrite(const ShownDialog& box, const QString& name, const Session& session)
{
    QVERIFY(box.isMessageBox);
    QCOMPARE(box.text, "Project " + name + " already exists.");
    QCOMPARE(box.informativeText, overwriteQuestion);
    QCOMPARE(int(box.buttons), int(QMessageBox::Yes | QMessageBox::No));
    QCOMPARE(box.defaultButton, QMessageBox::No);
    QCOMPARE(box.styleSheet, session.window.messageBoxStyle);
    QVERIFY(!box.parent);
}

void compareGuard(const ShownDialog& box, const Session& session)
{
    QVERIFY(box.isMessageBox);
    QCOMPARE(box.text, replaceQuestion);
    QCOMPARE(box.informativeText, QString());
    QCOMPARE(int(box.buttons), int(QMessageBox::Yes | QMessageBox::Save | QMessageBox::Cancel));
    QCOMPARE(box.defaultButton, QMessageBox::Cancel);
    QCOMPARE(box.styleSheet, session.window.messageBoxStyle);
    QVERIFY(!box.parent);
}

void compareLines(const QByteArray& written, const QByteArray& expected)
{
    const QList<QByteArray> lines = written.split('\n');
    const QList<QByteArray> expectedLines = expected.split('\n');
    for (int line = 0; line < qMin(lines.size(), expectedLines.size()); ++line)
        QCOMPARE(lines.at(line), expectedLines.at(line));
    QCOMPARE(written, expected);
}

/// Text of 1 to \a length characters that a project keeps as they are.
QString generated(QRandomGenerator* random, int length)
{
    static const QString letters =
        QStringLiteral(u"abcXYZ0189 _-,;:'>/\\()[]{}%1%n#=+*?!\u00e9\u00df\u263a\u4e2d");
    QString text;
    for (int n = random->bounded(1, length + 1); n > 0; --n)
        text += letters.at(random->bounded(letters.size()));
    return text;
}

} // namespace

class ProjectsTest : public QObject
{
    Q_OBJECT

private slots:
    void saysThatThereIsNothingToSave_data();
    void saysThatThereIsNothingToSave();
    void looksAtTheChosenOutputOnly();
    void asksWhereToSave();
    void savesNothingWhenCancelled();
    void savesTheWork_data();
    void savesTheWork();
    void saysTheNameUpToItsFirstDot_data();
    void saysTheNameUpToItsFirstDot();
    void keepsTheOldFileUnlessAnsweredYes_data();
    void keepsTheOldFileUnlessAnsweredYes();
    void replacesTheOldFileWhenAnsweredYes();
    void saysThatItWasNotSaved_data();
    void saysThatItWasNotSaved();
    void keepsAFolderThatHasTheProjectsName();
    void keepsTheOldProjectOnAFullDisk_data();
    void keepsTheOldProjectOnAFullDisk();
    void savesWhatIsStillBeingTyped();
    void savesAPadThatIsStillBeingEdited();

    void asksWhichProjectToLoad();
    void loadsWithoutAskingWhenNothingIsLost_data();
    void loadsWithoutAskingWhenNothingIsLost();
    void leavesTheWorkAloneUnlessAllowed_data();
    void leavesTheWorkAloneUnlessAllowed();
    void savesFirstWhenAsked();
    void loadsAlsoWhenTheSaveFails();
    void leavesTheWorkAloneWhenItCannotLoad_data();
    void leavesTheWorkAloneWhenItCannotLoad();
    void leavesTheWorkAloneWhenTheFileVanishes_data();
    void leavesTheWorkAloneWhenTheFileVanishes();
    void leavesTheWorkAloneForAHugeFile();
    void restoresThePadsPage_data();
    void restoresThePadsPage();
    void restoresTheController();
    void replacesAllOfTheFormerWork();
    void marksTheLiveButtonsOfEveryColumn();
    void restoresTheBankNames_data();
    void restoresTheBankNames();
    void restoresTheSwitch_data();
    void restoresTheSwitch();
    void restoresDeviceAndColors_data();
    void restoresDeviceAndColors();
    void appliesWhatAMalformedFileHolds();
    void appliesTheLastOfTwoProjects();
    void restoresNothingWhenOneOfTwoShowsIsGone();
    void leavesTheWorkAloneForMoreProjectsThanAPersonHas();
    void keepsTheShowOfAProjectThatCannotBeRead();
    void showsTheBeginningOfALongShowName();
    void loadsKeysWithoutAProject();
    void keepsGoingWithOddKeys();
    void survivesOddProjects_data();
    void survivesOddProjects();
    void savesTheSameBytesAgain_data();
    void savesTheSameBytesAgain();
};

void ProjectsTest::saysThatThereIsNothingToSave_data()
{
    QTest::addColumn<bool>("show");
    QTest::addColumn<bool>("midi");
    QTest::addColumn<QString>("text");
    QTest::newRow("no show") << false << false << "Nothing to Save. Load a Show";
    QTest::newRow("no show, MIDI") << false << true << "Nothing to Save. Load a Show";
    QTest::newRow("empty pads") << true << false << "Nothing to Save. Pads are empty";
    QTest::newRow("empty controller") << true << true << "Nothing to Save. Pads are empty";
}

void ProjectsTest::saysThatThereIsNothingToSave()
{
    QFETCH(bool, show);
    QFETCH(bool, midi);
    QFETCH(QString, text);
    const Session session(show ? Session::Show::Loaded : Session::Show::None);
    if (midi)
        session.click("radio_outputmidi");
    const QList<ShownDialog> shown = session.save({ok()});
    QCOMPARE(shown.size(), 1);
    CHECK(compareMessage(shown.at(0), text, session));
    QCOMPARE(session.files(), QStringList());
}

void ProjectsTest::looksAtTheChosenOutputOnly()
{
    const Session session;
    session.putpad(0, 0);
    session.click("radio_outputmidi");
    CHECK(compareMessage(session.save({ok()}).value(0), "Nothing to Save. Pads are empty", session));
    session.click("radio_outputpage");
    session.saveas(session.path("pads.os2l"));
    QVERIFY(contents(session.path("pads.os2l")).contains("<project type=\"pads\" show="));
    // A Live Button in the column that is not shown is work as well.
    const Session hidden;
    hidden.putpad(0, 63, 1);
    QCOMPARE(hidden.saveas(hidden.path("hidden.os2l")).size(), 2);
}

void ProjectsTest::asksWhereToSave()
{
    for (const bool midi : {false, true}) {
        const Session session;
        if (midi)
            session.click("radio_outputmidi");
        if (midi)
            session.put(0, session.window.controllerModel, 4, 4);
        else
            session.putpad(0, 0);
        QStringList filters;
        bool confirms = true;
        bool saving = false;
        const auto look = [&](QDialog* dialog) {
            if (const auto* files = qobject_cast<QFileDialog*>(dialog)) {
                filters = files->nameFilters();
                confirms = !files->testOption(QFileDialog::DontConfirmOverwrite);
                saving = files->acceptMode() == QFileDialog::AcceptSave;
            }
        };
        const QList<ShownDialog> shown = session.save({Answers::looking(look, cancel())});
        QCOMPARE(shown.size(), 1);
        QVERIFY(shown.at(0).isFileDialog);
        QCOMPARE(shown.at(0).title, QString("Save your Lumipad Project"));
        QCOMPARE(shown.at(0).folder, session.window.projectsPath);
        QCOMPARE(shown.at(0).parent, &session.window);
        QCOMPARE(filters, QStringList("OS2L Projects (*.os2l)"));
        QVERIFY(saving);
        QVERIFY(!confirms);
    }
}

void ProjectsTest::savesNothingWhenCancelled()
{
    const Session session;
    session.puteightpads();
    const QStringList work = session.work();
    for (const Answer& answer : {cancel(), Answers::closebox()})
        QCOMPARE(session.save({answer}).size(), 1);
    QCOMPARE(session.files(), QStringList());
    QCOMPARE(session.work(), work);
}

void ProjectsTest::savesTheWork_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("8 pads") << "pads-eight.os2l";
    QTest::newRow("16 pads") << "pads-sixteen.os2l";
    QTest::newRow("MIDI") << "midi.os2l";
}

/// Puts the work of the golden file \a kind into the session's window.
static void putwork(Session* session, const QString& kind)
{
    if (kind == "midi.os2l")
        session->putmidi();
    else if (kind == "pads-sixteen.os2l")
        session->putsixteenpads();
    else
        session->puteightpads();
}

void ProjectsTest::savesTheWork()
{
    QFETCH(QString, kind);
    Session session;
    putwork(&session, kind);
    const QStringList work = session.work();
    const QList<ShownDialog> shown = session.saveas(session.path("mine.os2l"));
    QCOMPARE(shown.size(), 2);
    CHECK(compareMessage(shown.at(1), "Project mine is saved.", session));
    CHECK(compareLines(contents(session.path("mine.os2l")), session.golden(kind)));
    QCOMPARE(session.files(), QStringList("mine.os2l"));
    QCOMPARE(session.work(), work);
}

void ProjectsTest::saysTheNameUpToItsFirstDot_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::newRow("extension") << "mine.os2l"
                               << "mine";
    QTest::newRow("no extension, and none is added") << "mine"
                                                     << "mine";
    QTest::newRow("another extension") << "mine.txt"
                                       << "mine";
    QTest::newRow("two dots") << "set.v2.os2l"
                              << "set";
    QTest::newRow("a dot first") << ".os2l"
                                 << "";
    QTest::newRow("markup and percent signs") << "<b>100% %1.os2l"
                                              << "<b>100% %1";
    QTest::newRow("other letters") << QStringLiteral(u"\u00e9t\u00e9 \u263a.os2l")
                                   << QStringLiteral(u"\u00e9t\u00e9 \u263a");
}

void ProjectsTest::saysTheNameUpToItsFirstDot()
{
    QFETCH(QString, file);
    QFETCH(QString, name);
    const Session session;
    session.puteightpads();
    CHECK(compareMessage(session.saveas(session.path(file)).value(1), "Project " + name + " is saved.",
                         session));
    QCOMPARE(session.files(), QStringList(file));
    CHECK(compareOverwrite(
        session.save({Answers::choose(session.path(file)), Answers::press(QMessageBox::No)}).value(1), name,
        session));
}

void ProjectsTest::keepsTheOldFileUnlessAnsweredYes_data() { Answers::addrefusals(); }

void ProjectsTest::keepsTheOldFileUnlessAnsweredYes()
{
    QFETCH(Answer, answer);
    for (const bool midi : {false, true}) {
        Session session;
        putwork(&session, midi ? "midi.os2l" : "pads-eight.os2l");
        writefile(session.path("mine.os2l"), "old");
        const QList<ShownDialog> shown = session.save({Answers::choose(session.path("mine.os2l")), answer});
        QCOMPARE(shown.size(), 2);
        CHECK(compareOverwrite(shown.at(1), "mine", session));
        QCOMPARE(contents(session.path("mine.os2l")), QByteArray("old"));
        QCOMPARE(session.files(), QStringList("mine.os2l"));
    }
}

void ProjectsTest::replacesTheOldFileWhenAnsweredYes()
{
    for (const QByteArray& old : {QByteArray(), QByteArray("old"), QByteArray(100000, 'x')}) {
        const Session session;
        session.puteightpads();
        writefile(session.path("mine.os2l"), old);
        const QList<ShownDialog> shown = session.save(
            {Answers::choose(session.path("mine.os2l")), Answers::press(QMessageBox::Yes), ok()});
        QCOMPARE(shown.size(), 3);
        CHECK(compareMessage(shown.at(2), "Project mine is saved.", session));
        CHECK(compareLines(contents(session.path("mine.os2l")), session.golden("pads-eight.os2l")));
        QCOMPARE(session.files(), QStringList("mine.os2l"));
    }
}

void ProjectsTest::saysThatItWasNotSaved_data()
{
    QTest::addColumn<QString>("file"); // in the home folder
    QTest::newRow("a folder that does not exist") << "none/mine.os2l";
    QTest::newRow("a file in the folder's place") << "file/mine.os2l";
    // No user may create a file there, whatever the rights.
    QTest::newRow("a folder that takes no files") << "readonly/mine.os2l";
}

void ProjectsTest::saysThatItWasNotSaved()
{
    QFETCH(QString, file);
    for (const bool midi : {false, true}) {
        Session session;
        putwork(&session, midi ? "midi.os2l" : "pads-eight.os2l");
        writefile(session.home.path("file"), "a file");
        QVERIFY(QFile::link("/proc", session.home.path("readonly")));
        const QStringList before = QDir(session.home.path()).entryList();
        const QStringList work = session.work();
        const QList<ShownDialog> shown = session.saveas(session.home.path(file));
        QCOMPARE(shown.size(), 2);
        CHECK(compareMessage(shown.at(1), "Project mine was not saved.", session));
        QCOMPARE(QDir(session.home.path()).entryList(), before);
        QCOMPARE(contents(session.home.path("file")), QByteArray("a file"));
        QCOMPARE(session.work(), work);
    }
}

void ProjectsTest::keepsAFolderThatHasTheProjectsName()
{
    const Session session;
    session.puteightpads();
    const QString path = session.path("mine.os2l");
    // The dialog itself enters folders; this one comes into being while the dialog closes.
    const auto watch = [path](QDialog* dialog) {
        QObject::connect(dialog, &QDialog::accepted, dialog, [path] {
            QDir().mkdir(path);
            writefile(path + "/inside", "kept");
        });
    };
    const QList<ShownDialog> shown = session.save(
        {Answers::looking(watch, Answers::choose(path)), Answers::press(QMessageBox::Yes), ok()});
    QCOMPARE(shown.size(), 3);
    CHECK(compareOverwrite(shown.at(1), "mine", session));
    CHECK(compareMessage(shown.at(2), "Project mine was not saved.", session));
    QCOMPARE(contents(path + "/inside"), QByteArray("kept"));
    QCOMPARE(session.files(), QStringList("mine.os2l"));
}

void ProjectsTest::keepsTheOldProjectOnAFullDisk_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("bytes");
    for (const QString& kind : {QString("pads-eight.os2l"), QString("midi.os2l")}) {
        const int size = static_cast<int>(Session().golden(kind).size());
        QTest::newRow(qPrintable(kind + ", no room")) << kind << 0;
        QTest::newRow(qPrintable(kind + ", room for a part")) << kind << 4100;
        QTest::newRow(qPrintable(kind + ", all but a little")) << kind << size - 100;
    }
}

void ProjectsTest::keepsTheOldProjectOnAFullDisk()
{
    QFETCH(QString, kind);
    QFETCH(int, bytes);
    Session session;
    putwork(&session, kind);
    const QByteArray old(5000, 'o');
    writefile(session.path("old.os2l"), old);
    QList<ShownDialog> shown;
    {
        const FullDisk disk(static_cast<rlim_t>(bytes));
        shown =
            session.save({Answers::choose(session.path("old.os2l")), Answers::press(QMessageBox::Yes), ok()});
    }
    QCOMPARE(shown.size(), 3);
    CHECK(compareMessage(shown.at(2), "Project old was not saved.", session));
    QCOMPARE(contents(session.path("old.os2l")), old);
    {
        const FullDisk disk(static_cast<rlim_t>(bytes));
        shown = session.saveas(session.path("new.os2l"));
    }
    CHECK(compareMessage(shown.value(1), "Project new was not saved.", session));
    QCOMPARE(session.files(), QStringList("old.os2l"));
    // With room again, the same work is saved.
    CHECK(
        compareMessage(session.saveas(session.path("new.os2l")).value(1), "Project new is saved.", session));
    CHECK(compareLines(contents(session.path("new.os2l")), session.golden(kind)));
}

void ProjectsTest::savesWhatIsStillBeingTyped()
{
    Session session;
    session.putpad(0, 0);
    QVERIFY(session.window.showready());
    auto* bankname = session.window.child<QLineEdit>("bankname");
    session.window.child<QComboBox>("bankcombo")->setCurrentIndex(2);
    bankname->setFocus();
    bankname->selectAll();
    QTest::keyClicks(bankname, "Finale");
    {
        const Dialogs dialogs({Answers::choose(session.path("mine.os2l")), ok()});
        QTest::keyClick(bankname, Qt::Key_S, Qt::ControlModifier);
    }
    QVERIFY(contents(session.path("mine.os2l")).contains(" banks=\"BANK 1,BANK 2,Finale,BANK 4,"));
    // An emptied page name gets its default back.
    auto* pagename = session.window.child<QLineEdit>("padsname");
    pagename->setFocus();
    pagename->selectAll();
    QTest::keyClick(pagename, Qt::Key_Delete);
    session.saveas(session.path("second.os2l"));
    QVERIFY(contents(session.path("second.os2l")).contains(" export=\"OS2L DMX\" "));
}

void ProjectsTest::savesAPadThatIsStillBeingEdited()
{
    Session session;
    session.putpad(0, 0);
    QVERIFY(session.window.showready());
    auto* view = session.window.child<QTableView>("vdjlistview");
    view->setCurrentIndex(session.window.vdjModel->index(0, 0));
    view->edit(session.window.vdjModel->index(0, 0));
    auto* editor = view->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, "GO!");
    session.saveas(session.path("mine.os2l"));
    QVERIFY(contents(session.path("mine.os2l"))
                .contains("\t<key row=\"0\" column=\"0\" name=\"GO!\" dspname=\"Strobe\" pagenr=\"1\" "));
}

void ProjectsTest::asksWhichProjectToLoad()
{
    const Session session(Session::Show::None);
    QStringList filters;
    bool opening = false;
    const auto look = [&](QDialog* dialog) {
        if (const auto* files = qobject_cast<QFileDialog*>(dialog)) {
            filters = files->nameFilters();
            opening = files->acceptMode() == QFileDialog::AcceptOpen;
        }
    };
    const QList<ShownDialog> shown = session.load({Answers::looking(look, cancel()), ok()});
    QCOMPARE(shown.size(), 2);
    QVERIFY(shown.at(0).isFileDialog);
    QCOMPARE(shown.at(0).title, QString("Select a Lumipad Project"));
    QCOMPARE(shown.at(0).folder, session.window.projectsPath);
    QCOMPARE(shown.at(0).fileMode, QFileDialog::ExistingFile);
    QCOMPARE(shown.at(0).parent, &session.window);
    QCOMPARE(filters, QStringList("OS2L Projects (*.os2l)"));
    QVERIFY(opening);
    // A dialog that was cancelled is told like a show that is gone.
    CHECK(compareMessage(shown.at(1), loadFailed, session));
}

void ProjectsTest::loadsWithoutAskingWhenNothingIsLost_data()
{
    QTest::addColumn<bool>("show");
    QTest::addColumn<bool>("midi");
    QTest::newRow("no show") << false << false;
    QTest::newRow("empty pads") << true << false;
    QTest::newRow("empty controller") << true << true;
}

void ProjectsTest::loadsWithoutAskingWhenNothingIsLost()
{
    QFETCH(bool, show);
    QFETCH(bool, midi);
    const Session session(show ? Session::Show::Loaded : Session::Show::None);
    if (show && midi)
        session.putpad(0, 0); // the other output is not looked at
    if (midi)
        session.click("radio_outputmidi");
    writefile(session.path("mine.os2l"), session.golden("pads-eight.os2l"));
    QCOMPARE(session.load({Answers::choose(session.path("mine.os2l"))}).size(), 1);
    QCOMPARE(session.window.vdjModel->index(0, 0).data().toString(), QString("STROBE"));
    QCOMPARE(session.window.showName, QString("Friday"));
}

void ProjectsTest::leavesTheWorkAloneUnlessAllowed_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::newRow("Cancel") << Answers::press(QMessageBox::Cancel);
    QTest::newRow("Escape") << Answers::key(Qt::Key_Escape);
    QTest::newRow("Return") << Answers::key(Qt::Key_Return);
    QTest::newRow("closed") << Answers::closebox();
}

void ProjectsTest::leavesTheWorkAloneUnlessAllowed()
{
    QFETCH(Answer, answer);
    for (const bool midi : {false, true}) {
        Session session;
        putwork(&session, midi ? "midi.os2l" : "pads-eight.os2l");
        const QStringList work = session.work();
        const QList<ShownDialog> shown = session.load({answer});
        QCOMPARE(shown.size(), 1);
        CHECK(compareGuard(shown.at(0), session));
        QCOMPARE(session.work(), work);
        QCOMPARE(session.files(), QStringList());
    }
}

void ProjectsTest::savesFirstWhenAsked()
{
    const Session session;
    session.puteightpads();
    writefile(session.path("other.os2l"), session.golden("pads-sixteen.os2l"));
    const QList<ShownDialog> shown =
        session.load({Answers::press(QMessageBox::Save), Answers::choose(session.path("mine.os2l")), ok(),
                      Answers::choose(session.path("other.os2l"))});
    QCOMPARE(shown.size(), 4);
    CHECK(compareGuard(shown.at(0), session));
    QCOMPARE(shown.at(1).title, QString("Save your Lumipad Project"));
    CHECK(compareMessage(shown.at(2), "Project mine is saved.", session));
    QCOMPARE(shown.at(3).title, QString("Select a Lumipad Project"));
    CHECK(compareLines(contents(session.path("mine.os2l")), session.golden("pads-eight.os2l")));
    QCOMPARE(session.window.child<QLineEdit>("padsname")->text(), QString("Club night"));
}

void ProjectsTest::loadsAlsoWhenTheSaveFails()
{
    const Session session;
    session.puteightpads();
    writefile(session.path("other.os2l"), session.golden("pads-sixteen.os2l"));
    const QList<ShownDialog> shown =
        session.load({Answers::press(QMessageBox::Save), Answers::choose(session.home.path("none/mine.os2l")),
                      ok(), Answers::choose(session.path("other.os2l"))});
    CHECK(compareMessage(shown.value(2), "Project mine was not saved.", session));
    QCOMPARE(session.window.child<QLineEdit>("padsname")->text(), QString("Club night"));
    // Also when the save was cancelled.
    const QList<ShownDialog> again = session.load(
        {Answers::press(QMessageBox::Save), cancel(), Answers::choose(session.path("other.os2l"))});
    QCOMPARE(again.size(), 3);
}

void ProjectsTest::leavesTheWorkAloneWhenItCannotLoad_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("show gone") << projectfile("type=\"pads\" show=\"/nowhere/Live/live.ini\" showname=\"X\"",
                                              "<key row=\"0\" column=\"0\" name=\"X\" />");
    QTest::newRow("show gone, MIDI") << projectfile(
        "type=\"midi\" show=\"/nowhere/Live/live.ini\" showname=\"X\"",
        "<key row=\"2\" column=\"2\" name=\"X\" />");
    QTest::newRow("a folder in the show's place") << projectfile("type=\"pads\" show=\"/\" showname=\"X\"");
    QTest::newRow("no show named") << projectfile("type=\"pads\" showname=\"X\"");
    QTest::newRow("empty show") << projectfile("type=\"pads\" show=\"\" showname=\"X\"");
    QTest::newRow("show of another machine") << projectfile("type=\"pads\" show=\"C:\\Shows\\live.ini\"");
}

void ProjectsTest::leavesTheWorkAloneWhenItCannotLoad()
{
    QFETCH(QByteArray, text);
    for (const char* kind : {"pads-sixteen.os2l", "midi.os2l"}) {
        Session session;
        putwork(&session, kind);
        const QStringList work = session.work();
        const QList<ShownDialog> shown = session.loadtext(text, {ok()});
        QCOMPARE(shown.size(), 3);
        CHECK(compareMessage(shown.at(2), loadFailed, session));
        QCOMPARE(session.work(), work);
    }
}

void ProjectsTest::leavesTheWorkAloneWhenTheFileVanishes_data()
{
    QTest::addColumn<QString>("became");
    QTest::newRow("deleted") << "nothing";
    QTest::newRow("a folder") << "folder";
    QTest::newRow("a link to nowhere") << "link";
    // Waiting for what comes out of it would be for ever.
    QTest::newRow("a pipe") << "pipe";
}

void ProjectsTest::leavesTheWorkAloneWhenTheFileVanishes()
{
    QFETCH(QString, became);
    Session session;
    session.putsixteenpads();
    const QString path = session.path("mine.os2l");
    writefile(path, session.golden("pads-eight.os2l"));
    const QStringList work = session.work();
    const auto exchange = [&] {
        QFile::remove(path);
        if (became == "folder")
            QDir().mkdir(path);
        else if (became == "link")
            QFile::link("/nowhere", path);
        else if (became == "pipe")
            QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    };
    const auto watch = [&](QDialog* dialog) {
        QObject::connect(dialog, &QDialog::accepted, dialog, exchange);
    };
    const QList<ShownDialog> shown = session.load(
        {Answers::press(QMessageBox::Yes), Answers::looking(watch, Answers::choose(path)), ok()});
    QCOMPARE(shown.size(), 3);
    CHECK(compareMessage(shown.at(2), loadFailed, session));
    QCOMPARE(session.work(), work);
}

void ProjectsTest::leavesTheWorkAloneForAHugeFile()
{
    Session session;
    session.putsixteenpads();
    const QString path = session.path("huge.os2l");
    writefile(path, session.golden("pads-eight.os2l"));
    QVERIFY(QFile::resize(path, qint64(100) * 1024 * 1024));
    const QStringList work = session.work();
    QElapsedTimer timer;
    timer.start();
    const QList<ShownDialog> shown = session.loadfile(path, {ok()});
    QVERIFY(timer.elapsed() < 30000);
    CHECK(compareMessage(shown.value(2), loadFailed, session));
    QCOMPARE(session.work(), work);
}

void ProjectsTest::restoresThePadsPage_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<bool>("frommidi");
    for (const bool midi : {false, true}) {
        QTest::addRow("8 pads, %s", midi ? "MIDI shown" : "pads shown")
            << QByteArray("pads-eight.os2l") << midi;
        QTest::addRow("16 pads, %s", midi ? "MIDI shown" : "pads shown")
            << QByteArray("pads-sixteen.os2l") << midi;
    }
}

void ProjectsTest::restoresThePadsPage()
{
    QFETCH(QByteArray, kind);
    QFETCH(bool, frommidi);
    const bool sixteen = kind == "pads-sixteen.os2l";
    Session session(Session::Show::None);
    const TestWindow& window = session.window;
    QVERIFY(session.window.showready());
    // The other layout, another bank and another page are shown before.
    session.click(sixteen ? "radioButton_8pads" : "radioButton_16pads");
    window.child<QComboBox>("bankcombo")->setCurrentIndex(5);
    if (frommidi)
        session.click("radio_outputmidi");
    QCOMPARE(session.loadtext(session.golden(kind)).size(), 1);

    QCOMPARE(window.showName, QString("Friday"));
    QCOMPARE(window.iniPath, session.ini);
    QCOMPARE(window.windowTitle(), QString("Lumipad - Friday"));
    QCOMPARE(window.dmxModel->rowCount(), 5);
    QVERIFY(window.child<QRadioButton>("radio_outputpage")->isChecked());
    QCOMPARE(window.width(), 650);
    QVERIFY(window.child<QWidget>("groupBox_pads")->isVisible());
    QVERIFY(!window.child<QWidget>("groupBox_midis")->isVisible());
    QVERIFY(!window.child<QWidget>("groupBox_controller")->isVisible());
    QCOMPARE(window.child<QLabel>("label_padname")->text(), QString("Pads Page"));
    QCOMPARE(window.child<QRadioButton>("radioButton_16pads")->isChecked(), sixteen);
    QCOMPARE(window.child<QRadioButton>("radioButton_8pads")->isChecked(), !sixteen);
    QCOMPARE(window.child<QTableView>("vdjlistview")->isColumnHidden(1), !sixteen);
    QCOMPARE(window.child<QComboBox>("bankcombo")->currentIndex(), 0);
    QCOMPARE(window.child<QLineEdit>("bankname")->text(), QString(sixteen ? "Intro" : "BANK 1"));
    QCOMPARE(session.shownrows(), QList<int>({0, 1, 2, 3, 4, 5, 6, 7}));
    QCOMPARE(window.child<QLineEdit>("padsname")->text(), QString(sixteen ? "Club night" : "OS2L DMX"));
    QCOMPARE(window.switchPad, QList<int>({-1, -1}));
    QCOMPARE(session.checkedrows(), sixteen ? QList<int>({0, 2, 4}) : QList<int>({0, 1, 3}));
    QStringList banks{"BANK 1", "BANK 2", "Drop", "BANK 4", "BANK 5", "BANK 6", "BANK 7", "BANK 8"};
    if (sixteen)
        banks = QStringList{"Intro",  "",       "Peak > time", "Chill's",
                            "BANK 5", "BANK 6", "BANK 7",      QStringLiteral(u"Fin\u00e9")};
    QCOMPARE(window.banks, banks);
    // Every pad is as it was saved.
    CHECK(compareMessage(session.saveas(session.path("again.os2l")).value(1), "Project again is saved.",
                         session));
    CHECK(compareLines(contents(session.path("again.os2l")), session.golden(kind)));
    // And can be worked on: the switched-to column takes a Live Button.
    session.putpad(1, 3, 1);
    QCOMPARE(window.vdjModel->index(3, 1).data(ItemRole::Id).toString(), QString("1"));
}

void ProjectsTest::restoresTheController()
{
    for (const bool frommidi : {false, true}) {
        Session session(Session::Show::None);
        TestWindow& window = session.window;
        QVERIFY(session.window.showready());
        session.selectdevice(QStringLiteral("LAUNCHPADMK2"));
        const int last = static_cast<int>(window.devices.size()) - 1;
        window.child<QComboBox>("devicescombo")->setCurrentIndex(last);
        if (frommidi)
            session.click("radio_outputmidi");
        QCOMPARE(session.loadtext(session.golden("midi.os2l")).size(), 1);

        QCOMPARE(window.showName, QString("Friday"));
        QCOMPARE(window.windowTitle(), QString("Lumipad - Friday"));
        QVERIFY(window.child<QRadioButton>("radio_outputmidi")->isChecked());
        QCOMPARE(window.width(), 1366);
        QVERIFY(!window.child<QWidget>("groupBox_pads")->isVisible());
        QVERIFY(window.child<QWidget>("groupBox_midis")->isVisible());
        QVERIFY(window.child<QWidget>("groupBox_controller")->isVisible());
        QCOMPARE(window.child<QLabel>("label_padname")->text(), QString("MIDI Mapping"));
        QCOMPARE(window.currentDeviceId, QString("APCMINI"));
        QCOMPARE(window.child<QComboBox>("devicescombo")->currentText(), QString("Akai APC Mini"));
        QCOMPARE(window.child<QComboBox>("combo_offcolor")->currentText(), QString("black"));
        QCOMPARE(window.child<QComboBox>("combo_oncolor")->currentText(), QString("red"));
        QCOMPARE(window.child<QLineEdit>("padsname")->text(), QString("Club night"));
        QCOMPARE(window.switchPad, QList<int>({11, 2}));
        QCOMPARE(session.checkedrows(), QList<int>({0, 2, 3, 4}));
        QVERIFY(window.isVDJempty());
        QCOMPARE(window.banks, firstBanks);
        session.saveas(session.path("again.os2l"));
        CHECK(compareLines(contents(session.path("again.os2l")), session.golden("midi.os2l")));
    }
}

void ProjectsTest::replacesAllOfTheFormerWork()
{
    Session session;
    session.putmidi();
    session.click("radio_outputpage");
    session.putsixteenpads();
    session.loadtext(session.golden("pads-eight.os2l"));
    QVERIFY(session.window.isMIDIempty());
    QCOMPARE(session.window.switchPad, QList<int>({-1, -1}));
    QCOMPARE(session.checkedrows(), QList<int>({0, 1, 3}));
    session.saveas(session.path("again.os2l"));
    CHECK(compareLines(contents(session.path("again.os2l")), session.golden("pads-eight.os2l")));
    // Another show brings its own Live Buttons.
    const QString other = writeshow(session.home, "Sunday", {{"Calm", {{"Candle", 0xFFAA00}}}});
    session.loadtext(projectfile("type=\"pads\" show=\"" + other.toUtf8() +
                                 "/Live/live.ini\" showname=\"Renamed\" export=\"\""));
    QCOMPARE(session.window.dmxModel->rowCount(), 1);
    QCOMPARE(session.window.dmxModel->index(0, 0).data().toString(), QString("Candle"));
    QCOMPARE(session.window.windowTitle(), QString("Lumipad - Renamed"));
    QVERIFY(session.window.isVDJempty());
    QCOMPARE(session.window.banks, firstBanks);
    QCOMPARE(session.window.child<QLineEdit>("padsname")->text(), QString());
    QCOMPARE(session.checkedrows(), QList<int>());
}

void ProjectsTest::marksTheLiveButtonsOfEveryColumn()
{
    Session session(Session::Show::None);
    session.loadtext(projectfile("type=\"pads\" layout=\"0\"" + session.show(),
                                 "<key row=\"9\" column=\"1\" name=\"a\" pagenr=\"1\" id=\"2\" />"
                                 "<key row=\"9\" column=\"0\" name=\"b\" pagenr=\"2\" id=\"4\" />"));
    QCOMPARE(session.checkedrows(), QList<int>({2, 4}));
    // The list shows the mark, the records do not.
    QCOMPARE(session.window.buttons.at(2).value("check"), QString("0"));
}

void ProjectsTest::restoresTheBankNames_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QStringList>("banks");
    QTest::newRow("missing") << QByteArray() << firstBanks;
    QTest::newRow("empty") << QByteArray("banks=\"\"") << firstBanks;
    QTest::newRow("two") << QByteArray("banks=\"A,B\"") << QStringList{"A", "B"};
    QTest::newRow("one") << QByteArray("banks=\"A\"") << QStringList{"A"};
    QTest::newRow("ten") << QByteArray("banks=\"A,B,C,D,E,F,G,H,I,J\"")
                         << QStringList{"A", "B", "C", "D", "E", "F", "G", "H", "I", "J"};
    QTest::newRow("empty names") << QByteArray("banks=\",,\"") << QStringList{"", "", ""};
    QTest::newRow("entities") << QByteArray("banks=\"R&amp;B,&quot;x&quot;\"") << QStringList{"R&B", "\"x\""};
}

void ProjectsTest::restoresTheBankNames()
{
    QFETCH(QByteArray, attribute);
    QFETCH(QStringList, banks);
    Session session;
    session.setbank(4, "before");
    session.loadtext(projectfile("type=\"pads\"" + session.show() + attribute,
                                 "<key row=\"40\" column=\"0\" name=\"a\" pagenr=\"1\" id=\"2\" />"));
    QCOMPARE(session.window.banks, banks);
    auto* combo = session.window.child<QComboBox>("bankcombo");
    QCOMPARE(combo->count(), 8);
    for (int bank = 0; bank < 8; ++bank) {
        combo->setCurrentIndex(bank);
        QCOMPARE(session.window.child<QLineEdit>("bankname")->text(), banks.value(bank));
    }
    // Saved as they are, also when they are fewer or more.
    session.saveas(session.path("again.os2l"));
    if (!attribute.contains('&'))
        QVERIFY(
            contents(session.path("again.os2l")).contains(" banks=\"" + banks.join(',').toUtf8() + "\" >"));
}

void ProjectsTest::restoresTheSwitch_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QList<int>>("cell");
    QTest::newRow("missing") << QByteArray() << QList<int>{-1, -1};
    QTest::newRow("empty") << QByteArray("switch=\"\"") << QList<int>{-1, -1};
    QTest::newRow("one part") << QByteArray("switch=\"4\"") << QList<int>{-1, -1};
    QTest::newRow("none") << QByteArray("switch=\"-1,-1\"") << QList<int>{-1, -1};
    QTest::newRow("a cell") << QByteArray("switch=\"3,7\"") << QList<int>{3, 7};
    QTest::newRow("three parts") << QByteArray("switch=\"3,7,9\"") << QList<int>{3, 7};
    QTest::newRow("no numbers") << QByteArray("switch=\"a,b\"") << QList<int>{0, 0};
    QTest::newRow("outside the grid") << QByteArray("switch=\"999,-7\"") << QList<int>{999, -7};
}

void ProjectsTest::restoresTheSwitch()
{
    QFETCH(QByteArray, attribute);
    QFETCH(QList<int>, cell);
    Session session;
    session.putmidi();
    session.loadtext(projectfile("type=\"midi\"" + session.show() + attribute));
    QCOMPARE(session.window.switchPad, cell);
    // Another cell becomes the switch without harm.
    session.window.menuIndex = session.window.controllerModel->index(5, 5);
    session.window.ontoggleaction_triggered();
    QCOMPARE(session.window.switchPad, QList<int>({5, 5}));
}

void ProjectsTest::restoresDeviceAndColors_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("off");
    QTest::addColumn<int>("on");
    // The controller's own colours are yellow, entry 3, and green, entry 1.
    QTest::newRow("device and colours")
        << QByteArray("deviceid=\"APCMINI\" offcolor=\"0\" oncolor=\"2\"") << "APCMINI" << 0 << 2;
    QTest::newRow("device alone") << QByteArray("deviceid=\"APCMINI\"") << "APCMINI" << 3 << 1;
    QTest::newRow("empty colours") << QByteArray("deviceid=\"APCMINI\" offcolor=\"\" oncolor=\"\"")
                                   << "APCMINI" << 3 << 1;
    QTest::newRow("unknown device keeps the one that is current")
        << QByteArray("deviceid=\"NOSUCHPAD\" offcolor=\"1\" oncolor=\"2\"") << "APCMINI" << 1 << 2;
    QTest::newRow("empty device") << QByteArray("deviceid=\"\" offcolor=\"1\"") << "APCMINI" << 1 << 1;
    QTest::newRow("colours beyond the palette")
        << QByteArray("deviceid=\"APCMINI\" offcolor=\"99\" oncolor=\"4\"") << "APCMINI" << -1 << -1;
    QTest::newRow("negative colours")
        << QByteArray("deviceid=\"APCMINI\" offcolor=\"-1\" oncolor=\"-5\"") << "APCMINI" << -1 << -1;
    QTest::newRow("colours that are no numbers")
        << QByteArray("deviceid=\"APCMINI\" offcolor=\"red\" oncolor=\"99999999999\"") << "APCMINI" << 0 << 0;
}

void ProjectsTest::restoresDeviceAndColors()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QString, device);
    QFETCH(int, off);
    QFETCH(int, on);
    Session session;
    session.selectdevice("APCMINI");
    const int last = static_cast<int>(session.window.devices.size()) - 1;
    if (attributes.contains("APCMINI"))
        session.window.child<QComboBox>("devicescombo")->setCurrentIndex(last);
    session.loadtext(projectfile("type=\"midi\"" + session.show() + attributes,
                                 "<key row=\"4\" column=\"4\" name=\"a\" pagenr=\"1\" id=\"2\" "
                                 "avail=\"1\" color=\"#ff0000\" />"));
    QCOMPARE(session.window.currentDeviceId, device);
    QCOMPARE(session.window.child<QComboBox>("devicescombo")->currentIndex(),
             session.window.getdeviceindex(device));
    QCOMPARE(session.window.child<QComboBox>("combo_offcolor")->currentIndex(), off);
    QCOMPARE(session.window.child<QComboBox>("combo_oncolor")->currentIndex(), on);
    // The mapping is written with whatever is selected.
    session.home.makefolder("Documents/VirtualDJ/Mappers");
    const Dialogs dialogs({ok()});
    session.window.child<QAction>("actionExport")->trigger();
    QCOMPARE(QDir(session.window.mappersPath).entryList(QDir::Files).size(), 1);
}

void ProjectsTest::appliesWhatAMalformedFileHolds()
{
    Session session;
    session.putmidi();
    const QByteArray text = session.golden("pads-sixteen.os2l");
    const auto cut = text.indexOf("\t<key row=\"20\"");
    QVERIFY(cut > 0);
    QCOMPARE(session.loadtext(text.left(cut) + "\t<key row=\"20\" name=\"a \"b\"").size(), 2);
    QVERIFY(session.window.child<QRadioButton>("radio_outputpage")->isChecked());
    QVERIFY(session.window.child<QRadioButton>("radioButton_16pads")->isChecked());
    QCOMPARE(session.window.vdjModel->index(15, 1).data(ItemRole::Id).toString(), QString("4"));
    QCOMPARE(session.window.vdjModel->index(63, 0).data(ItemRole::Id).toString(), QString("-1"));
    QCOMPARE(session.window.vdjModel->index(63, 0).data().toString(), QString("PAD 8"));
    QCOMPARE(session.checkedrows(), QList<int>({0, 4}));
}

void ProjectsTest::appliesTheLastOfTwoProjects()
{
    Session session;
    const QString other = writeshow(session.home, "Sunday", {{"Calm", {{"Candle", 0xFFAA00}}}});
    const QByteArray first = "<project type=\"pads\" layout=\"1\" banks=\"A,B\" export=\"First\" "
                             "deviceid=\"APCMINI\"" +
                             session.show() + "/>";
    const QByteArray second = "<project type=\"midi\" show=\"" + other.toUtf8() +
                              "/Live/live.ini\" showname=\"Sunday\" export=\"Second\" />";
    const QByteArray key = "<key row=\"4\" column=\"4\" name=\"a\" pagenr=\"1\" id=\"0\" avail=\"1\" />";
    session.loadtext("<all>" + first + key + second + "</all>");
    QCOMPARE(session.window.showName, QString("Sunday"));
    QCOMPARE(session.window.dmxModel->rowCount(), 1);
    QCOMPARE(session.window.banks, firstBanks);
    QCOMPARE(session.window.child<QLineEdit>("padsname")->text(), QString("Second"));
    QCOMPARE(session.window.currentDeviceId, QString("APCMINI"));
    QVERIFY(session.window.child<QRadioButton>("radio_outputmidi")->isChecked());
    QCOMPARE(session.window.controllerModel->index(4, 4).data(ItemRole::Id).toString(), QString("0"));
    QVERIFY(session.window.isVDJempty());
}

void ProjectsTest::restoresNothingWhenOneOfTwoShowsIsGone()
{
    Session session;
    session.putsixteenpads();
    const QByteArray here = "<project type=\"pads\"" + session.show() + "/>";
    const QByteArray gone = "<project type=\"pads\" show=\"/nowhere/live.ini\" />";
    const QStringList work = session.work();
    for (const QByteArray& text : {"<all>" + gone + here + "</all>", "<all>" + here + gone + "</all>"}) {
        CHECK(compareMessage(session.loadtext(text, {ok()}).value(2), loadFailed, session));
        QCOMPARE(session.work(), work);
    }
}

void ProjectsTest::leavesTheWorkAloneForMoreProjectsThanAPersonHas()
{
    Session session;
    session.putsixteenpads();
    const QStringList work = session.work();
    const QByteArray one = "<project type=\"midi\"" + session.show() + "/>";
    CHECK(
        compareMessage(session.loadtext("<all>" + one.repeated(maxProjects + 1) + "</all>", {ok()}).value(2),
                       loadFailed, session));
    QCOMPARE(session.work(), work);
    QCOMPARE(session.loadtext("<all>" + one.repeated(maxProjects) + "</all>").size(), 2);
    QVERIFY(session.window.child<QRadioButton>("radio_outputmidi")->isChecked());
}

void ProjectsTest::keepsTheShowOfAProjectThatCannotBeRead()
{
    Session session;
    session.putsixteenpads();
    const QString damaged =
        writeshow(session.home, "Sunday", {{"Calm", {{"Candle", 0xFFAA00}}}}) + "/Live/live.ini";
    QVERIFY(QFile::resize(damaged, maxLightShowSize + 1));
    const QByteArray key =
        "<key row=\"4\" column=\"0\" name=\"Candle\" dspname=\"Candle\" pagenr=\"1\" id=\"0\" />";
    QCOMPARE(
        session
            .loadtext(projectfile("type=\"pads\" show=\"" + damaged.toUtf8() + "\" showname=\"Sunday\"", key))
            .size(),
        2);
    // Nothing of the former show is left.
    QCOMPARE(session.window.dmxModel->rowCount(), 0);
    QCOMPARE(session.window.child<QComboBox>("combobox")->count(), 0);
    QCOMPARE(session.window.buttonsperpage(1), 0);
    QCOMPARE(session.window.windowTitle(), QString("Lumipad - Sunday"));
    // What is saved now comes back with the show once that is whole again.
    const QString path = session.path("again.os2l");
    session.saveas(path);
    writeshow(session.home, "Sunday", {{"Calm", {{"Candle", 0xFFAA00}}}});
    session.loadfile(path);
    QCOMPARE(session.window.dmxModel->rowCount(), 1);
    QCOMPARE(session.window.vdjModel->index(4, 0).data().toString(), QString("Candle"));
    QCOMPARE(session.checkedrows(), QList<int>({0}));
}

void ProjectsTest::showsTheBeginningOfALongShowName()
{
    Session session;
    const QByteArray name(1000000, 'n');
    QByteArray text = projectfile("type=\"pads\"" + session.show());
    text.replace("showname=\"Friday\"", "showname=\"" + name + '"');
    session.loadtext(text);
    QVERIFY(session.window.showName == QString::fromLatin1(name));
    QCOMPARE(session.window.windowTitle(), "Lumipad - " + QString(maxShownLength, 'n'));
}

void ProjectsTest::loadsKeysWithoutAProject()
{
    Session session;
    session.puteightpads();
    session.click("radio_outputmidi");
    session.loadtext("<keys><key row=\"1\" column=\"0\" name=\"Go\" dspname=\"Slow Fade\" pagenr=\"1\" "
                     "id=\"2\" color=\"#00ff00\" /></keys>");
    // The show and the other pads are still there.
    QCOMPARE(session.window.showName, QString("Friday"));
    QCOMPARE(session.window.vdjModel->index(0, 0).data().toString(), QString("STROBE"));
    QCOMPARE(session.window.vdjModel->index(1, 0).data().toString(), QString("Go"));
    QCOMPARE(session.window.banks.value(2), QString("Drop"));
    QVERIFY(session.checkedrows().contains(2));
    QVERIFY(session.window.child<QRadioButton>("radio_outputpage")->isChecked());
    QVERIFY(session.window.child<QRadioButton>("radioButton_8pads")->isChecked());
    QCOMPARE(session.window.width(), 650);
    // Without a show there is nothing to mark.
    Session empty(Session::Show::None);
    QCOMPARE(empty.loadtext("<key row=\"0\" column=\"1\" name=\"x\" id=\"3\" pagenr=\"1\" />").size(), 1);
    QCOMPARE(empty.window.vdjModel->index(0, 1).data().toString(), QString("x"));
    QCOMPARE(empty.window.windowTitle(), QString("Lumipad"));
}

void ProjectsTest::keepsGoingWithOddKeys()
{
    const QByteArray odd = "<key row=\"64\" column=\"0\" name=\"out\" id=\"-1\" />"
                           "<key row=\"-1\" column=\"0\" name=\"out\" id=\"-1\" />"
                           "<key row=\"0\" column=\"12\" name=\"out\" id=\"-1\" />"
                           "<key row=\"2147483647\" column=\"-2147483648\" name=\"out\" id=\"-1\" />"
                           "<key row=\"3\" column=\"0\" name=\"beyond\" pagenr=\"9\" id=\"5\" />"
                           "<key row=\"4\" column=\"0\" name=\"far\" pagenr=\"9\" id=\"2147483647\" />"
                           "<key row=\"5\" column=\"0\" name=\"under\" pagenr=\"9\" id=\"-2147483648\" />"
                           "<key row=\"6\" column=\"0\" name=\"last\" pagenr=\"2\" id=\"4\" "
                           "color=\"no colour\" />";
    for (const bool midi : {false, true}) {
        Session session(Session::Show::None);
        session.loadtext(projectfile((midi ? "type=\"midi\"" : "type=\"pads\"") + session.show(), odd));
        const QAbstractItemModel* grid =
            midi ? static_cast<QAbstractItemModel*>(session.window.controllerModel) : session.window.vdjModel;
        QCOMPARE(grid->rowCount(), midi ? 12 : 64);
        for (int row = 0; row < grid->rowCount(); ++row)
            for (int column = 0; column < grid->columnCount(); ++column)
                QVERIFY(grid->index(row, column).data().toString() != "out");
        QCOMPARE(grid->index(3, 0).data().toString(), QString("beyond"));
        QCOMPARE(grid->index(4, 0).data(ItemRole::Id).toString(), QString("2147483647"));
        QCOMPARE(grid->index(5, 0).data(ItemRole::Id).toString(), QString("-2147483648"));
        QCOMPARE(grid->index(6, 0).data().toString(), QString("last"));
        QCOMPARE(session.checkedrows(), QList<int>({4}));

        // An id that is no number reads as 0; one without attributes goes to the first cell.
        session.loadtext(projectfile((midi ? "type=\"midi\"" : "type=\"pads\"") + session.show(),
                                     "<key row=\"7\" column=\"0\" name=\"odd\" pagenr=\"1\" id=\"abc\" />"
                                     "<key />"));
        QCOMPARE(grid->index(7, 0).data(ItemRole::Id).toString(), QString("abc"));
        QCOMPARE(grid->index(0, 0).data(ItemRole::Id).toString(), QString());
        QCOMPARE(grid->index(0, 0).data(ItemRole::Page).toString(), QString());
        QCOMPARE(grid->index(0, 0).data().toString(), QString(midi ? "" : "PAD 1"));
        QCOMPARE(session.checkedrows(), QList<int>({0}));
        // All of it can be saved.
        CHECK(compareMessage(session.saveas(session.path(midi ? "m.os2l" : "p.os2l")).value(1),
                             QString("Project %1 is saved.").arg(midi ? "m" : "p"), session));
    }
}

void ProjectsTest::survivesOddProjects_data()
{
    QTest::addColumn<QByteArray>("text"); // "@" stands for the attributes of the show
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("no XML") << QByteArray("not ours");
    QTest::newRow("zero bytes") << QByteArray(100000, '\0');
    QTest::newRow("another program's") << QByteArray("<page><pad/></page>");
    QTest::newRow("unknown type") << QByteArray("<project type=\"dmx\" @ />");
    QTest::newRow("no type") << QByteArray("<project @ />");
    QTest::newRow("type in another case") << QByteArray("<project type=\"MIDI\" @ />");
    QTest::newRow("odd layout") << QByteArray("<project type=\"pads\" layout=\"16\" @ />");
    QTest::newRow("an entity bomb") << QByteArray(
        "<!DOCTYPE project [<!ENTITY a \"aaaaaaaaaa\"><!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
        "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\"><!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">"
        "<!ENTITY e \"&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;\"><!ENTITY f \"&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;\">"
        "<!ENTITY g \"&f;&f;&f;&f;&f;&f;&f;&f;&f;&f;\">]><project @ export=\"&g;\"><key/></project>");
}

void ProjectsTest::survivesOddProjects()
{
    QFETCH(QByteArray, text);
    Session session;
    session.putmidi();
    QCOMPARE(session.loadtext(text.replace('@', session.show())).size(), 2);
    // Whatever is no MIDI project is taken for a pads page of 8 pads.
    QVERIFY(session.window.child<QRadioButton>("radio_outputpage")->isChecked());
    QVERIFY(session.window.child<QRadioButton>("radioButton_8pads")->isChecked());
    QVERIFY(session.window.child<QTableView>("vdjlistview")->isColumnHidden(1));
    QCOMPARE(session.window.width(), 650);
    QCOMPARE(session.window.showName, QString("Friday"));
    QCOMPARE(session.window.vdjModel->rowCount(), 64);
    QCOMPARE(session.window.controllerModel->rowCount(), 12);
    QVERIFY(session.window.child<QLineEdit>("padsname")->text().size() < 100000);
}

void ProjectsTest::savesTheSameBytesAgain_data()
{
    QTest::addColumn<QString>("device"); // empty for a pads page
    QTest::addColumn<bool>("sixteen");
    QTest::newRow("8 pads") << QString() << false;
    QTest::newRow("16 pads") << QString() << true;
    const TestHome home;
    const TestWindow window;
    for (const Record& device : window.devices)
        QTest::newRow(qPrintable(device.value("name"))) << device.value("device") << false;
}

void ProjectsTest::savesTheSameBytesAgain()
{
    QFETCH(QString, device);
    QFETCH(bool, sixteen);
    QRandomGenerator random(20201121);
    for (int round = 0; round < 4; ++round) {
        Session session;
        const bool midi = !device.isEmpty();
        for (int bank = 0; bank < 8; ++bank)
            session.setbank(bank, generated(&random, 9).remove(','));
        session.settext("padsname", generated(&random, 20));
        if (sixteen)
            session.click("radioButton_16pads");
        QAbstractItemModel* grid = session.window.vdjModel;
        if (midi) {
            session.selectdevice(device);
            QCOMPARE(session.window.currentDeviceId, device);
            session.click("radio_outputmidi");
            grid = session.window.controllerModel;
            for (const char* name : {"combo_offcolor", "combo_oncolor"}) {
                auto* combo = session.window.child<QComboBox>(name);
                if (combo->count() > 0 && !combo->isHidden())
                    combo->setCurrentIndex(random.bounded(-1, combo->count()));
            }
        }
        for (int n = 0; n < 40; ++n) {
            const int row = random.bounded(grid->rowCount());
            const int column = random.bounded(grid->columnCount());
            const QModelIndex cell = grid->index(row, column);
            session.put(random.bounded(5), grid, row, column, generated(&random, 14));
            grid->setData(cell, QColor::fromRgb(random.generate() | 0xff000000U).name(), Qt::DecorationRole);
            if (random.bounded(2) == 0)
                grid->setData(cell, "#0a0b0c", ItemRole::ColorOff);
            if (random.bounded(2) == 0)
                grid->setData(cell, "red", ItemRole::ColorOn);
            if (random.bounded(2) == 0)
                grid->setData(cell, "1", ItemRole::Blink);
        }
        if (midi) {
            session.window.menuIndex =
                session.window.controllerModel->index(random.bounded(12), random.bounded(12));
            session.window.ontoggleaction_triggered();
        }
        session.saveas(session.path("first.os2l"));
        const QByteArray saved = contents(session.path("first.os2l"));
        QCOMPARE(saved.count("\t<key "), midi ? 144 : 128);

        // In the same window, and in another one of the program.
        session.loadfile(session.path("first.os2l"));
        session.saveas(session.path("second.os2l"));
        CHECK(compareLines(contents(session.path("second.os2l")), saved));
        TestWindow later;
        {
            const Dialogs dialogs({Answers::choose(session.path("first.os2l"))});
            later.child<QAction>("actionLoad_Project")->trigger();
        }
        const Dialogs dialogs({Answers::choose(session.path("third.os2l")), ok()});
        later.child<QAction>("actionSave_2")->trigger();
        CHECK(compareLines(contents(session.path("third.os2l")), saved));
    }
}

LUMIPAD_TEST_MAIN(ProjectsTest)

#include "tst_projects.moc"
