#pragma once

#include <QLatin1String>

namespace Tobrix::Templates {

/// Default-value text by which a date or time column starts with the current date or time.
inline constexpr QLatin1String todayMarker("=Today()");

/// Table type, by the host's numbering, of the table that the fixed defaults below are for.
inline constexpr int completedTableType = 5;

/// A database column of which a template need not give the default value.
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

/// A database column whose visibility is fixed, whatever a template says.
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
