#pragma once

#include "format_current/CurrentFormatTables_p.h"
#include "rawdata/ValueKind_p.h"

namespace Tobrix::Templates {

/// An attribute that means something in the format, on the element that it stands on.
struct ElementAttribute
{
    ElementName element;
    QLatin1String name;
    ValueKind kind;
};

// clang-format off

/// All of them but those of GroupLevel, which has one for every level.
inline constexpr ElementAttribute elementAttributes[] = {
    {ElementName::TemplateIdentifier, QLatin1String("Id"), ValueKind::Exact},
    {ElementName::TemplateIdentifier, QLatin1String("Description"), ValueKind::Text},
    {ElementName::TemplateIdentifier, QLatin1String("SystemOfUnits"), ValueKind::Exact},
    {ElementName::ClassificationColorPreset, QLatin1String("Scope"), ValueKind::Exact},
    {ElementName::ClassificationColorPreset, QLatin1String("ClassificationColorName"), ValueKind::Text},
    {ElementName::ClassificationColorPreset, QLatin1String("Chapter"), ValueKind::Exact},
    {ElementName::PresetProperty, QLatin1String("PropertyName"), ValueKind::Exact},
    {ElementName::Catalog, QLatin1String("Id"), ValueKind::Exact},
    {ElementName::Catalog, QLatin1String("Country"), ValueKind::Text},
    {ElementName::Catalog, QLatin1String("Language"), ValueKind::Text},
    {ElementName::View, QLatin1String("Id"), ValueKind::Exact},
    {ElementName::View, QLatin1String("Name"), ValueKind::Exact},
    {ElementName::View, QLatin1String("Description"), ValueKind::Text},
    {ElementName::View, QLatin1String("Kind"), ValueKind::Exact},
    {ElementName::Column, QLatin1String("DataType"), ValueKind::Exact},
    {ElementName::Column, QLatin1String("ControlType"), ValueKind::Exact},
    {ElementName::Column, QLatin1String("Width"), ValueKind::Integer},
    {ElementName::Column, QLatin1String("Ordinal"), ValueKind::Integer},
    {ElementName::Column, QLatin1String("ValueTransfer"), ValueKind::Flag},
    {ElementName::Column, QLatin1String("Unit"), ValueKind::Text},
    {ElementName::BoundProperty, QLatin1String("PropertyName"), ValueKind::Exact},
    {ElementName::BoundProperty, QLatin1String("ObjectName"), ValueKind::Exact},
    {ElementName::RefersTo, QLatin1String("DisplayPropertyName"), ValueKind::Exact},
    {ElementName::RefersTo, QLatin1String("ObjectName"), ValueKind::Exact},
    {ElementName::VisibilityRestriction, QLatin1String("Simple"), ValueKind::Flag},
    {ElementName::TextLengthRestriction, QLatin1String("Max"), ValueKind::WholeOfReal},
    {ElementName::NumericRangeRestriction, QLatin1String("Step"), ValueKind::Real},
    {ElementName::NumericRangeRestriction, QLatin1String("Precision"), ValueKind::Integer},
    {ElementName::NumericRangeRestriction, QLatin1String("From"), ValueKind::Real},
    {ElementName::NumericRangeRestriction, QLatin1String("To"), ValueKind::Real},
    {ElementName::ValueFormatItem, QLatin1String("Format"), ValueKind::Text},
    {ElementName::ValueList, QLatin1String("Name"), ValueKind::Exact},
    {ElementName::ValueList, QLatin1String("CompatibleListClassType"), ValueKind::Integer},
    {ElementName::ValueListItem, QLatin1String("Key"), ValueKind::Exact},
    {ElementName::ValueListItem, QLatin1String("InternalKey"), ValueKind::Text},
    {ElementName::ValueListItem, QLatin1String("OrdinalIndex"), ValueKind::Integer},
    {ElementName::DefaultValueItem, QLatin1String("Value"), ValueKind::Text},
    {ElementName::DefaultValueItem, QLatin1String("View"), ValueKind::Exact},
    {ElementName::ClassificationColorScope, QLatin1String("Name"), ValueKind::Exact},
    {ElementName::ClassificationColorScope, QLatin1String("Scope"), ValueKind::Exact},
    {ElementName::ClassificationColor, QLatin1String("From"), ValueKind::Real},
    {ElementName::ClassificationColor, QLatin1String("To"), ValueKind::Real},
    {ElementName::Color, QLatin1String("Html"), ValueKind::Exact},
};

// clang-format on

} // namespace Tobrix::Templates
