#pragma once

#include "controller.h"
#include "mymodel.h"
#include "testdialogs.h"
#include "testfiles.h"
#include "testhome.h"
#include "testshows.h"
#include "testwindow.h"
#include "vdjmodel.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QRadioButton>
#include <QTest>

#include <functional>
#include <memory>

/// The four files that the program writes at the user's wish.
enum class Write { Page, Mapping, PadsProject, MidiProject };

inline bool isproject(Write write) { return write == Write::PadsProject || write == Write::MidiProject; }

/// The rows of a test: every kind of file, over an earlier one and where there is none.
inline void addwriterows()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("earlier");
    const QList<QPair<const char*, Write>> kinds{{"pads page", Write::Page},
                                                 {"mapping", Write::Mapping},
                                                 {"pads project", Write::PadsProject},
                                                 {"MIDI project", Write::MidiProject}};
    for (const auto& kind : kinds) {
        QTest::addRow("%s, new", kind.first) << int(kind.second) << false;
        QTest::addRow("%s, over an earlier one", kind.first) << int(kind.second) << true;
    }
}

/// The window in the home folder of the test program, with the show "Friday" loaded and a Live Button placed
/// on the side that writes \a kind.
class Session
{
public:
    explicit Session(const TestHome& home, Write kind) : m_kind(kind)
    {
        home.makepadsfolder();
        home.makefolder(QStringLiteral("Documents/VirtualDJ/Mappers"));
        window.showName = QStringLiteral("Friday");
        window.loadshowname(writeshow(home, window.showName) + QStringLiteral("/Live/live.ini"));
        const bool midi = kind == Write::Mapping || kind == Write::MidiProject;
        if (midi)
            window.child<QRadioButton>("radio_outputmidi")->click();
        m_grid = midi ? static_cast<QAbstractItemModel*>(window.controllerModel) : window.vdjModel;
        put(0, 2);
    }

    TestWindow window;

    /// Drags Live Button \a button (0 Strobe, 1 Blackout, 2 Slow Fade, 3 Circle, 4 Ballyhoo) onto a cell.
    void put(int button, int row) const
    {
        const std::unique_ptr<QMimeData> data(window.dmxModel->mimeData({window.dmxModel->index(button, 0)}));
        if (!m_grid->dropMimeData(data.get(), Qt::CopyAction, -1, -1,
                                  m_grid->index(row, m_grid == window.vdjModel ? 0 : 2)))
            qFatal("The grid refuses a Live Button of the test");
    }

    QString folder() const
    {
        switch (m_kind) {
        case Write::Page:
            return window.padsPath;
        case Write::Mapping:
            return window.mappersPath;
        default:
            return window.projectsPath;
        }
    }
    /// The file that is written.
    QString path() const
    {
        switch (m_kind) {
        case Write::Page:
            return folder() + QStringLiteral("/OS2L DMX.xml");
        case Write::Mapping:
            return folder() + QStringLiteral("/Akai APC Mini - OS2L DMX mapping.xml");
        default:
            return folder() + QStringLiteral("/mine.os2l");
        }
    }
    /// Everything in the folder, hidden and temporary files included.
    QStringList files() const
    {
        return QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                        QDir::NoDotAndDotDot);
    }

    /// Writes the file by the menu, over an earlier one if there is one, and gives the last sentence that the
    /// program said. \a meanwhile happens while the last dialog before the writing is answered.
    QString write(const std::function<void()>& meanwhile = [] {}) const
    {
        QList<Answer> answers;
        if (isproject(m_kind))
            answers << Answers::choose(path());
        if (QFileInfo::exists(path()))
            answers << Answers::press(QMessageBox::Yes);
        if (!answers.isEmpty()) {
            const Answer last = answers.takeLast();
            answers << [last, meanwhile](QDialog* dialog) {
                last(dialog);
                meanwhile();
            };
        }
        answers << Answers::press(QMessageBox::Ok);
        const Dialogs dialogs(answers);
        window.child<QAction>(isproject(m_kind) ? "actionSave_2" : "actionExport")->trigger();
        return dialogs.at(dialogs.count() - 1).text;
    }

    /// Fails the test unless the file is whole, \a before or \a after, nothing else lies beside it, and \a
    /// said is true. The program says "is created." of an export in any case. A file that was not there is \a
    /// before as `contents` gives it.
    void checkwhole(const QString& said, const QByteArray& before, const QByteArray& after) const
    {
        const QByteArray now = contents(path());
        QVERIFY2(now == before || now == after,
                 qPrintable("a file of " + QString::number(now.size()) + " bytes is neither"));
        QCOMPARE(files(),
                 QFileInfo::exists(path()) ? QStringList(QFileInfo(path()).fileName()) : QStringList());
        if (isproject(m_kind))
            QCOMPARE(said, now == after ? QStringLiteral("Project mine is saved.")
                                        : QStringLiteral("Project mine was not saved."));
        else
            QVERIFY(said.endsWith(QLatin1String(" is created.")));
    }

private:
    Write m_kind;
    QAbstractItemModel* m_grid = nullptr;
};
