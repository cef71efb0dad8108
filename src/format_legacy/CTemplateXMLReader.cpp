#include "format_legacy/CTemplateXMLReader.h"

#include "format_legacy/LegacyReading_p.h"
#include "rawdata/CTemplateRawData.h"
#include "xml/XmlDocument_p.h"
#include "xml/XmlFile_p.h"

namespace Tobrix::Templates {

struct CTemplateXMLReader::Private
{
    XmlFile file;
};

CTemplateXMLReader::CTemplateXMLReader() : d(std::make_unique<Private>())
{
}

CTemplateXMLReader::~CTemplateXMLReader() = default;

bool CTemplateXMLReader::readFile(const QString &fileName, CTemplateRawData &rawData)
{
    rawData.clear();
    if (d->file.open(fileName) != XmlFile::Access::Readable) {
        return false;
    }
    const XmlDocument document = XmlDocument::parse(d->file, XmlDialect::Stream);
    return static_cast<bool>(readLegacyDocument(document, rawData));
}

} // namespace Tobrix::Templates
