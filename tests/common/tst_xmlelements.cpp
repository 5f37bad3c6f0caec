#include "testfiles.h"
#include "toolkitfacts.h"
#include "xmlelements.h"

#include <QElapsedTimer>
#include <QHash>
#include <QTemporaryDir>
#include <QtTest>

Q_DECLARE_METATYPE(XmlRefusal)

namespace {

const QStringList tags{"a", "b"};

/// One element on one line: its tag, then its attributes in alphabetical order.
QStringList lines(const QList<XmlElement>& elements)
{
    QStringList result;
    for (const XmlElement& element : elements) {
        QString line = element.tag;
        for (auto field = element.attributes.cbegin(); field != element.attributes.cend(); ++field)
            line += '|' + field.key() + '=' + field.value();
        result.append(line);
    }
    return result;
}

XmlRefusal refusalof(const QByteArray& xml)
{
    XmlRefusal refusal = XmlRefusal::None;
    elementsof(xml, tags, Malformed::WhatWasRead, &refusal);
    return refusal;
}

/// The tag \a name with \a count attributes, each of another name.
QByteArray crowded(const QByteArray& name, int count)
{
    QByteArray tag = '<' + name;
    for (int n = 0; n < count; ++n)
        tag += " n" + QByteArray::number(n) + "=\"\"";
    return tag + "/>";
}

QByteArray nested(int depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

} // namespace

class XmlElementsTest : public QObject
{
    Q_OBJECT

private slots:
    void givesTheElementsInDocumentOrder();
    void readsWhatADocumentTreeReads_data();
    void readsWhatADocumentTreeReads();
    void readsWhatOnlyALenientDocumentTreeReads_data();
    void readsWhatOnlyALenientDocumentTreeReads();
    void keepsWhatWasReadAheadOfAnErrorWhenAskedTo();
    void keepsWhatWasReadAheadOfAQuoteInAName_data();
    void keepsWhatWasReadAheadOfAQuoteInAName();
    void readsTheseEncodings_data();
    void readsTheseEncodings();
    void readsEveryByteAsItsChartSays();
    void refusesEveryOtherEncoding_data();
    void refusesEveryOtherEncoding();
    void bringsTabsAndLineBreaksThroughAsReferences();

    void holdsTheBounds_data();
    void holdsTheBounds();
    void nothingHidesFromTheBounds_data();
    void nothingHidesFromTheBounds();
    void whatOnlyLooksLikeADeclarationIsRead_data();
    void whatOnlyLooksLikeADeclarationIsRead();
    void readsFilesOfExactlyEightMegabytes();
    void answersSoonWhateverTheFileIsFullOf_data();
    void answersSoonWhateverTheFileIsFullOf();
};

void XmlElementsTest::givesTheElementsInDocumentOrder()
{
    QCOMPARE(lines(elementsof("<c><b n='1'/><a n='2'><b n='3'/></a><d><a n='4'/></d></c>", tags)),
             QStringList({"b|n=1", "a|n=2", "b|n=3", "a|n=4"}));
    QCOMPARE(lines(elementsof("<c><b n='1'/></c>", {"a"})), QStringList());
}

void XmlElementsTest::readsWhatADocumentTreeReads_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("line");
    QTest::newRow("tab") << QByteArray("<a x='1\t2'/>") << "a|x=1\t2";
    QTest::newRow("line breaks") << QByteArray("<a x='1\n2\r\n3\r4'/>") << "a|x=1\n2\r\n3\r4";
    QTest::newRow("referenced tab and line breaks")
        << QByteArray("<a x='1&#9;2&#10;3&#13;4'/>") << "a|x=1\t2\n3\r4";
    QTest::newRow("control character") << QByteArray("<a x='1\x01\x1f 2'/>") << "a|x=1\x01\x1f 2";
    if (!Toolkit::strictDom)
        QTest::newRow("noncharacter") << QByteArray("<a x='1\xEF\xB7\x91'/>") << "a|x=1\uFDD1";
    QTest::newRow("zero byte") << QByteArray("<a x='1\0002'/>", 12) << "a|x=1" + QString(QChar(0)) + "2";
    QTest::newRow("stray bytes") << QByteArray("<a x='1\xff\x32'/>")
                                 << "a|x=1" + QString(QChar(0xFFFD)) + "2";
    QTest::newRow("prefixes that nobody declared") << QByteArray("<a x:y='1'/>") << "a|x:y=1";
    QTest::newRow("signs in quotes") << QByteArray("<a x='>' y=\"'/>\"/>") << "a|x=>|y='/>";
    QTest::newRow("entities") << QByteArray("<a x='&lt;&amp;&quot;&apos;&#x20AC;'/>")
                              << "a|x=<&\"'" + QString(QChar(0x20AC));
    QTest::newRow("apostrophes between either quotes, first, last and in a row")
        << QByteArray("<a x=\"&apos;1&apos;&apos;\t&#39;'&apos;\" y='&apos;2&apos;'/>")
        << "a|x='1''\t'''|y='2'";
    QTest::newRow("what only looks like a referenced apostrophe")
        << QByteArray("<a x=\"&amp;apos;&amp;&apos;;\"/>") << "a|x=&apos;&';";
    QTest::newRow("document type")
        << QByteArray("<!DOCTYPE a [<!ELEMENT a (b|c)><!NOTATION n SYSTEM \"]>\"> <?p ]>?> ]><a x='1'/>")
        << "a|x=1";
    QTest::newRow("document type from elsewhere")
        << QByteArray("<!DOCTYPE a SYSTEM \"file:///dev/zero\"><a x='1'/>") << "a|x=1";
}

void XmlElementsTest::readsWhatADocumentTreeReads()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, line);
    QCOMPARE(lines(elementsof(xml, tags)), QStringList(line));
    QCOMPARE(refusalof(xml), XmlRefusal::None);
}

void XmlElementsTest::readsWhatOnlyALenientDocumentTreeReads_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("line");
    QTest::newRow("an attribute twice: the last counts") << QByteArray("<a x='1' x='2'/>") << "a|x=2";
    QTest::newRow("an unknown entity") << QByteArray("<a x='1&what;2'/>") << "a|x=12";
    QTest::newRow("no blank between") << QByteArray("<a x='1'y='2'/>") << "a|x=1|y=2";
    QTest::newRow("a reference in a document type")
        << QByteArray("<!DOCTYPE a [ %p; ]><a x='1'/>") << "a|x=1";
    QTest::newRow("XML 1.1") << QByteArray("<?xml version='1.1'?><a x='1'/>") << "a|x=1";
    QTest::newRow("two prefixes") << QByteArray("<a x:y:z='1'/>") << "a|x:y:z=1";
}

void XmlElementsTest::readsWhatOnlyALenientDocumentTreeReads()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, line);
    QCOMPARE(lines(elementsof(xml, tags)), Toolkit::strictDom ? QStringList() : QStringList(line));
    QCOMPARE(refusalof(xml), XmlRefusal::None);
}

void XmlElementsTest::keepsWhatWasReadAheadOfAnErrorWhenAskedTo()
{
    const QByteArray xml = "<c><a n='1'/><b n='2'><a n='3";
    QCOMPARE(lines(elementsof(xml, tags)), QStringList());
    QCOMPARE(lines(elementsof(xml, tags, Malformed::WhatWasRead)), QStringList({"a|n=1", "b|n=2"}));
    QCOMPARE(refusalof(xml), XmlRefusal::None);
}

void XmlElementsTest::keepsWhatWasReadAheadOfAQuoteInAName_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("one") << QByteArray("\"\"\"");
    QTest::newRow("one between blanks") << QByteArray("\" \" \"");
    QTest::newRow("one behind a name") << QByteArray("\"12\" Spot\"");
    QTest::newRow("two") << QByteArray("\"say \"hi\"\"");
}

/// Projects hold names as they are, and a name may hold a quote. Behind it each quote would begin a value of
/// the same tag, far more than a tag may have.
void XmlElementsTest::keepsWhatWasReadAheadOfAQuoteInAName()
{
    QFETCH(QByteArray, value);
    const QByteArray xml = "<c n=\"1\"><a n=\"2\"/><b n=" + value + "/>" +
                           QByteArray("<a n=\"3\"/>").repeated(maxXmlAttributes + 1) + "</c>";
    QCOMPARE(refusalof(xml), XmlRefusal::None);
    QCOMPARE(lines(elementsof(xml, tags, Malformed::WhatWasRead)), QStringList("a|n=2"));
}

void XmlElementsTest::readsTheseEncodings_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("value");
    const QString name = QStringLiteral(u"B\u00fchne");
    const QString text = "<a x='" + name + "'/>";
    QTest::newRow("UTF-8") << text.toUtf8() << name;
    QTest::newRow("UTF-8 with its mark") << "\xEF\xBB\xBF" + text.toUtf8() << name;
    QTest::newRow("UTF-8, declared") << "<?xml version='1.0' encoding='utf-8'?>" + text.toUtf8() << name;
    QTest::newRow("half a character at the end") << text.toUtf8() + '\xc3' << name;
    QTest::newRow("UTF-16 with its mark") << utf16(text) << name;
    QTest::newRow("UTF-16, declared") << utf16("<?xml version='1.0' encoding='UTF-16'?>" + text) << name;
    QByteArray swapped = utf16(text);
    for (int at = 0; at + 1 < swapped.size(); at += 2)
        std::swap(swapped.data()[at], swapped.data()[at + 1]);
    QTest::newRow("UTF-16, its bytes swapped") << swapped << name;
    const auto declared = [](const QByteArray& encoding, const QByteArray& value) {
        return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?><a x='" + value + "'/>";
    };
    QTest::newRow("US-ASCII") << declared("US-ASCII", "Stage") << "Stage";
    QTest::newRow("ISO-8859-1") << declared("ISO-8859-1", "B\xfchne") << name;
    QTest::newRow("ISO-8859-1 by another name") << declared("latin1", "B\xfchne") << name;
    QTest::newRow("ISO-8859-5") << declared("iso-8859-5", "\xc1") << QStringLiteral(u"\u0421");
    QTest::newRow("ISO-8859-15") << declared("ISO-8859-15", "\xa4") << QStringLiteral(u"\u20ac");
    QTest::newRow("windows-1250") << declared("windows-1250", "\x8a") << QStringLiteral(u"\u0160");
    QTest::newRow("windows-1252") << declared("windows-1252", "\x80 B\xfchne")
                                  << QStringLiteral(u"\u20ac ") + name;
    QTest::newRow("windows-1258") << declared("windows-1258", "\xfe") << QStringLiteral(u"\u20ab");
}

void XmlElementsTest::readsTheseEncodings()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, value);
    QCOMPARE(lines(elementsof(xml, tags)), QStringList("a|x=" + value));
    QCOMPARE(refusalof(xml), XmlRefusal::None);
}

void XmlElementsTest::readsEveryByteAsItsChartSays()
{
    QByteArray bytes;
    for (int byte = 0x80; byte <= 0xFF; ++byte)
        bytes += static_cast<char>(byte);
    const QStringList lines =
        QString::fromLatin1(contents(TEST_DATA_DIR "/charts.txt")).split('\n', Qt::SkipEmptyParts);
    QByteArray encoding;
    QHash<QByteArray, QString> charts;
    for (const QString& line : lines) {
        if (line.startsWith('#'))
            continue;
        if (line.contains('-')) {
            encoding = line.toLatin1();
            continue;
        }
        const QStringList signs = line.split(' ');
        for (const QString& sign : signs)
            charts[encoding] += QChar(sign.toUShort(nullptr, 16));
    }
    QCOMPARE(charts.size(), 22);
    for (auto chart = charts.cbegin(); chart != charts.cend(); ++chart) {
        const QByteArray xml = "<?xml version='1.0' encoding='" + chart.key() + "'?><a>" + bytes + "</a>";
        const QString text = safexml(xml).text;
        QVERIFY2(text.contains('>' + chart.value() + '<'), chart.key().constData());
    }
}

void XmlElementsTest::refusesEveryOtherEncoding_data()
{
    QTest::addColumn<QByteArray>("xml");
    // UTF-7 and its like write "<", "=" and quotes in other signs; the shifting ones take them for halves.
    for (const char* name : {"UTF-7", "ISO-2022-JP", "ISO-2022-KR", "HZ-GB-2312", "UTF-16", "UTF-16LE",
                             "UTF-32", "Shift_JIS", "Big5", "GB18030", "EUC-KR", "windows-949", "IBM850",
                             "KOI8-R", "SCSU", "BOCU-1", "System", "KLINGON"})
        QTest::newRow(name) << "<?xml version=\"1.0\" encoding=\"" + QByteArray(name) + "\"?><a/>";
    QTest::newRow("hidden signs") << QByteArray("<?xml version='1.0' encoding='UTF-7'?><a x+AD0AIg-1+ACI-/>");
    const QByteArray text = utf16("<a/>");
    QTest::newRow("UTF-16 without its mark") << text.mid(2);
    QTest::newRow("UTF-32") << QByteArray("\xff\xfe\0\0<\0\0\0a\0\0\0/\0\0\0>\0\0\0", 20);
    QTest::newRow("UTF-16 that declares another") << utf16("<?xml version='1.0' encoding='UTF-16BE'?><a/>");
}

void XmlElementsTest::refusesEveryOtherEncoding()
{
    QFETCH(QByteArray, xml);
    QCOMPARE(refusalof(xml), XmlRefusal::Encoding);
    QCOMPARE(lines(elementsof(xml, tags, Malformed::WhatWasRead)), QStringList());
}

void XmlElementsTest::bringsTabsAndLineBreaksThroughAsReferences()
{
    QCOMPARE(safexml("<?p\t'\t'?><a\tx='1\t2\n3' y=\"\r\"\n>\t'\t'</a>").text,
             QString("<?p\t'\t'?><a\tx='1&#9;2&#10;3' y=\"&#13;\"\n>\t'\t'</a>"));
    QCOMPARE(safexml("<!-- '\t' <a x='\t'> --><a><![CDATA[<a x='\t'>]]></a>").text,
             QString("<!-- '\t' <a x='\t'> --><a><![CDATA[<a x='\t'>]]></a>"));
}

void XmlElementsTest::holdsTheBounds_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<XmlRefusal>("refusal");
    QTest::newRow("256 attributes") << crowded("a", maxXmlAttributes) << XmlRefusal::None;
    QTest::newRow("257 attributes") << crowded("a", maxXmlAttributes + 1) << XmlRefusal::Attributes;
    QTest::newRow("257 times one attribute")
        << "<a" + QByteArray(" x='1'").repeated(maxXmlAttributes + 1) + "/>" << XmlRefusal::Attributes;
    QTest::newRow("256 attributes in each of many tags")
        << "<c>" + crowded("a", maxXmlAttributes).repeated(5) + "</c>" << XmlRefusal::None;
    QTest::newRow("100 levels") << nested(maxXmlDepth) << XmlRefusal::None;
    QTest::newRow("101 levels") << nested(maxXmlDepth + 1) << XmlRefusal::Nesting;
    QTest::newRow("100 levels, again and again")
        << "<c>" + nested(maxXmlDepth - 1).repeated(9) + "</c>" << XmlRefusal::None;
    QTest::newRow("101 brackets") << "<!DOCTYPE a [<!ELEMENT a " + QByteArray("(").repeated(maxXmlDepth + 1) +
                                         "]><a/>"
                                  << XmlRefusal::Nesting;
    QTest::newRow("most elements") << "<c>" + QByteArray("<a/>").repeated(maxXmlParts - 1) + "</c>"
                                   << XmlRefusal::None;
    QTest::newRow("one element more")
        << "<c>" + QByteArray("<a/>").repeated(maxXmlParts) + "</c>" << XmlRefusal::Parts;
    QTest::newRow("too many attributes in all")
        << "<c>" + QByteArray("<a x='1'/>").repeated(maxXmlParts / 2 + 1) + "</c>" << XmlRefusal::Parts;
    QTest::newRow("too many comments")
        << "<a>" + QByteArray("<!---->").repeated(maxXmlParts) + "</a>" << XmlRefusal::Parts;
    QTest::newRow("too many references")
        << "<a>" + QByteArray("&b;").repeated(maxXmlParts) + "</a>" << XmlRefusal::Parts;
    QTest::newRow("too many declarations")
        << "<!DOCTYPE a [" + QByteArray("<!NOTATION b SYSTEM ''>").repeated(maxXmlParts) + "]><a/>"
        << XmlRefusal::Parts;
    QTest::newRow("entity") << QByteArray("<!DOCTYPE a [<!ENTITY e 'x'>]><a/>") << XmlRefusal::Entities;
    QTest::newRow("entity for declarations")
        << QByteArray("<!DOCTYPE a [<!ENTITY % e 'x'>]><a/>") << XmlRefusal::Entities;
    QTest::newRow("default attribute")
        << QByteArray("<!DOCTYPE a [<!ATTLIST a x CDATA 'y'>]><a/>") << XmlRefusal::DefaultAttributes;
}

void XmlElementsTest::holdsTheBounds()
{
    QFETCH(QByteArray, xml);
    QFETCH(XmlRefusal, refusal);
    QCOMPARE(refusalof(xml), refusal);
    QCOMPARE(elementsof(xml, tags, Malformed::WhatWasRead).isEmpty(), refusal != XmlRefusal::None);
}

void XmlElementsTest::nothingHidesFromTheBounds_data()
{
    QTest::addColumn<QByteArray>("xml"); // "@" stands for an element with too many attributes
    QTest::addColumn<XmlRefusal>("refusal");
    const auto many = XmlRefusal::Attributes;
    QTest::newRow("behind a comment") << QByteArray("<c><!-- <a x='\"<!-- -->@</c>") << many;
    QTest::newRow("behind the shortest comment") << QByteArray("<c><!---->@</c>") << many;
    QTest::newRow("behind CDATA") << QByteArray("<c><![CDATA[ <!-- ' ]]]]>@</c>") << many;
    QTest::newRow("behind an instruction") << QByteArray("<c><?p <!-- \"?>@</c>") << many;
    QTest::newRow("behind quotes") << QByteArray("<c><b x='\"' y=\"'<!--\" z='>'>@</b></c>") << many;
    QTest::newRow("behind an apostrophe in a text") << QByteArray("<c>it's @ it's</c>") << many;
    QTest::newRow("behind quotes of the declaration")
        << QByteArray("<?xml version='1.0' encoding=\"UTF-8\" standalone='yes' ?><!-- ?> -->@") << many;
    QTest::newRow("behind a declaration in quotes")
        << QByteArray("<?xml version='1.0' standalone='?><!--'?>@<!-- -->") << many;
    QTest::newRow("behind a document type") << QByteArray("<!DOCTYPE a [<!-- ]> ' --><?p ]> '?>]>@") << many;
    QTest::newRow("behind quotes in a document type") << QByteArray("<!DOCTYPE a SYSTEM '[<!--'>@") << many;
    QTest::newRow("entity behind quotes of a document type")
        << QByteArray("<!DOCTYPE a SYSTEM \"]>\" [<!NOTATION n SYSTEM ']><!--'><!ENTITY e 'x'>]><a/>")
        << XmlRefusal::Entities;
    QTest::newRow("entity behind a comment in a document type")
        << QByteArray("<!DOCTYPE a [<!-- ]>'--><!ENTITY e 'x'>]><a/>") << XmlRefusal::Entities;
    QTest::newRow("document types inside each other")
        << QByteArray("<!DOCTYPE ").repeated(maxXmlParts + 1) << XmlRefusal::Parts;
}

void XmlElementsTest::nothingHidesFromTheBounds()
{
    QFETCH(QByteArray, xml);
    QFETCH(XmlRefusal, refusal);
    QCOMPARE(refusalof(xml.replace('@', crowded("a", maxXmlAttributes + 1))), refusal);
}

void XmlElementsTest::whatOnlyLooksLikeADeclarationIsRead_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("entity in a comment") << QByteArray("<a><!-- <!ENTITY e 'x'> --></a>");
    QTest::newRow("list in CDATA") << QByteArray("<a><![CDATA[<!ATTLIST a x CDATA 'y'>]]></a>");
    QTest::newRow("entity in an instruction") << QByteArray("<a><?p <!ENTITY e 'x'> ?></a>");
    QTest::newRow("levels in CDATA") << "<a><![CDATA[" + QByteArray("<a>").repeated(1000) + "]]></a>";
    QTest::newRow("equals signs and quotes in a text")
        << "<a>" + QByteArray("x='1' ").repeated(1000) + "</a>";
    QTest::newRow("equals signs in a value") << "<a x=\"" + QByteArray("y='1' ").repeated(1000) + "\"/>";
}

void XmlElementsTest::whatOnlyLooksLikeADeclarationIsRead()
{
    QFETCH(QByteArray, xml);
    QCOMPARE(refusalof(xml), XmlRefusal::None);
    QCOMPARE(elementsof(xml, tags).size(), 1);
}

void XmlElementsTest::readsFilesOfExactlyEightMegabytes()
{
    QTemporaryDir folder;
    const QString path = folder.filePath("file.xml");
    const QByteArray xml = "<a x='1'/>";
    for (const int more : {-1, 0, 1}) {
        writefile(path, xml + QByteArray(8 * 1024 * 1024 - xml.size() + more, '\n'));
        QCOMPARE(readelements(path, tags).size(), more > 0 ? 0 : 1);
    }
}

void XmlElementsTest::answersSoonWhateverTheFileIsFullOf_data()
{
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>(
        "middle"); // repeated until the file has a quarter of the bytes that files may have
    QTest::addColumn<QByteArray>("end");
    const auto row = [](const char* name, const char* begin, const char* middle, const char* end) {
        QTest::newRow(name) << QByteArray(begin) << QByteArray(middle) << QByteArray(end);
    };
    row("value", "<a x='", "v", "'/>");
    row("tabs in a value", "<a x='", "\t", "'/>");
    row("referenced apostrophes in a value", "<a x=\"", "&apos;", "\"/>");
    row("references in a value", "<a x='", "&b;", "'/>");
    row("tag", "<", "n", "/>");
    row("blanks in a tag", "<a ", " ", "/>");
    row("text", "<a>", "t", "</a>");
    row("comment", "<a><!--", "c", "--></a>");
    row("open comments", "<a>", "<!--", "");
    row("instruction", "<a><?b ", "c", "?></a>");
    row("CDATA", "<a><![CDATA[", "]", "]]></a>");
    row("document type", "<!DOCTYPE a [", " ", "]><a/>");
    row("choices", "<!DOCTYPE a [<!ELEMENT a (b", "|b", ")>]><a/>");
    row("less-than signs", "<a>", "<", "");
    row("ampersands", "<a>", "&", "");
    row("quotes", "<a ", "'", "");
    row("declaration", "<?xml version='1.0' ", "encoding", "?><a/>");
    row("elements", "<a>", "<a/>", "</a>");
    row("levels", "", "<a>", "");
}

void XmlElementsTest::answersSoonWhateverTheFileIsFullOf()
{
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, middle);
    QFETCH(QByteArray, end);
    const QByteArray xml =
        begin + middle.repeated((maxXmlSize / 4 - begin.size() - end.size()) / middle.size()) + end;
    QElapsedTimer timer;
    timer.start();
    elementsof(xml, tags, Malformed::WhatWasRead);
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_APPLESS_MAIN(XmlElementsTest)
#include "tst_xmlelements.moc"
