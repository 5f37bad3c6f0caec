#include "madeshow.h"

#include "measure.h"

#include <QFile>

#include <array>
#include <cstddef>

namespace {

constexpr std::array titles{
    "Strobe %",       "Blackout %", "Slow Fade %",  "Tunnel & Fog %",     "\"Drop, Then Silence %\"",
    "Grünes Licht %", "Blinder %",  "Crowd Wash %", "Bleu \\xc9t\\xe9 %", "\"\\\"Encore\\\" Look %\"",
    "Mirror Ball %",  "夜の光 %",   "Laser Grid %",
};
constexpr std::array colors{"16711680", "0", "4219072", "51400", "16711935", "16777215", "255"};

QByteArray number(int value) { return QByteArray::number(value); }

QByteArray pagetext(int page, int buttons)
{
    return "[page" + number(page) + "]\nname=Page " + number(page) + "\nnb_buttons=" + number(buttons) +
           "\ncolumns=4\nvisible=1\n\n";
}

QByteArray buttontext(int page, int button)
{
    const std::size_t running = static_cast<std::size_t>(page) * 31 + static_cast<std::size_t>(button);
    QByteArray title = titles[running % titles.size()];
    title.replace('%', number(button));
    return "[page" + number(page) + "_button" + number(button) + "]\ntitle=" + title +
           "\ncolor=" + colors[running % colors.size()] + "\nflash=" + number(button % 2) +
           "\nfade=" + number(button % 9 * 500) + "\nx=" + number(button % 4) + "\ny=" + number(button / 4) +
           "\nwidth=1\nheight=1\nshortcut=\n\n";
}

} // namespace

QByteArray madeshow(int buttons)
{
    const int perpage = buttons / madePages;
    QByteArray text = "[page]\nnumber=" + number(madePages) + "\n\n";
    for (int page = 1; page <= madePages; ++page)
        text += pagetext(page, perpage);
    for (int page = 1; page <= madePages; ++page)
        for (int button = 1; button <= perpage; ++button)
            text += buttontext(page, button);
    return text;
}

void storeshow(const QString& path, int buttons)
{
    QFile file(path);
    const QByteArray text = madeshow(buttons);
    require(file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.flush(),
            QStringLiteral("%1 cannot be written").arg(path));
}
