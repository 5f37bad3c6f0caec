#pragma once

#include "testhome.h"
#include "testshows.h"
#include "testwindow.h"

#include <QImage>
#include <QMenu>
#include <QTableView>

#include <memory>

/// The window in a home folder of its own, with a show of five Live Buttons loaded: rows 0 "Strobe",
/// 1 "Blackout", 2 "Slow Fade" on page 1, 3 "Circle" and 4 "Ballyhoo" on page 2.
struct MidiWindow
{
    enum class Output { Pads, Midi };

    explicit MidiWindow(Output output = Output::Midi,
                        std::unique_ptr<TestHome> readyhome = std::make_unique<TestHome>());

    const std::unique_ptr<TestHome> home;
    TestWindow window;
    QTableView* list = window.child<QTableView>("dmxlistview");
    QTableView* pads = window.child<QTableView>("vdjlistview");
    QTableView* grid = window.child<QTableView>("tablecontroller");

    /// Loads a show named \a name without the file dialog.
    void loadshow(const QString& name, const QList<TestPage>& pages = smallshow());

    QModelIndex cell(int row, int col) const;
    QModelIndex pad(int row, int col = 0) const;

    /// Drops the Live Button of list row \a button on \a target, a cell of either grid.
    void drop(int button, const QModelIndex& target) const;
    /// Drops what is dragged from \a source, the list or a cell, on \a target.
    static void drop(const QModelIndex& source, const QModelIndex& target);

    /// The values of \a cell that \a roles name.
    static QStringList values(const QModelIndex& cell, const QList<int>& roles);

    /// The rows of the list that show a check mark.
    QList<int> marks() const;
    /// The `check` of every Live Button in the window's own list, one letter each.
    QString checks() const;
    /// Gives every Live Button in the window's own list its letter of \a checks.
    void setchecks(const QString& checks);

    /// Selects exactly \a cells of the controller grid.
    void select(const QModelIndexList& cells) const;

    /// Presses and releases the right mouse button over \a pos of the viewport of \a view, as the window
    /// system reports it, and gives the menu that came up; null when none did.
    QMenu* rightclick(const QTableView* view, const QPoint& pos) const;
    QMenu* rightclick(const QTableView* view, const QModelIndex& index) const;
    /// The menu that is open now; null when none is.
    static QMenu* openmenu();
};

/// The texts of a menu's entries in their order: "-" for a separator, a ">" behind the name of a submenu.
QStringList entries(const QMenu* menu);

/// The entry of \a menu with the text \a text; null when there is none.
QAction* findentry(const QMenu* menu, const QString& text);

/// The same; ends the test program when there is none.
QAction* entry(const QMenu* menu, const QString& text);

/// Chooses the entry \a text of the open menu \a menu, or of its submenu \a submenu, by the keyboard; the
/// menu closes. Fails the test when there is no such menu or entry.
void choose(QMenu* menu, const QString& text, const QString& submenu = QString());

/// What the screen shows of \a widget now: what was painted last, without painting it again.
QImage painted(const QWidget* widget);

/// The widgets that got the focus, in their order, for as long as the object lives.
class FocusPath : public QObject
{
public:
    FocusPath();
    /// The object names of those widgets.
    QStringList names() const;

private:
    QStringList m_names;
};
