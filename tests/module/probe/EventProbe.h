// Watches what happens inside of the module: the start and the end of the XML platform, and the moment at
// which chosen blocks of memory are freed. Each event becomes one line on standard output at once. The probe
// is linked into a module of its own, in front of the functions that it watches.
#pragma once

#include <cstddef>

namespace EventProbe {

TEST_EXPORT void Report(const char* event) noexcept;

/// Reports `event` when the module frees the block.
TEST_EXPORT void WatchBlock(const void* block, const char* event) noexcept;

/// Between the two calls, blocks are noted as the module allocates them; the second watches those that are
/// still in use and returns how many they are.
TEST_EXPORT void BeginNotingBlocks() noexcept;
TEST_EXPORT std::size_t WatchNotedBlocks(const char* event) noexcept;
/// Instead of the second call: watches only the first block, which others were allocated for.
TEST_EXPORT void WatchFirstNotedBlock(const char* event) noexcept;

/// Reports the end of the names in a backup, which the module holds from its start on, by the one that ends
/// last.
TEST_EXPORT void WatchBackUpNames(const char* event) noexcept;

/// While this variable of the environment is set, the XML platform raises an error as soon as it has started.
inline constexpr const char* failingXml = "QSUTILS_TEST_XML_FAILS";

}  // namespace EventProbe
