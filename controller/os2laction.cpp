#include "os2laction.h"

namespace {

/// \a text without its first piece, cut at \a separator; empty when there is no separator.
QString dropfirst(const QString& text, const QString& separator)
{
    const int position = text.indexOf(separator);
    return position < 0 ? QString() : text.mid(position + separator.size());
}

} // namespace

QString xmlparse(const QString& text)
{
    QString escaped = text;
    escaped.replace(QLatin1String("'"), QLatin1String("&apos;"));
    escaped.replace(QLatin1String("\""), QLatin1String("&quot;"));
    escaped.replace(QLatin1String(" & "), QLatin1String(" &amp; "));
    return escaped;
}

QString removeos2l(const QString& action)
{
    const QString condition = QStringLiteral(" ? ");
    const QString alternative = QStringLiteral(" : ");
    const QString escaped = xmlparse(action);
    if (escaped == QLatin1String("toggle &apos;$os2l&apos;"))
        return QString();
    if (!escaped.startsWith(QLatin1String("var &apos;$os2l&apos;")))
        return action;

    QString rest = dropfirst(action, condition);
    int c = rest.indexOf(alternative);
    int q = rest.indexOf(condition);
    if (q > 0 && q < c) {
        // The test looks at the text before the drop, so one piece more goes than there were conditions
        // ahead: that takes both alternatives of a LED action "os2l_button 'NAME' ? ON : OFF : FACTORY".
        do {
            c = rest.indexOf(alternative);
            q = rest.indexOf(condition);
            rest = dropfirst(rest, alternative);
        } while (q > 0 && q < c);
    }
    c = rest.indexOf(alternative);
    q = rest.indexOf(condition);
    if (c <= 0)
        return QString();
    // An alternative ahead of every condition is the one that OS2L was given; what follows is the factory's.
    return q < 0 || q > c ? dropfirst(rest, alternative) : rest;
}
