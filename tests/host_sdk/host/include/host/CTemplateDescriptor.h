#pragma once

#include "host/Export.h"

#include <QString>

namespace Tobrix::CATManagement {

/// An interface: what a descriptor answers is its kind's own business.
class PIPEWORKS_API CTemplateDescriptor
{
public:
    virtual ~CTemplateDescriptor();
    virtual int rank() const = 0;
    virtual QString type() const = 0;
};

} // namespace Tobrix::CATManagement
