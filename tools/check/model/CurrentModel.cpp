#include "tools/check/model/CurrentModel.h"

#include "tools/check/model/ModelBuilding.h"
#include "xml/XmlTree_p.h"

#include "format_current/CurrentRules_p.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateDataConverter.h"
#include "rawdata/SaturatedInt_p.h"

#include <QHash>
#include <QPair>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// The nearest ancestor of an element with the name of a container, which must be an ancestor as well.
XmlElement nearestLike(const XmlElement &container, const XmlElement &element)
{
    XmlElement around = element.parent();
    while (around.nameNumber() != container.nameNumber()) {
        around = around.parent();
    }
    return around;
}

class CurrentModelBuilder
{
public:
    explicit CurrentModelBuilder(const XmlTree &document) : m_document(document) {}

    TemplateModel build();

private:
    struct DefaultKey
    {
        QString path;
        QString view;
        bool operator==(const DefaultKey &other) const { return path == other.path && view == other.view; }
    };
    friend uint qHash(const DefaultKey &key, uint seed)
    {
        return ::qHash(qMakePair(key.path, key.view), seed);
    }

    void readHeader();
    void readPresetsAndCatalogs();
    void readLists();
    void readDefaults();
    void readViews();
    void readColumns(const XmlElement &element, int view);
    ColumnModel columnOf(const XmlElement &element);
    void readRestrictions(const XmlElement &element, ColumnModel &column);
    void readVisibility(const XmlElement &element, ColumnModel &column);
    void bind(const XmlElement &element, bool isDetailView, ColumnModel &column);
    void takeDefault(const QString &viewName, ColumnModel &column);
    void readLegends();

    XmlElement first(const XmlElement &element, CurrentElement name) { return element.first(nameOf(name)); }

    /// The value of an attribute, also added for the rules about values.
    Value read(const XmlElement &element, CurrentValue value);
    /// The same without adding it.
    static Value valueOf(const XmlElement &element, CurrentValue value);
    /// The text of an element, added under the element's name.
    Value readText(const XmlElement &element, CurrentValue value);

    const XmlTree &m_document;
    TemplateModel m_model;
    QHash<DefaultKey, int> m_defaults;
};

Value CurrentModelBuilder::valueOf(const XmlElement &element, CurrentValue value)
{
    const XmlAttribute *found = element.attribute(attributeOf(value));
    return found ? Value{element.tree().valueOf(*found), found->at} : Value{QString(), element.at()};
}

Value CurrentModelBuilder::read(const XmlElement &element, CurrentValue value)
{
    const Value found = valueOf(element, value);
    const ValueKind kind = rowOf(value).kind;
    if (found.isGiven() && kind != ValueKind::Text) {
        m_model.values.push_back({found, attributeOf(value), kind});
    }
    return found;
}

Value CurrentModelBuilder::readText(const XmlElement &element, CurrentValue value)
{
    const Value found{element.text(), element.textAt()};
    if (found.isGiven()) {
        m_model.values.push_back({found, nameOf(elementOf(value)), rowOf(value).kind});
    }
    return found;
}

TemplateModel CurrentModelBuilder::build()
{
    readHeader();
    readPresetsAndCatalogs();
    readLists();
    readDefaults();
    readViews();
    readLegends();
    m_model.makeIndex();
    return std::move(m_model);
}

void CurrentModelBuilder::readHeader()
{
    HeaderModel &header = m_model.header;
    const XmlElement identifier = m_document.first(nameOf(CurrentElement::TemplateIdentifier));
    header.at = identifier.isNull() ? m_document.root().at() : identifier.at();
    header.uniqueId = read(identifier, CurrentValue::TemplateId);
    header.unitSystem = read(identifier, CurrentValue::TemplateUnitSystem);
    header.key = readText(m_document.first(nameOf(CurrentElement::Name)), CurrentValue::TemplateName);
}

void CurrentModelBuilder::readPresetsAndCatalogs()
{
    const XmlElement presets = m_document.first(nameOf(CurrentElement::ClassificationColorPresets));
    for (const auto &preset : presets.all(nameOf(CurrentElement::ClassificationColorPreset))) {
        read(preset, CurrentValue::PresetScope);
        read(preset, CurrentValue::PresetChapter);
        for (const auto &property : preset.all(nameOf(CurrentElement::PresetProperty))) {
            read(property, CurrentValue::PresetField);
        }
    }
    const XmlElement assigned = m_document.first(nameOf(CurrentElement::AssignedCatalogs));
    for (const auto &catalog : assigned.all(nameOf(CurrentElement::Catalog))) {
        read(catalog, CurrentValue::CatalogId);
    }
}

void CurrentModelBuilder::readLists()
{
    ListsByName lists;
    for (const auto &element : m_document.all(nameOf(CurrentElement::ValueList))) {
        const Value name = read(element, CurrentValue::ListName);
        const Value classType = read(element, CurrentValue::ListClass);
        m_model.listDeclarations.push_back({element.at(), name, classType.text.toInt()});
        for (const auto &itemElement : element.all(nameOf(CurrentElement::ValueListItem))) {
            ListItemModel item;
            item.at = itemElement.at();
            item.item = read(itemElement, CurrentValue::ItemKey);
            item.internalValue = valueOf(itemElement, CurrentValue::ItemInternalKey);
            item.sortOrder = read(itemElement, CurrentValue::ItemOrdinal).text.toInt();
            ListModel &list = lists[name.text];
            if (list.items.empty()) {
                list.name = name.text;
                list.at = element.at();
                list.nameValue = name;
            }
            list.items.push_back(item);
        }
    }
    m_model.lists = listsOf(lists);
}

void CurrentModelBuilder::readDefaults()
{
    const XmlElement container = m_document.first(nameOf(CurrentElement::DefaultValues));
    for (const auto &scope : container.all(nameOf(CurrentElement::DefaultValueScope))) {
        for (const auto &element : scope.all(nameOf(CurrentElement::DefaultValueItem))) {
            // One in a nested scope is read again later, for that scope, and counts there.
            if (!(nearestLike(scope, element) == scope)) {
                continue;
            }
            DefaultModel item;
            item.at = element.at();
            item.view = read(element, CurrentValue::DefaultView);
            item.value = read(element, CurrentValue::DefaultText);
            const XmlElement bound = first(element, CurrentElement::BoundProperty);
            const XmlElement reference = first(bound, CurrentElement::RefersTo);
            item.path = read(bound, CurrentValue::DefaultProperty).text;
            const QString display = read(reference, CurrentValue::DefaultShownProperty).text;
            if (!reference.isNull() && !isKeyProperty(display)) {
                item.path = shownPath(item.path, display);
            }
            const DefaultKey key{item.path, item.view.text};
            const auto earlier = m_defaults.constFind(key);
            if (earlier != m_defaults.cend()) {
                DefaultModel &overwritten = m_model.defaults[static_cast<std::size_t>(*earlier)];
                item.overwrites = overwritten.at;
                overwritten.isUsed = true;
            }
            m_defaults.insert(key, static_cast<int>(m_model.defaults.size()));
            m_model.defaults.push_back(item);
        }
    }
}

void CurrentModelBuilder::readViews()
{
    const auto elements = m_document.all(nameOf(CurrentElement::View));
    QHash<QString, int> byId;
    for (const auto &element : elements) {
        ViewModel view;
        view.at = element.at();
        view.id = read(element, CurrentValue::ViewId);
        view.key = read(element, CurrentValue::ViewName);
        read(element, CurrentValue::ViewKind);
        const int number = static_cast<int>(m_model.views.size());
        const auto earlier = byId.constFind(view.id.text);
        if (earlier != byId.cend()) {
            m_model.views[static_cast<std::size_t>(*earlier)].replacedBy = number;
        }
        byId.insert(view.id.text, number);
        m_model.views.push_back(view);
    }
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (!m_model.views[i].isReplaced()) {
            readColumns(elements[i], static_cast<int>(i));
        }
    }
}

void CurrentModelBuilder::readColumns(const XmlElement &element, int view)
{
    const bool isDetailView = valueOf(element, CurrentValue::ViewKind).text == CurrentWords::detailKind;
    const QString viewName = m_model.views[static_cast<std::size_t>(view)].key.text;
    for (const auto &columnElement : element.all(nameOf(CurrentElement::Column))) {
        const std::size_t valuesBefore = m_model.values.size();
        ColumnModel column = columnOf(columnElement);
        column.view = view;
        bind(columnElement, isDetailView, column);
        takeDefault(viewName, column);
        column.isExcluded = isExcluded(column.path, column.table);
        applyFixedValues(column);
        keepNumbersOf(column, attributeOf(CurrentValue::ColumnMinimum),
                      attributeOf(CurrentValue::ColumnMaximum), attributeOf(CurrentValue::ColumnStep),
                      m_model.values);
        if (!column.isBuilt()) {
            m_model.values.resize(valuesBefore); // no host gets them
        }
        m_model.columns.push_back(column);
    }
}

ColumnModel CurrentModelBuilder::columnOf(const XmlElement &element)
{
    ColumnModel column;
    column.at = element.at();
    column.dataType = read(element, CurrentValue::ColumnDataType);
    column.controlType = read(element, CurrentValue::ColumnControlType);
    read(element, CurrentValue::ColumnWidth);
    column.sortOrder = read(element, CurrentValue::ColumnOrdinal);
    column.valueTransfer = read(element, CurrentValue::ColumnValueTransfer);
    column.order = column.sortOrder.text.toInt();
    if (const auto *type = rowOfName(dataTypeNames, column.dataType.text)) {
        const QString code = type->code;
        column.type = CTemplateDataConverter::stringToColumnType(QStringRef(&code));
    }
    if (const auto *control = rowOfName(controlTypeNames, column.controlType.text)) {
        column.control = control->controlType;
    }
    const XmlElement caption = first(first(element, CurrentElement::Caption), CurrentElement::TextItem);
    column.caption = {caption.text(), caption.textAt()};
    column.listName = readText(first(element, CurrentElement::ValueListName), CurrentValue::ColumnListName);
    column.displayFormat =
        valueOf(first(first(element, CurrentElement::DisplayFormat), CurrentElement::ValueFormatItem),
                CurrentValue::ColumnDisplayFormat);
    readRestrictions(element, column);
    readVisibility(element, column);
    return column;
}

void CurrentModelBuilder::readRestrictions(const XmlElement &element, ColumnModel &column)
{
    column.mandatoryAt = first(element, CurrentElement::MandatoryRestriction).at();
    column.isMandatory = column.mandatoryAt >= 0;
    column.readOnlyAt = first(element, CurrentElement::ReadOnlyRestriction).at();
    column.isReadOnly = column.readOnlyAt >= 0;
    column.isVirtual = !first(element, CurrentElement::VirtualRestriction).isNull();

    const XmlElement length = first(element, CurrentElement::TextLengthRestriction);
    column.length = column.type == CTemplateColumn::Text ? read(length, CurrentValue::ColumnMaximumLength)
                                                         : valueOf(length, CurrentValue::ColumnMaximumLength);
    column.maximumLength = toSaturatedInt(column.length.text.toDouble());

    const XmlElement range = first(element, CurrentElement::NumericRangeRestriction);
    const CColumnData initial;
    const auto limit = [](const Value &value, double absent) {
        return value.isGiven() ? value.text.toDouble() : absent;
    };
    column.rangeFrom = valueOf(range, CurrentValue::ColumnMinimum);
    column.rangeTo = valueOf(range, CurrentValue::ColumnMaximum);
    column.step = valueOf(range, CurrentValue::ColumnStep);
    column.minimum = limit(column.rangeFrom, initial.minimumValue);
    column.maximum = limit(column.rangeTo, initial.maximumValue);
    if (column.type == CTemplateColumn::Decimal) {
        read(range, CurrentValue::ColumnPrecision);
    }
}

void CurrentModelBuilder::readVisibility(const XmlElement &element, ColumnModel &column)
{
    const XmlElement visibility = first(element, CurrentElement::VisibilityRestriction);
    column.visibilityAt = visibility.at();
    column.isVisible = !visibility.isNull();
    const Value simple = read(visibility, CurrentValue::ColumnIsVisibleEverywhere);
    if (simple.text != CurrentWords::no) {
        return;
    }
    const XmlElement levels = first(visibility, CurrentElement::GroupLevel);
    for (const XmlAttribute *level : levels.attributes()) {
        const Value value{m_document.valueOf(*level), level->at};
        m_model.values.push_back({value, m_document.nameOf(*level).toString(), ValueKind::Flag});
    }
}

void CurrentModelBuilder::bind(const XmlElement &element, bool isDetailView, ColumnModel &column)
{
    const XmlElement bound = first(element, CurrentElement::BoundProperty);
    column.boundColumn = read(bound, CurrentValue::ColumnProperty);
    column.tableName = read(bound, CurrentValue::ColumnObject);
    column.boundColumn.at = bound.isNull() ? column.at : column.boundColumn.at;
    column.ownPath = column.boundColumn.text;
    column.path = column.ownPath;
    column.table = column.tableName.text;

    const XmlElement reference = first(bound, CurrentElement::RefersTo);
    if (reference.isNull()) {
        return;
    }
    const QString display = read(reference, CurrentValue::ColumnShownProperty).text;
    const QString table = read(reference, CurrentValue::ColumnShownObject).text;
    const bool showsKey = isKeyProperty(display);
    column.showsKeyInDetail = showsKey && isDetailView && column.isMandatory && isForeignKey(column.path);
    if (!showsKey || column.showsKeyInDetail) {
        column.path = shownPath(column.path, display);
        column.table = table;
    }
}

void CurrentModelBuilder::takeDefault(const QString &viewName, ColumnModel &column)
{
    column.defaultValue.at = column.at;
    const auto found = m_defaults.constFind({column.path, viewName});
    if (found != m_defaults.cend()) {
        DefaultModel &item = m_model.defaults[static_cast<std::size_t>(*found)];
        item.isUsed = true;
        column.defaultValue = item.value;
    }
}

void CurrentModelBuilder::readLegends()
{
    const XmlElement container = m_document.first(nameOf(CurrentElement::ClassificationColorScopes));
    for (const auto &scope : container.all(nameOf(CurrentElement::ClassificationColorScope))) {
        const QString name = read(scope, CurrentValue::ScopeScheme).text;
        const QString kind = read(scope, CurrentValue::ScopeKind).text;
        const bool isSection = kind == CurrentWords::sectionScope;
        if (name != CurrentWords::defaultScheme || (!isSection && kind != CurrentWords::lateralScope)) {
            continue;
        }
        for (const auto &element : scope.all(nameOf(CurrentElement::ClassificationColor))) {
            LegendClassModel legendClass;
            legendClass.at = element.at();
            legendClass.from = read(element, CurrentValue::LegendFrom);
            legendClass.to = read(element, CurrentValue::LegendTo);
            legendClass.color = read(first(element, CurrentElement::Color), CurrentValue::LegendColor);
            legendClass.lower = legendClass.from.text.toDouble();
            legendClass.upper = legendClass.to.text.toDouble();
            m_model.legends[isSection ? 0 : 1].push_back(legendClass);
        }
    }
}

} // namespace

TemplateModel currentModel(const XmlTree &document)
{
    return CurrentModelBuilder(document).build();
}

} // namespace Tobrix::Tools
