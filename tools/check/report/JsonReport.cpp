#include "tools/check/report/JsonReport.h"

#include "tools/check/rules/RuleTable.h"

#include <QJsonArray>

namespace Tobrix::Tools {

namespace {

QJsonObject findingJson(const ReportedFinding &finding)
{
    return {{QStringLiteral("rule"), QLatin1String(finding.rule->id)},
            {QStringLiteral("severity"), severityName(finding.severity)},
            {QStringLiteral("line"), finding.place.line},
            {QStringLiteral("column"), finding.place.column},
            {QStringLiteral("message"), finding.message}};
}

} // namespace

QJsonObject jsonReport(const std::vector<FileReport> &reports)
{
    QJsonArray files;
    for (const auto &report : reports) {
        QJsonArray findings;
        for (const auto &finding : report.findings) {
            findings.append(findingJson(finding));
        }
        QJsonObject file{{QStringLiteral("file"), report.fileName}, {QStringLiteral("findings"), findings}};
        if (!report.problem.isEmpty()) {
            file.insert(QStringLiteral("problem"), report.problem);
        }
        files.append(file);
    }
    const FindingCounts counts = countsOf(reports);
    return {{QStringLiteral("files"), files},
            {QStringLiteral("errors"), counts.errors},
            {QStringLiteral("warnings"), counts.warnings},
            {QStringLiteral("notes"), counts.notes}};
}

} // namespace Tobrix::Tools
