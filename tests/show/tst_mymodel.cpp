#include "itemroles.h"
#include "mymodel.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QDataStream>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

#include <climits>
#include <memory>

using namespace show;

namespace {

/// The roles of which each reads and writes one key of the record as it stands.
struct TextRole
{
    int role;
    const char* key;
};

constexpr TextRole textRoles[]{{Qt::DisplayRole, "title"},   {Qt::EditRole, "title"},
                               {ItemRole::Page, "pageid"},   {ItemRole::DspName, "dspname"},
                               {ItemRole::Source, "source"}, {ItemRole::Id, "buttonid"}};

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

/// An index that no view would ask for: MyModel's own, at any row and column.
class Anywhere : public MyModel
{
public:
    using MyModel::MyModel;
    QModelIndex at(int row, int col) const { return createIndex(row, col); }
};

/// First and last row of a change.
using Rows = QPair<int, int>;

/// Notes every signal by which a model tells views that data or rows changed.
class Listener
{
public:
    explicit Listener(const MyModel& model)
    {
        const auto note = [this] { ++count; };
        QObject::connect(&model, &QAbstractItemModel::dataChanged, &m_context, note);
        QObject::connect(&model, &QAbstractItemModel::layoutChanged, &m_context, note);
        QObject::connect(&model, &QAbstractItemModel::modelReset, &m_context, note);
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, &m_context,
                         [this](const QModelIndex&, int first, int last) {
                             ++count;
                             inserted.append({first, last});
                         });
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &m_context,
                         [this](const QModelIndex&, int first, int last) {
                             ++count;
                             removed.append({first, last});
                         });
    }

    int count = 0; ///< of all signals
    QList<Rows> inserted;
    QList<Rows> removed;

private:
    QObject m_context;
};

std::unique_ptr<QMimeData> payload(const QStringList& fields, const QList<QColor>& colors)
{
    QByteArray list;
    QByteArray colorBytes;
    QDataStream listStream(&list, QIODevice::WriteOnly);
    QDataStream colorStream(&colorBytes, QIODevice::WriteOnly);
    for (const QString& field : fields)
        listStream << field;
    for (const QColor& color : colors)
        colorStream << color;
    auto data = std::make_unique<QMimeData>();
    data->setData("application/vnd.text.list", list);
    data->setData("application/x-color", colorBytes);
    return data;
}

QStringList listFields(const QMimeData& data)
{
    QStringList fields;
    QDataStream stream(data.data("application/vnd.text.list"));
    while (!stream.atEnd()) {
        QString field;
        stream >> field;
        fields.append(field);
    }
    return fields;
}

} // namespace

class TestMyModel : public QObject
{
    Q_OBJECT

private slots:
    void aNewModelIsEmpty();
    void theListConstructorCopiesTheList();
    void getListGivesACopy();
    void theModelPassesTheModelTester();

    void textRolesReadTheirKey();
    void textRolesStoreTheTextUnderTheirKey();
    void colorRolesReadAColor_data();
    void colorRolesReadAColor();
    void colorRolesStoreTheText();
    void backgroundIsWhiteAndCannotBeChanged();
    void theToolTipIsFixed();
    void onlyAnExactOneIsChecked_data();
    void onlyAnExactOneIsChecked();
    void onlyTheNumberZeroUnchecks_data();
    void onlyTheNumberZeroUnchecks();
    void unknownRolesReadNothingAndStoreNothing();
    void missingKeysReadAsEmpty();
    void placesOutsideTheListReadNothingAndStoreNothing_data();
    void placesOutsideTheListReadNothingAndStoreNothing();
    void settingDataIsSilent();
    void getnameGivesTheTitle();

    void rowsCanBeDraggedButNotEditedCheckedOrDroppedOn();
    void headersNameTwoColumns();
    void dragsCopyOnly();

    void newRowsHoldTheDefaultRecord();
    void newRowsGoToTheTopWhateverTheRow();
    void insertingNowhereChangesNothing_data();
    void insertingNowhereChangesNothing();
    void removingTakesTheRowsThatExist_data();
    void removingTakesTheRowsThatExist();
    void removingNowhereChangesNothing();

    void aDragCarriesElevenFieldsPerButton();
    void aDropReadsOnePositionLater();
    void aDropWithOneItemTooManyUsesTheFirst();
    void anIgnoredDropIsAcceptedUnread();
    void unusableDropsChangeNothing();
};

void TestMyModel::aNewModelIsEmpty()
{
    QObject owner;
    const MyModel model(&owner);
    QCOMPARE(model.parent(), &owner);
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.getList(), QList<Record>());
}

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

void TestMyModel::theModelPassesTheModelTester()
{
    MyModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(model.insertRows(0, 3));
    QVERIFY(model.insertRows(0, 1));
    for (int row = 0; row < 4; ++row)
        QVERIFY(model.setData(model.index(row, 0), QString::number(row), Qt::EditRole));
    QVERIFY(model.removeRows(1, 2));
    QCOMPARE(titles(model), QStringList({"0", "3"}));
    QVERIFY(model.removeRows(1, 5));
    QVERIFY(model.removeRows(0, 1));
    QVERIFY(model.removeRows(0, 1));
    QCOMPARE(model.rowCount(), 0);

    MyModel filled(buttons(5));
    const QAbstractItemModelTester other(&filled, QAbstractItemModelTester::FailureReportingMode::QtTest);
    // A row has no rows of its own.
    QCOMPARE(filled.rowCount(filled.index(0, 0)), 0);
    QCOMPARE(filled.columnCount(filled.index(0, 0)), 0);
}

void TestMyModel::textRolesReadTheirKey()
{
    const MyModel model(buttons(3));
    for (const TextRole& item : textRoles) {
        const QVariant value = model.data(model.index(1, 0), item.role);
        QCOMPARE(value.type(), QVariant::String);
        QCOMPARE(value.toString(), button(1).value(item.key));
    }
    QCOMPARE(model.data(model.index(2, 0)).toString(), QString("Button 2"));
}

void TestMyModel::textRolesStoreTheTextUnderTheirKey()
{
    for (const TextRole& item : textRoles) {
        MyModel model(buttons(3));
        QList<Record> expected = buttons(3);
        for (const QVariant& value : {QVariant("Caf\u00e9 <&>"), QVariant(""), QVariant(7), QVariant(-1)}) {
            QVERIFY(model.setData(model.index(1, 0), value, item.role));
            expected[1][item.key] = value.toString();
            QCOMPARE(model.getList(), expected);
        }
    }
    MyModel model(buttons(1));
    QVERIFY(model.setData(model.index(0, 0), "by default"));
    QCOMPARE(titles(model), QStringList({"by default"}));
}

void TestMyModel::colorRolesReadAColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("upper case") << "#FF00A0" << QColor(255, 0, 160);
    QTest::newRow("lower case") << "#ff00a0" << QColor(255, 0, 160);
    QTest::newRow("name") << "green" << QColor(0, 128, 0);
    QTest::newRow("empty") << "" << QColor();
    QTest::newRow("no color") << "no color" << QColor();
    QTest::newRow("no hash") << "FF00A0" << QColor();
    QTest::newRow("seven digits") << "#1000000" << QColor();
    QTest::newRow("negative number") << "#FFFFFFFFFFFFFFFF" << QColor();
}

void TestMyModel::colorRolesReadAColor()
{
    QFETCH(QString, text);
    QFETCH(QColor, color);
    static int warnings = 0;
    warnings = 0;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
    const MyModel model({Record{{"color", text}}, Record{{"textcolor", text}}});
    const QVariant decoration = model.data(model.index(0, 0), Qt::DecorationRole);
    const QVariant foreground = model.data(model.index(1, 0), Qt::ForegroundRole);
    qInstallMessageHandler(previous);

    QCOMPARE(decoration.type(), QVariant::Color);
    QCOMPARE(decoration.value<QColor>(), color);
    QCOMPARE(foreground.type(), QVariant::Color);
    QCOMPARE(foreground.value<QColor>(), color);
    // A list with such a colour is painted again and again.
    QCOMPARE(warnings, 0);
    // Each of the two roles reads its own key.
    QCOMPARE(model.data(model.index(0, 0), Qt::ForegroundRole).value<QColor>(), QColor());
    QCOMPARE(model.data(model.index(1, 0), Qt::DecorationRole).value<QColor>(), QColor());
}

void TestMyModel::colorRolesStoreTheText()
{
    MyModel model(buttons(2));
    QList<Record> expected = buttons(2);
    QVERIFY(model.setData(model.index(1, 0), "#AbCdEf", Qt::DecorationRole));
    expected[1]["color"] = "#AbCdEf";
    QCOMPARE(model.getList(), expected);
    QVERIFY(model.setData(model.index(1, 0), "any text", Qt::ForegroundRole));
    expected[1]["textcolor"] = "any text";
    QCOMPARE(model.getList(), expected);
}

void TestMyModel::backgroundIsWhiteAndCannotBeChanged()
{
    MyModel model(buttons(2));
    QVERIFY(model.setData(model.index(0, 0), "#123456", Qt::BackgroundRole));
    QVERIFY(model.setData(model.index(1, 0), QVariant(), Qt::BackgroundRole));
    QCOMPARE(model.getList(), buttons(2));
    for (int row = 0; row < 2; ++row)
        QCOMPARE(model.data(model.index(row, 0), Qt::BackgroundRole).value<QColor>(), QColor(255, 255, 255));
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

void TestMyModel::unknownRolesReadNothingAndStoreNothing()
{
    MyModel model(buttons(2));
    const int unknown[]{Qt::StatusTipRole,
                        Qt::WhatsThisRole,
                        Qt::FontRole,
                        Qt::TextAlignmentRole,
                        Qt::SizeHintRole,
                        Qt::AccessibleTextRole,
                        ItemRole::Avail,
                        ItemRole::ColorOff,
                        ItemRole::ColorOn,
                        ItemRole::Blink,
                        ItemRole::Blink + 1,
                        -1,
                        INT_MAX,
                        INT_MIN};
    for (const int role : unknown) {
        QVERIFY2(!model.data(model.index(0, 0), role).isValid(), qPrintable(QString::number(role)));
        QVERIFY2(!model.setData(model.index(0, 0), "x", role), qPrintable(QString::number(role)));
    }
    QCOMPARE(model.getList(), buttons(2));
}

void TestMyModel::missingKeysReadAsEmpty()
{
    const MyModel model({Record()});
    for (const TextRole& item : textRoles) {
        const QVariant value = model.data(model.index(0, 0), item.role);
        QVERIFY(value.isValid());
        QCOMPARE(value.toString(), QString());
    }
    QCOMPARE(model.data(model.index(0, 0), Qt::CheckStateRole).toInt(), 0);
    // Reading adds no keys.
    QCOMPARE(model.getList(), QList<Record>({Record()}));
}

void TestMyModel::placesOutsideTheListReadNothingAndStoreNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::newRow("no place") << -1 << -1;
    QTest::newRow("negative row") << -1 << 0;
    QTest::newRow("smallest row") << INT_MIN << 0;
    QTest::newRow("row past the end") << 2 << 0;
    QTest::newRow("largest row") << INT_MAX << 0;
    QTest::newRow("negative column") << 0 << -1;
    QTest::newRow("second column") << 0 << 1;
    QTest::newRow("largest column") << 1 << INT_MAX;
}

void TestMyModel::placesOutsideTheListReadNothingAndStoreNothing()
{
    QFETCH(int, row);
    QFETCH(int, col);
    Anywhere model(buttons(2));
    const QModelIndex place = model.at(row, col);
    const int roles[]{Qt::DisplayRole,    Qt::EditRole,       Qt::DecorationRole, Qt::ToolTipRole,
                      Qt::BackgroundRole, Qt::ForegroundRole, Qt::CheckStateRole, ItemRole::Page,
                      ItemRole::DspName,  ItemRole::Source,   ItemRole::Id};
    for (const int role : roles) {
        QVERIFY2(!model.data(place, role).isValid(), qPrintable(QString::number(role)));
        QVERIFY2(!model.setData(place, 1, role), qPrintable(QString::number(role)));
    }
    QCOMPARE(model.get_name(place), QString());
    QCOMPARE(model.getList(), buttons(2));
    const Qt::ItemFlags never = Qt::ItemIsEditable | Qt::ItemIsDropEnabled | Qt::ItemIsUserCheckable;
    QCOMPARE(int(model.flags(place) & never), 0);
}

void TestMyModel::settingDataIsSilent()
{
    MyModel model(buttons(2));
    const Listener listener(model);
    QSignalSpy unchecked(&model, &MyModel::ItemUnchecked);
    for (const TextRole& item : textRoles)
        QVERIFY(model.setData(model.index(0, 0), "new", item.role));
    for (const int role : {int(Qt::DecorationRole), int(Qt::ForegroundRole), int(Qt::BackgroundRole)})
        QVERIFY(model.setData(model.index(0, 0), "#010203", role));
    QVERIFY(model.setData(model.index(0, 0), 2, Qt::CheckStateRole));
    QVERIFY(model.setData(model.index(0, 0), 0, Qt::CheckStateRole));
    QVERIFY(model.dropMimeData(payload({"0", "1", "2", "3", "4", "5"}, {Qt::red}).get(), Qt::CopyAction, -1,
                               -1, model.index(1, 0)));
    QCOMPARE(listener.count, 0);
    QCOMPARE(unchecked.count(), 0);
}

void TestMyModel::getnameGivesTheTitle()
{
    const MyModel model(buttons(2));
    QCOMPARE(model.get_name(model.index(1, 0)), QString("Button 1"));
    QCOMPARE(model.get_name(QModelIndex()), QString());
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

void TestMyModel::dragsCopyOnly()
{
    const MyModel model(buttons(1));
    QCOMPARE(int(model.supportedDragActions()), int(Qt::CopyAction));
    QCOMPARE(int(model.supportedDropActions()), int(Qt::CopyAction | Qt::MoveAction));
    QCOMPARE(model.mimeTypes(), QStringList({"application/vnd.text.list", "application/x-color"}));
}

void TestMyModel::newRowsHoldTheDefaultRecord()
{
    const Record fresh{{"title", "1"},    {"dspname", "1"}, {"color", "#FFFFFF"},     {"pageid", "0"},
                       {"buttonid", "0"}, {"check", "0"},   {"textcolor", "#ffffff"}, {"source", "1"}};
    MyModel model;
    const Listener listener(model);
    QVERIFY(model.insertRows(0, 2));
    QCOMPARE(model.getList(), QList<Record>({fresh, fresh}));
    QCOMPARE(listener.inserted, QList<Rows>({{0, 1}}));
    QCOMPARE(listener.count, 1);
    QVERIFY(model.insertRow(0));
    QCOMPARE(model.rowCount(), 3);
}

void TestMyModel::newRowsGoToTheTopWhateverTheRow()
{
    MyModel model(buttons(2));
    const Listener listener(model);
    QVERIFY(model.insertRows(1, 1));
    QCOMPARE(titles(model), QStringList({"1", "Button 0", "Button 1"}));
    QVERIFY(model.insertRows(3, 2));
    QCOMPARE(titles(model), QStringList({"1", "1", "1", "Button 0", "Button 1"}));
    // What is announced is the row that was asked for, or the nearest that views know.
    QCOMPARE(listener.inserted, QList<Rows>({{1, 1}, {3, 4}}));
    QVERIFY(model.insertRows(INT_MAX, 1));
    QVERIFY(model.insertRows(INT_MIN, 1));
    QCOMPARE(titles(model), QStringList({"1", "1", "1", "1", "1", "Button 0", "Button 1"}));
    QCOMPARE(listener.inserted, QList<Rows>({{1, 1}, {3, 4}, {5, 5}, {0, 0}}));
}

void TestMyModel::insertingNowhereChangesNothing_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("below");
    QTest::newRow("no rows") << 0 << 0 << false;
    QTest::newRow("fewer than no rows") << 0 << -1 << false;
    QTest::newRow("smallest count") << 0 << INT_MIN << false;
    QTest::newRow("below a row") << 0 << 1 << true;
}

void TestMyModel::insertingNowhereChangesNothing()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(bool, below);
    MyModel model(buttons(2));
    const Listener listener(model);
    QVERIFY(!model.insertRows(row, count, below ? model.index(0, 0) : QModelIndex()));
    QCOMPARE(model.getList(), buttons(2));
    QCOMPARE(listener.count, 0);
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
    const Listener listener(model);
    const QPersistentModelIndex last(model.index(3, 0));
    QVERIFY(model.removeRows(row, count));
    QCOMPARE(titles(model), left);
    // Views learn exactly the rows that went.
    QCOMPARE(listener.count, 1);
    QCOMPARE(listener.removed, QList<Rows>({{row, row + 4 - left.size() - 1}}));
    QCOMPARE(last.isValid(), left.contains("Button 3"));
}

void TestMyModel::removingNowhereChangesNothing()
{
    MyModel model(buttons(4));
    const Listener listener(model);
    for (const int row : {-1, INT_MIN, 4, 5, INT_MAX}) {
        model.removeRows(row, 1);
        model.removeRows(row, INT_MAX);
    }
    for (const int count : {0, -1, INT_MIN})
        model.removeRows(0, count);
    QVERIFY(!model.removeRows(0, 1, model.index(0, 0)));
    QCOMPARE(model.getList(), buttons(4));
    QCOMPARE(listener.count, 0);

    MyModel empty;
    empty.removeRows(0, 1);
    QCOMPARE(empty.rowCount(), 0);
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
    const auto data = payload({"f0", "f1", "f2", "f3", "f4", "f5", "f6"}, {QColor(0xAB, 0xCD, 0xEF)});
    QVERIFY(model.dropMimeData(data.get(), Qt::CopyAction, 0, 0, model.index(1, 0)));
    QList<Record> expected = buttons(3);
    expected[1] = {{"title", "f1"},    {"pageid", "f2"},     {"dspname", "f3"}, {"source", "f4"},
                   {"buttonid", "f5"}, {"color", "#abcdef"}, {"check", "0"},    {"textcolor", "#00FF01"}};
    QCOMPARE(model.getList(), expected);
    // Six fields are all that it reads.
    const auto shortest = payload({"g0", "g1", "g2", "g3", "g4", "g5"}, {Qt::black});
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

void TestMyModel::anIgnoredDropIsAcceptedUnread()
{
    MyModel model(buttons(2));
    const auto data = payload({"0", "1", "2", "3", "4", "5"}, {Qt::red});
    QVERIFY(model.dropMimeData(data.get(), Qt::IgnoreAction, -1, -1, model.index(0, 0)));
    QVERIFY(model.dropMimeData(std::make_unique<QMimeData>().get(), Qt::IgnoreAction, -1, -1, QModelIndex()));
    QVERIFY(model.dropMimeData(nullptr, Qt::IgnoreAction, -1, -1, QModelIndex()));
    QCOMPARE(model.getList(), buttons(2));
}

void TestMyModel::unusableDropsChangeNothing()
{
    Anywhere model(buttons(2));
    const QModelIndex target = model.index(0, 0);
    const QStringList whole{"0", "1", "2", "3", "4", "5"};

    QVERIFY(!model.dropMimeData(nullptr, Qt::CopyAction, -1, -1, target));
    QVERIFY(!model.dropMimeData(std::make_unique<QMimeData>().get(), Qt::CopyAction, -1, -1, target));
    QVERIFY(!model.dropMimeData(payload(whole.mid(1), {Qt::red}).get(), Qt::CopyAction, -1, -1, target));
    QVERIFY(!model.dropMimeData(payload(whole, {}).get(), Qt::CopyAction, -1, -1, target));
    for (const char* format : {"application/vnd.text.list", "application/x-color"}) {
        const auto half = payload(whole, {Qt::red});
        half->removeFormat(format);
        QVERIFY(!model.dropMimeData(half.get(), Qt::CopyAction, -1, -1, target));
    }

    const auto good = payload(whole, {Qt::red});
    QVERIFY(!model.dropMimeData(good.get(), Qt::CopyAction, 0, 0, QModelIndex()));
    QVERIFY(!model.dropMimeData(good.get(), Qt::CopyAction, 0, 0, model.at(2, 0)));
    QVERIFY(!model.dropMimeData(good.get(), Qt::CopyAction, 0, 0, model.at(INT_MAX, 0)));
    QCOMPARE(model.getList(), buttons(2));
}

QTEST_GUILESS_MAIN(TestMyModel)
#include "tst_mymodel.moc"
