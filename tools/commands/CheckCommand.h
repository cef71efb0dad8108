#pragma once

#include "tools/commands/CommandLine.h"

namespace Tobrix::Tools {

/// Runs the command "check".
ExitStatus runCheck(const QStringList &arguments, Console &console);

} // namespace Tobrix::Tools
