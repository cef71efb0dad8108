// Reads any bytes with the reader of the current format and with the plain one. The records and the templates
// built from them must be equal in everything that can be observed.

#include "fuzzing/FuzzInput.h"
#include "fuzzing/PlainTemplateReader.h"
#include "fuzzing/Reading.h"

#include "format_current/NewTemplateXMLReader.h"

using namespace Tobrix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const QString fileName = Fuzzing::fileOf(bytes, size);
    Templates::NewTemplateXMLReader reader;
    Fuzzing::PlainTemplateReader plainReader;
    Fuzzing::requireSame("reader:", Fuzzing::readingOf(reader, fileName, true),
                         "plain reader:", Fuzzing::readingOf(plainReader, fileName, true));
    return 0;
}
