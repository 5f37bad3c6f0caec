#pragma once

#include "bounds.h"

#include <QString>

/// The first \a most characters (at least 1) of \a text, and no half one at their end.
inline QString beginning(const QString& text, int most)
{
    if (text.size() <= most)
        return text;
    return text.left(text.at(most - 1).isHighSurrogate() ? most - 1 : most);
}

/// As much of \a name as is drawn.
inline QString shownname(const QString& name) { return beginning(name, maxShownLength); }
