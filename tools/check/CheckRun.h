#pragma once

#include "tools/check/rules/Rule.h"
#include "tools/loading/TemplateLoading.h"
#include "xml/SourcePlaces_p.h"

#include <QSet>
#include <QStringList>

#include <functional>
#include <vector>

namespace Tobrix::Tools {

/// A finding in one file, ready for reports.
struct ReportedFinding
{
    const Rule *rule = nullptr;
    Severity severity = Severity::Note;
    Templates::Place place;
    QString message;
};

/// The result of checking one file.
struct FileReport
{
    QString fileName;
    QString problem; ///< why it could not be checked; empty when it could
    std::vector<ReportedFinding> findings;
};

/// Checks one file by all rules except some.
FileReport checkFile(const QString &fileName, const QSet<QString> &disabledRules,
                     const LoadingOptions &options = {});

/// Receives the number of finished files, on the thread that waits for them.
using Progress = std::function<void(int done, int all)>;

/// Checks many files on all cores.
/// @return their reports, in the order of the names
std::vector<FileReport> checkFiles(const QStringList &fileNames, const QSet<QString> &disabledRules,
                                   const LoadingOptions &options, const Progress &progress);

/// The number of findings of each severity.
struct FindingCounts
{
    int errors = 0;
    int warnings = 0;
    int notes = 0;
    int all() const { return errors + warnings + notes; }
};

FindingCounts countsOf(const std::vector<FileReport> &reports);

} // namespace Tobrix::Tools
