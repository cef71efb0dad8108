#include "loading/CTemplateReader.h"

#include "loading/TemplateLoading_p.h"
#include "model/CCatalogTemplate.h"

namespace Tobrix::Templates {

namespace {

bool load(TemplateLoading &loading, CTemplateReader::ReaderFlags flags, CCatalogTemplate *&catalogTemplate)
{
    catalogTemplate = nullptr;
    loading.logFormat();
    // No flag has a meaning yet: a caller that sets one expects a feature that this version does not have.
    if (flags != 0 || !loading.readFile()) {
        return false;
    }
    catalogTemplate = loading.buildTemplate().release();
    return catalogTemplate != nullptr;
}

} // namespace

bool CTemplateReader::readFile(const QString &fileName, ReaderFlags flags, CCatalogTemplate *&catalogTemplate)
{
    TemplateLoading loading(fileName, formatOf(fileName));
    return load(loading, flags, catalogTemplate);
}

bool CTemplateReader::readFileWithReport(const QString &fileName, ReaderFlags flags,
                                         CCatalogTemplate *&catalogTemplate, CTemplateReadingReport &report)
{
    TemplateLoading loading(fileName, formatOf(fileName));
    const bool isLoaded = load(loading, flags, catalogTemplate);
    report = flags != 0 ? loading.reportOnFlags(flags) : loading.report();
    return isLoaded;
}

TemplateFormat CTemplateReader::formatOf(const QString &path)
{
    return path.contains(QLatin1String("templates_new/"), Qt::CaseSensitive) ? TemplateFormat::Current
                                                                             : TemplateFormat::Legacy;
}

} // namespace Tobrix::Templates
