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
    /// Deletes the reader with everything that it holds of the file.
    virtual ~AbstractTemplateXmlReader();

    /// Reads one file.
    /// @param fileName path of the file
    /// @param rawData receives what the file holds; pass an empty record. It owns what is put into it.
    /// @return false when the reader gives up on the file; the record then holds what was read up to that
    ///        point
    virtual bool readFile(const QString &fileName, CTemplateRawData &rawData) = 0;

protected:
    AbstractTemplateXmlReader();

private:
    Q_DISABLE_COPY(AbstractTemplateXmlReader)
};

} // namespace Tobrix::Templates
