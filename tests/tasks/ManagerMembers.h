// The private operations of the task manager, which are part of its boundary. An explicit instantiation may
// name a private member, and so the tests reach them without a change of the class.
#pragma once

#include <list>
#include <map>
#include <utility>

#include "QsUtils/tasks/CQSThreadManager.h"

namespace ManagerMembers {

using TaskPlace = std::list<CThreadTask*>::iterator;

template <typename Tag, typename Tag::Member member>
struct Opened {
    friend constexpr typename Tag::Member MemberOf(Tag) { return member; }
};

#define OPEN_MEMBER(Name, Result, Operation, ...)                                        \
    struct Name {                                                                        \
        using Member = Result (CQSThreadManager::*)(__VA_ARGS__);                        \
        friend constexpr Member MemberOf(Name);                                          \
    };                                                                                   \
    template struct Opened<Name, static_cast<Result (CQSThreadManager::*)(__VA_ARGS__)>( \
                                     &CQSThreadManager::Operation)>;

OPEN_MEMBER(GetActiveTaskCount, std::uint64_t, GetActiveTaskCount)
OPEN_MEMBER(BeInActivQueue, int, BeInActivQueue, const CString&)
OPEN_MEMBER(BeInWaitQueue, int, BeInWaitQueue, const CString&)
OPEN_MEMBER(ExitFromActiveQueueByTask, TaskPlace, ExitFromActiveQueue, CThreadTask*, int)
OPEN_MEMBER(ExitFromActiveQueue, int, ExitFromActiveQueue, const CString&, int)
OPEN_MEMBER(ExitFromWaitQueue, int, ExitFromWaitQueue, const CString&, int)
OPEN_MEMBER(OnTaskComplete, int, OnTaskComplete, const CString&, int)

#undef OPEN_MEMBER

struct Results {
    using Member = std::map<CString, int> CQSThreadManager::*;
    friend constexpr Member MemberOf(Results);
};
template struct Opened<Results, &CQSThreadManager::m_mapResult>;

/// What each name's last task came to. Of a manager whose threads are idle.
inline const std::map<CString, int>& ResultsOf(const CQSThreadManager& manager) {
    return manager.*MemberOf(Results());
}

/// Calls the operation that `Tag` stands for.
template <typename Tag, typename... Arguments>
auto Call(CQSThreadManager& manager, Arguments&&... arguments) {
    return (manager.*MemberOf(Tag()))(std::forward<Arguments>(arguments)...);
}

}  // namespace ManagerMembers
