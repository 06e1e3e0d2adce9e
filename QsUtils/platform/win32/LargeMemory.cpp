#include "QsUtils/platform/LargeMemory.h"

#include <new>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

// Below this the allocator's own memory is warm more often than not. Large pages need a privilege that users
// don't have, so none are asked for.
constexpr std::size_t LeastMapping = std::size_t{4} << 20;

}  // namespace

void* AllocateLarge(std::size_t bytes) {
    if (bytes < LeastMapping)
        return ::operator new(bytes);
    void* const memory = ::VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void FreeLarge(void* memory, std::size_t bytes) noexcept {
    if (bytes < LeastMapping)
        ::operator delete(memory);
    else if (memory != nullptr)
        ::VirtualFree(memory, 0, MEM_RELEASE);
}

}  // namespace QsPlatform
