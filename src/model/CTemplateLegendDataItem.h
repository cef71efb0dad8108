#pragma once

#include "TobrixTemplatesExport.h"

#include <QString>

namespace Tobrix::Templates {

/// One class of a classification legend: a range of numbers with a colour and two captions. A value, copied
/// freely.
class TOBRIX_TEMPLATES_EXPORT CTemplateLegendDataItem
{
public:
    /// A legend class from -1 to -1 without colour and captions.
    CTemplateLegendDataItem();

    /// Compares two legend classes.
    /// @param other the legend class to compare with
    /// @return whether bounds, colour and captions are equal, where captions may differ in the amount of
    ///        whitespace; the id is not compared
    bool operator==(const CTemplateLegendDataItem &other);

    QString id;               ///< Identifier of the legend class; empty in the current format.
    double numberFrom = -1.0; ///< Lower bound.
    double numberTo = -1.0;   ///< Upper bound.
    QString color;            ///< Colour, as text such as "#ff0000".
    QString textA;            ///< First caption.
    QString textB;            ///< Second caption.
};

} // namespace Tobrix::Templates
