#pragma once

#include "tools/check/CheckRun.h"

namespace Tobrix::Tools {

/// The findings as text, one per line, with a summary line.
QString textReport(const std::vector<FileReport> &reports, bool isColoured);

/// All rules, one per line.
QString ruleList();

/// The explanation of a rule, with an example that it finds and one that it does not.
QString ruleExplanation(const Rule &rule, int lineWidth);

} // namespace Tobrix::Tools
