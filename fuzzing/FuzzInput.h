#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>

namespace Tobrix::Fuzzing {

/// Writes an input to a file in memory, the same one for every input.
/// @return the file's path
QString fileOf(const std::uint8_t *bytes, std::size_t size);

} // namespace Tobrix::Fuzzing
