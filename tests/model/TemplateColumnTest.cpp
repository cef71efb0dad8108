// What all six kinds of column share.

#include "support/ColumnProperties.h"
#include "support/RecordedLog.h"
#include "support/TextWitness.h"

#include <QTest>

#include <limits>

using namespace Tobrix::Templates;

static_assert(!std::is_default_constructible_v<CTemplateColumn>, "columns exist only as typed columns");
static_assert(!std::is_copy_constructible_v<CTextColumn> && !std::is_copy_assignable_v<CTextColumn>);
static_assert(std::has_virtual_destructor_v<CTemplateColumn>);
static_assert(std::is_same_v<std::underlying_type_t<CTemplateColumn::GroupLevel>, int>);
static_assert(std::is_same_v<std::underlying_type_t<CTemplateColumn::TypeFlags>, int>);

namespace {

const LogLine getWarning = {2, QStringLiteral("TemplateColumn"),
                            QStringLiteral("Tried to GET display format from non-display-formattable.")};
const LogLine setWarning = {
    2, QStringLiteral("TemplateColumn"),
    QStringLiteral("WARNING: tried to SET display format on non-display-formattable.")};

CTemplateColumn::ColumnType typeOf(int number)
{
    return static_cast<CTemplateColumn::ColumnType>(number);
}

void addKindRowsWithoutDate()
{
    QTest::addColumn<int>("type");
    for (const auto &kind : columnKinds()) {
        if (kind.type != CTemplateColumn::Date) {
            QTest::newRow(kind.name) << static_cast<int>(kind.type);
        }
    }
}

} // namespace

class TemplateColumnTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnTypesHaveTheirNumbers_data();
    void columnTypesHaveTheirNumbers();
    void newColumnHasInitialValue_data();
    void newColumnHasInitialValue();
    void setterChangesItsPropertyAlone_data();
    void setterChangesItsPropertyAlone();
    void columnTypeNeverChanges_data();
    void columnTypeNeverChanges();
    void newColumnHasNoDefaultValue_data();
    void newColumnHasNoDefaultValue();
    void hasDefaultValueLooksOnlyAtTheType_data();
    void hasDefaultValueLooksOnlyAtTheType();
    void numbersOfGroupLevelAndTypeFlagsAreKeptAsTheyAre_data();
    void numbersOfGroupLevelAndTypeFlagsAreKeptAsTheyAre();
    void gettersReturnCopies();
    void displayFormatOfOtherThanDatesIsEmptyAndWarns_data();
    void displayFormatOfOtherThanDatesIsEmptyAndWarns();
    void settingDisplayFormatOfOtherThanDatesWarnsAndChangesNothing_data();
    void settingDisplayFormatOfOtherThanDatesWarnsAndChangesNothing();
    void deletingThroughTheBaseReleasesEveryText_data();
    void deletingThroughTheBaseReleasesEveryText();
};

void TemplateColumnTest::columnTypesHaveTheirNumbers_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("number");
    QTest::newRow("Unknown") << static_cast<int>(CTemplateColumn::Unknown) << 0;
    QTest::newRow("Text") << static_cast<int>(CTextColumn().columnType()) << 1;
    QTest::newRow("Integer") << static_cast<int>(CIntegerColumn().columnType()) << 2;
    QTest::newRow("Decimal") << static_cast<int>(CDecimalColumn().columnType()) << 3;
    QTest::newRow("Boolean") << static_cast<int>(CBooleanColumn().columnType()) << 4;
    QTest::newRow("Date") << static_cast<int>(CDateColumn().columnType()) << 5;
    QTest::newRow("Time") << static_cast<int>(CTimeColumn().columnType()) << 6;
    QTest::newRow("Text, enumerator") << static_cast<int>(CTemplateColumn::Text) << 1;
    QTest::newRow("Integer, enumerator") << static_cast<int>(CTemplateColumn::Integer) << 2;
    QTest::newRow("Decimal, enumerator") << static_cast<int>(CTemplateColumn::Decimal) << 3;
    QTest::newRow("Boolean, enumerator") << static_cast<int>(CTemplateColumn::Boolean) << 4;
    QTest::newRow("Date, enumerator") << static_cast<int>(CTemplateColumn::Date) << 5;
    QTest::newRow("Time, enumerator") << static_cast<int>(CTemplateColumn::Time) << 6;
}

void TemplateColumnTest::columnTypesHaveTheirNumbers()
{
    QFETCH(int, type);
    QTEST(type, "number");
}

void TemplateColumnTest::newColumnHasInitialValue_data()
{
    addKindAndPropertyRows(commonColumnProperties);
}

void TemplateColumnTest::newColumnHasInitialValue()
{
    QFETCH(int, type);
    QFETCH(int, index);
    const auto property = commonColumnProperties(typeOf(type)).at(static_cast<std::size_t>(index));
    const QVariant value = property.get(*emptyColumn(typeOf(type)));
    QCOMPARE(value, property.initial);
    QCOMPARE(value.userType(), property.initial.userType());
}

void TemplateColumnTest::setterChangesItsPropertyAlone_data()
{
    addKindAndPropertyRows(commonColumnProperties);
}

void TemplateColumnTest::setterChangesItsPropertyAlone()
{
    QFETCH(int, type);
    QFETCH(int, index);
    const auto property = commonColumnProperties(typeOf(type)).at(static_cast<std::size_t>(index));
    if (!property.set) {
        QCOMPARE(property.name, "columnType");
        return;
    }
    const auto column = emptyColumn(typeOf(type));
    QVariantMap expected = valuesOf(*column);
    expected[QLatin1String(property.name)] = property.sample;

    property.set(*column, property.sample);
    COMPARE_VALUES(valuesOf(*column), expected);

    property.set(*column, property.initial);
    COMPARE_VALUES(valuesOf(*column), valuesOf(*emptyColumn(typeOf(type))));
}

void TemplateColumnTest::columnTypeNeverChanges_data()
{
    addKindRows();
}

void TemplateColumnTest::columnTypeNeverChanges()
{
    QFETCH(int, type);
    const auto column = emptyColumn(typeOf(type));
    for (const auto &property : columnProperties(typeOf(type))) {
        if (property.set) {
            property.set(*column, property.sample);
        }
        for (const auto &kind : columnKinds()) {
            column->setDataType(QLatin1String(kind.code));
            QCOMPARE(static_cast<int>(column->columnType()), type);
        }
    }
}

void TemplateColumnTest::newColumnHasNoDefaultValue_data()
{
    addKindRows();
}

void TemplateColumnTest::newColumnHasNoDefaultValue()
{
    QFETCH(int, type);
    const auto column = emptyColumn(typeOf(type));
    QVERIFY(!column->hasDefaultValue());
    QVERIFY(!column->defaultValue().isValid());
}

void TemplateColumnTest::hasDefaultValueLooksOnlyAtTheType_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("has");
    QTest::newRow("invalid") << QVariant() << false;
    QTest::newRow("null text") << QVariant(QString()) << true;
    QTest::newRow("empty text") << QVariant(QStringLiteral("")) << true;
    QTest::newRow("text") << QVariant(QStringLiteral("NOD")) << true;
    QTest::newRow("null number") << QVariant(QVariant::Int) << true;
    QTest::newRow("zero") << QVariant(0) << true;
    QTest::newRow("false") << QVariant(false) << true;
}

void TemplateColumnTest::hasDefaultValueLooksOnlyAtTheType()
{
    QFETCH(QVariant, value);
    CTextColumn column;
    column.setDefaultValue(value);
    QTEST(column.hasDefaultValue(), "has");
    QCOMPARE(column.defaultValue().isNull(), value.isNull());

    column.setDefaultValue(QVariant());
    QVERIFY(!column.hasDefaultValue());
}

void TemplateColumnTest::numbersOfGroupLevelAndTypeFlagsAreKeptAsTheyAre_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("1") << 1;
    QTest::newRow("all nine levels") << 511;
    QTest::newRow("negative") << -1;
    QTest::newRow("greatest") << std::numeric_limits<int>::max();
    QTest::newRow("least") << std::numeric_limits<int>::min();
}

void TemplateColumnTest::numbersOfGroupLevelAndTypeFlagsAreKeptAsTheyAre()
{
    QFETCH(int, number);
    CTextColumn column;
    column.setGroupLevel(static_cast<CTemplateColumn::GroupLevel>(number));
    QCOMPARE(static_cast<int>(column.groupLevel()), number);
    QCOMPARE(static_cast<int>(column.typeFlags()), 0);
    column.setGroupLevel({});
    column.setTypeFlags(static_cast<CTemplateColumn::TypeFlags>(number));
    QCOMPARE(static_cast<int>(column.typeFlags()), number);
    QCOMPARE(static_cast<int>(column.groupLevel()), 0);
}

void TemplateColumnTest::gettersReturnCopies()
{
    CTextColumn column;
    QString text = QStringLiteral("Width");
    column.setCaption(text);
    text.append(QLatin1Char('!'));
    QCOMPARE(column.caption(), QStringLiteral("Width"));
    column.caption().append(QLatin1Char('!'));
    QCOMPARE(column.caption(), QStringLiteral("Width"));
}

void TemplateColumnTest::displayFormatOfOtherThanDatesIsEmptyAndWarns_data()
{
    addKindRowsWithoutDate();
}

void TemplateColumnTest::displayFormatOfOtherThanDatesIsEmptyAndWarns()
{
    QFETCH(int, type);
    const auto column = emptyColumn(typeOf(type));
    const RecordedLog log;
    QCOMPARE(column->displayFormat(), QString());
    QCOMPARE(log.lines(), QList<LogLine>{getWarning});
}

void TemplateColumnTest::settingDisplayFormatOfOtherThanDatesWarnsAndChangesNothing_data()
{
    addKindRowsWithoutDate();
}

void TemplateColumnTest::settingDisplayFormatOfOtherThanDatesWarnsAndChangesNothing()
{
    QFETCH(int, type);
    const auto column = emptyColumn(typeOf(type));
    const RecordedLog log;
    column->setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    QCOMPARE(log.lines(), QList<LogLine>{setWarning});
    COMPARE_VALUES(valuesOf(*column), valuesOf(*emptyColumn(typeOf(type))));
    QCOMPARE(column->displayFormat(), QString());
    QCOMPARE(log.lines(), (QList<LogLine>{setWarning, getWarning}));
}

void TemplateColumnTest::deletingThroughTheBaseReleasesEveryText_data()
{
    addKindRows();
}

void TemplateColumnTest::deletingThroughTheBaseReleasesEveryText()
{
    QFETCH(int, type);
    auto column = emptyColumn(typeOf(type));
    std::vector<TextWitness> witnesses(columnProperties(typeOf(type)).size());
    std::size_t texts = 0;
    for (const auto &property : columnProperties(typeOf(type))) {
        if (property.initial.userType() == QMetaType::QString) {
            property.set(*column, witnesses.at(texts++).text());
        }
    }
    witnesses.resize(texts);
    for (const auto &witness : witnesses) {
        QVERIFY(witness.isHeld());
    }
    column.reset();
    for (const auto &witness : witnesses) {
        QVERIFY(!witness.isHeld());
    }
}

QTEST_APPLESS_MAIN(TemplateColumnTest)

#include "TemplateColumnTest.moc"
