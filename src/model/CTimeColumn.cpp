#include "model/CTimeColumn.h"

#include "model/CTemplateColumn_p.h"

namespace Tobrix::Templates {

class CTimeColumnPrivate : public CTemplateColumnPrivate
{
public:
    CTimeColumnPrivate() : CTemplateColumnPrivate(CTemplateColumn::Time) {}

    template <typename... Common>
    CTimeColumnPrivate(bool initializeWithNow_, Common &&...common)
        : CTemplateColumnPrivate(CTemplateColumn::Time, std::forward<Common>(common)...)
        , initializeWithNow(initializeWithNow_)
    {
    }

    bool initializeWithNow = false;
};

CTimeColumn::CTimeColumn() : CTemplateColumn(*new CTimeColumnPrivate)
{
}

CTimeColumn::CTimeColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                         const QString &caption, const QString &toolTip, const QString &dataType,
                         const QString &unit, const QString &dataSource, const QVariant &defaultValue,
                         int sortOrder, GroupLevel groupLevel, TypeFlags typeFlags, bool visible,
                         bool readOnly, bool mandatory, bool isVirtual, bool valueTransfer, int controlType,
                         bool initializeWithNow, int width)
    : CTemplateColumn(*new CTimeColumnPrivate(initializeWithNow, uniqueId, boundColumn, tableName, caption,
                                              toolTip, dataType, unit, dataSource, defaultValue, sortOrder,
                                              groupLevel, typeFlags, visible, readOnly, mandatory, isVirtual,
                                              valueTransfer, controlType, width))
{
}

CTimeColumn::~CTimeColumn() = default;

bool CTimeColumn::initializeWithNow() const
{
    Q_D(const CTimeColumn);
    return d->initializeWithNow;
}

void CTimeColumn::setInitializeWithNow(bool initializeWithNow)
{
    Q_D(CTimeColumn);
    d->initializeWithNow = initializeWithNow;
}

} // namespace Tobrix::Templates
