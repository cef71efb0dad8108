#pragma once

#include <QString>

namespace Tobrix::Templates {

class CurrentMarkup;

/// The limit that a document exceeds.
struct CurrentExcess
{
    int element = -1; ///< The first element over the limit; -1 when there is none.
    QString explanation;
};

/// Counts the objects that the reader would create from a document. Elements in nested containers count for
/// each of them.
CurrentExcess excessOf(const CurrentMarkup &markup);

} // namespace Tobrix::Templates
