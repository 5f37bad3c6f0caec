#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

class QAbstractItemModel;

namespace padspage {

/// One pad as the pads page file knows it.
struct PadsPagePad
{
    int pageNr = 0; ///< page number of the Live Button; greater than 0: the pad holds one
    QString text;   ///< shown on the pad
    QString color;  ///< "#rrggbb"
    QString button; ///< Live Button name that the pad sends over OS2L
};

/// The value that a pads page file is written from.
struct PadsPage
{
    QString name;                       ///< any text
    QStringList bankNames;              ///< eight names; missing ones are written as empty, more are ignored
    bool sixteenPads = false;           ///< false: the file holds pads 1 to 8 only
    QVector<QVector<PadsPagePad>> pads; ///< 64 rows (bank = row / 8) of 2 columns (pads 1-8, pads 9-16);
                                        ///< missing cells are empty pads, more are ignored
};

/// The text of the VirtualDJ pads page file for `page`, to be stored as UTF-8 in the Pads folder of
/// VirtualDJ.
///
/// The file has one line per pad and one for the page's parameter, each ended by a line feed. Every bank with
/// a Live Button in either column (the second counts with 8 pads too) is one value of the VirtualDJ variable
/// `dmxbank`, counted from 0 over these banks only; pads and parameter choose by it what they show and do.
///
/// Names and colours are written as they stand, without escaping: a name with `<`, `&` or a double quote
/// gives a file that is not well-formed XML. Without any Live Button the chains are empty.
QString padspagexml(const PadsPage& page);

/// The pads of `grid` (a VDJModel) as the pads page file takes them, row by row.
QVector<QVector<PadsPagePad>> padspagepads(const QAbstractItemModel& grid);

} // namespace padspage
