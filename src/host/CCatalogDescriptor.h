#pragma once

#include <QString>

namespace Tobrix::CATManagement {

/// One catalogue that is assigned to a template: a value, copied freely. Its operations are supplied by the
/// host.
class Q_DECL_IMPORT CCatalogDescriptor
{
public:
    /// A descriptor whose three texts are null.
    CCatalogDescriptor();

    /// The catalogue's identifier; null when never set.
    QString id() const;
    /// Sets the catalogue's identifier.
    void setId(const QString &id);

    /// The country that the catalogue is for, as a code; null when never set.
    QString countryCode() const;
    /// Sets the country code.
    void setCountryCode(const QString &countryCode);

    /// The language that the catalogue is written in, as a code; null when never set.
    QString languageCode() const;
    /// Sets the language code.
    void setLanguageCode(const QString &languageCode);

private:
    QString m_id;
    QString m_countryCode;
    QString m_languageCode;
};

} // namespace Tobrix::CATManagement
