#include "tools/check/report/JsonReport.h"

#include "tools/check/rules/RuleTable.h"

#include <QDir>
#include <QJsonArray>
#include <QUrl>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

QJsonObject textJson(const QString &text)
{
    return {{QStringLiteral("text"), text}};
}

QJsonObject ruleJson(const Rule &rule)
{
    const QString help =
        QStringLiteral("%1\n\nWrong:\n%2\n\nRight:\n%3")
            .arg(QLatin1String(rule.explanation), QLatin1String(rule.wrong), QLatin1String(rule.right));
    const QJsonObject configuration{{QStringLiteral("level"), severityName(rule.severity)}};
    return {{QStringLiteral("id"), QLatin1String(rule.id)},
            {QStringLiteral("shortDescription"), textJson(QLatin1String(rule.summary))},
            {QStringLiteral("fullDescription"), textJson(QLatin1String(rule.explanation))},
            {QStringLiteral("help"), textJson(help)},
            {QStringLiteral("defaultConfiguration"), configuration}};
}

/// A file's name as a URI reference: relative ones stay relative, so that a code host finds them in its tree.
QString uriOf(const QString &fileName)
{
    if (QDir::isAbsolutePath(fileName)) {
        return QString::fromLatin1(QUrl::fromLocalFile(fileName).toEncoded());
    }
    return QString::fromLatin1(QUrl::toPercentEncoding(QDir::cleanPath(fileName), "/"));
}

QJsonObject locationJson(const QString &fileName, const Place &place)
{
    const QJsonObject artifact{{QStringLiteral("uri"), uriOf(fileName)}};
    const QJsonObject region{{QStringLiteral("startLine"), place.line},
                             {QStringLiteral("startColumn"), place.column}};
    const QJsonObject physical{{QStringLiteral("artifactLocation"), artifact},
                               {QStringLiteral("region"), region}};
    return {{QStringLiteral("physicalLocation"), physical}};
}

QJsonObject resultJson(const QString &fileName, const ReportedFinding &finding)
{
    const auto ruleIndex = static_cast<int>(finding.rule - allRules().data());
    return {{QStringLiteral("ruleId"), QLatin1String(finding.rule->id)},
            {QStringLiteral("ruleIndex"), ruleIndex},
            {QStringLiteral("level"), severityName(finding.severity)},
            {QStringLiteral("message"), textJson(finding.message)},
            {QStringLiteral("locations"), QJsonArray{locationJson(fileName, finding.place)}}};
}

/// Why files could not be checked.
QJsonArray notificationsJson(const std::vector<FileReport> &reports)
{
    QJsonArray notifications;
    for (const auto &report : reports) {
        if (!report.problem.isEmpty()) {
            notifications.append(
                QJsonObject{{QStringLiteral("level"), QStringLiteral("error")},
                            {QStringLiteral("message"),
                             textJson(QStringLiteral("%1: %2").arg(report.fileName, report.problem))}});
        }
    }
    return notifications;
}

} // namespace

QJsonObject sarifReport(const std::vector<FileReport> &reports)
{
    QJsonArray rules;
    for (const auto &rule : allRules()) {
        rules.append(ruleJson(rule));
    }
    QJsonArray results;
    for (const auto &report : reports) {
        for (const auto &finding : report.findings) {
            results.append(resultJson(report.fileName, finding));
        }
    }
    const QJsonArray notifications = notificationsJson(reports);
    const QJsonObject invocation{{QStringLiteral("executionSuccessful"), notifications.isEmpty()},
                                 {QStringLiteral("toolExecutionNotifications"), notifications}};
    const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("tobrix-template check")},
                             {QStringLiteral("version"), QStringLiteral(TOBRIX_VERSION)},
                             {QStringLiteral("rules"), rules}};
    const QJsonObject run{{QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver}}},
                          {QStringLiteral("columnKind"), QStringLiteral("unicodeCodePoints")},
                          {QStringLiteral("invocations"), QJsonArray{invocation}},
                          {QStringLiteral("results"), results}};
    return {{QStringLiteral("$schema"), QStringLiteral("https://json.schemastore.org/sarif-2.1.0.json")},
            {QStringLiteral("version"), QStringLiteral("2.1.0")},
            {QStringLiteral("runs"), QJsonArray{run}}};
}

} // namespace Tobrix::Tools
