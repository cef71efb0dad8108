#include "model/CListItem.h"

namespace Tobrix::Templates {

class CListItemPrivate
{
public:
    QString uniqueId;
    QString item;
    QString caption;
    QString comment;
    QString internalValue;
    int sortOrder = -1;
};

CListItem::CListItem() : d_ptr(new CListItemPrivate)
{
}

CListItem::~CListItem() = default;

QString CListItem::uniqueId() const
{
    Q_D(const CListItem);
    return d->uniqueId;
}

void CListItem::setUniqueId(const QString &uniqueId)
{
    Q_D(CListItem);
    d->uniqueId = uniqueId;
}

QString CListItem::item() const
{
    Q_D(const CListItem);
    return d->item;
}

void CListItem::setItem(const QString &item)
{
    Q_D(CListItem);
    d->item = item;
}

QString CListItem::caption() const
{
    Q_D(const CListItem);
    return d->caption;
}

void CListItem::setCaption(const QString &caption)
{
    Q_D(CListItem);
    d->caption = caption;
}

QString CListItem::comment() const
{
    Q_D(const CListItem);
    return d->comment;
}

void CListItem::setComment(const QString &comment)
{
    Q_D(CListItem);
    d->comment = comment;
}

QString CListItem::internalValue() const
{
    Q_D(const CListItem);
    return d->internalValue;
}

void CListItem::setInternalValue(const QString &internalValue)
{
    Q_D(CListItem);
    d->internalValue = internalValue;
}

int CListItem::sortOrder() const
{
    Q_D(const CListItem);
    return d->sortOrder;
}

void CListItem::setSortOrder(int sortOrder)
{
    Q_D(CListItem);
    d->sortOrder = sortOrder;
}

} // namespace Tobrix::Templates
