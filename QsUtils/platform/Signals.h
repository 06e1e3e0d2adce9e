// Mutexes and events behind handles: contract. They are waited for and closed like any handle. Any thread may
// call anything.
#pragma once

#include "QsUtils/platform/Handles.h"

namespace QsPlatform {

/// An unnamed mutex that nobody owns; null when there is none to be had. A wait for it makes the waiting
/// thread its owner, which may wait for it again; each wait needs its release.
HANDLE NewMutex() noexcept;
/// False, and nothing happens, when the calling thread isn't the owner or the handle isn't that of a mutex.
bool ReleaseOwnedMutex(HANDLE mutex) noexcept;

/// An unnamed event that isn't set and stays set once it is; null when there is none to be had.
HANDLE NewEvent() noexcept;
/// False when the handle isn't that of an event.
bool SignalEvent(HANDLE event) noexcept;

}  // namespace QsPlatform
