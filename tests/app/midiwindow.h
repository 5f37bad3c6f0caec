#pragma once

// What the tests of the controller grid, its menu and the marks share beside testwindow.h: a window with a
// show loaded, real drops and right clicks, and what the screen shows without being asked to repaint.

#include "controller.h"
#include "itemroles.h"
#include "mymodel.h"
#include "testwindow.h"
#include "vdjmodel.h"

#include <QBackingStore>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QWindow>

#include <memory>

/// The window in a home folder of its own, with a show of five Live Buttons loaded: rows 0 "Strobe",
/// 1 "Blackout", 2 "Slow Fade" on page 1, 3 "Circle" and 4 "Ballyhoo" on page 2.
struct MidiWindow
{
    enum class Output { Pads, Midi };

    explicit MidiWindow(Output output = Output::Midi,
                        std::unique_ptr<TestHome> readyhome = std::make_unique<TestHome>())
        : home(std::move(readyhome))
    {
        loadshow(QStringLiteral("Gig"));
        if (output == Output::Midi)
            QTest::mouseClick(window.child<QAbstractButton>("radio_outputmidi"), Qt::LeftButton);
    }

    const std::unique_ptr<TestHome> home;
    TestWindow window;
    QTableView* list = window.child<QTableView>("dmxlistview");
    QTableView* pads = window.child<QTableView>("vdjlistview");
    QTableView* grid = window.child<QTableView>("tablecontroller");

    /// Loads a show named \a name without the file dialog.
    void loadshow(const QString& name, const QList<TestPage>& pages = smallshow())
    {
        window.showName = name;
        if (!window.loadshowname(writeshow(*home, name, pages) + QStringLiteral("/Live/live.ini")))
            qFatal("A test show cannot be read");
    }

    QModelIndex cell(int row, int col) const { return window.controllerModel->index(row, col); }
    QModelIndex pad(int row, int col = 0) const { return window.vdjModel->index(row, col); }

    /// Drops the Live Button of list row \a button on \a target, a cell of either grid.
    void drop(int button, const QModelIndex& target) const
    {
        drop(window.dmxModel->index(button, 0), target);
    }
    /// Drops what is dragged from \a source, the list or a cell, on \a target.
    static void drop(const QModelIndex& source, const QModelIndex& target)
    {
        const std::unique_ptr<QMimeData> data(source.model()->mimeData({source}));
        if (!const_cast<QAbstractItemModel*>(target.model())
                 ->dropMimeData(data.get(), Qt::CopyAction, -1, -1, target))
            qFatal("A grid refuses a drop of the test");
    }

    /// The values of \a cell that \a roles name.
    static QStringList values(const QModelIndex& cell, const QList<int>& roles)
    {
        QStringList all;
        for (const int role : roles)
            all.append(cell.data(role).toString());
        return all;
    }

    /// The rows of the list that show a check mark.
    QList<int> marks() const
    {
        QList<int> rows;
        for (int row = 0; row < window.dmxModel->rowCount(); ++row) {
            if (window.dmxModel->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked)
                rows.append(row);
        }
        return rows;
    }
    /// The `check` of every Live Button in the window's own list, one letter each.
    QString checks() const
    {
        QString all;
        for (const Record& button : window.buttons)
            all += button.value(Key::check());
        return all;
    }
    void setchecks(const QString& checks)
    {
        for (int i = 0; i < checks.size(); ++i)
            window.buttons[i][Key::check()] = checks.at(i);
    }

    /// Selects exactly \a cells of the controller grid.
    void select(const QModelIndexList& cells) const
    {
        grid->selectionModel()->clear();
        for (const QModelIndex& selected : cells)
            grid->selectionModel()->select(selected, QItemSelectionModel::Select);
    }

    /// Presses and releases the right mouse button over \a pos of the viewport of \a view, as the window
    /// system reports it, and gives the menu that came up; null when none did.
    QMenu* rightclick(const QTableView* view, const QPoint& pos) const
    {
        QTest::mouseClick(window.windowHandle(), Qt::RightButton, Qt::NoModifier,
                          view->viewport()->mapTo(&window, pos));
        return openmenu();
    }
    QMenu* rightclick(const QTableView* view, const QModelIndex& index) const
    {
        return rightclick(view, view->visualRect(index).center());
    }
    static QMenu* openmenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
};

/// The texts of a menu's entries in their order: "-" for a separator, a ">" behind the name of a submenu.
inline QStringList entries(const QMenu* menu)
{
    QStringList all;
    const auto actions = menu->actions();
    for (const QAction* action : actions)
        all.append(action->isSeparator() ? QStringLiteral("-")
                                         : action->text() + (action->menu() ? ">" : ""));
    return all;
}

/// The entry of \a menu with the text \a text; null when there is none.
inline QAction* findentry(const QMenu* menu, const QString& text)
{
    const auto actions = menu ? menu->actions() : QList<QAction*>();
    for (QAction* action : actions) {
        if (!action->isSeparator() && action->text() == text)
            return action;
    }
    return nullptr;
}

/// The same; ends the test program when there is none.
inline QAction* entry(const QMenu* menu, const QString& text)
{
    QAction* found = findentry(menu, text);
    if (!found)
        qFatal("The menu has no entry %s", qPrintable(text));
    return found;
}

/// Chooses the entry \a text of the open menu \a menu, or of its submenu \a submenu, by the keyboard; the
/// menu closes. Fails the test when there is no such menu or entry.
inline void choose(QMenu* menu, const QString& text, const QString& submenu = QString())
{
    if (QAction* way = submenu.isNull() ? nullptr : findentry(menu, submenu)) {
        menu->setActiveAction(way);
        QTest::keyClick(menu, Qt::Key_Right);
        menu = way->menu();
    }
    QAction* chosen = findentry(menu, text);
    QVERIFY2(chosen, qPrintable(text));
    menu->setActiveAction(chosen);
    QTest::keyClick(menu, Qt::Key_Return);
}

/// What the screen shows of \a widget now: what was painted last, without painting it again.
inline QImage painted(const QWidget* widget)
{
    const QWidget* window = widget->window();
    const auto* screen = dynamic_cast<QImage*>(window->backingStore()->paintDevice());
    if (!screen)
        qFatal("The window is not painted into an image");
    return screen->copy(QRect(widget->mapTo(window, QPoint()), widget->size()));
}

/// The widgets that got the focus, in their order, for as long as the object lives.
class FocusPath : public QObject
{
public:
    FocusPath()
    {
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now)
                m_names.append(now->objectName());
        });
    }
    QStringList names() const { return m_names; }

private:
    QStringList m_names;
};
