#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/TemplateFormat.h"

class QString;

namespace Tobrix::Templates {

class CCatalogTemplate;
class CTemplateReadingReport;

/// The way in: reads one template file of either format.
class TOBRIX_TEMPLATES_EXPORT CTemplateReader
{
public:
    /// Reserved. Only 0 reads a file.
    enum ReaderFlags : int {};

    CTemplateReader() = delete;

    /// Reads a template file. Its format follows from its path, see formatOf(), and goes to the host's log. A
    /// template without a type gets the one that the host's registry has for its unique id.
    /// @param fileName path of the file
    /// @param flags must be 0; anything else fails without reading
    /// @param catalogTemplate receives the template, owned by the caller; null when the call fails
    /// @return whether a template was built. Of a file of the current format that is not well-formed, a
    ///        template is built of what stands before the fault; of one that asks for more than any template
    ///        does (by its depth, its entities, its sheer number of columns), an empty one. A legacy file in
    ///        such a state is refused.
    static bool readFile(const QString &fileName, ReaderFlags flags, CCatalogTemplate *&catalogTemplate);

    /// Does what readFile() does, and says how it went. A file that fails may take twice the time.
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
    static TemplateFormat formatOf(const QString &path);
};

} // namespace Tobrix::Templates
