#pragma once

#include "model/CTemplateColumn.h"

namespace Tobrix::Templates {

class CTimeColumnPrivate;

/// A column of times of day.
class TOBRIX_TEMPLATES_EXPORT CTimeColumn : public CTemplateColumn
{
public:
    /// A column in which nothing is set yet.
    CTimeColumn();

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
    /// @param initializeWithNow whether a new record starts with the current time
    /// @param width the width shown, in the host's units
    CTimeColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                const QString &caption, const QString &toolTip, const QString &dataType, const QString &unit,
                const QString &dataSource, const QVariant &defaultValue, int sortOrder, GroupLevel groupLevel,
                TypeFlags typeFlags, bool visible, bool readOnly, bool mandatory, bool isVirtual,
                bool valueTransfer, int controlType, bool initializeWithNow, int width);

    ~CTimeColumn() override;

    /// Whether a new record starts with the current time.
    /// @return false when never set
    bool initializeWithNow() const;
    /// Sets whether a new record starts with the current time.
    /// @param initializeWithNow whether a new record starts with the current time
    void setInitializeWithNow(bool initializeWithNow);

private:
    Q_DECLARE_PRIVATE(CTimeColumn)
};

} // namespace Tobrix::Templates
