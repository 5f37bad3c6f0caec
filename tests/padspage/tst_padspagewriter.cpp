#include "itemroles.h"
#include "padspagewriter.h"
#include "testfiles.h"

#include <QColor>
#include <QFile>
#include <QRegularExpression>
#include <QStandardItemModel>
#include <QXmlStreamReader>
#include <QtTest>

using namespace padspage;

Q_DECLARE_METATYPE(PadsPage)

namespace {

/// A page of 64 rows of 2 empty pads whose banks are "BANK 1" to "BANK 8".
PadsPage emptyPage(const QString& name, bool sixteenPads = false)
{
    PadsPage page;
    page.name = name;
    page.sixteenPads = sixteenPads;
    page.pads = QVector<QVector<PadsPagePad>>(64, QVector<PadsPagePad>(2));
    for (int bank = 1; bank <= 8; ++bank)
        page.bankNames << "BANK " + QString::number(bank);
    return page;
}

/// Puts a Live Button on a pad; bank (1 to 8) and pad (1 to 16) are counted as the user sees them.
void put(PadsPage& page, int bank, int pad, const QString& text, const QString& color, const QString& button)
{
    PadsPagePad& target = page.pads[(bank - 1) * 8 + (pad - 1) % 8][pad > 8 ? 1 : 0];
    target.pageNr = 1;
    target.text = text;
    target.color = color;
    target.button = button;
}

QByteArray written(const PadsPage& page) { return padspagexml(page).toUtf8(); }

/// The lines of the pads; the tab is part of each.
QStringList padLines(const PadsPage& page)
{
    return padspagexml(page).split('\n').filter(QRegularExpression(QStringLiteral("^\t<pad\\d+ ")));
}

/// The lines of parameters (a file has one); the tab is part of it.
QStringList parameterLines(const PadsPage& page)
{
    return padspagexml(page).split('\n').filter(QStringLiteral("\t<param"));
}

} // namespace

class PadsPageWriterTest : public QObject
{
    Q_OBJECT

private slots:
    void writesThePageByteForByte_data();
    void writesThePageByteForByte();
    void endsEveryLineWithOneLineFeed();
    void readsBackInVirtualDJAsScripts();
    void writesThePageNameAsItStands_data();
    void writesThePageNameAsItStands();
    void writesMissingBankNamesAsEmpty();
    void keepsAnEmptyBankName();
    void takesMissingPadsForEmptyOnes();
    void ignoresWhatLiesBeyondTheGrid();
    void takesAPadWithoutPageNumberForEmpty();
    void writesEmptyChainsWithoutLiveButtons();
    void keepsBanksAndPadsWhenChangingTheLayout();
    void takesThePadsFromTheGrid();
};

void PadsPageWriterTest::writesThePageByteForByte_data()
{
    QTest::addColumn<PadsPage>("page");

    PadsPage apart = emptyPage("OS2L DMX");
    put(apart, 1, 1, "STROBE", "#ff0000", "Strobe");
    put(apart, 3, 2, "BLACKOUT", "#000000", "Blackout");
    QTest::newRow("banks-1-and-3") << apart;

    PadsPage one = emptyPage("OS2L DMX");
    one.bankNames[0] = "Opening";
    put(one, 1, 3, "BLINDER", "#ffffff", "Blinder");
    put(one, 1, 8, "FOG", "#808080", "Fog Burst");
    QTest::newRow("one-used-bank") << one;

    PadsPage inner = emptyPage("Friday Night");
    inner.bankNames[4] = "Finale";
    put(inner, 2, 1, "STROBE", "#ff0000", "Strobe");
    put(inner, 5, 1, "CONFETTI", "#ffd700", "Confetti Drop");
    put(inner, 5, 8, "HOUSE", "#ffe4c4", "House Lights");
    QTest::newRow("banks-2-and-5") << inner;

    PadsPage sixteen = emptyPage("Big Page", true);
    sixteen.bankNames[0] = "Left";
    sixteen.bankNames[1] = "Right";
    put(sixteen, 1, 1, "STROBE", "#ff0000", "Strobe");
    put(sixteen, 1, 9, "TUNNEL", "#00ffff", "Tunnel");
    put(sixteen, 1, 16, "RAIN", "#0000ff", "Rain");
    put(sixteen, 2, 10, "SUNSET", "#ff8000", "Sunset");
    QTest::newRow("sixteen-pads") << sixteen;

    PadsPage hidden = emptyPage("OS2L DMX");
    hidden.bankNames[5] = "Slow Set";
    put(hidden, 1, 9, "TUNNEL", "#00ffff", "Tunnel");
    put(hidden, 6, 2, "SLOW", "#400080", "Slow Fade");
    QTest::newRow("hidden-column-bank") << hidden;

    PadsPage names = emptyPage("Jo's \"Ænd\" & <More> %1", true);
    names.bankNames[0] = "D'Été & \"Früh\" <1>";
    names.bankNames[7] = "&amp; %2";
    put(names, 1, 1, "Rock 'n' Roll", "#ff0000", "Rock 'n' Roll");
    put(names, 1, 2, "Tunnel & Fog", "#00ff00", "Tunnel & Fog");
    put(names, 1, 3, "<Intro>", "#0000ff", "<Intro>");
    put(names, 1, 4, "Say \"Hello\"", "#ffff00", "Say \"Hello, World\"");
    put(names, 1, 5, "Grün", "#00ff80", "Grünes Licht");
    put(names, 1, 6, "夜", "#101010", "夜の光");
    put(names, 1, 7, "🎉", "#ff00ff", "Party 🎉");
    put(names, 8, 1, "%1 %2 %3", "#808080", "100%");
    put(names, 8, 9, "a`b : c", "#a0a0a0", "back\\slash");
    QTest::newRow("names-as-they-stand") << names;

    PadsPage full = emptyPage("Everything", true);
    for (int bank = 1; bank <= 8; ++bank) {
        full.bankNames[bank - 1] = QStringLiteral("Set %1").arg(bank);
        for (int pad = 1; pad <= 16; ++pad)
            put(full, bank, pad, QStringLiteral("B%1 P%2").arg(bank).arg(pad),
                QColor(bank * 16, pad * 8, bank * 16 + pad).name(),
                QStringLiteral("Cue %1.%2").arg(bank).arg(pad));
    }
    QTest::newRow("all-banks-full") << full;
}

void PadsPageWriterTest::writesThePageByteForByte()
{
    QFETCH(PadsPage, page);
    QFile golden(QStringLiteral(TEST_DATA_DIR "/golden/") + QTest::currentDataTag() + ".xml");
    QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(golden.fileName()));
    COMPARE_FILES(written(page), golden.readAll());
}

void PadsPageWriterTest::endsEveryLineWithOneLineFeed()
{
    PadsPage page = emptyPage("OS2L DMX", true);
    put(page, 4, 12, "Grün", "#00ff00", "Grün");
    const QByteArray file = written(page);
    QVERIFY2(file.startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<page "),
             file.left(60).constData());
    QVERIFY2(file.endsWith("</param1>\n</page>\n"), file.right(60).constData());
    QVERIFY(!file.contains('\r'));
    QCOMPARE(file.count('\n'), 2 + 16 + 1 + 1);
}

void PadsPageWriterTest::readsBackInVirtualDJAsScripts()
{
    PadsPage page = emptyPage("OS2L DMX");
    put(page, 1, 1, "STROBE", "#ff0000", "Strobe");
    put(page, 2, 1, "FOG", "#808080", "Fog Burst");

    QXmlStreamReader xml(padspagexml(page));
    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name().toString(), QString("page"));
    QCOMPARE(xml.attributes().value("name").toString(), QString("OS2L DMX"));

    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name().toString(), QString("pad1"));
    QCOMPARE(xml.attributes().value("name").toString(),
             QString("`var 'dmxbank' 0 ? get_text 'STROBE' : var 'dmxbank' 1 ? get_text 'FOG'`"));
    QCOMPARE(xml.attributes().value("color").toString(),
             QString("var 'dmxbank' 0 ? color '#ff0000' : var 'dmxbank' 1 ? color '#808080'"));
    QCOMPARE(xml.readElementText(),
             QString("var 'dmxbank' 0 ? os2l_button 'Strobe' : var 'dmxbank' 1 ? os2l_button 'Fog Burst'"));

    QStringList others;
    QString parameter;
    while (xml.readNextStartElement()) {
        others << xml.name().toString();
        parameter = xml.readElementText();
    }
    QCOMPARE(others, QStringList({"pad2", "pad3", "pad4", "pad5", "pad6", "pad7", "pad8", "param1"}));
    QCOMPARE(parameter, QString("param_bigger 0 ? cycle 'dmxbank' 2 : cycle 'dmxbank' -2"));
    xml.readNext();
    QVERIFY(xml.atEnd());
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
}

void PadsPageWriterTest::writesThePageNameAsItStands_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QString();
    QTest::newRow("path") << "../a/b\\c";
    QTest::newRow("markup") << "</page> & \"it's\"";
    QTest::newRow("placeholders") << "%1 %L2 %n";
    QTest::newRow("letters") << "Ärger Žižkov Ночь 夜 🎛";
    QTest::newRow("white space") << " \t two\nlines ";
    QTest::newRow("long") << QString(10000, 'x');
}

void PadsPageWriterTest::writesThePageNameAsItStands()
{
    QFETCH(QString, name);
    PadsPage plain = emptyPage("PLACEHOLDER");
    put(plain, 1, 1, "STROBE", "#ff0000", "Strobe");
    PadsPage named = plain;
    named.name = name;
    COMPARE_FILES(written(named), written(plain).replace("PLACEHOLDER", name.toUtf8()));
}

void PadsPageWriterTest::writesMissingBankNamesAsEmpty()
{
    PadsPage page = emptyPage("OS2L DMX");
    put(page, 1, 1, "STROBE", "#ff0000", "Strobe");
    put(page, 3, 1, "FOG", "#808080", "Fog Burst");
    page.bankNames = QStringList{"Opening"};
    QCOMPARE(parameterLines(page),
             QStringList("\t<param1 name=\"`var &apos;dmxbank&apos; 0 ? get_text &apos;Opening&apos; : "
                         "var &apos;dmxbank&apos; 1 ? get_text &apos;&apos;`\">param_bigger 0 ? "
                         "cycle &apos;dmxbank&apos; 2 : cycle &apos;dmxbank&apos; -2</param1>"));

    page.bankNames.clear();
    PadsPage unnamed = page;
    unnamed.bankNames = QStringList{"", "", "", "", "", "", "", ""};
    COMPARE_FILES(written(page), written(unnamed));
}

void PadsPageWriterTest::keepsAnEmptyBankName()
{
    PadsPage page = emptyPage("OS2L DMX");
    put(page, 1, 1, "STROBE", "#ff0000", "Strobe");
    put(page, 2, 1, "FOG", "#808080", "Fog Burst");
    page.bankNames[0].clear();
    QCOMPARE(parameterLines(page),
             QStringList("\t<param1 name=\"`var &apos;dmxbank&apos; 0 ? get_text &apos;&apos; : "
                         "var &apos;dmxbank&apos; 1 ? get_text &apos;BANK 2&apos;`\">param_bigger 0 ? "
                         "cycle &apos;dmxbank&apos; 2 : cycle &apos;dmxbank&apos; -2</param1>"));
}

void PadsPageWriterTest::takesMissingPadsForEmptyOnes()
{
    PadsPage whole = emptyPage("OS2L DMX", true);
    put(whole, 1, 3, "STROBE", "#ff0000", "Strobe");
    put(whole, 2, 1, "FOG", "#808080", "Fog Burst");
    put(whole, 2, 10, "RAIN", "#0000ff", "Rain");

    PadsPage ragged = whole;
    ragged.pads.resize(10);   // ends after the second row of bank 2
    ragged.pads[0].clear();   // a row without pads
    ragged.pads[2].resize(1); // rows without the second column
    ragged.pads[8].resize(1);
    QCOMPARE(padLines(ragged).size(), 16);
    COMPARE_FILES(written(ragged), written(whole));
}

void PadsPageWriterTest::ignoresWhatLiesBeyondTheGrid()
{
    PadsPage page = emptyPage("OS2L DMX", true);
    put(page, 8, 16, "STROBE", "#ff0000", "Strobe");
    PadsPage larger = page;
    PadsPagePad stray = page.pads[63][1];
    stray.button = "Stray";
    larger.pads[0] << stray;
    larger.pads << QVector<PadsPagePad>(3, stray);
    larger.bankNames << "BANK 9";
    COMPARE_FILES(written(larger), written(page));
}

void PadsPageWriterTest::takesAPadWithoutPageNumberForEmpty()
{
    PadsPage empty = emptyPage("OS2L DMX");
    put(empty, 1, 1, "STROBE", "#ff0000", "Strobe");
    PadsPage page = empty;
    put(page, 1, 2, "PAD 2", "#00ff00", "PAD 2");
    page.pads[1][0].pageNr = 0;
    put(page, 7, 9, "PAD 1", "#00ff00", "PAD 1");
    page.pads[48][1].pageNr = -1;
    COMPARE_FILES(written(page), written(empty));
}

void PadsPageWriterTest::writesEmptyChainsWithoutLiveButtons()
{
    QByteArray expected = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<page name=\"OS2L DMX\">\n"
                          "\t<pad1 name=\"``\" color=\"\"></pad1>\n"
                          "\t<pad2 name=\"``\" color=\"\"></pad2>\n"
                          "\t<pad3 name=\"``\" color=\"\"></pad3>\n"
                          "\t<pad4 name=\"``\" color=\"\"></pad4>\n"
                          "\t<pad5 name=\"``\" color=\"\"></pad5>\n"
                          "\t<pad6 name=\"``\" color=\"\"></pad6>\n"
                          "\t<pad7 name=\"``\" color=\"\"></pad7>\n"
                          "\t<pad8 name=\"``\" color=\"\"></pad8>\n"
                          "\t<param1 name=\"``\">param_bigger 0 ? cycle &apos;dmxbank&apos; 0 : "
                          "cycle &apos;dmxbank&apos; -0</param1>\n"
                          "</page>\n";
    COMPARE_FILES(written(emptyPage("OS2L DMX")), expected);

    PadsPage nothing;
    COMPARE_FILES(written(nothing), expected.replace("OS2L DMX", ""));
    nothing.sixteenPads = true;
    QCOMPARE(padLines(nothing).value(15), QString("\t<pad16 name=\"``\" color=\"\"></pad16>"));
}

void PadsPageWriterTest::keepsBanksAndPadsWhenChangingTheLayout()
{
    PadsPage page = emptyPage("OS2L DMX");
    put(page, 2, 16, "RAIN", "#0000ff", "Rain");
    put(page, 4, 5, "STROBE", "#ff0000", "Strobe");
    const QStringList eight = padLines(page);
    const QStringList parameter = parameterLines(page);
    page.sixteenPads = true;
    QCOMPARE(eight.size(), 8);
    QCOMPARE(padLines(page).size(), 16);
    QCOMPARE(padLines(page).mid(0, 8), eight);
    QCOMPARE(parameter.size(), 1);
    QCOMPARE(parameterLines(page), parameter);
}

void PadsPageWriterTest::takesThePadsFromTheGrid()
{
    QStandardItemModel grid(64, 2);
    const QModelIndex cell = grid.index(17, 1);
    grid.setData(cell, "FOG", Qt::EditRole);
    grid.setData(cell, QColor(0x80, 0xAB, 0x00), Qt::DecorationRole);
    grid.setData(cell, "3", ItemRole::Page);
    grid.setData(cell, "Fog Burst", ItemRole::DspName);

    PadsPage expected = emptyPage("OS2L DMX", true);
    put(expected, 3, 10, "FOG", "#80ab00", "Fog Burst");
    PadsPage page = expected;
    page.pads = padspagepads(grid);
    COMPARE_FILES(written(page), written(expected));
    page.pads = padspagepads(QStandardItemModel());
    QVERIFY(page.pads.isEmpty());
}

QTEST_GUILESS_MAIN(PadsPageWriterTest)
#include "tst_padspagewriter.moc"
