#include "lightshow.h"
#include "testrecords.h"
#include "toolkit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <cstddef>
#include <optional>
#include <sys/stat.h>

#if defined(__SANITIZE_ADDRESS__)
// Part of the sanitizer, but of no header that comes with g++.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__)
#include <malloc.h>
#endif

using namespace show;

namespace {

/// A folder that stands in for the user's home as long as the program runs.
QTemporaryDir& home()
{
    static QTemporaryDir folder;
    return folder;
}

/// The bytes that the program has asked for and not given back, if the system tells them. What memory the
/// program takes says less: the sanitizers hold back what was given back, now more of it, now less.
std::optional<std::size_t> bytesInUse()
{
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#elif defined(__GLIBC__) && (__GLIBC__ > 2 || __GLIBC_MINOR__ >= 33)
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
#else
    return std::nullopt;
#endif
}

/// The bytes of a literal that holds NULs.
template<int size>
QByteArray bytesOf(const char (&literal)[size])
{
    return QByteArray(literal, size - 1);
}

/// A show of one page with one button, whose group holds the lines \a group.
QByteArray oneButton(const QByteArray& group)
{
    return "[page]\nnumber=1\n[page1]\nname=Main\nnb_buttons=1\n[page1_button1]\n" + group + "\n";
}

/// A show with one page of \a first and one of \a second buttons.
QByteArray twoPages(const QByteArray& first, const QByteArray& second)
{
    return "[page]\nnumber=2\n[page1]\nnb_buttons=" + first + "\n[page2]\nnb_buttons=" + second + "\n";
}

/// What every value that the reader gives must hold, whatever the file: empty when it does, else what is
/// wrong.
QString damage(const LightShow& show)
{
    if (show.pages.isEmpty() || line(show.pages.first()) != "name=All Pages|pageid=0")
        return QStringLiteral("the first page is not All Pages");
    if (show.pages.size() > maxLivePages + 1 || show.buttons.size() > maxLiveButtons)
        return QStringLiteral("more records than the bounds allow");
    for (const Record& page : show.pages) {
        if (!page.contains("pageid"))
            return QStringLiteral("a page has no pageid");
    }
    for (int index = 0; index < show.buttons.size(); ++index) {
        const Record& button = show.buttons.at(index);
        if (button.value("buttonid") != QString::number(index))
            return QStringLiteral("button %1 has another buttonid").arg(index);
        if (!button.contains("pageid") || !button.contains("check"))
            return QStringLiteral("button %1 lacks a generated key").arg(index);
        if (!button.value("color").startsWith('#') || button.value("color").size() < 7)
            return QStringLiteral("button %1 has the colour %2").arg(index).arg(button.value("color"));
    }
    return QString();
}

} // namespace

class TestLightShow : public QObject
{
    Q_OBJECT

public:
    static void initMain()
    {
        qputenv("HOME", QFile::encodeName(home().path()));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(home().filePath(QStringLiteral("config"))));
    }

private slots:
    void initTestCase();

    void allPagesComesFirstAndPagesFollowInFileOrder();
    void everyKeyOfAPageIsKept();
    void aPageIdInTheFileReplacesTheGeneratedOne();
    void aPageIdInTheFileRedirectsTheButtonGroups();
    void buttonIdsRunOnAcrossPages();
    void everyKeyOfAButtonIsKept();
    void aButtonGroupOverridesPageAndCheckButNeverTheButtonId();
    void aMissingButtonGroupGivesTheGeneratedKeysOnly();
    void aMissingPageGroupGivesAPageWithoutNameAndButtons();
    void onlyTheCountedPagesAndButtonsAreRead();
    void theOrderOfTheGroupsDoesNotMatter();

    void colors_data();
    void colors();
    void aButtonWithoutColorIsWhite();
    void getcolorFillsUpToSixDigits_data();
    void getcolorFillsUpToSixDigits();

    void pageCounts_data();
    void pageCounts();
    void buttonCounts_data();
    void buttonCounts();
    void theButtonBoundHoldsForTheWholeShow();

    void titles_data();
    void titles();
    void oneFileMixesAllEncodings();
    void aCommaInAPageNameIsKept();
    void lineEnds_data();
    void lineEnds();

    void brokenFiles_data();
    void brokenFiles();
    void aDamagedCountDoesNotSpoilTheOtherPages();
    void mutatedFilesGiveSoundRecords();
    void aPathThatIsNoFileGivesNothing();
    void aLinkToAShowIsRead();
    void readingLeavesFileAndFolderAsTheyWere();
    void aChangedFileIsReadAnew();
    void theDemoShowIsRead();
    void noNameOfTheDemoShowBreaksAnExport();

    void anAtSignInAKeyIsPlainText();
    void aShowIsReadUpToItsLargestSize();
    void aShowOfTooManyLinesIsNotRead();
    void filesWithoutAnEndAreNotRead_data();
    void filesWithoutAnEndAreNotRead();
    void pagesThatShareTheirButtonsAreReadUpToABound();
    void groupsWithLongNamesAreAskedForUpToABound();
    void isReadWhereNoTemporaryFilesCanBeMade();
    void longNamesAreCut();
    void oddFilesAreReadSoon_data();
    void oddFilesAreReadSoon();
    void readingManyShowsKeepsNoneInMemory();

    void buttonsperpageComparesTheTextOfTheNumber();

    // A title that QSettings takes for a stored object. Last, as failing here means to end.
    void aStoredObjectInATitleHarmsNothingElse_data();
    void aStoredObjectInATitleHarmsNothingElse();
    void anAtSignIsPlainTextInEveryForm_data();
    void anAtSignIsPlainTextInEveryForm();

    void cleanupTestCase();

private:
    /// Writes \a content into a new file and gives its path; new because QSettings remembers files by name.
    QString write(const QByteArray& content);
    LightShow read(const QByteArray& content);
    /// The value of \a key in the only button of a show whose group holds \a group; "(none)" if it lacks it.
    QString valueOf(const QString& key, const QByteArray& group);

    QTemporaryDir m_folder;
    int m_files = 0;
};

void TestLightShow::initTestCase()
{
    QVERIFY(home().isValid());
    QVERIFY(m_folder.isValid());
}

void TestLightShow::cleanupTestCase()
{
    // Reading shows puts nothing into the home folder.
    QCOMPARE(QDir(home().path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList());
}

QString TestLightShow::write(const QByteArray& content)
{
    QString path = m_folder.filePath(QStringLiteral("live%1.ini").arg(++m_files));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("the test could not write its own file");
    return path;
}

LightShow TestLightShow::read(const QByteArray& content)
{
    const QString path = write(content);
    const std::optional<LightShow> show = readlightshow(path);
    QFile::remove(path);
    return show.value_or(LightShow());
}

QString TestLightShow::valueOf(const QString& key, const QByteArray& group)
{
    return column(read(oneButton(group)).buttons, key).join(QStringLiteral(" and "));
}

void TestLightShow::allPagesComesFirstAndPagesFollowInFileOrder()
{
    const LightShow show =
        read("[page]\nnumber=3\n[page1]\nname=Zoom\n[page2]\nname=Bar\n[page3]\nname=Bar\n");
    QCOMPARE(lines(show.pages), QStringList({"name=All Pages|pageid=0", "name=Zoom|pageid=1",
                                             "name=Bar|pageid=2", "name=Bar|pageid=3"}));
    QCOMPARE(show.buttons.size(), 0);
}

void TestLightShow::everyKeyOfAPageIsKept()
{
    const LightShow show =
        read("[page]\nnumber=1\n[page1]\nname=Main\nnb_buttons=0\ncolumns=8\nMixed_Case=Yes\n"
             "empty=\nsub\\key=deep\n");
    QCOMPARE(line(show.pages.value(1)),
             QString("Mixed_Case=Yes|columns=8|empty=|name=Main|nb_buttons=0|pageid=1|sub/key=deep"));
}

void TestLightShow::aPageIdInTheFileReplacesTheGeneratedOne()
{
    const LightShow show = read("[page]\nnumber=2\n[page1]\npageid=left\n[page2]\nname=Second\n");
    QCOMPARE(column(show.pages, "pageid"), QStringList({"0", "left", "2"}));
}

void TestLightShow::aPageIdInTheFileRedirectsTheButtonGroups()
{
    const LightShow show = read("[page]\nnumber=2\n"
                                "[page1]\npageid=2\nnb_buttons=2\n"
                                "[page2]\npageid=\nnb_buttons=1\n"
                                "[page1_button1]\ntitle=never\n"
                                "[page2_button1]\ntitle=first\n"
                                "[page2_button2]\ntitle=second\n"
                                "[page_button1]\ntitle=of no number\n");
    QCOMPARE(column(show.buttons, "title"), QStringList({"first", "second", "of no number"}));
    // The buttons still lie on the page whose group counts them.
    QCOMPARE(column(show.buttons, "pageid"), QStringList({"1", "1", "2"}));
}

void TestLightShow::buttonIdsRunOnAcrossPages()
{
    const LightShow show =
        read("[page]\nnumber=3\n[page1]\nnb_buttons=3\n[page2]\nnb_buttons=0\n"
             "[page3]\nnb_buttons=2\n"
             "[page1_button1]\ntitle=a\n[page1_button2]\ntitle=b\n[page1_button3]\ntitle=c\n"
             "[page3_button1]\ntitle=d\n[page3_button2]\ntitle=e\n");
    QCOMPARE(column(show.buttons, "title"), QStringList({"a", "b", "c", "d", "e"}));
    QCOMPARE(column(show.buttons, "buttonid"), QStringList({"0", "1", "2", "3", "4"}));
    QCOMPARE(column(show.buttons, "pageid"), QStringList({"1", "1", "1", "3", "3"}));
    QCOMPARE(column(show.buttons, "check"), QStringList({"0", "0", "0", "0", "0"}));
}

void TestLightShow::everyKeyOfAButtonIsKept()
{
    const LightShow show =
        read(oneButton("title=Strobe\ncolor=16711935\nmidi=12\nFlash=true\nempty=\nicon\\x=3"));
    QCOMPARE(lines(show.buttons),
             QStringList({"Flash=true|buttonid=0|check=0|color=#FF00FF|empty=|icon/x=3|midi=12|"
                          "pageid=1|title=Strobe"}));
}

void TestLightShow::aButtonGroupOverridesPageAndCheckButNeverTheButtonId()
{
    const LightShow show = read(oneButton("pageid=7\ncheck=1\nbuttonid=99\nsource=file\ndspname=Named"));
    QCOMPARE(lines(show.buttons),
             QStringList({"buttonid=0|check=1|color=#ffffff|dspname=Named|pageid=7|source=file"}));
}

void TestLightShow::aMissingButtonGroupGivesTheGeneratedKeysOnly()
{
    const LightShow show =
        read("[page]\nnumber=1\n[page1]\nnb_buttons=3\n[page1_button2]\ntitle=only one\ncolor=255\n");
    QCOMPARE(lines(show.buttons), QStringList({"buttonid=0|check=0|color=#ffffff|pageid=1",
                                               "buttonid=1|check=0|color=#0000FF|pageid=1|title=only one",
                                               "buttonid=2|check=0|color=#ffffff|pageid=1"}));
}

void TestLightShow::aMissingPageGroupGivesAPageWithoutNameAndButtons()
{
    const LightShow show =
        read("[page]\nnumber=2\n[page2]\nname=There\nnb_buttons=1\n[page1_button1]\ntitle=no\n");
    QCOMPARE(lines(show.pages),
             QStringList({"name=All Pages|pageid=0", "pageid=1", "name=There|nb_buttons=1|pageid=2"}));
    QCOMPARE(lines(show.buttons), QStringList({"buttonid=0|check=0|color=#ffffff|pageid=2"}));
}

void TestLightShow::onlyTheCountedPagesAndButtonsAreRead()
{
    const LightShow show = read("[page]\nnumber=1\n[page0]\nname=zero\nnb_buttons=1\n"
                                "[page1]\nname=one\nnb_buttons=1\n[page2]\nname=two\nnb_buttons=1\n"
                                "[page1_button0]\ntitle=zero\n[page1_button1]\ntitle=one\n"
                                "[page1_button2]\ntitle=two\n[page2_button1]\ntitle=other page\n");
    QCOMPARE(column(show.pages, "name"), QStringList({"All Pages", "one"}));
    QCOMPARE(column(show.buttons, "title"), QStringList({"one"}));
}

void TestLightShow::theOrderOfTheGroupsDoesNotMatter()
{
    const LightShow show =
        read("[page2_button1]\ntitle=c\n[page1_button2]\ntitle=b\n[page1_button1]\ntitle=a\n"
             "[page2]\nnb_buttons=1\nname=Q\n[page1]\nnb_buttons=2\nname=P\n[page]\nnumber=2\n");
    QCOMPARE(column(show.pages, "name"), QStringList({"All Pages", "P", "Q"}));
    QCOMPARE(column(show.buttons, "title"), QStringList({"a", "b", "c"}));
    QCOMPARE(column(show.buttons, "buttonid"), QStringList({"0", "1", "2"}));
}

void TestLightShow::colors_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<QString>("color");
    QTest::newRow("black") << QByteArray("0") << "#000000";
    QTest::newRow("blue") << QByteArray("255") << "#0000FF";
    QTest::newRow("magenta") << QByteArray("16711935") << "#FF00FF";
    QTest::newRow("red is the highest byte") << QByteArray("16711680") << "#FF0000";
    QTest::newRow("upper case") << QByteArray("703710") << "#0ABCDE";
    QTest::newRow("white") << QByteArray("16777215") << "#FFFFFF";
    QTest::newRow("above white") << QByteArray("16777216") << "#1000000";
    QTest::newRow("largest") << QByteArray("2147483647") << "#7FFFFFFF";
    QTest::newRow("too large") << QByteArray("2147483648") << "#000000";
    QTest::newRow("far too large") << QByteArray("99999999999") << "#000000";
    QTest::newRow("minus one") << QByteArray("-1") << "#FFFFFFFFFFFFFFFF";
    QTest::newRow("negative") << QByteArray("-65536") << "#FFFFFFFFFFFF0000";
    QTest::newRow("smallest") << QByteArray("-2147483648") << "#FFFFFFFF80000000";
    QTest::newRow("below the smallest") << QByteArray("-2147483649") << "#000000";
    QTest::newRow("quoted") << QByteArray("\"255\"") << "#0000FF";
    QTest::newRow("blanks around") << QByteArray("  255  ") << "#0000FF";
    QTest::newRow("a name") << QByteArray("red") << "#000000";
    QTest::newRow("hexadecimal") << QByteArray("0xFF00FF") << "#000000";
    QTest::newRow("hash") << QByteArray("#FF00FF") << "#000000";
    QTest::newRow("a fraction") << QByteArray("255.7") << "#000000";
    QTest::newRow("three numbers") << QByteArray("255,0,0") << "#000000";
    QTest::newRow("nothing") << QByteArray("") << "#000000";
    QTest::newRow("binary") << bytesOf("\x01\xff\x00") << "#000000";
}

void TestLightShow::colors()
{
    QFETCH(QByteArray, number);
    QFETCH(QString, color);
    QCOMPARE(valueOf("color", "color=" + number), color);
}

void TestLightShow::aButtonWithoutColorIsWhite()
{
    QCOMPARE(valueOf("color", "title=Strobe"), QString("#ffffff"));
    // Keys tell upper from lower case.
    QCOMPARE(valueOf("color", "Color=255"), QString("#ffffff"));
}

void TestLightShow::getcolorFillsUpToSixDigits_data()
{
    QTest::addColumn<QString>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << ""
                           << "#ffffff";
    QTest::newRow("one digit") << "F"
                               << "#00000F";
    QTest::newRow("zero") << "0"
                          << "#000000";
    QTest::newRow("five digits") << "12345"
                                 << "#012345";
    QTest::newRow("six digits") << "123456"
                                << "#123456";
    QTest::newRow("seven digits") << "1234567"
                                  << "#1234567";
    QTest::newRow("sixteen digits") << "FFFFFFFFFFFFFFFF"
                                    << "#FFFFFFFFFFFFFFFF";
    QTest::newRow("lower case stays") << "abc"
                                      << "#000abc";
    QTest::newRow("not looked at") << "z"
                                   << "#00000z";
}

void TestLightShow::getcolorFillsUpToSixDigits()
{
    QFETCH(QString, color);
    QFETCH(QString, text);
    QCOMPARE(getcolor(color), text);
}

void TestLightShow::pageCounts_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<int>("pages"); // without All Pages
    QTest::newRow("two") << QByteArray("2") << 2;
    QTest::newRow("quoted") << QByteArray("\"2\"") << 2;
    QTest::newRow("blanks around") << QByteArray("  2  ") << 2;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("nothing") << QByteArray("") << 0;
    QTest::newRow("negative") << QByteArray("-5") << 0;
    QTest::newRow("smallest") << QByteArray("-2147483648") << 0;
    QTest::newRow("a word") << QByteArray("abc") << 0;
    QTest::newRow("a fraction") << QByteArray("3.7") << 0;
    QTest::newRow("hexadecimal") << QByteArray("0x3") << 0;
    QTest::newRow("a list") << QByteArray("3,4") << 0;
    QTest::newRow("up to the bound") << QByteArray::number(maxLivePages) << maxLivePages;
    QTest::newRow("above the bound") << QByteArray::number(maxLivePages + 1) << maxLivePages;
    QTest::newRow("two milliards") << QByteArray("2000000000") << maxLivePages;
    QTest::newRow("beyond 32 bits") << QByteArray("99999999999") << 0;
}

void TestLightShow::pageCounts()
{
    QFETCH(QByteArray, number);
    QFETCH(int, pages);
    const LightShow show = read("[page]\nnumber=" + number + "\n[page1]\nname=One\n[page2]\nname=Two\n");
    QCOMPARE(damage(show), QString());
    QCOMPARE(show.pages.size(), pages + 1);
    if (pages >= 2) {
        QCOMPARE(show.pages.at(2).value("name"), QString("Two"));
        QCOMPARE(show.pages.last().value("pageid"), QString::number(pages));
    }
    QCOMPARE(show.buttons.size(), 0);
}

void TestLightShow::buttonCounts_data()
{
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<int>("buttons");
    QTest::newRow("two") << QByteArray("2") << 2;
    QTest::newRow("quoted") << QByteArray("\"2\"") << 2;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("nothing") << QByteArray("") << 0;
    QTest::newRow("negative") << QByteArray("-5") << 0;
    QTest::newRow("smallest") << QByteArray("-2147483648") << 0;
    QTest::newRow("a word") << QByteArray("abc") << 0;
    QTest::newRow("a fraction") << QByteArray("3.7") << 0;
    QTest::newRow("a list") << QByteArray("3,4") << 0;
    QTest::newRow("two milliards") << QByteArray("2000000000") << maxLiveButtons;
    QTest::newRow("beyond 32 bits") << QByteArray("99999999999") << 0;
}

void TestLightShow::buttonCounts()
{
    QFETCH(QByteArray, number);
    QFETCH(int, buttons);
    const LightShow show = read("[page]\nnumber=1\n[page1]\nnb_buttons=" + number +
                                "\n[page1_button1]\ntitle=first\n[page1_button2]\ntitle=second\n");
    QCOMPARE(damage(show), QString());
    QCOMPARE(show.buttons.size(), buttons);
    if (buttons >= 2)
        QCOMPARE(show.buttons.at(1).value("title"), QString("second"));
}

void TestLightShow::theButtonBoundHoldsForTheWholeShow()
{
    const QByteArray most = QByteArray::number(maxLiveButtons - 1);
    QCOMPARE(read(twoPages(most, "1")).buttons.size(), maxLiveButtons);
    const LightShow show = read(twoPages(most, "2000000000"));
    QCOMPARE(damage(show), QString());
    QCOMPARE(show.buttons.size(), maxLiveButtons);
    QCOMPARE(show.buttons.at(maxLiveButtons - 2).value("pageid"), QString("1"));
    QCOMPARE(show.buttons.last().value("pageid"), QString("2"));
    QCOMPARE(buttonsperpage(read(twoPages("2000000000", "5")).buttons, 2), 0);
}

void TestLightShow::titles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("title");
    const QString cafe = QString::fromUtf8("Caf\xc3\xa9");

    QTest::newRow("plain") << QByteArray("Strobe") << "Strobe";
    QTest::newRow("two words") << QByteArray("Slow Fade") << "Slow Fade";
    QTest::newRow("blanks around") << QByteArray("  Slow Fade \t") << "Slow Fade";
    QTest::newRow("quoted blanks around") << QByteArray("\"  Slow Fade  \"") << "  Slow Fade  ";
    QTest::newRow("nothing") << QByteArray("") << "";
    QTest::newRow("empty quotes") << QByteArray("\"\"") << "";

    QTest::newRow("UTF-8") << QByteArray("Caf\xc3\xa9") << cafe;
    QTest::newRow("quoted UTF-8") << QByteArray("\"Caf\xc3\xa9\"") << cafe;
    QTest::newRow("Latin-1") << QByteArray("Caf\xe9") << cafe;
    QTest::newRow("escaped") << QByteArray("Caf\\xe9") << cafe;
    QTest::newRow("escaped in octal") << QByteArray("Caf\\351") << cafe;
    QTest::newRow("escaped euro sign") << QByteArray("\\x20ac 5") << QString::fromUtf8("\xe2\x82\xac 5");
    QTest::newRow("UTF-8 of four bytes")
        << QByteArray("\xf0\x9f\x98\x80") << QString::fromUtf8("\xf0\x9f\x98\x80");
    QTest::newRow("escaped surrogates")
        << QByteArray("\\xd83d\\xde00") << QString::fromUtf8("\xf0\x9f\x98\x80");
    QTest::newRow("other script") << QByteArray("\xd0\xa1\xd0\xb2\xd0\xb5\xd1\x82")
                                  << QString::fromUtf8("\xd0\xa1\xd0\xb2\xd0\xb5\xd1\x82");
    QTest::newRow("UTF-8 cut short") << QByteArray("Caf\xc3") << QString::fromLatin1("Caf\xc3");
    QTest::newRow("byte order mark in front") << QByteArray("\xef\xbb\xbfX") << QString(QChar(0xFEFF)) + "X";
    QTest::newRow("UTF-8 overlong") << QByteArray("\xc0\xaf") << QString::fromLatin1("\xc0\xaf");
    QTest::newRow("Latin-1 then UTF-8")
        << QByteArray("\xe9t\xe9,Caf\xc3\xa9") << QString::fromLatin1("\xe9t\xe9,") + cafe;

    QTest::newRow("comma") << QByteArray("Red, Blue") << "Red, Blue";
    QTest::newRow("comma without blank") << QByteArray("Red,Blue") << "Red,Blue";
    QTest::newRow("comma with blanks around") << QByteArray("Red , Blue") << "Red , Blue";
    QTest::newRow("three parts") << QByteArray("One, two,three") << "One, two,three";
    QTest::newRow("commas and many blanks") << QByteArray("Red ,  Blue,\tGreen  ") << "Red ,  Blue,\tGreen";
    QTest::newRow("commas alone") << QByteArray(",,") << ",,";
    QTest::newRow("comma at the end") << QByteArray("Red, ") << "Red,";
    QTest::newRow("commas between digits") << QByteArray("1,2,777,8") << "1,2,777,8";
    QTest::newRow("commas between quotes") << QByteArray("\"1\",\"2\"") << "1,2";
    QTest::newRow("comma behind quotes, blanks at the end") << QByteArray("\"Red\",Blue  ") << "Red,Blue";
    QTest::newRow("escaped comma") << QByteArray("Red\\x2c\\54Blue") << "Red,,Blue";
    QTest::newRow("digits behind an accent") << QByteArray("\xe9"
                                                           "77 \xc3\xa9"
                                                           "7")
                                             << QString::fromLatin1("\xe9"
                                                                    "77 \xc3\xa9"
                                                                    "7");
    QTest::newRow("digits behind a UTF-8 accent") << QByteArray("\xc3\xa9"
                                                                "10")
                                                  << QString::fromUtf8("\xc3\xa9"
                                                                       "10");
    QTest::newRow("digits behind an at sign") << QByteArray("@1, @2") << "@1, @2";
    QTest::newRow("accent behind a backslash") << QByteArray("a\\\xc3\xa9") << QString("a") + QChar(0xA9);
    QTest::newRow("quoted comma") << QByteArray("\"Red,Blue\"") << "Red,Blue";
    QTest::newRow("quoted and unquoted comma") << QByteArray("\"Red,Blue\",Green") << "Red,Blue,Green";
    QTest::newRow("comma and accents") << QByteArray("Caf\xe9, Caf\\xe9") << cafe + ", " + cafe;

    QTest::newRow("semicolon starts a comment") << QByteArray("Red; Blue") << "Red";
    QTest::newRow("quoted semicolon") << QByteArray("\"Red; Blue\"") << "Red; Blue";
    QTest::newRow("hash") << QByteArray("Red # Blue") << "Red # Blue";
    QTest::newRow("equals sign") << QByteArray("a=b=c") << "a=b=c";
    QTest::newRow("brackets") << QByteArray("[x]") << "[x]";
    QTest::newRow("ampersand and quotes") << QByteArray("Tunnel & <Fog> 'n'") << "Tunnel & <Fog> 'n'";

    QTest::newRow("at sign first") << QByteArray("@home") << "@home";
    QTest::newRow("at sign alone") << QByteArray("@") << "@";
    QTest::newRow("at sign inside") << QByteArray("DJ @ work") << "DJ @ work";
    QTest::newRow("at sign doubled, as Qt writes it") << QByteArray("@@home") << "@home";
    QTest::newRow("at sign first, and a comma") << QByteArray("@home, disco") << "@home, disco";
    QTest::newRow("at sign in a later part") << QByteArray("disco, @home") << "disco, @home";
    QTest::newRow("at sign doubled, and a comma") << QByteArray("@@home, disco") << "@home, disco";

    QTest::newRow("percent number") << QByteArray("%1 of %2") << "%1 of %2";
    QTest::newRow("percent code") << QByteArray("100%20") << "100%20";
    QTest::newRow("doubled backslash") << QByteArray("C:\\\\shows") << "C:\\shows";
    QTest::newRow("escaped quote") << QByteArray("The \\\"Wall\\\"") << "The \"Wall\"";
    QTest::newRow("escaped line feed and tab") << QByteArray("a\\nb\\tc") << "a\nb\tc";
    QTest::newRow("line continued") << QByteArray("Slow \\\nFade") << "Slow Fade";
    QTest::newRow("a NUL inside") << bytesOf("a\0b") << QString::fromLatin1("a\0b", 3);
    QTest::newRow("100000 letters") << QByteArray(100000, 'x') << QString(100000, 'x');
}

void TestLightShow::titles()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, title);
    const LightShow show = read(oneButton("title=" + bytes + "\ncolor=255"));
    QCOMPARE(show.buttons.size(), 1);
    QCOMPARE(show.buttons.first().value("title"), title);
    // The lines around the title are not drawn in.
    QCOMPARE(show.buttons.first().value("color"), QString("#0000FF"));
}

void TestLightShow::oneFileMixesAllEncodings()
{
    const QByteArray text =
        "[page]\nnumber=1\n[page1]\nname=B\xfchne\nnb_buttons=4\n"
        "[page1_button1]\ntitle=Caf\xc3\xa9\n[page1_button2]\ntitle=Caf\xe9\n"
        "[page1_button3]\ntitle=Caf\\xe9\n[page1_button4]\ntitle=\"Caf\xe9\", Caf\xc3\xa9\n";
    const QString cafe = QString::fromUtf8("Caf\xc3\xa9");
    for (const QByteArray& mark : {QByteArray(), QByteArray("\xef\xbb\xbf")}) {
        const LightShow show = read(mark + text);
        QCOMPARE(column(show.pages, "name"), QStringList({"All Pages", QString::fromUtf8("B\xc3\xbchne")}));
        QCOMPARE(column(show.buttons, "title"), QStringList({cafe, cafe, cafe, cafe + ", " + cafe}));
    }
}

void TestLightShow::aCommaInAPageNameIsKept()
{
    const LightShow show = read("[page]\nnumber=1\n[page1]\nname=Bar,Floor\n");
    QCOMPARE(column(show.pages, "name"), QStringList({"All Pages", "Bar,Floor"}));
}

void TestLightShow::lineEnds_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CRLF") << QByteArray("\r\n");
    QTest::newRow("CR") << QByteArray("\r");
    QTest::newRow("blank lines between") << QByteArray("\r\n\r\n  \r\n");
}

void TestLightShow::lineEnds()
{
    QFETCH(QByteArray, end);
    QByteArray text = oneButton("title=Slow Fade\ncolor=255\nlast=x");
    text.replace("\n", end);
    for (const QByteArray& content : {text, text.trimmed()}) {
        const LightShow show = read(content);
        QCOMPARE(lines(show.pages),
                 QStringList({"name=All Pages|pageid=0", "name=Main|nb_buttons=1|pageid=1"}));
        QCOMPARE(lines(show.buttons),
                 QStringList({"buttonid=0|check=0|color=#0000FF|last=x|pageid=1|title=Slow Fade"}));
    }
}

void TestLightShow::brokenFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("pages");   // names, without All Pages
    QTest::addColumn<QStringList>("buttons"); // titles
    const QStringList none;
    const QByteArray whole = oneButton("title=Strobe");

    QTest::newRow("empty") << QByteArray() << none << none;
    QTest::newRow("byte order mark alone") << QByteArray("\xef\xbb\xbf") << none << none;
    QTest::newRow("line ends alone") << QByteArray("\n\r\n\n") << none << none;
    QTest::newRow("comments alone") << QByteArray("; [page]\n; number=1\n") << none << none;
    QTest::newRow("no page group") << QByteArray(
                                          "[page1]\nname=Main\nnb_buttons=1\n[page1_button1]\ntitle=x\n")
                                   << none << none;
    QTest::newRow("page group without number")
        << QByteArray("[page]\nother=1\n[page1]\nname=Main\n") << none << none;
    QTest::newRow("page group in capitals")
        << QByteArray("[PAGE]\nnumber=1\n[page1]\nname=Main\n") << none << none;
    QTest::newRow("text") << QByteArray("Dear diary, nothing here.\nBye.\n") << none << none;
    QTest::newRow("XML") << QByteArray("<?xml version=\"1.0\"?>\n<show><page number=\"1\"/></show>\n") << none
                         << none;
    QTest::newRow("picture") << bytesOf("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\x01\xff\xfe[[\"\\") << none
                             << none;
    QTest::newRow("NULs") << QByteArray(5000, '\0') << none << none;
    QTest::newRow("backslashes") << QByteArray(5000, '\\') << none << none;
    QTest::newRow("brackets") << QByteArray(5000, '[') << none << none;
    QTest::newRow("quotes") << QByteArray(5001, '"') << none << none;
    const QString utf16 = QString::fromLatin1(whole);
    QTest::newRow("UTF-16") << QByteArray(reinterpret_cast<const char*>(utf16.utf16()), utf16.size() * 2)
                            << none << none;

    QTest::newRow("lines without sense between")
        << QByteArray("[page]\n=\n===\nno sign\nnumber=1\n=5\n[page1]\nname\nname=Main\n\xff\xfe\x01\n"
                      "nb_buttons=1\n[page1_button1]\ntitle=Strobe\n\\\n\n")
        << QStringList{"Main"} << QStringList{"Strobe"};
    QTest::newRow("blanks around everything")
        << QByteArray("  [ page ]  \n  number  =  1  \n\t[page1]\n\tname = Main\n nb_buttons = 1\n"
                      " [page1_button1]\n title = Strobe\n")
        << QStringList{"Main"} << QStringList{"Strobe"};
    QTest::newRow("a bracket left open")
        << QByteArray("[page]\nnumber=1\n[page1\nname=Main\nnb_buttons=1\n[page1_button1\ntitle=Strobe\n")
        << QStringList{"Main"} << QStringList{"Strobe"};
    QTest::newRow("a group that comes twice")
        << QByteArray("[page]\nnumber=1\n[page1]\nname=Main\n[page1_button1]\ntitle=Strobe\n[page1]\n"
                      "nb_buttons=1\n")
        << QStringList{"Main"} << QStringList{"Strobe"};
    QTest::newRow("a key that comes twice: the last counts")
        << QByteArray("[page]\nnumber=7\nnumber=1\n[page1]\nname=Old\nname=Main\nnb_buttons=0\nnb_buttons=1\n"
                      "[page1_button1]\ntitle=Fog\ntitle=Strobe\n")
        << QStringList{"Main"} << QStringList{"Strobe"};
    QTest::newRow("a quote left open takes the rest of the file")
        << QByteArray("[page]\nnumber=1\n[page1]\nnb_buttons=2\nname=\"Main\n[page1_button1]\ntitle=Strobe")
        << QStringList{"Main\n[page1_button1]\ntitle=Strobe"} << QStringList{"(none)", "(none)"};

    QTest::newRow("cut in the page count") << whole.left(10) << none << none;
    QTest::newRow("cut behind the page count") << whole.left(16) << QStringList{"(none)"} << none;
    QTest::newRow("cut in the page name") << whole.left(whole.indexOf("in\n")) << QStringList{"Ma"} << none;
    QTest::newRow("cut before the buttons")
        << whole.left(whole.indexOf("[page1_")) << QStringList{"Main"} << QStringList{"(none)"};
    QTest::newRow("cut in the name of a group")
        << whole.left(whole.indexOf("ton1]")) << QStringList{"Main"} << QStringList{"(none)"};
    QTest::newRow("cut in the title")
        << whole.left(whole.indexOf("obe")) << QStringList{"Main"} << QStringList{"Str"};
}

void TestLightShow::brokenFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, pages);
    QFETCH(QStringList, buttons);
    const LightShow show = read(content);
    QCOMPARE(damage(show), QString());
    QCOMPARE(column(show.pages, "name"), QStringList("All Pages") + pages);
    QCOMPARE(column(show.buttons, "title"), buttons);
}

void TestLightShow::aDamagedCountDoesNotSpoilTheOtherPages()
{
    const LightShow show = read("[page]\nnumber=4\n[page1]\nnb_buttons=-3\n[page2]\nnb_buttons=1\n"
                                "[page3]\nnb_buttons=many\n[page4]\nnb_buttons=1\n"
                                "[page2_button1]\ntitle=a\n[page4_button1]\ntitle=b\n");
    QCOMPARE(column(show.buttons, "title"), QStringList({"a", "b"}));
    QCOMPARE(column(show.buttons, "buttonid"), QStringList({"0", "1"}));
}

void TestLightShow::mutatedFilesGiveSoundRecords()
{
    const QByteArray whole =
        "\xef\xbb\xbf[page]\r\nnumber=3\r\n; a comment\r\n"
        "[page1]\nname=Main\nnb_buttons=2\n[page2]\nname=\"B\\xfchne, links\"\nnb_buttons=0\n"
        "[page3]\nname=Bar\xe9\nnb_buttons=1\n"
        "[page1_button1]\ntitle=Strobe\ncolor=16711680\nmidi=1\n"
        "[page1_button2]\ntitle=Tunnel, Fog\ncolor=-1\n"
        "[page3_button1]\ntitle=Caf\xc3\xa9\ncolor=255\npageid=3\n";
    QCOMPARE(read(whole).buttons.size(), 3);

    const QVector<QByteArray> pieces{"[",
                                     "]",
                                     "=",
                                     "\"",
                                     "\\",
                                     "\\x",
                                     ",",
                                     ";",
                                     "%",
                                     "@",
                                     "\n",
                                     "\r",
                                     "\xff",
                                     "\xc3",
                                     "-",
                                     "9999",
                                     "[page]",
                                     "number=",
                                     "[page1]\n",
                                     "\\\n",
                                     "pageid=2\n",
                                     "@Rect(",
                                     "\\xffff",
                                     "%U1234",
                                     "\xef\xbb\xbf",
                                     QByteArray(1, '\0')};
    constexpr int rounds = 400;
    QRandomGenerator random(20260305);
    int buttons = 0;
    for (int round = 0; round < rounds; ++round) {
        QByteArray content = whole;
        const int changes = random.bounded(1, 9);
        for (int change = 0; change < changes; ++change) {
            const int at = random.bounded(static_cast<int>(content.size()) + 1);
            switch (random.bounded(6)) {
            case 0:
                content.truncate(at);
                break;
            case 1:
                content.remove(at, random.bounded(1, 20));
                break;
            case 2:
                content.insert(at, content.mid(random.bounded(static_cast<int>(content.size()) + 1),
                                               random.bounded(1, 40)));
                break;
            case 3:
                content.insert(at, static_cast<char>(random.bounded(256)));
                break;
            default:
                content.insert(at, pieces.at(random.bounded(pieces.size())));
                break;
            }
        }
        const LightShow show = read(content);
        QVERIFY2(damage(show).isEmpty(),
                 qPrintable(QStringLiteral("round %1: %2").arg(round).arg(damage(show))));
        buttons += show.buttons.isEmpty() ? 0 : 1;
    }
    // Most files must still be shows, else the rounds only ever see the first lines of the reader.
    QVERIFY(buttons > rounds / 4);
}

void TestLightShow::aPathThatIsNoFileGivesNothing()
{
    QVERIFY(!readlightshow(QString()));
    QVERIFY(!readlightshow(m_folder.filePath("missing.ini")));
    QVERIFY(!readlightshow(m_folder.filePath("missing/live.ini")));
    QVERIFY(!readlightshow(m_folder.path()));
    QVERIFY(!QFileInfo::exists(m_folder.filePath("missing.ini")));

    const QString dangling = m_folder.filePath("dangling.ini");
    QVERIFY(QFile::link(m_folder.filePath("missing.ini"), dangling));
    QVERIFY(!readlightshow(dangling));

    // Nobody writes into the pipe: a reader that opened it would wait for ever.
    const QString pipe = m_folder.filePath("pipe.ini");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), S_IRUSR | S_IWUSR), 0);
    QVERIFY(!readlightshow(pipe));
}

void TestLightShow::aLinkToAShowIsRead()
{
    const QString path = write(oneButton("title=Strobe"));
    const QString link = m_folder.filePath(QString::fromUtf8("Caf\xc3\xa9 @ 50% [page] \xd0\xa1.ini"));
    QVERIFY(QFile::link(path, link));
    const std::optional<LightShow> show = readlightshow(link);
    QVERIFY(show);
    QCOMPARE(column(show->buttons, "title"), QStringList({"Strobe"}));
}

void TestLightShow::readingLeavesFileAndFolderAsTheyWere()
{
    const QByteArray content = oneButton("title=Caf\xe9\ncolor=abc\n\nbroken line [");
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    QFile file(folder.filePath("live.ini"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.write(content), qint64(content.size()));
    const QDateTime longAgo(QDate(2020, 1, 2), QTime(3, 4, 5));
    QVERIFY(file.flush());
    QVERIFY(file.setFileTime(longAgo, QFileDevice::FileModificationTime));
    file.close();

    QVERIFY(readlightshow(file.fileName()));
    QVERIFY(readlightshow(file.fileName()));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), content);
    QCOMPARE(QFileInfo(file.fileName()).lastModified(), longAgo);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({"live.ini"}));
}

void TestLightShow::aChangedFileIsReadAnew()
{
    const QString path = write(oneButton("title=Strobe"));
    const auto titles = [&path] {
        const std::optional<LightShow> show = readlightshow(path);
        return show ? column(show->buttons, "title") : QStringList({"no show"});
    };
    QCOMPARE(titles(), QStringList({"Strobe"}));

    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(oneButton("title=Blackout"));
    file.close();
    QCOMPARE(titles(), QStringList({"Blackout"}));

    // As long as before, so that only the time tells.
    const QDateTime written = QFileInfo(path).lastModified();
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(oneButton("title=Sunlight"));
    QVERIFY(file.flush());
    QVERIFY(file.setFileTime(written.addSecs(2), QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(titles(), QStringList({"Sunlight"}));

    QVERIFY(file.resize(0));
    QCOMPARE(titles(), QStringList());
    QVERIFY(file.remove());
    QCOMPARE(titles(), QStringList({"no show"}));
}

void TestLightShow::theDemoShowIsRead()
{
    const std::optional<LightShow> show =
        readlightshow(QStringLiteral(EXAMPLES_DIR "/Demo Show/Live/live.ini"));
    QVERIFY(show);
    QCOMPARE(damage(*show), QString());
    QCOMPARE(show->pages.size(), 5);
    QVERIFY(show->buttons.size() >= 40);

    int counted = 0;
    int empty = 0;
    for (int page = 1; page < show->pages.size(); ++page) {
        const Record& record = show->pages.at(page);
        QVERIFY(!record.value("name").isEmpty());
        const int buttons = buttonsperpage(show->buttons, page);
        QCOMPARE(record.value("nb_buttons"), QString::number(buttons));
        counted += buttons;
        empty += buttons == 0 ? 1 : 0;
    }
    QCOMPARE(counted, show->buttons.size());
    QCOMPARE(empty, 1);
    for (const Record& button : show->buttons)
        QVERIFY2(!button.value("title").isEmpty(), qPrintable(line(button)));
    QCOMPARE(column(show->buttons, "title").mid(0, 3), QStringList({"Strobe", "Blackout", "Slow Fade"}));
    QCOMPARE(column(show->buttons, "color").mid(0, 2), QStringList({"#FF0000", "#000000"}));
}

void TestLightShow::noNameOfTheDemoShowBreaksAnExport()
{
    const std::optional<LightShow> show =
        readlightshow(QStringLiteral(EXAMPLES_DIR "/Demo Show/Live/live.ini"));
    QVERIFY(show);
    QStringList names = column(show->buttons, "title");
    for (const Record& page : show->pages)
        names << page.value("name");
    for (const QString& name : std::as_const(names)) {
        for (const char sign : {'&', '<', '"', '\'', '`'})
            QVERIFY2(!name.contains(sign), qPrintable(name));
    }
}

void TestLightShow::anAtSignInAKeyIsPlainText()
{
    QCOMPARE(line(read(oneButton("a@b=1\nc\\x40=2\nd\\100=3\n\xe9=4")).buttons.value(0)),
             QString("a@b=1|buttonid=0|c/x40=2|check=0|color=#ffffff|d/100=3|pageid=1|") + QChar(0xE9) +
                 "=4");
}

void TestLightShow::aShowIsReadUpToItsLargestSize()
{
    const QByteArray show = oneButton("title=Strobe") + ";";
    for (const int more : {0, 1}) {
        const QString path = write(show + QByteArray(maxLightShowSize - show.size() + more, 'x'));
        QCOMPARE(readlightshow(path).has_value(), more == 0);
        QFile::remove(path);
    }
}

void TestLightShow::aShowOfTooManyLinesIsNotRead()
{
    for (const int more : {0, 1}) {
        // Every line counts that names a group or gives a value, no other one.
        const QString path = write("[page]\n;no\nno\n\nnumber=1\n" +
                                   QByteArray("[x]\na=1\n").repeated((maxLightShowLines - 2) / 2) +
                                   QByteArray("a=1\n").repeated(more));
        QCOMPARE(readlightshow(path).has_value(), more == 0);
        QFile::remove(path);
    }
}

void TestLightShow::filesWithoutAnEndAreNotRead_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("device") << QStringLiteral("/dev/zero");
    QTest::newRow("file of the system that tells no size") << QStringLiteral("/proc/self/pagemap");
    QTest::newRow("file that cannot be read") << QStringLiteral("/proc/self/mem");
    const QString sparse = m_folder.filePath("sparse.ini");
    QFile::remove(sparse);
    QFile(sparse).open(QIODevice::WriteOnly);
    QFile::resize(sparse, qint64(3) << 30);
    QTest::newRow("sparse file of 3 GB") << sparse;
}

void TestLightShow::filesWithoutAnEndAreNotRead()
{
    QFETCH(QString, path);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!readlightshow(path));
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
}

void TestLightShow::pagesThatShareTheirButtonsAreReadUpToABound()
{
    QByteArray text = "[page]\nnumber=1000\n";
    for (int page = 1; page <= maxLivePages; ++page)
        text += "[page" + QByteArray::number(page) + "]\npageid=1\nnb_buttons=1\n";
    text += "[page1_button1]\n";
    for (int key = 0; key < 3000; ++key)
        text += "k" + QByteArray::number(key) + "=v\n";
    const LightShow show = read(text);
    QCOMPARE(damage(show), QString());
    QCOMPARE(show.buttons.value(0).size(), 3000 + 4);
    Size values = 0;
    for (const Record& button : show.buttons)
        values += button.size() - 4;
    QVERIFY(values > maxShowValues - 10000 && values <= maxShowValues);

    // The same with few values, but long ones. An "@" makes every copy one of its own.
    text.replace("k1=v", "title=" + QByteArray(1000000, '@'));
    Size characters = 0;
    const QList<Record> copies = read(text).buttons;
    for (const Record& button : copies)
        characters += button.value("title").size();
    QVERIFY(characters <= maxShowCharacters);
}

void TestLightShow::groupsWithLongNamesAreAskedForUpToABound()
{
    // None of the groups exists.
    const LightShow show =
        read("[page]\nnumber=1\n[page1]\nnb_buttons=50000\npageid=" + QByteArray(1000000, 'a') + '\n');
    QCOMPARE(damage(show), QString());
    QVERIFY(!show.buttons.isEmpty() && show.buttons.size() <= maxShowCharacters / 1000000);
}

void TestLightShow::isReadWhereNoTemporaryFilesCanBeMade()
{
    const QString path = write(oneButton("title=Strobe"));
    const QDir home = QDir::home();
    const QStringList before = home.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    const QByteArray usual = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/nowhere");
    const auto show = readlightshow(path);
    if (usual.isEmpty())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", usual);
    QVERIFY(show);
    QCOMPARE(show->buttons.value(0).value("title"), QString("Strobe"));
    QCOMPARE(home.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), before);
}

void TestLightShow::longNamesAreCut()
{
    const LightShow show =
        read("[page]\nnumber=1\n[page1]\nnb_buttons=2\nname=" + QByteArray(maxShownLength, 'n') +
             "m\n[page1_button1]\ntitle=" + QByteArray(maxTitleLength, 't') +
             "u\n[page1_button2]\ntitle=" + QByteArray(maxTitleLength - 1, 't') +
             "\xf0\x9f\x98\x80\nother=" + QByteArray(maxTitleLength, 't') + "u\n");
    QCOMPARE(show.pages.value(1).value("name"), QString(maxShownLength, 'n'));
    QVERIFY(show.buttons.value(0).value("title") == QString(maxTitleLength, 't'));
    // No half character is left.
    QVERIFY(show.buttons.value(1).value("title") == QString(maxTitleLength - 1, 't'));
    QCOMPARE(show.buttons.value(1).value("other").size(), maxTitleLength + 1);
}

void TestLightShow::oddFilesAreReadSoon_data()
{
    QTest::addColumn<QByteArray>("text");
    constexpr int size = maxLightShowSize / 4;
    const auto row = [](const char* name, const QByteArray& part) {
        QTest::newRow(name) << part.repeated(size / part.size());
    };
    row("groups left open", "[\n");
    row("groups", "[x]\n");
    row("quotes", "\"");
    row("backslashes", "\\");
    row("commas", "a=,,,,,,,,\n");
    row("comments", ";\n");
    row("bytes that are no UTF-8", "a=\xff\xfe\n");
    row("escapes", "a=\\xe9\\0\n");
    QTest::newRow("one value of commas") << "a=" + QByteArray(size - 2, ',');
    QTest::newRow("one value of accents") << "a=" + QByteArray(size - 2, '\xe9');
    QTest::newRow("one group's name") << '[' + QByteArray(size - 1, 'x');
    QTest::newRow("one key") << QByteArray(size - 1, '\xe9') + '=';
}

void TestLightShow::oddFilesAreReadSoon()
{
    QFETCH(QByteArray, text);
    const QString path = write(text);
    QElapsedTimer timer;
    timer.start();
    readlightshow(path);
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    QFile::remove(path);
}

void TestLightShow::readingManyShowsKeepsNoneInMemory()
{
    const QByteArray text = oneButton("title=x\n" + QByteArray("k=v\n").repeated(10)) + "[x]\n" +
                            "title=" + QByteArray(4000000, 'x');
    QCOMPARE(read(text).buttons.size(), 1);
    const auto before = bytesInUse();
    if (!before) {
        QTest::qSkip("This system does not tell how much memory a program uses.", __FILE__, __LINE__);
        return;
    }
    for (int round = 0; round < 25; ++round)
        QCOMPARE(read(text).buttons.size(), 1);
    // One show that is kept is more.
    QVERIFY2(*bytesInUse() < *before + 4000000, qPrintable(QString::number(*bytesInUse())));
}

void TestLightShow::buttonsperpageComparesTheTextOfTheNumber()
{
    const QList<Record> buttons{{{"pageid", "1"}},  {{"pageid", "2"}},  {{"pageid", "1"}}, {{"pageid", "01"}},
                                {{"pageid", "1 "}}, {{"pageid", "-1"}}, {{"pageid", ""}},  {{"title", "1"}}};
    QCOMPARE(buttonsperpage(buttons, 1), 2);
    QCOMPARE(buttonsperpage(buttons, 2), 1);
    QCOMPARE(buttonsperpage(buttons, -1), 1);
    QCOMPARE(buttonsperpage(buttons, 0), 0);
    QCOMPARE(buttonsperpage(buttons, 3), 0);
    QCOMPARE(buttonsperpage({}, 1), 0);
}

void TestLightShow::aStoredObjectInATitleHarmsNothingElse_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::newRow("no value") << QByteArray("@Invalid()");
    QTest::newRow("rectangle") << QByteArray("@Rect(1 2 3 4)");
    QTest::newRow("rectangle in a list") << QByteArray("@Rect(1 2 3 4), x");
    QTest::newRow("rectangle cut short") << QByteArray("@Rect(1");
    QTest::newRow("bytes") << QByteArray("@ByteArray(abc)");
    QTest::newRow("stream of nothing") << QByteArray("@Variant()");
    QTest::newRow("stream of an unknown type") << QByteArray("@Variant(\\0\\0\\xff\\xff\\0)");
    QTest::newRow("text of two thousand million bytes")
        << QByteArray("@Variant(\\0\\0\\0\\n\\x7f\\xff\\xff\\xfe\\0)");
    QTest::newRow("list of two thousand million values")
        << QByteArray("@Variant(\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)");
    QTest::newRow("lists in lists, 200000 deep")
        << "@Variant(" + QByteArray("\\0\\0\\0\\t\\0\\0\\0\\x1").repeated(200000) + ")";
}

void TestLightShow::aStoredObjectInATitleHarmsNothingElse()
{
    QFETCH(QByteArray, title);
    const LightShow show =
        read("[page]\nnumber=1\n[page1]\nnb_buttons=2\nname=Main\n[page1_button1]\ntitle=" + title +
             "\ncolor=255\n[page1_button2]\ntitle=Strobe\n");
    QCOMPARE(damage(show), QString());
    QCOMPARE(column(show.buttons, "color"), QStringList({"#0000FF", "#ffffff"}));
    QCOMPARE(show.buttons.at(1).value("title"), QString("Strobe"));
}

void TestLightShow::anAtSignIsPlainTextInEveryForm_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QString>("title");
    QTest::newRow("hexadecimal") << QByteArray("\\x40Home") << "@Home";
    QTest::newRow("hexadecimal, filled up") << QByteArray("\\x0040Home") << "@Home";
    QTest::newRow("hexadecimal, beyond 16 bits") << QByteArray("\\x10040Home") << "@Home";
    QTest::newRow("hexadecimal, far beyond") << QByteArray("\\xabcdef0123450040Home") << "@Home";
    QTest::newRow("octal") << QByteArray("\\100Home") << "@Home";
    QTest::newRow("octal, beyond 16 bits") << QByteArray("\\200100Home") << "@Home";
    QTest::newRow("octal, before a letter that is a hexadecimal digit") << QByteArray("\\100able") << "@able";
    QTest::newRow("hexadecimal, a nine far beyond")
        << QByteArray("\\x90040Rect(1 2 3 4)") << "@Rect(1 2 3 4)";
    QTest::newRow("octal, a seven far beyond") << QByteArray("\\7000100Rect(1 2 3 4)") << "@Rect(1 2 3 4)";
    QTest::newRow("octal, before an eight") << QByteArray("\\1008") << "@8";
    QTest::newRow("octal, before a nine") << QByteArray("\\1009") << "@9";
    QTest::newRow("hexadecimal, before a letter that is no digit") << QByteArray("\\x40g") << "@g";
    QTest::newRow("hexadecimal letters") << QByteArray("\\xFfFf0040Size(1 2)") << "@Size(1 2)";
    QTest::newRow("in the middle") << QByteArray("Red\\x40Home") << "Red@Home";
    QTest::newRow("two of them") << QByteArray("\\x40\\x40Home") << "@Home";
    QTest::newRow("an object, every letter escaped")
        << QByteArray("\\x40\\x56\\x61\\x72\\x69\\x61\\x6e\\x74\\x28\\0\\0\\0\\t\\x7f\\xff\\xff\\xff)")
        << QString::fromLatin1(bytesOf("@Variant(\0\0\0\t\x7f\xff\xff\xff)").constData(), 18);
    QTest::newRow("an object behind an escape that means nothing")
        << QByteArray("\\q\\x40Size(3 4)") << "@Size(3 4)";
    QTest::newRow("behind an escaped backslash") << QByteArray("\\\\\\x40Home") << "\\@Home";
    QTest::newRow("its digits behind an escaped backslash") << QByteArray("C:\\\\x40") << "C:\\x40";
    QTest::newRow("another letter") << QByteArray("\\x41Home") << "AHome";
    QTest::newRow("a letter with the same last digits")
        << QByteArray("\\x140Home") << QString(QChar(0x140)) + "Home";
    QTest::newRow("stored as bytes") << QByteArray("@ByteArray(Strobe)") << "Strobe";
    QTest::newRow("stored as text") << QByteArray("@String(Strobe)") << "Strobe";
    QTest::newRow("stored as nothing") << QByteArray("@Invalid()") << "";
    QTest::newRow("stored as bytes, cut short") << QByteArray("@ByteArray(Strobe") << "@ByteArray(Strobe";
}

void TestLightShow::anAtSignIsPlainTextInEveryForm()
{
    QFETCH(QByteArray, written);
    QFETCH(QString, title);
    const LightShow show =
        read("; note \\100 percent\n[page]\nx=" + bytesOf("\0") + "\nnumber=1\n[page1]\nnb_buttons=2\n" +
             "[page1_button1]\nimage=C:\\100\\z.png\ntitle=" + written + "\n[page1_button2]\ntitle=Strobe\n");
    QCOMPARE(damage(show), QString());
    QCOMPARE(column(show.buttons, "title"), QStringList({title, "Strobe"}));
    QCOMPARE(show.buttons.at(0).value("image"), QString("C:@.png"));
}

QTEST_GUILESS_MAIN(TestLightShow)
#include "tst_lightshow.moc"
