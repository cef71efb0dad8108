#pragma once

#include <QtGlobal>

class QString;

namespace Tobrix::Database {

/// Kind of a database table, as a number of the host's. The library knows one of them by number: 5, the table
/// whose node types default to "NOD" and whose address columns are hidden.
enum class DBTableType : int;

/// The host's knowledge of the database tables. Supplied by the host.
class Q_DECL_IMPORT CTableDescriptors
{
public:
    /// The kind of a table.
    /// @param tableName the table's name as a template file gives it; may be empty
    /// @return the kind; what an unknown name gives is the host's to say
    static DBTableType tableTypeFromTableName(const QString &tableName);
};

} // namespace Tobrix::Database
