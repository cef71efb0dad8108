#pragma once

#include "tools/commands/CommandLine.h"

namespace Tobrix::Tools {

/// `show`: prints templates as text or as JSON.
/// @param arguments with the command's name as the first
ExitStatus runShow(const QStringList &arguments, Console &console);

} // namespace Tobrix::Tools
