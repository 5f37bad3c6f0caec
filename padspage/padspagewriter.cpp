// Lines are joined from many pieces; this joins each in one go. What joins has to name QString as its type:
// the sum itself only refers to its pieces.
#define QT_USE_QSTRINGBUILDER

#include "padspagewriter.h"

#include "itemroles.h"
#include "occupied.h"
#include "padgeometry.h"

#include <QAbstractItemModel>
#include <QColor>

namespace padspage {

namespace {

/// The pad at this place of the grid; an empty one where the grid is shorter.
PadsPagePad padat(const PadsPage& page, int row, int column) { return page.pads.value(row).value(column); }

/// Whether any pad of the bank holds a Live Button. The second column counts even when it is not written, so
/// that switching between 8 and 16 pads does not renumber the banks in VirtualDJ.
bool isused(const PadsPage& page, int bank)
{
    for (int row = bank * rowsPerBank; row < (bank + 1) * rowsPerBank; ++row)
        for (int column = 0; column < padColumns; ++column)
            if (show::onlivepage(padat(page, row, column).pageNr))
                return true;
    return false;
}

QVector<int> usedbanks(const PadsPage& page)
{
    QVector<int> banks;
    for (int bank = 0; bank < bankCount; ++bank)
        if (isused(page, bank))
            banks << bank;
    return banks;
}

/// A VirtualDJ verb with its quoted argument.
QString verb(const QString& name, const QString& argument) { return name + " &apos;" + argument + "&apos;"; }

/// One action per used bank, joined into the VirtualDJ script that runs the one of the current bank.
QString chosenbybank(const QStringList& actions)
{
    QStringList conditions;
    for (const QString& action : actions)
        conditions << "var &apos;dmxbank&apos; " + QString::number(conditions.size()) + " ? " + action;
    return conditions.join(QStringLiteral(" : "));
}

/// The line of the pad at `position` (0 to 15) in each of the banks.
QString padline(const PadsPage& page, const QVector<int>& banks, int position)
{
    QStringList texts;
    QStringList colors;
    QStringList actions;
    for (int bank : banks) {
        const PadsPagePad pad =
            padat(page, bank * rowsPerBank + position % rowsPerBank, position / rowsPerBank);
        const bool occupied = show::onlivepage(pad.pageNr);
        texts << verb(QStringLiteral("get_text"), occupied ? pad.text : QString());
        colors << verb(QStringLiteral("color"), occupied ? pad.color : QStringLiteral("transparent"));
        actions << (occupied ? verb(QStringLiteral("os2l_button"), pad.button) : QStringLiteral("nothing"));
    }
    const QString element = "pad" + QString::number(position + 1);
    return "\t<" + element + " name=\"`" + chosenbybank(texts) + "`\" color=\"" + chosenbybank(colors) +
           "\">" + chosenbybank(actions) + "</" + element + ">\n";
}

/// The line of the parameter button, which shows the current bank's name and cycles through the banks.
QString parameterline(const PadsPage& page, const QVector<int>& banks)
{
    QStringList names;
    for (int bank : banks)
        names << verb(QStringLiteral("get_text"), page.bankNames.value(bank));
    const QString count = QString::number(banks.size());
    return "\t<param1 name=\"`" + chosenbybank(names) + "`\">param_bigger 0 ? cycle &apos;dmxbank&apos; " +
           count + " : cycle &apos;dmxbank&apos; -" + count + "</param1>\n";
}

} // namespace

// Plain joining, not QString::arg: a name may hold "%1", and arg would take it for a place to fill.
QString padspagexml(const PadsPage& page)
{
    const QVector<int> banks = usedbanks(page);
    const int padCount = page.sixteenPads ? padColumns * rowsPerBank : rowsPerBank;

    QString xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<page name=\"" + page.name + "\">\n";
    for (int position = 0; position < padCount; ++position)
        xml += padline(page, banks, position);
    return xml + parameterline(page, banks) + "</page>\n";
}

QVector<QVector<PadsPagePad>> padspagepads(const QAbstractItemModel& grid)
{
    QVector<QVector<PadsPagePad>> rows;
    for (int row = 0; row < grid.rowCount(); ++row) {
        QVector<PadsPagePad> pads;
        for (int column = 0; column < grid.columnCount(); ++column) {
            const QModelIndex pad = grid.index(row, column);
            pads.append({pad.data(ItemRole::Page).toInt(), pad.data(Qt::EditRole).toString(),
                         pad.data(Qt::DecorationRole).value<QColor>().name(),
                         pad.data(ItemRole::DspName).toString()});
        }
        rows.append(pads);
    }
    return rows;
}

} // namespace padspage
