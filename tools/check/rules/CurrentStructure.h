#pragma once

#include "format_current/CurrentFormat_p.h"
#include "xml/XmlTree_p.h"

#include <QStringList>

#include <vector>

namespace Tobrix::Tools {

/// Which elements of a name the host takes from a container.
using Taken = Templates::CurrentTake;

/// An element of the current format, and the container in which the host looks for it, at any depth.
struct StructureRow
{
    QLatin1String container; // empty for the whole document
    QLatin1String part;
    Taken taken;
};

/// All places in which elements of the current format have a meaning.
const std::vector<StructureRow> &currentStructure();

/// The elements that the host looks for in a container.
QStringList partsOf(const QString &container);

/// The containers that the host looks for an element in.
QStringList containersOf(const QString &part);

/// Whether all text of an element is read, that of its descendants included.
bool isTextElement(const Templates::XmlElement &element);

/// The nearest ancestor with a name; null when there is none.
Templates::XmlElement nearestAround(const Templates::XmlElement &element, QLatin1String name);

/// The elements of a current-format document in a place where the host looks for them, or that another rule
/// reports.
class PlacedElements
{
public:
    explicit PlacedElements(const Templates::XmlTree &document);

    /// Whether an element is one of them.
    bool contain(const Templates::XmlElement &element) const;
    /// Whether there are any below an element.
    bool areWithin(const Templates::XmlElement &element) const;

private:
    std::vector<int> m_countBefore; // by the indexes of nodes
};

} // namespace Tobrix::Tools
