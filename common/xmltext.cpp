#include "xmltext.h"

#include "bounds.h"
#include "toolkit.h"

#include <QRegularExpression>

#include <algorithm>
#include <optional>

namespace {

/// The characters that stand for the control characters: as many as these, and never to be used in texts.
constexpr ushort firststandin = 0xFDD0;
constexpr ushort controls = 32;

/// The encoding that the XML declaration at the start of \a text names; empty when it names none.
QString declaredencoding(const QString& text)
{
    static const QRegularExpression declaration(
        QStringLiteral("^<\\?xml[^>]*?encoding[^>'\"]*['\"]([^>'\"]*)[^>]*>"));
    // No pattern matches in a text that holds half a pair.
    QString whole = text;
    for (QChar& sign : whole) {
        if (sign.isSurrogate())
            sign = QChar::ReplacementCharacter;
    }
    return declaration.match(whole).captured(1);
}

/// Whether \a name is that of an encoding that is read beside UTF-16. In all of them every sign of XML is its
/// ASCII byte.
bool isplain(const QString& name)
{
    static const QRegularExpression names(
        QStringLiteral("^(UTF-8|US-ASCII|ISO-8859-\\d{1,2}|windows-125\\d)$"));
    return names.match(name).hasMatch();
}

/// The text of \a xml; nothing when its encoding is not read.
std::optional<QString> decodedxml(const QByteArray& xml)
{
    const bool wide = xml.startsWith("\xFE\xFF") || xml.startsWith("\xFF\xFE");
    const QByteArray start = xml.left(4);
    // Without a byte order mark, or with one of UTF-32
    if ((!wide && start.contains('\0')) || start == QByteArray("\xFF\xFE\0\0", 4))
        return std::nullopt;
    const QByteArray assumed = wide ? "UTF-16" : "UTF-8";
    // A declaration is looked for in the first kilobyte only, as parsers do.
    const QString declared = declaredencoding(Decoder(assumed).decoded(xml.left(1024)));
    if (declared.isEmpty())
        return Decoder(assumed).decoded(xml);
    Decoder decoder(declared.toLatin1());
    const QString name = decoder.name();
    if (name != QLatin1String(assumed) && !isplain(name))
        return std::nullopt;
    return decoder.decoded(xml);
}

/// One walk over the text of a document. It reads signs the way a parser does, so that nothing is hidden from
/// it in quotes, comments, CDATA or processing instructions. At what no parser accepts it may be wrong: a
/// parser reads nothing behind that.
class Walk
{
public:
    explicit Walk(const QString& text) : m_text(text) {}

    XmlRefusal refusal();

    /// The text with its attribute values made safe, as far as it was walked.
    QString safetext() const { return m_copied == 0 ? m_text : m_safe + m_text.mid(m_copied); }

private:
    bool starts(QLatin1String sign) const { return QStringView(m_text).mid(m_at, sign.size()) == sign; }
    void skipbehind(const QString& sign, Size from);
    void skipquotes();
    void declaration();
    XmlRefusal markup();
    XmlRefusal doctype();
    XmlRefusal tag();
    void makesafe(Size start, Size end);
    void replace(Size at, Size count, const QString& instead);

    const QString m_text;
    QString m_safe;
    Size m_copied = 0; ///< how much of the text stands in m_safe
    Size m_at = 0;
    int m_depth = 0;
    int m_parts = 0;
};

/// Goes behind the next \a sign, to be found \a from signs behind the place.
void Walk::skipbehind(const QString& sign, Size from)
{
    const Size found = m_text.indexOf(sign, m_at + from);
    m_at = found < 0 ? m_text.size() : found + sign.size();
}

/// Goes behind the quoted text that begins at the place.
void Walk::skipquotes()
{
    const Size found = m_text.indexOf(m_text.at(m_at), m_at + 1);
    m_at = found < 0 ? m_text.size() : found + 1;
}

XmlRefusal Walk::refusal()
{
    declaration();
    XmlRefusal refusal = XmlRefusal::None;
    while (m_at < m_text.size() && refusal == XmlRefusal::None) {
        const QChar sign = m_text.at(m_at);
        if (sign == QLatin1Char('<')) {
            refusal = markup();
        } else {
            // A reference in a text is a part of its own.
            m_parts += sign == QLatin1Char('&') ? 1 : 0;
            ++m_at;
        }
        if (m_parts > maxXmlParts)
            return XmlRefusal::Parts;
    }
    return refusal;
}

/// The XML declaration at the start, which has quotes other than a processing instruction.
void Walk::declaration()
{
    if (!starts(QLatin1String("<?xml")) || m_text.size() < 6 || !m_text.at(5).isSpace())
        return;
    while (m_at < m_text.size() && !starts(QLatin1String("?>"))) {
        if (m_text.at(m_at) == QLatin1Char('"') || m_text.at(m_at) == QLatin1Char('\''))
            skipquotes();
        else
            ++m_at;
    }
}

/// Anything that begins with "<".
XmlRefusal Walk::markup()
{
    const QChar next = m_at + 1 < m_text.size() ? m_text.at(m_at + 1) : QChar();
    if (next == QLatin1Char('/')) {
        --m_depth;
        m_at += 2;
        return XmlRefusal::None;
    }
    ++m_parts;
    if (next != QLatin1Char('!') && next != QLatin1Char('?'))
        return tag();
    if (starts(QLatin1String("<!--"))) {
        skipbehind(QStringLiteral("-->"), 4);
    } else if (starts(QLatin1String("<![CDATA["))) {
        skipbehind(QStringLiteral("]]>"), 9);
    } else if (starts(QLatin1String("<?"))) {
        skipbehind(QStringLiteral("?>"), 2);
    } else if (starts(QLatin1String("<!ENTITY"))) {
        return XmlRefusal::Entities;
    } else if (starts(QLatin1String("<!ATTLIST"))) {
        return XmlRefusal::DefaultAttributes;
    } else if (starts(QLatin1String("<!DOCTYPE"))) {
        return doctype();
    } else {
        return tag();
    }
    return XmlRefusal::None;
}

/// A document type: the declarations in its brackets, up to the ">" behind them.
XmlRefusal Walk::doctype()
{
    bool subset = false;
    int depth = 0;
    m_at += 9;
    while (m_at < m_text.size() && m_parts <= maxXmlParts) {
        const char sign = m_text.at(m_at).toLatin1();
        if (sign == '"' || sign == '\'') {
            skipquotes();
        } else if (sign == '<' && (starts(QLatin1String("<!--")) || starts(QLatin1String("<?")) ||
                                   starts(QLatin1String("<!ENTITY")) || starts(QLatin1String("<!ATTLIST")))) {
            const XmlRefusal refusal = markup();
            if (refusal != XmlRefusal::None)
                return refusal;
        } else {
            ++m_at;
            m_parts += sign == '<' || sign == '%' ? 1 : 0;
            depth += sign == '(' ? 1 : sign == ')' ? -1 : 0;
            if (depth > maxXmlDepth)
                return XmlRefusal::Nesting;
            subset = sign == '[' || (subset && sign != ']');
            if (sign == '>' && !subset)
                break;
        }
    }
    return XmlRefusal::None;
}

/// A start tag or empty element.
XmlRefusal Walk::tag()
{
    int attributes = 0;
    bool assigned = false;
    for (++m_at; m_at < m_text.size();) {
        const char16_t sign = m_text.at(m_at).unicode();
        if (sign == u'>')
            break;
        if (sign != u'"' && sign != u'\'') {
            assigned = assigned || sign == u'=';
            ++m_at;
            continue;
        }
        if (!assigned) {
            // An error to every parser, which reads no further. A name with a quote makes one in a project;
            // all quotes behind it would be taken for values of this tag.
            m_at = m_text.size();
            return XmlRefusal::None;
        }
        assigned = false;
        if (++attributes > maxXmlAttributes)
            return XmlRefusal::Attributes;
        const Size start = m_at;
        skipquotes();
        makesafe(start, m_at);
    }
    m_parts += attributes;
    if (m_at < m_text.size() && m_text.at(m_at - 1) != QLatin1Char('/'))
        ++m_depth;
    ++m_at;
    return m_depth > maxXmlDepth ? XmlRefusal::Nesting : XmlRefusal::None;
}

/// Puts character references for the tabs and line breaks of the quoted value from \a start to \a end, where
/// needed what stands for them for other control characters, and plain apostrophes for references to them
/// between double quotes: the actions of a mapping are full of these, and parsers take long over a reference.
void Walk::makesafe(Size start, Size end)
{
    const QChar* const signs = m_text.constData();
    const bool plain = m_text.at(start) == QLatin1Char('"');
    const auto next = [&](Size from) {
        const auto iscaught = [](QChar sign) {
            return sign.unicode() < controls || sign == QLatin1Char('&');
        };
        return static_cast<Size>(std::find_if(signs + from, signs + end, iscaught) - signs);
    };
    for (Size at = next(start); at < end; at = next(at + 1)) {
        const QChar sign = signs[at];
        if (sign == QLatin1Char('&') && plain && QStringView(m_text).mid(at, 6) == QStringView(u"&apos;"))
            replace(at, 6, QStringLiteral("'"));
        else if (sign == QLatin1Char('\t'))
            replace(at, 1, QStringLiteral("&#9;"));
        else if (sign == QLatin1Char('\n'))
            replace(at, 1, QStringLiteral("&#10;"));
        else if (sign == QLatin1Char('\r'))
            replace(at, 1, QStringLiteral("&#13;"));
        else if (domEndsAtControls && sign.unicode() < controls)
            replace(at, 1, QString(QChar(firststandin + sign.unicode())));
    }
}

/// Has \a instead stand for the \a count signs at \a at.
void Walk::replace(Size at, Size count, const QString& instead)
{
    if (m_copied == 0)
        m_safe.reserve(m_text.size());
    m_safe.append(m_text.constData() + m_copied, at - m_copied);
    m_safe += instead;
    m_copied = at + count;
}

} // namespace

QString withcontrols(QString value)
{
    const auto standsforcontrol = [](QChar sign) {
        return sign.unicode() >= firststandin && sign.unicode() < firststandin + controls;
    };
    // Hardly any has one, and would be copied to be looked through.
    if (!domEndsAtControls || std::none_of(value.cbegin(), value.cend(), standsforcontrol))
        return value;
    for (QChar& sign : value) {
        if (standsforcontrol(sign))
            sign = QChar(sign.unicode() - firststandin);
    }
    return value;
}

XmlText safexml(const QByteArray& xml)
{
    const auto text = decodedxml(xml);
    if (!text)
        return {QString(), XmlRefusal::Encoding};
    Walk walk(*text);
    const XmlRefusal refusal = walk.refusal();
    return {refusal == XmlRefusal::None ? walk.safetext() : QString(), refusal};
}
