// lumipad_screen: the eyes of the scripts that drive the real window with the mouse. xdotool moves the mouse
// and types; this program tells what is on the X display named by DISPLAY.
//
//   lumipad_screen save FILE.png [X Y W H]     a picture of the screen, or of a part of it
//   lumipad_screen color X Y                   prints the colour of one pixel as #rrggbb
//   lumipad_screen find X Y W H #rrggbb MINW MINH
//                                              prints "x y w h" of every rectangle filled with the colour, in
//                                              reading order
//   lumipad_screen windows PID                 prints "id x y w h title" of the visible windows of one
//   process lumipad_screen close WINDOW                asks a window to close, as a click on its close box
//   does
//
// Coordinates are those of the screen. It ends with 0, or with 1 and a sentence on the error output.

#include <QColor>
#include <QFile>
#include <QImage>
#include <QStringList>
#include <QTextStream>
#include <QVector>

#include <algorithm>
#include <cstring>

// After Qt: the X headers define everyday words (None, Bool, Status …) as macros.
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

/// Windows come and go while they are being listed; one that has just gone must not end the program, which is
/// what the X library does with errors by default.
int ignoreError(Display* /*display*/, XErrorEvent* /*error*/) { return 0; }

/// The part of the screen inside `wanted`, cut to the screen; a null image when nothing of it is left.
QImage grab(Display* display, QRect wanted)
{
    const int screen = DefaultScreen(display);
    const QRect part =
        wanted.intersected({0, 0, DisplayWidth(display, screen), DisplayHeight(display, screen)});
    if (part.isEmpty())
        return {};
    XImage* pixels = XGetImage(display, DefaultRootWindow(display), part.x(), part.y(),
                               static_cast<unsigned>(part.width()), static_cast<unsigned>(part.height()),
                               AllPlanes, ZPixmap);
    if (pixels == nullptr)
        return {};
    QImage image;
    if (pixels->bits_per_pixel == 32)
        image = QImage(reinterpret_cast<const uchar*>(pixels->data), pixels->width, pixels->height,
                       pixels->bytes_per_line, QImage::Format_RGB32)
                    .copy();
    XDestroyImage(pixels);
    return image;
}

/// The rectangles of one colour, found in reading order: each grows right from its first pixel, then down as
/// long as whole rows match. Rectangles smaller than `least` are left out.
QVector<QRect> rectangles(const QImage& image, QRgb color, QSize least)
{
    QVector<QRect> found;
    QImage seen(image.size(), QImage::Format_Grayscale8);
    seen.fill(0);
    const auto matches = [&](int x, int y) {
        return image.pixel(x, y) == color && seen.constScanLine(y)[x] == 0;
    };
    const auto rowMatches = [&](int left, int right, int y) {
        for (int x = left; x < right; ++x)
            if (!matches(x, y))
                return false;
        return true;
    };
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!matches(x, y))
                continue;
            int right = x + 1;
            while (right < image.width() && matches(right, y))
                ++right;
            int bottom = y + 1;
            while (bottom < image.height() && rowMatches(x, right, bottom))
                ++bottom;
            for (int row = y; row < bottom; ++row)
                std::fill(seen.scanLine(row) + x, seen.scanLine(row) + right, uchar(1));
            const QRect rect(x, y, right - x, bottom - y);
            if (rect.width() >= least.width() && rect.height() >= least.height())
                found.append(rect);
        }
    }
    return found;
}

/// One property of a window as bytes, or an empty array when it has none of that type.
QByteArray property(Display* display, Window window, const char* name, Atom type)
{
    Atom actualType = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* value = nullptr;
    QByteArray bytes;
    if (XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 1024, False, type,
                           &actualType, &format, &count, &left, &value) == Success &&
        value != nullptr) {
        // The library hands 32-bit items out as longs, whatever a long's size is here.
        const unsigned long size = format == 32 ? sizeof(long) : static_cast<unsigned long>(format / 8);
        bytes = QByteArray(reinterpret_cast<const char*>(value), static_cast<int>(count * size));
    }
    if (value != nullptr)
        XFree(value);
    return bytes;
}

/// The process that a window names as its owner, or 0.
long owner(Display* display, Window window)
{
    const QByteArray bytes = property(display, window, "_NET_WM_PID", XA_CARDINAL);
    long pid = 0;
    if (bytes.size() >= static_cast<int>(sizeof pid))
        std::memcpy(&pid, bytes.constData(), sizeof pid);
    return pid;
}

/// One line per visible window of the process, bottom one first. Without a window manager every window that
/// the process shows is a child of the root window, drag pictures and popups included.
void listWindows(Display* display, long pid, QTextStream& out)
{
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count) == 0)
        return;
    for (unsigned i = 0; i < count; ++i) {
        XWindowAttributes shape = {};
        if (XGetWindowAttributes(display, children[i], &shape) == 0 || shape.map_state != IsViewable ||
            owner(display, children[i]) != pid)
            continue;
        const QByteArray title =
            property(display, children[i], "_NET_WM_NAME", XInternAtom(display, "UTF8_STRING", False));
        out << children[i] << ' ' << shape.x << ' ' << shape.y << ' ' << shape.width << ' ' << shape.height
            << ' ' << QString::fromUtf8(title) << '\n';
    }
    if (children != nullptr)
        XFree(children);
}

/// Sends the request that a window manager sends when its close box is clicked.
void requestClose(Display* display, Window window)
{
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
}

/// Carries out one command line; the returned sentence is empty when all went well.
QString run(Display* display, const QStringList& words, QTextStream& out)
{
    const QString command = words.value(1);
    const auto number = [&words](int at) { return words.value(at).toInt(); };
    if (command == QLatin1String("save") && (words.size() == 3 || words.size() == 7)) {
        const int screen = DefaultScreen(display);
        const QRect whole(0, 0, DisplayWidth(display, screen), DisplayHeight(display, screen));
        const QRect part(number(3), number(4), number(5), number(6));
        const QImage image = grab(display, words.size() == 3 ? whole : part);
        return image.save(words.at(2), "PNG") ? QString()
                                              : QStringLiteral("cannot save the picture %1").arg(words.at(2));
    }
    if (command == QLatin1String("color") && words.size() == 4) {
        const QImage image = grab(display, {number(2), number(3), 1, 1});
        if (image.isNull())
            return QStringLiteral("cannot read the pixel %1, %2").arg(words.at(2), words.at(3));
        out << QColor(image.pixel(0, 0)).name() << '\n';
        return {};
    }
    if (command == QLatin1String("find") && words.size() == 9) {
        const QRect area(number(2), number(3), number(4), number(5));
        const QImage image = grab(display, area);
        const QPoint corner(std::max(area.x(), 0), std::max(area.y(), 0));
        const QVector<QRect> found = rectangles(image, QColor(words.at(6)).rgb(), {number(7), number(8)});
        for (const QRect& rect : found)
            out << corner.x() + rect.x() << ' ' << corner.y() + rect.y() << ' ' << rect.width() << ' '
                << rect.height() << '\n';
        return {};
    }
    if (command == QLatin1String("windows") && words.size() == 3) {
        listWindows(display, words.at(2).toLong(), out);
        return {};
    }
    if (command == QLatin1String("close") && words.size() == 3) {
        requestClose(display, words.at(2).toULong());
        return {};
    }
    return QStringLiteral("unknown command line; the first lines of screen.cpp list the commands");
}

} // namespace

int main(int argc, char** argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i)
        words.append(QFile::decodeName(argv[i]));
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    QTextStream err(stderr);

    Display* display = XOpenDisplay(nullptr);
    if (display == nullptr) {
        err << "lumipad_screen: no X display can be opened; DISPLAY is \"" << qEnvironmentVariable("DISPLAY")
            << "\".\n";
        return 1;
    }
    XSetErrorHandler(ignoreError);
    const QString trouble = run(display, words, out);
    XCloseDisplay(display);
    if (trouble.isEmpty())
        return 0;
    err << "lumipad_screen: " << trouble << ".\n";
    return 1;
}
