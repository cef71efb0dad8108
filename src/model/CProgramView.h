#pragma once

#include "TobrixTemplatesExport.h"

#include <QList>
#include <QString>

#include <memory>

namespace Tobrix::Templates {

class CProgramViewPrivate;
class CTemplateColumn;

/// A named, ordered set of columns that a host shows as one form or grid. It belongs to its template, owns
/// its columns, and is not copied. Unset texts are empty; getters return copies and setters copy.
class TOBRIX_TEMPLATES_EXPORT CProgramView
{
public:
    /// A view without columns.
    CProgramView();
    /// Deletes the view and its columns.
    ~CProgramView();

    /// The view's identity.
    /// @return empty when never set
    QString uniqueId() const;
    /// Sets the view's identity.
    /// @param uniqueId the view's identity; empty for none
    void setUniqueId(const QString &uniqueId);

    /// The name by which hosts ask for the view.
    /// @return empty when never set
    QString key() const;
    /// Sets the name by which hosts ask for the view.
    /// @param key the name by which hosts ask for the view; empty for none
    void setKey(const QString &key);

    /// The description of the view.
    /// @return empty when never set
    QString description() const;
    /// Sets the description of the view.
    /// @param description what the view is for, in words; empty for none
    void setDescription(const QString &description);

    /// Deletes the view's columns and takes ownership of others.
    /// @param columns the new columns in the order to show; none of them may belong to this or another view.
    ///        An entry may be null, for a column of unknown data type.
    void setColumns(const QList<CTemplateColumn *> &columns);

    /// The number of columns, null entries included.
    /// @return 0 when there is none
    int columnCount() const;

    /// The column at a position, owned by the view.
    /// @param index the position, from 0
    /// @return null when there is no such position, or a column of unknown data type at it
    CTemplateColumn *column(int index) const;

    /// The first column with a binding to a database column, owned by the view.
    /// @param name the database column, compared exactly (not the column's unique id or caption)
    /// @return null when no column is bound to it
    CTemplateColumn *column(const QString &name) const;

private:
    Q_DISABLE_COPY(CProgramView)
    Q_DECLARE_PRIVATE(CProgramView)
    const std::unique_ptr<CProgramViewPrivate> d_ptr;
};

} // namespace Tobrix::Templates
