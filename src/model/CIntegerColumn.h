#pragma once

#include "model/CTemplateColumn.h"

namespace Tobrix::Templates {

class CIntegerColumnPrivate;

/// A column of whole numbers.
class TOBRIX_TEMPLATES_EXPORT CIntegerColumn : public CTemplateColumn
{
public:
    /// A column in which nothing is set yet.
    CIntegerColumn();

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
    /// @param minimumValue the least value
    /// @param maximumValue the greatest value
    /// @param stepInterval the editor's step
    /// @param width the width shown, in the host's units
    CIntegerColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                   const QString &caption, const QString &toolTip, const QString &dataType,
                   const QString &unit, const QString &dataSource, const QVariant &defaultValue,
                   int sortOrder, GroupLevel groupLevel, TypeFlags typeFlags, bool visible, bool readOnly,
                   bool mandatory, bool isVirtual, bool valueTransfer, int controlType, int minimumValue,
                   int maximumValue, int stepInterval, int width);

    ~CIntegerColumn() override;

    /// The least value that users may enter.
    /// @return 0 when never set
    int minimumValue() const;
    /// Sets the least value.
    /// @param minimumValue the least value that users may enter
    void setMinimumValue(int minimumValue);

    /// The greatest value that users may enter.
    /// @return 0 when never set
    int maximumValue() const;
    /// Sets the greatest value.
    /// @param maximumValue the greatest value that users may enter
    void setMaximumValue(int maximumValue);

    /// The step by which an editor counts up and down.
    /// @return 0 when there is none
    int stepInterval() const;
    /// Sets the step.
    /// @param stepInterval the step by which an editor counts up and down
    void setStepInterval(int stepInterval);

private:
    Q_DECLARE_PRIVATE(CIntegerColumn)
};

} // namespace Tobrix::Templates
