#pragma once

#include "TobrixTemplatesExport.h"
#include "model/CTemplateColumn.h"

#include <QString>

namespace Tobrix::Templates {

/// One column as it was read, before it becomes a typed column. Texts that the file does not give are empty.
///
/// The record may grow at its end in a minor version: code that makes, copies or embeds one is compiled with
/// the headers of the library that it runs with. Derive nothing from it.
struct TOBRIX_TEMPLATES_EXPORT CColumnData
{
    /// A column of unknown type with nothing set.
    CColumnData();

    QString uniqueId;      ///< Identity of the column.
    QString viewRef;       ///< Unique id of the view that the column belongs to.
    QString boundColumn;   ///< Database column.
    QString caption;       ///< Label.
    QString unit;          ///< Unit of the values.
    QString dataSource;    ///< Value list or data source.
    QString defaultValue;  ///< Default value as text; its meaning depends on the type.
    QString tableName;     ///< Database table.
    QString displayFormat; ///< Format in which dates are displayed.
    QString dataType;      ///< Code of the data type, as read.
    QString toolTip;       ///< Explanation.
    /// Least value. The default range is symmetric: one above the least 32-bit number.
    double minimumValue = -2147483647.0;
    double maximumValue = 2147483647.0;       ///< Greatest value.
    double stepInterval = 0.0;                ///< Step of the editor.
    int maximumTextLength = 0;                ///< Longest text, in characters; 0 for no limit.
    int sortOrder = 0;                        ///< Position in the view.
    int width = 0;                            ///< Width shown, in the host's units.
    int precision = 2;                        ///< Decimal places.
    int controlType = 0;                      ///< Code of the editor control.
    CTemplateColumn::GroupLevel groupLevel{}; ///< Grouping.
    CTemplateColumn::ColumnType columnType = CTemplateColumn::Unknown; ///< Kind of typed column to make.
    CTemplateColumn::TypeFlags typeFlags{};                            ///< Class of the data source.
    bool isVisible = false;                                            ///< Whether the host shows the column.
    bool isReadOnly = false;                                           ///< Whether users cannot edit it.
    bool isMandatory = false;                                          ///< Whether a record needs a value.
    bool isVirtual = false;                                            ///< Whether the value is not stored.
    bool isValueTransfer = false;                                      ///< Whether the value is carried over.
};

} // namespace Tobrix::Templates
