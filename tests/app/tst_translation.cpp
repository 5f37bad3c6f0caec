#include "controller.h"
#include "dialog.h"
#include "itemroles.h"
#include "midiwindow.h"
#include "storedtexts.h"
#include "testdialogs.h"
#include "testfiles.h"
#include "testhome.h"
#include "testmain.h"
#include "testshows.h"
#include "testwindow.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QTableView>
#include <QTranslator>

namespace {

/// A language in which every text of the program stands between two signs that no text of it has.
class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        static const QList<QByteArray> ours{"MainWindow", "Dialog",     "RecordModel", "MyModel",
                                            "VDJModel",   "Controller", "Accessible"};
        if (!ours.contains(context))
            return QString();
        return QStringLiteral(u"\u27e6") + QString::fromUtf8(text) + QStringLiteral(u"\u27e7");
    }
    bool isEmpty() const override { return false; }
};

/// The made-up language, for as long as the object lives.
class Translated
{
public:
    Translated() { QCoreApplication::installTranslator(&m_translator); }
    ~Translated() { QCoreApplication::removeTranslator(&m_translator); }
    Q_DISABLE_COPY(Translated)

private:
    MarkingTranslator m_translator;
};

bool istranslated(const QString& text)
{
    return text.contains(QChar(0x27e6)) && text.contains(QChar(0x27e7));
}

/// The texts that a person reads on \a widget itself: not the names and values that are the user's own.
QStringList textsof(const QWidget* widget)
{
    QStringList texts{widget->toolTip(), widget->accessibleName(), widget->accessibleDescription(),
                      widget->whatsThis(), widget->statusTip()};
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        texts << label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        texts << button->text();
    if (const auto* box = qobject_cast<const QGroupBox*>(widget))
        texts << box->title();
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget))
        texts << edit->placeholderText();
    if (const auto* menu = qobject_cast<const QMenu*>(widget))
        texts << menu->title();
    if (widget->isWindow())
        texts << widget->windowTitle();
    texts.removeAll(QString());
    return texts;
}

/// The untranslated texts of \a window and all that is in it, each with the name of its widget.
QStringList untranslated(const QWidget* window)
{
    QStringList found;
    QList<const QWidget*> widgets{window};
    const QList<QWidget*> children = window->findChildren<QWidget*>();
    for (const QWidget* child : children)
        widgets.append(child);
    for (const QWidget* widget : std::as_const(widgets)) {
        // The toolkit's own parts speak the toolkit's language.
        if (widget->objectName().startsWith(QLatin1String("qt_")))
            continue;
        const QStringList texts = textsof(widget);
        for (const QString& text : texts) {
            if (!istranslated(text))
                found << widget->objectName() + ": " + text;
        }
    }
    const QList<QAction*> actions = window->findChildren<QAction*>();
    for (const QAction* action : actions) {
        if (!action->text().isEmpty() && !istranslated(action->text()))
            found << action->objectName() + ": " + action->text();
    }
    return found;
}

/// The untranslated entries of \a menu and its submenus, but for those of \a names.
QStringList untranslated(const QMenu* menu, const QStringList& names)
{
    QStringList found;
    const QList<QAction*> actions = menu->actions();
    for (const QAction* action : actions) {
        if (action->menu())
            found += untranslated(action->menu(), names);
        if (!action->isSeparator() && !names.contains(action->text().trimmed()) &&
            !istranslated(action->text()))
            found << action->text();
    }
    return found;
}

QStringList itemtexts(const QComboBox* combo)
{
    QStringList texts;
    for (int item = 0; item < combo->count(); ++item)
        texts << combo->itemText(item);
    return texts;
}

/// A message box was in the made-up language, every text of it.
bool istranslated(const ShownDialog& box)
{
    return box.isMessageBox && istranslated(box.text) &&
           (box.informativeText.isEmpty() || istranslated(box.informativeText));
}

/// Everything that is stored, kept in files or compared with them, of a window with work on both outputs.
QStringList storedof(MidiWindow* midi)
{
    QStringList texts;
    for (const char* name :
         {"combobox", "devicescombo", "mididevices", "combo_offcolor", "combo_oncolor", "bankcombo"})
        texts += itemtexts(midi->window.child<QComboBox>(name));
    for (const char* name : {"bankname", "padsname"})
        texts += midi->window.child<QLineEdit>(name)->text();
    texts += midi->window.banks;
    for (const QAbstractItemModel* grid : {midi->pads->model(), midi->grid->model(), midi->list->model()}) {
        for (int row = 0; row < grid->rowCount(); ++row) {
            for (int column = 0; column < grid->columnCount(); ++column)
                texts += midi->values(grid->index(row, column),
                                      {Qt::EditRole, ItemRole::DspName, ItemRole::Page, ItemRole::Id});
        }
    }
    return texts;
}

} // namespace

/// The program in another language: every text that a person reads is translated, and nothing that is stored.
class TranslationTest : public QObject
{
    Q_OBJECT

private slots:
    void windowHasNoUntranslatedText();
    void aboutBoxHasNoUntranslatedText();
    void menusHaveNoUntranslatedEntry();
    void toolTipsAreTranslatedAroundTheNames();
    void whatAssistiveTechnologyReadsIsTranslatedAroundTheNames();
    void messagesAreTranslatedAroundTheNames();
    void fileDialogsAreTranslated();
    void storedTextsStayAsTheyAre();
    void filesStayAsTheyAre();
};

void TranslationTest::windowHasNoUntranslatedText()
{
    const Translated language;
    MidiWindow midi;
    QCOMPARE(untranslated(&midi.window), QStringList());
    QVERIFY(midi.window.windowTitle().contains("Lumipad - "));
    for (const char* radio : {"radio_outputpage", "radio_outputmidi"}) {
        midi.window.child<QAbstractButton>(radio)->click();
        QCOMPARE(untranslated(&midi.window), QStringList());
    }
    auto* devices = midi.window.child<QComboBox>("devicescombo");
    for (int device = 0; device < devices->count(); ++device) {
        devices->setCurrentIndex(device);
        QCOMPARE(untranslated(&midi.window), QStringList());
    }
}

void TranslationTest::aboutBoxHasNoUntranslatedText()
{
    const Translated language;
    const Dialog dialog;
    QStringList found = untranslated(&dialog);
    // Two of its labels are pictures.
    found.erase(std::remove_if(found.begin(), found.end(),
                               [](const QString& text) { return text.contains(QLatin1String("<img")); }),
                found.end());
    QCOMPARE(found, QStringList());
}

void TranslationTest::menusHaveNoUntranslatedEntry()
{
    const Translated language;
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    QVERIFY(midi.window.showready());
    const QStringList palette{"black", "green", "red", "yellow"};
    auto* devices = midi.window.child<QComboBox>("devicescombo");
    for (const int device : {devicerow("APCMINI"), devicerow("NLMINIMK3")}) {
        devices->setCurrentIndex(device);
        QMenu* menu = midi.rightclick(midi.grid, midi.cell(2, 2));
        QVERIFY(menu);
        QVERIFY(menu->actions().size() > 5);
        QCOMPARE(untranslated(menu, palette), QStringList());
        menu->close();
    }
    midi.window.child<QAbstractButton>("radio_outputpage")->click();
    midi.drop(0, midi.pad(0));
    QMenu* menu = midi.rightclick(midi.pads, midi.pad(0));
    QVERIFY(menu);
    QCOMPARE(untranslated(menu, {}), QStringList());
    menu->close();
}

void TranslationTest::toolTipsAreTranslatedAroundTheNames()
{
    const Translated language;
    MidiWindow midi;
    midi.loadshow("Odd", {{"Page", {{"100%1 %2 %L3", 0xFF0000}}}});
    QVERIFY(istranslated(midi.list->model()->index(0, 0).data(Qt::ToolTipRole).toString()));
    midi.drop(0, midi.pad(0));
    midi.drop(0, midi.cell(2, 2));
    midi.window.controllerModel->setData(midi.cell(2, 2), "red", ItemRole::ColorOff);
    midi.window.controllerModel->setData(midi.cell(2, 2), "red", ItemRole::ColorOn);
    midi.window.controllerModel->setData(midi.cell(2, 2), "1", ItemRole::Blink);
    for (const QModelIndex& pad : {midi.pad(0), midi.cell(2, 2)}) {
        const QString tip = pad.data(Qt::ToolTipRole).toString();
        QVERIFY2(istranslated(tip), qPrintable(tip));
        // A name is no text of the program, whatever it looks like.
        QVERIFY2(tip.contains("100%1 %2 %L3"), qPrintable(tip));
    }
    QCOMPARE(midi.cell(2, 2).data(Qt::ToolTipRole).toString().count(QChar(0x27e6)), 5);
    const QAbstractItemModel* list = midi.list->model();
    QVERIFY(istranslated(list->headerData(0, Qt::Horizontal).toString()));
}

void TranslationTest::whatAssistiveTechnologyReadsIsTranslatedAroundTheNames()
{
    const Translated language;
    MidiWindow midi;
    midi.drop(0, midi.pad(0));
    midi.drop(1, midi.pad(1));
    midi.pads->model()->setData(midi.pad(1), "Dark", Qt::EditRole);
    midi.drop(2, midi.cell(2, 2));
    const auto text = [](const QTableView* view, const QModelIndex& index) {
        QAccessibleTableInterface* table =
            QAccessible::queryAccessibleInterface(const_cast<QTableView*>(view))->tableInterface();
        return table->cellAt(index.row(), index.column())->text(QAccessible::Name);
    };
    const auto marked = [](const QString& words) { return QChar(0x27e6) + words + QChar(0x27e7); };
    QCOMPARE(text(midi.pads, midi.pad(0)), marked("PAD 1: Strobe"));
    QCOMPARE(text(midi.pads, midi.pad(1)), marked("PAD 2: Blackout, shown as Dark"));
    QCOMPARE(text(midi.grid, midi.cell(2, 2)), marked("PAD 1: Slow Fade"));
    // A pad's own name and that of a Live Button stay as VirtualDJ and the show have them.
    QCOMPARE(text(midi.pads, midi.pad(2)), QString("PAD 3"));
    QCOMPARE(text(midi.list, midi.list->model()->index(0, 0)), QString("Strobe"));
}

void TranslationTest::messagesAreTranslatedAroundTheNames()
{
    const Translated language;
    const auto yes = Answers::press(QMessageBox::Yes);
    const auto no = Answers::press(QMessageBox::No);
    const auto ok = Answers::press(QMessageBox::Ok);
    const auto cancel = Answers::press(QMessageBox::Cancel);
    const TestHome home;
    TestWindow blank;
    {
        const Dialogs dialogs({ok, ok});
        blank.on_actionExport_triggered();
        blank.on_actionSave_2_triggered();
        QVERIFY(istranslated(dialogs.at(0)));
        QVERIFY(istranslated(dialogs.at(1)));
    }
    {
        const QString folder = home.makefolder("No show here");
        const Dialogs dialogs({Answers::choose(folder), ok});
        blank.loadshow();
        QVERIFY(istranslated(dialogs.at(1)));
        QVERIFY(istranslated(dialogs.at(1).title));
    }

    MidiWindow midi(MidiWindow::Output::Pads);
    midi.home->makefolder("Documents/VirtualDJ/Mappers");
    midi.home->makepadsfolder();
    {
        const Dialogs dialogs({ok, ok});
        midi.window.on_actionExport_triggered();
        midi.window.on_actionSave_2_triggered();
        QVERIFY(istranslated(dialogs.at(0)));
        QVERIFY(istranslated(dialogs.at(1)));
    }
    const QString name = "A %1 & %2";
    for (const MidiWindow::Output output : {MidiWindow::Output::Pads, MidiWindow::Output::Midi}) {
        const bool pads = output == MidiWindow::Output::Pads;
        midi.window.child<QAbstractButton>(pads ? "radio_outputpage" : "radio_outputmidi")->click();
        midi.drop(0, pads ? midi.pad(0) : midi.cell(2, 2));
        midi.window.child<QLineEdit>("padsname")->setText(name);
        const QString project = midi.window.projectsPath + "/" + name + ".os2l";
        QFile::remove(project);
        const Dialogs dialogs({ok, no, Answers::choose(project), ok, Answers::choose(project), no, cancel,
                               cancel, cancel, Answers::closebox(), ok});
        midi.window.on_actionExport_triggered();
        midi.window.on_actionExport_triggered();
        midi.window.on_actionSave_2_triggered();
        midi.window.on_actionSave_2_triggered();
        midi.window.close();
        midi.window.on_loadini_clicked();
        midi.window.on_actionLoad_Project_triggered();
        midi.window.showName.clear();
        midi.window.on_actionLoad_Project_triggered();
        midi.window.showName = "Gig";
        for (int box : {0, 1, 3, 5}) {
            QVERIFY2(istranslated(dialogs.at(box)), qPrintable(dialogs.at(box).text));
            QVERIFY2(dialogs.at(box).text.contains(name), qPrintable(dialogs.at(box).text));
        }
        for (int box : {6, 7, 8, 10})
            QVERIFY2(istranslated(dialogs.at(box)), qPrintable(dialogs.at(box).text));
    }
}

void TranslationTest::fileDialogsAreTranslated()
{
    const Translated language;
    MidiWindow midi(MidiWindow::Output::Pads);
    midi.drop(0, midi.pad(0));
    const auto look = [](QDialog* dialog) {
        QVERIFY(istranslated(dialog->windowTitle()));
        const auto* files = qobject_cast<QFileDialog*>(dialog);
        QVERIFY(files);
        if (!files->testOption(QFileDialog::ShowDirsOnly))
            QVERIFY(istranslated(files->nameFilters().join(';')));
    };
    const Answer cancelled = Answers::looking(look, Answers::closebox());
    const Dialogs dialogs({cancelled, cancelled, cancelled});
    midi.window.loadshow();
    midi.window.loadproject();
    midi.window.on_actionSave_2_triggered();
}

void TranslationTest::storedTextsStayAsTheyAre()
{
    const auto work = [] {
        MidiWindow midi(MidiWindow::Output::Pads);
        midi.drop(0, midi.pad(0));
        midi.drop(1, midi.pad(3));
        midi.drop(midi.pad(3), midi.pad(9, 1));
        midi.drop(0, midi.cell(2, 2));
        midi.drop(1, midi.cell(2, 3));
        midi.drop(midi.cell(2, 3), midi.cell(11, 4));
        midi.window.menuIndex = midi.cell(5, 5);
        midi.window.ontoggleaction_triggered();
        return storedof(&midi);
    };
    const QStringList plain = work();
    QVERIFY(plain.contains("All Pages") && plain.contains("BANK 8") && plain.contains("OS2L DMX"));
    QVERIFY(plain.contains("SWITCH") && plain.contains("PAD 64") && plain.contains("BOTTOM 1"));
    QVERIFY(plain.contains("Simple OS2L mapping") && plain.contains("Akai APC Mini mapping (factory)"));
    const Translated language;
    QCOMPARE(work(), plain);
}

void TranslationTest::filesStayAsTheyAre()
{
    // The second window finds everything where the first had it.
    const auto home = std::make_unique<TestHome>();
    const QString show = writeshow(*home, "Gig");
    home->makepadsfolder();
    home->makefolder("Documents/VirtualDJ/Mappers");
    const auto written = [&] {
        TestWindow window;
        window.showName = "Gig";
        window.loadshowname(show + "/Live/live.ini");
        const auto place = [&window](QAbstractItemModel* grid, int row, int column) {
            const QModelIndex button = window.findChild<QTableView*>("dmxlistview")->model()->index(1, 0);
            const std::unique_ptr<QMimeData> data(button.model()->mimeData({button}));
            grid->dropMimeData(data.get(), Qt::CopyAction, -1, -1, grid->index(row, column));
        };
        QAbstractItemModel* pads = window.findChild<QTableView*>("vdjlistview")->model();
        QAbstractItemModel* cells = window.findChild<QTableView*>("tablecontroller")->model();
        place(pads, 0, 0);
        place(cells, 2, 2);
        const QString file = home->path("Work.os2l");
        QList<QByteArray> files;
        const auto ok = Answers::press(QMessageBox::Ok);
        const Dialogs dialogs({ok, ok, ok, ok});
        window.exportpage();
        window.savepadsproject(file);
        files << contents(window.padsPath + "/OS2L DMX.xml") << contents(file);
        window.exportmapping();
        window.savemidiproject(file);
        files << contents(window.mappersPath + "/Akai APC Mini - OS2L DMX mapping.xml") << contents(file);
        for (const QString& path : {window.padsPath + "/OS2L DMX.xml",
                                    window.mappersPath + "/Akai APC Mini - OS2L DMX mapping.xml"})
            QFile::remove(path);
        return files;
    };
    const QList<QByteArray> plain = written();
    for (const QByteArray& file : plain)
        QVERIFY(file.contains("Blackout"));
    const Translated language;
    QCOMPARE(written(), plain);
}

LUMIPAD_TEST_MAIN(TranslationTest)
#include "tst_translation.moc"
