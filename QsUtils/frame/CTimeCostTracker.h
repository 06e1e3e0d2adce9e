/// @file
/// How long a piece of work takes, told to the log.
#pragma once

#include <cstdint>

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// Writes "[INFO]: <name> costs <n>ms." to the log at its end, n being the milliseconds since it was made;
/// also for 0. A copy has the name and the start of its original, and reports as well. Any thread may make
/// one and any may end it; no failure of the log is told.
class QSUTILS_API CTimeCostTracker {
public:
    /// Begins to count.
    CTimeCostTracker(const CString& name);
    /// The same name and start; reports as well.
    CTimeCostTracker(const CTimeCostTracker&);
    /// Takes over name and start; its own are never reported.
    CTimeCostTracker& operator=(const CTimeCostTracker&);
    /// Reports.
    virtual ~CTimeCostTracker();

private:
    CString m_strName;
    std::uint32_t m_nStartTick;
};
