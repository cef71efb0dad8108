#pragma once

#include <QtGlobal>

class QString;

namespace Tobrix::CATManagement {

class CTemplateDescriptor;

/// The host's registry of catalogue templates. Supplied by the host.
class Q_DECL_IMPORT CCatalogTemplateRegistry
{
public:
    /// The registered template of that unique id, owned by the registry; null when there is none.
    CTemplateDescriptor *templateByUniqueId(const QString &uniqueId) const;
};

} // namespace Tobrix::CATManagement
