#include "mymodel.h"

#include "itemroles.h"
#include "payload.h"

namespace {

const QVector<RecordRole>& roles()
{
    static const QVector<RecordRole> table{
        {Qt::DisplayRole, Key::title()},
        {Qt::EditRole, Key::title()},
        {Qt::DecorationRole, Key::color(), RecordRole::Color},
        {Qt::ForegroundRole, Key::textColor(), RecordRole::Color},
        {Qt::CheckStateRole, Key::check(), RecordRole::Mark},
        {ItemRole::Page, Key::pageId()},
        {ItemRole::DspName, Key::dspName()},
        {ItemRole::Source, Key::source()},
        {ItemRole::Id, Key::buttonId()},
    };
    return table;
}

QList<QList<Record>> onecolumn(const QList<Record>& list)
{
    QList<QList<Record>> rows;
    for (const Record& record : list)
        rows.append({record});
    return rows;
}

} // namespace

MyModel::MyModel(QObject* parent) : MyModel(QList<Record>(), parent) {}

MyModel::MyModel(const QList<Record>& list, QObject* parent)
    : RecordModel(1, roles(), show::PayloadOrigin + 1, onecolumn(list), parent)
{
}

Record MyModel::newrecord() const
{
    return {
        {Key::title(), QStringLiteral("1")},       {Key::dspName(), QStringLiteral("1")},
        {Key::color(), QStringLiteral("#FFFFFF")}, {Key::pageId(), QStringLiteral("0")},
        {Key::buttonId(), QStringLiteral("0")},    {Key::check(), QStringLiteral("0")},
        {Key::source(), QStringLiteral("1")},      {Key::textColor(), QStringLiteral("#ffffff")},
    };
}

QVariant MyModel::tooltip(const QModelIndex&) const
{
    return tr("Drag a Live Button and Drop to a VirtualDJ  Pad");
}

QMimeData* MyModel::mimeData(const QModelIndexList& indexes) const
{
    // The last three are roles that the list does not have: they travel as null strings, so that a
    // controller pad starts without colours and blink of its own.
    return show::encodepayload(indexes, {{Qt::EditRole, {}},
                                         {ItemRole::Page, {}},
                                         {ItemRole::DspName, {}},
                                         {-1, QStringLiteral("1")},
                                         {ItemRole::Id, {}},
                                         {-1, QStringLiteral("1")},
                                         {ItemRole::ColorOff, {}},
                                         {ItemRole::ColorOn, {}},
                                         {ItemRole::ColorOn, {}}});
}

bool MyModel::drop(const show::Payload& payload, const QModelIndex& target)
{
    overwrite(target.row(), target.column(),
              {{Key::title(), payload.fields.at(1)},
               {Key::pageId(), payload.fields.at(2)},
               {Key::dspName(), payload.fields.at(3)},
               {Key::source(), payload.fields.at(4)},
               {Key::buttonId(), payload.fields.at(5)},
               {Key::color(), payload.color}});
    return true;
}

Qt::ItemFlags MyModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags base = RecordModel::flags(index);
    if (!index.isValid())
        return base;
    // The tristate bit comes without ItemIsUserCheckable: the mark is shown, the user cannot click it.
    return base | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsAutoTristate;
}

QList<Record> MyModel::getList() const
{
    QList<Record> list;
    for (const QList<Record>& row : m_rows)
        list += row;
    return list;
}

QString MyModel::get_name(const QModelIndex& index) const { return data(index, Qt::EditRole).toString(); }

void show::filllist(MyModel* list, const QList<Record>& buttons)
{
    list->insertRows(0, static_cast<int>(buttons.size()));
    for (int row = 0; row < list->rowCount() && row < buttons.size(); ++row) {
        const Record& button = buttons.at(row);
        const QModelIndex index = list->index(row, 0);
        const QString title = button.value(Key::title());
        list->setData(index, title, Qt::EditRole);
        list->setData(index, button.value(Key::pageId()), ItemRole::Page);
        list->setData(index, title, ItemRole::DspName);
        list->setData(index, QStringLiteral("1"), ItemRole::Source);
        list->setData(index, button.value(Key::buttonId()), ItemRole::Id);
        list->setData(index, QStringLiteral("#FFFFFF"), Qt::ForegroundRole);
        list->setData(index, button.value(Key::color()), Qt::DecorationRole);
        list->setData(index, Qt::Unchecked, Qt::CheckStateRole);
    }
}
