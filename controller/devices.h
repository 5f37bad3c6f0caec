#pragma once

#include "midikeys.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace controller {

/// The MIDI controllers that the program knows, and the mappings to choose from for each.
struct DeviceLists
{
    /// Device records: `device` (the id that a mapper file carries), `name` and `path` of the layout file,
    /// `fullrgb`, `colors`, `off`, `on`, and the numbers of side buttons `top`, `left`, `right`, `bottom`
    /// and of `faders`.
    QList<Record> devices;
    /// Mapper records: the `device` id they belong to, the `name` to show and the `path` of the mapping.
    QList<Record> mappers;
};

/// Reads every layout file of \a folder (":/mappings/Mappings" in the program), sorted by lower-cased file
/// name. Each layout gives one device and two mappers, both on the factory mapping beside the layout:
/// "Simple OS2L mapping", then the factory mapping by its name. Files that are no layout give nothing.
DeviceLists readdefaultmappers(const QString& folder);

/// The mappers of the VirtualDJ mapper files in \a folder, in the same order, one for each `mapper` element
/// whose device (case-sensitive) is in \a devices. Files that cannot be read and a missing folder give none;
/// `maxMappersPerFile` and `maxMappersScan` bound what is listed.
QList<Record> readmappers(const QString& folder, const QList<Record>& devices);

/// The index of the first device with the id \a device, or -1.
int getdeviceindex(const QList<Record>& devices, const QString& device);

/// The index in \a mappers of the \a n-th mapper (from 0) of \a device, or -1 when there are not that many.
int getmapperid(const QList<Record>& mappers, const QString& device, int n);

/// The colours that the LEDs of \a device have; one empty entry for a device without a palette.
QStringList palette(const Record& device);

/// The palette entry that the number under \a key ("off" or "on") of \a device names; empty beyond the
/// palette. A text that is no number reads as 0.
QString palettecolor(const Record& device, const QString& key);

/// What the LEDs of a device can show.
enum class LedColors {
    Any,     ///< every colour
    Palette, ///< the colours of the device's palette
    Unstated ///< the layout does not say: the mapping names palette colours, but a pad's own may be any
};

/// Reads `fullrgb` of \a device: "true", "false" or anything else.
LedColors ledcolors(const Record& device);

} // namespace controller
