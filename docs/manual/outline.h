#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// An entry of the outline of a PDF.
struct Bookmark
{
    QString title;
    int page; ///< the page that it leads to, from 1
    int y;    ///< where on the page, in points from its lower edge
};

/// The PDF \a pdf with an outline of \a bookmarks, at least one, and with the language \a language ("en"):
/// what QPdfWriter cannot give it. Both follow what is there, which is how the format has a file changed, so
/// no earlier byte moves. Empty when \a pdf is not as QPdfWriter writes it, or a bookmark leads to a page
/// that it lacks.
QByteArray withoutline(const QByteArray& pdf, const QList<Bookmark>& bookmarks, const QByteArray& language);
