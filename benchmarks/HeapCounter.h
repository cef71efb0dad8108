#pragma once

#include <cstddef>

namespace Tobrix::Benchmarks {

/// Memory taken from malloc(). Counted there since Qt's strings do not use operator new.
struct HeapCount
{
    double allocations = 0; ///< Successful calls.
    double bytesHeld = 0;   ///< Bytes not freed, as malloc() rounds them.
};

/// Counts during its lifetime, on one thread, one counter at a time. Costs almost nothing otherwise.
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
