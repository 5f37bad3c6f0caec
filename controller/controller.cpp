#include "controller.h"

#include "cells.h"
#include "itemroles.h"
#include "names.h"
#include "occupied.h"
#include "payload.h"
#include "storedtexts.h"

#include <QBuffer>
#include <QColor>
#include <QImage>

namespace {

const QVector<RecordRole>& roles()
{
    static const QVector<RecordRole> table{
        {Qt::DisplayRole, Key::name()},
        {Qt::EditRole, Key::name()},
        {Qt::DecorationRole, Key::color(), RecordRole::Color},
        {Qt::ForegroundRole, Key::textColor(), RecordRole::Color},
        {ItemRole::Page, Key::pageNr()},
        {ItemRole::DspName, Key::dspName()},
        {ItemRole::Id, Key::id()},
        {ItemRole::Avail, Key::avail()},
        {ItemRole::ColorOff, Key::colorOff()},
        {ItemRole::ColorOn, Key::colorOn()},
        {ItemRole::Blink, Key::blink()},
    };
    return table;
}

/// What a payload puts into a cell; the text colour does not travel.
Record placedcell(const show::Payload& payload)
{
    return {
        {Key::name(), payload.fields.at(show::PayloadName)},
        {Key::pageNr(), payload.fields.at(show::PayloadPage)},
        {Key::dspName(), payload.fields.at(show::PayloadDspName)},
        {Key::id(), payload.fields.at(show::PayloadId)},
        {Key::avail(), payload.fields.at(show::PayloadAvail)},
        {Key::colorOff(), payload.fields.at(show::PayloadColorOff)},
        {Key::colorOn(), payload.fields.at(show::PayloadColorOn)},
        {Key::blink(), payload.fields.at(show::PayloadBlink)},
        {Key::color(), payload.color},
    };
}

/// What a move leaves behind in a cell labelled \a label.
Record vacatedcell(const QString& label)
{
    return {
        {Key::name(), label},
        {Key::pageNr(), QStringLiteral("0")},
        {Key::dspName(), label},
        {Key::id(), QStringLiteral("-1")},
        {Key::avail(), QStringLiteral("1")},
        {Key::colorOff(), QLatin1String("")},
        {Key::colorOn(), QLatin1String("")},
        {Key::blink(), QLatin1String("")},
        {Key::color(), QStringLiteral("#000000")},
    };
}

/// A colour as an image that rich text can show; black when \a colorname names no colour.
QString swatchimage(const QString& colorname)
{
    QImage image(10, 10, QImage::Format_ARGB32);
    image.fill(QColor(colorname));
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG", 100);
    return QStringLiteral("<img src='data:image/png;base64, ") + QString::fromLatin1(png.toBase64()) +
           QStringLiteral("'>");
}

/// \a name for rich text, in which it is to read as it stands.
QString astext(const QString& name) { return name.contains(QLatin1Char('<')) ? name.toHtmlEscaped() : name; }

} // namespace

Controller::Controller(QObject* parent) : Controller(QList<QList<Record>>(), parent) {}

Controller::Controller(const QList<QList<Record>>& grid, QObject* parent)
    : RecordModel(Grid::Lines, roles(), show::PayloadBlink + 1, grid, parent)
{
}

Record Controller::newrecord() const
{
    Record cell = vacatedcell(QLatin1String(""));
    // Where a move leaves none: both mean no blink.
    cell.insert(Key::blink(), QStringLiteral("0"));
    cell.insert(Key::textColor(), QStringLiteral("#ffffff"));
    return cell;
}

QVariant Controller::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return QString(QLatin1String(""));
    return section == 0 ? QVariant(tr("Color")) : QVariant();
}

QMimeData* Controller::mimeData(const QModelIndexList& indexes) const
{
    return show::encodepayload(indexes, {{Qt::EditRole, {}},
                                         {ItemRole::Page, {}},
                                         {ItemRole::DspName, {}},
                                         {-1, QStringLiteral("0")},
                                         {ItemRole::Id, {}},
                                         {ItemRole::Avail, {}},
                                         {ItemRole::ColorOff, {}},
                                         {ItemRole::ColorOn, {}},
                                         {ItemRole::Blink, {}}});
}

bool Controller::drop(const show::Payload& payload, const QModelIndex& target)
{
    const int sourceRow = payload.sourceRow;
    const int sourceColumn = payload.sourceColumn;
    const bool sourceexists = payload.frompad() ? hasrecord(sourceRow, sourceColumn) : sourceRow >= 0;
    if (!sourceexists)
        return false;

    const Record placed = placedcell(payload);
    Record former;
    for (auto value = placed.cbegin(); value != placed.cend(); ++value)
        former.insert(value.key(), recordat(target)->value(value.key()));
    overwrite(target.row(), target.column(), placed);

    if (payload.frompad()) {
        const bool wasempty = show::isvacant(former.value(Key::id()));
        overwrite(sourceRow, sourceColumn,
                  wasempty ? vacatedcell(getpadindex(sourceRow, sourceColumn)) : former);
        return true;
    }
    emit ItemDroped(sourceRow, target.row(), target.column());
    if (payload.fromlist() && show::onlivepage(former.value(Key::pageNr())))
        emit ItemToUncheck(former.value(Key::id()).toInt());
    return true;
}

void Controller::takeaway(int row, int count)
{
    for (int i = 0; i < count; ++i) {
        for (int k = 0; k < Grid::Lines && row + k < m_rows.size(); ++k)
            m_rows.removeAt(row + k);
    }
}

Qt::ItemFlags Controller::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return RecordModel::flags(index);
    const Record* cell = recordat(index);
    if (!cell)
        return Qt::NoItemFlags;
    const bool usable = cell->value(Key::avail()) == QLatin1String("1");
    if (!show::haspage(cell->value(Key::pageNr())))
        return usable ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDropEnabled
                      : Qt::ItemFlags(Qt::NoItemFlags);
    return usable ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled
                  : Qt::ItemFlags(Qt::ItemIsSelectable);
}

QList<QList<Record>> Controller::getList() const { return rows(); }

QString Controller::getpadindex(int row, int col) const
{
    const bool top = row == Grid::FirstSide;
    const bool bottom = row == Grid::LastSide;
    if (!(top || bottom) || !Grid::contains(row, col))
        return controller::padtext(row, col);
    if (col == 0 || col == 10)
        return QLatin1String("");
    return top ? Stored::top(col - 1) : Stored::bottom(col - 1);
}

QVariant Controller::tooltip(const QModelIndex& index) const
{
    const Record& cell = *recordat(index);
    if (show::isvacant(cell.value(Key::id())) || cell.value(Key::avail()) == QLatin1String("0"))
        return QVariant();
    QString text =
        tr("%1<br>Live Button: %2")
            .arg(getpadindex(index.row(), index.column()), astext(shownname(cell.value(Key::name()))));
    if (!cell.value(Key::colorOff()).isEmpty())
        text += tr("<br>Off Color : %1").arg(swatchimage(cell.value(Key::colorOff())));
    if (!cell.value(Key::colorOn()).isEmpty())
        text += tr("<br>On Color : %1").arg(swatchimage(cell.value(Key::colorOn())));
    if (cell.value(Key::blink()) == QLatin1String("1"))
        text += tr("<br>Blink : Yes");
    return QString(text + tr("<br><br>Right-click to Remove"));
}

namespace controller {

namespace {

/// Calls \a edit with every cell of \a grid, row by row.
template<class Edit>
void foreachcell(const Controller& grid, Edit edit)
{
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int col = 0; col < grid.columnCount(); ++col)
            edit(grid.index(row, col));
    }
}

void rename(Controller* grid, const QModelIndex& cell, const QString& name)
{
    grid->setData(cell, name, Qt::EditRole);
    grid->setData(cell, name, ItemRole::DspName);
}

/// Takes the Live Button off a cell, whose colour stays as it is.
void vacate(Controller* grid, const QModelIndex& cell)
{
    rename(grid, cell, padtext(cell.row(), cell.column()));
    grid->setData(cell, QStringLiteral("0"), ItemRole::Page);
    grid->setData(cell, QStringLiteral("-1"), ItemRole::Id);
}

} // namespace

void fillcells(Controller* grid, const Record& device)
{
    grid->removeRows(0, grid->rowCount());
    grid->insertRows(0, Grid::Lines);
    foreachcell(*grid,
                [grid](const QModelIndex& cell) { rename(grid, cell, padtext(cell.row(), cell.column())); });
    updateavail(grid, device);
}

void updateavail(Controller* grid, const Record& device)
{
    foreachcell(*grid, [&](const QModelIndex& cell) {
        grid->setData(cell, padavail(cell.row(), cell.column(), device), ItemRole::Avail);
    });
}

void takeoff(Controller* grid, const QModelIndex& cell)
{
    vacate(grid, cell);
    grid->setData(cell, QStringLiteral("#000000"), Qt::DecorationRole);
}

void emptycell(Controller* grid, const QModelIndex& cell)
{
    takeoff(grid, cell);
    grid->setData(cell, QStringLiteral("1"), ItemRole::Avail);
    grid->setData(cell, QStringLiteral("#ffffff"), Qt::ForegroundRole);
}

void makeswitch(Controller* grid, const QModelIndex& cell)
{
    emptycell(grid, cell);
    rename(grid, cell, Stored::switchPad());
    grid->setData(cell, QStringLiteral("0"), ItemRole::Avail);
    // Not seen in the grid, which paints every cell out of use in grey.
    grid->setData(cell, QStringLiteral("green"), Qt::ForegroundRole);
}

void cleancells(Controller* grid, const Record& device)
{
    foreachcell(*grid, [&](const QModelIndex& cell) {
        const QString avail = padavail(cell.row(), cell.column(), device);
        vacate(grid, cell);
        grid->setData(cell, avail, ItemRole::Avail);
        if (avail == QLatin1String("1"))
            grid->setData(cell, QStringLiteral("#000000"), Qt::DecorationRole);
    });
}

} // namespace controller
