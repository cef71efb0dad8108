#pragma once

#include "rawdata/FormatRow_p.h"

#include <QLatin1String>

#include <array>
#include <cstddef>
#include <iterator>
#include <type_traits>
#include <utility>

// The current format: its elements, where the reader looks for them, which values it takes from them and what
// they mean. No other file of the library or its tools contains these names.

namespace Tobrix::Templates {

/// The elements that have a meaning in the format.
enum class CurrentElement : unsigned char {
    TemplateIdentifier,
    Name,
    Version,

    ClassificationColorPresets,
    ClassificationColorPreset,
    PresetProperty,

    AssignedCatalogs,
    Catalog,

    View,
    Column,
    MandatoryRestriction,
    BoundProperty,
    RefersTo,
    Caption,
    ToolTip,
    TextItem,
    VisibilityRestriction,
    GroupLevel,
    TextLengthRestriction,
    NumericRangeRestriction,
    ReadOnlyRestriction,
    VirtualRestriction,
    ValueListName,
    DisplayFormat,
    ValueFormatItem,

    ValueList,
    ValueListItem,
    Captions,

    DefaultValues,
    DefaultValueScope,
    DefaultValueItem,

    ClassificationColorScopes,
    ClassificationColorScope,
    ClassificationColor,
    Color,
    TextA,
    TextB,

    Count ///< The number of elements; of a name that is none of them.
};

/// The look-ups of the reader: elements of one name at any depth below those of another look-up.
enum class CurrentLookup : unsigned char {
    Document, ///< No look-up: the start of all others.

    Identifier,
    TemplateName,
    TemplateVersion,

    Presets,
    Preset,
    PresetField,

    AssignedCatalogs,
    Catalog,

    View,
    Column,
    ColumnMandatory,
    ColumnBinding,
    ColumnReference,
    ColumnCaption,
    ColumnCaptionText,
    ColumnToolTip,
    ColumnToolTipText,
    ColumnVisibility,
    ColumnGroupLevel,
    ColumnTextLength,
    ColumnRange,
    ColumnReadOnly,
    ColumnVirtual,
    ColumnListName,
    ColumnDisplayFormat,
    ColumnFormatItem,

    List,
    ListItem,
    ItemCaptions,
    ItemCaptionText,

    Defaults,
    DefaultScope,
    DefaultItem,
    DefaultBinding,
    DefaultReference,

    ColorScopes,
    ColorScope,
    LegendClass,
    LegendColor,
    LegendTextA,
    LegendTextAItem,
    LegendTextB,
    LegendTextBItem,

    Count
};

/// Which of several elements of a name a look-up takes.
enum class CurrentTake : unsigned char {
    Every,
    First,          ///< The first one; the data of another one is lost.
    FirstOfSeveral, ///< The first one; others are for other languages, or repeat it.
    FirstOfAll      ///< The first one of the document, where other elements may have parts of the same name.
};

/// The values that the reader takes.
enum class CurrentValue : unsigned char {
    TemplateId,
    TemplateDescription,
    TemplateUnitSystem,
    TemplateName,
    TemplateVersion,

    PresetScope,
    PresetClassName,
    PresetChapter,
    PresetField,

    CatalogId,
    CatalogCountry,
    CatalogLanguage,

    ViewId,
    ViewName,
    ViewDescription,
    ViewKind,

    ColumnDataType,
    ColumnControlType,
    ColumnWidth,
    ColumnOrdinal,
    ColumnValueTransfer,
    ColumnUnit,
    ColumnIsMandatory,
    ColumnProperty,
    ColumnObject,
    ColumnShownProperty,
    ColumnShownObject,
    ColumnCaption,
    ColumnToolTip,
    ColumnIsVisible,
    ColumnIsVisibleEverywhere,
    ColumnGroupLevel,
    ColumnMaximumLength,
    ColumnStep,
    ColumnPrecision,
    ColumnMinimum,
    ColumnMaximum,
    ColumnIsReadOnly,
    ColumnIsVirtual,
    ColumnListName,
    ColumnDisplayFormat,

    ListName,
    ListClass,
    ItemKey,
    ItemInternalKey,
    ItemOrdinal,
    ItemCaption,

    DefaultText,
    DefaultView,
    DefaultProperty,
    DefaultShownProperty,

    ScopeScheme,
    ScopeKind,
    LegendFrom,
    LegendTo,
    LegendColor,
    LegendTextA,
    LegendTextB,

    Count
};

/// What is done with a value besides converting and storing it.
enum class CurrentRule : unsigned char {
    None,
    TwoFields,
    UnitOfSystem,
    PresetScan,
    JoinedFields,
    CodeOfType,
    NumberOfControl,
    PresenceAsValue,
    BoundPath,
    InvertedSimple,
    LevelOfName,
    ClassOfList,
    DefaultKey,
    DefaultScheme,
    LegendOfScope,

    Count
};

struct CurrentElementRow
{
    CurrentElement element;
    QLatin1String name;
};

struct CurrentLookupRow
{
    CurrentLookup lookup;
    CurrentLookup below;
    CurrentElement element;
    CurrentTake take;
    QLatin1String meaning; ///< What such an element is, as a phrase for users.
};

struct CurrentRuleRow
{
    CurrentRule rule;
    QLatin1String meaning; ///< As the end of a sentence.
};

struct CurrentValueRow
{
    CurrentValue value;
    CurrentLookup lookup;    ///< Of the element that has the value.
    QLatin1String attribute; ///< Empty for a text, and for the presence of the element.
    ValueKind kind;
    CurrentRule rule;
    FormatWords words;
    QLatin1String meaning;
};

/// The name of an editor control, and its code in columns.
struct ControlTypeName
{
    QLatin1String name;
    int controlType;
};

/// A system of units, and the unit of length in templates.
struct UnitSystemName
{
    QLatin1String name;
    QLatin1String unit;
};

/// The name of a data type, and its three-letter code.
struct DataTypeName
{
    QLatin1String name;
    QLatin1String code;
};

/// A binding of columns that are left out of every view.
struct ExcludedBinding
{
    QLatin1String key; ///< Bound column, "_" and table.
};

/// The words that values are compared with.
namespace CurrentWords {
inline constexpr QLatin1String yes("true");
inline constexpr QLatin1String no("false");
inline constexpr QLatin1String sectionScope("Section");
inline constexpr QLatin1String lateralScope("Lateral");
inline constexpr QLatin1String colorChapter("Color");
inline constexpr QLatin1String detailKind("Detail");
inline constexpr QLatin1String defaultScheme("ClassColorDefault");
inline constexpr QLatin1String keySuffix("_Key"); ///< Of a property that is the key of its object.
inline constexpr QLatin1String
    foreignKeySuffix("_FK"); ///< Of a property that refers to an object by its key.
} // namespace CurrentWords

// clang-format off

inline constexpr CurrentElementRow currentElements[] = {
    {CurrentElement::TemplateIdentifier, QLatin1String("TemplateIdentifier")},
    {CurrentElement::Name, QLatin1String("Name")},
    {CurrentElement::Version, QLatin1String("Version")},
    {CurrentElement::ClassificationColorPresets, QLatin1String("ClassificationColorPresets")},
    {CurrentElement::ClassificationColorPreset, QLatin1String("ClassificationColorPreset")},
    {CurrentElement::PresetProperty, QLatin1String("PresetProperty")},
    {CurrentElement::AssignedCatalogs, QLatin1String("AssignedCatalogs")},
    {CurrentElement::Catalog, QLatin1String("Catalog")},
    {CurrentElement::View, QLatin1String("View")},
    {CurrentElement::Column, QLatin1String("Column")},
    {CurrentElement::MandatoryRestriction, QLatin1String("MandatoryRestriction")},
    {CurrentElement::BoundProperty, QLatin1String("BoundProperty")},
    {CurrentElement::RefersTo, QLatin1String("RefersTo")},
    {CurrentElement::Caption, QLatin1String("Caption")},
    {CurrentElement::ToolTip, QLatin1String("ToolTip")},
    {CurrentElement::TextItem, QLatin1String("TextItem")},
    {CurrentElement::VisibilityRestriction, QLatin1String("VisibilityRestriction")},
    {CurrentElement::GroupLevel, QLatin1String("GroupLevel")},
    {CurrentElement::TextLengthRestriction, QLatin1String("TextLengthRestriction")},
    {CurrentElement::NumericRangeRestriction, QLatin1String("NumericRangeRestriction")},
    {CurrentElement::ReadOnlyRestriction, QLatin1String("ReadOnlyRestriction")},
    {CurrentElement::VirtualRestriction, QLatin1String("VirtualRestriction")},
    {CurrentElement::ValueListName, QLatin1String("ValueListName")},
    {CurrentElement::DisplayFormat, QLatin1String("DisplayFormat")},
    {CurrentElement::ValueFormatItem, QLatin1String("ValueFormatItem")},
    {CurrentElement::ValueList, QLatin1String("ValueList")},
    {CurrentElement::ValueListItem, QLatin1String("ValueListItem")},
    {CurrentElement::Captions, QLatin1String("Captions")},
    {CurrentElement::DefaultValues, QLatin1String("DefaultValues")},
    {CurrentElement::DefaultValueScope, QLatin1String("DefaultValueScope")},
    {CurrentElement::DefaultValueItem, QLatin1String("DefaultValueItem")},
    {CurrentElement::ClassificationColorScopes, QLatin1String("ClassificationColorScopes")},
    {CurrentElement::ClassificationColorScope, QLatin1String("ClassificationColorScope")},
    {CurrentElement::ClassificationColor, QLatin1String("ClassificationColor")},
    {CurrentElement::Color, QLatin1String("Color")},
    {CurrentElement::TextA, QLatin1String("TextA")},
    {CurrentElement::TextB, QLatin1String("TextB")},
};

inline constexpr CurrentLookupRow currentLookups[] = {
    {CurrentLookup::Document, CurrentLookup::Document, CurrentElement::Count, CurrentTake::First,
     QLatin1String("the whole document")},

    {CurrentLookup::Identifier, CurrentLookup::Document, CurrentElement::TemplateIdentifier, CurrentTake::First,
     QLatin1String("the template's identity")},
    {CurrentLookup::TemplateName, CurrentLookup::Document, CurrentElement::Name, CurrentTake::FirstOfAll,
     QLatin1String("the template's name")},
    {CurrentLookup::TemplateVersion, CurrentLookup::Document, CurrentElement::Version, CurrentTake::FirstOfAll,
     QLatin1String("the template's version")},

    {CurrentLookup::Presets, CurrentLookup::Document, CurrentElement::ClassificationColorPresets, CurrentTake::First,
     QLatin1String("what objects are coloured by at first")},
    {CurrentLookup::Preset, CurrentLookup::Presets, CurrentElement::ClassificationColorPreset, CurrentTake::Every,
     QLatin1String("what objects of one scope are coloured by at first")},
    {CurrentLookup::PresetField, CurrentLookup::Preset, CurrentElement::PresetProperty, CurrentTake::Every,
     QLatin1String("a field of the chosen preset")},

    {CurrentLookup::AssignedCatalogs, CurrentLookup::Document, CurrentElement::AssignedCatalogs, CurrentTake::First,
     QLatin1String("the catalogues assigned to the template")},
    {CurrentLookup::Catalog, CurrentLookup::AssignedCatalogs, CurrentElement::Catalog, CurrentTake::Every,
     QLatin1String("a catalogue assigned to the template")},

    {CurrentLookup::View, CurrentLookup::Document, CurrentElement::View, CurrentTake::Every,
     QLatin1String("a program view")},
    {CurrentLookup::Column, CurrentLookup::View, CurrentElement::Column, CurrentTake::Every,
     QLatin1String("a column of the view")},
    {CurrentLookup::ColumnMandatory, CurrentLookup::Column, CurrentElement::MandatoryRestriction, CurrentTake::FirstOfSeveral,
     QLatin1String("that a record needs a value")},
    {CurrentLookup::ColumnBinding, CurrentLookup::Column, CurrentElement::BoundProperty, CurrentTake::First,
     QLatin1String("the database column that the column is bound to")},
    {CurrentLookup::ColumnReference, CurrentLookup::ColumnBinding, CurrentElement::RefersTo, CurrentTake::First,
     QLatin1String("the object that the database column refers to")},
    {CurrentLookup::ColumnCaption, CurrentLookup::Column, CurrentElement::Caption, CurrentTake::First,
     QLatin1String("the column's label")},
    {CurrentLookup::ColumnCaptionText, CurrentLookup::ColumnCaption, CurrentElement::TextItem, CurrentTake::FirstOfSeveral,
     QLatin1String("the label's text")},
    {CurrentLookup::ColumnToolTip, CurrentLookup::Column, CurrentElement::ToolTip, CurrentTake::First,
     QLatin1String("the column's explanation")},
    {CurrentLookup::ColumnToolTipText, CurrentLookup::ColumnToolTip, CurrentElement::TextItem, CurrentTake::FirstOfSeveral,
     QLatin1String("the explanation's text")},
    {CurrentLookup::ColumnVisibility, CurrentLookup::Column, CurrentElement::VisibilityRestriction, CurrentTake::First,
     QLatin1String("that the column is shown")},
    {CurrentLookup::ColumnGroupLevel, CurrentLookup::ColumnVisibility, CurrentElement::GroupLevel, CurrentTake::First,
     QLatin1String("the group levels at which the column is shown")},
    {CurrentLookup::ColumnTextLength, CurrentLookup::Column, CurrentElement::TextLengthRestriction, CurrentTake::First,
     QLatin1String("a limit on the length of texts")},
    {CurrentLookup::ColumnRange, CurrentLookup::Column, CurrentElement::NumericRangeRestriction, CurrentTake::First,
     QLatin1String("the range of numbers")},
    {CurrentLookup::ColumnReadOnly, CurrentLookup::Column, CurrentElement::ReadOnlyRestriction, CurrentTake::FirstOfSeveral,
     QLatin1String("that users may not change the value")},
    {CurrentLookup::ColumnVirtual, CurrentLookup::Column, CurrentElement::VirtualRestriction, CurrentTake::FirstOfSeveral,
     QLatin1String("that the value is not stored")},
    {CurrentLookup::ColumnListName, CurrentLookup::Column, CurrentElement::ValueListName, CurrentTake::First,
     QLatin1String("the column's value list")},
    {CurrentLookup::ColumnDisplayFormat, CurrentLookup::Column, CurrentElement::DisplayFormat, CurrentTake::First,
     QLatin1String("how the column's values are displayed")},
    {CurrentLookup::ColumnFormatItem, CurrentLookup::ColumnDisplayFormat, CurrentElement::ValueFormatItem, CurrentTake::FirstOfSeveral,
     QLatin1String("a format in which values are displayed")},

    {CurrentLookup::List, CurrentLookup::Document, CurrentElement::ValueList, CurrentTake::Every,
     QLatin1String("a value list")},
    {CurrentLookup::ListItem, CurrentLookup::List, CurrentElement::ValueListItem, CurrentTake::Every,
     QLatin1String("an item of the list")},
    {CurrentLookup::ItemCaptions, CurrentLookup::ListItem, CurrentElement::Captions, CurrentTake::First,
     QLatin1String("what users see of the item")},
    {CurrentLookup::ItemCaptionText, CurrentLookup::ItemCaptions, CurrentElement::TextItem, CurrentTake::FirstOfSeveral,
     QLatin1String("the text that users see of the item")},

    {CurrentLookup::Defaults, CurrentLookup::Document, CurrentElement::DefaultValues, CurrentTake::First,
     QLatin1String("the default values of the columns")},
    {CurrentLookup::DefaultScope, CurrentLookup::Defaults, CurrentElement::DefaultValueScope, CurrentTake::Every,
     QLatin1String("default values that belong together")},
    {CurrentLookup::DefaultItem, CurrentLookup::DefaultScope, CurrentElement::DefaultValueItem, CurrentTake::Every,
     QLatin1String("the default value of a column in a view")},
    {CurrentLookup::DefaultBinding, CurrentLookup::DefaultItem, CurrentElement::BoundProperty, CurrentTake::First,
     QLatin1String("the database column of the default value's column")},
    {CurrentLookup::DefaultReference, CurrentLookup::DefaultBinding, CurrentElement::RefersTo, CurrentTake::First,
     QLatin1String("the object that this database column refers to")},

    {CurrentLookup::ColorScopes, CurrentLookup::Document, CurrentElement::ClassificationColorScopes, CurrentTake::First,
     QLatin1String("the classification legends")},
    {CurrentLookup::ColorScope, CurrentLookup::ColorScopes, CurrentElement::ClassificationColorScope, CurrentTake::Every,
     QLatin1String("a legend of one scope and colour scheme")},
    {CurrentLookup::LegendClass, CurrentLookup::ColorScope, CurrentElement::ClassificationColor, CurrentTake::Every,
     QLatin1String("a class of the legend")},
    {CurrentLookup::LegendColor, CurrentLookup::LegendClass, CurrentElement::Color, CurrentTake::First,
     QLatin1String("the class's colour")},
    {CurrentLookup::LegendTextA, CurrentLookup::LegendClass, CurrentElement::TextA, CurrentTake::First,
     QLatin1String("the class's first caption")},
    {CurrentLookup::LegendTextAItem, CurrentLookup::LegendTextA, CurrentElement::TextItem, CurrentTake::FirstOfSeveral,
     QLatin1String("the text of the first caption")},
    {CurrentLookup::LegendTextB, CurrentLookup::LegendClass, CurrentElement::TextB, CurrentTake::First,
     QLatin1String("the class's second caption")},
    {CurrentLookup::LegendTextBItem, CurrentLookup::LegendTextB, CurrentElement::TextItem, CurrentTake::FirstOfSeveral,
     QLatin1String("the text of the second caption")},
};

/// A column may have no control, so the empty name is one of the names. The spelling differs: "textbox" in
/// some names, "TextBox" in another.
inline constexpr ControlTypeName controlTypeNames[] = {
    {QLatin1String(""), 0},
    {QLatin1String("SimpleTextbox"), 1},
    {QLatin1String("MaskedTextbox"), 2},
    {QLatin1String("ComboList"), 3},
    {QLatin1String("NumericUpDown"), 4},
    {QLatin1String("DateOnlyPicker"), 5},
    {QLatin1String("TimeOnlyPicker"), 6},
    {QLatin1String("CheckBox"), 7},
    {QLatin1String("TextButton"), 8},
    {QLatin1String("ComboTextBox"), 9},
    {QLatin1String("BitMask"), 10},
    {QLatin1String("DirectoryPicker"), 11},
    {QLatin1String("FilePicker"), 12},
    {QLatin1String("ColorPicker"), 13},
    {QLatin1String("FontPicker"), 14},
    {QLatin1String("SectionTitle"), 15},
    {QLatin1String("PictureBox"), 16},
    {QLatin1String("CommandButton"), 17},
    {QLatin1String("MultipleChoice"), 18},
    {QLatin1String("MultiLineTextbox"), 19},
};

inline constexpr UnitSystemName unitSystemNames[] = {
    {QLatin1String("Metric"), QLatin1String("m")},
    {QLatin1String("Imperial"), QLatin1String("ft")},
};

inline constexpr DataTypeName dataTypeNames[] = {
    {QLatin1String("Guid"), QLatin1String("GUI")},
    {QLatin1String("Decimal"), QLatin1String("DEC")},
    {QLatin1String("Text"), QLatin1String("TXT")},
    {QLatin1String("Boolean"), QLatin1String("BOL")},
    {QLatin1String("Date"), QLatin1String("DAT")},
    {QLatin1String("Time"), QLatin1String("TIM")},
    {QLatin1String("Integer"), QLatin1String("INT")},
};

inline constexpr ExcludedBinding excludedBindings[] = {
    {QLatin1String("OBJ_FromHorizontalOffset_SECTION")},
    {QLatin1String("OBJ_ToHorizontalOffset_SECTION")},
    {QLatin1String("OBJ_ActivityType_SECTION")},
    {QLatin1String("OBJ_Instrumented_SECTION")},
    {QLatin1String("OBJ_Maintenance_SECTION")},
    {QLatin1String("OBJ_RequiresReview_SECTION")},
    {QLatin1String("OBJ_ActivityType_NODE")},
    {QLatin1String("OBJ_Instrumented_NODE")},
    {QLatin1String("OBJ_Maintenance_NODE")},
    {QLatin1String("OBJ_RequiresReview_NODE")},
};

inline constexpr CurrentRuleRow currentRules[] = {
    {CurrentRule::None, QLatin1String("kept as converted")},
    {CurrentRule::TwoFields, QLatin1String("kept as the template's key and as the prefix of its lists' names")},
    {CurrentRule::UnitOfSystem, QLatin1String("kept as the system's unit of length")},
    {CurrentRule::PresetScan, QLatin1String("of presets of scope \"Section\" in turn, until there is both a class name and one of chapter \"Color\"")},
    {CurrentRule::JoinedFields, QLatin1String("joined by \";\"")},
    {CurrentRule::CodeOfType, QLatin1String("kept as the type's code; a column of unknown type keeps its place, but is not built")},
    {CurrentRule::NumberOfControl, QLatin1String("kept as the control's number, 0 for an unknown one")},
    {CurrentRule::PresenceAsValue, QLatin1String("true where there is such an element")},
    {CurrentRule::BoundPath, QLatin1String("joined by \".\" to the path of what a reference shows; of a key only in detail views, for mandatory columns")},
    {CurrentRule::InvertedSimple, QLatin1String("\"false\" restricts the column to the group levels; anything else does not")},
    {CurrentRule::LevelOfName, QLatin1String("of each attribute whose name has the level as its sixth character")},
    {CurrentRule::ClassOfList, QLatin1String("given to every column by the name of its list; of several lists of one name the last counts")},
    {CurrentRule::DefaultKey, QLatin1String("for columns of this path in views of this name; of several default values the last counts")},
    {CurrentRule::DefaultScheme, QLatin1String("only \"ClassColorDefault\" is read")},
    {CurrentRule::LegendOfScope, QLatin1String("the legend of sections or of laterals; that of any other scope is not read")},
};

// clang-format on

namespace CurrentTables {

template <typename Rows, std::size_t... Indices>
constexpr std::array<QLatin1String, sizeof...(Indices)> namesOf(const Rows &rows,
                                                                std::index_sequence<Indices...>)
{
    return {rows[Indices].name...};
}

template <typename Row, std::size_t Size>
constexpr auto namesOf(const Row (&rows)[Size])
{
    return namesOf(rows, std::make_index_sequence<Size>());
}

inline constexpr auto dataTypes = namesOf(dataTypeNames);
inline constexpr auto controlTypes = namesOf(controlTypeNames);
inline constexpr auto unitSystems = namesOf(unitSystemNames);
inline constexpr std::array<QLatin1String, 2> flags = {CurrentWords::yes, CurrentWords::no};
inline constexpr std::array<QLatin1String, 1> sections = {CurrentWords::sectionScope};
inline constexpr std::array<QLatin1String, 2> legends = {CurrentWords::sectionScope,
                                                         CurrentWords::lateralScope};
inline constexpr std::array<QLatin1String, 1> chapters = {CurrentWords::colorChapter};
inline constexpr std::array<QLatin1String, 1> kinds = {CurrentWords::detailKind};
inline constexpr std::array<QLatin1String, 1> schemes = {CurrentWords::defaultScheme};

template <typename Names>
constexpr FormatWords words(const Names &names)
{
    return {names.data(), static_cast<int>(names.size())};
}

inline constexpr FormatWords anything = {};

} // namespace CurrentTables

// clang-format off

inline constexpr CurrentValueRow currentValues[] = {
    {CurrentValue::TemplateId, CurrentLookup::Identifier, QLatin1String("Id"), ValueKind::Exact, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the template's unique id")},
    {CurrentValue::TemplateDescription, CurrentLookup::Identifier, QLatin1String("Description"), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("what the template is for")},
    {CurrentValue::TemplateUnitSystem, CurrentLookup::Identifier, QLatin1String("SystemOfUnits"), ValueKind::Exact, CurrentRule::UnitOfSystem, CurrentTables::words(CurrentTables::unitSystems),
     QLatin1String("the system of units")},
    {CurrentValue::TemplateName, CurrentLookup::TemplateName, QLatin1String(), ValueKind::Exact, CurrentRule::TwoFields, CurrentTables::anything,
     QLatin1String("the template's name")},
    {CurrentValue::TemplateVersion, CurrentLookup::TemplateVersion, QLatin1String(), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the template's version")},

    {CurrentValue::PresetScope, CurrentLookup::Preset, QLatin1String("Scope"), ValueKind::Exact, CurrentRule::PresetScan, CurrentTables::words(CurrentTables::sections),
     QLatin1String("the objects that are coloured")},
    {CurrentValue::PresetClassName, CurrentLookup::Preset, QLatin1String("ClassificationColorName"), ValueKind::Text, CurrentRule::PresetScan, CurrentTables::anything,
     QLatin1String("the classification that sections show at first")},
    {CurrentValue::PresetChapter, CurrentLookup::Preset, QLatin1String("Chapter"), ValueKind::Exact, CurrentRule::PresetScan, CurrentTables::words(CurrentTables::chapters),
     QLatin1String("what the preset sets")},
    {CurrentValue::PresetField, CurrentLookup::PresetField, QLatin1String("PropertyName"), ValueKind::Exact, CurrentRule::JoinedFields, CurrentTables::anything,
     QLatin1String("a field by which sections are coloured at first")},

    {CurrentValue::CatalogId, CurrentLookup::Catalog, QLatin1String("Id"), ValueKind::Exact, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the catalogue's id")},
    {CurrentValue::CatalogCountry, CurrentLookup::Catalog, QLatin1String("Country"), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the country that the catalogue is for")},
    {CurrentValue::CatalogLanguage, CurrentLookup::Catalog, QLatin1String("Language"), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the language of the catalogue")},

    {CurrentValue::ViewId, CurrentLookup::View, QLatin1String("Id"), ValueKind::Exact, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the view's unique id")},
    {CurrentValue::ViewName, CurrentLookup::View, QLatin1String("Name"), ValueKind::Exact, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the name by which hosts ask for the view")},
    {CurrentValue::ViewDescription, CurrentLookup::View, QLatin1String("Description"), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("what the view is for")},
    {CurrentValue::ViewKind, CurrentLookup::View, QLatin1String("Kind"), ValueKind::Exact, CurrentRule::BoundPath, CurrentTables::words(CurrentTables::kinds),
     QLatin1String("whether the view is a form for details")},

    {CurrentValue::ColumnDataType, CurrentLookup::Column, QLatin1String("DataType"), ValueKind::Exact, CurrentRule::CodeOfType, CurrentTables::words(CurrentTables::dataTypes),
     QLatin1String("the type of the values")},
    {CurrentValue::ColumnControlType, CurrentLookup::Column, QLatin1String("ControlType"), ValueKind::Exact, CurrentRule::NumberOfControl, CurrentTables::words(CurrentTables::controlTypes),
     QLatin1String("the editor control")},
    {CurrentValue::ColumnWidth, CurrentLookup::Column, QLatin1String("Width"), ValueKind::Integer, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the width shown")},
    {CurrentValue::ColumnOrdinal, CurrentLookup::Column, QLatin1String("Ordinal"), ValueKind::Integer, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the position in the view")},
    {CurrentValue::ColumnValueTransfer, CurrentLookup::Column, QLatin1String("ValueTransfer"), ValueKind::Flag, CurrentRule::None, CurrentTables::words(CurrentTables::flags),
     QLatin1String("whether the value is carried over to the next record")},
    {CurrentValue::ColumnUnit, CurrentLookup::Column, QLatin1String("Unit"), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the unit of the values")},
    {CurrentValue::ColumnIsMandatory, CurrentLookup::ColumnMandatory, QLatin1String(), ValueKind::Presence, CurrentRule::PresenceAsValue, CurrentTables::anything,
     QLatin1String("whether a record needs a value")},
    {CurrentValue::ColumnProperty, CurrentLookup::ColumnBinding, QLatin1String("PropertyName"), ValueKind::Exact, CurrentRule::BoundPath, CurrentTables::anything,
     QLatin1String("the database column")},
    {CurrentValue::ColumnObject, CurrentLookup::ColumnBinding, QLatin1String("ObjectName"), ValueKind::Exact, CurrentRule::BoundPath, CurrentTables::anything,
     QLatin1String("the database table")},
    {CurrentValue::ColumnShownProperty, CurrentLookup::ColumnReference, QLatin1String("DisplayPropertyName"), ValueKind::Exact, CurrentRule::BoundPath, CurrentTables::anything,
     QLatin1String("the database column that is shown of the object referred to")},
    {CurrentValue::ColumnShownObject, CurrentLookup::ColumnReference, QLatin1String("ObjectName"), ValueKind::Exact, CurrentRule::BoundPath, CurrentTables::anything,
     QLatin1String("the database table of the object referred to")},
    {CurrentValue::ColumnCaption, CurrentLookup::ColumnCaptionText, QLatin1String(), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the label")},
    {CurrentValue::ColumnToolTip, CurrentLookup::ColumnToolTipText, QLatin1String(), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the explanation")},
    {CurrentValue::ColumnIsVisible, CurrentLookup::ColumnVisibility, QLatin1String(), ValueKind::Presence, CurrentRule::PresenceAsValue, CurrentTables::anything,
     QLatin1String("whether the column is shown")},
    {CurrentValue::ColumnIsVisibleEverywhere, CurrentLookup::ColumnVisibility, QLatin1String("Simple"), ValueKind::Flag, CurrentRule::InvertedSimple, CurrentTables::words(CurrentTables::flags),
     QLatin1String("whether the column is shown at all group levels")},
    {CurrentValue::ColumnGroupLevel, CurrentLookup::ColumnGroupLevel, QLatin1String("Level1"), ValueKind::Flag, CurrentRule::LevelOfName, CurrentTables::words(CurrentTables::flags),
     QLatin1String("whether the column is shown at group level 1; likewise for the levels to 9")},
    {CurrentValue::ColumnMaximumLength, CurrentLookup::ColumnTextLength, QLatin1String("Max"), ValueKind::WholeOfReal, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the longest text, in characters")},
    {CurrentValue::ColumnStep, CurrentLookup::ColumnRange, QLatin1String("Step"), ValueKind::Real, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the step of the editor")},
    {CurrentValue::ColumnPrecision, CurrentLookup::ColumnRange, QLatin1String("Precision"), ValueKind::Integer, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the number of decimal places")},
    {CurrentValue::ColumnMinimum, CurrentLookup::ColumnRange, QLatin1String("From"), ValueKind::Real, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the least value")},
    {CurrentValue::ColumnMaximum, CurrentLookup::ColumnRange, QLatin1String("To"), ValueKind::Real, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the greatest value")},
    {CurrentValue::ColumnIsReadOnly, CurrentLookup::ColumnReadOnly, QLatin1String(), ValueKind::Presence, CurrentRule::PresenceAsValue, CurrentTables::anything,
     QLatin1String("whether users may not change the value")},
    {CurrentValue::ColumnIsVirtual, CurrentLookup::ColumnVirtual, QLatin1String(), ValueKind::Presence, CurrentRule::PresenceAsValue, CurrentTables::anything,
     QLatin1String("whether the value is not stored")},
    {CurrentValue::ColumnListName, CurrentLookup::ColumnListName, QLatin1String(), ValueKind::Exact, CurrentRule::ClassOfList, CurrentTables::anything,
     QLatin1String("the name of the column's value list")},
    {CurrentValue::ColumnDisplayFormat, CurrentLookup::ColumnFormatItem, QLatin1String("Format"), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the format in which dates are displayed")},

    {CurrentValue::ListName, CurrentLookup::List, QLatin1String("Name"), ValueKind::Exact, CurrentRule::ClassOfList, CurrentTables::anything,
     QLatin1String("the list's name")},
    {CurrentValue::ListClass, CurrentLookup::List, QLatin1String("CompatibleListClassType"), ValueKind::Integer, CurrentRule::ClassOfList, CurrentTables::anything,
     QLatin1String("the class of the list")},
    {CurrentValue::ItemKey, CurrentLookup::ListItem, QLatin1String("Key"), ValueKind::Exact, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the value that is stored when the item is chosen")},
    {CurrentValue::ItemInternalKey, CurrentLookup::ListItem, QLatin1String("InternalKey"), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the value that the host calculates with")},
    {CurrentValue::ItemOrdinal, CurrentLookup::ListItem, QLatin1String("OrdinalIndex"), ValueKind::Integer, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the position in the list")},
    {CurrentValue::ItemCaption, CurrentLookup::ItemCaptionText, QLatin1String(), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("what users see of the item")},

    {CurrentValue::DefaultText, CurrentLookup::DefaultItem, QLatin1String("Value"), ValueKind::Text, CurrentRule::DefaultKey, CurrentTables::anything,
     QLatin1String("the default value")},
    {CurrentValue::DefaultView, CurrentLookup::DefaultItem, QLatin1String("View"), ValueKind::Exact, CurrentRule::DefaultKey, CurrentTables::anything,
     QLatin1String("the name of the view")},
    {CurrentValue::DefaultProperty, CurrentLookup::DefaultBinding, QLatin1String("PropertyName"), ValueKind::Exact, CurrentRule::DefaultKey, CurrentTables::anything,
     QLatin1String("the database column")},
    {CurrentValue::DefaultShownProperty, CurrentLookup::DefaultReference, QLatin1String("DisplayPropertyName"), ValueKind::Exact, CurrentRule::DefaultKey, CurrentTables::anything,
     QLatin1String("the database column that is shown of the object referred to")},

    {CurrentValue::ScopeScheme, CurrentLookup::ColorScope, QLatin1String("Name"), ValueKind::Exact, CurrentRule::DefaultScheme, CurrentTables::words(CurrentTables::schemes),
     QLatin1String("the colour scheme of the legend")},
    {CurrentValue::ScopeKind, CurrentLookup::ColorScope, QLatin1String("Scope"), ValueKind::Exact, CurrentRule::LegendOfScope, CurrentTables::words(CurrentTables::legends),
     QLatin1String("the objects that the legend is for")},
    {CurrentValue::LegendFrom, CurrentLookup::LegendClass, QLatin1String("From"), ValueKind::Real, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the lower bound of the class")},
    {CurrentValue::LegendTo, CurrentLookup::LegendClass, QLatin1String("To"), ValueKind::Real, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the upper bound of the class")},
    {CurrentValue::LegendColor, CurrentLookup::LegendColor, QLatin1String("Html"), ValueKind::Exact, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the class's colour")},
    {CurrentValue::LegendTextA, CurrentLookup::LegendTextAItem, QLatin1String(), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the class's first caption")},
    {CurrentValue::LegendTextB, CurrentLookup::LegendTextBItem, QLatin1String(), ValueKind::Text, CurrentRule::None, CurrentTables::anything,
     QLatin1String("the class's second caption")},
};

// clang-format on

/// The index of an enumerator's row.
template <typename Enum>
constexpr std::size_t indexOf(Enum enumerator)
{
    return static_cast<std::size_t>(enumerator);
}

constexpr QLatin1String nameOf(CurrentElement element)
{
    return currentElements[indexOf(element)].name;
}

constexpr const CurrentLookupRow &rowOf(CurrentLookup lookup)
{
    return currentLookups[indexOf(lookup)];
}

constexpr const CurrentValueRow &rowOf(CurrentValue value)
{
    return currentValues[indexOf(value)];
}

/// The element that a look-up looks for.
constexpr CurrentElement elementOf(CurrentLookup lookup)
{
    return rowOf(lookup).element;
}

/// The element that has a value.
constexpr CurrentElement elementOf(CurrentValue value)
{
    return elementOf(rowOf(value).lookup);
}

constexpr QLatin1String attributeOf(CurrentValue value)
{
    return rowOf(value).attribute;
}

/// Whether a value is the text of its element.
constexpr bool isText(CurrentValue value)
{
    return attributeOf(value).isEmpty() && rowOf(value).kind != ValueKind::Presence;
}

namespace CurrentTables {

constexpr FormatRow formatRow(const CurrentValueRow &row)
{
    return {nameOf(elementOf(row.lookup)), row.attribute, row.kind, row.meaning, row.words};
}

template <std::size_t... Indices>
constexpr std::array<FormatRow, sizeof...(Indices)> formatRows(std::index_sequence<Indices...>)
{
    return {formatRow(currentValues[Indices])...};
}

/// Whether each row of a table is at the index of its enumerator.
template <typename Enum, typename Row, std::size_t Size>
constexpr bool isIndexed(const Row (&rows)[Size], Enum Row::*key)
{
    for (std::size_t i = 0; i < Size; ++i) {
        if (indexOf(rows[i].*key) != i) {
            return false;
        }
    }
    return Size == indexOf(Enum::Count);
}

static_assert(isIndexed(currentElements, &CurrentElementRow::element), "a row for each element");
static_assert(isIndexed(currentLookups, &CurrentLookupRow::lookup), "a row for each look-up");
static_assert(isIndexed(currentRules, &CurrentRuleRow::rule), "a row for each rule");
static_assert(isIndexed(currentValues, &CurrentValueRow::value), "a row for each value");

} // namespace CurrentTables

/// The values as rows of the common type, in the same order.
inline constexpr auto currentFormatRows =
    CurrentTables::formatRows(std::make_index_sequence<std::size(currentValues)>());

constexpr const FormatRow &formatRowOf(CurrentValue value)
{
    return currentFormatRows[indexOf(value)];
}

/// The value of one of these rows.
inline CurrentValue valueOf(const FormatRow &row)
{
    return static_cast<CurrentValue>(&row - currentFormatRows.data());
}

} // namespace Tobrix::Templates
