#include "pixels.h"

#include <algorithm>
#include <memory>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

/// The pixels of one colour that no rectangle holds yet.
class UnseenPixels
{
public:
    UnseenPixels(const QImage& image, QRgb color)
        : m_image(image), m_color(color), m_seen(image.size(), QImage::Format_Grayscale8)
    {
        m_seen.fill(0);
    }

    bool has(int x, int y) const { return m_image.pixel(x, y) == m_color && m_seen.constScanLine(y)[x] == 0; }

    /// The rectangle whose left top corner is (x, y); its pixels are seen from now on.
    QRect take(int x, int y)
    {
        int right = x + 1;
        while (right < m_image.width() && has(right, y))
            ++right;
        int bottom = y + 1;
        while (bottom < m_image.height() && hasrow(x, right, bottom))
            ++bottom;
        for (int row = y; row < bottom; ++row)
            std::fill(m_seen.scanLine(row) + x, m_seen.scanLine(row) + right, uchar(1));
        return {x, y, right - x, bottom - y};
    }

private:
    bool hasrow(int left, int right, int y) const
    {
        for (int x = left; x < right; ++x)
            if (!has(x, y))
                return false;
        return true;
    }

    const QImage& m_image;
    QRgb m_color;
    QImage m_seen;
};

} // namespace

QImage screenpart(XConnection* display, QRect wanted)
{
    const int screen = DefaultScreen(display);
    const QRect part =
        wanted.intersected({0, 0, DisplayWidth(display, screen), DisplayHeight(display, screen)});
    if (part.isEmpty())
        return {};
    const auto destroy = [](XImage* image) { XDestroyImage(image); };
    const std::unique_ptr<XImage, decltype(destroy)> pixels(
        XGetImage(display, DefaultRootWindow(display), part.x(), part.y(),
                  static_cast<unsigned>(part.width()), static_cast<unsigned>(part.height()), AllPlanes,
                  ZPixmap),
        destroy);
    if (!pixels || pixels->bits_per_pixel != 32)
        return {};
    return QImage(reinterpret_cast<const uchar*>(pixels->data), pixels->width, pixels->height,
                  pixels->bytes_per_line, QImage::Format_RGB32)
        .copy();
}

QVector<QRect> rectangles(const QImage& image, QRgb color, QSize least)
{
    QVector<QRect> found;
    UnseenPixels pixels(image, color);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!pixels.has(x, y))
                continue;
            const QRect rect = pixels.take(x, y);
            if (rect.width() >= least.width() && rect.height() >= least.height())
                found.append(rect);
        }
    }
    return found;
}
