/// @file
/// Handles that a host waits for and closes, and the routine of a thread. On Windows they are the system's
/// own; elsewhere the names and values are the same.
#pragma once

#include <cstdint>

#include "QsUtils/platform/Api.h"

/// What a thread runs. It must not raise; its result is the thread's.
using QsThreadRoutine = std::uint32_t (*)(void*);

#if defined(_WIN32)

// A host that wants all of the system's header includes it before the library's.
#if !defined(NOMINMAX)
#define NOMINMAX
#define QSUTILS_UNDEF_NOMINMAX
#endif
#if !defined(WIN32_LEAN_AND_MEAN)
#define WIN32_LEAN_AND_MEAN
#define QSUTILS_UNDEF_LEAN
#endif
#include <windows.h>
#if defined(QSUTILS_UNDEF_NOMINMAX)
#undef NOMINMAX
#undef QSUTILS_UNDEF_NOMINMAX
#endif
#if defined(QSUTILS_UNDEF_LEAN)
#undef WIN32_LEAN_AND_MEAN
#undef QSUTILS_UNDEF_LEAN
#endif

#else

/// Names a thread or a signal of this process. A value is never given twice while the module is loaded, so
/// that a handle which was closed stays a bad one.
using HANDLE = void*;
/// A count of milliseconds, or the result of a wait.
using DWORD = std::uint32_t;

/// A handle that is never open.
inline void* const INVALID_HANDLE_VALUE = reinterpret_cast<void*>(~std::uintptr_t{0});
inline constexpr DWORD INFINITE = 0xFFFFFFFF;     ///< no limit to a wait
inline constexpr DWORD WAIT_OBJECT_0 = 0;         ///< what was waited for is there
inline constexpr DWORD WAIT_TIMEOUT = 258;        ///< the time is up
inline constexpr DWORD WAIT_FAILED = 0xFFFFFFFF;  ///< there is no such handle

/// Waits until the thread has left this module and the process, or for `milliseconds` at most; `INFINITE`
/// waits without limit. `WAIT_OBJECT_0`, `WAIT_TIMEOUT`, or `WAIT_FAILED` at once for a handle that isn't
/// open. Any thread may call it, several for one handle; the handle may be closed meanwhile.
QSUTILS_API DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);

/// Gives a handle back; the thread behind it runs on. 0, and nothing happens, for a handle that isn't open.
QSUTILS_API int CloseHandle(HANDLE handle);

#endif
