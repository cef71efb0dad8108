#pragma once

#include "xml/XmlTree_p.h"

#include <QString>

namespace Tobrix::Tools {

struct TemplateModel;

/// Something of which a template has more than the library takes.
struct CountExcess
{
    QString words; ///< empty when there is no such thing
    int at = 0;    ///< of the element that is one too many
};

/// Counts what the current format's reader counts: containers in each other share what they hold.
CountExcess excessOfCurrent(const Templates::XmlTree &document);

/// Counts what the legacy format's reader counts: what it would keep.
CountExcess excessOfLegacy(const TemplateModel &model);

} // namespace Tobrix::Tools
