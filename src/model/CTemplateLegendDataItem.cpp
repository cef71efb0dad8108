#include "model/CTemplateLegendDataItem.h"

namespace Tobrix::Templates {

CTemplateLegendDataItem::CTemplateLegendDataItem() = default;

// NOLINTNEXTLINE(readability-make-member-function-const): hosts are linked against it as it is.
bool CTemplateLegendDataItem::operator==(const CTemplateLegendDataItem &other)
{
    return numberFrom == other.numberFrom && numberTo == other.numberTo && color == other.color &&
           textA.simplified() == other.textA.simplified() && textB.simplified() == other.textB.simplified();
}

} // namespace Tobrix::Templates
