// Threads that ask for folders and libraries together. The script guards nothing itself: it is promised one
// call at a time, and writes each of them down.
#include <map>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/directory/CLibraryDirectory.h"

#include "tests/library/TestInstallation.h"
#include "tests/support/Rounds.h"

namespace {

class Threads : public Libraries {
protected:
    void SetUp() override {
        Libraries::SetUp();
        for (const wchar_t* section : {L"A", L"B"}) {
            Make(LibraryPath_Family, L"F", L"", section + std::wstring(L"\\"));
            ScriptedSection& known = script.families[L"F"].sections[section];
            known.provider = L"P";
            known.owner = L"墨衡";
            known.quotas[L"q"] = LibraryEntry{L"q", L"shown", L"q.dek", {L"ZJ"}, {L""}};
            known.bills[L"b"] = LibraryEntry{section, L"b.qdk", L"", {L"ZJ"}, {}};
            known.rules[section] = std::nullopt;
            Make(LibraryPath_Quota, L"F", section, L"q.dek");
        }
        Make(LibraryPath_BillRoot, L"F", L"B", L"P\\b.qdk");
        Make(LibraryPath_SubLibraryRoot, L"F", L"B", L"I\\");
        script.families[L"F"].enterpriseRecords[L"e"] = {L"", L"text"};
    }

    /// The answers of one thread, joined.
    CString Answers() {
        std::vector<CString> texts;
        manager.GetLibraryFamilies(texts);
        manager.GetQuotaLibraryNames(texts, u"F", u"B", u"");
        std::map<CString, BillLibraryRule> rules;
        std::map<CString, CString> paths;
        manager.GetBillLibraries(u"F", rules, paths);
        CString joined = manager.GetFamilyDisplayName(u"F") + u";" +
                         manager.FindBillLibraryFile(u"F", u"", u"b.qdk") + u";" +
                         manager.GetLibraryProviderName(u"F", u"", true) + u";" +
                         manager.GetEnterpriseBillLibraryText(u"F", u"e");
        for (const CString& text : texts)
            joined += u";" + text;
        joined.AppendFormat(u";%d;%d;%d", static_cast<int>(rules.size()), static_cast<int>(paths.size()),
                            manager.GetLibrarySeries());
        return joined;
    }
};

TEST_F(Threads, EachGetsTheAnswersOfOneAlone) {
    const CString expected = Answers();
    EXPECT_EQ(expected,
              u"F;" + PathOf(LibraryPath_BillRoot, L"F", L"B", L"P\\b.qdk") + u";P;text;F;shown;2;2;0");
    Calls();
    Answers();
    const std::size_t calls = Calls().size();
    constexpr int count = 4;
    const int rounds = Rounds(200);
    std::vector<int> right(count);
    std::vector<std::thread> threads;
    for (int& mine : right)
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round)
                mine += Answers() == expected;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(right, std::vector<int>(count, rounds));
    EXPECT_EQ(Calls().size(), calls * static_cast<std::size_t>(count * rounds));
}

TEST_F(Threads, ThoseThatComeFirstTogetherLoadTheCompanionOnce) {
    for (int round = 0; round < 20; ++round) {
        Calls();
        DirectoryManager::CLibraryDirectory directories;
        std::vector<std::thread> threads;
        std::vector<CString> roots(4);
        for (CString& root : roots)
            threads.emplace_back([&] { root = directories.GetLibraryRootDirectory(); });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(roots, std::vector<CString>(4, script.PathOf(LibraryPath_Root, L"", L"", L"")));
        EXPECT_EQ(Calls(),
                  (std::vector<std::wstring>{
                      L"initialise[" + (TestInstallation::Directory() + u"Visitor\\").ToWide() + L"][1]",
                      L"path0[][][]"}));
    }
}

}  // namespace
