#pragma once

#include "model/CTemplateColumn.h"

namespace Tobrix::Templates {

class CTextColumnPrivate;

/// A column of texts. Identifiers are held as text too.
class TOBRIX_TEMPLATES_EXPORT CTextColumn : public CTemplateColumn
{
public:
    /// A column in which nothing is set yet.
    CTextColumn();

    /// A column with everything set.
    /// @param uniqueId the column's identity
    /// @param boundColumn the database column
    /// @param tableName the database table
    /// @param caption the label
    /// @param toolTip the explanation
    /// @param dataType the data type's code as read
    /// @param unit the unit of the values
    /// @param dataSource the value list or data source
    /// @param defaultValue the value of a new record; invalid for none
    /// @param sortOrder the position in the view
    /// @param groupLevel the grouping
    /// @param typeFlags the class of the data source
    /// @param visible whether the host shows the column
    /// @param readOnly whether users may only look
    /// @param mandatory whether a record needs a value
    /// @param isVirtual whether the value is not stored
    /// @param valueTransfer whether the value is carried over
    /// @param controlType the editor control's code
    /// @param maximumTextLength the longest text, in characters
    /// @param width the width shown, in the host's units
    CTextColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                const QString &caption, const QString &toolTip, const QString &dataType, const QString &unit,
                const QString &dataSource, const QVariant &defaultValue, int sortOrder, GroupLevel groupLevel,
                TypeFlags typeFlags, bool visible, bool readOnly, bool mandatory, bool isVirtual,
                bool valueTransfer, int controlType, int maximumTextLength, int width);

    ~CTextColumn() override;

    /// The longest text that can be stored, in characters.
    /// @return 0 when there is no limit
    int maximumTextLength() const;
    /// Sets the longest text that can be stored, in characters.
    /// @param maximumTextLength the longest text that can be stored, in characters
    void setMaximumTextLength(int maximumTextLength);

private:
    Q_DECLARE_PRIVATE(CTextColumn)
};

} // namespace Tobrix::Templates
