#pragma once

#include <QByteArray>
#include <QString>

/// Why a document is not read at all.
enum class XmlRefusal {
    None,
    Encoding,          ///< none of those that are read, see `safexml`
    Entities,          ///< it defines entities: a small one can grow without end
    DefaultAttributes, ///< it declares attributes of its elements
    Nesting,           ///< deeper than `maxXmlDepth`
    Attributes,        ///< more than `maxXmlAttributes` in one tag
    Parts              ///< more than `maxXmlParts` in all
};

/// A document as text, or why there is none.
struct XmlText
{
    QString text; ///< empty when refused
    XmlRefusal refusal = XmlRefusal::None;
};

/// Decodes the document \a xml and looks it through once for what could keep a parser busy for ever, use up
/// the stack or fill the memory. What passes can be given to any parser. Whether it is well-formed is left to
/// that parser.
/// The encoding is what a byte order mark and the XML declaration say, UTF-8 by default; UTF-8, UTF-16 with a
/// byte order mark, US-ASCII, ISO-8859-x and windows-125x are read. Other encodings can write the same signs
/// in many ways.
/// Tabs and line breaks inside of attribute values come out as character references, since parsers differ in
/// keeping them; other control characters, where the parser would end at them, as what stands for them.
/// Referenced apostrophes between double quotes come out as plain ones, which parsers read faster.
XmlText safexml(const QByteArray& xml);

/// The attribute \a value, parsed from such a text, with the control characters that it had.
QString withcontrols(QString value);
