#pragma once

#include "format_current/CurrentFormat_p.h"
#include "rawdata/TextPool_p.h"
#include "xml/XmlDocument_p.h"

#include <QHash>
#include <QVariant>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace Tobrix::Templates {

class CurrentObservation;

/// A document of the current format. Elements and values are looked up only by the rows of the format's
/// tables. An element is given by its node; -1 is one that was not found, without values and descendants.
class CurrentMarkup
{
public:
    /// A range of elements in document order.
    class Elements
    {
    public:
        Elements() = default;
        Elements(const int *first, const int *last) : m_first(first), m_last(last) {}

        const int *begin() const { return m_first; }
        const int *end() const { return m_last; }
        int count() const { return static_cast<int>(m_last - m_first); }

    private:
        const int *m_first = nullptr;
        const int *m_last = nullptr;
    };

    /// The first element of each name below an element, for several look-ups.
    class Parts
    {
    public:
        int operator[](CurrentLookup lookup) const
        {
            return m_markup.found(lookup, m_first[indexOf(elementOf(lookup))]);
        }

    private:
        friend class CurrentMarkup;
        explicit Parts(const CurrentMarkup &markup) : m_markup(markup) { m_first.fill(-1); }

        const CurrentMarkup &m_markup;
        std::array<int, indexOf(CurrentElement::Count)> m_first;
    };

    /// @param document must outlive this
    explicit CurrentMarkup(const XmlDocument &document);

    /// Sets the observer of look-ups and values; null for none.
    void setObservation(CurrentObservation *observation) { m_observation = observation; }

    const XmlDocument &document() const { return m_document; }
    /// The element of a name; CurrentElement::Count for an unknown name.
    CurrentElement elementAt(int node) const { return m_elements[m_document.node(node).name]; }

    /// The first element of a look-up in the whole document.
    int first(CurrentLookup lookup) const { return found(lookup, m_first[indexOf(elementOf(lookup))]); }
    /// The first element of a look-up below another one.
    int first(CurrentLookup lookup, int below) const;
    Parts partsOf(int element) const;
    /// All elements of a look-up in the whole document, at any depth.
    Elements every(CurrentLookup lookup) const;
    /// All elements of a look-up below another one.
    Elements every(CurrentLookup lookup, int below) const;

    /// The number of elements of a look-up below another one.
    int count(CurrentLookup lookup, int below) const { return between(lookup, below).count(); }

    /// The attribute that has a value; null when the element has no such attribute.
    const XmlDocument::Attribute *attribute(CurrentValue value, int element) const
    {
        return element < 0 ? nullptr : m_document.attribute(element, m_attributes[indexOf(value)]);
    }

    /// A value as text; null when it is absent.
    QString text(CurrentValue value, int element) const;
    /// The same for a value that many elements share: one copy serves all.
    QString sharedText(CurrentValue value, int element) const;

    /// The value of an attribute, converted from a QStringRef.
    /// @param absent the result for an absent attribute
    template <typename T, typename Convert>
    T converted(CurrentValue value, int element, Convert convert, T absent = T()) const
    {
        const XmlDocument::Attribute *found = attribute(value, element);
        if (!found) {
            return absent;
        }
        const T result = convert(m_document.value(*found, m_buffer));
        if (m_observation) {
            observe(value, element, QVariant(result));
        }
        return result;
    }

    /// The levels that the attributes of a group-level element set, as a mask: bit n-1 for level n.
    int groupLevels(int element) const;

    bool flag(CurrentValue value, int element) const;
    int integer(CurrentValue value, int element, int absent = 0) const;
    double real(CurrentValue value, int element, double absent = 0.0) const;
    /// Whether the value of an attribute equals a word.
    bool is(CurrentValue value, int element, QLatin1String word) const;
    /// Whether an element was found whose presence is its value.
    bool isPresent(CurrentValue value, int element) const;

private:
    int found(CurrentLookup lookup, int element) const
    {
        if (m_observation && element >= 0) {
            observe(lookup, element);
        }
        return element;
    }
    Elements found(CurrentLookup lookup, const Elements &elements) const;
    Elements between(CurrentLookup lookup, int below) const;
    void observe(CurrentLookup lookup, int element) const;
    void observe(CurrentValue value, int element, const QVariant &result) const;
    void observe(CurrentValue value, int element, const XmlDocument::Attribute &attribute,
                 const QVariant &result) const;

    QString valueOf(const XmlDocument::Attribute &attribute) const;
    QString textOf(int element) const;
    QString textInPieces(int element) const;

    const XmlDocument &m_document;
    CurrentObservation *m_observation = nullptr;
    std::vector<CurrentElement> m_elements;                     // by the numbers of names
    std::array<int, indexOf(CurrentValue::Count)> m_attributes; // the numbers of their names
    std::array<int, indexOf(CurrentElement::Count)> m_first;    // in the document
    std::array<std::vector<int>, indexOf(CurrentElement::Count)>
        m_every; // for the names that some look-up takes all elements of
    mutable QString m_buffer;
    mutable TextPool m_pool;
    // Nested elements may all share one long text.
    mutable QHash<std::pair<quintptr, quintptr>, QString> m_longTexts;
};

/// Visits elements together with the containers around each of them, which may be nested.
/// @param containers in document order
/// @param visit gets an element and the indexes of the containers around it, the outermost first; not called
///        without any
template <typename Visit>
void visitWithin(const XmlDocument &document, const std::vector<int> &containers,
                 const CurrentMarkup::Elements &elements, Visit visit)
{
    std::vector<std::size_t> around;
    std::size_t next = 0;
    for (const int element : elements) {
        for (; next < containers.size() && containers[next] < element; ++next) {
            around.push_back(next);
        }
        const auto isBefore = [&](std::size_t i) { return document.end(containers[i]) <= element; };
        around.erase(std::remove_if(around.begin(), around.end(), isBefore), around.end());
        if (!around.empty()) {
            visit(element, around);
        }
    }
}

} // namespace Tobrix::Templates
