// Threads that are started and told to the log.
#pragma once

#include <cstdint>

#include "QsUtils/platform/Handles.h"
#include "QsUtils/text/CString.h"

namespace QsTasks {

/// `IQsUtils` documents it.
HANDLE StartThread(QsThreadRoutine routine, void* parameter, const CString& name, std::uint32_t* id);

/// What came of a start: writes the id, if it is asked for, and the line of the log, and returns the handle.
/// `INVALID_HANDLE_VALUE` is the failure that is told, and becomes null; null counts as a thread with the id
/// that it has.
HANDLE ReportStart(HANDLE thread, std::uint32_t threadId, std::uint32_t error, const CString& name,
                   std::uint32_t* id) noexcept;

}  // namespace QsTasks
