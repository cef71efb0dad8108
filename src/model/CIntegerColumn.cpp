#include "model/CIntegerColumn.h"

#include "model/CTemplateColumn_p.h"

namespace Tobrix::Templates {

class CIntegerColumnPrivate : public CTemplateColumnPrivate
{
public:
    CIntegerColumnPrivate() : CTemplateColumnPrivate(CTemplateColumn::Integer) {}

    template <typename... Common>
    CIntegerColumnPrivate(int minimumValue_, int maximumValue_, int stepInterval_, Common &&...common)
        : CTemplateColumnPrivate(CTemplateColumn::Integer, std::forward<Common>(common)...)
        , minimumValue(minimumValue_)
        , maximumValue(maximumValue_)
        , stepInterval(stepInterval_)
    {
    }

    int minimumValue = 0;
    int maximumValue = 0;
    int stepInterval = 0;
};

CIntegerColumn::CIntegerColumn() : CTemplateColumn(*new CIntegerColumnPrivate)
{
}

CIntegerColumn::CIntegerColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                               const QString &caption, const QString &toolTip, const QString &dataType,
                               const QString &unit, const QString &dataSource, const QVariant &defaultValue,
                               int sortOrder, GroupLevel groupLevel, TypeFlags typeFlags, bool visible,
                               bool readOnly, bool mandatory, bool isVirtual, bool valueTransfer,
                               int controlType, int minimumValue, int maximumValue, int stepInterval,
                               int width)
    : CTemplateColumn(*new CIntegerColumnPrivate(
          minimumValue, maximumValue, stepInterval, uniqueId, boundColumn, tableName, caption, toolTip,
          dataType, unit, dataSource, defaultValue, sortOrder, groupLevel, typeFlags, visible, readOnly,
          mandatory, isVirtual, valueTransfer, controlType, width))
{
}

CIntegerColumn::~CIntegerColumn() = default;

int CIntegerColumn::minimumValue() const
{
    Q_D(const CIntegerColumn);
    return d->minimumValue;
}

void CIntegerColumn::setMinimumValue(int minimumValue)
{
    Q_D(CIntegerColumn);
    d->minimumValue = minimumValue;
}

int CIntegerColumn::maximumValue() const
{
    Q_D(const CIntegerColumn);
    return d->maximumValue;
}

void CIntegerColumn::setMaximumValue(int maximumValue)
{
    Q_D(CIntegerColumn);
    d->maximumValue = maximumValue;
}

int CIntegerColumn::stepInterval() const
{
    Q_D(const CIntegerColumn);
    return d->stepInterval;
}

void CIntegerColumn::setStepInterval(int stepInterval)
{
    Q_D(CIntegerColumn);
    d->stepInterval = stepInterval;
}

} // namespace Tobrix::Templates
