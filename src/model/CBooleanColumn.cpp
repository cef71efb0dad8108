#include "model/CBooleanColumn.h"

#include "model/CTemplateColumn_p.h"

namespace Tobrix::Templates {

class CBooleanColumnPrivate : public CTemplateColumnPrivate
{
public:
    CBooleanColumnPrivate() : CTemplateColumnPrivate(CTemplateColumn::Boolean) {}

    template <typename... Common>
    explicit CBooleanColumnPrivate(const QString &uniqueId_, Common &&...common)
        : CTemplateColumnPrivate(CTemplateColumn::Boolean, uniqueId_, std::forward<Common>(common)...)
    {
    }
};

CBooleanColumn::CBooleanColumn() : CTemplateColumn(*new CBooleanColumnPrivate)
{
}

CBooleanColumn::CBooleanColumn(const QString &uniqueId, const QString &boundColumn, const QString &tableName,
                               const QString &caption, const QString &toolTip, const QString &dataType,
                               const QString &unit, const QString &dataSource, const QVariant &defaultValue,
                               int sortOrder, GroupLevel groupLevel, TypeFlags typeFlags, bool visible,
                               bool readOnly, bool mandatory, bool isVirtual, bool valueTransfer,
                               int controlType, int width)
    : CTemplateColumn(*new CBooleanColumnPrivate(uniqueId, boundColumn, tableName, caption, toolTip, dataType,
                                                 unit, dataSource, defaultValue, sortOrder, groupLevel,
                                                 typeFlags, visible, readOnly, mandatory, isVirtual,
                                                 valueTransfer, controlType, width))
{
}

CBooleanColumn::~CBooleanColumn() = default;

} // namespace Tobrix::Templates
