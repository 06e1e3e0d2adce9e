// Memory for the many short texts of a bill.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace Estimate {

/// Keeps copies of texts side by side in large blocks, until the pool goes. Views stay valid when the pool is
/// moved. For one thread at a time.
class TextPool {
public:
    std::string_view Keep(std::string_view text) {
        if (text.empty())
            return {};
        if (text.size() > m_free) {
            m_free = std::max(BlockSize, text.size());
            m_blocks.push_back(std::make_unique_for_overwrite<char[]>(m_free));
            m_next = m_blocks.back().get();
        }
        char* place = m_next;
        std::memcpy(place, text.data(), text.size());
        m_next += text.size();
        m_free -= text.size();
        return {place, text.size()};
    }

private:
    static constexpr std::size_t BlockSize = 1 << 16;

    std::vector<std::unique_ptr<char[]>> m_blocks;
    char* m_next = nullptr;
    std::size_t m_free = 0;
};

}  // namespace Estimate
