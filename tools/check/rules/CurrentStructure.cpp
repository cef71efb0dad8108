#include "tools/check/rules/CurrentStructure.h"

#include <QHash>

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Walks over a document and tracks the placed elements around the current one.
class Placement
{
public:
    explicit Placement(const XmlTree &document) : m_document(document)
    {
        for (const auto &row : currentStructure()) {
            m_rows[document.numberOf(row.part)].push_back(&row);
        }
    }

    /// To be called with every element in document order.
    bool isPlaced(const XmlElement &element)
    {
        while (!m_around.empty() && !m_around.back().contains(element)) {
            m_around.pop_back();
        }
        const auto rows = m_rows.constFind(element.nameNumber());
        if (rows == m_rows.cend() || std::none_of(rows->begin(), rows->end(), [&](const StructureRow *row) {
                return isPlacedBy(*row, element);
            })) {
            return false;
        }
        m_around.push_back(element);
        return true;
    }

private:
    bool isPlacedBy(const StructureRow &row, const XmlElement &element) const
    {
        if (row.container.isEmpty()) {
            return row.taken != Taken::FirstOfAll || element == m_document.first(row.part);
        }
        const auto isContainer = [&row](const XmlElement &around) { return around.hasName(row.container); };
        return row.taken == Taken::Every || std::any_of(m_around.begin(), m_around.end(), isContainer);
    }

    const XmlTree &m_document;
    QHash<int, std::vector<const StructureRow *>> m_rows;
    std::vector<XmlElement> m_around;
};

} // namespace

namespace {

/// The name of the element that a look-up searches; empty for the whole document.
QLatin1String containerOf(CurrentLookup lookup)
{
    return lookup == CurrentLookup::Document ? QLatin1String() : nameOf(elementOf(lookup));
}

std::vector<StructureRow> makeStructure()
{
    std::vector<StructureRow> rows;
    for (const auto &lookup : currentLookups) {
        const auto isSame = [&](const StructureRow &row) {
            return row.container == containerOf(lookup.below) && row.part == nameOf(lookup.element);
        };
        if (lookup.lookup != CurrentLookup::Document && std::none_of(rows.begin(), rows.end(), isSame)) {
            rows.push_back({containerOf(lookup.below), nameOf(lookup.element), lookup.take});
        }
    }
    // The first one in the document is the template's, which belongs in the identifier.
    for (const auto element : {CurrentElement::Name, CurrentElement::Version}) {
        rows.push_back({nameOf(CurrentElement::TemplateIdentifier), nameOf(element), Taken::First});
    }
    return rows;
}

} // namespace

const std::vector<StructureRow> &currentStructure()
{
    static const std::vector<StructureRow> rows = makeStructure();
    return rows;
}

QStringList partsOf(const QString &container)
{
    QStringList parts;
    for (const auto &row : currentStructure()) {
        if (row.container == container) {
            parts.append(row.part);
        }
    }
    return parts;
}

QStringList containersOf(const QString &part)
{
    QStringList containers;
    for (const auto &row : currentStructure()) {
        if (row.part == part && !row.container.isEmpty()) {
            containers.append(row.container);
        }
    }
    return containers;
}

bool isTextElement(const XmlElement &element)
{
    return std::any_of(std::begin(currentValues), std::end(currentValues), [&element](const auto &row) {
        return isText(row.value) && element.hasName(nameOf(elementOf(row.value)));
    });
}

XmlElement nearestAround(const XmlElement &element, QLatin1String name)
{
    XmlElement around = element.parent();
    while (!around.isNull() && !around.hasName(name)) {
        around = around.parent();
    }
    return around;
}

PlacedElements::PlacedElements(const XmlTree &document) : m_countBefore{0}
{
    Placement placement(document);
    for (int i = 0; i < document.size(); ++i) {
        const bool isElement = document.node(i).kind == XmlNode::Element;
        const bool isPlaced = isElement && placement.isPlaced(XmlElement(document, i));
        m_countBefore.push_back(m_countBefore.back() + (isPlaced ? 1 : 0));
    }
}

bool PlacedElements::contain(const XmlElement &element) const
{
    const auto index = static_cast<std::size_t>(element.index());
    return m_countBefore[index + 1] > m_countBefore[index];
}

bool PlacedElements::areWithin(const XmlElement &element) const
{
    const auto begin = static_cast<std::size_t>(element.index()) + 1;
    const auto end = static_cast<std::size_t>(element.tree().node(element.index()).end);
    return m_countBefore[end] > m_countBefore[begin];
}

} // namespace Tobrix::Tools
