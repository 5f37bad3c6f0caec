#include "project.h"

#include "itemroles.h"
#include "record.h"
#include "xmlelements.h"

#include <QColor>
#include <QVector>

namespace project {

namespace {

// The words of the file that are not keys of the grid's records too.
namespace Word {
QString project() { return QStringLiteral("project"); }
QString key() { return QStringLiteral("key"); }
QString type() { return QStringLiteral("type"); }
QString pads() { return QStringLiteral("pads"); }
QString midi() { return QStringLiteral("midi"); }
QString show() { return QStringLiteral("show"); }
QString showName() { return QStringLiteral("showname"); }
QString exportName() { return QStringLiteral("export"); }
QString layout() { return QStringLiteral("layout"); }
QString banks() { return QStringLiteral("banks"); }
QString deviceId() { return QStringLiteral("deviceid"); }
QString switchPad() { return QStringLiteral("switch"); }
QString offColor() { return QStringLiteral("offcolor"); }
QString onColor() { return QStringLiteral("oncolor"); }
QString row() { return QStringLiteral("row"); }
QString column() { return QStringLiteral("column"); }
} // namespace Word

/// An attribute of a `key` element: its name, the role that the grid keeps it under, and where a cell has it.
template<class Cell>
struct Attribute
{
    QString name;
    int role;
    QString Cell::*value;
};

// The order is that of the file.
const QVector<Attribute<PadCell>>& attributes(const PadCell*)
{
    static const QVector<Attribute<PadCell>> table{
        {Key::name(), Qt::EditRole, &PadCell::name},
        {Key::dspName(), ItemRole::DspName, &PadCell::dspName},
        {Key::pageNr(), ItemRole::Page, &PadCell::pageNr},
        {Key::id(), ItemRole::Id, &PadCell::id},
        {Key::color(), Qt::DecorationRole, &PadCell::color},
    };
    return table;
}

const QVector<Attribute<ControllerCell>>& attributes(const ControllerCell*)
{
    static const QVector<Attribute<ControllerCell>> table{
        {Key::name(), Qt::EditRole, &ControllerCell::name},
        {Key::dspName(), ItemRole::DspName, &ControllerCell::dspName},
        {Key::pageNr(), ItemRole::Page, &ControllerCell::pageNr},
        {Key::id(), ItemRole::Id, &ControllerCell::id},
        {Key::avail(), ItemRole::Avail, &ControllerCell::avail},
        {Key::colorOff(), ItemRole::ColorOff, &ControllerCell::colorOff},
        {Key::colorOn(), ItemRole::ColorOn, &ControllerCell::colorOn},
        {Key::blink(), ItemRole::Blink, &ControllerCell::blink},
        {Key::color(), Qt::DecorationRole, &ControllerCell::color},
    };
    return table;
}

template<class Cell>
const QVector<Attribute<Cell>>& attributes()
{
    return attributes(static_cast<const Cell*>(nullptr));
}

/// One attribute, which one blank follows, the last one of an element too.
QString attribute(const QString& name, const QString& value) { return name + "=\"" + value + "\" "; }

QString headtext(const Head& head, bool midi)
{
    const QString show = attribute(Word::show(), head.show) + attribute(Word::showName(), head.showName);
    const QString name = attribute(Word::exportName(), head.exportName);
    if (midi) {
        const ControllerSettings& settings = head.controller;
        return attribute(Word::deviceId(), settings.device) + attribute(Word::type(), Word::midi()) + show +
               attribute(Word::switchPad(), QString::number(settings.switchPad.row) + ',' +
                                                QString::number(settings.switchPad.column)) +
               attribute(Word::offColor(), QString::number(settings.offColor.value_or(-1))) +
               attribute(Word::onColor(), QString::number(settings.onColor.value_or(-1))) + name;
    }
    return attribute(Word::type(), Word::pads()) + show + name +
           attribute(Word::layout(), head.pads.sixteenPads ? QStringLiteral("1") : QStringLiteral("0")) +
           attribute(Word::banks(), head.pads.banks.join(QLatin1Char(',')));
}

template<class Cell>
QString keylines(const QList<Cell>& cells)
{
    QString lines;
    for (const Cell& cell : cells) {
        lines += "\t<key " + attribute(Word::row(), QString::number(cell.row)) +
                 attribute(Word::column(), QString::number(cell.column));
        for (const Attribute<Cell>& kept : attributes<Cell>())
            lines += attribute(kept.name, cell.*kept.value);
        lines += QLatin1String("/>\n");
    }
    return lines;
}

/// The first \a most parts of \a text, which commas part.
QStringList firstparts(const QString& text, int most)
{
    QStringList parts;
    decltype(text.size()) start = 0;
    while (parts.size() < most) {
        const auto comma = text.indexOf(QLatin1Char(','), start);
        parts.append(text.mid(start, comma < 0 ? -1 : comma - start));
        if (comma < 0)
            break;
        start = comma + 1;
    }
    return parts;
}

Position readposition(const QString& text)
{
    const QStringList parts = firstparts(text, 2);
    return parts.size() < 2 ? Position() : Position{parts.at(0).toInt(), parts.at(1).toInt()};
}

std::optional<int> readindex(const QString& text)
{
    return text.isEmpty() ? std::nullopt : std::optional<int>(text.toInt());
}

Head readhead(const Record& attributes)
{
    const QString banks = attributes.value(Word::banks());
    return {attributes.value(Word::show()),
            attributes.value(Word::showName()),
            attributes.value(Word::exportName()),
            {attributes.value(Word::layout()) == QLatin1String("1"),
             banks.isEmpty() ? QStringList() : firstparts(banks, maxBankNames)},
            {attributes.value(Word::deviceId()), readposition(attributes.value(Word::switchPad())),
             readindex(attributes.value(Word::offColor())), readindex(attributes.value(Word::onColor()))}};
}

template<class Cell>
QList<Cell> readcells(const QList<Record>& keys)
{
    QList<Cell> cells;
    for (const Record& key : keys) {
        Cell cell;
        cell.row = key.value(Word::row()).toInt();
        cell.column = key.value(Word::column()).toInt();
        for (const Attribute<Cell>& kept : attributes<Cell>())
            cell.*kept.value = key.value(kept.name);
        cells.append(cell);
    }
    return cells;
}

template<class Cell>
QList<Cell> takecells(const QAbstractItemModel& grid)
{
    QList<Cell> cells;
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < grid.columnCount(); ++column) {
            const QModelIndex index = grid.index(row, column);
            Cell cell;
            cell.row = row;
            cell.column = column;
            for (const Attribute<Cell>& kept : attributes<Cell>()) {
                const QVariant value = index.data(kept.role);
                cell.*kept.value =
                    kept.role == Qt::DecorationRole ? value.value<QColor>().name() : value.toString();
            }
            cells.append(cell);
        }
    }
    return cells;
}

template<class Cell>
void put(QAbstractItemModel* grid, const Cell& cell)
{
    const QModelIndex index = grid->index(cell.row, cell.column);
    for (const Attribute<Cell>& kept : attributes<Cell>())
        grid->setData(index, cell.*kept.value, kept.role);
}

} // namespace

// Plain joining, not QString::arg: a name may hold "%1", and arg would take it for a place to fill.
QString projectxml(const Project& project)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project " +
           headtext(project.heads.value(0), project.ismidi()) + ">\n" +
           std::visit([](const auto& cells) { return keylines(cells); }, project.cells) + "</project>\n";
}

Project readproject(const QByteArray& text)
{
    const auto elements = elementsof(text, {Word::project(), Word::key()}, Malformed::WhatWasRead);
    Project project;
    QList<Record> keys;
    bool midi = false;
    for (const XmlElement& element : elements) {
        if (element.tag == Word::key()) {
            keys.append(element.attributes);
        } else {
            project.heads.append(readhead(element.attributes));
            midi = element.attributes.value(Word::type()) == Word::midi();
        }
    }
    if (midi)
        project.cells = readcells<ControllerCell>(keys);
    else
        project.cells = readcells<PadCell>(keys);
    return project;
}

PadCells padcells(const QAbstractItemModel& grid) { return takecells<PadCell>(grid); }

ControllerCells controllercells(const QAbstractItemModel& grid) { return takecells<ControllerCell>(grid); }

void putcell(QAbstractItemModel* grid, const PadCell& cell) { put(grid, cell); }

void putcell(QAbstractItemModel* grid, const ControllerCell& cell) { put(grid, cell); }

} // namespace project
