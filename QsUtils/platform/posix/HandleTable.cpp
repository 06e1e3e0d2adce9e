#include "QsUtils/platform/posix/HandleTable.h"

#include <algorithm>
#include <exception>
#include <utility>
#include <vector>

namespace QsPlatform {

namespace {

/// A place of the table. Its generation grows with each handle that it had, so that an old value is no open
/// handle, whoever has the place now.
struct Slot {
    SharedHandleObject object;
    std::uint64_t generation = 0;
    std::size_t nextFree = 0;
};

constexpr std::size_t NoSlot = ~std::size_t{0};
constexpr unsigned IndexBits = 24;
constexpr std::size_t MostSlots = (std::size_t{1} << IndexBits) - 1;

struct Table {
    std::vector<Slot> slots;
    std::size_t firstFree = NoSlot;
};

// Freed by the end of the module, which calls `CloseAllHandles`; both stand before any code runs.
constinit std::mutex theLock;
constinit Table* theTable = nullptr;

/// Multiples of four, as the other system's are, and never null.
HANDLE HandleOf(std::size_t index, std::uint64_t generation) noexcept {
    return reinterpret_cast<HANDLE>(((generation << IndexBits) | (index + 1)) << 2);
}

Slot* FindSlot(HANDLE handle) noexcept {
    const std::size_t index = ((reinterpret_cast<std::uintptr_t>(handle) >> 2) & MostSlots) - 1;
    if (theTable == nullptr || index >= theTable->slots.size())
        return nullptr;
    Slot& slot = theTable->slots[index];
    return slot.object != nullptr && HandleOf(index, slot.generation) == handle ? &slot : nullptr;
}

bool MakeFreeSlot() noexcept {
    try {
        if (theTable == nullptr)
            theTable = new Table;
        if (theTable->firstFree != NoSlot)
            return true;
        if (theTable->slots.size() == MostSlots)
            return false;
        theTable->slots.emplace_back().nextFree = NoSlot;
        theTable->firstFree = theTable->slots.size() - 1;
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

SharedHandleObject TakeObject(Slot& slot) noexcept {
    ++slot.generation;
    slot.nextFree = theTable->firstFree;
    theTable->firstFree = static_cast<std::size_t>(&slot - theTable->slots.data());
    return std::exchange(slot.object, nullptr);
}

}  // namespace

HandleLock LockHandles() {
    return HandleLock(theLock);
}

Deadline::Deadline(DWORD milliseconds) : m_isNow(milliseconds == 0) {
    if (milliseconds != INFINITE)
        m_moment = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
}

bool Deadline::IsOver() const {
    return m_moment && (m_isNow || std::chrono::steady_clock::now() >= *m_moment);
}

bool Deadline::Await(std::condition_variable& change, HandleLock& lock) const {
    if (m_isNow)
        return false;
    if (!m_moment) {
        change.wait(lock);
        return true;
    }
    return change.wait_until(lock, *m_moment) == std::cv_status::no_timeout;
}

void Deadline::Pause(std::condition_variable& change, HandleLock& lock,
                     std::chrono::microseconds pause) const {
    const auto moment = std::chrono::steady_clock::now() + pause;
    change.wait_until(lock, m_moment ? std::min(moment, *m_moment) : moment);
}

HANDLE OpenHandle(const HandleLock&, SharedHandleObject object) noexcept {
    if (!MakeFreeSlot())
        return nullptr;
    const std::size_t index = theTable->firstFree;
    Slot& slot = theTable->slots[index];
    theTable->firstFree = slot.nextFree;
    slot.object = std::move(object);
    return HandleOf(index, slot.generation);
}

SharedHandleObject FindObject(const HandleLock&, HANDLE handle) noexcept {
    const Slot* const slot = FindSlot(handle);
    return slot == nullptr ? nullptr : slot->object;
}

void CloseAllHandles(const HandleLock&) noexcept {
    if (theTable == nullptr)
        return;
    delete std::exchange(theTable, nullptr);
}

}  // namespace QsPlatform

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds) {
    using namespace QsPlatform;
    const Deadline deadline(milliseconds);
    HandleLock lock = LockHandles();
    const SharedHandleObject object = FindObject(lock, handle);
    return object == nullptr ? WAIT_FAILED : object->Wait(lock, deadline);
}

int CloseHandle(HANDLE handle) {
    using namespace QsPlatform;
    const HandleLock lock = LockHandles();
    Slot* const slot = FindSlot(handle);
    if (slot == nullptr)
        return 0;
    TakeObject(*slot);
    return 1;
}
