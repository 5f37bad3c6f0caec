#include "sections.h"

#include "cells.h"
#include "controller.h"
#include "devices.h"
#include "itemroles.h"
#include "keylist.h"
#include "mademapping.h"
#include "mapperwriter.h"
#include "measure.h"
#include "table.h"
#include "textfile.h"
#include "toolkit.h"

#include <QColor>
#include <QDir>
#include <QDomDocument>
#include <QFile>

#include <functional>
#include <vector>

using namespace controller;

/// The resources live in a library that links them for the window alone, and there may be no window here.
/// The macro does not work inside a namespace.
static void initresources() { Q_INIT_RESOURCE(lumipad); }

namespace {

constexpr int rounds = 31;
constexpr double parsingAim = 1.3;
constexpr double growthAim = 12;

QString builtin() { return QStringLiteral(":/mappings/Mappings"); }

/// The time of \a work when it has just run before: a work leaves the heap behind in its own disorder, which
/// the next one to ask for memory pays for. So each pays for its own.
Cost settledtime(const std::function<void()>& work)
{
    work();
    return cputime(work);
}

/// The floor: what it takes to read the file and to have the toolkit make a document of it.
void parse(const QString& path)
{
    QFile file(path);
    QDomDocument document;
    require(file.open(QIODevice::ReadOnly) && document.setContent(&file) &&
                document.documentElement().hasChildNodes(),
            QStringLiteral("%1 cannot be parsed").arg(path));
}

Work parsing(const QStringList& paths)
{
    return {[paths] {
                return settledtime([&] {
                    for (const QString& path : paths)
                        parse(path);
                });
            },
            {}};
}

/// The grid of \a device with Live Buttons on every third control, on side buttons too, some with colours of
/// their own.
void placesome(Controller* grid, const Record& device)
{
    fillcells(grid, device);
    for (int cell = 0; cell < Grid::Lines * Grid::Lines; cell += 3) {
        const QModelIndex pad = grid->index(cell / Grid::Lines, cell % Grid::Lines);
        if (pad.data(ItemRole::Avail).toString() != QLatin1String("1"))
            continue;
        const QString name = QStringLiteral("Grünes Licht %1").arg(cell);
        grid->setData(pad, name.toUpper(), Qt::EditRole);
        grid->setData(pad, name, ItemRole::DspName);
        grid->setData(pad, cell, ItemRole::Id);
        grid->setData(pad, QStringLiteral("#%1").arg(cell * 2000, 6, 16, QLatin1Char('0')),
                      Qt::DecorationRole);
        grid->setData(pad, cell % 2 ? QStringLiteral("#ffffff") : QString(), ItemRole::ColorOn);
        grid->setData(pad, cell % 4 ? QString() : QStringLiteral("#202020"), ItemRole::ColorOff);
        grid->setData(pad, cell % 5 ? 0 : 1, ItemRole::Blink);
    }
}

/// All that an export makes of a layout, a mapping and the grid, short of storing it.
QString exportof(const Record& device, const QString& layoutpath, const QString& mapperpath,
                 const Controller& grid)
{
    Mapping mapping;
    mapping.device = device.value(Key::device());
    mapping.date = QDate(2026, 3, 5);
    mapping.combined = true;
    mapping.fullRgb = ledcolors(device) == LedColors::Any;
    mapping.switchRow = Grid::FirstSide;
    mapping.switchColumn = Grid::FirstPad;
    mapping.keys = getkeynames(layoutpath, mapperpath);
    mapping.pads = mapperpads(grid);
    return mapperxml(mapping);
}

/// A layout with a mapping, and the works on the two.
class Pair
{
public:
    /// \a lines is how many `map` lines the export must have.
    Pair(const Record& device, const Controller& grid, const QString& layoutpath, const QString& mapperpath,
         Size lines)
        : parsed(parsing({layoutpath, mapperpath})),
          exported{[=, &grid] {
                       QString text;
                       const Cost cost =
                           settledtime([&] { text = exportof(device, layoutpath, mapperpath, grid); });
                       require(text.count(QLatin1String("<map ")) == lines &&
                                   text.contains(QLatin1String("sampler_")) &&
                                   text.contains(QStringLiteral("os2l_button &apos;Grünes Licht")),
                               QStringLiteral("the export of %1 is not whole").arg(mapperpath));
                       return cost;
                   },
                   {}}
    {
    }

    Work parsed;   ///< both files with QDomDocument
    Work exported; ///< getkeynames and mapperxml
};

QString stored(const QString& path, const QByteArray& text)
{
    require(writetextfile(path, QString::fromUtf8(text)), QStringLiteral("%1 cannot be written").arg(path));
    return path;
}

} // namespace

void benchmapping(const QString& folder)
{
    initresources();
    QStringList resources;
    const QStringList files = QDir(builtin()).entryList({QStringLiteral("*.xml")});
    for (const QString& file : files)
        resources.append(builtin() + QLatin1Char('/') + file);
    const DeviceLists lists = readdefaultmappers(builtin());
    require(!resources.isEmpty() && resources.size() == 2 * lists.devices.size(),
            QStringLiteral("a layout without its mapping, or the other way round, is built in"));
    const Record device = lists.devices.value(getdeviceindex(lists.devices, QStringLiteral("LAUNCHPADPRO")));
    const QString layout = device.value(Key::path());
    const QString factory =
        lists.mappers.value(getmapperid(lists.mappers, device.value(Key::device()), 1)).value(Key::path());
    Controller grid;
    placesome(&grid, device);

    Work atstart{[&lists] {
                     return settledtime([&lists] {
                         require(readdefaultmappers(builtin()).devices.size() == lists.devices.size(),
                                 QStringLiteral("devices are missing"));
                     });
                 },
                 {}};
    Work parsed = parsing(resources);

    constexpr int few = 250;
    constexpr int many = 10 * few;
    const QString fewlines = stored(folder + QStringLiteral("/500 mapping.xml"), mademapping(few));
    const QString manylines = stored(folder + QStringLiteral("/5000 mapping.xml"), mademapping(many));
    const QString fewpads = stored(folder + QStringLiteral("/250.xml"), madelayout(few));
    const QString manypads = stored(folder + QStringLiteral("/2500.xml"), madelayout(many));
    const Size lines = exportof(device, layout, factory, grid).count(QLatin1String("<map "));
    Pair largest(device, grid, layout, factory, lines);
    Pair small(device, grid, layout, fewlines, lines);
    Pair large(device, grid, layout, manylines, lines);
    // A search through all lines for every control shows best where both become more.
    Pair smallpads(device, grid, fewpads, fewlines, 2 * few);
    Pair largepads(device, grid, manypads, manylines, 2 * many);

    std::vector<Work*> works{&atstart, &parsed};
    for (Pair* pair : {&largest, &small, &large, &smallpads, &largepads})
        works.insert(works.end(), {&pair->parsed, &pair->exported});
    measure(works, rounds);

    const auto against = [](const QString& what, const Pair& pair, double aim) {
        Table::times(what, pair.exported, pair.parsed, aim);
    };
    Table::section(QStringLiteral("Reading mappings, against parsing the same files with QDomDocument"));
    Table::times(QStringLiteral("readdefaultmappers, the %1 resources").arg(resources.size()), atstart,
                 parsed, parsingAim);
    Table::section(QStringLiteral("getkeynames and mapperxml, against parsing both files with QDomDocument"));
    against(QStringLiteral("Launchpad PRO, factory mapping"), largest, parsingAim);
    against(QStringLiteral("Launchpad PRO, 500 lines"), small, Table::noAim);
    against(QStringLiteral("Launchpad PRO, 5,000 lines"), large, parsingAim);
    against(QStringLiteral("250 controls, 500 lines"), smallpads, Table::noAim);
    against(QStringLiteral("2,500 controls, 5,000 lines"), largepads, parsingAim);
    // The document of ten times the controls takes more than ten times as long, so their growth has no aim; a
    // search through all lines would show against that document.
    Table::section(QStringLiteral("Growth with ten times the lines"));
    Table::times(QStringLiteral("QDomDocument, 500 to 5,000"), large.parsed, small.parsed, Table::noAim);
    Table::times(QStringLiteral("the same with 250 to 2,500 controls"), largepads.parsed, smallpads.parsed,
                 Table::noAim);
    Table::times(QStringLiteral("Launchpad PRO, 500 to 5,000"), large.exported, small.exported, growthAim);
    Table::times(QStringLiteral("the same with 250 to 2,500 controls"), largepads.exported,
                 smallpads.exported, Table::noAim);
}
