#pragma once

#include <QLatin1String>

namespace Tobrix::Templates {

/// Default value for the current date or time in a date or time column.
inline constexpr QLatin1String todayMarker("=Today()");

/// The host's type number of the table that the fixed defaults below are for.
inline constexpr int completedTableType = 5;

/// A database column with a fixed default value for templates that give none.
struct MissingDefaultValue
{
    QLatin1String boundColumn;
    int tableType;
    QLatin1String value;
};

inline constexpr MissingDefaultValue missingDefaultValues[] = {
    {QLatin1String("OBJ_FromNode_REF.OBJ_Type"), completedTableType, QLatin1String("NOD")},
    {QLatin1String("OBJ_ToNode_REF.OBJ_Type"), completedTableType, QLatin1String("NOD")},
    {QLatin1String("OBJ_Type"), completedTableType, QLatin1String("NOD")},
};

/// A database column with fixed visibility, whatever a template says.
struct FixedVisibility
{
    QLatin1String boundColumn;
    int tableType;
    bool visible;
};

inline constexpr FixedVisibility fixedVisibilities[] = {
    {QLatin1String("OBJ_Street"), completedTableType, false},
    {QLatin1String("OBJ_City"), completedTableType, false},
    {QLatin1String("OBJ_CityKey"), completedTableType, false},
    {QLatin1String("OBJ_StreetKey"), completedTableType, false},
};

} // namespace Tobrix::Templates
