#pragma once

#include "xconnection.h"

#include <QPoint>

/// The buttons of the mouse, as X counts them.
enum class MouseButton : unsigned { Left = 1, Right = 3 };

/// The mouse of a display. Points are those of the screen; X carries out what it is told in order.
class Pointer
{
public:
    explicit Pointer(XConnection* display) : m_display(display) {}

    /// Moves the mouse there in one go.
    void move(QPoint to);
    void press(MouseButton button = MouseButton::Left);
    void release(MouseButton button = MouseButton::Left);
    /// Moves the mouse there and clicks \a times times. However slow the machine is, the clicks come fast
    /// enough for a double click.
    void click(QPoint at, MouseButton button = MouseButton::Left, int times = 1);
    /// Whether the mouse was ever moved or one of its buttons pressed.
    bool wasused() const { return m_used; }

private:
    void send(MouseButton button, bool down);

    XConnection* m_display;
    bool m_used = false;
};
