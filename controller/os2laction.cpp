#include "os2laction.h"

#include "toolkit.h"

#include <algorithm>

namespace controller {

QString xmlparse(const QString& text)
{
    const QChar* const signs = text.constData();
    QString escaped;
    Size done = 0; // how much of the text stands in there
    const auto put = [&](Size at, Size count, const char* instead) {
        if (done == 0)
            escaped.reserve(text.size() + text.size() / 2);
        escaped.append(signs + done, at - done);
        escaped += QLatin1String(instead);
        done = at + count;
    };
    const auto isblank = [&](Size at) {
        return at >= done && at < text.size() && signs[at] == QLatin1Char(' ');
    };
    // Letters and blanks, which are nearly all of it, lie on either side of these.
    const auto next = [&](Size from) {
        const auto isnear = [](QChar sign) { return sign.unicode() >= u'"' && sign.unicode() <= u'\''; };
        return static_cast<Size>(std::find_if(signs + from, signs + text.size(), isnear) - signs);
    };
    for (Size at = next(0); at < text.size(); at = next(at + 1)) {
        const char16_t sign = signs[at].unicode();
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
