#include "QsUtils/platform/LargeMemory.h"

#include <cstdint>
#include <new>

#include <sys/mman.h>

namespace QsPlatform {

namespace {

// Below this the allocator's own memory is warm more often than not.
constexpr std::size_t LeastMapping = std::size_t{4} << 20;
constexpr std::size_t LargePage = std::size_t{2} << 20;

std::size_t WholePages(std::size_t bytes) {
    return (bytes + LargePage - 1) / LargePage * LargePage;
}

/// Anonymous memory that begins at a large page.
void* MapPages(std::size_t bytes) {
    void* const mapped = mmap(nullptr, bytes + LargePage, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (mapped == MAP_FAILED)
        throw std::bad_alloc();
    auto* const begin = static_cast<std::byte*>(mapped);
    const std::size_t ahead =
        WholePages(reinterpret_cast<std::uintptr_t>(begin)) - reinterpret_cast<std::uintptr_t>(begin);
    if (ahead > 0)
        munmap(begin, ahead);
    if (ahead < LargePage)
        munmap(begin + ahead + bytes, LargePage - ahead);
    return begin + ahead;
}

}  // namespace

void* AllocateLarge(std::size_t bytes) {
    if (bytes < LeastMapping)
        return ::operator new(bytes);
    const std::size_t pages = WholePages(bytes);
    if (pages < bytes)
        throw std::bad_alloc();
    void* const memory = MapPages(pages);
    madvise(memory, pages, MADV_HUGEPAGE);  // a wish: without it the pages are small
    return memory;
}

void FreeLarge(void* memory, std::size_t bytes) noexcept {
    if (bytes < LeastMapping)
        ::operator delete(memory);
    else if (memory != nullptr)
        munmap(memory, WholePages(bytes));
}

}  // namespace QsPlatform
