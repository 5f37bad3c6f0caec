#pragma once

#include <QStyledItemDelegate>

/// Paints the cells of the controller grid: the Live Button's colour as a swatch with its name beside it,
/// cells out of use in grey. Its view must track the mouse, or hovering shows nothing.
class Mydelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit Mydelegate(QObject* parent = nullptr);

    /// Paints the cell \a index into the rectangle of \a option, with the option's font; leaves the
    /// painter's settings as they were. A cell that reads as nothing is painted black.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};
