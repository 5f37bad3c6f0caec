#include "sections.h"

#include "lightshow.h"
#include "madeshow.h"
#include "mainwindow.h"
#include "measure.h"
#include "table.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QLocale>
#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>
#include <QTableView>
#include <QWindow>

#include <vector>

using namespace show;

namespace {

constexpr int rounds = 11;
constexpr double loadingAim = 1.4;
constexpr double growthAim = 11;
constexpr int filteredPage = 3;

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

    int buttons() const { return m_buttons; }
    /// Loads the show, which counts for no work.
    void fill() { m_window.loadshowname(m_path); }

    std::vector<Work*> works();
    /// The work that growth is told of under \a name; null for another name.
    Work* called(const QString& name);

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
    storeshow(m_path, buttons);
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

Work* SizedShow::called(const QString& name)
{
    const QHash<QString, Work*> all{{QStringLiteral("QSettings"), &bare},
                                    {QStringLiteral("readlightshow"), &read},
                                    {QStringLiteral("loadshowname"), &load},
                                    {QStringLiteral("updatelist"), &filter}};
    return all.value(name);
}

/// QSettings keeps what it has parsed, by the path of the file; a path it has never seen makes every read a
/// first one. The bytes are in memory from the copying, so no read waits for the disk.
QString SizedShow::freshcopy()
{
    QString path = m_path + QStringLiteral(".%1").arg(++m_copies);
    QFile::remove(m_path + QStringLiteral(".%1").arg(m_copies - 1));
    QFile::remove(path); // of an earlier process
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

/// Counting needs a program that runs another one step by step.
bool cancount() { return !QStandardPaths::findExecutable(QStringLiteral("valgrind")).isEmpty(); }

/// The instructions that the work \a name takes for a show of \a buttons Live Buttons: this program run once
/// more, and what it does within `cputime` counted.
double counted(const QString& folder, const QString& name, int buttons)
{
    const QString path = folder + QStringLiteral("/counts");
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QStringLiteral("valgrind"),
                  {QStringLiteral("--tool=callgrind"), QStringLiteral("--toggle-collect=cputime*"),
                   QStringLiteral("--callgrind-out-file=") + path, QCoreApplication::applicationFilePath(),
                   QStringLiteral("--count"), folder, name, QString::number(buttons)});
    process.waitForFinished(-1);
    QFile file(path);
    const QRegularExpression total(QStringLiteral("^(?:summary|totals): (\\d+)"),
                                   QRegularExpression::MultilineOption);
    const auto found = file.open(QIODevice::ReadOnly) ? total.match(QString::fromLatin1(file.readAll()))
                                                      : QRegularExpressionMatch();
    require(process.exitCode() == 0 && found.hasMatch(),
            QStringLiteral("the instructions of %1 cannot be counted").arg(name));
    return found.captured(1).toDouble();
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
    Table::section(QStringLiteral("Loading a show, against reading its file with bare QSettings"));
    for (const SizedShow* show : {&small, &middle, &large})
        Table::times(QStringLiteral("readlightshow, ") + show->name(), show->read, show->bare, aim(*show));
    for (const SizedShow* show : {&small, &middle, &large})
        Table::times(QStringLiteral("loadshowname, ") + show->name(), show->load, show->bare, Table::noAim);
    for (const SizedShow* show : {&small, &middle, &large})
        Table::times(QStringLiteral("until it is painted, ") + show->name(), show->paint, show->bare,
                     Table::noAim);

    const bool bycount = cancount() && (isnoisy(middle.read) || isnoisy(large.read));
    Table::section(bycount ? QStringLiteral("Growth from 2,000 to 20,000 Live Buttons, by instructions, as "
                                            "the times vary too much")
                           : QStringLiteral("Growth from 2,000 to 20,000 Live Buttons, by CPU time"));
    const auto growth = [&](const QString& what, const QString& name, double most) {
        if (bycount)
            Table::instructions(what, counted(folder, name, large.buttons()),
                                counted(folder, name, middle.buttons()), most);
        else
            Table::times(what, *large.called(name), *middle.called(name), most);
    };
    growth(QStringLiteral("bare QSettings"), QStringLiteral("QSettings"), Table::noAim);
    growth(QStringLiteral("readlightshow"), QStringLiteral("readlightshow"), growthAim);
    growth(QStringLiteral("loadshowname"), QStringLiteral("loadshowname"), growthAim);
    growth(QStringLiteral("updatelist, to a page and back"), QStringLiteral("updatelist"), growthAim);
}

void countlisting(const QString& folder, const QString& name, int buttons)
{
    SizedShow show(folder, buttons);
    if (name == QLatin1String("updatelist"))
        show.fill();
    Work* const work = show.called(name);
    require(work, QStringLiteral("no work is called %1").arg(name));
    work->run();
}
