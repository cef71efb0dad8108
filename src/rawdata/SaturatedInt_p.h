#pragma once

#include <cmath>
#include <limits>

namespace Tobrix::Templates {

/// A number truncated to an int. Numbers out of range are saturated; not-a-number becomes 0.
inline int toSaturatedInt(double number)
{
    using Limits = std::numeric_limits<int>;
    if (std::isnan(number)) {
        return 0;
    }
    if (number <= static_cast<double>(Limits::min())) {
        return Limits::min();
    }
    if (number >= static_cast<double>(Limits::max())) {
        return Limits::max();
    }
    return static_cast<int>(number);
}

} // namespace Tobrix::Templates
