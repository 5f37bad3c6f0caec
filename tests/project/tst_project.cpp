#include "project.h"

#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QStringList>
#include <QTest>

namespace {

const char* const showPath = "/home/dj/LightShows/Friday/Live/live.ini";

QByteArray golden(const char* name)
{
    QFile file(QStringLiteral(TEST_DATA_DIR "/golden/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("A golden file is missing");
    return file.readAll();
}

/// Sets the values that a Live Button gives to its pad.
void place(Record* key, const char* id, const char* page, const char* name, const char* color)
{
    key->insert("id", id);
    key->insert("pagenr", page);
    key->insert("name", name);
    key->insert("dspname", name);
    key->insert("color", color);
}

/// The 128 empty pads of the pads page; the pad in \a column of \a row is key 2 * row + column.
QList<Record> emptypads()
{
    QList<Record> keys;
    for (int row = 0; row < 64; ++row) {
        for (int column = 0; column < 2; ++column) {
            const QString name = QStringLiteral("PAD %1").arg(row % 8 + 1 + 8 * column);
            keys.append({{"row", QString::number(row)},
                         {"column", QString::number(column)},
                         {"name", name},
                         {"dspname", name},
                         {"pagenr", "0"},
                         {"id", "-1"},
                         {"color", "#000000"}});
        }
    }
    return keys;
}

Project eightpads()
{
    QList<Record> keys = emptypads();
    place(&keys[0], "0", "1", "Strobe", "#ff0000");
    keys[0].insert("name", "STROBE");
    place(&keys[2 * 17], "1", "1", "Blackout", "#000000");
    place(&keys[2 * 5 + 1], "3", "2", "Circle", "#0000ff");
    return {{{{"type", "pads"},
              {"show", showPath},
              {"showname", "Friday"},
              {"export", "OS2L DMX"},
              {"layout", "0"},
              {"banks", "BANK 1,BANK 2,Drop,BANK 4,BANK 5,BANK 6,BANK 7,BANK 8"}}},
            keys};
}

Project sixteenpads()
{
    QList<Record> keys = emptypads();
    place(&keys[2 * 15 + 1], "4", "2", "Ballyhoo", "#ffff00");
    keys[2 * 15 + 1].insert("name", QStringLiteral(u"Let's go > \u00e9t\u00e9 \u263a"));
    place(&keys[2 * 63], "2", "1", "Slow Fade", "#00ff00");
    place(&keys[2 * 63 + 1], "2", "1", "Slow Fade", "#00ff00");
    place(&keys[1], "0", "1", "Strobe", "#ff0000");
    return {{{{"type", "pads"},
              {"show", showPath},
              {"showname", "Friday"},
              {"export", "Club night"},
              {"layout", "1"},
              {"banks", QStringLiteral(u"Intro,,Peak > time,Chill's,BANK 5,BANK 6,BANK 7,Fin\u00e9")}}},
            keys};
}

/// The label of a cell of the controller grid.
QString label(int row, int column)
{
    const auto spacer = [](int line) { return line == 1 || line == 10; };
    const bool corner = (row == 0 || row == 11) && (column == 0 || column == 11);
    if (spacer(row) || spacer(column) || corner)
        return QString();
    if (row == 0)
        return QStringLiteral("TOP %1").arg(column - 1);
    if (row == 11)
        return QStringLiteral("BOTTOM %1").arg(column - 1);
    if (column == 0)
        return QStringLiteral("LEFT %1").arg(row - 1);
    if (column == 11)
        return QStringLiteral("RIGHT %1").arg(row - 1);
    return QStringLiteral("PAD %1").arg(8 * (row - 2) + column - 1);
}

Project midi()
{
    QList<Record> keys;
    for (int row = 0; row < 12; ++row) {
        for (int column = 0; column < 12; ++column) {
            // The controller has pads, and buttons on the right and at the bottom.
            const auto between = [](int line) { return line >= 2 && line <= 9; };
            const bool usable =
                (between(row) && (between(column) || column == 11)) || (row == 11 && between(column));
            keys.append({{"row", QString::number(row)},
                         {"column", QString::number(column)},
                         {"name", label(row, column)},
                         {"dspname", label(row, column)},
                         {"pagenr", "0"},
                         {"id", "-1"},
                         {"avail", usable ? "1" : "0"},
                         {"coloroff", ""},
                         {"coloron", ""},
                         {"blink", "0"},
                         {"color", "#000000"}});
        }
    }
    const auto at = [&keys](int row, int column) { return &keys[12 * row + column]; };
    place(at(2, 2), "0", "1", "Strobe", "#ff0000");
    at(2, 2)->insert("coloroff", "green");
    at(2, 2)->insert("coloron", "red");
    at(2, 2)->insert("blink", "1");
    for (const char* name : {"name", "dspname"})
        at(11, 2)->insert(name, "SWITCH");
    at(11, 2)->insert("avail", "0");
    place(at(9, 9), "3", "2", "Circle", "#0000ff");
    at(9, 9)->insert("blink", "");
    place(at(2, 11), "2", "1", "Slow Fade", "#00ff00");
    at(2, 11)->insert("coloron", "#aa00ff");
    at(2, 11)->insert("blink", "");
    place(at(11, 5), "4", "2", "Ballyhoo", "#ffff00");
    at(11, 5)->insert("coloroff", "yellow");
    at(11, 5)->insert("blink", "1");
    return {{{{"deviceid", "APCMINI"},
              {"type", "midi"},
              {"show", showPath},
              {"showname", "Friday"},
              {"switch", "11,2"},
              {"offcolor", "0"},
              {"oncolor", "2"},
              {"export", "Club night"}}},
            keys};
}

/// Reads \a text and fails when that takes longer than a user would wait.
Project readsoon(const QByteArray& text)
{
    QElapsedTimer timer;
    timer.start();
    Project project = readproject(text);
    if (timer.elapsed() > 30000)
        QTest::qFail("Reading took too long", __FILE__, __LINE__);
    return project;
}

/// Text of 0 to \a length characters, none of which ends an attribute.
QString generated(QRandomGenerator* random, int length)
{
    static const QString letters =
        QStringLiteral(u"abcXYZ0189 _-,;:'>/\\()[]{}%1%n#=+*?!\u00e9\u00df\u263a\u4e2d");
    QString text;
    for (int n = random->bounded(length + 1); n > 0; --n)
        text += letters.at(random->bounded(letters.size()));
    return text;
}

} // namespace

Q_DECLARE_METATYPE(Project)

class ProjectTest : public QObject
{
    Q_OBJECT

private slots:
    void writesTheWholeFile_data();
    void writesTheWholeFile();
    void readsTheWholeFile_data();
    void readsTheWholeFile();
    void writesMissingValuesEmpty();
    void writesNoAttributeOfTheOtherKind();
    void writesValuesAsTheyStand();
    void readsBackWhatItWrote();
    void readsElementsOfAnyFile_data();
    void readsElementsOfAnyFile();
    void decodesEntities();
    void readsOddFilesInBoundedTime_data();
    void readsOddFilesInBoundedTime();
    void readsEveryTruncation();
};

void ProjectTest::writesTheWholeFile_data()
{
    QTest::addColumn<Project>("project");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("8 pads") << eightpads() << golden("pads-eight.os2l");
    QTest::newRow("16 pads") << sixteenpads() << golden("pads-sixteen.os2l");
    QTest::newRow("MIDI") << midi() << golden("midi.os2l");
}

void ProjectTest::writesTheWholeFile()
{
    QFETCH(Project, project);
    QFETCH(QByteArray, text);
    const QList<QByteArray> written = projectxml(project).toUtf8().split('\n');
    const QList<QByteArray> expected = text.split('\n');
    for (int line = 0; line < qMin(written.size(), expected.size()); ++line)
        QCOMPARE(written.at(line), expected.at(line));
    QCOMPARE(written.size(), expected.size());
}

void ProjectTest::readsTheWholeFile_data() { writesTheWholeFile_data(); }

void ProjectTest::readsTheWholeFile()
{
    QFETCH(Project, project);
    QFETCH(QByteArray, text);
    const Project read = readproject(text);
    QCOMPARE(read.projects, project.projects);
    QCOMPARE(read.keys, project.keys);
    // A program that writes text files its own way may have touched the line ends.
    QCOMPARE(readproject(text.replace("\n", "\r\n")).keys, project.keys);
}

void ProjectTest::writesMissingValuesEmpty()
{
    QCOMPARE(projectxml({}), QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                     "<project type=\"\" show=\"\" showname=\"\" export=\"\" layout=\"\" "
                                     "banks=\"\" >\n"
                                     "</project>\n"));
    QCOMPARE(projectxml({{{{"type", "midi"}}}, {Record()}}),
             QString("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                     "<project deviceid=\"\" type=\"midi\" show=\"\" showname=\"\" switch=\"\" offcolor=\"\" "
                     "oncolor=\"\" export=\"\" >\n"
                     "\t<key row=\"\" column=\"\" name=\"\" dspname=\"\" pagenr=\"\" id=\"\" avail=\"\" "
                     "coloroff=\"\" coloron=\"\" blink=\"\" color=\"\" />\n"
                     "</project>\n"));
}

void ProjectTest::writesNoAttributeOfTheOtherKind()
{
    Project both = midi();
    Record head = eightpads().projects.constFirst();
    const Record midihead = both.projects.constFirst();
    for (auto value = midihead.cbegin(); value != midihead.cend(); ++value)
        if (!head.contains(value.key()))
            head.insert(value.key(), value.value());
    both.projects = {head};
    const QString pads = projectxml(both);
    for (const char* name : {" deviceid=", " switch=", " offcolor=", " avail=", " coloron=", " blink="})
        QVERIFY2(!pads.contains(QLatin1String(name)), name);
    both.projects[0].insert("type", "midi");
    const QString controller = projectxml(both);
    for (const char* name : {" layout=", " banks="})
        QVERIFY2(!controller.contains(QLatin1String(name)), name);
}

void ProjectTest::writesValuesAsTheyStand()
{
    Project project = eightpads();
    project.keys[0].insert("name", "a \"b\" & <c> %1 %2");
    QVERIFY(projectxml(project).contains(
        "\t<key row=\"0\" column=\"0\" name=\"a \"b\" & <c> %1 %2\" dspname=\"Strobe\" "));
    project.projects[0].insert("banks", "A,B,,C \\n,%1");
    QVERIFY(projectxml(project).contains(" banks=\"A,B,,C \\n,%1\" >\n"));
}

void ProjectTest::readsBackWhatItWrote()
{
    QRandomGenerator random(20201121);
    for (int round = 0; round < 60; ++round) {
        Project project = round % 2 == 0 ? sixteenpads() : midi();
        Record& head = project.projects[0];
        for (auto value = head.begin(); value != head.end(); ++value)
            if (value.key() != "type")
                value.value() = generated(&random, 40);
        for (Record& key : project.keys)
            for (QString& value : key)
                value = generated(&random, 12);
        const QString text = projectxml(project);
        const Project read = readproject(text.toUtf8());
        QCOMPARE(read.projects, project.projects);
        QCOMPARE(read.keys, project.keys);
        QCOMPARE(projectxml(read), text);
    }
}

void ProjectTest::readsElementsOfAnyFile_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("shows");
    QTest::addColumn<QStringList>("ids");
    const QByteArray begin = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    const QByteArray open = "<project show=\"A\" >";
    const QByteArray first = "<key id=\"1\" />";
    const QByteArray second = "<key id=\"2\" />";
    const QByteArray close = "</project>";
    using L = QStringList;
    QTest::newRow("nothing") << QByteArray() << L() << L();
    QTest::newRow("no XML") << QByteArray("not ours") << L() << L();
    QTest::newRow("no elements") << begin << L() << L();
    QTest::newRow("another program's") << begin + "<page><pad/></page>" << L() << L();
    QTest::newRow("whole") << begin + open + first + second + close << L{"A"} << L{"1", "2"};
    QTest::newRow("without a head line") << open + first + close << L{"A"} << L{"1"};
    QTest::newRow("cut short") << begin + open + first + second << L{"A"} << L{"1", "2"};
    QTest::newRow("cut inside an element") << begin + open + first + "<key id=\"2\" na" << L{"A"} << L{"1"};
    QTest::newRow("a quote in a name")
        << begin + open + first + "<key id=\"2\" name=\"a \"b\" c\" />" + second + close << L{"A"} << L{"1"};
    QTest::newRow("an ampersand in a name")
        << begin + open + first + "<key id=\"2\" name=\"a & b\" />" + second + close << L{"A"} << L{"1"};
    QTest::newRow("a less-than sign in a name")
        << begin + open + first + "<key id=\"2\" name=\"a < b\" />" + second + close << L{"A"} << L{"1"};
    QTest::newRow("two roots keep the first")
        << begin + open + first + close + "<project show=\"B\" >" + second + close << L{"A"} << L{"1"};
    QTest::newRow("two projects in one root")
        << begin + "<all>" + open + first + close + "<project show=\"B\" >" + second + close + "</all>"
        << L{"A", "B"} << L{"1", "2"};
    QTest::newRow("a project in a project")
        << begin + open + "<project show=\"B\" >" + first + close + second + close << L{"A", "B"}
        << L{"1", "2"};
    QTest::newRow("no project") << begin + "<keys>" + first + second + "</keys>" << L() << L{"1", "2"};
    QTest::newRow("a key alone") << begin + first << L() << L{"1"};
    QTest::newRow("keys at any depth")
        << begin + open + "<x><y>" + first + "</y></x>" + second + close << L{"A"} << L{"1", "2"};
    QTest::newRow("empty attributes")
        << begin + "<project show=\"\" ><key id=\"\" /></project>" << L{""} << L{""};
    QTest::newRow("no attributes") << begin + "<project><key/></project>" << L{""} << L{""};
    QTest::newRow("other case") << begin + "<Project show=\"A\"><KEY id=\"1\"/></Project>" << L() << L();
    QTest::newRow("comments") << begin + open + "<!-- " + first + " -->" + second + close << L{"A"} << L{"2"};
    QTest::newRow("zero bytes") << QByteArray(1000, '\0') << L() << L();
}

void ProjectTest::readsElementsOfAnyFile()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, shows);
    QFETCH(QStringList, ids);
    const Project read = readproject(text);
    QStringList readshows;
    for (const Record& head : read.projects)
        readshows.append(head.value("show", ""));
    QStringList readids;
    for (const Record& key : read.keys)
        readids.append(key.value("id", ""));
    QCOMPARE(readshows, shows);
    QCOMPARE(readids, ids);
}

void ProjectTest::decodesEntities()
{
    const Project read = readproject("<project showname=\"R&amp;B &quot;live&quot;\" >"
                                     "<key name=\"&lt;b&gt; &#233;&#x263A; it&apos;s\" /></project>");
    QCOMPARE(read.projects.value(0).value("showname"), QString("R&B \"live\""));
    QCOMPARE(read.keys.value(0).value("name"), QStringLiteral(u"<b> \u00e9\u263a it's"));
}

void ProjectTest::readsOddFilesInBoundedTime_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("shows"); // how many projects are read at most
    const QByteArray open = "<project show=\"A\" >";

    QByteArray entities = "<?xml version=\"1.0\"?><!DOCTYPE project [<!ENTITY a0 \"aaaaaaaaaaaaaaaaaaaa\">";
    for (int n = 1; n < 30; ++n) {
        const QByteArray one = "&a" + QByteArray::number(n - 1) + ';';
        entities += "<!ENTITY a" + QByteArray::number(n) + " \"" + one.repeated(20) + "\">";
    }
    QTest::newRow("an entity bomb in a value")
        << entities + "]><project show=\"&a29;\" ><key name=\"&a29;\" /></project>" << 1;
    QTest::newRow("an entity bomb in a text")
        << entities + "]><project show=\"A\" >&a29;<key/></project>" << 1;
    QTest::newRow("an entity that holds itself")
        << QByteArray("<!DOCTYPE project [<!ENTITY a \"&b;\"><!ENTITY b \"&a;\">]>"
                      "<project show=\"&a;\" >&b;</project>")
        << 1;
    QTest::newRow("an entity from a file")
        << QByteArray("<!DOCTYPE project [<!ENTITY a SYSTEM \"file:///dev/zero\">]>"
                      "<project show=\"A\" >&a;<key/></project>")
        << 1;
    QTest::newRow("100,000 levels") << open + QByteArray("<a>").repeated(100000) + "<key/>" +
                                           QByteArray("</a>").repeated(100000) + "</project>"
                                    << 1;
    QTest::newRow("100,000 levels, none closed") << open + QByteArray("<a>").repeated(100000) << 1;
    QTest::newRow("100,000 projects, one in the other") << open.repeated(100000) << 100000;
    QByteArray wide = "<project show=\"A\" ><key";
    for (int n = 0; n < 40000; ++n)
        wide += " a" + QByteArray::number(n) + "=\"1\"";
    QTest::newRow("40,000 attributes") << wide + "/></project>" << 1;
    QTest::newRow("200,000 keys") << open + QByteArray("<key id=\"1\"/>").repeated(200000) + "</project>"
                                  << 1;
    QTest::newRow("a value of 4 MB") << open + "<key name=\"" + QByteArray(4 << 20, 'n') + "\"/></project>"
                                     << 1;
    QTest::newRow("an element name of 4 MB") << open + '<' + QByteArray(4 << 20, 'n') + "/></project>" << 1;

    QByteArray garbage(8 << 20, '\0');
    QRandomGenerator random(8);
    for (char& byte : garbage)
        byte = static_cast<char>(random.bounded(256));
    QTest::newRow("8 MB of garbage") << garbage << 0;
    QTest::newRow("8 MB of garbage in a project") << open + garbage << 1;
    QTest::newRow("8 MB of less-than signs") << QByteArray(8 << 20, '<') << 0;
    QTest::newRow("8 MB of zero bytes") << QByteArray(8 << 20, '\0') << 0;
    QTest::newRow("8 MB of white space") << open + QByteArray(8 << 20, ' ') << 1;
    QTest::newRow("an encoding that nobody knows")
        << QByteArray("<?xml version=\"1.0\" encoding=\"KLINGON\"?><project show=\"A\" ><key/></project>")
        << 1;
    QTest::newRow("half a character") << open + "<key name=\"\xe2\x98\"/></project>" << 1;
}

void ProjectTest::readsOddFilesInBoundedTime()
{
    QFETCH(QByteArray, text);
    QFETCH(int, shows);
    const Project read = readsoon(text);
    QVERIFY(read.projects.size() <= shows);
    for (const Record& head : read.projects)
        QVERIFY(head.value("show").size() < 100000);
}

void ProjectTest::readsEveryTruncation()
{
    const QByteArray text = golden("midi.os2l");
    const Project whole = midi();
    int keys = 0;
    for (int size = 0; size <= text.size(); size += size < 600 ? 1 : 97) {
        const Project read = readproject(text.left(size));
        // What was read is never less than before, and is a beginning of the whole.
        QVERIFY(read.keys.size() >= keys);
        keys = read.keys.size();
        QCOMPARE(read.keys, whole.keys.mid(0, keys));
        QCOMPARE(read.projects, whole.projects.mid(0, read.projects.size()));
    }
    QVERIFY(keys > 100);
}

QTEST_GUILESS_MAIN(ProjectTest)

#include "tst_project.moc"
