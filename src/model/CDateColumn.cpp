#include "model/CDateColumn.h"

#include "model/CTemplateColumn_p.h"

namespace Tobrix::Templates {

class CDateColumnPrivate : public CTemplateColumnPrivate
{
public:
    CDateColumnPrivate() : CTemplateColumnPrivate(CTemplateColumn::Date) {}

    template <typename... Common>
    CDateColumnPrivate(bool initializeWithNow_, const QString &displayFormat_, Common &&...common)
        : CTemplateColumnPrivate(CTemplateColumn::Date, std::forward<Common>(common)...)
        , initializeWithNow(initializeWithNow_)
        , displayFormat(displayFormat_)
    {
    }

    bool initializeWithNow = false;
    QString displayFormat;
};

CDateColumn::CDateColumn() : CTemplateColumn(*new CDateColumnPrivate)
{
}

CDateColumn::CDateColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                         const QString &caption, const QString &toolTip, const QString &dataType,
                         const QString &unit, const QString &dataSource, const QString &displayFormat,
                         const QVariant &defaultValue, int sortOrder, GroupLevel groupLevel,
                         TypeFlags typeFlags, bool visible, bool readOnly, bool mandatory, bool isVirtual,
                         bool valueTransfer, int controlType, bool initializeWithNow, int width)
    : CTemplateColumn(*new CDateColumnPrivate(
          initializeWithNow, displayFormat, uniqueId, boundColumn, tableName, caption, toolTip, dataType,
          unit, dataSource, defaultValue, sortOrder, groupLevel, typeFlags, visible, readOnly, mandatory,
          isVirtual, valueTransfer, controlType, width))
{
}

CDateColumn::~CDateColumn() = default;

bool CDateColumn::initializeWithNow() const
{
    Q_D(const CDateColumn);
    return d->initializeWithNow;
}

void CDateColumn::setInitializeWithNow(bool initializeWithNow)
{
    Q_D(CDateColumn);
    d->initializeWithNow = initializeWithNow;
}

QString CDateColumn::displayFormat() const
{
    Q_D(const CDateColumn);
    return d->displayFormat;
}

void CDateColumn::setDisplayFormat(const QString &displayFormat)
{
    Q_D(CDateColumn);
    d->displayFormat = displayFormat;
}

} // namespace Tobrix::Templates
