#include "loading/ReadContent_p.h"

#include "model/CTemplateColumn.h"
#include "rawdata/CColumnData.h"
#include "rawdata/CTemplateRawData.h"

#include <QStringList>

namespace Tobrix::Templates {

namespace {

/// A column in a sentence: its caption and its binding, as far as it has them.
QString nameOf(const CTemplateColumn &column)
{
    const QString caption = column.caption();
    const QString name = caption.isEmpty() ? QStringLiteral("a column without caption")
                                           : QStringLiteral("column \"%1\"").arg(caption);
    QStringList bound{column.tableName(), column.boundColumn()};
    bound.removeAll(QString());
    return bound.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, bound.join(QLatin1Char('.')));
}

} // namespace

void ReadContent::fileColumn(const CTemplateColumn *column, const CColumnData &data, int element, int)
{
    m_hasAnything = true;
    if (column) {
        m_columns.push_back({element, column, data.viewRef});
    }
}

ColumnsWithoutView ReadContent::firstColumnsWithoutView(const CTemplateRawData &rawData) const
{
    const Column *first = nullptr;
    for (const auto &column : m_columns) {
        if ((!first || column.element < first->element) && !rawData.programViews.contains(column.view)) {
            first = &column;
        }
    }
    if (!first) {
        return {};
    }
    return {first->element, nameOf(*first->column), first->view, rawData.columns.count(first->view) - 1};
}

} // namespace Tobrix::Templates
