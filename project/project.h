#pragma once

#include <QAbstractItemModel>
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>
#include <variant>

/// What a project file (`.os2l`, XML in UTF-8) holds, as values.
namespace project {

/// A cell of the controller grid; -1, -1 is none.
struct Position
{
    int row = -1;
    int column = -1;
};

/// What only the projects of the pads page hold.
struct PadsSettings
{
    bool sixteenPads = false;
    QStringList banks; ///< names, up to `maxBankNames`; none = every bank has its first name
};

/// What only the projects of a MIDI controller hold.
struct ControllerSettings
{
    QString device;              ///< VirtualDJ's id of the controller; empty = the chosen one stays
    Position switchPad;          ///< the pad that turns OS2L on and off
    std::optional<int> offColor; ///< index of the default colour of pads that are off; nothing = it stays
    std::optional<int> onColor;
};

/// One `project` element. A file that Lumipad writes has one, with the settings of its own kind. A file from
/// elsewhere may have several, each with attributes of both kinds; all of them count, in their order.
struct Head
{
    QString show;       ///< path of the show's `live.ini`
    QString showName;   ///< folder name of the show
    QString exportName; ///< name of the pads page or mapping
    PadsSettings pads;
    ControllerSettings controller;
};

/// One pad of the pads page with the row and column of the grid. Its values stand as the grid holds them: a
/// missing `pagenr` or `id` is the empty text, which the grid does not take for a number.
struct PadCell
{
    int row = 0;
    int column = 0;
    QString name;
    QString dspName;
    QString pageNr;
    QString id;
    QString color; ///< "#" and six hexadecimal digits
};

/// One cell of the controller grid.
struct ControllerCell : PadCell
{
    QString avail;
    QString colorOff;
    QString colorOn;
    QString blink;
};

using PadCells = QList<PadCell>;
using ControllerCells = QList<ControllerCell>;

/// A project file. Its kind is that of its cells; that of the last `project` element when it is read, and the
/// pads page when there is none.
struct Project
{
    QList<Head> heads;
    std::variant<PadCells, ControllerCells> cells;

    bool ismidi() const { return std::holds_alternative<ControllerCells>(cells); }
};

/// The text of the project file, with the first of its heads (an empty one if there is none). Values are
/// written as they stand, without escaping: one with a double quote, "&" or "<" gives a file that cannot be
/// read whole.
QString projectxml(const Project& project);

/// Reads a project file. Texts that are no numbers read as 0, a missing attribute as the empty text. A
/// malformed file gives the elements that are whole ahead of the error; one that `elementsof` does not read
/// gives none.
Project readproject(const QByteArray& text);

/// Every pad of \a grid (a VDJModel), row by row.
PadCells padcells(const QAbstractItemModel& grid);
/// Every cell of \a grid (a Controller), row by row.
ControllerCells controllercells(const QAbstractItemModel& grid);

/// Puts \a cell back into \a grid. A place outside the grid changes nothing.
void putcell(QAbstractItemModel* grid, const PadCell& cell);
void putcell(QAbstractItemModel* grid, const ControllerCell& cell);

} // namespace project
