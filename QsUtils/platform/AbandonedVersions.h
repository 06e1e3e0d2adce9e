// What killed processes leave of files and folders that they were about to put in place: contract.
#pragma once

#include <cstdint>
#include <string_view>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Whether a name is one under which new versions of files and folders are written.
bool IsVersionName(std::u16string_view name) noexcept;

/// Removes from a folder the new versions of files and folders that processes of this machine didn't live to
/// put in place. What a running process, or any process of another machine, is writing stays. Any thread may
/// call it; raises nothing but memory exhaustion.
void RemoveAbandonedVersions(const CString& folder);

// --- What the name of a new version, ".qsutils-MACHINE-PROCESS-...tmp" in hexadecimal digits, says of its
// writer.

/// Tells this machine from others that may see the same folder.
std::uint32_t ThisMachine() noexcept;
std::uint32_t ThisProcess() noexcept;
/// Whether no process of this machine has that number now.
bool IsProcessGone(std::uint32_t process) noexcept;

}  // namespace QsPlatform
