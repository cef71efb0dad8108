#include "format_current/NewTemplateXMLReader.h"

#include "format_current/CurrentFormatTables_p.h"
#include "loading/CTemplateBuilder.h"
#include "loading/TemplateFile_p.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "model/SortOrder_p.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"
#include "rawdata/SaturatedInt_p.h"

#include <QFile>
#include <QSet>

#include <array>
#include <memory>

namespace Tobrix::Templates {

namespace {

/// The value of an attribute; null when the element has none of that name, or is none itself.
QString attributeOf(const QDomElement &element, const QString &name)
{
    return element.attribute(name, QString());
}

int intAttributeOf(const QDomElement &element, const QString &name)
{
    return attributeOf(element, name).toInt(nullptr, 10);
}

double doubleAttributeOf(const QDomElement &element, const QString &name)
{
    return attributeOf(element, name).toDouble();
}

/// The group level that an attribute of "GroupLevel" stands for, 1 to 9: the sixth character of its name. 0
/// when the name has no such digit there.
int levelOfAttribute(const QString &name)
{
    constexpr int digitPosition = 5;
    if (name.size() <= digitPosition) {
        return 0;
    }
    const ushort character = name.at(digitPosition).unicode();
    return character >= '1' && character <= '9' ? character - '0' : 0;
}

QSet<QString> excludedColumns()
{
    QSet<QString> keys;
    for (const auto &key : excludedColumnKeys) {
        keys.insert(key);
    }
    return keys;
}

} // namespace

NewTemplateXMLReader::NewTemplateXMLReader()
{
    for (const auto &row : controlTypeNames) {
        m_controlTypes.insert(row.name, row.controlType);
    }
    for (const auto &row : unitSystemNames) {
        m_unitSystems.insert(row.name, row.unit);
    }
    for (const auto &row : dataTypeNames) {
        m_dataTypes.insert(row.name, row.code);
    }
}

NewTemplateXMLReader::~NewTemplateXMLReader() = default;

bool NewTemplateXMLReader::readFile(const QString &fileName, CTemplateRawData &rawData)
{
    m_document.clear();
    m_valueListTypes.clear();
    m_defaultValues.clear();
    m_rawData = &rawData;

    QFile file(fileName);
    if (!openTemplateFile(file)) {
        return false;
    }
    // A file that is not well-formed leaves what stands before the fault.
    m_document.setContent(&file, false);
    file.close();

    readTemplateData();
    readValueLists();
    readProgramView();
    readLegendLists();
    return true;
}

QDomElement NewTemplateXMLReader::uniqueTemplateElementByTagName(const QString &tagName) const
{
    return m_document.elementsByTagName(tagName).item(0).toElement();
}

QDomElement NewTemplateXMLReader::uniqueChildFromElementByTagName(const QDomElement &element,
                                                                  const QString &tagName) const
{
    return element.elementsByTagName(tagName).item(0).toElement();
}

void NewTemplateXMLReader::readTemplateData()
{
    const QDomElement identifier = uniqueTemplateElementByTagName(QStringLiteral("TemplateIdentifier"));
    m_rawData->uniqueId = attributeOf(identifier, QStringLiteral("Id"));
    // A template's name is the prefix of its lists' names as well.
    m_rawData->key = uniqueTemplateElementByTagName(QStringLiteral("Name")).text();
    m_rawData->listNamePrefix = uniqueTemplateElementByTagName(QStringLiteral("Name")).text();
    m_rawData->description = attributeOf(identifier, QStringLiteral("Description"));
    m_rawData->version = uniqueTemplateElementByTagName(QStringLiteral("Version")).text();
    m_rawData->unit = m_unitSystems[attributeOf(identifier, QStringLiteral("SystemOfUnits"))];
    readClassificationColorPreset();
    readCatalogs();
}

void NewTemplateXMLReader::readClassificationColorPreset()
{
    const QDomNodeList presets = uniqueTemplateElementByTagName(QStringLiteral("ClassificationColorPresets"))
                                     .elementsByTagName(QStringLiteral("ClassificationColorPreset"));
    QDomElement chosen;
    for (int i = 0; i < presets.count(); ++i) {
        const QDomElement preset = presets.at(i).toElement();
        if (attributeOf(preset, QStringLiteral("Scope")) != QLatin1String("Section")) {
            continue;
        }
        // Name and fields may come from two presets: the scan goes on until there is one of each.
        const QString name = attributeOf(preset, QStringLiteral("ClassificationColorName"));
        if (!name.isNull()) {
            m_rawData->defaultSecClassName = name;
        }
        if (attributeOf(preset, QStringLiteral("Chapter")) == QLatin1String("Color")) {
            chosen = preset;
        }
        if (!m_rawData->defaultSecClassName.isEmpty() && !chosen.isNull()) {
            break;
        }
    }

    QStringList propertyNames;
    const QDomNodeList properties = chosen.elementsByTagName(QStringLiteral("PresetProperty"));
    for (int i = 0; i < properties.count(); ++i) {
        propertyNames.append(attributeOf(properties.at(i).toElement(), QStringLiteral("PropertyName")));
    }
    m_rawData->defaultSecColorField = propertyNames.join(QLatin1Char(';'));
}

void NewTemplateXMLReader::readCatalogs()
{
    const QDomNodeList catalogs = uniqueTemplateElementByTagName(QStringLiteral("AssignedCatalogs"))
                                      .elementsByTagName(QStringLiteral("Catalog"));
    for (int i = 0; i < catalogs.count(); ++i) {
        const QDomElement catalog = catalogs.at(i).toElement();
        CATManagement::CCatalogDescriptor descriptor;
        descriptor.setId(attributeOf(catalog, QStringLiteral("Id")));
        descriptor.setCountryCode(attributeOf(catalog, QStringLiteral("Country")));
        descriptor.setLanguageCode(attributeOf(catalog, QStringLiteral("Language")));
        m_rawData->catalogs.append(descriptor);
    }
}

void NewTemplateXMLReader::readValueLists()
{
    const QDomNodeList lists = m_document.elementsByTagName(QStringLiteral("ValueList"));
    for (int i = 0; i < lists.count(); ++i) {
        const QDomElement list = lists.at(i).toElement();
        m_valueListTypes.insert(attributeOf(list, QStringLiteral("Name")),
                                intAttributeOf(list, QStringLiteral("CompatibleListClassType")));
        readValueListItems(list);
    }
}

void NewTemplateXMLReader::readValueListItems(const QDomElement &valueList)
{
    const QDomNodeList elements = valueList.elementsByTagName(QStringLiteral("ValueListItem"));
    for (int i = 0; i < elements.count(); ++i) {
        const QDomElement element = elements.at(i).toElement();
        const QDomElement captions = uniqueChildFromElementByTagName(element, QStringLiteral("Captions"));
        auto item = std::make_unique<CListItem>();
        item->setItem(attributeOf(element, QStringLiteral("Key")));
        item->setInternalValue(attributeOf(element, QStringLiteral("InternalKey")));
        item->setSortOrder(intAttributeOf(element, QStringLiteral("OrdinalIndex")));
        item->setCaption(uniqueChildFromElementByTagName(captions, QStringLiteral("TextItem")).text());
        m_rawData->listItems.insertMulti(attributeOf(valueList, QStringLiteral("Name")), item.release());
    }
}

void NewTemplateXMLReader::readProgramView()
{
    const QDomNodeList elements = m_document.elementsByTagName(QStringLiteral("View"));
    // Columns look their defaults up while they are read.
    readDefaultValues();
    for (int i = 0; i < elements.count(); ++i) {
        const QDomElement element = elements.at(i).toElement();
        auto view = std::make_unique<CProgramView>();
        view->setUniqueId(attributeOf(element, QStringLiteral("Id")));
        view->setKey(attributeOf(element, QStringLiteral("Name")));
        view->setDescription(attributeOf(element, QStringLiteral("Description")));

        QList<CTemplateColumn *> columns;
        readColumns(element, columns);
        sortBySortOrder(columns);
        view->setColumns(columns);

        // Of several views with one id the last counts.
        CProgramView *&filed = m_rawData->programViews[view->uniqueId()];
        delete filed;
        filed = view.release();
    }
}

void NewTemplateXMLReader::readColumns(const QDomElement &view, QList<CTemplateColumn *> &columns)
{
    const QDomNodeList elements = view.elementsByTagName(QStringLiteral("Column"));
    for (int i = 0; i < elements.count(); ++i) {
        const CColumnData data = readColumn(view, elements.at(i).toElement());
        if (excludedColumns().contains(data.boundColumn + QLatin1Char('_') + data.tableName)) {
            continue;
        }
        // Null for a column of unknown data type: the view keeps its place.
        columns.append(CTemplateBuilder::buildColumn(data));
    }
}

CColumnData NewTemplateXMLReader::readColumn(const QDomElement &view, const QDomElement &column)
{
    CColumnData data;
    data.viewRef = attributeOf(view, QStringLiteral("Id"));
    data.dataType = m_dataTypes[attributeOf(column, QStringLiteral("DataType"))];
    data.columnType = CTemplateDataConverter::stringToColumnType(QStringRef(&data.dataType));
    data.controlType = m_controlTypes[attributeOf(column, QStringLiteral("ControlType"))];
    data.width = intAttributeOf(column, QStringLiteral("Width"));
    data.sortOrder = intAttributeOf(column, QStringLiteral("Ordinal"));
    data.isValueTransfer =
        CTemplateDataConverter::stringToBool(attributeOf(column, QStringLiteral("ValueTransfer")));
    if (column.hasAttribute(QStringLiteral("Unit"))) {
        data.unit = attributeOf(column, QStringLiteral("Unit"));
    }
    readRestrictions(column, data);
    readBinding(view, column, data);
    readPresentation(column, data);
    data.dataSource = uniqueChildFromElementByTagName(column, QStringLiteral("ValueListName")).text();
    data.typeFlags = static_cast<CTemplateColumn::TypeFlags>(m_valueListTypes[data.dataSource]);
    data.defaultValue = m_defaultValues[{data.boundColumn, attributeOf(view, QStringLiteral("Name"))}];
    return data;
}

void NewTemplateXMLReader::readBinding(const QDomElement &view, const QDomElement &column,
                                       CColumnData &data) const
{
    const QDomElement bound = uniqueChildFromElementByTagName(column, QStringLiteral("BoundProperty"));
    if (bound.isNull()) {
        return;
    }
    data.boundColumn = attributeOf(bound, QStringLiteral("PropertyName"));
    data.tableName = attributeOf(bound, QStringLiteral("ObjectName"));
    const QDomElement reference = uniqueChildFromElementByTagName(bound, QStringLiteral("RefersTo"));
    if (reference.isNull()) {
        return;
    }
    const QString display = attributeOf(reference, QStringLiteral("DisplayPropertyName"));
    // A key is shown in place of its reference only where a detail form must have it.
    const bool isShown = !display.endsWith(QLatin1String("_Key")) ||
                         (data.isMandatory && data.boundColumn.endsWith(QLatin1String("_FK")) &&
                          attributeOf(view, QStringLiteral("Kind")) == QLatin1String("Detail"));
    if (isShown) {
        data.boundColumn += QLatin1Char('.') + display;
        data.tableName = attributeOf(reference, QStringLiteral("ObjectName"));
    }
}

void NewTemplateXMLReader::readRestrictions(const QDomElement &column, CColumnData &data) const
{
    const auto restriction = [&](const QString &name) {
        return uniqueChildFromElementByTagName(column, name);
    };
    data.isMandatory = !restriction(QStringLiteral("MandatoryRestriction")).isNull();
    data.isReadOnly = !restriction(QStringLiteral("ReadOnlyRestriction")).isNull();
    data.isVirtual = !restriction(QStringLiteral("VirtualRestriction")).isNull();

    // The restriction names the levels at which a column is shown: a column without one is never shown.
    const QDomElement visibility = restriction(QStringLiteral("VisibilityRestriction"));
    data.isVisible = !visibility.isNull();
    if (attributeOf(visibility, QStringLiteral("Simple")) == QLatin1String("false")) {
        data.groupLevel = static_cast<CTemplateColumn::GroupLevel>(countGroupLevel(visibility));
    }

    const QDomElement textLength = restriction(QStringLiteral("TextLengthRestriction"));
    if (!textLength.isNull()) {
        data.maximumTextLength = toSaturatedInt(doubleAttributeOf(textLength, QStringLiteral("Max")));
    }

    const QDomElement range = restriction(QStringLiteral("NumericRangeRestriction"));
    if (range.hasAttribute(QStringLiteral("Step"))) {
        data.stepInterval = doubleAttributeOf(range, QStringLiteral("Step"));
    }
    if (range.hasAttribute(QStringLiteral("Precision"))) {
        data.precision = intAttributeOf(range, QStringLiteral("Precision"));
    }
    if (range.hasAttribute(QStringLiteral("From"))) {
        data.minimumValue = doubleAttributeOf(range, QStringLiteral("From"));
    }
    if (range.hasAttribute(QStringLiteral("To"))) {
        data.maximumValue = doubleAttributeOf(range, QStringLiteral("To"));
    }
}

void NewTemplateXMLReader::readPresentation(const QDomElement &column, CColumnData &data) const
{
    const auto textItemOf = [&](const QString &name) {
        const QDomElement element = uniqueChildFromElementByTagName(column, name);
        return uniqueChildFromElementByTagName(element, QStringLiteral("TextItem")).text();
    };
    data.caption = textItemOf(QStringLiteral("Caption"));
    data.toolTip = textItemOf(QStringLiteral("ToolTip"));
    const QDomElement format = uniqueChildFromElementByTagName(column, QStringLiteral("DisplayFormat"));
    data.displayFormat = attributeOf(
        uniqueChildFromElementByTagName(format, QStringLiteral("ValueFormatItem")), QStringLiteral("Format"));
}

int NewTemplateXMLReader::countGroupLevel(const QDomElement &element) const
{
    const QDomNamedNodeMap attributes =
        uniqueChildFromElementByTagName(element, QStringLiteral("GroupLevel")).attributes();
    int levels = 0;
    for (int i = attributes.length() - 1; i >= 0; --i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        const int level = levelOfAttribute(attribute.name());
        // Attributes come in no order: a level counts when any attribute of it says so.
        if (level > 0 && CTemplateDataConverter::stringToBool(attribute.value())) {
            levels |= 1 << (level - 1);
        }
    }
    return levels;
}

void NewTemplateXMLReader::readDefaultValues()
{
    const QDomNodeList scopes = uniqueTemplateElementByTagName(QStringLiteral("DefaultValues"))
                                    .elementsByTagName(QStringLiteral("DefaultValueScope"));
    for (int i = 0; i < scopes.count(); ++i) {
        const QDomNodeList items =
            scopes.at(i).toElement().elementsByTagName(QStringLiteral("DefaultValueItem"));
        for (int j = 0; j < items.count(); ++j) {
            const QDomElement item = items.at(j).toElement();
            const QDomElement bound = uniqueChildFromElementByTagName(item, QStringLiteral("BoundProperty"));
            QString path = attributeOf(bound, QStringLiteral("PropertyName"));
            const QDomElement reference = uniqueChildFromElementByTagName(bound, QStringLiteral("RefersTo"));
            if (!reference.isNull()) {
                const QString display = attributeOf(reference, QStringLiteral("DisplayPropertyName"));
                if (!display.endsWith(QLatin1String("_Key"))) {
                    path += QLatin1Char('.') + display;
                }
            }
            m_defaultValues.insert({path, attributeOf(item, QStringLiteral("View"))},
                                   attributeOf(item, QStringLiteral("Value")));
        }
    }
}

void NewTemplateXMLReader::readLegendLists()
{
    const QDomNodeList scopes = uniqueTemplateElementByTagName(QStringLiteral("ClassificationColorScopes"))
                                    .elementsByTagName(QStringLiteral("ClassificationColorScope"));
    for (int i = 0; i < scopes.count(); ++i) {
        const QDomElement scope = scopes.at(i).toElement();
        // Hosts show the default scheme alone.
        if (attributeOf(scope, QStringLiteral("Name")) == QLatin1String("ClassColorDefault")) {
            readLegendListItem(scope, attributeOf(scope, QStringLiteral("Scope")));
        }
    }
}

void NewTemplateXMLReader::readLegendListItem(const QDomElement &scope, QString scopeName)
{
    const QDomNodeList colors = scope.elementsByTagName(QStringLiteral("ClassificationColor"));
    for (int i = 0; i < colors.count(); ++i) {
        const QDomElement element = colors.at(i).toElement();
        const auto textItemOf = [&](const QString &name) {
            const QDomElement text = uniqueChildFromElementByTagName(element, name);
            return uniqueChildFromElementByTagName(text, QStringLiteral("TextItem")).text();
        };
        CTemplateLegendDataItem item;
        item.numberFrom = doubleAttributeOf(element, QStringLiteral("From"));
        item.numberTo = doubleAttributeOf(element, QStringLiteral("To"));
        item.color = attributeOf(uniqueChildFromElementByTagName(element, QStringLiteral("Color")),
                                 QStringLiteral("Html"));
        item.textA = textItemOf(QStringLiteral("TextA"));
        item.textB = textItemOf(QStringLiteral("TextB"));
        if (scopeName == QLatin1String("Lateral")) {
            m_rawData->legendB.append(item);
        } else if (scopeName == QLatin1String("Section")) {
            m_rawData->legendA.append(item);
        }
    }
}

} // namespace Tobrix::Templates
