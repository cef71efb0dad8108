#include "tools/loading/TemplateLoading.h"

#include "loading/CTemplateReader.h"
#include "loading/TemplateLoading_p.h"
#include "model/CCatalogTemplate.h"
#include "xml/XmlLimits_p.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace Tobrix::Tools {

using namespace Templates;

namespace {

/// Reads standard input, at most one chunk over the limit, which is enough to report it.
bool readStandardInput(TemplateLoading &loading)
{
    constexpr int chunkSize = 64 * 1024;
    QFile input;
    QByteArray bytes;
    QByteArray chunk;
    if (input.open(stdin, QIODevice::ReadOnly)) {
        do {
            chunk = input.read(chunkSize);
            bytes += chunk;
        } while (!chunk.isEmpty() && bytes.size() <= Limits::fileSize);
    }
    if (input.error() != QFileDevice::NoError) {
        loading.failToRead(input.errorString());
        return false;
    }
    return loading.readBytes(bytes);
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

bool LoadedFile::hasProblem() const
{
    return report.outcome() != CTemplateReadingReport::Loaded &&
           report.outcome() != CTemplateReadingReport::NothingOfATemplate;
}

TemplateFormat formatOfFile(const QString &fileName, const LoadingOptions &options)
{
    const QString path = fileName.isEmpty() ? fileName : QFileInfo(fileName).absoluteFilePath();
    return options.format.value_or(CTemplateReader::formatOf(path));
}

bool readTemplate(TemplateLoading &loading, const QString &fileName)
{
    return fileName == standardInput ? readStandardInput(loading) : loading.readFile();
}

LoadedTemplate loadTemplate(const QString &fileName, const LoadingOptions &options)
{
    const LoadLog log;
    LoadedTemplate loaded;
    loaded.fileName = fileName;
    loaded.format = formatOfFile(fileName, options);
    TemplateLoading loading(fileName, loaded.format, options.way);
    loading.logFormat();
    if (readTemplate(loading, fileName)) {
        loaded.catalogTemplate = loading.buildTemplate();
    }
    loaded.report = loading.report();
    loaded.log = log.lines();
    return loaded;
}

LoadedRawData loadRawData(const QString &fileName, const LoadingOptions &options)
{
    const LoadLog log;
    LoadedRawData loaded;
    loaded.fileName = fileName;
    loaded.format = formatOfFile(fileName, options);
    TemplateLoading loading(fileName, loaded.format, options.way);
    loaded.isRead = readTemplate(loading, fileName);
    loaded.report = loading.report();
    loaded.rawData = loading.takeRawData();
    loaded.log = log.lines();
    return loaded;
}

} // namespace Tobrix::Tools
