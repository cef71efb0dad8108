#pragma once

#include <QtGlobal>

class QString;

namespace Tobrix::CATManagement {

/// What the host's registry knows of one catalogue template. Supplied by the host.
class Q_DECL_IMPORT CTemplateDescriptor
{
public:
    /// The template's type.
    /// @return empty when the registry has none either
    QString type() const;
};

} // namespace Tobrix::CATManagement
