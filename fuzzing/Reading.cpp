#include "fuzzing/Reading.h"

#include "tools/json/RawDataJson.h"
#include "tools/json/TemplateJson.h"
#include "tools/loading/TemplateLoading.h"

#include "loading/AbstractTemplateXmlReader.h"
#include "loading/CTemplateBuilder.h"
#include "model/CCatalogTemplate.h"
#include "rawdata/CTemplateRawData.h"

#include <QJsonDocument>

#include <cstdio>
#include <cstdlib>

namespace Tobrix::Fuzzing {

namespace {

QByteArrayList linesOf(const QJsonObject &description)
{
    return QJsonDocument(description).toJson().split('\n');
}

void requireSame(const char *what, const char *actualName, const QJsonObject &actual,
                 const char *expectedName, const QJsonObject &expected)
{
    if (actual == expected) {
        return;
    }
    const QByteArrayList actualLines = linesOf(actual);
    const QByteArrayList expectedLines = linesOf(expected);
    int line = 0;
    while (line < actualLines.size() && line < expectedLines.size() &&
           actualLines.at(line) == expectedLines.at(line)) {
        ++line;
    }
    std::fprintf(stderr, "the readings differ in the %s, line %d\n  %-14s %s\n  %-14s %s\n", what, line + 1,
                 actualName, actualLines.value(line, "(end)").constData(), expectedName,
                 expectedLines.value(line, "(end)").constData());
    std::abort();
}

} // namespace

Reading readingOf(Templates::AbstractTemplateXmlReader &reader, const QString &fileName, bool isCurrentFormat)
{
    Tools::LoadedRawData raw;
    raw.isRead = reader.readFile(fileName, *raw.rawData);
    Reading reading;
    reading.record = Tools::rawDataJson(raw);

    Tools::LoadedTemplate loaded;
    loaded.catalogTemplate.reset(Templates::CTemplateBuilder().buildTemplate(*raw.rawData, isCurrentFormat));
    reading.catalogTemplate = Tools::templateJson(loaded);
    return reading;
}

void requireSame(const char *actualName, const Reading &actual, const char *expectedName,
                 const Reading &expected)
{
    requireSame("record", actualName, actual.record, expectedName, expected.record);
    requireSame("template", actualName, actual.catalogTemplate, expectedName, expected.catalogTemplate);
}

} // namespace Tobrix::Fuzzing
