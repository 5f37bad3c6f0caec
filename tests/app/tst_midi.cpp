#include "controller.h"
#include "itemroles.h"
#include "midiwindow.h"
#include "mymodel.h"
#include "testmain.h"
#include "vdjmodel.h"

#include <QAction>
#include <QComboBox>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <limits>

namespace {

constexpr int least = std::numeric_limits<int>::min();
constexpr int most = std::numeric_limits<int>::max();

/// The seven devices that the tests know, in the order in which they are listed.
enum Device { ApcMini, LaunchpadMiniMk3, LaunchpadMini, LaunchpadMk2, LaunchpadPro, LaunchpadS, Launchpad };
constexpr int knownDevices = 7;

const QStringList deviceNames{"Akai APC Mini",           "Novation Launchpad Mini MK3",
                              "Novation Launchpad Mini", "Novation Launchpad MKII",
                              "Novation Launchpad PRO",  "Novation Launchpad S",
                              "Novation Launchpad"};
const QStringList deviceIds{"APCMINI",      "NLMINIMK3",  "LAUNCHPADMINI", "LAUNCHPAD2",
                            "LAUNCHPADPRO", "LAUNCHPADS", "LAUNCHPAD"};
const QStringList redGreen{"#000000", "#550000", "#AA0000", "#FF0000", "#005500", "#00AA00",
                           "#00FF00", "#555500", "#AA5500", "#FF5500", "#55AA00", "#AAAA00",
                           "#FFAA00", "#55FF00", "#AAFF00", "#FFFF00"};
const QString simple = "Simple OS2L mapping";

/// The row in which one of the seven devices is listed, among all that there are.
int rowof(int device) { return devicerow(deviceIds.at(device)); }

bool fullcolor(int device)
{
    return device == LaunchpadMiniMk3 || device == LaunchpadMk2 || device == LaunchpadPro;
}

/// The usable cells of a device with these rows at the top, at every row of pads, and at the bottom.
QStringList usable(const QString& top, const QString& pads, const QString& bottom)
{
    const QString none = "............";
    return {top, none, pads, pads, pads, pads, pads, pads, pads, pads, none, bottom};
}

QStringList usablecells(int device)
{
    const QString none = "............";
    const QString right = "..########.#";
    const QString all = "..########..";
    const QString four = "..####......";
    switch (device) {
    case ApcMini:
        return usable(none, right, all);
    case LaunchpadMiniMk3:
        return usable(four, right, none);
    case LaunchpadPro:
        return usable(four, "#.########.#", all);
    default:
        return usable(all, right, none);
    }
}

/// The labels of the grid, row by row, as they are printed on its cells; "-" for none.
QStringList celllabels()
{
    QStringList all = QString("- - TOP1 TOP2 TOP3 TOP4 TOP5 TOP6 TOP7 TOP8 - -").split(' ');
    const QStringList spacer = QString("- - - - - - - - - - - -").split(' ');
    all += spacer;
    int number = 0;
    for (int side = 1; side <= 8; ++side) {
        all += {QString("LEFT%1").arg(side), "-"};
        for (int i = 0; i < 8; ++i)
            all.append(QString("PAD%1").arg(++number));
        all += {"-", QString("RIGHT%1").arg(side)};
    }
    all += spacer;
    all += QString("- - BOTTOM1 BOTTOM2 BOTTOM3 BOTTOM4 BOTTOM5 BOTTOM6 BOTTOM7 BOTTOM8 - -").split(' ');
    static const QRegularExpression anydigit("[0-9]");
    for (QString& label : all) {
        const auto digit = label.indexOf(anydigit);
        label = label == "-" ? QString() : label.insert(digit, ' ');
    }
    return all;
}

QStringList values(const TestWindow& window, int role)
{
    QStringList all;
    for (int row = 0; row < window.controllerModel->rowCount(); ++row) {
        for (int col = 0; col < window.controllerModel->columnCount(); ++col)
            all.append(window.controllerModel->index(row, col).data(role).toString());
    }
    return all;
}

/// The usable cells as `usablecells` draws them.
QStringList usableof(const TestWindow& window)
{
    const QStringList avail = values(window, ItemRole::Avail);
    QStringList rows;
    for (int row = 0; row < avail.size() / 12; ++row)
        rows.append(avail.mid(row * 12, 12).join(QString()).replace('0', '.').replace('1', '#'));
    return rows;
}

QStringList itemtexts(const QComboBox* combo)
{
    QStringList all;
    for (int item = 0; item < combo->count(); ++item)
        all.append(combo->itemText(item));
    return all;
}

/// The combo boxes of the MIDI side.
struct Combos
{
    explicit Combos(const TestWindow& window)
        : device(window.child<QComboBox>("devicescombo")), mapping(window.child<QComboBox>("mididevices")),
          off(window.child<QComboBox>("combo_offcolor")), on(window.child<QComboBox>("combo_oncolor"))
    {
    }
    QComboBox* device;
    QComboBox* mapping;
    QComboBox* off;
    QComboBox* on;
};

/// Whether every item of \a combo asks for 25 by 25 pixels.
bool itemsareroomy(const QComboBox* combo)
{
    for (int item = 0; item < combo->count(); ++item) {
        if (combo->itemData(item, Qt::SizeHintRole).toSize() != QSize(25, 25))
            return false;
    }
    return combo->count() > 0;
}

QString contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll())
                                          : QString("(there is no such file)");
}

void writefile(const QString& path, const QString& text)
{
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write a file of the test");
}

QString mapperfile(const QString& device, const QString& maps = QString())
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<mapper device=\"" + device + "\">\n" + maps +
           "</mapper>\n";
}

QString map(const QString& name, const QString& action)
{
    return "\t<map value=\"" + name + "\" action=\"" + action + "\"/>\n";
}

QString datetext(const QDate& date)
{
    return QString("%1-%2-%3").arg(date.day()).arg(date.month()).arg(date.year());
}

/// A written mapper with the date replaced by "TODAY", provided that it is today's, or was when the test
/// started.
QString undated(QString text, const QDate& start)
{
    for (const QDate& date : {start, QDate::currentDate()})
        text.replace(QString(" date=\"%1\">\n").arg(datetext(date)), " date=\"TODAY\">\n");
    return text;
}

QString header(const QString& device)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<mapper device=\"" + device +
           "\" author=\"Lumipad\" version=\"840\" date=\"TODAY\">\n";
}

/// The names of the 64 pads of a device, row by row: \a name with %1 and %2 for row and pad.
QStringList padnames(const QString& name)
{
    QStringList all;
    for (int row = 1; row <= 8; ++row) {
        for (int pad = 1; pad <= 8; ++pad)
            all.append(name.arg(row).arg(pad));
    }
    return all;
}

/// A file in VirtualDJ's folder for mappers.
QString mapperpath(const TestHome& home, const QString& name)
{
    return home.path("Documents/VirtualDJ/Mappers/" + name);
}

/// A home where VirtualDJ has its folder for mappers, with \a mappers (text by file name) in it.
std::unique_ptr<TestHome> mapperhome(const QMap<QString, QString>& mappers)
{
    auto home = std::make_unique<TestHome>();
    home->makefolder("Documents/VirtualDJ/Mappers");
    for (auto file = mappers.cbegin(); file != mappers.cend(); ++file)
        writefile(mapperpath(*home, file.key()), file.value());
    return home;
}

/// The window in the home that `mapperhome` makes, with device and mapping chosen and the name "Club".
struct ExportWindow : MidiWindow
{
    explicit ExportWindow(int device = ApcMini, int mapping = 1, const QMap<QString, QString>& mappers = {})
        : MidiWindow(Output::Midi, mapperhome(mappers))
    {
        combos.device->setCurrentIndex(rowof(device));
        combos.mapping->setCurrentIndex(mapping);
        window.child<QLineEdit>("padsname")->setText("Club");
    }
    Combos combos{window};
    QDate start = QDate::currentDate();

    /// Exports with these answers and gives the dialogs that came.
    QList<ShownDialog> exportanswering(const QList<Answer>& answers)
    {
        const Dialogs dialogs(answers);
        window.child<QAction>("actionExport")->trigger();
        return DialogWatch::shown();
    }
    QString path(const QString& name) const { return mapperpath(*home, name); }
    QString written(const QString& name) const { return undated(contents(path(name)), start); }
    /// Everything in the folder for mappers, hidden and temporary files included.
    QStringList files() const
    {
        return QDir(window.mappersPath)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
};

const Answer ok = Answers::press(QMessageBox::Ok);

} // namespace

class MidiTest : public QObject
{
    Q_OBJECT

private slots:
    void devicesAreOfferedInOrder();
    void everyDeviceHasItsTwoMappings();
    void usersMappersFollowSortedByName();
    void mapperFilesThatAreNoneAreSkipped();
    void missingMappersFolderGivesNone();
    void palettesAreOfferedWithSwatches_data();
    void palettesAreOfferedWithSwatches();
    void chosenColoursShowTheirSwatch();
    void fullColourDevicesHideTheColours();
    void fullColourDevicesKeepTheOfferedColours();
    void defaultBeyondThePaletteSelectsNone();
    void defaultColoursAreFoundByDevice();
    void devicesAreFoundById();
    void mappersAreFoundByDeviceAndRow();

    void gridShowsTheCellsOfEveryDevice_data();
    void gridShowsTheCellsOfEveryDevice();
    void cellsAreLabelled();
    void cellsStartEmpty();
    void linesHaveTheirSizes();
    void choosingADeviceKeepsPlacedButtons();
    void choosingADeviceShowsAtOnce();
    void layoutChangesTheUseOfCellsAlone();
    void buildingTheGridTwiceGivesTheSame();
    void gridIsEmptyUntilACellHoldsAButton_data();
    void gridIsEmptyUntilACellHoldsAButton();
    void newShowResetsGridAndSwitch();
    void newProjectKeepsTheSwitch();
    void numbersBeyondEverythingAreHarmless_data();
    void numbersBeyondEverythingAreHarmless();
    void unknownDeviceLeavesNothingToChoose();

    void exportSaysWhatItDid();
    void exportNeedsAShowAndAButton();
    void exportAsksBeforeItOverwrites();
    void refusedOverwriteLeavesTheFile_data();
    void refusedOverwriteLeavesTheFile();
    void missingFolderIsNotNoticed();
    void emptyNameLeavesTwoBlanks();
    void namesAreNotTakenForMarkup();
    void exportedOs2lOnlyFileIsExact();
    void exportedCombinedFileIsExact();
    void exportedFullColourFileIsExact();
    void chosenColoursAreWritten();
    void headerCarriesTheDate();
    void vanishedMappingGivesAnEmptyMapper();
    void everyDeviceIsExported_data();
    void everyDeviceIsExported();
    void exportingFromAnExportGivesTheSame();
    void bothOutputsAreAskedOnTheirOwn();
    void exportWithoutDeviceOrMappingIsHarmless();
};

void MidiTest::devicesAreOfferedInOrder()
{
    const MidiWindow midi;
    const Combos combos(midi.window);
    QStringList known = itemtexts(combos.device);
    for (const Record& device : midi.window.devices) {
        if (!deviceIds.contains(device.value("device")))
            known.removeOne(device.value("name"));
    }
    QCOMPARE(known, deviceNames);
    QVERIFY(itemsareroomy(combos.device));
    for (int item = 0; item < combos.device->count(); ++item) {
        QVERIFY(combos.device->itemIcon(item).isNull());
        QVERIFY(combos.device->itemData(item).isNull());
    }
    QCOMPARE(midi.window.devices.size(), combos.device->count());
}

void MidiTest::everyDeviceHasItsTwoMappings()
{
    const MidiWindow midi;
    const Combos combos(midi.window);
    for (int device = knownDevices - 1; device >= 0; --device) {
        combos.device->setCurrentIndex(rowof(device));
        QCOMPARE(itemtexts(combos.mapping),
                 (QStringList{simple, deviceNames.at(device) + " mapping (factory)"}));
        QCOMPARE(combos.mapping->currentIndex(), 0);
        QVERIFY(itemsareroomy(combos.mapping));
        QCOMPARE(midi.window.currentDevice, rowof(device));
        QCOMPARE(midi.window.currentDeviceId, deviceIds.at(device));
    }
}

void MidiTest::usersMappersFollowSortedByName()
{
    const auto home =
        mapperhome({{"b club.xml", mapperfile("LAUNCHPAD")},
                    {"A bar.xml", mapperfile("LAUNCHPAD")},
                    {"C.d.e.xml", mapperfile("LAUNCHPAD")},
                    {"a Bar 2.XML", mapperfile("LAUNCHPAD")},
                    {"other.xml", mapperfile("APCMINI")},
                    {"two.xml", "<all>" + QString(mapperfile("LAUNCHPADS")).remove(0, 39) +
                                    QString(mapperfile("LAUNCHPAD")).remove(0, 39) + "</all>"}});
    const TestWindow window;
    const Combos combos(window);
    combos.device->setCurrentIndex(rowof(Launchpad));
    QCOMPARE(itemtexts(combos.mapping), (QStringList{simple, "Novation Launchpad mapping (factory)",
                                                     "a Bar 2", "A bar", "b club", "C", "two"}));
    QVERIFY(itemsareroomy(combos.mapping));
    combos.device->setCurrentIndex(rowof(ApcMini));
    QCOMPARE(itemtexts(combos.mapping), (QStringList{simple, "Akai APC Mini mapping (factory)", "other"}));
    combos.device->setCurrentIndex(rowof(LaunchpadS));
    QCOMPARE(itemtexts(combos.mapping),
             (QStringList{simple, "Novation Launchpad S mapping (factory)", "two"}));
    combos.device->setCurrentIndex(rowof(LaunchpadMk2));
    QCOMPARE(combos.mapping->count(), 2);
    QCOMPARE(window.mappers.size(), 2 * window.devices.size() + 7);
    QCOMPARE(window.mappers.constLast().value("path"), mapperpath(*home, "two.xml"));
}

void MidiTest::mapperFilesThatAreNoneAreSkipped()
{
    const auto home = mapperhome({{"unknown.xml", mapperfile("DDJ400")},
                                  {"case.xml", mapperfile("apcmini")},
                                  {"blank.xml", mapperfile("APCMINI ")},
                                  {"none.xml", "<mapper><map value=\"A\" action=\"b\"/></mapper>"},
                                  {"empty.xml", ""},
                                  {"text.xml", "APCMINI"},
                                  {"cut.xml", "<mapper device=\"APCMINI"},
                                  {"layout.xml", "<layout device=\"APCMINI\" name=\"APCMINI\"/>"},
                                  {"mapper.txt", mapperfile("APCMINI")},
                                  {"mapper.xml.bak", mapperfile("APCMINI")}});
    home->makefolder("Documents/VirtualDJ/Mappers/folder.xml");
    QVERIFY(QFile::link(mapperpath(*home, "nowhere"), mapperpath(*home, "link.xml")));
    const TestWindow window;
    QCOMPARE(window.mappers.size(), 2 * window.devices.size());
    QCOMPARE(Combos(window).mapping->count(), 2);
}

void MidiTest::missingMappersFolderGivesNone()
{
    const TestHome home;
    TestWindow window;
    QCOMPARE(window.mappers.size(), 2 * window.devices.size());
    QVERIFY(!QDir(window.mappersPath).exists());
    // Reading them once more is what a start does: the built-in ones stay.
    window.readmappers();
    QCOMPARE(window.mappers.size(), 2 * window.devices.size());
}

void MidiTest::palettesAreOfferedWithSwatches_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<QStringList>("colors");
    QTest::addColumn<QStringList>("swatches");
    QTest::addColumn<int>("off");
    QTest::addColumn<int>("on");
    QTest::newRow("APC Mini") << int(ApcMini) << QStringList{"black", "green", "red", "yellow"}
                              << QStringList{"#000000", "#008000", "#ff0000", "#ffff00"} << 3 << 1;
    for (const Device device : {LaunchpadMini, LaunchpadS, Launchpad}) {
        QTest::newRow(qPrintable(deviceNames.at(device)))
            << int(device) << redGreen << redGreen.join(' ').toLower().split(' ') << 0 << 3;
    }
}

void MidiTest::palettesAreOfferedWithSwatches()
{
    QFETCH(int, device);
    QFETCH(QStringList, colors);
    QFETCH(QStringList, swatches);
    QFETCH(int, off);
    QFETCH(int, on);
    MidiWindow midi;
    const Combos combos(midi.window);
    combos.device->setCurrentIndex(rowof(LaunchpadPro));
    combos.device->setCurrentIndex(rowof(device));
    QVERIFY(midi.window.showready());
    QVERIFY(midi.window.child<QWidget>("groupBox_colors")->isVisible());
    QCOMPARE(midi.window.child<QLabel>("label_10")->text(), QString("Default Colors"));
    QCOMPARE(combos.off->currentIndex(), off);
    QCOMPARE(combos.on->currentIndex(), on);
    for (const QComboBox* combo : {combos.off, combos.on}) {
        QCOMPARE(itemtexts(combo), colors);
        QVERIFY(itemsareroomy(combo));
        QCOMPARE(combo->iconSize(), QSize(20, 20));
        const int side = combo->style()->pixelMetric(QStyle::PM_SmallIconSize);
        for (int item = 0; item < combo->count(); ++item) {
            const QImage swatch = combo->itemIcon(item).pixmap(side, side).toImage();
            QCOMPARE(swatch.size(), QSize(side, side));
            QCOMPARE(swatch.pixelColor(0, 0).name(), swatches.at(item));
            QCOMPARE(swatch.pixelColor(side - 1, side - 1).name(), swatches.at(item));
        }
    }
}

void MidiTest::chosenColoursShowTheirSwatch()
{
    MidiWindow midi;
    const Combos combos(midi.window);
    QVERIFY(midi.window.showready());
    const auto shows = [](const QComboBox* combo, const QColor& color) {
        const QImage image = painted(combo);
        int pixels = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                pixels += image.pixelColor(x, y) == color;
        }
        return pixels > 100;
    };
    QTRY_VERIFY(shows(combos.off, QColor(255, 255, 0)));
    QTRY_VERIFY(shows(combos.on, QColor(0, 128, 0)));
    QVERIFY(!shows(combos.on, QColor(255, 255, 0)));
    combos.on->setCurrentIndex(2);
    QTRY_VERIFY(shows(combos.on, QColor(255, 0, 0)));
}

void MidiTest::fullColourDevicesHideTheColours()
{
    MidiWindow midi;
    const Combos combos(midi.window);
    QVERIFY(midi.window.showready());
    for (int device = 0; device < knownDevices; ++device) {
        combos.device->setCurrentIndex(rowof(device));
        QCOMPARE(midi.window.child<QWidget>("groupBox_colors")->isVisible(), !fullcolor(device));
        QCOMPARE(midi.window.child<QLabel>("label_10")->text(),
                 fullcolor(device) ? QString("Colors : Device has RGB Leds.") : QString("Default Colors"));
    }
    // Only "true" in small letters says that a device has every colour.
    for (const char* value : {"True", "1", "", "true "}) {
        midi.window.devices[rowof(LaunchpadPro)]["fullrgb"] = value;
        midi.window.updatemidicombo(rowof(LaunchpadPro));
        QCOMPARE(midi.window.child<QLabel>("label_10")->text(), QString("Default Colors"));
    }
}

void MidiTest::fullColourDevicesKeepTheOfferedColours()
{
    const MidiWindow midi;
    const Combos combos(midi.window);
    combos.off->setCurrentIndex(2);
    combos.on->setCurrentIndex(0);
    combos.device->setCurrentIndex(rowof(LaunchpadPro));
    for (const QComboBox* combo : {combos.off, combos.on})
        QCOMPARE(itemtexts(combo), (QStringList{"black", "green", "red", "yellow"}));
    QCOMPARE(combos.off->currentIndex(), 2);
    QCOMPARE(combos.on->currentIndex(), 0);
    // The device's own choice is back with the device.
    combos.device->setCurrentIndex(rowof(ApcMini));
    QCOMPARE(combos.off->currentIndex(), 3);
    QCOMPARE(combos.on->currentIndex(), 1);
}

void MidiTest::defaultBeyondThePaletteSelectsNone()
{
    MidiWindow midi;
    const Combos combos(midi.window);
    const auto choose = [&](const QString& off, const QString& on) {
        midi.window.devices[rowof(ApcMini)]["off"] = off;
        midi.window.devices[rowof(ApcMini)]["on"] = on;
        midi.window.updatemidicombo(rowof(ApcMini));
        return QList<int>{combos.off->currentIndex(), combos.on->currentIndex()};
    };
    QCOMPARE(choose("4", "2147483647"), (QList<int>{-1, -1}));
    QCOMPARE(choose("-1", "-2147483648"), (QList<int>{-1, -1}));
    QCOMPARE(choose("red", ""), (QList<int>{0, 0}));
    QCOMPARE(choose("99999999999", "2"), (QList<int>{0, 2}));
}

void MidiTest::defaultColoursAreFoundByDevice()
{
    MidiWindow midi;
    const QStringList off{"yellow", "", "#000000", "", "", "#000000", "#000000"};
    const QStringList on{"green", "", "#FF0000", "", "", "#FF0000", "#FF0000"};
    for (int device = 0; device < knownDevices; ++device) {
        QCOMPARE(midi.window.getdeviceoffcolor(rowof(device)), off.at(device));
        QCOMPARE(midi.window.getdeviceoncolor(rowof(device)), on.at(device));
    }
    midi.window.devices[rowof(ApcMini)]["off"] = "4";
    midi.window.devices[rowof(ApcMini)]["on"] = "none";
    QCOMPARE(midi.window.getdeviceoffcolor(rowof(ApcMini)), QString());
    QCOMPARE(midi.window.getdeviceoncolor(rowof(ApcMini)), QString("black"));
}

void MidiTest::devicesAreFoundById()
{
    MidiWindow midi;
    for (int device = 0; device < knownDevices; ++device) {
        QCOMPARE(midi.window.getdeviceindex(deviceIds.at(device)), rowof(device));
        QVERIFY(midi.window.deviceinlist(deviceIds.at(device)));
    }
    for (const char* id : {"", "apcmini", "APCMINI ", "Akai APC Mini", "LAUNCH"}) {
        QCOMPARE(midi.window.getdeviceindex(id), -1);
        QVERIFY(!midi.window.deviceinlist(id));
    }
    midi.window.devices.append(midi.window.devices.at(rowof(Launchpad)));
    QCOMPARE(midi.window.getdeviceindex("LAUNCHPAD"), rowof(Launchpad));
}

void MidiTest::mappersAreFoundByDeviceAndRow()
{
    const auto home =
        mapperhome({{"one.xml", mapperfile("LAUNCHPAD2")}, {"two.xml", mapperfile("LAUNCHPAD2")}});
    TestWindow window;
    for (int n = 0; n < 4; ++n) {
        const int id = window.getmapperid("LAUNCHPAD2", n);
        QVERIFY(id >= 0);
        QCOMPARE(window.mappers.at(id).value("device"), QString("LAUNCHPAD2"));
        QCOMPARE(window.mappers.at(id).value("name"),
                 (QStringList{simple, "Novation Launchpad MKII mapping (factory)", "one", "two"}).at(n));
    }
    for (const int n : {4, 5, most, -1, least})
        QCOMPARE(window.getmapperid("LAUNCHPAD2", n), -1);
    QCOMPARE(window.getmapperid("launchpad2", 0), -1);
    QCOMPARE(window.getmapperid("", 0), -1);
}

void MidiTest::gridShowsTheCellsOfEveryDevice_data()
{
    QTest::addColumn<int>("device");
    for (int device = 0; device < knownDevices; ++device)
        QTest::newRow(qPrintable(deviceNames.at(device))) << device;
}

void MidiTest::gridShowsTheCellsOfEveryDevice()
{
    QFETCH(int, device);
    MidiWindow midi;
    Combos(midi.window).device->setCurrentIndex(rowof(device));
    const QStringList wanted = usablecells(device);
    QCOMPARE(usableof(midi.window), wanted);
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            const bool usable = wanted.at(row).at(col) == '#';
            QCOMPARE(midi.window.getpadavail(row, col), QString(usable ? "1" : "0"));
            QCOMPARE(midi.cell(row, col).flags().testFlag(Qt::ItemIsDropEnabled), usable);
            QCOMPARE(midi.cell(row, col).flags().testFlag(Qt::ItemIsSelectable), usable);
        }
    }
    // The device that is current when the grid is built anew counts too.
    midi.window.initpadlist();
    QCOMPARE(usableof(midi.window), wanted);
}

void MidiTest::cellsAreLabelled()
{
    const TestHome home;
    TestWindow window;
    const QStringList labels = celllabels();
    QCOMPARE(labels.at(2 * 12 + 2), QString("PAD 1"));
    QCOMPARE(labels.at(9 * 12 + 9), QString("PAD 64"));
    QCOMPARE(labels.at(11 * 12 + 2), QString("BOTTOM 1"));
    QCOMPARE(values(window, Qt::DisplayRole), labels);
    QCOMPARE(values(window, ItemRole::DspName), labels);
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col)
            QCOMPARE(window.getpadtext(row, col), labels.at(row * 12 + col));
    }
}

void MidiTest::cellsStartEmpty()
{
    const TestHome home;
    const TestWindow window;
    QCOMPARE(window.controllerModel->rowCount(), 12);
    QCOMPARE(window.controllerModel->columnCount(), 12);
    const auto all = [&](int role) {
        QStringList different = values(window, role);
        different.removeDuplicates();
        return different;
    };
    QCOMPARE(all(ItemRole::Id), QStringList{"-1"});
    QCOMPARE(all(ItemRole::Page), QStringList{"0"});
    QCOMPARE(all(Qt::DecorationRole), QStringList{"#000000"});
    QCOMPARE(all(Qt::ForegroundRole), QStringList{"#ffffff"});
    QCOMPARE(all(ItemRole::ColorOff), QStringList{""});
    QCOMPARE(all(ItemRole::ColorOn), QStringList{""});
    QCOMPARE(all(ItemRole::Blink), QStringList{"0"});
}

void MidiTest::linesHaveTheirSizes()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    QVERIFY(!midi.grid->horizontalHeader()->isVisible());
    QVERIFY(!midi.grid->verticalHeader()->isVisible());
    QCOMPARE(midi.grid->verticalHeader()->minimumSectionSize(), 5);
    QVERIFY(midi.grid->hasMouseTracking());
    const auto check = [&] {
        for (int line = 0; line < 12; ++line) {
            const bool spacer = line == 1 || line == 10;
            QCOMPARE(midi.grid->columnWidth(line), spacer ? 5 : 95);
            QCOMPARE(midi.grid->rowHeight(line), spacer ? 5 : 30);
        }
        QCOMPARE(midi.grid->visualRect(midi.cell(0, 0)).topLeft(), QPoint(0, 0));
        // The last cell is seen whole; its right and bottom lines are the table's grid.
        QCOMPARE(midi.grid->visualRect(midi.cell(11, 11)), QRect(865, 280, 94, 29));
        QVERIFY(midi.grid->viewport()->rect().contains(midi.grid->visualRect(midi.cell(11, 11))));
    };
    check();
    midi.loadshow("Second");
    check();
    midi.window.on_actionNew_2_triggered();
    check();
    midi.grid->setColumnWidth(4, 20);
    midi.grid->setRowHeight(4, 20);
    Combos(midi.window).device->setCurrentIndex(rowof(LaunchpadPro));
    check();
}

void MidiTest::choosingADeviceKeepsPlacedButtons()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(11, 9));
    midi.drop(1, midi.cell(2, 2));
    midi.window.switchPad = {3, 3};
    QList<QList<Record>> before = midi.window.controllerModel->getList();
    const Combos combos(midi.window);
    combos.device->setCurrentIndex(rowof(Launchpad));
    QCOMPARE(midi.cell(11, 9).data().toString(), QString("Strobe"));
    QCOMPARE(midi.cell(11, 9).data(ItemRole::Avail).toString(), QString("0"));
    QCOMPARE(midi.cell(11, 9).flags(), Qt::ItemFlags(Qt::ItemIsSelectable));
    QVERIFY(!midi.window.isMIDIempty());
    QCOMPARE(midi.window.switchPad, (QList<int>{3, 3}));
    QCOMPARE(midi.marks(), (QList<int>{0, 1}));
    combos.device->setCurrentIndex(rowof(ApcMini));
    QCOMPARE(midi.window.controllerModel->getList(), before);
}

void MidiTest::choosingADeviceShowsAtOnce()
{
    MidiWindow midi;
    QVERIFY(midi.window.showready());
    midi.grid->setFocus();
    QCoreApplication::processEvents();
    const QPoint top = midi.grid->visualRect(midi.cell(0, 5)).center() + QPoint(30, 0);
    const QPoint bottom = midi.grid->visualRect(midi.cell(11, 5)).center() + QPoint(40, 0);
    const auto shown = [&](const QPoint& pos) { return painted(midi.grid->viewport()).pixelColor(pos); };
    const QColor unusable(0x30, 0x30, 0x30);
    QTRY_COMPARE(shown(top), unusable);
    QTRY_COMPARE(shown(bottom), QColor(Qt::black));
    const Combos combos(midi.window);
    combos.device->setCurrentIndex(rowof(LaunchpadMini));
    QTRY_COMPARE(shown(top), QColor(Qt::black));
    QTRY_COMPARE(shown(bottom), unusable);
    combos.device->setFocus();
    combos.device->setCurrentIndex(rowof(ApcMini));
    QVERIFY(midi.grid->hasFocus());
    QTRY_COMPARE(shown(top), unusable);
}

void MidiTest::layoutChangesTheUseOfCellsAlone()
{
    MidiWindow midi;
    midi.drop(2, midi.cell(5, 5));
    midi.window.ondeletemidiaction_triggered(0, 0);
    midi.window.ondeletemidiaction_triggered(10, 4);
    QVERIFY(midi.window.controllerModel->setData(midi.cell(6, 6), "0", ItemRole::Avail));
    const QList<int> others{Qt::EditRole,       ItemRole::DspName,  ItemRole::Page,    ItemRole::Id,
                            Qt::DecorationRole, ItemRole::ColorOff, ItemRole::ColorOn, ItemRole::Blink};
    QList<QStringList> before;
    for (const int role : others)
        before.append(values(midi.window, role));
    midi.window.updatelayout();
    QCOMPARE(usableof(midi.window), usablecells(ApcMini));
    for (int i = 0; i < others.size(); ++i)
        QCOMPARE(values(midi.window, others.at(i)), before.at(i));
}

void MidiTest::buildingTheGridTwiceGivesTheSame()
{
    MidiWindow midi;
    const QList<QList<Record>> cells = midi.window.controllerModel->getList();
    const QList<QList<Record>> pads = midi.window.vdjModel->getList();
    midi.drop(0, midi.cell(2, 2));
    midi.drop(1, midi.pad(63, 1));
    QVERIFY(midi.window.controllerModel->setData(midi.cell(4, 4), "red", ItemRole::ColorOff));
    midi.window.initpadlist();
    QCOMPARE(midi.window.controllerModel->getList(), cells);
    QCOMPARE(midi.window.vdjModel->getList(), pads);
    midi.window.initpadlist();
    QCOMPARE(midi.window.controllerModel->getList(), cells);
    midi.window.cleanMIDI();
    midi.window.cleanVDJ();
    midi.window.initpadlist();
    QCOMPARE(midi.window.controllerModel->getList(), cells);
    QCOMPARE(midi.window.vdjModel->getList(), pads);
}

void MidiTest::gridIsEmptyUntilACellHoldsAButton_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("id");
    QTest::addColumn<bool>("empty");
    QTest::newRow("first cell") << 0 << 0 << "0" << false;
    QTest::newRow("last cell") << 11 << 11 << "4" << false;
    QTest::newRow("spacer") << 1 << 10 << "7" << false;
    QTest::newRow("id beyond the show") << 5 << 5 << "4711" << false;
    QTest::newRow("no id") << 5 << 5 << "" << false;
    QTest::newRow("word") << 5 << 5 << "none" << false;
    QTest::newRow("negative") << 5 << 5 << "-1" << true;
    QTest::newRow("very negative") << 5 << 5 << "-20" << true;
}

void MidiTest::gridIsEmptyUntilACellHoldsAButton()
{
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QString, id);
    QFETCH(bool, empty);
    MidiWindow midi;
    midi.drop(0, midi.pad(0));
    QVERIFY(midi.window.isMIDIempty());
    QVERIFY(midi.window.controllerModel->setData(midi.cell(row, col), id, ItemRole::Id));
    QCOMPARE(midi.window.isMIDIempty(), empty);
    midi.window.cleanMIDI();
    QVERIFY(midi.window.isMIDIempty());
}

void MidiTest::newShowResetsGridAndSwitch()
{
    MidiWindow midi;
    const Combos combos(midi.window);
    combos.device->setCurrentIndex(rowof(LaunchpadPro));
    const QList<QList<Record>> empty = midi.window.controllerModel->getList();
    midi.drop(0, midi.cell(2, 2));
    QVERIFY(midi.window.controllerModel->setData(midi.cell(4, 4), "#123456", ItemRole::ColorOff));
    midi.window.switchPad = {3, 3};
    midi.loadshow("Second");
    QCOMPARE(midi.window.controllerModel->getList(), empty);
    QCOMPARE(midi.window.switchPad, (QList<int>{-1, -1}));
    QCOMPARE(combos.device->currentIndex(), rowof(LaunchpadPro));
    QCOMPARE(midi.window.currentDevice, rowof(LaunchpadPro));
}

void MidiTest::newProjectKeepsTheSwitch()
{
    MidiWindow midi;
    const QList<QList<Record>> empty = midi.window.controllerModel->getList();
    midi.drop(0, midi.cell(2, 2));
    QVERIFY(midi.window.showready());
    choose(midi.rightclick(midi.grid, midi.cell(3, 3)), "Set as Switch");
    midi.window.child<QAction>("actionNew_2")->trigger();
    QCOMPARE(midi.window.controllerModel->getList(), empty);
    QCOMPARE(midi.window.switchPad, (QList<int>{3, 3}));
}

void MidiTest::numbersBeyondEverythingAreHarmless_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("none") << -1;
    QTest::newRow("behind the devices") << devicecount();
    QTest::newRow("behind the grid") << 12;
    QTest::newRow("large") << 4711;
    QTest::newRow("least") << least;
    QTest::newRow("most") << most;
}

void MidiTest::numbersBeyondEverythingAreHarmless()
{
    QFETCH(int, number);
    MidiWindow midi;
    QCOMPARE(midi.window.getdeviceoffcolor(number), QString());
    QCOMPARE(midi.window.getdeviceoncolor(number), QString());
    QCOMPARE(midi.window.getmapperid("APCMINI", number), -1);
    if (number != devicecount()) {
        for (const int line : {0, 2, 11, number}) {
            QCOMPARE(midi.window.getpadtext(number, line), QString());
            QCOMPARE(midi.window.getpadtext(line, number), QString());
            QCOMPARE(midi.window.getpadavail(number, line), QString("0"));
            QCOMPARE(midi.window.getpadavail(line, number), QString("0"));
        }
    }
    midi.drop(0, midi.cell(2, 2));
    midi.drop(1, midi.cell(11, 2));
    midi.window.on_devicescombo_currentIndexChanged(number);
    QCOMPARE(midi.cell(2, 2).data().toString(), QString("Strobe"));
    QCOMPARE(usableof(midi.window), usable("............", "..########..", "............"));
    midi.window.updatelayout();
    midi.window.initpadlist();
    QCOMPARE(midi.window.controllerModel->rowCount(), 12);
    midi.window.on_devicescombo_currentIndexChanged(rowof(LaunchpadPro));
    QCOMPARE(usableof(midi.window), usablecells(LaunchpadPro));
}

void MidiTest::unknownDeviceLeavesNothingToChoose()
{
    MidiWindow midi;
    const Combos combos(midi.window);
    midi.window.updatemidicombo(devicecount());
    QCOMPARE(combos.mapping->count(), 0);
    QCOMPARE(midi.window.currentDeviceId, QString());
    combos.device->setCurrentIndex(rowof(Launchpad));
    QCOMPARE(combos.mapping->count(), 2);
    combos.device->setCurrentIndex(-1);
    QCOMPARE(combos.mapping->count(), 0);
    midi.window.devices.clear();
    midi.window.mappers.clear();
    midi.window.updatemidicombo(0);
    QCOMPARE(combos.mapping->count(), 0);
    QCOMPARE(midi.window.getdeviceindex("APCMINI"), -1);
}

void MidiTest::exportSaysWhatItDid()
{
    ExportWindow midi;
    midi.drop(0, midi.cell(2, 2));
    const QList<ShownDialog> dialogs = midi.exportanswering({ok});
    QCOMPARE(dialogs.size(), 1);
    QVERIFY(dialogs.value(0).isMessageBox);
    QCOMPARE(dialogs.value(0).text, QString("Mapping Club for Akai APC Mini is created."));
    QCOMPARE(dialogs.value(0).informativeText,
             QString("Select it from Controllers tab of VirtualDJ Settings."));
    QCOMPARE(dialogs.value(0).buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(dialogs.value(0).defaultButton, QMessageBox::Ok);
    QCOMPARE(dialogs.value(0).styleSheet, midi.window.messageBoxStyle);
    QCOMPARE(dialogs.value(0).parent, static_cast<const QWidget*>(nullptr));
    QCOMPARE(midi.files(), QStringList{"Akai APC Mini - Club mapping.xml"});
}

void MidiTest::exportNeedsAShowAndAButton()
{
    ExportWindow midi;
    midi.drop(0, midi.pad(0));
    QList<ShownDialog> dialogs = midi.exportanswering({ok});
    QCOMPARE(dialogs.value(0).text, QString("Nothing to Export. Pads are empty"));
    QCOMPARE(dialogs.value(0).informativeText, QString());
    midi.drop(0, midi.cell(2, 2));
    midi.window.showName.clear();
    dialogs = midi.exportanswering({ok});
    QCOMPARE(dialogs.value(0).text, QString("Nothing to Export. Load a Show"));
    QCOMPARE(midi.files(), QStringList());
}

void MidiTest::exportAsksBeforeItOverwrites()
{
    ExportWindow midi(ApcMini, 1,
                      {{"Akai APC Mini - Club mapping.xml", "old and very long" + QString(90000, 'x')}});
    midi.drop(0, midi.cell(2, 2));
    const QList<ShownDialog> dialogs = midi.exportanswering({Answers::press(QMessageBox::Yes), ok});
    QCOMPARE(dialogs.size(), 2);
    QCOMPARE(dialogs.value(0).text, QString("Akai APC Mini - Club mapping already exists."));
    QCOMPARE(dialogs.value(0).informativeText, QString("Do you want to overwrite ?"));
    QCOMPARE(dialogs.value(0).buttons, QMessageBox::Yes | QMessageBox::No);
    QCOMPARE(dialogs.value(0).defaultButton, QMessageBox::No);
    QCOMPARE(dialogs.value(0).styleSheet, midi.window.messageBoxStyle);
    QCOMPARE(dialogs.value(0).parent, static_cast<const QWidget*>(nullptr));
    QCOMPARE(dialogs.value(1).text, QString("Mapping Club for Akai APC Mini is created."));
    const QString text = midi.written("Akai APC Mini - Club mapping.xml");
    QVERIFY(text.startsWith(header("APCMINI")));
    QVERIFY(text.endsWith("\n</mapper>\n"));

    // Another name, or another device, is another file.
    midi.window.child<QLineEdit>("padsname")->setText("Bar");
    QCOMPARE(midi.exportanswering({ok}).size(), 1);
    midi.window.child<QLineEdit>("padsname")->setText("Club");
    midi.combos.device->setCurrentIndex(rowof(Launchpad));
    QCOMPARE(midi.exportanswering({ok}).size(), 1);
    QCOMPARE(midi.files(), (QStringList{"Akai APC Mini - Bar mapping.xml", "Akai APC Mini - Club mapping.xml",
                                        "Novation Launchpad - Club mapping.xml"}));
}

void MidiTest::refusedOverwriteLeavesTheFile_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("No") << 0;
    QTest::newRow("Return, for the default") << 1;
    QTest::newRow("Escape") << 2;
    QTest::newRow("closed") << 3;
}

void MidiTest::refusedOverwriteLeavesTheFile()
{
    QFETCH(int, answer);
    const QList<Answer> answers{Answers::press(QMessageBox::No), Answers::key(Qt::Key_Return),
                                Answers::key(Qt::Key_Escape), Answers::closebox()};
    ExportWindow midi(ApcMini, 1, {{"Akai APC Mini - Club mapping.xml", "old"}});
    midi.drop(0, midi.cell(2, 2));
    QCOMPARE(midi.exportanswering({answers.at(answer)}).size(), 1);
    QCOMPARE(contents(midi.path("Akai APC Mini - Club mapping.xml")), QString("old"));
    QCOMPARE(midi.files().size(), 1);
    const Dialogs dialogs({answers.at(answer), Answers::press(QMessageBox::Yes), ok});
    QCOMPARE(midi.window.exportmapping(), false);
    QCOMPARE(midi.window.exportmapping(), true);
}

void MidiTest::missingFolderIsNotNoticed()
{
    MidiWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.window.child<QLineEdit>("padsname")->setText("Club");
    const Dialogs dialogs({ok, ok});
    QCOMPARE(midi.window.exportmapping(), true);
    QCOMPARE(dialogs.at(0).text, QString("Mapping Club for Akai APC Mini is created."));
    QVERIFY(!QDir(midi.home->path("Documents/VirtualDJ")).exists());
    // A name that leads into a folder that is not there is such a case too.
    midi.home->makefolder("Documents/VirtualDJ/Mappers");
    midi.window.child<QLineEdit>("padsname")->setText("Club/Floor");
    QCOMPARE(midi.window.exportmapping(), true);
    QCOMPARE(dialogs.at(1).text, QString("Mapping Club/Floor for Akai APC Mini is created."));
    QVERIFY(QDir(midi.home->path("Documents/VirtualDJ/Mappers")).isEmpty());
}

void MidiTest::emptyNameLeavesTwoBlanks()
{
    ExportWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.window.child<QLineEdit>("padsname")->clear();
    QCOMPARE(midi.exportanswering({ok}).value(0).text, QString("Mapping  for Akai APC Mini is created."));
    QCOMPARE(midi.files(), QStringList{"Akai APC Mini -  mapping.xml"});
    const QList<ShownDialog> dialogs = midi.exportanswering({Answers::press(QMessageBox::No)});
    QCOMPARE(dialogs.value(0).text, QString("Akai APC Mini -  mapping already exists."));
}

void MidiTest::namesAreNotTakenForMarkup()
{
    ExportWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.window.child<QLineEdit>("padsname")->setText(QString::fromUtf8("<b>Été<b> %1 & 'Co'"));
    const Dialogs dialogs({Answers::looking(
        [](QDialog* dialog) {
            const auto* box = qobject_cast<QMessageBox*>(dialog);
            QVERIFY(box);
            QCOMPARE(box->textFormat(), Qt::PlainText);
        },
        ok)});
    QVERIFY(midi.window.exportmapping());
    QCOMPARE(dialogs.at(0).text,
             QString::fromUtf8("Mapping <b>Été<b> %1 & 'Co' for Akai APC Mini is created."));
    QCOMPARE(midi.files(), QStringList{QString::fromUtf8("Akai APC Mini - <b>Été<b> %1 & 'Co' mapping.xml")});
}

void MidiTest::exportedOs2lOnlyFileIsExact()
{
    ExportWindow midi(ApcMini, 0);
    midi.drop(0, midi.cell(2, 2));  // Strobe on ROW1_PAD1
    midi.drop(4, midi.cell(9, 9));  // Ballyhoo on ROW8_PAD8
    midi.drop(1, midi.cell(11, 3)); // Blackout on DOWN
    QVERIFY(midi.window.controllerModel->setData(midi.cell(2, 2), "red", ItemRole::ColorOn));
    QVERIFY(midi.window.controllerModel->setData(midi.cell(2, 2), "1", ItemRole::Blink));
    midi.window.switchPad = {2, 3};
    midi.exportanswering({ok});

    QString wanted = header("APCMINI");
    const QStringList pads = padnames("ROW%1_PAD%2");
    for (const QString& pad : pads) {
        if (pad == "ROW1_PAD1") {
            wanted +=
                map(pad, "os2l_button &apos;Strobe&apos;") +
                map("LED_" + pad, "os2l_button &apos;Strobe&apos; ? blink ? color &apos;red&apos; : color "
                                  "&apos;yellow&apos; : color &apos;yellow&apos;");
        } else if (pad == "ROW8_PAD8") {
            wanted += map(pad, "os2l_button &apos;Ballyhoo&apos;") +
                      map("LED_" + pad, "os2l_button &apos;Ballyhoo&apos; ? color &apos;green&apos; : color "
                                        "&apos;yellow&apos;");
        } else {
            wanted += map(pad, "nothing") + map("LED_" + pad, "color &apos;black&apos;");
        }
    }
    const QString buttons =
        "UP DOWN LEFT RIGHT VOLUME PAN SEND DEVICE CLIP_STOP SOLO REC_ARM MUTE SELECT BLANK1 "
        "BLANK2 STOP_ALL_CLIPS";
    const QStringList names = buttons.split(' ');
    for (const QString& name : names) {
        const bool placed = name == "DOWN";
        wanted += map(name, placed ? "os2l_button &apos;Blackout&apos;" : "nothing") +
                  map("LED_" + name, placed ? "os2l_button &apos;Blackout&apos; ? on : off" : "off");
    }
    for (int slider = 1; slider <= 8; ++slider)
        wanted += map(QString("SLIDER%1").arg(slider), QString("os2l_cmd %1").arg(slider));
    wanted += map("SHIFT", "nothing") + map("SLIDER9", "nothing") + "</mapper>\n";
    QCOMPARE(midi.written("Akai APC Mini - Club mapping.xml"), wanted);
}

void MidiTest::exportedCombinedFileIsExact()
{
    // Of a user's mapping with few actions, one of them wrapped by an earlier export.
    const QString mapping = mapperfile(
        "APCMINI", map("ONEXIT", "stop") + map("ROW1_PAD1", "play &amp; sync") +
                       map("LED_ROW1_PAD1", "play ? on : off") + map("ROW1_PAD3", "cue") +
                       map("ROW1_PAD4", "var &apos;$os2l&apos; ? nothing : hot_cue 1") +
                       map("LED_ROW1_PAD4", "var &apos;$os2l&apos; ? color &apos;black&apos; : on") +
                       map("UP", "load &apos;a&apos;") + map("SLIDER2", "volume") + map("SHIFT", "shift"));
    ExportWindow midi(ApcMini, 2, {{"mine.xml", mapping}});
    QCOMPARE(midi.combos.mapping->currentText(), QString("mine"));
    midi.drop(0, midi.cell(2, 2));  // Strobe on ROW1_PAD1
    midi.drop(3, midi.cell(2, 4));  // Circle on ROW1_PAD3
    midi.drop(2, midi.cell(2, 6));  // Slow Fade on ROW1_PAD5
    midi.drop(1, midi.cell(11, 2)); // Blackout on UP
    QVERIFY(midi.window.controllerModel->setData(midi.cell(2, 4), "black", ItemRole::ColorOff));
    midi.window.switchPad = {2, 3}; // ROW1_PAD2
    midi.exportanswering({ok});

    const QString os2l = "var &apos;$os2l&apos; ? ";
    const QString colors = "color &apos;green&apos; : color &apos;yellow&apos;";
    QString wanted = header("APCMINI");
    wanted +=
        map("ROW1_PAD1", os2l + "os2l_button &apos;Strobe&apos; : play &amp; sync") +
        map("LED_ROW1_PAD1", os2l + "os2l_button &apos;Strobe&apos; ? " + colors + " : play ? on : off") +
        map("ROW1_PAD2", "toggle &apos;$os2l&apos;") + map("LED_ROW1_PAD2", os2l + colors) +
        map("ROW1_PAD3", os2l + "os2l_button &apos;Circle&apos; : cue") +
        map("LED_ROW1_PAD3",
            os2l + "os2l_button &apos;Circle&apos; ? color &apos;green&apos; : color &apos;black&apos;") +
        map("ROW1_PAD4", os2l + "nothing : hot_cue 1") +
        map("LED_ROW1_PAD4", os2l + "color &apos;black&apos; : on") +
        map("ROW1_PAD5", os2l + "os2l_button &apos;Slow Fade&apos;") +
        map("LED_ROW1_PAD5", os2l + "os2l_button &apos;Slow Fade&apos; ? " + colors);
    const QStringList pads = padnames("ROW%1_PAD%2").mid(5);
    for (const QString& pad : pads)
        wanted += map(pad, os2l + "nothing") + map("LED_" + pad, os2l + "color &apos;black&apos;");
    wanted += map("UP", os2l + "os2l_button &apos;Blackout&apos; : load &apos;a&apos;") +
              map("LED_UP", os2l + "os2l_button &apos;Blackout&apos; ? on : off : load &apos;a&apos;");
    const QString buttons =
        "DOWN LEFT RIGHT VOLUME PAN SEND DEVICE CLIP_STOP SOLO REC_ARM MUTE SELECT BLANK1 "
        "BLANK2 STOP_ALL_CLIPS";
    const QStringList names = buttons.split(' ');
    for (const QString& name : names)
        wanted += map(name, os2l + "nothing") + map("LED_" + name, os2l + "off");
    for (int slider = 1; slider <= 8; ++slider)
        wanted += map(QString("SLIDER%1").arg(slider),
                      os2l + QString("os2l_cmd %1").arg(slider) + (slider == 2 ? " : volume" : ""));
    wanted += map("SHIFT", os2l + "nothing : shift") + map("SLIDER9", "nothing") + "</mapper>\n";
    QCOMPARE(midi.written("Akai APC Mini - Club mapping.xml"), wanted);
}

void MidiTest::exportedFullColourFileIsExact()
{
    const QString mapping =
        mapperfile("LAUNCHPAD2", map("PAD_1_1", "play") + map("LED_PAD_1_1", "color 'red'") +
                                     map("BUT_HOR_1", "sync") + map("LED_BUT_HOR_1", "color 'blue'"));
    ExportWindow midi(LaunchpadMk2, 2, {{"mine.xml", mapping}});
    midi.drop(0, midi.cell(2, 2));  // Strobe, red, on PAD_1_1
    midi.drop(2, midi.cell(2, 3));  // Slow Fade, green, on PAD_1_2
    midi.drop(3, midi.cell(0, 2));  // Circle, blue, on BUT_HOR_1
    midi.drop(4, midi.cell(2, 11)); // Ballyhoo, yellow, on BUT_VERT_1
    QVERIFY(midi.window.controllerModel->setData(midi.cell(2, 2), "#0a0b0c", ItemRole::ColorOff));
    QVERIFY(midi.window.controllerModel->setData(midi.cell(2, 2), "#ddeeff", ItemRole::ColorOn));
    QVERIFY(midi.window.controllerModel->setData(midi.cell(2, 2), "1", ItemRole::Blink));
    midi.window.switchPad = {0, 3};
    midi.exportanswering({ok});

    const QString os2l = "var &apos;$os2l&apos; ? ";
    QString wanted = header("LAUNCHPAD2");
    wanted +=
        map("PAD_1_1", os2l + "os2l_button &apos;Strobe&apos; : play") +
        map("LED_PAD_1_1", os2l +
                               "os2l_button &apos;Strobe&apos; ? blink ? color &apos;#ddeeff&apos; : color "
                               "&apos;#0a0b0c&apos; : color &apos;#0a0b0c&apos; : color &apos;red&apos;") +
        map("PAD_1_2", os2l + "os2l_button &apos;Slow Fade&apos;") +
        map("LED_PAD_1_2", os2l + "os2l_button &apos;Slow Fade&apos; ? color &apos;#00ff00&apos; : color 40% "
                                  "&apos;#00ff00&apos;");
    const QStringList pads = padnames("PAD_%1_%2").mid(2);
    for (const QString& pad : pads)
        wanted += map(pad, os2l + "nothing") + map("LED_" + pad, os2l + "color &apos;black&apos;");
    wanted +=
        map("BUT_HOR_1", os2l + "os2l_button &apos;Circle&apos; : sync") +
        map("LED_BUT_HOR_1", os2l + "os2l_button &apos;Circle&apos; ? color &apos;#0000ff&apos; : color 30% "
                                    "&apos;#0000ff&apos; : color &apos;blue&apos;") +
        map("BUT_HOR_2", "toggle &apos;$os2l&apos;") + map("LED_BUT_HOR_2", "var &apos;$os2l&apos;");
    for (int button = 3; button <= 8; ++button) {
        wanted += map(QString("BUT_HOR_%1").arg(button), os2l + "nothing") +
                  map(QString("LED_BUT_HOR_%1").arg(button), os2l + "off");
    }
    wanted +=
        map("BUT_VERT_1", os2l + "os2l_button &apos;Ballyhoo&apos;") +
        map("LED_BUT_VERT_1", os2l + "os2l_button &apos;Ballyhoo&apos; ? color &apos;#ffff00&apos; : color "
                                     "30% &apos;#ffff00&apos;");
    for (int button = 2; button <= 8; ++button) {
        wanted += map(QString("BUT_VERT_%1").arg(button), os2l + "nothing") +
                  map(QString("LED_BUT_VERT_%1").arg(button), os2l + "off");
    }
    wanted += "</mapper>\n";
    QCOMPARE(midi.written("Novation Launchpad MKII - Club mapping.xml"), wanted);
}

void MidiTest::chosenColoursAreWritten()
{
    ExportWindow midi(ApcMini, 0);
    midi.drop(0, midi.cell(2, 2));
    midi.combos.off->setCurrentIndex(0);
    midi.combos.on->setCurrentIndex(2);
    midi.exportanswering({ok});
    const QString name = "Akai APC Mini - Club mapping.xml";
    const QString led = "os2l_button &apos;Strobe&apos; ? color &apos;%1&apos; : color &apos;%2&apos;";
    QVERIFY(midi.written(name).contains(map("LED_ROW1_PAD1", led.arg("red", "black"))));
    // No colour chosen is written as an empty one.
    midi.combos.off->setCurrentIndex(-1);
    midi.combos.on->setCurrentIndex(-1);
    midi.exportanswering({Answers::press(QMessageBox::Yes), ok});
    QVERIFY(midi.written(name).contains(map("LED_ROW1_PAD1", led.arg("", ""))));
}

void MidiTest::headerCarriesTheDate()
{
    ExportWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.exportanswering({ok});
    const QString text = contents(midi.path("Akai APC Mini - Club mapping.xml"));
    const QStringList lines = text.split('\n');
    static const QRegularExpression header("^<mapper device=\"APCMINI\" author=\"Lumipad\" version=\"840\" "
                                           "date=\"([1-9][0-9]?)-([1-9][0-9]?)-([1-9][0-9]{3})\">$");
    const QRegularExpressionMatch match = header.match(lines.value(1));
    QVERIFY(match.hasMatch());
    const QDate date(match.captured(3).toInt(), match.captured(2).toInt(), match.captured(1).toInt());
    QVERIFY(date >= midi.start && date <= QDate::currentDate());
}

void MidiTest::vanishedMappingGivesAnEmptyMapper()
{
    ExportWindow midi(ApcMini, 2, {{"mine.xml", mapperfile("APCMINI", map("UP", "play"))}});
    midi.drop(0, midi.cell(2, 2));
    QCOMPARE(midi.combos.mapping->currentText(), QString("mine"));
    QVERIFY(QFile::remove(midi.path("mine.xml")));
    QCOMPARE(midi.exportanswering({ok}).value(0).text, QString("Mapping Club for Akai APC Mini is created."));
    QCOMPARE(midi.written("Akai APC Mini - Club mapping.xml"), header("APCMINI") + "</mapper>\n");
    QVERIFY(midi.window.keyList.isEmpty());
}

void MidiTest::everyDeviceIsExported_data()
{
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("mapping");
    for (int device = 0; device < knownDevices; ++device) {
        QTest::addRow("%s, OS2L only", qPrintable(deviceNames.at(device))) << device << 0;
        QTest::addRow("%s, combined", qPrintable(deviceNames.at(device))) << device << 1;
    }
}

void MidiTest::everyDeviceIsExported()
{
    QFETCH(int, device);
    QFETCH(int, mapping);
    // The control at the top left pad, and the one of the last button at the right.
    const QStringList pads{"ROW1_PAD1", "PAD_1_1", "1.1", "PAD_1_1", "PAD_1_1", "1.1", "1.1"};
    const QStringList sides{"STOP_ALL_CLIPS", "BUT_VERT_8", "Y8", "BUT_VERT_8", "RIGHT_8", "Y8", "Y8"};
    // Pads and buttons give two lines, sliders and the rest one.
    const QList<int> lines{2 * 80 + 10, 2 * 76 + 36, 2 * 80, 2 * 80, 2 * 92 + 24, 2 * 80, 2 * 80};
    ExportWindow midi(device, mapping);
    midi.drop(3, midi.cell(2, 2));
    midi.drop(4, midi.cell(9, 11));
    midi.window.switchPad = {9, 9};
    const QString message = midi.exportanswering({ok}).value(0).text;
    QCOMPARE(message, "Mapping Club for " + deviceNames.at(device) + " is created.");
    const QString name = deviceNames.at(device) + " - Club mapping.xml";
    QCOMPARE(midi.files(), QStringList{name});

    const QString text = midi.written(name);
    QVERIFY(text.startsWith(header(deviceIds.at(device))));
    QVERIFY(!text.contains('\r'));
    QMap<QString, QString> actions;
    int maps = 0;
    QXmlStreamReader xml(text);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("map")) {
            ++maps;
            actions.insert(xml.attributes().value("value").toString(),
                           xml.attributes().value("action").toString());
        }
    }
    QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
    QCOMPARE(maps, lines.at(device));
    const QString start = mapping == 0 ? "" : "var '$os2l' ? ";
    QVERIFY(actions.value(pads.at(device)).startsWith(start + "os2l_button 'Circle'"));
    QVERIFY(actions.value("LED_" + pads.at(device)).startsWith(start + "os2l_button 'Circle' ? "));
    QVERIFY(actions.value(sides.at(device)).startsWith(start + "os2l_button 'Ballyhoo'"));
    QCOMPARE(!actions.key("toggle '$os2l'").isEmpty(), mapping != 0);
}

void MidiTest::exportingFromAnExportGivesTheSame()
{
    // The first export of a show is chosen as the mapping of the next.
    ExportWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.exportanswering({ok});
    const QString name = "Akai APC Mini - Club mapping.xml";
    const QString first = midi.written(name);
    midi.window.readmappers();
    midi.window.updatemidicombo(rowof(ApcMini));
    midi.combos.mapping->setCurrentText("Akai APC Mini - Club mapping");
    QCOMPARE(midi.combos.mapping->currentIndex(), 2);
    midi.exportanswering({Answers::press(QMessageBox::Yes), ok});
    QCOMPARE(midi.written(name), first);
}

void MidiTest::bothOutputsAreAskedOnTheirOwn()
{
    ExportWindow midi;
    midi.drop(0, midi.cell(2, 2));
    auto* page = midi.window.child<QRadioButton>("radio_outputpage");
    auto* controller = midi.window.child<QRadioButton>("radio_outputmidi");
    page->setAutoExclusive(false);
    controller->setAutoExclusive(false);
    page->setChecked(true);
    controller->setChecked(true);
    QList<ShownDialog> dialogs = midi.exportanswering({ok, ok});
    QCOMPARE(dialogs.value(0).text, QString("Nothing to Export. Pads are empty"));
    QCOMPARE(dialogs.value(1).text, QString("Mapping Club for Akai APC Mini is created."));
    midi.drop(1, midi.pad(0));
    dialogs = midi.exportanswering({ok, Answers::press(QMessageBox::No)});
    QCOMPARE(dialogs.value(0).text, QString("Pads Page Club is created."));
    page->setChecked(false);
    controller->setChecked(false);
    QCOMPARE(midi.exportanswering({}).size(), 0);
}

void MidiTest::exportWithoutDeviceOrMappingIsHarmless()
{
    ExportWindow midi;
    midi.drop(0, midi.cell(2, 2));
    midi.combos.mapping->setCurrentIndex(-1);
    midi.exportanswering({ok});
    QCOMPARE(midi.written("Akai APC Mini - Club mapping.xml"), header("APCMINI") + "</mapper>\n");
    midi.combos.device->setCurrentIndex(-1);
    QCOMPARE(midi.exportanswering({ok}).value(0).text, QString("Mapping Club for  is created."));
    QCOMPARE(midi.written(" - Club mapping.xml"), header("") + "</mapper>\n");
    midi.window.devices.clear();
    midi.window.mappers.clear();
    midi.combos.device->setCurrentIndex(rowof(Launchpad));
    midi.exportanswering({Answers::press(QMessageBox::Yes), ok});
    QCOMPARE(midi.written(" - Club mapping.xml"), header("") + "</mapper>\n");
}

LUMIPAD_TEST_MAIN(MidiTest)

#include "tst_midi.moc"
