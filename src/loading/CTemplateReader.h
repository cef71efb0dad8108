#pragma once

#include "TobrixTemplatesExport.h"

class QString;

namespace Tobrix::Templates {

class CCatalogTemplate;

/// The way in: reads one template file of either format.
class TOBRIX_TEMPLATES_EXPORT CTemplateReader
{
public:
    /// Reserved. Only 0 reads a file.
    enum ReaderFlags : int {};

    CTemplateReader() = delete;

    /// Reads a template file. A path that contains "templates_new/" (exactly so, anywhere) is read as the
    /// current format, every other one as the legacy format; which one it is goes to the host's log. A
    /// template without a type gets the one that the host's registry has for its unique id.
    /// @param fileName path of the file
    /// @param flags must be 0; anything else fails without reading
    /// @param catalogTemplate receives the template, owned by the caller; null when the call fails
    /// @return whether a template was built. Of a file of the current format that is not well-formed, a
    ///        template is built of what stands before the fault; of one that asks for more than any template
    ///        does (by its depth, its entities, its sheer number of columns), an empty one. A legacy file in
    ///        such a state is refused.
    static bool readFile(const QString &fileName, ReaderFlags flags, CCatalogTemplate *&catalogTemplate);
};

} // namespace Tobrix::Templates
