#include "QsUtils/tasks/StartThread.h"

#include "QsUtils/frame/Log.h"
#include "QsUtils/platform/Threads.h"

namespace QsTasks {

HANDLE ReportStart(HANDLE thread, std::uint32_t threadId, std::uint32_t error, const CString& name,
                   std::uint32_t* id) noexcept {
    if (thread == INVALID_HANDLE_VALUE) {
        QsFrame::Log(u"[ERROR]: Create '%s' thread failed!Error code:0x%x.", name, error);
        return nullptr;
    }
    if (id != nullptr)
        *id = threadId;
    QsFrame::Log(u"[INFO]: Create '%s' thread(0x%x) success!", name, threadId);
    return thread;
}

HANDLE StartThread(QsThreadRoutine routine, void* parameter, const CString& name, std::uint32_t* id) {
    std::uint32_t threadId = 0;
    HANDLE thread = QsPlatform::StartRunningThread(routine, parameter, threadId);
    return ReportStart(thread, threadId, QsPlatform::LastSystemError(), name, id);
}

}  // namespace QsTasks
