#include "tools/check/model/ModelBuilding.h"

#include "loading/MissingDefaults_p.h"

#include "host/CTableDescriptors.h"

#include <algorithm>
#include <iterator>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

template <typename Rows>
bool hasFixedValue(const ColumnModel &column, const Rows &rows)
{
    const auto isMeant = [&column](const auto &row) { return column.path == row.boundColumn; };
    const auto row = std::find_if(std::begin(rows), std::end(rows), isMeant);
    return row != std::end(rows) && static_cast<Database::DBTableType>(row->tableType) ==
                                        Database::CTableDescriptors::tableTypeFromTableName(column.table);
}

} // namespace

void applyFixedValues(ColumnModel &column)
{
    const bool isText = column.type == CTemplateColumn::Text;
    if (!isText && column.type != CTemplateColumn::Integer) {
        return;
    }
    column.isAlwaysHidden = hasFixedValue(column, fixedVisibilities);
    column.isVisible = column.isVisible && !column.isAlwaysHidden;
    column.isForcedToDefault =
        isText && !column.defaultValue.isGiven() && hasFixedValue(column, missingDefaultValues);
}

void keepNumbersOf(const ColumnModel &column, const QString &fromName, const QString &toName,
                   const QString &stepName, std::vector<ReadValue> &values)
{
    if (!column.isNumeric()) {
        return;
    }
    const ValueKind kind = column.type == CTemplateColumn::Integer ? ValueKind::WholeOfReal : ValueKind::Real;
    values.push_back({column.rangeFrom, fromName, kind});
    values.push_back({column.rangeTo, toName, kind});
    values.push_back({column.step, stepName, kind});
}

std::vector<ListModel> listsOf(const ListsByName &lists)
{
    return std::vector<ListModel>(lists.cbegin(), lists.cend());
}

} // namespace Tobrix::Tools
