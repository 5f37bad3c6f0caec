#include "windows.h"

#include <QByteArray>

#include <cstring>
#include <memory>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

namespace {

/// What the X library hands out, freed as it wants it.
struct FreeX
{
    void operator()(void* memory) const { XFree(memory); }
};
template<class T>
using XOwned = std::unique_ptr<T, FreeX>;

/// One property of a window as bytes; empty when it has none of that type.
QByteArray property(Display* display, Window window, const char* name, Atom type)
{
    Atom actualtype = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* found = nullptr;
    const int result = XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 1024, False,
                                          type, &actualtype, &format, &count, &left, &found);
    const XOwned<unsigned char> value(found);
    if (result != Success || !value)
        return {};
    // The library hands 32-bit items out as longs, whatever a long's size is here.
    const unsigned long size = format == 32 ? sizeof(long) : static_cast<unsigned long>(format / 8);
    return QByteArray(reinterpret_cast<const char*>(value.get()), static_cast<int>(count * size));
}

/// The process that a window names as its owner, or 0.
long owner(Display* display, Window window)
{
    const QByteArray bytes = property(display, window, "_NET_WM_PID", XA_CARDINAL);
    long process = 0;
    if (bytes.size() >= static_cast<int>(sizeof process))
        std::memcpy(&process, bytes.constData(), sizeof process);
    return process;
}

} // namespace

QVector<ScreenWindow> windowsof(XConnection* display, qint64 process)
{
    Window root = 0;
    Window parent = 0;
    Window* found = nullptr;
    unsigned count = 0;
    QVector<ScreenWindow> windows;
    if (XQueryTree(display, DefaultRootWindow(display), &root, &parent, &found, &count) == 0)
        return windows;
    const XOwned<Window> children(found);
    const Atom utf8 = XInternAtom(display, "UTF8_STRING", False);
    for (unsigned i = 0; i < count; ++i) {
        const Window window = found[i];
        XWindowAttributes shape = {};
        if (XGetWindowAttributes(display, window, &shape) == 0 || shape.map_state != IsViewable ||
            owner(display, window) != process)
            continue;
        windows.append({window, QRect(shape.x, shape.y, shape.width, shape.height),
                        QString::fromUtf8(property(display, window, "_NET_WM_NAME", utf8))});
    }
    return windows;
}

void requestclose(XConnection* display, WindowId window)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
    XSync(display, False);
}

void givekeyboard(XConnection* display, WindowId window)
{
    XSetInputFocus(display, window, RevertToParent, CurrentTime);
    XSync(display, False);
}

bool haskeyboard(XConnection* display, WindowId window)
{
    Window focus = 0;
    int revert = 0;
    XGetInputFocus(display, &focus, &revert);
    return focus == window;
}
