#include "format_current/NewTemplateXMLReader.h"

#include "format_current/CurrentReading_p.h"
#include "xml/XmlDocument_p.h"
#include "xml/XmlFile_p.h"

namespace Tobrix::Templates {

struct NewTemplateXMLReader::Private
{
};

NewTemplateXMLReader::NewTemplateXMLReader() = default;

NewTemplateXMLReader::~NewTemplateXMLReader() = default;

bool NewTemplateXMLReader::readFile(const QString &fileName, CTemplateRawData &rawData)
{
    XmlFile file;
    if (file.open(fileName) != XmlFile::Access::Readable) {
        return false;
    }
    readCurrentDocument(XmlDocument::parse(file, XmlDialect::Dom), rawData);
    return true;
}

} // namespace Tobrix::Templates
