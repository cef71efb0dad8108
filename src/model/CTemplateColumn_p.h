#pragma once

#include "model/CTemplateColumn.h"

namespace Tobrix::Templates {

/// State that all columns share. Each typed column extends it by its own fields.
class CTemplateColumnPrivate
{
public:
    explicit CTemplateColumnPrivate(CTemplateColumn::ColumnType type);
    CTemplateColumnPrivate(CTemplateColumn::ColumnType type, const QString &uniqueId,
                           const QString &boundColumn, const QString &tableName, const QString &caption,
                           const QString &toolTip, const QString &dataType, const QString &unit,
                           const QString &dataSource, const QVariant &defaultValue, int sortOrder,
                           CTemplateColumn::GroupLevel groupLevel, CTemplateColumn::TypeFlags typeFlags,
                           bool visible, bool readOnly, bool mandatory, bool isVirtual, bool valueTransfer,
                           int controlType, int width);
    virtual ~CTemplateColumnPrivate();

    QString uniqueId;
    QString boundColumn;
    QString tableName;
    QString caption;
    QString toolTip;
    QString dataType;
    QString unit;
    QString dataSource;
    QVariant defaultValue;
    int sortOrder = -1;
    int width = -1;
    CTemplateColumn::GroupLevel groupLevel{};
    const CTemplateColumn::ColumnType columnType;
    CTemplateColumn::TypeFlags typeFlags{};
    // One byte for all five: a template has thousands of columns.
    bool visible : 1;
    bool readOnly : 1;
    bool mandatory : 1;
    bool isVirtual : 1;
    bool valueTransfer : 1;
    int controlType = 0;

private:
    Q_DISABLE_COPY(CTemplateColumnPrivate)
};

} // namespace Tobrix::Templates
