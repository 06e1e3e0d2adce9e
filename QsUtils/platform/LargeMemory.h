// Memory for large arrays that live for one operation: contract.
#pragma once

#include <cstddef>

namespace QsPlatform {

/// Uninitialised memory for `bytes` bytes, aligned for any type. For many megabytes the system is asked for
/// large pages, which come faster than ordinary ones where they are to be had. Raises `std::bad_alloc`. Any
/// thread may call it.
void* AllocateLarge(std::size_t bytes);

/// Gives back what `AllocateLarge` gave for the same number of bytes; null is nothing. Any thread.
void FreeLarge(void* memory, std::size_t bytes) noexcept;

}  // namespace QsPlatform
