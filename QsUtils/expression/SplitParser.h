// The grammar of quantity formulas, apart from what is made of it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "QsUtils/expression/ExpressionAnalyse.h"
#include "QsUtils/expression/Operation.h"
#include "QsUtils/expression/SplitFinder.h"

namespace ExpressionAnalyse {

struct FunctionName {
    std::u16string_view name;
    Operation operation;
};

/// The function that a text begins with, in any case and with no regard to what follows the name; null if
/// there is none.
const FunctionName* FunctionAtHead(std::u16string_view text) noexcept;

/// The kind of bracket that encloses a text: its first and last units, whatever is between them.
std::int32_t EnclosingBracket(std::u16string_view text) noexcept;

/// Changes ASCII letters to lower case.
void LowerUnits(char16_t* units, std::size_t count) noexcept;

/// Splits a formula and tells a builder what it finds, each part in front of what is inside of it. A builder
/// has a type `Place`, which says where a part goes, and these operations:
///
///     Place AddOperator(Place, Operation, bool rightFirst)   and then LeftOf(Place), RightOf(Place)
///     Place AddFunction(Place, const FunctionName&, bool negative, bool isEmpty)   and then LeftOf
///     Place AddBracket(Place, std::int32_t bracket, bool negative, bool isEmpty)   and then LeftOf
///     void AddOperand(Place, std::u16string_view text, bool negative)
///
/// Of the two sides of an operator the one with fewer marks comes first; then no more sides are ever pending
/// than the logarithm of their number. The text inside of a function is put into lower case.
template <typename Builder>
class SplitParser {
public:
    using Place = typename Builder::Place;

    SplitParser(FormulaText& text, Builder& builder)
        : m_text(text), m_marks(text.Marks()), m_units(text.Units()), m_splits(text), m_builder(builder) {}

    /// False when an operand is missing; the builder then holds a part of the formula. The text isn't empty.
    bool Parse(Place root) {
        Task task{{0, m_text.Length(), 0, m_text.MarkCount()}, root, true, true, false};
        for (;;) {
            if (!ParseStretch(task))
                return false;
            if (m_pendingCount == 0)
                return true;
            task = m_pending[--m_pendingCount];
        }
    }

private:
    struct Task {
        Stretch stretch;
        Place place;
        bool maySplitAtSum;      // false where it is known that there is no such operator
        bool maySplitAtProduct;  // likewise
        bool isLowerCase;        // within a function
    };

    std::u16string_view TextOf(const Stretch& stretch) const {
        return {m_units + stretch.begin, stretch.end - stretch.begin};
    }

    /// Parses a stretch down to its first operand, leaving the other sides of its splits pending.
    bool ParseStretch(Task task) {
        for (;;) {
            std::uint32_t mark = task.maySplitAtSum ? m_splits.FindSum(task.stretch) : Mark::None;
            if (mark == Mark::None && task.maySplitAtProduct)
                mark = m_splits.FindProduct(task.stretch);
            if (mark != Mark::None) {
                if (!Split(task, mark))
                    return false;
                continue;
            }
            const char16_t sign = m_units[task.stretch.begin];
            if (sign == u'+' || sign == u'-') {
                ++task.stretch.begin;
                ++task.stretch.firstMark;
                if (task.stretch.begin == task.stretch.end)
                    return false;
            }
            if (!EnterPrimary(task, sign == u'-'))
                return true;
        }
    }

    /// Adds an operator and goes on with one of its sides.
    bool Split(Task& task, std::uint32_t mark) {
        const Stretch whole = task.stretch;
        const std::uint32_t position = m_marks[mark].position;
        if (position + 1 == whole.end || position == whole.begin)
            return false;
        const bool rightFirst = whole.endMark - mark - 1 < mark - whole.firstMark;
        const Place node = m_builder.AddOperator(task.place, OperatorOf(m_units[position]), rightFirst);
        // The first sum operator of the whole is the one at hand, or there is none: none is in front of it.
        const Task left{{whole.begin, position, whole.firstMark, mark},
                        m_builder.LeftOf(node),
                        false,
                        true,
                        task.isLowerCase};
        const Task right{{position + 1, whole.end, mark + 1, whole.endMark},
                         m_builder.RightOf(node),
                         true,
                         true,
                         task.isLowerCase};
        m_pending[m_pendingCount++] = rightFirst ? left : right;
        task = rightFirst ? right : left;
        return true;
    }

    /// A power is a multiplication here.
    static Operation OperatorOf(char16_t unit) {
        switch (unit) {
            case u'+':
                return Operation::Add;
            case u'-':
                return Operation::Subtract;
            case u'/':
                return Operation::Divide;
            default:
                return Operation::Multiply;
        }
    }

    /// Adds a stretch without a split and narrows the task to what is inside of it; false if that is nothing.
    bool EnterPrimary(Task& task, bool negative) {
        Stretch& stretch = task.stretch;
        const std::u16string_view text = TextOf(stretch);
        if (const std::int32_t bracket = EnclosingBracket(text); bracket != eBracketType_None) {
            ++stretch.begin;
            ++stretch.firstMark;
            --stretch.end;
            --stretch.endMark;
            const bool isEmpty = stretch.begin == stretch.end;
            task.place = m_builder.LeftOf(m_builder.AddBracket(task.place, bracket, negative, isEmpty));
            task.maySplitAtSum = true;
            // A product operator asks for one more open bracket inside than outside, where none was found.
            task.maySplitAtProduct = false;
            return !isEmpty;
        }
        if (const FunctionName* function = FunctionAtHead(text); function != nullptr) {
            stretch.begin += static_cast<std::uint32_t>(function->name.size());
            const bool isEmpty = stretch.begin == stretch.end;
            task.place = m_builder.LeftOf(m_builder.AddFunction(task.place, *function, negative, isEmpty));
            // A name opens no bracket: what didn't split with it doesn't split without it.
            task.maySplitAtSum = false;
            task.maySplitAtProduct = false;
            if (!task.isLowerCase)
                LowerUnits(m_units + stretch.begin, stretch.end - stretch.begin);
            task.isLowerCase = true;
            return !isEmpty;
        }
        m_builder.AddOperand(task.place, text, negative);
        return false;
    }

    static constexpr std::size_t MostPending =
        40;  // the side that waits has the more marks, of 32-bit number

    FormulaText& m_text;
    const Mark* m_marks;
    char16_t* m_units;
    SplitFinder m_splits;
    Builder& m_builder;
    std::array<Task, MostPending> m_pending;
    std::size_t m_pendingCount = 0;
};

}  // namespace ExpressionAnalyse
