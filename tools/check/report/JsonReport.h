#pragma once

#include "tools/check/CheckRun.h"

#include <QJsonObject>

namespace Tobrix::Tools {

/// The findings as JSON.
QJsonObject jsonReport(const std::vector<FileReport> &reports);

/// The findings as SARIF 2.1.0, which code hosts show as annotations.
QJsonObject sarifReport(const std::vector<FileReport> &reports);

} // namespace Tobrix::Tools
