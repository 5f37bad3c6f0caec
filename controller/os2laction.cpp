#include "os2laction.h"

#include "toolkit.h"

namespace controller {

QString xmlparse(const QString& text)
{
    const QChar* const signs = text.constData();
    QString escaped;
    int done = 0; // how much of the text stands in there
    const auto put = [&](int at, int count, const char* instead) {
        if (done == 0)
            escaped.reserve(text.size() + text.size() / 4);
        escaped.append(signs + done, at - done);
        escaped += QLatin1String(instead);
        done = at + count;
    };
    const auto isblank = [&](int at) {
        return at >= done && at < text.size() && signs[at] == QLatin1Char(' ');
    };
    for (int at = 0; at < text.size(); ++at) {
        const char16_t sign = signs[at].unicode();
        // Letters are ruled out by one comparison.
        if (sign > u'\'')
            continue;
        if (sign == u'\'')
            put(at, 1, "&apos;");
        else if (sign == u'"')
            put(at, 1, "&quot;");
        else if (sign == u'&' && isblank(at - 1) && isblank(at + 1))
            put(at, 2, "&amp; ");
    }
    return done == 0 ? text : escaped.append(signs + done, text.size() - done);
}

QString removeos2l(const QString& action)
{
    // Its beginning tells; an action may be long, and few are wrapped.
    const QString beginning = action.left(32);
    if (!beginning.contains(QLatin1String("$os2l")))
        return action;
    const QString escaped = xmlparse(beginning);
    if (escaped == QLatin1String("toggle &apos;$os2l&apos;"))
        return QString();
    if (!escaped.startsWith(QLatin1String("var &apos;$os2l&apos;")))
        return action;

    const QString condition = QStringLiteral(" ? ");
    const QString alternative = QStringLiteral(" : ");
    // The pieces are dropped by moving on in the text, not by cutting it: an action may be megabytes long.
    Size start = 0;
    Size c = -1;
    Size q = -1;
    const auto search = [&] {
        c = action.indexOf(alternative, start);
        q = action.indexOf(condition, start);
        return q > start && q < c;
    };
    const auto behind = [&action](Size separator) { return separator < 0 ? action.size() : separator + 3; };

    start = behind(action.indexOf(condition));
    if (search()) {
        // The test looks at the text before the drop, so one piece more goes than there were conditions
        // ahead: that takes both alternatives of a LED action "os2l_button 'NAME' ? ON : OFF : FACTORY".
        bool ahead = true;
        while (ahead) {
            ahead = search();
            start = behind(c);
        }
        search();
    }
    if (c <= start)
        return QString();
    // An alternative ahead of every condition is the one that OS2L was given; what follows is the factory's.
    return action.mid(q < 0 || q > c ? behind(c) : start);
}

} // namespace controller
