#include "format_current/CurrentMarkup_p.h"

#include "format_current/CurrentObservation_p.h"
#include "format_current/CurrentRules_p.h"
#include "rawdata/PlainNumbers_p.h"

#include <algorithm>

namespace Tobrix::Templates {

namespace {

/// Texts of at least this size are cached for elements that share them.
constexpr quint32 longText = 1024;

CurrentElement elementOfName(const QString &name)
{
    const auto *row = rowOfName(currentElements, name);
    return row ? row->element : CurrentElement::Count;
}

constexpr std::array<bool, indexOf(CurrentElement::Count)> elementsTakenEvery()
{
    std::array<bool, indexOf(CurrentElement::Count)> taken = {};
    for (const auto &row : currentLookups) {
        if (row.take == CurrentTake::Every) {
            taken[indexOf(row.element)] = true;
        }
    }
    return taken;
}

} // namespace

CurrentMarkup::CurrentMarkup(const XmlDocument &document) : m_document(document)
{
    constexpr auto isTakenEvery = elementsTakenEvery();
    m_first.fill(-1);
    m_attributes.fill(-1);
    const auto &names = document.names();
    m_elements.reserve(names.size());
    for (std::size_t number = 0; number < names.size(); ++number) {
        m_elements.push_back(elementOfName(names[number]));
        for (const auto &row : currentValues) {
            if (!row.attribute.isEmpty() && names[number] == row.attribute) {
                m_attributes[indexOf(row.value)] = static_cast<int>(number);
            }
        }
    }
    for (int node = 0; node < document.size(); ++node) {
        const CurrentElement element = document.isElement(node) ? elementAt(node) : CurrentElement::Count;
        if (element == CurrentElement::Count) {
            continue;
        }
        int &first = m_first[indexOf(element)];
        first = first < 0 ? node : first;
        if (isTakenEvery[indexOf(element)]) {
            m_every[indexOf(element)].push_back(node);
        }
    }
}

int CurrentMarkup::first(CurrentLookup lookup, int below) const
{
    if (below < 0) {
        return -1;
    }
    const CurrentElement element = elementOf(lookup);
    const int end = m_document.end(below);
    for (int node = below + 1; node < end; ++node) {
        if (m_document.isElement(node) && elementAt(node) == element) {
            return found(lookup, node);
        }
    }
    return -1;
}

CurrentMarkup::Parts CurrentMarkup::partsOf(int element) const
{
    Parts parts(*this);
    const int end = m_document.end(element);
    for (int node = element + 1; node < end; ++node) {
        const CurrentElement name = m_document.isElement(node) ? elementAt(node) : CurrentElement::Count;
        if (name != CurrentElement::Count) {
            int &first = parts.m_first[indexOf(name)];
            first = first < 0 ? node : first;
        }
    }
    return parts;
}

CurrentMarkup::Elements CurrentMarkup::every(CurrentLookup lookup) const
{
    const auto &elements = m_every[indexOf(elementOf(lookup))];
    const Elements all(elements.data(), elements.data() + elements.size());
    return rowOf(lookup).below == CurrentLookup::Document ? found(lookup, all) : all;
}

CurrentMarkup::Elements CurrentMarkup::every(CurrentLookup lookup, int below) const
{
    return below < 0 ? Elements() : found(lookup, between(lookup, below));
}

CurrentMarkup::Elements CurrentMarkup::between(CurrentLookup lookup, int below) const
{
    const auto &elements = m_every[indexOf(elementOf(lookup))];
    const int *end = elements.data() + elements.size();
    const int *first = std::upper_bound(elements.data(), end, below);
    return {first, std::lower_bound(first, end, m_document.end(below))};
}

CurrentMarkup::Elements CurrentMarkup::found(CurrentLookup lookup, const Elements &elements) const
{
    if (m_observation) {
        for (const int element : elements) {
            observe(lookup, element);
        }
    }
    return elements;
}

QString CurrentMarkup::text(CurrentValue value, int element) const
{
    if (element < 0) {
        return QString();
    }
    QString text;
    if (isText(value)) {
        text = textOf(element);
    } else if (const XmlDocument::Attribute *found = attribute(value, element)) {
        text = valueOf(*found);
    } else {
        return QString();
    }
    if (m_observation) {
        observe(value, element, text);
    }
    return text;
}

QString CurrentMarkup::sharedText(CurrentValue value, int element) const
{
    if (isText(value)) {
        return m_pool.shared(text(value, element));
    }
    const auto shared = [this](const QStringRef &text) {
        return text.isEmpty() ? QStringLiteral("") : m_pool.shared(text);
    };
    return converted<QString>(value, element, shared);
}

int CurrentMarkup::groupLevels(int element) const
{
    int levels = 0;
    if (element < 0) {
        return levels;
    }
    // A level is set when any attribute sets it.
    for (const auto &attribute : m_document.attributes(element)) {
        const int level = levelOfName(m_document.nameOf(attribute));
        if (level > 0 && !XmlDocument::isSuperseded(attribute)) {
            const bool isShown = m_document.value(attribute, m_buffer) == CurrentWords::yes;
            levels |= isShown ? 1 << (level - 1) : 0;
            if (m_observation) {
                observe(CurrentValue::ColumnGroupLevel, element, attribute, isShown);
            }
        }
    }
    return levels;
}

bool CurrentMarkup::flag(CurrentValue value, int element) const
{
    return converted<bool>(value, element, [](const QStringRef &text) { return text == CurrentWords::yes; });
}

int CurrentMarkup::integer(CurrentValue value, int element, int absent) const
{
    return converted(value, element, toDecimalInt, absent);
}

double CurrentMarkup::real(CurrentValue value, int element, double absent) const
{
    return converted(value, element, toDecimalDouble, absent);
}

bool CurrentMarkup::is(CurrentValue value, int element, QLatin1String word) const
{
    const XmlDocument::Attribute *found = attribute(value, element);
    if (!found) {
        return false;
    }
    const QStringRef text = m_document.value(*found, m_buffer);
    if (m_observation) {
        observe(value, element, text.toString());
    }
    return text == word;
}

bool CurrentMarkup::isPresent(CurrentValue value, int element) const
{
    if (m_observation && element >= 0) {
        observe(value, element, true);
    }
    return element >= 0;
}

QString CurrentMarkup::valueOf(const XmlDocument::Attribute &attribute) const
{
    if (attribute.valueSize < longText) {
        return m_document.value(attribute);
    }
    QString &text = m_longTexts[{reinterpret_cast<quintptr>(&attribute), 0}];
    if (text.isNull()) {
        text = m_document.value(attribute);
    }
    return text;
}

QString CurrentMarkup::textOf(int element) const
{
    const int node = element + 1;
    const int end = m_document.end(element);
    if (node == end) {
        return QStringLiteral("");
    }
    const bool isOneText = node + 1 == end && m_document.isText(node);
    return isOneText && m_document.node(node).extent < longText ? m_document.text(node)
                                                                : textInPieces(element);
}

QString CurrentMarkup::textInPieces(int element) const
{
    // Nested elements around the same text nodes have the same text.
    std::pair<quintptr, quintptr> texts;
    quint64 size = 0;
    for (int node = element + 1; node < m_document.end(element); ++node) {
        if (m_document.isText(node)) {
            const auto piece = reinterpret_cast<quintptr>(&m_document.node(node));
            texts = {texts.first == 0 ? piece : texts.first, piece};
            size += m_document.node(node).extent;
        }
    }
    if (size < longText) {
        return m_document.textBelow(element);
    }
    QString &text = m_longTexts[texts];
    if (text.isNull()) {
        text = m_document.textBelow(element);
        text.squeeze();
    }
    return text;
}

void CurrentMarkup::observe(CurrentLookup lookup, int element) const
{
    m_observation->find(lookup, element);
}

void CurrentMarkup::observe(CurrentValue value, int element, const QVariant &result) const
{
    m_observation->take(value, element, attribute(value, element), result);
}

void CurrentMarkup::observe(CurrentValue value, int element, const XmlDocument::Attribute &attribute,
                            const QVariant &result) const
{
    m_observation->take(value, element, &attribute, result);
}

} // namespace Tobrix::Templates
