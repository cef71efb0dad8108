#include "rawdata/CTemplateRawData.h"

#include "model/CListItem.h"
#include "model/CProgramView.h"
#include "model/CTemplateColumn.h"

namespace Tobrix::Templates {

CTemplateRawData::CTemplateRawData() = default;

CTemplateRawData::~CTemplateRawData()
{
    clear();
}

void CTemplateRawData::clear()
{
    CTemplateBaseData::clear();
    legendB.clear();
    legendA.clear();
    qDeleteAll(listItems);
    listItems.clear();
    qDeleteAll(columns);
    columns.clear();
    qDeleteAll(programViews);
    programViews.clear();
}

} // namespace Tobrix::Templates
