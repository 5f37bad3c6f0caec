#pragma once

// What the tests of the window share: a home folder of their own, a window whose state they can read, answers
// for the dialogs that a user would give by hand, and small light shows.

#include "mainwindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <utility>

/// A temporary home folder, the user's for as long as the object lives; windows made meanwhile find their
/// folders in it. Homes may be nested: the earlier one comes back at the end.
class TestHome
{
public:
    enum class Documents { Present, Missing };

    explicit TestHome(Documents documents = Documents::Present)
    {
        setvariable("HOME", path());
        setvariable("XDG_CONFIG_HOME", path(QStringLiteral(".config")));
        setvariable("XDG_DATA_HOME", path(QStringLiteral(".local/share")));
        setvariable("XDG_CACHE_HOME", path(QStringLiteral(".cache")));
        if (documents == Documents::Present)
            QDir(path()).mkdir(QStringLiteral("Documents"));
    }
    ~TestHome()
    {
        for (const auto& [name, value] : std::as_const(m_before)) {
            if (value.isNull())
                qunsetenv(name.constData());
            else
                qputenv(name.constData(), value);
        }
    }
    Q_DISABLE_COPY(TestHome)

    /// The home folder, or \a relative inside it.
    QString path(const QString& relative = QString()) const
    {
        return relative.isEmpty() ? m_folder.path() : m_folder.filePath(relative);
    }
    /// Creates the folder \a relative with all that lead to it, and gives its whole path.
    QString makefolder(const QString& relative) const
    {
        QDir(path()).mkpath(relative);
        return path(relative);
    }
    /// The folder that VirtualDJ would have made for its pads pages; the program never makes it.
    QString makepadsfolder() const { return makefolder(QStringLiteral("Documents/VirtualDJ/Pads")); }

private:
    void setvariable(const char* name, const QString& value)
    {
        m_before.append({name, qEnvironmentVariableIsSet(name) ? qgetenv(name) : QByteArray()});
        qputenv(name, QFile::encodeName(value));
    }

    QTemporaryDir m_folder;
    QList<std::pair<QByteArray, QByteArray>> m_before;
};

/// The window with its state in the open, and with its close requests counted.
class TestWindow : public MainWindow
{
public:
    using MainWindow::banks;
    using MainWindow::buttons;
    using MainWindow::controllerModel;
    using MainWindow::currentDevice;
    using MainWindow::currentDeviceId;
    using MainWindow::delegate;
    using MainWindow::devices;
    using MainWindow::dmxModel;
    using MainWindow::documentsPath;
    using MainWindow::homePath;
    using MainWindow::iniPath;
    using MainWindow::keyList;
    using MainWindow::mappers;
    using MainWindow::mappersPath;
    using MainWindow::menuIndex;
    using MainWindow::messageBoxStyle;
    using MainWindow::padsPath;
    using MainWindow::pages;
    using MainWindow::programFolder;
    using MainWindow::projectsPath;
    using MainWindow::showName;
    using MainWindow::switchPad;
    using MainWindow::vdjModel;

    int closeRequests = 0;
    int closesAccepted = 0;

    /// The widget or action \a name; ends the test program when there is none of this class.
    template<class T>
    T* child(const char* name) const
    {
        T* found = findChild<T*>(QLatin1String(name));
        if (!found)
            qFatal("The window has no %s named %s", T::staticMetaObject.className(), name);
        return found;
    }

    /// Shows the window and waits until it can be seen and has the keyboard.
    bool showready()
    {
        show();
        activateWindow();
        return QTest::qWaitForWindowActive(this) && QTest::qWaitForWindowExposed(this);
    }

protected:
    void closeEvent(QCloseEvent* event) override
    {
        ++closeRequests;
        MainWindow::closeEvent(event);
        if (event->isAccepted())
            ++closesAccepted;
    }
};

/// What a dialog looked like when it came up, before it was answered.
struct ShownDialog
{
    bool isMessageBox = false;
    bool isFileDialog = false;
    QString title;
    QString styleSheet;
    const QWidget* parent = nullptr;
    // Message boxes
    QString text;
    QString informativeText;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButtons disabledButtons;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    // File dialogs
    QString folder; ///< the folder that it starts at
    QFileDialog::FileMode fileMode = QFileDialog::AnyFile;
    bool foldersOnly = false;
};

/// What the user does to a dialog. One that it does not close is closed as a failure.
using Answer = std::function<void(QDialog*)>;

namespace Answers {

/// Clicks \a button of a message box.
inline Answer press(QMessageBox::StandardButton button)
{
    return [button](QDialog* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        if (QAbstractButton* there = box ? box->button(button) : nullptr)
            QTest::mouseClick(there, Qt::LeftButton);
    };
}
/// Presses \a key in the dialog: Escape, or Return for its default button.
inline Answer key(Qt::Key key)
{
    return [key](QDialog* dialog) {
        QWidget* focused = dialog->focusWidget();
        QTest::keyClick(focused ? focused : dialog, key);
    };
}
/// Closes the dialog by its window's own button.
inline Answer closebox()
{
    return [](QDialog* dialog) { dialog->close(); };
}
/// Types \a path into a file dialog and accepts it.
inline Answer choose(const QString& path)
{
    return [path](QDialog* dialog) {
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (!edit)
            return;
        edit->setText(path);
        QMetaObject::invokeMethod(dialog, "accept", Qt::DirectConnection);
    };
}
/// Looks at the dialog first, then answers it.
inline Answer looking(const std::function<void(QDialog*)>& look, const Answer& then)
{
    return [look, then](QDialog* dialog) {
        look(dialog);
        then(dialog);
    };
}

} // namespace Answers

/// Watches for dialogs as long as the test program runs; the answers come from `Dialogs`. A dialog that
/// nobody expects fails the test and is closed, so that the program does not wait for ever.
class DialogWatch : public QObject
{
public:
    DialogWatch() { qApp->installEventFilter(this); }

    static QList<Answer>& answers()
    {
        static QList<Answer> list;
        return list;
    }
    static QList<ShownDialog>& shown()
    {
        static QList<ShownDialog> list;
        return list;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show) {
            if (QPointer<QDialog> dialog = qobject_cast<QDialog*>(watched))
                QTimer::singleShot(0, this, [dialog] {
                    if (dialog)
                        answer(dialog);
                });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static void answer(const QPointer<QDialog>& dialog)
    {
        const ShownDialog seen = look(dialog);
        shown().append(seen);
        if (answers().isEmpty()) {
            fail("Unexpected dialog: ", seen);
            dialog->reject();
            return;
        }
        answers().takeFirst()(dialog);
        if (dialog && dialog->isVisible()) {
            fail("The answer left this dialog open: ", seen);
            dialog->reject();
        }
    }
    static void fail(const char* why, const ShownDialog& dialog)
    {
        QTest::qFail(
            (QByteArray(why) + dialog.title.toUtf8() + " \"" + dialog.text.toUtf8() + '"').constData(),
            __FILE__, __LINE__);
    }
    static ShownDialog look(QDialog* dialog)
    {
        ShownDialog seen;
        seen.title = dialog->windowTitle();
        seen.styleSheet = dialog->styleSheet();
        seen.parent = dialog->parentWidget();
        if (const auto* box = qobject_cast<QMessageBox*>(dialog)) {
            seen.isMessageBox = true;
            seen.text = box->text();
            seen.informativeText = box->informativeText();
            seen.icon = box->icon();
            seen.buttons = box->standardButtons();
            const auto all = box->buttons();
            for (QAbstractButton* button : all)
                if (!button->isEnabled())
                    seen.disabledButtons |= box->standardButton(button);
            seen.defaultButton = box->standardButton(box->defaultButton());
        } else if (const auto* files = qobject_cast<QFileDialog*>(dialog)) {
            seen.isFileDialog = true;
            seen.folder = files->directory().absolutePath();
            seen.fileMode = files->fileMode();
            seen.foldersOnly = files->testOption(QFileDialog::ShowDirsOnly);
        }
        return seen;
    }
};

/// The dialogs that are to come up while this object lives, with the answer to each, in their order:
///
///     Dialogs dialogs({Answers::press(QMessageBox::Yes)});
///     window.close();
///     QCOMPARE(dialogs.at(0).text, ...);
///
/// The test fails when one of them did not come, and when another one came.
class Dialogs
{
public:
    explicit Dialogs(const QList<Answer>& answers)
    {
        DialogWatch::shown().clear();
        DialogWatch::answers() = answers;
    }
    ~Dialogs()
    {
        if (!DialogWatch::answers().isEmpty())
            QTest::qFail("An expected dialog did not come up", __FILE__, __LINE__);
        DialogWatch::answers().clear();
    }
    Q_DISABLE_COPY(Dialogs)

    /// How many dialogs came up so far.
    int count() const { return DialogWatch::shown().size(); }
    /// The dialog that came up as number \a index; an empty record when it did not.
    ShownDialog at(int index) const { return DialogWatch::shown().value(index); }
};

/// One Live Button of a test show.
struct TestButton
{
    QString title;
    int color;
};

/// One Live page of a test show.
struct TestPage
{
    QString name;
    QList<TestButton> buttons;
};

/// Two pages, three and two Live Buttons.
inline QList<TestPage> smallshow()
{
    return {{QStringLiteral("Moods"),
             {{QStringLiteral("Strobe"), 0xFF0000},
              {QStringLiteral("Blackout"), 0},
              {QStringLiteral("Slow Fade"), 0x00FF00}}},
            {QStringLiteral("Movers"),
             {{QStringLiteral("Circle"), 0xFF}, {QStringLiteral("Ballyhoo"), 0xFFFF00}}}};
}

/// Writes the show \a name, with \a pages, into the folder that the program offers first, and gives the
/// show's folder.
inline QString writeshow(const TestHome& home, const QString& name,
                         const QList<TestPage>& pages = smallshow())
{
    const QString folder = QStringLiteral("TheLightingController/LightShows/") + name;
    QFile file(home.makefolder(folder + QStringLiteral("/Live")) + QStringLiteral("/live.ini"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        qFatal("Cannot write a test show");
    QString text = QStringLiteral("[page]\nnumber=%1\n").arg(pages.size());
    for (int page = 0; page < pages.size(); ++page) {
        text += QStringLiteral("\n[page%1]\nname=\"%2\"\nnb_buttons=%3\n")
                    .arg(QString::number(page + 1), pages.at(page).name,
                         QString::number(pages.at(page).buttons.size()));
        for (int button = 0; button < pages.at(page).buttons.size(); ++button) {
            const TestButton& item = pages.at(page).buttons.at(button);
            text += QStringLiteral("\n[page%1_button%2]\ntitle=\"%3\"\ncolor=%4\n")
                        .arg(QString::number(page + 1), QString::number(button + 1), item.title,
                             QString::number(item.color));
        }
    }
    file.write(text.toUtf8());
    return home.path(folder);
}

/// Starts the tests of \a TestClass in a home folder of their own, made before anything asks for it. The file
/// dialogs are the toolkit's own, whatever desktop the tests run on.
#define LUMIPAD_TEST_MAIN(TestClass)                                                                         \
    int main(int argc, char* argv[])                                                                         \
    {                                                                                                        \
        const TestHome home;                                                                                 \
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);                                             \
        QApplication app(argc, argv);                                                                        \
        QApplication::setQuitOnLastWindowClosed(false);                                                      \
        const DialogWatch watch;                                                                             \
        TestClass test;                                                                                      \
        return QTest::qExec(&test, argc, argv);                                                              \
    }
