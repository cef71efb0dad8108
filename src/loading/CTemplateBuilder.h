#pragma once

#include "TobrixTemplatesExport.h"

#include <QtGlobal>

namespace Tobrix::Templates {

class CCatalogTemplate;
class CTemplateColumn;
struct CColumnData;
struct CTemplateRawData;

/// Builds a template from a raw record, and typed columns for the readers. One builder serves one
/// buildTemplate() call.
class TOBRIX_TEMPLATES_EXPORT CTemplateBuilder
{
public:
    /// Creates a builder without content.
    CTemplateBuilder();
    /// Deletes nothing: the receiver of a template owns it.
    // NOLINTNEXTLINE(performance-trivially-destructible): hosts are linked against the symbol.
    ~CTemplateBuilder();

    /// Builds a template from a raw record, and moves the views, columns and list items out of the record.
    /// @param rawData the record as a reader filled it
    /// @param isNew true for the current format, whose views already hold their columns; false for the legacy
    ///        format, whose columns are attached to their views here
    /// @return the template, owned by the caller; null when a legacy column names a missing view. The record
    ///        then still owns all views and the columns that were not attached.
    CCatalogTemplate *buildTemplate(CTemplateRawData &rawData, bool isNew);

    /// Builds the typed column of a column record, and completes text and integer columns by
    /// applyMissingDefaults(). Limits of integer columns are saturated; not-a-number becomes 0.
    /// @param data the column as read
    /// @return the column, owned by the caller; null when the record's type is Unknown
    static CTemplateColumn *buildColumn(const CColumnData &data);

    /// Applies the fixed defaults of certain database columns: node types default to "NOD", address columns
    /// are hidden.
    /// @param column the column to complete, not null; not owned
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
