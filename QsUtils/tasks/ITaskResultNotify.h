/// @file
/// Who hears of the end of tasks.
#pragma once

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// Called on the task's thread, while the manager lets no other thread in: a callback may call the manager,
/// but one that waits for another thread which needs the manager waits for ever. What it raises is dropped.
/// The manager doesn't own its observers.
class QSUTILS_API ITaskResultNotify {
public:
    /// The task of that name has ended well.
    virtual void OnTaskSuccess(const CString& name) = 0;
    /// The task of that name has failed. `reason` is always empty.
    virtual void OnTaskFailed(const CString& name, const CString& reason) = 0;
};
