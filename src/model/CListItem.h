#pragma once

#include "TobrixTemplatesExport.h"

#include <QString>

#include <memory>

namespace Tobrix::Templates {

class CListItemPrivate;

/// One choice of a named value list. It belongs to the template that holds the list, and is not copied.
///
/// A text that was never set is empty; getters return copies and setters copy.
class TOBRIX_TEMPLATES_EXPORT CListItem
{
public:
    /// An item in which nothing is set yet.
    CListItem();
    /// Deletes the item.
    ~CListItem();

    /// The item's identity; empty for items of the current format.
    QString uniqueId() const;
    /// Sets the item's identity.
    void setUniqueId(const QString &uniqueId);

    /// The value that is stored in a record when the item is chosen.
    QString item() const;
    /// Sets the stored value.
    void setItem(const QString &item);

    /// What users see.
    QString caption() const;
    /// Sets what users see.
    void setCaption(const QString &caption);

    /// A remark on the item; empty for items of the current format.
    QString comment() const;
    /// Sets the remark.
    void setComment(const QString &comment);

    /// The value that the host calculates with.
    QString internalValue() const;
    /// Sets the value that the host calculates with.
    void setInternalValue(const QString &internalValue);

    /// The item's position in its list, ascending; -1 when never set.
    int sortOrder() const;
    /// Sets the position. The list's order does not follow it.
    void setSortOrder(int sortOrder);

private:
    Q_DISABLE_COPY(CListItem)
    Q_DECLARE_PRIVATE(CListItem)
    const std::unique_ptr<CListItemPrivate> d_ptr;
};

} // namespace Tobrix::Templates
