#pragma once

#include <QProxyStyle>

/// Draws the separators of a menu whole; all else is left to the desktop's style. At scales such as 1.25 half
/// of the desktop's own line can lie outside of the separator, which is cut off, and the other half on no
/// pixel at all.
class MenuStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// \a parent is the menu that uses the style, which would not own it by itself.
    explicit MenuStyle(QObject* parent);

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
};
