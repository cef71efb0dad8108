#pragma once

#include "host/CCatalogTemplateRegistry.h"

namespace Tobrix::AppLogic {

/// Lives in the host's main function.
class PIPEWORKS_API CoreApplication
{
public:
    CoreApplication();
    ~CoreApplication();

    static CoreApplication *instance();
    CATManagement::CCatalogTemplateRegistry *catalogTemplateRegistry() const;

private:
    const std::unique_ptr<CATManagement::CCatalogTemplateRegistry> m_registry;
};

} // namespace Tobrix::AppLogic
