// Library directories over visitors that a derived class puts in the companion's place.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/directory/CLibraryDirectory.h"

#include "tests/library/TestInstallation.h"

using DirectoryManager::CLibraryDirectory;

namespace {

/// Answers every query with its fields.
struct EchoVisitor final : ILibraryDirectoryVisitor {
    void Reserved0() override { ADD_FAILURE(); }
    void Reserved1() override { ADD_FAILURE(); }
    std::wstring GetLibraryPath(const LibraryPathQuery& query) override {
        ++calls;
        return std::to_wstring(query.PathKind) + L"|" + query.Family + L"|" + query.Section + L"|" +
               query.Item + L"|" + query.Reserved;
    }
    void Reserved3() override { ADD_FAILURE(); }
    std::wstring GetLibraryTag(const std::wstring& name) override { return L"#" + name; }
    int calls = 0;
};

struct OwnVisitor : CLibraryDirectory {
    ILibraryDirectoryVisitor* GetLibraryDirectoryVisitor() override {
        ++fetches;
        return visitor;
    }
    EchoVisitor echo;
    ILibraryDirectoryVisitor* visitor = &echo;
    int fetches = 0;
};

const LibraryKey Key{u"家族", u"Section", u"Item"};

TEST(LibraryDirectory, AnOverriddenVisitorAnswersEveryQuery) {
    OwnVisitor directories;
    EXPECT_EQ(directories.GetLibraryRootDirectory(), u"0||||");
    EXPECT_EQ(directories.GetFamilyDirectory(Key), u"1|家族|Section||");
    EXPECT_EQ(directories.GetQuotaLibraryDirectory(Key), u"2|家族|Section||");
    EXPECT_EQ(directories.GetBillLibraryRootDirectory(Key), u"3|家族|Section||");
    EXPECT_EQ(directories.GetEnterpriseBillDirectory(Key.Family), u"5|家族|||");
    EXPECT_EQ(directories.GetDrtFileDirectory(Key), u"6|家族|Section||");
    EXPECT_EQ(directories.GetConfigFileDirectory(Key), u"6|家族|Section||");
    EXPECT_EQ(directories.GetSubLibraryRootDirectory(Key), u"7|家族|Section||");
    EXPECT_EQ(directories.GetSubLibraryDirectory(Key), u"13|家族|Section|Item|");
    EXPECT_EQ(directories.GetFeeTemplateLibraryDirectory(Key), u"11|家族|Section||");
    EXPECT_EQ(directories.GetReportTemplateLibraryDirectory(Key), u"12|家族|Section||");
    EXPECT_EQ(directories.GetPathKind10Directory(Key), u"10|家族|Section||");
    EXPECT_EQ(directories.GetLibraryTag(u"Item"), u"#Item");
    EXPECT_EQ(directories.fetches, 13);
    EXPECT_EQ(directories.GetLibraryRootDirectory(), u"0||||");
    EXPECT_EQ(directories.fetches, 13) << "the root is kept";
}

TEST(LibraryDirectory, ANullVisitorGivesEmptyTexts) {
    OwnVisitor directories;
    directories.visitor = nullptr;
    EXPECT_EQ(directories.GetLibraryRootDirectory(), u"");
    EXPECT_EQ(directories.GetFamilyDirectory(Key), u"");
    EXPECT_EQ(directories.GetBillLibraryDirectory(Key), u"");
    EXPECT_EQ(directories.GetLibraryTag(u"x"), u"");
    EXPECT_EQ(directories.fetches, 4);
    directories.visitor = &directories.echo;
    EXPECT_EQ(directories.GetLibraryRootDirectory(), u"0||||");
}

TEST(LibraryDirectory, GroupPricesNeedNoVisitor) {
    OwnVisitor directories;
    directories.visitor = nullptr;
    EXPECT_EQ(directories.GetGroupPriceRootDirectory(), TestInstallation::Directory() + u"Library\\组价库\\");
    EXPECT_EQ(directories.GetGroupPriceDirectory(u"a\\b"),
              TestInstallation::Directory() + u"Library\\组价库\\a\\b\\");
    EXPECT_EQ(directories.GetGroupPriceDirectory(u""),
              TestInstallation::Directory() + u"Library\\组价库\\\\");
    EXPECT_EQ(directories.fetches, 0);
}

TEST(LibraryDirectory, AnOverriddenBillRootIsTheOneThatCounts) {
    struct OwnRoot : CLibraryDirectory {
        CString GetBillLibraryRootDirectory(const LibraryKey& key) override { return root + key.Section; }
        CString root = u"own root of ";
    } directories;
    ScriptedLibraries script(TestInstallation::Base());
    TestInstallation::Use(script);
    script.families[L"家族"].sections[L"Section"].provider = L"省站";
    EXPECT_EQ(directories.GetBillLibraryDirectory(Key), u"own root of Section省站\\");
    script.families[L"家族"].sections[L"Section"].provider = L"";
    EXPECT_EQ(directories.GetBillLibraryDirectory(Key), u"") << "no provider, no folder";
    script.families.clear();
    EXPECT_EQ(directories.GetBillLibraryDirectory(Key), u"");
    script.calls.clear();
    directories.root = u"";
    EXPECT_EQ(directories.GetBillLibraryDirectory({u"家族", u"", u""}), u"");
    EXPECT_TRUE(script.calls.empty()) << "without a root nobody is asked for the provider";
}

TEST(LibraryDirectory, ACompanionMayCallBackWhileItIsPrepared) {
    struct CallingBack final : public CompanionScript {
        void Initialise(const wchar_t* text, std::int32_t number) override {
            ++calls;
            folder = text;
            product = number;
            root = directories->GetLibraryRootDirectory();
        }
        std::wstring GetLibraryPath(const LibraryPathQuery&) override { return L"\\root\\"; }
        std::wstring GetLibraryTag(const std::wstring&) override { return {}; }
        ILibraryGlobalConfigVisitor* SectionVisitor(const wchar_t*, const wchar_t*) override {
            return nullptr;
        }
        IBillLibraryConfigVisitor* BillVisitor(const wchar_t*, const wchar_t*, const wchar_t*) override {
            return nullptr;
        }
        IEnterpriseBillLibraryConfigVisitor* EnterpriseVisitor(const wchar_t*) override { return nullptr; }
        std::int32_t Series() override { return 0; }

        CLibraryDirectory* directories = nullptr;
        CString root;
        CString folder;
        std::int32_t product = 0;
        int calls = 0;
    } script;
    TestInstallation::Use(script);
    CLibraryDirectory directories;
    script.directories = &directories;
    EXPECT_EQ(directories.GetFamilyDirectory(Key), u"\\root\\");
    EXPECT_EQ(script.root, u"\\root\\");
    EXPECT_EQ(script.calls, 1);
    EXPECT_EQ(script.folder, TestInstallation::Directory() + u"Visitor\\");
    EXPECT_EQ(script.product, 1);
}

TEST(LibraryDirectory, TheServiceIsOneObjectOfThatClass) {
    DirectoryManager::ILibraryDirectory* const service = DirectoryManager::GetLibraryDirectoryManager();
    EXPECT_EQ(service, DirectoryManager::GetLibraryDirectoryManager());
    EXPECT_NE(dynamic_cast<CLibraryDirectory*>(service), nullptr);
}

TEST(CommonDirectory, TheServiceIsOneObject) {
    EXPECT_EQ(DirectoryManager::GetCommonDirectoryManager(), DirectoryManager::GetCommonDirectoryManager());
    EXPECT_EQ(DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory(),
              TestInstallation::Directory());
}

}  // namespace
