// What each of the six kinds of column adds, and the constructors that take everything.

#include "support/ColumnProperties.h"
#include "support/RecordedLog.h"

#include <QTest>

using namespace Tobrix::Templates;

// Only date columns do more than the base class does.
using GetText = QString (CTemplateColumn::*)() const;
static_assert(std::is_same_v<decltype(&CTextColumn::displayFormat), GetText>);
static_assert(std::is_same_v<decltype(&CIntegerColumn::displayFormat), GetText>);
static_assert(std::is_same_v<decltype(&CDecimalColumn::displayFormat), GetText>);
static_assert(std::is_same_v<decltype(&CBooleanColumn::displayFormat), GetText>);
static_assert(std::is_same_v<decltype(&CTimeColumn::displayFormat), GetText>);
static_assert(std::is_same_v<decltype(&CDateColumn::displayFormat), QString (CDateColumn::*)() const>);
static_assert(std::is_same_v<decltype(&CDateColumn::caption), GetText>);

namespace {

CTemplateColumn::ColumnType typeOf(int number)
{
    return static_cast<CTemplateColumn::ColumnType>(number);
}

/// Values by the names of the properties that they are for.
class Arguments
{
public:
    explicit Arguments(const QVariantMap &values) : m_values(values) {}

    QString text(const char *name) const { return value(name).toString(); }
    int number(const char *name) const { return value(name).toInt(); }
    double real(const char *name) const { return value(name).toDouble(); }
    bool flag(const char *name) const { return value(name).toBool(); }
    QVariant value(const char *name) const { return m_values.value(QLatin1String(name)); }

private:
    QVariantMap m_values;
};

template <typename Column, typename... Own>
std::unique_ptr<CTemplateColumn> construct(const Arguments &a, Own... own)
{
    return std::make_unique<Column>(
        a.text("uniqueId"), a.text("boundColumn"), a.text("tableName"), a.text("caption"), a.text("toolTip"),
        a.text("dataType"), a.text("unit"), a.text("dataSource"), a.value("defaultValue"),
        a.number("sortOrder"), static_cast<CTemplateColumn::GroupLevel>(a.number("groupLevel")),
        static_cast<CTemplateColumn::TypeFlags>(a.number("typeFlags")), a.flag("isVisible"),
        a.flag("isReadOnly"), a.flag("isMandatory"), a.flag("isVirtual"), a.flag("isValueTransfer"),
        a.number("controlType"), own...);
}

std::unique_ptr<CTemplateColumn> constructDate(const Arguments &a)
{
    return std::make_unique<CDateColumn>(
        a.text("uniqueId"), a.text("boundColumn"), a.text("tableName"), a.text("caption"), a.text("toolTip"),
        a.text("dataType"), a.text("unit"), a.text("dataSource"), a.text("displayFormat"),
        a.value("defaultValue"), a.number("sortOrder"),
        static_cast<CTemplateColumn::GroupLevel>(a.number("groupLevel")),
        static_cast<CTemplateColumn::TypeFlags>(a.number("typeFlags")), a.flag("isVisible"),
        a.flag("isReadOnly"), a.flag("isMandatory"), a.flag("isVirtual"), a.flag("isValueTransfer"),
        a.number("controlType"), a.flag("initializeWithNow"), a.number("width"));
}

/// A column made by the constructor that takes everything.
std::unique_ptr<CTemplateColumn> constructed(CTemplateColumn::ColumnType type, const QVariantMap &values)
{
    const Arguments a(values);
    switch (type) {
    case CTemplateColumn::Text:
        return construct<CTextColumn>(a, a.number("maximumTextLength"), a.number("width"));
    case CTemplateColumn::Integer:
        return construct<CIntegerColumn>(a, a.number("minimumValue"), a.number("maximumValue"),
                                         a.number("stepInterval"), a.number("width"));
    case CTemplateColumn::Decimal:
        return construct<CDecimalColumn>(a, a.real("minimumValue"), a.real("maximumValue"),
                                         a.real("stepInterval"), a.number("width"), a.number("precision"));
    case CTemplateColumn::Boolean:
        return construct<CBooleanColumn>(a, a.number("width"));
    case CTemplateColumn::Date:
        return constructDate(a);
    case CTemplateColumn::Time:
        return construct<CTimeColumn>(a, a.flag("initializeWithNow"), a.number("width"));
    case CTemplateColumn::Unknown:
        break;
    }
    return nullptr;
}

} // namespace

class TypedColumnsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addedPropertyHasInitialValue_data();
    void addedPropertyHasInitialValue();
    void addedSetterChangesItsPropertyAlone_data();
    void addedSetterChangesItsPropertyAlone();
    void fullConstructorTakesArgumentToItsProperty_data();
    void fullConstructorTakesArgumentToItsProperty();
    void fullConstructorTakesAllArgumentsAtOnce_data();
    void fullConstructorTakesAllArgumentsAtOnce();
    void newDecimalColumnHasNoRangeAndNoPrecision();
    void newIntegerColumnHasNoRangeAndNoStep();
    void decimalWidthAndPrecisionAreNotSwapped();
    void dateFormatDoesNotShiftTheDefaultValue();
    void dateDisplayFormatIsSilent();
    void timeColumnsHaveNoDisplayFormat();
};

void TypedColumnsTest::addedPropertyHasInitialValue_data()
{
    addKindAndPropertyRows(ownColumnProperties);
}

void TypedColumnsTest::addedPropertyHasInitialValue()
{
    QFETCH(int, type);
    QFETCH(int, index);
    const auto property = ownColumnProperties(typeOf(type)).at(static_cast<std::size_t>(index));
    const QVariant value = property.get(*emptyColumn(typeOf(type)));
    QCOMPARE(value, property.initial);
    QCOMPARE(value.userType(), property.initial.userType());
}

void TypedColumnsTest::addedSetterChangesItsPropertyAlone_data()
{
    addKindAndPropertyRows(ownColumnProperties);
}

void TypedColumnsTest::addedSetterChangesItsPropertyAlone()
{
    QFETCH(int, type);
    QFETCH(int, index);
    const auto property = ownColumnProperties(typeOf(type)).at(static_cast<std::size_t>(index));
    const auto column = emptyColumn(typeOf(type));
    QVariantMap expected = valuesOf(*column);
    expected[QLatin1String(property.name)] = property.sample;
    property.set(*column, property.sample);
    COMPARE_VALUES(valuesOf(*column), expected);
}

void TypedColumnsTest::fullConstructorTakesArgumentToItsProperty_data()
{
    addKindAndPropertyRows(columnProperties);
}

void TypedColumnsTest::fullConstructorTakesArgumentToItsProperty()
{
    QFETCH(int, type);
    QFETCH(int, index);
    const auto properties = columnProperties(typeOf(type));
    const auto &property = properties.at(static_cast<std::size_t>(index));
    QVariantMap values = initialValues(properties);
    if (property.set) {
        values[QLatin1String(property.name)] = property.sample;
    }
    COMPARE_VALUES(valuesOf(*constructed(typeOf(type), values)), values);
}

void TypedColumnsTest::fullConstructorTakesAllArgumentsAtOnce_data()
{
    addKindRows();
}

void TypedColumnsTest::fullConstructorTakesAllArgumentsAtOnce()
{
    QFETCH(int, type);
    QVariantMap values;
    for (const auto &property : columnProperties(typeOf(type))) {
        values.insert(QLatin1String(property.name), property.set ? property.sample : property.initial);
    }
    COMPARE_VALUES(valuesOf(*constructed(typeOf(type), values)), values);
}

void TypedColumnsTest::newDecimalColumnHasNoRangeAndNoPrecision()
{
    const CDecimalColumn column;
    QCOMPARE(column.minimumValue(), 0.0);
    QCOMPARE(column.maximumValue(), 0.0);
    QCOMPARE(column.precision(), 0);
}

void TypedColumnsTest::newIntegerColumnHasNoRangeAndNoStep()
{
    const CIntegerColumn column;
    QCOMPARE(column.minimumValue(), 0);
    QCOMPARE(column.maximumValue(), 0);
    QCOMPARE(column.stepInterval(), 0);
}

void TypedColumnsTest::decimalWidthAndPrecisionAreNotSwapped()
{
    const QString none;
    const CDecimalColumn column(none, none, none, none, none, none, none, none, QVariant(), 0, {}, {}, false,
                                false, false, false, false, 0, 0.0, 0.0, 0.0, 120, 3);
    QCOMPARE(column.width(), 120);
    QCOMPARE(column.precision(), 3);
}

void TypedColumnsTest::dateFormatDoesNotShiftTheDefaultValue()
{
    const QString none;
    const QString format = QStringLiteral("yyyy-MM-dd");
    const QVariant today = QStringLiteral("2001-02-03");
    const CDateColumn column(none, none, none, none, none, none, none, none, format, today, 0, {}, {}, false,
                             false, false, false, false, 0, false, 0);
    QCOMPARE(column.displayFormat(), format);
    QCOMPARE(column.defaultValue(), today);
    QCOMPARE(column.dataSource(), none);
}

void TypedColumnsTest::dateDisplayFormatIsSilent()
{
    const RecordedLog log;
    CDateColumn column;
    QCOMPARE(column.displayFormat(), QString());
    CTemplateColumn &base = column;
    base.setDisplayFormat(QStringLiteral("MM/yyyy"));
    QCOMPARE(base.displayFormat(), QStringLiteral("MM/yyyy"));
    base.setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    QCOMPARE(column.displayFormat(), QStringLiteral("dd.MM.yyyy"));
    QCOMPARE(log.lines(), QList<LogLine>());
}

void TypedColumnsTest::timeColumnsHaveNoDisplayFormat()
{
    const RecordedLog log;
    QCOMPARE(CTimeColumn().displayFormat(), QString());
    const LogLine warning = {2, QStringLiteral("TemplateColumn"),
                             QStringLiteral("Tried to GET display format from non-display-formattable.")};
    QCOMPARE(log.lines(), QList<LogLine>{warning});
}

QTEST_APPLESS_MAIN(TypedColumnsTest)

#include "TypedColumnsTest.moc"
