#include "model/CTextColumn.h"

#include "model/CTemplateColumn_p.h"

namespace Tobrix::Templates {

class CTextColumnPrivate : public CTemplateColumnPrivate
{
public:
    CTextColumnPrivate() : CTemplateColumnPrivate(CTemplateColumn::Text) {}

    template <typename... Common>
    CTextColumnPrivate(int maximumTextLength_, Common &&...common)
        : CTemplateColumnPrivate(CTemplateColumn::Text, std::forward<Common>(common)...)
        , maximumTextLength(maximumTextLength_)
    {
    }

    int maximumTextLength = 0;
};

CTextColumn::CTextColumn() : CTemplateColumn(*new CTextColumnPrivate)
{
}

CTextColumn::CTextColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                         const QString &caption, const QString &toolTip, const QString &dataType,
                         const QString &unit, const QString &dataSource, const QVariant &defaultValue,
                         int sortOrder, GroupLevel groupLevel, TypeFlags typeFlags, bool visible,
                         bool readOnly, bool mandatory, bool isVirtual, bool valueTransfer, int controlType,
                         int maximumTextLength, int width)
    : CTemplateColumn(*new CTextColumnPrivate(maximumTextLength, uniqueId, boundColumn, tableName, caption,
                                              toolTip, dataType, unit, dataSource, defaultValue, sortOrder,
                                              groupLevel, typeFlags, visible, readOnly, mandatory, isVirtual,
                                              valueTransfer, controlType, width))
{
}

CTextColumn::~CTextColumn() = default;

int CTextColumn::maximumTextLength() const
{
    Q_D(const CTextColumn);
    return d->maximumTextLength;
}

void CTextColumn::setMaximumTextLength(int maximumTextLength)
{
    Q_D(CTextColumn);
    d->maximumTextLength = maximumTextLength;
}

} // namespace Tobrix::Templates
