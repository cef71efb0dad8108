#pragma once

#include "model/CTemplateColumn.h"

namespace Tobrix::Templates {

class CDecimalColumnPrivate;

/// A column of numbers with decimal places.
class TOBRIX_TEMPLATES_EXPORT CDecimalColumn : public CTemplateColumn
{
public:
    /// A column in which nothing is set yet.
    CDecimalColumn();

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
    /// @param precision the number of decimal places
    CDecimalColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                   const QString &caption, const QString &toolTip, const QString &dataType,
                   const QString &unit, const QString &dataSource, const QVariant &defaultValue,
                   int sortOrder, GroupLevel groupLevel, TypeFlags typeFlags, bool visible, bool readOnly,
                   bool mandatory, bool isVirtual, bool valueTransfer, int controlType, double minimumValue,
                   double maximumValue, double stepInterval, int width, int precision);

    ~CDecimalColumn() override;

    /// The least value that users may enter, in unit().
    /// @return 0.0 when never set
    double minimumValue() const;
    /// Sets the least value.
    /// @param minimumValue the least value that users may enter, in unit()
    void setMinimumValue(double minimumValue);

    /// The greatest value that users may enter, in unit().
    /// @return 0.0 when never set
    double maximumValue() const;
    /// Sets the greatest value.
    /// @param maximumValue the greatest value that users may enter, in unit()
    void setMaximumValue(double maximumValue);

    /// The step by which an editor counts up and down.
    /// @return 0.0 when there is none
    double stepInterval() const;
    /// Sets the step.
    /// @param stepInterval the step by which an editor counts up and down
    void setStepInterval(double stepInterval);

    /// The number of decimal places.
    /// @return 0 when never set
    int precision() const;
    /// Sets the number of decimal places.
    /// @param precision the number of decimal places
    void setPrecision(int precision);

private:
    Q_DECLARE_PRIVATE(CDecimalColumn)
};

} // namespace Tobrix::Templates
