#include "outline.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

QByteArray reference(int object) { return QByteArray::number(object) + " 0 R"; }
QByteArray heading(int object) { return QByteArray::number(object) + " 0 obj\n"; }

/// What the only group of \a pattern matches in \a pdf from the last \a beginning on; empty when nothing
/// does.
QByteArray lastmatch(const QByteArray& pdf, const QByteArray& beginning, const char* pattern)
{
    const int at = pdf.lastIndexOf(beginning);
    const QRegularExpression expression{QLatin1String(pattern)};
    return at < 0 ? QByteArray() : expression.match(QString::fromLatin1(pdf.mid(at))).captured(1).toLatin1();
}

/// The objects of the pages, in their order.
QList<int> pageobjects(const QByteArray& pdf)
{
    QList<int> pages;
    const QByteArray kids = lastmatch(pdf, "/Type /Pages", "/Kids\\s*\\[([^\\]]*)\\]");
    const QRegularExpression number(QStringLiteral("(\\d+) 0 R"));
    auto kid = number.globalMatch(QString::fromLatin1(kids));
    while (kid.hasNext())
        pages.append(kid.next().captured(1).toInt());
    return pages;
}

/// \a text in the form in which the format holds any letter.
QByteArray textstring(const QString& text)
{
    QByteArray hex("<FEFF");
    for (const QChar letter : text)
        hex += QByteArray::number(letter.unicode(), 16).rightJustified(4, '0');
    return hex + '>';
}

/// Objects that are put behind a file.
class Update
{
public:
    explicit Update(const QByteArray& pdf) : m_bytes(pdf) {}

    void add(int object, const QByteArray& dictionary)
    {
        m_table += QByteArray::number(object) + " 1\n" +
                   QByteArray::number(m_bytes.size()).rightJustified(10, '0') + " 00000 n \n";
        m_bytes += heading(object) + "<<\n" + dictionary + ">>\nendobj\n";
    }

    /// The whole file, which ends with \a trailer.
    QByteArray finished(const QByteArray& trailer) const
    {
        return m_bytes + "xref\n" + m_table + "trailer\n<<\n" + trailer + ">>\nstartxref\n" +
               QByteArray::number(m_bytes.size()) + "\n%%EOF\n";
    }

private:
    QByteArray m_bytes;
    QByteArray m_table;
};

} // namespace

QByteArray withoutline(const QByteArray& pdf, const QList<Bookmark>& bookmarks, const QByteArray& language)
{
    const QList<int> pages = pageobjects(pdf);
    const int outline = lastmatch(pdf, "trailer", "/Size (\\d+)").toInt();
    const int catalog = lastmatch(pdf, "trailer", "/Root (\\d+) 0 R").toInt();
    const QByteArray entries = lastmatch(pdf, '\n' + heading(catalog), "<<\\s*([^<>]*)>>");
    if (outline == 0 || catalog == 0 || entries.isEmpty() || bookmarks.isEmpty())
        return QByteArray();

    Update update(pdf);
    update.add(catalog, entries + "/Lang (" + language + ")\n/Outlines " + reference(outline) + '\n');
    const int count = bookmarks.size();
    update.add(outline, "/Type /Outlines\n/First " + reference(outline + 1) + "\n/Last " +
                            reference(outline + count) + "\n/Count " + QByteArray::number(count) + '\n');
    for (int i = 0; i < count; ++i) {
        const Bookmark& bookmark = bookmarks.at(i);
        if (bookmark.page < 1 || bookmark.page > pages.size())
            return QByteArray();
        const int object = outline + 1 + i;
        QByteArray dictionary = "/Title " + textstring(bookmark.title) + "\n/Parent " + reference(outline) +
                                "\n/Dest [" + reference(pages.at(bookmark.page - 1)) + " /XYZ null " +
                                QByteArray::number(bookmark.y) + " null]\n";
        if (i > 0)
            dictionary += "/Prev " + reference(object - 1) + '\n';
        if (i + 1 < count)
            dictionary += "/Next " + reference(object + 1) + '\n';
        update.add(object, dictionary);
    }
    return update.finished("/Size " + QByteArray::number(outline + 1 + count) + "\n/Root " +
                           reference(catalog) + "\n/Info " + lastmatch(pdf, "trailer", "/Info (\\d+ 0 R)") +
                           "\n/Prev " + lastmatch(pdf, "startxref", "startxref\\s+(\\d+)") + '\n');
}
