#include "tools/json/TemplateJson.h"

#include "tools/loading/TemplateLoading.h"

#include "model/CCatalogTemplate.h"
#include "model/CDateColumn.h"
#include "model/CDecimalColumn.h"
#include "model/CIntegerColumn.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateLegendDataItem.h"
#include "model/CTextColumn.h"
#include "model/CTimeColumn.h"

#include <algorithm>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

// clang-format off

const Property<CCatalogTemplate> templateProperties[] = {
    {QLatin1String("uniqueId"),             read<CCatalogTemplate, &CCatalogTemplate::uniqueId>},
    {QLatin1String("catalogRef"),           read<CCatalogTemplate, &CCatalogTemplate::catalogRef>},
    {QLatin1String("catalogProfileRef"),    read<CCatalogTemplate, &CCatalogTemplate::catalogProfileRef>},
    {QLatin1String("key"),                  read<CCatalogTemplate, &CCatalogTemplate::key>},
    {QLatin1String("type"),                 read<CCatalogTemplate, &CCatalogTemplate::type>},
    {QLatin1String("description"),          read<CCatalogTemplate, &CCatalogTemplate::description>},
    {QLatin1String("version"),              read<CCatalogTemplate, &CCatalogTemplate::version>},
    {QLatin1String("unit"),                 read<CCatalogTemplate, &CCatalogTemplate::unit>},
    {QLatin1String("listNamePrefix"),       read<CCatalogTemplate, &CCatalogTemplate::listNamePrefix>},
    {QLatin1String("defaultSecClassName"),  read<CCatalogTemplate, &CCatalogTemplate::defaultSecClassName>},
    {QLatin1String("defaultSecColorField"), read<CCatalogTemplate, &CCatalogTemplate::defaultSecColorField>},
    {QLatin1String("sortOrder"),            read<CCatalogTemplate, &CCatalogTemplate::sortOrder>},
    {QLatin1String("isSystem"),             read<CCatalogTemplate, &CCatalogTemplate::isSystem>},
    {QLatin1String("isEditable"),           read<CCatalogTemplate, &CCatalogTemplate::isEditable>},
    {QLatin1String("isUpdatable"),          read<CCatalogTemplate, &CCatalogTemplate::isUpdatable>},
};

const Property<CProgramView> viewProperties[] = {
    {QLatin1String("uniqueId"),    read<CProgramView, &CProgramView::uniqueId>},
    {QLatin1String("key"),         read<CProgramView, &CProgramView::key>},
    {QLatin1String("description"), read<CProgramView, &CProgramView::description>},
};

const Property<CTemplateColumn> columnProperties[] = {
    {QLatin1String("uniqueId"),        read<CTemplateColumn, &CTemplateColumn::uniqueId>},
    {QLatin1String("boundColumn"),     read<CTemplateColumn, &CTemplateColumn::boundColumn>},
    {QLatin1String("tableName"),       read<CTemplateColumn, &CTemplateColumn::tableName>},
    {QLatin1String("caption"),         read<CTemplateColumn, &CTemplateColumn::caption>},
    {QLatin1String("toolTip"),         read<CTemplateColumn, &CTemplateColumn::toolTip>},
    {QLatin1String("dataType"),        read<CTemplateColumn, &CTemplateColumn::dataType>},
    {QLatin1String("unit"),            read<CTemplateColumn, &CTemplateColumn::unit>},
    {QLatin1String("dataSource"),      read<CTemplateColumn, &CTemplateColumn::dataSource>},
    {QLatin1String("defaultValue"),    read<CTemplateColumn, &CTemplateColumn::defaultValue>},
    {QLatin1String("hasDefaultValue"), read<CTemplateColumn, &CTemplateColumn::hasDefaultValue>},
    {QLatin1String("sortOrder"),       read<CTemplateColumn, &CTemplateColumn::sortOrder>},
    {QLatin1String("width"),           read<CTemplateColumn, &CTemplateColumn::width>},
    {QLatin1String("groupLevel"),      read<CTemplateColumn, &CTemplateColumn::groupLevel>},
    {QLatin1String("columnType"),      read<CTemplateColumn, &CTemplateColumn::columnType>},
    {QLatin1String("typeFlags"),       read<CTemplateColumn, &CTemplateColumn::typeFlags>},
    {QLatin1String("isVisible"),       read<CTemplateColumn, &CTemplateColumn::isVisible>},
    {QLatin1String("isReadOnly"),      read<CTemplateColumn, &CTemplateColumn::isReadOnly>},
    {QLatin1String("isMandatory"),     read<CTemplateColumn, &CTemplateColumn::isMandatory>},
    {QLatin1String("isVirtual"),       read<CTemplateColumn, &CTemplateColumn::isVirtual>},
    {QLatin1String("isValueTransfer"), read<CTemplateColumn, &CTemplateColumn::isValueTransfer>},
    {QLatin1String("controlType"),     read<CTemplateColumn, &CTemplateColumn::getControlType>},
};

const Property<CTextColumn> textColumnProperties[] = {
    {QLatin1String("maximumTextLength"), read<CTextColumn, &CTextColumn::maximumTextLength>},
};

const Property<CIntegerColumn> integerColumnProperties[] = {
    {QLatin1String("minimumValue"), read<CIntegerColumn, &CIntegerColumn::minimumValue>},
    {QLatin1String("maximumValue"), read<CIntegerColumn, &CIntegerColumn::maximumValue>},
    {QLatin1String("stepInterval"), read<CIntegerColumn, &CIntegerColumn::stepInterval>},
};

const Property<CDecimalColumn> decimalColumnProperties[] = {
    {QLatin1String("minimumValue"), read<CDecimalColumn, &CDecimalColumn::minimumValue>},
    {QLatin1String("maximumValue"), read<CDecimalColumn, &CDecimalColumn::maximumValue>},
    {QLatin1String("stepInterval"), read<CDecimalColumn, &CDecimalColumn::stepInterval>},
    {QLatin1String("precision"),    read<CDecimalColumn, &CDecimalColumn::precision>},
};

const Property<CDateColumn> dateColumnProperties[] = {
    {QLatin1String("initializeWithNow"), read<CDateColumn, &CDateColumn::initializeWithNow>},
    {QLatin1String("displayFormat"),     read<CDateColumn, &CDateColumn::displayFormat>},
};

const Property<CTimeColumn> timeColumnProperties[] = {
    {QLatin1String("initializeWithNow"), read<CTimeColumn, &CTimeColumn::initializeWithNow>},
};

const Property<CListItem> listItemProperties[] = {
    {QLatin1String("uniqueId"),      read<CListItem, &CListItem::uniqueId>},
    {QLatin1String("item"),          read<CListItem, &CListItem::item>},
    {QLatin1String("caption"),       read<CListItem, &CListItem::caption>},
    {QLatin1String("comment"),       read<CListItem, &CListItem::comment>},
    {QLatin1String("internalValue"), read<CListItem, &CListItem::internalValue>},
    {QLatin1String("sortOrder"),     read<CListItem, &CListItem::sortOrder>},
};

const Property<CTemplateLegendDataItem> legendProperties[] = {
    {QLatin1String("id"),         read<CTemplateLegendDataItem, &CTemplateLegendDataItem::id>},
    {QLatin1String("numberFrom"), read<CTemplateLegendDataItem, &CTemplateLegendDataItem::numberFrom>},
    {QLatin1String("numberTo"),   read<CTemplateLegendDataItem, &CTemplateLegendDataItem::numberTo>},
    {QLatin1String("color"),      read<CTemplateLegendDataItem, &CTemplateLegendDataItem::color>},
    {QLatin1String("textA"),      read<CTemplateLegendDataItem, &CTemplateLegendDataItem::textA>},
    {QLatin1String("textB"),      read<CTemplateLegendDataItem, &CTemplateLegendDataItem::textB>},
};

/// The properties that each kind of column adds.
template <typename Column, const auto &properties>
void insertOwnProperties(QJsonObject &json, const CTemplateColumn &column, NullText nullText)
{
    insertProperties(json, properties, static_cast<const Column &>(column), nullText);
}

struct ColumnKind
{
    CTemplateColumn::ColumnType columnType;
    void (*insertOwnProperties)(QJsonObject &json, const CTemplateColumn &column, NullText nullText);
};

const ColumnKind columnKinds[] = {
    {CTemplateColumn::Text,    insertOwnProperties<CTextColumn, textColumnProperties>},
    {CTemplateColumn::Integer, insertOwnProperties<CIntegerColumn, integerColumnProperties>},
    {CTemplateColumn::Decimal, insertOwnProperties<CDecimalColumn, decimalColumnProperties>},
    {CTemplateColumn::Date,    insertOwnProperties<CDateColumn, dateColumnProperties>},
    {CTemplateColumn::Time,    insertOwnProperties<CTimeColumn, timeColumnProperties>},
};

// clang-format on

QJsonObject viewJson(const CProgramView &view, NullText nullText)
{
    QJsonObject json;
    insertProperties(json, viewProperties, view, nullText);
    QList<CTemplateColumn *> columns;
    for (int i = 0; i < view.columnCount(); ++i) {
        columns.append(view.column(i));
    }
    json.insert(QLatin1String("columns"), columnsJson(columns, nullText));
    return json;
}

QJsonArray templateViewsJson(const CCatalogTemplate &catalogTemplate)
{
    QList<const CProgramView *> views;
    for (int i = 0; i < catalogTemplate.programViewCount(); ++i) {
        views.append(catalogTemplate.programView(i));
    }
    return viewsJson(views, NullText::AsEmpty);
}

QJsonObject itemListsJson(const CCatalogTemplate &catalogTemplate)
{
    QJsonObject json;
    for (const auto &name : catalogTemplate.itemListNames()) {
        json.insert(name, listItemsJson(catalogTemplate.itemList(name), NullText::AsEmpty));
    }
    return json;
}

} // namespace

QJsonObject templateJson(const LoadedTemplate &loaded)
{
    const auto nullText = NullText::AsEmpty;
    QJsonObject json{
        {QStringLiteral("file"), loaded.fileName},
        {QStringLiteral("ok"), loaded.catalogTemplate != nullptr},
        {QStringLiteral("template"), QJsonValue::Null},
        {QStringLiteral("views"), QJsonArray()},
        {QStringLiteral("itemLists"), QJsonObject()},
        {QStringLiteral("legendA"), QJsonArray()},
        {QStringLiteral("legendB"), QJsonArray()},
        {QStringLiteral("log"), logJson(loaded.log)},
    };
    if (loaded.catalogTemplate) {
        CCatalogTemplate &catalogTemplate = *loaded.catalogTemplate;
        QJsonObject header;
        insertProperties(header, templateProperties, catalogTemplate, nullText);
        json.insert(QLatin1String("template"), header);
        json.insert(QLatin1String("views"), templateViewsJson(catalogTemplate));
        json.insert(QLatin1String("itemLists"), itemListsJson(catalogTemplate));
        json.insert(QLatin1String("legendA"),
                    legendJson(catalogTemplate.getLegendOfClassification(false), nullText));
        json.insert(QLatin1String("legendB"),
                    legendJson(catalogTemplate.getLegendOfClassification(true), nullText));
    }
    return json;
}

QJsonValue columnJson(const CTemplateColumn *column, NullText nullText)
{
    if (!column) {
        return QJsonValue::Null;
    }
    QJsonObject json;
    insertProperties(json, columnProperties, *column, nullText);
    for (const auto &kind : columnKinds) {
        if (kind.columnType == column->columnType()) {
            kind.insertOwnProperties(json, *column, nullText);
        }
    }
    return json;
}

QJsonArray columnsJson(const QList<CTemplateColumn *> &columns, NullText nullText)
{
    return toJsonArray(columns, [&](const auto *column) { return columnJson(column, nullText); });
}

QJsonArray viewsJson(QList<const CProgramView *> views, NullText nullText)
{
    views.removeAll(nullptr);
    const auto precedes = [](const auto *left, const auto *right) {
        const int order = left->uniqueId().compare(right->uniqueId());
        return order != 0 ? order < 0 : left->key() < right->key();
    };
    std::stable_sort(views.begin(), views.end(), precedes);
    return toJsonArray(views, [&](const auto *view) { return viewJson(*view, nullText); });
}

QJsonArray listItemsJson(const QList<CListItem *> &items, NullText nullText)
{
    return toJsonArray(items, [&](const auto *item) {
        QJsonObject json;
        insertProperties(json, listItemProperties, *item, nullText);
        return json;
    });
}

QJsonArray legendJson(const QList<CTemplateLegendDataItem> &legend, NullText nullText)
{
    return toJsonArray(legend, [&](const auto &item) {
        QJsonObject json;
        insertProperties(json, legendProperties, item, nullText);
        return json;
    });
}

QJsonArray logJson(const QList<LogLine> &log)
{
    return toJsonArray(log, [](const auto &line) {
        return QJsonArray{line.level, line.category, line.message};
    });
}

} // namespace Tobrix::Tools
