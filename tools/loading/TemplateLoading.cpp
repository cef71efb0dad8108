#include "tools/loading/TemplateLoading.h"

#include "tools/loading/FileAccess.h"
#include "tools/loading/ReadingFault.h"

#include "format_current/NewTemplateXMLReader.h"
#include "format_legacy/CTemplateXMLReader.h"
#include "loading/CTemplateReader.h"
#include "xml/GuardedFile_p.h"
#include "loading/TemplateLocation_p.h"
#include "model/CCatalogTemplate.h"
#include "model/CTemplateColumn.h"
#include "rawdata/CTemplateRawData.h"

namespace Tobrix::Tools {

using namespace Templates;

namespace {

std::unique_ptr<AbstractTemplateXmlReader> readerFor(const QString &fileName)
{
    if (isCurrentFormatPath(fileName)) {
        return std::make_unique<NewTemplateXMLReader>();
    }
    return std::make_unique<CTemplateXMLReader>();
}

QString readingProblem(const QString &fileName)
{
    GuardedFile file;
    if (!file.openTemplate(fileName)) {
        return whyNotOpened(fileName);
    }
    return isCurrentFormatPath(fileName) ? faultOfCurrentFile(file) : faultOfLegacyFile(file);
}

} // namespace

LoadedTemplate::LoadedTemplate() = default;
LoadedTemplate::LoadedTemplate(LoadedTemplate &&other) noexcept = default;
LoadedTemplate::~LoadedTemplate() = default;

LoadedRawData::LoadedRawData() : rawData(std::make_unique<CTemplateRawData>())
{
}
LoadedRawData::LoadedRawData(LoadedRawData &&other) noexcept = default;
LoadedRawData::~LoadedRawData() = default;

LoadedTemplate loadTemplate(const QString &fileName)
{
    const LoadLog log;
    LoadedTemplate loaded;
    loaded.fileName = fileName;
    CCatalogTemplate *catalogTemplate = nullptr;
    CTemplateReader::readFile(fileName, CTemplateReader::ReaderFlags(0), catalogTemplate);
    loaded.catalogTemplate.reset(catalogTemplate);
    loaded.log = log.lines();
    return loaded;
}

LoadedRawData loadRawData(const QString &fileName)
{
    const LoadLog log;
    LoadedRawData loaded;
    loaded.fileName = fileName;
    loaded.isRead = readerFor(fileName)->readFile(fileName, *loaded.rawData);
    loaded.log = log.lines();
    return loaded;
}

QString problemOf(const LoadedTemplate &loaded)
{
    // A legacy file that loads is in order. One of the current format may have lost its end.
    if (loaded.catalogTemplate && !isCurrentFormatPath(loaded.fileName)) {
        return QString();
    }
    const QString problem = readingProblem(loaded.fileName);
    if (loaded.catalogTemplate || !problem.isEmpty()) {
        return problem;
    }
    const LoadedRawData raw = loadRawData(loaded.fileName);
    return raw.isRead ? buildingFault(*raw.rawData) : problemOf(raw);
}

QString problemOf(const LoadedRawData &loaded)
{
    if (loaded.isRead && !isCurrentFormatPath(loaded.fileName)) {
        return QString();
    }
    const QString problem = readingProblem(loaded.fileName);
    return loaded.isRead || !problem.isEmpty() ? problem : QStringLiteral("cannot be read");
}

} // namespace Tobrix::Tools
