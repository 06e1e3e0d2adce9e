#include "QsUtils/platform/LargeMemory.h"

#include <new>

#include <sys/mman.h>

namespace QsPlatform {

namespace {

// Below this the allocator's own memory is warm more often than not.
constexpr std::size_t LeastMapping = std::size_t{4} << 20;

}  // namespace

void* AllocateLarge(std::size_t bytes) {
    if (bytes < LeastMapping)
        return ::operator new(bytes);
    void* const memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    madvise(memory, bytes, MADV_HUGEPAGE);  // a wish: without it the pages are small
    return memory;
}

void FreeLarge(void* memory, std::size_t bytes) noexcept {
    if (bytes < LeastMapping)
        ::operator delete(memory);
    else if (memory != nullptr)
        munmap(memory, bytes);
}

}  // namespace QsPlatform
