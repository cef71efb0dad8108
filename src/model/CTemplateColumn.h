#pragma once

#include "TobrixTemplatesExport.h"

#include <QString>
#include <QVariant>

#include <memory>

namespace Tobrix::Templates {

class CTemplateColumnPrivate;

/// One field of a program view: its database column, caption, position and editor. Every column is one of the
/// six typed columns, see columnType(). It belongs to its view, and is not copied. Unless documented
/// otherwise, unset texts are empty, getters return copies and setters copy.
class TOBRIX_TEMPLATES_EXPORT CTemplateColumn
{
public:
    /// Kind of the values in a column; each kind has a class of its own.
    enum ColumnType : int {
        Unknown = 0, ///< no known kind; no column object has it
        Text = 1,    ///< CTextColumn; identifiers are held as text too
        Integer = 2, ///< CIntegerColumn
        Decimal = 3, ///< CDecimalColumn
        Boolean = 4, ///< CBooleanColumn
        Date = 5,    ///< CDateColumn
        Time = 6     ///< CTimeColumn
    };

    /// Grouping of a column in its view, as read: a bit mask of levels (bit n-1 for level n) in the current
    /// format, a plain number in the legacy format. 0 is no grouping.
    enum GroupLevel : int {};

    /// Where a column's choices come from, as read: the class number of its value list in the current format,
    /// the type number of its data source in the legacy format. 0 is none.
    enum TypeFlags : int {};

    /// Deletes the column with everything that its kind adds.
    virtual ~CTemplateColumn();

    /// The column's identity.
    /// @return empty for columns of the current format
    QString uniqueId() const;
    /// Sets the column's identity.
    /// @param uniqueId the column's identity; empty for none
    virtual void setUniqueId(const QString &uniqueId);

    /// The database column that this column shows and edits.
    /// @return empty when never set
    virtual QString boundColumn() const;
    /// Sets the database column.
    /// @param boundColumn the database column that this column shows and edits; empty for none
    virtual void setBoundColumn(const QString &boundColumn);

    /// The database table that boundColumn() belongs to.
    /// @return empty when never set
    virtual QString tableName() const;
    /// Sets the database table.
    /// @param tableName the database table that boundColumn() belongs to; empty for none
    virtual void setTableName(const QString &tableName);

    /// The label that users see.
    /// @return empty when never set
    virtual QString caption() const;
    /// Sets the label.
    /// @param caption the label that users see; empty for none
    virtual void setCaption(const QString &caption);

    /// The explanation that users see when they point at the column.
    /// @return empty when never set
    virtual QString toolTip() const;
    /// Sets the explanation.
    /// @param toolTip the explanation that users see when they point at the column; empty for none
    virtual void setToolTip(const QString &toolTip);

    /// The three-letter code of the data type as it was read, such as "TXT".
    /// @return empty when never set
    virtual QString dataType() const;
    /// Sets the data type's code. Does not change columnType().
    /// @param dataType the three-letter code of the data type as it was read, such as "TXT"; empty for none
    virtual void setDataType(const QString &dataType);

    /// The unit of the values, as text such as "mm".
    /// @return empty when never set
    virtual QString unit() const;
    /// Sets the unit.
    /// @param unit the unit of the values, as text such as "mm"; empty for none
    virtual void setUnit(const QString &unit);

    /// The name of the value list or data source that offers the choices.
    /// @return empty when values are typed in freely
    virtual QString dataSource() const;
    /// Sets the name of the value list or data source.
    /// @param dataSource the name of the value list or data source that offers the choices;  empty for
    ///        none
    virtual void setDataSource(const QString &dataSource);

    /// The format in which values are displayed. Only date columns have one; any other column logs a warning
    /// and returns an empty text.
    /// @return empty when never set
    virtual QString displayFormat() const;
    /// Sets the display format. Any other column than a date column logs a warning and changes nothing.
    /// @param displayFormat the format in which values are displayed; empty for none
    virtual void setDisplayFormat(const QString &displayFormat);

    /// The column's position in its view, ascending.
    /// @return -1 when never set
    virtual int sortOrder() const;
    /// Sets the position. Does not reorder the view.
    /// @param sortOrder the column's position in its view, ascending
    virtual void setSortOrder(int sortOrder);

    /// The width in which the column is shown, in the host's units.
    /// @return -1 when never set
    virtual int width() const;
    /// Sets the width.
    /// @param width the width in which the column is shown, in the host's units
    virtual void setWidth(int width);

    /// The grouping of the column.
    /// @return 0 when never set
    virtual GroupLevel groupLevel() const;
    /// Sets the grouping; any number is kept as it is.
    /// @param groupLevel the grouping of the column
    virtual void setGroupLevel(GroupLevel groupLevel);

    /// The kind of the column, fixed by its class: which class to cast the column to.
    /// @return never Unknown
    virtual ColumnType columnType() const;

    /// The class of the data source.
    /// @return 0 when never set
    virtual TypeFlags typeFlags() const;
    /// Sets the class of the data source; any number is kept as it is.
    /// @param typeFlags the class of the data source
    virtual void setTypeFlags(TypeFlags typeFlags);

    /// Whether the host shows the column.
    /// @return false when never set
    virtual bool isVisible() const;
    /// Shows or hides the column.
    /// @param visible whether the host shows the column
    virtual void setVisible(bool visible);

    /// Whether users can only read the value.
    /// @return false when never set
    virtual bool isReadOnly() const;
    /// Sets whether users can only read the value.
    /// @param readOnly whether users can only read the value
    virtual void setReadOnly(bool readOnly);

    /// Whether a record needs a value here.
    /// @return false when never set
    virtual bool isMandatory() const;
    /// Sets whether a record needs a value here.
    /// @param mandatory whether a record needs a value here
    virtual void setMandatory(bool mandatory);

    /// Whether the value is not stored in the database.
    /// @return false when never set
    virtual bool isVirtual() const;
    /// Sets whether the value is not stored in the database.
    /// @param isVirtual whether the value is not stored in the database
    virtual void setVirtual(bool isVirtual);

    /// The value of a new record.
    /// @return an invalid variant when there is none
    virtual QVariant defaultValue() const;
    /// Sets the value of a new record.
    /// @param defaultValue the value of a new record
    virtual void setDefaultValue(const QVariant &defaultValue);
    /// Whether there is a default value. Only the variant's type counts: a typed null value is a default
    /// value.
    /// @return false when never set
    virtual bool hasDefaultValue() const;

    /// Sets whether the value is carried over to the next new record.
    /// @param valueTransfer whether the value is carried over to the next new record
    virtual void setValueTransfer(bool valueTransfer);
    /// Whether the value is carried over to the next new record.
    /// @return false when never set
    virtual bool isValueTransfer() const;

    /// Sets the code of the editor control.
    /// @param controlType the code of the editor control, 0 (none) to 19
    virtual void setControlType(int controlType);
    /// The code of the editor control, 0 (none) to 19; any number that was read is kept.
    /// @return 0 when never set
    virtual int getControlType() const;

protected:
    /// A column on the state of a typed column.
    /// @param d the state that the typed column has created; owned by the column from now on
    explicit CTemplateColumn(CTemplateColumnPrivate &d);

    /// The column's state; of the private class that belongs to the object's class.
    const std::unique_ptr<CTemplateColumnPrivate> d_ptr;

private:
    Q_DISABLE_COPY(CTemplateColumn)
    Q_DECLARE_PRIVATE(CTemplateColumn)
};

} // namespace Tobrix::Templates
