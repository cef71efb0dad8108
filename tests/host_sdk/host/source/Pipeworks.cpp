#include "host/CCatalogDescriptor.h"
#include "host/CLogger.h"
#include "host/CTableDescriptors.h"
#include "host/CoreApplication.h"

namespace Tobrix {

namespace {

AppLogic::CoreApplication *theApplication = nullptr;

std::vector<Logging::Entry> &log()
{
    static std::vector<Logging::Entry> entries;
    return entries;
}

} // namespace

void Logging::CLogger::logMessage(LogLevel level, const QString &category, const QString &message)
{
    log().push_back({level, category + QLatin1Char('/') + message});
}

const std::vector<Logging::Entry> &Logging::CLogger::entries()
{
    return log();
}

Database::DBTableType Database::CTableDescriptors::tableTypeFromTableName(const QString &tableName)
{
    return tableName.startsWith(QLatin1String("PIPE"))    ? Pipes
           : tableName.startsWith(QLatin1String("SHAFT")) ? Shafts
                                                          : Nothing;
}

namespace CATManagement {

class CatalogDescriptorData : public QSharedData
{
public:
    QString id;
    QString locale[2];
};

CTemplateDescriptor::~CTemplateDescriptor() = default;

void CCatalogTemplateRegistry::enter(const QString &uniqueId, std::unique_ptr<CTemplateDescriptor> descriptor)
{
    m_descriptors[uniqueId] = std::move(descriptor);
}

CTemplateDescriptor *CCatalogTemplateRegistry::templateByUniqueId(const QString &uniqueId) const
{
    const auto found = m_descriptors.find(uniqueId);
    return found == m_descriptors.end() ? nullptr : found->second.get();
}

CCatalogDescriptor::CCatalogDescriptor() : m_data(new CatalogDescriptorData)
{
}

CCatalogDescriptor::CCatalogDescriptor(const CCatalogDescriptor &other) = default;
CCatalogDescriptor &CCatalogDescriptor::operator=(const CCatalogDescriptor &other) = default;
CCatalogDescriptor::~CCatalogDescriptor() = default;

void CCatalogDescriptor::setId(const QString &id)
{
    m_data->id = id;
}

void CCatalogDescriptor::setCountryCode(const QString &countryCode)
{
    m_data->locale[1] = countryCode;
}

void CCatalogDescriptor::setLanguageCode(const QString &languageCode)
{
    m_data->locale[0] = languageCode;
}

QString CCatalogDescriptor::label() const
{
    return QStringLiteral("%1 (%2_%3)").arg(m_data->id, m_data->locale[0], m_data->locale[1]);
}

} // namespace CATManagement

AppLogic::CoreApplication::CoreApplication()
    : m_registry(std::make_unique<CATManagement::CCatalogTemplateRegistry>())
{
    theApplication = this;
}

AppLogic::CoreApplication::~CoreApplication()
{
    theApplication = nullptr;
}

AppLogic::CoreApplication *AppLogic::CoreApplication::instance()
{
    return theApplication;
}

CATManagement::CCatalogTemplateRegistry *AppLogic::CoreApplication::catalogTemplateRegistry() const
{
    return m_registry.get();
}

} // namespace Tobrix
