#pragma once

#include "tools/check/model/LegacyTokens.h"

#include "format_legacy/LegacyFormat_p.h"

#include <vector>

namespace Tobrix::Tools {

/// What becomes of the text of one element of a section.
struct LegacyReading
{
    int token = 0;
    Templates::XmlElement element;
    int text = -1;           ///< the text node that is read; -1 when none is
    bool isCaptured = false; ///< whether that text stands behind the element, which is empty
    int ignoredText = -1; ///< the first text node of the element that is not read and not blank; -1 for none

    QString value() const { return text < 0 ? QString() : element.tree().textOf(text); }
    int at() const { return text < 0 || isCaptured ? element.at() : element.tree().node(text).at; }
};

/// Reads a section as the format's reader does: every element that the section knows, in the order of the
/// file. The section's own element is none of them.
std::vector<LegacyReading> readSection(const Templates::XmlElement &section, const SectionTokens &tokens,
                                       Templates::Tokens::TemplateToken kind);

} // namespace Tobrix::Tools
