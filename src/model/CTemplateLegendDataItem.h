#pragma once

#include "TobrixTemplatesExport.h"

#include <QString>

namespace Tobrix::Templates {

/// One band of a classification legend: a range of numbers with a colour and two captions. A value, copied
/// freely.
class TOBRIX_TEMPLATES_EXPORT CTemplateLegendDataItem
{
public:
    /// A band from -1 to -1 without colour and captions.
    CTemplateLegendDataItem();

    /// Compares two bands.
    /// @param other the band to compare with
    /// @return whether both describe the same band: bounds and colour equal, captions equal but for the
    /// amount
    ///         of white space; the id does not count
    bool operator==(const CTemplateLegendDataItem &other);

    QString id;               ///< Identifier of the legend class; empty in the current format.
    double numberFrom = -1.0; ///< Lower bound of the band.
    double numberTo = -1.0;   ///< Upper bound of the band.
    QString color;            ///< Colour of the band, as text such as "#ff0000".
    QString textA;            ///< First caption.
    QString textB;            ///< Second caption.
};

} // namespace Tobrix::Templates
