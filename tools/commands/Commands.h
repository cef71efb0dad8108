#pragma once

#include "tools/commands/CommandLine.h"

namespace Tobrix::Tools {

/// Runs the tool with the arguments of its process, the program's name first.
ExitStatus runTool(const QStringList &arguments, Console &console);

} // namespace Tobrix::Tools
