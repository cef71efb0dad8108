#pragma once

#include "tools/check/CheckRun.h"
#include "tools/check/rules/RuleTable.h"

#include <QDir>
#include <QStringList>

// The documents of the checker's rules, tests/check/<folder>/: <rule>.xml triggers the rule, with its
// findings
// (<rule>.expected) and what the library makes of it (<rule>.effect.json) beside it; <rule>.near-miss.xml
// does not trigger it. A rule that finds several things has a <rule>.<thing>.xml for each.

struct FormatFolder
{
    QLatin1String name;
    bool isCurrent;
};

inline constexpr FormatFolder formatFolders[] = {
    {QLatin1String("templates"), false},
    {QLatin1String("templates_new"), true},
};

/// The findings in a file, one a line, as the command prints them but for the file's name.
inline QString findingsIn(const QString &fileName, const QSet<QString> &disabledRules = {})
{
    using namespace Tobrix::Tools;
    const FileReport report = checkFile(fileName, disabledRules);
    QString text = report.problem;
    for (const auto &finding : report.findings) {
        text += QStringLiteral("%1:%2: %3: %4 [%5]\n")
                    .arg(finding.place.line)
                    .arg(finding.place.column)
                    .arg(severityName(finding.severity), finding.message, QLatin1String(finding.rule->id));
    }
    return text;
}

/// The XML files in a folder, as paths.
inline QStringList documentsIn(const QString &folder)
{
    QStringList files = QDir(folder).entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name);
    for (auto &file : files) {
        file.prepend(folder + QLatin1Char('/'));
    }
    return files;
}
