// Who may call the companion module.
#pragma once

#include "QsUtils/platform/RecursiveMutex.h"

namespace QsDirectory {

/// Held around every call into the companion and as long as anything is read that it has handed out: it is
/// promised one call at a time, and it may answer all calls from the same objects. It may call the library
/// back.
QsPlatform::RecursiveMutex& CompanionLock() noexcept;

}  // namespace QsDirectory
