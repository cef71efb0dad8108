#pragma once

#include "TobrixStandaloneHostExport.h"

#include <QtGlobal>

#include <functional>
#include <memory>

class QString;

namespace Tobrix::Standalone {

class StandaloneHostPrivate;

/// A small host for programs that have no other: it supplies the library with a log, a registry of templates
/// and the types of database tables. All operations may be called from any thread.
///
/// It starts out knowing what the bundled samples need, and logs to standard error.
class TOBRIX_STANDALONE_HOST_EXPORT StandaloneHost
{
public:
    /// The one host of the process.
    /// @return the host, which lives until the process ends
    static StandaloneHost &instance();

    /// Enters a template into the registry, or gives a registered one another type.
    /// @param uniqueId the template's identity
    /// @param type what the registry answers
    void registerTemplate(const QString &uniqueId, const QString &type);

    /// Makes a database table known, or gives a known one another type.
    /// @param tableName the table's name, compared exactly
    /// @param tableType what is answered for the table; unknown tables have type 0
    void registerTable(const QString &tableName, int tableType);

    /// Receives the lines of the log: level, category, message. Called on the thread that logs; several
    /// threads may call it at once.
    using LogSink = std::function<void(int level, const QString &category, const QString &message)>;

    /// Sends the log elsewhere.
    /// @param sink the receiver; an empty one means standard error
    void setLogSink(LogSink sink);

    /// Adds the templates and tables of a configuration file:
    /// @code{.json}
    /// {"templates": {"<unique id>": "<type>"}, "tables": {"<table name>": <type number>}}
    /// @endcode
    /// @param jsonFile path of the file
    /// @param errorMessage receives the file and the reason when the file cannot be used; may be null
    /// @return false when the file cannot be used; the host knows what it knew before then
    bool loadConfiguration(const QString &jsonFile, QString *errorMessage);

    /// Forgets all templates and tables, those of the samples too, and logs to standard error again.
    /// Descriptors that the registry has handed out stay valid.
    void reset();

private:
    friend class StandaloneHostPrivate;
    StandaloneHost();
    ~StandaloneHost();
    Q_DISABLE_COPY(StandaloneHost)

    const std::unique_ptr<StandaloneHostPrivate> d;
};

} // namespace Tobrix::Standalone
