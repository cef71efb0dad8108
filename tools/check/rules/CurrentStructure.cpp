#include "tools/check/rules/CurrentStructure.h"

#include <QHash>

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Goes through a document with the placed elements around the current one at hand.
class Placement
{
public:
    explicit Placement(const XmlTree &document) : m_document(document)
    {
        for (const auto &row : currentStructure()) {
            m_rows[document.numberOf(row.part)].push_back(&row);
        }
    }

    /// To be called with every element in the order of the document.
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
        return row.taken == Taken::Each || std::any_of(m_around.begin(), m_around.end(), isContainer);
    }

    const XmlTree &m_document;
    QHash<int, std::vector<const StructureRow *>> m_rows;
    std::vector<XmlElement> m_around;
};

} // namespace

// clang-format off

const std::vector<StructureRow> &currentStructure()
{
    static const std::vector<StructureRow> rows = {
    {QLatin1String(), QLatin1String("TemplateIdentifier"), Taken::First},
    {QLatin1String(), QLatin1String("Name"), Taken::FirstOfAll},
    {QLatin1String(), QLatin1String("Version"), Taken::FirstOfAll},
    {QLatin1String("TemplateIdentifier"), QLatin1String("Name"), Taken::First},
    {QLatin1String("TemplateIdentifier"), QLatin1String("Version"), Taken::First},

    {QLatin1String(), QLatin1String("ClassificationColorPresets"), Taken::First},
    {QLatin1String("ClassificationColorPresets"), QLatin1String("ClassificationColorPreset"), Taken::Each},
    {QLatin1String("ClassificationColorPreset"), QLatin1String("PresetProperty"), Taken::Each},

    {QLatin1String(), QLatin1String("AssignedCatalogs"), Taken::First},
    {QLatin1String("AssignedCatalogs"), QLatin1String("Catalog"), Taken::Each},

    {QLatin1String(), QLatin1String("View"), Taken::Each},
    {QLatin1String("View"), QLatin1String("Column"), Taken::Each},
    {QLatin1String("Column"), QLatin1String("MandatoryRestriction"), Taken::FirstOfSeveral},
    {QLatin1String("Column"), QLatin1String("BoundProperty"), Taken::First},
    {QLatin1String("BoundProperty"), QLatin1String("RefersTo"), Taken::First},
    {QLatin1String("Column"), QLatin1String("Caption"), Taken::First},
    {QLatin1String("Caption"), QLatin1String("TextItem"), Taken::FirstOfSeveral},
    {QLatin1String("Column"), QLatin1String("ToolTip"), Taken::First},
    {QLatin1String("ToolTip"), QLatin1String("TextItem"), Taken::FirstOfSeveral},
    {QLatin1String("Column"), QLatin1String("VisibilityRestriction"), Taken::First},
    {QLatin1String("VisibilityRestriction"), QLatin1String("GroupLevel"), Taken::First},
    {QLatin1String("Column"), QLatin1String("TextLengthRestriction"), Taken::First},
    {QLatin1String("Column"), QLatin1String("NumericRangeRestriction"), Taken::First},
    {QLatin1String("Column"), QLatin1String("ReadOnlyRestriction"), Taken::FirstOfSeveral},
    {QLatin1String("Column"), QLatin1String("VirtualRestriction"), Taken::FirstOfSeveral},
    {QLatin1String("Column"), QLatin1String("ValueListName"), Taken::First},
    {QLatin1String("Column"), QLatin1String("DisplayFormat"), Taken::First},
    {QLatin1String("DisplayFormat"), QLatin1String("ValueFormatItem"), Taken::FirstOfSeveral},

    {QLatin1String(), QLatin1String("ValueList"), Taken::Each},
    {QLatin1String("ValueList"), QLatin1String("ValueListItem"), Taken::Each},
    {QLatin1String("ValueListItem"), QLatin1String("Captions"), Taken::First},
    {QLatin1String("Captions"), QLatin1String("TextItem"), Taken::FirstOfSeveral},

    {QLatin1String(), QLatin1String("DefaultValues"), Taken::First},
    {QLatin1String("DefaultValues"), QLatin1String("DefaultValueScope"), Taken::Each},
    {QLatin1String("DefaultValueScope"), QLatin1String("DefaultValueItem"), Taken::Each},
    {QLatin1String("DefaultValueItem"), QLatin1String("BoundProperty"), Taken::First},

    {QLatin1String(), QLatin1String("ClassificationColorScopes"), Taken::First},
    {QLatin1String("ClassificationColorScopes"), QLatin1String("ClassificationColorScope"), Taken::Each},
    {QLatin1String("ClassificationColorScope"), QLatin1String("ClassificationColor"), Taken::Each},
    {QLatin1String("ClassificationColor"), QLatin1String("Color"), Taken::First},
    {QLatin1String("ClassificationColor"), QLatin1String("TextA"), Taken::First},
    {QLatin1String("TextA"), QLatin1String("TextItem"), Taken::FirstOfSeveral},
    {QLatin1String("ClassificationColor"), QLatin1String("TextB"), Taken::First},
    {QLatin1String("TextB"), QLatin1String("TextItem"), Taken::FirstOfSeveral},
    };
    return rows;
}

// clang-format on

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
    constexpr QLatin1String textElements[] = {QLatin1String("Name"), QLatin1String("Version"),
                                              QLatin1String("TextItem"), QLatin1String("ValueListName")};
    return std::any_of(std::begin(textElements), std::end(textElements),
                       [&element](QLatin1String name) { return element.hasName(name); });
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
