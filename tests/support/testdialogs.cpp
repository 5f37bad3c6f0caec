#include "testdialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

ShownDialog look(QDialog* dialog)
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

void fail(const char* why, const ShownDialog& dialog)
{
    QTest::qFail((QByteArray(why) + dialog.title.toUtf8() + " \"" + dialog.text.toUtf8() + '"').constData(),
                 __FILE__, __LINE__);
}

void answer(const QPointer<QDialog>& dialog)
{
    const ShownDialog seen = look(dialog);
    DialogWatch::shown().append(seen);
    if (DialogWatch::answers().isEmpty()) {
        fail("Unexpected dialog: ", seen);
        dialog->reject();
        return;
    }
    DialogWatch::answers().takeFirst()(dialog);
    if (dialog && dialog->isVisible()) {
        fail("The answer left this dialog open: ", seen);
        dialog->reject();
    }
}

} // namespace

Answer Answers::press(QMessageBox::StandardButton button)
{
    return [button](QDialog* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        if (QAbstractButton* there = box ? box->button(button) : nullptr)
            QTest::mouseClick(there, Qt::LeftButton);
    };
}

Answer Answers::key(Qt::Key key)
{
    return [key](QDialog* dialog) {
        QWidget* focused = dialog->focusWidget();
        QTest::keyClick(focused ? focused : dialog, key);
    };
}

Answer Answers::closebox()
{
    return [](QDialog* dialog) { dialog->close(); };
}

Answer Answers::choose(const QString& path)
{
    return [path](QDialog* dialog) {
        auto* edit = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (!edit)
            return;
        edit->setText(path);
        QMetaObject::invokeMethod(dialog, "accept", Qt::DirectConnection);
    };
}

Answer Answers::looking(const std::function<void(QDialog*)>& look, const Answer& then)
{
    return [look, then](QDialog* dialog) {
        look(dialog);
        then(dialog);
    };
}

void Answers::addrefusals()
{
    QTest::addColumn<Answer>("answer");
    QTest::newRow("No") << press(QMessageBox::No);
    QTest::newRow("Escape") << key(Qt::Key_Escape);
    QTest::newRow("Return") << key(Qt::Key_Return);
    QTest::newRow("closed") << closebox();
}

DialogWatch::DialogWatch() { qApp->installEventFilter(this); }

QList<Answer>& DialogWatch::answers()
{
    static QList<Answer> list;
    return list;
}

QList<ShownDialog>& DialogWatch::shown()
{
    static QList<ShownDialog> list;
    return list;
}

bool DialogWatch::eventFilter(QObject* watched, QEvent* event)
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

Dialogs::Dialogs(const QList<Answer>& answers)
{
    DialogWatch::shown().clear();
    DialogWatch::answers() = answers;
}

Dialogs::~Dialogs()
{
    if (!DialogWatch::answers().isEmpty())
        QTest::qFail("An expected dialog did not come up", __FILE__, __LINE__);
    DialogWatch::answers().clear();
}

int Dialogs::count() const { return static_cast<int>(DialogWatch::shown().size()); }

ShownDialog Dialogs::at(int index) const { return DialogWatch::shown().value(index); }
