#include "tools/check/model/TemplateModel.h"

#include "loading/MissingDefaults_p.h"
#include "rawdata/SaturatedInt_p.h"

namespace Tobrix::Tools {

using namespace Templates;

ColumnRange ColumnModel::range() const
{
    if (type == CTemplateColumn::Integer) {
        return {static_cast<double>(toSaturatedInt(minimum)), static_cast<double>(toSaturatedInt(maximum))};
    }
    return {minimum, maximum};
}

bool ColumnModel::hasDefault() const
{
    switch (type) {
    case CTemplateColumn::Boolean:
        return defaultValue.text == QLatin1String("true"); // "false" is no value to the library
    case CTemplateColumn::Date:
    case CTemplateColumn::Time:
        return defaultValue.text == todayMarker;
    default:
        return !defaultValue.isEmpty() || isForcedToDefault;
    }
}

void TemplateModel::makeIndex()
{
    m_lists.clear();
    for (std::size_t i = 0; i < lists.size(); ++i) {
        m_lists.insert(lists[i].name, static_cast<int>(i));
    }
    m_columnsOfViews.assign(views.size(), {});
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].view >= 0) {
            m_columnsOfViews[static_cast<std::size_t>(columns[i].view)].push_back(static_cast<int>(i));
        }
    }
}

const ListModel *TemplateModel::list(const QString &name) const
{
    const auto found = m_lists.constFind(name);
    return found == m_lists.cend() ? nullptr : &lists[static_cast<std::size_t>(*found)];
}

std::vector<const ColumnModel *> TemplateModel::columnsOf(std::size_t view) const
{
    std::vector<const ColumnModel *> found;
    for (const int column : m_columnsOfViews[view]) {
        found.push_back(&columns[static_cast<std::size_t>(column)]);
    }
    return found;
}

} // namespace Tobrix::Tools
