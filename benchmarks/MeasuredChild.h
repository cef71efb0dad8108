#pragma once

#include "GeneratedTemplate.h"

#include <QString>

namespace Tobrix::Benchmarks {

enum class ChildWork { Nothing, BareParse, Load };

/// The peak memory, in bytes, of a child process that does one piece of work.
qint64 peakMemoryOf(ChildWork work, const QString &fileName, Format format);

/// Runs the work of a child process instead of the benchmarks.
/// @return whether this process is a child, and has done its work
bool runAsChild(int argc, char **argv);

} // namespace Tobrix::Benchmarks
