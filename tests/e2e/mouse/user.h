#pragma once

#include "cellgrid.h"
#include "desktop.h"

#include <QStringList>

/// The two outputs of the window.
enum class Output { Pads, Midi };

/// The two colours that a cell of the controller grid has for its LED.
enum class PadColor { Off, On };

/// Whether a step finds a file of the same name, or work that it replaces. The program asks then, and the
/// answer is Yes.
enum class Earlier { None, Replaced };

/// A person with mouse and keyboard before Lumipad: what one does in a step, and sees to its end. Rows of the
/// list, pads (1 to 16, of the bank that is shown), banks (1 to 8) and entries of boxes count from 1.
class User : public Desktop
{
public:
    using Desktop::Desktop;

    // Dialogs and boxes (user_dialogs.cpp)

    /// Waits for a message box with exactly that many buttons; \a what names it.
    ScreenWindow awaitbox(const QString& what, int buttons);
    /// Clicks button \a number, from the left, of the message box and waits until that is gone.
    void pressbutton(int number);
    /// The same for a box that leads back to the main window.
    void answerbox(int number);
    /// Waits for the window \a title besides the main one and gives it the keyboard.
    ScreenWindow awaitdialog(const QString& title);
    /// Types \a path into the file dialog \a title, and waits until that is gone.
    void typefile(const QString& title, const QString& path);
    /// Chooses the entry from the File menu.
    void filemenu(const QString& entry);
    /// "Load DMX Show" with a show of the home.
    void loadshow(const QString& name);
    /// Closes the window while pads are occupied and answers Yes; waits for the end, with 0 only when nothing
    /// of the program was left over.
    void closeandconfirm();

    // Fields and combo boxes (user_fields.cpp)

    /// Clicks the line edit and replaces its text.
    void filledit(const QString& edit, const QString& text);
    /// Chooses entry \a number of the \a count entries of a combo box, from its popup, which shows them all.
    void chooseitem(const QString& combo, int number, int count);
    /// The number of the controller \a name in its combo box, counted from 1 among all that are built in.
    int devicenumber(const QString& name);
    /// Chooses the controller \a name.
    void choosedevice(const QString& name);
    /// Chooses entry \a number with the keyboard in the popup of a combo box, which is open or about to be.
    void pickbykeys(const QString& combo, int number);
    /// Opens the popup of a combo box with the mouse and chooses entry \a number with the keyboard.
    void choosebykeys(const QString& combo, int number);
    /// Switches to the other output and waits for its side.
    void switchto(Output output);
    void awaitoutput(Output output);

    // Dragging (user_dragging.cpp)

    /// From row \a row of the Live Buttons list, all of which can be seen, onto a pad. \a heldkey is held
    /// from when the drag has begun until it has ended.
    void dragbutton(int row, int pad, const QString& heldkey = QString());
    void dragpad(int from, int to, const QString& heldkey = QString());
    void dragtocell(int row, Cell to);
    void dragcell(Cell from, Cell to);

    // Pads page (user_pads.cpp)

    /// The row of the Live Buttons list and the pad, where the mouse takes hold of them.
    QPoint listrow(int row) const;
    QPoint pad(int number) const;
    /// Opens the context menu of an occupied pad.
    void openpadmenu(int pad);
    /// Double-clicks an occupied pad, replaces its text and ends with Return.
    void editpad(int number, const QString& text);
    void choosebank(int bank);
    /// Exports the pads page under the name that is filled in.
    void exportpads(Earlier earlier = Earlier::None);

    // Controller grid (user_cells.cpp)

    /// The cell, on the screen.
    QRect cellrect(Cell cell);
    /// The cell, where the mouse takes hold of it.
    QPoint cell(Cell cell);
    /// Whether the cell's ground has the colour.
    bool cellis(Cell cell, QRgb color);
    /// Selects just these cells: clicks the first and adds the others with Ctrl.
    void selectcells(const QVector<Cell>& cells);
    /// Opens the context menu of a cell.
    void opencellmenu(Cell cell);
    /// Chooses palette colour \a number of the device's \a count for the selected cells; the menu opens on
    /// \a cell, one of them, which holds a Live Button.
    void setcolor(Cell cell, PadColor which, int number, int count);
    /// The same on a device with RGB LEDs, whose menu opens the colour dialog; \a color is "#rrggbb".
    void askcolor(Cell cell, PadColor which, const QString& color);
    /// Switches blinking of the selected cells; \a cell is one of them and holds a Live Button.
    void toggleblink(Cell cell);
    /// Makes an empty cell the switch, and the switch an ordinary cell.
    void setswitch(Cell cell);
    void unsetswitch(Cell cell);
    /// Exports the mapping under the name that is filled in, \a name, for the controller \a device.
    void exportmapper(const QString& device, const QString& name, Earlier earlier = Earlier::None);

    // Menus (user_menus.cpp)

    /// Waits until \a count menus, at least 1, are open and drawn.
    void awaitmenus(int count);
    /// Clicks an entry of the context menu that is open on top as number \a depth. \a entries are all its
    /// entries from the top, "-" for a separator.
    void clickmenu(int depth, const QStringList& entries, const QString& entry);
    /// Waits until no menu is open and its work is done.
    void awaitmenusgone();

    // Projects (user_projects.cpp)

    /// Saves the shown side as the project \a name.
    void saveproject(const QString& name, Earlier earlier = Earlier::None);
    /// Loads the project \a name and waits for its side.
    void loadproject(const QString& name, Output output, Earlier earlier = Earlier::None);

private:
    QVector<QRect> boxbuttons() const;
    void confirm(Earlier earlier);
    bool hasoutput(Output output) const;
    void drag(QPoint from, QPoint to, const QString& heldkey);
    void opencolormenu(Cell cell, PadColor which);

    CellGrid m_cells;
};

/// Where the mouse takes hold of a row, pad or cell, from its left top corner: beside check mark and swatch,
/// and inside the narrowest of them.
const QPoint holdPoint(60, 15);
