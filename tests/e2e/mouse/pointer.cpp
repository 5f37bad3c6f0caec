#include "pointer.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace {

constexpr int currentScreen = -1;

}

void Pointer::send(MouseButton button, bool down)
{
    m_used = true;
    XTestFakeButtonEvent(m_display, static_cast<unsigned>(button), down ? True : False, CurrentTime);
}

void Pointer::move(QPoint to)
{
    m_used = true;
    XTestFakeMotionEvent(m_display, currentScreen, to.x(), to.y(), CurrentTime);
    XSync(m_display, False);
}

void Pointer::press(MouseButton button)
{
    send(button, true);
    XSync(m_display, False);
}

void Pointer::release(MouseButton button)
{
    send(button, false);
    XSync(m_display, False);
}

void Pointer::click(QPoint at, MouseButton button, int times)
{
    move(at);
    // Sent in one piece: X gives each event the time of its arrival.
    for (int i = 0; i < times; ++i) {
        send(button, true);
        send(button, false);
    }
    XSync(m_display, False);
}
