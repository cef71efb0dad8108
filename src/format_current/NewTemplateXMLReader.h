#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/AbstractTemplateXmlReader.h"

#include <memory>

namespace Tobrix::Templates {

/// Reads templates of the current format, in which elements are found by name at any depth, and of several
/// candidates the first in the document counts.
///
/// A reader may read several files one after the other, on one thread.
class TOBRIX_TEMPLATES_EXPORT NewTemplateXMLReader : public AbstractTemplateXmlReader
{
public:
    /// Creates a reader without a file.
    NewTemplateXMLReader();
    /// Deletes the reader. It keeps nothing of the files that it has read.
    ~NewTemplateXMLReader() override;

    /// Reads one file. A file that is not well-formed is read up to its fault. A file over a limit (nesting
    /// depth, entities, columns and so on) gives the same as an empty file.
    /// @param fileName path of the file
    /// @param rawData owns what is put into it; not emptied before
    /// @return false only when the file cannot be opened; the record is untouched then
    bool readFile(const QString &fileName, CTemplateRawData &rawData) override;

private:
    // Empty for now: a later implementation must not change the reader's size.
    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace Tobrix::Templates
