#include "colortext.h"

QColor colorfromtext(const QString& text) { return QColor::isValidColor(text) ? QColor(text) : QColor(); }
