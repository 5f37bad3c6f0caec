#pragma once

#include "xconnection.h"

#include <QImage>
#include <QRect>
#include <QSize>
#include <QVector>

/// The part of the screen inside \a wanted, cut to the screen; a null image when nothing of it is left.
QImage screenpart(XConnection* display, QRect wanted);

/// The rectangles of one colour in \a image, found in reading order: each grows right from its first pixel,
/// then down as long as whole rows match. Those smaller than \a least, in either direction, are left out.
QVector<QRect> rectangles(const QImage& image, QRgb color, QSize least);
