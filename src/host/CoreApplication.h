#pragma once

#include <QtGlobal>

namespace Tobrix::CATManagement {
class CCatalogTemplateRegistry;
}

namespace Tobrix::AppLogic {

/// The host application's core object. Supplied by the host.
class Q_DECL_IMPORT CoreApplication
{
public:
    /// The running application.
    /// @return the application, owned by the host; null before it has started or after it has ended
    static CoreApplication *instance();

    /// The registry of the catalogue templates that the host knows.
    /// @return the registry, owned by the host; may be null
    CATManagement::CCatalogTemplateRegistry *catalogTemplateRegistry() const;
};

} // namespace Tobrix::AppLogic
