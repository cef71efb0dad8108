#pragma once

#include <QLatin1String>

namespace Tobrix::Templates {

/// The elements that mean something in the format, in groups of those that stand together.
enum class ElementName : unsigned char {
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
    // What a column consists of, from here ...
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
    // ... to here.

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

    Count
};

/// Whether an element is one that a column consists of.
constexpr bool isPartOfColumn(ElementName name)
{
    return name >= ElementName::MandatoryRestriction && name <= ElementName::ValueFormatItem;
}

/// Whether an element is one that an item of a list consists of.
constexpr bool isPartOfListItem(ElementName name)
{
    return name == ElementName::Captions || name == ElementName::TextItem;
}

/// An element that stands for a record of its own, what it belongs in and what it consists of.
struct RecordElement
{
    ElementName name;
    ElementName container;
    bool (*isPart)(ElementName);
};

inline constexpr RecordElement recordElements[] = {
    {ElementName::Column, ElementName::View, isPartOfColumn},
    {ElementName::ValueListItem, ElementName::ValueList, isPartOfListItem},
};

/// An element's name as it stands in a file.
struct ElementNameText
{
    QLatin1String text;
    ElementName name;
};

/// An editor control's name with the code that columns keep.
struct ControlTypeName
{
    QLatin1String name;
    int controlType;
};

/// A system of units with the unit of length that templates keep.
struct UnitSystemName
{
    QLatin1String name;
    QLatin1String unit;
};

/// A data type's name with its three-letter code.
struct DataTypeName
{
    QLatin1String name;
    QLatin1String code;
};

// clang-format off

inline constexpr ElementNameText elementNames[] = {
    {QLatin1String("TemplateIdentifier"), ElementName::TemplateIdentifier},
    {QLatin1String("Name"), ElementName::Name},
    {QLatin1String("Version"), ElementName::Version},
    {QLatin1String("ClassificationColorPresets"), ElementName::ClassificationColorPresets},
    {QLatin1String("ClassificationColorPreset"), ElementName::ClassificationColorPreset},
    {QLatin1String("PresetProperty"), ElementName::PresetProperty},
    {QLatin1String("AssignedCatalogs"), ElementName::AssignedCatalogs},
    {QLatin1String("Catalog"), ElementName::Catalog},
    {QLatin1String("View"), ElementName::View},
    {QLatin1String("Column"), ElementName::Column},
    {QLatin1String("MandatoryRestriction"), ElementName::MandatoryRestriction},
    {QLatin1String("BoundProperty"), ElementName::BoundProperty},
    {QLatin1String("RefersTo"), ElementName::RefersTo},
    {QLatin1String("Caption"), ElementName::Caption},
    {QLatin1String("ToolTip"), ElementName::ToolTip},
    {QLatin1String("TextItem"), ElementName::TextItem},
    {QLatin1String("VisibilityRestriction"), ElementName::VisibilityRestriction},
    {QLatin1String("GroupLevel"), ElementName::GroupLevel},
    {QLatin1String("TextLengthRestriction"), ElementName::TextLengthRestriction},
    {QLatin1String("NumericRangeRestriction"), ElementName::NumericRangeRestriction},
    {QLatin1String("ReadOnlyRestriction"), ElementName::ReadOnlyRestriction},
    {QLatin1String("VirtualRestriction"), ElementName::VirtualRestriction},
    {QLatin1String("ValueListName"), ElementName::ValueListName},
    {QLatin1String("DisplayFormat"), ElementName::DisplayFormat},
    {QLatin1String("ValueFormatItem"), ElementName::ValueFormatItem},
    {QLatin1String("ValueList"), ElementName::ValueList},
    {QLatin1String("ValueListItem"), ElementName::ValueListItem},
    {QLatin1String("Captions"), ElementName::Captions},
    {QLatin1String("DefaultValues"), ElementName::DefaultValues},
    {QLatin1String("DefaultValueScope"), ElementName::DefaultValueScope},
    {QLatin1String("DefaultValueItem"), ElementName::DefaultValueItem},
    {QLatin1String("ClassificationColorScopes"), ElementName::ClassificationColorScopes},
    {QLatin1String("ClassificationColorScope"), ElementName::ClassificationColorScope},
    {QLatin1String("ClassificationColor"), ElementName::ClassificationColor},
    {QLatin1String("Color"), ElementName::Color},
    {QLatin1String("TextA"), ElementName::TextA},
    {QLatin1String("TextB"), ElementName::TextB},
};

/// A column may go without a control, so the empty name is a control's name too. Mind the spellings: "textbox" in
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

/// Columns that are left out of every view, as bound column, "_" and table.
inline constexpr QLatin1String excludedColumnKeys[] = {
    QLatin1String("OBJ_FromHorizontalOffset_SECTION"),
    QLatin1String("OBJ_ToHorizontalOffset_SECTION"),
    QLatin1String("OBJ_ActivityType_SECTION"),
    QLatin1String("OBJ_Instrumented_SECTION"),
    QLatin1String("OBJ_Maintenance_SECTION"),
    QLatin1String("OBJ_RequiresReview_SECTION"),
    QLatin1String("OBJ_ActivityType_NODE"),
    QLatin1String("OBJ_Instrumented_NODE"),
    QLatin1String("OBJ_Maintenance_NODE"),
    QLatin1String("OBJ_RequiresReview_NODE"),
};

// clang-format on

} // namespace Tobrix::Templates
