// The places where formulas split, found by walking, through the index, and by the plain rules.
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/expression/DominanceIndex.h"
#include "QsUtils/expression/SplitFinder.h"

namespace {

using ExpressionAnalyse::DominanceIndex;
using ExpressionAnalyse::FormulaText;
using ExpressionAnalyse::Mark;
using ExpressionAnalyse::OpenCounts;
using ExpressionAnalyse::SplitFinder;
using ExpressionAnalyse::Stretch;

void Count(char16_t unit, OpenCounts& open) {
    constexpr std::u16string_view Open = u"([{";
    constexpr std::u16string_view Close = u")]}";
    if (const std::size_t kind = Open.find(unit); kind != Open.npos)
        ++open[kind];
    else if (const std::size_t closed = Close.find(unit); closed != Close.npos)
        --open[closed];
}

bool IsOneOf(char16_t unit, std::u16string_view set) {
    return set.find(unit) != set.npos;
}

/// The positions of the two splits by the rules as they read; -1 for none.
std::pair<std::int64_t, std::int64_t> PlainSplits(std::u16string_view text) {
    OpenCounts open{};
    std::int64_t sum = -1;
    for (std::size_t i = 0; i < text.size(); ++i) {
        Count(text[i], open);
        if (sum < 0 && i > 0 && IsOneOf(text[i], u"+-") && open[0] <= 0 && open[1] <= 0 && open[2] <= 0)
            sum = static_cast<std::int64_t>(i);
    }
    for (std::size_t i = text.size(); i-- > 0;) {
        Count(text[i], open);
        if (IsOneOf(text[i], u"*/^") && open[0] <= 0 && open[1] <= 0 && open[2] <= 0)
            return {sum, static_cast<std::int64_t>(i)};
    }
    return {sum, -1};
}

Stretch StretchOf(const FormulaText& text, std::uint32_t begin, std::uint32_t end) {
    Stretch stretch{begin, end, 0, 0};
    while (text.Marks()[stretch.firstMark].position < begin)
        ++stretch.firstMark;
    stretch.endMark = stretch.firstMark;
    while (text.Marks()[stretch.endMark].position < end)
        ++stretch.endMark;
    return stretch;
}

TEST(SplitFinder, WalkAndIndexFollowTheRules) {
    std::mt19937 random(17);
    const std::u16string pools[] = {u"1+*()", u"1+-*/^()[]{}", u"1+*([)](", u"()1+", u"(1*)["};
    for (int round = 0; round < 3000; ++round) {
        const std::u16string& pool = pools[random() % std::size(pools)];
        std::u16string source;
        for (auto length = 1 + random() % 120; length > 0; --length)
            source += pool[random() % pool.size()];
        FormulaText text(source);
        SplitFinder walking(text);
        SplitFinder indexed(text, 0);
        for (int query = 0; query < 40; ++query) {
            auto begin = static_cast<std::uint32_t>(random() % source.size());
            auto end = static_cast<std::uint32_t>(random() % source.size() + 1);
            if (begin >= end)
                std::swap(begin, end);
            if (begin == end)
                continue;
            const Stretch stretch = StretchOf(text, begin, end);
            const auto [sum, product] = PlainSplits(std::u16string_view(source).substr(begin, end - begin));
            const auto position = [&](std::uint32_t mark) {
                return mark == Mark::None ? std::int64_t{-1}
                                          : std::int64_t{text.Marks()[mark].position} - begin;
            };
            ASSERT_EQ(position(walking.FindSum(stretch)), sum);
            ASSERT_EQ(position(walking.FindProduct(stretch)), product);
            if (text.HasBrackets()) {
                ASSERT_EQ(position(indexed.FindSum(stretch)), sum);
                ASSERT_EQ(position(indexed.FindProduct(stretch)), product);
            }
        }
    }
}

TEST(SplitFinder, ABudgetThatEndsInTheMiddleChangesNoAnswer) {
    std::mt19937 random(5);
    const std::u16string pool = u"1+*()[]";
    for (int round = 0; round < 2000; ++round) {
        std::u16string source = u"(";
        for (int i = 0; i < 60; ++i)
            source += pool[random() % pool.size()];
        FormulaText text(source);
        SplitFinder free(text);
        SplitFinder tight(text, 1 + random() % 80);
        for (std::uint32_t begin = 0; begin < source.size(); begin += 3) {
            const Stretch stretch = StretchOf(text, begin, text.Length());
            ASSERT_EQ(free.FindSum(stretch), tight.FindSum(stretch));
            ASSERT_EQ(free.FindProduct(stretch), tight.FindProduct(stretch));
        }
    }
}

TEST(DominanceIndex, FindsTheFirstPointAboveTheBound) {
    std::mt19937 random(23);
    for (const std::size_t size : {0u, 1u, 15u, 16u, 17u, 31u, 200u, 1000u}) {
        std::vector<OpenCounts> points(size);
        for (OpenCounts& point : points)
            for (std::int32_t& number : point)
                number = static_cast<std::int32_t>(random() % 9) - 4;
        const DominanceIndex index(points);
        ASSERT_EQ(index.Size(), size);
        for (int query = 0; query < 2000; ++query) {
            const std::size_t start = random() % (size + 2);
            OpenCounts bound;
            for (std::int32_t& number : bound)
                number = static_cast<std::int32_t>(random() % 11) - 5;
            std::size_t expected = start;
            while (expected < size && !(points[expected][0] >= bound[0] && points[expected][1] >= bound[1] &&
                                        points[expected][2] >= bound[2]))
                ++expected;
            ASSERT_EQ(index.First(start, bound), std::min(expected, size));
        }
    }
}

}  // namespace
