#include "lightshow.h"

#include "storedtexts.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryFile>
#include <QTextCodec>

#include <algorithm>

namespace show {

namespace {

constexpr int mibUtf8 = 106; // IANA character sets

/// Stands for "@" between the codec and `textvalue`; a character that no font and no keyboard has.
constexpr QChar atMark(0xE040);

/// The lighting programs write names in the encoding of their machine, so a file can hold UTF-8 in one title
/// and Latin-1 in the next. QSettings hands over each run of plain characters on its own.
/// It also takes "@Variant(" and its like at the start of a value for a stored object and builds it, with
/// whatever sizes and depths the file claims; so no "@" may reach it.
class Utf8OrLatin1 : public QTextCodec
{
public:
    QByteArray name() const override { return QByteArrayLiteral("Lumipad-UTF-8-or-Latin-1"); }
    int mibEnum() const override { return -4711; } // negative: not a registered character set

protected:
    QString convertToUnicode(const char* chars, int length, ConverterState*) const override
    {
        // Asked for once: the look-up goes through every codec there is, and a show has many values.
        static const QTextCodec* const utf8 = codecForMib(mibUtf8);
        ConverterState state(IgnoreHeader);
        QString text = utf8->toUnicode(chars, length, &state);
        if (state.invalidChars || state.remainingChars)
            text = QString::fromLatin1(chars, length);
        return text.replace(QLatin1Char('@'), atMark);
    }
    QByteArray convertFromUnicode(const QChar* chars, int length, ConverterState*) const override
    {
        return QString(chars, length).toUtf8();
    }
};

QTextCodec* inicodec()
{
    static QTextCodec* const codec = new Utf8OrLatin1; // Qt owns every codec from its construction on
    return codec;
}

/// The value of a digit of an escape; -1 when \a digit is none.
int digitvalue(char digit, bool hexadecimal)
{
    if (digit >= '0' && digit <= (hexadecimal ? '9' : '7'))
        return digit - '0';
    const int letter = (digit | 0x20) - 'a';
    return hexadecimal && letter >= 0 && letter < 6 ? letter + 10 : -1;
}

/// \a bytes with `atMark` for every "@" that is written as an escape, past the codec. Escapes keep the lowest
/// 16 bits of their number.
QByteArray withoutescapedat(const QByteArray& bytes)
{
    QByteArray result;
    int copied = 0;
    for (int at = bytes.indexOf('\\'); at >= 0; at = bytes.indexOf('\\', at + 2)) {
        int end = at + 1;
        const bool hexadecimal = end < bytes.size() && bytes.at(end) == 'x';
        if (hexadecimal)
            ++end;
        uint number = 0; // wraps above its lowest 16 bits only
        for (int value; end < bytes.size() && (value = digitvalue(bytes.at(end), hexadecimal)) >= 0; ++end)
            number = number * (hexadecimal ? 16 : 8) + static_cast<uint>(value);
        if ((number & 0xFFFFu) != '@')
            continue;
        // In the same base: the digits behind it then end where they did.
        result += bytes.mid(copied, at - copied) + '\\' + (hexadecimal ? "x" : "") +
                  QByteArray::number(atMark.unicode(), hexadecimal ? 16 : 8);
        copied = end;
    }
    return copied == 0 ? bytes : result + bytes.mid(copied);
}

/// The value of \a key as text. QSettings takes an unquoted comma for a list separator; a title is one text.
QString textvalue(const QSettings& settings, const QString& key)
{
    const QVariant value = settings.value(key);
    QString text = value.type() == QVariant::StringList ? value.toStringList().join(QStringLiteral(", "))
                                                        : value.toString();
    text.replace(atMark, QLatin1Char('@'));
    // Texts that QSettings itself has written in a form of its own.
    if (text.startsWith(QLatin1String("@@")))
        return text.mid(1);
    for (const QLatin1String form : {QLatin1String("@ByteArray("), QLatin1String("@String(")}) {
        if (text.startsWith(form) && text.endsWith(QLatin1Char(')')))
            return text.mid(form.size(), text.size() - form.size() - 1);
    }
    return text == QLatin1String("@Invalid()") ? QString() : text;
}

/// Copies every key of \a group into \a record.
void readgroup(QSettings& settings, const QString& group, Record* record)
{
    settings.beginGroup(group);
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys)
        record->insert(key, textvalue(settings, key));
    settings.endGroup();
}

Record readbutton(QSettings& settings, const QString& group, int page, int buttonid)
{
    Record record{{Key::pageId(), QString::number(page)}, {Key::check(), QStringLiteral("0")}};
    readgroup(settings, group, &record);
    const auto color = record.find(Key::color());
    if (color == record.end())
        record.insert(Key::color(), getcolor(QString()));
    else
        *color = getcolor(QString::number(color->toInt(), 16).toUpper());
    record.insert(Key::buttonId(), QString::number(buttonid));
    return record;
}

} // namespace

std::optional<LightShow> readlightshow(const QString& path)
{
    // A folder, pipe or device under this name is no show; reading a pipe could block for ever.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    // QSettings reads from files only, so one with such escapes is read from a copy.
    const QByteArray bytes = file.readAll();
    const QByteArray safe = withoutescapedat(bytes);
    QTemporaryFile copy;
    if (safe != bytes && !(copy.open() && copy.write(safe) == safe.size() && copy.flush()))
        return std::nullopt;
    QSettings settings(safe == bytes ? path : copy.fileName(), QSettings::IniFormat);
    settings.setIniCodec(inicodec());

    LightShow show;
    show.pages.append({{Key::pageId(), QStringLiteral("0")}, {Key::pageName(), Stored::allPages()}});
    const int pages = std::min(textvalue(settings, QStringLiteral("page/number")).toInt(), maxLivePages);
    for (int page = 1; page <= pages; ++page) {
        Record record{{Key::pageId(), QString::number(page)}};
        readgroup(settings, QStringLiteral("page") + QString::number(page), &record);
        show.pages.append(record);
    }
    for (int page = 1; page < show.pages.size(); ++page) {
        const Record& record = show.pages.at(page);
        const QString prefix =
            QStringLiteral("page") + record.value(Key::pageId()) + QStringLiteral("_button");
        const int count =
            std::min(record.value(Key::buttonCount()).toInt(), maxLiveButtons - show.buttons.size());
        for (int button = 1; button <= count; ++button)
            show.buttons.append(
                readbutton(settings, prefix + QString::number(button), page, show.buttons.size()));
    }
    return show;
}

QString getcolor(const QString& color)
{
    return QLatin1Char('#') +
           (color.isEmpty() ? QStringLiteral("ffffff") : color.rightJustified(6, QLatin1Char('0')));
}

int buttonsperpage(const QList<Record>& buttons, int page)
{
    const QString pageid = QString::number(page);
    return static_cast<int>(std::count_if(buttons.cbegin(), buttons.cend(), [&](const Record& button) {
        return button.value(Key::pageId()) == pageid;
    }));
}

} // namespace show
