// The interfaces through which the library meets its host, as the standalone host implements them.

#include "standalone_host/HostData_p.h"

#include "host/CCatalogDescriptor.h"
#include "host/CCatalogTemplateRegistry.h"
#include "host/CLogger.h"
#include "host/CTableDescriptors.h"
#include "host/CTemplateDescriptor.h"
#include "host/CoreApplication.h"

namespace Tobrix {

using Standalone::RegisteredTemplate;
using Standalone::StandaloneHostPrivate;

void Logging::CLogger::logMessage(LogLevel level, const QString &category, const QString &message)
{
    StandaloneHostPrivate::instance().log(static_cast<int>(level), category, message);
}

AppLogic::CoreApplication *AppLogic::CoreApplication::instance()
{
    static CoreApplication application;
    return &application;
}

CATManagement::CCatalogTemplateRegistry *AppLogic::CoreApplication::catalogTemplateRegistry() const
{
    static CATManagement::CCatalogTemplateRegistry registry;
    return &registry;
}

CATManagement::CTemplateDescriptor *
CATManagement::CCatalogTemplateRegistry::templateByUniqueId(const QString &uniqueId) const
{
    return StandaloneHostPrivate::instance().templateByUniqueId(uniqueId);
}

QString CATManagement::CTemplateDescriptor::type() const
{
    // Every descriptor there is was registered with this host.
    return static_cast<const RegisteredTemplate *>(this)->registeredType;
}

Database::DBTableType Database::CTableDescriptors::tableTypeFromTableName(const QString &tableName)
{
    return static_cast<DBTableType>(StandaloneHostPrivate::instance().tableType(tableName));
}

CATManagement::CCatalogDescriptor::CCatalogDescriptor() = default;

QString CATManagement::CCatalogDescriptor::id() const
{
    return m_id;
}

void CATManagement::CCatalogDescriptor::setId(const QString &id)
{
    m_id = id;
}

QString CATManagement::CCatalogDescriptor::countryCode() const
{
    return m_countryCode;
}

void CATManagement::CCatalogDescriptor::setCountryCode(const QString &countryCode)
{
    m_countryCode = countryCode;
}

QString CATManagement::CCatalogDescriptor::languageCode() const
{
    return m_languageCode;
}

void CATManagement::CCatalogDescriptor::setLanguageCode(const QString &languageCode)
{
    m_languageCode = languageCode;
}

} // namespace Tobrix
