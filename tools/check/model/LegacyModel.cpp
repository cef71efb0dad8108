#include "tools/check/model/LegacyModel.h"

#include "tools/check/model/LegacyFieldReading.h"
#include "tools/check/model/ModelBuilding.h"

#include "format_legacy/LegacyFormat_p.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <iterator>
#include <type_traits>
#include <utility>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

// Numbers that exist only for some types of columns.
constexpr Tokens::ColumnToken limitTokens[] = {Tokens::COL_RangeFrom, Tokens::COL_RangeTo, Tokens::COL_Steps,
                                               Tokens::COL_Length, Tokens::COL_Precision};
// References that are read as flags.
constexpr Tokens::ColumnToken referenceTokens[] = {Tokens::COL_Template_FK, Tokens::COL_Bound_TableDir_REF};

template <typename Rows>
bool isOneOf(int token, const Rows &rows)
{
    return std::find(std::begin(rows), std::end(rows), token) != std::end(rows);
}

/// The kind of a field's value, for rules about values. Values that depend on the column's type are checked
/// later.
template <typename Field>
ValueKind judgedKindOf(const Field &field)
{
    return field.row.kind;
}
ValueKind judgedKindOf(const ColumnField &field)
{
    const bool isJudgedLater = isOneOf(field.token, limitTokens) || isOneOf(field.token, referenceTokens);
    return isJudgedLater ? ValueKind::Text : field.row.kind;
}

/// The name of a column's element.
QString nameOf(Tokens::ColumnToken token)
{
    return columnFields[token - 1].row.element;
}

// The column's section has the most tokens.
constexpr std::size_t tokenCount = std::size(columnFields) + 1;

/// The values of one section that count.
class SectionValues
{
public:
    explicit SectionValues(int at) : m_at(at) { m_elements.fill(-1); }

    void take(const LegacyReading &reading, const Value &value)
    {
        m_values[index(reading.token)] = value;
        m_elements[index(reading.token)] = reading.element.at();
    }

    /// The offset of the element that a value comes from; -1 when there is none.
    int elementAt(int token) const { return m_elements[index(token)]; }

    Value value(int token) const
    {
        return elementAt(token) < 0 ? Value{QString(), m_at} : m_values[index(token)];
    }
    bool flag(int token) const { return value(token).text == QLatin1String("true"); }
    int number(int token, int absent) const
    {
        const Value given = value(token);
        return given.isGiven() ? given.text.toInt() : absent;
    }

private:
    static std::size_t index(int token) { return static_cast<std::size_t>(token); }

    int m_at;
    std::array<Value, tokenCount> m_values;
    std::array<int, tokenCount> m_elements;
};

class LegacyModelBuilder
{
public:
    explicit LegacyModelBuilder(const XmlTree &document);

    TemplateModel build();

private:
    void readSectionAt(const XmlElement &element, int token);
    void readHeader(const XmlElement &section);
    void readView(const XmlElement &section);
    void readColumn(const XmlElement &section);
    void readListItem(const XmlElement &section);
    void readLegends(const XmlElement &section);
    std::vector<LegendClassModel> &beginLegend(const XmlElement &element, int legend);
    void readCaption(const LegacyReading &reading, const std::vector<LegendClassModel> &legend,
                     SectionValues &captions);
    LegendClassModel legendClassOf(const XmlElement &element);

    template <typename Fields>
    SectionValues valuesOf(const XmlElement &section, const std::vector<LegacyReading> &readings,
                           const Fields &fields)
    {
        return valuesOver(SectionValues(section.at()), readings, fields);
    }
    /// The values of a section that adds to those of an earlier one.
    template <typename Fields>
    SectionValues valuesOver(SectionValues values, const std::vector<LegacyReading> &readings,
                             const Fields &fields);
    void keepValue(const LegacyReading &reading, const Value &value, ValueKind kind);
    void findUnreachable(const XmlElement &within);
    void noteOverwritten(const LegacyReading &reading, int earlierAt);

    void fillColumn(const SectionValues &values, ColumnModel &column);
    static void findValueTransferReset(const std::vector<LegacyReading> &readings, ColumnModel &column);
    void bindColumnsToViews();

    const XmlTree &m_document;
    const SectionTokens m_templateTokens;
    const SectionTokens m_headerTokens;
    const SectionTokens m_viewTokens;
    const SectionTokens m_columnTokens;
    const SectionTokens m_listItemTokens;
    const SectionTokens m_legendTokens;
    TemplateModel m_model;
    SectionValues m_headerValues; // of all header sections
    ListsByName m_lists;
    QHash<QString, int> m_viewsById; // those that count
    bool m_hasGroup[2] = {};         // of the legends
};

LegacyModelBuilder::LegacyModelBuilder(const XmlTree &document)
    : m_document(document)
    , m_templateTokens(document, Tokens::stringToTemplateToken)
    , m_headerTokens(document, Tokens::stringToTemplateInfoToken)
    , m_viewTokens(document, Tokens::stringToProgramViewToken)
    , m_columnTokens(document, Tokens::stringToColumnToken)
    , m_listItemTokens(document, Tokens::stringToListItemToken)
    , m_legendTokens(document, Tokens::stringToLegendToken)
    , m_headerValues(document.root().at())
{
}

TemplateModel LegacyModelBuilder::build()
{
    m_model.header.at = m_document.root().at();
    const auto &nodes = m_document.nodes();
    int i = 0;
    while (i < m_document.size()) {
        const XmlNode &node = m_document.node(i);
        if (node.kind != XmlNode::Element) {
            ++i;
            continue;
        }
        const XmlElement element(m_document, i);
        const int token = m_templateTokens.of(element);
        if (token == Tokens::TXSYS || token == Tokens::TobrixTemplate) {
            ++i;
            continue;
        }
        readSectionAt(element, token);
        i = nodes[static_cast<std::size_t>(i)].end;
    }
    bindColumnsToViews();
    m_model.lists = listsOf(m_lists);
    m_model.makeIndex();
    return std::move(m_model);
}

void LegacyModelBuilder::readSectionAt(const XmlElement &element, int token)
{
    findUnreachable(element);
    switch (token) {
    case Tokens::SYSTPL:
        readHeader(element);
        break;
    case Tokens::PROGVIEW:
        readView(element);
        break;
    case Tokens::SYSCOL:
        readColumn(element);
        break;
    case Tokens::SYSLIST:
        readListItem(element);
        break;
    case Tokens::LegendOfClassification:
        readLegends(element);
        break;
    default:
        break;
    }
}

void LegacyModelBuilder::findUnreachable(const XmlElement &within)
{
    int after = 0;
    const int end = m_document.node(within.index()).end;
    for (int i = within.index() + 1; i < end; ++i) {
        if (m_document.node(i).kind != XmlNode::Element || i < after) {
            continue;
        }
        const XmlElement element(m_document, i);
        if (m_templateTokens.of(element) >= Tokens::SYSTPL) {
            m_model.unreachableSections.push_back({element.at(), element.name(), within.name()});
            after = m_document.node(i).end;
        }
    }
}

void LegacyModelBuilder::noteOverwritten(const LegacyReading &reading, int earlierAt)
{
    if (earlierAt >= 0 && reading.text >= 0) {
        m_model.overwrittenElements.push_back({reading.element.at(), earlierAt, reading.element.name()});
    }
}

void LegacyModelBuilder::keepValue(const LegacyReading &reading, const Value &value, ValueKind kind)
{
    const QString name = reading.element.name();
    if (reading.ignoredText >= 0) {
        m_model.ignoredTexts.push_back({m_document.node(reading.ignoredText).at, name, value.text});
    }
    if (reading.isCaptured) {
        m_model.capturedSpaces.push_back({reading.element.at(), name, kind});
    } else if (reading.text >= 0 && kind != ValueKind::Text) {
        m_model.values.push_back({value, name, kind});
    }
}

template <typename Fields>
SectionValues LegacyModelBuilder::valuesOver(SectionValues values, const std::vector<LegacyReading> &readings,
                                             const Fields &fields)
{
    for (const auto &reading : readings) {
        const ValueKind kind = judgedKindOf(fields[reading.token - 1]);
        if (kind == ValueKind::Ignored) {
            continue;
        }
        noteOverwritten(reading, values.elementAt(reading.token));
        const Value value{reading.value(), reading.at(), reading.isCaptured};
        if (value.isGiven()) {
            values.take(reading, value);
        }
        keepValue(reading, value, kind);
    }
    return values;
}

void LegacyModelBuilder::readHeader(const XmlElement &section)
{
    m_headerValues =
        valuesOver(m_headerValues, readSection(section, m_headerTokens, Tokens::SYSTPL), headerFields);
    HeaderModel &header = m_model.header;
    header.uniqueId = m_headerValues.value(Tokens::TPL_PK);
    header.key = m_headerValues.value(Tokens::TPL_Key);
    header.type = m_headerValues.value(Tokens::TPL_Type);
    header.at = section.at();
}

void LegacyModelBuilder::readView(const XmlElement &section)
{
    const SectionValues values =
        valuesOf(section, readSection(section, m_viewTokens, Tokens::PROGVIEW), programViewFields);
    ViewModel view;
    view.at = section.at();
    view.id = values.value(Tokens::PV_PK);
    view.key = values.value(Tokens::PV_Key);
    const int number = static_cast<int>(m_model.views.size());
    const auto earlier = m_viewsById.constFind(view.id.text);
    if (earlier != m_viewsById.cend()) {
        m_model.views[static_cast<std::size_t>(*earlier)].replacedBy = number;
    }
    m_viewsById.insert(view.id.text, number);
    m_model.views.push_back(view);
}

void LegacyModelBuilder::readListItem(const XmlElement &section)
{
    const SectionValues values =
        valuesOf(section, readSection(section, m_listItemTokens, Tokens::SYSLIST), listItemFields);
    const Value name = values.value(Tokens::LIST_Name);
    if (name.isEmpty()) {
        m_model.itemsWithoutList.push_back(section.at());
        return;
    }
    ListModel &list = m_lists[name.text];
    if (list.items.empty()) {
        list.name = name.text;
        list.at = section.at();
        list.nameValue = name;
    }
    ListItemModel item;
    item.at = section.at();
    item.item = values.value(Tokens::LIST_Item);
    item.internalValue = values.value(Tokens::LIST_Internal);
    item.sortOrder = values.number(Tokens::LIST_SortOrder, item.sortOrder);
    list.items.push_back(item);
}

void LegacyModelBuilder::readColumn(const XmlElement &section)
{
    const auto readings = readSection(section, m_columnTokens, Tokens::SYSCOL);
    const std::size_t valuesBefore = m_model.values.size();
    const SectionValues values = valuesOf(section, readings, columnFields);
    ColumnModel column;
    column.at = section.at();
    fillColumn(values, column);
    findValueTransferReset(readings, column);
    applyFixedValues(column);
    keepNumbersOf(column, nameOf(Tokens::COL_RangeFrom), nameOf(Tokens::COL_RangeTo),
                  nameOf(Tokens::COL_Steps), m_model.values);
    if (column.type == CTemplateColumn::Text) {
        m_model.values.push_back({column.length, nameOf(Tokens::COL_Length), ValueKind::Integer});
    } else if (column.type == CTemplateColumn::Decimal) {
        m_model.values.push_back(
            {values.value(Tokens::COL_Precision), nameOf(Tokens::COL_Precision), ValueKind::Integer});
    }
    if (column.type == CTemplateColumn::Unknown) {
        m_model.values.resize(valuesBefore); // no host gets them
    }
    m_model.columns.push_back(column);
}

void LegacyModelBuilder::fillColumn(const SectionValues &values, ColumnModel &column)
{
    column.viewRef = values.value(Tokens::COL_ProgView_FK);
    column.caption = values.value(Tokens::COL_Caption);
    column.dataType = values.value(Tokens::COL_DataType);
    column.controlType = values.value(Tokens::COL_ControlType);
    column.boundColumn = values.value(Tokens::COL_Bound_Column);
    column.tableName = values.value(Tokens::TDIR_Key);
    column.sortOrder = values.value(Tokens::COL_SortOrder);
    column.listName = values.value(Tokens::COL_DataSource);
    column.defaultValue = values.value(Tokens::COL_Default);
    column.displayFormat = values.value(Tokens::COL_DisplayFmt);
    column.rangeFrom = values.value(Tokens::COL_RangeFrom);
    column.rangeTo = values.value(Tokens::COL_RangeTo);
    column.step = values.value(Tokens::COL_Steps);
    column.length = values.value(Tokens::COL_Length);
    column.valueTransfer = values.value(Tokens::COL_ValueTransfer);

    const auto placeOfFlag = [&](int token) { return values.flag(token) ? values.value(token).at : -1; };
    column.visibilityAt = placeOfFlag(Tokens::COL_Visible);
    column.mandatoryAt = placeOfFlag(Tokens::COL_Mandatory);
    column.readOnlyAt = placeOfFlag(Tokens::COL_ReadOnly);
    column.isVisible = values.flag(Tokens::COL_Visible);
    column.isMandatory = values.flag(Tokens::COL_Mandatory);
    column.isReadOnly = values.flag(Tokens::COL_ReadOnly);
    column.isVirtual = values.flag(Tokens::COL_Virtual);

    const CColumnData initial;
    const auto limit = [](const Value &value, double absent) {
        return value.isGiven() ? value.text.toDouble() : absent;
    };
    column.type = CTemplateDataConverter::stringToColumnType(QStringRef(&column.dataType.text));
    column.control = values.number(Tokens::COL_ControlType, initial.controlType);
    column.path = column.boundColumn.text;
    column.ownPath = column.path;
    column.table = column.tableName.text;
    column.order = values.number(Tokens::COL_SortOrder, initial.sortOrder);
    column.minimum = limit(column.rangeFrom, initial.minimumValue);
    column.maximum = limit(column.rangeTo, initial.maximumValue);
    column.maximumLength = values.number(Tokens::COL_Length, initial.maximumTextLength);
}

void LegacyModelBuilder::findValueTransferReset(const std::vector<LegacyReading> &readings,
                                                ColumnModel &column)
{
    bool isSet = false;
    for (const auto &reading : readings) {
        if (reading.text < 0) {
            continue;
        }
        if (reading.token == Tokens::COL_ValueTransfer) {
            isSet = reading.value() == QLatin1String("true");
            column.valueTransferResetAt = -1;
        } else if (isSet && isOneOf(reading.token, referenceTokens)) {
            const bool isTakenBack = reading.value() != QLatin1String("true");
            column.valueTransferResetAt = isTakenBack ? reading.element.at() : -1;
        }
    }
}

void LegacyModelBuilder::bindColumnsToViews()
{
    for (auto &column : m_model.columns) {
        column.view = m_viewsById.value(column.viewRef.text, -1);
    }
}

LegendClassModel LegacyModelBuilder::legendClassOf(const XmlElement &element)
{
    LegendClassModel legendClass;
    legendClass.at = element.at();
    const auto read = [&](const FormatRow &row) {
        const XmlAttribute *attribute = element.attribute(row.attribute);
        if (!attribute) {
            return Value{QString(), element.at()};
        }
        const Value value{m_document.valueOf(*attribute), attribute->at};
        m_model.values.push_back({value, row.attribute, row.kind});
        return value;
    };
    legendClass.from = read(legendAttribute(&CTemplateLegendDataItem::numberFrom));
    legendClass.to = read(legendAttribute(&CTemplateLegendDataItem::numberTo));
    legendClass.color = read(legendAttribute(&CTemplateLegendDataItem::color));
    legendClass.lower = legendClass.from.isGiven() ? legendClass.from.text.toDouble() : legendClass.lower;
    legendClass.upper = legendClass.to.isGiven() ? legendClass.to.text.toDouble() : legendClass.upper;
    return legendClass;
}

void LegacyModelBuilder::readLegends(const XmlElement &section)
{
    std::vector<LegendClassModel> *legend = &m_model.legends[0];
    SectionValues captions(section.at());
    const auto readings = readSection(section, m_legendTokens, Tokens::LegendOfClassification);
    for (const auto &reading : readings) {
        switch (reading.token) {
        case Tokens::Section:
        case Tokens::Lateral:
            legend = &beginLegend(reading.element, reading.token == Tokens::Section ? 0 : 1);
            break;
        case Tokens::LegendClass:
            legend->push_back(legendClassOf(reading.element));
            captions = SectionValues(section.at());
            break;
        default:
            readCaption(reading, *legend, captions);
        }
    }
}

std::vector<LegendClassModel> &LegacyModelBuilder::beginLegend(const XmlElement &element, int legend)
{
    std::vector<LegendClassModel> &legendClasses = m_model.legends[legend];
    if (!legendClasses.empty()) {
        m_model.lostLegends.push_back(
            {element.at(), m_hasGroup[legend] ? LostLegend::ClearedGroup : LostLegend::ClearedClasses,
             element.name(), static_cast<int>(legendClasses.size())});
    }
    m_hasGroup[legend] = true;
    legendClasses.clear();
    return legendClasses;
}

void LegacyModelBuilder::readCaption(const LegacyReading &reading,
                                     const std::vector<LegendClassModel> &legend, SectionValues &captions)
{
    if (reading.text < 0) {
        return;
    }
    if (legend.empty()) {
        m_model.lostLegends.push_back(
            {reading.element.at(), LostLegend::CaptionWithoutClass, reading.element.name(), 0});
        return;
    }
    const Value value{reading.value(), reading.at()};
    keepValue(reading, value, ValueKind::Text);
    noteOverwritten(reading, captions.elementAt(reading.token));
    captions.take(reading, value);
}

} // namespace

TemplateModel legacyModel(const XmlTree &document)
{
    return LegacyModelBuilder(document).build();
}

} // namespace Tobrix::Tools
