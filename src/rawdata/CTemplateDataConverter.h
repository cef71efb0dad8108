#pragma once

#include "TobrixTemplatesExport.h"
#include "model/CTemplateColumn.h"

#include <QString>
#include <QStringRef>
#include <QVariant>

namespace Tobrix::Templates {

/// Converts the texts of a template file to values. All comparisons are exact: letter case and blanks count.
class TOBRIX_TEMPLATES_EXPORT CTemplateDataConverter
{
public:
    CTemplateDataConverter() = delete;

    /// A flag of a template file.
    /// @param text the text as read; may be null
    /// @return true for "true"; false for any other text, such as "True", "1" or "yes", and for null
    static bool stringToBool(const QStringRef &text);
    /// @overload
    /// @param text the text as read; may be null
    /// @return true for "true" alone
    static bool stringToBool(const QString &text);

    /// True or nothing: a record does not distinguish between an absent value and a false one.
    /// @param text the text as read; may be null
    /// @return a variant holding true for "true"; an invalid one for any other text, "false" included
    static QVariant stringToTobrixBool(const QStringRef &text);
    /// @overload
    /// @param text the text as read; may be null
    /// @return a variant holding true for "true" alone
    static QVariant stringToTobrixBool(const QString &text);

    /// The column type of a three-letter code: "INT", "DEC", "TXT", "GUI" (text), "BOL", "DAT" or "TIM".
    /// @param text the code as read
    /// @return CTemplateColumn::Unknown for any other text
    static CTemplateColumn::ColumnType stringToColumnType(const QStringRef &text);
};

} // namespace Tobrix::Templates
