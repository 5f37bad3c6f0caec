// The reader of light shows: any file within bounds, a plain one as the toolkit's own settings tell it.

#include "lightshow.h"

#include "bounds.h"
#include "fuzz.h"

#include <QRegularExpression>
#include <QSettings>

#include <algorithm>

namespace {

/// Whether every byte means the same to the reader and to the toolkit.
bool isplain(const QByteArray& text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](char sign) { return sign > 0 && sign != '@' && sign != '\\'; });
}

/// \a records with no blank around a comma. Where a value stands without quotes, the toolkit takes its parts
/// for a list and drops the blanks.
QList<Record> withoutlistblanks(QList<Record> records)
{
    static const QRegularExpression comma(QStringLiteral("\\s*,\\s*"));
    for (Record& record : records)
        for (QString& value : record)
            value.replace(comma, QStringLiteral(","));
    return records;
}

Record groupof(QSettings* settings, const QString& group, Record record)
{
    settings->beginGroup(group);
    const QStringList keys = settings->allKeys();
    for (const QString& key : keys)
        record[key] = settings->value(key).toStringList().join(QStringLiteral(", "));
    settings->endGroup();
    return record;
}

Record buttonof(QSettings* settings, const QString& group, int page, int id)
{
    Record button = groupof(settings, group, {{Key::pageId(), QString::number(page)}, {Key::check(), "0"}});
    const QString hexadecimal =
        QString::number(static_cast<qulonglong>(button.value(Key::color()).toInt()), 16).toUpper();
    button[Key::color()] = show::getcolor(button.contains(Key::color()) ? hexadecimal : QString());
    button[Key::buttonId()] = QString::number(id);
    return button;
}

/// The show in \a path, step by step and without bounds.
show::LightShow literally(const QString& path)
{
    QSettings settings(path, QSettings::IniFormat);
    show::LightShow show;
    show.pages.append({{Key::pageId(), "0"}, {Key::pageName(), "All Pages"}});
    // As a text: of a number that is too large for one, the variant would give some of its bits.
    const int pages = settings.value("page/number").toString().toInt();
    for (int page = 1; page <= pages; ++page) {
        const QString number = QString::number(page);
        show.pages.append(groupof(&settings, "page" + number, {{Key::pageId(), number}}));
    }
    for (int page = 1; page < show.pages.size(); ++page) {
        const Record record = show.pages.at(page);
        const QString prefix = "page" + record.value(Key::pageId()) + "_button";
        for (int button = 1; button <= record.value(Key::buttonCount()).toInt(); ++button)
            show.buttons.append(buttonof(&settings, prefix + QString::number(button), page,
                                         static_cast<int>(show.buttons.size())));
    }
    return show;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text = Fuzz::bytes(data, size);
    const Fuzz::InputFile file(text, QStringLiteral("ini"));
    const auto show = Fuzz::intime([&] { return show::readlightshow(file.path()); });
    Fuzz::require(show && !show->pages.isEmpty(), "a file that is there gives a show");
    Fuzz::require(show->pages.size() <= maxLivePages + 1 && show->buttons.size() <= maxLiveButtons,
                  "a show stays within its bounds");
    for (int id = 0; id < show->buttons.size(); ++id) {
        const Record& button = show->buttons.at(id);
        Fuzz::require(button.value(Key::buttonId()) == QString::number(id), "a button's id is its index");
        const QString color = button.value(Key::color());
        Fuzz::require(color.startsWith('#') && color.size() >= 7, "every button has a colour");
    }
    if (isplain(text) && show->pages.size() + show->buttons.size() < Fuzz::fewElements) {
        const show::LightShow expected = literally(file.path());
        Fuzz::require(withoutlistblanks(show->pages) == withoutlistblanks(expected.pages),
                      "pages are read as they stand");
        Fuzz::require(withoutlistblanks(show->buttons) == withoutlistblanks(expected.buttons),
                      "buttons are read as they stand");
    }
    return 0;
}
