#include "script.h"

#include <QHash>

#include <utility>

namespace VirtualDj {

namespace {

enum class Sign { Word, Quoted, Question, Colon, And, AndAnd, Open, Close, End };

struct Token
{
    Sign sign = Sign::End;
    QString text;
};

Sign separator(QChar character)
{
    switch (character.unicode()) {
    case '?':
        return Sign::Question;
    case ':':
        return Sign::Colon;
    case '&':
        return Sign::And;
    case '(':
        return Sign::Open;
    case ')':
        return Sign::Close;
    default:
        return Sign::Word;
    }
}

bool isquote(QChar character) { return character == QLatin1Char('\'') || character == QLatin1Char('"'); }

/// The signs "?", ":", "&", "(" and ")" separate everywhere outside quotes, with or without blanks (measured
/// by others). Both kinds of quotes are the same; a quotation ends at the next of its kind, as no escape is
/// documented, and an unclosed one runs to the end (measured by others; end and escape are our assumption).
std::vector<Token> tokens(const QString& text)
{
    std::vector<Token> list;
    decltype(text.size()) at = 0;
    while (at < text.size()) {
        const QChar first = text.at(at);
        if (first.isSpace()) {
            ++at;
        } else if (isquote(first)) {
            const auto close = text.indexOf(first, at + 1);
            const auto end = close < 0 ? text.size() : close;
            list.push_back({Sign::Quoted, text.mid(at + 1, end - at - 1)});
            at = end + 1;
        } else if (separator(first) != Sign::Word) {
            const bool twice = first == QLatin1Char('&') && text.mid(at + 1, 1) == QLatin1String("&");
            list.push_back({twice ? Sign::AndAnd : separator(first), QString()});
            at += twice ? 2 : 1;
        } else {
            const auto begin = at;
            while (at < text.size() && !text.at(at).isSpace() && !isquote(text.at(at)) &&
                   separator(text.at(at)) == Sign::Word)
                ++at;
            list.push_back({Sign::Word, text.mid(begin, at - begin)});
        }
    }
    list.push_back({});
    return list;
}

Verb verbnamed(const QString& name)
{
    static const QHash<QString, Verb> verbs{
        {QStringLiteral("var"), Verb::Var},
        {QStringLiteral("set"), Verb::Set},
        {QStringLiteral("toggle"), Verb::Toggle},
        {QStringLiteral("cycle"), Verb::Cycle},
        {QStringLiteral("param_bigger"), Verb::ParamBigger},
        {QStringLiteral("get_text"), Verb::GetText},
        {QStringLiteral("color"), Verb::Color},
        {QStringLiteral("blink"), Verb::Blink},
        {QStringLiteral("on"), Verb::On},
        {QStringLiteral("off"), Verb::Off},
        {QStringLiteral("nothing"), Verb::Nothing},
        {QStringLiteral("os2l_button"), Verb::Os2lButton},
        {QStringLiteral("os2l_cmd"), Verb::Os2lCommand},
    };
    return verbs.value(name, Verb::Factory);
}

class Parser
{
public:
    explicit Parser(const QString& text) : m_tokens(tokens(text)) {}

    /// What is left behind the last step, such as a ":" that belongs to no "?", is left out (our assumption).
    Script script()
    {
        m_script.chain = chain();
        return std::move(m_script);
    }

private:
    Sign next() const { return m_tokens[m_at].sign; }

    /// Steps joined by "&" (VDJScript documentation). `a & b ? c : d` always does a, b alone is asked, and
    /// each branch takes its whole chain: in `c ? a : b & d` the d belongs to the false branch (measured by
    /// others).
    Chain chain()
    {
        Chain result;
        while (startsstep()) {
            Step step = joined();
            if (next() == Sign::Question) {
                ++m_at;
                step.asks = true;
                step.yes = chain();
                // In `a ? b ? c : d : e` the ":" goes with the nearest "?" that has none (VDJScript
                // documentation).
                if (next() == Sign::Colon) {
                    ++m_at;
                    step.no = chain();
                }
                result.steps.push_back(std::move(step));
                break;
            }
            result.steps.push_back(std::move(step));
            if (next() != Sign::And)
                break;
            ++m_at;
        }
        return result;
    }

    bool startsstep()
    {
        if (next() != Sign::Word && next() != Sign::Quoted && next() != Sign::Open)
            return false;
        if (m_script.statements < maxStatements)
            return true;
        m_script.tooLong = true;
        m_at = m_tokens.size() - 1;
        return false;
    }

    /// `a && b` is true when both are; it binds closer than "?" (our assumption).
    Step joined()
    {
        Step step = term();
        while (next() == Sign::AndAnd) {
            ++m_at;
            if (!startsstep())
                break;
            step.both.push_back(term());
        }
        return step;
    }

    Step term()
    {
        ++m_script.statements;
        Step step;
        if (next() == Sign::Open) {
            ++m_at;
            step.bracketed = true;
            step.brackets = chain();
            if (next() == Sign::Close)
                ++m_at;
            return step;
        }
        // A quotation in the place of a verb is no verb of VirtualDJ's.
        const Token verb = m_tokens[m_at++];
        step.verb = verb.sign == Sign::Word ? verbnamed(verb.text) : Verb::Factory;
        step.text = written(verb);
        for (; next() == Sign::Word || next() == Sign::Quoted; ++m_at) {
            step.arguments.append(m_tokens[m_at].text);
            step.text += QLatin1Char(' ') + written(m_tokens[m_at]);
        }
        return step;
    }

    static QString written(const Token& token)
    {
        return token.sign == Sign::Quoted ? QLatin1Char('\'') + token.text + QLatin1Char('\'') : token.text;
    }

    const std::vector<Token> m_tokens;
    std::size_t m_at = 0;
    Script m_script;
};

void collectconstants(const Step& step, QMap<QString, QSet<int>>* constants)
{
    if (step.verb == Verb::Var && !step.bracketed && step.arguments.size() > 1)
        (*constants)[step.arguments.at(0)].insert(step.arguments.at(1).toInt());
    collectconstants(step.brackets, constants);
    for (const Step& other : step.both)
        collectconstants(other, constants);
    collectconstants(step.yes, constants);
    collectconstants(step.no, constants);
}

} // namespace

Script parse(const QString& text) { return Parser(text).script(); }

void collectconstants(const Chain& chain, QMap<QString, QSet<int>>* constants)
{
    for (const Step& step : chain.steps)
        collectconstants(step, constants);
}

QColor colornamed(const QString& name)
{
    static const QHash<QString, QColor> names{
        {QStringLiteral("red"), QColor(255, 0, 0)},          {QStringLiteral("green"), QColor(0, 255, 0)},
        {QStringLiteral("blue"), QColor(0, 0, 255)},         {QStringLiteral("white"), QColor(255, 255, 255)},
        {QStringLiteral("black"), QColor(0, 0, 0)},          {QStringLiteral("yellow"), QColor(255, 255, 0)},
        {QStringLiteral("cyan"), QColor(0, 255, 255)},       {QStringLiteral("magenta"), QColor(255, 0, 255)},
        {QStringLiteral("gray"), QColor(128, 128, 128)},     {QStringLiteral("orange"), QColor(255, 128, 0)},
        {QStringLiteral("transparent"), QColor(0, 0, 0, 0)},
    };
    if (name.size() == 7 && name.startsWith(QLatin1Char('#')))
        return QColor(name);
    // The dark forms are at half brightness (our assumption; the documentation names them only).
    if (name.startsWith(QLatin1String("dark")) && names.contains(name.mid(4)))
        return dimmed(names.value(name.mid(4)), 50);
    return names.value(name);
}

QColor dimmed(const QColor& color, int percent)
{
    const int part = qBound(0, percent, 100);
    return QColor(color.red() * part / 100, color.green() * part / 100, color.blue() * part / 100,
                  color.alpha());
}

} // namespace VirtualDj
