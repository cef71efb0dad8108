#include "tools/json/RawDataJson.h"

#include "tools/json/TemplateJson.h"
#include "tools/loading/TemplateLoading.h"

#include "rawdata/CTemplateRawData.h"

namespace Tobrix::Tools {

using namespace Templates;
using CATManagement::CCatalogDescriptor;

namespace {

// clang-format off

const Property<CTemplateBaseData> headerProperties[] = {
    {QLatin1String("uniqueId"),             read<CTemplateBaseData, &CTemplateBaseData::uniqueId>},
    {QLatin1String("catalogRef"),           read<CTemplateBaseData, &CTemplateBaseData::catalogRef>},
    {QLatin1String("catalogProfileRef"),    read<CTemplateBaseData, &CTemplateBaseData::catalogProfileRef>},
    {QLatin1String("key"),                  read<CTemplateBaseData, &CTemplateBaseData::key>},
    {QLatin1String("type"),                 read<CTemplateBaseData, &CTemplateBaseData::type>},
    {QLatin1String("description"),          read<CTemplateBaseData, &CTemplateBaseData::description>},
    {QLatin1String("version"),              read<CTemplateBaseData, &CTemplateBaseData::version>},
    {QLatin1String("unit"),                 read<CTemplateBaseData, &CTemplateBaseData::unit>},
    {QLatin1String("listNamePrefix"),       read<CTemplateBaseData, &CTemplateBaseData::listNamePrefix>},
    {QLatin1String("defaultSecClassName"),  read<CTemplateBaseData, &CTemplateBaseData::defaultSecClassName>},
    {QLatin1String("defaultSecColorField"), read<CTemplateBaseData, &CTemplateBaseData::defaultSecColorField>},
    {QLatin1String("sortOrder"),            read<CTemplateBaseData, &CTemplateBaseData::sortOrder>},
    {QLatin1String("isSystem"),             read<CTemplateBaseData, &CTemplateBaseData::isSystem>},
    {QLatin1String("isEditable"),           read<CTemplateBaseData, &CTemplateBaseData::isEditable>},
    {QLatin1String("isUpdatable"),          read<CTemplateBaseData, &CTemplateBaseData::isUpdatable>},
};

const Property<CCatalogDescriptor> catalogProperties[] = {
    {QLatin1String("id"),           read<CCatalogDescriptor, &CCatalogDescriptor::id>},
    {QLatin1String("countryCode"),  read<CCatalogDescriptor, &CCatalogDescriptor::countryCode>},
    {QLatin1String("languageCode"), read<CCatalogDescriptor, &CCatalogDescriptor::languageCode>},
};

// clang-format on

constexpr auto nullText = NullText::AsNull;

QJsonObject headerJson(const CTemplateBaseData &header)
{
    QJsonObject json;
    insertProperties(json, headerProperties, header, nullText);
    return json;
}

QJsonObject catalogJson(const CCatalogDescriptor &catalog)
{
    QJsonObject json;
    insertProperties(json, catalogProperties, catalog, nullText);
    return json;
}

/// The values of each key as one array, in the map's order.
template <typename Value, typename ToJson>
QJsonObject groupsJson(const QMap<QString, Value> &map, ToJson groupJson)
{
    QJsonObject json;
    auto it = map.begin();
    while (it != map.end()) {
        const QString key = it.key();
        QList<Value> group;
        for (; it != map.end() && it.key() == key; ++it) {
            group.append(it.value());
        }
        json.insert(key, groupJson(group, nullText));
    }
    return json;
}

QList<const CProgramView *> viewsOf(const CTemplateRawData &rawData)
{
    QList<const CProgramView *> views;
    for (const auto *view : rawData.programViews) {
        views.append(view);
    }
    return views;
}

} // namespace

QJsonObject rawDataJson(const LoadedRawData &loaded)
{
    const CTemplateRawData &rawData = *loaded.rawData;
    return QJsonObject{
        {QStringLiteral("file"), loaded.fileName},
        {QStringLiteral("ok"), loaded.isRead},
        {QStringLiteral("header"), headerJson(rawData)},
        {QStringLiteral("catalogs"), toJsonArray(rawData.catalogs, catalogJson)},
        {QStringLiteral("views"), viewsJson(viewsOf(rawData), nullText)},
        {QStringLiteral("columns"), groupsJson(rawData.columns, columnsJson)},
        {QStringLiteral("listItems"), groupsJson(rawData.listItems, listItemsJson)},
        {QStringLiteral("legendA"), legendJson(rawData.legendA, nullText)},
        {QStringLiteral("legendB"), legendJson(rawData.legendB, nullText)},
        {QStringLiteral("log"), logJson(loaded.log)},
    };
}

} // namespace Tobrix::Tools
