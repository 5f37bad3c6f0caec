#include "recordmodel.h"

#include "names.h"
#include "payload.h"

#include <QColor>

#include <algorithm>
#include <optional>

namespace {

QString marktext(const QVariant& value)
{
    bool isnumber = false;
    const bool unchecked = value.toInt(&isnumber) == 0 && isnumber;
    return unchecked ? QStringLiteral("0") : QStringLiteral("1");
}

} // namespace

/// From its making to its end lies one change that `watchchanges` tells of.
class RecordModel::WatchedChange
{
public:
    explicit WatchedChange(const RecordModel& model) : m_model(model) { m_model.m_before(); }
    ~WatchedChange() { m_model.m_after(); }
    Q_DISABLE_COPY(WatchedChange)

private:
    const RecordModel& m_model;
};

RecordModel::RecordModel(int columns, const QVector<RecordRole>& roles, int fields, const Rows& rows,
                         QObject* parent)
    : QAbstractTableModel(parent), m_rows(rows), m_columns(columns), m_roles(roles), m_fields(fields)
{
}

int RecordModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int RecordModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : m_columns; }

bool RecordModel::hasrecord(int row, int column) const
{
    return row >= 0 && row < m_rows.size() && column >= 0 && column < m_columns &&
           column < m_rows.at(row).size();
}

bool RecordModel::contains(const QModelIndex& index) const
{
    return index.model() == this && hasrecord(index.row(), index.column());
}

const Record* RecordModel::recordat(const QModelIndex& index) const
{
    return contains(index) ? &m_rows.at(index.row()).at(index.column()) : nullptr;
}

const RecordRole* RecordModel::keptrole(int role) const
{
    const auto kept = std::find_if(m_roles.cbegin(), m_roles.cend(),
                                   [role](const RecordRole& candidate) { return candidate.role == role; });
    return kept == m_roles.cend() ? nullptr : &*kept;
}

QVariant RecordModel::data(const QModelIndex& index, int role) const
{
    const Record* record = recordat(index);
    if (!record)
        return QVariant();
    if (role == Qt::BackgroundRole)
        return QColor(Qt::white);
    if (role == Qt::ToolTipRole)
        return tooltip(index);
    const RecordRole* kept = keptrole(role);
    if (!kept)
        return QVariant();
    const QString text = record->value(kept->key);
    switch (kept->kind) {
    case RecordRole::Color:
        return QColor(text);
    case RecordRole::Mark:
        return static_cast<int>(text == QLatin1String("1") ? Qt::Checked : Qt::Unchecked);
    case RecordRole::Text:
        break;
    }
    return role == Qt::DisplayRole ? shownname(text) : text;
}

bool RecordModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!contains(index))
        return false;
    if (role == Qt::BackgroundRole)
        return true; // callers set it all the same
    const RecordRole* kept = keptrole(role);
    if (!kept)
        return false;
    const QString text = kept->kind == RecordRole::Mark ? marktext(value) : value.toString();
    std::optional<WatchedChange> change;
    if (role == Qt::EditRole)
        change.emplace(*this);
    m_rows[index.row()][index.column()].insert(kept->key, accepted(index, role, text));
    touch();
    return true;
}

QString RecordModel::accepted(const QModelIndex&, int, const QString& text) const { return text; }

void RecordModel::overwrite(int row, int column, const Record& values)
{
    Record& record = m_rows[row][column];
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        record.insert(value.key(), value.value());
    touch();
}

void RecordModel::touch()
{
    if (m_touched)
        return;
    m_touched = true;
    QMetaObject::invokeMethod(this, "announce", Qt::QueuedConnection);
}

void RecordModel::announce()
{
    m_touched = false;
    emit recordsChanged();
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return QVariant();
    switch (section) {
    case 0:
        return tr("Color");
    case 1:
        return tr("Name");
    default:
        return QVariant();
    }
}

QStringList RecordModel::mimeTypes() const { return show::payloadformats(); }

bool RecordModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int, int,
                               const QModelIndex& parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    const auto payload = show::decodepayload(data, m_fields);
    if (!payload || !contains(parent))
        return false;
    const WatchedChange change(*this);
    return drop(*payload, parent);
}

Qt::DropActions RecordModel::supportedDropActions() const { return Qt::CopyAction | Qt::MoveAction; }

Qt::DropActions RecordModel::supportedDragActions() const { return Qt::CopyAction; }

bool RecordModel::insertRows(int row, int count, const QModelIndex& parent)
{
    if (parent.isValid() || count < 1)
        return false;
    QList<Record> records;
    for (int column = 0; column < m_columns; ++column)
        records.append(newrecord());
    const int first = std::clamp(row, 0, rowCount());
    beginInsertRows(parent, first, first + count - 1);
    for (int i = 0; i < count; ++i)
        m_rows.prepend(records);
    endInsertRows();
    return true;
}

bool RecordModel::removeRows(int row, int count, const QModelIndex& parent)
{
    if (parent.isValid() || row < 0 || count < 0)
        return false;
    const int existing = std::min(count, rowCount() - row);
    if (existing < 1)
        return true;
    beginRemoveRows(parent, row, row + existing - 1);
    takeaway(row, existing);
    endRemoveRows();
    return true;
}

void RecordModel::takeaway(int row, int count)
{
    m_rows.erase(m_rows.begin() + row, m_rows.begin() + row + count);
}

QList<QList<Record>> RecordModel::rows() const { return m_rows; }

void RecordModel::setrows(const QList<QList<Record>>& rows)
{
    const bool reshaped = rows.size() != m_rows.size();
    if (reshaped)
        beginResetModel();
    m_rows = rows;
    if (reshaped)
        endResetModel();
    touch();
}

void RecordModel::watchchanges(const std::function<void()>& before, const std::function<void()>& after)
{
    m_before = before;
    m_after = after;
}
