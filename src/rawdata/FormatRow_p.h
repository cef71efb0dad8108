#pragma once

#include "rawdata/ValueKind_p.h"

#include <QLatin1String>

namespace Tobrix::Templates {

/// The allowed words of a value.
struct FormatWords
{
    const QLatin1String *first = nullptr;
    int count = 0;

    const QLatin1String *begin() const { return first; }
    const QLatin1String *end() const { return first + count; }
    bool isEmpty() const { return count == 0; }
};

/// A value that a format reader takes from documents: one row of the format's table.
struct FormatRow
{
    QLatin1String element;   ///< Name of the element that has the value
    QLatin1String attribute; ///< and of the attribute; empty for the element's text or presence.
    ValueKind kind = ValueKind::Text;
    QLatin1String meaning; ///< What the value means, as a phrase for users.
    FormatWords words;     ///< All words that have a meaning; empty when any text does.
};

} // namespace Tobrix::Templates
