#include "testfiles.h"
#include "toolkit.h"
#include "toolkitfacts.h"
#include "xmlelements.h"

#include <QDomDocument>
#include <QRandomGenerator>
#include <QtTest>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int rounds = 10000;
#else
constexpr int rounds = 100000;
#endif

const QStringList tags{"project", "key", "mapper", "map", "layout", "pad", "a"};

QString line(const QString& tag, const Record& attributes)
{
    QString text = tag;
    for (auto field = attributes.cbegin(); field != attributes.cend(); ++field)
        text += '|' + field.key() + '=' + field.value();
    return text;
}

QStringList lines(const QList<XmlElement>& elements)
{
    QStringList result;
    for (const XmlElement& element : elements)
        result.append(line(element.tag, element.attributes));
    return result;
}

/// What a document tree holds of a file that is given to it as it stands. A strict one gets the safe text, as
/// it would lose tabs and line breaks in values, and end at control characters and stray bytes.
struct Bare
{
    explicit Bare(const QByteArray& xml)
    {
        QDomDocument document;
        whole = Toolkit::strictDom ? document.setContent(safexml(xml).text) : document.setContent(xml);
        walk(document, 0);
    }

    void walk(const QDomNode& parent, int level)
    {
        depth = qMax(depth, level);
        for (QDomNode node = parent.firstChild(); !node.isNull(); node = node.nextSibling()) {
            const QDomNamedNodeMap map = node.attributes();
            attributes = qMax(attributes, map.size());
            Record record;
            for (int n = 0; n < map.size(); ++n)
                record.insert(map.item(n).nodeName(), withcontrols(map.item(n).nodeValue()));
            if (node.isElement() && tags.contains(node.nodeName()))
                elements.append(line(node.nodeName(), record));
            if (node.isElement())
                walk(node, level + 1);
        }
    }

    bool whole = false;
    QStringList elements;
    int attributes = 0; ///< the most of one element
    int depth = 0;
};

class Mutations
{
public:
    explicit Mutations(quint32 seed) : m_random(seed) {}

    QByteArray changed(QByteArray text, const QVector<QByteArray>& pieces)
    {
        for (int change = m_random.bounded(1, 4); change > 0; --change) {
            const int at = m_random.bounded(static_cast<int>(text.size()) + 1);
            switch (m_random.bounded(7)) {
            case 0:
                text.truncate(qMax<Size>(at, text.size() / 2));
                break;
            case 1:
                text.remove(at, m_random.bounded(1, 12));
                break;
            case 2:
                text.insert(at, text.mid(m_random.bounded(text.size() + 1), m_random.bounded(1, 40)));
                break;
            case 3:
                text.insert(at, static_cast<char>(m_random.bounded(256)));
                break;
            default:
                text.insert(at, pieces.at(m_random.bounded(pieces.size())));
                break;
            }
        }
        return text;
    }

    template<typename List>
    const typename List::value_type& one(const List& list)
    {
        return list.at(m_random.bounded(list.size()));
    }

private:
    QRandomGenerator m_random;
};

QVector<QByteArray> seeds()
{
    const QByteArray project =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<project type=\"pads\" show=\"/a/live.ini\" banks=\"A,B\" >\n"
        "\t<key row=\"0\" column=\"0\" name=\"Caf\xc3\xa9 &amp; Bar\" color=\"#ff0000\" />\n"
        "\t<key row=\"1\" name='Tunnel\tFog' />\n</project>\n";
    const QByteArray mapper =
        "<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?>\r\n"
        "<!-- \"made\" by 'hand' -->\r\n<mapper device=\"APCMINI\" author='\xc4nne'>\r\n"
        "<info>it's &lt;text&gt;<![CDATA[ <a x='1'> ]]></info>\r\n"
        "<map value=\"A\" action=\"play ? on : &apos;off&#39; &#x20ac;\"/>\r\n</mapper>";
    const QByteArray layout = "<!DOCTYPE layout SYSTEM 'x>' [<!ELEMENT a (b|(c,d)*)> <?p '?>\n"
                              "<!NOTATION n PUBLIC \"]>\"><!-- ]> -->]>\n"
                              "<layout name=\"P\"><pad name='1'><a x=\"\" /></pad>&what;<?q \"?></layout>";
    return {project, mapper, layout, "<a x='1' y=\"2\"><a/><a>t</a></a>",
            utf16(QString::fromUtf8(project.mid(39)))};
}

QVector<QByteArray> pieces()
{
    return {"<",
            ">",
            "/>",
            "</a>",
            "<a>",
            "<a x='",
            "'",
            "\"",
            "=",
            "&",
            ";",
            "&amp;",
            "&#9;",
            "&e;",
            "&#0;",
            " ",
            "\t",
            "\n",
            "\r\n",
            "!",
            "?",
            "-",
            "--",
            "<!--",
            "-->",
            "<!---->",
            "<![CDATA[",
            "]]>",
            "]",
            "[",
            "<?",
            "?>",
            "<?p ?>",
            "<?xml ",
            "<?xml version='1.0'?>",
            "<!DOCTYPE a [",
            "<!DOCTYPE a>",
            "]>",
            "<!ENTITY e 'x'>",
            "<!ATTLIST a x CDATA 'y'>",
            "<!ELEMENT a ANY>",
            "%e;",
            "encoding='UTF-7'",
            " encoding=\"windows-1252\"",
            "UTF-16",
            "iso-8859-15",
            "utf-8",
            "+AD0AIg-",
            "\xef\xbb\xbf",
            "\xff\xfe",
            "\xc3",
            "\xe9",
            "\xef\xbf\xbe",
            QByteArray(1, '\0'),
            "\x01"};
}

} // namespace

/// Files that a user may have damaged, in their thousands.
class XmlMutationsTest : public QObject
{
    Q_OBJECT

private slots:
    void whatPassesIsReadAsABareDocumentTreeReadsIt();
    void whatPassesIsWithinTheBounds();
};

void XmlMutationsTest::whatPassesIsReadAsABareDocumentTreeReadsIt()
{
    Mutations mutations(20260306);
    const QVector<QByteArray> sources = seeds();
    const QVector<QByteArray> inserted = pieces();
    QVector<int> refused(7, 0);
    int whole = 0;
    for (int round = 0; round < rounds; ++round) {
        const QByteArray xml = mutations.changed(mutations.one(sources), inserted);
        XmlRefusal refusal = XmlRefusal::None;
        const QStringList read = lines(elementsof(xml, tags, Malformed::WhatWasRead, &refusal));
        const QStringList strict = lines(elementsof(xml, tags));
        ++refused[static_cast<int>(refusal)];
        if (refusal != XmlRefusal::None) {
            QVERIFY2(read.isEmpty() && strict.isEmpty(), xml.constData());
            continue;
        }
        const Bare bare(xml);
        QVERIFY2(read == bare.elements, qPrintable(QString::fromLatin1(xml.toPercentEncoding("<>='\"/ "))));
        QCOMPARE(strict, bare.whole ? bare.elements : QStringList());
        whole += bare.whole ? 1 : 0;
    }
    // Else the rounds would not show much.
    QVERIFY(whole > rounds / 20);
    for (const XmlRefusal kind : {XmlRefusal::Encoding, XmlRefusal::Entities, XmlRefusal::DefaultAttributes})
        QVERIFY(refused.at(static_cast<int>(kind)) > rounds / 1000);
    QVERIFY(refused.at(static_cast<int>(XmlRefusal::None)) > rounds / 2);
}

void XmlMutationsTest::whatPassesIsWithinTheBounds()
{
    QByteArray crowded = "<a";
    for (int n = 0; n <= maxXmlAttributes; ++n)
        crowded += " n" + QByteArray::number(n) + "=''";
    const QByteArray deep = QByteArray("<a>").repeated(maxXmlDepth + 1);
    const QVector<QByteArray> sources = seeds();
    const QVector<QByteArray> inserted = pieces();
    Mutations mutations(20260307);
    int passed = 0;
    for (int round = 0; round < rounds / 20; ++round) {
        QByteArray xml = mutations.one(sources);
        xml.insert(xml.lastIndexOf('<'), round % 2 ? crowded + "/>" : deep);
        xml = mutations.changed(xml, inserted);
        XmlRefusal refusal = XmlRefusal::None;
        elementsof(xml, tags, Malformed::WhatWasRead, &refusal);
        if (refusal != XmlRefusal::None)
            continue;
        ++passed;
        const Bare bare(xml);
        QVERIFY2(bare.attributes <= maxXmlAttributes && bare.depth <= maxXmlDepth, xml.constData());
    }
    QVERIFY(passed > rounds / 1000);
}

QTEST_APPLESS_MAIN(XmlMutationsTest)
#include "tst_xmlmutations.moc"
