#pragma once

#include "files.h"

#include <QByteArray>
#include <QMap>
#include <QPair>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>

/// What a user has done in Lumipad, as far as it must show on stage: the judge's only knowledge of what is
/// right.
namespace VirtualDj {

/// Everything in which a right file differs from what a user might expect, settled so and each with its
/// reason. The judge expects each where it applies, and counts how often; nothing else is tolerated.
/// DarkSwitch, NoSwitch, SharedCell, UnwrittenCell and SideButtonColours need no rule of their own: a control
/// is expected to do what is in its cell, and these five are where that may surprise.
enum class Deviation {
    CutName,
    HiddenBank,
    DarkSwitch,
    NoSwitch,
    SharedCell,
    UnwrittenCell,
    SideButtonColours,
    LightWithoutAction,
    ButtonLight,
    SwitchActionLost,
    SwitchLightLeft,
    ShortLightLost,
    Os2lOnlyKept,
};

/// The reason of a deviation, in a sentence.
QString reason(Deviation deviation);
/// All of them.
QList<Deviation> alldeviations();

/// How often each was met.
using Deviations = QMap<Deviation, int>;

constexpr int bankCount = 8;
constexpr int padsPerBank = 16;

/// A pads page.
struct PageWork
{
    struct Pad
    {
        QString text;
        QString color; ///< #rrggbb
        QString button;
    };
    using Bank = std::array<std::optional<Pad>, padsPerBank>;

    QString name;
    bool sixteen = false;
    std::array<QString, bankCount> bankNames;
    std::array<Bank, bankCount> banks;

    /// The banks that hold a Live Button in either column, by ascending number from 0; the others are left
    /// out of the page.
    QList<int> usedbanks() const;
    int padcount() const { return sixteen ? padsPerBank : padsPerBank / 2; }
};

/// A row and a column of the controller grid.
using Place = QPair<int, int>;

/// What each control and LED of a device does without the lights: script by name.
using FactoryActions = QMap<QString, QString>;

/// A mapping.
struct MappingWork
{
    struct Cell
    {
        std::optional<QString> button;
        QString color = QStringLiteral("#000000");
        QString on; ///< the cell's own colours; empty: the default
        QString off;
        bool blink = false;
    };

    Device device;
    bool combined = false;
    QString defaultOn; ///< of devices that are not full RGB
    QString defaultOff;
    QMap<Place, Cell> cells; ///< those that were touched
    Place switchCell{-1, -1};
    FactoryActions factory; ///< what is expected while OS2L is off, in a combined mapping

    /// The cell under \a control; an untouched one for a control without a place in the grid.
    Cell cellof(const Control& control) const;
    bool isswitch(const Control& control) const;
};

/// What the controls of \a device do by a mapping that Lumipad did not write, or wrote for OS2L alone.
FactoryActions factoryof(const MappingFile& mapping, const Device& device, Deviations* deviations);
/// What is left of \a work's factory actions to an export that builds on the file \a written for it.
FactoryActions factoryafter(const MappingWork& work, const MappingFile& written, Deviations* deviations);

/// What VirtualDJ takes of a name between apostrophes.
struct Taken
{
    QString name;
    int dropped = 0; ///< words behind it
};

/// Names with two (or four, ...) apostrophes end at the first. Other names with apostrophes garble the script
/// behind them, as the table of awkward names tells; they have no expectation and end the test program.
Taken taken(const QString& name, Deviations* deviations);

/// What is written down about a file in JSON: what was dropped where.
struct Expectation
{
    /// The names that break the file, as they stand there, and what is put in their place for the judge to
    /// read the rest. Names with one apostrophe or a back-quote, which garble the scripts behind them, are
    /// among them.
    QMap<QString, QString> broken;
    std::optional<PageWork> page;
    std::optional<MappingWork> mapping;
};

/// Reads an expectation; \a layouts is the folder of the layouts and factory mappings, relative paths start
/// at \a folder. Ends the program when it cannot be read.
Expectation readexpectation(const QByteArray& json, const QString& layouts, const QString& folder);

} // namespace VirtualDj
