#include "fuzzing/PlainTemplateReader.h"

#include "format_current/CurrentFormat_p.h"
#include "loading/CTemplateBuilder.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "model/SortOrder_p.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"
#include "rawdata/SaturatedInt_p.h"
#include "rawdata/TemplateLimits_p.h"
#include "xml/GuardedMarkup_p.h"
#include "xml/XmlFile_p.h"

#include <QSet>

#include <memory>

namespace Tobrix::Fuzzing {

using namespace Templates;

namespace {

/// The elements of a name below a document or an element, at any depth, in document order.
template <typename Node>
QList<QDomElement> all(const Node &below, const QString &name)
{
    QList<QDomElement> elements;
    const QDomNodeList found = below.elementsByTagName(name);
    for (int i = 0; i < found.count(); ++i) {
        elements.append(found.at(i).toElement());
    }
    return elements;
}

/// The first of them; null when there is none.
template <typename Node>
QDomElement first(const Node &below, const QString &name)
{
    return below.elementsByTagName(name).item(0).toElement();
}

/// The value of an attribute; null when the element is null or has no such attribute.
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

/// The text of the first text item below the first element of a name below an element.
QString textItemBelow(const QDomElement &element, const QString &name)
{
    return first(first(element, name), QStringLiteral("TextItem")).text();
}

/// Whether a property is the key of its object.
bool isKey(const QString &property)
{
    return property.endsWith(QLatin1String("_Key"));
}

/// The number of elements of a name in the containers of a name, counted in each of them.
qint64 countWithinEach(const QDomDocument &document, const QString &container, const QString &name)
{
    qint64 count = 0;
    for (const auto &element : all(document, container)) {
        count += element.elementsByTagName(name).count();
    }
    return count;
}

/// The scopes of the default colour scheme, which is the one that hosts show.
QList<QDomElement> defaultScopes(const QDomDocument &document)
{
    QList<QDomElement> scopes;
    for (const auto &scope : all(first(document, QStringLiteral("ClassificationColorScopes")),
                                 QStringLiteral("ClassificationColorScope"))) {
        if (attributeOf(scope, QStringLiteral("Name")) == QLatin1String("ClassColorDefault")) {
            scopes.append(scope);
        }
    }
    return scopes;
}

/// The group level of an attribute of "GroupLevel", 1 to 9: the sixth character of its name. 0 when that is
/// no such digit.
int levelOfAttribute(const QString &name)
{
    const QString digit = name.mid(5, 1);
    return QStringLiteral("0123456789").indexOf(digit) > 0 ? digit.toInt() : 0;
}

int countGroupLevel(const QDomElement &element)
{
    const QDomNamedNodeMap attributes = first(element, QStringLiteral("GroupLevel")).attributes();
    int levels = 0;
    for (int i = attributes.length() - 1; i >= 0; --i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        const int level = levelOfAttribute(attribute.name());
        if (level > 0 && CTemplateDataConverter::stringToBool(attribute.value())) {
            levels |= 1 << (level - 1);
        }
    }
    return levels;
}

void readBinding(const QDomElement &view, const QDomElement &column, CColumnData &data)
{
    const QDomElement bound = first(column, QStringLiteral("BoundProperty"));
    if (bound.isNull()) {
        return;
    }
    data.boundColumn = attributeOf(bound, QStringLiteral("PropertyName"));
    data.tableName = attributeOf(bound, QStringLiteral("ObjectName"));
    const QDomElement reference = first(bound, QStringLiteral("RefersTo"));
    if (reference.isNull()) {
        return;
    }
    const QString display = attributeOf(reference, QStringLiteral("DisplayPropertyName"));
    // A key replaces its reference only where a detail form requires it.
    if (!isKey(display) || (data.isMandatory && data.boundColumn.endsWith(QLatin1String("_FK")) &&
                            attributeOf(view, QStringLiteral("Kind")) == QLatin1String("Detail"))) {
        data.boundColumn += QLatin1Char('.') + display;
        data.tableName = attributeOf(reference, QStringLiteral("ObjectName"));
    }
}

void readNumericRange(const QDomElement &range, CColumnData &data)
{
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

void readRestrictions(const QDomElement &column, CColumnData &data)
{
    data.isMandatory = !first(column, QStringLiteral("MandatoryRestriction")).isNull();
    data.isReadOnly = !first(column, QStringLiteral("ReadOnlyRestriction")).isNull();
    data.isVirtual = !first(column, QStringLiteral("VirtualRestriction")).isNull();

    // The restriction lists the levels at which a column is shown: without it, never.
    const QDomElement visibility = first(column, QStringLiteral("VisibilityRestriction"));
    data.isVisible = !visibility.isNull();
    if (attributeOf(visibility, QStringLiteral("Simple")) == QLatin1String("false")) {
        data.groupLevel = static_cast<CTemplateColumn::GroupLevel>(countGroupLevel(visibility));
    }

    const QDomElement textLength = first(column, QStringLiteral("TextLengthRestriction"));
    if (!textLength.isNull()) {
        data.maximumTextLength = toSaturatedInt(doubleAttributeOf(textLength, QStringLiteral("Max")));
    }
    readNumericRange(first(column, QStringLiteral("NumericRangeRestriction")), data);
}

bool isExcluded(const CColumnData &data)
{
    QSet<QString> keys;
    for (const auto &row : excludedBindings) {
        keys.insert(row.key);
    }
    return keys.contains(data.boundColumn + QLatin1Char('_') + data.tableName);
}

} // namespace

PlainTemplateReader::PlainTemplateReader()
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

PlainTemplateReader::~PlainTemplateReader() = default;

bool PlainTemplateReader::readFile(const QString &fileName, CTemplateRawData &rawData)
{
    m_document.clear();
    m_valueListTypes.clear();
    m_defaultValues.clear();
    m_rawData = &rawData;

    XmlFile file;
    if (file.open(fileName) != XmlFile::Access::Readable) {
        return false;
    }
    GuardedMarkup markup(file.readAll());
    // A file that is not well-formed is read up to its fault, one over a limit not at all. When a fault
    // causes the exceeded limit, only the fault counts.
    int faultLine = 0;
    int faultColumn = 0;
    m_document.setContent(&markup, false, nullptr, &faultLine, &faultColumn);
    const bool isOverLimit =
        !markup.excess().isEmpty() && !markup.isFaultBeforeExcess(faultLine, faultColumn);
    if (isOverLimit || !isWithinLimits()) {
        m_document.clear();
    }
    readDocument();
    return true;
}

bool PlainTemplateReader::isWithinLimits() const
{
    qint64 legendClasses = 0;
    for (const auto &scope : defaultScopes(m_document)) {
        legendClasses += scope.elementsByTagName(QStringLiteral("ClassificationColor")).count();
    }
    return countWithinEach(m_document, QStringLiteral("View"), QStringLiteral("Column")) <= Limits::columns &&
           countWithinEach(m_document, QStringLiteral("ValueList"), QStringLiteral("ValueListItem")) <=
               Limits::listItems &&
           legendClasses <= Limits::legendClasses &&
           m_document.elementsByTagName(QStringLiteral("View")).count() <= Limits::views;
}

void PlainTemplateReader::readDocument()
{
    readTemplateData();
    readValueLists();
    readProgramView();
    readLegendLists();
}

void PlainTemplateReader::readTemplateData()
{
    const QDomElement identifier = first(m_document, QStringLiteral("TemplateIdentifier"));
    m_rawData->uniqueId = attributeOf(identifier, QStringLiteral("Id"));
    // A template's name is also the prefix of its lists' names.
    m_rawData->key = first(m_document, QStringLiteral("Name")).text();
    m_rawData->listNamePrefix = first(m_document, QStringLiteral("Name")).text();
    m_rawData->description = attributeOf(identifier, QStringLiteral("Description"));
    m_rawData->version = first(m_document, QStringLiteral("Version")).text();
    m_rawData->unit = m_unitSystems.value(attributeOf(identifier, QStringLiteral("SystemOfUnits")));
    readClassificationColorPreset();
    readCatalogs();
}

void PlainTemplateReader::readClassificationColorPreset()
{
    QDomElement chosen;
    for (const auto &preset : all(first(m_document, QStringLiteral("ClassificationColorPresets")),
                                  QStringLiteral("ClassificationColorPreset"))) {
        if (attributeOf(preset, QStringLiteral("Scope")) != QLatin1String("Section")) {
            continue;
        }
        // Name and fields may come from two presets: the search continues until both are found.
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
    for (const auto &property : all(chosen, QStringLiteral("PresetProperty"))) {
        propertyNames.append(attributeOf(property, QStringLiteral("PropertyName")));
    }
    m_rawData->defaultSecColorField = propertyNames.join(QLatin1Char(';'));
}

void PlainTemplateReader::readCatalogs()
{
    for (const auto &catalog :
         all(first(m_document, QStringLiteral("AssignedCatalogs")), QStringLiteral("Catalog"))) {
        CATManagement::CCatalogDescriptor descriptor;
        descriptor.setId(attributeOf(catalog, QStringLiteral("Id")));
        descriptor.setCountryCode(attributeOf(catalog, QStringLiteral("Country")));
        descriptor.setLanguageCode(attributeOf(catalog, QStringLiteral("Language")));
        m_rawData->catalogs.append(descriptor);
    }
}

void PlainTemplateReader::readValueLists()
{
    for (const auto &list : all(m_document, QStringLiteral("ValueList"))) {
        m_valueListTypes.insert(attributeOf(list, QStringLiteral("Name")),
                                intAttributeOf(list, QStringLiteral("CompatibleListClassType")));
        readValueListItems(list);
    }
}

void PlainTemplateReader::readValueListItems(const QDomElement &valueList)
{
    for (const auto &element : all(valueList, QStringLiteral("ValueListItem"))) {
        auto item = std::make_unique<CListItem>();
        item->setItem(attributeOf(element, QStringLiteral("Key")));
        item->setInternalValue(attributeOf(element, QStringLiteral("InternalKey")));
        item->setSortOrder(intAttributeOf(element, QStringLiteral("OrdinalIndex")));
        item->setCaption(textItemBelow(element, QStringLiteral("Captions")));
        m_rawData->listItems.insertMulti(attributeOf(valueList, QStringLiteral("Name")), item.release());
    }
}

void PlainTemplateReader::readProgramView()
{
    // Columns look their defaults up while they are read.
    readDefaultValues();
    for (const auto &element : all(m_document, QStringLiteral("View"))) {
        auto view = std::make_unique<CProgramView>();
        view->setUniqueId(attributeOf(element, QStringLiteral("Id")));
        view->setKey(attributeOf(element, QStringLiteral("Name")));
        view->setDescription(attributeOf(element, QStringLiteral("Description")));

        QList<CTemplateColumn *> columns;
        readColumns(element, columns);
        sortBySortOrder(columns);
        view->setColumns(columns);

        // Of several views with one id the last one wins.
        delete m_rawData->programViews.take(view->uniqueId());
        m_rawData->programViews.insert(view->uniqueId(), view.get());
        view.release();
    }
}

void PlainTemplateReader::readColumns(const QDomElement &view, QList<CTemplateColumn *> &columns)
{
    for (const auto &element : all(view, QStringLiteral("Column"))) {
        const CColumnData data = readColumn(view, element);
        if (!isExcluded(data)) {
            // Null for a column of unknown data type, which keeps its position in the view.
            columns.append(CTemplateBuilder::buildColumn(data));
        }
    }
}

CColumnData PlainTemplateReader::readColumn(const QDomElement &view, const QDomElement &column)
{
    CColumnData data;
    data.viewRef = attributeOf(view, QStringLiteral("Id"));
    data.dataType = m_dataTypes.value(attributeOf(column, QStringLiteral("DataType")));
    data.columnType = CTemplateDataConverter::stringToColumnType(QStringRef(&data.dataType));
    data.controlType = m_controlTypes.value(attributeOf(column, QStringLiteral("ControlType")));
    data.width = intAttributeOf(column, QStringLiteral("Width"));
    data.sortOrder = intAttributeOf(column, QStringLiteral("Ordinal"));
    data.isValueTransfer = attributeOf(column, QStringLiteral("ValueTransfer")) == QLatin1String("true");
    if (column.hasAttribute(QStringLiteral("Unit"))) {
        data.unit = attributeOf(column, QStringLiteral("Unit"));
    }
    readRestrictions(column, data);
    readBinding(view, column, data);
    data.caption = textItemBelow(column, QStringLiteral("Caption"));
    data.toolTip = textItemBelow(column, QStringLiteral("ToolTip"));
    data.displayFormat =
        attributeOf(first(first(column, QStringLiteral("DisplayFormat")), QStringLiteral("ValueFormatItem")),
                    QStringLiteral("Format"));
    data.dataSource = first(column, QStringLiteral("ValueListName")).text();
    data.typeFlags = static_cast<CTemplateColumn::TypeFlags>(m_valueListTypes.value(data.dataSource));
    data.defaultValue = m_defaultValues.value({data.boundColumn, attributeOf(view, QStringLiteral("Name"))});
    return data;
}

void PlainTemplateReader::readDefaultValues()
{
    for (const auto &scope :
         all(first(m_document, QStringLiteral("DefaultValues")), QStringLiteral("DefaultValueScope"))) {
        for (const auto &item : all(scope, QStringLiteral("DefaultValueItem"))) {
            const QDomElement bound = first(item, QStringLiteral("BoundProperty"));
            QString path = attributeOf(bound, QStringLiteral("PropertyName"));
            const QDomElement reference = first(bound, QStringLiteral("RefersTo"));
            const QString display = attributeOf(reference, QStringLiteral("DisplayPropertyName"));
            if (!reference.isNull() && !isKey(display)) {
                path += QLatin1Char('.') + display;
            }
            m_defaultValues.insert({path, attributeOf(item, QStringLiteral("View"))},
                                   attributeOf(item, QStringLiteral("Value")));
        }
    }
}

void PlainTemplateReader::readLegendLists()
{
    for (const auto &scope : defaultScopes(m_document)) {
        readLegendListItem(scope, attributeOf(scope, QStringLiteral("Scope")));
    }
}

void PlainTemplateReader::readLegendListItem(const QDomElement &scope, const QString &scopeName)
{
    for (const auto &element : all(scope, QStringLiteral("ClassificationColor"))) {
        CTemplateLegendDataItem item;
        item.numberFrom = doubleAttributeOf(element, QStringLiteral("From"));
        item.numberTo = doubleAttributeOf(element, QStringLiteral("To"));
        item.color = attributeOf(first(element, QStringLiteral("Color")), QStringLiteral("Html"));
        item.textA = textItemBelow(element, QStringLiteral("TextA"));
        item.textB = textItemBelow(element, QStringLiteral("TextB"));
        if (scopeName == QLatin1String("Lateral")) {
            m_rawData->legendB.append(item);
        } else if (scopeName == QLatin1String("Section")) {
            m_rawData->legendA.append(item);
        }
    }
}

} // namespace Tobrix::Fuzzing
