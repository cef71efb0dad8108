#pragma once

namespace Tobrix::Templates {

/// How a reader converts a value from a file.
enum class ValueKind : unsigned char {
    Text,        ///< unchanged
    Exact,       ///< unchanged, and compared with others: a name, a code, a key
    Flag,        ///< true for "true", else false
    Integer,     ///< a decimal number of 32 bits, or 0
    Real,        ///< a number, or 0
    WholeOfReal, ///< a number without its decimal places, saturated to 32 bits, or 0
    Presence,    ///< only whether the element is there
    Ignored      ///< known, but nothing takes it
};

} // namespace Tobrix::Templates
