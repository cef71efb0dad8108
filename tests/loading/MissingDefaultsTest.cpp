// Fixed defaults and visibility of certain database columns.

#include "support/ColumnProperties.h"

#include "loading/CTemplateBuilder.h"
#include "rawdata/CColumnData.h"
#include "standalone_host/StandaloneHost.h"

#include <QTest>
#include <QThread>

using namespace Tobrix::Templates;
using Tobrix::Standalone::StandaloneHost;

namespace {

const char *const nodeTypeColumns[] = {"OBJ_FromNode_REF.OBJ_Type", "OBJ_ToNode_REF.OBJ_Type", "OBJ_Type"};
const char *const addressColumns[] = {"OBJ_Street", "OBJ_City", "OBJ_CityKey", "OBJ_StreetKey"};
const char *const otherColumns[] = {"OBJ_Key", "obj_type", "OBJ_Type ", "OBJ_FromNode_REF", "OBJ_city", ""};

const QString completedTable = QStringLiteral("T5");

/// Any record for a visible column.
CColumnData dataOf(CTemplateColumn::ColumnType type, const QString &boundColumn, const QString &tableName)
{
    CColumnData data;
    data.columnType = type;
    data.boundColumn = boundColumn;
    data.tableName = tableName;
    data.isVisible = true;
    return data;
}

std::unique_ptr<CTemplateColumn> build(const CColumnData &data)
{
    return std::unique_ptr<CTemplateColumn>(CTemplateBuilder::buildColumn(data));
}

void addColumnRows(const std::vector<const char *> &columns)
{
    QTest::addColumn<QString>("boundColumn");
    for (const char *column : columns) {
        QTest::newRow(column) << QString(QLatin1String(column));
    }
}

void addNodeTypeRows()
{
    addColumnRows({std::begin(nodeTypeColumns), std::end(nodeTypeColumns)});
}

void addAddressRows()
{
    addColumnRows({std::begin(addressColumns), std::end(addressColumns)});
}

} // namespace

class MissingDefaultsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void nodeTypeThatWasNeverSetIsNode_data() { addNodeTypeRows(); }
    void nodeTypeThatWasNeverSetIsNode();
    void nodeTypeThatIsSetIsKept_data() { addNodeTypeRows(); }
    void nodeTypeThatIsSetIsKept();
    void nodeTypeOfOtherTablesIsKept_data() { addNodeTypeRows(); }
    void nodeTypeOfOtherTablesIsKept();
    void columnWithoutDefaultValueGetsNone_data() { addNodeTypeRows(); }
    void columnWithoutDefaultValueGetsNone();
    void typedNullIsReplacedWhateverItsType_data() { addNodeTypeRows(); }
    void typedNullIsReplacedWhateverItsType();

    void addressColumnIsHidden_data() { addAddressRows(); }
    void addressColumnIsHidden();
    void addressColumnOfOtherTablesIsLeftAsItIs_data() { addAddressRows(); }
    void addressColumnOfOtherTablesIsLeftAsItIs();

    void otherBoundColumnsAreNotTouched_data();
    void otherBoundColumnsAreNotTouched();
    void onlyTextAndIntegerColumnsAreCompleted_data();
    void onlyTextAndIntegerColumnsAreCompleted();
    void nothingElseChanges_data();
    void nothingElseChanges();
    void firstCallsMayComeFromSeveralThreads();
};

void MissingDefaultsTest::init()
{
    StandaloneHost &host = StandaloneHost::instance();
    host.reset();
    host.registerTable(completedTable, 5);
    host.registerTable(QStringLiteral("T4"), 4);
    host.registerTable(QStringLiteral("T6"), 6);
    host.registerTable(QStringLiteral("T-5"), -5);
}

void MissingDefaultsTest::nodeTypeThatWasNeverSetIsNode()
{
    QFETCH(QString, boundColumn);
    const auto column = build(dataOf(CTemplateColumn::Text, boundColumn, completedTable));
    QCOMPARE(column->defaultValue(), QVariant(QStringLiteral("NOD")));
    QCOMPARE(column->defaultValue().userType(), static_cast<int>(QMetaType::QString));
    QVERIFY(column->isVisible());
}

void MissingDefaultsTest::nodeTypeThatIsSetIsKept()
{
    QFETCH(QString, boundColumn);
    CColumnData data = dataOf(CTemplateColumn::Text, boundColumn, completedTable);
    for (const auto &text : {QStringLiteral("OUT"), QStringLiteral(" "), QStringLiteral("")}) {
        data.defaultValue = text;
        const auto column = build(data);
        QCOMPARE(column->defaultValue().toString(), text);
        QVERIFY(!column->defaultValue().isNull());
    }
}

void MissingDefaultsTest::nodeTypeOfOtherTablesIsKept()
{
    QFETCH(QString, boundColumn);
    for (const auto &table : {QStringLiteral("T4"), QStringLiteral("T6"), QStringLiteral("T-5"),
                              QStringLiteral("t5"), QStringLiteral("unknown"), QString()}) {
        const auto column = build(dataOf(CTemplateColumn::Text, boundColumn, table));
        QVERIFY2(column->defaultValue().isNull(), qPrintable(table));
        QVERIFY2(column->hasDefaultValue(), qPrintable(table));
    }
}

void MissingDefaultsTest::columnWithoutDefaultValueGetsNone()
{
    QFETCH(QString, boundColumn);
    const auto integer = build(dataOf(CTemplateColumn::Integer, boundColumn, completedTable));
    QVERIFY(!integer->hasDefaultValue());

    CTextColumn text;
    text.setBoundColumn(boundColumn);
    text.setTableName(completedTable);
    CTemplateBuilder::applyMissingDefaults(&text);
    QVERIFY(!text.hasDefaultValue());
}

void MissingDefaultsTest::typedNullIsReplacedWhateverItsType()
{
    QFETCH(QString, boundColumn);
    for (const auto type : {QVariant::String, QVariant::Int, QVariant::Double}) {
        CIntegerColumn column;
        column.setBoundColumn(boundColumn);
        column.setTableName(completedTable);
        column.setDefaultValue(QVariant(type));
        CTemplateBuilder::applyMissingDefaults(&column);
        QCOMPARE(column.defaultValue(), QVariant(QStringLiteral("NOD")));
    }
}

void MissingDefaultsTest::addressColumnIsHidden()
{
    QFETCH(QString, boundColumn);
    for (const auto type : {CTemplateColumn::Text, CTemplateColumn::Integer}) {
        CColumnData data = dataOf(type, boundColumn, completedTable);
        QVERIFY(!build(data)->isVisible());
        data.isVisible = false;
        QVERIFY(!build(data)->isVisible());
    }
    QVERIFY(build(dataOf(CTemplateColumn::Text, boundColumn, completedTable))->defaultValue().isNull());
}

void MissingDefaultsTest::addressColumnOfOtherTablesIsLeftAsItIs()
{
    QFETCH(QString, boundColumn);
    for (const auto &table : {QStringLiteral("T4"), QStringLiteral("T6"), QStringLiteral("T-5"),
                              QStringLiteral("unknown"), QString()}) {
        CColumnData data = dataOf(CTemplateColumn::Text, boundColumn, table);
        QVERIFY2(build(data)->isVisible(), qPrintable(table));
        data.isVisible = false;
        QVERIFY2(!build(data)->isVisible(), qPrintable(table));
    }
}

void MissingDefaultsTest::otherBoundColumnsAreNotTouched_data()
{
    addColumnRows({std::begin(otherColumns), std::end(otherColumns)});
}

void MissingDefaultsTest::otherBoundColumnsAreNotTouched()
{
    QFETCH(QString, boundColumn);
    const auto column = build(dataOf(CTemplateColumn::Text, boundColumn, completedTable));
    QVERIFY(column->isVisible());
    QVERIFY(column->defaultValue().isNull());
    QVERIFY(column->hasDefaultValue());
}

void MissingDefaultsTest::onlyTextAndIntegerColumnsAreCompleted_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("isCompleted");
    for (const auto &kind : columnKinds()) {
        QTest::newRow(kind.name) << static_cast<int>(kind.type)
                                 << (kind.type == CTemplateColumn::Text ||
                                     kind.type == CTemplateColumn::Integer);
    }
}

void MissingDefaultsTest::onlyTextAndIntegerColumnsAreCompleted()
{
    QFETCH(int, type);
    QFETCH(bool, isCompleted);
    const auto columnType = static_cast<CTemplateColumn::ColumnType>(type);
    for (const char *boundColumn : addressColumns) {
        const auto column = build(dataOf(columnType, QLatin1String(boundColumn), completedTable));
        QCOMPARE(column->isVisible(), !isCompleted);
    }
    for (const char *boundColumn : nodeTypeColumns) {
        const auto column = build(dataOf(columnType, QLatin1String(boundColumn), completedTable));
        QCOMPARE(column->defaultValue().toString(),
                 columnType == CTemplateColumn::Text ? QStringLiteral("NOD") : QString());
        QVERIFY(column->isVisible());
    }
}

void MissingDefaultsTest::nothingElseChanges_data()
{
    std::vector<const char *> columns(std::begin(nodeTypeColumns), std::end(nodeTypeColumns));
    columns.insert(columns.end(), std::begin(addressColumns), std::end(addressColumns));
    addColumnRows(columns);
}

void MissingDefaultsTest::nothingElseChanges()
{
    QFETCH(QString, boundColumn);
    CTextColumn column;
    for (const auto &property : columnProperties(CTemplateColumn::Text)) {
        if (property.set) {
            property.set(column, property.sample);
        }
    }
    column.setBoundColumn(boundColumn);
    column.setTableName(completedTable);
    column.setDefaultValue(QVariant(QString()));
    QVariantMap expected = valuesOf(column);
    if (boundColumn.endsWith(QLatin1String("OBJ_Type"))) {
        expected[QStringLiteral("defaultValue")] = QStringLiteral("NOD");
    } else {
        expected[QStringLiteral("isVisible")] = false;
    }
    CTemplateBuilder::applyMissingDefaults(&column);
    COMPARE_VALUES(valuesOf(column), expected);
}

void MissingDefaultsTest::firstCallsMayComeFromSeveralThreads()
{
    std::vector<std::unique_ptr<QThread>> threads;
    std::atomic<int> completed = 0;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back(QThread::create([&completed] {
            for (int round = 0; round < 100; ++round) {
                const auto column =
                    build(dataOf(CTemplateColumn::Text, QStringLiteral("OBJ_Type"), completedTable));
                completed += column->defaultValue() == QVariant(QStringLiteral("NOD"));
            }
        }));
        threads.back()->start();
    }
    for (const auto &thread : threads) {
        thread->wait();
    }
    QCOMPARE(completed.load(), 400);
}

QTEST_APPLESS_MAIN(MissingDefaultsTest)

#include "MissingDefaultsTest.moc"
