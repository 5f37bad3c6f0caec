#pragma once

#include "record.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QVector>

class QAbstractItemModel;

namespace controller {

/// One cell of the controller grid as the mapper file knows it.
struct MapperPad
{
    int id = -1;      ///< below 0: no Live Button
    QString button;   ///< the Live Button's name
    QString colorOff; ///< the pad's own colours; empty = the device's default
    QString colorOn;
    bool blink = false;
    QString color = QStringLiteral("#000000"); ///< the pad's colour on screen, "#rrggbb"
};

/// The value that a VirtualDJ mapper file is written from.
struct Mapping
{
    QString device;        ///< VirtualDJ's id of the controller
    QDate date;            ///< local date of the export
    bool combined = false; ///< keep the factory actions behind `$os2l`, instead of OS2L commands alone
    bool fullRgb = false;  ///< LEDs take any colour; else they take the device's named colours
    QString defaultOff;    ///< colours of pads without their own, for named colours only
    QString defaultOn;
    int switchRow = -1; ///< cell of the pad that toggles `$os2l`; -1, -1 = none
    int switchColumn = -1;
    QList<Record> keys;               ///< the controls, see `getkeynames`
    QVector<QVector<MapperPad>> pads; ///< rows of cells; a missing cell holds no Live Button
};

/// The text of the VirtualDJ mapper file for \a mapping (VirtualDJ mapper XML), to be stored as UTF-8; every
/// line ends with one line feed. Factory actions are escaped with `xmlparse`; names of controls and of Live
/// Buttons are written as they stand. A key record of an unknown type writes nothing.
QString mapperxml(const Mapping& mapping);

/// The cells of \a grid (a Controller) as the mapper file takes them, row by row.
QVector<QVector<MapperPad>> mapperpads(const QAbstractItemModel& grid);

} // namespace controller
