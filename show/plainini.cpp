#include "plainini.h"

#include "bounds.h"
#include "toolkit.h"

#include <QString>

#include <algorithm>

namespace show {

namespace {

bool isblank(char sign) { return sign == ' ' || sign == '\t'; }

bool islineend(char sign) { return sign == '\n' || sign == '\r'; }

bool isascii(char sign) { return static_cast<uchar>(sign) < 0x80; }

/// Whether \a sign can stand in the name of a group or key as it is.
bool isplainname(char sign)
{
    return isascii(sign) && !islineend(sign) && sign != '"' && sign != ';' && sign != '=' && sign != '\\';
}

/// The value of a digit of an escape; -1 when \a digit is none.
int digitvalue(char digit, bool hexadecimal)
{
    if (digit >= '0' && digit <= (hexadecimal ? '9' : '7'))
        return digit - '0';
    const int letter = (digit | 0x20) - 'a';
    return hexadecimal && letter >= 0 && letter < 6 ? letter + 10 : -1;
}

QString utf8orlatin1(const QByteArray& run)
{
    // The letter in front keeps Qt from dropping a byte order mark.
    const QByteArray bytes = 'x' + run;
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    return (text.toUtf8() == bytes ? text : QString::fromLatin1(bytes.constData(), bytes.size())).mid(1);
}

/// Goes through an INI file line by line, finding the ends of lines, keys and values where QSettings does.
class PlainIni
{
public:
    explicit PlainIni(const QByteArray& bytes) : m_bytes(bytes)
    {
        m_at = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
        m_result.reserve(bytes.size() + bytes.size() / 8);
    }

    std::optional<QByteArray> result();

private:
    bool nextline();
    Size behindescapedsign(Size at) const;
    void addgroup();
    void addname(const char* begin, const char* end);
    void addvalue(Size from, Size to);
    Size addescape(Size at, Size to);
    void addrun(Size from, Size to);
    void addsign(QChar sign);
    void addnumber(ushort number);

    const QByteArray m_bytes;
    QByteArray m_result;
    Size m_at = 0;
    Size m_start = 0;    ///< of the line
    Size m_end = 0;      ///< of the line
    Size m_equals = -1;  ///< the place of the "=" in the line
    bool m_open = false; ///< whether an octal escape of ours ends the result: a digit would belong to it
};

std::optional<QByteArray> PlainIni::result()
{
    int lines = 0;
    while (nextline()) {
        if (m_bytes.at(m_start) == '[') {
            addgroup();
        } else if (m_equals >= 0) {
            Size keyend = m_equals;
            while (keyend > m_start && isblank(m_bytes.at(keyend - 1)))
                --keyend;
            m_result += '\n';
            addname(m_bytes.constData() + m_start, m_bytes.constData() + keyend);
            m_result += '=';
            addvalue(m_equals + 1, m_end);
        } else {
            continue;
        }
        if (++lines > maxLightShowLines)
            return std::nullopt;
    }
    return m_result;
}

/// Where the text behind the backslash at \a at goes on: two line ends of different kinds are one sign.
Size PlainIni::behindescapedsign(Size at) const
{
    if (at + 1 >= m_bytes.size())
        return m_bytes.size();
    const char sign = m_bytes.at(at + 1);
    const bool two = at + 2 < m_bytes.size() && islineend(sign) && islineend(m_bytes.at(at + 2)) &&
                     sign != m_bytes.at(at + 2);
    return at + (two ? 3 : 2);
}

/// Finds the next line that is no comment. Line ends in quotes and behind a backslash do not end it, a
/// semicolon does.
bool PlainIni::nextline()
{
    const Size size = m_bytes.size();
    const auto skipspace = [&] {
        while (m_at < size && (isblank(m_bytes.at(m_at)) || islineend(m_bytes.at(m_at))))
            ++m_at;
    };
    skipspace();
    while (m_at < size && m_bytes.at(m_at) == ';') {
        while (m_at < size && !islineend(m_bytes.at(m_at)))
            ++m_at;
        skipspace();
    }
    m_start = m_at;
    m_equals = -1;
    bool quoted = false;
    for (; m_at < size; ++m_at) {
        const char sign = m_bytes.at(m_at);
        if (!quoted && (islineend(sign) || sign == ';'))
            break;
        if (sign == '"')
            quoted = !quoted;
        else if (sign == '\\')
            m_at = behindescapedsign(m_at) - 1;
        else if (sign == '=' && !quoted && m_equals < 0)
            m_equals = m_at;
    }
    m_end = m_at;
    return m_end > m_start;
}

/// Adds the group of the line, which may lack its bracket at the end.
void PlainIni::addgroup()
{
    const QByteArray line = m_bytes.mid(m_start + 1, m_end - m_start - 1);
    const Size close = line.indexOf(']');
    m_result += "\n[";
    const QByteArray name = (close < 0 ? line : line.left(close)).trimmed();
    addname(name.cbegin(), name.cend());
    m_result += ']';
}

/// Adds the name of a group or key. QSettings reads a backslash in it as "/", "%" and two digits as any sign,
/// and other bytes as Latin-1.
void PlainIni::addname(const char* begin, const char* end)
{
    if (std::all_of(begin, end, isplainname)) {
        m_result.append(begin, static_cast<int>(end - begin));
        return;
    }
    for (const char* sign = begin; sign < end; ++sign) {
        if (*sign == '\\')
            m_result += '/';
        else if (isplainname(*sign))
            m_result += *sign;
        else
            m_result += '%' + QByteArray(1, *sign).toHex();
    }
}

void PlainIni::addvalue(Size from, Size to)
{
    m_open = false;
    bool quoted = false;
    bool blanksend = true; // blanks at the end belong to the value when it has quotes behind its last comma
    bool comma = false;
    Size least = m_result.size();
    for (Size at = from; at < to;) {
        const char sign = m_bytes.at(at);
        if (sign == '\\') {
            at = addescape(at, to);
            least = m_result.size();
        } else if (sign == '"' || (sign == ',' && quoted)) {
            quoted = quoted != (sign == '"');
            blanksend = false;
            m_open = false;
            m_result += sign;
            ++at;
        } else if (sign == ',') {
            addnumber(',');
            comma = true;
            blanksend = true;
            least = m_result.size();
            ++at;
        } else {
            const auto begin = m_bytes.cbegin();
            const auto end = std::find_if(
                begin + at, begin + to, [](char next) { return next == '\\' || next == '"' || next == ','; });
            const Size runend = static_cast<Size>(end - begin);
            addrun(at, runend);
            at = runend;
        }
    }
    while (comma && blanksend && m_result.size() > least && isblank(m_result.back()))
        m_result.chop(1);
}

/// Adds the escape at \a at and tells where the value goes on. Numbers keep their lowest 16 bits.
Size PlainIni::addescape(Size at, Size to)
{
    m_open = false;
    const char sign = at + 1 < to ? m_bytes.at(at + 1) : '\0';
    const bool hexadecimal = sign == 'x';
    const Size first = at + (hexadecimal ? 2 : 1);
    uint number = 0; // wraps above its lowest 16 bits only
    Size digits = first;
    for (int value; digits < to && (value = digitvalue(m_bytes.at(digits), hexadecimal)) >= 0; ++digits)
        number = number * (hexadecimal ? 16 : 8) + static_cast<uint>(value);
    if (digits > first) {
        // What follows is no octal digit: it would have belonged to this number.
        const auto lowest = static_cast<ushort>(number);
        addnumber(lowest == '@' ? atMark.unicode() : lowest);
        return digits;
    }
    const Size end = behindescapedsign(at);
    // A sign that means nothing is passed over. A line end would become one with the end of our line.
    m_result += isascii(sign) && !islineend(sign) ? m_bytes.mid(at, end - at) : QByteArrayLiteral("\\z");
    return end;
}

/// Adds a run of plain characters.
void PlainIni::addrun(Size from, Size to)
{
    const auto begin = m_bytes.cbegin();
    if (std::all_of(begin + from, begin + to, [](char sign) { return isascii(sign) && sign != '@'; })) {
        for (; from < to && m_open; ++from)
            addsign(QLatin1Char(m_bytes.at(from)));
        m_result.append(m_bytes.constData() + from, to - from);
        return;
    }
    const QString text = utf8orlatin1(m_bytes.mid(from, to - from));
    for (const QChar sign : text)
        addsign(sign == QLatin1Char('@') ? atMark : sign);
}

void PlainIni::addsign(QChar sign)
{
    const ushort number = sign.unicode();
    if (number >= 0x80 || (m_open && number >= '0' && number <= '7')) {
        addnumber(number);
    } else {
        m_result += static_cast<char>(number);
        m_open = false;
    }
}

void PlainIni::addnumber(ushort number)
{
    m_result += '\\' + QByteArray::number(number, 8);
    m_open = true;
}

} // namespace

std::optional<QByteArray> plainini(const QByteArray& bytes) { return PlainIni(bytes).result(); }

} // namespace show
