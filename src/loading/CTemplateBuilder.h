#pragma once

#include "TobrixTemplatesExport.h"

#include <QtGlobal>

namespace Tobrix::Templates {

class CCatalogTemplate;
class CTemplateColumn;
struct CColumnData;
struct CTemplateRawData;

/// Makes a template of what a reader found, and typed columns for the readers. One builder serves one
/// buildTemplate() call.
class TOBRIX_TEMPLATES_EXPORT CTemplateBuilder
{
public:
    /// A builder with nothing in hand.
    CTemplateBuilder();
    /// Deletes nothing: a template that was built is its receiver's.
    // NOLINTNEXTLINE(performance-trivially-destructible): hosts are linked against the symbol.
    ~CTemplateBuilder();

    /// Makes a template of a raw record and takes the views, columns and list items out of the record.
    /// @param rawData the record as a reader filled it
    /// @param isNew true for the current format, whose views hold their columns already; false for the legacy
    ///        format, whose columns are attached to their views here
    /// @return the template, owned by the caller; null when a legacy column names a view that is not there.
    ///        The record then still owns all views and the columns that were not attached to one.
    CCatalogTemplate *buildTemplate(CTemplateRawData &rawData, bool isNew);

    /// Makes the typed column for a column record, and completes text and integer columns by
    /// applyMissingDefaults(). Limits that an integer column cannot hold become the nearest number that it
    /// can, not-a-number becomes 0.
    /// @param data the column as read
    /// @return the column, owned by the caller; null when the record's type is none of the six
    static CTemplateColumn *buildColumn(const CColumnData &data);

    /// Supplies what the data model needs for certain database columns: node types default to "NOD", address
    /// columns are hidden.
    /// @param column the column to complete, not null; stays the caller's
    static void applyMissingDefaults(CTemplateColumn *column);

private:
    Q_DISABLE_COPY(CTemplateBuilder)

    TOBRIX_TEMPLATES_NO_EXPORT void assignTemplateBaseData();
    TOBRIX_TEMPLATES_NO_EXPORT bool associateColumnsWithProgramViews();
    TOBRIX_TEMPLATES_NO_EXPORT void buildLists();

    CTemplateRawData *m_rawData = nullptr;
    CCatalogTemplate *m_template = nullptr;
};

} // namespace Tobrix::Templates
