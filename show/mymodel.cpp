#include "mymodel.h"

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
        return Key::title();
    case Qt::DecorationRole:
        return Key::color();
    case Qt::ForegroundRole:
        return Key::textColor();
    case Qt::CheckStateRole:
        return Key::check();
    case ItemRole::Page:
        return Key::pageId();
    case ItemRole::DspName:
        return Key::dspName();
    case ItemRole::Source:
        return Key::source();
    case ItemRole::Id:
        return Key::buttonId();
    default:
        return QString();
    }
}

Record newrow()
{
    return {
        {Key::title(), QStringLiteral("1")},       {Key::dspName(), QStringLiteral("1")},
        {Key::color(), QStringLiteral("#FFFFFF")}, {Key::pageId(), QStringLiteral("0")},
        {Key::buttonId(), QStringLiteral("0")},    {Key::check(), QStringLiteral("0")},
        {Key::source(), QStringLiteral("1")},      {Key::textColor(), QStringLiteral("#ffffff")},
    };
}

} // namespace

MyModel::MyModel(QObject* parent) : DragModel(parent) {}

MyModel::MyModel(const QList<Record>& list, QObject* parent) : DragModel(parent), m_list(list) {}

int MyModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_list.size(); }

int MyModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 1; }

bool MyModel::contains(const QModelIndex& index) const
{
    return index.isValid() && index.model() == this && index.row() < m_list.size() && index.column() == 0;
}

QVariant MyModel::data(const QModelIndex& index, int role) const
{
    if (!contains(index))
        return QVariant();
    const Record& record = m_list.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return shownname(record.value(Key::title()));
    case Qt::DecorationRole:
    case Qt::ForegroundRole:
        return QColor(record.value(keyofrole(role)));
    case Qt::ToolTipRole:
        return QStringLiteral("Drag a Live Button and Drop to a VirtualDJ  Pad");
    case Qt::BackgroundRole:
        return QColor(Qt::white);
    case Qt::CheckStateRole:
        return record.value(Key::check()) == QLatin1String("1") ? Qt::Checked : Qt::Unchecked;
    default:
        break;
    }
    const QString key = keyofrole(role);
    return key.isNull() ? QVariant() : record.value(key);
}

bool MyModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!contains(index))
        return false;
    if (role == Qt::BackgroundRole)
        return true; // the background is always white; callers set it all the same
    const QString key = keyofrole(role);
    if (key.isNull())
        return false;
    if (role == Qt::CheckStateRole) {
        bool isnumber = false;
        const bool unchecked = value.toInt(&isnumber) == 0 && isnumber;
        m_list[index.row()][key] = unchecked ? QStringLiteral("0") : QStringLiteral("1");
    } else {
        m_list[index.row()][key] = value.toString();
    }
    return true;
}

QMimeData* MyModel::mimeData(const QModelIndexList& indexes) const
{
    // The last three are roles that the list does not have: they travel as null strings, so that a
    // controller pad starts without colours and blink of its own.
    return encodepayload(indexes, {{Qt::EditRole, {}},
                                   {ItemRole::Page, {}},
                                   {ItemRole::DspName, {}},
                                   {-1, QStringLiteral("1")},
                                   {ItemRole::Id, {}},
                                   {-1, QStringLiteral("1")},
                                   {ItemRole::ColorOff, {}},
                                   {ItemRole::ColorOn, {}},
                                   {ItemRole::ColorOn, {}}});
}

bool MyModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int, int, const QModelIndex& parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    const auto payload = decodepayload(data, PayloadOrigin + 1);
    if (!payload || !contains(parent))
        return false;
    const QModelIndex target = index(parent.row(), 0);
    setData(target, payload->fields.at(1), Qt::EditRole);
    setData(target, payload->fields.at(2), ItemRole::Page);
    setData(target, payload->fields.at(3), ItemRole::DspName);
    setData(target, payload->fields.at(4), ItemRole::Source);
    setData(target, payload->fields.at(5), ItemRole::Id);
    setData(target, payload->color, Qt::DecorationRole);
    return true;
}

bool MyModel::insertRows(int row, int count, const QModelIndex& parent)
{
    return insertattop(&m_list, newrow(), row, count, parent);
}

bool MyModel::removeRows(int row, int count, const QModelIndex& parent)
{
    return removeexisting(&m_list, row, count, parent);
}

Qt::ItemFlags MyModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags base = DragModel::flags(index);
    if (!index.isValid())
        return base;
    // The tristate bit comes without ItemIsUserCheckable: the mark is shown, the user cannot click it.
    return base | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsAutoTristate;
}

QList<Record> MyModel::getList() const { return m_list; }

QString MyModel::get_name(const QModelIndex& index) const { return data(index, Qt::EditRole).toString(); }
