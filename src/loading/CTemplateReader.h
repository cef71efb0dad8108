#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/TemplateFormat.h"

class QString;

namespace Tobrix::Templates {

class CCatalogTemplate;
class CTemplateReadingReport;

/// The entry point: reads one template file of either format.
class TOBRIX_TEMPLATES_EXPORT CTemplateReader
{
public:
    /// Reserved. Only 0 reads a file.
    enum ReaderFlags : int {};

    CTemplateReader() = delete;

    /// Reads a template file. Its format follows from its path, see formatOf(), and is logged. A template
    /// without a type gets the one that the host's registry has for its unique id.
    /// @param fileName path of the file
    /// @param flags must be 0; anything else fails without reading
    /// @param catalogTemplate receives the template, owned by the caller; null when the call fails
    /// @return whether a template was built. In the current format, a file that is not well-formed gives a
    ///        template of what precedes the fault, and a file over a limit (nesting depth, entities, number
    ///        of columns and so on) an empty one. Both are refused in the legacy format.
    static bool readFile(const QString &fileName, ReaderFlags flags, CCatalogTemplate *&catalogTemplate);

    /// Does what readFile() does, and reports the result. A file that fails may take twice the time.
    /// @param fileName path of the file
    /// @param flags must be 0; anything else fails without reading
    /// @param catalogTemplate receives the template, owned by the caller; null when the call fails
    /// @param report receives what happened, where and why; also when the call succeeds
    /// @return whether a template was built
    static bool readFileWithReport(const QString &fileName, ReaderFlags flags,
                                   CCatalogTemplate *&catalogTemplate, CTemplateReadingReport &report);

    /// The format that a file is read as: the current one when its path contains "templates_new/" (exactly
    /// so, anywhere), else the legacy one.
    /// @param path path of a file, which need not exist
    /// @return the format
    static TemplateFormat formatOf(const QString &path);
};

} // namespace Tobrix::Templates
