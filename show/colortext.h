#pragma once

#include <QColor>
#include <QString>

/// The colour that \a text names: "#" and hexadecimal digits, or a standard colour name such as "green".
/// Any other text gives an invalid colour, silently (Qt itself would print a warning at every repaint).
QColor colorfromtext(const QString& text);
