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

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

namespace {

QString boxStyle()
{
    return QStringLiteral(
        "QMessageBox {background-color:#202020; color:#cccccc ; border: 1px solid #505050;} QMessageBox "
        "QLabel "
        "{min-width: 360px; color:white;}QMessageBox QPushButton {width: 70; height:20; color: #cccccc; "
        "background-color: #303030;border: 1px solid #505050;}QMessageBox QPushButton:hover {width: 70; "
        "height:20; color: #ffffff; background-color: #404040;border: 1px solid #606060;}");
}

/// Presses Ok.
Answer ok() { return Answers::press(QMessageBox::Ok); }

/// What the rows of tests below do to export.
enum class Road { Button, Menu, Keys, Slot, ButtonSlot };

QByteArray golden(const char* name)
{
    return contents(QStringLiteral(TEST_DATA_DIR "/golden/") + QLatin1String(name));
}

/// The window in a home folder of its own.
struct ExportWindow
{
    enum class Show { Loaded, None };

    explicit ExportWindow(Show show = Show::Loaded)
    {
        if (show == Show::Loaded) {
            window.showName = QStringLiteral("Friday");
            window.loadshowname(writeshow(home, window.showName) + QStringLiteral("/Live/live.ini"));
        }
    }

    TestHome home;
    TestWindow window;
    QString folder = window.padsPath;

    QString path(const QString& name) const { return folder + QLatin1Char('/') + name; }

    /// Everything in the pads folder, hidden and temporary files included.
    QStringList files() const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    void setname(const QString& name) const { window.child<QLineEdit>("padsname")->setText(name); }

    /// Drags Live Button \a button (0 Strobe, 1 Blackout, 2 Slow Fade, 3 Circle, 4 Ballyhoo) onto a pad; bank
    /// (1 to 8) and pad (1 to 16) are counted as the user sees them.
    void put(int button, int bank, int pad, const QString& text = QString()) const
    {
        const QModelIndex target = window.vdjModel->index((bank - 1) * 8 + (pad - 1) % 8, pad > 8 ? 1 : 0);
        MidiWindow::drop(window.dmxModel->index(button, 0), target);
        if (!text.isNull())
            window.vdjModel->setData(target, text, Qt::EditRole);
    }

    /// What `golden/two-banks.xml` holds.
    void putTwoBanks() const
    {
        put(0, 1, 1, QStringLiteral("STROBE"));
        put(1, 3, 2);
    }

    /// Exports the way that the user would.
    void exportby(Road road)
    {
        switch (road) {
        case Road::Button:
            QTest::mouseClick(window.child<QPushButton>("pushButton_2"), Qt::LeftButton);
            break;
        case Road::Menu:
            window.child<QAction>("actionExport")->trigger();
            break;
        case Road::Keys:
            QTest::keyClick(&window, Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
            break;
        case Road::Slot:
            QMetaObject::invokeMethod(&window, "on_actionExport_triggered");
            break;
        case Road::ButtonSlot:
            QMetaObject::invokeMethod(&window, "on_pushButton_2_clicked");
            break;
        }
    }

    /// Exports with these answers, and gives the dialogs that came.
    QList<ShownDialog> exportanswering(const QList<Answer>& answers, Road road = Road::Menu)
    {
        const Dialogs dialogs(answers);
        exportby(road);
        return DialogWatch::shown();
    }
};

/// Whether the dialog is a box that tells \a text and \a informative, to be answered with Ok.
void compareMessage(const ShownDialog& box, const QString& text, const QString& informative = QString())
{
    QVERIFY(box.isMessageBox);
    QCOMPARE(box.text, text);
    QCOMPARE(box.informativeText, informative);
    QCOMPARE(int(box.buttons), int(QMessageBox::StandardButtons(QMessageBox::Ok)));
    QCOMPARE(int(box.disabledButtons), int(QMessageBox::StandardButtons()));
    QCOMPARE(box.defaultButton, QMessageBox::Ok);
    QCOMPARE(box.styleSheet, boxStyle());
    QVERIFY(!box.parent);
}

void compareCreated(const ShownDialog& box, const QString& name)
{
    compareMessage(box, "Pads Page " + name + " is created.", "Select it from VirtualDJ Pads dropdown");
}

void compareQuestion(const ShownDialog& box, const QString& name)
{
    QVERIFY(box.isMessageBox);
    QCOMPARE(box.text, "Pads Page " + name + " already exists.");
    QCOMPARE(box.informativeText, QString("Do you want to overwrite ?"));
    QCOMPARE(int(box.buttons), int(QMessageBox::Yes | QMessageBox::No));
    QCOMPARE(int(box.disabledButtons), int(QMessageBox::StandardButtons()));
    QCOMPARE(box.defaultButton, QMessageBox::No);
    QCOMPARE(box.styleSheet, boxStyle());
    QVERIFY(!box.parent);
}

} // namespace

Q_DECLARE_METATYPE(Road)
Q_DECLARE_METATYPE(QMessageBox::StandardButton)

class ExportTest : public QObject
{
    Q_OBJECT

private slots:
    void asksForAShowFirst_data();
    void asksForAShowFirst();
    void writesNothingWithoutLiveButtons_data();
    void writesNothingWithoutLiveButtons();
    void writesThePadsPage_data();
    void writesThePadsPage();
    void writesTheBanksThatAreUsedInColumnTwoOnly();
    void writesSixteenPadsAndEveryNameAsItStands();
    void writesNamesThatAreStillBeingTyped_data();
    void writesNamesThatAreStillBeingTyped();
    void writesWhatTheWindowShowsNow();
    void writesMissingBankNamesAsEmpty();
    void tellsWhetherThePageWasWritten_data();
    void tellsWhetherThePageWasWritten();
    void keepsTheOldFileUnlessAnsweredYes_data();
    void keepsTheOldFileUnlessAnsweredYes();
    void replacesTheOldFileWhenAnsweredYes_data();
    void replacesTheOldFileWhenAnsweredYes();
    void asksAboutThePageOfThatNameOnly();
    void saysCreatedButMakesNoFolder_data();
    void saysCreatedButMakesNoFolder();
    void saysCreatedWhereTheFileCannotBeWritten_data();
    void saysCreatedWhereTheFileCannotBeWritten();
    void keepsAFolderThatHasThePagesName();
    void replacesAFileInAFolderThatTakesNoNewOnes();
    void leavesAWriteProtectedFileWhole();
    void leavesNothingOnAFullDisk_data();
    void leavesNothingOnAFullDisk();
    void keepsTheOldFileOnAFullDisk_data();
    void keepsTheOldFileOnAFullDisk();
    void takesThePageNameForAPathAsItStands_data();
    void takesThePageNameForAPathAsItStands();
    void saysThePageNameAsItStands_data();
    void saysThePageNameAsItStands();
    void leavesThePadsPageAloneInMidiMode();
    void looksAtTheChosenOutputOnly();
};

void ExportTest::asksForAShowFirst_data()
{
    QTest::addColumn<Road>("road");
    QTest::newRow("button") << Road::Button;
    QTest::newRow("menu") << Road::Menu;
    QTest::newRow("keys") << Road::Keys;
}

void ExportTest::asksForAShowFirst()
{
    QFETCH(Road, road);
    for (const bool midi : {false, true}) {
        ExportWindow session(ExportWindow::Show::None);
        session.home.makepadsfolder();
        QVERIFY(session.window.showready());
        if (midi)
            session.window.child<QRadioButton>("radio_outputmidi")->click();
        // The pads alone do not count.
        session.window.vdjModel->setData(session.window.vdjModel->index(0, 0), "1", ItemRole::Page);
        session.window.vdjModel->setData(session.window.vdjModel->index(0, 0), "0", ItemRole::Id);
        const QList<ShownDialog> shown = session.exportanswering({ok()}, road);
        QCOMPARE(shown.size(), 1);
        CHECK(compareMessage(shown.at(0), "Nothing to Export. Load a Show"));
        QCOMPARE(session.files(), QStringList());
    }
}

void ExportTest::writesNothingWithoutLiveButtons_data() { asksForAShowFirst_data(); }

void ExportTest::writesNothingWithoutLiveButtons()
{
    QFETCH(Road, road);
    ExportWindow session;
    session.home.makepadsfolder();
    QVERIFY(session.window.showready());
    const QList<ShownDialog> shown = session.exportanswering({ok()}, road);
    QCOMPARE(shown.size(), 1);
    CHECK(compareMessage(shown.at(0), "Nothing to Export. Pads are empty"));
    QCOMPARE(session.files(), QStringList());
}

void ExportTest::writesThePadsPage_data()
{
    asksForAShowFirst_data();
    QTest::newRow("slot of the action") << Road::Slot;
    QTest::newRow("slot of the button") << Road::ButtonSlot;
}

void ExportTest::writesThePadsPage()
{
    QFETCH(Road, road);
    ExportWindow session;
    session.home.makepadsfolder();
    QVERIFY(session.window.showready());
    session.putTwoBanks();
    const QList<ShownDialog> shown = session.exportanswering({ok()}, road);
    QCOMPARE(shown.size(), 1);
    CHECK(compareCreated(shown.at(0), "OS2L DMX"));
    QCOMPARE(session.files(), QStringList({"OS2L DMX.xml"}));
    QCOMPARE(contents(session.path("OS2L DMX.xml")), golden("two-banks.xml"));
    QCOMPARE(session.folder, session.home.path("Documents/VirtualDJ/Pads"));
}

void ExportTest::writesTheBanksThatAreUsedInColumnTwoOnly()
{
    ExportWindow session;
    session.home.makepadsfolder();
    session.setname(QStringLiteral("Friday"));
    session.put(0, 2, 16);
    session.put(3, 8, 8);
    CHECK(compareCreated(session.exportanswering({ok()}).value(0), "Friday"));
    QCOMPARE(contents(session.path("Friday.xml")), golden("hidden-column.xml"));
}

void ExportTest::writesSixteenPadsAndEveryNameAsItStands()
{
    const QString name = QString::fromUtf8("Früh & Späß 夜");
    ExportWindow session;
    session.home.makepadsfolder();
    session.window.child<QRadioButton>("radioButton_16pads")->click();
    session.setname(name);
    session.window.banks[3] = QString::fromUtf8("D'Été <1>");
    session.window.banks[5] = QString();
    session.put(2, 4, 1, "<Intro> & 'Go'");
    session.put(4, 4, 9);
    session.put(3, 6, 16, QString::fromUtf8("Größe \"7\" 夜"));
    CHECK(compareCreated(session.exportanswering({ok()}).value(0), name));
    QCOMPARE(session.files(), QStringList({name + ".xml"}));
    QCOMPARE(contents(session.path(name + ".xml")), golden("sixteen-pads.xml"));
}

void ExportTest::writesNamesThatAreStillBeingTyped_data()
{
    QTest::addColumn<Road>("road");
    QTest::newRow("menu") << Road::Menu;
    QTest::newRow("keys") << Road::Keys;
    QTest::newRow("slot") << Road::Slot;
}

void ExportTest::writesNamesThatAreStillBeingTyped()
{
    QFETCH(Road, road);
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    QVERIFY(session.window.showready());
    const auto type = [&session](const char* edit, const QString& text) {
        auto* line = session.window.child<QLineEdit>(edit);
        line->setFocus();
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Backspace);
        QTest::keyClicks(line, text);
    };
    type("bankname", QStringLiteral("Drops"));
    CHECK(compareCreated(session.exportanswering({ok()}, road).value(0), "OS2L DMX"));
    QCOMPARE(session.window.banks.at(0), QString("Drops"));
    QVERIFY(contents(session.path("OS2L DMX.xml")).contains("get_text &apos;Drops&apos;"));

    // An emptied page name is put back before it can become the file's name.
    QVERIFY(session.window.showready());
    type("padsname", QString());
    const QList<ShownDialog> shown = session.exportanswering({Answers::press(QMessageBox::Yes), ok()}, road);
    QCOMPARE(shown.size(), 2);
    CHECK(compareCreated(shown.at(1), "OS2L DMX"));
    QCOMPARE(session.files(), QStringList({"OS2L DMX.xml"}));

    // So does the text of a pad whose editor is open.
    QVERIFY(session.window.showready());
    auto* pads = session.window.child<QTableView>("vdjlistview");
    pads->setFocus();
    pads->setCurrentIndex(session.window.vdjModel->index(0, 0));
    pads->edit(session.window.vdjModel->index(0, 0));
    QLineEdit* editor = pads->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor);
    editor->setFocus();
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("BOOM"));
    session.exportanswering({Answers::press(QMessageBox::Yes), ok()}, road);
    QVERIFY(contents(session.path("OS2L DMX.xml")).contains("get_text &apos;BOOM&apos;"));
}

void ExportTest::writesWhatTheWindowShowsNow()
{
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    QVERIFY(session.window.showready());
    // A name that is still being typed is the one that counts.
    auto* bankname = session.window.child<QLineEdit>("bankname");
    session.window.child<QComboBox>("bankcombo")->setCurrentIndex(2);
    bankname->setFocus();
    bankname->selectAll();
    QTest::keyClicks(bankname, "Finale");
    session.window.child<QPushButton>("pushButton_2")->setFocus();
    session.window.child<QRadioButton>("radioButton_16pads")->click();
    CHECK(compareCreated(session.exportanswering({ok()}, Road::Button).value(0), "OS2L DMX"));
    const QByteArray sixteen = contents(session.path("OS2L DMX.xml"));
    QVERIFY(sixteen.contains("get_text &apos;BANK 1&apos; : var &apos;dmxbank&apos; 1 ? "
                             "get_text &apos;Finale&apos;`\">param_bigger"));
    QVERIFY(sixteen.contains("\t<pad16 "));

    session.window.child<QRadioButton>("radioButton_8pads")->click();
    session.exportanswering({Answers::press(QMessageBox::Yes), ok()}, Road::Button);
    QVERIFY(!contents(session.path("OS2L DMX.xml")).contains("\t<pad9 "));
}

void ExportTest::writesMissingBankNamesAsEmpty()
{
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    session.window.banks = QStringList{QStringLiteral("BANK 1")};
    CHECK(compareCreated(session.exportanswering({ok()}).value(0), "OS2L DMX"));
    QByteArray expected = golden("two-banks.xml");
    expected.replace("BANK 3", "");
    QCOMPARE(contents(session.path("OS2L DMX.xml")), expected);
}

void ExportTest::tellsWhetherThePageWasWritten_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("written");
    QTest::newRow("declined") << QMessageBox::No << false;
    QTest::newRow("agreed") << QMessageBox::Yes << true;
}

void ExportTest::tellsWhetherThePageWasWritten()
{
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(bool, written);
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    bool answer = false;
    {
        const Dialogs dialogs({ok()});
        QVERIFY(QMetaObject::invokeMethod(&session.window, "exportpage", Q_RETURN_ARG(bool, answer)));
    }
    QVERIFY(answer);
    const QList<Answer> answers{Answers::press(button), ok()};
    {
        const Dialogs dialogs(written ? answers : answers.mid(0, 1));
        QVERIFY(QMetaObject::invokeMethod(&session.window, "exportpage", Q_RETURN_ARG(bool, answer)));
    }
    QCOMPARE(answer, written);
}

void ExportTest::keepsTheOldFileUnlessAnsweredYes_data() { Answers::addrefusals(); }

void ExportTest::keepsTheOldFileUnlessAnsweredYes()
{
    QFETCH(Answer, answer);
    const QByteArray old("<page>\r\nnot ours\0 \xff", 20);
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    writefile(session.path("OS2L DMX.xml"), old);
    for (const Road road : {Road::Menu, Road::Button}) {
        const QList<ShownDialog> shown = session.exportanswering({answer}, road);
        QCOMPARE(shown.size(), 1);
        CHECK(compareQuestion(shown.at(0), "OS2L DMX"));
        QCOMPARE(contents(session.path("OS2L DMX.xml")), old);
        QCOMPARE(session.files(), QStringList({"OS2L DMX.xml"}));
    }
}

void ExportTest::replacesTheOldFileWhenAnsweredYes_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::newRow("shorter") << QByteArray("old");
    QTest::newRow("longer") << QByteArray(100000, 'x');
    QTest::newRow("empty") << QByteArray("");
}

void ExportTest::replacesTheOldFileWhenAnsweredYes()
{
    QFETCH(QByteArray, old);
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    writefile(session.path("OS2L DMX.xml"), old);
    const QList<ShownDialog> shown = session.exportanswering({Answers::press(QMessageBox::Yes), ok()});
    QCOMPARE(shown.size(), 2);
    CHECK(compareQuestion(shown.at(0), "OS2L DMX"));
    CHECK(compareCreated(shown.at(1), "OS2L DMX"));
    QCOMPARE(contents(session.path("OS2L DMX.xml")), golden("two-banks.xml"));
    QCOMPARE(session.files(), QStringList({"OS2L DMX.xml"}));
}

void ExportTest::asksAboutThePageOfThatNameOnly()
{
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    writefile(session.path("OS2L DMX 2.xml"), "another");
    writefile(session.path("OS2L DMX"), "another");
    const QList<ShownDialog> shown = session.exportanswering({ok()});
    QCOMPARE(shown.size(), 1);
    CHECK(compareCreated(shown.at(0), "OS2L DMX"));
    QCOMPARE(contents(session.path("OS2L DMX 2.xml")), QByteArray("another"));
    QCOMPARE(contents(session.path("OS2L DMX")), QByteArray("another"));
    QCOMPARE(contents(session.path("OS2L DMX.xml")), golden("two-banks.xml"));
}

void ExportTest::saysCreatedButMakesNoFolder_data()
{
    QTest::addColumn<QString>("present");
    QTest::newRow("no Pads folder") << "Documents/VirtualDJ";
    QTest::newRow("no VirtualDJ folder") << "Documents";
}

void ExportTest::saysCreatedButMakesNoFolder()
{
    QFETCH(QString, present);
    ExportWindow session;
    session.home.makefolder(present);
    session.putTwoBanks();
    const QStringList before =
        QDir(session.home.path(present)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
    // Once more, as it is no page that could already exist.
    for (int round = 0; round < 2; ++round) {
        const QList<ShownDialog> shown = session.exportanswering({ok()});
        QCOMPARE(shown.size(), 1);
        CHECK(compareCreated(shown.at(0), "OS2L DMX"));
        QVERIFY(!QFileInfo::exists(session.folder));
        QCOMPARE(QDir(session.home.path(present)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), before);
    }
}

void ExportTest::saysCreatedWhereTheFileCannotBeWritten_data()
{
    QTest::addColumn<bool>("file");
    QTest::newRow("a file in the folder's place") << true;
    // No user may create a file there, whatever the rights.
    QTest::newRow("a folder that takes no files") << false;
}

void ExportTest::saysCreatedWhereTheFileCannotBeWritten()
{
    QFETCH(bool, file);
    ExportWindow session;
    session.home.makefolder("Documents/VirtualDJ");
    session.putTwoBanks();
    if (file)
        writefile(session.folder, "a file");
    else
        QVERIFY(QFile::link("/proc", session.folder));
    const QList<ShownDialog> shown = session.exportanswering({ok()});
    QCOMPARE(shown.size(), 1);
    CHECK(compareCreated(shown.at(0), "OS2L DMX"));
    QVERIFY(!QFileInfo::exists(session.path("OS2L DMX.xml")));
    if (file)
        QCOMPARE(contents(session.folder), QByteArray("a file"));
}

void ExportTest::keepsAFolderThatHasThePagesName()
{
    ExportWindow session;
    session.home.makefolder("Documents/VirtualDJ/Pads/OS2L DMX.xml");
    writefile(session.path("OS2L DMX.xml/inside"), "kept");
    session.putTwoBanks();
    const QList<ShownDialog> shown = session.exportanswering({Answers::press(QMessageBox::Yes), ok()});
    QCOMPARE(shown.size(), 2);
    CHECK(compareQuestion(shown.at(0), "OS2L DMX"));
    CHECK(compareCreated(shown.at(1), "OS2L DMX"));
    QCOMPARE(contents(session.path("OS2L DMX.xml/inside")), QByteArray("kept"));
    QCOMPARE(session.files(), QStringList({"OS2L DMX.xml"}));
}

void ExportTest::replacesAFileInAFolderThatTakesNoNewOnes()
{
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    writefile(session.path("OS2L DMX.xml"), "old");
    QVERIFY(QFile::setPermissions(session.folder, QFile::ReadOwner | QFile::ExeOwner));
    session.exportanswering({Answers::press(QMessageBox::Yes), ok()});
    QVERIFY(QFile::setPermissions(session.folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(contents(session.path("OS2L DMX.xml")), golden("two-banks.xml"));
}

void ExportTest::leavesAWriteProtectedFileWhole()
{
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    const QString path = session.path("OS2L DMX.xml");
    writefile(path, "old");
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    // The administrator may write to it all the same.
    const QByteArray expected = QFileInfo(path).isWritable() ? golden("two-banks.xml") : QByteArray("old");
    const QList<ShownDialog> shown = session.exportanswering({Answers::press(QMessageBox::Yes), ok()});
    QCOMPARE(shown.size(), 2);
    CHECK(compareCreated(shown.at(1), "OS2L DMX"));
    QCOMPARE(contents(path), expected);
    QCOMPARE(session.files(), QStringList({"OS2L DMX.xml"}));
}

void ExportTest::leavesNothingOnAFullDisk_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("no room") << 0;
    QTest::newRow("room for a part") << 100;
    QTest::newRow("all but the last byte") << int(golden("two-banks.xml").size()) - 1;
}

void ExportTest::leavesNothingOnAFullDisk()
{
    QFETCH(int, bytes);
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    QList<ShownDialog> shown;
    {
        const FullDisk disk(static_cast<rlim_t>(bytes));
        shown = session.exportanswering({ok()});
    }
    QCOMPARE(shown.size(), 1);
    CHECK(compareCreated(shown.at(0), "OS2L DMX"));
    QCOMPARE(session.files(), QStringList());
    // With room again, the same page is written.
    session.exportanswering({ok()});
    QCOMPARE(contents(session.path("OS2L DMX.xml")), golden("two-banks.xml"));
}

void ExportTest::keepsTheOldFileOnAFullDisk_data() { leavesNothingOnAFullDisk_data(); }

void ExportTest::keepsTheOldFileOnAFullDisk()
{
    QFETCH(int, bytes);
    const QByteArray old(5000, 'o');
    ExportWindow session;
    session.home.makepadsfolder();
    session.putTwoBanks();
    writefile(session.path("OS2L DMX.xml"), old);
    QList<ShownDialog> shown;
    {
        const FullDisk disk(static_cast<rlim_t>(bytes));
        shown = session.exportanswering({Answers::press(QMessageBox::Yes), ok()});
    }
    QCOMPARE(shown.size(), 2);
    CHECK(compareQuestion(shown.at(0), "OS2L DMX"));
    CHECK(compareCreated(shown.at(1), "OS2L DMX"));
    QCOMPARE(contents(session.path("OS2L DMX.xml")), old);
    QCOMPARE(session.files(), QStringList({"OS2L DMX.xml"}));
}

void ExportTest::takesThePageNameForAPathAsItStands_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::newRow("into a folder") << "Sets/Friday"
                                   << "Documents/VirtualDJ/Pads/Sets/Friday.xml";
    QTest::newRow("into a missing folder") << "None/Friday"
                                           << "";
    QTest::newRow("out of the folder") << "../Friday"
                                       << "Documents/VirtualDJ/Friday.xml";
    QTest::newRow("dots") << "v1.0 final."
                          << "Documents/VirtualDJ/Pads/v1.0 final..xml";
    QTest::newRow("blank") << " "
                           << "Documents/VirtualDJ/Pads/ .xml";
    QTest::newRow("percent signs") << "100% %1 %n"
                                   << "Documents/VirtualDJ/Pads/100% %1 %n.xml";
    QTest::newRow("far too long") << QString(300, QLatin1Char('n')) << "";
}

void ExportTest::takesThePageNameForAPathAsItStands()
{
    QFETCH(QString, name);
    QFETCH(QString, file);
    ExportWindow session;
    session.home.makepadsfolder();
    session.home.makefolder("Documents/VirtualDJ/Pads/Sets");
    session.putTwoBanks();
    session.setname(name);
    const QList<ShownDialog> shown = session.exportanswering({ok()});
    QCOMPARE(shown.size(), 1);
    CHECK(compareCreated(shown.at(0), name));
    QByteArray expected = golden("two-banks.xml");
    expected.replace("<page name=\"OS2L DMX\">", "<page name=\"" + name.toUtf8() + "\">");
    if (!file.isEmpty())
        QCOMPARE(contents(session.home.path(file)), expected);
    QDir(session.home.path("Documents/VirtualDJ/Pads/Sets")).removeRecursively();
    const bool inside = file.startsWith("Documents/VirtualDJ/Pads/") && !name.contains('/');
    QCOMPARE(session.files(), inside ? QStringList{name + ".xml"} : QStringList());
}

void ExportTest::saysThePageNameAsItStands_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("markup") << "<b>Loud</b>";
    QTest::newRow("entities") << "Rock &amp; Roll";
    QTest::newRow("percent signs") << "100% %1";
}

void ExportTest::saysThePageNameAsItStands()
{
    QFETCH(QString, name);
    ExportWindow session;
    // A slash in the name asks for a folder.
    session.home.makefolder("Documents/VirtualDJ/Pads/<b>Loud<");
    session.putTwoBanks();
    session.setname(name);
    QList<Qt::TextFormat> formats;
    const auto look = [&formats](QDialog* dialog) {
        if (const auto* box = qobject_cast<QMessageBox*>(dialog))
            formats.append(box->textFormat());
    };
    CHECK(compareCreated(session.exportanswering({Answers::looking(look, ok())}).value(0), name));
    const QList<ShownDialog> again =
        session.exportanswering({Answers::looking(look, Answers::press(QMessageBox::No))});
    CHECK(compareQuestion(again.value(0), name));
    QCOMPARE(formats, QList<Qt::TextFormat>({Qt::PlainText, Qt::PlainText}));
}

void ExportTest::leavesThePadsPageAloneInMidiMode()
{
    for (const Road road : {Road::Button, Road::Menu}) {
        ExportWindow session;
        session.home.makepadsfolder();
        session.putTwoBanks();
        session.window.child<QRadioButton>("radio_outputmidi")->click();
        session.window.cleanMIDI();
        const QList<ShownDialog> shown = session.exportanswering({ok()}, road);
        QCOMPARE(shown.size(), 1);
        CHECK(compareMessage(shown.at(0), "Nothing to Export. Pads are empty"));
        QCOMPARE(session.files(), QStringList());

        session.window.child<QRadioButton>("radio_outputpage")->click();
        CHECK(compareCreated(session.exportanswering({ok()}, road).value(0), "OS2L DMX"));
        QCOMPARE(contents(session.path("OS2L DMX.xml")), golden("two-banks.xml"));
    }
}

void ExportTest::looksAtTheChosenOutputOnly()
{
    ExportWindow session;
    session.home.makepadsfolder();
    session.window.cleanMIDI();
    Controller* controller = session.window.controllerModel;
    QVERIFY(controller->insertRows(0, 12));
    QVERIFY(controller->setData(controller->index(2, 2), "0", ItemRole::Id));
    QVERIFY(!session.window.isMIDIempty());
    QVERIFY(session.window.isVDJempty());
    const QList<ShownDialog> shown = session.exportanswering({ok()});
    QCOMPARE(shown.size(), 1);
    CHECK(compareMessage(shown.at(0), "Nothing to Export. Pads are empty"));
    QCOMPARE(session.files(), QStringList());
}

LUMIPAD_TEST_MAIN(ExportTest)

#include "tst_export.moc"
