#pragma once

#include <QDialog>
#include <QFileDialog>
#include <QList>
#include <QMessageBox>
#include <QMetaType>
#include <QString>

#include <functional>

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
Answer press(QMessageBox::StandardButton button);
/// Presses \a key in the dialog: Escape, or Return for its default button.
Answer key(Qt::Key key);
/// Closes the dialog by its window's own button.
Answer closebox();
/// Types \a path into a file dialog and accepts it.
Answer choose(const QString& path);
/// Looks at the dialog first, then answers it.
Answer looking(const std::function<void(QDialog*)>& look, const Answer& then);

/// Test rows with a column "answer": every way in which a user does not say Yes to a question with No as its
/// default.
void addrefusals();

} // namespace Answers

Q_DECLARE_METATYPE(Answer)

/// Watches for dialogs as long as the test program runs; the answers come from `Dialogs`. A dialog that
/// nobody expects fails the test and is closed, so that the program does not wait for ever.
class DialogWatch : public QObject
{
public:
    DialogWatch();

    /// The answers to the dialogs that are still to come, in their order.
    static QList<Answer>& answers();
    /// The dialogs that came up since the latest `Dialogs` was made, in their order.
    static QList<ShownDialog>& shown();

    bool eventFilter(QObject* watched, QEvent* event) override;
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
    explicit Dialogs(const QList<Answer>& answers);
    ~Dialogs();
    Q_DISABLE_COPY(Dialogs)

    /// How many dialogs came up so far.
    int count() const;
    /// The dialog that came up as number \a index; an empty record when it did not.
    ShownDialog at(int index) const;
};
