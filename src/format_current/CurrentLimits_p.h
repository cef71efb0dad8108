#pragma once

#include <QString>

namespace Tobrix::Templates {

class CurrentMarkup;

/// What a document has more of than a template may have.
struct CurrentExcess
{
    int element = -1; ///< The first one that is too many; -1 when there is none.
    QString explanation;
};

/// Counts what the reader would make of a document, where containers may be nested and share what they hold.
CurrentExcess excessOf(const CurrentMarkup &markup);

} // namespace Tobrix::Templates
