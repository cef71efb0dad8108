#pragma once

#include <QtGlobal>

class QString;

namespace Tobrix::CATManagement {

class CTemplateDescriptor;

/// The host's registry of catalogue templates. Supplied by the host.
class Q_DECL_IMPORT CCatalogTemplateRegistry
{
public:
    /// The registered template of a unique id.
    /// @param uniqueId the template's identity, compared exactly; may be empty
    /// @return what is known of the template, owned by the registry; null when it is not registered
    CTemplateDescriptor *templateByUniqueId(const QString &uniqueId) const;
};

} // namespace Tobrix::CATManagement
