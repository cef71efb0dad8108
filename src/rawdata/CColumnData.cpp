#include "rawdata/CColumnData.h"

namespace Tobrix::Templates {

CColumnData::CColumnData() = default;

} // namespace Tobrix::Templates
