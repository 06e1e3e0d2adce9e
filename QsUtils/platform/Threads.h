// Threads of the system: contract. Waiting for one and giving its handle back is done through the names of
// `Handles.h`, and so are mutexes and events (`Signals.h`). Any thread may call anything.
#pragma once

#include <cstdint>

#include "QsUtils/platform/Handles.h"

namespace QsPlatform {

/// A number of the calling thread that no other running thread of the process has.
std::uint32_t CurrentThreadId() noexcept;

/// The system's number of the calling thread's last failure.
std::uint32_t LastSystemError() noexcept;

/// Starts a thread at once and writes its id, as `CurrentThreadId` gives it there. The handle is the
/// caller's. Null, with `id` 0, when the system has no thread to give, and for a null routine.
HANDLE StartRunningThread(QsThreadRoutine routine, void* parameter, std::uint32_t& id) noexcept;

/// Makes a thread that doesn't run yet, so that its handle is known before its first step; null when there is
/// none to be had. The handle is the caller's.
HANDLE MakeStoppedThread(QsThreadRoutine routine, void* parameter) noexcept;

/// Lets a stopped thread run. False when the system has no thread to give: it will never run, and its handle
/// is only good for being closed.
bool RunStoppedThread(HANDLE thread) noexcept;

/// At the end of the module: threads that have ended are out of it when this returns, and nothing of the
/// handles is left that hosts forgot to close. Threads that still run are left alone, and handles with them.
void EndHandles() noexcept;

}  // namespace QsPlatform
