#pragma once

#include <cstddef>
#include <cstring>

/// Whether virtualSlot() is supported on this platform.
#if defined(__x86_64__) && defined(__GNUC__)
inline constexpr bool virtualSlotsAreKnown = true;
#else
inline constexpr bool virtualSlotsAreKnown = false;
#endif

/// The index of an operation in its class's vtable, -1 for a non-virtual one. A destructor uses the first
/// two.
template <typename Function>
int virtualSlot(Function function)
{
    // A pointer to a virtual member is the offset into the table plus one, by the C++ ABI.
    std::ptrdiff_t words[2] = {};
    static_assert(sizeof(function) == sizeof(words));
    std::memcpy(words, &function, sizeof(words));
    return words[0] % 2 == 0 ? -1 : static_cast<int>((words[0] - 1) / static_cast<int>(sizeof(void *)));
}
