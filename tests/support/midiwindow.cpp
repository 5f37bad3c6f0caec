#include "midiwindow.h"

#include "controller.h"
#include "mymodel.h"
#include "vdjmodel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBackingStore>
#include <QMimeData>
#include <QTest>
#include <QWindow>

MidiWindow::MidiWindow(Output output, std::unique_ptr<TestHome> readyhome) : home(std::move(readyhome))
{
    loadshow(QStringLiteral("Gig"));
    if (output == Output::Midi)
        QTest::mouseClick(window.child<QAbstractButton>("radio_outputmidi"), Qt::LeftButton);
}

void MidiWindow::loadshow(const QString& name, const QList<TestPage>& pages)
{
    window.showName = name;
    if (!window.loadshowname(writeshow(*home, name, pages) + QStringLiteral("/Live/live.ini")))
        qFatal("A test show cannot be read");
}

QModelIndex MidiWindow::cell(int row, int col) const { return window.controllerModel->index(row, col); }

QModelIndex MidiWindow::pad(int row, int col) const { return window.vdjModel->index(row, col); }

void MidiWindow::drop(int button, const QModelIndex& target) const
{
    drop(window.dmxModel->index(button, 0), target);
}

void MidiWindow::drop(const QModelIndex& source, const QModelIndex& target)
{
    const std::unique_ptr<QMimeData> data(source.model()->mimeData({source}));
    if (!const_cast<QAbstractItemModel*>(target.model())
             ->dropMimeData(data.get(), Qt::CopyAction, -1, -1, target))
        qFatal("A grid refuses a drop of the test");
}

QStringList MidiWindow::values(const QModelIndex& cell, const QList<int>& roles)
{
    QStringList all;
    for (const int role : roles)
        all.append(cell.data(role).toString());
    return all;
}

QList<int> MidiWindow::marks() const
{
    QList<int> rows;
    for (int row = 0; row < window.dmxModel->rowCount(); ++row) {
        if (window.dmxModel->index(row, 0).data(Qt::CheckStateRole).toInt() == Qt::Checked)
            rows.append(row);
    }
    return rows;
}

QString MidiWindow::checks() const
{
    QString all;
    for (const Record& button : window.buttons)
        all += button.value(Key::check());
    return all;
}

void MidiWindow::setchecks(const QString& checks)
{
    for (int i = 0; i < checks.size(); ++i)
        window.buttons[i][Key::check()] = checks.at(i);
}

void MidiWindow::select(const QModelIndexList& cells) const
{
    grid->selectionModel()->clear();
    for (const QModelIndex& selected : cells)
        grid->selectionModel()->select(selected, QItemSelectionModel::Select);
}

QMenu* MidiWindow::rightclick(const QTableView* view, const QPoint& pos) const
{
    QTest::mouseClick(window.windowHandle(), Qt::RightButton, Qt::NoModifier,
                      view->viewport()->mapTo(&window, pos));
    return openmenu();
}

QMenu* MidiWindow::rightclick(const QTableView* view, const QModelIndex& index) const
{
    return rightclick(view, view->visualRect(index).center());
}

QMenu* MidiWindow::openmenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

QStringList entries(const QMenu* menu)
{
    QStringList all;
    const auto actions = menu->actions();
    for (const QAction* action : actions)
        all.append(action->isSeparator() ? QStringLiteral("-")
                                         : action->text() + (action->menu() ? ">" : ""));
    return all;
}

QAction* findentry(const QMenu* menu, const QString& text)
{
    const auto actions = menu ? menu->actions() : QList<QAction*>();
    for (QAction* action : actions) {
        if (!action->isSeparator() && action->text() == text)
            return action;
    }
    return nullptr;
}

QAction* entry(const QMenu* menu, const QString& text)
{
    QAction* found = findentry(menu, text);
    if (!found)
        qFatal("The menu has no entry %s", qPrintable(text));
    return found;
}

void choose(QMenu* menu, const QString& text, const QString& submenu)
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

QImage painted(const QWidget* widget)
{
    const QWidget* window = widget->window();
    const auto* screen = dynamic_cast<QImage*>(window->backingStore()->paintDevice());
    if (!screen)
        qFatal("The window is not painted into an image");
    return screen->copy(QRect(widget->mapTo(window, QPoint()), widget->size()));
}

FocusPath::FocusPath()
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now)
            m_names.append(now->objectName());
    });
}

QStringList FocusPath::names() const { return m_names; }
