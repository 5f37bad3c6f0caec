// A made-up controller whose two files lie among the built-in ones, and nothing else of it anywhere.

#include "itemroles.h"
#include "midiwindow.h"
#include "testfiles.h"
#include "testmain.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>

class EighthTest : public QObject
{
    Q_OBJECT

private slots:
    void isOfferedWithItsMappings();
    void offersItsColours();
    void hasItsCells();
    void isExported();
};

namespace {

/// The window with the made-up device chosen.
struct EighthWindow : MidiWindow
{
    EighthWindow() { window.child<QComboBox>("devicescombo")->setCurrentText("Aardvark Grid"); }
};

QStringList itemtexts(const QComboBox* combo)
{
    QStringList all;
    for (int item = 0; item < combo->count(); ++item)
        all.append(combo->itemText(item));
    return all;
}

} // namespace

void EighthTest::isOfferedWithItsMappings()
{
    const EighthWindow midi;
    QCOMPARE(itemtexts(midi.window.child<QComboBox>("devicescombo")),
             QStringList({"Aardvark Grid", "Akai APC Mini", "Novation Launchpad Mini MK3",
                          "Novation Launchpad Mini", "Novation Launchpad MKII", "Novation Launchpad PRO",
                          "Novation Launchpad S", "Novation Launchpad"}));
    QCOMPARE(midi.window.currentDeviceId, QString("AARDVARKGRID"));
    QCOMPARE(itemtexts(midi.window.child<QComboBox>("mididevices")),
             QStringList({"Simple OS2L mapping", "Aardvark Grid mapping (factory)"}));
}

void EighthTest::offersItsColours()
{
    const EighthWindow midi;
    for (const char* combo : {"combo_offcolor", "combo_oncolor"})
        QCOMPARE(itemtexts(midi.window.child<QComboBox>(combo)),
                 QStringList({"black", "blue", "white", "#FF8000"}));
    QCOMPARE(midi.window.child<QComboBox>("combo_offcolor")->currentText(), QString("blue"));
    QCOMPARE(midi.window.child<QComboBox>("combo_oncolor")->currentText(), QString("#FF8000"));
}

void EighthTest::hasItsCells()
{
    const EighthWindow midi;
    QStringList usable;
    for (int row = 0; row < 12; ++row) {
        QString line;
        for (int col = 0; col < 12; ++col)
            line += midi.cell(row, col).data(ItemRole::Avail).toString();
        usable.append(line);
    }
    const QString none = "000000000000";
    const QString pads = "001111111101";
    QCOMPARE(usable,
             QStringList({"001100000000", none, pads, pads, pads, pads, pads, pads, pads, pads, none, none}));
}

void EighthTest::isExported()
{
    EighthWindow midi;
    midi.home->makefolder("Documents/VirtualDJ/Mappers");
    midi.drop(0, midi.cell(2, 2));
    midi.drop(1, midi.cell(0, 3));
    midi.window.child<QComboBox>("mididevices")->setCurrentIndex(1);
    midi.window.child<QLineEdit>("padsname")->setText("Club");
    const Dialogs dialogs({Answers::press(QMessageBox::Ok)});
    midi.window.child<QAction>("actionExport")->trigger();
    QCOMPARE(dialogs.at(0).text, QString("Mapping Club for Aardvark Grid is created."));
    const QString text = QString::fromUtf8(
        contents(midi.home->path("Documents/VirtualDJ/Mappers/Aardvark Grid - Club mapping.xml")));
    const auto line = [](const QString& value, const QString& action) {
        return "\t<map value=\"" + value + "\" action=\"" + QString(action).replace("'", "&apos;") + "\"/>\n";
    };
    // Two Live Buttons, a pad without one, a plain light, a fader, and what is carried over.
    for (const QString& wanted :
         {line("P11", "var '$os2l' ? os2l_button 'Strobe' : sampler_pad 1"),
          line("LIGHT_P11", "var '$os2l' ? os2l_button 'Strobe' ? color '#FF8000' : color 'blue' : "
                            "sampler_loaded 1 ? color 'blue' : off"),
          line("T2", "var '$os2l' ? os2l_button 'Blackout' : sampler_bank +1"),
          line("P12", "var '$os2l' ? nothing : sampler_pad 2"),
          line("F1", "var '$os2l' ? os2l_cmd 1 : deck 1 volume"), line("WHEEL", "browser_scroll")})
        QVERIFY2(text.contains(wanted), qPrintable(wanted + "\nis not in\n" + text));
}

LUMIPAD_TEST_MAIN(EighthTest)
#include "tst_eighth.moc"
