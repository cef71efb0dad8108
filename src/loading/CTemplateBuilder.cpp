#include "loading/CTemplateBuilder.h"

#include "loading/MissingDefaults_p.h"
#include "model/CBooleanColumn.h"
#include "model/CCatalogTemplate.h"
#include "model/CDateColumn.h"
#include "model/CDecimalColumn.h"
#include "model/CIntegerColumn.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTextColumn.h"
#include "model/CTimeColumn.h"
#include "model/SortOrder_p.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"
#include "rawdata/SaturatedInt_p.h"

#include "host/CTableDescriptors.h"

#include <QPair>

#include <memory>
#include <utility>

namespace Tobrix::Templates {

namespace {

const QString today = todayMarker;

using FixedValue = QPair<Database::DBTableType, QVariant>;
using FixedValues = QHash<QString, FixedValue>;

template <typename Rows, typename ToValue>
FixedValues fixedValues(const Rows &rows, ToValue toValue)
{
    FixedValues values;
    for (const auto &row : rows) {
        values.insert(row.boundColumn, {static_cast<Database::DBTableType>(row.tableType), toValue(row)});
    }
    return values;
}

const FixedValues &defaultValueTable()
{
    static const FixedValues table =
        fixedValues(missingDefaultValues, [](const auto &row) { return QVariant(QString(row.value)); });
    return table;
}

const FixedValues &visibilityTable()
{
    static const FixedValues table =
        fixedValues(fixedVisibilities, [](const auto &row) { return QVariant(row.visible); });
    return table;
}

/// The value that a table has for the database column that a column is bound to; null when it has none.
const QVariant *fixedValueFor(const CTemplateColumn &column, const FixedValues &table)
{
    const auto found = table.constFind(column.boundColumn());
    if (found == table.cend() ||
        found->first != Database::CTableDescriptors::tableTypeFromTableName(column.tableName())) {
        return nullptr;
    }
    return &found->second;
}

template <typename Column, typename... Own>
std::unique_ptr<CTemplateColumn> makeColumn(const CColumnData &data, const QVariant &defaultValue, Own... own)
{
    return std::make_unique<Column>(
        data.uniqueId, data.boundColumn, data.tableName, data.caption, data.toolTip, data.dataType, data.unit,
        data.dataSource, defaultValue, data.sortOrder, data.groupLevel, data.typeFlags, data.isVisible,
        data.isReadOnly, data.isMandatory, data.isVirtual, data.isValueTransfer, data.controlType, own...);
}

std::unique_ptr<CTemplateColumn> makeTextColumn(const CColumnData &data)
{
    auto column =
        makeColumn<CTextColumn>(data, QVariant(data.defaultValue), data.maximumTextLength, data.width);
    CTemplateBuilder::applyMissingDefaults(column.get());
    return column;
}

std::unique_ptr<CTemplateColumn> makeIntegerColumn(const CColumnData &data)
{
    const QVariant defaultValue =
        data.defaultValue.isEmpty() ? QVariant() : QVariant(data.defaultValue.toInt(nullptr, 10));
    auto column = makeColumn<CIntegerColumn>(data, defaultValue, toSaturatedInt(data.minimumValue),
                                             toSaturatedInt(data.maximumValue),
                                             toSaturatedInt(data.stepInterval), data.width);
    CTemplateBuilder::applyMissingDefaults(column.get());
    return column;
}

std::unique_ptr<CTemplateColumn> makeDecimalColumn(const CColumnData &data)
{
    const QVariant defaultValue =
        data.defaultValue.isEmpty() ? QVariant() : QVariant(data.defaultValue.toDouble());
    return makeColumn<CDecimalColumn>(data, defaultValue, data.minimumValue, data.maximumValue,
                                      data.stepInterval, data.width, data.precision);
}

std::unique_ptr<CTemplateColumn> makeBooleanColumn(const CColumnData &data)
{
    return makeColumn<CBooleanColumn>(data, CTemplateDataConverter::stringToTobrixBool(data.defaultValue),
                                      data.width);
}

std::unique_ptr<CTemplateColumn> makeDateColumn(const CColumnData &data)
{
    return std::make_unique<CDateColumn>(
        data.uniqueId, data.boundColumn, data.tableName, data.caption, data.toolTip, data.dataType, data.unit,
        data.dataSource, data.displayFormat, QVariant(), data.sortOrder, data.groupLevel, data.typeFlags,
        data.isVisible, data.isReadOnly, data.isMandatory, data.isVirtual, data.isValueTransfer,
        data.controlType, data.defaultValue == today, data.width);
}

std::unique_ptr<CTemplateColumn> makeTimeColumn(const CColumnData &data)
{
    return makeColumn<CTimeColumn>(data, QVariant(), data.defaultValue == today, data.width);
}

std::unique_ptr<CTemplateColumn> makeTypedColumn(const CColumnData &data)
{
    switch (data.columnType) {
    case CTemplateColumn::Text:
        return makeTextColumn(data);
    case CTemplateColumn::Integer:
        return makeIntegerColumn(data);
    case CTemplateColumn::Decimal:
        return makeDecimalColumn(data);
    case CTemplateColumn::Boolean:
        return makeBooleanColumn(data);
    case CTemplateColumn::Date:
        return makeDateColumn(data);
    case CTemplateColumn::Time:
        return makeTimeColumn(data);
    case CTemplateColumn::Unknown:
        break;
    }
    return nullptr;
}

/// Takes all objects out of a multi-map, those of one key together.
/// @param take is given a key, its objects, which it owns from then on, and whether this is the last key;
///        returns false to leave the rest in the map
template <typename T, typename Take>
bool takeGroups(QMap<QString, T *> &map, Take take)
{
    auto entry = map.begin();
    while (entry != map.end()) {
        const QString key = entry.key();
        auto groupEnd = entry;
        int size = 0;
        for (; groupEnd != map.end() && groupEnd.key() == key; ++groupEnd) {
            ++size;
        }
        QList<T *> objects;
        objects.reserve(size);
        for (; entry != groupEnd; ++entry) {
            objects.append(std::exchange(entry.value(), nullptr));
        }
        if (!take(key, objects, groupEnd == map.end())) {
            return false;
        }
    }
    map = {};
    return true;
}

} // namespace

CTemplateBuilder::CTemplateBuilder() = default;

CTemplateBuilder::~CTemplateBuilder() = default;

CCatalogTemplate *CTemplateBuilder::buildTemplate(CTemplateRawData &rawData, bool isNew)
{
    m_rawData = &rawData;
    auto catalogTemplate = std::make_unique<CCatalogTemplate>();
    m_template = catalogTemplate.get();

    assignTemplateBaseData();
    m_template->setLegendOfClassification(rawData.legendA, rawData.legendB);
    // Views of the current format arrive with their columns in order.
    if (!isNew && !associateColumnsWithProgramViews()) {
        m_template = nullptr;
        return nullptr;
    }
    m_template->setProgramViews(rawData.programViews.values());
    rawData.programViews = {};
    buildLists();
    return catalogTemplate.release();
}

CTemplateColumn *CTemplateBuilder::buildColumn(const CColumnData &data)
{
    return makeTypedColumn(data).release();
}

void CTemplateBuilder::applyMissingDefaults(CTemplateColumn *column)
{
    const QVariant *defaultValue = fixedValueFor(*column, defaultValueTable());
    if (defaultValue && column->hasDefaultValue() && column->defaultValue().isNull()) {
        column->setDefaultValue(*defaultValue);
    }
    const QVariant *visible = fixedValueFor(*column, visibilityTable());
    if (visible) {
        column->setVisible(visible->toBool());
    }
}

void CTemplateBuilder::assignTemplateBaseData()
{
    const CTemplateBaseData &header = *m_rawData;
    m_template->setUniqueId(header.uniqueId);
    m_template->setCatalogRef(header.catalogRef);
    m_template->setCatalogProfileRef(header.catalogProfileRef);
    m_template->setKey(header.key);
    m_template->setType(header.type);
    m_template->setDescription(header.description);
    m_template->setVersion(header.version);
    m_template->setUnit(header.unit);
    m_template->setSystem(header.isSystem);
    m_template->setEditable(header.isEditable);
    m_template->setUpdatable(header.isUpdatable);
}

bool CTemplateBuilder::associateColumnsWithProgramViews()
{
    const auto handOver = [this](const QString &viewId, QList<CTemplateColumn *> &columns, bool) {
        CProgramView *view = m_rawData->programViews.value(viewId, nullptr);
        if (!view) {
            qDeleteAll(columns);
            return false;
        }
        sortBySortOrder(columns);
        view->setColumns(columns);
        return true;
    };
    return takeGroups(m_rawData->columns, handOver);
}

void CTemplateBuilder::buildLists()
{
    const auto handOver = [this](const QString &listName, QList<CListItem *> &items, bool isLast) {
        // The list whose name comes last keeps the record's order: hosts have always shown it that way.
        if (!isLast) {
            sortBySortOrder(items);
        }
        m_template->addItemList(listName, items);
        return true;
    };
    takeGroups(m_rawData->listItems, handOver);
}

} // namespace Tobrix::Templates
