#pragma once

#include "TobrixTemplatesExport.h"
#include "loading/AbstractTemplateXmlReader.h"

#include <memory>

namespace Tobrix::Templates {

/// Reads templates of the legacy format: a stream of sections (header, views, columns, list items, legends)
/// below the containers "TobrixTemplate" and "TXSYS", in any order and number. Anything else is skipped with
/// all that it holds.
///
/// A reader may read several files one after the other, on one thread.
class TOBRIX_TEMPLATES_EXPORT CTemplateXMLReader : public AbstractTemplateXmlReader
{
public:
    /// A reader with no file yet.
    CTemplateXMLReader();
    /// Closes the file read last.
    ~CTemplateXMLReader() override;

    /// Reads one file. The file stays open until the next one is read or the reader is deleted.
    /// @param fileName path of the file
    /// @param rawData is emptied first, even when the file cannot be opened, and owns what is put into it
    /// @return false when the file cannot be opened or is not well-formed, when it ends within a section, or
    ///        when a list item has no list name; the record then holds what was read up to that point
    bool readFile(const QString &fileName, CTemplateRawData &rawData) override;

private:
    struct TOBRIX_TEMPLATES_NO_EXPORT Private;
    const std::unique_ptr<Private> d;
};

} // namespace Tobrix::Templates
