// The actions of a mapping: escaping them and freeing them from OS2L, against a second implementation that
// takes every step as it is told.

#include "fuzz.h"
#include "os2laction.h"

#include <QStringList>

namespace {

QString replaced(const QString& text, const QString& before, const QString& after)
{
    return text.split(before).join(after);
}

QString escaped(const QString& text)
{
    const QString apostrophes = replaced(text, "'", "&apos;");
    return replaced(replaced(apostrophes, "\"", "&quot;"), " & ", " &amp; ");
}

/// \a text without what stands ahead of its first \a separator; empty when there is none.
QString dropfirst(const QString& text, const QString& separator)
{
    QStringList parts = text.split(separator);
    parts.removeFirst();
    return parts.join(separator);
}

/// How an action is freed from OS2L, step by step. The loop tests the text from before its drop.
QString literally(const QString& action)
{
    if (escaped(action) == "toggle &apos;$os2l&apos;")
        return QString();
    if (!escaped(action).startsWith("var &apos;$os2l&apos;"))
        return action;
    QString s = dropfirst(action, " ? ");
    auto c = s.indexOf(" : ");
    auto q = s.indexOf(" ? ");
    if (q > 0 && q < c) {
        do {
            c = s.indexOf(" : ");
            q = s.indexOf(" ? ");
            s = dropfirst(s, " : ");
        } while (q > 0 && q < c);
    }
    c = s.indexOf(" : ");
    q = s.indexOf(" ? ");
    if ((c > 0 && q < 0) || (c > 0 && q > 0 && q > c))
        s = dropfirst(s, " : ");
    else if (c <= 0)
        s = QString();
    return s;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString action = QString::fromUtf8(Fuzz::bytes(data, size));
    const QString escapedaction = Fuzz::intime([&] { return controller::xmlparse(action); });
    Fuzz::require(escapedaction == escaped(action), "an action is escaped sign by sign");
    const QString factory = Fuzz::intime([&] { return controller::removeos2l(action); });
    constexpr int shortaction = 2048; // the second implementation takes the square of the length
    if (action.size() <= shortaction)
        Fuzz::require(factory == literally(action), "an action is freed from OS2L step by step");
    // What the program wraps without a condition of its own comes back whole.
    if (!action.isEmpty())
        Fuzz::require(controller::removeos2l("var '$os2l' ? nothing : " + action) == action,
                      "a wrapped action comes back");
    return 0;
}
