#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/TemplateFormat.h"

#include <QSharedDataPointer>
#include <QString>

namespace Tobrix::Templates {

class CTemplateReadingReportPrivate;

/// What happened when a template file was read, where, and why: for programs and for people. A value that can
/// be copied.
class TOBRIX_TEMPLATES_EXPORT CTemplateReadingReport
{
public:
    /// What happened. Of several failures it is the first one in the file.
    enum Outcome {
        NotRead,            ///< Nothing has been read yet.
        Loaded,             ///< A template was built of the whole file.
        LoadedUpToFault,    ///< The file is not well-formed; a template was built of what precedes the fault.
        NothingOfATemplate, ///< The file is well-formed, but nothing in it was read; the template is empty.
        NotFound,           ///< There is no file under the path.
        NoPermission,       ///< The file must not be read.
        NotARegularFile,    ///< The path names a folder, a pipe, a device.
        Unreadable,         ///< The file cannot be read for another reason.
        OverLimit,       ///< The file has more of something than a template may have; nothing of it is used.
        NotWellFormed,   ///< The file is not well-formed, and its format tolerates no faults.
        ItemWithoutList, ///< A list item names no list.
        ColumnNotBuilt,  ///< A column was read of which the builder makes none.
        ColumnWithoutView, ///< A column names a view that the file does not have.
        FlagsNotSupported  ///< The file was not read: flags were given.
    };

    /// A report on nothing: NotRead.
    CTemplateReadingReport();
    /// A report with the same content.
    CTemplateReadingReport(const CTemplateReadingReport &other);
    /// Takes over the content of another report.
    CTemplateReadingReport &operator=(const CTemplateReadingReport &other);
    /// Releases the content.
    ~CTemplateReadingReport();

    /// What happened.
    Outcome outcome() const;

    /// The format that the file was read as.
    TemplateFormat format() const;

    /// The line of the failure, from 1; 0 when it has no place in the file.
    int line() const;
    /// The column of the failure in its line, in characters from 1; 0 when it has no place in the file.
    int column() const;

    /// What happened, as one sentence for people without full stop: the file as it was named, a colon, place
    /// and reason. It may contain text of the file as it stands there, control characters included.
    QString message() const;
    /// The message without the file.
    QString reason() const;

private:
    friend class TemplateLoading;

    TOBRIX_TEMPLATES_NO_EXPORT explicit CTemplateReadingReport(CTemplateReadingReportPrivate *content);

    QSharedDataPointer<CTemplateReadingReportPrivate> d;
};

} // namespace Tobrix::Templates
