#pragma once

#include <QtGlobal>

class QString;

namespace Tobrix::Logging {

/// Level of a log line. The library knows two of the host's levels, by number: 2 for misuse, 3 for
/// information.
enum class LogLevel : int;

/// The host's log. Supplied by the host; called on the thread that uses the library.
class Q_DECL_IMPORT CLogger
{
public:
    /// Writes one line.
    /// @param level how grave it is
    /// @param category the part of the program that speaks, such as "TemplateReader"
    /// @param message the line's text
    static void logMessage(LogLevel level, const QString &category, const QString &message);
};

} // namespace Tobrix::Logging
