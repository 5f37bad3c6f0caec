#include "cells.h"
#include "controller.h"
#include "itemroles.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QColor>
#include <QDataStream>
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

using Cells = QList<QList<Record>>;

constexpr const char* listFormat = "application/vnd.text.list";
constexpr const char* colorFormat = "application/x-color";

/// A device with four buttons on top, none at the left, eight at the bottom and the right.
Record device() { return {{"top", "4"}, {"left", "0"}, {"bottom", "8"}, {"right", "8"}}; }

/// Fills the model as the program does: twelve rows of labelled empty cells.
void fill(Controller& model)
{
    model.insertRows(0, 12);
    for (int row = 0; row < 12; ++row) {
        for (int col = 0; col < 12; ++col) {
            const QModelIndex cell = model.index(row, col);
            model.setData(cell, padtext(row, col), Qt::EditRole);
            model.setData(cell, padtext(row, col), ItemRole::DspName);
            model.setData(cell, padavail(row, col, device()), ItemRole::Avail);
        }
    }
}

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

/// A model whose rows are told apart by the name of their first cell, "0", "1" and so on.
std::unique_ptr<Controller> numbered(int rows)
{
    auto model = std::make_unique<Controller>();
    model->insertRows(0, rows);
    for (int row = 0; row < rows; ++row)
        model->setData(model->index(row, 0), QString::number(row), Qt::EditRole);
    return model;
}

QString rowNames(const Controller& model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.index(row, 0).data(Qt::EditRole).toString());
    return names.join(' ');
}

Record cellOf(const Controller& model, int row, int col) { return model.getList().at(row).at(col); }

QByteArray stringBytes(const QStringList& strings)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (const QString& string : strings)
        stream << string;
    return bytes;
}

QByteArray colorBytes(const QColor& color)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << color;
    return bytes;
}

std::unique_ptr<QMimeData> payload(const QByteArray& list, const QByteArray& colors)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(listFormat, list);
    data->setData(colorFormat, colors);
    return data;
}

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

class ControllerTest : public QObject
{
    Q_OBJECT

private slots:
    void startsWithoutRows();
    void startsWithACopyOfTheGrid();
    void keepsEveryTextUnderItsRole_data();
    void keepsEveryTextUnderItsRole();
    void showsColorsAsColors();
    void showsAWhiteBackgroundWhateverIsSet();
    void refusesOtherRoles_data();
    void refusesOtherRoles();
    void storesTheTextOfAnyValue();
    void changesCellsSilently();
    void readsAndTakesNothingOutsideTheGrid();
    void readsColorTextsThatAreNoColorsWithoutWarnings();
    void allowsWhatTheCellIsFitFor_data();
    void allowsWhatTheCellIsFitFor();
    void allowsNothingWithoutACell();
    void namesTheFirstColumnOnly();
    void addsEmptyCells();
    void addsRowsOnTopWhateverTheRow();
    void addsRowsAtTheTopForAnyRow_data();
    void addsRowsAtTheTopForAnyRow();
    void refusesToAddRowsWhereNoneCanBe_data();
    void refusesToAddRowsWhereNoneCanBe();
    void removesAllRows();
    void removesEveryOtherRow_data();
    void removesEveryOtherRow();
    void removesNothingWithoutRows_data();
    void removesNothingWithoutRows();
    void showsNoToolTipOnAPadWithoutLiveButtonOrUse();
    void showsTheLiveButtonInTheToolTip();
    void showsThePadsOwnColorsInTheToolTip();
    void labelsTheCornersInTheToolTip();
    void showsABlackSwatchForATextThatIsNoColor();
    void dragsACellAsTheseBytes();
    void dragsTheValidCellsInOrder();
    void offersCopyingAndMovingToDrops();
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
    void ignoresTheIgnoreAction();
    void refusesABadPayload_data();
    void refusesABadPayload();
    void refusesADropWithoutATarget();
    void refusesADropOnACellThatAShortRowLacks();
    void takesDropsInTheViewOnUsableCellsOnly();
    void keepsTheRulesOfItemModels();
};

void ControllerTest::startsWithoutRows()
{
    QObject parent;
    const Controller model(&parent);
    QCOMPARE(model.parent(), &parent);
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 12);
    QCOMPARE(model.getList(), Cells());
}

void ControllerTest::startsWithACopyOfTheGrid()
{
    QObject parent;
    Cells grid{{{{"name", "A"}}, {{"name", "B"}}}, {{{"name", "C"}}}};
    const Controller model(grid, &parent);
    QCOMPARE(model.parent(), &parent);
    grid[0][0]["name"] = "changed outside";

    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.index(0, 0).data().toString(), QString("A"));
    QCOMPARE(model.index(0, 1).data().toString(), QString("B"));
    QCOMPARE(model.index(1, 0).data().toString(), QString("C"));

    Cells list = model.getList();
    list[1][0]["name"] = "changed outside";
    QCOMPARE(model.getList(), Cells({{{{"name", "A"}}, {{"name", "B"}}}, {{{"name", "C"}}}}));
}

void ControllerTest::keepsEveryTextUnderItsRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("key");

    QTest::newRow("display") << 0 << "name";
    QTest::newRow("edit") << 2 << "name";
    QTest::newRow("page") << 256 << "pagenr";
    QTest::newRow("display name") << 257 << "dspname";
    QTest::newRow("id") << 259 << "id";
    QTest::newRow("usable") << 260 << "avail";
    QTest::newRow("off colour") << 261 << "coloroff";
    QTest::newRow("on colour") << 262 << "coloron";
    QTest::newRow("blink") << 263 << "blink";
}

void ControllerTest::keepsEveryTextUnderItsRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    Controller model;
    fill(model);
    Cells expected = model.getList();
    expected[4][7][key] = "Wert 7";

    QVERIFY(model.setData(model.index(4, 7), "Wert 7", role));
    QCOMPARE(model.data(model.index(4, 7), role), QVariant(QString("Wert 7")));
    QCOMPARE(model.getList(), expected);
}

void ControllerTest::showsColorsAsColors()
{
    Controller model;
    fill(model);
    Cells expected = model.getList();
    expected[4][7]["color"] = "#FF8000";
    expected[4][7]["textcolor"] = "green";

    QVERIFY(model.setData(model.index(4, 7), "#FF8000", 1));
    QVERIFY(model.setData(model.index(4, 7), "green", 9));
    QCOMPARE(model.index(4, 7).data(1), QVariant(QColor(255, 128, 0)));
    QCOMPARE(model.index(4, 7).data(9), QVariant(QColor(0, 128, 0)));
    QCOMPARE(model.getList(), expected);
}

void ControllerTest::showsAWhiteBackgroundWhateverIsSet()
{
    Controller model;
    fill(model);
    const Cells before = model.getList();
    QVERIFY(model.setData(model.index(4, 7), "#000000", 8));
    QCOMPARE(model.index(4, 7).data(8), QVariant(QColor(255, 255, 255)));
    QCOMPARE(model.getList(), before);
}

void ControllerTest::refusesOtherRoles_data()
{
    QTest::addColumn<int>("role");
    for (const int role : {-1, 3, 4, 5, 6, 7, 10, 13, 255, 258, 264, 1000})
        QTest::newRow(qPrintable(QString::number(role))) << role;
}

void ControllerTest::refusesOtherRoles()
{
    QFETCH(int, role);
    Controller model;
    fill(model);
    const Cells before = model.getList();
    QVERIFY(!model.setData(model.index(4, 7), "1", role));
    QVERIFY(!model.index(4, 7).data(role).isValid());
    QCOMPARE(model.getList(), before);
}

void ControllerTest::storesTheTextOfAnyValue()
{
    Controller model;
    fill(model);
    QVERIFY(model.setData(model.index(2, 2), 17, ItemRole::Id));
    QVERIFY(model.setData(model.index(2, 2), QColor(255, 0, 16), Qt::DecorationRole));
    QVERIFY(model.setData(model.index(2, 2), QVariant(), ItemRole::Blink));
    QCOMPARE(cellOf(model, 2, 2).value("id"), QString("17"));
    QCOMPARE(cellOf(model, 2, 2).value("color"), QString("#ff0010"));
    QCOMPARE(cellOf(model, 2, 2).value("blink"), QString());
}

void ControllerTest::changesCellsSilently()
{
    Controller model;
    fill(model);
    place(model, 2, 2, "Fog", "5", "#ff0000");
    QSignalSpy spy(&model, &QAbstractItemModel::dataChanged);
    QVERIFY(model.setData(model.index(3, 3), "Strobe", Qt::EditRole));
    QVERIFY(dragAndDrop(model, 2, 2, 3, 3));
    QCOMPARE(spy.count(), 0);
}

void ControllerTest::readsAndTakesNothingOutsideTheGrid()
{
    Controller model;
    fill(model);
    const QModelIndex gone = model.index(11, 11);
    model.removeRows(0, 12);
    model.insertRows(0, 3);
    Controller foreign;
    fill(foreign);
    Controller ragged({{{{"name", "A"}}}}, nullptr);
    const Cells before = model.getList();

    for (const int role : {0, 1, 3, 8, 9, 256, 263}) {
        QVERIFY(!model.data(QModelIndex(), role).isValid());
        QVERIFY(!model.data(gone, role).isValid());
        QVERIFY(!model.data(foreign.index(0, 0), role).isValid());
        QVERIFY(!ragged.index(0, 1).data(role).isValid());
        QVERIFY(!model.setData(QModelIndex(), "1", role));
        QVERIFY(!model.setData(gone, "1", role));
        QVERIFY(!model.setData(foreign.index(0, 0), "1", role));
        QVERIFY(!ragged.setData(ragged.index(0, 1), "1", role));
    }
    QCOMPARE(model.getList(), before);
    QCOMPARE(ragged.getList(), Cells({{{{"name", "A"}}}}));
}

void ControllerTest::readsColorTextsThatAreNoColorsWithoutWarnings()
{
    Controller model;
    fill(model);
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
    fill(model);
    model.setData(model.index(5, 5), page, ItemRole::Page);
    model.setData(model.index(5, 5), avail, ItemRole::Avail);
    QCOMPARE(model.flags(model.index(5, 5)), flags);
}

void ControllerTest::allowsNothingWithoutACell()
{
    Controller model;
    fill(model);
    const QModelIndex gone = model.index(11, 11);
    model.removeRows(0, 12);
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemFlags(Qt::NoItemFlags));
    QCOMPARE(model.flags(gone), Qt::ItemFlags(Qt::NoItemFlags));
}

void ControllerTest::namesTheFirstColumnOnly()
{
    Controller model;
    fill(model);
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

void ControllerTest::addsRowsOnTopWhateverTheRow()
{
    const auto model = numbered(4);
    QSignalSpy about(model.get(), &QAbstractItemModel::rowsAboutToBeInserted);
    QSignalSpy done(model.get(), &QAbstractItemModel::rowsInserted);

    QVERIFY(model->insertRows(3, 2));
    QCOMPARE(rowNames(*model), QString("  0 1 2 3"));
    const QVariantList announced{QModelIndex(), 3, 4};
    QCOMPARE(about.count(), 1);
    QCOMPARE(about.at(0), announced);
    QCOMPARE(done.count(), 1);
    QCOMPARE(done.at(0), announced);

    QVERIFY(model->insertRows(6, 1)); // behind the last row
    QCOMPARE(rowNames(*model), QString("   0 1 2 3"));
}

void ControllerTest::addsRowsAtTheTopForAnyRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("announced");
    QTest::newRow("before the top") << -1 << 0;
    QTest::newRow("far before the top") << INT_MIN << 0;
    QTest::newRow("beyond the end") << 5 << 4;
    QTest::newRow("far beyond the end") << INT_MAX << 4;
}

void ControllerTest::addsRowsAtTheTopForAnyRow()
{
    QFETCH(int, row);
    QFETCH(int, announced);
    const auto model = numbered(4);
    QSignalSpy spy(model.get(), &QAbstractItemModel::rowsAboutToBeInserted);
    QVERIFY(model->insertRows(row, 1));
    QCOMPARE(rowNames(*model), QString(" 0 1 2 3"));
    // Views know no row beyond the last.
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(1).toInt(), announced);
    QCOMPARE(spy.at(0).at(2).toInt(), announced);
}

void ControllerTest::refusesToAddRowsWhereNoneCanBe_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::newRow("no rows") << 0 << 0;
    QTest::newRow("negative count") << 0 << -3;
    QTest::newRow("least count") << 4 << INT_MIN;
}

void ControllerTest::refusesToAddRowsWhereNoneCanBe()
{
    QFETCH(int, row);
    QFETCH(int, count);
    const auto model = numbered(4);
    QSignalSpy about(model.get(), &QAbstractItemModel::rowsAboutToBeInserted);
    QVERIFY(!model->insertRows(row, count));
    QVERIFY(!model->insertRows(0, 1, model->index(0, 0))); // cells have no children
    QCOMPARE(rowNames(*model), QString("0 1 2 3"));
    QCOMPARE(about.count(), 0);
}

void ControllerTest::removesAllRows()
{
    const auto model = numbered(12);
    QSignalSpy about(model.get(), &QAbstractItemModel::rowsAboutToBeRemoved);
    QSignalSpy done(model.get(), &QAbstractItemModel::rowsRemoved);
    QVERIFY(model->removeRows(0, model->rowCount()));
    QCOMPARE(model->rowCount(), 0);
    const QVariantList announced{QModelIndex(), 0, 11};
    QCOMPARE(about.count(), 1);
    QCOMPARE(about.at(0), announced);
    QCOMPARE(done.count(), 1);
    QCOMPARE(done.at(0), announced);
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

void ControllerTest::removesNothingWithoutRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("result");
    QTest::newRow("negative row") << -1 << 1 << false;
    QTest::newRow("negative count") << 0 << -1 << false;
    QTest::newRow("least count") << 3 << INT_MIN << false;
    QTest::newRow("no rows") << 0 << 0 << true;
    QTest::newRow("row past the end") << 4 << 1 << true;
    QTest::newRow("row far past the end") << INT_MAX << INT_MAX << true;
}

void ControllerTest::removesNothingWithoutRows()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(bool, result);
    const auto model = numbered(4);
    QSignalSpy about(model.get(), &QAbstractItemModel::rowsAboutToBeRemoved);
    QCOMPARE(model->removeRows(row, count), result);
    QVERIFY(!model->removeRows(0, 1, model->index(0, 0))); // cells have no children
    QCOMPARE(rowNames(*model), QString("0 1 2 3"));
    QCOMPARE(about.count(), 0);
}

void ControllerTest::showsNoToolTipOnAPadWithoutLiveButtonOrUse()
{
    Controller model;
    fill(model);
    QVERIFY(!model.index(2, 2).data(Qt::ToolTipRole).isValid());

    place(model, 2, 2, "Fog", "5", "#ff0000");
    QVERIFY(model.index(2, 2).data(Qt::ToolTipRole).isValid());
    model.setData(model.index(2, 2), "0", ItemRole::Avail);
    QVERIFY(!model.index(2, 2).data(Qt::ToolTipRole).isValid());
}

void ControllerTest::showsTheLiveButtonInTheToolTip()
{
    Controller model;
    fill(model);
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
    fill(model);
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
    fill(model);
    place(model, 11, 11, "Fog", "5", "#ff0000");
    QCOMPARE(toolTip(model, 11, 11), QString("BOTTOM 10<br>Live Button: Fog<br><br>Right-click to Remove"));
    place(model, 0, 0, "Fog", "5", "#ff0000");
    QCOMPARE(toolTip(model, 0, 0), QString("<br>Live Button: Fog<br><br>Right-click to Remove"));
}

void ControllerTest::showsABlackSwatchForATextThatIsNoColor()
{
    Controller model;
    fill(model);
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
    fill(model);
    place(model, 2, 3, "Fog", "17", "#FF8000");
    const QModelIndex cell = model.index(2, 3);
    model.setData(cell, "4", ItemRole::Page);
    model.setData(cell, "FOG", ItemRole::DspName);
    model.setData(cell, "#ff0000", ItemRole::ColorOff);
    model.setData(cell, QString(), ItemRole::ColorOn);
    model.setData(cell, "", ItemRole::Blink);

    const std::unique_ptr<QMimeData> data(model.mimeData({cell}));
    QCOMPARE(data->formats(), QStringList({listFormat, colorFormat}));
    QCOMPARE(model.mimeTypes(), QStringList({listFormat, colorFormat}));
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
    QCOMPARE(data->data(listFormat).toHex(), fields);
    QCOMPARE(data->data(colorFormat).toHex(), QByteArray("01ffffffff808000000000"));
}

void ControllerTest::dragsTheValidCellsInOrder()
{
    Controller model;
    fill(model);
    place(model, 2, 3, "Fog", "5", "#ff0000");
    place(model, 4, 2, "Strobe", "6", "#0000ff");
    const std::unique_ptr<QMimeData> data(
        model.mimeData({model.index(4, 2), QModelIndex(), model.index(2, 3)}));
    const QStringList fields{"4", "2", "Strobe", "1", "Strobe", "0", "6", "1", "", "", "0",
                             "2", "3", "Fog",    "1", "Fog",    "0", "5", "1", "", "", "0"};
    QCOMPARE(data->data(listFormat), stringBytes(fields));
    QCOMPARE(data->data(colorFormat), colorBytes(QColor(0, 0, 255)) + colorBytes(QColor(255, 0, 0)));

    const std::unique_ptr<QMimeData> nothing(model.mimeData({}));
    QVERIFY(nothing->hasFormat(listFormat));
    QVERIFY(nothing->hasFormat(colorFormat));
    QCOMPARE(nothing->data(listFormat), QByteArray());
}

void ControllerTest::offersCopyingAndMovingToDrops()
{
    const Controller model;
    QCOMPARE(model.supportedDropActions(), Qt::CopyAction | Qt::MoveAction);
}

void ControllerTest::offersCopyingOnlyToDragsEvenWithShift()
{
    Controller model;
    fill(model);
    place(model, 2, 2, "Fog", "5", "#ff0000");
    QCOMPARE(model.supportedDragActions(), Qt::DropActions(Qt::CopyAction));

    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
        GridView view(&model);
        const QPoint from = view.middle(2, 2);
        QTest::mousePress(view.viewport(), Qt::LeftButton, modifier, from);
        for (const int way : {30, 60, 90}) {
            QMouseEvent move(QEvent::MouseMove, from + QPoint(way, way), Qt::NoButton, Qt::LeftButton,
                             modifier);
            QApplication::sendEvent(view.viewport(), &move);
        }
        QVERIFY(!view.offeredActions.isEmpty());
        QCOMPARE(view.offeredActions.constFirst(), Qt::DropActions(Qt::CopyAction));
    }
}

void ControllerTest::placesALiveButtonOnAnEmptyCell()
{
    Controller model;
    fill(model);
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
    fill(model);
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
    fill(model);
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
    fill(model);
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
    fill(model);
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
    fill(model);
    place(model, 11, 11, "Fog", "5", "#ff8000");
    QVERIFY(dragAndDrop(model, 11, 11, 2, 2));
    QCOMPARE(cellOf(model, 11, 11).value("name"), QString("BOTTOM 10"));
    QCOMPARE(cellOf(model, 11, 11).value("dspname"), QString("BOTTOM 10"));
    QCOMPARE(cellOf(model, 11, 11).value("avail"), QString("1"));
}

void ControllerTest::swapsTwoLiveButtons()
{
    Controller model;
    fill(model);
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
    fill(model);
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
    fill(model);
    place(model, 2, 2, "Fog", "5", "#ff8000");
    place(model, 3, 3, "Strobe", "9", "#0000ff");
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(2, 2), model.index(3, 3)}));
    QVERIFY(drop(model, data.get(), 5, 5));
    QCOMPARE(cellOf(model, 5, 5).value("name"), QString("Fog"));
    QCOMPARE(cellOf(model, 5, 5).value("color"), QString("#ff8000"));
    QCOMPARE(cellOf(model, 2, 2).value("name"), QString("PAD 1"));
    QCOMPARE(cellOf(model, 3, 3).value("name"), QString("Strobe"));
}

void ControllerTest::ignoresTheIgnoreAction()
{
    Controller model;
    fill(model);
    QStringList seen;
    watch(model, this, &seen);
    const Cells before = model.getList();
    QVERIFY(drop(model, fromList("7", "Fog", "5").get(), 3, 4, Qt::IgnoreAction));
    QVERIFY(drop(model, nullptr, 3, 4, Qt::IgnoreAction));
    QVERIFY(model.dropMimeData(fromList("7", "Fog", "5").get(), Qt::IgnoreAction, -1, -1, QModelIndex()));
    QCOMPARE(model.getList(), before);
    QCOMPARE(seen, QStringList());
}

void ControllerTest::refusesABadPayload_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("colors");

    const QByteArray red = colorBytes(Qt::red);
    const QByteArray good = stringBytes(padFields("2", "2"));
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    QTest::newRow("no colour") << good << QByteArray("");
    QTest::newRow("no fields") << QByteArray("") << red;
    QTest::newRow("ten fields") << stringBytes(padFields("2", "2").mid(0, 10)) << red;
    QTest::newRow("pads page pad") << stringBytes(padFields("2", "2").mid(0, 7)) << red;
    QTest::newRow("cut inside the last field") << good.chopped(1) << red;
    QTest::newRow("colour cut short") << good << red.chopped(1);
    QTest::newRow("garbage") << QByteArray("\x01garbage that is no stream") << red;
    QTest::newRow("field longer than the bytes") << QByteArray::fromHex("7ffffffe0041") << red;

    const QVector<QPair<QString, QString>> places{{"-1", "2"}, {"12", "2"},  {"2", "-1"},
                                                  {"2", "12"}, {"", ""},     {"x", "2"},
                                                  {"2", "y"},  {"2.5", "2"}, {"99999999999", "2"}};
    for (const auto& place : places)
        QTest::newRow(qPrintable(QString("pad from %1,%2").arg(place.first, place.second)))
            << stringBytes(padFields(place.first, place.second)) << red;
    const QStringList listRows{"-1", "", "x"};
    for (const QString& row : listRows) {
        QStringList fields = padFields(row, "0");
        fields[5] = "1";
        QTest::newRow(qPrintable("list row " + row)) << stringBytes(fields) << red;
    }
}

void ControllerTest::refusesABadPayload()
{
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, colors);
    Controller model;
    fill(model);
    place(model, 2, 2, "Fog", "5", "#ff8000");
    place(model, 3, 4, "Strobe", "9", "#0000ff");
    QStringList seen;
    watch(model, this, &seen);
    const Cells before = model.getList();

    QVERIFY(!drop(model, payload(list, colors).get(), 3, 4));
    QVERIFY(!drop(model, nullptr, 3, 4));
    QMimeData listAlone;
    listAlone.setData(listFormat, stringBytes(padFields("2", "2")));
    QVERIFY(!drop(model, &listAlone, 3, 4));
    QMimeData colorAlone;
    colorAlone.setData(colorFormat, colorBytes(Qt::red));
    QVERIFY(!drop(model, &colorAlone, 3, 4));

    QCOMPARE(model.getList(), before);
    QCOMPARE(seen, QStringList());
    // The same pad with a sound payload is taken: what was refused above was refused for its payload.
    QVERIFY(dragAndDrop(model, 2, 2, 3, 4));
}

void ControllerTest::refusesADropWithoutATarget()
{
    Controller model;
    fill(model);
    const QModelIndex gone = model.index(11, 11);
    model.removeRows(0, 12);
    model.insertRows(0, 3);
    Controller foreign;
    fill(foreign);
    QStringList seen;
    watch(model, this, &seen);
    const Cells before = model.getList();

    const auto data = fromList("7", "Fog", "5");
    QVERIFY(!model.dropMimeData(data.get(), Qt::CopyAction, 1, 1, QModelIndex()));
    QVERIFY(!model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, gone));
    QVERIFY(!model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, foreign.index(0, 0)));
    QCOMPARE(model.getList(), before);
    QCOMPARE(seen, QStringList());
}

void ControllerTest::refusesADropOnACellThatAShortRowLacks()
{
    Controller model({{{{"name", "A"}, {"id", "-1"}}}, {}}, nullptr);
    const Cells before = model.getList();
    QVERIFY(!drop(model, fromList("7", "Fog", "5").get(), 0, 1));
    QVERIFY(!drop(model, fromList("7", "Fog", "5").get(), 1, 0));
    const QByteArray missing = stringBytes(padFields("0", "1"));
    QVERIFY(!drop(model, payload(missing, colorBytes(Qt::red)).get(), 0, 0));
    QCOMPARE(model.getList(), before);
    QVERIFY(drop(model, fromList("7", "Fog", "5").get(), 0, 0));
}

void ControllerTest::takesDropsInTheViewOnUsableCellsOnly()
{
    Controller model;
    fill(model);
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

void ControllerTest::keepsTheRulesOfItemModels()
{
    Controller model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (int round = 0; round < 2; ++round) {
        fill(model);
        QCOMPARE(model.rowCount(), 12);
        place(model, 2, 2, "Fog", "5", "#ff8000");
        model.setData(model.index(2, 2), "red", ItemRole::ColorOff);
        QVERIFY(dragAndDrop(model, 2, 2, 3, 3));
        QVERIFY(drop(model, fromList("7", "Fog", "5").get(), 3, 3));
        QVERIFY(model.removeRows(0, model.rowCount()));
        QCOMPARE(model.rowCount(), 0);
    }
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    model.insertRows(0, 1);
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
    QCOMPARE(model.columnCount(model.index(0, 0)), 0);

    Controller ragged({{{{"name", "A"}}}, {}}, nullptr);
    QAbstractItemModelTester raggedTester(&ragged, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(ragged.insertRows(0, 1));
    QVERIFY(ragged.removeRows(0, 3));
    QCOMPARE(ragged.rowCount(), 0);
}

QTEST_MAIN(ControllerTest)
#include "tst_controller.moc"
