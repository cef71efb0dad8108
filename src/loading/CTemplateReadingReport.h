#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/TemplateFormat.h"

#include <QSharedDataPointer>
#include <QString>

namespace Tobrix::Templates {

class CTemplateReadingReportPrivate;

/// The result of reading a template file: outcome, place and message. A value that can be copied.
class TOBRIX_TEMPLATES_EXPORT CTemplateReadingReport
{
public:
    /// The outcome. Of several failures it is the first one in the file.
    enum Outcome {
        NotRead,            ///< Nothing has been read yet.
        Loaded,             ///< A template was built from the whole file.
        LoadedUpToFault,    ///< The file is not well-formed; the template has what precedes the fault.
        NothingOfATemplate, ///< The file is well-formed, but has no template data; the template is empty.
        NotFound,           ///< There is no file under the path.
        NoPermission,       ///< No permission to read the file.
        NotARegularFile,    ///< The path names a folder, a pipe or a device.
        Unreadable,         ///< The file cannot be read for another reason.
        OverLimit,          ///< The file exceeds a limit; nothing of it is used.
        NotWellFormed,      ///< The file is not well-formed, and its format requires it to be.
        ItemWithoutList,    ///< A list item names no list.
        ColumnNotBuilt,     ///< A column was read that the builder cannot build.
        ColumnWithoutView,  ///< A column names a view that the file does not have.
        FlagsNotSupported   ///< The file was not read: flags were given.
    };

    /// An empty report: NotRead.
    CTemplateReadingReport();
    /// Copies a report.
    /// @param other any report
    CTemplateReadingReport(const CTemplateReadingReport &other);
    /// Copies another report.
    /// @param other any report
    /// @return this report
    CTemplateReadingReport &operator=(const CTemplateReadingReport &other);
    /// Deletes the report.
    ~CTemplateReadingReport();

    /// @return the outcome
    Outcome outcome() const;

    /// @return the format that the file was read as
    TemplateFormat format() const;

    /// @return the line of the failure, from 1; 0 when it has none
    int line() const;
    /// @return the column of the failure in its line, in characters from 1; 0 when it has none
    int column() const;

    /// @return the result as one sentence without full stop: the file as it was named, a colon, place and
    ///        reason. It may contain text of the file unescaped, control characters included.
    QString message() const;
    /// @return the message without the name of the file
    QString reason() const;

private:
    friend class TemplateLoading;

    TOBRIX_TEMPLATES_NO_EXPORT explicit CTemplateReadingReport(CTemplateReadingReportPrivate *content);

    QSharedDataPointer<CTemplateReadingReportPrivate> d;
};

} // namespace Tobrix::Templates
