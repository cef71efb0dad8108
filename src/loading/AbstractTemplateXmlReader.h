#pragma once

#include "TobrixTemplatesExport.h"

#include <QtGlobal>

class QString;

namespace Tobrix::Templates {

struct CTemplateRawData;

/// Reads template files of one format into the raw record that all formats share.
class TOBRIX_TEMPLATES_EXPORT AbstractTemplateXmlReader
{
public:
    /// Deletes the reader and everything that it keeps of the file.
    virtual ~AbstractTemplateXmlReader();

    /// Reads one file.
    /// @param fileName path of the file
    /// @param rawData receives the content of the file; pass an empty record. It owns what is added to it.
    /// @return false when the reader stops with a failure; the record then has what was read before it
    virtual bool readFile(const QString &fileName, CTemplateRawData &rawData) = 0;

protected:
    AbstractTemplateXmlReader();

private:
    Q_DISABLE_COPY(AbstractTemplateXmlReader)
};

} // namespace Tobrix::Templates
