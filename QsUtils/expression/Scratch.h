// Work arrays of a parse.
#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include "QsUtils/platform/LargeMemory.h"

namespace ExpressionAnalyse {

/// An uninitialised array that needs no allocation up to `Inline` items.
template <typename T, std::size_t Inline>
class Scratch {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    Scratch() noexcept {}  // leaves the items uninitialised
    ~Scratch() { QsPlatform::FreeLarge(m_allocated, m_bytes); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    /// Makes room for `count` items; to be called once. Raises `std::bad_alloc`.
    T* Reserve(std::size_t count) {
        if (count > Inline) {
            m_allocated = static_cast<T*>(QsPlatform::AllocateLarge(count * sizeof(T)));
            m_bytes = count * sizeof(T);
            m_data = m_allocated;
        }
        return m_data;
    }
    T* Data() noexcept { return m_data; }
    const T* Data() const noexcept { return m_data; }

private:
    std::array<T, Inline> m_inline;
    T* m_allocated = nullptr;
    std::size_t m_bytes = 0;
    T* m_data = m_inline.data();
};

}  // namespace ExpressionAnalyse
