#include "sections.h"

#include "lightshow.h"
#include "madeshow.h"
#include "mainwindow.h"
#include "measure.h"
#include "table.h"

#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QSettings>
#include <QTableView>
#include <QWindow>

#include <vector>

using namespace show;

namespace {

constexpr int rounds = 11;
constexpr double loadingAim = 2;
constexpr double growthAim = 12;
constexpr int filteredPage = 3;

/// Lets the window lay out and paint what has changed.
void settle() { QCoreApplication::processEvents(QEventLoop::AllEvents, 60000); }

/// The floor: what it takes QSettings to hand over every value of the file.
int readbare(const QString& path)
{
    QSettings settings(path, QSettings::IniFormat);
    int values = 0;
    const QStringList groups = settings.childGroups();
    for (const QString& group : groups) {
        settings.beginGroup(group);
        const QStringList keys = settings.allKeys();
        for (const QString& key : keys)
            values += settings.value(key).toString().isNull() ? 0 : 1;
        settings.endGroup();
    }
    return values;
}

/// A show of one size, and the works on it.
class SizedShow
{
public:
    SizedShow(const QString& folder, int buttons);

    QString name() const
    {
        return QLocale(QLocale::English).toString(m_buttons) + QStringLiteral(" Live Buttons");
    }

    std::vector<Work*> works();

    Work bare;   ///< bare QSettings
    Work read;   ///< readlightshow
    Work load;   ///< loadshowname of the window
    Work paint;  ///< the same until the list is laid out and painted
    Work filter; ///< updatelist to one page and back to all pages, until each is painted

private:
    QString freshcopy();
    void checklist(int visible) const;
    void filterto(int page);

    int m_buttons;
    QString m_path;
    int m_copies = 0;
    MainWindow m_window;
    QTableView* m_list = m_window.findChild<QTableView*>(QStringLiteral("dmxlistview"));
};

SizedShow::SizedShow(const QString& folder, int buttons)
    : m_buttons(buttons), m_path(folder + QStringLiteral("/%1.ini").arg(buttons))
{
    QFile file(m_path);
    const QByteArray text = madeshow(buttons);
    require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush(),
            QStringLiteral("%1 cannot be written").arg(m_path));
    m_window.show();
    settle();
    require(m_list && m_window.windowHandle()->isExposed(), QStringLiteral("the window is not shown"));

    bare.run = [this] {
        const QString path = freshcopy();
        return cputime(
            [&] { require(readbare(path) > 9 * m_buttons, QStringLiteral("values are missing")); });
    };
    read.run = [this] {
        const QString path = freshcopy();
        return cputime([&] {
            const auto show = readlightshow(path);
            require(show && show->buttons.size() == m_buttons, QStringLiteral("Live Buttons are missing"));
        });
    };
    load.run = [this] {
        const QString path = freshcopy();
        const Cost cost = cputime([&] { m_window.loadshowname(path); });
        settle();
        checklist(m_buttons);
        return cost;
    };
    paint.run = [this] {
        const QString path = freshcopy();
        return cputime([&] {
            m_window.loadshowname(path);
            settle();
        });
    };
    filter.run = [this] {
        const Cost onepage = cputime([this] { filterto(filteredPage); });
        checklist(m_buttons / madePages);
        const Cost allpages = cputime([this] { filterto(0); });
        checklist(m_buttons);
        return Cost{onepage.cpu + allpages.cpu, 0};
    };
}

std::vector<Work*> SizedShow::works() { return {&bare, &read, &load, &paint, &filter}; }

/// QSettings keeps what it has parsed, by the path of the file; a path it has never seen makes every read a
/// first one. The bytes are in memory from the copying, so no read waits for the disk.
QString SizedShow::freshcopy()
{
    QString path = m_path + QStringLiteral(".%1").arg(++m_copies);
    QFile::remove(m_path + QStringLiteral(".%1").arg(m_copies - 1));
    require(QFile::copy(m_path, path), QStringLiteral("%1 cannot be copied").arg(m_path));
    return path;
}

void SizedShow::filterto(int page)
{
    m_window.updatelist(page);
    settle();
}

void SizedShow::checklist(int visible) const
{
    int rows = 0;
    for (int row = 0; row < m_list->model()->rowCount(); ++row)
        rows += m_list->isRowHidden(row) ? 0 : 1;
    require(rows == visible, QStringLiteral("the list shows %1 rows of %2").arg(rows).arg(visible));
}

} // namespace

void benchlisting(const QString& folder)
{
    SizedShow small(folder, 200);
    SizedShow middle(folder, 2000);
    SizedShow large(folder, 20000);
    // All sizes in every round: the growth is told within a round too.
    std::vector<Work*> works;
    for (SizedShow* show : {&small, &middle, &large})
        for (Work* work : show->works())
            works.push_back(work);
    measure(works, rounds);

    // A ratio of two small shows says little, and a show of 20,000 has its aim as growth.
    const auto aim = [&](const SizedShow& show) { return &show == &middle ? loadingAim : Table::noAim; };
    const auto growth = [](const QString& what, const Work& from200, const Work& from2000,
                           const Work& from20000, double most) {
        Table::times(what + QStringLiteral(", 200 to 2,000"), from2000, from200, Table::noAim);
        Table::times(what + QStringLiteral(", 2,000 to 20,000"), from20000, from2000, most);
    };

    Table::section(QStringLiteral("Loading a show, against reading its file with bare QSettings"));
    for (const SizedShow* show : {&small, &middle, &large})
        Table::times(QStringLiteral("readlightshow, ") + show->name(), show->read, show->bare, aim(*show));
    for (const SizedShow* show : {&small, &middle, &large})
        Table::times(QStringLiteral("loadshowname, ") + show->name(), show->load, show->bare, aim(*show));
    for (const SizedShow* show : {&small, &middle, &large})
        Table::times(QStringLiteral("until it is painted, ") + show->name(), show->paint, show->bare,
                     Table::noAim);
    Table::section(QStringLiteral("Growth with ten times the Live Buttons"));
    growth(QStringLiteral("bare QSettings"), small.bare, middle.bare, large.bare, Table::noAim);
    growth(QStringLiteral("readlightshow"), small.read, middle.read, large.read, growthAim);
    growth(QStringLiteral("loadshowname"), small.load, middle.load, large.load, growthAim);
    growth(QStringLiteral("updatelist, to a page and back"), small.filter, middle.filter, large.filter,
           Table::noAim);
}
