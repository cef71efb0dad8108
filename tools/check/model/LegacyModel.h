#pragma once

#include "tools/check/model/TemplateModel.h"

namespace Tobrix::Tools {

class XmlTree;

/// What the legacy format's reader makes of a document.
TemplateModel legacyModel(const XmlTree &document);

} // namespace Tobrix::Tools
