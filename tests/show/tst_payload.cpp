#include "bounds.h"
#include "itemroles.h"
#include "payload.h"

#include <QColor>
#include <QMimeData>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

using namespace show;

namespace {

QString listFormat() { return QStringLiteral("application/vnd.text.list"); }

QString colorFormat() { return QStringLiteral("application/x-color"); }

/// Bytes from hexadecimal digits; blanks only make them readable.
QByteArray hex(const QByteArray& digits) { return QByteArray::fromHex(digits); }

std::unique_ptr<QMimeData> mime(const QByteArray& list, const QByteArray& colors)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(listFormat(), list);
    data->setData(colorFormat(), colors);
    return data;
}

/// The stream of texts of one Latin-1 letter or digit each.
QByteArray letters(const QByteArray& text)
{
    QByteArray bytes;
    for (const char letter : text)
        bytes += hex("00000002 00") + letter;
    return bytes;
}

/// One opaque colour of 8 bits per channel.
QByteArray rgb(const QByteArray& red, const QByteArray& green, const QByteArray& blue)
{
    return hex("01 ffff" + red + red + green + green + blue + blue + "0000");
}

/// A list of two Live Buttons as a model may hold them: texts under roles, no role of a controller.
class Buttons : public QStandardItemModel
{
public:
    Buttons() : QStandardItemModel(2, 1)
    {
        setRow(0, "Fog", "1", "Fg", "7", QColor(255, 128, 0));
        setRow(1, "A", "", QString(), "-1", QColor());
    }

private:
    void setRow(int row, const QString& title, const QString& page, const QString& name, const QString& id,
                const QColor& color)
    {
        setData(index(row, 0), title, Qt::EditRole);
        setData(index(row, 0), page, ItemRole::Page);
        setData(index(row, 0), name, ItemRole::DspName);
        setData(index(row, 0), id, ItemRole::Id);
        setData(index(row, 0), color, Qt::DecorationRole);
    }
};

/// The fields of the Live Buttons list.
QVector<PayloadField> listFields()
{
    return {{Qt::EditRole, {}},        {ItemRole::Page, {}},    {ItemRole::DspName, {}},
            {-1, QStringLiteral("1")}, {ItemRole::Id, {}},      {-1, QStringLiteral("1")},
            {ItemRole::ColorOff, {}},  {ItemRole::ColorOn, {}}, {ItemRole::ColorOn, {}}};
}

constexpr int listCount = PayloadBlink + 1;

} // namespace

class TestPayload : public QObject
{
    Q_OBJECT

private slots:
    void theListFormatComesFirst();

    void aListItemHasTheseBytes();
    void severalItemsFollowEachOtherInTheGivenOrder();
    void invalidIndexesAreSkipped();
    void noIndexesGiveBothFormatsEmpty();
    void colorsHaveTheseBytes_data();
    void colorsHaveTheseBytes();
    void textsBeyondLatin1AndNullTextsHaveTheseBytes();

    void whatWasWrittenIsRead();
    void onlyTheFirstItemCounts();
    void theOriginIsAnExactOneOrZero_data();
    void theOriginIsAnExactOneOrZero();
    void theSourceIsANumberOrMinusOne_data();
    void theSourceIsANumberOrMinusOne();
    void theColorIsSixLowerCaseDigits_data();
    void theColorIsSixLowerCaseDigits();

    void aPayloadWithoutBothFormatsIsRefused();
    void aPayloadWithFewerFieldsThanNeededIsRefused();
    void brokenListsAreRefused_data();
    void brokenListsAreRefused();
    void brokenColorsAreRefused_data();
    void brokenColorsAreRefused();
    void everyCutOfAPayloadIsRefused();
    void everyKindOfColorGivesSixDigits();
    void aPayloadBeyondItsLargestSizeIsRefused();
};

void TestPayload::theListFormatComesFirst()
{
    QCOMPARE(payloadformats(), QStringList({"application/vnd.text.list", "application/x-color"}));
}

void TestPayload::aListItemHasTheseBytes()
{
    const Buttons model;
    const std::unique_ptr<QMimeData> data(encodepayload({model.index(0, 0)}, listFields()));
    QCOMPARE(data->formats(), payloadformats());
    QCOMPARE(data->data(listFormat()).toHex(), hex("00000002 0030"           // source row "0"
                                                   "00000002 0030"           // source column "0"
                                                   "00000006 0046 006f 0067" // title "Fog"
                                                   "00000002 0031"           // page "1"
                                                   "00000004 0046 0067"      // name "Fg"
                                                   "00000002 0031"           // from the list
                                                   "00000002 0037"           // id "7"
                                                   "00000002 0031"           // usable
                                                   "ffffffff"                // null: off colour
                                                   "ffffffff"                // null: on colour
                                                   "ffffffff")               // null: blink
                                                   .toHex());
    // RGB, then alpha, red, green, blue and padding of 16 bits each
    QCOMPARE(data->data(colorFormat()).toHex(), hex("01 ffff ffff 8080 0000 0000").toHex());
}

void TestPayload::severalItemsFollowEachOtherInTheGivenOrder()
{
    const Buttons model;
    const QVector<PayloadField> fields{{Qt::EditRole, {}}, {ItemRole::Page, {}}, {ItemRole::DspName, {}}};
    const std::unique_ptr<QMimeData> data(encodepayload({model.index(1, 0), model.index(0, 0)}, fields));
    QCOMPARE(data->data(listFormat()).toHex(),
             hex("00000002 0031 00000002 0030 00000002 0041 00000000 ffffffff"
                 "00000002 0030 00000002 0030 00000006 0046006f0067 00000002 0031 00000004 0046 0067")
                 .toHex());
    // The first item has no colour of its own.
    QCOMPARE(data->data(colorFormat()).toHex(),
             hex("00 ffff 0000 0000 0000 0000  01 ffff ffff 8080 0000 0000").toHex());
}

void TestPayload::invalidIndexesAreSkipped()
{
    const Buttons model;
    const QModelIndexList indexes{QModelIndex(), model.index(0, 0), model.index(5, 0), model.index(0, 5),
                                  model.index(-1, 0)};
    const std::unique_ptr<QMimeData> data(encodepayload(indexes, {{ItemRole::Id, {}}}));
    QCOMPARE(data->data(listFormat()).toHex(), letters("007").toHex());
    QCOMPARE(data->data(colorFormat()).toHex(), rgb("ff", "80", "00").toHex());
}

void TestPayload::noIndexesGiveBothFormatsEmpty()
{
    for (const QModelIndexList& indexes : {QModelIndexList(), QModelIndexList({QModelIndex()})}) {
        const std::unique_ptr<QMimeData> data(encodepayload(indexes, listFields()));
        QCOMPARE(data->formats(), payloadformats());
        QCOMPARE(data->data(listFormat()), QByteArray());
        QCOMPARE(data->data(colorFormat()), QByteArray());
    }
}

void TestPayload::colorsHaveTheseBytes_data()
{
    QTest::addColumn<QVariant>("color");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("white") << QVariant(QColor(255, 255, 255)) << hex("01 ffff ffff ffff ffff 0000");
    QTest::newRow("black") << QVariant(QColor(0, 0, 0)) << hex("01 ffff 0000 0000 0000 0000");
    QTest::newRow("mixed") << QVariant(QColor(18, 171, 239)) << hex("01 ffff 1212 abab efef 0000");
    QTest::newRow("none") << QVariant() << hex("00 ffff 0000 0000 0000 0000");
    QTest::newRow("no colour") << QVariant(12) << hex("00 ffff 0000 0000 0000 0000");
}

void TestPayload::colorsHaveTheseBytes()
{
    QFETCH(QVariant, color);
    QFETCH(QByteArray, bytes);
    Buttons model;
    model.setData(model.index(0, 0), color, Qt::DecorationRole);
    const std::unique_ptr<QMimeData> data(encodepayload({model.index(0, 0)}, listFields()));
    QCOMPARE(data->data(colorFormat()).toHex(), bytes.toHex());
}

void TestPayload::textsBeyondLatin1AndNullTextsHaveTheseBytes()
{
    Buttons model;
    model.setData(model.index(0, 0), QString::fromUtf8("\xe2\x82\xac\xf0\x9f\x98\x80"), Qt::EditRole);
    const std::unique_ptr<QMimeData> data(
        encodepayload({model.index(0, 0)}, {{Qt::EditRole, {}}, {-1, QString()}, {-1, QLatin1String("")}}));
    QCOMPARE(data->data(listFormat()).toHex(),
             (letters("00") + hex("00000006 20ac d83d de00 ffffffff 00000000")).toHex());
}

void TestPayload::whatWasWrittenIsRead()
{
    QStandardItemModel model(4, 3);
    model.setData(model.index(3, 2), "Slow Fade", Qt::EditRole);
    model.setData(model.index(3, 2), "12", ItemRole::Page);
    model.setData(model.index(3, 2), "slow", ItemRole::DspName);
    model.setData(model.index(3, 2), "34", ItemRole::Id);
    model.setData(model.index(3, 2), QColor(171, 205, 239), Qt::DecorationRole);
    const std::unique_ptr<QMimeData> data(encodepayload({model.index(3, 2)}, listFields()));
    const std::optional<Payload> payload = decodepayload(data.get(), listCount);
    QVERIFY(payload);
    QCOMPARE(payload->fields, QStringList({"3", "2", "Slow Fade", "12", "slow", "1", "34", "1", "", "", ""}));
    QCOMPARE(payload->fields.at(PayloadName), QString("Slow Fade"));
    QCOMPARE(payload->fields.at(PayloadPage), QString("12"));
    QCOMPARE(payload->fields.at(PayloadDspName), QString("slow"));
    QCOMPARE(payload->fields.at(PayloadOrigin), QString("1"));
    QCOMPARE(payload->fields.at(PayloadId), QString("34"));
    QCOMPARE(payload->fields.at(PayloadAvail), QString("1"));
    for (const int position : {PayloadColorOff, PayloadColorOn, PayloadBlink})
        QVERIFY(payload->fields.at(position).isNull());
    QCOMPARE(payload->sourceRow, 3);
    QCOMPARE(payload->sourceColumn, 2);
    QCOMPARE(payload->color, QString("#abcdef"));
    QVERIFY(payload->fromlist());
    QVERIFY(!payload->frompad());
}

void TestPayload::onlyTheFirstItemCounts()
{
    const Buttons model;
    const std::unique_ptr<QMimeData> data(
        encodepayload({model.index(1, 0), model.index(0, 0)}, listFields()));
    const std::optional<Payload> payload = decodepayload(data.get(), listCount);
    QVERIFY(payload);
    QCOMPARE(payload->sourceRow, 1);
    QCOMPARE(payload->fields.at(PayloadName), QString("A"));
    QCOMPARE(payload->fields.size(), listCount);
    QCOMPARE(payload->color, QString("#000000"));
}

void TestPayload::theOriginIsAnExactOneOrZero_data()
{
    QTest::addColumn<QByteArray>("field"); // as its bytes
    QTest::addColumn<bool>("fromList");
    QTest::addColumn<bool>("fromPad");
    QTest::newRow("1") << hex("00000002 0031") << true << false;
    QTest::newRow("0") << hex("00000002 0030") << false << true;
    QTest::newRow("2") << hex("00000002 0032") << false << false;
    QTest::newRow("01") << hex("00000004 0030 0031") << false << false;
    QTest::newRow("0 and a blank") << hex("00000004 0030 0020") << false << false;
    QTest::newRow("empty") << hex("00000000") << false << false;
    QTest::newRow("null") << hex("ffffffff") << false << false;
}

void TestPayload::theOriginIsAnExactOneOrZero()
{
    QFETCH(QByteArray, field);
    QFETCH(bool, fromList);
    QFETCH(bool, fromPad);
    const auto data = mime(letters("abcde") + field + letters("f"), rgb("00", "00", "00"));
    const std::optional<Payload> payload = decodepayload(data.get(), PayloadId + 1);
    QVERIFY(payload);
    QCOMPARE(payload->fromlist(), fromList);
    QCOMPARE(payload->frompad(), fromPad);
}

void TestPayload::theSourceIsANumberOrMinusOne_data()
{
    QTest::addColumn<QByteArray>("field"); // Latin-1
    QTest::addColumn<int>("number");
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("63") << QByteArray("63") << 63;
    QTest::newRow("largest") << QByteArray("2147483647") << 2147483647;
    QTest::newRow("negative") << QByteArray("-3") << -3;
    QTest::newRow("too large") << QByteArray("2147483648") << -1;
    QTest::newRow("letters") << QByteArray("abc") << -1;
    QTest::newRow("empty") << QByteArray() << -1;
    QTest::newRow("hexadecimal") << QByteArray("0x1") << -1;
}

void TestPayload::theSourceIsANumberOrMinusOne()
{
    QFETCH(QByteArray, field);
    QFETCH(int, number);
    QByteArray text;
    for (const char letter : field)
        text += '\0' + QByteArray(1, letter);
    const QByteArray bytes = hex("000000") + static_cast<char>(text.size()) + text;
    const auto asRow = mime(bytes + letters("56789"), rgb("00", "00", "00"));
    const auto asColumn = mime(letters("5") + bytes + letters("6789"), rgb("00", "00", "00"));
    const std::optional<Payload> rowPayload = decodepayload(asRow.get(), PayloadOrigin + 1);
    const std::optional<Payload> columnPayload = decodepayload(asColumn.get(), PayloadOrigin + 1);
    QVERIFY(rowPayload && columnPayload);
    QCOMPARE(rowPayload->sourceRow, number);
    QCOMPARE(rowPayload->sourceColumn, 5);
    QCOMPARE(columnPayload->sourceRow, 5);
    QCOMPARE(columnPayload->sourceColumn, number);
}

void TestPayload::theColorIsSixLowerCaseDigits_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("color");
    QTest::newRow("white") << rgb("ff", "ff", "ff") << "#ffffff";
    QTest::newRow("mixed") << rgb("12", "AB", "EF") << "#12abef";
    QTest::newRow("half transparent") << hex("01 8080 ffff 0000 0000 0000") << "#ff0000";
    QTest::newRow("invalid") << hex("00 ffff 0000 0000 0000 0000") << "#000000";
    QTest::newRow("hue, saturation, value") << hex("02 ffff 2ee0 ffff ffff 0000") << "#00ff00";
    QTest::newRow("the first of two") << rgb("00", "00", "01") + rgb("00", "00", "02") << "#000001";
}

void TestPayload::theColorIsSixLowerCaseDigits()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, color);
    const auto data = mime(letters("012345"), bytes);
    const std::optional<Payload> payload = decodepayload(data.get(), PayloadOrigin + 1);
    QVERIFY(payload);
    QCOMPARE(payload->color, color);
}

void TestPayload::aPayloadWithoutBothFormatsIsRefused()
{
    QVERIFY(!decodepayload(nullptr, PayloadOrigin + 1));
    QVERIFY(!decodepayload(std::make_unique<QMimeData>().get(), PayloadOrigin + 1));
    for (const QString& format : {listFormat(), colorFormat()}) {
        const auto data = mime(letters("012345"), rgb("00", "00", "00"));
        QVERIFY(decodepayload(data.get(), PayloadOrigin + 1));
        data->removeFormat(format);
        QVERIFY(!decodepayload(data.get(), PayloadOrigin + 1));
    }
    // What other programs drag is no payload.
    QMimeData text;
    text.setText("Strobe");
    text.setColorData(QColor(255, 0, 0));
    QVERIFY(!decodepayload(&text, PayloadOrigin + 1));
}

void TestPayload::aPayloadWithFewerFieldsThanNeededIsRefused()
{
    const auto seven = mime(letters("0123456"), rgb("00", "00", "00"));
    QVERIFY(decodepayload(seven.get(), PayloadOrigin + 1));
    QVERIFY(decodepayload(seven.get(), PayloadId + 1));
    QVERIFY(!decodepayload(seven.get(), PayloadAvail + 1));
    QVERIFY(!decodepayload(seven.get(), PayloadBlink + 1));
    QVERIFY(!decodepayload(seven.get(), 2147483647));
}

void TestPayload::brokenListsAreRefused_data()
{
    QTest::addColumn<QByteArray>("list");
    const QByteArray whole = letters("0123456");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("zero bytes behind") << whole + hex("0000");
    QTest::newRow("a length without its text") << whole + hex("00000002");
    QTest::newRow("a length and half a letter") << whole + hex("00000002 00");
    QTest::newRow("an odd length") << whole + hex("00000003 003132");
    QTest::newRow("two thousand million bytes") << whole + hex("7ffffffe 0031");
    QTest::newRow("four thousand million bytes") << whole + hex("fffffffc 0031");
    QTest::newRow("a huge length in front") << hex("7ffffffe") + whole;
    QTest::newRow("text") << QByteArray("Strobe, Blackout, Slow Fade, Tunnel and Fog");
    QTest::newRow("all ones, cut") << QByteArray(4 * 20 + 3, '\xff');
}

void TestPayload::brokenListsAreRefused()
{
    QFETCH(QByteArray, list);
    const auto data = mime(list, rgb("00", "00", "00"));
    QVERIFY(!decodepayload(data.get(), PayloadOrigin + 1));
}

void TestPayload::brokenColorsAreRefused_data()
{
    QTest::addColumn<QByteArray>("colors");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << hex("01");
    QTest::newRow("one byte short") << rgb("00", "00", "00").chopped(1);
    QTest::newRow("a second one cut short") << rgb("00", "00", "00") + hex("01 ffff");
    QTest::newRow("text") << QByteArray("#ff0000");
    QTest::newRow("of no kind") << hex("06 ffff 0000 0000 0000 0000");
    QTest::newRow("of kind minus one") << hex("ff ffff 0000 0000 0000 0000");
    QTest::newRow("of kind 127") << hex("7f ffff 0000 0000 0000 0000");
    QTest::newRow("a second one of no kind") << rgb("00", "00", "00") + hex("40 ffff 0000 0000 0000 0000");
    QTest::newRow("as long as colours, but a text") << QByteArray("eleven sign");
}

void TestPayload::brokenColorsAreRefused()
{
    QFETCH(QByteArray, colors);
    const auto data = mime(letters("0123456"), colors);
    QVERIFY(!decodepayload(data.get(), PayloadOrigin + 1));
}

void TestPayload::everyCutOfAPayloadIsRefused()
{
    const Buttons model;
    const std::unique_ptr<QMimeData> whole(encodepayload({model.index(0, 0)}, listFields()));
    QVERIFY(decodepayload(whole.get(), listCount));
    const QByteArray list = whole->data(listFormat());
    const QByteArray colors = whole->data(colorFormat());
    for (int size = 0; size < list.size(); ++size)
        QVERIFY2(!decodepayload(mime(list.left(size), colors).get(), listCount),
                 qPrintable(QString::number(size)));
    for (int size = 0; size < colors.size(); ++size)
        QVERIFY2(!decodepayload(mime(list, colors.left(size)).get(), listCount),
                 qPrintable(QString::number(size)));
}

void TestPayload::everyKindOfColorGivesSixDigits()
{
    const QRegularExpression digits("^#[0-9a-f]{6}$");
    for (int kind = 0; kind <= 5; ++kind) {
        for (const char* words : {"0000000000000000ffff", "ffffffffffffffffffff", "7fff80008000ffff0001",
                                  "ffff7e00fe007c00fc00", "12348ca08ca18c9f0000"}) {
            const QByteArray color = QByteArray(1, static_cast<char>(kind)) + hex(words);
            const auto payload = decodepayload(mime(letters("12345"), color).get(), 5);
            QVERIFY(!payload || digits.match(payload->color).hasMatch());
        }
    }
}

void TestPayload::aPayloadBeyondItsLargestSizeIsRefused()
{
    const QByteArray color = rgb("00", "00", "00");
    const QByteArray many = hex("ffffffff").repeated(maxPayloadSize / 4);
    QVERIFY(decodepayload(mime(many, color).get(), 7));
    QVERIFY(!decodepayload(mime(many + hex("ffffffff"), color).get(), 7));
    QVERIFY(decodepayload(mime(letters("1234567"), color.repeated(maxPayloadSize / 11)).get(), 7));
    QVERIFY(!decodepayload(mime(letters("1234567"), color.repeated(maxPayloadSize / 11 + 1)).get(), 7));
}

QTEST_GUILESS_MAIN(TestPayload)
#include "tst_payload.moc"
