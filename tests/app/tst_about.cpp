#include "addresses.h"
#include "dialog.h"
#include "testfiles.h"
#include "testmain.h"
#include "testwindow.h"

#include <QAction>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QSizeGrip>
#include <QUrl>

namespace {

/// Takes the place of the desktop's browser and viewer for as long as the object lives.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop()
    {
        for (const char* scheme : {"https", "http", "file"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
    }
    ~Desktop() override
    {
        for (const char* scheme : {"https", "http", "file"})
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }

    QList<QUrl> opened;

public slots:
    void open(const QUrl& url) { opened.append(url); }
};

/// Shows the About box of \a parent, calls \a look with it when it has the keyboard, and closes it.
void inbox(const std::function<void(Dialog*)>& look, QWidget* parent = nullptr)
{
    const auto ready = [&look](QDialog* shown) {
        auto* dialog = qobject_cast<Dialog*>(shown);
        QVERIFY(dialog);
        dialog->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dialog));
        look(dialog);
    };
    const Dialogs dialogs({Answers::looking(ready, Answers::closebox())});
    Dialog(parent).exec();
}

QByteArray shippedmanual() { return contents(QStringLiteral(":/icons/Images/Manual.pdf")); }

} // namespace

class AboutTest : public QObject
{
    Q_OBJECT

private slots:
    void showsTheProgram_data();
    void showsTheProgram();
    void hasItsLook();
    void showsItsLogos_data();
    void showsItsLogos();
    void opensOneAddress_data();
    void opensOneAddress();
    void opensAnAddressByTheKeyboard();
    void leadsToFiveDifferentPages();
    void comesUpFromBothMenus_data();
    void comesUpFromBothMenus();

    void shipsAManual();
    void putsTheManualIntoTheProgramFolder_data();
    void putsTheManualIntoTheProgramFolder();
    void keepsTheManualThatIsThere_data();
    void keepsTheManualThatIsThere();
    void staysSilentWithoutAProgramFolder();
    void staysSilentWithoutDocuments();
};

void AboutTest::showsTheProgram_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("button");
    QTest::addColumn<QString>("text");
    const auto logo = [](const char* image, int width) {
        return QStringLiteral("<html><head/><body><p align=\"center\"><img src=\":/icons/Images/%1\" "
                              "width=\"%2\"/></p></body></html>")
            .arg(QLatin1String(image))
            .arg(width);
    };
    QTest::newRow("maker's logo") << "label" << false << logo("kestrellogo.png", 60);
    QTest::newRow("program's logo") << "label_5" << false << logo("lumipadlogo.png", 200);
    QTest::newRow("first line") << "label_3" << false
                                << "Create a VirtualDJ Pads page with you Light Show Live buttons";
    QTest::newRow("second line") << "label_4" << false
                                 << "and control your DMX application (Sweetlight, ShowXpress, QuickDMX)";
    QTest::newRow("third line") << "label_6" << false << "from within VirtualDJ using the OS2L protocol.";
    QTest::newRow("version") << "label_7" << false << "Lumipad ver.2.0 - 2020 - Kestrel";
    QTest::newRow("updates") << "checkupdates" << true << "Check for Updates";
    QTest::newRow("support") << "support" << true << "Support";
    QTest::newRow("VirtualDJ") << "vdjwebsite" << true << "VirtualDJ Website";
    QTest::newRow("protocol") << "pushButton" << true << "OS2L";
    QTest::newRow("lighting") << "tlcforum" << true << "The Lighting Controller";
}

void AboutTest::showsTheProgram()
{
    QFETCH(QString, name);
    QFETCH(bool, button);
    QFETCH(QString, text);
    inbox([&](Dialog* dialog) {
        auto* widget = dialog->findChild<QWidget*>(name);
        QVERIFY(widget);
        QCOMPARE(qobject_cast<QPushButton*>(widget) != nullptr, button);
        QCOMPARE(qobject_cast<QLabel*>(widget) != nullptr, !button);
        QCOMPARE(widget->property("text").toString(), text);
        QCOMPARE(widget->font().family(), QString("Arial"));
        // The whole text can be read, and nothing lies over it.
        QVERIFY(widget->isVisible());
        QVERIFY(dialog->rect().contains(widget->geometry()));
        QVERIFY(widget->width() >= widget->sizeHint().width());
        QVERIFY(widget->height() >= widget->minimumSizeHint().height());
        QCOMPARE(dialog->childAt(widget->geometry().center()), widget);
        QVERIFY(widget->isEnabled());
    });
}

void AboutTest::hasItsLook()
{
    TestWindow window;
    inbox(
        [&](Dialog* dialog) {
            QCOMPARE(dialog->parentWidget(), &window);
            QCOMPARE(dialog->windowTitle(), QString("Lumipad - About"));
            QCOMPARE(
                dialog->styleSheet(),
                QString(
                    "QDialog {border:1px solid #606060; background-color: black; }QLabel {color: #aaaaaa; "
                    "background-color:transparent;}QPushButton {color: #cccccc; background-color: "
                    "#303030;border: 1px solid #505050;}QPushButton:hover {color: #ffffff; "
                    "background-color: #404040;border: 1px solid #606060;}"));
            QVERIFY(!dialog->windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
            QVERIFY(dialog->windowFlags().testFlag(Qt::Dialog));
            QVERIFY(!dialog->isSizeGripEnabled());
            QVERIFY(!dialog->findChild<QSizeGrip*>());
            QCOMPARE(dialog->font().family(), QString("Arial"));
            QCOMPARE(dialog->findChildren<QPushButton*>().size(), 5);
            QCOMPARE(dialog->findChildren<QLabel*>().size(), 6);
            const QImage picture = dialog->grab().toImage();
            QCOMPARE(picture.pixelColor(picture.width() / 2, 8), QColor(Qt::black));
            const auto* button = dialog->findChild<QPushButton*>(QStringLiteral("support"));
            QVERIFY(button);
            QCOMPARE(picture.pixelColor(button->pos() + QPoint(3, 3)), QColor(0x30, 0x30, 0x30));
        },
        &window);
}

void AboutTest::showsItsLogos_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("image");
    QTest::newRow("maker") << "label"
                           << ":/icons/Images/kestrellogo.png";
    QTest::newRow("program") << "label_5"
                             << ":/icons/Images/lumipadlogo.png";
}

void AboutTest::showsItsLogos()
{
    const TestWindow window; // brings the resources
    QFETCH(QString, name);
    QFETCH(QString, image);
    inbox([&](Dialog* dialog) {
        QVERIFY(!QImage(image).isNull());
        const auto* label = dialog->findChild<QLabel*>(name);
        QVERIFY(label);
        const QImage picture = dialog->grab(label->geometry()).toImage();
        int drawn = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 2; x < picture.width() - 2; ++x)
                drawn += picture.pixelColor(x, y) != QColor(Qt::black) ? 1 : 0;
        QVERIFY2(drawn > 200, qPrintable(QString::number(drawn)));
    });
}

void AboutTest::opensOneAddress_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("address");
    QTest::newRow("updates") << "checkupdates" << QString(Address::addOns);
    QTest::newRow("support") << "support" << QString(Address::support);
    QTest::newRow("VirtualDJ") << "vdjwebsite" << QString(Address::virtualDj);
    QTest::newRow("protocol") << "pushButton" << QString(Address::os2l);
    QTest::newRow("lighting") << "tlcforum" << QString(Address::lightingController);
}

void AboutTest::opensOneAddress()
{
    QFETCH(QString, name);
    QFETCH(QString, address);
    const Desktop desktop;
    inbox([&](Dialog* dialog) {
        auto* button = dialog->findChild<QPushButton*>(name);
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(desktop.opened, QList<QUrl>{QUrl(address)});
        // The box stays, for the next button.
        QVERIFY(dialog->isVisible());
        QVERIFY(QMetaObject::invokeMethod(dialog, ("on_" + name.toLatin1() + "_clicked").constData()));
        QCOMPARE(desktop.opened, QList<QUrl>({QUrl(address), QUrl(address)}));
    });
}

void AboutTest::opensAnAddressByTheKeyboard()
{
    const Desktop desktop;
    inbox([&](Dialog* dialog) {
        QStringList reached;
        for (int n = 0; n < 5; ++n) {
            QVERIFY(dialog->focusWidget());
            reached.append(dialog->focusWidget()->objectName());
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Space);
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(reached, QStringList({"checkupdates", "support", "vdjwebsite", "pushButton", "tlcforum"}));
        QCOMPARE(desktop.opened.size(), 5);
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
    });
}

void AboutTest::leadsToFiveDifferentPages()
{
    QStringList addresses;
    for (const char* address : {Address::addOns, Address::support, Address::virtualDj, Address::os2l,
                                Address::lightingController}) {
        const QUrl url(QString::fromUtf8(address), QUrl::StrictMode);
        QVERIFY2(url.isValid() && !url.host().isEmpty(), address);
        QVERIFY2(url.scheme() == "https" || url.scheme() == "http", address);
        addresses.append(url.toString());
    }
    addresses.removeDuplicates();
    QCOMPARE(addresses.size(), 5);
}

void AboutTest::comesUpFromBothMenus_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QByteArray>("slot");
    QTest::newRow("menu bar") << "actionAbout" << QByteArray("on_actionAbout_triggered");
    QTest::newRow("page menu") << "actionAbout_2" << QByteArray("on_actionAbout_2_triggered");
}

void AboutTest::comesUpFromBothMenus()
{
    QFETCH(QString, action);
    QFETCH(QByteArray, slot);
    TestWindow window;
    QVERIFY(window.showready());
    int modal = 0;
    const auto look = [&modal](QDialog* dialog) {
        if (qobject_cast<Dialog*>(dialog) && dialog->isModal() && QApplication::activeModalWidget() == dialog)
            ++modal;
    };
    const Dialogs dialogs(
        {Answers::looking(look, Answers::key(Qt::Key_Escape)), Answers::looking(look, Answers::closebox())});
    window.child<QAction>(qPrintable(action))->trigger();
    QCOMPARE(dialogs.count(), 1);
    QVERIFY(QMetaObject::invokeMethod(&window, slot.constData()));
    QCOMPARE(dialogs.count(), 2);
    QCOMPARE(modal, 2);
    for (const int n : {0, 1}) {
        QCOMPARE(dialogs.at(n).title, QString("Lumipad - About"));
        QCOMPARE(dialogs.at(n).parent, &window);
    }
    // Nothing of it is left.
    QVERIFY(!window.findChild<Dialog*>());
}

void AboutTest::shipsAManual()
{
    const TestWindow window; // brings the resources
    const QByteArray manual = shippedmanual();
    QVERIFY(manual.startsWith("%PDF-"));
    QVERIFY(manual.trimmed().endsWith("%%EOF"));
    QVERIFY(manual.size() > 10000);
}

void AboutTest::putsTheManualIntoTheProgramFolder_data()
{
    QTest::addColumn<bool>("key");
    QTest::newRow("menu") << false;
    QTest::newRow("F1") << true;
}

void AboutTest::putsTheManualIntoTheProgramFolder()
{
    QFETCH(bool, key);
    const Desktop desktop;
    const TestHome home;
    TestWindow window;
    QVERIFY(window.showready());
    const QString manual = home.path("Documents/Lumipad/Manual.pdf");
    QVERIFY(!QFile::exists(manual));
    for (int round = 1; round <= 2; ++round) {
        if (key)
            QTest::keyClick(&window, Qt::Key_F1);
        else
            window.child<QAction>("actionManual")->trigger();
        QCOMPARE(desktop.opened.size(), round);
        QCOMPARE(desktop.opened.constLast(), QUrl::fromLocalFile(manual));
        QVERIFY(contents(manual) == shippedmanual());
        QCOMPARE(QDir(home.path("Documents/Lumipad")).entryList(QDir::Files), QStringList({"Manual.pdf"}));
    }
}

void AboutTest::keepsTheManualThatIsThere_data()
{
    QTest::addColumn<QByteArray>("present");
    QTest::newRow("annotated") << QByteArray("%PDF-1.4 with my notes");
    QTest::newRow("empty") << QByteArray("");
}

void AboutTest::keepsTheManualThatIsThere()
{
    QFETCH(QByteArray, present);
    const Desktop desktop;
    const TestHome home;
    const TestWindow window;
    const QString manual = home.path("Documents/Lumipad/Manual.pdf");
    writefile(manual, present);
    window.child<QAction>("actionManual")->trigger();
    QCOMPARE(contents(manual), present);
    QCOMPARE(desktop.opened, QList<QUrl>{QUrl::fromLocalFile(manual)});
}

void AboutTest::staysSilentWithoutAProgramFolder()
{
    const Desktop desktop;
    const TestHome home;
    TestWindow window;
    QVERIFY(QDir(home.path("Documents/Lumipad")).removeRecursively());
    const Dialogs none({});
    QVERIFY(QMetaObject::invokeMethod(&window, "on_actionManual_triggered"));
    QCoreApplication::processEvents();
    QCOMPARE(none.count(), 0);
    QVERIFY(!QFile::exists(home.path("Documents/Lumipad")));
    QCOMPARE(desktop.opened, QList<QUrl>{QUrl::fromLocalFile(home.path("Documents/Lumipad/Manual.pdf"))});
}

void AboutTest::staysSilentWithoutDocuments()
{
    const Desktop desktop;
    const TestHome home(TestHome::Documents::Missing);
    const TestWindow window;
    const Dialogs none({});
    window.child<QAction>("actionManual")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(none.count(), 0);
    QCOMPARE(desktop.opened.size(), 1);
}

LUMIPAD_TEST_MAIN(AboutTest)

#include "tst_about.moc"
