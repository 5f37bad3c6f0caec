#include "accessible.h"

#include "cells.h"
#include "controller.h"
#include "itemroles.h"
#include "occupied.h"
#include "padgeometry.h"
#include "vdjmodel.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QCoreApplication>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTableView>

#include <utility>

namespace {

/// Translates the texts of this file, under a name by which the tools for translators find them.
class Accessible
{
    Q_DECLARE_TR_FUNCTIONS(Accessible)
};

/// What a pad is called whatever it holds; empty for items that are no pads.
QString padlabel(const QModelIndex& index)
{
    if (qobject_cast<const Controller*>(index.model()))
        return controller::padtext(index.row(), index.column());
    if (qobject_cast<const VDJModel*>(index.model()))
        return padspage::freshname(index.row(), index.column());
    return QString();
}

/// Whether another grid lies over \a view: it is not hidden then, but takes no focus.
bool iscovered(const QTableView* view) { return view->focusPolicy() == Qt::NoFocus; }

/// An item of a table, or one of its header sections, which are counted among the children though they are
/// hidden: the toolkit's own tables count them, and so do the events that its views send.
class TableItem : public QAccessibleInterface,
                  public QAccessibleTableCellInterface,
                  public QAccessibleActionInterface
{
public:
    /// \a index is invalid for a header section.
    TableItem(QTableView* view, const QModelIndex& index, QAccessible::Role role)
        : m_view(view), m_index(index), m_role(role)
    {
    }

    bool shows(const QModelIndex& index) const { return m_index == index; }

    bool isValid() const override
    {
        return m_view && m_view->model() && (m_index.isValid() || m_role != QAccessible::Cell);
    }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_view); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return m_role; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && m_index.isValid() ? accessibletext(m_index) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    bool isSelected() const override
    {
        return isValid() && m_index.isValid() && m_view->selectionModel()->isSelected(m_index);
    }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_index.column(); }
    int rowIndex() const override { return m_index.row(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<QTableView> m_view;
    QPersistentModelIndex m_index;
    QAccessible::Role m_role;
};

QRect TableItem::rect() const
{
    if (!isValid() || !m_index.isValid())
        return QRect();
    const QRect place = m_view->visualRect(m_index);
    return QRect(m_view->viewport()->mapToGlobal(place.topLeft()), place.size());
}

QAccessible::State TableItem::state() const
{
    QAccessible::State state;
    if (!isValid() || !m_index.isValid()) {
        state.invisible = true;
        return state;
    }
    const Qt::ItemFlags flags = m_index.flags();
    const QVariant mark = m_index.data(Qt::CheckStateRole);
    state.disabled = !flags.testFlag(Qt::ItemIsEnabled);
    state.selectable = flags.testFlag(Qt::ItemIsSelectable);
    state.focusable = state.selectable && !state.disabled && !iscovered(m_view);
    state.editable = flags.testFlag(Qt::ItemIsEditable);
    state.selected = isSelected();
    state.focused = m_view->hasFocus() && m_view->currentIndex() == m_index;
    state.checkable = mark.isValid();
    state.checked = mark.toInt() == Qt::Checked;
    state.invisible = !m_view->isVisible() || iscovered(m_view) ||
                      !m_view->viewport()->rect().intersects(m_view->visualRect(m_index));
    return state;
}

void* TableItem::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

QStringList TableItem::actionNames() const
{
    const bool reachable = isValid() && m_index.flags().testFlag(Qt::ItemIsEnabled) && !iscovered(m_view);
    return reachable ? QStringList{setFocusAction()} : QStringList();
}

void TableItem::doAction(const QString& name)
{
    if (!actionNames().contains(name))
        return;
    m_view->setFocus();
    m_view->setCurrentIndex(m_index);
}

/// A table with its items. A row or column is selected when all of its items are; the views select single
/// items, so none is ever selected from here.
class Table : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit Table(QTableView* view) : QAccessibleWidget(view, QAccessible::Table) {}
    ~Table() override { forget(); }

    QAccessible::State state() const override;
    int childCount() const override { return (rowCount() + 1) * (columnCount() + 1); }
    QAccessibleInterface* child(int number) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override { return item(view()->currentIndex()); }
    int indexOfChild(const QAccessibleInterface* child) const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override
    {
        return model() ? item(model()->index(row, column)) : nullptr;
    }
    int rowCount() const override { return model() ? model()->rowCount() : 0; }
    int columnCount() const override { return model() ? model()->columnCount() : 0; }
    QString rowDescription(int) const override { return QString(); }
    QString columnDescription(int) const override { return QString(); }
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<int> selectedRows() const override;
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    QList<int> selectedColumns() const override;
    bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    bool isColumnSelected(int column) const override { return selectedColumns().contains(column); }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override { forget(); }

private:
    QTableView* view() const { return static_cast<QTableView*>(widget()); }
    QAbstractItemModel* model() const { return view()->model(); }
    /// Null for a view without a model.
    QItemSelectionModel* selection() const { return view()->selectionModel(); }
    int numberof(const QModelIndex& index) const
    {
        return (index.row() + 1) * (columnCount() + 1) + index.column() + 1;
    }
    QAccessibleInterface* item(const QModelIndex& index) const
    {
        return index.isValid() ? child(numberof(index)) : nullptr;
    }
    void forget();

    /// The children asked for so far: number to id.
    mutable QHash<int, QAccessible::Id> m_children;
};

QAccessible::State Table::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.invisible = state.invisible || iscovered(view());
    return state;
}

/// The children are numbered row by row, with a row of headers before the first row and one in each row.
QAccessibleInterface* Table::child(int number) const
{
    if (!model() || number < 0 || number >= childCount())
        return nullptr;
    const int row = number / (columnCount() + 1) - 1;
    const int column = number % (columnCount() + 1) - 1;
    const QModelIndex index = row < 0 || column < 0 ? QModelIndex() : model()->index(row, column);
    const auto known = m_children.constFind(number);
    if (known != m_children.constEnd()) {
        QAccessibleInterface* child = QAccessible::accessibleInterface(*known);
        if (child && static_cast<TableItem*>(child)->shows(index))
            return child;
        // Rows came or went since: this is another item now.
        QAccessible::deleteAccessibleInterface(*known);
    }
    QAccessible::Role role = QAccessible::Cell;
    if (!index.isValid())
        role = row < 0 ? QAccessible::ColumnHeader : QAccessible::RowHeader;
    auto* child = new TableItem(view(), index, role);
    m_children.insert(number, QAccessible::registerAccessibleInterface(child));
    return child;
}

QAccessibleInterface* Table::childAt(int x, int y) const
{
    return item(view()->indexAt(view()->viewport()->mapFromGlobal(QPoint(x, y))));
}

int Table::indexOfChild(const QAccessibleInterface* child) const
{
    return m_children.key(QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child)), -1);
}

void* Table::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QList<QAccessibleInterface*> Table::selectedCells() const
{
    QList<QAccessibleInterface*> items;
    const QModelIndexList selected = selection() ? selection()->selectedIndexes() : QModelIndexList();
    for (const QModelIndex& index : selected)
        items.append(item(index));
    return items;
}

QList<int> Table::selectedRows() const
{
    QList<int> rows;
    const QModelIndexList selected = selection() ? selection()->selectedRows() : QModelIndexList();
    for (const QModelIndex& index : selected)
        rows.append(index.row());
    return rows;
}

QList<int> Table::selectedColumns() const
{
    QList<int> columns;
    const QModelIndexList selected = selection() ? selection()->selectedColumns() : QModelIndexList();
    for (const QModelIndex& index : selected)
        columns.append(index.column());
    return columns;
}

void Table::forget()
{
    for (const QAccessible::Id id : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(id);
    m_children.clear();
}

/// Asked for every class of the object, from its own upwards.
QAccessibleInterface* tableinterface(const QString& classname, QObject* object)
{
    auto* view = qobject_cast<QTableView*>(object);
    return view && classname == QLatin1String("QTableView") ? new Table(view) : nullptr;
}

} // namespace

QString accessibletext(const QModelIndex& index)
{
    QString shown = index.data(Qt::DisplayRole).toString();
    const QString label = padlabel(index);
    if (label.isEmpty())
        return shown;
    if (show::isvacant(index.data(ItemRole::Id).toString())) {
        // The switch pad reads as one. An emptied pad of the page may read as another pad's number.
        const bool other = qobject_cast<const Controller*>(index.model()) && shown != label;
        return other ? Accessible::tr("%1: %2").arg(label, shown) : label;
    }
    const QString button = index.data(ItemRole::DspName).toString();
    return shown == button ? Accessible::tr("%1: %2").arg(label, button)
                           : Accessible::tr("%1: %2, shown as %3").arg(label, button, shown);
}

void installaccessibility()
{
    static const bool installed = [] {
        QAccessible::installFactory(tableinterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void namepopups(const QWidget* parent)
{
    const auto labels = parent->findChildren<QLabel*>();
    for (const QLabel* label : labels) {
        if (const auto* combo = qobject_cast<const QComboBox*>(label->buddy()))
            combo->view()->setAccessibleName(label->text());
    }
}
