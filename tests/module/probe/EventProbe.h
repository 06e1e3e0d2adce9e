// Watches what happens in a process from inside its executable: the start and the end of the XML platform,
// and the moment at which chosen blocks of memory are freed. Each event becomes one line on standard output
// at once.
#pragma once

#include <cstddef>

namespace EventProbe {

void Report(const char* event) noexcept;

/// Reports `event` when the block is freed.
void WatchBlock(const void* block, const char* event) noexcept;

/// Between the two calls, blocks are noted as they are allocated; the second watches those that are still in
/// use and returns how many they are.
void BeginNotingBlocks() noexcept;
std::size_t WatchNotedBlocks(const char* event) noexcept;

/// From now on the XML platform raises an error as soon as it has started.
void MakeXmlFail() noexcept;

}  // namespace EventProbe
