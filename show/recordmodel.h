#pragma once

#include "record.h"

#include <QAbstractTableModel>
#include <QList>
#include <QVector>
#include <functional>

namespace show {
struct Payload;
}

/// An item role that a model keeps under a key of its records.
struct RecordRole
{
    enum Kind {
        Text,  ///< read and stored as text
        Color, ///< read as the QColor that the text names
        Mark ///< read as Qt::Checked for "1", else Qt::Unchecked; stored as "0" for the number 0, else as "1"
    };

    int role;
    QString key;
    Kind kind = Text;
};

/// What the three models have in common: a table of records whose item roles are kept under keys, and which
/// are exchanged by drag and drop in the one payload (see payload.h). `setData` emits no `dataChanged`; a
/// view repaints on `recordsChanged`.
class RecordModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// The same for every row, whatever the rows hold: cells that a row lacks read as nothing and take
    /// nothing.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Invalid for an index without a record of this model, and for roles that the model does not keep. The
    /// background is always white; of a long text only the beginning is shown.
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Stores \a value as text; false, with nothing changed, for an index without a record and for roles that
    /// the model does not keep. Setting the background is accepted and stores nothing.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// "Color" and "Name" for the first two columns, shown nowhere: every view hides its headers.
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// The two formats of the payload.
    QStringList mimeTypes() const override;
    /// Puts the first item of the payload \a data into the record at \a parent; \a row and \a column are not
    /// used. The ignore action does nothing and gives true. False, with nothing changed, for a payload that
    /// is damaged or too short for this model, and for a target without a record.
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;
    Qt::DropActions supportedDropActions() const override;
    /// Copy alone. With Shift held a drag would otherwise end as a move, after which the view itself empties
    /// the source, although the drop has already moved or swapped the pads: work would be lost.
    Qt::DropActions supportedDragActions() const override;
    /// Puts \a count rows of new records at the top whatever \a row says, and announces them at \a row, or at
    /// the nearest row that the model has. False, with nothing changed, for a count below 1.
    bool insertRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;
    /// Removes \a count rows at \a row, as far as they exist. False for a negative row or count.
    bool removeRows(int row, int count, const QModelIndex& parent = QModelIndex()) override;

    /// A copy of all records, row by row.
    QList<QList<Record>> rows() const;
    /// Replaces all records. Views keep selection and current cell unless the number of rows changes.
    void setrows(const QList<QList<Record>>& rows);

    /// Calls \a before and \a after around every change that comes the way a view makes it: a drop with all
    /// that its signals bring about, and a text that is set under the edit role. Calls, not signals: a change
    /// of one value is silent to all that listen to a model.
    void watchchanges(const std::function<void()>& before, const std::function<void()>& after);

signals:
    /// Something that a view shows has changed. Comes once for all that changed since the event loop last
    /// ran.
    void recordsChanged();

protected:
    using Rows = QList<QList<Record>>;

    /// A model of \a columns columns that starts with \a rows and keeps \a roles. Its drops need the first \a
    /// fields fields of a payload.
    RecordModel(int columns, const QVector<RecordRole>& roles, int fields, const Rows& rows, QObject* parent);

    /// What a new row holds in every column.
    virtual Record newrecord() const = 0;
    /// Takes \a count existing rows at \a row away, which the model announces.
    virtual void takeaway(int row, int count);
    /// The tool tip of an existing record; invalid for none.
    virtual QVariant tooltip(const QModelIndex& index) const = 0;
    /// What is stored of \a text under \a role; the text itself unless a model has a rule.
    virtual QString accepted(const QModelIndex& index, int role, const QString& text) const;
    /// Puts \a payload into the existing record \a target; false, with nothing changed, when it is refused.
    virtual bool drop(const show::Payload& payload, const QModelIndex& target) = 0;

    bool hasrecord(int row, int column) const;
    bool contains(const QModelIndex& index) const;
    /// The record at \a index; null for an index without one.
    const Record* recordat(const QModelIndex& index) const;
    /// Sets those keys of an existing record that \a values has.
    void overwrite(int row, int column, const Record& values);
    /// Lets `recordsChanged` follow.
    void touch();

    Rows m_rows;

private:
    class WatchedChange;

    const RecordRole* keptrole(int role) const;
    /// Emits what `touch` has asked for.
    Q_INVOKABLE void announce();

    int m_columns;
    QVector<RecordRole> m_roles;
    int m_fields;
    bool m_touched = false;
    std::function<void()> m_before = [] {};
    std::function<void()> m_after = [] {};
};
