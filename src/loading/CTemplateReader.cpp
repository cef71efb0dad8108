#include "loading/CTemplateReader.h"

#include "format_current/NewTemplateXMLReader.h"
#include "format_legacy/CTemplateXMLReader.h"
#include "loading/AbstractTemplateXmlReader.h"
#include "loading/CTemplateBuilder.h"
#include "loading/TemplateLocation_p.h"
#include "model/CCatalogTemplate.h"
#include "rawdata/CTemplateRawData.h"

#include "host/CCatalogTemplateRegistry.h"
#include "host/CLogger.h"
#include "host/CTemplateDescriptor.h"
#include "host/CoreApplication.h"

#include <memory>

namespace Tobrix::Templates {

namespace {

void logFormat(const QString &message)
{
    Logging::CLogger::logMessage(static_cast<Logging::LogLevel>(3), QStringLiteral("TemplateReader"),
                                 message);
}

std::unique_ptr<AbstractTemplateXmlReader> createReader(bool isNew)
{
    if (isNew) {
        logFormat(QStringLiteral("New templates version used for available projects standards reading"));
        return std::make_unique<NewTemplateXMLReader>();
    }
    logFormat(QStringLiteral("Old templates version used for available projects standards reading"));
    return std::make_unique<CTemplateXMLReader>();
}

const CATManagement::CCatalogTemplateRegistry *hostRegistry()
{
    const auto *application = AppLogic::CoreApplication::instance();
    return application ? application->catalogTemplateRegistry() : nullptr;
}

void completeType(CCatalogTemplate &catalogTemplate, const CATManagement::CCatalogTemplateRegistry &registry)
{
    const auto *descriptor = registry.templateByUniqueId(catalogTemplate.uniqueId());
    if (descriptor && catalogTemplate.type().isEmpty()) {
        catalogTemplate.setType(descriptor->type());
    }
}

} // namespace

bool CTemplateReader::readFile(const QString &fileName, ReaderFlags flags, CCatalogTemplate *&catalogTemplate)
{
    catalogTemplate = nullptr;

    const bool isNew = isCurrentFormatPath(fileName);
    CTemplateRawData rawData;
    const auto reader = createReader(isNew);
    // No flag has a meaning yet: a caller that sets one expects something that this version cannot give.
    if (flags != 0 || !reader->readFile(fileName, rawData)) {
        return false;
    }

    CTemplateBuilder builder;
    catalogTemplate = builder.buildTemplate(rawData, isNew);
    const auto *registry = hostRegistry();
    if (catalogTemplate && registry) {
        completeType(*catalogTemplate, *registry);
    }
    return catalogTemplate != nullptr;
}

} // namespace Tobrix::Templates
