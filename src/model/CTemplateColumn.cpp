#include "model/CTemplateColumn.h"

#include "model/CTemplateColumn_p.h"

#include "host/CLogger.h"

namespace Tobrix::Templates {

namespace {

void warnOfMisuse(const QString &message)
{
    Logging::CLogger::logMessage(static_cast<Logging::LogLevel>(2), QStringLiteral("TemplateColumn"),
                                 message);
}

} // namespace

CTemplateColumnPrivate::CTemplateColumnPrivate(CTemplateColumn::ColumnType type)
    : columnType(type)
    , visible(false)
    , readOnly(false)
    , mandatory(false)
    , isVirtual(false)
    , valueTransfer(false)
{
}

CTemplateColumnPrivate::CTemplateColumnPrivate(
    CTemplateColumn::ColumnType type, const QString &uniqueId_, const QString &boundColumn_,
    const QString &tableName_, const QString &caption_, const QString &toolTip_, const QString &dataType_,
    const QString &unit_, const QString &dataSource_, const QVariant &defaultValue_, int sortOrder_,
    CTemplateColumn::GroupLevel groupLevel_, CTemplateColumn::TypeFlags typeFlags_, bool visible_,
    bool readOnly_, bool mandatory_, bool isVirtual_, bool valueTransfer_, int controlType_, int width_)
    : uniqueId(uniqueId_)
    , boundColumn(boundColumn_)
    , tableName(tableName_)
    , caption(caption_)
    , toolTip(toolTip_)
    , dataType(dataType_)
    , unit(unit_)
    , dataSource(dataSource_)
    , defaultValue(defaultValue_)
    , sortOrder(sortOrder_)
    , width(width_)
    , groupLevel(groupLevel_)
    , columnType(type)
    , typeFlags(typeFlags_)
    , visible(visible_)
    , readOnly(readOnly_)
    , mandatory(mandatory_)
    , isVirtual(isVirtual_)
    , valueTransfer(valueTransfer_)
    , controlType(controlType_)
{
}

CTemplateColumnPrivate::~CTemplateColumnPrivate() = default;

CTemplateColumn::CTemplateColumn(CTemplateColumnPrivate &d) : d_ptr(&d)
{
}

CTemplateColumn::~CTemplateColumn() = default;

QString CTemplateColumn::uniqueId() const
{
    Q_D(const CTemplateColumn);
    return d->uniqueId;
}

void CTemplateColumn::setUniqueId(const QString &uniqueId)
{
    Q_D(CTemplateColumn);
    d->uniqueId = uniqueId;
}

QString CTemplateColumn::boundColumn() const
{
    Q_D(const CTemplateColumn);
    return d->boundColumn;
}

void CTemplateColumn::setBoundColumn(const QString &boundColumn)
{
    Q_D(CTemplateColumn);
    d->boundColumn = boundColumn;
}

QString CTemplateColumn::tableName() const
{
    Q_D(const CTemplateColumn);
    return d->tableName;
}

void CTemplateColumn::setTableName(const QString &tableName)
{
    Q_D(CTemplateColumn);
    d->tableName = tableName;
}

QString CTemplateColumn::caption() const
{
    Q_D(const CTemplateColumn);
    return d->caption;
}

void CTemplateColumn::setCaption(const QString &caption)
{
    Q_D(CTemplateColumn);
    d->caption = caption;
}

QString CTemplateColumn::toolTip() const
{
    Q_D(const CTemplateColumn);
    return d->toolTip;
}

void CTemplateColumn::setToolTip(const QString &toolTip)
{
    Q_D(CTemplateColumn);
    d->toolTip = toolTip;
}

QString CTemplateColumn::dataType() const
{
    Q_D(const CTemplateColumn);
    return d->dataType;
}

void CTemplateColumn::setDataType(const QString &dataType)
{
    Q_D(CTemplateColumn);
    d->dataType = dataType;
}

QString CTemplateColumn::unit() const
{
    Q_D(const CTemplateColumn);
    return d->unit;
}

void CTemplateColumn::setUnit(const QString &unit)
{
    Q_D(CTemplateColumn);
    d->unit = unit;
}

QString CTemplateColumn::dataSource() const
{
    Q_D(const CTemplateColumn);
    return d->dataSource;
}

void CTemplateColumn::setDataSource(const QString &dataSource)
{
    Q_D(CTemplateColumn);
    d->dataSource = dataSource;
}

QString CTemplateColumn::displayFormat() const
{
    warnOfMisuse(QStringLiteral("Tried to GET display format from non-display-formattable."));
    return QString();
}

void CTemplateColumn::setDisplayFormat(const QString &)
{
    warnOfMisuse(QStringLiteral("WARNING: tried to SET display format on non-display-formattable."));
}

int CTemplateColumn::sortOrder() const
{
    Q_D(const CTemplateColumn);
    return d->sortOrder;
}

void CTemplateColumn::setSortOrder(int sortOrder)
{
    Q_D(CTemplateColumn);
    d->sortOrder = sortOrder;
}

int CTemplateColumn::width() const
{
    Q_D(const CTemplateColumn);
    return d->width;
}

void CTemplateColumn::setWidth(int width)
{
    Q_D(CTemplateColumn);
    d->width = width;
}

CTemplateColumn::GroupLevel CTemplateColumn::groupLevel() const
{
    Q_D(const CTemplateColumn);
    return d->groupLevel;
}

void CTemplateColumn::setGroupLevel(GroupLevel groupLevel)
{
    Q_D(CTemplateColumn);
    d->groupLevel = groupLevel;
}

CTemplateColumn::ColumnType CTemplateColumn::columnType() const
{
    Q_D(const CTemplateColumn);
    return d->columnType;
}

CTemplateColumn::TypeFlags CTemplateColumn::typeFlags() const
{
    Q_D(const CTemplateColumn);
    return d->typeFlags;
}

void CTemplateColumn::setTypeFlags(TypeFlags typeFlags)
{
    Q_D(CTemplateColumn);
    d->typeFlags = typeFlags;
}

bool CTemplateColumn::isVisible() const
{
    Q_D(const CTemplateColumn);
    return d->visible;
}

void CTemplateColumn::setVisible(bool visible)
{
    Q_D(CTemplateColumn);
    d->visible = visible;
}

bool CTemplateColumn::isReadOnly() const
{
    Q_D(const CTemplateColumn);
    return d->readOnly;
}

void CTemplateColumn::setReadOnly(bool readOnly)
{
    Q_D(CTemplateColumn);
    d->readOnly = readOnly;
}

bool CTemplateColumn::isMandatory() const
{
    Q_D(const CTemplateColumn);
    return d->mandatory;
}

void CTemplateColumn::setMandatory(bool mandatory)
{
    Q_D(CTemplateColumn);
    d->mandatory = mandatory;
}

bool CTemplateColumn::isVirtual() const
{
    Q_D(const CTemplateColumn);
    return d->isVirtual;
}

void CTemplateColumn::setVirtual(bool isVirtual)
{
    Q_D(CTemplateColumn);
    d->isVirtual = isVirtual;
}

QVariant CTemplateColumn::defaultValue() const
{
    Q_D(const CTemplateColumn);
    return d->defaultValue;
}

void CTemplateColumn::setDefaultValue(const QVariant &defaultValue)
{
    Q_D(CTemplateColumn);
    d->defaultValue = defaultValue;
}

bool CTemplateColumn::hasDefaultValue() const
{
    Q_D(const CTemplateColumn);
    return d->defaultValue.isValid();
}

void CTemplateColumn::setValueTransfer(bool valueTransfer)
{
    Q_D(CTemplateColumn);
    d->valueTransfer = valueTransfer;
}

bool CTemplateColumn::isValueTransfer() const
{
    Q_D(const CTemplateColumn);
    return d->valueTransfer;
}

void CTemplateColumn::setControlType(int controlType)
{
    Q_D(CTemplateColumn);
    d->controlType = controlType;
}

int CTemplateColumn::getControlType() const
{
    Q_D(const CTemplateColumn);
    return d->controlType;
}

} // namespace Tobrix::Templates
