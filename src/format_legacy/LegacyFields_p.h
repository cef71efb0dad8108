#pragma once

#include "format_legacy/CTemplateTokenizer.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateBaseData.h"

#include <variant>

namespace Tobrix::Templates {

/// Where the text of one element of a section goes. The kind of the target says how the text is converted; an
/// element without a target is known, but its text is of no use to us.
template <typename Token, typename... Targets>
struct LegacyField
{
    Token token;
    std::variant<std::monostate, Targets...> target = std::monostate();
};

/// The target of a text that a template repeats, from column to column or from list to list, so that one copy
/// of it serves them all.
template <typename Target>
struct RepeatedText
{
    Target target;
};

template <typename Target>
RepeatedText(Target) -> RepeatedText<Target>;

using HeaderField = LegacyField<CTemplateTokenizer::TemplateInfoToken, QString CTemplateBaseData::*,
                                int CTemplateBaseData::*, bool CTemplateBaseData::*>;

using ProgramViewField =
    LegacyField<CTemplateTokenizer::ProgramViewToken, void (CProgramView::*)(const QString &)>;

using ListItemField =
    LegacyField<CTemplateTokenizer::ListItemToken, void (CListItem::*)(const QString &),
                RepeatedText<void (CListItem::*)(const QString &)>, void (CListItem::*)(int)>;

using ColumnField =
    LegacyField<CTemplateTokenizer::ColumnToken, QString CColumnData::*, RepeatedText<QString CColumnData::*>,
                int CColumnData::*, double CColumnData::*, bool CColumnData::*,
                CTemplateColumn::GroupLevel CColumnData::*, CTemplateColumn::TypeFlags CColumnData::*>;

// clang-format off

inline constexpr HeaderField headerFields[] = {
    {CTemplateTokenizer::TPL_PK, &CTemplateBaseData::uniqueId},
    {CTemplateTokenizer::TPL_Catalog_REF, &CTemplateBaseData::catalogRef},
    {CTemplateTokenizer::TPL_BasedOn_REF, &CTemplateBaseData::catalogProfileRef},
    {CTemplateTokenizer::TPL_Key, &CTemplateBaseData::key},
    {CTemplateTokenizer::TPL_Type, &CTemplateBaseData::type},
    {CTemplateTokenizer::TPL_Description, &CTemplateBaseData::description},
    {CTemplateTokenizer::TPL_Version, &CTemplateBaseData::version},
    {CTemplateTokenizer::TPL_Unit, &CTemplateBaseData::unit},
    {CTemplateTokenizer::TPL_IsSystem, &CTemplateBaseData::isSystem},
    {CTemplateTokenizer::TPL_Editable, &CTemplateBaseData::isEditable},
    {CTemplateTokenizer::TPL_Updatable, &CTemplateBaseData::isUpdatable},
    {CTemplateTokenizer::TPL_ListNamePrefix, &CTemplateBaseData::listNamePrefix},
    {CTemplateTokenizer::TPL_DefaultSecClassName, &CTemplateBaseData::defaultSecClassName},
    {CTemplateTokenizer::TPL_DefaultSecColorField, &CTemplateBaseData::defaultSecColorField},
    {CTemplateTokenizer::TPL_SortOrder, &CTemplateBaseData::sortOrder},
};

inline constexpr ProgramViewField programViewFields[] = {
    {CTemplateTokenizer::PV_PK, &CProgramView::setUniqueId},
    {CTemplateTokenizer::PV_Key, &CProgramView::setKey},
    {CTemplateTokenizer::PV_Description, &CProgramView::setDescription},
};

/// The list's name is the reader's to keep: an item does not know its list.
inline constexpr ListItemField listItemFields[] = {
    {CTemplateTokenizer::LIST_PK, &CListItem::setUniqueId},
    {CTemplateTokenizer::LIST_Name},
    {CTemplateTokenizer::LIST_Item, RepeatedText{&CListItem::setItem}},
    {CTemplateTokenizer::LIST_Caption, RepeatedText{&CListItem::setCaption}},
    {CTemplateTokenizer::LIST_Comment, &CListItem::setComment},
    {CTemplateTokenizer::LIST_Internal, RepeatedText{&CListItem::setInternalValue}},
    {CTemplateTokenizer::LIST_SortOrder, &CListItem::setSortOrder},
};

/// Three elements decide about value transfer, two of them references that read as false: the last one in the section
/// counts.
inline constexpr ColumnField columnFields[] = {
    {CTemplateTokenizer::COL_PK, &CColumnData::uniqueId},
    {CTemplateTokenizer::COL_Template_FK, &CColumnData::isValueTransfer},
    {CTemplateTokenizer::COL_ProgView_FK, RepeatedText{&CColumnData::viewRef}},
    {CTemplateTokenizer::COL_Bound_TableDir_REF, &CColumnData::isValueTransfer},
    {CTemplateTokenizer::COL_Bound_Column, &CColumnData::boundColumn},
    {CTemplateTokenizer::COL_Caption, &CColumnData::caption},
    {CTemplateTokenizer::COL_ToolTip, &CColumnData::toolTip},
    {CTemplateTokenizer::COL_GroupLevel, &CColumnData::groupLevel},
    {CTemplateTokenizer::COL_DataType, RepeatedText{&CColumnData::dataType}},
    {CTemplateTokenizer::COL_RangeFrom, &CColumnData::minimumValue},
    {CTemplateTokenizer::COL_RangeTo, &CColumnData::maximumValue},
    {CTemplateTokenizer::COL_Steps, &CColumnData::stepInterval},
    {CTemplateTokenizer::COL_Unit, RepeatedText{&CColumnData::unit}},
    {CTemplateTokenizer::COL_StateBits},
    {CTemplateTokenizer::COL_Visible, &CColumnData::isVisible},
    {CTemplateTokenizer::COL_ReadOnly, &CColumnData::isReadOnly},
    {CTemplateTokenizer::COL_Mandatory, &CColumnData::isMandatory},
    {CTemplateTokenizer::COL_Virtual, &CColumnData::isVirtual},
    {CTemplateTokenizer::COL_ValueTransfer, &CColumnData::isValueTransfer},
    {CTemplateTokenizer::COL_EvalObjSymbol},
    {CTemplateTokenizer::COL_EvalObjColor},
    {CTemplateTokenizer::COL_DataSourceType, &CColumnData::typeFlags},
    {CTemplateTokenizer::COL_DataSource, RepeatedText{&CColumnData::dataSource}},
    {CTemplateTokenizer::COL_ControlType, &CColumnData::controlType},
    {CTemplateTokenizer::COL_TextAlign},
    {CTemplateTokenizer::COL_Width, &CColumnData::width},
    {CTemplateTokenizer::COL_ForeColor},
    {CTemplateTokenizer::COL_BackColor},
    {CTemplateTokenizer::COL_SortOrder, &CColumnData::sortOrder},
    {CTemplateTokenizer::COL_Length, &CColumnData::maximumTextLength},
    {CTemplateTokenizer::TDIR_Key, RepeatedText{&CColumnData::tableName}},
    {CTemplateTokenizer::COL_DisplayFmt, RepeatedText{&CColumnData::displayFormat}},
    {CTemplateTokenizer::COL_Default, RepeatedText{&CColumnData::defaultValue}},
    {CTemplateTokenizer::COL_Precision, &CColumnData::precision},
};

// clang-format on

/// Whether a field table has the row of every token at the token's own place, so that it can be indexed by
/// it.
template <typename Field, std::size_t Size>
constexpr bool isIndexedByToken(const Field (&fields)[Size])
{
    for (std::size_t i = 0; i < Size; ++i) {
        if (static_cast<std::size_t>(fields[i].token) != i + 1) {
            return false;
        }
    }
    return true;
}

static_assert(isIndexedByToken(headerFields));
static_assert(isIndexedByToken(programViewFields));
static_assert(isIndexedByToken(listItemFields));
static_assert(isIndexedByToken(columnFields));

} // namespace Tobrix::Templates
