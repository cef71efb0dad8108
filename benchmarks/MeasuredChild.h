#pragma once

#include "GeneratedTemplate.h"

#include <QString>

namespace Tobrix::Benchmarks {

enum class ChildWork { Nothing, BareParse, Load };

/// The peak memory, in bytes, of a process of its own that does one piece of work.
qint64 peakMemoryOf(ChildWork work, const QString &fileName, Format format);

/// What such a process runs instead of the benchmarks.
/// @return whether this process is one, and has done its work
bool runAsChild(int argc, char **argv);

} // namespace Tobrix::Benchmarks
