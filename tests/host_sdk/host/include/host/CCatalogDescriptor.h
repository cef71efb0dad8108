#pragma once

#include "host/Export.h"

#include <QSharedDataPointer>
#include <QString>

namespace Tobrix::CATManagement {

class CatalogDescriptorData;

/// Shares its data until somebody changes them.
class PIPEWORKS_API CCatalogDescriptor
{
public:
    CCatalogDescriptor();
    CCatalogDescriptor(const CCatalogDescriptor &other);
    CCatalogDescriptor &operator=(const CCatalogDescriptor &other);
    ~CCatalogDescriptor();

    void setId(const QString &id);
    void setCountryCode(const QString &countryCode);
    void setLanguageCode(const QString &languageCode);

    /// Everything in one text, such as "EN 1234 (de_AT)".
    QString label() const;

private:
    QSharedDataPointer<CatalogDescriptorData> m_data;
};

} // namespace Tobrix::CATManagement
