#pragma once

#include <QModelIndexList>
#include <QStringList>
#include <QVector>
#include <optional>

class QMimeData;

namespace show {

/// The drag payload that the three item models share. It has two parts, both always present:
/// "application/vnd.text.list", a QDataStream of QString fields, one group of fields per dragged item, and
/// "application/x-color", a QDataStream of one QColor per item (QDataStream of version Qt 5.15).

/// The two formats, the list first: what every model's `mimeTypes()` answers.
QStringList payloadformats();

/// One field of a dragged item behind its row and column: the text of an item role or, with role -1,
/// a fixed text.
struct PayloadField
{
    int role = -1;
    QString text;
};

/// Positions of an item's fields in the list stream. A pads page pad ends at PayloadId.
enum PayloadPosition {
    PayloadSourceRow,
    PayloadSourceColumn,
    PayloadName,
    PayloadPage,
    PayloadDspName,
    PayloadOrigin, ///< "1" = Live Button from the list, "0" = pad of a grid
    PayloadId,
    PayloadAvail,
    PayloadColorOff,
    PayloadColorOn,
    PayloadBlink
};

/// What a receiver reads from a payload.
struct Payload
{
    QStringList fields; ///< the first item's, by PayloadPosition
    QString color;      ///< the first item's colour, "#" and six lower-case hexadecimal digits
    int sourceRow = -1; ///< field 0 as a number; -1 when it is none
    int sourceColumn = -1;

    /// Whether the item was dragged from a pad of a grid, not from the Live Buttons list.
    bool frompad() const { return fields.at(PayloadOrigin) == QLatin1String("0"); }
    bool fromlist() const { return fields.at(PayloadOrigin) == QLatin1String("1"); }
};

/// Writes the items at \a indexes, in list order: row, column, then \a fields, and the colour of the
/// decoration role. Invalid indexes are skipped. The caller owns the result.
QMimeData* encodepayload(const QModelIndexList& indexes, const QVector<PayloadField>& fields);

/// Reads a payload whose receiver needs the first \a count fields (at least PayloadOrigin + 1) and a colour.
/// Gives nothing when \a data is null, lacks a format, is cut short, holds bytes that are no such stream or
/// more than `maxPayloadSize`;
/// so a receiver may address every position below \a count.
std::optional<Payload> decodepayload(const QMimeData* data, int count);

} // namespace show
