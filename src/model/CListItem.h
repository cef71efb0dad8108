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

    /// The item's identity.
    /// @return empty for items of the current format
    QString uniqueId() const;
    /// Sets the item's identity.
    /// @param uniqueId the item's identity; empty for none
    void setUniqueId(const QString &uniqueId);

    /// The value that is stored in a record when the item is chosen.
    /// @return empty when never set
    QString item() const;
    /// Sets the stored value.
    /// @param item the value that is stored in a record when the item is chosen; empty for none
    void setItem(const QString &item);

    /// The text that users see.
    /// @return empty when never set
    QString caption() const;
    /// Sets the text that users see.
    /// @param caption what users see; empty for none
    void setCaption(const QString &caption);

    /// A remark on the item.
    /// @return empty for items of the current format
    QString comment() const;
    /// Sets the remark.
    /// @param comment a remark on the item; empty for none
    void setComment(const QString &comment);

    /// The value that the host calculates with.
    /// @return empty when never set
    QString internalValue() const;
    /// Sets the value that the host calculates with.
    /// @param internalValue the value that the host calculates with; empty for none
    void setInternalValue(const QString &internalValue);

    /// The item's position in its list, ascending.
    /// @return -1 when never set
    int sortOrder() const;
    /// Sets the position. Does not reorder the list.
    /// @param sortOrder the item's position in its list, ascending
    void setSortOrder(int sortOrder);

private:
    Q_DISABLE_COPY(CListItem)
    Q_DECLARE_PRIVATE(CListItem)
    const std::unique_ptr<CListItemPrivate> d_ptr;
};

} // namespace Tobrix::Templates
