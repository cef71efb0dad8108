#pragma once

#include "tools/check/CheckRun.h"

#include <QJsonObject>

namespace Tobrix::Tools {

/// The findings for another program.
QJsonObject jsonReport(const std::vector<FileReport> &reports);

/// The findings in the form that code hosts annotate lines by, SARIF 2.1.0.
QJsonObject sarifReport(const std::vector<FileReport> &reports);

} // namespace Tobrix::Tools
