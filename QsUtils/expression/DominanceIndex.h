// Finds the first of many triples that is at least a given one in each of its three numbers.
#pragma once

#include <cstdint>
#include <vector>

#include "QsUtils/expression/FormulaText.h"

namespace ExpressionAnalyse {

/// A tree of maxima over blocks of triples. A query skips every block of which one maximum is too small, and
/// costs the logarithm of the distance wherever neighbouring triples differ by little, as those along a text
/// do.
class DominanceIndex {
public:
    explicit DominanceIndex(std::vector<OpenCounts> points);

    std::size_t Size() const noexcept { return m_points.size(); }
    /// The first index from `start` on whose triple is at least `bound` in each number; `Size()` if none is.
    std::size_t First(std::size_t start, const OpenCounts& bound) const noexcept;

private:
    static constexpr std::size_t BlockSize = 16;

    std::size_t FirstInBlock(std::size_t start, const OpenCounts& bound) const noexcept;

    std::vector<OpenCounts> m_points;
    std::size_t m_leaves = 1;          // a power of two
    std::vector<OpenCounts> m_maxima;  // a binary heap: node n has the children 2n and 2n + 1
};

}  // namespace ExpressionAnalyse
