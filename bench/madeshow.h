#pragma once

#include <QByteArray>
#include <QString>

/// The number of Live pages that a made show spreads its Live Buttons over.
constexpr int madePages = 8;

/// The bytes of a `live.ini` with \a buttons Live Buttons (a multiple of madePages), made as the lighting
/// programs write them: four keys per page; nine per Live Button; titles with commas, quotes and letters
/// outside ASCII, some as UTF-8 bytes and some escaped.
QByteArray madeshow(int buttons);

/// Writes that show to the file \a path, or ends the program.
void storeshow(const QString& path, int buttons);
