#pragma once

#include "xml/XmlTree_p.h"

#include <QStringList>

namespace Tobrix::Tools {

// The names that the formats' readers know, for rules about names.

/// The elements of the current format.
const QStringList &currentElementNames();

/// Whether the current format's reader knows an element's name.
bool isCurrentElement(const Templates::XmlElement &element);

/// The attributes of an element of the current format that are read.
QStringList currentAttributeNames(const QString &elementName);

/// The elements that the legacy format's reader knows below a section, or below containers for a null one.
QStringList legacyElementNames(const QString &section);

/// The section that an element of the legacy format belongs in; empty for a name that it does not have.
QString legacySectionOf(const QString &elementName);

/// Whether an element of a name is a section of the legacy format, or a part of one. Containers are neither:
/// what a template's root may have besides is anybody's.
bool isSectionOrPart(const QString &elementName);

/// The attributes of an element of the legacy format that are read.
QStringList legacyAttributeNames(const QString &elementName);

} // namespace Tobrix::Tools
