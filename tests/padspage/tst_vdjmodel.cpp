#include "itemroles.h"
#include "modelcontract.h"
#include "padspagewriter.h"
#include "testpayload.h"
#include "vdjmodel.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QMimeData>
#include <QtTest>

#include <climits>
#include <memory>

using namespace padspage;
using namespace show;

namespace {

using Grid = RecordRows;

/// The two names in a row of a bank, the first of them being 0, after set-up.
QStringList namesInRow(int row)
{
    const QStringList rows{
        "PAD 1|PAD 9",  "PAD 2|PAD 10", "PAD 3|PAD 11", "PAD 4|PAD 12",
        "PAD 5|PAD 13", "PAD 6|PAD 14", "PAD 7|PAD 15", "PAD 8|PAD 16",
    };
    return rows.value(row).split('|');
}

/// The record of a pad that holds nothing.
Record emptyPad(const QString& name)
{
    return {{"name", name}, {"dspname", name}, {"pagenr", "0"}, {"id", "-1"}, {"color", "#000000"}};
}

/// The record of a pad that holds the Live Button \a button.
Record usedPad(const QString& text, const QString& button, const QString& page, const QString& id,
               const QString& color)
{
    return {{"name", text}, {"dspname", button}, {"pagenr", page}, {"id", id}, {"color", color}};
}

/// Puts a Live Button on a pad, as a restored project does.
void place(VDJModel& model, int row, int column, const Record& pad)
{
    const QModelIndex index = model.index(row, column);
    model.setData(index, pad.value("name"), Qt::EditRole);
    model.setData(index, pad.value("dspname"), ItemRole::DspName);
    model.setData(index, pad.value("pagenr"), ItemRole::Page);
    model.setData(index, pad.value("id"), ItemRole::Id);
    model.setData(index, pad.value("color"), Qt::DecorationRole);
}

Record padOf(const VDJModel& model, int row, int column) { return model.getList().value(row).value(column); }

/// What the Live Buttons list sends for its row \a listRow: eleven fields, the last three null.
std::unique_ptr<QMimeData> fromList(const QString& listRow, const QString& title, const QString& page,
                                    const QString& id, const QColor& color = QColor(0x12, 0xab, 0x34))
{
    const QStringList fields{listRow, "0", title, page, title, "1", id, "1", QString(), QString(), QString()};
    return payload(stringBytes(fields), colorBytes(color));
}

bool drop(VDJModel& model, const QMimeData* data, int row, int column, Qt::DropAction action = Qt::CopyAction)
{
    return model.dropMimeData(data, action, -1, -1, model.index(row, column));
}

/// Drags one pad to another, as the view does.
bool dragAndDrop(VDJModel& model, int fromRow, int fromColumn, int row, int column)
{
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(fromRow, fromColumn)}));
    return drop(model, data.get(), row, column);
}

/// Notes the signals of a model in the order in which they come.
void watch(const VDJModel& model, QObject* owner, QStringList* seen)
{
    QObject::connect(&model, &VDJModel::ItemDroped, owner, [seen](int index, int to) {
        seen->append(QString("ItemDroped %1 %2").arg(index).arg(to));
    });
    QObject::connect(&model, &VDJModel::ItemMoved, owner,
                     [seen](int to) { seen->append(QString("ItemMoved %1").arg(to)); });
    QObject::connect(&model, &VDJModel::ItemToUncheck, owner,
                     [seen](int to) { seen->append(QString("ItemToUncheck %1").arg(to)); });
}

} // namespace

#define COMPARE_GRIDS(actual, expected) QCOMPARE(asText(actual), asText(expected))

class VDJModelTest : public GridContractOf<VDJModel>
{
    Q_OBJECT

protected:
    int columns() const override { return 2; }
    int payloadFields() const override { return 7; }
    QVector<ContractRole> roles() const override
    {
        return {{0, "name", ContractRole::Name},
                {2, "name", ContractRole::Name},
                {256, "pagenr"},
                {257, "dspname"},
                {259, "id"},
                {1, "color", ContractRole::Color}};
    }

private slots:
    void letsNoPadThatAShortRowLacksBeDraggedOrDroppedOn();
    void setsUpEightBanksOfSixteenEmptyPads();
    void setsUpTheSameGridAgain();
    void namesAPadByItsRowWhenTheTextIsEmptied_data();
    void namesAPadByItsRowWhenTheTextIsEmptied();
    void letsAnEmptyPadTakeDropsOnly();
    void letsAnOccupiedPadBeDraggedAndEdited();
    void allowsNothingWithoutAPad();
    void namesTheTwoColumnsOnly();
    void showsTheLiveButtonInTheToolTip_data();
    void showsTheLiveButtonInTheToolTip();
    void showsNoToolTipOnAnEmptyPad();
    void addsEmptyRows();
    void removesTheRowsThatExist_data();
    void removesTheRowsThatExist();
    void dragsAPadAsTheseBytes();
    void dragsAPadWithoutValuesAsTheseBytes();
    void dragsTheValidPadsInOrder();
    void placesALiveButtonOnAnEmptyPad_data();
    void placesALiveButtonOnAnEmptyPad();
    void placesALiveButtonFromAListLongerThanTheGrid();
    void namesAnUntitledLiveButtonByItsRow();
    void replacesALiveButtonAndReportsBoth_data();
    void replacesALiveButtonAndReportsBoth();
    void reportsTheReplacedLiveButtonWithTheSameId();
    void reportsNoReplacementOfAPadWithoutPage_data();
    void reportsNoReplacementOfAPadWithoutPage();
    void treatsAnUnknownOriginAsTheListButReportsNoReplacement_data();
    void treatsAnUnknownOriginAsTheListButReportsNoReplacement();
    void movesALiveButtonOntoAnEmptyPad_data();
    void movesALiveButtonOntoAnEmptyPad();
    void swapsTwoLiveButtons_data();
    void swapsTwoLiveButtons();
    void keepsAPadDroppedOnItself_data();
    void keepsAPadDroppedOnItself();
    void usesTheFirstItemOnly();
    void handsThePadsToTheWriter();
    void isSetUpAndUsedByTheRulesOfItemModels();
};

void VDJModelTest::letsNoPadThatAShortRowLacksBeDraggedOrDroppedOn()
{
    const VDJModel model({{{{"name", "A"}, {"pagenr", "1"}}}, {}}, nullptr);
    for (const QModelIndex& missing : {model.index(0, 1), model.index(1, 0), model.index(1, 1)})
        QCOMPARE(model.flags(missing), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
}

void VDJModelTest::setsUpEightBanksOfSixteenEmptyPads()
{
    VDJModel model;
    fillpads(&model);
    QCOMPARE(model.rowCount(), 64);
    QCOMPARE(model.columnCount(), 2);
    for (int row = 0; row < 64; ++row) {
        const QStringList names = namesInRow(row % 8);
        QCOMPARE(model.index(row, 0).data().toString(), names.at(0));
        QCOMPARE(model.index(row, 1).data().toString(), names.at(1));
        COMPARE_GRIDS(Grid({model.getList().at(row)}),
                      Grid({{emptyPad(names.at(0)), emptyPad(names.at(1))}}));
    }
}

void VDJModelTest::setsUpTheSameGridAgain()
{
    VDJModel model;
    fillpads(&model);
    const Grid once = model.getList();
    place(model, 0, 0, usedPad("STROBE", "Strobe", "1", "0", "#ff0000"));
    place(model, 63, 1, usedPad("FOG", "Fog", "2", "5", "#00ff00"));
    fillpads(&model);
    COMPARE_GRIDS(model.getList(), once);

    VDJModel odd({{emptyPad("A"), emptyPad("B")}, {}}, nullptr);
    fillpads(&odd);
    COMPARE_GRIDS(odd.getList(), once);
}

void VDJModelTest::namesAPadByItsRowWhenTheTextIsEmptied_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("name");

    QTest::newRow("first pad") << 0 << 0 << "PAD 1";
    QTest::newRow("second bank") << 8 << 0 << "PAD 9";
    QTest::newRow("second column") << 2 << 1 << "PAD 3";
    QTest::newRow("last pad") << 63 << 1 << "PAD 64";
}

void VDJModelTest::namesAPadByItsRowWhenTheTextIsEmptied()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, name);
    const QVector<QPair<int, QVariant>> empties{
        {Qt::EditRole, ""}, {Qt::DisplayRole, ""}, {Qt::EditRole, QVariant()}};
    for (const auto& empty : empties) {
        VDJModel model;
        fillpads(&model);
        place(model, row, column, usedPad("FOG", "Fog", "2", "5", "#00ff00"));
        Grid expected = model.getList();
        expected[row][column]["name"] = name;
        QVERIFY(model.setData(model.index(row, column), empty.second, empty.first));
        COMPARE_GRIDS(model.getList(), expected);
    }
}

void VDJModelTest::letsAnEmptyPadTakeDropsOnly()
{
    VDJModel model;
    fillpads(&model);
    const Qt::ItemFlags expected = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDropEnabled;
    QCOMPARE(model.flags(model.index(0, 0)), expected);
    QCOMPARE(model.flags(model.index(63, 1)), expected);
    // The page number tells, whatever the id.
    model.setData(model.index(5, 0), "7", ItemRole::Id);
    QCOMPARE(model.flags(model.index(5, 0)), expected);
}

void VDJModelTest::letsAnOccupiedPadBeDraggedAndEdited()
{
    VDJModel model;
    fillpads(&model);
    const Qt::ItemFlags expected = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable |
                                   Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;
    place(model, 3, 1, usedPad("FOG", "Fog", "2", "5", "#00ff00"));
    QCOMPARE(model.flags(model.index(3, 1)), expected);
    // Only "0" is the page of an empty pad.
    for (const char* page : {"1", "12", "", "00", " 0", "-1", "x"}) {
        model.setData(model.index(5, 0), page, ItemRole::Page);
        QCOMPARE(model.flags(model.index(5, 0)), expected);
    }
}

void VDJModelTest::allowsNothingWithoutAPad()
{
    VDJModel model;
    fillpads(&model);
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags(Qt::NoItemFlags));
    const QModelIndex gone = model.index(63, 1);
    model.removeRows(0, 64);
    QVERIFY(!model.flags(gone).testFlag(Qt::ItemIsDropEnabled));
    QVERIFY(!model.flags(gone).testFlag(Qt::ItemIsDragEnabled));
}

void VDJModelTest::namesTheTwoColumnsOnly()
{
    VDJModel model;
    fillpads(&model);
    QCOMPARE(model.headerData(0, Qt::Horizontal), QVariant(QString("Color")));
    QCOMPARE(model.headerData(1, Qt::Horizontal), QVariant(QString("Name")));
    for (const int section : {-1, 2, 3, INT_MAX, INT_MIN})
        QVERIFY(!model.headerData(section, Qt::Horizontal).isValid());
    for (const int section : {-1, 0, 1, 2, 63, 64})
        QVERIFY(!model.headerData(section, Qt::Vertical).isValid());
    for (const int role : {1, 2, 3, 8, 13, 256})
        QVERIFY(!model.headerData(0, Qt::Horizontal, role).isValid());
}

void VDJModelTest::showsTheLiveButtonInTheToolTip_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("first");

    QTest::newRow("first pad") << 0 << 0 << "PAD 1 ";
    QTest::newRow("second column") << 0 << 1 << "PAD 1 ";
    QTest::newRow("second bank") << 9 << 0 << "PAD 10 ";
    QTest::newRow("last pad") << 63 << 1 << "PAD 64 ";
}

void VDJModelTest::showsTheLiveButtonInTheToolTip()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, first);
    VDJModel model;
    fillpads(&model);
    place(model, row, column, usedPad("FOG %1", "Fog %2 <b>", "2", "0", "#00ff00"));
    QCOMPARE(model.index(row, column).data(Qt::ToolTipRole).toString(),
             first + "\nLive Button: Fog %2 <b> \nDisplay Text: FOG %1\n\n"
                     "Double-click to edit Text\nRight-click to Remove");
}

void VDJModelTest::showsNoToolTipOnAnEmptyPad()
{
    VDJModel model;
    fillpads(&model);
    QVERIFY(!model.index(0, 0).data(Qt::ToolTipRole).isValid());
    QVERIFY(!model.index(63, 1).data(Qt::ToolTipRole).isValid());
    QVERIFY(!model.setData(model.index(0, 0), "a tip", Qt::ToolTipRole));
    // The id tells, whatever the page number.
    model.setData(model.index(0, 0), "3", ItemRole::Page);
    QVERIFY(!model.index(0, 0).data(Qt::ToolTipRole).isValid());
    model.setData(model.index(0, 0), "0", ItemRole::Page);
    model.setData(model.index(0, 0), "12", ItemRole::Id);
    QVERIFY(model.index(0, 0).data(Qt::ToolTipRole).isValid());
}

void VDJModelTest::addsEmptyRows()
{
    VDJModel model;
    QVERIFY(model.insertRows(0, 2));
    COMPARE_GRIDS(model.getList(), Grid({{emptyPad("1"), emptyPad("1")}, {emptyPad("1"), emptyPad("1")}}));
}

void VDJModelTest::removesTheRowsThatExist_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("left");

    QTest::newRow("first") << 0 << 1 << "1 2 3 4 5";
    QTest::newRow("inside") << 2 << 3 << "0 1 5";
    QTest::newRow("last") << 5 << 1 << "0 1 2 3 4";
    QTest::newRow("all") << 0 << 6 << "";
    QTest::newRow("more than all") << 0 << 1000 << "";
    QTest::newRow("beyond the end") << 4 << 3 << "0 1 2 3";
    QTest::newRow("far beyond the end") << 4 << INT_MAX << "0 1 2 3";
}

void VDJModelTest::removesTheRowsThatExist()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(QString, left);
    const auto model = numbered(6);
    QVERIFY(model->removeRows(row, count));
    QCOMPARE(rowNames(*model), left);
}

void VDJModelTest::dragsAPadAsTheseBytes()
{
    VDJModel model;
    fillpads(&model);
    place(model, 12, 1, usedPad("FOG", QString::fromUtf8("Fög"), "4", "17", "#FF8001"));

    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(12, 1)}));
    QCOMPARE(data->formats(), QStringList({listFormat(), colorFormat()}));
    QCOMPARE(model.mimeTypes(), QStringList({listFormat(), colorFormat()}));
    const QByteArray fields = "00000004"
                              "00310032" // row 12
                              "00000002"
                              "0031" // column 1
                              "00000006"
                              "0046004f0047" // FOG, the text on the pad
                              "00000002"
                              "0034" // page 4
                              "00000006"
                              "004600f60067" // the Live Button's name
                              "00000002"
                              "0030" // from a pad
                              "00000004"
                              "00310037"; // id 17
    QCOMPARE(data->data(listFormat()).toHex(), fields);
    const QByteArray color = "01"   // red, green and blue
                             "ffff" // opaque
                             "ffff"
                             "8080"
                             "0101"
                             "0000";
    QCOMPARE(data->data(colorFormat()).toHex(), color);
}

void VDJModelTest::dragsAPadWithoutValuesAsTheseBytes()
{
    const VDJModel model({{{{"dspname", ""}, {"id", QString()}}, {}}}, nullptr);
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    const QByteArray fields = "00000002"
                              "0030" // row 0
                              "00000002"
                              "0030" // column 0
                              "ffffffff"
                              "ffffffff"
                              "00000000" // an empty text is told from a missing one
                              "00000002"
                              "0030" // from a pad
                              "ffffffff";
    QCOMPARE(data->data(listFormat()).toHex(), fields);
    // No colour at all.
    QCOMPARE(data->data(colorFormat()).toHex(), QByteArray("00ffff0000000000000000"));
}

void VDJModelTest::dragsTheValidPadsInOrder()
{
    VDJModel model;
    fillpads(&model);
    place(model, 2, 0, usedPad("A", "a", "1", "3", "#ff0000"));
    place(model, 1, 1, usedPad("B", "b", "2", "4", "#00ff00"));
    const std::unique_ptr<QMimeData> data(
        model.mimeData({model.index(2, 0), QModelIndex(), model.index(-1, 0), model.index(1, 1)}));
    QCOMPARE(data->data(listFormat()), stringBytes({"2", "0", "A", "1", "a", "0", "3", //
                                                    "1", "1", "B", "2", "b", "0", "4"}));
    QCOMPARE(data->data(colorFormat()), colorBytes(QColor(255, 0, 0)) + colorBytes(QColor(0, 255, 0)));

    const std::unique_ptr<QMimeData> nothing(model.mimeData({}));
    QCOMPARE(nothing->formats(), QStringList({listFormat(), colorFormat()}));
    QCOMPARE(nothing->data(listFormat()), QByteArray());
    QCOMPARE(nothing->data(colorFormat()), QByteArray());
}

void VDJModelTest::placesALiveButtonOnAnEmptyPad_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("first pad") << 0 << 0;
    QTest::newRow("second column") << 0 << 1;
    QTest::newRow("another bank") << 20 << 0;
    QTest::newRow("last pad") << 63 << 1;
}

void VDJModelTest::placesALiveButtonOnAnEmptyPad()
{
    QFETCH(int, row);
    QFETCH(int, column);
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction}) {
        VDJModel model;
        fillpads(&model);
        Grid expected = model.getList();
        expected[row][column] = usedPad("Strobe", "Strobe", "3", "9", "#12ab34");
        QStringList seen;
        watch(model, this, &seen);
        QVERIFY(drop(model, fromList("7", "Strobe", "3", "9").get(), row, column, action));
        COMPARE_GRIDS(model.getList(), expected);
        QCOMPARE(seen, QStringList({QString("ItemDroped 7 %1").arg(row)}));
    }
}

void VDJModelTest::placesALiveButtonFromAListLongerThanTheGrid()
{
    VDJModel model;
    fillpads(&model);
    Grid expected = model.getList();
    expected[1][0] = usedPad("Strobe", "Strobe", "30", "199", "#12ab34");
    QStringList seen;
    watch(model, this, &seen);
    QVERIFY(drop(model, fromList("199", "Strobe", "30", "199").get(), 1, 0));
    COMPARE_GRIDS(model.getList(), expected);
    QCOMPARE(seen, QStringList({"ItemDroped 199 1"}));
}

void VDJModelTest::namesAnUntitledLiveButtonByItsRow()
{
    VDJModel model;
    fillpads(&model);
    QVERIFY(drop(model, fromList("7", "", "3", "9").get(), 20, 1));
    QCOMPARE(asText({{padOf(model, 20, 1)}}), asText({{usedPad("PAD 21", "", "3", "9", "#12ab34")}}));
}

void VDJModelTest::replacesALiveButtonAndReportsBoth_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("first column") << 3 << 0;
    QTest::newRow("second column") << 34 << 1;
    // The pad that the source row and column would name in the grid
    QTest::newRow("same row as in the list") << 7 << 0;
}

void VDJModelTest::replacesALiveButtonAndReportsBoth()
{
    QFETCH(int, row);
    QFETCH(int, column);
    VDJModel model;
    fillpads(&model);
    place(model, row, column, usedPad("FOG", "Fog", "1", "5", "#0000ff"));
    Grid expected = model.getList();
    expected[row][column] = usedPad("Strobe", "Strobe", "3", "9", "#12ab34");
    QStringList seen;
    watch(model, this, &seen);
    // Both are told once the new Live Button is on the pad.
    QStringList textsWhenTold;
    const auto note = [&] { textsWhenTold.append(padOf(model, row, column).value("name")); };
    connect(&model, &VDJModel::ItemDroped, this, note);
    connect(&model, &VDJModel::ItemToUncheck, this, note);

    QVERIFY(drop(model, fromList("7", "Strobe", "3", "9").get(), row, column));
    COMPARE_GRIDS(model.getList(), expected);
    QCOMPARE(seen, QStringList({QString("ItemDroped 7 %1").arg(row), "ItemToUncheck 5"}));
    QCOMPARE(textsWhenTold, QStringList({"Strobe", "Strobe"}));
}

void VDJModelTest::reportsTheReplacedLiveButtonWithTheSameId()
{
    VDJModel model;
    fillpads(&model);
    place(model, 3, 0, usedPad("STROBE!", "Strobe", "3", "9", "#0000ff"));
    QStringList seen;
    watch(model, this, &seen);
    QVERIFY(drop(model, fromList("7", "Strobe", "3", "9").get(), 3, 0));
    QCOMPARE(asText({{padOf(model, 3, 0)}}), asText({{usedPad("Strobe", "Strobe", "3", "9", "#12ab34")}}));
    QCOMPARE(seen, QStringList({"ItemDroped 7 3", "ItemToUncheck 9"}));
}

void VDJModelTest::reportsNoReplacementOfAPadWithoutPage_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("zero") << "0";
    QTest::newRow("negative") << "-1";
    QTest::newRow("nothing") << "";
    QTest::newRow("not a number") << "x";
}

void VDJModelTest::reportsNoReplacementOfAPadWithoutPage()
{
    QFETCH(QString, page);
    VDJModel model;
    fillpads(&model);
    place(model, 3, 0, usedPad("FOG", "Fog", page, "5", "#0000ff"));
    QStringList seen;
    watch(model, this, &seen);
    QVERIFY(drop(model, fromList("7", "Strobe", "3", "9").get(), 3, 0));
    QCOMPARE(seen, QStringList({"ItemDroped 7 3"}));
}

void VDJModelTest::treatsAnUnknownOriginAsTheListButReportsNoReplacement_data()
{
    QTest::addColumn<QString>("origin");
    QTest::newRow("two") << "2";
    QTest::newRow("nothing") << QString();
    QTest::newRow("empty") << "";
    QTest::newRow("text") << "list";
    QTest::newRow("padded zero") << "00";
    QTest::newRow("padded one") << " 1";
}

void VDJModelTest::treatsAnUnknownOriginAsTheListButReportsNoReplacement()
{
    QFETCH(QString, origin);
    VDJModel model;
    fillpads(&model);
    place(model, 2, 0, usedPad("FOG", "Fog", "1", "5", "#0000ff"));
    place(model, 3, 0, usedPad("RAIN", "Rain", "1", "6", "#00ffff"));
    Grid expected = model.getList();
    expected[3][0] = usedPad("Strobe", "Strobe live", "3", "9", "#ff0000");
    QStringList seen;
    watch(model, this, &seen);
    const QStringList fields{"2", "0", "Strobe", "3", "Strobe live", origin, "9"};
    QVERIFY(drop(model, payload(stringBytes(fields), colorBytes(Qt::red)).get(), 3, 0));
    COMPARE_GRIDS(model.getList(), expected);
    QCOMPARE(seen, QStringList({"ItemDroped 2 3"}));
}

void VDJModelTest::movesALiveButtonOntoAnEmptyPad_data()
{
    QTest::addColumn<int>("fromRow");
    QTest::addColumn<int>("fromColumn");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("vacated");

    QTest::newRow("within column 1") << 0 << 0 << 5 << 0 << "PAD 1";
    QTest::newRow("into the second column") << 7 << 0 << 7 << 1 << "PAD 8";
    // The number of a vacated pad follows its row alone, so it is not the one that the pad had before.
    QTest::newRow("out of the second column") << 2 << 1 << 2 << 0 << "PAD 3";
    QTest::newRow("within column 2") << 7 << 1 << 0 << 1 << "PAD 8";
    QTest::newRow("out of a later bank") << 8 << 0 << 0 << 0 << "PAD 1";
    QTest::newRow("out of the last pad") << 63 << 1 << 26 << 1 << "PAD 8";
    QTest::newRow("out of the fourth bank") << 26 << 1 << 63 << 0 << "PAD 3";
}

void VDJModelTest::movesALiveButtonOntoAnEmptyPad()
{
    QFETCH(int, fromRow);
    QFETCH(int, fromColumn);
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, vacated);
    VDJModel model;
    fillpads(&model);
    place(model, fromRow, fromColumn, usedPad("FOG", "Fog", "2", "5", "#FF8000"));
    Grid expected = model.getList();
    expected[row][column] = usedPad("FOG", "Fog", "2", "5", "#ff8000");
    expected[fromRow][fromColumn] = emptyPad(vacated);
    QStringList seen;
    watch(model, this, &seen);

    QVERIFY(dragAndDrop(model, fromRow, fromColumn, row, column));
    COMPARE_GRIDS(model.getList(), expected);
    QCOMPARE(seen, QStringList({QString("ItemMoved %1").arg(row)}));
}

void VDJModelTest::swapsTwoLiveButtons_data()
{
    QTest::addColumn<int>("fromRow");
    QTest::addColumn<int>("fromColumn");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");

    QTest::newRow("within column 1") << 0 << 0 << 5 << 0;
    QTest::newRow("across the row") << 4 << 0 << 4 << 1;
    QTest::newRow("within column 2") << 60 << 1 << 0 << 1;
    QTest::newRow("out of the second column") << 63 << 1 << 0 << 0;
}

void VDJModelTest::swapsTwoLiveButtons()
{
    QFETCH(int, fromRow);
    QFETCH(int, fromColumn);
    QFETCH(int, row);
    QFETCH(int, column);
    VDJModel model;
    fillpads(&model);
    place(model, fromRow, fromColumn, usedPad("FOG", "Fog", "2", "5", "#FF8000"));
    place(model, row, column, usedPad("RAIN", "Rain", "11", "0", "#0000FF"));
    Grid expected = model.getList();
    expected[row][column] = usedPad("FOG", "Fog", "2", "5", "#ff8000");
    expected[fromRow][fromColumn] = usedPad("RAIN", "Rain", "11", "0", "#0000ff");
    QStringList seen;
    watch(model, this, &seen);

    QVERIFY(dragAndDrop(model, fromRow, fromColumn, row, column));
    COMPARE_GRIDS(model.getList(), expected);
    QCOMPARE(seen, QStringList());
    QVERIFY(dragAndDrop(model, row, column, fromRow, fromColumn));
    expected[fromRow][fromColumn].swap(expected[row][column]);
    COMPARE_GRIDS(model.getList(), expected);
}

void VDJModelTest::keepsAPadDroppedOnItself_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("first column") << 10 << 0;
    QTest::newRow("second column") << 10 << 1;
}

void VDJModelTest::keepsAPadDroppedOnItself()
{
    QFETCH(int, row);
    QFETCH(int, column);
    VDJModel model;
    fillpads(&model);
    place(model, row, column, usedPad("FOG", "Fog", "2", "5", "#ff8000"));
    const Grid before = model.getList();
    QStringList seen;
    watch(model, this, &seen);
    QVERIFY(dragAndDrop(model, row, column, row, column));
    COMPARE_GRIDS(model.getList(), before);
    QCOMPARE(seen, QStringList());
}

void VDJModelTest::usesTheFirstItemOnly()
{
    VDJModel model;
    fillpads(&model);
    place(model, 2, 0, usedPad("A", "a", "1", "3", "#ff0000"));
    place(model, 1, 1, usedPad("B", "b", "2", "4", "#00ff00"));
    Grid expected = model.getList();
    expected[40][0] = usedPad("A", "a", "1", "3", "#ff0000");
    expected[2][0] = emptyPad("PAD 3");
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(2, 0), model.index(1, 1)}));
    QVERIFY(drop(model, data.get(), 40, 0));
    COMPARE_GRIDS(model.getList(), expected);
}

void VDJModelTest::handsThePadsToTheWriter()
{
    VDJModel model;
    fillpads(&model);
    place(model, 0, 0, usedPad("STROBE", "Strobe", "1", "0", "#FF8000"));
    place(model, 63, 1, usedPad("FOG", "Fog 'n' Rain", "12", "7", "green"));
    const QVector<QVector<PadsPagePad>> pads = padspagepads(model);
    QCOMPARE(pads.size(), 64);
    for (int row = 0; row < 64; ++row) {
        QCOMPARE(pads.at(row).size(), 2);
        for (int column = 0; column < 2; ++column) {
            const PadsPagePad& pad = pads.at(row).at(column);
            const QStringList found{QString::number(pad.pageNr), pad.text, pad.color, pad.button};
            const QString name = namesInRow(row % 8).at(column);
            QStringList expected{"0", name, "#000000", name};
            if (row == 0 && column == 0)
                expected = QStringList{"1", "STROBE", "#ff8000", "Strobe"};
            if (row == 63 && column == 1)
                expected = QStringList{"12", "FOG", "#008000", "Fog 'n' Rain"};
            QCOMPARE(found, expected);
        }
    }

    const VDJModel ragged({{usedPad("A", "a", "x", "3", "no colour")}, {}}, nullptr);
    const QVector<QVector<PadsPagePad>> few = padspagepads(ragged);
    QCOMPARE(few.size(), 2);
    QCOMPARE(few.at(0).at(0).pageNr, 0);
    QCOMPARE(few.at(0).at(0).color, QString("#000000"));
    QCOMPARE(few.at(0).value(1).pageNr, 0);
    QCOMPARE(few.at(1).value(0).pageNr, 0);
    QVERIFY(padspagepads(VDJModel()).isEmpty());
}

void VDJModelTest::isSetUpAndUsedByTheRulesOfItemModels()
{
    VDJModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (int round = 0; round < 2; ++round) {
        fillpads(&model);
        QCOMPARE(model.rowCount(), 64);
        place(model, 2, 1, usedPad("FOG", "Fog", "2", "5", "#ff8000"));
        QVERIFY(dragAndDrop(model, 2, 1, 3, 0));
        QVERIFY(drop(model, fromList("7", "Strobe", "3", "9").get(), 3, 0));
        QVERIFY(model.removeRows(10, 100));
        QCOMPARE(model.rowCount(), 10);
    }
}

QTEST_GUILESS_MAIN(VDJModelTest)
#include "tst_vdjmodel.moc"
