#pragma once

#include "support/Properties.h"

#include "model/CBooleanColumn.h"
#include "model/CDateColumn.h"
#include "model/CDecimalColumn.h"
#include "model/CIntegerColumn.h"
#include "model/CTextColumn.h"
#include "model/CTimeColumn.h"

#include <memory>

using ColumnProperties = Properties<Tobrix::Templates::CTemplateColumn>;

/// One of the six kinds of column.
struct ColumnKind
{
    Tobrix::Templates::CTemplateColumn::ColumnType type;
    const char *name;
    const char *code; ///< Data type in a file.
};

inline const std::vector<ColumnKind> &columnKinds()
{
    using Column = Tobrix::Templates::CTemplateColumn;
    static const std::vector<ColumnKind> kinds = {
        {Column::Text, "text", "TXT"},       {Column::Integer, "integer", "INT"},
        {Column::Decimal, "decimal", "DEC"}, {Column::Boolean, "boolean", "BOL"},
        {Column::Date, "date", "DAT"},       {Column::Time, "time", "TIM"},
    };
    return kinds;
}

/// A new column in which nothing is set.
inline std::unique_ptr<Tobrix::Templates::CTemplateColumn>
emptyColumn(Tobrix::Templates::CTemplateColumn::ColumnType type)
{
    using namespace Tobrix::Templates;
    switch (type) {
    case CTemplateColumn::Text:
        return std::make_unique<CTextColumn>();
    case CTemplateColumn::Integer:
        return std::make_unique<CIntegerColumn>();
    case CTemplateColumn::Decimal:
        return std::make_unique<CDecimalColumn>();
    case CTemplateColumn::Boolean:
        return std::make_unique<CBooleanColumn>();
    case CTemplateColumn::Date:
        return std::make_unique<CDateColumn>();
    case CTemplateColumn::Time:
        return std::make_unique<CTimeColumn>();
    case CTemplateColumn::Unknown:
        break;
    }
    return nullptr;
}

/// The properties of all columns.
inline ColumnProperties commonColumnProperties(Tobrix::Templates::CTemplateColumn::ColumnType type)
{
    using Column = Tobrix::Templates::CTemplateColumn;
    const auto text = [](const char *value) { return QVariant(QLatin1String(value)); };
    const QVariant none = QString();
    // clang-format off
    return {
        property<Column>("uniqueId", none, text("{id}"), &Column::uniqueId, &Column::setUniqueId),
        property<Column>("boundColumn", none, text("OBJ_Key"), &Column::boundColumn, &Column::setBoundColumn),
        property<Column>("tableName", none, text("SECTION"), &Column::tableName, &Column::setTableName),
        property<Column>("caption", none, text("Caption"), &Column::caption, &Column::setCaption),
        property<Column>("toolTip", none, text("Tool tip"), &Column::toolTip, &Column::setToolTip),
        property<Column>("dataType", none, text("XYZ"), &Column::dataType, &Column::setDataType),
        property<Column>("unit", none, text("mm"), &Column::unit, &Column::setUnit),
        property<Column>("dataSource", none, text("Materials"), &Column::dataSource, &Column::setDataSource),
        property<Column>("defaultValue", QVariant(), QVariant(0.5), &Column::defaultValue, &Column::setDefaultValue),
        property<Column>("sortOrder", -1, 10, &Column::sortOrder, &Column::setSortOrder),
        property<Column>("width", -1, 120, &Column::width, &Column::setWidth),
        property<Column>("groupLevel", 0, 12, &Column::groupLevel, &Column::setGroupLevel),
        {"columnType", static_cast<int>(type), {}, [](const Column &column) { return toVariant(column.columnType()); }, {}},
        property<Column>("typeFlags", 0, 14, &Column::typeFlags, &Column::setTypeFlags),
        property<Column>("isVisible", false, true, &Column::isVisible, &Column::setVisible),
        property<Column>("isReadOnly", false, true, &Column::isReadOnly, &Column::setReadOnly),
        property<Column>("isMandatory", false, true, &Column::isMandatory, &Column::setMandatory),
        property<Column>("isVirtual", false, true, &Column::isVirtual, &Column::setVirtual),
        property<Column>("isValueTransfer", false, true, &Column::isValueTransfer, &Column::setValueTransfer),
        property<Column>("controlType", 0, 19, &Column::getControlType, &Column::setControlType),
    };
    // clang-format on
}

/// The properties that a kind of column adds.
inline ColumnProperties ownColumnProperties(Tobrix::Templates::CTemplateColumn::ColumnType type)
{
    using namespace Tobrix::Templates;
    using Column = CTemplateColumn;
    // clang-format off
    switch (type) {
    case Column::Text:
        return {property<Column>("maximumTextLength", 0, 80, &CTextColumn::maximumTextLength, &CTextColumn::setMaximumTextLength)};
    case Column::Integer:
        return {property<Column>("minimumValue", 0, -21, &CIntegerColumn::minimumValue, &CIntegerColumn::setMinimumValue),
                property<Column>("maximumValue", 0, 22, &CIntegerColumn::maximumValue, &CIntegerColumn::setMaximumValue),
                property<Column>("stepInterval", 0, 23, &CIntegerColumn::stepInterval, &CIntegerColumn::setStepInterval)};
    case Column::Decimal:
        return {property<Column>("minimumValue", 0.0, -3.25, &CDecimalColumn::minimumValue, &CDecimalColumn::setMinimumValue),
                property<Column>("maximumValue", 0.0, 3.5, &CDecimalColumn::maximumValue, &CDecimalColumn::setMaximumValue),
                property<Column>("stepInterval", 0.0, 0.75, &CDecimalColumn::stepInterval, &CDecimalColumn::setStepInterval),
                property<Column>("precision", 0, 3, &CDecimalColumn::precision, &CDecimalColumn::setPrecision)};
    case Column::Date:
        return {property<Column>("initializeWithNow", false, true, &CDateColumn::initializeWithNow, &CDateColumn::setInitializeWithNow),
                property<Column>("displayFormat", QString(), QStringLiteral("dd.MM.yyyy"), &CDateColumn::displayFormat, &CDateColumn::setDisplayFormat)};
    case Column::Time:
        return {property<Column>("initializeWithNow", false, true, &CTimeColumn::initializeWithNow, &CTimeColumn::setInitializeWithNow)};
    case Column::Boolean:
    case Column::Unknown:
        break;
    }
    // clang-format on
    return {};
}

/// All properties of a kind of column.
inline ColumnProperties columnProperties(Tobrix::Templates::CTemplateColumn::ColumnType type)
{
    ColumnProperties all = commonColumnProperties(type);
    const ColumnProperties own = ownColumnProperties(type);
    all.insert(all.end(), own.begin(), own.end());
    return all;
}

/// All values of a column's properties.
inline QVariantMap valuesOf(const Tobrix::Templates::CTemplateColumn &column)
{
    return valuesOf(column, columnProperties(column.columnType()));
}

/// A row for each kind of column; the test fetches the kind's type as a number.
inline void addKindRows()
{
    QTest::addColumn<int>("type");
    for (const auto &kind : columnKinds()) {
        QTest::newRow(kind.name) << static_cast<int>(kind.type);
    }
}

/// A row for each property of each kind of column.
template <typename PropertiesOf>
void addKindAndPropertyRows(PropertiesOf propertiesOf)
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("index");
    for (const auto &kind : columnKinds()) {
        const auto properties = propertiesOf(kind.type);
        for (std::size_t i = 0; i < properties.size(); ++i) {
            QTest::addRow("%s column: %s", kind.name, properties[i].name)
                << static_cast<int>(kind.type) << static_cast<int>(i);
        }
    }
}
