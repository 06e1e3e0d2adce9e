#include "QsUtils/expression/DominanceIndex.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace ExpressionAnalyse {

namespace {

bool Dominates(const OpenCounts& point, const OpenCounts& bound) {
    return point[0] >= bound[0] && point[1] >= bound[1] && point[2] >= bound[2];
}

void RaiseTo(OpenCounts& maximum, const OpenCounts& point) {
    for (std::size_t i = 0; i < maximum.size(); ++i)
        maximum[i] = std::max(maximum[i], point[i]);
}

}  // namespace

DominanceIndex::DominanceIndex(std::vector<OpenCounts> points) : m_points(std::move(points)) {
    while (m_leaves * BlockSize < m_points.size())
        m_leaves *= 2;
    constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();
    m_maxima.assign(2 * m_leaves, {Lowest, Lowest, Lowest});
    for (std::size_t i = 0; i < m_points.size(); ++i)
        RaiseTo(m_maxima[m_leaves + i / BlockSize], m_points[i]);
    for (std::size_t node = m_leaves - 1; node >= 1; --node) {
        m_maxima[node] = m_maxima[2 * node];
        RaiseTo(m_maxima[node], m_maxima[2 * node + 1]);
    }
}

/// The first fitting index from `start` to the end of its block; `Size()` if there is none.
std::size_t DominanceIndex::FirstInBlock(std::size_t start, const OpenCounts& bound) const noexcept {
    const std::size_t end = std::min((start / BlockSize + 1) * BlockSize, m_points.size());
    for (std::size_t i = start; i < end; ++i)
        if (Dominates(m_points[i], bound))
            return i;
    return m_points.size();
}

std::size_t DominanceIndex::First(std::size_t start, const OpenCounts& bound) const noexcept {
    if (start >= m_points.size())
        return m_points.size();
    if (const std::size_t found = FirstInBlock(start, bound); found != m_points.size())
        return found;
    std::size_t node = m_leaves + start / BlockSize;
    for (;;) {
        // On to the next subtree on the right: up while this one is a right child.
        while (node % 2 == 1) {
            node /= 2;
            if (node <= 1)
                return m_points.size();
        }
        if (node <= 1)
            return m_points.size();
        ++node;
        while (Dominates(m_maxima[node], bound)) {
            if (node >= m_leaves) {
                const std::size_t found = FirstInBlock((node - m_leaves) * BlockSize, bound);
                if (found != m_points.size())
                    return found;
                break;
            }
            node *= 2;
            if (!Dominates(m_maxima[node], bound))
                ++node;
        }
    }
}

}  // namespace ExpressionAnalyse
