// lumipad_manual TEXT.html PICTURES FILE.pdf: makes the manual. TEXT.html is in the subset of HTML that
// QTextDocument reads; its images are looked for in the folder PICTURES, then beside the text. The file
// depends on nothing but text, pictures and fonts, so an unchanged manual is an unchanged file. Every anchor
// of the text is an entry of the file's outline, by the name of the heading that it stands in.
//
// In the text, "{page:NAME}" stands for the number of the page with the anchor NAME, "{version}" for the
// program's version, and "{devices}" for the rows of a table of the built-in controllers.

#include "devices.h"
#include "outline.h"
#include "version.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextStream>
#include <QUrl>

#include <utility>

namespace {

constexpr int resolution = 1200;
constexpr double footerHeight = 0.035; // part of the height inside the margins

/// The manual's text, whose images come from two folders.
class ManualDocument : public QTextDocument
{
public:
    explicit ManualDocument(const QStringList& folders) : m_folders(folders) {}

    /// The images that were found in neither folder.
    QStringList missing() const { return m_missing; }

protected:
    QVariant loadResource(int type, const QUrl& name) override
    {
        for (const QString& folder : std::as_const(m_folders)) {
            const QImage image(folder + QLatin1Char('/') + name.toString());
            if (type == ImageResource && !image.isNull())
                return image;
        }
        if (!m_missing.contains(name.toString()))
            m_missing.append(name.toString());
        return QVariant();
    }

private:
    QStringList m_folders;
    QStringList m_missing;
};

/// Where the first line of \a block stands in the document, whose pages follow each other without a gap.
QRectF firstline(const QTextBlock& block)
{
    const QRectF line = block.layout()->lineCount() > 0 ? block.layout()->lineAt(0).rect() : QRectF();
    return line.translated(0, block.document()->documentLayout()->blockBoundingRect(block).top());
}

/// The page on which the first line of \a block stands.
int firstpage(const QTextBlock& block)
{
    // The middle of the line: rounding may put its upper edge a hair above the page.
    return int(firstline(block).center().y() / block.document()->pageSize().height()) + 1;
}

void breakbefore(const QTextBlock& block)
{
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).setBlockFormat(format);
}

bool haspicture(const QTextBlock& block)
{
    return block.begin() != block.end() && block.begin().fragment().charFormat().isImageFormat();
}

/// Moves a heading that would end its page to the next one, where its text is. A picture that has gone to the
/// next page by itself would leave its first lines of pixels behind, so it is moved too.
void keeptogether(QTextDocument* document)
{
    for (QTextBlock block = document->begin(); block.next().isValid(); block = block.next()) {
        if (firstpage(block) == firstpage(block.next()))
            continue;
        if (block.blockFormat().headingLevel() > 0)
            breakbefore(block);
        else if (haspicture(block.next()))
            breakbefore(block.next());
    }
}

/// The anchors of \a document in their order, each with the block that it stands in.
QList<QPair<QString, QTextBlock>> anchors(const QTextDocument& document)
{
    QList<QPair<QString, QTextBlock>> all;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QStringList names = part.fragment().charFormat().anchorNames();
            for (const QString& name : names)
                all.append({name, block});
        }
    }
    return all;
}

/// The headings with anchors as entries of the outline.
QList<Bookmark> bookmarks(const QTextDocument& document, const QPageLayout& layout)
{
    const double top = layout.fullRectPoints().height() - layout.marginsPoints().top();
    constexpr double pointsPerInch = 72;
    QList<Bookmark> all;
    const auto places = anchors(document);
    for (const auto& place : places) {
        const int page = firstpage(place.second);
        const double down = firstline(place.second).top() - (page - 1) * document.pageSize().height();
        all.append({place.second.text(), page, qRound(top - down * pointsPerInch / resolution)});
    }
    return all;
}

void layout(ManualDocument* document, const QString& html, QPdfWriter* writer)
{
    document->documentLayout()->setPaintDevice(writer);
    document->setDocumentMargin(0);
    document->setHtml(html);
    document->setPageSize(QSizeF(writer->width(), writer->height() * (1 - footerHeight)));
    keeptogether(document);
    // What follows a changed block has to move too.
    document->markContentsDirty(0, document->characterCount());
    document->documentLayout()->documentSize();
}

/// Takes the anchors away, which would be painted as links that lead nowhere.
void removeanchors(QTextDocument* document)
{
    QTextCursor all(document);
    all.select(QTextCursor::Document);
    QTextCharFormat plain;
    plain.setAnchor(false);
    all.mergeCharFormat(plain);
}

void paint(ManualDocument* document, QPdfWriter* writer)
{
    QPainter painter(writer);
    // Pictures of a window show every pixel; JPEG would smear its thin lines.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    const QSizeF size = document->pageSize();
    for (int page = 0; page < document->pageCount(); ++page) {
        if (page > 0)
            writer->newPage();
        const QRectF part(QPointF(0, page * size.height()), size);
        painter.save();
        painter.translate(0, -part.top());
        painter.setClipRect(part);
        QAbstractTextDocumentLayout::PaintContext context;
        // A line that ends where the page begins does not belong to it, though it touches it.
        context.clip = part.adjusted(0, 1, 0, -1);
        context.palette.setColor(QPalette::Text, QColor(0x22, 0x22, 0x22));
        document->documentLayout()->draw(&painter, context);
        painter.restore();

        painter.setFont(QFont(QStringLiteral("Liberation Sans"), 8));
        painter.setPen(QColor(0x80, 0x80, 0x80));
        const QRectF footer(0, size.height(), size.width(), writer->height() - size.height());
        painter.drawText(footer, Qt::AlignLeft | Qt::AlignBottom,
                         document->metaInformation(QTextDocument::DocumentTitle));
        painter.drawText(footer, Qt::AlignRight | Qt::AlignBottom,
                         QStringLiteral("%1 / %2").arg(page + 1).arg(document->pageCount()));
    }
}

/// The side buttons and faders of \a device in words.
QString sides(const Record& device)
{
    QStringList parts;
    const QList<QPair<QString, QString>> words{{Key::top(), QStringLiteral("above")},
                                               {Key::left(), QStringLiteral("left")},
                                               {Key::right(), QStringLiteral("right")},
                                               {Key::bottom(), QStringLiteral("below")}};
    for (const auto& word : words) {
        const QString count = device.value(word.first);
        if (count != QLatin1String("0"))
            parts.append(count + QLatin1Char(' ') + word.second);
    }
    QString text = parts.isEmpty() ? QStringLiteral("none") : parts.join(QStringLiteral(", "));
    const QString faders = device.value(Key::faders());
    if (faders != QLatin1String("0"))
        text += QStringLiteral("; %1 faders").arg(faders);
    return text;
}

/// The colours that the pads of \a device can have, in words; black is none of them.
QString lights(const Record& device)
{
    if (controller::ledcolors(device) == controller::LedColors::Any)
        return QStringLiteral("any colour");
    QStringList colors = controller::palette(device);
    if (colors.join(QString()).contains(QLatin1Char('#')))
        return QStringLiteral("%1 colours").arg(colors.size());
    colors.removeAll(QStringLiteral("black"));
    return colors.join(QStringLiteral(", "));
}

/// The rows of the table of controllers, in the order in which the program offers them.
QString devicerows()
{
    QString rows;
    const QList<Record> devices =
        controller::readdefaultmappers(QStringLiteral(":/mappings/Mappings")).devices;
    for (int i = 0; i < devices.size(); ++i) {
        rows += QStringLiteral("<tr%1><td>%2</td><td>%3</td><td>%4</td></tr>\n")
                    .arg(i % 2 == 0 ? QString() : QStringLiteral(" bgcolor=\"#f7f7f7\""),
                         devices.at(i).value(Key::name()).toHtmlEscaped(), sides(devices.at(i)),
                         lights(devices.at(i)).toHtmlEscaped());
    }
    return rows;
}

/// The PDF, or the sentence that tells why there is none.
QString makemanual(const QString& textfile, const QString& pictures, const QString& target)
{
    QFile source(textfile);
    if (!source.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot read %1").arg(textfile);
    const QString version = QLatin1String(programVersion);
    QString html = QString::fromUtf8(source.readAll());
    html.replace(QLatin1String("{version}"), version);
    html.replace(QLatin1String("{devices}"), devicerows());

    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QList<Bookmark> outline;
    ManualDocument document({pictures, QFileInfo(textfile).path()});
    {
        QPdfWriter writer(&pdf);
        writer.setResolution(resolution);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF(22, 20, 22, 14), QPageLayout::Millimeter);
        writer.setTitle(QStringLiteral("Lumipad %1 manual").arg(version));
        writer.setCreator(QStringLiteral("Lumipad"));

        layout(&document, html, &writer);
        const auto places = anchors(document);
        for (const auto& place : places)
            html.replace(QStringLiteral("{page:%1}").arg(place.first),
                         QString::number(firstpage(place.second)));
        if (html.contains(QLatin1String("{page:")))
            return QStringLiteral("a {page:…} of %1 names no anchor").arg(textfile);
        layout(&document, html, &writer);
        outline = bookmarks(document, writer.pageLayout());
        removeanchors(&document);
        paint(&document, &writer);
    }
    if (!document.missing().isEmpty())
        return QStringLiteral("pictures are missing: %1").arg(document.missing().join(QLatin1String(", ")));

    // One date for all runs, as long as the true one, so that no position in the file moves.
    QByteArray bytes = pdf.data();
    const QByteArray key = QByteArrayLiteral("/CreationDate (D:");
    const QByteArray date = QByteArrayLiteral("20200101000000");
    const int at = bytes.indexOf(key);
    if (at >= 0)
        bytes.replace(at + key.size(), date.size(), date);
    bytes = withoutline(bytes, outline, "en");
    if (bytes.isEmpty())
        return QStringLiteral("the outline has no place in a file as the toolkit writes it now");
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly))
        return QStringLiteral("cannot write %1").arg(target);
    file.write(bytes);
    return file.commit() ? QString() : QStringLiteral("cannot write %1").arg(target);
}

} // namespace

int main(int argc, char** argv)
{
    // The fonts go into the file in the order of a hash table.
    qSetGlobalQHashSeed(0);
    QGuiApplication app(argc, argv);
    const QStringList words = QGuiApplication::arguments();
    const QString trouble = words.size() == 4
                                ? makemanual(words.at(1), words.at(2), words.at(3))
                                : QStringLiteral("needs a text, a folder of pictures and a file to make");
    if (trouble.isEmpty())
        return 0;
    QTextStream(stderr) << "lumipad_manual: " << trouble << ".\n";
    return 1;
}
