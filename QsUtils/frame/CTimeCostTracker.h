// How long a piece of work takes, told to the log.
#pragma once

#include <cstdint>

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// Writes "[INFO]: <name> costs <n>ms." to the log at its end, n being the milliseconds since it was made;
/// also for 0. A copy has the name and the start of its original, and reports as well. Any thread may make
/// one and any may end it; no failure of the log is told.
class QSUTILS_API CTimeCostTracker {
public:
    CTimeCostTracker(const CString& name);
    CTimeCostTracker(const CTimeCostTracker&);
    CTimeCostTracker& operator=(const CTimeCostTracker&);
    virtual ~CTimeCostTracker();

private:
    CString m_strName;
    std::uint32_t m_nStartTick;
};
