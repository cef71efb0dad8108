#pragma once

#include "xml/XmlTree_p.h"

#include "tools/check/model/TemplateModel.h"

namespace Tobrix::Tools {

/// What the current format's reader makes of a document.
TemplateModel currentModel(const Templates::XmlTree &document);

} // namespace Tobrix::Tools
