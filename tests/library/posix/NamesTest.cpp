// Names of folders that only one system has: spaces at an end, and names that differ in case alone.
#include <vector>

#include <gtest/gtest.h>

#include "tests/library/TestInstallation.h"

using Texts = std::vector<CString>;

namespace {

class Names : public Libraries {
protected:
    void AddFamily(const std::wstring& family) {
        Make(LibraryPath_Family, family, L"", L"S\\");
        script.families[family].sections[L"S"].quotas[L"q"] = LibraryEntry{L"", L"", L"", {L"ZJ"}, {}};
    }
};

TEST_F(Names, ANameOfSpacesIsLeftOutOfEveryListing) {
    AddFamily(L"  ");
    AddFamily(L"F");
    Make(LibraryPath_Family, L"F", L"", L" \\");
    Make(LibraryPath_SubLibraryRoot, L"F", L"S", L"   \\");
    Texts texts;
    manager.GetLibraryFamilies(texts);
    EXPECT_EQ(texts, Texts{u"F"});
    manager.GetFamilySections(texts, u"F");
    EXPECT_EQ(texts, Texts{u"S"});
    texts.clear();
    manager.GetSectionItems(texts, u"F", u"S");
    EXPECT_EQ(texts, Texts{});
}

TEST_F(Names, OnlyTheSpaceItselfIsASpace) {
    Make(LibraryPath_Family, L"F", L"", L"\t\\");
    Make(LibraryPath_Family, L"F", L"", L"\x3000\\");
    Texts texts;
    manager.GetFamilySections(texts, u"F");
    EXPECT_EQ(texts, (Texts{u"\t", u"\x3000"}));
}

TEST_F(Names, SpacesStayInTheOutputButNotInTheExclusion) {
    for (const wchar_t* name : {L"F ", L" G", L"LibDownTmp ", L" 清单库  "})
        AddFamily(name);
    Make(LibraryPath_SubLibraryRoot, L"F", L"S", L" I \\");
    Texts texts;
    manager.GetLibraryFamilies(texts);
    EXPECT_EQ(texts, (Texts{u" G", u"F "}));
    texts.clear();
    manager.GetSectionItems(texts, u"F", u"S");
    EXPECT_EQ(texts, Texts{u" I "});
}

TEST_F(Names, CaseTellsNamesApart) {
    for (const wchar_t* name : {L"s\\", L"S\\"})
        Make(LibraryPath_Family, L"F", L"", name);
    Texts texts;
    manager.GetFamilySections(texts, u"F");
    EXPECT_EQ(texts, (Texts{u"S", u"s"}));
}

TEST_F(Names, ALinkToAFolderIsAFolder) {
    AddFamily(L"F");
    const auto root = TestInstallation::Folder() / "libraries/families";
    std::filesystem::create_directory_symlink(root / "F", root / "linked");
    std::filesystem::create_directory_symlink(root / "nowhere", root / "broken");
    script.families[L"linked"] = script.families[L"F"];
    Texts texts;
    manager.GetLibraryFamilies(texts);
    EXPECT_EQ(texts, (Texts{u"F", u"linked"}));
}

}  // namespace
