// One file copied from one place to another.
#pragma once

#include <string>

#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/FolderCopying.h"

namespace QsPlatform {

/// As `CopyOneFile` does, with paths that the system's calls take. A file of an unseen target is written
/// straight to its name.
CopyOutcome CopyBetween(const std::wstring& source, std::wstring target, bool isTargetUnseen);

/// As `RewriteFile` does.
Rewriting RewriteBy(const std::wstring& source, const std::wstring& target);

/// Takes the read-only mark off a file.
void TakeMarkOff(const std::wstring& path);

/// Takes the read-only mark off, and with it all others.
bool SetNormal(const std::wstring& path);

}  // namespace QsPlatform
