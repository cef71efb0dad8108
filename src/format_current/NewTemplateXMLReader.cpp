#include "format_current/NewTemplateXMLReader.h"

#include "format_current/CurrentFormatTables_p.h"
#include "format_current/DocumentIndex_p.h"
#include "loading/CTemplateBuilder.h"
#include "rawdata/TemplateLimits_p.h"
#include "xml/GuardedFile_p.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "model/SortOrder_p.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"
#include "rawdata/SaturatedInt_p.h"
#include "rawdata/TextPool_p.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <memory>

namespace Tobrix::Templates {

/// A column as it stands in the document. What depends on the view that it is for is filled in anew for each.
struct ColumnRecord
{
    CColumnData data;
    QString ownColumn; ///< The database column that the column is bound to
    QString ownTable;  ///< and its table.

    bool hasReference = false; ///< Whether that refers to an object, of which a property is shown:
    bool showsKey = false;     ///< the object's key, or something else,
    QString shownColumn;       ///< by this database column
    QString shownTable;        ///< of this table.
};

/// An item of a list as it stands in the document. Every list around it gets an item of its own.
struct ItemRecord
{
    QString item;
    QString internalValue;
    QString caption;
    int sortOrder;
};

/// What was read while the document was parsed.
struct DocumentRecords
{
    // In pieces: the records of a large document would be copied again and again otherwise.
    std::deque<ColumnRecord> columns;
    std::deque<ItemRecord> items;
};

namespace {

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

/// Whether a column is left out of every view: its bound column, "_" and its table spell one of the excluded
/// keys.
bool isExcluded(const CColumnData &data)
{
    const int size = data.boundColumn.size() + 1 + data.tableName.size();
    const auto isKey = [&](const QLatin1String &key) {
        return key.size() == size && key == data.boundColumn + QLatin1Char('_') + data.tableName;
    };
    return std::any_of(std::begin(excludedColumnKeys), std::end(excludedColumnKeys), isKey);
}

/// The text of the first text item below an element.
QString textItemOf(const IndexedElement &captions)
{
    return captions.first(ElementName::TextItem).text();
}

ItemRecord readItem(const IndexedElement &element)
{
    return {element.attribute(QStringLiteral("Key")), element.attribute(QStringLiteral("InternalKey")),
            textItemOf(element.first(ElementName::Captions)),
            element.intAttribute(QStringLiteral("OrdinalIndex"))};
}

/// Whether a property is the key of its object.
bool isKey(const QString &property)
{
    return property.endsWith(QLatin1String("_Key"));
}

/// The path to a property of the object that another property refers to.
QString shownPath(const QString &reference, const QString &property)
{
    return reference + QLatin1Char('.') + property;
}

/// The levels of the group-level element below an element, as a mask: bit n-1 for level n.
int countGroupLevel(const IndexedElement &element)
{
    const QDomNamedNodeMap attributes = element.first(ElementName::GroupLevel).attributes();
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

void readNumericRange(const IndexedElement &range, CColumnData &data)
{
    // A limit that the file leaves out keeps the value that columns have from the start.
    data.stepInterval = range.doubleAttribute(QStringLiteral("Step"), data.stepInterval);
    data.precision = range.intAttribute(QStringLiteral("Precision"), data.precision);
    data.minimumValue = range.doubleAttribute(QStringLiteral("From"), data.minimumValue);
    data.maximumValue = range.doubleAttribute(QStringLiteral("To"), data.maximumValue);
}

void readRestrictions(const FirstElements &parts, CColumnData &data)
{
    data.isMandatory = !parts[ElementName::MandatoryRestriction].isNull();
    data.isReadOnly = !parts[ElementName::ReadOnlyRestriction].isNull();
    data.isVirtual = !parts[ElementName::VirtualRestriction].isNull();

    // The restriction says at which levels a column is shown: one without it is never shown.
    const IndexedElement visibility = parts[ElementName::VisibilityRestriction];
    data.isVisible = !visibility.isNull();
    if (visibility.attribute(QStringLiteral("Simple")) == QLatin1String("false")) {
        data.groupLevel = static_cast<CTemplateColumn::GroupLevel>(countGroupLevel(visibility));
    }

    const IndexedElement textLength = parts[ElementName::TextLengthRestriction];
    data.maximumTextLength = toSaturatedInt(textLength.doubleAttribute(QStringLiteral("Max")));
    readNumericRange(parts[ElementName::NumericRangeRestriction], data);
}

/// Binds a column of a view to its own database column, or to what that refers to where the view shows it.
void bindColumn(ColumnRecord &record, bool isDetailView)
{
    // A key is shown in place of its reference only where a detail form must have it.
    const bool isShown =
        record.hasReference && (!record.showsKey || (isDetailView && record.data.isMandatory &&
                                                     record.ownColumn.endsWith(QLatin1String("_FK"))));
    record.data.boundColumn = isShown ? record.shownColumn : record.ownColumn;
    record.data.tableName = isShown ? record.shownTable : record.ownTable;
}

/// Whether a scope is of the scheme that hosts show, the default one.
bool isDefaultColorScope(const IndexedElement &scope)
{
    return scope.attribute(QStringLiteral("Name")) == QLatin1String("ClassColorDefault");
}

/// All scopes of colours, whatever their scheme.
IndexedElements colorScopes(const DocumentIndex &document)
{
    return document.first(ElementName::ClassificationColorScopes).all(ElementName::ClassificationColorScope);
}

/// Whether what the reader would make of a document keeps within the limits, where containers may stand in
/// each other and share what they hold.
bool isWithinLimits(const DocumentIndex &document)
{
    qint64 bands = 0;
    for (const auto &scope : colorScopes(document)) {
        bands += isDefaultColorScope(scope) ? scope.all(ElementName::ClassificationColor).count() : 0;
    }
    return bands <= Limits::legendClasses && document.all(ElementName::View).count() <= Limits::views &&
           document.countWithinEach(ElementName::View, ElementName::Column) <= Limits::columns &&
           document.countWithinEach(ElementName::ValueList, ElementName::ValueListItem) <= Limits::listItems;
}

/// A template file that is followed by the index of the document that a parser makes of it.
class FollowedFile : public GuardedFile
{
public:
    explicit FollowedFile(DocumentIndex &document)
        : GuardedFile(SpareWhiteSpace::BetweenMarkup), m_document(document)
    {
    }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        m_document.follow();
        return GuardedFile::readData(data, maxSize);
    }

private:
    DocumentIndex &m_document;
};

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

    DocumentRecords records;
    DocumentIndex document(m_document,
                           [&](const IndexedElement &element) { return readRecord(element, records); });
    FollowedFile file(document);
    if (!file.openTemplate(fileName)) {
        return false;
    }
    // A file that is not well-formed leaves what stands before the fault, one past the limits nothing.
    int faultLine = 0;
    int faultColumn = 0;
    const auto parse = [&] {
        faultLine = 0;
        m_document.setContent(&file, false, nullptr, &faultLine, &faultColumn);
        document.finish();
    };
    parse();
    if (!file.excess().isEmpty()) {
        // Which of the two comes first, a fault or what is too much, only the file as it stands can tell.
        document.clear();
        records = {};
        file.restartWhole();
        parse();
    }
    file.close();
    const bool isTooMuch = !file.excess().isEmpty() && !file.isFaultBeforeExcess(faultLine, faultColumn);
    if (isTooMuch || !isWithinLimits(document)) {
        m_document.clear();
        document.clear();
    }
    readTemplateData(document);
    readValueLists(document, records);
    readProgramView(document, records);
    readLegendLists(document);
    return true;
}

void NewTemplateXMLReader::readTemplateData(const DocumentIndex &document)
{
    const IndexedElement identifier = document.first(ElementName::TemplateIdentifier);
    m_rawData->uniqueId = identifier.attribute(QStringLiteral("Id"));
    // A template's name is the prefix of its lists' names as well.
    m_rawData->key = document.first(ElementName::Name).text();
    m_rawData->listNamePrefix = m_rawData->key;
    m_rawData->description = identifier.attribute(QStringLiteral("Description"));
    m_rawData->version = document.first(ElementName::Version).text();
    m_rawData->unit = m_unitSystems[identifier.attribute(QStringLiteral("SystemOfUnits"))];
    readClassificationColorPreset(document);
    readCatalogs(document);
}

void NewTemplateXMLReader::readClassificationColorPreset(const DocumentIndex &document)
{
    const IndexedElement presets = document.first(ElementName::ClassificationColorPresets);
    IndexedElement chosen;
    for (const auto &preset : presets.all(ElementName::ClassificationColorPreset)) {
        if (preset.attribute(QStringLiteral("Scope")) != QLatin1String("Section")) {
            continue;
        }
        // Name and fields may come from two presets: the scan goes on until there is one of each.
        const QString name = preset.attribute(QStringLiteral("ClassificationColorName"));
        if (!name.isNull()) {
            m_rawData->defaultSecClassName = name;
        }
        if (preset.attribute(QStringLiteral("Chapter")) == QLatin1String("Color")) {
            chosen = preset;
        }
        if (!m_rawData->defaultSecClassName.isEmpty() && !chosen.isNull()) {
            break;
        }
    }

    QStringList propertyNames;
    for (const auto &property : chosen.all(ElementName::PresetProperty)) {
        propertyNames.append(property.attribute(QStringLiteral("PropertyName")));
    }
    m_rawData->defaultSecColorField = propertyNames.join(QLatin1Char(';'));
}

void NewTemplateXMLReader::readCatalogs(const DocumentIndex &document)
{
    const IndexedElement assigned = document.first(ElementName::AssignedCatalogs);
    for (const auto &catalog : assigned.all(ElementName::Catalog)) {
        CATManagement::CCatalogDescriptor descriptor;
        descriptor.setId(catalog.attribute(QStringLiteral("Id")));
        descriptor.setCountryCode(catalog.attribute(QStringLiteral("Country")));
        descriptor.setLanguageCode(catalog.attribute(QStringLiteral("Language")));
        m_rawData->catalogs.append(descriptor);
    }
}

int NewTemplateXMLReader::readRecord(const IndexedElement &element, DocumentRecords &records) const
{
    if (element.name() == ElementName::Column) {
        records.columns.push_back(readColumn(element));
        return static_cast<int>(records.columns.size()) - 1;
    }
    records.items.push_back(readItem(element));
    return static_cast<int>(records.items.size()) - 1;
}

ColumnRecord NewTemplateXMLReader::readColumn(const IndexedElement &column) const
{
    const FirstElements parts(column);
    ColumnRecord record;
    CColumnData &data = record.data;
    data.dataType = m_dataTypes.value(column.attribute(QStringLiteral("DataType")));
    data.columnType = CTemplateDataConverter::stringToColumnType(QStringRef(&data.dataType));
    data.controlType = m_controlTypes.value(column.attribute(QStringLiteral("ControlType")));
    data.width = column.intAttribute(QStringLiteral("Width"));
    data.sortOrder = column.intAttribute(QStringLiteral("Ordinal"));
    data.isValueTransfer =
        CTemplateDataConverter::stringToBool(column.attribute(QStringLiteral("ValueTransfer")));
    data.unit = column.sharedAttribute(QStringLiteral("Unit"));
    data.caption = textItemOf(parts[ElementName::Caption]);
    data.toolTip = textItemOf(parts[ElementName::ToolTip]);
    data.dataSource = parts[ElementName::ValueListName].sharedText();
    data.displayFormat = parts[ElementName::DisplayFormat]
                             .first(ElementName::ValueFormatItem)
                             .sharedAttribute(QStringLiteral("Format"));
    readRestrictions(parts, data);

    const IndexedElement bound = parts[ElementName::BoundProperty];
    const IndexedElement reference = bound.first(ElementName::RefersTo);
    record.ownColumn = bound.attribute(QStringLiteral("PropertyName"));
    record.ownTable = bound.sharedAttribute(QStringLiteral("ObjectName"));
    record.hasReference = !reference.isNull();
    if (record.hasReference) {
        const QString display = reference.attribute(QStringLiteral("DisplayPropertyName"));
        record.showsKey = isKey(display);
        record.shownColumn = shownPath(record.ownColumn, display);
        record.shownTable = reference.sharedAttribute(QStringLiteral("ObjectName"));
    }
    return record;
}

void NewTemplateXMLReader::readValueLists(const DocumentIndex &document, const DocumentRecords &records)
{
    for (const auto &list : document.all(ElementName::ValueList)) {
        m_valueListTypes.insert(list.attribute(QStringLiteral("Name")),
                                list.intAttribute(QStringLiteral("CompatibleListClassType")));
        readValueListItems(list, records.items);
    }
}

void NewTemplateXMLReader::readValueListItems(const IndexedElement &valueList,
                                              const std::deque<ItemRecord> &records)
{
    const QString listName = valueList.attribute(QStringLiteral("Name"));
    // The newest item goes before those of its list that are there, so their place need not be looked for.
    auto newest = m_rawData->listItems.cend();
    for (const auto &element : valueList.all(ElementName::ValueListItem)) {
        const ItemRecord &record = records[static_cast<std::size_t>(element.record())];
        auto item = std::make_unique<CListItem>();
        item->setItem(record.item);
        item->setInternalValue(record.internalValue);
        item->setSortOrder(record.sortOrder);
        item->setCaption(record.caption);
        newest = m_rawData->listItems.insertMulti(newest, listName, item.release());
    }
}

void NewTemplateXMLReader::readProgramView(const DocumentIndex &document, DocumentRecords &records)
{
    // Columns look their defaults up when their view is made.
    const TextPool pathsWithDefault = readDefaultValues(document);
    for (const auto &element : document.all(ElementName::View)) {
        auto view = std::make_unique<CProgramView>();
        view->setUniqueId(element.attribute(QStringLiteral("Id")));
        view->setKey(element.attribute(QStringLiteral("Name")));
        view->setDescription(element.attribute(QStringLiteral("Description")));

        QList<CTemplateColumn *> columns;
        readColumns(element, records.columns, pathsWithDefault, columns);
        sortBySortOrder(columns);
        view->setColumns(columns);

        // Of several views with one id the last counts.
        CProgramView *&filed = m_rawData->programViews[view->uniqueId()];
        delete filed;
        filed = view.release();
    }
}

void NewTemplateXMLReader::readColumns(const IndexedElement &view, std::deque<ColumnRecord> &records,
                                       const TextPool &pathsWithDefault, QList<CTemplateColumn *> &columns)
{
    const QString viewId = view.attribute(QStringLiteral("Id"));
    const QString viewName = view.attribute(QStringLiteral("Name"));
    const bool isDetailView = view.attribute(QStringLiteral("Kind")) == QLatin1String("Detail");
    const int typeOfNamelessList = m_valueListTypes.value(QString());
    const auto elements = view.all(ElementName::Column);
    columns.reserve(elements.count());
    for (const auto &element : elements) {
        ColumnRecord &record = records[static_cast<std::size_t>(element.record())];
        bindColumn(record, isDetailView);
        CColumnData &data = record.data;
        data.viewRef = viewId;
        const int listType =
            data.dataSource.isEmpty() ? typeOfNamelessList : m_valueListTypes.value(data.dataSource);
        data.typeFlags = static_cast<CTemplateColumn::TypeFlags>(listType);
        // Few columns have a default, and a look-up among pairs of texts is a long one.
        data.defaultValue = pathsWithDefault.contains(data.boundColumn)
                                ? m_defaultValues.value({data.boundColumn, viewName})
                                : QString();
        if (!isExcluded(data)) {
            // Null for a column of unknown data type: the view keeps its place.
            columns.append(CTemplateBuilder::buildColumn(data));
        }
    }
}

TextPool NewTemplateXMLReader::readDefaultValues(const DocumentIndex &document)
{
    // A pool serves as the set of them, since no file can slow it down.
    TextPool paths;
    const IndexedElement defaults = document.first(ElementName::DefaultValues);
    for (const auto &scope : defaults.all(ElementName::DefaultValueScope)) {
        for (const auto &item : scope.all(ElementName::DefaultValueItem)) {
            const IndexedElement bound = item.first(ElementName::BoundProperty);
            const IndexedElement reference = bound.first(ElementName::RefersTo);
            const QString display = reference.attribute(QStringLiteral("DisplayPropertyName"));
            QString path = bound.attribute(QStringLiteral("PropertyName"));
            if (!reference.isNull() && !isKey(display)) {
                path = shownPath(path, display);
            }
            paths.shared(path);
            m_defaultValues.insert({path, item.attribute(QStringLiteral("View"))},
                                   item.attribute(QStringLiteral("Value")));
        }
    }
    return paths;
}

void NewTemplateXMLReader::readLegendLists(const DocumentIndex &document)
{
    for (const auto &scope : colorScopes(document)) {
        if (isDefaultColorScope(scope)) {
            readLegendListItem(scope, scope.attribute(QStringLiteral("Scope")));
        }
    }
}

void NewTemplateXMLReader::readLegendListItem(const IndexedElement &scope, const QString &scopeName)
{
    for (const auto &element : scope.all(ElementName::ClassificationColor)) {
        CTemplateLegendDataItem item;
        item.numberFrom = element.doubleAttribute(QStringLiteral("From"));
        item.numberTo = element.doubleAttribute(QStringLiteral("To"));
        item.color = element.first(ElementName::Color).attribute(QStringLiteral("Html"));
        item.textA = textItemOf(element.first(ElementName::TextA));
        item.textB = textItemOf(element.first(ElementName::TextB));
        if (scopeName == QLatin1String("Lateral")) {
            m_rawData->legendB.append(item);
        } else if (scopeName == QLatin1String("Section")) {
            m_rawData->legendA.append(item);
        }
    }
}

} // namespace Tobrix::Templates
