#include "vdjmodel.h"

#include "itemroles.h"
#include "names.h"
#include "occupied.h"
#include "padgeometry.h"
#include "payload.h"

#include <QColor>

using namespace padspage;

namespace {

const QVector<RecordRole>& roles()
{
    static const QVector<RecordRole> table{
        {Qt::DisplayRole, Key::name()},
        {Qt::EditRole, Key::name()},
        {Qt::DecorationRole, Key::color(), RecordRole::Color},
        {ItemRole::Page, Key::pageNr()},
        {ItemRole::DspName, Key::dspName()},
        {ItemRole::Id, Key::id()},
    };
    return table;
}

Record emptyrecord(const QString& name, const QString& color = QStringLiteral("#000000"))
{
    return {
        {Key::name(), name},
        {Key::dspName(), name},
        {Key::pageNr(), QStringLiteral("0")},
        {Key::id(), QStringLiteral("-1")},
        {Key::color(), color},
    };
}

} // namespace

VDJModel::VDJModel(QObject* parent) : VDJModel(QList<QList<Record>>(), parent) {}

VDJModel::VDJModel(const QList<QList<Record>>& list, QObject* parent)
    : RecordModel(padColumns, roles(), show::PayloadId + 1, list, parent)
{
}

Record VDJModel::newrecord() const { return emptyrecord(QStringLiteral("1")); }

QVariant VDJModel::tooltip(const QModelIndex& index) const
{
    const Record& pad = *recordat(index);
    if (show::isvacant(pad.value(Key::id())))
        return QVariant();
    return tr("%1 \nLive Button: %2 \nDisplay Text: %3\n\nDouble-click to edit Text\nRight-click to Remove")
        .arg(rowname(index.row()), shownname(pad.value(Key::dspName())), shownname(pad.value(Key::name())));
}

QString VDJModel::accepted(const QModelIndex& index, int role, const QString& text) const
{
    const bool isname = role == Qt::EditRole || role == Qt::DisplayRole;
    return isname && text.isEmpty() ? rowname(index.row()) : text;
}

QMimeData* VDJModel::mimeData(const QModelIndexList& indexes) const
{
    return show::encodepayload(indexes, {{Qt::EditRole, {}},
                                         {ItemRole::Page, {}},
                                         {ItemRole::DspName, {}},
                                         {-1, QStringLiteral("0")},
                                         {ItemRole::Id, {}}});
}

bool VDJModel::drop(const show::Payload& payload, const QModelIndex& target)
{
    const QModelIndex source = index(payload.sourceRow, payload.sourceColumn);
    if (payload.sourceRow < 0 || (payload.frompad() && !contains(source)))
        return false;

    Record former = *recordat(target);
    former[Key::color()] = QColor(former.value(Key::color())).name();
    writepad(target, {{Key::name(), payload.fields.at(show::PayloadName)},
                      {Key::pageNr(), payload.fields.at(show::PayloadPage)},
                      {Key::dspName(), payload.fields.at(show::PayloadDspName)},
                      {Key::id(), payload.fields.at(show::PayloadId)},
                      {Key::color(), payload.color}});
    if (payload.frompad()) {
        if (show::isvacant(former.value(Key::id()))) {
            emptypad(this, source);
            emit ItemMoved(target.row());
        } else {
            writepad(source, former);
        }
        return true;
    }
    emit ItemDroped(payload.sourceRow, target.row());
    if (show::onlivepage(former.value(Key::pageNr())) && payload.fromlist())
        emit ItemToUncheck(former.value(Key::id()).toInt());
    return true;
}

/// Writes the five values of a pad record into \a pad, with the rules of `setData`.
void VDJModel::writepad(const QModelIndex& pad, const Record& values)
{
    for (const RecordRole& role : roles())
        setData(pad, values.value(role.key), role.role);
}

Qt::ItemFlags VDJModel::flags(const QModelIndex& index) const
{
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): a table's "never has children" is no flag of a pad
    const Qt::ItemFlags base = QAbstractItemModel::flags(index);
    const Record* pad = recordat(index);
    if (!pad)
        return base;
    if (!show::haspage(pad->value(Key::pageNr())))
        return base | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    return base | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
}

QList<QList<Record>> VDJModel::getList() const { return rows(); }

void padspage::fillpads(VDJModel* model)
{
    model->removeRows(0, model->rowCount());
    model->insertRows(0, padRows);
    for (int row = 0; row < padRows; ++row) {
        for (int column = 0; column < padColumns; ++column) {
            const QModelIndex pad = model->index(row, column);
            const QString name = freshname(row, column);
            model->setData(pad, name, Qt::EditRole);
            model->setData(pad, name, ItemRole::DspName);
        }
    }
}

void padspage::emptypad(VDJModel* model, const QModelIndex& pad)
{
    const Record empty = emptyrecord(emptiedname(pad.row()));
    for (const RecordRole& role : roles())
        model->setData(pad, empty.value(role.key), role.role);
}

void padspage::takeoff(VDJModel* model, const QModelIndex& pad)
{
    emptypad(model, pad);
    model->setData(pad, QStringLiteral("#FFFFFF"), Qt::DecorationRole);
}
