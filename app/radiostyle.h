#pragma once

#include <QProxyStyle>

/// Draws the circles of radio buttons for the window's dark ground; all else is left to the desktop's style.
/// The desktop's own circle is made for a light ground, and unselected it cannot be seen here.
class RadioStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// \a parent is the widget that uses the style, which would not own it by itself.
    explicit RadioStyle(QObject* parent);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
};
