#pragma once

#include <cstddef>

namespace Tobrix::Benchmarks {

/// What was taken from malloc. Counted at malloc itself: Qt's strings do not pass through operator new.
struct HeapCount
{
    double allocations = 0; ///< Calls that gave memory.
    double bytesHeld = 0;   ///< Bytes that were not given back, as malloc rounds them.
};

/// Counts while it exists, on one thread, one at a time. Costs next to nothing at any other time.
class HeapCounter
{
public:
    HeapCounter();
    ~HeapCounter();
    HeapCounter(const HeapCounter &) = delete;
    HeapCounter &operator=(const HeapCounter &) = delete;

    HeapCount count() const;
};

} // namespace Tobrix::Benchmarks
