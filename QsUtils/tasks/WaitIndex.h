// Finds waiting tasks by name without a walk through the queue.
#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <string_view>
#include <unordered_map>

#include "QsUtils/tasks/CThreadTask.h"
#include "QsUtils/text/CString.h"

namespace QsTasks {

/// The places of a queue by the names that its tasks had when they came. All under the queue lock.
class WaitIndex {
public:
    using Queue = std::list<CThreadTask*>;

    /// The name must be new.
    void Add(const CString& name, Queue::iterator place) { m_places.emplace(name, place); }

    /// The place, or `none`.
    Queue::iterator Find(const CString& name, Queue::iterator none) const {
        const auto found = m_places.find(name);
        return found == m_places.end() ? none : found->second;
    }

    void Remove(const CString& name, Queue::iterator place) noexcept {
        auto found = m_places.find(name);
        // A task that has changed its name all the same is found by its place.
        if (found == m_places.end() || found->second != place)
            for (found = m_places.begin(); found != m_places.end() && found->second != place;)
                ++found;
        if (found != m_places.end())
            m_places.erase(found);
    }

    void Clear() noexcept { m_places.clear(); }

private:
    struct Hash {
        std::size_t operator()(const CString& name) const noexcept {
            return std::hash<std::u16string_view>()(name.View());
        }
    };

    std::unordered_map<CString, Queue::iterator, Hash> m_places;
};

}  // namespace QsTasks
