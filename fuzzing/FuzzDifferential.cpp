// Any bytes go through the reader of the current format and through the plain one. What the two find, and
// what is built of it, must be the same in everything that can be observed.

#include "fuzzing/FuzzInput.h"
#include "fuzzing/PlainTemplateReader.h"

#include "tools/json/RawDataJson.h"
#include "tools/json/TemplateJson.h"
#include "tools/loading/TemplateLoading.h"

#include "format_current/NewTemplateXMLReader.h"
#include "loading/CTemplateBuilder.h"
#include "model/CCatalogTemplate.h"
#include "rawdata/CTemplateRawData.h"

#include <QJsonDocument>

#include <cstdio>
#include <cstdlib>

using namespace Tobrix;

namespace {

/// What a reader makes of a file.
struct Reading
{
    QJsonObject record;
    QJsonObject catalogTemplate;
};

template <typename Reader>
Reading read(const QString &fileName)
{
    Tools::LoadedRawData raw;
    raw.isRead = Reader().readFile(fileName, *raw.rawData);
    Reading reading;
    reading.record = Tools::rawDataJson(raw);

    Tools::LoadedTemplate loaded;
    loaded.catalogTemplate.reset(Templates::CTemplateBuilder().buildTemplate(*raw.rawData, true));
    reading.catalogTemplate = Tools::templateJson(loaded);
    return reading;
}

/// Prints the first line in which two descriptions differ.
void printDifference(const char *what, const QJsonObject &actual, const QJsonObject &expected)
{
    const auto actualLines = QJsonDocument(actual).toJson().split('\n');
    const auto expectedLines = QJsonDocument(expected).toJson().split('\n');
    int line = 0;
    while (line < actualLines.size() && line < expectedLines.size() &&
           actualLines.at(line) == expectedLines.at(line)) {
        ++line;
    }
    std::fprintf(stderr, "the readers differ in the %s, line %d\n  reader:       %s\n  plain reader: %s\n",
                 what, line + 1, actualLines.value(line, "(end)").constData(),
                 expectedLines.value(line, "(end)").constData());
}

void requireSame(const char *what, const QJsonObject &actual, const QJsonObject &expected)
{
    if (actual != expected) {
        printDifference(what, actual, expected);
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    const QString fileName = Fuzzing::fileOf(bytes, size);
    const Reading actual = read<Templates::NewTemplateXMLReader>(fileName);
    const Reading expected = read<Fuzzing::PlainTemplateReader>(fileName);
    requireSame("record", actual.record, expected.record);
    requireSame("template", actual.catalogTemplate, expected.catalogTemplate);
    return 0;
}
