#pragma once

#include "history.h"
#include "outputmode.h"
#include "record.h"

#include <QList>
#include <QMainWindow>
#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <array>
#include <memory>

class Controller;
class MyModel;
class Mydelegate;
class QKeyEvent;
class QMenu;
class QTableView;
class VDJModel;

namespace project {
struct Head;
struct Project;
} // namespace project

namespace show {
struct LightShow;
} // namespace show

namespace Ui {
class MainWindow;
}

/// The application: all state, and every user action as a slot, invocable by name. A slot gathers from the
/// widgets, calls the room that knows how, and shows the result. Construction, output mode and guards are
/// in mainwindow.cpp; every other subject has a file of its own, mainwindow_<subject>.cpp.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// The work of an output, the pads page (0) or the controller (1); name and marks if it is the shown one.
    app::Work takework(int output) const;
    /// Puts the work of an output back as it was taken. The other output's grid, the focus and what is
    /// selected stay.
    void putwork(int output, const app::Work& work);

    /// The keys of the three lists of buttons and pads.
    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // Leaving and replacing the work

    /// Asks before a project that is not empty is closed; Cancel keeps the window.
    void closeEvent(QCloseEvent* event) override;
    /// "Exit": asks like closing the window does, but only once.
    void on_actionExit_triggered();
    /// Menu "Load DMX Show".
    void on_actionNew_triggered();
    /// "Load DMX Show": asks before a project that is not empty is replaced, then `loadshow`.
    void on_loadini_clicked();
    /// "New Project": empties both grids and all check marks; the show stays loaded. Asks nothing.
    void on_actionNew_2_triggered();

    /// Removes every row of the Live Buttons list.
    void cleanDMX();

    // Output mode

    /// Shows the layout of the checked output, and marks the Live Buttons that its grid uses.
    void on_radio_outputpage_clicked();
    void on_radio_outputmidi_clicked();
    /// Gives every widget its style sheet.
    void setstyles();

    // Undo and keys

    /// Take the latest step of the shown output back, and again. A name that is still being typed is taken
    /// over first.
    void undo();
    void redo();
    /// A choice that belongs to the work was changed in its widget.
    void choicechanged();
    /// Puts the current Live Button of the list on the next free pad, and goes on to the next one that the
    /// list shows.
    void placenext();
    /// Takes the current Live Button of the list, or that of the current pad, for `pastebutton`.
    void copybutton(QTableView* view);
    /// Takes the current pad itself: pasting moves it.
    void cutpad();
    /// Drops what was taken on the current pad, if a mouse could drop it there.
    void pastebutton();
    /// What Remove does, to the selected pads that are shown and hold a Live Button.
    void removeselected();

    // Light show and Live Buttons list

    /// Asks for a show's folder and reads it. False when nothing was chosen or the folder holds no show.
    bool loadshow();
    /// Replaces show and project by what \a path (`Live/live.ini`) holds. False, with nothing changed, when
    /// the file cannot be opened.
    bool loadshowname(const QString& path);
    /// Fills the emptied Live Buttons list from `buttons`.
    void initlist();
    /// Fills the page filter from `pages`.
    void updatecombo();
    /// Shows the Live Buttons of page \a index, all of them for 0; a negative index changes nothing.
    void updatelist(int index);
    /// Rebuilds every check mark from the grid of the output mode now selected.
    void resetdmxlist();
    void on_combobox_currentIndexChanged(int index);

    // Pads page

    /// Rebuilds the empty pads page grid and shows its first bank.
    void initpadlist();
    /// Fills the bank choice with "1" to "8".
    void updatebankcombo();
    /// Shows the pads of \a bank (0 to 7) and its name; any other bank has no pads and no name.
    void showbank(int bank);
    void on_bankcombo_currentIndexChanged(int index);
    /// Stores the name of the bank that is shown.
    void on_bankname_editingFinished();
    /// Puts "OS2L DMX" back when the page name was emptied.
    void on_padsname_editingFinished();
    void on_radioButton_8pads_clicked(bool checked);
    void on_radioButton_16pads_clicked(bool checked);
    /// Offers to remove the Live Button of the pad under \a pos, if it holds one.
    void customMenuRequestedvdj(QPoint pos);
    /// "Remove": empties the selected pads.
    void ondeletevdjaction_triggered();
    /// "Clean": empties all pads of all banks and clears all marks; names and layout stay.
    void on_cleanpads_button_clicked();

    // Devices and their mappings

    /// Fills `devices`, the device choice and the built-in part of `mappers` from the resources.
    void readdefaultmappers();
    /// Adds the user's mapper files to `mappers`.
    void readmappers();
    /// Makes \a device (an index in `devices`) current, and offers its mappings and colours.
    void updatemidicombo(int device);
    void on_devicescombo_currentIndexChanged(int index);
    /// See `controller::getdeviceindex`.
    int getdeviceindex(const QString& device);
    /// See `controller::getmapperid`.
    int getmapperid(const QString& device, int n);

    // Controller grid

    /// Recomputes which cells the current device has; what is placed stays.
    void updatelayout();

    // Context menu of the controller grid. Its actions apply to the selected cells, the switch to the clicked
    // one

    void customMenuRequested(QPoint pos);
    /// "Remove": takes the Live Buttons off; the pads keep their colours and blink.
    void ondeleteaction_triggered();
    /// Gives the pads an off (on) colour: palette entry \a n - 1, or the device's default for 0.
    void colorpadchange(int n);
    void coloronpadchange(int n);
    /// Gives the pads an off (on) colour from the colour dialog.
    void rgbpadchange();
    void rgbonpadchange();
    void onblinkaction_triggered();
    /// "Set as Switch": the clicked cell becomes the one switch pad, or an ordinary pad again.
    void ontoggleaction_triggered();
    /// Empties one cell and makes it usable.
    void ondeletemidiaction_triggered(int row, int col);
    /// Empties the grid; colours, blink and `switchPad` stay.
    void on_cleanmidi_button_clicked();

    // Marks of the Live Buttons that are used; answers to what the grids report

    /// A Live Button of list row \a index was placed on the pads page row \a to: marks the row. A row that
    /// does not exist changes nothing.
    void CheckChanged(int index, int to);
    /// The same for cell (\a to, \a col) of the controller grid, which becomes current.
    void CheckChangedCon(int index, int to, int col);
    /// The Live Button with id \a index lost a pad of the pads page (of the controller grid): unmarks it if
    /// no other one of the same grid holds it; on the pads page column 0 alone counts.
    void dmxtoremove(int index);
    void dmxtoremove2(int index);

    /// The check mark of list row \a index was taken away: takes its Live Button off every pad of both grids.
    void dmxcheckchange(int index);

    // Export

    /// "Export": writes the file of the selected output, or says why there is nothing to write.
    void on_actionExport_triggered();
    void on_pushButton_2_clicked();
    /// Writes the pads page file. False when the user declined to overwrite; a failed write is not noticed.
    bool exportpage();
    /// Writes the mapper file of the chosen device. False when the user declined to overwrite; a failed write
    /// is not noticed.
    bool exportmapping();
    /// Fills `keyList`, see `controller::getkeynames`.
    void getkeynames(const QString& layoutPath, const QString& mapperPath);

    // Projects

    /// "Save Project": asks for a file and writes the work of the selected output into it.
    void on_actionSave_2_triggered();
    /// Write a project file and say whether that succeeded; after a failure an earlier file is still whole.
    void savepadsproject(const QString& path);
    void savemidiproject(const QString& path);
    /// "Load Project": asks before work is replaced; says so when no project was loaded.
    void on_actionLoad_Project_triggered();
    /// Asks for a project file, then `loadprojectname`. False when that fails or the dialog was cancelled.
    bool loadproject();
    /// Restores show and work from the project file \a path. False, with nothing changed, when the file
    /// cannot be read or its show is gone.
    bool loadprojectname(const QString& path);

    // Help

    /// Show the About box.
    void on_actionAbout_triggered();
    void on_actionAbout_2_triggered();
    /// Opens the manual in the desktop's PDF viewer, from the program folder; a manual that is there already
    /// is not replaced.
    void on_actionManual_triggered();

    // For callers outside of this program, by name; nothing in it calls these

    /// Remove every row of the pads page grid, of the controller grid.
    void cleanVDJ();
    void cleanMIDI();
    /// Whether no pad of any bank, the hidden column included, holds a Live Button; the same for the
    /// controller grid.
    bool isVDJempty();
    bool isMIDIempty();
    /// See `show::getcolor`.
    QString getcolor(const QString& color);
    /// The number of Live Buttons on Live page \a page.
    int buttonsperpage(int page);
    /// The default colours in the palette of \a device; empty for full-RGB and unknown devices.
    QString getdeviceoffcolor(int device);
    QString getdeviceoncolor(int device);
    bool deviceinlist(const QString& device);
    /// See `controller::padtext` and `controller::padavail`; the latter for the current device.
    QString getpadtext(int row, int col);
    QString getpadavail(int row, int col);
    /// See `controller::xmlparse` and `controller::removeos2l`.
    QString xmlparse(const QString& text);
    QString removeos2l(const QString& action);

protected:
    QString messageBoxStyle;
    std::unique_ptr<Ui::MainWindow> ui;
    QString showName; ///< folder name of the loaded show; empty = no show is loaded
    QString iniPath;  ///< `live.ini` last loaded
    Mydelegate* delegate = nullptr;
    QString currentDeviceId;
    int currentDevice = 0;
    QList<int> switchPad{-1, -1}; ///< row and column of the pad that toggles OS2L; always two entries
    QModelIndex menuIndex;        ///< controller cell under the last context menu
    VDJModel* vdjModel = nullptr;
    MyModel* dmxModel = nullptr;
    Controller* controllerModel = nullptr;
    QList<Record> pages;   ///< entry 0 is "All Pages"
    QList<Record> buttons; ///< index = `buttonid`
    QStringList banks;     ///< names; may be shorter than 8, missing ones read as empty
    QList<Record> keyList;
    QList<Record> devices;
    QList<Record> mappers;
    QString homePath;
    QString documentsPath;
    QString programFolder;
    QString projectsPath;
    QString padsPath;
    QString mappersPath;

private:
    /// Places of the outputs in `outputs`.
    enum { PadsOutput, MidiOutput };

    void setupviews();
    void setupoutputs();
    void setuphistory();
    void setupkeys();
    void takepadspage(app::Work* work) const;
    void takecontroller(app::Work* work) const;
    void putpadspage(const app::Work& work);
    void putcontroller(const app::Work& work);
    void putmarks(const app::Marks& marks);
    bool keypressed(QTableView* view, const QKeyEvent& key);
    bool gridkeypressed(const QKeyEvent& key);
    void entercells(QTableView* view);
    bool steptocell(const QPoint& step);
    bool opencellmenu(QTableView* view);
    QModelIndexList padplaces() const;
    QModelIndexList cellplaces() const;
    void offerpalette(const QStringList& palette, int off, int on);
    void resetbanks();
    void replaceshow(const show::LightShow& show, const QString& path);
    void restoreshow(const project::Head& head);
    void saveproject(const QString& path, project::Project work);
    bool readprojectfile(const QString& path, project::Project* work);
    void restorehead(const project::Head& head);
    void sizecells();
    QModelIndexList menucells() const;
    void setpads(int role, const QString& value);
    void setpadcolor(int role, int n);
    void askpadcolor(int role);
    void fillcolormenu(QMenu* menu, int role, void (MainWindow::*choose)(int), void (MainWindow::*ask)());
    QMenu* newmenu();
    Q_INVOKABLE void dropusedmenu();
    const OutputMode& chosenoutput() const;
    const OutputMode& outputat(int output) const { return outputs.at(static_cast<std::size_t>(output)); }
    void placeoutput(const OutputMode& output, int width);
    void showoutput(const OutputMode& output, int width);
    void removepads(const OutputMode& output, const QModelIndexList& pads);
    void unmarkunused(const OutputMode& output, int id);
    void focusgrid(const OutputMode& output);
    void saveoutput(const OutputMode& output);
    void finishediting();
    bool projectempty() const;
    void message(const QString& text, const QString& informativetext = QString());
    bool confirmoverwrite(const QString& text);

    /// Choices as they were before a change that their widgets already show: a step begins with these.
    struct Choices
    {
        QString name; ///< of the page or mapping; not what is still being typed
        bool sixteenPads = false;
        int mapping = -1;
        int offColor = -1;
        int onColor = -1;
    };

    /// What Copy or Cut has taken; the place rather than its content, which may change until it is pasted.
    struct Taken
    {
        QPersistentModelIndex from; ///< invalid = nothing
        bool cut = false;
        QString id; ///< of the Live Button that was cut
    };

    std::array<OutputMode, 2> outputs;
    std::unique_ptr<app::History> history;
    Choices choices;
    Taken taken;
    QPointer<QMenu> usedMenu;
    bool menuAtWork = false; ///< what was chosen in `usedMenu` still runs
};
