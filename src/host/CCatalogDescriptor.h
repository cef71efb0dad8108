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

    /// The catalogue's identifier.
    /// @return null when never set
    QString id() const;
    /// Sets the catalogue's identifier.
    /// @param id the catalogue's identifier; empty for none
    void setId(const QString &id);

    /// The country that the catalogue is for, as a code.
    /// @return null when never set
    QString countryCode() const;
    /// Sets the country code.
    /// @param countryCode the country that the catalogue is for, as a code; empty for none
    void setCountryCode(const QString &countryCode);

    /// The language that the catalogue is written in, as a code.
    /// @return null when never set
    QString languageCode() const;
    /// Sets the language code.
    /// @param languageCode the language that the catalogue is written in, as a code; empty for none
    void setLanguageCode(const QString &languageCode);

private:
    QString m_id;
    QString m_countryCode;
    QString m_languageCode;
};

} // namespace Tobrix::CATManagement
