#pragma once

#include "xml/XmlTree_p.h"

#include "tools/check/model/TemplateModel.h"

namespace Tobrix::Tools {

/// The model of a document of the current format.
TemplateModel currentModel(const Templates::XmlTree &document);

} // namespace Tobrix::Tools
