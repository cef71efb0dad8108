#include "tools/check/report/TextReport.h"

#include "tools/check/rules/RuleTable.h"
#include "tools/text/DisplayText.h"

#include <algorithm>

namespace Tobrix::Tools {

namespace {

// Legible on dark and on bright terminals.
QString colourOf(Severity severity)
{
    switch (severity) {
    case Severity::Error:
        return QStringLiteral("\033[1;31m");
    case Severity::Warning:
        return QStringLiteral("\033[1;35m");
    case Severity::Note:
        break;
    }
    return QStringLiteral("\033[1;36m");
}

QString inColour(const QString &colour, const QString &text, bool isColoured)
{
    return isColoured ? colour + text + QStringLiteral("\033[0m") : text;
}

QString lineOf(const QString &fileName, const ReportedFinding &finding, bool isColoured)
{
    const QString place = QStringLiteral("%1:%2:%3:")
                              .arg(printable(fileName))
                              .arg(finding.place.line)
                              .arg(finding.place.column);
    return QStringLiteral("%1 %2 %3 [%4]\n")
        .arg(inColour(QStringLiteral("\033[1m"), place, isColoured),
             inColour(colourOf(finding.severity), severityName(finding.severity) + QLatin1Char(':'),
                      isColoured),
             finding.message, QLatin1String(finding.rule->id));
}

QString summaryOf(const std::vector<FileReport> &reports)
{
    const auto checked = std::count_if(reports.begin(), reports.end(),
                                       [](const FileReport &report) { return report.problem.isEmpty(); });
    const FindingCounts counts = countsOf(reports);
    const QString files = counted(static_cast<int>(checked), QStringLiteral("file"), QStringLiteral("files"));
    if (counts.all() == 0) {
        return QStringLiteral("%1 checked, nothing found\n").arg(files);
    }
    return QStringLiteral("%1 checked: %2, %3, %4\n")
        .arg(files, counted(counts.errors, QStringLiteral("error"), QStringLiteral("errors")),
             counted(counts.warnings, QStringLiteral("warning"), QStringLiteral("warnings")),
             counted(counts.notes, QStringLiteral("note"), QStringLiteral("notes")));
}

QString indented(const QStringList &lines)
{
    QString text;
    for (const auto &line : lines) {
        text += QStringLiteral("    %1\n").arg(line);
    }
    return text;
}

} // namespace

QString textReport(const std::vector<FileReport> &reports, bool isColoured)
{
    QString text;
    for (const auto &report : reports) {
        for (const auto &finding : report.findings) {
            text += lineOf(report.fileName, finding, isColoured);
        }
    }
    return text + summaryOf(reports);
}

QString ruleList()
{
    QString text;
    for (const auto &rule : allRules()) {
        text += QStringLiteral("%1  %2  %3  %4\n")
                    .arg(QLatin1String(rule.id), -26)
                    .arg(severityName(rule.severity), -7)
                    .arg(formatsName(rule.formats), -7)
                    .arg(QLatin1String(rule.summary));
    }
    return text;
}

QString ruleExplanation(const Rule &rule, int lineWidth)
{
    constexpr int readable = 100;
    const int width = std::min(lineWidth, readable);
    const auto broken = [width](const char *text) {
        return wrapped(QLatin1String(text), width).join(QLatin1Char('\n'));
    };
    const auto example = [](const char *text) {
        return indented(QString::fromLatin1(text).split(QLatin1Char('\n')));
    };
    const QString format = rule.formats == Formats::Both
                               ? QStringLiteral("both formats")
                               : formatsName(rule.formats) + QStringLiteral(" format");
    return QStringLiteral("%1: %2 (%3, %4)\n\n%5\n\nWrong:\n%6Right:\n%7")
        .arg(QLatin1String(rule.id), QLatin1String(rule.summary), severityName(rule.severity), format,
             broken(rule.explanation), example(rule.wrong), example(rule.right));
}

} // namespace Tobrix::Tools
