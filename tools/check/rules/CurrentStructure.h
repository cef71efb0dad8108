#pragma once

#include "format_current/CurrentFormat_p.h"
#include "xml/XmlTree_p.h"

#include <QStringList>

#include <vector>

namespace Tobrix::Tools {

/// Which elements of a name the host takes from a container.
using Taken = Templates::CurrentTake;

/// An element of the current format, and what the host looks for it in: at any depth.
struct StructureRow
{
    QLatin1String container; // none for the whole document
    QLatin1String part;
    Taken taken;
};

/// All places in which elements of the current format mean something.
const std::vector<StructureRow> &currentStructure();

/// The elements that the host looks for in a container.
QStringList partsOf(const QString &container);

/// The containers that the host looks for an element in.
QStringList containersOf(const QString &part);

/// Whether an element is one whose text is read: all of it, whatever elements it stands in.
bool isTextElement(const Templates::XmlElement &element);

/// The nearest element of a name around another one; null when there is none.
Templates::XmlElement nearestAround(const Templates::XmlElement &element, QLatin1String name);

/// The elements of a document of the current format that stand where the host looks for them, or where a rule
/// of their own says that it does not.
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
