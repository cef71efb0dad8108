#pragma once

#include "xml/XmlTree_p.h"

#include <QStringList>

namespace Tobrix::Tools {

// The names that the format readers know, for rules about names.

/// The elements of the current format.
const QStringList &currentElementNames();

/// Whether the current format has an element of that name.
bool isCurrentElement(const Templates::XmlElement &element);

/// The attributes of an element of the current format that are read.
QStringList currentAttributeNames(const QString &elementName);

/// The elements that the legacy format has in a section, or in containers for a null one.
QStringList legacyElementNames(const QString &section);

/// The section of an element of the legacy format; empty for an unknown name.
QString legacySectionOf(const QString &elementName);

/// Whether a name is that of a section of the legacy format, or of an element in one. Containers are neither:
/// other programs may add elements to a template's root.
bool isSectionOrPart(const QString &elementName);

/// The attributes of an element of the legacy format that are read.
QStringList legacyAttributeNames(const QString &elementName);

} // namespace Tobrix::Tools
