// The analyser against the plain transcription of its rules, on random and on contrived formulas.
#include <bit>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/expression/CExpressionAnalyse.h"

#include "tests/expression/PlainAnalyser.h"
#include "tests/support/Rounds.h"

namespace {

using ExpressionAnalyse::CExpressionAnalyse;
using ExpressionAnalyse::IExpressionNode;

std::string Narrow(const std::u16string& text) {
    std::string narrow;
    for (const char16_t unit : text)
        narrow += unit < 0x80 ? static_cast<char>(unit) : '?';
    return narrow;
}

bool SameValue(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

bool SameTree(IExpressionNode* node, const PlainAnalyser::Node* plain) {
    if (node == nullptr || plain == nullptr)
        return node == nullptr && plain == nullptr;
    return node->GetNodeText().View() == plain->text && node->IsNodeType(plain->type) &&
           node->IsBracketType(plain->bracket) && node->IsNegative() == plain->negative &&
           SameTree(node->GetLeftNode(), plain->left.get()) &&
           SameTree(node->GetRightNode(), plain->right.get());
}

/// Parses and calculates `formula` both ways; true when everything agrees.
bool Agrees(const std::u16string& formula) {
    CExpressionAnalyse analyser;
    std::int32_t error = -1;
    int plainError = -1;
    const std::unique_ptr<IExpressionNode> root(analyser.AnalyseExpression(CString(formula), &error));
    const PlainAnalyser::Tree plain = PlainAnalyser::Analyse(formula, plainError);
    if (error != plainError || !SameTree(root.get(), plain.get()))
        return false;
    if (root == nullptr)
        return true;
    const double expected = PlainAnalyser::Calculate(plain.get());
    if (!SameValue(root->CalcValue(), expected) ||
        root->ToString().View() != PlainAnalyser::ToText(plain.get()))
        return false;
    // Once something has been set, the tree is walked node by node.
    root->SetLeftNode(root->GetLeftNode());
    return SameValue(root->CalcValue(), expected);
}

class RandomFormulas {
public:
    explicit RandomFormulas(std::uint32_t seed) : m_random(seed) {}

    std::size_t Below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>(0, bound - 1)(m_random);
    }

    template <typename Pool>
    std::u16string FromPieces(const Pool& pool, std::size_t most) {
        std::u16string formula;
        for (std::size_t left = Below(most + 1); left > 0; --left)
            formula += pool[Below(std::size(pool))];
        return formula;
    }

    /// A formula as people write them, with brackets that match.
    std::u16string Sensible(int depth) {
        static const std::u16string operands[] = {u"1",   u"2.5", u"12",  u"50%", u"3‰",
                                                  u"abc", u"Q",   u"1e2", u""};
        static const std::u16string operators[] = {u"+", u"-", u"*", u"/", u"^", u"×", u"÷", u" + "};
        static const std::u16string heads[] = {u"", u"", u"-", u"sin", u"SQRT", u"+", u"fabs", u"Ln"};
        std::u16string formula;
        for (std::size_t terms = 1 + Below(4); terms > 0; --terms) {
            formula += heads[Below(std::size(heads))];
            if (depth > 0 && Below(3) == 0) {
                const std::size_t kind = Below(3);
                formula += u"([{"[kind] + Sensible(depth - 1) + u")]}"[kind];
            } else {
                formula += operands[Below(std::size(operands) - (Below(8) != 0 ? 1 : 0))];
            }
            if (terms > 1)
                formula += operators[Below(std::size(operators))];
        }
        return formula;
    }

private:
    std::mt19937 m_random;
};

/// Evens out the brackets of a random text, so that it gets past the first test.
std::u16string Balanced(std::u16string formula) {
    for (const auto& [open, close] : {std::pair{u'(', u')'}, std::pair{u'[', u']'}, std::pair{u'{', u'}'}}) {
        const auto opens = std::count(formula.begin(), formula.end(), open);
        const auto closes = std::count(formula.begin(), formula.end(), close);
        if (opens > closes)
            formula.append(static_cast<std::size_t>(opens - closes), close);
        else
            formula.insert(0, std::u16string(static_cast<std::size_t>(closes - opens), open));
    }
    return formula;
}

TEST(AnalyserDifferential, AllShortFormulas) {
    const std::u16string alphabet = u"1+-*()[]s";
    std::size_t compared = 0;
    for (std::size_t length = 0; length <= 6; ++length) {
        std::vector<std::size_t> digits(length, 0);
        for (;;) {
            std::u16string formula;
            for (const std::size_t digit : digits)
                formula += alphabet[digit];
            ASSERT_TRUE(Agrees(formula)) << Narrow(formula);
            ++compared;
            std::size_t place = 0;
            while (place < length && ++digits[place] == alphabet.size())
                digits[place++] = 0;
            if (place == length)
                break;
        }
    }
    EXPECT_EQ(compared, 597871u);
}

TEST(AnalyserDifferential, RandomUnits) {
    RandomFormulas random(20260101);
    static const char16_t units[] = u"12.+-*/^()[]{}x %sinl\u2030\u00d7";
    const std::u16string_view pool(units);
    for (int i = 0; i < Rounds(400000); ++i) {
        std::u16string formula = random.FromPieces(pool, 30);
        ASSERT_TRUE(Agrees(formula)) << Narrow(formula);
        formula = Balanced(formula);
        ASSERT_TRUE(Agrees(formula)) << Narrow(formula);
    }
}

TEST(AnalyserDifferential, SensibleFormulas) {
    RandomFormulas random(7);
    for (int i = 0; i < Rounds(400000); ++i) {
        const std::u16string formula = random.Sensible(3);
        ASSERT_TRUE(Agrees(formula)) << Narrow(formula);
    }
}

TEST(AnalyserDifferential, CrossingBrackets) {
    // Long enough, and crossed enough, that the splits are found through the index.
    RandomFormulas random(99);
    const std::u16string pool[] = {u"(", u"[",  u"{",  u")",    u"]",     u"}",
                                   u"(", u"1+", u"2*", u"([)]", u"[(])+", u"3"};
    const std::u16string flat[] = {u"[)(]", u"(1*", u"2)+", u"[1-", u"2]*", u"sin"};
    for (int i = 0; i < 1500; ++i) {
        std::u16string formula = Balanced(random.FromPieces(pool, 400));
        ASSERT_TRUE(Agrees(formula)) << Narrow(formula);
        formula = std::u16string(random.Below(60), u'(') + random.FromPieces(flat, 300);
        ASSERT_TRUE(Agrees(Balanced(formula))) << Narrow(formula);
    }
}

TEST(AnalyserDifferential, NestedGroups) {
    RandomFormulas random(3);
    for (int i = 0; i < 300; ++i) {
        std::u16string formula = u"1";
        for (std::size_t depth = random.Below(300); depth > 0; --depth) {
            const std::size_t kind = random.Below(3);
            formula = u"([{"[kind] + formula + u")]}"[kind];
            if (random.Below(2) == 0)
                formula += random.Below(2) == 0 ? u"+2" : u"*2";
            if (random.Below(3) == 0)
                formula = (random.Below(2) == 0 ? u"2-" : u"cos") + formula;
        }
        ASSERT_TRUE(Agrees(formula)) << Narrow(formula);
    }
}

}  // namespace
