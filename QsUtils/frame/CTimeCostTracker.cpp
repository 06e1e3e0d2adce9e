#include "QsUtils/frame/CTimeCostTracker.h"

#include "QsUtils/frame/Log.h"
#include "QsUtils/platform/Process.h"

CTimeCostTracker::CTimeCostTracker(const CString& name) : m_nStartTick(QsPlatform::TickCount()) {
    m_strName = name;  // copying a name is no part of the work
}

CTimeCostTracker::CTimeCostTracker(const CTimeCostTracker&) = default;
CTimeCostTracker& CTimeCostTracker::operator=(const CTimeCostTracker&) = default;

CTimeCostTracker::~CTimeCostTracker() {
    // Without a sign, so that the wrap of the tick count does no harm.
    const std::uint32_t cost = QsPlatform::TickCount() - m_nStartTick;
    QsFrame::Log(u"[INFO]: %s costs %dms.", m_strName, static_cast<std::int32_t>(cost));
}
