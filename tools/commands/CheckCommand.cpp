#include "tools/commands/CheckCommand.h"

#include "tools/check/CheckRun.h"
#include "tools/check/FileWalk.h"
#include "tools/check/report/JsonReport.h"
#include "tools/check/report/TextReport.h"
#include "tools/check/rules/RuleTable.h"
#include "tools/commands/Console.h"
#include "tools/commands/LoadingArguments.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>
#include <iterator>
#include <optional>

namespace Tobrix::Tools {

namespace {

using Reports = std::vector<FileReport>;

void printText(const Reports &reports, Console &console)
{
    console.print(textReport(reports, console.isColoured()));
}

void printJson(const QJsonObject &json, QJsonDocument::JsonFormat format, Console &console)
{
    const QByteArray text = QJsonDocument(json).toJson(format);
    console.print(text.endsWith('\n') ? text : text + '\n');
}

struct ReportFormat
{
    QLatin1String name;
    void (*print)(const Reports &reports, Console &console);
};

const ReportFormat reportFormats[] = {
    {QLatin1String("text"), printText},
    {QLatin1String("json"),
     [](const Reports &reports, Console &console) {
         printJson(jsonReport(reports), QJsonDocument::Compact, console);
     }},
    {QLatin1String("sarif"),
     [](const Reports &reports, Console &console) {
         printJson(sarifReport(reports), QJsonDocument::Indented, console);
     }},
};

/// The command's options and what they result in.
class CheckOptions
{
public:
    CheckOptions();

    std::optional<ExitStatus> parse(const QStringList &arguments, Console &console);
    ExitStatus run(Console &console) const;

private:
    /// The files to check, and whether all given paths could be read.
    struct Files
    {
        QStringList names;
        bool areAll = true;
    };

    std::optional<ExitStatus> takeFormat(Console &console);
    std::optional<ExitStatus> takeDisabledRules(Console &console);
    ExitStatus explain(Console &console) const;
    ExitStatus check(Console &console) const;
    Files files(Console &console) const;
    ExitStatus statusOf(const Reports &reports) const;

    const QCommandLineOption m_format;
    const QCommandLineOption m_strict;
    const QCommandLineOption m_disable;
    const QCommandLineOption m_listRules;
    const QCommandLineOption m_explain;
    CommandLine m_commandLine;
    LoadingArguments m_loading{m_commandLine};
    const ReportFormat *m_reportFormat = std::begin(reportFormats);
    QSet<QString> m_disabledRules;
};

CheckOptions::CheckOptions()
    : m_format(QStringLiteral("format"),
               QStringLiteral("Print the findings as text, json or sarif (SARIF 2.1.0, for code hosts)."),
               QStringLiteral("FORMAT"), QStringLiteral("text"))
    , m_strict(QStringLiteral("strict"), QStringLiteral("Let a warning end with status 1 as well."))
    , m_disable(QStringLiteral("disable"), QStringLiteral("Leave rules out, with commas between them."),
                QStringLiteral("RULE,…"))
    , m_listRules(QStringLiteral("list-rules"), QStringLiteral("Print all rules, one a line."))
    , m_explain(QStringLiteral("explain"),
                QStringLiteral("Print what a rule is about, with a wrong and a right example."),
                QStringLiteral("RULE"))
    , m_commandLine(
          QStringLiteral("tobrix-template check"), QStringLiteral("[options] FILE|FOLDER…"),
          QStringLiteral(
              "Says what is wrong with catalogue templates, where, and what a host will see.\n"
              "The exit status is 0 when nothing is worse than a note or a warning, 1 when there is "
              "an error,\n"
              "2 on wrong usage or a file that cannot be read."))
{
    for (const auto *option : {&m_format, &m_strict, &m_disable, &m_listRules, &m_explain}) {
        m_commandLine.addOption(*option);
    }
    m_commandLine.addArgument(
        QStringLiteral("FILE|FOLDER"),
        QStringLiteral(
            "A template file, - for standard input, or a folder that is searched for *.xml. A file is "
            "checked "
            "as the current format when its whole path contains \"templates_new/\", else as the legacy "
            "format."));
}

std::optional<ExitStatus> CheckOptions::parse(const QStringList &arguments, Console &console)
{
    if (const auto status = m_commandLine.parse(arguments, console)) {
        return status;
    }
    if (const auto status = takeFormat(console)) {
        return status;
    }
    if (const auto status = m_loading.take(console)) {
        return status;
    }
    return takeDisabledRules(console);
}

std::optional<ExitStatus> CheckOptions::takeFormat(Console &console)
{
    const QString name = m_commandLine.values(m_format).last();
    m_reportFormat = std::find_if(std::begin(reportFormats), std::end(reportFormats),
                                  [&name](const auto &row) { return row.name == name; });
    if (m_reportFormat == std::end(reportFormats)) {
        return m_commandLine.refuse(
            QStringLiteral("There is no format \"%1\": text, json and sarif are.").arg(name), console);
    }
    return std::nullopt;
}

std::optional<ExitStatus> CheckOptions::takeDisabledRules(Console &console)
{
    for (const auto &list : m_commandLine.values(m_disable)) {
        for (const auto &id : list.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            if (!ruleOf(id.trimmed())) {
                return m_commandLine.refuse(QStringLiteral("There is no rule \"%1\".").arg(id.trimmed()),
                                            console);
            }
            m_disabledRules.insert(id.trimmed());
        }
    }
    return std::nullopt;
}

ExitStatus CheckOptions::run(Console &console) const
{
    if (m_commandLine.isSet(m_listRules)) {
        console.print(ruleList());
        return ExitStatus::Success;
    }
    return m_commandLine.isSet(m_explain) ? explain(console) : check(console);
}

ExitStatus CheckOptions::explain(Console &console) const
{
    const QString id = m_commandLine.values(m_explain).last();
    const Rule *rule = ruleOf(id);
    if (!rule) {
        return m_commandLine.refuse(QStringLiteral("There is no rule \"%1\".").arg(id), console);
    }
    console.print(ruleExplanation(*rule, console.lineWidth()));
    return ExitStatus::Success;
}

CheckOptions::Files CheckOptions::files(Console &console) const
{
    Files files;
    const auto complain = [&](const QString &path, const QString &problem) {
        console.complain(QStringLiteral("%1: %2").arg(path, problem));
        files.areAll = false;
    };
    for (const auto &argument : m_commandLine.arguments()) {
        if (!QFileInfo(argument).isDir()) {
            files.names.append(argument);
            continue;
        }
        const FolderContent content = contentOfFolder(argument);
        for (const auto &folder : content.unreadableFolders) {
            complain(folder, QStringLiteral("cannot be searched"));
        }
        if (content.templateFiles.isEmpty() && content.unreadableFolders.isEmpty()) {
            complain(argument, QStringLiteral("holds no *.xml file"));
        }
        files.names.append(content.templateFiles);
    }
    return files;
}

ExitStatus CheckOptions::check(Console &console) const
{
    if (m_commandLine.arguments().isEmpty()) {
        return m_commandLine.refuse(QStringLiteral("There is no file to check."), console);
    }
    const Files wanted = files(console);
    if (wanted.names.isEmpty()) {
        return ExitStatus::WrongUsage;
    }
    QElapsedTimer timer;
    timer.start();
    const auto progress = [&](int done, int all) {
        constexpr qint64 patience = 1000;
        if (timer.elapsed() > patience) {
            console.showProgress(QStringLiteral("checked %1 of %2 files").arg(done).arg(all));
        }
    };
    const Reports reports = checkFiles(wanted.names, m_disabledRules, m_loading.options(), progress);
    console.showProgress(QString());
    m_reportFormat->print(reports, console);
    for (const auto &report : reports) {
        if (!report.problem.isEmpty()) {
            const QString name = report.fileName.isEmpty() ? QStringLiteral("\"\"") : report.fileName;
            console.complain(QStringLiteral("%1: %2").arg(name, report.problem));
        }
    }
    return wanted.areAll ? statusOf(reports) : ExitStatus::WrongUsage;
}

ExitStatus CheckOptions::statusOf(const Reports &reports) const
{
    const auto isUnread = [](const FileReport &report) { return !report.problem.isEmpty(); };
    if (std::any_of(reports.begin(), reports.end(), isUnread)) {
        return ExitStatus::WrongUsage;
    }
    const FindingCounts counts = countsOf(reports);
    const bool isBad = counts.errors > 0 || (m_commandLine.isSet(m_strict) && counts.warnings > 0);
    return isBad ? ExitStatus::SomeFilesFailed : ExitStatus::Success;
}

} // namespace

ExitStatus runCheck(const QStringList &arguments, Console &console)
{
    CheckOptions options;
    if (const auto status = options.parse(arguments, console)) {
        return *status;
    }
    return options.run(console);
}

} // namespace Tobrix::Tools
