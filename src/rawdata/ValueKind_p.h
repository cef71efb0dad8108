#pragma once

namespace Tobrix::Templates {

/// How a reader takes a value of a file.
enum class ValueKind : unsigned char {
    Text,       ///< as it stands
    Exact,      ///< as it stands, and compared with others: a name, a code, a key
    Flag,       ///< true for "true", else false
    Integer,    ///< a decimal number of 32 bits, or 0
    Real,       ///< a number, or 0
    WholeOfReal ///< a number without its decimal places, as near as 32 bits allow, or 0
};

} // namespace Tobrix::Templates
