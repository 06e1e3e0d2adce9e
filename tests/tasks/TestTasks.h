// Tasks and observers for the tests of the task manager.
#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "QsUtils/tasks/CQSThreadManager.h"

/// Holds threads back until it is opened.
class Gate {
public:
    void Open() {
        const std::lock_guard lock(m_lock);
        m_isOpen = true;
        m_change.notify_all();
    }
    void Pass() {
        std::unique_lock lock(m_lock);
        m_change.wait(lock, [this] { return m_isOpen; });
    }

private:
    std::mutex m_lock;
    std::condition_variable m_change;
    bool m_isOpen = false;
};

/// A list that threads write to and tests wait for.
class Journal {
public:
    using Entries = std::vector<std::u16string>;

    void Add(const CString& entry) {
        const std::lock_guard lock(m_lock);
        m_entries.emplace_back(entry.View());
        m_change.notify_all();
    }
    Entries Read() const {
        const std::lock_guard lock(m_lock);
        return m_entries;
    }
    Entries Await(std::size_t count) {
        std::unique_lock lock(m_lock);
        m_change.wait(lock, [&] { return m_entries.size() >= count; });
        return m_entries;
    }

private:
    mutable std::mutex m_lock;
    std::condition_variable m_change;
    Entries m_entries;
};

/// Writes "+name" and "-name" to a journal.
class JournalObserver : public ITaskResultNotify {
public:
    explicit JournalObserver(Journal& journal) : m_journal(journal) {}
    void OnTaskSuccess(const CString& name) override { m_journal.Add(u"+" + name); }
    void OnTaskFailed(const CString& name, const CString& reason) override {
        m_journal.Add(u"-" + name + reason);
    }

private:
    Journal& m_journal;
};

/// An observer made of functions.
class CallingObserver : public ITaskResultNotify {
public:
    std::function<void(const CString&)> onSuccess = [](const CString&) {};
    std::function<void(const CString&)> onFailure = [](const CString&) {};

    void OnTaskSuccess(const CString& name) override { onSuccess(name); }
    void OnTaskFailed(const CString& name, const CString&) override { onFailure(name); }
};

/// A task made of functions, which counts the living ones.
class TestTask : public CThreadTask {
public:
    using Work = std::function<std::int32_t()>;

    TestTask(CQSThreadManager& manager, const CString& name, Work work, std::atomic<int>* alive = nullptr)
        : CThreadTask(&manager, name, nullptr), m_work(std::move(work)), m_alive(alive) {
        if (m_alive != nullptr)
            ++*m_alive;
    }
    ~TestTask() override {
        onEnd();
        if (m_alive != nullptr)
            --*m_alive;
    }

    Work onInit = [] { return 1; };
    std::function<void()> onEnd = [] {};

    std::int32_t InitTask() override { return onInit(); }
    std::int32_t ExecuteTask(int, std::function<void()>) override { return m_work(); }

private:
    Work m_work;
    std::atomic<int>* m_alive;
};

/// Opens what a derived class may call.
class OpenManager : public CQSThreadManager {
public:
    using CQSThreadManager::CQSThreadManager;
    ~OpenManager() override { CancelAllTask(); }

    using CQSThreadManager::CloseTaskThread;
    using CQSThreadManager::EnterActiveQueue;
    using CQSThreadManager::EnterWaitQueue;
    using CQSThreadManager::GetActivedTaskReference;
    using CQSThreadManager::GetCurFirstWaitTaskInfo;
    using CQSThreadManager::StartTaskThread;
    using CQSThreadManager::StartThreadFromWaitInfo;
};
