#include "testfiles.h"

#include <QDomDocument>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <utility>

namespace {

/// What \a program prints about the manual.
QByteArray told(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForStarted())
        qFatal("%s is missing; scripts/install installs it", qPrintable(program));
    process.waitForFinished();
    return process.readAllStandardOutput();
}

/// What the only group of \a pattern matches in \a text, every time that it does.
QStringList matches(const QString& text, const QString& pattern)
{
    QStringList all;
    auto match = QRegularExpression(pattern).globalMatch(text);
    while (match.hasNext())
        all.append(match.next().captured(1));
    return all;
}

/// The file, each byte as a character.
QString bytes()
{
    const QByteArray manual = contents(MANUAL);
    return QString::fromLatin1(manual.constData(), manual.size());
}

/// The chapters of the text, in their order.
QStringList chapters()
{
    return matches(QString::fromUtf8(contents(TEXT)), QStringLiteral("<a name=\"[^\"]*\">([^<]*)</a></h"));
}

struct Entry
{
    QString title;
    int page;
    bool operator==(const Entry& other) const { return title == other.title && page == other.page; }
};

char* toString(const Entry& entry)
{
    return qstrdup(qPrintable(entry.title + ' ' + QString::number(entry.page)));
}

} // namespace

class ManualTest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void hasATitleAndALanguage();
    void listsEveryChapterInItsOutline();
    void leadsToThePageWithTheHeading();
    void tellsTheSamePagesInItsContents();
    void hasNoLinksThatLeadNowhere();

private:
    QDomDocument m_manual;
    QList<Entry> m_outline;
};

void ManualTest::initTestCase()
{
    QVERIFY(m_manual.setContent(told("pdftohtml", {"-xml", "-i", "-stdout", MANUAL})));
    const QDomNodeList items = m_manual.elementsByTagName("item");
    for (int i = 0; i < items.count(); ++i) {
        const QDomElement item = items.at(i).toElement();
        m_outline.append({item.text(), item.attribute("page").toInt()});
    }
}

void ManualTest::hasATitleAndALanguage()
{
    const QString information = QString::fromUtf8(told("pdfinfo", {MANUAL}));
    QCOMPARE(matches(information, "Title: +(.*)"), QStringList("Lumipad 2.0 manual"));
    // What counts is the last catalog, and that it is the one that the end of the file names.
    const QString catalog = matches(bytes(), "/Root (\\d+) 0 R").value(1);
    QVERIFY(!catalog.isEmpty());
    const QStringList catalogs = matches(bytes(), '\n' + catalog + " 0 obj\\s<<([^>]*)>>");
    QVERIFY(catalogs.value(1).contains("/Type /Catalog"));
    QCOMPARE(matches(catalogs.value(1), "/Lang \\(([^)]*)\\)"), QStringList("en"));
}

void ManualTest::listsEveryChapterInItsOutline()
{
    QCOMPARE(chapters().size(), 11);
    QStringList titles;
    for (const Entry& entry : std::as_const(m_outline))
        titles.append(entry.title);
    QCOMPARE(titles, chapters());
}

void ManualTest::leadsToThePageWithTheHeading()
{
    QMap<QString, int> sizes; // of the fonts
    const QDomNodeList fonts = m_manual.elementsByTagName("fontspec");
    for (int i = 0; i < fonts.count(); ++i)
        sizes.insert(fonts.at(i).toElement().attribute("id"),
                     fonts.at(i).toElement().attribute("size").toInt());
    constexpr int body = 18; // no running text is larger
    QList<Entry> headings;
    const QDomNodeList texts = m_manual.elementsByTagName("text");
    for (int i = 0; i < texts.count(); ++i) {
        const QDomElement text = texts.at(i).toElement();
        const Entry heading{text.text(), text.parentNode().toElement().attribute("number").toInt()};
        if (sizes.value(text.attribute("font")) > body && chapters().contains(heading.title))
            headings.append(heading);
    }
    QCOMPARE(m_outline, headings);
}

void ManualTest::tellsTheSamePagesInItsContents()
{
    // On the page of the contents the number stands right of the title, on the same line.
    const QDomNodeList texts = m_manual.elementsByTagName("page").at(0).toElement().elementsByTagName("text");
    QList<Entry> lines;
    for (int i = 0; i + 1 < texts.count(); ++i) {
        const QDomElement title = texts.at(i).toElement();
        const QDomElement number = texts.at(i + 1).toElement();
        if (title.attribute("top") == number.attribute("top") && number.text().toInt() > 0)
            lines.append({title.text(), number.text().toInt()});
    }
    QCOMPARE(lines, m_outline);
}

void ManualTest::hasNoLinksThatLeadNowhere()
{
    const QDomNodeList links = m_manual.elementsByTagName("a");
    for (int i = 0; i < links.count(); ++i)
        QVERIFY2(!links.at(i).toElement().attribute("href").isEmpty(),
                 qPrintable(links.at(i).parentNode().toElement().text()));
}

QTEST_GUILESS_MAIN(ManualTest)
#include "tst_manual.moc"
