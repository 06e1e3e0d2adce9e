// Runs a piece of a test on a thread with little stack, where a recursion over the input would show.
#pragma once

#include <cstddef>
#include <functional>

/// Runs `work` to its end on a thread with `bytes` of stack; under a sanitizer, whose frames are larger, with
/// four times that.
void RunOnSmallStack(std::size_t bytes, std::function<void()> work);
