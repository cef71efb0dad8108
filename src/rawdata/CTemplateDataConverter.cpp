#include "rawdata/CTemplateDataConverter.h"

#include "rawdata/ColumnTypeCodes_p.h"

namespace Tobrix::Templates {

bool CTemplateDataConverter::stringToBool(const QStringRef &text)
{
    return text == QLatin1String("true");
}

bool CTemplateDataConverter::stringToBool(const QString &text)
{
    return stringToBool(QStringRef(&text));
}

QVariant CTemplateDataConverter::stringToTobrixBool(const QStringRef &text)
{
    return stringToBool(text) ? QVariant(true) : QVariant();
}

QVariant CTemplateDataConverter::stringToTobrixBool(const QString &text)
{
    return stringToTobrixBool(QStringRef(&text));
}

CTemplateColumn::ColumnType CTemplateDataConverter::stringToColumnType(const QStringRef &text)
{
    for (const auto &entry : columnTypeCodes) {
        if (text == entry.code) {
            return entry.type;
        }
    }
    return CTemplateColumn::Unknown;
}

} // namespace Tobrix::Templates
