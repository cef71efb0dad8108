#pragma once

#include "tools/check/CheckRun.h"

namespace Tobrix::Tools {

/// The findings for a person to read, one a line, with a line that adds them up.
QString textReport(const std::vector<FileReport> &reports, bool isColoured);

/// All rules, one a line.
QString ruleList();

/// What a rule is about, at length, with an example of what it finds and what it does not.
QString ruleExplanation(const Rule &rule, int lineWidth);

} // namespace Tobrix::Tools
