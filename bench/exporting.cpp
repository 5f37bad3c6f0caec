#include "sections.h"

#include "itemroles.h"
#include "measure.h"
#include "padgeometry.h"
#include "padspagewriter.h"
#include "table.h"
#include "textfile.h"
#include "vdjmodel.h"

#include <QFileInfo>

using namespace padspage;

namespace {

constexpr int rounds = 31;
constexpr int exportsPerRound = 20;
constexpr double exportingAim = 10;

/// Every pad of every bank holds a Live Button of its own name.
void placeeverywhere(VDJModel* grid)
{
    fillpads(grid);
    const QStringList names{QStringLiteral("Tunnel & Fog"), QStringLiteral("Slow Fade"),
                            QStringLiteral("Grünes Licht"), QStringLiteral("Drop, Then Silence"),
                            QStringLiteral("Laser Grid")};
    for (int row = 0; row < padRows; ++row) {
        for (int column = 0; column < padColumns; ++column) {
            const int id = row * padColumns + column;
            const QString name = names.at(id % names.size()) + QStringLiteral(" %1").arg(id);
            const QModelIndex pad = grid->index(row, column);
            grid->setData(pad, name, Qt::EditRole);
            grid->setData(pad, name, ItemRole::DspName);
            grid->setData(pad, QStringLiteral("1"), ItemRole::Page);
            grid->setData(pad, QString::number(id), ItemRole::Id);
            grid->setData(pad, QStringLiteral("#%1").arg(id * 2000, 6, 16, QLatin1Char('0')),
                          Qt::DecorationRole);
        }
    }
}

PadsPage pageof(const VDJModel& grid)
{
    return {QStringLiteral("Saturday Night"),
            {QStringLiteral("Intro"), QStringLiteral("Warm-up"), QStringLiteral("House"),
             QStringLiteral("Techno"), QStringLiteral("Ballads"), QStringLiteral("Lasers"),
             QStringLiteral("Finale"), QStringLiteral("House lights")},
            true,
            padspagepads(grid)};
}

} // namespace

void benchexporting(const QString& folder)
{
    VDJModel grid;
    placeeverywhere(&grid);
    const QString path = folder + QStringLiteral("/page.xml");
    const QString text = padspagexml(pageof(grid));
    require(text.contains(QStringLiteral("os2l_button &apos;Grünes Licht 127&apos;")),
            QStringLiteral("the full page is not full"));

    const auto oftencounted = [](const std::function<void()>& once) {
        return [once] {
            return cputime([&] {
                for (int i = 0; i < exportsPerRound; ++i)
                    once();
            });
        };
    };
    const QString unwritable = QStringLiteral("%1 cannot be written").arg(path);
    Work written{oftencounted([&] { require(writetextfile(path, text), unwritable); }), {}};
    Work exported{oftencounted([&] { require(writetextfile(path, padspagexml(pageof(grid))), unwritable); }),
                  {}};
    measure({&written, &exported}, rounds);
    require(QFileInfo(path).size() == text.toUtf8().size(), unwritable);

    Table::section(QStringLiteral("Exporting a full page, against writing its bytes"));
    Table::times(QStringLiteral("%1 exports of 8 banks of 16 pads").arg(exportsPerRound), exported, written,
                 exportingAim);
}
