#include "lightshow.h"

#include "names.h"
#include "plainini.h"
#include "readfile.h"
#include "storedtexts.h"
#include "toolkit.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryFile>

#include <algorithm>

namespace show {

namespace {

/// The value of \a key as text.
QString textvalue(const QSettings& settings, const QString& key)
{
    QString text = settings.value(key).toString();
    text.replace(atMark, QLatin1Char('@'));
    if (!text.startsWith(QLatin1Char('@')))
        return text;
    // Texts that QSettings itself has written in a form of its own.
    if (text.startsWith(QLatin1String("@@")))
        return text.mid(1);
    for (const QLatin1String form : {QLatin1String("@ByteArray("), QLatin1String("@String(")}) {
        if (text.startsWith(form) && text.endsWith(QLatin1Char(')')))
            return text.mid(form.size(), text.size() - form.size() - 1);
    }
    return text == QLatin1String("@Invalid()") ? QString() : text;
}

/// Makes the records of a show from its settings, as far as the bounds allow.
class ShowReader
{
public:
    explicit ShowReader(QSettings* settings) : m_settings(settings) {}

    LightShow show();

private:
    void readgroup(const QString& group, Record* record);
    Record page(int number);
    Record button(const QString& group, int page, int buttonid);
    bool isfull() const { return m_values >= maxShowValues || m_characters >= maxShowCharacters; }

    QSettings* m_settings;
    int m_values = 0;
    Size m_characters = 0;
};

/// Copies every key of \a group into \a record.
void ShowReader::readgroup(const QString& group, Record* record)
{
    // Pages give the names of their groups, of any length; a group need not exist to be asked for.
    m_characters += group.size();
    m_settings->beginGroup(group);
    const QStringList keys = m_settings->allKeys();
    for (const QString& key : keys) {
        if (isfull())
            break;
        const QString text = textvalue(*m_settings, key);
        ++m_values;
        m_characters += key.size() + text.size();
        record->insert(key, text);
    }
    m_settings->endGroup();
}

Record ShowReader::page(int number)
{
    Record record{{Key::pageId(), QString::number(number)}};
    readgroup(QStringLiteral("page") + QString::number(number), &record);
    const auto name = record.find(Key::pageName());
    if (name != record.end())
        *name = shownname(*name);
    return record;
}

Record ShowReader::button(const QString& group, int page, int buttonid)
{
    Record record{{Key::pageId(), QString::number(page)}, {Key::check(), QStringLiteral("0")}};
    readgroup(group, &record);
    const auto title = record.find(Key::title());
    if (title != record.end())
        *title = beginning(*title, maxTitleLength);
    const auto color = record.find(Key::color());
    if (color == record.end())
        record.insert(Key::color(), getcolor(QString()));
    else
        *color = getcolor(QString::number(static_cast<qulonglong>(color->toInt()), 16).toUpper());
    record.insert(Key::buttonId(), QString::number(buttonid));
    return record;
}

LightShow ShowReader::show()
{
    LightShow show;
    show.pages.append({{Key::pageId(), QStringLiteral("0")}, {Key::pageName(), Stored::allPages()}});
    const int pages = std::min(textvalue(*m_settings, QStringLiteral("page/number")).toInt(), maxLivePages);
    for (int number = 1; number <= pages; ++number)
        show.pages.append(page(number));
    int buttonid = 0;
    for (int number = 1; number < show.pages.size(); ++number) {
        const Record& record = show.pages.at(number);
        const QString prefix =
            QStringLiteral("page") + record.value(Key::pageId()) + QStringLiteral("_button");
        const int count = std::min(record.value(Key::buttonCount()).toInt(), maxLiveButtons - buttonid);
        for (int n = 1; n <= count && !isfull(); ++n)
            show.buttons.append(button(prefix + QString::number(n), number, buttonid++));
    }
    return show;
}

/// Reads the show from \a copy, which is empty afterwards.
LightShow readcopy(QTemporaryFile* copy)
{
    QSettings settings(copy->fileName(), QSettings::IniFormat);
    LightShow show = ShowReader(&settings).show();
    // It keeps what it has parsed for the next reader of the same file; there will be none.
    copy->resize(0);
    settings.sync();
    return show;
}

} // namespace

std::optional<LightShow> readlightshow(const QString& path)
{
    const auto bytes = readregularfile(path, maxLightShowSize);
    const auto plain = bytes ? plainini(*bytes) : std::nullopt;
    if (!plain)
        return std::nullopt;
    // QSettings reads from files only. The usual place for temporary files may be full or closed.
    for (const QString& folder : {QDir::tempPath(), QDir::homePath()}) {
        QTemporaryFile copy(folder + QStringLiteral("/.lumipad-XXXXXX"));
        if (copy.open() && copy.write(*plain) == plain->size() && copy.flush())
            return readcopy(&copy);
    }
    return std::nullopt;
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
