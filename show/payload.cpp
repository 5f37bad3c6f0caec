#include "payload.h"

#include "bounds.h"

#include <QColor>
#include <QDataStream>
#include <QIODevice>
#include <QMimeData>

namespace show {

namespace {

QString listformat() { return QStringLiteral("application/vnd.text.list"); }

QString colorformat() { return QStringLiteral("application/x-color"); }

/// Both streams are of this version, whatever the toolkit is: later ones write colours otherwise.
void setversion(QDataStream* stream) { stream->setVersion(QDataStream::Qt_5_15); }

/// The first \a count texts of a stream of nothing but texts; nothing when there are fewer, or when the bytes
/// stop inside a text or are no texts.
std::optional<QStringList> readtexts(const QByteArray& bytes, int count)
{
    QDataStream stream(bytes);
    setversion(&stream);
    QStringList texts;
    while (!stream.atEnd()) {
        QString text;
        stream >> text;
        if (stream.status() != QDataStream::Ok)
            return std::nullopt;
        // There may be millions.
        if (texts.size() < count)
            texts.append(text);
    }
    if (texts.size() < count)
        return std::nullopt;
    return texts;
}

/// The first of the colours in \a bytes; nothing when there is none, or when the bytes stop inside a colour
/// or tell of a kind of colour that does not exist: an object of such a kind must not come to be.
std::optional<QColor> readcolor(const QByteArray& bytes)
{
    constexpr int colorsize = 11; // a byte for the kind, five words
    if (bytes.isEmpty() || bytes.size() % colorsize != 0)
        return std::nullopt;
    for (int at = 0; at < bytes.size(); at += colorsize) {
        if (bytes.at(at) < QColor::Invalid || bytes.at(at) > QColor::ExtendedRgb)
            return std::nullopt;
    }
    QDataStream stream(bytes);
    setversion(&stream);
    QColor color;
    stream >> color;
    return color;
}

int numberat(const QStringList& fields, int position)
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
    setversion(&liststream);
    setversion(&colorstream);
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
    const QByteArray list = data->data(listformat());
    const QByteArray colors = data->data(colorformat());
    if (list.size() > maxPayloadSize || colors.size() > maxPayloadSize)
        return std::nullopt;
    const auto fields = readtexts(list, count);
    const auto color = readcolor(colors);
    if (!fields || !color)
        return std::nullopt;

    Payload payload;
    payload.fields = *fields;
    payload.color = color->name();
    payload.sourceRow = numberat(*fields, PayloadSourceRow);
    payload.sourceColumn = numberat(*fields, PayloadSourceColumn);
    return payload;
}

} // namespace show
