#pragma once

#include "tools/check/rules/Rule.h"

#include <QString>

namespace Tobrix::Tools {

/// All rules, in the order in which they run and are listed.
const std::vector<Rule> &allRules();

/// The rule with an id; null when there is none.
const Rule *ruleOf(const QString &id);

/// A severity as it is printed: "note", "warning", "error".
QString severityName(Severity severity);

/// The formats of a rule as they are printed: "current", "legacy", "both".
QString formatsName(Formats formats);

} // namespace Tobrix::Tools
