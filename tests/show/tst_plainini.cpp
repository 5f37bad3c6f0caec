// What `plainini` makes of a file, against the file itself, both as the toolkit's settings read them.

#include "plainini.h"
#include "testfiles.h"
#include "toolkitfacts.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Pieces = QVector<QByteArray>;

QByteArray oneof(const Pieces& pieces, QRandomGenerator* random)
{
    return pieces.at(random->bounded(pieces.size()));
}

/// Up to \a most of \a pieces in a row.
QByteArray someof(const Pieces& pieces, int most, QRandomGenerator* random)
{
    QByteArray text;
    for (int left = random->bounded(most + 1); left > 0; --left)
        text += oneof(pieces, random);
    return text;
}

/// The name of a group or key. Signs beyond ASCII come as "%": how their bytes are read depends on the
/// version of the toolkit. So does what follows an escaped "=", which belongs to the name.
QByteArray randomname(QRandomGenerator* random)
{
    static const Pieces pieces{"page", "1",      "_button", "title", "Title", " ",  "\t",      "/", "\\1",
                               "%41",  "%u20AC", "%U00e9",  "%zz",   "%",     "%4", "General", ".", "-"};
    return oneof({"a", "color", "page1", "%E9"}, random) + someof(pieces, 3, random);
}

/// A value with everything that settings take for more than its letters, but for two: "@", which is kept from
/// them, and a backslash in front of a sign beyond ASCII, of which they drop the first byte alone.
QByteArray randomvalue(QRandomGenerator* random)
{
    static const Pieces pieces{"Strobe", "7",     "f",      "9",      " ",          "\t",      "\"",
                               "\"",     ",",     ", ",     ";",      "=",          "[",       "]",
                               "%41",    "\\n",   "\\\"",   "\\\\",   "\\x41",      "\\x20ac", "\\x1F600",
                               "\\x",    "\\101", "\\08",   "\\q",    "\\;",        "\\,",     "\\\r\n",
                               "\\\n",   "\\\r",  "\u00e9", "\u20ac", "B\u00fchne", "\u591c",  "\U0001F3B5",
                               "\u00e9", "\u00a0"};
    return someof(pieces, 8, random);
}

/// An INI file of groups, values, comments and lines that are neither.
QByteArray randomini(QRandomGenerator* random)
{
    QByteArray ini;
    for (int line = random->bounded(1, 16); line > 0; --line) {
        switch (random->bounded(8)) {
        case 0:
            ini += "[" + randomname(random) + oneof({"]", "]", "", " ] x"}, random);
            break;
        case 1:
            ini += oneof({"; a comment \"", "", "no value", " \t", "\\"}, random);
            break;
        default:
            ini += oneof({"", " "}, random) + randomname(random) + oneof({"=", " = ", "=="}, random) +
                   randomvalue(random);
        }
        ini += oneof({"\r\n", "\n", "\r"}, random);
    }
    return ini;
}

/// What the toolkit's settings read of the INI file \a bytes, key by key. A value that they take for a list
/// is one text, and blanks around commas do not count, as they drop them in a list.
QStringList readbysettings(const QByteArray& bytes)
{
    static const QRegularExpression comma(QStringLiteral("\\s*,\\s*"));
    const QTemporaryDir folder; // settings remember what a path held before
    const QString path = folder.filePath(QStringLiteral("live.ini"));
    writefile(path, bytes);
    QSettings settings(path, QSettings::IniFormat);
    Toolkit::readasutf8(&settings);
    QStringList lines;
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        if (key.isEmpty())
            continue; // settings give nothing for it
        const QString value = settings.value(key).toStringList().join(QLatin1Char(','));
        lines.append(key + QLatin1String(" is ") + QString(value).replace(comma, QStringLiteral(",")));
    }
    lines.sort();
    return lines;
}

/// \a lines without those whose key is not ASCII.
QStringList withplainkeys(const QStringList& lines)
{
    static const QRegularExpression plainkey(QStringLiteral("^[\\x00-\\x7f]* is "));
    return lines.filter(plainkey);
}

/// \a lines without signs that the message of a failed test would hide.
QByteArray printable(const QStringList& lines)
{
    return lines.join(QLatin1Char('\n')).toUtf8().toPercentEncoding(" |=[],;\"\\\n");
}

} // namespace

class PlainIniTest : public QObject
{
    Q_OBJECT

private slots:
    void isReadAsTheFileItself();
    void keepsTheLineBehindAnEscapedLineEnd();
};

void PlainIniTest::isReadAsTheFileItself()
{
    QRandomGenerator random(840);
    int values = 0;
    for (int n = 0; n < 3000; ++n) {
        const QByteArray ini = randomini(&random);
        const auto plain = show::plainini(ini);
        QVERIFY2(plain, ini.toPercentEncoding().constData());
        QStringList expected = readbysettings(ini);
        QStringList actual = readbysettings(*plain);
        if (Toolkit::settingNamesAreUtf8) {
            expected = withplainkeys(expected);
            actual = withplainkeys(actual);
        }
        QVERIFY2(actual == expected,
                 printable({QString::fromUtf8(ini), actual.join('|'), expected.join('|')}).constData());
        values += static_cast<int>(expected.size());
    }
    QVERIFY2(values > (Toolkit::settingNamesAreUtf8 ? 5000 : 10000), qPrintable(QString::number(values)));
}

void PlainIniTest::keepsTheLineBehindAnEscapedLineEnd()
{
    for (const char* ending : {"\\\r\r\n", "\\\n\n", "\\\r\n\n", "\\\n\r\r"}) {
        const auto plain = show::plainini(QByteArray("a=x") + ending + "b=1\r\n");
        QVERIFY(plain);
        QCOMPARE(readbysettings(*plain), (QStringList{"a is x", "b is 1"}));
    }
}

QTEST_APPLESS_MAIN(PlainIniTest)
#include "tst_plainini.moc"
