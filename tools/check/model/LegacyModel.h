#pragma once

#include "xml/XmlTree_p.h"

#include "tools/check/model/TemplateModel.h"

namespace Tobrix::Tools {

/// What the legacy format's reader makes of a document.
TemplateModel legacyModel(const Templates::XmlTree &document);

} // namespace Tobrix::Tools
