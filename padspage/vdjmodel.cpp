#include "vdjmodel.h"

#include "itemroles.h"
#include "names.h"
#include "payload.h"

#include <QColor>
#include <QMimeData>

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
    case ItemRole::Page:
        return Key::pageNr();
    case ItemRole::DspName:
        return Key::dspName();
    case ItemRole::Id:
        return Key::id();
    default:
        return QString();
    }
}

QString padname(int number) { return QStringLiteral("PAD ") + QString::number(number); }

Record emptypad(const QString& name)
{
    return {
        {Key::name(), name},
        {Key::dspName(), name},
        {Key::pageNr(), QStringLiteral("0")},
        {Key::id(), QStringLiteral("-1")},
        {Key::color(), QStringLiteral("#000000")},
    };
}

} // namespace

VDJModel::VDJModel(QObject* parent) : DragModel(parent) {}

VDJModel::VDJModel(const QList<QList<Record>>& list, QObject* parent) : DragModel(parent), m_list(list) {}

int VDJModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_list.size(); }

int VDJModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : padColumns; }

bool VDJModel::contains(const QModelIndex& index) const
{
    return index.isValid() && index.model() == this && index.row() < m_list.size() &&
           index.column() < m_list.at(index.row()).size();
}

QVariant VDJModel::data(const QModelIndex& index, int role) const
{
    if (!contains(index))
        return QVariant();
    const Record& pad = m_list.at(index.row()).at(index.column());
    if (role == Qt::DisplayRole)
        return shownname(pad.value(Key::name()));
    if (role == Qt::DecorationRole)
        return QColor(pad.value(Key::color()));
    if (role == Qt::BackgroundRole)
        return QColor(Qt::white);
    if (role == Qt::ToolTipRole) {
        if (pad.value(Key::id()) == QLatin1String("-1"))
            return QVariant();
        // The number is the grid row's, whatever the bank and the column.
        return QString(padname(index.row() + 1) + QStringLiteral(" \nLive Button: ") +
                       pad.value(Key::dspName()) + QStringLiteral(" \nDisplay Text: ") +
                       pad.value(Key::name()) +
                       QStringLiteral("\n\nDouble-click to edit Text\nRight-click to Remove"));
    }
    const QString key = keyofrole(role);
    return key.isNull() ? QVariant() : pad.value(key);
}

bool VDJModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!contains(index))
        return false;
    if (role == Qt::BackgroundRole)
        return true; // the background is always white; callers set it all the same
    const QString key = keyofrole(role);
    if (key.isNull())
        return false;
    QString text = value.toString();
    if (role == Qt::EditRole || role == Qt::DisplayRole) {
        if (text.isEmpty())
            text = padname(index.row() + 1);
    }
    m_list[index.row()][index.column()][key] = text;
    return true;
}

QMimeData* VDJModel::mimeData(const QModelIndexList& indexes) const
{
    return encodepayload(indexes, {{Qt::EditRole, {}},
                                   {ItemRole::Page, {}},
                                   {ItemRole::DspName, {}},
                                   {-1, QStringLiteral("0")},
                                   {ItemRole::Id, {}}});
}

bool VDJModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int, int, const QModelIndex& parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    const auto payload = decodepayload(data, PayloadId + 1);
    if (!payload || !contains(parent) || payload->sourceRow < 0)
        return false;
    const QModelIndex source = index(payload->sourceRow, payload->sourceColumn);
    if (payload->frompad() && !contains(source))
        return false;

    Record former = m_list.at(parent.row()).at(parent.column());
    former[Key::color()] = QColor(former.value(Key::color())).name();
    writepad(parent, {{Key::name(), payload->fields.at(PayloadName)},
                      {Key::pageNr(), payload->fields.at(PayloadPage)},
                      {Key::dspName(), payload->fields.at(PayloadDspName)},
                      {Key::id(), payload->fields.at(PayloadId)},
                      {Key::color(), payload->color}});
    if (payload->frompad()) {
        if (former.value(Key::id()) == QLatin1String("-1")) {
            // The number comes from the row alone: a pad vacated in column 1 is renamed 1 to 8 too.
            writepad(source, emptypad(padname(source.row() % rowsPerBank + 1)));
            emit ItemMoved(parent.row());
        } else {
            writepad(source, former);
        }
        return true;
    }
    emit ItemDroped(payload->sourceRow, parent.row());
    if (former.value(Key::pageNr()).toInt() >= 1 && payload->fromlist())
        emit ItemToUncheck(former.value(Key::id()).toInt());
    return true;
}

/// Writes the five values of a pad record into \a pad, with the rules of `setData`.
void VDJModel::writepad(const QModelIndex& pad, const Record& values)
{
    setData(pad, values.value(Key::name()), Qt::EditRole);
    setData(pad, values.value(Key::pageNr()), ItemRole::Page);
    setData(pad, values.value(Key::dspName()), ItemRole::DspName);
    setData(pad, values.value(Key::id()), ItemRole::Id);
    setData(pad, values.value(Key::color()), Qt::DecorationRole);
}

bool VDJModel::insertRows(int row, int count, const QModelIndex& parent)
{
    const Record pad = emptypad(QStringLiteral("1"));
    return insertattop(&m_list, {pad, pad}, row, count, parent);
}

bool VDJModel::removeRows(int row, int count, const QModelIndex& parent)
{
    return removeexisting(&m_list, row, count, parent);
}

Qt::ItemFlags VDJModel::flags(const QModelIndex& index) const
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): a table's "never has children" is no flag of a pad
    const Qt::ItemFlags base = QAbstractItemModel::flags(index);
    if (!contains(index))
        return base;
    if (index.data(ItemRole::Page).toString() == QLatin1String("0"))
        return base | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    return base | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
}

QList<QList<Record>> VDJModel::getList() const { return m_list; }

void fillpads(VDJModel* model)
{
    model->removeRows(0, model->rowCount());
    model->insertRows(0, padRows);
    for (int row = 0; row < padRows; ++row) {
        for (int column = 0; column < padColumns; ++column) {
            const QModelIndex pad = model->index(row, column);
            const QString name = padname(row % rowsPerBank + 1 + column * rowsPerBank);
            model->setData(pad, name, Qt::EditRole);
            model->setData(pad, name, ItemRole::DspName);
        }
    }
}
