#include "format_current/CurrentReading_p.h"

#include "format_current/CurrentLimits_p.h"
#include "format_current/CurrentMarkup_p.h"
#include "format_current/CurrentObservation_p.h"
#include "format_current/CurrentRules_p.h"
#include "loading/CTemplateBuilder.h"
#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"
#include "model/SortOrder_p.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/CTemplateRawData.h"
#include "rawdata/PlainNumbers_p.h"
#include "rawdata/SaturatedInt_p.h"

#include <QMap>

#include <algorithm>
#include <memory>

namespace Tobrix::Templates {

namespace {

using Lookup = CurrentLookup;
using Value = CurrentValue;
using Reason = ReadingObserver::Reason;

/// A column of the document. Fields that depend on its view are filled in for each view.
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

/// An item of the document. Each list around it gets its own copy.
struct ItemRecord
{
    QString item;
    QString internalValue;
    QString caption;
    int sortOrder = 0;
};

/// A value list and the elements of its items.
struct ListRecord
{
    QString name;
    QList<CListItem *> items;
    std::vector<int> elements;
};

/// A view while its columns are read.
struct ViewRecord
{
    std::unique_ptr<CProgramView> view;
    QString name;
    bool isForDetails = false;
    QList<CTemplateColumn *> columns;
};

/// The codes of data types, one shared copy of each.
QString codeOfType(const QStringRef &name)
{
    static const std::vector<QString> codes = [] {
        std::vector<QString> all;
        for (const auto &row : dataTypeNames) {
            all.push_back(row.code);
        }
        return all;
    }();
    const auto *row = rowOfName(dataTypeNames, name);
    return row ? codes[static_cast<std::size_t>(row - dataTypeNames)] : QString();
}

int numberOfControl(const QStringRef &name)
{
    const auto *row = rowOfName(controlTypeNames, name);
    return row ? row->controlType : 0;
}

QString unitOfSystem(const QStringRef &name)
{
    const auto *row = rowOfName(unitSystemNames, name);
    return row ? QString(row->unit) : QString();
}

CListItem *newItem(const ItemRecord &record)
{
    auto item = std::make_unique<CListItem>();
    item->setItem(record.item);
    item->setInternalValue(record.internalValue);
    item->setSortOrder(record.sortOrder);
    item->setCaption(record.caption);
    return item.release();
}

/// Binds a column of a view to its own database column, or to the referenced one where the view shows it.
void bindColumn(ColumnRecord &record, bool isForDetails)
{
    // A key replaces its reference only where a detail form requires it.
    const bool isShown =
        record.hasReference &&
        (!record.showsKey || (isForDetails && record.data.isMandatory && isForeignKey(record.ownColumn)));
    record.data.boundColumn = isShown ? record.shownColumn : record.ownColumn;
    record.data.tableName = isShown ? record.shownTable : record.ownTable;
}

/// One reading of one document.
class CurrentReading
{
public:
    CurrentReading(const CurrentMarkup &markup, CTemplateRawData &rawData, CurrentObservation *observation)
        : m_markup(markup), m_rawData(rawData), m_observation(observation)
    {
    }

    void read();

private:
    void readHeader();
    void readPresets();
    void readCatalogs();
    void readLists();
    ItemRecord readItem(int element);
    void fileItems(const ListRecord &list, int element);
    void readDefaults();
    void readDefault(int element);
    void readViews();
    ViewRecord readView(int element);
    void fileView(ViewRecord &record, int element);
    ColumnRecord readColumn(int element);
    void readRestrictions(const CurrentMarkup::Parts &parts, CColumnData &data);
    void readVisibility(int visibility, CColumnData &data);
    void readNumericRange(int range, CColumnData &data);
    void readBinding(int bound, ColumnRecord &record);
    void fileColumn(ColumnRecord &record, int element, ViewRecord &view, int viewElement);
    void readLegends();
    CTemplateLegendDataItem readLegendClass(int element);

    /// The text of the first text item below an element.
    QString textItemOf(Value value, int element)
    {
        return m_markup.text(value, m_markup.first(rowOf(value).lookup, element));
    }

    /// The next values are for the object of an element.
    void begin(Lookup lookup, int element)
    {
        if (m_observation) {
            m_observation->begin(lookup, element);
        }
    }
    void passOver(int element, Reason reason, int inFavourOf = -1)
    {
        if (m_observation) {
            m_observation->passOver(element, reason, inFavourOf);
        }
    }

    const CurrentMarkup &m_markup;
    CTemplateRawData &m_rawData;
    CurrentObservation *m_observation;
    QMap<QString, int> m_listClasses;
    // By path and name of the view.
    QMap<std::pair<QString, QString>, QString> m_defaults;
    // The pool serves as the set of paths that have a default in some view: a file cannot cause hash
    // collisions in it.
    TextPool m_pathsWithDefault;
};

void CurrentReading::read()
{
    readHeader();
    readPresets();
    readCatalogs();
    readLists();
    // Columns look their defaults up.
    readDefaults();
    readViews();
    readLegends();
}

void CurrentReading::readHeader()
{
    const int identifier = m_markup.first(Lookup::Identifier);
    m_rawData.uniqueId = m_markup.text(Value::TemplateId, identifier);
    // A template's name is also the prefix of its lists' names.
    m_rawData.key = m_markup.text(Value::TemplateName, m_markup.first(Lookup::TemplateName));
    m_rawData.listNamePrefix = m_rawData.key;
    m_rawData.description = m_markup.text(Value::TemplateDescription, identifier);
    m_rawData.version = m_markup.text(Value::TemplateVersion, m_markup.first(Lookup::TemplateVersion));
    m_rawData.unit = m_markup.converted<QString>(Value::TemplateUnitSystem, identifier, unitOfSystem);
}

void CurrentReading::readPresets()
{
    int chosen = -1;
    bool isComplete = false;
    for (const int preset : m_markup.every(Lookup::Preset, m_markup.first(Lookup::Presets))) {
        if (isComplete) {
            passOver(preset, Reason::AfterTheEnd, chosen);
            continue;
        }
        if (!m_markup.is(Value::PresetScope, preset, CurrentWords::sectionScope)) {
            passOver(preset, Reason::OtherScope);
            continue;
        }
        // Name and fields may come from two presets: the search continues until both are found.
        const QString name = m_markup.text(Value::PresetClassName, preset);
        if (!name.isNull()) {
            m_rawData.defaultSecClassName = name;
        }
        if (m_markup.is(Value::PresetChapter, preset, CurrentWords::colorChapter)) {
            if (chosen >= 0) {
                passOver(chosen, Reason::Replaced, preset);
            }
            chosen = preset;
        }
        isComplete = !m_rawData.defaultSecClassName.isEmpty() && chosen >= 0;
    }

    QStringList fields;
    for (const int field : m_markup.every(Lookup::PresetField, chosen)) {
        fields.append(m_markup.text(Value::PresetField, field));
    }
    m_rawData.defaultSecColorField = fields.join(QLatin1Char(';'));
}

void CurrentReading::readCatalogs()
{
    for (const int catalog : m_markup.every(Lookup::Catalog, m_markup.first(Lookup::AssignedCatalogs))) {
        begin(Lookup::Catalog, catalog);
        CATManagement::CCatalogDescriptor descriptor;
        descriptor.setId(m_markup.text(Value::CatalogId, catalog));
        descriptor.setCountryCode(m_markup.text(Value::CatalogCountry, catalog));
        descriptor.setLanguageCode(m_markup.text(Value::CatalogLanguage, catalog));
        m_rawData.catalogs.append(descriptor);
    }
}

void CurrentReading::readLists()
{
    const auto elements = m_markup.every(Lookup::List);
    const std::vector<int> containers(elements.begin(), elements.end());
    std::vector<ListRecord> lists;
    for (const int element : elements) {
        begin(Lookup::List, element);
        ListRecord list;
        list.name = m_markup.text(Value::ListName, element);
        const int classType = m_markup.integer(Value::ListClass, element);
        m_listClasses.insert(list.name, classType);
        if (m_observation) {
            m_observation->fileList(list.name, classType, element);
        }
        lists.push_back(std::move(list));
    }
    visitWithin(m_markup.document(), containers, m_markup.every(Lookup::ListItem),
                [&](int element, const std::vector<std::size_t> &around) {
                    const ItemRecord record = readItem(element);
                    for (const std::size_t list : around) {
                        lists[list].items.push_back(newItem(record));
                        lists[list].elements.push_back(element);
                    }
                });
    for (std::size_t i = 0; i < lists.size(); ++i) {
        fileItems(lists[i], containers[i]);
    }
}

ItemRecord CurrentReading::readItem(int element)
{
    begin(Lookup::ListItem, element);
    ItemRecord record;
    record.item = m_markup.text(Value::ItemKey, element);
    record.internalValue = m_markup.text(Value::ItemInternalKey, element);
    record.sortOrder = m_markup.integer(Value::ItemOrdinal, element);
    record.caption = textItemOf(Value::ItemCaption, m_markup.first(Lookup::ItemCaptions, element));
    return record;
}

void CurrentReading::fileItems(const ListRecord &list, int element)
{
    // Newest first: inserting an item before those of its list needs no search for the position.
    auto newest = m_rawData.listItems.cend();
    for (int i = 0; i < list.items.size(); ++i) {
        newest = m_rawData.listItems.insertMulti(newest, list.name, list.items[i]);
        if (m_observation) {
            m_observation->fileListItem(*list.items[i], list.name, list.elements[static_cast<std::size_t>(i)],
                                        element);
        }
    }
}

void CurrentReading::readDefaults()
{
    const auto scopes = m_markup.every(Lookup::DefaultScope, m_markup.first(Lookup::Defaults));
    std::vector<std::vector<int>> items(static_cast<std::size_t>(scopes.count()));
    // In nested scopes an item is added for each, and counts for the innermost, which is the last.
    visitWithin(m_markup.document(), {scopes.begin(), scopes.end()}, m_markup.every(Lookup::DefaultItem),
                [&](int element, const std::vector<std::size_t> &around) {
                    items[around.back()].push_back(element);
                });
    for (const auto &itemsOfScope : items) {
        for (const int item : itemsOfScope) {
            readDefault(item);
        }
    }
}

void CurrentReading::readDefault(int element)
{
    begin(Lookup::DefaultItem, element);
    const int bound = m_markup.first(Lookup::DefaultBinding, element);
    const int reference = m_markup.first(Lookup::DefaultReference, bound);
    const QString display = m_markup.text(Value::DefaultShownProperty, reference);
    QString path = m_markup.text(Value::DefaultProperty, bound);
    if (reference >= 0 && !isKeyProperty(display)) {
        path = shownPath(path, display);
    }
    const QString view = m_markup.text(Value::DefaultView, element);
    const QString value = m_markup.text(Value::DefaultText, element);
    m_pathsWithDefault.shared(path);
    m_defaults.insert({path, view}, value);
    if (m_observation) {
        m_observation->fileDefault(path, view, value, element);
    }
}

void CurrentReading::readViews()
{
    const auto elements = m_markup.every(Lookup::View);
    const std::vector<int> containers(elements.begin(), elements.end());
    std::vector<ViewRecord> views;
    for (const int element : elements) {
        views.push_back(readView(element));
    }
    visitWithin(m_markup.document(), containers, m_markup.every(Lookup::Column),
                [&](int element, const std::vector<std::size_t> &around) {
                    ColumnRecord record = readColumn(element);
                    for (const std::size_t view : around) {
                        fileColumn(record, element, views[view], containers[view]);
                    }
                });
    for (std::size_t i = 0; i < views.size(); ++i) {
        fileView(views[i], containers[i]);
    }
}

ViewRecord CurrentReading::readView(int element)
{
    begin(Lookup::View, element);
    ViewRecord record;
    record.view = std::make_unique<CProgramView>();
    record.view->setUniqueId(m_markup.text(Value::ViewId, element));
    record.name = m_markup.text(Value::ViewName, element);
    record.view->setKey(record.name);
    record.view->setDescription(m_markup.text(Value::ViewDescription, element));
    record.isForDetails = m_markup.is(Value::ViewKind, element, CurrentWords::detailKind);
    record.columns.reserve(m_markup.count(Lookup::Column, element));
    return record;
}

void CurrentReading::fileView(ViewRecord &record, int element)
{
    sortBySortOrder(record.columns);
    record.view->setColumns(record.columns);
    if (m_observation) {
        m_observation->fileView(*record.view, element);
    }
    // Of several views with one id the last one wins.
    CProgramView *&filed = m_rawData.programViews[record.view->uniqueId()];
    delete filed;
    filed = record.view.release();
}

ColumnRecord CurrentReading::readColumn(int element)
{
    begin(Lookup::Column, element);
    const CurrentMarkup::Parts parts = m_markup.partsOf(element);
    ColumnRecord record;
    CColumnData &data = record.data;
    data.dataType = m_markup.converted<QString>(Value::ColumnDataType, element, codeOfType);
    data.columnType = CTemplateDataConverter::stringToColumnType(QStringRef(&data.dataType));
    data.controlType = m_markup.converted<int>(Value::ColumnControlType, element, numberOfControl);
    data.width = m_markup.integer(Value::ColumnWidth, element);
    data.sortOrder = m_markup.integer(Value::ColumnOrdinal, element);
    data.isValueTransfer = m_markup.flag(Value::ColumnValueTransfer, element);
    data.unit = m_markup.sharedText(Value::ColumnUnit, element);
    data.caption = textItemOf(Value::ColumnCaption, parts[Lookup::ColumnCaption]);
    data.toolTip = textItemOf(Value::ColumnToolTip, parts[Lookup::ColumnToolTip]);
    data.dataSource = m_markup.sharedText(Value::ColumnListName, parts[Lookup::ColumnListName]);
    data.typeFlags = static_cast<CTemplateColumn::TypeFlags>(m_listClasses.value(data.dataSource));
    data.displayFormat =
        m_markup.sharedText(Value::ColumnDisplayFormat,
                            m_markup.first(Lookup::ColumnFormatItem, parts[Lookup::ColumnDisplayFormat]));
    readRestrictions(parts, data);
    readBinding(parts[Lookup::ColumnBinding], record);
    return record;
}

void CurrentReading::readRestrictions(const CurrentMarkup::Parts &parts, CColumnData &data)
{
    data.isMandatory = m_markup.isPresent(Value::ColumnIsMandatory, parts[Lookup::ColumnMandatory]);
    data.isReadOnly = m_markup.isPresent(Value::ColumnIsReadOnly, parts[Lookup::ColumnReadOnly]);
    data.isVirtual = m_markup.isPresent(Value::ColumnIsVirtual, parts[Lookup::ColumnVirtual]);
    readVisibility(parts[Lookup::ColumnVisibility], data);
    data.maximumTextLength =
        toSaturatedInt(m_markup.real(Value::ColumnMaximumLength, parts[Lookup::ColumnTextLength]));
    readNumericRange(parts[Lookup::ColumnRange], data);
}

void CurrentReading::readVisibility(int visibility, CColumnData &data)
{
    // The restriction lists the levels at which a column is shown: without it, never.
    data.isVisible = m_markup.isPresent(Value::ColumnIsVisible, visibility);
    const auto isNotFalse = [](const QStringRef &text) { return text != CurrentWords::no; };
    if (m_markup.converted<bool>(Value::ColumnIsVisibleEverywhere, visibility, isNotFalse, true)) {
        return;
    }
    const int levels = m_markup.groupLevels(m_markup.first(Lookup::ColumnGroupLevel, visibility));
    data.groupLevel = static_cast<CTemplateColumn::GroupLevel>(levels);
}

void CurrentReading::readNumericRange(int range, CColumnData &data)
{
    // A limit that is missing in the file keeps its initial value.
    data.stepInterval = m_markup.real(Value::ColumnStep, range, data.stepInterval);
    data.precision = m_markup.integer(Value::ColumnPrecision, range, data.precision);
    data.minimumValue = m_markup.real(Value::ColumnMinimum, range, data.minimumValue);
    data.maximumValue = m_markup.real(Value::ColumnMaximum, range, data.maximumValue);
}

void CurrentReading::readBinding(int bound, ColumnRecord &record)
{
    const int reference = m_markup.first(Lookup::ColumnReference, bound);
    record.ownColumn = m_markup.text(Value::ColumnProperty, bound);
    record.ownTable = m_markup.sharedText(Value::ColumnObject, bound);
    record.hasReference = reference >= 0;
    if (record.hasReference) {
        const QString display = m_markup.text(Value::ColumnShownProperty, reference);
        record.showsKey = isKeyProperty(display);
        record.shownColumn = shownPath(record.ownColumn, display);
        record.shownTable = m_markup.sharedText(Value::ColumnShownObject, reference);
    }
}

void CurrentReading::fileColumn(ColumnRecord &record, int element, ViewRecord &view, int viewElement)
{
    bindColumn(record, view.isForDetails);
    CColumnData &data = record.data;
    if (isExcluded(data.boundColumn, data.tableName)) {
        passOver(element, Reason::Excluded);
        return;
    }
    data.viewRef = view.view->uniqueId();
    // Few columns have a default, and a look-up by a pair of texts is expensive.
    data.defaultValue = m_pathsWithDefault.contains(data.boundColumn)
                            ? m_defaults.value({data.boundColumn, view.name})
                            : QString();
    // Null for a column of unknown data type, which keeps its position in the view.
    CTemplateColumn *column = CTemplateBuilder::buildColumn(data);
    view.columns.append(column);
    if (m_observation) {
        m_observation->fileColumn(column, data, element, viewElement);
    }
}

void CurrentReading::readLegends()
{
    for (const int scope : m_markup.every(Lookup::ColorScope, m_markup.first(Lookup::ColorScopes))) {
        begin(Lookup::ColorScope, scope);
        // Hosts show only the default scheme.
        const bool isShown = m_markup.is(Value::ScopeScheme, scope, CurrentWords::defaultScheme);
        const QString kind = isShown ? m_markup.text(Value::ScopeKind, scope) : QString();
        const bool isLateral = kind == CurrentWords::lateralScope;
        if (!isLateral && kind != CurrentWords::sectionScope) {
            passOver(scope, Reason::OtherScope);
            continue;
        }
        QList<CTemplateLegendDataItem> &legend = isLateral ? m_rawData.legendB : m_rawData.legendA;
        for (const int element : m_markup.every(Lookup::LegendClass, scope)) {
            legend.append(readLegendClass(element));
            if (m_observation) {
                m_observation->fileLegendClass(legend.last(), isLateral, element);
            }
        }
    }
}

CTemplateLegendDataItem CurrentReading::readLegendClass(int element)
{
    begin(Lookup::LegendClass, element);
    CTemplateLegendDataItem item;
    item.numberFrom = m_markup.real(Value::LegendFrom, element);
    item.numberTo = m_markup.real(Value::LegendTo, element);
    item.color = m_markup.text(Value::LegendColor, m_markup.first(Lookup::LegendColor, element));
    item.textA = textItemOf(Value::LegendTextA, m_markup.first(Lookup::LegendTextA, element));
    item.textB = textItemOf(Value::LegendTextB, m_markup.first(Lookup::LegendTextB, element));
    return item;
}

void readMarkup(const CurrentMarkup &markup, CTemplateRawData &rawData, CurrentObservation *observation)
{
    CurrentReading(markup, rawData, observation).read();
}

ReadingResult resultOf(const XmlFault &fault)
{
    switch (fault.kind) {
    case XmlFault::None:
        return {};
    case XmlFault::NotWellFormed:
        return {ReadingResult::Broken, -1, fault.explanation};
    case XmlFault::OverLimit:
        break;
    }
    return {ReadingResult::OverLimit, -1, fault.explanation};
}

} // namespace

ReadingResult readCurrentDocument(const XmlDocument &document, CTemplateRawData &rawData,
                                  ReadingObserver *observer)
{
    CurrentMarkup markup(document);
    const CurrentExcess excess = excessOf(markup);
    if (observer) {
        observer->begin(document);
    }
    if (excess.element >= 0) {
        const XmlDocument empty;
        readMarkup(CurrentMarkup(empty), rawData, nullptr);
        return {ReadingResult::OverLimit, excess.element, excess.explanation};
    }
    if (!observer) {
        readMarkup(markup, rawData, nullptr);
        return resultOf(document.fault());
    }
    CurrentObservation observation(markup, *observer);
    markup.setObservation(&observation);
    readMarkup(markup, rawData, &observation);
    observation.reportRest();
    return resultOf(document.fault());
}

} // namespace Tobrix::Templates
