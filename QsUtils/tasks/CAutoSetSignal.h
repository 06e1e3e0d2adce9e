// A signal that is given on every way out of a scope.
#pragma once

#include <cstdint>

#include "QsUtils/platform/Signals.h"

namespace QsTasks {

/// Sets an event or releases a mutex when it is destroyed. It doesn't own the handle.
class CAutoSetSignal {
public:
    enum Kind : std::uint32_t { Event = 0, Mutex = 1 };

    /// Any other kind than the two named ones does nothing.
    CAutoSetSignal(HANDLE handle, std::uint32_t kind) noexcept : m_hSignal(handle), m_nKind(kind) {}
    CAutoSetSignal(const CAutoSetSignal&) = delete;
    CAutoSetSignal& operator=(const CAutoSetSignal&) = delete;
    virtual ~CAutoSetSignal() {
        if (m_nKind == Event)
            QsPlatform::SignalEvent(m_hSignal);
        else if (m_nKind == Mutex)
            QsPlatform::ReleaseOwnedMutex(m_hSignal);
    }

private:
    HANDLE m_hSignal;
    std::uint32_t m_nKind;
};

}  // namespace QsTasks
