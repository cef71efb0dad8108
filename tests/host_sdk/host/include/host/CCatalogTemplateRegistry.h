#pragma once

#include "host/CTemplateDescriptor.h"

#include <map>
#include <memory>

namespace Tobrix::CATManagement {

/// A registry that is filled from outside.
class PIPEWORKS_API CCatalogTemplateRegistry
{
public:
    void enter(const QString &uniqueId, std::unique_ptr<CTemplateDescriptor> descriptor);
    CTemplateDescriptor *templateByUniqueId(const QString &uniqueId) const;

private:
    std::map<QString, std::unique_ptr<CTemplateDescriptor>> m_descriptors;
};

} // namespace Tobrix::CATManagement
