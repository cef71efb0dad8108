#pragma once

#include "model/CTemplateColumn.h"

namespace Tobrix::Templates {

class CDateColumnPrivate;

/// A column of dates. The only kind with a display format.
class TOBRIX_TEMPLATES_EXPORT CDateColumn : public CTemplateColumn
{
public:
    /// A column in which nothing is set yet.
    CDateColumn();

    /// A column with everything set.
    /// @param uniqueId the column's identity
    /// @param boundColumn the database column
    /// @param tableName the database table
    /// @param caption the label
    /// @param toolTip the explanation
    /// @param dataType the data type's code as read
    /// @param unit the unit of the values
    /// @param dataSource the value list or data source
    /// @param displayFormat the format in which dates are displayed
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
    /// @param initializeWithNow whether a new record starts with the current date
    /// @param width the width shown, in the host's units
    CDateColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                const QString &caption, const QString &toolTip, const QString &dataType, const QString &unit,
                const QString &dataSource, const QString &displayFormat, const QVariant &defaultValue,
                int sortOrder, GroupLevel groupLevel, TypeFlags typeFlags, bool visible, bool readOnly,
                bool mandatory, bool isVirtual, bool valueTransfer, int controlType, bool initializeWithNow,
                int width);

    ~CDateColumn() override;

    /// Whether a new record starts with the current date.
    /// @return false when never set
    bool initializeWithNow() const;
    /// Sets whether a new record starts with the current date.
    /// @param initializeWithNow whether a new record starts with the current date
    void setInitializeWithNow(bool initializeWithNow);

    /// The format in which dates are displayed. Logs nothing.
    /// @return empty when the host's own format is used
    QString displayFormat() const override;
    /// Sets the format in which dates are displayed. Logs nothing.
    /// @param displayFormat the format in which dates are displayed; empty for none
    void setDisplayFormat(const QString &displayFormat) override;

private:
    Q_DECLARE_PRIVATE(CDateColumn)
};

} // namespace Tobrix::Templates
