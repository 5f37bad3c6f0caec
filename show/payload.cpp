#include "payload.h"

#include <QColor>
#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

namespace show {

namespace {

QString listformat() { return QStringLiteral("application/vnd.text.list"); }

QString colorformat() { return QStringLiteral("application/x-color"); }

/// Reads values until the stream ends; false when the bytes stop inside a value or are no such values.
template<typename Value>
bool readall(const QByteArray& bytes, QVector<Value>* values)
{
    QDataStream stream(bytes);
    while (!stream.atEnd()) {
        Value value;
        stream >> value;
        if (stream.status() != QDataStream::Ok)
            return false;
        values->append(value);
    }
    return true;
}

int numberat(const QVector<QString>& fields, int position)
{
    bool ok = false;
    const int number = fields.at(position).toInt(&ok);
    return ok ? number : -1;
}

} // namespace

QStringList payloadformats() { return {listformat(), colorformat()}; }

QMimeData* encodepayload(const QModelIndexList& indexes, const QVector<PayloadField>& fields)
{
    QByteArray list;
    QByteArray colors;
    QDataStream liststream(&list, QIODevice::WriteOnly);
    QDataStream colorstream(&colors, QIODevice::WriteOnly);
    for (const QModelIndex& index : indexes) {
        if (!index.isValid())
            continue;
        liststream << QString::number(index.row()) << QString::number(index.column());
        for (const PayloadField& field : fields)
            liststream << (field.role < 0 ? field.text : index.data(field.role).toString());
        colorstream << index.data(Qt::DecorationRole).value<QColor>();
    }
    auto* data = new QMimeData;
    data->setData(listformat(), list);
    data->setData(colorformat(), colors);
    return data;
}

std::optional<Payload> decodepayload(const QMimeData* data, int count)
{
    if (!data || !data->hasFormat(listformat()) || !data->hasFormat(colorformat()))
        return std::nullopt;
    QVector<QString> fields;
    QVector<QColor> colors;
    if (!readall(data->data(listformat()), &fields) || !readall(data->data(colorformat()), &colors))
        return std::nullopt;
    if (fields.size() < count || colors.isEmpty())
        return std::nullopt;

    Payload payload;
    payload.sourceRow = numberat(fields, PayloadSourceRow);
    payload.sourceColumn = numberat(fields, PayloadSourceColumn);
    payload.fields = QStringList(fields.cbegin(), fields.cend());
    payload.color = colors.constFirst().name();
    return payload;
}

} // namespace show
