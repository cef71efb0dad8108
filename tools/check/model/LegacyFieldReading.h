#pragma once

#include "tools/check/model/LegacyTokens.h"

#include "format_legacy/LegacyFormat_p.h"

#include <vector>

namespace Tobrix::Tools {

/// How the text of one element of a section is read.
struct LegacyReading
{
    int token = 0;
    Templates::XmlElement element;
    int text = -1;           ///< the text node that is read; -1 when none is
    bool isCaptured = false; ///< whether that text follows the element, which is empty
    int ignoredText = -1; ///< the element's first text node that is neither read nor whitespace; -1 for none

    QString value() const { return text < 0 ? QString() : element.tree().textOf(text); }
    int at() const { return text < 0 || isCaptured ? element.at() : element.tree().node(text).at; }
};

/// Reads a section as the format reader does: every known element, in the order of the file, without the
/// section's own element.
std::vector<LegacyReading> readSection(const Templates::XmlElement &section, const SectionTokens &tokens,
                                       Templates::Tokens::TemplateToken kind);

} // namespace Tobrix::Tools
