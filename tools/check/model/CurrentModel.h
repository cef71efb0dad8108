#pragma once

#include "tools/check/model/TemplateModel.h"

namespace Tobrix::Tools {

class XmlTree;

/// What the current format's reader makes of a document.
TemplateModel currentModel(const XmlTree &document);

} // namespace Tobrix::Tools
