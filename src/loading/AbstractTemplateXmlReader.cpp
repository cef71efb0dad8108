#include "loading/AbstractTemplateXmlReader.h"

namespace Tobrix::Templates {

AbstractTemplateXmlReader::AbstractTemplateXmlReader() = default;

AbstractTemplateXmlReader::~AbstractTemplateXmlReader() = default;

} // namespace Tobrix::Templates
