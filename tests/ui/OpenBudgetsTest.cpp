// Lists of open budgets in shared memory, as any program may lay them out, and the kinds of budgets.
#include <map>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/material/MaterialDigest.h"
#include "QsUtils/platform/SharedText.h"
#include "QsUtils/ui/OpenBudgets.h"

#include "tests/support/Rounds.h"
#include "tests/support/RunningProgram.h"
#include "tests/support/SharedObject.h"

using QsUi::IsListed;
using QsUi::IsYsOpen;

namespace {

/// A key of this process alone, so that test programs that run side by side don't meet.
CString BudgetKey(const CString& name) {
    static const unsigned process = std::random_device{}();
    CString key;
    key.Format(u"qsutils-test-%x-%s", process, name);
    return key;
}

std::string NameOf(const CString& key) {
    const CString digest = QsMaterial::StreamMd5(key);
    return "OPEN_YS:" + std::string(digest.View().begin(), digest.View().end());
}

std::string Padded(std::string bytes) {
    bytes.resize(256);
    return bytes;
}

/// The answer to a question that an object answers with yes.
int Yes() {
    return SharedObject::AreReached() ? 1 : 0;
}

/// As a reader who goes step by step would find it: the items in a map, then a look into it.
bool IsListedPlainly(const CString& list, const CString& item) {
    std::map<CString, int> items;
    int from = 0;
    for (int end = list.Find(u'&', from); end != -1; end = list.Find(u'&', from)) {
        ++items[list.Mid(from, end - from)];
        from = end + 1;
    }
    return items.contains(item);
}

TEST(OpenBudgetList, EveryItemEndsWithItsSign) {
    EXPECT_TRUE(IsListed(u"A&B&", u"A"));
    EXPECT_TRUE(IsListed(u"A&B&", u"B"));
    EXPECT_FALSE(IsListed(u"A&B&", u"C"));
    EXPECT_FALSE(IsListed(u"A&B", u"B"));
    EXPECT_FALSE(IsListed(u"A&B&", u"A&B"));
    EXPECT_FALSE(IsListed(u"A&B&", u"A&"));
    EXPECT_FALSE(IsListed(u"AAA&BBB&", u"AA"));
    EXPECT_FALSE(IsListed(u"a&", u"A"));
    EXPECT_TRUE(IsListed(u"A&A&A&", u"A"));
}

TEST(OpenBudgetList, AnEmptyItemIsOneLikeAnyOther) {
    EXPECT_FALSE(IsListed(u"", u""));
    EXPECT_FALSE(IsListed(u"A", u""));
    EXPECT_FALSE(IsListed(u"A&", u""));
    EXPECT_TRUE(IsListed(u"&", u""));
    EXPECT_TRUE(IsListed(u"A&&", u""));
    EXPECT_TRUE(IsListed(u"&A&", u""));
}

TEST(OpenBudgetList, RandomListsAsReadStepByStep) {
    std::mt19937 random(135);
    const auto text = [&](unsigned length) {
        CString made;
        for (auto left = random() % length; left > 0; --left)
            made += u"&Aa甲"[random() % 4];
        return made;
    };
    int found = 0;
    for (int round = 0; round < Rounds(400'000); ++round) {
        const CString list = text(12);
        const CString item = text(4);
        const bool expected = IsListedPlainly(list, item);
        ASSERT_EQ(IsListed(list, item), expected) << list << " " << item;
        found += expected;
    }
    EXPECT_GT(found, Rounds(20'000));
}

TEST(OpenBudgets, WhatNobodyOpenedIsntOpen) {
    const CString key = BudgetKey(u"nobody");
    EXPECT_EQ(IsYsOpen(key, u"A"), 0);
    EXPECT_EQ(IsYsOpen(key, u""), 0);
    EXPECT_EQ(IsYsOpen(CString(), CString()), 0);
    EXPECT_FALSE(SharedObject::Exists(NameOf(key)));
}

TEST(OpenBudgets, TheListOfAnotherProgramIsRead) {
    const CString key = BudgetKey(u"项目/a.ys");
    const SharedObject object(NameOf(key), Padded(TextBytes(u"AAA&造价\\b.ys&last")));
    EXPECT_EQ(IsYsOpen(key, u"AAA"), Yes());
    EXPECT_EQ(IsYsOpen(key, u"造价\\b.ys"), Yes());
    EXPECT_EQ(IsYsOpen(key, u"last"), 0);
    EXPECT_EQ(IsYsOpen(key, u"aaa"), 0);
    EXPECT_EQ(IsYsOpen(key, u""), 0);
    EXPECT_EQ(IsYsOpen(BudgetKey(u"项目/A.ys"), u"AAA"), 0);
}

TEST(OpenBudgets, AnObjectIsAskedAnewEveryTime) {
    const CString key = BudgetKey(u"anew");
    {
        const SharedObject object(NameOf(key), Padded(TextBytes(u"A&")));
        EXPECT_EQ(IsYsOpen(key, u"A"), Yes());
    }
    // Where the first look left a handle open, the object lives on.
    EXPECT_EQ(IsYsOpen(key, u"A"), SharedObject::Exists(NameOf(key)) ? Yes() : 0);
}

TEST(OpenBudgets, OnlyTheTextUpToTheNulCounts) {
    const CString key = BudgetKey(u"nul");
    const SharedObject object(NameOf(key), Padded(TextBytes(std::u16string_view(u"A&\0B&", 5))));
    EXPECT_EQ(IsYsOpen(key, u"A"), Yes());
    EXPECT_EQ(IsYsOpen(key, u"B"), 0);
}

TEST(OpenBudgets, ObjectsOfWrongSizes) {
    int number = 0;
    for (const std::size_t units : {1U, 2U, 127U, 128U, 129U, 2048U, 100'000U, 524'288U}) {
        CString name;
        name.Format(u"size-%d", ++number);
        const CString key = BudgetKey(name);
        // Full of units, with neither a NUL nor another sign behind the first item.
        std::u16string text(units, u'x');
        text[units - 1] = u'&';
        const SharedObject object(NameOf(key), TextBytes(text));
        text.pop_back();
        EXPECT_EQ(IsYsOpen(key, CString(text)), Yes()) << units;
        EXPECT_EQ(IsYsOpen(key, u"y"), 0) << units;
    }
}

TEST(OpenBudgets, MoreThanTheLimitIsntRead) {
    const CString key = BudgetKey(u"limit");
    std::u16string text(QsPlatform::LargestSharedText / sizeof(char16_t) + 16, u'x');
    text[0] = u'&';
    text[text.size() - 16] = u'&';
    const SharedObject object(NameOf(key), TextBytes(text));
    EXPECT_EQ(IsYsOpen(key, u""), Yes());
    EXPECT_EQ(IsYsOpen(key, CString(text.substr(1, text.size() - 17))), 0);
}

TEST(OpenBudgets, AHostOfAnotherProcessListsItsItems) {
    const CString key = BudgetKey(u"host");
    const std::string ansi(key.View().begin(), key.View().end());
    RunningProgram host({OPEN_BUDGET_HOST, {"hold", ansi, "一号楼", "B"}, {}, {}});
    EXPECT_EQ(host.ReadLine(), "holding " + NameOf(key));
    EXPECT_TRUE(SharedObject::Exists(NameOf(key)));
    EXPECT_EQ(IsYsOpen(key, u"一号楼"), Yes());
    EXPECT_EQ(IsYsOpen(key, u"B"), Yes());
    EXPECT_EQ(IsYsOpen(key, u"C"), 0);
    const ProgramResult asked = RunProgram({OPEN_BUDGET_HOST, {"ask", ansi, "一号楼", "C"}, {}, {}});
    EXPECT_EQ(asked.status, 0);
    EXPECT_EQ(asked.out.front(), Yes() == 1 ? '1' : '0');
    EXPECT_EQ(asked.out.find('0', 1) != std::string::npos, true);
    const ProgramResult second = RunProgram({OPEN_BUDGET_HOST, {"hold", ansi, "C"}, {}, {}});
    EXPECT_EQ(second.status, 1);
    EXPECT_NE(second.err.find("held already"), std::string::npos) << second.err;
    host.Write("\n");
    EXPECT_EQ(host.Wait(), 0);
}

TEST(OpenBudgets, AHostRefusesWhatAListCantSay) {
    for (const std::string& item : {std::string("A&B"), std::string(127, 'x')}) {
        const ProgramResult result = RunProgram({OPEN_BUDGET_HOST, {"hold", "key", item}, {}, {}});
        EXPECT_EQ(result.status, 1) << item;
        EXPECT_NE(result.err, "");
    }
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"hold"}, {"hold", "key"}, {"ask", "key"}, {"excel", "x"}, {"other"}})
        EXPECT_EQ(RunProgram({OPEN_BUDGET_HOST, arguments, {}, {}}).status, 2);
}

TEST(YsTypes, TextsAndBack) {
    EXPECT_EQ(QsUi::YsTypeToString(eYsType_Normal), u"Normal");
    EXPECT_EQ(QsUi::YsTypeToString(eYsType_SongShen), u"SongShen");
    EXPECT_EQ(QsUi::YsTypeToString(eYsType_ShenDing), u"ShenDing");
    for (const int other : {7, -1, 3, 2147483647})
        EXPECT_EQ(QsUi::YsTypeToString(static_cast<eYsType>(other)), u"Normal");
    EXPECT_EQ(QsUi::StringToYsType(u"Normal"), eYsType_Normal);
    EXPECT_EQ(QsUi::StringToYsType(u"SongShen"), eYsType_SongShen);
    EXPECT_EQ(QsUi::StringToYsType(u"ShenDing"), eYsType_ShenDing);
    for (const char16_t* other : {u"", u"songshen", u"SONGSHEN", u" SongShen", u"ShenDing ", u"1", u"2"})
        EXPECT_EQ(QsUi::StringToYsType(other), eYsType_Normal);
    EXPECT_EQ(QsUi::StringToYsType(CString(u"ShenDing\0", 9)), eYsType_Normal);
    EXPECT_EQ(static_cast<int>(eYsType_Normal), 0);
    EXPECT_EQ(static_cast<int>(eYsType_SongShen), 1);
    EXPECT_EQ(static_cast<int>(eYsType_ShenDing), 2);
}

}  // namespace
