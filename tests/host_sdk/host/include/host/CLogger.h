#pragma once

#include "host/Export.h"

#include <QString>

#include <vector>

namespace Tobrix::Logging {

enum class LogLevel : int { Alarm = 0, Fault = 1, Doubt = 2, Note = 3 };

struct Entry
{
    LogLevel level;
    QString text;
};

/// Keeps its lines instead of writing them.
class PIPEWORKS_API CLogger
{
public:
    static void logMessage(LogLevel level, const QString &category, const QString &message);
    static const std::vector<Entry> &entries();
};

} // namespace Tobrix::Logging
