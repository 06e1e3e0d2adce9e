// Where a formula splits: the heart of the grammar.
#pragma once

#include <cstdint>
#include <memory>

#include "QsUtils/expression/FormulaText.h"

namespace ExpressionAnalyse {

/// A stretch of the text, with the marks that stand in it.
struct Stretch {
    std::uint32_t begin, end;          // code units
    std::uint32_t firstMark, endMark;  // the marks in it are [firstMark, endMark)
};

/// Answers the two questions that the grammar asks about each stretch, in time that adds up to a linear or
/// nearly linear sum over a parse. It looks at the marks one by one, jumping over groups, as long as that is
/// cheap; texts whose brackets are contrived to make that long get an index.
class SplitFinder {
public:
    explicit SplitFinder(FormulaText& text);
    /// With an index from the step numbered `budget` on, counted over all questions.
    SplitFinder(FormulaText& text, std::uint64_t budget);
    ~SplitFinder();
    SplitFinder(const SplitFinder&) = delete;
    SplitFinder& operator=(const SplitFinder&) = delete;

    /// The first sum operator, but for one at the very begin, in front of which no kind of bracket has been
    /// opened more often than closed since the begin; `Mark::None` if there is none.
    std::uint32_t FindSum(const Stretch& stretch);

    /// The last product operator that is not shielded; `Mark::None` if there is none. The counts of open
    /// brackets go on from the end of the stretch and move on the way back as they did on the way forth: an
    /// opening bracket passed raises, a closing one lowers. So a group at the end doesn't shield.
    std::uint32_t FindProduct(const Stretch& stretch);

private:
    struct Indexes;

    std::uint32_t WalkToSum(const Stretch& stretch);
    std::uint32_t WalkToProduct(const Stretch& stretch, const OpenCounts& least);
    bool Spend() noexcept { return m_budget != 0 && --m_budget != 0; }
    const Indexes& GetIndexes();

    FormulaText& m_text;
    const Mark* m_marks;
    std::uint64_t m_budget;  // steps until an index pays
    std::unique_ptr<Indexes> m_indexes;
};

}  // namespace ExpressionAnalyse
