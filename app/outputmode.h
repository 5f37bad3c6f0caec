#pragma once

#include <QList>
#include <QModelIndexList>
#include <QRect>
#include <QString>
#include <functional>

class QPoint;
class QRadioButton;
class QTableView;
class QWidget;
class RecordModel;

namespace app {
struct Work;
} // namespace app

/// One of the outputs that the user chooses between, and all that the window does differently for it.
struct OutputMode
{
    QRadioButton* radio = nullptr; ///< checked = this output is chosen
    QTableView* view = nullptr;    ///< shows `grid`
    RecordModel* grid = nullptr;   ///< the pads that Live Buttons are placed on
    int markColumns = 0;     ///< a Live Button counts as used in so many columns of the grid, from the first
    QList<QWidget*> widgets; ///< shown while this output is chosen, hidden else
    QRect box;               ///< of the box around the radio buttons
    int windowWidth = 0;     ///< pixels
    QString label;           ///< of the field that names the page or mapping
    std::function<void(const QModelIndex&)> empty; ///< empties a pad, as Remove does
    std::function<void(const QModelIndex&)>
        takeoff; ///< takes the Live Button off a pad, as the list asks for
    std::function<QModelIndexList()>
        places; ///< the pads that are shown, in the order in which they are filled
    std::function<void(const QPoint&)> openmenu;  ///< opens the menu of the pad at a place in the view
    std::function<void(app::Work*)> take;         ///< adds what only this output has to the work of undo
    std::function<void(const app::Work&)> put;    ///< puts that back; the grid is in place already
    std::function<bool()> exportwork;             ///< writes the file for VirtualDJ
    std::function<void(const QString&)> savework; ///< writes the project file of the given path
};
