#include "bounds.h"
#include "devices.h"
#include "testfiles.h"
#include "testrecords.h"
#include "xmlelements.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <climits>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace controller;

namespace {

/// A folder of its own for one test.
class Folder
{
public:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString path() const { return m_folder.path(); }
    /// Stores \a bytes under \a name.
    void put(const QString& name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            qFatal("The test's own folder cannot be written.");
    }

private:
    QTemporaryDir m_folder;
};

QByteArray layout(const QByteArray& id) { return "<layout name=\"" + id + "\"/>"; }
QByteArray mapper(const QByteArray& id) { return "<mapper device=\"" + id + "\"/>"; }

/// File names in the order in which they are to be listed, their base names all different. The blank and
/// the hyphen come before the dot; the underscore comes before the letters only when these are lower-case.
QStringList orderednames()
{
    return {"alpha two.xml", "Alpha-b.xml", "ALPHA.xml",  "alpha1.xml", "alpha_x.xml", "AlphaB.xml",
            "beta.xml",      "Gamma.xml",   "zulu 2.xml", "Zulu.xml",   "Ärger.xml",   "öl.xml"};
}

QStringList basenames(const QStringList& files)
{
    QStringList names;
    for (const QString& file : files)
        names.append(file.left(file.indexOf('.')));
    return names;
}

/// Two known devices.
QList<Record> twodevices() { return {{{"device", "APCMINI"}}, {{"device", "LAUNCHPAD"}}}; }

/// The most memory that the test has held so far, in megabytes.
long peakmemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

/// How many bytes the test has read so far, from whatever files.
qint64 bytesread()
{
    QFile file(QStringLiteral("/proc/self/io"));
    const QByteArray name("rchar: ");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = file.readAll();
    const auto at = text.indexOf(name) + name.size();
    return text.mid(at, text.indexOf('\n', at) - at).toLongLong();
}

/// A document whose entities, each ten times the one before, would grow to 10^\a levels letters.
QByteArray entitybomb(int levels)
{
    QByteArray xml = "<!DOCTYPE mapper [<!ENTITY e0 \"x\">";
    for (int level = 1; level <= levels; ++level) {
        const QByteArray inner = "&e" + QByteArray::number(level - 1) + ";";
        xml += "<!ENTITY e" + QByteArray::number(level) + " \"" + inner.repeated(10) + "\">";
    }
    const QByteArray last = "&e" + QByteArray::number(levels) + ";";
    return xml + "]><mapper device=\"UNKNOWN\"><map value=\"" + last + "\"/>" + last + "</mapper>";
}

/// A document that names one entity of \a length letters many times, in attributes and in texts.
QByteArray repeatedentity(int length, int times)
{
    return "<!DOCTYPE mapper [<!ENTITY e \"" + QByteArray("x").repeated(length) +
           "\">]><mapper device=\"UNKNOWN\">" + QByteArray("<map value=\"&e;\">&e;</map>").repeated(times) +
           "</mapper>";
}

/// An element with \a count attributes.
QByteArray manyattributes(int count)
{
    QByteArray xml = "<mapper";
    for (int i = 0; i < count; ++i)
        xml += " a" + QByteArray::number(i) + "=\"\"";
    return xml + "/>";
}

} // namespace

class DevicesTest : public QObject
{
    Q_OBJECT

private slots:
    void readsEveryAttributeOfALayout();
    void leavesMissingAttributesEmpty();
    void readsEveryLayoutOfAFile();
    void listsLayoutsByLowerCasedFileName();
    void namesADeviceUpToTheFirstDot();
    void givesEveryDeviceTheSimpleAndTheFactoryMapping();
    void skipsFilesThatAreNoLayout_data();
    void skipsFilesThatAreNoLayout();
    void listsTheBuiltInDevicesInTheirOrder();
    void finishesEveryBuiltInDeviceWithTwoMappers();

    void listsUserMappersOfKnownDevices();
    void listsUserMappersByLowerCasedFileName();
    void listsAFileOnceForEveryMapperInIt();
    void leavesOutMappersOfOtherDevices_data();
    void leavesOutMappersOfOtherDevices();
    void readsMappersInEveryUsualEncoding_data();
    void readsMappersInEveryUsualEncoding();
    void skipsFilesThatAreNoMapper_data();
    void skipsFilesThatAreNoMapper();
    void skipsWhatIsNoPlainFile_data();
    void skipsWhatIsNoPlainFile();
    void readsFilesUpToEightMegabytes();
    void givesNoMappersForAMissingFolder();
    void isNotHeldUpByHostileFiles_data();
    void isNotHeldUpByHostileFiles();
    void readsTheBuiltInLayoutsAsAnExportDoes();
    void listsAtMostAHundredMappersOfOneFile();
    void findsADeviceThatIsNamedInAnyWay_data();
    void findsADeviceThatIsNamedInAnyWay();
    void readsTheFolderUpToABoundInSum();
    void countsTheElementsAndAttributesThatItParses();
    void countsEveryFileAsAPieceOfTheFolder();
    void countsWhatItReadsOfFilesThatTellNoSize();
    void isReadySoonWithAFolderFullOfLargeFiles();

    void findsADeviceById();
    void findsTheMapperThatTheUserChose_data();
    void findsTheMapperThatTheUserChose();
    void splitsThePalette();
    void picksDefaultColoursFromThePalette_data();
    void picksDefaultColoursFromThePalette();
    void takesOnlyTheWordsTrueAndFalseForFullRgb();
};

void DevicesTest::readsEveryAttributeOfALayout()
{
    const Folder folder;
    folder.put("Some Pad.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
                               "<layout name=\"SOMEPAD\" description=\"A pad\" fullrgb=\"false\" "
                               "colors=\"black,green\" coloroff=\"0\" coloron=\"1\" top=\"1\" left=\"2\" "
                               "bottom=\"3\" right=\"4\" faders=\"5\">\r\n"
                               "<pad name=\"P\" row=\"2\" col=\"2\" colorled=\"LED_\"/>\r\n</layout>\r\n");
    const DeviceLists lists = readdefaultmappers(folder.path());
    QCOMPARE(lines(lists.devices),
             QStringList{"bottom=3|colors=black,green|device=SOMEPAD|faders=5|fullrgb=false|left=2|"
                         "name=Some Pad|off=0|on=1|path=" +
                         folder.path("Some Pad.xml") + "|right=4|top=1"});
}

void DevicesTest::leavesMissingAttributesEmpty()
{
    const Folder folder;
    folder.put("Bare.xml", "<layout/>");
    const DeviceLists lists = readdefaultmappers(folder.path());
    QCOMPARE(lines(lists.devices),
             QStringList{"bottom=|colors=|device=|faders=|fullrgb=|left=|name=Bare|off=|on=|path=" +
                         folder.path("Bare.xml") + "|right=|top="});
    QCOMPARE(column(lists.mappers, "device"), (QStringList{"", ""}));
}

void DevicesTest::readsEveryLayoutOfAFile()
{
    const Folder folder;
    folder.put("Twins.xml", "<set><layout name=\"FIRST\"><layout name=\"INNER\"/></layout><a><b>"
                            "<layout name=\"LAST\"/></b></a><Layout name=\"WRONGCASE\"/></set>");
    const DeviceLists lists = readdefaultmappers(folder.path());
    QCOMPARE(column(lists.devices, "device"), (QStringList{"FIRST", "INNER", "LAST"}));
    QCOMPARE(column(lists.devices, "name"), (QStringList{"Twins", "Twins", "Twins"}));
    QCOMPARE(column(lists.mappers, "device"),
             (QStringList{"FIRST", "FIRST", "INNER", "INNER", "LAST", "LAST"}));
}

void DevicesTest::listsLayoutsByLowerCasedFileName()
{
    const Folder folder;
    const QStringList names = orderednames();
    // Stored from last to first, so that the order of creation is not the one to be found.
    for (auto name = names.crbegin(); name != names.crend(); ++name)
        folder.put(*name, layout("ID"));
    QCOMPARE(column(readdefaultmappers(folder.path()).devices, "name"), basenames(names));
}

void DevicesTest::namesADeviceUpToTheFirstDot()
{
    const Folder folder;
    folder.put("Pad 2.1 new.xml", layout("DOTTED"));
    const DeviceLists lists = readdefaultmappers(folder.path());
    QCOMPARE(column(lists.devices, "name"), QStringList{"Pad 2"});
    QCOMPARE(column(lists.mappers, "name"), (QStringList{"Simple OS2L mapping", "Pad 2 mapping (factory)"}));
    QCOMPARE(column(lists.mappers, "path"),
             (QStringList{folder.path("Pad 2 mapping.xml"), folder.path("Pad 2 mapping.xml")}));
}

void DevicesTest::givesEveryDeviceTheSimpleAndTheFactoryMapping()
{
    const Folder folder;
    folder.put("Beta.xml", layout("B"));
    folder.put("Alpha.xml", layout("A"));
    const QString alpha = folder.path("Alpha mapping.xml");
    const QString beta = folder.path("Beta mapping.xml");
    // The factory mappings themselves lie in the same folder and are no devices.
    folder.put("Alpha mapping.xml", mapper("A"));
    folder.put("Beta mapping.xml", mapper("B"));

    const DeviceLists lists = readdefaultmappers(folder.path());
    QCOMPARE(column(lists.devices, "device"), (QStringList{"A", "B"}));
    QCOMPARE(lines(lists.mappers), (QStringList{"device=A|name=Simple OS2L mapping|path=" + alpha,
                                                "device=A|name=Alpha mapping (factory)|path=" + alpha,
                                                "device=B|name=Simple OS2L mapping|path=" + beta,
                                                "device=B|name=Beta mapping (factory)|path=" + beta}));
}

void DevicesTest::skipsFilesThatAreNoLayout_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no XML") << QByteArray("layout name=BAD\n");
    QTest::newRow("another root") << mapper("BAD");
    QTest::newRow("cut short") << QByteArray("<layout name=\"BAD\"><pad name=\"P\"/>");
    QTest::newRow("wrong end tag") << QByteArray("<set><layout name=\"BAD\"/></layout>");
    QTest::newRow("two roots") << QByteArray("<layout name=\"BAD\"/><layout name=\"BAD\"/>");
    QTest::newRow("in a comment") << QByteArray("<set><!-- <layout name=\"BAD\"/> --></set>");
}

void DevicesTest::skipsFilesThatAreNoLayout()
{
    QFETCH(QByteArray, bytes);
    const Folder folder;
    folder.put("A good.xml", layout("GOOD1"));
    folder.put("B bad.xml", bytes);
    folder.put("C good.xml", layout("GOOD2"));
    folder.put("D good.xml.bak", layout("BACKUP"));
    QVERIFY(QDir(folder.path()).mkdir("E folder.xml"));
    const DeviceLists lists = readdefaultmappers(folder.path());
    QCOMPARE(column(lists.devices, "device"), (QStringList{"GOOD1", "GOOD2"}));
    QCOMPARE(column(lists.mappers, "device"), (QStringList{"GOOD1", "GOOD1", "GOOD2", "GOOD2"}));
    QVERIFY(readdefaultmappers(folder.path("nowhere")).devices.isEmpty());
}

void DevicesTest::listsTheBuiltInDevicesInTheirOrder()
{
    const QString red = "#000000,#550000,#AA0000,#FF0000,#005500,#00AA00,#00FF00,#555500,"
                        "#AA5500,#FF5500,#55AA00,#AAAA00,#FFAA00,#55FF00,#AAFF00,#FFFF00";
    const QStringList known{"APCMINI",      "NLMINIMK3",  "LAUNCHPADMINI", "LAUNCHPAD2",
                            "LAUNCHPADPRO", "LAUNCHPADS", "LAUNCHPAD"};
    QStringList found;
    const DeviceLists lists = readdefaultmappers(":/mappings/Mappings");
    for (const Record& device : lists.devices) {
        // Others may be listed among the seven.
        if (!known.contains(device.value("device")))
            continue;
        QStringList sides;
        for (const char* key : {"top", "left", "bottom", "right", "faders"})
            sides.append(device.value(key));
        QCOMPARE(device.value("path"), ":/mappings/Mappings/" + device.value("name") + ".xml");
        QVERIFY2(QFile::exists(device.value("path")), qPrintable(device.value("path")));
        QString colors = ledcolors(device) == LedColors::Any ? QString("rgb") : device.value("colors");
        if (colors == red)
            colors = "P";
        found.append(QStringList{device.value("name"), device.value("device"), colors,
                                 palettecolor(device, "off"), palettecolor(device, "on"), sides.join(',')}
                         .join('|'));
    }
    QCOMPARE(found, (QStringList{
                        "Akai APC Mini|APCMINI|black,green,red,yellow|yellow|green|0,0,8,8,8",
                        "Novation Launchpad Mini MK3|NLMINIMK3|rgb|||4,0,0,8,0",
                        "Novation Launchpad Mini|LAUNCHPADMINI|P|#000000|#FF0000|8,0,0,8,0",
                        "Novation Launchpad MKII|LAUNCHPAD2|rgb|||8,0,0,8,0",
                        "Novation Launchpad PRO|LAUNCHPADPRO|rgb|||4,8,8,8,0",
                        "Novation Launchpad S|LAUNCHPADS|P|#000000|#FF0000|8,0,0,8,0",
                        "Novation Launchpad|LAUNCHPAD|P|#000000|#FF0000|8,0,0,8,0",
                    }));
}

void DevicesTest::finishesEveryBuiltInDeviceWithTwoMappers()
{
    const DeviceLists lists = readdefaultmappers(":/mappings/Mappings");
    QCOMPARE(lists.mappers.size(), 2 * lists.devices.size());
    for (const Record& device : lists.devices) {
        const QString id = device.value("device");
        const QString path = ":/mappings/Mappings/" + device.value("name") + " mapping.xml";
        const Record simple = lists.mappers.value(getmapperid(lists.mappers, id, 0));
        const Record factory = lists.mappers.value(getmapperid(lists.mappers, id, 1));
        QCOMPARE(line(simple), "device=" + id + "|name=Simple OS2L mapping|path=" + path);
        QCOMPARE(line(factory),
                 "device=" + id + "|name=" + device.value("name") + " mapping (factory)|path=" + path);
        QVERIFY2(QFile::exists(path), qPrintable(path));
        QCOMPARE(getmapperid(lists.mappers, id, 2), -1);
    }
}

void DevicesTest::listsUserMappersOfKnownDevices()
{
    const Folder folder;
    folder.put("My club. Best.xml", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<mapper device=\"APCMINI\" "
                                    "author=\"me\" version=\"840\" date=\"1-2-2026\">\n"
                                    "<map value=\"SHIFT\" action=\"shift\"/>\n</mapper>\n");
    QCOMPARE(lines(readmappers(folder.path(), twodevices())),
             QStringList{"device=APCMINI|name=My club|path=" + folder.path("My club. Best.xml")});
    QVERIFY(readmappers(folder.path(), {}).isEmpty());
}

void DevicesTest::listsUserMappersByLowerCasedFileName()
{
    const Folder folder;
    const QStringList names = orderednames();
    for (auto name = names.crbegin(); name != names.crend(); ++name)
        folder.put(*name, mapper("LAUNCHPAD"));
    const QList<Record> mappers = readmappers(folder.path(), twodevices());
    QCOMPARE(column(mappers, "name"), basenames(names));
    QCOMPARE(mappers.value(0).value("path"), folder.path(names.value(0)));
}

void DevicesTest::listsAFileOnceForEveryMapperInIt()
{
    const Folder folder;
    folder.put("Both.xml", "<set>" + mapper("LAUNCHPAD") + mapper("OTHER") + "<a>" + mapper("APCMINI") +
                               "</a>" + mapper("LAUNCHPAD") + "</set>");
    const QList<Record> mappers = readmappers(folder.path(), twodevices());
    QCOMPARE(column(mappers, "device"), (QStringList{"LAUNCHPAD", "APCMINI", "LAUNCHPAD"}));
    QCOMPARE(column(mappers, "name"), (QStringList{"Both", "Both", "Both"}));
}

void DevicesTest::leavesOutMappersOfOtherDevices_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("unknown") << mapper("XYZ");
    QTest::newRow("lower case") << mapper("apcmini");
    QTest::newRow("blank behind") << mapper("APCMINI ");
    QTest::newRow("longer") << mapper("APCMINI2");
    QTest::newRow("empty") << mapper("");
    QTest::newRow("no device") << QByteArray("<mapper author=\"APCMINI\"/>");
    QTest::newRow("attribute in capitals") << QByteArray("<mapper DEVICE=\"APCMINI\"/>");
    QTest::newRow("tag in capitals") << QByteArray("<MAPPER device=\"APCMINI\"/>");
    QTest::newRow("a layout") << layout("APCMINI");
}

void DevicesTest::leavesOutMappersOfOtherDevices()
{
    QFETCH(QByteArray, xml);
    const Folder folder;
    folder.put("Other.xml", xml);
    folder.put("Ours.xml", mapper("APCMINI"));
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "name"), QStringList{"Ours"});
}

void DevicesTest::readsMappersInEveryUsualEncoding_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QString text = "<?xml version=\"1.0\"?>\r\n<mapper device=\"APCMINI\" author=\"Änne\"/>\r\n";
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with its mark") << "\xEF\xBB\xBF" + text.toUtf8();
    const QString mark(QChar(0xFEFF));
    const QString marked = mark + text;
    QTest::newRow("UTF-16") << QByteArray(reinterpret_cast<const char*>(marked.utf16()), 2 * marked.size());
    QTest::newRow("Latin 1") << QByteArray(
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><mapper author=\"\xC4\" "
        "device=\"APCMINI\"/>");
    QTest::newRow("named by entities") << QByteArray("<mapper device=\"&#65;PC&#x4D;INI\"/>");
}

void DevicesTest::readsMappersInEveryUsualEncoding()
{
    QFETCH(QByteArray, bytes);
    const Folder folder;
    folder.put("Mine.xml", bytes);
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "device"), QStringList{"APCMINI"});
}

void DevicesTest::skipsFilesThatAreNoMapper_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray whole = "<mapper device=\"APCMINI\"><map value=\"A\" action=\"b\"/></mapper>";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("device=APCMINI\n");
    QTest::newRow("cut short") << whole.left(whole.size() - 3);
    QTest::newRow("bare ampersand") << QByteArray(whole).replace("\"b\"", "\"b && c\"");
    QTest::newRow("bare less-than sign") << QByteArray(whole).replace("\"b\"", "\"b < c\"");
    QTest::newRow("more behind the end") << whole + whole;
    QTest::newRow("zero bytes") << QByteArray(4096, '\0');
    QTest::newRow("zero bytes behind the end") << whole + QByteArray(4096, '\0');
    QTest::newRow("no UTF-8") << QByteArray(whole).replace("\"b\"", "\"\xFF\xFE\xC3\"");
}

void DevicesTest::skipsFilesThatAreNoMapper()
{
    QFETCH(QByteArray, bytes);
    const Folder folder;
    folder.put("A.xml", mapper("APCMINI"));
    folder.put("B.xml", bytes);
    folder.put("C.xml", mapper("LAUNCHPAD"));
    const QStringList found = column(readmappers(folder.path(), twodevices()), "name");
    // Bytes that are no letters may be read as signs for unknown letters; every other file is no XML.
    if (QTest::currentDataTag() == QLatin1String("no UTF-8"))
        QVERIFY(found == (QStringList{"A", "C"}) || found == (QStringList{"A", "B", "C"}));
    else
        QCOMPARE(found, (QStringList{"A", "C"}));
}

void DevicesTest::skipsWhatIsNoPlainFile_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"folder", "pipe", "link to a pipe", "link to a device", "link to nothing",
                             "link to itself", "link to a file that fails", "sparse file of 100 MB"})
        QTest::newRow(kind) << QString(kind);
}

void DevicesTest::skipsWhatIsNoPlainFile()
{
    QFETCH(QString, kind);
    const Folder folder;
    const QString path = folder.path("x.xml");
    const QByteArray name = QFile::encodeName(path);
    folder.put("a.xml", mapper("APCMINI"));
    folder.put("z.xml", mapper("LAUNCHPAD"));
    if (kind == "folder") {
        QVERIFY(QDir(folder.path()).mkdir("x.xml"));
    } else if (kind == "pipe") {
        QCOMPARE(mkfifo(name.constData(), 0600), 0);
    } else if (kind == "link to a pipe") {
        QCOMPARE(mkfifo(QFile::encodeName(folder.path("pipe")).constData(), 0600), 0);
        QVERIFY(QFile::link(folder.path("pipe"), path));
    } else if (kind == "link to a device") {
        QVERIFY(QFile::link("/dev/zero", path));
    } else if (kind == "link to nothing") {
        QVERIFY(QFile::link(folder.path("gone.xml"), path));
    } else if (kind == "link to itself") {
        QVERIFY(QFile::link(path, path));
    } else if (kind == "link to a file that fails") {
        // It can be opened, even by root, but its first byte cannot be read.
        QVERIFY(QFile::exists("/proc/self/mem"));
        QVERIFY(QFile::link("/proc/self/mem", path));
    } else {
        folder.put("x.xml", mapper("APCMINI"));
        QVERIFY(QFile::resize(path, 100LL * 1024 * 1024));
    }

    const long before = peakmemory();
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "name"), (QStringList{"a", "z"}));
    QVERIFY2(timer.elapsed() < 30000, "The file should have been skipped at once.");
    QVERIFY2(peakmemory() - before < 64, "The file should not have been read into memory.");
}

void DevicesTest::readsFilesUpToEightMegabytes()
{
    const Folder folder;
    const QByteArray start = "<mapper device=\"APCMINI\"><!--";
    const QByteArray end = "--></mapper>";
    const auto rest = 8 * 1024 * 1024 - start.size() - end.size();
    folder.put("full.xml", start + QByteArray(rest, 'x') + end);
    folder.put("over.xml", start + QByteArray(rest + 1, 'x') + end);
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "name"), QStringList{"full"});
}

void DevicesTest::givesNoMappersForAMissingFolder()
{
    const Folder folder;
    folder.put("file.xml", mapper("APCMINI"));
    QVERIFY(readmappers(folder.path("nowhere"), twodevices()).isEmpty());
    QVERIFY(readmappers(folder.path("file.xml"), twodevices()).isEmpty());
    QVERIFY(readmappers(":/nowhere", twodevices()).isEmpty());
}

void DevicesTest::isNotHeldUpByHostileFiles_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::newRow("entities that multiply") << entitybomb(12);
    QTest::newRow("long entity named often") << repeatedentity(60000, 6000);
    QTest::newRow("entity that names itself")
        << QByteArray("<!DOCTYPE m [<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">]><m><map value=\"&a;\"/>&a;</m>");
    QTest::newRow("entity from elsewhere")
        << QByteArray("<!DOCTYPE m SYSTEM \"file:///dev/zero\" [<!ENTITY a SYSTEM \"file:///dev/zero\">]>"
                      "<m>&a;</m>");
    QTest::newRow("nested deeply") << QByteArray("<a>").repeated(100000) +
                                          QByteArray("</a>").repeated(100000);
    QTest::newRow("nested deeply and never closed") << QByteArray("<a>").repeated(200000);
    QTest::newRow("more attributes than any mapping") << manyattributes(100000);
}

void DevicesTest::isNotHeldUpByHostileFiles()
{
    QFETCH(QByteArray, xml);
    const Folder folder;
    folder.put("a.xml", mapper("APCMINI"));
    folder.put("hostile.xml", xml);
    folder.put("z.xml", mapper("LAUNCHPAD"));

    const long before = peakmemory();
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "name"), (QStringList{"a", "z"}));
    QVERIFY2(timer.elapsed() < 30000, qPrintable(QString("%1 ms").arg(timer.elapsed())));
    QVERIFY2(peakmemory() - before < 400, qPrintable(QString("%1 MB").arg(peakmemory() - before)));
}

void DevicesTest::readsTheBuiltInLayoutsAsAnExportDoes()
{
    // At the start they are read by another reader, as a stream.
    const QList<Record> devices = readdefaultmappers(":/mappings/Mappings").devices;
    QVERIFY(devices.size() >= 7);
    for (const Record& device : devices) {
        const QList<XmlElement> layouts = readelements(device.value("path"), {"layout"});
        QCOMPARE(layouts.size(), 1);
        const Record& layout = layouts.first().attributes;
        QCOMPARE(layout.value("name"), device.value("device"));
        for (const char* key : {"fullrgb", "colors", "top", "left", "right", "bottom", "faders"})
            QCOMPARE(layout.value(key), device.value(key));
        QCOMPARE(layout.value("coloroff"), device.value("off"));
        QCOMPARE(layout.value("coloron"), device.value("on"));
    }
}

void DevicesTest::listsAtMostAHundredMappersOfOneFile()
{
    const Folder folder;
    folder.put("a.xml", "<all>" + mapper("LAUNCHPAD").repeated(maxMappersPerFile + 1) + "</all>");
    folder.put("b.xml",
               "<all>" + mapper("OTHER").repeated(maxMappersPerFile) + mapper("LAUNCHPAD") + "</all>");
    folder.put("c.xml", mapper("APCMINI"));
    const QStringList names = column(readmappers(folder.path(), twodevices()), "name");
    QCOMPARE(names.count("a"), maxMappersPerFile);
    QCOMPARE(names.count("b"), 0);
    QCOMPARE(names.count("c"), 1);
}

void DevicesTest::findsADeviceThatIsNamedInAnyWay_data()
{
    QTest::addColumn<QByteArray>("xml");
    const QString text = "<mapper device=\"APCMINI\"/>";
    const QByteArray wide = utf16(text);
    QByteArray swapped = wide;
    for (int at = 0; at + 1 < swapped.size(); at += 2)
        std::swap(swapped.data()[at], swapped.data()[at + 1]);
    QTest::newRow("plain") << text.toUtf8();
    QTest::newRow("UTF-16") << wide;
    QTest::newRow("UTF-16, its bytes swapped") << swapped;
    QTest::newRow("decimal references") << QByteArray("<mapper device=\"&#65;&#80;CMINI\"/>");
    QTest::newRow("one hexadecimal reference") << QByteArray("<mapper device=\"APCMIN&#x49;\"/>");
}

void DevicesTest::findsADeviceThatIsNamedInAnyWay()
{
    QFETCH(QByteArray, xml);
    const Folder folder;
    folder.put("a.xml", xml);
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "device"), QStringList{"APCMINI"});
}

void DevicesTest::readsTheFolderUpToABoundInSum()
{
    const Folder folder;
    const int fitting = maxMappersScan / maxXmlSize;
    for (int n = 0; n <= fitting; ++n)
        folder.put(QString("large%1.xml").arg(n), mapper("APCMINI").leftJustified(maxXmlSize - 8192));
    folder.put("small.xml", mapper("APCMINI"));
    folder.put("too large.xml", mapper("APCMINI").leftJustified(maxXmlSize));
    folder.put("zsmall.xml", mapper("APCMINI"));
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "name"),
             (QStringList{"large0", "large1", "small", "zsmall"}));
}

void DevicesTest::countsTheElementsAndAttributesThatItParses()
{
    // As many parts as a file may have, three in each element of a few bytes.
    const QByteArray many = QByteArray("<a b='' c=''/>").repeated(maxXmlParts / 3 - 10);
    // One that is not parsed counts its bytes only.
    const QByteArray other = "<mapper device=\"UNKNOWN\">" + many + "</mapper>";
    const int fitting = static_cast<int>((maxMappersScan - other.size()) / (maxXmlParts * minMapperScanPart));
    QVERIFY(fitting >= 2);
    const Folder folder;
    QStringList names;
    for (int n = 0; n < fitting + 2; ++n) {
        folder.put(QString("%1.xml").arg(n), "<mapper device=\"APCMINI\">" + many + "</mapper>");
        names.append(QString::number(n));
    }
    folder.put("0 of another device.xml", other);
    QVERIFY(many.size() * (names.size() + 1) < maxMappersScan);
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "name"), names.mid(0, fitting));
}

void DevicesTest::countsEveryFileAsAPieceOfTheFolder()
{
    const Folder folder;
    const int fitting = maxMappersScan / minMapperScan;
    QStringList names;
    for (int n = 0; n <= fitting; ++n) {
        names.append(QString::number(100000 + n));
        folder.put(names.constLast() + ".xml", mapper("APCMINI"));
    }
    names.removeLast();
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "name"), names);
}

void DevicesTest::countsWhatItReadsOfFilesThatTellNoSize()
{
    const QString endless = QStringLiteral("/proc/self/pagemap");
    if (!QFile::exists(endless) || QFileInfo(endless).size() != 0) {
        QTest::qSkip("This system has no such file.", __FILE__, __LINE__);
        return;
    }
    const Folder folder;
    folder.put("a.xml", mapper("APCMINI"));
    for (int n = 0; n < 20; ++n)
        QVERIFY(QFile::link(endless, folder.path(QString("endless%1.xml").arg(n))));
    folder.put("z.xml", mapper("APCMINI"));
    const qint64 before = bytesread();
    // They have used up what may be read.
    QCOMPARE(column(readmappers(folder.path(), twodevices()), "name"), QStringList{"a"});
    const qint64 read = bytesread() - before;
    QVERIFY2(read <= maxMappersScan + 65536, qPrintable(QString::number(read)));
}

void DevicesTest::isReadySoonWithAFolderFullOfLargeFiles()
{
    const Folder folder;
    const QByteArray head = "<mapper device=\"APCMINI\">";
    const QByteArray line =
        "<map value=\"PAD_1_1\" action=\"var &apos;$mode&apos; 0 ? sampler_pad 1 : hot_cue 1 "
        "and some more words\"/>\n";
    const QByteArray large = head + line.repeated((maxXmlSize - 100) / line.size()) + "</mapper>";
    for (int n = 0; n < 20; ++n)
        folder.put(QString("%1.xml").arg(n), large);
    for (int n = 0; n < 20; ++n)
        folder.put(QString("other%1.xml").arg(n), QByteArray(large).replace("APCMINI", "UNKNOWN"));
    QElapsedTimer timer;
    timer.start();
    QVERIFY(readmappers(folder.path(), twodevices()).size() <= maxMappersScan / maxXmlSize + 1);
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString("%1 ms").arg(timer.elapsed())));
}

void DevicesTest::findsADeviceById()
{
    const QList<Record> devices{
        {{"device", "APCMINI"}}, {{"device", "LAUNCHPAD"}}, {{"device", "APCMINI"}}, {{"name", "nameless"}}};
    QCOMPARE(getdeviceindex(devices, "APCMINI"), 0);
    QCOMPARE(getdeviceindex(devices, "LAUNCHPAD"), 1);
    QCOMPARE(getdeviceindex(devices, "launchpad"), -1);
    QCOMPARE(getdeviceindex(devices, "LAUNCHPAD "), -1);
    QCOMPARE(getdeviceindex(devices, "XYZ"), -1);
    QCOMPARE(getdeviceindex(devices, QString()), 3);
    QCOMPARE(getdeviceindex({}, "APCMINI"), -1);
    QCOMPARE(getdeviceindex({}, QString()), -1);
}

void DevicesTest::findsTheMapperThatTheUserChose_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("id");
    QTest::newRow("first") << "A" << 0 << 0;
    QTest::newRow("second") << "A" << 1 << 1;
    QTest::newRow("third, behind those of another") << "A" << 2 << 4;
    QTest::newRow("number of the mappers") << "A" << 3 << -1;
    QTest::newRow("first of another") << "B" << 0 << 2;
    QTest::newRow("last of another") << "B" << 1 << 3;
    QTest::newRow("number of another's") << "B" << 2 << -1;
    QTest::newRow("far beyond") << "A" << INT_MAX << -1;
    QTest::newRow("nothing chosen") << "A" << -1 << -1;
    QTest::newRow("far below") << "A" << INT_MIN << -1;
    QTest::newRow("unknown device") << "C" << 0 << -1;
    QTest::newRow("wrong case") << "a" << 0 << -1;
    QTest::newRow("no device") << "" << 0 << -1;
}

void DevicesTest::findsTheMapperThatTheUserChose()
{
    QFETCH(QString, device);
    QFETCH(int, n);
    QFETCH(int, id);
    const QList<Record> mappers{
        {{"device", "A"}}, {{"device", "A"}}, {{"device", "B"}}, {{"device", "B"}}, {{"device", "A"}}};
    QCOMPARE(getmapperid(mappers, device, n), id);
    QCOMPARE(getmapperid({}, device, n), -1);
}

void DevicesTest::splitsThePalette()
{
    QCOMPARE(palette({{"colors", "black,green,red"}}), (QStringList{"black", "green", "red"}));
    QCOMPARE(palette({{"colors", "#000000"}}), QStringList{"#000000"});
    QCOMPARE(palette({{"colors", "black,,red,"}}), (QStringList{"black", "", "red", ""}));
    QCOMPARE(palette({{"colors", " black; green , red"}}), (QStringList{" black; green ", " red"}));
    QCOMPARE(palette({{"colors", ""}}), QStringList{""});
    QCOMPARE(palette(Record()), QStringList{""});
}

void DevicesTest::picksDefaultColoursFromThePalette_data()
{
    QTest::addColumn<QString>("colors");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("color");
    const QString three = "black,green,red";
    QTest::newRow("first") << three << "0"
                           << "black";
    QTest::newRow("last") << three << "2"
                          << "red";
    QTest::newRow("beyond") << three << "3"
                            << "";
    QTest::newRow("far beyond") << three << "2147483647"
                                << "";
    QTest::newRow("too large for a number") << three << "99999999999"
                                            << "black";
    QTest::newRow("negative") << three << "-1"
                              << "";
    QTest::newRow("far below") << three << "-2147483648"
                               << "";
    QTest::newRow("a word") << three << "green"
                            << "black";
    QTest::newRow("a fraction") << three << "1.5"
                                << "black";
    QTest::newRow("empty") << three << ""
                           << "black";
    QTest::newRow("no palette") << ""
                                << "0"
                                << "";
    QTest::newRow("beyond no palette") << ""
                                       << "1"
                                       << "";
}

void DevicesTest::picksDefaultColoursFromThePalette()
{
    QFETCH(QString, colors);
    QFETCH(QString, number);
    QFETCH(QString, color);
    QCOMPARE(palettecolor({{"colors", colors}, {"off", number}, {"on", "2"}}, "off"), color);
    QCOMPARE(palettecolor({{"colors", colors}, {"off", "2"}, {"on", number}}, "on"), color);
    QCOMPARE(palettecolor({{"colors", colors}, {"on", number}}, "off"), colors.section(',', 0, 0));
}

void DevicesTest::takesOnlyTheWordsTrueAndFalseForFullRgb()
{
    QCOMPARE(ledcolors({{"fullrgb", "true"}}), LedColors::Any);
    QCOMPARE(ledcolors({{"fullrgb", "false"}}), LedColors::Palette);
    for (const char* other : {"FALSE", "TRUE", "True", "1", "0", " true", "true ", ""})
        QVERIFY2(ledcolors({{"fullrgb", other}}) == LedColors::Unstated, other);
    QCOMPARE(ledcolors(Record()), LedColors::Unstated);
}

QTEST_APPLESS_MAIN(DevicesTest)
#include "tst_devices.moc"
