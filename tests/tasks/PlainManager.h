// The two queues of the task manager without threads: what each operation does, step by step.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

/// Tasks are told apart by numbers. A running one ends when the test says so.
class PlainManager {
public:
    struct Task {
        std::string name;
        int number = 0;
        bool isRunning = false;
    };

    explicit PlainManager(bool lastInFirstOut) : m_lastInFirstOut(lastInFirstOut) {}

    std::vector<Task> active;
    std::vector<Task> waiting;
    std::vector<int> started;       ///< the tasks that got a thread, in order
    std::vector<std::string> told;  ///< what observers have heard, in order
    std::vector<int> deleted;
    std::uint64_t limit = 10;

    int Start(const Task& task) {
        if (IsWaiting(task.name) || IsActive(task.name)) {
            deleted.push_back(task.number);
            return 0;
        }
        if (EnterActive(task)) {
            active.back().isRunning = true;
            started.push_back(task.number);
            return 1;
        }
        waiting.push_back(task);
        return 1;
    }

    void StartNext() {
        if (waiting.empty())
            return;
        const Task next = m_lastInFirstOut ? waiting.back() : waiting.front();
        waiting.erase(m_lastInFirstOut ? waiting.end() - 1 : waiting.begin());
        Start(next);
    }

    /// The running task of that name ends.
    void End(const std::string& name, bool isInitialised, int code) {
        const auto task = FindActive(name);
        if (isInitialised)
            task->isRunning = false;
        if (isInitialised && code == -1)
            return;
        told.push_back((code != 0 ? "+" : "-") + name);
        if (isInitialised)
            StartNext();
        else
            DeleteActive(FindActive(name));
    }

    /// A running task must have ended.
    void Cancel(const std::string& name) {
        if (const auto task = FindActive(name); task != active.end())
            return DeleteActive(task);
        for (auto task = waiting.begin(); task != waiting.end(); ++task) {
            if (task->name == name) {
                deleted.push_back(task->number);
                waiting.erase(task);
                return;
            }
        }
    }

    void DeleteWaiting() {
        for (const Task& task : waiting)
            deleted.push_back(task.number);
        waiting.clear();
    }

    bool IsActive(const std::string& name) {
        for (auto task = active.begin(); task != active.end();) {
            if (task->isRunning && task->name == name)
                return true;
            if (task->isRunning) {
                ++task;
            } else {
                deleted.push_back(task->number);
                task = active.erase(task);
            }
        }
        return false;
    }

    bool IsWaiting(const std::string& name) const {
        return std::any_of(waiting.begin(), waiting.end(),
                           [&](const Task& task) { return task.name == name; });
    }

    std::vector<Task>::iterator FindActive(const std::string& name) {
        return std::find_if(active.begin(), active.end(),
                            [&](const Task& task) { return task.name == name; });
    }

    std::uint64_t CountRunning() const {
        return static_cast<std::uint64_t>(
            std::count_if(active.begin(), active.end(), [](const Task& task) { return task.isRunning; }));
    }

private:
    bool EnterActive(const Task& task) {
        for (auto one = active.begin(); one != active.end();) {
            if (one->name != task.name) {
                ++one;
            } else if (one->isRunning) {
                return false;
            } else {
                deleted.push_back(one->number);
                one = active.erase(one);
            }
        }
        if (CountRunning() >= limit)
            return false;
        active.push_back(task);
        return true;
    }

    void DeleteActive(std::vector<Task>::iterator task) {
        deleted.push_back(task->number);
        active.erase(task);
    }

    const bool m_lastInFirstOut;
};
