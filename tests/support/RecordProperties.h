#pragma once

#include "support/Properties.h"

#include "model/CListItem.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateBaseData.h"

/// The header of a template as read.
inline Properties<Tobrix::Templates::CTemplateBaseData> headerProperties()
{
    using Header = Tobrix::Templates::CTemplateBaseData;
    const auto text = [](const char *value) { return QVariant(QLatin1String(value)); };
    const QVariant none = QString();
    return {
        field("uniqueId", none, text("{id}"), &Header::uniqueId),
        field("catalogRef", none, text("{catalogue}"), &Header::catalogRef),
        field("catalogProfileRef", none, text("{base}"), &Header::catalogProfileRef),
        field("key", none, text("Key"), &Header::key),
        field("type", none, text("SEWER"), &Header::type),
        field("description", none, text("Description"), &Header::description),
        field("version", none, text("1.2"), &Header::version),
        field("unit", none, text("ft"), &Header::unit),
        field("listNamePrefix", none, text("Prefix"), &Header::listNamePrefix),
        field("defaultSecClassName", none, text("Class"), &Header::defaultSecClassName),
        field("defaultSecColorField", none, text("OBJ_Color"), &Header::defaultSecColorField),
        field("sortOrder", -1, 7, &Header::sortOrder),
        field("isSystem", false, true, &Header::isSystem),
        field("isEditable", false, true, &Header::isEditable),
        field("isUpdatable", false, true, &Header::isUpdatable),
    };
}

/// One column as read.
inline Properties<Tobrix::Templates::CColumnData> columnDataProperties()
{
    using Data = Tobrix::Templates::CColumnData;
    const auto text = [](const char *value) { return QVariant(QLatin1String(value)); };
    const QVariant none = QString();
    return {
        field("uniqueId", none, text("{id}"), &Data::uniqueId),
        field("viewRef", none, text("{view}"), &Data::viewRef),
        field("boundColumn", none, text("OBJ_Key"), &Data::boundColumn),
        field("caption", none, text("Caption"), &Data::caption),
        field("unit", none, text("mm"), &Data::unit),
        field("dataSource", none, text("Materials"), &Data::dataSource),
        field("defaultValue", none, text("1"), &Data::defaultValue),
        field("tableName", none, text("SECTION"), &Data::tableName),
        field("displayFormat", none, text("dd.MM.yyyy"), &Data::displayFormat),
        field("dataType", none, text("XYZ"), &Data::dataType),
        field("toolTip", none, text("Tool tip"), &Data::toolTip),
        field("minimumValue", -2147483647.0, -21.0, &Data::minimumValue),
        field("maximumValue", 2147483647.0, 22.0, &Data::maximumValue),
        field("stepInterval", 0.0, 23.0, &Data::stepInterval),
        field("maximumTextLength", 0, 80, &Data::maximumTextLength),
        field("sortOrder", 0, 10, &Data::sortOrder),
        field("width", 0, 120, &Data::width),
        field("precision", 2, 3, &Data::precision),
        field("controlType", 0, 19, &Data::controlType),
        field("groupLevel", 0, 12, &Data::groupLevel),
        field("columnType", 0, 4, &Data::columnType),
        field("typeFlags", 0, 14, &Data::typeFlags),
        field("isVisible", false, true, &Data::isVisible),
        field("isReadOnly", false, true, &Data::isReadOnly),
        field("isMandatory", false, true, &Data::isMandatory),
        field("isVirtual", false, true, &Data::isVirtual),
        field("isValueTransfer", false, true, &Data::isValueTransfer),
    };
}

/// A value-list item.
inline Properties<Tobrix::Templates::CListItem> listItemProperties()
{
    using Item = Tobrix::Templates::CListItem;
    const auto text = [](const char *value) { return QVariant(QLatin1String(value)); };
    const QVariant none = QString();
    return {
        property<Item>("uniqueId", none, text("{id}"), &Item::uniqueId, &Item::setUniqueId),
        property<Item>("item", none, text("STZ"), &Item::item, &Item::setItem),
        property<Item>("caption", none, text("Vitrified clay"), &Item::caption, &Item::setCaption),
        property<Item>("comment", none, text("Since 1880"), &Item::comment, &Item::setComment),
        property<Item>("internalValue", none, text("17"), &Item::internalValue, &Item::setInternalValue),
        property<Item>("sortOrder", -1, 5, &Item::sortOrder, &Item::setSortOrder),
    };
}
