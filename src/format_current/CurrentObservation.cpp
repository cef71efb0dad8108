#include "format_current/CurrentObservation_p.h"

#include "model/CProgramView.h"

#include <algorithm>

namespace Tobrix::Templates {

namespace {

using Reason = ReadingObserver::Reason;

static_assert(indexOf(CurrentLookup::Count) <= 64, "a bit for each look-up");

constexpr quint64 bitOf(CurrentLookup lookup)
{
    return quint64(1) << indexOf(lookup);
}

std::size_t numberOfAttributes(const XmlDocument &document)
{
    return document.size() == 0 ? 0 : document.node(document.size()).firstAttribute;
}

} // namespace

CurrentObservation::CurrentObservation(const CurrentMarkup &markup, ReadingObserver &observer)
    : m_markup(markup), m_document(markup.document()), m_observer(observer)
{
    const auto size = static_cast<std::size_t>(m_document.size());
    m_lookups.resize(size);
    m_isTaken.resize(size);
    m_isPassedOver.resize(size);
    m_isAttributeTaken.resize(numberOfAttributes(m_document));
}

void CurrentObservation::begin(CurrentLookup lookup, int element)
{
    find(lookup, element);
    m_object = element;
}

void CurrentObservation::find(CurrentLookup lookup, int element)
{
    m_lookups[static_cast<std::size_t>(element)] |= bitOf(lookup);
}

void CurrentObservation::take(CurrentValue value, int element, const XmlDocument::Attribute *attribute,
                              const QVariant &result)
{
    ReadingObserver::Value taken{formatRowOf(value), element, -1, attribute, result, m_object, -1};
    if (attribute) {
        m_isAttributeTaken[indexOfAttribute(*attribute)] = true;
    } else if (isText(value)) {
        taken.text = takeTexts(element);
    }
    if (value == CurrentValue::PresetClassName) {
        taken.overwritten = std::exchange(m_classNameOf, element);
    }
    m_observer.take(taken);
}

int CurrentObservation::takeTexts(int element)
{
    int taken = -1;
    int count = 0;
    for (int node = element + 1; node < m_document.end(element); ++node) {
        if (m_document.isText(node)) {
            m_isTaken[static_cast<std::size_t>(node)] = true;
            taken = node;
            ++count;
        }
    }
    return count == 1 ? taken : -1;
}

void CurrentObservation::passOver(int element, Reason reason, int inFavourOf)
{
    m_isPassedOver[static_cast<std::size_t>(element)] = true;
    m_observer.passOver(element, nullptr, reason, inFavourOf);
}

void CurrentObservation::fileView(const CProgramView &view, int element)
{
    m_observer.fileView(view, element);
    const auto earlier = m_views.constFind(view.uniqueId());
    if (earlier != m_views.cend()) {
        passOver(*earlier, Reason::Replaced, element);
    }
    m_views.insert(view.uniqueId(), element);
}

void CurrentObservation::fileColumn(const CTemplateColumn *column, const CColumnData &data, int element,
                                    int view)
{
    m_observer.fileColumn(column, data, element, view);
    if (!column) {
        passOver(element, Reason::UnknownType);
    }
}

void CurrentObservation::fileListItem(const CListItem &item, const QString &listName, int element, int list)
{
    m_observer.fileListItem(item, listName, element, list);
}

void CurrentObservation::fileLegendClass(const CTemplateLegendDataItem &legendClass, bool isLateral,
                                         int element)
{
    m_observer.fileLegendClass(legendClass, isLateral, element);
}

void CurrentObservation::fileDefault(const QString &path, const QString &view, const QString &value,
                                     int element)
{
    m_observer.fileDefault(path, view, value, element);
    const auto earlier = m_defaults.constFind({path, view});
    if (earlier != m_defaults.cend()) {
        passOver(*earlier, Reason::Replaced, element);
    }
    m_defaults.insert({path, view}, element);
}

void CurrentObservation::fileList(const QString &name, int classType, int element)
{
    m_observer.fileList(name, classType, element);
}

void CurrentObservation::reportRest()
{
    m_around.push_back({m_document.size(), bitOf(CurrentLookup::Document), false, false, {}});
    m_around.back().first.fill(-1);
    for (int node = 0; node < m_document.size(); ++node) {
        while (m_around.back().end <= node) {
            m_around.pop_back();
        }
        switch (m_document.node(node).kind) {
        case XmlDocument::Node::Element:
            reportElement(node);
            break;
        case XmlDocument::Node::Comment:
            m_observer.passOver(node, nullptr, Reason::Comment, -1);
            break;
        case XmlDocument::Node::Instruction:
            m_observer.passOver(node, nullptr, Reason::Instruction, -1);
            break;
        case XmlDocument::Node::Text:
        case XmlDocument::Node::CData:
        case XmlDocument::Node::Reference:
            reportText(node);
            break;
        }
    }
    m_around.clear();
}

void CurrentObservation::reportText(int node)
{
    if (!m_isTaken[static_cast<std::size_t>(node)]) {
        const Around &around = m_around.back();
        const Reason reason = around.isPassedOver || around.isHidden ? Reason::InPassedOver : Reason::Text;
        m_observer.passOver(node, nullptr, reason, -1);
    }
}

void CurrentObservation::reportElement(int node)
{
    const bool isFound = m_lookups[static_cast<std::size_t>(node)] != 0;
    const bool isReported = m_isPassedOver[static_cast<std::size_t>(node)];
    const bool isHidden = m_around.back().isHidden;
    if (isFound) {
        reportAttributes(node, false);
        enter(node, isReported, isHidden || isReported);
        return;
    }
    int inFavourOf = -1;
    const Reason reason = reasonFor(node, inFavourOf);
    m_observer.passOver(node, nullptr, reason, inFavourOf);
    reportAttributes(node, true);
    // Elements are found below elements of any other name.
    enter(node, true, isHidden || reason != Reason::UnknownElement);
}

void CurrentObservation::enter(int node, bool isPassedOver, bool isHidden)
{
    const quint64 lookups = m_lookups[static_cast<std::size_t>(node)];
    for (const auto &row : currentLookups) {
        for (auto &around : m_around) {
            int &first = around.first[indexOf(row.lookup)];
            const bool isFirst = first < 0 && (around.lookups & bitOf(row.below)) != 0;
            first = (lookups & bitOf(row.lookup)) != 0 && isFirst ? node : first;
        }
    }
    m_around.push_back({m_document.end(node), lookups, isPassedOver, isHidden, {}});
    m_around.back().first.fill(-1);
}

Reason CurrentObservation::reasonFor(int node, int &inFavourOf) const
{
    const CurrentElement element = m_markup.elementAt(node);
    if (m_around.back().isHidden) {
        return Reason::InPassedOver;
    }
    if (element == CurrentElement::Count) {
        return Reason::UnknownElement;
    }
    for (auto around = m_around.rbegin(); around != m_around.rend(); ++around) {
        for (const auto &row : currentLookups) {
            if (row.element == element && (around->lookups & bitOf(row.below)) != 0) {
                inFavourOf = around->first[indexOf(row.lookup)];
                return inFavourOf < 0 ? Reason::Ignored : Reason::NotTheFirst;
            }
        }
    }
    return Reason::NotHere;
}

std::size_t CurrentObservation::indexOfAttribute(const XmlDocument::Attribute &attribute) const
{
    return static_cast<std::size_t>(&attribute - m_document.attributes(0).first);
}

bool CurrentObservation::isAttributeOf(CurrentElement element, const QString &name)
{
    return std::any_of(std::begin(currentValues), std::end(currentValues), [&](const CurrentValueRow &row) {
        return elementOf(row.value) == element && !row.attribute.isEmpty() && name == row.attribute;
    });
}

void CurrentObservation::reportAttributes(int node, bool isPassedOver)
{
    for (const auto &attribute : m_document.attributes(node)) {
        Reason reason = Reason::UnknownAttribute;
        if (isPassedOver) {
            reason = Reason::InPassedOver;
        } else if (XmlDocument::isSuperseded(attribute)) {
            reason = Reason::RepeatedAttribute;
        } else if (m_isAttributeTaken[indexOfAttribute(attribute)]) {
            continue;
        } else if (isAttributeOf(m_markup.elementAt(node), m_document.nameOf(attribute))) {
            reason = Reason::Ignored;
        }
        m_observer.passOver(node, &attribute, reason, -1);
    }
}

} // namespace Tobrix::Templates
