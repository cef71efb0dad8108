#include "rawdata/CTemplateBaseData.h"

namespace Tobrix::Templates {

CTemplateBaseData::CTemplateBaseData() = default;

void CTemplateBaseData::clear()
{
    uniqueId.clear();
    catalogRef.clear();
    catalogProfileRef.clear();
    key.clear();
    type.clear();
    description.clear();
    version.clear();
    unit.clear();
    listNamePrefix.clear();
    isSystem = false;
    isEditable = false;
    isUpdatable = false;
}

} // namespace Tobrix::Templates
