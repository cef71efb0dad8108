#include "tools/check/CheckRun.h"

#include "tools/check/CheckedFile.h"
#include "tools/check/rules/RuleTable.h"

#include <QThread>
#include <QtConcurrent>

namespace Tobrix::Tools {

namespace {

Findings findingsIn(const CheckedFile &file, const QSet<QString> &disabledRules)
{
    Findings findings;
    for (const auto &rule : allRules()) {
        if (!rule.appliesTo(file.isCurrent())) {
            continue;
        }
        findings.begin(rule);
        rule.check(file, findings);
        const bool isLast = rule.silencesRest && findings.hasFound();
        if (disabledRules.contains(QLatin1String(rule.id))) {
            findings.drop();
        }
        // Later rules need an intact document, whether this rule is disabled or not.
        if (isLast) {
            break;
        }
    }
    return findings;
}

} // namespace

FileReport checkFile(const QString &fileName, const QSet<QString> &disabledRules,
                     const LoadingOptions &options)
{
    const CheckedFile file(fileName, options);
    FileReport report;
    report.fileName = fileName;
    report.problem = file.problem();
    if (!report.problem.isEmpty()) {
        return report;
    }
    for (const auto &finding : findingsIn(file, disabledRules).sorted()) {
        report.findings.push_back(
            {finding.rule, finding.severity, file.placeOf(finding.at), finding.message});
    }
    return report;
}

std::vector<FileReport> checkFiles(const QStringList &fileNames, const QSet<QString> &disabledRules,
                                   const LoadingOptions &options, const Progress &progress)
{
    const std::function<FileReport(const QString &)> check = [&](const QString &fileName) {
        return checkFile(fileName, disabledRules, options);
    };
    QFuture<FileReport> future = QtConcurrent::mapped(fileNames, check);
    constexpr unsigned long pause = 5;
    while (!future.isFinished()) {
        QThread::msleep(pause);
        progress(future.progressValue(), fileNames.size());
    }
    const QList<FileReport> reports = future.results();
    return std::vector<FileReport>(reports.cbegin(), reports.cend());
}

FindingCounts countsOf(const std::vector<FileReport> &reports)
{
    FindingCounts counts;
    for (const auto &report : reports) {
        for (const auto &finding : report.findings) {
            switch (finding.severity) {
            case Severity::Error:
                ++counts.errors;
                break;
            case Severity::Warning:
                ++counts.warnings;
                break;
            case Severity::Note:
                ++counts.notes;
                break;
            }
        }
    }
    return counts;
}

} // namespace Tobrix::Tools
