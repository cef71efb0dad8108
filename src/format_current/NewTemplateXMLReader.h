#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/AbstractTemplateXmlReader.h"

#include <memory>

namespace Tobrix::Templates {

/// Reads templates of the current format: a whole document, in which elements are found by their names at any
/// depth and of several candidates the first in the document counts.
///
/// A reader may read several files one after the other, on one thread.
class TOBRIX_TEMPLATES_EXPORT NewTemplateXMLReader : public AbstractTemplateXmlReader
{
public:
    /// A reader with no file yet.
    NewTemplateXMLReader();
    /// Deletes the reader. It holds nothing of the files that it has read.
    ~NewTemplateXMLReader() override;

    /// Reads one file. Of a file that is not well-formed, what stands before the fault is read. Of one over a
    /// limit (of nesting, entities, columns and so on) nothing is: the record gets what an empty file gives.
    /// @param fileName path of the file
    /// @param rawData owns what is put into it; not emptied before
    /// @return false only when the file cannot be opened; the record is untouched then
    bool readFile(const QString &fileName, CTemplateRawData &rawData) override;

private:
    // Nothing yet. What a reader will keep one day must not change its size.
    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace Tobrix::Templates
