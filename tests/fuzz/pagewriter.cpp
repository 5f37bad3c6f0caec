// The writer of pads pages, read back by a second XML reader. An input is lines: the page's name, eight names
// of banks, then three for each pad: its text (empty: no Live Button), its Live Button and its colour.

#include "fuzz.h"
#include "padspagewriter.h"

#include <QXmlStreamReader>

#include <utility>

namespace {

padspage::PadsPage pageof(const QStringList& lines)
{
    padspage::PadsPage page;
    page.name = lines.value(0);
    page.bankNames = lines.mid(1, 8);
    page.sixteenPads = lines.size() % 2 == 1;
    for (int line = 9; line < lines.size(); line += 3) {
        if (line % 2 == 1)
            page.pads.append(QVector<padspage::PadsPagePad>());
        const QString& text = lines.at(line);
        page.pads.last().append({text.isEmpty() ? 0 : 1, text, lines.value(line + 2), lines.value(line + 1)});
    }
    return page;
}

bool clean(const QStringList& lines)
{
    return std::all_of(lines.cbegin(), lines.cend(), [](const QString& line) {
        return Fuzz::survives(line) && !line.contains(QLatin1String(" : "));
    });
}

/// Holds what a pad shows or does, one piece per used bank, against the grid.
void comparechain(const QString& chain, const QVector<padspage::PadsPagePad>& pads, const QString& verb,
                  QString padspage::PadsPagePad::*value, const QString& empty)
{
    const QStringList found = chain.isEmpty() ? QStringList() : chain.split(QStringLiteral(" : "));
    Fuzz::require(found.size() == pads.size(), "there is one condition for each used bank");
    for (int bank = 0; bank < pads.size(); ++bank) {
        const padspage::PadsPagePad& pad = pads.at(bank);
        const QString action = pad.pageNr > 0 ? verb + " '" + pad.*value + "'" : empty;
        Fuzz::require(found.at(bank) == "var 'dmxbank' " + QString::number(bank) + " ? " + action,
                      "a pad says what the grid holds");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QStringList lines = QString::fromUtf8(Fuzz::bytes(data, size)).split('\n');
    const padspage::PadsPage page = pageof(lines);
    const QByteArray text = Fuzz::intime([&] { return padspage::padspagexml(page); }).toUtf8();
    const int padcount = page.sixteenPads ? 16 : 8;
    Fuzz::require(text.count('\n') == padcount + 4, "a page has a line for every pad");
    if (!clean(lines))
        return 0;

    QVector<int> banks;
    for (int row = 0; row < 64 && row < page.pads.size(); ++row)
        for (int column = 0; column < 2 && column < page.pads.at(row).size(); ++column)
            if (page.pads.at(row).at(column).pageNr > 0 && !banks.contains(row / 8))
                banks.append(row / 8);
    QXmlStreamReader xml(text);
    Fuzz::require(xml.readNextStartElement() && xml.name() == QLatin1String("page"), "the file is a page");
    Fuzz::require(xml.attributes().value("name") == page.name, "the page has its name");
    for (int pad = 0; pad < padcount; ++pad) {
        Fuzz::require(xml.readNextStartElement() && xml.name() == "pad" + QString::number(pad + 1),
                      "the pads come in order");
        QVector<padspage::PadsPagePad> pads;
        for (const int bank : std::as_const(banks))
            pads.append(page.pads.value(bank * 8 + pad % 8).value(pad / 8));
        const QXmlStreamAttributes attributes = xml.attributes();
        const QString name = attributes.value("name").toString();
        comparechain(name.mid(1, name.size() - 2), pads, "get_text", &padspage::PadsPagePad::text,
                     "get_text ''");
        comparechain(attributes.value("color").toString(), pads, "color", &padspage::PadsPagePad::color,
                     "color 'transparent'");
        comparechain(xml.readElementText(), pads, "os2l_button", &padspage::PadsPagePad::button, "nothing");
    }
    Fuzz::require(xml.readNextStartElement() && xml.name() == QLatin1String("param1"),
                  "the parameter comes last");
    xml.skipCurrentElement();
    Fuzz::require(!xml.readNextStartElement() && !xml.hasError(), "the file is whole");
    return 0;
}
