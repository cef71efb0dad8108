#include "model/CDecimalColumn.h"

#include "model/CTemplateColumn_p.h"

namespace Tobrix::Templates {

class CDecimalColumnPrivate : public CTemplateColumnPrivate
{
public:
    CDecimalColumnPrivate() : CTemplateColumnPrivate(CTemplateColumn::Decimal) {}

    template <typename... Common>
    CDecimalColumnPrivate(double minimumValue_, double maximumValue_, double stepInterval_, int precision_,
                          Common &&...common)
        : CTemplateColumnPrivate(CTemplateColumn::Decimal, std::forward<Common>(common)...)
        , minimumValue(minimumValue_)
        , maximumValue(maximumValue_)
        , stepInterval(stepInterval_)
        , precision(precision_)
    {
    }

    double minimumValue = 0.0;
    double maximumValue = 0.0;
    double stepInterval = 0.0;
    int precision = 0;
};

CDecimalColumn::CDecimalColumn() : CTemplateColumn(*new CDecimalColumnPrivate)
{
}

CDecimalColumn::CDecimalColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                               const QString &caption, const QString &toolTip, const QString &dataType,
                               const QString &unit, const QString &dataSource, const QVariant &defaultValue,
                               int sortOrder, GroupLevel groupLevel, TypeFlags typeFlags, bool visible,
                               bool readOnly, bool mandatory, bool isVirtual, bool valueTransfer,
                               int controlType, double minimumValue, double maximumValue, double stepInterval,
                               int width, int precision)
    : CTemplateColumn(*new CDecimalColumnPrivate(
          minimumValue, maximumValue, stepInterval, precision, uniqueId, boundColumn, tableName, caption,
          toolTip, dataType, unit, dataSource, defaultValue, sortOrder, groupLevel, typeFlags, visible,
          readOnly, mandatory, isVirtual, valueTransfer, controlType, width))
{
}

CDecimalColumn::~CDecimalColumn() = default;

double CDecimalColumn::minimumValue() const
{
    Q_D(const CDecimalColumn);
    return d->minimumValue;
}

void CDecimalColumn::setMinimumValue(double minimumValue)
{
    Q_D(CDecimalColumn);
    d->minimumValue = minimumValue;
}

double CDecimalColumn::maximumValue() const
{
    Q_D(const CDecimalColumn);
    return d->maximumValue;
}

void CDecimalColumn::setMaximumValue(double maximumValue)
{
    Q_D(CDecimalColumn);
    d->maximumValue = maximumValue;
}

double CDecimalColumn::stepInterval() const
{
    Q_D(const CDecimalColumn);
    return d->stepInterval;
}

void CDecimalColumn::setStepInterval(double stepInterval)
{
    Q_D(CDecimalColumn);
    d->stepInterval = stepInterval;
}

int CDecimalColumn::precision() const
{
    Q_D(const CDecimalColumn);
    return d->precision;
}

void CDecimalColumn::setPrecision(int precision)
{
    Q_D(CDecimalColumn);
    d->precision = precision;
}

} // namespace Tobrix::Templates
