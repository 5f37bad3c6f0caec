#pragma once

#include "testfiles.h"
#include "trouble.h"
#include "user.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

/// What the stories share: each is a Qt Test program in which a person works in the real window. A test
/// function tells its story inside `tell`, with a `StoryUser`.
namespace Stories {

/// A folder for the pictures of the running test function, emptied.
inline QString freshpictures()
{
    QString folder = QStringLiteral(LUMIPAD_PICTURES) + QLatin1Char('/') +
                     QString::fromLatin1(QTest::currentTestFunction());
    if (QTest::currentDataTag() != nullptr)
        folder += QLatin1Char('/') + QString::fromUtf8(QTest::currentDataTag());
    QDir(folder).removeRecursively();
    return folder;
}

/// The bytes of a golden file; throws `Trouble` when there is none of that name.
inline QByteArray golden(const QString& name)
{
    const QString path = QStringLiteral(LUMIPAD_GOLDEN "/") + name;
    if (!QFile::exists(path))
        throw Trouble(QStringLiteral("The golden file %1 is missing.").arg(path));
    return contents(path);
}

/// The bytes of a golden mapping, which holds a date, as it is written today.
inline QByteArray goldenmapper(const QString& name, const Home& home)
{
    const QRegularExpression date(QStringLiteral(" date=\"[^\"]*\""));
    QStringList lines = QString::fromUtf8(golden(name)).split(QLatin1Char('\n'));
    lines[1].replace(date, home.today().toString(QStringLiteral("' date=\"'d-M-yyyy'\"'")));
    return lines.join(QLatin1Char('\n')).toUtf8();
}

/// Puts something else in the place of a file, so that only a file that is written again can be what it was.
/// Gives what it was.
inline QByteArray spoil(const QString& path)
{
    QByteArray before = contents(path);
    writefile(path, "to be overwritten\n");
    return before;
}

/// Runs \a steps; one whose effect does not come fails the test function with its sentence.
template<class Steps>
void tell(Steps steps)
{
    try {
        steps();
    } catch (const Trouble& trouble) {
        QFAIL(trouble.what());
    }
}

} // namespace Stories

/// The user at the program that was built with the stories, in a home with the demo show.
class StoryUser : public User
{
public:
    StoryUser()
        : User(QStringLiteral(LUMIPAD_PROGRAM), Stories::freshpictures(), QStringLiteral(LUMIPAD_SHOW))
    {
    }

    /// Gives up unless the file \a path holds just \a expected.
    void expectfile(const QString& path, const QByteArray& expected)
    {
        const QString difference = firstDifference(contents(path), expected);
        if (!difference.isEmpty())
            giveup(QStringLiteral("%1 is not as expected: %2").arg(path, difference));
    }

    /// Waits until the main window has the size \a size, in pixels of the screen.
    void expectsize(QSize size)
    {
        await([&] { return mainwindow().geometry.size() == size; },
              QStringLiteral("The window did not become %1 by %2.").arg(size.width()).arg(size.height()));
    }

    /// Has every pad and control of the file \a path pressed as VirtualDJ would; \a expectation tells what
    /// was dropped where.
    void expectonstage(const QString& path, const QString& expectation)
    {
        QProcess judge;
        judge.start(QStringLiteral(LUMIPAD_JUDGE),
                    {path, QStringLiteral(LUMIPAD_EXPECTED "/") + expectation});
        if (!judge.waitForFinished() || judge.exitStatus() != QProcess::NormalExit || judge.exitCode() != 0)
            giveup(QStringLiteral("%1 is wrong on stage: %2")
                       .arg(path,
                            QString::fromUtf8(judge.readAllStandardOutput() + judge.readAllStandardError())));
    }

    /// Exports the pads page \a name, which is filled in already, with a picture of the message, and compares
    /// the file with a golden one.
    void expectexport(const QString& name, const QString& golden)
    {
        click(QStringLiteral("pushButton_2"));
        awaitbox(QStringLiteral("The message that the page is created"), 1);
        picture(QStringLiteral("exported"));
        answerbox(1);
        expectfile(home().page(name), Stories::golden(golden));
    }
};
