#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/AbstractTemplateXmlReader.h"

#include <memory>

namespace Tobrix::Templates {

/// Reads templates of the legacy format: sections (header, views, columns, list items, legends) below the
/// containers "TobrixTemplate" and "TXSYS", in any order and number. Any other element is skipped.
///
/// A reader may read several files one after the other, on one thread.
class TOBRIX_TEMPLATES_EXPORT CTemplateXMLReader : public AbstractTemplateXmlReader
{
public:
    /// Creates a reader without a file.
    CTemplateXMLReader();
    /// Closes the file read last.
    ~CTemplateXMLReader() override;

    /// Reads one file. The file stays open until the next one is read or the reader is deleted.
    /// @param fileName path of the file
    /// @param rawData is emptied first, even when the file cannot be opened, and owns what is added to it
    /// @return false when the file cannot be opened or is not well-formed, when it ends within a section, or
    ///        when a list item has no list name; the record then has what was read before the failure
    bool readFile(const QString &fileName, CTemplateRawData &rawData) override;

private:
    struct TOBRIX_TEMPLATES_NO_EXPORT Private;
    const std::unique_ptr<Private> d;
};

} // namespace Tobrix::Templates
