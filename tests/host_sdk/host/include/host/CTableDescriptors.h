#pragma once

#include "host/Export.h"

#include <QString>

namespace Tobrix::Database {

enum DBTableType : int { Nothing = -1, Pipes = 5, Shafts = 6 };

/// Knows its tables by their first letters.
struct PIPEWORKS_API CTableDescriptors final
{
    static DBTableType tableTypeFromTableName(const QString &tableName);
};

} // namespace Tobrix::Database
