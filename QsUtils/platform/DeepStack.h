// Work that needs more stack than the caller may have: contract.
#pragma once

#include <cstddef>

namespace QsPlatform {

/// Runs `work(argument)` to its end on a stack of its own with at least `bytes` bytes. What the work raises
/// is raised again, as the same object; `std::bad_alloc` when there is no such stack. The calling thread
/// waits. Only memory that the work touches is used.
void RunOnDeepStack(std::size_t bytes, void (*work)(void*), void* argument);

}  // namespace QsPlatform
