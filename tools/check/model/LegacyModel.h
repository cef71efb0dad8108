#pragma once

#include "xml/XmlTree_p.h"

#include "tools/check/model/TemplateModel.h"

namespace Tobrix::Tools {

/// The model of a document of the legacy format.
TemplateModel legacyModel(const Templates::XmlTree &document);

} // namespace Tobrix::Tools
