#include "itemroles.h"
#include "modelcontract.h"
#include "mymodel.h"
#include "testpayload.h"

#include <QColor>
#include <QDataStream>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

#include <climits>
#include <memory>

using namespace show;

namespace {

/// A complete record of its own for each \a number.
Record button(int number)
{
    const QString text = QString::number(number);
    return {{"title", "Button " + text}, {"dspname", "Name " + text},   {"color", "#FF000" + text},
            {"pageid", "1" + text},      {"buttonid", "2" + text},      {"check", "0"},
            {"source", "3" + text},      {"textcolor", "#00FF0" + text}};
}

QList<Record> buttons(int count)
{
    QList<Record> list;
    for (int number = 0; number < count; ++number)
        list.append(button(number));
    return list;
}

QStringList titles(const MyModel& model)
{
    QStringList result;
    const QList<Record> list = model.getList();
    for (const Record& record : list)
        result.append(record.value("title"));
    return result;
}

QStringList listFields(const QMimeData& data)
{
    QStringList fields;
    QDataStream stream(data.data(listFormat()));
    while (!stream.atEnd()) {
        QString field;
        stream >> field;
        fields.append(field);
    }
    return fields;
}

} // namespace

class TestMyModel : public ModelContractOf<MyModel>
{
    Q_OBJECT

protected:
    int columns() const override { return 1; }
    int payloadFields() const override { return 6; }
    QVector<ContractRole> roles() const override
    {
        return {{Qt::DisplayRole, "title"},
                {Qt::EditRole, "title"},
                {ItemRole::Page, "pageid"},
                {ItemRole::DspName, "dspname"},
                {ItemRole::Source, "source"},
                {ItemRole::Id, "buttonid"},
                {Qt::DecorationRole, "color", ContractRole::Color},
                {Qt::ForegroundRole, "textcolor", ContractRole::Color},
                {Qt::CheckStateRole, "check", ContractRole::Other}};
    }

private slots:
    void theListConstructorCopiesTheList();
    void getListGivesACopy();
    void textsAndColorsAreReadAsGiven();
    void theToolTipIsFixed();
    void onlyAnExactOneIsChecked_data();
    void onlyAnExactOneIsChecked();
    void onlyTheNumberZeroUnchecks_data();
    void onlyTheNumberZeroUnchecks();
    void missingKeysReadAsEmpty();
    void nothingAsksToUncheckAButton();
    void getnameGivesTheTitle();

    void rowsCanBeDraggedButNotEditedCheckedOrDroppedOn();
    void headersNameTwoColumns();

    void newRowsHoldTheDefaultRecord();
    void removingTakesTheRowsThatExist_data();
    void removingTakesTheRowsThatExist();

    void aDragCarriesElevenFieldsPerButton();
    void aDropReadsOnePositionLater();
    void aDropWithOneItemTooManyUsesTheFirst();
};

void TestMyModel::theListConstructorCopiesTheList()
{
    QObject owner;
    QList<Record> list = buttons(3);
    const MyModel model(list, &owner);
    list[1]["title"] = "changed later";
    list.removeLast();
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.getList(), buttons(3));
}

void TestMyModel::getListGivesACopy()
{
    const MyModel model(buttons(2));
    QList<Record> list = model.getList();
    list.first()["title"] = "changed later";
    list.removeLast();
    QCOMPARE(model.getList(), buttons(2));
}

void TestMyModel::textsAndColorsAreReadAsGiven()
{
    const MyModel model(buttons(3));
    const QModelIndex second = model.index(1, 0);
    for (const ContractRole& item : roles()) {
        if (item.kind == ContractRole::Text)
            QCOMPARE(second.data(item.role), QVariant(button(1).value(item.key)));
    }
    QCOMPARE(second.data(Qt::DecorationRole), QVariant(QColor(255, 0, 1)));
    QCOMPARE(second.data(Qt::ForegroundRole), QVariant(QColor(0, 255, 1)));
}

void TestMyModel::theToolTipIsFixed()
{
    MyModel model(buttons(2));
    QVERIFY(!model.setData(model.index(0, 0), "another", Qt::ToolTipRole));
    QCOMPARE(model.getList(), buttons(2));
    QCOMPARE(model.data(model.index(0, 0), Qt::ToolTipRole).toString(),
             QString("Drag a Live Button and Drop to a VirtualDJ  Pad"));
}

void TestMyModel::onlyAnExactOneIsChecked_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    QTest::newRow("1") << "1" << 2;
    QTest::newRow("0") << "0" << 0;
    QTest::newRow("2") << "2" << 0;
    QTest::newRow("01") << "01" << 0;
    QTest::newRow("1 and a blank") << "1 " << 0;
    QTest::newRow("true") << "true" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestMyModel::onlyAnExactOneIsChecked()
{
    QFETCH(QString, text);
    QFETCH(int, state);
    const MyModel model({Record{{"check", text}}});
    const QVariant value = model.data(model.index(0, 0), Qt::CheckStateRole);
    QVERIFY(value.isValid());
    QCOMPARE(value.toInt(), state);
}

void TestMyModel::onlyTheNumberZeroUnchecks_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("check");
    QTest::newRow("0") << QVariant(0) << "0";
    QTest::newRow("2") << QVariant(2) << "1";
    QTest::newRow("1") << QVariant(1) << "1";
    QTest::newRow("-1") << QVariant(-1) << "1";
    QTest::newRow("unchecked") << QVariant(Qt::Unchecked) << "0";
    QTest::newRow("checked") << QVariant(Qt::Checked) << "1";
    QTest::newRow("partially checked") << QVariant(Qt::PartiallyChecked) << "1";
    QTest::newRow("the text 0") << QVariant("0") << "0";
    QTest::newRow("the text 1") << QVariant("1") << "1";
    QTest::newRow("another text") << QVariant("abc") << "1";
}

void TestMyModel::onlyTheNumberZeroUnchecks()
{
    QFETCH(QVariant, value);
    QFETCH(QString, check);
    MyModel model(buttons(3));
    QList<Record> expected = buttons(3);
    for (const QString& before : {QString("0"), QString("1")}) {
        QVERIFY(model.setData(model.index(1, 0), before.toInt() * 2, Qt::CheckStateRole));
        QVERIFY(model.setData(model.index(1, 0), value, Qt::CheckStateRole));
        expected[1]["check"] = check;
        QCOMPARE(model.getList(), expected);
    }
}

void TestMyModel::missingKeysReadAsEmpty()
{
    const MyModel model({Record()});
    for (const ContractRole& item : roles()) {
        const QVariant value = model.data(model.index(0, 0), item.role);
        QVERIFY(value.isValid());
        if (item.kind == ContractRole::Text)
            QCOMPARE(value.toString(), QString());
    }
    QCOMPARE(model.data(model.index(0, 0), Qt::CheckStateRole).toInt(), 0);
    // Reading adds no keys.
    QCOMPARE(model.getList(), QList<Record>({Record()}));
}

void TestMyModel::nothingAsksToUncheckAButton()
{
    MyModel model(buttons(2));
    const QSignalSpy unchecked(&model, &MyModel::ItemUnchecked);
    QVERIFY(model.setData(model.index(0, 0), 2, Qt::CheckStateRole));
    QVERIFY(model.setData(model.index(0, 0), 0, Qt::CheckStateRole));
    const auto data = payload(stringBytes({"0", "1", "2", "3", "4", "5"}), colorBytes(Qt::red));
    QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, model.index(1, 0)));
    QCOMPARE(unchecked.count(), 0);
}

void TestMyModel::getnameGivesTheTitle()
{
    const Open model(buttons(2));
    QCOMPARE(model.get_name(model.index(1, 0)), QString("Button 1"));
    const QModelIndexList nowhere{
        QModelIndex(),           model.createIndex(-1, 0),      model.createIndex(INT_MIN, 0),
        model.createIndex(2, 0), model.createIndex(INT_MAX, 0), model.createIndex(0, -1),
        model.createIndex(0, 1), model.createIndex(1, INT_MAX)};
    for (const QModelIndex& place : nowhere)
        QCOMPARE(model.get_name(place), QString());
}

void TestMyModel::rowsCanBeDraggedButNotEditedCheckedOrDroppedOn()
{
    const MyModel model(buttons(1));
    const int flags = int(model.flags(model.index(0, 0)));
    // The bit of the third state is set although the user cannot click the mark.
    QCOMPARE(flags, int(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
                        Qt::ItemNeverHasChildren | Qt::ItemFlag(0x40)));
    // Beside the rows a view may not drop either.
    QCOMPARE(int(model.flags(QModelIndex())), 0);
}

void TestMyModel::headersNameTwoColumns()
{
    const MyModel model(buttons(3));
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QString("Color"));
    QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QString("Name"));
    for (const int section : {-1, 2, 3, INT_MAX, INT_MIN})
        QVERIFY(!model.headerData(section, Qt::Horizontal).isValid());
    for (const int section : {-1, 0, 1, 2})
        QVERIFY(!model.headerData(section, Qt::Vertical).isValid());
    for (const int role : {int(Qt::EditRole), int(Qt::ToolTipRole), int(Qt::TextAlignmentRole)})
        QVERIFY(!model.headerData(0, Qt::Horizontal, role).isValid());
}

void TestMyModel::newRowsHoldTheDefaultRecord()
{
    const Record fresh{{"title", "1"},    {"dspname", "1"}, {"color", "#FFFFFF"},     {"pageid", "0"},
                       {"buttonid", "0"}, {"check", "0"},   {"textcolor", "#ffffff"}, {"source", "1"}};
    MyModel model;
    QVERIFY(model.insertRows(0, 2));
    QCOMPARE(model.getList(), QList<Record>({fresh, fresh}));
    QVERIFY(model.insertRow(0));
    QCOMPARE(model.rowCount(), 3);
}

void TestMyModel::removingTakesTheRowsThatExist_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QStringList>("left");
    const QStringList all{"Button 0", "Button 1", "Button 2", "Button 3"};
    QTest::newRow("the first") << 0 << 1 << QStringList(all.mid(1));
    QTest::newRow("two inside") << 1 << 2 << QStringList{"Button 0", "Button 3"};
    QTest::newRow("the last") << 3 << 1 << QStringList(all.mid(0, 3));
    QTest::newRow("all") << 0 << 4 << QStringList();
    QTest::newRow("more than there are") << 2 << 10 << QStringList(all.mid(0, 2));
    QTest::newRow("largest count") << 1 << INT_MAX << QStringList(all.mid(0, 1));
}

void TestMyModel::removingTakesTheRowsThatExist()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(QStringList, left);
    MyModel model(buttons(4));
    const QPersistentModelIndex last(model.index(3, 0));
    QVERIFY(model.removeRows(row, count));
    QCOMPARE(titles(model), left);
    QCOMPARE(last.isValid(), left.contains("Button 3"));
}

void TestMyModel::aDragCarriesElevenFieldsPerButton()
{
    const MyModel model(buttons(3));
    const std::unique_ptr<QMimeData> data(
        model.mimeData({model.index(2, 0), QModelIndex(), model.index(0, 0)}));
    const QStringList second{"2", "0", "Button 2", "12", "Name 2", "1", "22", "1", "", "", ""};
    const QStringList first{"0", "0", "Button 0", "10", "Name 0", "1", "20", "1", "", "", ""};
    QCOMPARE(listFields(*data), second + first);
    const QStringList fields = listFields(*data);
    for (const int field : {8, 9, 10})
        QVERIFY(fields.at(field).isNull());
    QCOMPARE(data->formats(), model.mimeTypes());
}

void TestMyModel::aDropReadsOnePositionLater()
{
    MyModel model(buttons(3));
    const auto data = payload(stringBytes({"f0", "f1", "f2", "f3", "f4", "f5", "f6"}),
                              colorBytes(QColor(0xAB, 0xCD, 0xEF)));
    QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, 0, 0, model.index(1, 0)));
    QList<Record> expected = buttons(3);
    expected[1] = {{"title", "f1"},    {"pageid", "f2"},     {"dspname", "f3"}, {"source", "f4"},
                   {"buttonid", "f5"}, {"color", "#abcdef"}, {"check", "0"},    {"textcolor", "#00FF01"}};
    QCOMPARE(model.getList(), expected);
    // Six fields are all that it reads.
    const auto shortest = payload(stringBytes({"g0", "g1", "g2", "g3", "g4", "g5"}), colorBytes(Qt::black));
    QVERIFY(model.dropMimeData(shortest.get(), Qt::MoveAction, -1, -1, model.index(2, 0)));
    QCOMPARE(titles(model), QStringList({"Button 0", "f1", "g1"}));
}

void TestMyModel::aDropWithOneItemTooManyUsesTheFirst()
{
    MyModel model(buttons(3));
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(2, 0), model.index(1, 0)}));
    QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, model.index(0, 0)));
    QList<Record> expected = buttons(3);
    expected[0] = {{"title", "0"},    {"pageid", "Button 2"}, {"dspname", "12"}, {"source", "Name 2"},
                   {"buttonid", "1"}, {"color", "#ff0002"},   {"check", "0"},    {"textcolor", "#00FF00"}};
    QCOMPARE(model.getList(), expected);
}

QTEST_GUILESS_MAIN(TestMyModel)
#include "tst_mymodel.moc"
