#include "HeapCounter.h"

#include <cerrno>
#include <cstddef>

#include <malloc.h>

namespace {

bool isCounting = false;
std::ptrdiff_t allocations = 0;
std::ptrdiff_t bytesHeld = 0;

void *counted(void *memory)
{
    if (isCounting && memory) {
        ++allocations;
        bytesHeld += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    }
    return memory;
}

void uncounted(void *memory)
{
    if (isCounting && memory) {
        bytesHeld -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
    }
}

} // namespace

// The C library's own allocator under its internal names; the definitions below replace the public ones.
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *memory);

__attribute__((visibility("default"))) void *malloc(std::size_t size) noexcept
{
    return counted(__libc_malloc(size));
}

__attribute__((visibility("default"))) void *calloc(std::size_t count, std::size_t size) noexcept
{
    return counted(__libc_calloc(count, size));
}

__attribute__((visibility("default"))) void *realloc(void *memory, std::size_t size) noexcept
{
    uncounted(memory);
    return counted(__libc_realloc(memory, size));
}

__attribute__((visibility("default"))) void *aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
    return counted(__libc_memalign(alignment, size));
}

__attribute__((visibility("default"))) int posix_memalign(void **memory, std::size_t alignment,
                                                          std::size_t size) noexcept
{
    *memory = counted(__libc_memalign(alignment, size));
    return *memory ? 0 : ENOMEM;
}

__attribute__((visibility("default"))) void free(void *memory) noexcept
{
    uncounted(memory);
    __libc_free(memory);
}
}

namespace Tobrix::Benchmarks {

HeapCounter::HeapCounter()
{
    allocations = 0;
    bytesHeld = 0;
    isCounting = true;
}

HeapCounter::~HeapCounter()
{
    isCounting = false;
}

HeapCount HeapCounter::count() const
{
    return {static_cast<double>(allocations), static_cast<double>(bytesHeld)};
}

} // namespace Tobrix::Benchmarks
