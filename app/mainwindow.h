#pragma once

#include "record.h"

#include <QList>
#include <QMainWindow>
#include <QModelIndex>
#include <QString>
#include <QStringList>
#include <memory>

class Controller;
class MyModel;
class Mydelegate;
class QAction;
class QKeySequence;
class QTableView;
class VDJModel;

namespace Ui {
class MainWindow;
}

/// The application: all state, and every user action as a slot, invocable by name. A slot gathers from the
/// widgets, calls the room that knows how, and shows the result. Subjects by file: construction, output mode
/// and guards in mainwindow.cpp, light show and list in mainwindow_show.cpp, pads page and export in
/// mainwindow_pads.cpp.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

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
    /// Removes every row of the pads page grid.
    void cleanVDJ();
    /// Removes every row of the controller grid.
    void cleanMIDI();

    // Output mode

    /// Shows the layout of the checked output, and marks the Live Buttons that its grid uses.
    void on_radio_outputpage_clicked();
    void on_radio_outputmidi_clicked();
    /// Gives every widget its style sheet.
    void setstyles();

    // Light show and Live Buttons list

    /// Asks for a show's folder and reads it. False when nothing was chosen or the folder holds no show.
    bool loadshow();
    /// Replaces show and project by what \a path (`Live/live.ini`) holds. False, with nothing changed, when
    /// the file cannot be opened.
    bool loadshowname(const QString& path);
    /// See `::getcolor`.
    QString getcolor(const QString& color);
    /// The number of Live Buttons on Live page \a page.
    int buttonsperpage(int page);
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
    /// Whether no pad of any bank, the hidden column included, holds a Live Button.
    bool isVDJempty();

    // Controller

    /// Whether no cell of the controller grid holds a Live Button.
    bool isMIDIempty();

    // Export

    /// "Export": writes the file of the selected output, or says why there is nothing to write.
    void on_actionExport_triggered();
    void on_pushButton_2_clicked();
    /// Writes the pads page file. False when the user declined to overwrite; a failed write is not noticed.
    bool exportpage();

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
    void setupviews();
    void setupkeys();
    void addkey(const QKeySequence& key, QAction* action);
    void resetbanks();
    void placeoutput(bool midi, int width);
    void showpadslayout();
    void showmidilayout(int width);
    bool projectempty();
    void message(const QString& text, const QString& informativetext = QString());
    bool confirmoverwrite(const QString& text);
};
