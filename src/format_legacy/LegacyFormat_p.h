#pragma once

#include "format_legacy/CTemplateTokenizer.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateLegendDataItem.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateBaseData.h"
#include "rawdata/ColumnTypeCodes_p.h"
#include "rawdata/FormatRow_p.h"

#include <array>
#include <iterator>
#include <type_traits>
#include <variant>

namespace Tobrix::Templates {

// The legacy format: all its names, their meanings, and where their values are stored. No other file of the
// library or its tools contains these names.

using Tokens = CTemplateTokenizer;

/// Which of an element's texts count. The sections differ, and existing files rely on each rule.
enum class TextRule : unsigned char {
    /// The first text after a start tag, even after the element's end: an empty element takes the whitespace
    /// that follows it.
    FirstAfterStartTag,
    /// Only a text that directly follows a start tag.
    DirectlyAfterStartTag,
    /// Every text within the element; the last one wins.
    EveryWithinElement
};

/// The target of a text that many columns or lists repeat, and that is stored once for all of them.
template <typename Target>
struct RepeatedText
{
    Target target;
};

template <typename Target>
RepeatedText(Target) -> RepeatedText<Target>;

/// The target of an item's list name, which the reader keeps: items do not store it.
struct KeptByReader
{
};

inline constexpr QLatin1String legacyFlagWords[] = {QLatin1String("true")};
inline constexpr auto legacyTypeWords = [] {
    std::array<QLatin1String, std::size(columnTypeCodes)> words;
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i] = columnTypeCodes[i].code;
    }
    return words;
}();

/// An element of a section: its token, and the target of its value. An element without a target is known, but
/// its text is ignored.
template <typename TokenOfSection, typename... Targets>
struct LegacyField
{
    using Token = TokenOfSection;
    using Target = std::variant<std::monostate, Targets...>;

    constexpr LegacyField(Token ownToken, const char *name, ValueKind kind, Target ownTarget,
                          const char *meaning, FormatWords words = {})
        : row{QLatin1String(name), QLatin1String(), kind, QLatin1String(meaning), words}
        , token(ownToken)
        , target(ownTarget)
    {
        if (kind == ValueKind::Flag) {
            row.words = {legacyFlagWords, 1};
        }
    }

    FormatRow row;
    Token token;
    Target target;
};

using HeaderField = LegacyField<Tokens::TemplateInfoToken, QString CTemplateBaseData::*,
                                int CTemplateBaseData::*, bool CTemplateBaseData::*>;

using ProgramViewField = LegacyField<Tokens::ProgramViewToken, void (CProgramView::*)(const QString &)>;

using ListItemField =
    LegacyField<Tokens::ListItemToken, KeptByReader, void (CListItem::*)(const QString &),
                RepeatedText<void (CListItem::*)(const QString &)>, void (CListItem::*)(int)>;

using ColumnField =
    LegacyField<Tokens::ColumnToken, QString CColumnData::*, RepeatedText<QString CColumnData::*>,
                int CColumnData::*, double CColumnData::*, bool CColumnData::*,
                CTemplateColumn::GroupLevel CColumnData::*, CTemplateColumn::TypeFlags CColumnData::*>;

using LegendField = LegacyField<Tokens::LegendToken, QString CTemplateLegendDataItem::*>;

/// An attribute of a legend class. Attributes have no tokens.
struct LegendAttribute
{
    FormatRow row;
    std::variant<QString CTemplateLegendDataItem::*, double CTemplateLegendDataItem::*> target;
};

// clang-format off

/// Elements of the template's header.
inline constexpr HeaderField headerFields[] = {
    {Tokens::TPL_PK, "TPL_PK", ValueKind::Exact, &CTemplateBaseData::uniqueId, "identity of the template, by which the host knows it"},
    {Tokens::TPL_Catalog_REF, "TPL_Catalog_REF", ValueKind::Text, &CTemplateBaseData::catalogRef, "catalogue that the template refers to"},
    {Tokens::TPL_BasedOn_REF, "TPL_BasedOn_REF", ValueKind::Text, &CTemplateBaseData::catalogProfileRef, "template that this one is based on"},
    {Tokens::TPL_Key, "TPL_Key", ValueKind::Exact, &CTemplateBaseData::key, "key of the template"},
    {Tokens::TPL_Type, "TPL_Type", ValueKind::Exact, &CTemplateBaseData::type, "type of the template"},
    {Tokens::TPL_Description, "TPL_Description", ValueKind::Text, &CTemplateBaseData::description, "what the template is for"},
    {Tokens::TPL_Version, "TPL_Version", ValueKind::Text, &CTemplateBaseData::version, "version of the template"},
    {Tokens::TPL_Unit, "TPL_Unit", ValueKind::Exact, &CTemplateBaseData::unit, "system of units, as its unit of length"},
    {Tokens::TPL_IsSystem, "TPL_IsSystem", ValueKind::Flag, &CTemplateBaseData::isSystem, "whether the template came with the system"},
    {Tokens::TPL_Editable, "TPL_Editable", ValueKind::Flag, &CTemplateBaseData::isEditable, "whether users may edit the template"},
    {Tokens::TPL_Updatable, "TPL_Updatable", ValueKind::Flag, &CTemplateBaseData::isUpdatable, "whether the template may be updated"},
    {Tokens::TPL_ListNamePrefix, "TPL_ListNamePrefix", ValueKind::Text, &CTemplateBaseData::listNamePrefix, "prefix of the names of the value lists"},
    {Tokens::TPL_DefaultSecClassName, "TPL_DefaultSecClassName", ValueKind::Text, &CTemplateBaseData::defaultSecClassName, "classification that sections show at first"},
    {Tokens::TPL_DefaultSecColorField, "TPL_DefaultSecColorField", ValueKind::Text, &CTemplateBaseData::defaultSecColorField, "field by which sections are coloured at first"},
    {Tokens::TPL_SortOrder, "TPL_SortOrder", ValueKind::Integer, &CTemplateBaseData::sortOrder, "position among templates"},
};

/// Elements of a program view.
inline constexpr ProgramViewField programViewFields[] = {
    {Tokens::PV_PK, "PV_PK", ValueKind::Exact, &CProgramView::setUniqueId, "identity of the view, by which columns refer to it"},
    {Tokens::PV_Key, "PV_Key", ValueKind::Exact, &CProgramView::setKey, "key by which hosts ask for the view"},
    {Tokens::PV_Description, "PV_Description", ValueKind::Text, &CProgramView::setDescription, "what the view is for"},
};

/// Elements of a column. See decidesValueTransfer().
inline constexpr ColumnField columnFields[] = {
    {Tokens::COL_PK, "COL_PK", ValueKind::Text, &CColumnData::uniqueId, "identity of the column"},
    {Tokens::COL_Template_FK, "COL_Template_FK", ValueKind::Flag, &CColumnData::isValueTransfer, "reference to the template; read as value transfer"},
    {Tokens::COL_ProgView_FK, "COL_ProgView_FK", ValueKind::Exact, RepeatedText{&CColumnData::viewRef}, "identity of the column's view"},
    {Tokens::COL_Bound_TableDir_REF, "COL_Bound_TableDir_REF", ValueKind::Flag, &CColumnData::isValueTransfer, "reference to the table directory; read as value transfer"},
    {Tokens::COL_Bound_Column, "COL_Bound_Column", ValueKind::Exact, &CColumnData::boundColumn, "database column"},
    {Tokens::COL_Caption, "COL_Caption", ValueKind::Text, &CColumnData::caption, "label"},
    {Tokens::COL_ToolTip, "COL_ToolTip", ValueKind::Text, &CColumnData::toolTip, "explanation"},
    {Tokens::COL_GroupLevel, "COL_GroupLevel", ValueKind::Integer, &CColumnData::groupLevel, "grouping, as a number of the host's"},
    {Tokens::COL_DataType, "COL_DataType", ValueKind::Exact, RepeatedText{&CColumnData::dataType}, "kind of the column; any other code drops the column", {legacyTypeWords.data(), static_cast<int>(legacyTypeWords.size())}},
    {Tokens::COL_RangeFrom, "COL_RangeFrom", ValueKind::Real, &CColumnData::minimumValue, "least value"},
    {Tokens::COL_RangeTo, "COL_RangeTo", ValueKind::Real, &CColumnData::maximumValue, "greatest value"},
    {Tokens::COL_Steps, "COL_Steps", ValueKind::Real, &CColumnData::stepInterval, "step of the editor"},
    {Tokens::COL_Unit, "COL_Unit", ValueKind::Exact, RepeatedText{&CColumnData::unit}, "unit of the values"},
    {Tokens::COL_StateBits, "COL_StateBits", ValueKind::Ignored, {}, "state bits"},
    {Tokens::COL_Visible, "COL_Visible", ValueKind::Flag, &CColumnData::isVisible, "whether the column is visible"},
    {Tokens::COL_ReadOnly, "COL_ReadOnly", ValueKind::Flag, &CColumnData::isReadOnly, "whether users may only look"},
    {Tokens::COL_Mandatory, "COL_Mandatory", ValueKind::Flag, &CColumnData::isMandatory, "whether a record needs a value"},
    {Tokens::COL_Virtual, "COL_Virtual", ValueKind::Flag, &CColumnData::isVirtual, "whether the value is not stored"},
    {Tokens::COL_ValueTransfer, "COL_ValueTransfer", ValueKind::Flag, &CColumnData::isValueTransfer, "whether the value is carried over to the next new record"},
    {Tokens::COL_EvalObjSymbol, "COL_EvalObjSymbol", ValueKind::Ignored, {}, "symbol of the evaluated object"},
    {Tokens::COL_EvalObjColor, "COL_EvalObjColor", ValueKind::Ignored, {}, "color of the evaluated object"},
    {Tokens::COL_DataSourceType, "COL_DataSourceType", ValueKind::Integer, &CColumnData::typeFlags, "type of the data source"},
    {Tokens::COL_DataSource, "COL_DataSource", ValueKind::Exact, RepeatedText{&CColumnData::dataSource}, "value list, or another source, that offers the choices"},
    {Tokens::COL_ControlType, "COL_ControlType", ValueKind::Integer, &CColumnData::controlType, "code of the editor control"},
    {Tokens::COL_TextAlign, "COL_TextAlign", ValueKind::Ignored, {}, "alignment of the text"},
    {Tokens::COL_Width, "COL_Width", ValueKind::Integer, &CColumnData::width, "width, in the host's units"},
    {Tokens::COL_ForeColor, "COL_ForeColor", ValueKind::Ignored, {}, "color of the text"},
    {Tokens::COL_BackColor, "COL_BackColor", ValueKind::Ignored, {}, "color of the background"},
    {Tokens::COL_SortOrder, "COL_SortOrder", ValueKind::Integer, &CColumnData::sortOrder, "position in the view"},
    {Tokens::COL_Length, "COL_Length", ValueKind::Integer, &CColumnData::maximumTextLength, "longest text, in characters; 0 for no limit"},
    {Tokens::TDIR_Key, "TDIR_Key", ValueKind::Exact, RepeatedText{&CColumnData::tableName}, "database table"},
    {Tokens::COL_DisplayFmt, "COL_DisplayFmt", ValueKind::Exact, RepeatedText{&CColumnData::displayFormat}, "format in which dates are displayed"},
    {Tokens::COL_Default, "COL_Default", ValueKind::Text, RepeatedText{&CColumnData::defaultValue}, "default value, converted by the data type"},
    {Tokens::COL_Precision, "COL_Precision", ValueKind::Integer, &CColumnData::precision, "decimal places"},
};

/// Elements of a value-list item.
inline constexpr ListItemField listItemFields[] = {
    {Tokens::LIST_PK, "LIST_PK", ValueKind::Text, &CListItem::setUniqueId, "identity of the item"},
    {Tokens::LIST_Name, "LIST_Name", ValueKind::Exact, KeptByReader(), "name of the list that the item belongs to; without it the file is refused"},
    {Tokens::LIST_Item, "LIST_Item", ValueKind::Exact, RepeatedText{&CListItem::setItem}, "value that a record stores"},
    {Tokens::LIST_Caption, "LIST_Caption", ValueKind::Text, RepeatedText{&CListItem::setCaption}, "what users see"},
    {Tokens::LIST_Comment, "LIST_Comment", ValueKind::Text, &CListItem::setComment, "remark"},
    {Tokens::LIST_Internal, "LIST_Internal", ValueKind::Text, RepeatedText{&CListItem::setInternalValue}, "value that the host calculates with"},
    {Tokens::LIST_SortOrder, "LIST_SortOrder", ValueKind::Integer, &CListItem::setSortOrder, "position in the list"},
};

/// Elements of the classification legends. See beginsLegend().
inline constexpr LegendField legendFields[] = {
    {Tokens::LegendClass, "class", ValueKind::Presence, {}, "legend class of the current legend"},
    {Tokens::LegendA, "legendA", ValueKind::Text, &CTemplateLegendDataItem::textA, "first caption of the last legend class"},
    {Tokens::LegendB, "legendB", ValueKind::Text, &CTemplateLegendDataItem::textB, "second caption of the last legend class"},
    {Tokens::Section, "Section", ValueKind::Presence, {}, "begins the legend of sections anew"},
    {Tokens::Lateral, "Lateral", ValueKind::Presence, {}, "begins the legend of laterals anew"},
};

/// Attributes of a legend class: the only attributes of the format, by their qualified names.
inline constexpr LegendAttribute legendAttributes[] = {
    {{legendFields[0].row.element, QLatin1String("id"), ValueKind::Text, QLatin1String("identifier of the legend class"), {}}, &CTemplateLegendDataItem::id},
    {{legendFields[0].row.element, QLatin1String("color"), ValueKind::Exact, QLatin1String("color of the legend class"), {}}, &CTemplateLegendDataItem::color},
    {{legendFields[0].row.element, QLatin1String("numberFrom"), ValueKind::Real, QLatin1String("least value of the legend class"), {}}, &CTemplateLegendDataItem::numberFrom},
    {{legendFields[0].row.element, QLatin1String("numberTo"), ValueKind::Real, QLatin1String("greatest value of the legend class"), {}}, &CTemplateLegendDataItem::numberTo},
};

// clang-format on

/// Whether an element sets the column's flag for value transfer. Of three such elements, two are references
/// that read as false; the last one in the section wins.
constexpr bool decidesValueTransfer(Tokens::ColumnToken token)
{
    return token == Tokens::COL_Template_FK || token == Tokens::COL_Bound_TableDir_REF ||
           token == Tokens::COL_ValueTransfer;
}

/// The first element of the section that has the same target as another one.
template <typename Token>
constexpr Token fieldOf(Token token)
{
    if constexpr (std::is_same_v<Token, Tokens::ColumnToken>) {
        return decidesValueTransfer(token) ? Tokens::COL_Template_FK : token;
    }
    return token;
}

/// Whether the start tag of an element selects a legend and clears it. Each section of legends starts with
/// the legend of sections selected and not cleared.
constexpr bool beginsLegend(Tokens::LegendToken token)
{
    return token == Tokens::Section || token == Tokens::Lateral;
}

/// The row of the attribute that is stored in a field of a legend class.
template <typename Value>
constexpr const FormatRow &legendAttribute(Value CTemplateLegendDataItem::*field)
{
    const LegendAttribute *found = std::begin(legendAttributes);
    while (found->target != decltype(found->target)(field)) {
        ++found;
    }
    return found->row;
}

/// The rows of a section's elements without the types of their targets, each at its token less 1.
struct LegacyRows
{
    const FormatRow &(*at)(int index) = nullptr;
    int count = 0;
};

template <const auto &fields>
constexpr LegacyRows legacyRows()
{
    return {[](int index) -> const FormatRow & { return fields[index].row; },
            static_cast<int>(std::size(fields))};
}

/// A container, whose children are read, or a section.
struct LegacySection
{
    constexpr LegacySection(Tokens::TemplateToken ownToken, const char *name, const char *meaning,
                            TextRule rule = {}, LegacyRows ownRows = {})
        : row{QLatin1String(name), QLatin1String(), ValueKind::Presence, QLatin1String(meaning), {}}
        , token(ownToken)
        , textRule(rule)
        , rows(ownRows)
    {
    }

    bool isContainer() const { return rows.count == 0; }

    FormatRow row;
    Tokens::TemplateToken token;
    TextRule textRule;
    LegacyRows rows;
};

// clang-format off

/// Containers and sections of a document. Sections come in any order and number.
inline constexpr LegacySection legacySections[] = {
    {Tokens::TXSYS, "TXSYS", "container of sections"},
    {Tokens::TobrixTemplate, "TobrixTemplate", "container of sections, as a rule the root"},
    {Tokens::SYSTPL, "SYSTPL", "header of the template", TextRule::FirstAfterStartTag, legacyRows<headerFields>()},
    {Tokens::PROGVIEW, "PROGVIEW", "one program view", TextRule::FirstAfterStartTag, legacyRows<programViewFields>()},
    {Tokens::SYSCOL, "SYSCOL", "one column", TextRule::DirectlyAfterStartTag, legacyRows<columnFields>()},
    {Tokens::SYSLIST, "SYSLIST", "one item of a value list", TextRule::FirstAfterStartTag, legacyRows<listItemFields>()},
    {Tokens::LegendOfClassification, "LegendOfClassification", "legends of the classification", TextRule::EveryWithinElement, legacyRows<legendFields>()},
};

// clang-format on

constexpr const LegacySection &legacySection(Tokens::TemplateToken token)
{
    return legacySections[token - 1];
}

namespace LegacyFormatChecks {

/// Whether the row of every token is at index token less 1.
template <typename Rows>
constexpr bool isIndexedByToken(const Rows &rows)
{
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        if (static_cast<std::size_t>(rows[i].token) != i + 1) {
            return false;
        }
    }
    return true;
}

/// Whether a kind of value matches the type of its target.
struct IsKindOf
{
    ValueKind kind;

    constexpr bool operator()(std::monostate) const
    {
        return kind == ValueKind::Ignored || kind == ValueKind::Presence;
    }
    constexpr bool operator()(KeptByReader) const { return is<QString>(); }
    template <typename Target>
    constexpr bool operator()(RepeatedText<Target>) const
    {
        return is<QString>();
    }
    template <typename Value, typename Owner>
    constexpr bool operator()(Value Owner::*) const
    {
        return is<Value>();
    }
    template <typename Value, typename Owner>
    constexpr bool operator()(void (Owner::*)(Value)) const
    {
        return is<std::decay_t<Value>>();
    }

private:
    template <typename Value>
    constexpr bool is() const
    {
        if constexpr (std::is_same_v<Value, QString>) {
            return kind == ValueKind::Text || kind == ValueKind::Exact;
        } else if constexpr (std::is_same_v<Value, bool>) {
            return kind == ValueKind::Flag;
        } else if constexpr (std::is_same_v<Value, double>) {
            return kind == ValueKind::Real;
        } else {
            return kind == ValueKind::Integer;
        }
    }
};

template <typename Rows>
constexpr bool hasKindsOfTargets(const Rows &rows)
{
    // NOLINTNEXTLINE(readability-use-anyofallof): std::all_of is no constant expression in C++17
    for (const auto &row : rows) {
        if (!std::visit(IsKindOf{row.row.kind}, row.target)) {
            return false;
        }
    }
    return true;
}

static_assert(isIndexedByToken(legacySections));
static_assert(isIndexedByToken(headerFields) && hasKindsOfTargets(headerFields));
static_assert(isIndexedByToken(programViewFields) && hasKindsOfTargets(programViewFields));
static_assert(isIndexedByToken(columnFields) && hasKindsOfTargets(columnFields));
static_assert(isIndexedByToken(listItemFields) && hasKindsOfTargets(listItemFields));
static_assert(isIndexedByToken(legendFields) && hasKindsOfTargets(legendFields));
static_assert(hasKindsOfTargets(legendAttributes));

} // namespace LegacyFormatChecks

} // namespace Tobrix::Templates
