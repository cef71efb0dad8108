#pragma once

#include "TobrixTemplatesExport.h"
#include "model/CTemplateColumn.h"

#include <QString>
#include <QStringRef>
#include <QVariant>

namespace Tobrix::Templates {

/// The texts of a template file turned into values. All comparisons are exact: letter case and blanks count.
class TOBRIX_TEMPLATES_EXPORT CTemplateDataConverter
{
public:
    CTemplateDataConverter() = delete;

    /// A flag of a template file.
    /// @param text the text as read; may be null
    /// @return true for "true"; false for anything else, "True", "1", "yes" and no text at all among it
    static bool stringToBool(const QStringRef &text);
    /// @overload
    /// @param text the text as read; may be null
    /// @return true for "true" alone
    static bool stringToBool(const QString &text);

    /// True or nothing: a value that is absent and one that is false are the same to a record.
    /// @param text the text as read; may be null
    /// @return a variant holding true for "true", an invalid one for anything else, "false" among it
    static QVariant stringToTobrixBool(const QStringRef &text);
    /// @overload
    /// @param text the text as read; may be null
    /// @return a variant holding true for "true" alone
    static QVariant stringToTobrixBool(const QString &text);

    /// The kind of column that a three-letter code names: "INT", "DEC", "TXT", "GUI" (text), "BOL", "DAT" or
    /// "TIM".
    /// @param text the code as read
    /// @return CTemplateColumn::Unknown for any other text
    static CTemplateColumn::ColumnType stringToColumnType(const QStringRef &text);
};

} // namespace Tobrix::Templates
