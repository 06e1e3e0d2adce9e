// The sorts of item codes: element for element the outcome of the plain partition sort.
#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/QsUtils.h"

#include "tests/codes/PlainCodes.h"
#include "tests/support/SmallStack.h"

namespace {

using PlainCodes::Items;

/// Numbers the items, so that equal codes can be told apart.
Items Numbered(std::vector<CString> codes) {
    Items items;
    std::uintptr_t number = 0;
    for (CString& code : codes)
        items.emplace_back(std::move(code), reinterpret_cast<void*>(++number));
    return items;
}

using Sorter = void (*)(Items&);

struct SortPair {
    const char* name;
    Sorter ours;
    Sorter plain;
};

const SortPair Sorts[] = {{"De", IQsUtils::SortDeItemCodes, PlainCodes::SortDe},
                          {"Qd", IQsUtils::SortQdItemCodes, PlainCodes::SortQd},
                          {"Items", IQsUtils::SortItemCodes, PlainCodes::SortItems}};

void ExpectSameOutcome(const std::vector<CString>& codes) {
    for (const SortPair& sort : Sorts) {
        Items ours = Numbered(codes);
        Items plain = ours;
        sort.ours(ours);
        sort.plain(plain);
        ASSERT_TRUE(ours == plain) << sort.name << " of " << codes.size();
    }
}

class CodeSort : public testing::Test {
protected:
    CString Code(std::u16string_view alphabet, unsigned most) {
        CString code;
        for (auto length = Random() % (most + 1); length > 0; --length)
            code += alphabet[Random() % alphabet.size()];
        return code;
    }
    std::vector<CString> Codes(std::size_t count, std::u16string_view alphabet, unsigned most) {
        std::vector<CString> codes;
        for (; count > 0; --count)
            codes.push_back(Code(alphabet, most));
        return codes;
    }
    std::mt19937 m_random{2026};
    unsigned Random() { return static_cast<unsigned>(m_random()); }
};

TEST_F(CodeSort, EmptyAndSingle) {
    for (const SortPair& sort : Sorts) {
        Items none;
        sort.ours(none);
        EXPECT_TRUE(none.empty());
        Items one{{u"x", &none}};
        sort.ours(one);
        ASSERT_EQ(one.size(), 1u);
        EXPECT_EQ(one[0].first, u"x");
        EXPECT_EQ(one[0].second, &none);
    }
}

TEST_F(CodeSort, EachSortHasItsOrder) {
    const auto sorted = [](Sorter sort) {
        Items items = Numbered({u"10", u"9", u"2-10", u"2-9"});
        sort(items);
        std::vector<CString> codes;
        for (const auto& item : items)
            codes.push_back(item.first);
        return codes;
    };
    EXPECT_EQ(sorted(IQsUtils::SortDeItemCodes), (std::vector<CString>{u"2-9", u"2-10", u"9", u"10"}));
    EXPECT_EQ(sorted(IQsUtils::SortQdItemCodes), (std::vector<CString>{u"9", u"10", u"2-9", u"2-10"}));
    EXPECT_EQ(sorted(IQsUtils::SortItemCodes), (std::vector<CString>{u"2-10", u"2-9", u"9", u"10"}));
}

TEST_F(CodeSort, SmallSetsWithManyEquals) {
    const std::u16string_view alphabets[] = {u"01", u"1A-", u"0/1", u"1/2-", u"1/-.a", u"1/"};
    for (int round = 0; round < 60000; ++round)
        ASSERT_NO_FATAL_FAILURE(ExpectSameOutcome(
            Codes(Random() % 12, alphabets[static_cast<unsigned>(round) % std::size(alphabets)], 5)));
}

TEST_F(CodeSort, LargerSets) {
    const std::u16string_view alphabets[] = {u"0123456789", u"01-",     u"12/",
                                             u"123/-",      u"0aA-'/ ", u"1土砖石/-"};
    for (int round = 0; round < 120; ++round) {
        const std::u16string_view alphabet = alphabets[static_cast<unsigned>(round) % std::size(alphabets)];
        ASSERT_NO_FATAL_FAILURE(ExpectSameOutcome(Codes(Random() % 1500, alphabet, 1 + Random() % 14)));
    }
}

TEST_F(CodeSort, RealisticCodes) {
    std::vector<CString> codes;
    for (int i = 0; i < 5000; ++i) {
        CString code;
        switch (Random() % 4) {
            case 0:
                code.Format(u"%04u%02u%03u%03u", 101 + Random() % 15, 1 + Random() % 9, 1 + Random() % 20,
                            1 + Random() % 5);
                break;
            case 1:
                code.Format(u"%u-%u", 1 + Random() % 12, 1 + Random() % 400);
                break;
            case 2:
                code.Format(u"A%u-%u/%u", Random() % 9, Random() % 30, Random() % 4);
                break;
            default:
                code.Format(u"%u-%u/%u-%u", Random() % 9, Random() % 30, Random() % 4, Random() % 15);
                break;
        }
        codes.push_back(code);
    }
    ExpectSameOutcome(codes);
}

TEST_F(CodeSort, CodesTooLongForTheQuotaOrder) {
    for (int round = 0; round < 400; ++round) {
        std::vector<CString> codes = Codes(2 + Random() % 40, u"12A", 3);
        for (CString& code : codes)
            if (Random() % 4 == 0)
                code =
                    CString(static_cast<char16_t>(u'0' + Random() % 3), static_cast<int>(499 + Random() % 3));
        ASSERT_NO_FATAL_FAILURE(ExpectSameOutcome(codes));
    }
}

TEST_F(CodeSort, PartsThatTieWithoutBeingEqual) {
    for (int round = 0; round < 3000; ++round) {
        std::vector<CString> codes;
        for (auto count = Random() % 60; count > 0; --count) {
            CString code(static_cast<char16_t>(u'1' + Random() % 2));
            for (auto parts = Random() % 4; parts > 0; --parts) {
                code += Random() % 3 == 0 ? u'-' : u'/';
                code += static_cast<char16_t>(u'1' + Random() % 3);
            }
            codes.push_back(code);
        }
        ASSERT_NO_FATAL_FAILURE(ExpectSameOutcome(codes));
    }
}

TEST_F(CodeSort, LongKeysThatDifferLate) {
    std::vector<CString> codes;
    for (int i = 0; i < 2000; ++i)
        codes.push_back(u"a common head that is longer than what is compared at once " + Code(u"01-/", 6));
    ExpectSameOutcome(codes);
}

/// An order that makes each partition of the middle take off only the two largest codes.
std::vector<CString> HurtfulCodes(std::size_t count) {
    std::vector<std::size_t> places(count);
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::vector<std::size_t> ranks(count);
    // The middle of what is left always holds the largest rank left; it goes to the end.
    for (std::size_t left = count; left > 0; --left) {
        const std::size_t middle = (left - 1) / 2;
        ranks[places[middle]] = left;
        std::swap(places[middle], places[left - 1]);
    }
    std::vector<CString> codes;
    for (const std::size_t rank : ranks) {
        CString code;
        code.Format(u"1-%07u/1", static_cast<unsigned>(rank));
        codes.push_back(code);
    }
    return codes;
}

TEST_F(CodeSort, OrdersThatHurtGiveTheSameOutcome) {
    ExpectSameOutcome(HurtfulCodes(1500));
}

TEST_F(CodeSort, AMillionCodesInAHurtfulOrderOnASmallStack) {
    RunOnSmallStack(256 * 1024, [] {
        Items items = Numbered(HurtfulCodes(1000000));
        IQsUtils::SortDeItemCodes(items);
        EXPECT_TRUE(std::is_sorted(items.begin(), items.end(), [](const auto& a, const auto& b) {
            return IQsUtils::CompareDECode(a.first, b.first) < 0;
        }));
        IQsUtils::SortQdItemCodes(items);
        EXPECT_EQ(items.front().first, u"1-0000001/1");
    });
}

}  // namespace
