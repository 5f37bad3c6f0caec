#include "modelcontract.h"

#include "modelsignals.h"
#include "testpayload.h"

#include <QAbstractItemModelTester>
#include <QColor>
#include <QCoreApplication>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

#include <climits>

#define COMPARE_RECORDS(actual, expected) QCOMPARE(asText(actual), asText(expected))

namespace {

using Tester = QAbstractItemModelTester;

/// All roles that anything could ask for, and the ends of the numbers.
QVector<int> manyRoles()
{
    QVector<int> roles{INT_MIN, INT_MAX};
    for (int role = -2; role <= 1000; ++role)
        roles.append(role);
    return roles;
}

/// The eleven fields of a Live Button dragged from row 7 of the list.
QStringList listFields()
{
    return {"7", "0", "Fog", "3", "Fog live", "1", "5", "1", QString(), QString(), QString()};
}

/// The eleven fields of an occupied pad at \a row and \a column.
QStringList padFields(const QString& row, const QString& column)
{
    return {row, column, "Fog", "1", "Fog live", "0", "5", "1", "red", "green", "1"};
}

std::unique_ptr<QMimeData> redPayload(const QStringList& fields)
{
    return payload(stringBytes(fields), colorBytes(Qt::red));
}

/// A drop as views make it: on an item, without row and column.
bool drop(RecordModel* model, const QMimeData* data, const QModelIndex& target)
{
    return model->dropMimeData(data, Qt::CopyAction, -1, -1, target);
}

int messageCount = 0;

void countMessage(QtMsgType, const QMessageLogContext&, const QString&) { ++messageCount; }

} // namespace

RecordRows recordrows(const QList<Record>& list)
{
    RecordRows rows;
    for (const Record& record : list)
        rows.append({record});
    return rows;
}

QStringList asText(const RecordRows& rows)
{
    QStringList lines;
    for (const QList<Record>& row : rows) {
        for (const Record& record : row) {
            QStringList fields;
            for (auto field = record.cbegin(); field != record.cend(); ++field)
                fields.append(field.key() + "=" + field.value());
            lines.append(fields.join(' '));
        }
        lines.append("end of row");
    }
    return lines;
}

std::unique_ptr<RecordModel> ModelContract::numbered(int rows) const
{
    auto model = make();
    if (rows > 0 && !model->insertRows(0, rows))
        qFatal("The model takes no rows");
    for (int row = 0; row < rows; ++row)
        model->setData(model->index(row, 0), QString::number(row), Qt::EditRole);
    return model;
}

QString ModelContract::rowNames(const RecordModel& model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.index(row, 0).data(Qt::EditRole).toString());
    return names.join(' ');
}

void ModelContract::occupy(RecordModel* model, int row) const
{
    for (const ContractRole& item : roles())
        model->setData(model->index(row, 0), "1", item.role);
}

void ModelContract::startsWithoutRows()
{
    QObject parent;
    const auto model = make(&parent);
    QCOMPARE(model->parent(), &parent);
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->columnCount(), columns());
    COMPARE_RECORDS(records(*model), RecordRows());
}

void ModelContract::keepsEveryTextUnderItsRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    for (const ContractRole& item : roles()) {
        if (item.kind == ContractRole::Other)
            continue;
        const auto row = [item](const char* name, const QVariant& value, const QString& text) {
            QTest::addRow("%d, %s", item.role, name) << item.role << item.key << value << text;
        };
        row("text", QString::fromUtf8("Wärme <&> 7"), QString::fromUtf8("Wärme <&> 7"));
        row("number", 17, "17");
        row("negative number", -1, "-1");
        row("color", QColor(255, 0, 16), "#ff0010");
        if (item.kind != ContractRole::Name) {
            row("empty", "", "");
            row("nothing", QVariant(), "");
        }
    }
}

void ModelContract::keepsEveryTextUnderItsRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    const auto model = numbered(3);
    const QModelIndex index = model->index(1, columns() - 1);
    RecordRows expected = records(*model);
    expected[1].last()[key] = text;
    QVERIFY(model->setData(index, value, role));
    COMPARE_RECORDS(records(*model), expected);
    if (role != Qt::DecorationRole && role != Qt::ForegroundRole)
        QCOMPARE(model->data(index, role), QVariant(text));
}

void ModelContract::editsAndShowsTheNameByDefault()
{
    const auto model = numbered(2);
    QVERIFY(model->setData(model->index(1, 0), "Fog"));
    QCOMPARE(model->data(model->index(1, 0)), QVariant(QString("Fog")));
    QCOMPARE(rowNames(*model), QString("0 Fog"));
}

void ModelContract::showsColorsAsColors_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    for (const ContractRole& item : roles()) {
        if (item.kind != ContractRole::Color)
            continue;
        const auto row = [item](const char* name, const QString& text, const QColor& color) {
            QTest::addRow("%d, %s", item.role, name) << item.role << text << color;
        };
        row("upper case", "#FF00A0", QColor(255, 0, 160));
        row("lower case", "#ff00a0", QColor(255, 0, 160));
        row("name", "green", QColor(0, 128, 0));
        row("empty", "", QColor());
        row("no color", "no color", QColor());
        row("no hash", "FF00A0", QColor());
        row("no digits", "#gg0000", QColor());
        row("two digits", "#12", QColor());
        row("seven digits", "#1000000", QColor());
        row("twenty digits", "#12345678901234567890", QColor());
        row("negative number", "#FFFFFFFFFFFFFFFF", QColor());
    }
}

void ModelContract::showsColorsAsColors()
{
    QFETCH(int, role);
    QFETCH(QString, text);
    QFETCH(QColor, color);
    const auto model = numbered(2);
    const QModelIndex index = model->index(1, columns() - 1);
    QVERIFY(model->setData(index, text, role));
    // A view paints such an item again and again, so a warning would come as often.
    messageCount = 0;
    const QtMessageHandler before = qInstallMessageHandler(countMessage);
    const QVariant shown = index.data(role);
    qInstallMessageHandler(before);
    QCOMPARE(shown, QVariant(color));
    QCOMPARE(messageCount, 0);
}

void ModelContract::showsAWhiteBackgroundWhateverIsSet()
{
    const auto model = numbered(2);
    const RecordRows before = records(*model);
    QVERIFY(model->setData(model->index(0, 0), "#123456", Qt::BackgroundRole));
    QVERIFY(model->setData(model->index(1, columns() - 1), QVariant(), Qt::BackgroundRole));
    COMPARE_RECORDS(records(*model), before);
    for (const QModelIndex& index : {model->index(0, 0), model->index(1, columns() - 1)})
        QCOMPARE(index.data(Qt::BackgroundRole), QVariant(QColor(255, 255, 255)));
}

void ModelContract::refusesOtherRoles()
{
    const auto model = numbered(2);
    const QModelIndex index = model->index(1, columns() - 1);
    QVector<int> known{Qt::BackgroundRole};
    for (const ContractRole& item : roles()) {
        known.append(item.role);
        QVERIFY(model->setData(index, "1", item.role));
    }
    const RecordRows before = records(*model);
    for (const int role : manyRoles()) {
        if (known.contains(role))
            continue;
        QVERIFY2(!model->setData(index, "x", role), qPrintable(QString::number(role)));
        // The tool tip can be read, but not set.
        if (role != Qt::ToolTipRole)
            QVERIFY2(!index.data(role).isValid(), qPrintable(QString::number(role)));
    }
    COMPARE_RECORDS(records(*model), before);
}

void ModelContract::changesItemsSilently()
{
    const auto model = numbered(3);
    const ModelSignals all(*model);
    const ModelSignals ofViews(*model, ModelSignals::OfViews);
    for (const ContractRole& item : roles())
        QVERIFY(model->setData(model->index(1, 0), "7", item.role));
    QVERIFY(model->setData(model->index(1, 0), "#123456", Qt::BackgroundRole));
    QCOMPARE(all.count(), 0);

    QVERIFY(drop(model.get(), redPayload(listFields()).get(), model->index(0, 0)));
    QVERIFY(drop(model.get(), redPayload(listFields()).get(), model->index(0, 0)));
    const std::unique_ptr<QMimeData> dragged(model->mimeData({model->index(1, 0)}));
    QVERIFY(drop(model.get(), dragged.get(), model->index(2, 0)));
    QCOMPARE(ofViews.count(), 0);
}

void ModelContract::tellsOnceThatRecordsChanged()
{
    const auto model = numbered(3);
    QCoreApplication::processEvents();
    const QSignalSpy told(model.get(), &RecordModel::recordsChanged);
    for (const ContractRole& item : roles())
        QVERIFY(model->setData(model->index(1, 0), "7", item.role));
    QVERIFY(drop(model.get(), redPayload(listFields()).get(), model->index(0, 0)));
    QCOMPARE(told.count(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(told.count(), 1);

    QVERIFY(model->setData(model->index(1, 0), "8"));
    QCoreApplication::processEvents();
    QCOMPARE(told.count(), 2);

    // What changes nothing tells nothing.
    QVERIFY(model->setData(model->index(1, 0), "#123456", Qt::BackgroundRole));
    QVERIFY(!model->setData(QModelIndex(), "9"));
    QVERIFY(!model->setData(model->index(1, 0), "9", Qt::ToolTipRole));
    QVERIFY(!drop(model.get(), nullptr, model->index(0, 0)));
    QVERIFY(!drop(model.get(), redPayload(listFields()).get(), QModelIndex()));
    QVERIFY(model->dropMimeData(nullptr, Qt::IgnoreAction, -1, -1, model->index(0, 0)));
    QCoreApplication::processEvents();
    QCOMPARE(told.count(), 2);
}

void ModelContract::readsAndTakesNothingOutside_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::newRow("no place") << -1 << -1;
    QTest::newRow("negative row") << -1 << 0;
    QTest::newRow("smallest row") << INT_MIN << 0;
    QTest::newRow("row past the end") << 2 << 0;
    QTest::newRow("largest row") << INT_MAX << 0;
    QTest::newRow("negative column") << 0 << -1;
    QTest::newRow("smallest column") << 0 << INT_MIN;
    QTest::newRow("column past the end") << 0 << columns();
    QTest::newRow("largest column") << 1 << INT_MAX;
}

void ModelContract::readsAndTakesNothingOutside()
{
    QFETCH(int, row);
    QFETCH(int, column);
    const auto model = numbered(2);
    const RecordRows before = records(*model);
    QVERIFY(!model->index(row, column).isValid());
    const QModelIndex place = anywhere(*model, row, column);
    for (const int role : manyRoles()) {
        QVERIFY2(!model->data(place, role).isValid(), qPrintable(QString::number(role)));
        QVERIFY2(!model->setData(place, 1, role), qPrintable(QString::number(role)));
    }
    COMPARE_RECORDS(records(*model), before);
    const Qt::ItemFlags never = Qt::ItemIsEditable | Qt::ItemIsDropEnabled | Qt::ItemIsUserCheckable;
    QCOMPARE(int(model->flags(place) & never), 0);
}

void ModelContract::readsAndTakesNothingOfOthers()
{
    const auto model = numbered(3);
    const QModelIndex gone = model->index(2, columns() - 1);
    model->removeRows(2, 1);
    const auto foreign = numbered(3);
    const RecordRows before = records(*model);
    const RecordRows foreignBefore = records(*foreign);
    for (const QModelIndex& other : {QModelIndex(), gone, foreign->index(0, 0)}) {
        for (const int role : manyRoles()) {
            QVERIFY2(!model->data(other, role).isValid(), qPrintable(QString::number(role)));
            QVERIFY2(!model->setData(other, 1, role), qPrintable(QString::number(role)));
        }
    }
    COMPARE_RECORDS(records(*model), before);
    COMPARE_RECORDS(records(*foreign), foreignBefore);
    QCOMPARE(int(model->flags(QModelIndex())), 0);
}

void ModelContract::addsRowsOnTopWhateverTheRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("announced");
    QTest::newRow("top") << 0 << 2 << 0;
    QTest::newRow("inside") << 1 << 1 << 1;
    QTest::newRow("several inside") << 2 << 2 << 2;
    QTest::newRow("end") << 3 << 2 << 3;
    // Views know no row before the first or beyond the last.
    QTest::newRow("before the top") << -1 << 1 << 0;
    QTest::newRow("far before the top") << INT_MIN << 1 << 0;
    QTest::newRow("beyond the end") << 4 << 1 << 3;
    QTest::newRow("far beyond the end") << INT_MAX << 1 << 3;
}

void ModelContract::addsRowsOnTopWhateverTheRow()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(int, announced);
    const auto model = numbered(3);
    const auto fresh = make();
    QVERIFY(fresh->insertRows(0, count));
    const RecordRows expected = records(*fresh) + records(*model);
    const ModelSignals ofViews(*model, ModelSignals::OfViews);
    const QSignalSpy about(model.get(), &QAbstractItemModel::rowsAboutToBeInserted);
    const QSignalSpy done(model.get(), &QAbstractItemModel::rowsInserted);

    QVERIFY(model->insertRows(row, count));
    COMPARE_RECORDS(records(*model), expected);
    const QVariantList rows{QModelIndex(), announced, announced + count - 1};
    QCOMPARE(about.value(0), rows);
    QCOMPARE(done.value(0), rows);
    QCOMPARE(ofViews.count(), 2);
}

void ModelContract::refusesToAddRowsWhereNoneCanBe_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::newRow("no rows") << 0 << 0;
    QTest::newRow("fewer than none") << 0 << -1;
    QTest::newRow("far fewer") << 0 << INT_MIN;
    QTest::newRow("far fewer at the end") << 3 << INT_MIN;
}

void ModelContract::refusesToAddRowsWhereNoneCanBe()
{
    QFETCH(int, row);
    QFETCH(int, count);
    const auto model = numbered(3);
    const RecordRows before = records(*model);
    const ModelSignals all(*model);
    QVERIFY(!model->insertRows(row, count));
    QVERIFY(!model->insertRows(0, 1, model->index(0, 0))); // an item has no rows of its own
    COMPARE_RECORDS(records(*model), before);
    QCOMPARE(all.count(), 0);
}

void ModelContract::announcesTheRowsThatItRemoves_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("last");
    QTest::newRow("first") << 0 << 1 << 0;
    QTest::newRow("inside") << 2 << 3 << 4;
    QTest::newRow("last") << 5 << 1 << 5;
    QTest::newRow("all") << 0 << 6 << 5;
    QTest::newRow("more than all") << 0 << 1000 << 5;
    QTest::newRow("beyond the end") << 4 << 3 << 5;
    QTest::newRow("far beyond the end") << 4 << INT_MAX << 5;
}

void ModelContract::announcesTheRowsThatItRemoves()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(int, last);
    const auto model = numbered(6);
    const ModelSignals ofViews(*model, ModelSignals::OfViews);
    const QSignalSpy about(model.get(), &QAbstractItemModel::rowsAboutToBeRemoved);
    const QSignalSpy done(model.get(), &QAbstractItemModel::rowsRemoved);
    QVERIFY(model->removeRows(row, count));
    const QVariantList rows{QModelIndex(), row, last};
    QCOMPARE(about.value(0), rows);
    QCOMPARE(done.value(0), rows);
    QCOMPARE(ofViews.count(), 2);
}

void ModelContract::removesNothingWithoutRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("result");
    QTest::newRow("before the top") << -1 << 1 << false;
    QTest::newRow("far before the top") << INT_MIN << INT_MAX << false;
    QTest::newRow("fewer than none") << 0 << -1 << false;
    QTest::newRow("far fewer") << 1 << INT_MIN << false;
    QTest::newRow("no rows") << 0 << 0 << true;
    QTest::newRow("behind the end") << 3 << 1 << true;
    QTest::newRow("all behind the end") << 3 << INT_MAX << true;
    QTest::newRow("far behind the end") << INT_MAX << INT_MAX << true;
}

void ModelContract::removesNothingWithoutRows()
{
    QFETCH(int, row);
    QFETCH(int, count);
    QFETCH(bool, result);
    const auto model = numbered(3);
    const RecordRows before = records(*model);
    const ModelSignals all(*model);
    QCOMPARE(model->removeRows(row, count), result);
    QVERIFY(!model->removeRows(0, 1, model->index(0, 0))); // an item has no rows of its own
    COMPARE_RECORDS(records(*model), before);
    QCOMPARE(all.count(), 0);

    const auto empty = make();
    QVERIFY(empty->removeRows(0, 5));
    QCOMPARE(empty->rowCount(), 0);
}

void ModelContract::dragsBothFormatsAsCopies()
{
    const auto model = numbered(2);
    const QStringList formats{listFormat(), colorFormat()};
    QCOMPARE(model->mimeTypes(), formats);
    QCOMPARE(int(model->supportedDropActions()), int(Qt::CopyAction | Qt::MoveAction));
    QCOMPARE(int(model->supportedDragActions()), int(Qt::CopyAction));

    const std::unique_ptr<QMimeData> dragged(model->mimeData({model->index(1, 0)}));
    QCOMPARE(dragged->formats(), formats);
    const std::unique_ptr<QMimeData> nothing(model->mimeData({}));
    QCOMPARE(nothing->formats(), formats);
    QCOMPARE(nothing->data(listFormat()), QByteArray());
    QCOMPARE(nothing->data(colorFormat()), QByteArray());
}

void ModelContract::takesAWholePayloadWhateverRowAndColumn()
{
    const auto dropped = redPayload(listFields());
    const auto reference = numbered(3);
    QVERIFY(drop(reference.get(), dropped.get(), reference->index(1, 0)));
    QVERIFY(asText(records(*reference)) != asText(records(*numbered(3))));
    for (const int place : {-1, 0, 1, 2, 3, INT_MAX, INT_MIN}) {
        for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction}) {
            const auto model = numbered(3);
            QVERIFY(model->dropMimeData(dropped.get(), action, place, place, model->index(1, 0)));
            COMPARE_RECORDS(records(*model), records(*reference));
        }
    }
    // It takes no more fields than the model needs.
    const auto model = numbered(3);
    QVERIFY(drop(model.get(), redPayload(listFields().mid(0, payloadFields())).get(), model->index(1, 0)));
    COMPARE_RECORDS(records(*model), records(*reference));
}

void ModelContract::ignoresTheIgnoreAction()
{
    const auto model = numbered(2);
    occupy(model.get(), 0);
    const RecordRows before = records(*model);
    const ModelSignals all(*model);
    const auto whole = redPayload(listFields());
    const QMimeData nothing;
    for (const QMimeData* data :
         {static_cast<const QMimeData*>(whole.get()), &nothing, static_cast<const QMimeData*>(nullptr)}) {
        for (const QModelIndex& target : {model->index(0, 0), QModelIndex()})
            QVERIFY(model->dropMimeData(data, Qt::IgnoreAction, 0, 0, target));
    }
    COMPARE_RECORDS(records(*model), before);
    QCOMPARE(all.count(), 0);
}

void ModelContract::refusesADamagedPayload_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QByteArray>("colors");
    const QByteArray red = colorBytes(Qt::red);
    const QStringList fields = padFields("1", "0").mid(0, payloadFields());
    const QByteArray good = stringBytes(fields);
    QTest::newRow("empty") << QByteArray("") << QByteArray("");
    QTest::newRow("no colour") << good << QByteArray("");
    QTest::newRow("no fields") << QByteArray("") << red;
    for (int count = 1; count < payloadFields(); ++count)
        QTest::addRow("%d fields", count) << stringBytes(fields.mid(0, count)) << red;
    QTest::newRow("cut inside the last field") << good.chopped(1) << red;
    QTest::newRow("cut inside a length") << good + QByteArray::fromHex("0000") << red;
    QTest::newRow("colour cut short") << good << red.chopped(1);
    QTest::newRow("garbage") << QByteArray("\x01garbage that is no stream") << red;
    QTest::newRow("field longer than the bytes") << QByteArray::fromHex("7ffffffe0041") << red;
    QTest::newRow("field of an odd length") << QByteArray::fromHex("000000030041004200") << red;
}

void ModelContract::refusesADamagedPayload()
{
    QFETCH(QByteArray, list);
    QFETCH(QByteArray, colors);
    const auto model = numbered(3);
    occupy(model.get(), 0);
    occupy(model.get(), 1);
    const RecordRows before = records(*model);
    const ModelSignals all(*model);
    for (int row = 0; row < 3; ++row)
        QVERIFY(!drop(model.get(), payload(list, colors).get(), model->index(row, 0)));
    COMPARE_RECORDS(records(*model), before);
    QCOMPARE(all.count(), 0);
    // The sound one is taken: what was refused above was refused for its damage.
    const QStringList whole = padFields("1", "0").mid(0, payloadFields());
    QVERIFY(drop(model.get(), redPayload(whole).get(), model->index(2, 0)));
}

void ModelContract::refusesAPayloadWithoutBothFormats()
{
    const auto model = numbered(2);
    occupy(model.get(), 0);
    const RecordRows before = records(*model);
    const ModelSignals all(*model);
    QVERIFY(!drop(model.get(), nullptr, model->index(0, 0)));
    const QMimeData nothing;
    QVERIFY(!drop(model.get(), &nothing, model->index(0, 0)));
    for (const QString& format : {listFormat(), colorFormat()}) {
        const auto half = redPayload(listFields());
        half->removeFormat(format);
        QVERIFY(!drop(model.get(), half.get(), model->index(0, 0)));
    }
    COMPARE_RECORDS(records(*model), before);
    QCOMPARE(all.count(), 0);
}

void ModelContract::refusesADropWithoutATarget()
{
    const auto model = numbered(3);
    occupy(model.get(), 1);
    const QModelIndex gone = model->index(2, columns() - 1);
    model->removeRows(2, 1);
    const auto foreign = numbered(3);
    const RecordRows before = records(*model);
    const ModelSignals all(*model);
    const auto fromlist = redPayload(listFields());
    const std::unique_ptr<QMimeData> own(model->mimeData({model->index(1, 0)}));
    const QModelIndexList nowhere{QModelIndex(),
                                  gone,
                                  foreign->index(0, 0),
                                  anywhere(*model, 2, 0),
                                  anywhere(*model, INT_MAX, 0),
                                  anywhere(*model, 0, columns())};
    for (const QMimeData* data : {fromlist.get(), own.get()}) {
        for (const QModelIndex& target : nowhere) {
            QVERIFY(!model->dropMimeData(data, Qt::CopyAction, -1, -1, target));
            QVERIFY(!model->dropMimeData(data, Qt::CopyAction, 1, 1, target));
        }
    }
    COMPARE_RECORDS(records(*model), before);
    QCOMPARE(all.count(), 0);
}

void ModelContract::keepsTheRulesOfItemModels()
{
    const auto model = make();
    const Tester tester(model.get(), Tester::FailureReportingMode::QtTest);
    for (int round = 0; round < 2; ++round) {
        QVERIFY(model->insertRows(0, 3));
        QVERIFY(model->insertRows(0, 1));
        for (int row = 0; row < 4; ++row) {
            for (const ContractRole& item : roles())
                QVERIFY(model->setData(model->index(row, 0), QString::number(row), item.role));
        }
        QCOMPARE(rowNames(*model), QString("0 1 2 3"));
        QVERIFY(drop(model.get(), redPayload(listFields()).get(), model->index(1, 0)));
        const std::unique_ptr<QMimeData> dragged(model->mimeData({model->index(2, 0)}));
        QVERIFY(drop(model.get(), dragged.get(), model->index(3, 0)));
        QCOMPARE(model->rowCount(model->index(0, 0)), 0);
        QCOMPARE(model->columnCount(model->index(0, 0)), 0);
        QVERIFY(model->removeRows(2, 5));
        QCOMPARE(model->rowCount(), 2);
        QVERIFY(model->removeRows(0, 2));
        QCOMPARE(model->rowCount(), 0);
    }
}

void GridContract::startsWithACopyOfTheGrid()
{
    QObject parent;
    const RecordRows original{{{{"name", "A"}, {"color", "#ff0000"}}, {{"name", "B"}}},
                              {{{"name", "C"}}, {{"name", "D"}, {"id", "4"}}}};
    RecordRows grid = original;
    const auto model = makefrom(grid, &parent);
    QCOMPARE(model->parent(), &parent);
    grid[0][0]["name"] = "changed outside";
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->columnCount(), columns());
    QCOMPARE(model->index(0, 0).data().toString(), QString("A"));
    QCOMPARE(model->index(0, 1).data().toString(), QString("B"));
    QCOMPARE(model->index(1, 0).data().toString(), QString("C"));
    QCOMPARE(model->index(1, 1).data().toString(), QString("D"));
    COMPARE_RECORDS(records(*model), original);

    RecordRows list = records(*model);
    list[1][1]["name"] = "changed outside";
    COMPARE_RECORDS(records(*model), original);
}

void GridContract::readsAndTakesNothingThatAShortRowLacks()
{
    const RecordRows grid{{{{"name", "A"}, {"pagenr", "1"}}}, {}};
    const auto model = makefrom(grid);
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->index(0, 0).data().toString(), QString("A"));
    for (const QModelIndex& missing : {model->index(0, 1), model->index(1, 0), model->index(1, 1)}) {
        QVERIFY(missing.isValid());
        for (const int role : manyRoles()) {
            QVERIFY(!missing.data(role).isValid());
            QVERIFY(!model->setData(missing, "1", role));
        }
    }
    COMPARE_RECORDS(records(*model), grid);
}

void GridContract::refusesADropOnAPadThatAShortRowLacks()
{
    const RecordRows grid{{{{"name", "A"}, {"pagenr", "1"}, {"id", "3"}}}, {}};
    const auto model = makefrom(grid);
    const ModelSignals all(*model);
    const auto fromlist = redPayload(listFields());
    QVERIFY(!drop(model.get(), fromlist.get(), model->index(0, 1)));
    QVERIFY(!drop(model.get(), fromlist.get(), model->index(1, 0)));
    const std::unique_ptr<QMimeData> own(model->mimeData({model->index(0, 0)}));
    QVERIFY(!drop(model.get(), own.get(), model->index(1, 0)));
    // Out of a pad that its row lacks
    QVERIFY(!drop(model.get(), redPayload(padFields("0", "1")).get(), model->index(0, 0)));
    COMPARE_RECORDS(records(*model), grid);
    QCOMPARE(all.count(), 0);
    QVERIFY(drop(model.get(), fromlist.get(), model->index(0, 0)));
}

void GridContract::refusesAPadFromNowhere_data()
{
    QTest::addColumn<QStringList>("fields");
    const QVector<QPair<QString, QString>> places{{"-1", "0"},
                                                  {"3", "0"},
                                                  {"1", "-1"},
                                                  {"1", QString::number(columns())},
                                                  {"", ""},
                                                  {QString(), QString()},
                                                  {"x", "0"},
                                                  {"1", "y"},
                                                  {"1.5", "0"},
                                                  {"99999999999", "0"},
                                                  {"2147483647", "2147483647"},
                                                  {"1 x", "0"},
                                                  {"0x", "0"}};
    for (const auto& place : places)
        QTest::addRow("pad from '%s','%s'%s", qPrintable(place.first), qPrintable(place.second),
                      place.first.isNull() ? ", null" : "")
            << padFields(place.first, place.second);
    for (const char* row : {"-1", "", "x"}) {
        QStringList fields = listFields();
        fields[0] = row;
        QTest::addRow("list row '%s'", row) << fields;
    }
}

void GridContract::refusesAPadFromNowhere()
{
    QFETCH(QStringList, fields);
    const auto model = numbered(3);
    occupy(model.get(), 0);
    occupy(model.get(), 1);
    const RecordRows before = records(*model);
    const ModelSignals all(*model);
    for (int row = 0; row < 3; ++row)
        QVERIFY(!drop(model.get(), redPayload(fields).get(), model->index(row, 0)));
    COMPARE_RECORDS(records(*model), before);
    QCOMPARE(all.count(), 0);
    // The same pad from where it is gets taken.
    QVERIFY(drop(model.get(), redPayload(padFields("1", "0")).get(), model->index(2, 0)));
    QCOMPARE(model->index(2, 0).data().toString(), QString("Fog"));
}

void GridContract::keepsTheRulesOfItemModelsWithShortRows()
{
    const auto model = makefrom({{{{"name", "A"}}}, {}});
    const Tester tester(model.get(), Tester::FailureReportingMode::QtTest);
    QVERIFY(model->insertRows(0, 1));
    QVERIFY(model->removeRows(0, 3));
    QCOMPARE(model->rowCount(), 0);
}
