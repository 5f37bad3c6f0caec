#include "controller.h"
#include "itemroles.h"
#include "modelcontract.h"
#include "testpayload.h"

#include <QApplication>
#include <QColor>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QImage>
#include <QMimeData>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

#include <climits>
#include <memory>

using namespace controller;
using namespace show;

namespace {

using Cells = RecordRows;

/// A device with four buttons on top, none at the left, eight at the bottom and the right.
Record device() { return {{"top", "4"}, {"left", "0"}, {"bottom", "8"}, {"right", "8"}}; }

/// Puts a Live Button into a cell.
void place(Controller& model, int row, int col, const QString& name, const QString& id, const QString& color)
{
    const QModelIndex cell = model.index(row, col);
    model.setData(cell, name, Qt::EditRole);
    model.setData(cell, name, ItemRole::DspName);
    model.setData(cell, "1", ItemRole::Page);
    model.setData(cell, id, ItemRole::Id);
    model.setData(cell, "1", ItemRole::Avail);
    model.setData(cell, color, Qt::DecorationRole);
}

Record cellOf(const Controller& model, int row, int col) { return model.getList().at(row).at(col); }

/// What the Live Buttons list sends for its row \a listRow.
std::unique_ptr<QMimeData> fromList(const QString& listRow, const QString& name, const QString& id)
{
    const QStringList fields{listRow, "0", name,      "3",       name + " live", "1",
                             id,      "1", QString(), QString(), QString()};
    return payload(stringBytes(fields), colorBytes(QColor(0x12, 0xab, 0x34)));
}

/// The fields of a pad of the grid at \a row and \a col, complete and sound.
QStringList padFields(const QString& row, const QString& col)
{
    return {row, col, "Fog", "1", "Fog", "0", "5", "1", "red", "green", "1"};
}

bool drop(Controller& model, const QMimeData* data, int row, int col, Qt::DropAction action = Qt::CopyAction)
{
    return model.dropMimeData(data, action, -1, -1, model.index(row, col));
}

/// Drags the cell at one place to another, as the view does.
bool dragAndDrop(Controller& model, int fromRow, int fromCol, int row, int col)
{
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(fromRow, fromCol)}));
    return drop(model, data.get(), row, col);
}

/// Notes the signals of a model in the order in which they come.
void watch(const Controller& model, QObject* owner, QStringList* seen)
{
    QObject::connect(&model, &Controller::ItemDroped, owner, [seen](int listRow, int row, int col) {
        seen->append(QString("dropped %1 on %2,%3").arg(listRow).arg(row).arg(col));
    });
    QObject::connect(&model, &Controller::ItemToUncheck, owner,
                     [seen](int id) { seen->append(QString("uncheck %1").arg(id)); });
}

/// The tool tip with every image replaced by "*"; the images' base64 texts go to \a images.
QString toolTip(const Controller& model, int row, int col, QStringList* images = nullptr)
{
    QString text = model.index(row, col).data(Qt::ToolTipRole).toString();
    static const QRegularExpression image("<img src='data:image/png;base64, ([^']*)'>");
    auto found = image.globalMatch(text);
    while (images && found.hasNext())
        images->append(found.next().captured(1));
    return text.replace(image, "*");
}

/// Whether the base64 text is a PNG of 10 by 10 pixels, all of them of the colour.
bool isSwatch(const QString& base64, const QColor& color)
{
    const QByteArray png = QByteArray::fromBase64(base64.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    const QImage image = QImage::fromData(png, "PNG");
    if (image.size() != QSize(10, 10) || image.format() != QImage::Format_ARGB32)
        return false;
    for (int y = 0; y < 10; ++y) {
        for (int x = 0; x < 10; ++x) {
            if (image.pixel(x, y) != color.rgba())
                return false;
        }
    }
    return true;
}

int messageCount = 0;

void countMessage(QtMsgType, const QMessageLogContext&, const QString&) { ++messageCount; }

/// Shows a model as the main window does and notes the actions that a drag offers instead of starting it.
class GridView : public QTableView
{
public:
    explicit GridView(Controller* model)
    {
        setModel(model);
        horizontalHeader()->hide();
        verticalHeader()->hide();
        setSelectionMode(QAbstractItemView::SingleSelection);
        setDragEnabled(true);
        setAcceptDrops(true);
        setDropIndicatorShown(true);
        setDefaultDropAction(Qt::CopyAction);
        resize(1400, 500);
        show();
    }

    QPoint middle(int row, int col) const { return visualRect(model()->index(row, col)).center(); }

    /// Whether the view lets the payload be dropped in the middle of the cell; if so, it is dropped.
    bool offer(const QMimeData* dragged, int row, int col)
    {
        const QPoint where = middle(row, col);
        QDragEnterEvent enter(where, Qt::CopyAction, dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport(), &enter);
        QDragMoveEvent move(where, Qt::CopyAction, dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport(), &move);
        QDropEvent release(where, Qt::CopyAction, dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport(), &release);
        return move.isAccepted();
    }

    QVector<Qt::DropActions> offeredActions;

protected:
    void startDrag(Qt::DropActions actions) override { offeredActions.append(actions); }
};

} // namespace

class ControllerTest : public GridContractOf<Controller>
{
    Q_OBJECT

protected:
    int columns() const override { return 12; }
    int payloadFields() const override { return 11; }
    QVector<ContractRole> roles() const override
    {
        return {{0, "name"},
                {2, "name"},
                {256, "pagenr"},
                {257, "dspname"},
                {259, "id"},
                {260, "avail"},
                {261, "coloroff"},
                {262, "coloron"},
                {263, "blink"},
                {1, "color", ContractRole::Color},
                {9, "textcolor", ContractRole::Color}};
    }

private slots:
    void readsColorTextsThatAreNoColorsWithoutWarnings();
    void allowsWhatTheCellIsFitFor_data();
    void allowsWhatTheCellIsFitFor();
    void allowsNothingWithoutACell();
    void namesTheFirstColumnOnly();
    void addsEmptyCells();
    void removesEveryOtherRow_data();
    void removesEveryOtherRow();
    void showsNoToolTipOnAPadWithoutLiveButtonOrUse();
    void showsTheLiveButtonInTheToolTip();
    void showsThePadsOwnColorsInTheToolTip();
    void labelsTheCornersInTheToolTip();
    void showsABlackSwatchForATextThatIsNoColor();
    void dragsACellAsTheseBytes();
    void dragsTheValidCellsInOrder();
    void offersCopyingOnlyToDragsEvenWithShift();
    void placesALiveButtonOnAnEmptyCell();
    void replacesALiveButtonAndReportsBoth();
    void reportsNoReplacementOfACellWithoutPage_data();
    void reportsNoReplacementOfACellWithoutPage();
    void reportsNoReplacementForAnUnknownOrigin();
    void movesALiveButtonOntoAnEmptyCell();
    void labelsAVacatedCellAsToolTipsDo();
    void swapsTwoLiveButtons();
    void keepsACellDroppedOnItself();
    void usesTheFirstItemOnly();
    void takesDropsInTheViewOnUsableCellsOnly();
};

void ControllerTest::readsColorTextsThatAreNoColorsWithoutWarnings()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 2, "Fog", "5", "no colour");
    model.setData(model.index(2, 2), "#12", Qt::ForegroundRole);
    model.setData(model.index(2, 2), "none", ItemRole::ColorOff);

    messageCount = 0;
    const QtMessageHandler previous = qInstallMessageHandler(countMessage);
    const QColor color = model.index(2, 2).data(Qt::DecorationRole).value<QColor>();
    const QColor textColor = model.index(2, 2).data(Qt::ForegroundRole).value<QColor>();
    const QString tip = toolTip(model, 2, 2);
    const bool moved = dragAndDrop(model, 2, 2, 3, 3);
    qInstallMessageHandler(previous);

    QVERIFY(!color.isValid());
    QVERIFY(!textColor.isValid());
    QVERIFY(!tip.isEmpty());
    QVERIFY(moved);
    QCOMPARE(messageCount, 0);
}

void ControllerTest::allowsWhatTheCellIsFitFor_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("avail");
    QTest::addColumn<Qt::ItemFlags>("flags");

    const Qt::ItemFlags none = Qt::NoItemFlags;
    const Qt::ItemFlags target = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDropEnabled;
    const Qt::ItemFlags full = target | Qt::ItemIsDragEnabled;
    const Qt::ItemFlags stranded = Qt::ItemIsSelectable;
    QTest::newRow("usable") << "0"
                            << "1" << target;
    QTest::newRow("out of use") << "0"
                                << "0" << none;
    QTest::newRow("usable, with Live Button") << "3"
                                              << "1" << full;
    QTest::newRow("out of use, with Live Button") << "3"
                                                  << "0" << stranded;
    QTest::newRow("usable unknown") << "0"
                                    << "" << none;
    QTest::newRow("usable no flag") << "0"
                                    << "yes" << none;
    QTest::newRow("page unknown") << ""
                                  << "1" << full;
    QTest::newRow("page written otherwise") << "00"
                                            << "1" << full;
    QTest::newRow("both unknown") << ""
                                  << "" << stranded;
}

void ControllerTest::allowsWhatTheCellIsFitFor()
{
    QFETCH(QString, page);
    QFETCH(QString, avail);
    QFETCH(Qt::ItemFlags, flags);
    Controller model;
    fillcells(&model, device());
    model.setData(model.index(5, 5), page, ItemRole::Page);
    model.setData(model.index(5, 5), avail, ItemRole::Avail);
    QCOMPARE(model.flags(model.index(5, 5)), flags);
}

void ControllerTest::allowsNothingWithoutACell()
{
    Controller model;
    fillcells(&model, device());
    const QModelIndex gone = model.index(11, 11);
    model.removeRows(0, 12);
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags(Qt::NoItemFlags));
    QCOMPARE(model.flags(gone), Qt::ItemFlags(Qt::NoItemFlags));
}

void ControllerTest::namesTheFirstColumnOnly()
{
    Controller model;
    fillcells(&model, device());
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::DisplayRole), QVariant(QString("Color")));
    for (const int section : {-1, 1, 2, 11, 12})
        QVERIFY(!model.headerData(section, Qt::Horizontal, Qt::DisplayRole).isValid());
    for (const int section : {-1, 0, 11, 12})
        QCOMPARE(model.headerData(section, Qt::Vertical, Qt::DisplayRole), QVariant(QString("")));
    QVERIFY(!model.headerData(0, Qt::Horizontal, Qt::EditRole).isValid());
    QVERIFY(!model.headerData(0, Qt::Vertical, Qt::ToolTipRole).isValid());
}

void ControllerTest::addsEmptyCells()
{
    const Record empty{
        {"name", ""},     {"dspname", ""}, {"id", "-1"},   {"avail", "1"},           {"color", "#000000"},
        {"coloroff", ""}, {"coloron", ""}, {"blink", "0"}, {"textcolor", "#ffffff"}, {"pagenr", "0"}};
    QList<Record> row;
    for (int col = 0; col < 12; ++col)
        row.append(empty);

    Controller model;
    QVERIFY(model.insertRows(0, 2));
    QCOMPARE(model.getList(), Cells({row, row}));
}

void ControllerTest::removesEveryOtherRow_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("last");
    QTest::addColumn<QString>("left");

    QTest::newRow("first") << 12 << 0 << 1 << 0 << "1 3 5 7 9 11";
    QTest::newRow("first two") << 12 << 0 << 2 << 1 << "3 7 11";
    QTest::newRow("first three") << 12 << 0 << 3 << 2 << "7";
    QTest::newRow("fourth") << 12 << 3 << 1 << 3 << "0 1 2 4 6 8 10";
    QTest::newRow("last") << 12 << 11 << 1 << 11 << "0 1 2 3 4 5 6 7 8 9 10";
    QTest::newRow("to the end") << 12 << 9 << 3 << 11 << "0 1 2 3 4 5 6 7 8";
    QTest::newRow("past the end") << 12 << 10 << 500 << 11 << "0 1 2 3 4 5 6 7 8 9";
    QTest::newRow("most") << 12 << 1 << INT_MAX << 11 << "0";
    QTest::newRow("twelve at most") << 28 << 0 << 1 << 0 << "1 3 5 7 9 11 13 15 17 19 21 23 24 25 26 27";
}

void ControllerTest::removesEveryOtherRow()
{
    QFETCH(int, rows);
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(int, last);
    QFETCH(QString, left);
    const auto model = numbered(rows);
    QSignalSpy about(model.get(), &QAbstractItemModel::rowsAboutToBeRemoved);
    QSignalSpy done(model.get(), &QAbstractItemModel::rowsRemoved);
    QVERIFY(model->removeRows(row, count));
    QCOMPARE(rowNames(*model), left);
    const QVariantList announced{QModelIndex(), row, last};
    QCOMPARE(about.count(), 1);
    QCOMPARE(about.at(0), announced);
    QCOMPARE(done.count(), 1);
}

void ControllerTest::showsNoToolTipOnAPadWithoutLiveButtonOrUse()
{
    Controller model;
    fillcells(&model, device());
    QVERIFY(!model.index(2, 2).data(Qt::ToolTipRole).isValid());

    place(model, 2, 2, "Fog", "5", "#ff0000");
    QVERIFY(model.index(2, 2).data(Qt::ToolTipRole).isValid());
    model.setData(model.index(2, 2), "0", ItemRole::Avail);
    QVERIFY(!model.index(2, 2).data(Qt::ToolTipRole).isValid());
}

void ControllerTest::showsTheLiveButtonInTheToolTip()
{
    Controller model;
    fillcells(&model, device());
    place(model, 9, 9, "Fog", "5", "#ff0000");
    model.setData(model.index(9, 9), "Fog live", ItemRole::DspName);
    QCOMPARE(toolTip(model, 9, 9), QString("PAD 64<br>Live Button: Fog<br><br>Right-click to Remove"));

    model.setData(model.index(9, 9), "100 %1 %0", Qt::EditRole);
    model.setData(model.index(9, 9), "0", ItemRole::Blink);
    QCOMPARE(toolTip(model, 9, 9), QString("PAD 64<br>Live Button: 100 %1 %0<br><br>Right-click to Remove"));
}

void ControllerTest::showsThePadsOwnColorsInTheToolTip()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 11, "Fog", "5", "#ff0000");
    const QModelIndex cell = model.index(2, 11);

    model.setData(cell, "#FF0000", ItemRole::ColorOff);
    model.setData(cell, "1", ItemRole::Blink);
    QStringList images;
    QCOMPARE(toolTip(model, 2, 11, &images),
             QString("RIGHT 1<br>Live Button: Fog<br>Off Color : *<br>Blink : Yes"
                     "<br><br>Right-click to Remove"));
    QCOMPARE(images.size(), 1);
    QVERIFY(isSwatch(images.at(0), QColor(255, 0, 0)));

    model.setData(cell, "green", ItemRole::ColorOn);
    images.clear();
    QCOMPARE(toolTip(model, 2, 11, &images),
             QString("RIGHT 1<br>Live Button: Fog<br>Off Color : *<br>On Color : *<br>Blink : Yes"
                     "<br><br>Right-click to Remove"));
    QCOMPARE(images.size(), 2);
    QVERIFY(isSwatch(images.at(0), QColor(255, 0, 0)));
    QVERIFY(isSwatch(images.at(1), QColor(0, 128, 0)));

    model.setData(cell, "", ItemRole::ColorOff);
    model.setData(cell, "", ItemRole::Blink);
    QCOMPARE(toolTip(model, 2, 11),
             QString("RIGHT 1<br>Live Button: Fog<br>On Color : *<br><br>Right-click to Remove"));
}

void ControllerTest::labelsTheCornersInTheToolTip()
{
    Controller model;
    fillcells(&model, device());
    place(model, 11, 11, "Fog", "5", "#ff0000");
    QCOMPARE(toolTip(model, 11, 11), QString("BOTTOM 10<br>Live Button: Fog<br><br>Right-click to Remove"));
    place(model, 0, 0, "Fog", "5", "#ff0000");
    QCOMPARE(toolTip(model, 0, 0), QString("<br>Live Button: Fog<br><br>Right-click to Remove"));
}

void ControllerTest::showsABlackSwatchForATextThatIsNoColor()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 2, "Fog", "5", "#ff0000");
    model.setData(model.index(2, 2), "purplish", ItemRole::ColorOff);
    QStringList images;
    QCOMPARE(toolTip(model, 2, 2, &images),
             QString("PAD 1<br>Live Button: Fog<br>Off Color : *<br><br>Right-click to Remove"));
    QCOMPARE(images.size(), 1);
    QVERIFY(isSwatch(images.at(0), QColor(0, 0, 0)));
}

void ControllerTest::dragsACellAsTheseBytes()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 3, "Fog", "17", "#FF8000");
    const QModelIndex cell = model.index(2, 3);
    model.setData(cell, "4", ItemRole::Page);
    model.setData(cell, "FOG", ItemRole::DspName);
    model.setData(cell, "#ff0000", ItemRole::ColorOff);
    model.setData(cell, QString(), ItemRole::ColorOn);
    model.setData(cell, "", ItemRole::Blink);

    const std::unique_ptr<QMimeData> data(model.mimeData({cell}));
    QCOMPARE(data->formats(), QStringList({listFormat(), colorFormat()}));
    QCOMPARE(model.mimeTypes(), QStringList({listFormat(), colorFormat()}));
    const QByteArray fields = "00000002"
                              "0032" // row 2
                              "00000002"
                              "0033" // column 3
                              "00000006"
                              "0046006f0067" // Fog
                              "00000002"
                              "0034" // page 4
                              "00000006"
                              "0046004f0047" // FOG
                              "00000002"
                              "0030" // from a pad
                              "00000004"
                              "00310037" // id 17
                              "00000002"
                              "0031" // usable
                              "0000000e"
                              "0023006600660030003000300030" // off colour #ff0000
                              "ffffffff"                     // on colour, null
                              "00000000";                    // blink, empty
    QCOMPARE(data->data(listFormat()).toHex(), fields);
    QCOMPARE(data->data(colorFormat()).toHex(), QByteArray("01ffffffff808000000000"));
}

void ControllerTest::dragsTheValidCellsInOrder()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 3, "Fog", "5", "#ff0000");
    place(model, 4, 2, "Strobe", "6", "#0000ff");
    const std::unique_ptr<QMimeData> data(
        model.mimeData({model.index(4, 2), QModelIndex(), model.index(2, 3)}));
    const QStringList fields{"4", "2", "Strobe", "1", "Strobe", "0", "6", "1", "", "", "0",
                             "2", "3", "Fog",    "1", "Fog",    "0", "5", "1", "", "", "0"};
    QCOMPARE(data->data(listFormat()), stringBytes(fields));
    QCOMPARE(data->data(colorFormat()), colorBytes(QColor(0, 0, 255)) + colorBytes(QColor(255, 0, 0)));

    const std::unique_ptr<QMimeData> nothing(model.mimeData({}));
    QVERIFY(nothing->hasFormat(listFormat()));
    QVERIFY(nothing->hasFormat(colorFormat()));
    QCOMPARE(nothing->data(listFormat()), QByteArray());
}

void ControllerTest::offersCopyingOnlyToDragsEvenWithShift()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 2, "Fog", "5", "#ff0000");
    QCOMPARE(model.supportedDragActions(), Qt::DropActions(Qt::CopyAction));

    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
        GridView view(&model);
        const QPoint from = view.middle(2, 2);
        QTest::mousePress(view.viewport(), Qt::LeftButton, modifier, from);
        for (const int way : {30, 60, 90}) {
            const QPoint to = from + QPoint(way, way);
            QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton,
                             Qt::LeftButton, modifier);
            QApplication::sendEvent(view.viewport(), &move);
        }
        QVERIFY(!view.offeredActions.isEmpty());
        QCOMPARE(view.offeredActions.constFirst(), Qt::DropActions(Qt::CopyAction));
    }
}

void ControllerTest::placesALiveButtonOnAnEmptyCell()
{
    Controller model;
    fillcells(&model, device());
    const QModelIndex cell = model.index(3, 4);
    model.setData(cell, "#00ff00", ItemRole::ColorOff);
    model.setData(cell, "#0000ff", ItemRole::ColorOn);
    model.setData(cell, "1", ItemRole::Blink);
    QStringList seen;
    watch(model, this, &seen);
    Cells expected = model.getList();
    expected[3][4] = {{"name", "Fog"},      {"pagenr", "3"},         {"dspname", "Fog live"}, {"id", "5"},
                      {"avail", "1"},       {"coloroff", ""},        {"coloron", ""},         {"blink", ""},
                      {"color", "#12ab34"}, {"textcolor", "#ffffff"}};

    QVERIFY(drop(model, fromList("7", "Fog", "5").get(), 3, 4));
    QCOMPARE(model.getList(), expected);
    QVERIFY(cellOf(model, 3, 4).value("coloroff").isNull());
    QVERIFY(cellOf(model, 3, 4).value("coloron").isNull());
    QVERIFY(cellOf(model, 3, 4).value("blink").isNull());
    QCOMPARE(seen, QStringList("dropped 7 on 3,4"));
}

void ControllerTest::replacesALiveButtonAndReportsBoth()
{
    Controller model;
    fillcells(&model, device());
    place(model, 11, 2, "Strobe", "9", "#0000ff");
    QStringList seen;
    watch(model, this, &seen);
    QString shown;
    connect(&model, &Controller::ItemDroped, this,
            [&](int, int row, int col) { shown = model.index(row, col).data().toString(); });

    QVERIFY(drop(model, fromList("7", "Fog", "5").get(), 11, 2));
    QCOMPARE(seen, QStringList({"dropped 7 on 11,2", "uncheck 9"}));
    QCOMPARE(shown, QString("Fog")); // the cell is written before anyone hears of it
    QCOMPARE(cellOf(model, 11, 2).value("id"), QString("5"));

    // The same Live Button once more: it takes its own place, and its usage is asked for again.
    seen.clear();
    QVERIFY(drop(model, fromList("7", "Fog", "5").get(), 11, 2));
    QCOMPARE(seen, QStringList({"dropped 7 on 11,2", "uncheck 5"}));
}

void ControllerTest::reportsNoReplacementOfACellWithoutPage_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("zero") << "0";
    QTest::newRow("negative") << "-1";
    QTest::newRow("empty") << "";
    QTest::newRow("no number") << "one";
}

void ControllerTest::reportsNoReplacementOfACellWithoutPage()
{
    QFETCH(QString, page);
    Controller model;
    fillcells(&model, device());
    place(model, 3, 4, "Strobe", "9", "#0000ff");
    model.setData(model.index(3, 4), page, ItemRole::Page);
    QStringList seen;
    watch(model, this, &seen);
    QVERIFY(drop(model, fromList("7", "Fog", "5").get(), 3, 4));
    QCOMPARE(seen, QStringList("dropped 7 on 3,4"));
}

void ControllerTest::reportsNoReplacementForAnUnknownOrigin()
{
    Controller model;
    fillcells(&model, device());
    place(model, 3, 4, "Strobe", "9", "#0000ff");
    QStringList seen;
    watch(model, this, &seen);
    QStringList fields = padFields("7", "0");
    fields[5] = "2";
    QVERIFY(drop(model, payload(stringBytes(fields), colorBytes(Qt::red)).get(), 3, 4));
    QCOMPARE(seen, QStringList("dropped 7 on 3,4"));
    QCOMPARE(cellOf(model, 3, 4).value("name"), QString("Fog"));
}

void ControllerTest::movesALiveButtonOntoAnEmptyCell()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 2, "Fog", "5", "#ff8000");
    const QModelIndex source = model.index(2, 2);
    model.setData(source, "Fog live", ItemRole::DspName);
    model.setData(source, "red", ItemRole::ColorOff);
    model.setData(source, "green", ItemRole::ColorOn);
    model.setData(source, "1", ItemRole::Blink);
    model.setData(source, "blue", Qt::ForegroundRole);
    QStringList seen;
    watch(model, this, &seen);
    Cells expected = model.getList();
    expected[0][5] = {{"name", "Fog"},      {"pagenr", "1"},         {"dspname", "Fog live"}, {"id", "5"},
                      {"avail", "1"},       {"coloroff", "red"},     {"coloron", "green"},    {"blink", "1"},
                      {"color", "#ff8000"}, {"textcolor", "#ffffff"}};
    // The text colour stays where it is.
    expected[2][2] = {{"name", "PAD 1"},    {"pagenr", "0"},      {"dspname", "PAD 1"}, {"id", "-1"},
                      {"avail", "1"},       {"coloroff", ""},     {"coloron", ""},      {"blink", ""},
                      {"color", "#000000"}, {"textcolor", "blue"}};

    QVERIFY(dragAndDrop(model, 2, 2, 0, 5));
    QCOMPARE(model.getList(), expected);
    QCOMPARE(seen, QStringList());
}

void ControllerTest::labelsAVacatedCellAsToolTipsDo()
{
    Controller model;
    fillcells(&model, device());
    place(model, 11, 11, "Fog", "5", "#ff8000");
    QVERIFY(dragAndDrop(model, 11, 11, 2, 2));
    QCOMPARE(cellOf(model, 11, 11).value("name"), QString("BOTTOM 10"));
    QCOMPARE(cellOf(model, 11, 11).value("dspname"), QString("BOTTOM 10"));
    QCOMPARE(cellOf(model, 11, 11).value("avail"), QString("1"));
}

void ControllerTest::swapsTwoLiveButtons()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 2, "Fog", "5", "#ff8000");
    model.setData(model.index(2, 2), "red", ItemRole::ColorOff);
    model.setData(model.index(2, 2), "1", ItemRole::Blink);
    place(model, 9, 11, "Strobe", "9", "#0000FF");
    model.setData(model.index(9, 11), "Strobe live", ItemRole::DspName);
    model.setData(model.index(9, 11), "2", ItemRole::Page);
    model.setData(model.index(9, 11), "green", ItemRole::ColorOn);
    model.setData(model.index(9, 11), "green", Qt::ForegroundRole);
    QStringList seen;
    watch(model, this, &seen);
    Cells expected = model.getList();
    expected[9][11] = {{"name", "Fog"},      {"pagenr", "1"},       {"dspname", "Fog"}, {"id", "5"},
                       {"avail", "1"},       {"coloroff", "red"},   {"coloron", ""},    {"blink", "1"},
                       {"color", "#ff8000"}, {"textcolor", "green"}};
    expected[2][2] = {
        {"name", "Strobe"},   {"pagenr", "2"},         {"dspname", "Strobe live"}, {"id", "9"},
        {"avail", "1"},       {"coloroff", ""},        {"coloron", "green"},       {"blink", "0"},
        {"color", "#0000FF"}, {"textcolor", "#ffffff"}};

    QVERIFY(dragAndDrop(model, 2, 2, 9, 11));
    QCOMPARE(model.getList(), expected);
    QCOMPARE(seen, QStringList());
}

void ControllerTest::keepsACellDroppedOnItself()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 2, "Fog", "5", "#FF8000");
    model.setData(model.index(2, 2), "red", ItemRole::ColorOff);
    QStringList seen;
    watch(model, this, &seen);
    const Cells before = model.getList();
    QVERIFY(dragAndDrop(model, 2, 2, 2, 2));
    QCOMPARE(model.getList(), before);
    QCOMPARE(seen, QStringList());
}

void ControllerTest::usesTheFirstItemOnly()
{
    Controller model;
    fillcells(&model, device());
    place(model, 2, 2, "Fog", "5", "#ff8000");
    place(model, 3, 3, "Strobe", "9", "#0000ff");
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(2, 2), model.index(3, 3)}));
    QVERIFY(drop(model, data.get(), 5, 5));
    QCOMPARE(cellOf(model, 5, 5).value("name"), QString("Fog"));
    QCOMPARE(cellOf(model, 5, 5).value("color"), QString("#ff8000"));
    QCOMPARE(cellOf(model, 2, 2).value("name"), QString("PAD 1"));
    QCOMPARE(cellOf(model, 3, 3).value("name"), QString("Strobe"));
}

void ControllerTest::takesDropsInTheViewOnUsableCellsOnly()
{
    Controller model;
    fillcells(&model, device());
    GridView view(&model);
    const Cells before = model.getList();
    QStringList seen;
    watch(model, this, &seen);
    const auto data = fromList("7", "Fog", "5");

    QVERIFY(!view.offer(data.get(), 0, 6)); // the device has four buttons on top
    QVERIFY(!view.offer(data.get(), 5, 0));
    QVERIFY(!view.offer(data.get(), 1, 5));
    QVERIFY(!view.offer(data.get(), 11, 11));
    QCOMPARE(model.getList(), before);
    QCOMPARE(seen, QStringList());

    QVERIFY(view.offer(data.get(), 0, 5));
    QVERIFY(view.offer(data.get(), 9, 9));
    QCOMPARE(seen, QStringList({"dropped 7 on 0,5", "dropped 7 on 9,9"}));
    QCOMPARE(cellOf(model, 9, 9).value("name"), QString("Fog"));
}

QTEST_MAIN(ControllerTest)
#include "tst_controller.moc"
