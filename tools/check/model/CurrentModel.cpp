#include "tools/check/model/CurrentModel.h"

#include "tools/check/model/ModelBuilding.h"
#include "xml/XmlTree_p.h"

#include "format_current/CurrentFormatAttributes_p.h"
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

constexpr QLatin1String textOf(ElementName name)
{
    return elementNames[static_cast<std::size_t>(name)].text;
}

template <typename Rows>
const auto *rowOf(const Rows &rows, const QString &name)
{
    const auto found =
        std::find_if(std::begin(rows), std::end(rows), [&name](const auto &row) { return row.name == name; });
    return found == std::end(rows) ? nullptr : &*found;
}

/// How the reader takes an attribute of an element.
ValueKind kindOf(ElementName element, QLatin1String attribute)
{
    const auto isMeant = [&](const ElementAttribute &row) {
        return row.element == element && row.name == attribute;
    };
    const auto row = std::find_if(std::begin(elementAttributes), std::end(elementAttributes), isMeant);
    return row == std::end(elementAttributes) ? ValueKind::Text : row->kind;
}

/// The nearest element around another one that has the name of a third, which is around it as well.
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

    XmlElement first(const XmlElement &element, ElementName name) { return element.first(textOf(name)); }

    /// The value of an attribute, which is kept for the rules about values as well.
    Value read(const XmlElement &element, ElementName elementName, QLatin1String attribute);
    /// The value alone.
    static Value valueOf(const XmlElement &element, QLatin1String attribute);
    Value readText(const XmlElement &element, QLatin1String name, ValueKind kind);

    const XmlTree &m_document;
    TemplateModel m_model;
    QHash<DefaultKey, int> m_defaults;
};

Value CurrentModelBuilder::valueOf(const XmlElement &element, QLatin1String attribute)
{
    const XmlAttribute *found = element.attribute(attribute);
    return found ? Value{element.tree().valueOf(*found), found->at} : Value{QString(), element.at()};
}

Value CurrentModelBuilder::read(const XmlElement &element, ElementName elementName, QLatin1String attribute)
{
    const Value value = valueOf(element, attribute);
    const ValueKind kind = kindOf(elementName, attribute);
    if (value.isGiven() && kind != ValueKind::Text) {
        m_model.values.push_back({value, attribute, kind});
    }
    return value;
}

Value CurrentModelBuilder::readText(const XmlElement &element, QLatin1String name, ValueKind kind)
{
    const Value value{element.text(), element.textAt()};
    if (value.isGiven()) {
        m_model.values.push_back({value, name, kind});
    }
    return value;
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
    const XmlElement identifier = m_document.first(textOf(ElementName::TemplateIdentifier));
    header.at = identifier.isNull() ? m_document.root().at() : identifier.at();
    header.uniqueId = read(identifier, ElementName::TemplateIdentifier, QLatin1String("Id"));
    header.unitSystem = read(identifier, ElementName::TemplateIdentifier, QLatin1String("SystemOfUnits"));
    header.key =
        readText(m_document.first(textOf(ElementName::Name)), textOf(ElementName::Name), ValueKind::Exact);
}

void CurrentModelBuilder::readPresetsAndCatalogs()
{
    const XmlElement presets = m_document.first(textOf(ElementName::ClassificationColorPresets));
    for (const auto &preset : presets.all(textOf(ElementName::ClassificationColorPreset))) {
        read(preset, ElementName::ClassificationColorPreset, QLatin1String("Scope"));
        read(preset, ElementName::ClassificationColorPreset, QLatin1String("Chapter"));
        for (const auto &property : preset.all(textOf(ElementName::PresetProperty))) {
            read(property, ElementName::PresetProperty, QLatin1String("PropertyName"));
        }
    }
    const XmlElement assigned = m_document.first(textOf(ElementName::AssignedCatalogs));
    for (const auto &catalog : assigned.all(textOf(ElementName::Catalog))) {
        read(catalog, ElementName::Catalog, QLatin1String("Id"));
    }
}

void CurrentModelBuilder::readLists()
{
    ListsByName lists;
    for (const auto &element : m_document.all(textOf(ElementName::ValueList))) {
        const Value name = read(element, ElementName::ValueList, QLatin1String("Name"));
        const Value classType =
            read(element, ElementName::ValueList, QLatin1String("CompatibleListClassType"));
        m_model.listDeclarations.push_back({element.at(), name, classType.text.toInt()});
        for (const auto &itemElement : element.all(textOf(ElementName::ValueListItem))) {
            ListItemModel item;
            item.at = itemElement.at();
            item.item = read(itemElement, ElementName::ValueListItem, QLatin1String("Key"));
            item.internalValue = valueOf(itemElement, QLatin1String("InternalKey"));
            item.sortOrder =
                read(itemElement, ElementName::ValueListItem, QLatin1String("OrdinalIndex")).text.toInt();
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
    const XmlElement container = m_document.first(textOf(ElementName::DefaultValues));
    for (const auto &scope : container.all(textOf(ElementName::DefaultValueScope))) {
        for (const auto &element : scope.all(textOf(ElementName::DefaultValueItem))) {
            // One in a scope within this one is read again, behind these: it counts there.
            if (!(nearestLike(scope, element) == scope)) {
                continue;
            }
            DefaultModel item;
            item.at = element.at();
            item.view = read(element, ElementName::DefaultValueItem, QLatin1String("View"));
            item.value = read(element, ElementName::DefaultValueItem, QLatin1String("Value"));
            const XmlElement bound = first(element, ElementName::BoundProperty);
            const XmlElement reference = first(bound, ElementName::RefersTo);
            item.path = read(bound, ElementName::BoundProperty, QLatin1String("PropertyName")).text;
            const QString display =
                read(reference, ElementName::RefersTo, QLatin1String("DisplayPropertyName")).text;
            if (!reference.isNull() && !display.endsWith(QLatin1String("_Key"))) {
                item.path += QLatin1Char('.') + display;
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
    const auto elements = m_document.all(textOf(ElementName::View));
    QHash<QString, int> byId;
    for (const auto &element : elements) {
        ViewModel view;
        view.at = element.at();
        view.id = read(element, ElementName::View, QLatin1String("Id"));
        view.key = read(element, ElementName::View, QLatin1String("Name"));
        read(element, ElementName::View, QLatin1String("Kind"));
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
    const bool isDetailView = valueOf(element, QLatin1String("Kind")).text == QLatin1String("Detail");
    const QString viewName = m_model.views[static_cast<std::size_t>(view)].key.text;
    for (const auto &columnElement : element.all(textOf(ElementName::Column))) {
        const std::size_t valuesBefore = m_model.values.size();
        ColumnModel column = columnOf(columnElement);
        column.view = view;
        bind(columnElement, isDetailView, column);
        takeDefault(viewName, column);
        const QString key = column.path + QLatin1Char('_') + column.table;
        column.isExcluded = std::any_of(std::begin(excludedColumnKeys), std::end(excludedColumnKeys),
                                        [&key](const QLatin1String &excluded) { return key == excluded; });
        applyFixedValues(column);
        keepNumbersOf(column, QStringLiteral("From"), QStringLiteral("To"), QStringLiteral("Step"),
                      m_model.values);
        if (!column.isBuilt()) {
            m_model.values.resize(valuesBefore); // nobody gets them
        }
        m_model.columns.push_back(column);
    }
}

ColumnModel CurrentModelBuilder::columnOf(const XmlElement &element)
{
    ColumnModel column;
    column.at = element.at();
    const auto attribute = [&](const char *name) {
        return read(element, ElementName::Column, QLatin1String(name));
    };
    column.dataType = attribute("DataType");
    column.controlType = attribute("ControlType");
    attribute("Width");
    column.sortOrder = attribute("Ordinal");
    column.valueTransfer = attribute("ValueTransfer");
    column.order = column.sortOrder.text.toInt();
    if (const auto *type = rowOf(dataTypeNames, column.dataType.text)) {
        const QString code = type->code;
        column.type = CTemplateDataConverter::stringToColumnType(QStringRef(&code));
    }
    if (const auto *control = rowOf(controlTypeNames, column.controlType.text)) {
        column.control = control->controlType;
    }
    const XmlElement caption = first(first(element, ElementName::Caption), ElementName::TextItem);
    column.caption = {caption.text(), caption.textAt()};
    column.listName = readText(first(element, ElementName::ValueListName), textOf(ElementName::ValueListName),
                               ValueKind::Exact);
    column.displayFormat =
        valueOf(first(first(element, ElementName::DisplayFormat), ElementName::ValueFormatItem),
                QLatin1String("Format"));
    readRestrictions(element, column);
    readVisibility(element, column);
    return column;
}

void CurrentModelBuilder::readRestrictions(const XmlElement &element, ColumnModel &column)
{
    column.mandatoryAt = first(element, ElementName::MandatoryRestriction).at();
    column.isMandatory = column.mandatoryAt >= 0;
    column.readOnlyAt = first(element, ElementName::ReadOnlyRestriction).at();
    column.isReadOnly = column.readOnlyAt >= 0;
    column.isVirtual = !first(element, ElementName::VirtualRestriction).isNull();

    const XmlElement length = first(element, ElementName::TextLengthRestriction);
    column.length = column.type == CTemplateColumn::Text
                        ? read(length, ElementName::TextLengthRestriction, QLatin1String("Max"))
                        : valueOf(length, QLatin1String("Max"));
    column.maximumLength = toSaturatedInt(column.length.text.toDouble());

    const XmlElement range = first(element, ElementName::NumericRangeRestriction);
    const CColumnData initial;
    const auto limit = [](const Value &value, double absent) {
        return value.isGiven() ? value.text.toDouble() : absent;
    };
    column.rangeFrom = valueOf(range, QLatin1String("From"));
    column.rangeTo = valueOf(range, QLatin1String("To"));
    column.step = valueOf(range, QLatin1String("Step"));
    column.minimum = limit(column.rangeFrom, initial.minimumValue);
    column.maximum = limit(column.rangeTo, initial.maximumValue);
    if (column.type == CTemplateColumn::Decimal) {
        read(range, ElementName::NumericRangeRestriction, QLatin1String("Precision"));
    }
}

void CurrentModelBuilder::readVisibility(const XmlElement &element, ColumnModel &column)
{
    const XmlElement visibility = first(element, ElementName::VisibilityRestriction);
    column.visibilityAt = visibility.at();
    column.isVisible = !visibility.isNull();
    const Value simple = read(visibility, ElementName::VisibilityRestriction, QLatin1String("Simple"));
    if (simple.text != QLatin1String("false")) {
        return;
    }
    const XmlElement levels = first(visibility, ElementName::GroupLevel);
    for (const XmlAttribute *level : levels.attributes()) {
        const Value value{m_document.valueOf(*level), level->at};
        m_model.values.push_back({value, m_document.nameOf(*level).toString(), ValueKind::Flag});
    }
}

void CurrentModelBuilder::bind(const XmlElement &element, bool isDetailView, ColumnModel &column)
{
    const XmlElement bound = first(element, ElementName::BoundProperty);
    column.boundColumn = read(bound, ElementName::BoundProperty, QLatin1String("PropertyName"));
    column.tableName = read(bound, ElementName::BoundProperty, QLatin1String("ObjectName"));
    column.boundColumn.at = bound.isNull() ? column.at : column.boundColumn.at;
    column.ownPath = column.boundColumn.text;
    column.path = column.ownPath;
    column.table = column.tableName.text;

    const XmlElement reference = first(bound, ElementName::RefersTo);
    if (reference.isNull()) {
        return;
    }
    const QString display = read(reference, ElementName::RefersTo, QLatin1String("DisplayPropertyName")).text;
    const QString table = read(reference, ElementName::RefersTo, QLatin1String("ObjectName")).text;
    const bool showsKey = display.endsWith(QLatin1String("_Key"));
    column.showsKeyInDetail =
        showsKey && isDetailView && column.isMandatory && column.path.endsWith(QLatin1String("_FK"));
    if (!showsKey || column.showsKeyInDetail) {
        column.path += QLatin1Char('.') + display;
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
    const XmlElement container = m_document.first(textOf(ElementName::ClassificationColorScopes));
    for (const auto &scope : container.all(textOf(ElementName::ClassificationColorScope))) {
        const QString name = read(scope, ElementName::ClassificationColorScope, QLatin1String("Name")).text;
        const QString kind = read(scope, ElementName::ClassificationColorScope, QLatin1String("Scope")).text;
        const bool isSection = kind == QLatin1String("Section");
        if (name != QLatin1String("ClassColorDefault") || (!isSection && kind != QLatin1String("Lateral"))) {
            continue;
        }
        for (const auto &element : scope.all(textOf(ElementName::ClassificationColor))) {
            BandModel band;
            band.at = element.at();
            band.from = read(element, ElementName::ClassificationColor, QLatin1String("From"));
            band.to = read(element, ElementName::ClassificationColor, QLatin1String("To"));
            band.color = read(first(element, ElementName::Color), ElementName::Color, QLatin1String("Html"));
            band.lower = band.from.text.toDouble();
            band.upper = band.to.text.toDouble();
            m_model.legends[isSection ? 0 : 1].push_back(band);
        }
    }
}

} // namespace

TemplateModel currentModel(const XmlTree &document)
{
    return CurrentModelBuilder(document).build();
}

} // namespace Tobrix::Tools
