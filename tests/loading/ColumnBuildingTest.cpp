// Typed columns built from column records.

#include "support/ColumnProperties.h"
#include "support/RecordProperties.h"

#include "loading/CTemplateBuilder.h"
#include "standalone_host/StandaloneHost.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace Tobrix::Templates;
using Tobrix::Standalone::StandaloneHost;

namespace {

CTemplateColumn::ColumnType typeOf(int number)
{
    return static_cast<CTemplateColumn::ColumnType>(number);
}

CColumnData dataOf(int type)
{
    CColumnData data;
    data.columnType = typeOf(type);
    return data;
}

std::unique_ptr<CTemplateColumn> build(const CColumnData &data)
{
    return std::unique_ptr<CTemplateColumn>(CTemplateBuilder::buildColumn(data));
}

std::unique_ptr<CTemplateColumn> buildWithDefault(int type, const QString &defaultValue)
{
    CColumnData data = dataOf(type);
    data.defaultValue = defaultValue;
    return build(data);
}

struct DefaultRow
{
    const char *name;
    CTemplateColumn::ColumnType type;
    QString text;
    QVariant value; ///< The converted text; invalid for no default value.
};

const std::vector<DefaultRow> &defaultRows()
{
    using Column = CTemplateColumn;
    const auto text = [](const char *value) { return QString(QLatin1String(value)); };
    const QVariant none;
    static const std::vector<DefaultRow> rows = {
        {"text: null", Column::Text, QString(), QString()},
        {"text: empty", Column::Text, text(""), text("")},
        {"text: text", Column::Text, text(" as it stands "), text(" as it stands ")},
        {"text: number", Column::Text, text("12"), text("12")},
        {"text: today marker", Column::Text, text("=Today()"), text("=Today()")},
        {"integer: null", Column::Integer, QString(), none},
        {"integer: empty", Column::Integer, text(""), none},
        {"integer: number", Column::Integer, text("42"), 42},
        {"integer: negative", Column::Integer, text("-7"), -7},
        {"integer: zero", Column::Integer, text("0"), 0},
        {"integer: leading zero is decimal", Column::Integer, text("010"), 10},
        {"integer: hexadecimal", Column::Integer, text("0x10"), 0},
        {"integer: trailing letters", Column::Integer, text("12abc"), 0},
        {"integer: decimal places", Column::Integer, text("1.5"), 0},
        {"integer: words", Column::Integer, text("many"), 0},
        {"integer: blank", Column::Integer, text(" "), 0},
        {"integer: too great", Column::Integer, text("2147483648"), 0},
        {"integer: today marker", Column::Integer, text("=Today()"), 0},
        {"decimal: null", Column::Decimal, QString(), none},
        {"decimal: empty", Column::Decimal, text(""), none},
        {"decimal: number", Column::Decimal, text("1.5"), 1.5},
        {"decimal: negative", Column::Decimal, text("-0.25"), -0.25},
        {"decimal: zero", Column::Decimal, text("0"), 0.0},
        {"decimal: exponent", Column::Decimal, text("2e3"), 2000.0},
        {"decimal: comma", Column::Decimal, text("1,5"), 0.0},
        {"decimal: words", Column::Decimal, text("many"), 0.0},
        {"decimal: blank", Column::Decimal, text(" "), 0.0},
        {"boolean: null", Column::Boolean, QString(), none},
        {"boolean: empty", Column::Boolean, text(""), none},
        {"boolean: true", Column::Boolean, text("true"), true},
        {"boolean: false", Column::Boolean, text("false"), none},
        {"boolean: True", Column::Boolean, text("True"), none},
        {"boolean: 1", Column::Boolean, text("1"), none},
        {"date: null", Column::Date, QString(), none},
        {"date: date", Column::Date, text("2001-02-03"), none},
        {"date: today marker", Column::Date, text("=Today()"), none},
        {"time: null", Column::Time, QString(), none},
        {"time: time", Column::Time, text("12:30"), none},
        {"time: today marker", Column::Time, text("=Today()"), none},
    };
    return rows;
}

} // namespace

class ColumnBuildingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { StandaloneHost::instance().reset(); }

    void typeGivesTheClassOfColumn_data();
    void typeGivesTheClassOfColumn();
    void fieldOfTheRecordReachesItsProperty_data();
    void fieldOfTheRecordReachesItsProperty();
    void unsetRecordGivesTheRangesAndPrecisionOfTheRecord();
    void defaultTextBecomesDefaultValue_data();
    void defaultTextBecomesDefaultValue();
    void nullDefaultIsNullTextOrNothing_data();
    void nullDefaultIsNullTextOrNothing();
    void todayMarkerIsComparedExactly_data();
    void todayMarkerIsComparedExactly();
    void limitsOfIntegersAreTruncatedAndSaturated_data();
    void limitsOfIntegersAreTruncatedAndSaturated();
    void limitsOfDecimalsAreKeptAsTheyAre_data();
    void limitsOfDecimalsAreKeptAsTheyAre();
    void displayFormatIsForDatesAlone();
};

void ColumnBuildingTest::typeGivesTheClassOfColumn_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("built");
    QTest::newRow("negative") << -1 << 0;
    QTest::newRow("0 unknown") << 0 << 0;
    QTest::newRow("1 text") << 1 << 1;
    QTest::newRow("2 integer") << 2 << 2;
    QTest::newRow("3 decimal") << 3 << 3;
    QTest::newRow("4 boolean") << 4 << 4;
    QTest::newRow("5 date") << 5 << 5;
    QTest::newRow("6 time") << 6 << 6;
    QTest::newRow("7 is none") << 7 << 0;
    QTest::newRow("great number") << std::numeric_limits<int>::max() << 0;
}

void ColumnBuildingTest::typeGivesTheClassOfColumn()
{
    QFETCH(int, type);
    QFETCH(int, built);
    const auto column = build(dataOf(type));
    QCOMPARE(column ? static_cast<int>(column->columnType()) : 0, built);
    QCOMPARE(dynamic_cast<CTextColumn *>(column.get()) != nullptr, built == 1);
    QCOMPARE(dynamic_cast<CIntegerColumn *>(column.get()) != nullptr, built == 2);
    QCOMPARE(dynamic_cast<CDecimalColumn *>(column.get()) != nullptr, built == 3);
    QCOMPARE(dynamic_cast<CBooleanColumn *>(column.get()) != nullptr, built == 4);
    QCOMPARE(dynamic_cast<CDateColumn *>(column.get()) != nullptr, built == 5);
    QCOMPARE(dynamic_cast<CTimeColumn *>(column.get()) != nullptr, built == 6);
}

void ColumnBuildingTest::fieldOfTheRecordReachesItsProperty_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    const auto properties = columnDataProperties();
    for (const auto &kind : columnKinds()) {
        for (std::size_t i = 0; i < properties.size(); ++i) {
            const QString name = QLatin1String(properties[i].name);
            // The type selects the class; default values are tested separately.
            if (name != QLatin1String("columnType") && name != QLatin1String("defaultValue")) {
                QTest::addRow("%s column: %s", kind.name, properties[i].name)
                    << static_cast<int>(kind.type) << static_cast<int>(i);
            }
        }
    }
}

void ColumnBuildingTest::fieldOfTheRecordReachesItsProperty()
{
    QFETCH(int, type);
    QFETCH(int, index);
    const auto property = columnDataProperties().at(static_cast<std::size_t>(index));
    const QString name = QLatin1String(property.name);
    CColumnData data = dataOf(type);
    QVariantMap expected = valuesOf(*build(data));
    if (expected.contains(name)) {
        QVariant value = property.sample;
        QVERIFY(value.convert(expected.value(name).userType()));
        expected[name] = value;
    }
    property.set(data, property.sample);
    COMPARE_VALUES(valuesOf(*build(data)), expected);
}

void ColumnBuildingTest::unsetRecordGivesTheRangesAndPrecisionOfTheRecord()
{
    const QVariantMap integer = valuesOf(*build(dataOf(CTemplateColumn::Integer)));
    QCOMPARE(integer.value(QStringLiteral("minimumValue")).toInt(), -2147483647);
    QCOMPARE(integer.value(QStringLiteral("maximumValue")).toInt(), 2147483647);
    QCOMPARE(integer.value(QStringLiteral("stepInterval")).toInt(), 0);
    const QVariantMap decimal = valuesOf(*build(dataOf(CTemplateColumn::Decimal)));
    QCOMPARE(decimal.value(QStringLiteral("minimumValue")).toDouble(), -2147483647.0);
    QCOMPARE(decimal.value(QStringLiteral("maximumValue")).toDouble(), 2147483647.0);
    QCOMPARE(decimal.value(QStringLiteral("precision")).toInt(), 2);
    for (const auto &values : {integer, decimal}) {
        QCOMPARE(values.value(QStringLiteral("sortOrder")).toInt(), 0);
        QCOMPARE(values.value(QStringLiteral("width")).toInt(), 0);
    }
}

void ColumnBuildingTest::defaultTextBecomesDefaultValue_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < defaultRows().size(); ++i) {
        QTest::newRow(defaultRows()[i].name) << static_cast<int>(i);
    }
}

void ColumnBuildingTest::defaultTextBecomesDefaultValue()
{
    QFETCH(int, row);
    const DefaultRow &expected = defaultRows().at(static_cast<std::size_t>(row));
    const auto column = buildWithDefault(expected.type, expected.text);
    const QVariant value = column->defaultValue();
    QCOMPARE(value.userType(), expected.value.userType());
    QCOMPARE(value, expected.value);
    QCOMPARE(value.isNull(), expected.value.isNull());
    QCOMPARE(column->hasDefaultValue(), expected.value.isValid());
}

void ColumnBuildingTest::nullDefaultIsNullTextOrNothing_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("has");
    for (const auto &kind : columnKinds()) {
        QTest::newRow(kind.name) << static_cast<int>(kind.type) << (kind.type == CTemplateColumn::Text);
    }
}

void ColumnBuildingTest::nullDefaultIsNullTextOrNothing()
{
    QFETCH(int, type);
    QFETCH(bool, has);
    const auto column = build(dataOf(type));
    QCOMPARE(column->hasDefaultValue(), has);
    QVERIFY(column->defaultValue().isNull());
    QCOMPARE(column->defaultValue().userType(),
             static_cast<int>(has ? QMetaType::QString : QMetaType::UnknownType));
}

void ColumnBuildingTest::todayMarkerIsComparedExactly_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isToday");
    QTest::newRow("marker") << QStringLiteral("=Today()") << true;
    for (const char *text : {"=today()", "=TODAY()", "Today()", "=Today", " =Today()", "=Today() ",
                             "=Today( )", "=Now()", "2001-02-03", "true", ""}) {
        QTest::addRow("\"%s\"", text) << QString(QLatin1String(text)) << false;
    }
    QTest::newRow("null") << QString() << false;
}

void ColumnBuildingTest::todayMarkerIsComparedExactly()
{
    QFETCH(QString, text);
    QFETCH(bool, isToday);
    const auto date = buildWithDefault(CTemplateColumn::Date, text);
    const auto time = buildWithDefault(CTemplateColumn::Time, text);
    QCOMPARE(static_cast<const CDateColumn &>(*date).initializeWithNow(), isToday);
    QCOMPARE(static_cast<const CTimeColumn &>(*time).initializeWithNow(), isToday);
    QVERIFY(!date->hasDefaultValue());
    QVERIFY(!time->hasDefaultValue());
}

void ColumnBuildingTest::limitsOfIntegersAreTruncatedAndSaturated_data()
{
    using Real = std::numeric_limits<double>;
    const int greatest = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    QTest::addColumn<double>("limit");
    QTest::addColumn<int>("number");
    QTest::newRow("zero") << 0.0 << 0;
    QTest::newRow("minus zero") << -0.0 << 0;
    QTest::newRow("whole") << 12.0 << 12;
    QTest::newRow("towards zero from above") << 2.9 << 2;
    QTest::newRow("towards zero from below") << -2.9 << -2;
    QTest::newRow("less than one") << 0.999 << 0;
    QTest::newRow("more than minus one") << -0.999 << 0;
    QTest::newRow("greatest") << 2147483647.0 << greatest;
    QTest::newRow("greatest and a half") << 2147483647.5 << greatest;
    QTest::newRow("one more than the greatest") << 2147483648.0 << greatest;
    QTest::newRow("one more than the least") << -2147483647.0 << least + 1;
    QTest::newRow("half more than the least") << -2147483647.5 << least + 1;
    QTest::newRow("least") << -2147483648.0 << least;
    QTest::newRow("half less than the least") << -2147483648.5 << least;
    QTest::newRow("one less than the least") << -2147483649.0 << least;
    QTest::newRow("far above") << 1e300 << greatest;
    QTest::newRow("far below") << -1e300 << least;
    QTest::newRow("infinite") << Real::infinity() << greatest;
    QTest::newRow("minus infinite") << -Real::infinity() << least;
    QTest::newRow("not a number") << Real::quiet_NaN() << 0;
}

void ColumnBuildingTest::limitsOfIntegersAreTruncatedAndSaturated()
{
    QFETCH(double, limit);
    QFETCH(int, number);
    CColumnData data = dataOf(CTemplateColumn::Integer);
    data.minimumValue = data.maximumValue = data.stepInterval = limit;
    const auto column = build(data);
    const auto &integer = static_cast<const CIntegerColumn &>(*column);
    QCOMPARE(integer.minimumValue(), number);
    QCOMPARE(integer.maximumValue(), number);
    QCOMPARE(integer.stepInterval(), number);
}

void ColumnBuildingTest::limitsOfDecimalsAreKeptAsTheyAre_data()
{
    QTest::addColumn<double>("limit");
    QTest::newRow("decimal places") << 2.9;
    QTest::newRow("beyond integers") << 2147483648.5;
    QTest::newRow("far above") << 1e300;
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
}

void ColumnBuildingTest::limitsOfDecimalsAreKeptAsTheyAre()
{
    QFETCH(double, limit);
    CColumnData data = dataOf(CTemplateColumn::Decimal);
    data.minimumValue = data.maximumValue = data.stepInterval = limit;
    const auto column = build(data);
    const auto &decimal = static_cast<const CDecimalColumn &>(*column);
    for (const double kept : {decimal.minimumValue(), decimal.maximumValue(), decimal.stepInterval()}) {
        QVERIFY(kept == limit || (std::isnan(kept) && std::isnan(limit)));
    }
}

void ColumnBuildingTest::displayFormatIsForDatesAlone()
{
    CColumnData data = dataOf(CTemplateColumn::Date);
    data.displayFormat = QStringLiteral("MM/yyyy");
    data.defaultValue = QStringLiteral("=Today()");
    const auto column = build(data);
    QCOMPARE(column->displayFormat(), QStringLiteral("MM/yyyy"));
    QVERIFY(!column->defaultValue().isValid());
}

QTEST_APPLESS_MAIN(ColumnBuildingTest)

#include "ColumnBuildingTest.moc"
