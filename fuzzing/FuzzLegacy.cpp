// Reads any bytes with the reader of the legacy format.

#include "fuzzing/FuzzInput.h"

#include "format_legacy/CTemplateXMLReader.h"
#include "rawdata/CTemplateRawData.h"

using namespace Tobrix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    Templates::CTemplateRawData rawData;
    Templates::CTemplateXMLReader().readFile(Fuzzing::fileOf(bytes, size), rawData);
    return 0;
}
