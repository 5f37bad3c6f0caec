#include "sections.h"

#include "madeshow.h"
#include "mainwindow.h"
#include "measure.h"
#include "table.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QMimeData>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTableView>
#include <QTimer>

#include <memory>
#include <vector>

namespace {

constexpr int rounds = 11;
constexpr double actingAim = 16; // milliseconds: a screen shows 60 pictures a second
constexpr double growthAim = 11;
constexpr double projectAim = 1.3;

/// Closes the message that an action ends with as soon as it stands there.
void closemessage()
{
    QTimer::singleShot(0, [] {
        if (QWidget* box = QApplication::activeModalWidget())
            box->close();
    });
}

/// An action of a user, and what it is called.
struct Action
{
    QString name;
    Work work;
};

/// A window with a loaded show of one size, and the actions in the order in which each round does them.
class ActedShow
{
public:
    ActedShow(const QString& folder, int buttons);

    std::vector<Action> actions;
    Work loadshow;    ///< the show until it is painted
    Work loadproject; ///< the project that was saved last, until it is painted

private:
    template<class Widget>
    Widget* child(const char* name)
    {
        auto* widget = m_window.findChild<Widget*>(QLatin1String(name));
        require(widget, QStringLiteral("the window has no %1").arg(QLatin1String(name)));
        return widget;
    }
    void add(const QString& name, const std::function<void()>& act);
    void drop();

    QString m_show;
    QString m_project;
    int m_drops = 0;
    MainWindow m_window;
    QTableView* m_list = child<QTableView>("dmxlistview");
    QTableView* m_pads = child<QTableView>("vdjlistview");
};

ActedShow::ActedShow(const QString& folder, int buttons)
    : m_show(folder + QStringLiteral("/%1.ini").arg(buttons)),
      m_project(folder + QStringLiteral("/%1.os2l").arg(buttons))
{
    storeshow(m_show, buttons);
    const QString pads = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) +
                         QStringLiteral("/VirtualDJ/Pads");
    require(QDir().mkpath(pads), QStringLiteral("%1 cannot be created").arg(pads));
    m_window.show();
    settle();
    require(m_window.loadshowname(m_show), QStringLiteral("the show is not loaded"));
    settle();

    auto* page = child<QComboBox>("combobox");
    auto* midi = child<QRadioButton>("radio_outputmidi");
    auto* padspage = child<QRadioButton>("radio_outputpage");
    add(QStringLiteral("drop on a pad"), [this] { drop(); });
    add(QStringLiteral("undo"), [this] { m_window.undo(); });
    add(QStringLiteral("redo"), [this] { m_window.redo(); });
    add(QStringLiteral("filter to one page"), [page] { page->setCurrentIndex(3); });
    add(QStringLiteral("filter to all pages"), [page] { page->setCurrentIndex(0); });
    add(QStringLiteral("switch to the controller"), [midi] { midi->click(); });
    add(QStringLiteral("switch to the pads page"), [padspage] { padspage->click(); });
    add(QStringLiteral("export the pads page"), [this, pads] {
        closemessage();
        m_window.exportpage();
    });
    add(QStringLiteral("save the project"), [this] {
        closemessage();
        m_window.savepadsproject(m_project);
    });
    loadshow.run = [this] {
        return cputime([this] {
            m_window.loadshowname(m_show);
            settle();
        });
    };
    loadproject.run = [this] {
        return cputime([this] {
            require(m_window.loadprojectname(m_project), QStringLiteral("the project is not loaded"));
            settle();
        });
    };
}

void ActedShow::add(const QString& name, const std::function<void()>& act)
{
    const auto run = [this, act] {
        QFile::remove(m_project);
        QFile::remove(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) +
                      QStringLiteral("/VirtualDJ/Pads/OS2L DMX.xml"));
        return cputime([&act] {
            act();
            settle();
        });
    };
    actions.push_back({name, {run, {}}});
}

/// Drops the next Live Button of the list on the next pad of the first bank.
void ActedShow::drop()
{
    const int row = m_drops++;
    const QModelIndex pad = m_pads->model()->index(row % 8, 0);
    const std::unique_ptr<QMimeData> data(
        m_list->model()->mimeData({m_list->model()->index(row % m_list->model()->rowCount(), 0)}));
    require(m_pads->model()->dropMimeData(data.get(), Qt::CopyAction, -1, -1, pad),
            QStringLiteral("the drop is refused"));
}

} // namespace

void benchacting(const QString& folder)
{
    ActedShow middle(folder, 2000);
    ActedShow large(folder, 20000);
    ActedShow real(folder, 504);
    std::vector<Work*> works;
    for (ActedShow* show : {&middle, &large, &real})
        for (Action& action : show->actions)
            works.push_back(&action.work);
    works.insert(works.end(), {&real.loadshow, &real.loadproject});
    measure(works, rounds);

    Table::section(QStringLiteral("What a user does with 2,000 Live Buttons, until it is painted"));
    for (const Action& action : middle.actions)
        Table::atmost(action.name, action.work, actingAim);
    Table::section(QStringLiteral("Growth of the same to 20,000 Live Buttons, by CPU time"));
    for (std::size_t number = 0; number < middle.actions.size(); ++number)
        Table::times(middle.actions[number].name, large.actions[number].work, middle.actions[number].work,
                     growthAim);
    Table::section(QStringLiteral("Loading a project with a show of 504 Live Buttons until it is painted, "
                                  "against loading the show"));
    Table::times(QStringLiteral("loadprojectname"), real.loadproject, real.loadshow, projectAim);
}
