#pragma once

#include "recordmodel.h"

#include <QList>

/// The Live Buttons list: one column, one row per Live Button record, a drag source only.
class MyModel : public RecordModel
{
    Q_OBJECT

public:
    explicit MyModel(QObject* parent = nullptr);
    /// Starts with a copy of \a list.
    explicit MyModel(const QList<Record>& list, QObject* parent = nullptr);

    /// Eleven fields per Live Button; the caller owns the result.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// A copy of all records.
    QList<Record> getList() const;
    /// The title at \a index; empty outside the list.
    QString get_name(const QModelIndex& index) const;

signals:
    /// Asks to take the Live Button of list row \a index off every pad. Nothing in the list emits it.
    void ItemUnchecked(int index);

protected:
    Record newrecord() const override;
    QVariant tooltip(const QModelIndex& index) const override;
    /// Reads one position later than `mimeData` writes. The view refuses drops, so only program code comes
    /// here.
    bool drop(const show::Payload& payload, const QModelIndex& target) override;
};

namespace show {

/// Fills the emptied \a list with one row per record of \a buttons, in their order. A Live Button's shown
/// name starts as its title; none is marked as used.
void filllist(MyModel* list, const QList<Record>& buttons);

} // namespace show
