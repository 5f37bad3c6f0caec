#include "controller.h"

#include "cells.h"
#include "itemroles.h"
#include "names.h"
#include "payload.h"

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QMimeData>

#include <algorithm>

namespace {

/// The record key behind a role; null for roles without one.
QString keyofrole(int role)
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return Key::name();
    case Qt::DecorationRole:
        return Key::color();
    case Qt::ForegroundRole:
        return Key::textColor();
    case ItemRole::Page:
        return Key::pageNr();
    case ItemRole::DspName:
        return Key::dspName();
    case ItemRole::Id:
        return Key::id();
    case ItemRole::Avail:
        return Key::avail();
    case ItemRole::ColorOff:
        return Key::colorOff();
    case ItemRole::ColorOn:
        return Key::colorOn();
    case ItemRole::Blink:
        return Key::blink();
    default:
        return QString();
    }
}

Record newcell()
{
    return {
        {Key::name(), QLatin1String("")},
        {Key::dspName(), QLatin1String("")},
        {Key::id(), QStringLiteral("-1")},
        {Key::avail(), QStringLiteral("1")},
        {Key::color(), QStringLiteral("#000000")},
        {Key::colorOff(), QLatin1String("")},
        {Key::colorOn(), QLatin1String("")},
        {Key::blink(), QStringLiteral("0")},
        {Key::textColor(), QStringLiteral("#ffffff")},
        {Key::pageNr(), QStringLiteral("0")},
    };
}

/// What a payload puts into a cell; the text colour does not travel.
Record placedcell(const Payload& payload)
{
    return {
        {Key::name(), payload.fields.at(PayloadName)},
        {Key::pageNr(), payload.fields.at(PayloadPage)},
        {Key::dspName(), payload.fields.at(PayloadDspName)},
        {Key::id(), payload.fields.at(PayloadId)},
        {Key::avail(), payload.fields.at(PayloadAvail)},
        {Key::colorOff(), payload.fields.at(PayloadColorOff)},
        {Key::colorOn(), payload.fields.at(PayloadColorOn)},
        {Key::blink(), payload.fields.at(PayloadBlink)},
        {Key::color(), payload.color},
    };
}

/// What a move leaves behind in a cell labelled \a label. Blink is empty here where a new cell has "0"; both
/// mean no blink.
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

/// Sets those keys of \a cell that \a values has.
void overwrite(Record* cell, const Record& values)
{
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        cell->insert(value.key(), value.value());
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

} // namespace

Controller::Controller(QObject* parent) : DragModel(parent) {}

Controller::Controller(const QList<QList<Record>>& grid, QObject* parent) : DragModel(parent), m_grid(grid) {}

int Controller::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_grid.size(); }

int Controller::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : Grid::Lines; }

QVariant Controller::data(const QModelIndex& index, int role) const
{
    const Record* cell = cellat(index);
    if (!cell)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return shownname(cell->value(Key::name()));
    case Qt::DecorationRole:
    case Qt::ForegroundRole:
        return QColor(cell->value(keyofrole(role)));
    case Qt::BackgroundRole:
        return QColor(Qt::white);
    case Qt::ToolTipRole:
        if (cell->value(Key::id()) == QLatin1String("-1") || cell->value(Key::avail()) == QLatin1String("0"))
            return QVariant();
        return tooltip(index.row(), index.column());
    default:
        break;
    }
    const QString key = keyofrole(role);
    return key.isNull() ? QVariant() : cell->value(key);
}

bool Controller::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!cellat(index))
        return false;
    if (role == Qt::BackgroundRole)
        return true; // the background is always white; callers set it all the same
    const QString key = keyofrole(role);
    if (key.isNull())
        return false;
    m_grid[index.row()][index.column()][key] = value.toString();
    return true;
}

QVariant Controller::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return QString(QLatin1String(""));
    return section == 0 ? QVariant(QStringLiteral("Color")) : QVariant();
}

QMimeData* Controller::mimeData(const QModelIndexList& indexes) const
{
    return encodepayload(indexes, {{Qt::EditRole, {}},
                                   {ItemRole::Page, {}},
                                   {ItemRole::DspName, {}},
                                   {-1, QStringLiteral("0")},
                                   {ItemRole::Id, {}},
                                   {ItemRole::Avail, {}},
                                   {ItemRole::ColorOff, {}},
                                   {ItemRole::ColorOn, {}},
                                   {ItemRole::Blink, {}}});
}

bool Controller::dropMimeData(const QMimeData* data, Qt::DropAction action, int, int,
                              const QModelIndex& parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    const auto payload = decodepayload(data, PayloadBlink + 1);
    if (!payload || !cellat(parent))
        return false;
    const int sourceRow = payload->sourceRow;
    const int sourceColumn = payload->sourceColumn;
    const bool sourceexists = payload->frompad() ? hascell(sourceRow, sourceColumn) : sourceRow >= 0;
    if (!sourceexists)
        return false;

    Record* target = &m_grid[parent.row()][parent.column()];
    const Record placed = placedcell(*payload);
    Record former;
    for (auto value = placed.cbegin(); value != placed.cend(); ++value)
        former.insert(value.key(), target->value(value.key()));
    overwrite(target, placed);

    if (payload->frompad()) {
        const bool wasempty = former.value(Key::id()) == QLatin1String("-1");
        overwrite(&m_grid[sourceRow][sourceColumn],
                  wasempty ? vacatedcell(getpadindex(sourceRow, sourceColumn)) : former);
        return true;
    }
    emit ItemDroped(sourceRow, parent.row(), parent.column());
    if (payload->fromlist() && former.value(Key::pageNr()).toInt() >= 1)
        emit ItemToUncheck(former.value(Key::id()).toInt());
    return true;
}

bool Controller::insertRows(int row, int count, const QModelIndex& parent)
{
    QList<Record> cells;
    for (int col = 0; col < Grid::Lines; ++col)
        cells.append(newcell());
    return insertattop(&m_grid, cells, row, count, parent);
}

bool Controller::removeRows(int row, int count, const QModelIndex& parent)
{
    if (parent.isValid() || row < 0 || count < 0)
        return false;
    const int existing = std::min(count, m_grid.size() - row);
    if (existing < 1)
        return true;
    beginRemoveRows(parent, row, row + existing - 1);
    for (int i = 0; i < existing; ++i) {
        for (int k = 0; k < Grid::Lines && row + k < m_grid.size(); ++k)
            m_grid.removeAt(row + k);
    }
    endRemoveRows();
    return true;
}

Qt::ItemFlags Controller::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return DragModel::flags(index);
    const Record* cell = cellat(index);
    if (!cell)
        return Qt::NoItemFlags;
    const bool usable = cell->value(Key::avail()) == QLatin1String("1");
    if (cell->value(Key::pageNr()) == QLatin1String("0"))
        return usable ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDropEnabled
                      : Qt::ItemFlags(Qt::NoItemFlags);
    return usable ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled
                  : Qt::ItemFlags(Qt::ItemIsSelectable);
}

QList<QList<Record>> Controller::getList() const { return m_grid; }

QString Controller::getpadindex(int row, int col) const
{
    const bool top = row == Grid::FirstSide;
    const bool bottom = row == Grid::LastSide;
    if (!(top || bottom) || !Grid::contains(row, col))
        return padtext(row, col);
    if (col == 0 || col == 10)
        return QLatin1String("");
    return (top ? QStringLiteral("TOP %1") : QStringLiteral("BOTTOM %1")).arg(col - 1);
}

bool Controller::hascell(int row, int col) const
{
    return row >= 0 && row < m_grid.size() && col >= 0 && col < m_grid.at(row).size();
}

const Record* Controller::cellat(const QModelIndex& index) const
{
    const bool ours = index.model() == this && hascell(index.row(), index.column());
    return ours ? &m_grid.at(index.row()).at(index.column()) : nullptr;
}

QString Controller::tooltip(int row, int col) const
{
    const Record& cell = m_grid.at(row).at(col);
    QString text = getpadindex(row, col) + QStringLiteral("<br>Live Button: ") + cell.value(Key::name());
    if (!cell.value(Key::colorOff()).isEmpty())
        text += QStringLiteral("<br>Off Color : ") + swatchimage(cell.value(Key::colorOff()));
    if (!cell.value(Key::colorOn()).isEmpty())
        text += QStringLiteral("<br>On Color : ") + swatchimage(cell.value(Key::colorOn()));
    if (cell.value(Key::blink()) == QLatin1String("1"))
        text += QStringLiteral("<br>Blink : Yes");
    return text + QStringLiteral("<br><br>Right-click to Remove");
}

void fillcells(Controller* grid, const Record& device)
{
    grid->removeRows(0, grid->rowCount());
    grid->insertRows(0, Grid::Lines);
    for (int row = 0; row < Grid::Lines; ++row) {
        for (int col = 0; col < Grid::Lines; ++col) {
            const QModelIndex cell = grid->index(row, col);
            const QString label = padtext(row, col);
            grid->setData(cell, label, Qt::EditRole);
            grid->setData(cell, label, ItemRole::DspName);
        }
    }
    updateavail(grid, device);
}

void updateavail(Controller* grid, const Record& device)
{
    for (int row = 0; row < grid->rowCount(); ++row) {
        for (int col = 0; col < grid->columnCount(); ++col)
            grid->setData(grid->index(row, col), padavail(row, col, device), ItemRole::Avail);
    }
}
