// Files copied by two threads.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "QsUtils/platform/FolderCopying.h"
#include "QsUtils/platform/FolderCursor.h"
#include "QsUtils/platform/HelperThread.h"

namespace QsPlatform {

/// Files of one folder that are copied together.
struct CopyBatch {
    std::shared_ptr<const HeldFolder> source;
    std::shared_ptr<const HeldFolder> target;
    std::vector<CopiedFile> files;
    bool isTargetUnseen = false;
    /// Held until all files are copied; may be null.
    std::shared_ptr<const void> unseen;
};

/// Copies batches in no order, on the caller's thread and, once there is enough of them, on one more: making
/// a file is the kernel's work for the most part, and a second processor halves it. All are copied when the
/// object goes. For one thread at a time.
class CopyCrew {
public:
    /// When nobody sees the whole target yet, what remains is left out as soon as there is no room for a
    /// file, and no copy is marked as read-only.
    explicit CopyCrew(bool isTargetUnseen) : m_isTargetUnseen(isTargetUnseen), m_copier(!isTargetUnseen) {}
    CopyCrew(const CopyCrew&) = delete;
    CopyCrew& operator=(const CopyCrew&) = delete;
    ~CopyCrew();

    void Copy(CopyBatch batch);
    /// Returns when all batches are copied.
    void Finish();
    /// Whether there has been room for all files so far.
    bool HasRoom() const noexcept { return m_hasRoom.load(std::memory_order_relaxed); }

private:
    /// Fewer files are copied before a thread has begun.
    static constexpr std::size_t FilesWithoutHelp = 200;
    /// The caller takes part when so many batches wait.
    static constexpr std::size_t MostWaiting = 4;

    void CopyFiles(FileCopier& copier, const CopyBatch& batch);
    bool CopyOneWaiting();
    void Help() noexcept;

    bool m_isTargetUnseen;
    std::atomic<bool> m_hasRoom{true};
    FileCopier m_copier;
    std::size_t m_files = 0;
    bool m_isHelpTried = false;

    std::mutex m_mutex;
    std::condition_variable m_change;
    std::deque<CopyBatch> m_waiting;
    bool m_isHelperBusy = false;
    bool m_isOver = false;
    HelperThread m_helper;
};

}  // namespace QsPlatform
