#include "QsUtils/platform/CopyCrew.h"

#include <exception>
#include <utility>

namespace QsPlatform {

CopyCrew::~CopyCrew() {
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
        m_waiting.clear();  // empty, unless memory ran out
    }
    m_change.notify_all();
}

void CopyCrew::CopyFiles(FileCopier& copier, const CopyBatch& batch) {
    for (const CopiedFile& file : batch.files) {
        if (m_isTargetUnseen && !HasRoom())
            return;
        if (copier.Copy(*batch.source, file, *batch.target, batch.isTargetUnseen) == CopyOutcome::NoRoom)
            m_hasRoom.store(false, std::memory_order_relaxed);
    }
}

void CopyCrew::Copy(CopyBatch batch) {
    m_files += batch.files.size();
    if (m_files > FilesWithoutHelp && !std::exchange(m_isHelpTried, true) && HasSecondProcessor())
        m_helper.Start([](void* crew) { static_cast<CopyCrew*>(crew)->Help(); }, this);
    if (!m_helper.IsStarted()) {
        CopyFiles(m_copier, batch);
        return;
    }
    bool isEnough = false;
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(std::move(batch));
        isEnough = m_waiting.size() > MostWaiting;
    }
    m_change.notify_all();
    if (isEnough)
        CopyOneWaiting();
}

/// Copies the batch that came last: the helper takes the first ones.
bool CopyCrew::CopyOneWaiting() {
    CopyBatch batch;
    {
        const std::lock_guard lock(m_mutex);
        if (m_waiting.empty())
            return false;
        batch = std::move(m_waiting.back());
        m_waiting.pop_back();
    }
    CopyFiles(m_copier, batch);
    return true;
}

void CopyCrew::Finish() {
    while (CopyOneWaiting()) {
    }
    std::unique_lock lock(m_mutex);
    m_change.wait(lock, [this] { return !m_isHelperBusy; });
}

void CopyCrew::Help() noexcept {
    try {
        FileCopier copier(!m_isTargetUnseen);
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_change.wait(lock, [this] { return m_isOver || !m_waiting.empty(); });
            if (m_isOver)
                return;
            CopyBatch batch = std::move(m_waiting.front());
            m_waiting.pop_front();
            m_isHelperBusy = true;
            lock.unlock();
            CopyFiles(copier, batch);
            batch = {};  // what is whole gets its name before anybody is told
            lock.lock();
            m_isHelperBusy = false;
            m_change.notify_all();
        }
    } catch (const std::exception&) {
        // Out of memory: files at hand aren't copied, as if the disk were full.
        m_hasRoom.store(false, std::memory_order_relaxed);
        const std::lock_guard lock(m_mutex);
        m_isHelperBusy = false;
        m_change.notify_all();
    }
}

}  // namespace QsPlatform
