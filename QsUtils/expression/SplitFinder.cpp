#include "QsUtils/expression/SplitFinder.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "QsUtils/expression/DominanceIndex.h"

namespace ExpressionAnalyse {

namespace {

// A parse of ordinary text takes a few steps for each mark. With this many an index would have been cheaper.
constexpr std::uint64_t StepsForEachMark = 24;
constexpr std::uint64_t StepsAtLeast = 2000;

bool IsUnshielded(const OpenCounts& open) {
    return open[0] <= 0 && open[1] <= 0 && open[2] <= 0;
}

}  // namespace

/// The sum operators in the order of the text and the product operators against it, each with its open
/// brackets; the sums' are negated, since few open brackets are what a sum asks for.
struct SplitFinder::Indexes {
    std::vector<std::uint32_t> sums;
    std::vector<std::uint32_t> products;
    DominanceIndex sumIndex;
    DominanceIndex productIndex;
};

SplitFinder::SplitFinder(FormulaText& text)
    : SplitFinder(text, StepsAtLeast + StepsForEachMark * text.MarkCount()) {}

SplitFinder::SplitFinder(FormulaText& text, std::uint64_t budget)
    : m_text(text),
      m_marks(text.Marks()),
      // Without brackets no mark is looked at twice, and there are no counts to index.
      m_budget(text.HasBrackets() ? budget : UINT64_MAX) {}

SplitFinder::~SplitFinder() = default;

const SplitFinder::Indexes& SplitFinder::GetIndexes() {
    if (m_indexes == nullptr) {
        std::vector<std::uint32_t> sums;
        std::vector<std::uint32_t> products;
        std::vector<OpenCounts> sumPoints;
        std::vector<OpenCounts> productPoints;
        for (std::uint32_t i = 0; i < m_text.MarkCount(); ++i) {
            const OpenCounts& open = m_text.CountsAt(i);
            if (m_marks[i].kind == MarkKind::Sum) {
                sums.push_back(i);
                sumPoints.push_back({-open[0], -open[1], -open[2]});
            } else if (m_marks[i].kind == MarkKind::Product) {
                products.push_back(i);
                productPoints.push_back(open);
            }
        }
        std::reverse(products.begin(), products.end());
        std::reverse(productPoints.begin(), productPoints.end());
        m_indexes.reset(new Indexes{std::move(sums), std::move(products),
                                    DominanceIndex(std::move(sumPoints)),
                                    DominanceIndex(std::move(productPoints))});
    }
    return *m_indexes;
}

std::uint32_t SplitFinder::WalkToSum(const Stretch& stretch) {
    const bool isNested = m_text.IsProperlyNested();
    OpenCounts open{};
    for (std::uint32_t i = stretch.firstMark; i < stretch.endMark && Spend(); ++i) {
        const Mark& mark = m_marks[i];
        if (mark.kind == MarkKind::Sum) {
            if (mark.position != stretch.begin && IsUnshielded(open))
                return i;
        } else if (mark.kind == MarkKind::Open) {
            // A whole group leaves the counts as they were; one that evens out earlier closings is entered.
            if (isNested && open[mark.bracket] == 0)
                i = mark.partner;
            else
                ++open[mark.bracket];
        } else if (mark.kind == MarkKind::Close) {
            --open[mark.bracket];
        }
    }
    return Mark::None;
}

std::uint32_t SplitFinder::FindSum(const Stretch& stretch) {
    if (stretch.firstMark == stretch.endMark)
        return Mark::None;
    if (m_budget != 0) {
        const std::uint32_t found = WalkToSum(stretch);
        if (m_budget != 0)
            return found;
    }
    const Indexes& indexes = GetIndexes();
    const OpenCounts& open = m_text.CountsAt(stretch.firstMark);
    auto start = static_cast<std::size_t>(
        std::lower_bound(indexes.sums.begin(), indexes.sums.end(), stretch.firstMark) - indexes.sums.begin());
    if (start < indexes.sums.size() && m_marks[indexes.sums[start]].position == stretch.begin)
        ++start;
    const std::size_t found = indexes.sumIndex.First(start, {-open[0], -open[1], -open[2]});
    if (found == indexes.sums.size() || indexes.sums[found] >= stretch.endMark)
        return Mark::None;
    return indexes.sums[found];
}

std::uint32_t SplitFinder::WalkToProduct(const Stretch& stretch, const OpenCounts& least) {
    std::uint32_t i = m_marks[stretch.endMark].lastProduct;
    for (; i != Mark::None && i >= stretch.firstMark && Spend(); i = m_marks[i].lastProduct) {
        const OpenCounts& open = m_text.CountsAt(i);
        if (open[0] >= least[0] && open[1] >= least[1] && open[2] >= least[2])
            return i;
    }
    return Mark::None;
}

std::uint32_t SplitFinder::FindProduct(const Stretch& stretch) {
    const std::uint32_t last = m_marks[stretch.endMark].lastProduct;
    if (last == Mark::None || last < stretch.firstMark)
        return Mark::None;
    if (!m_text.HasBrackets())
        return last;
    // Walking back from the end E to an operator O, a count is (E - B) + (E - O), with B at the begin: it is
    // not above 0 where at least 2E - B brackets are open.
    const OpenCounts& begin = m_text.CountsAt(stretch.firstMark);
    const OpenCounts& end = m_text.CountsAt(stretch.endMark);
    const OpenCounts least = {2 * end[0] - begin[0], 2 * end[1] - begin[1], 2 * end[2] - begin[2]};
    if (m_budget != 0) {
        const std::uint32_t found = WalkToProduct(stretch, least);
        if (m_budget != 0)
            return found;
    }
    const Indexes& indexes = GetIndexes();
    const auto start = static_cast<std::size_t>(
        std::upper_bound(indexes.products.begin(), indexes.products.end(), last, std::greater<>()) -
        indexes.products.begin() - 1);
    const std::size_t found = indexes.productIndex.First(start, least);
    if (found == indexes.products.size() || indexes.products[found] < stretch.firstMark)
        return Mark::None;
    return indexes.products[found];
}

}  // namespace ExpressionAnalyse
