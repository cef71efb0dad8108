#pragma once

#include "model/CTemplateColumn.h"

#include <QLatin1String>

namespace Tobrix::Templates {

/// The code of a data type in a file, and its column type.
struct ColumnTypeCode
{
    QLatin1String code;
    CTemplateColumn::ColumnType type;
};

// clang-format off
inline constexpr ColumnTypeCode columnTypeCodes[] = {
    {QLatin1String("INT"), CTemplateColumn::Integer},
    {QLatin1String("DEC"), CTemplateColumn::Decimal},
    {QLatin1String("TXT"), CTemplateColumn::Text},
    {QLatin1String("GUI"), CTemplateColumn::Text},
    {QLatin1String("BOL"), CTemplateColumn::Boolean},
    {QLatin1String("DAT"), CTemplateColumn::Date},
    {QLatin1String("TIM"), CTemplateColumn::Time},
};
// clang-format on

} // namespace Tobrix::Templates
