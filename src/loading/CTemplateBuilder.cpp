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

#include <algorithm>
#include <iterator>
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

/// The end of the entries of a multi-map that have the same key as the first one.
template <typename Iterator>
Iterator endOfGroup(Iterator first, Iterator end)
{
    Iterator it = first;
    while (it != end && it.key() == first.key()) {
        ++it;
    }
    return it;
}

/// One view's columns on their way from the raw record to their view. Columns that do not get there are
/// deleted.
class ColumnGroup
{
public:
    using Entry = QMap<QString, CTemplateColumn *>::iterator;

    /// Takes the columns out of the record.
    ColumnGroup(Entry begin, Entry end)
    {
        m_columns.reserve(static_cast<int>(std::distance(begin, end)));
        for (Entry entry = begin; entry != end; ++entry) {
            m_columns.append(std::exchange(entry.value(), nullptr));
        }
    }
    ~ColumnGroup() { qDeleteAll(m_columns); }

    /// Gives the columns to their view, in order. Fails when there is no such view.
    bool handOverTo(CProgramView *view)
    {
        if (!view) {
            return false;
        }
        sortBySortOrder(m_columns);
        view->setColumns(m_columns);
        m_columns.clear();
        return true;
    }

private:
    Q_DISABLE_COPY(ColumnGroup)

    QList<CTemplateColumn *> m_columns;
};

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
    switch (data.columnType) {
    case CTemplateColumn::Text:
        return makeTextColumn(data).release();
    case CTemplateColumn::Integer:
        return makeIntegerColumn(data).release();
    case CTemplateColumn::Decimal:
        return makeDecimalColumn(data).release();
    case CTemplateColumn::Boolean:
        return makeBooleanColumn(data).release();
    case CTemplateColumn::Date:
        return makeDateColumn(data).release();
    case CTemplateColumn::Time:
        return makeTimeColumn(data).release();
    case CTemplateColumn::Unknown:
        break;
    }
    return nullptr;
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
    auto &columns = m_rawData->columns;
    auto it = columns.begin();
    while (it != columns.end()) {
        const auto groupEnd = endOfGroup(it, columns.end());
        ColumnGroup group(it, groupEnd);
        if (!group.handOverTo(m_rawData->programViews.value(it.key(), nullptr))) {
            return false;
        }
        it = groupEnd;
    }
    columns = {};
    return true;
}

void CTemplateBuilder::buildLists()
{
    const auto &items = m_rawData->listItems;
    auto it = items.cbegin();
    while (it != items.cend()) {
        const auto groupEnd = endOfGroup(it, items.cend());
        QList<CListItem *> list;
        list.reserve(static_cast<int>(std::distance(it, groupEnd)));
        std::copy(it, groupEnd, std::back_inserter(list));
        // The list whose name comes last keeps the record's order: hosts have always shown it that way.
        if (groupEnd != items.cend()) {
            sortBySortOrder(list);
        }
        m_template->addItemList(it.key(), list);
        it = groupEnd;
    }
    m_rawData->listItems = {};
}

} // namespace Tobrix::Templates
