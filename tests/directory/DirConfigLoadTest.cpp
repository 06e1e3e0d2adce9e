// The loader of a section, and what classes derived from it may rely on.
#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/directory/CProjectDirectory.h"

#include "tests/library/TestInstallation.h"

using DirectoryManager::CDirConfigLoad;
using DirectoryManager::CProjectDirectory;

namespace {

/// A loader of any section, which shows its fields.
struct Loader : CDirConfigLoad {
    explicit Loader(const CString& section) { m_strSectionPath = section; }
    using CDirConfigLoad::m_bLoaded;
    using CDirConfigLoad::m_mapDirectory;
};

TEST(DirConfigLoad, OnlyTheSecondNameOfThePathCounts) {
    for (const char16_t* path : {u"DirectoryConfig/Other", u"x/Other", u"/Other", u"x/Other/y/z"})
        EXPECT_EQ(Loader(path).GetDirectoryRelativePath(u"A"), u"of other\\") << CString(path);
    for (const char16_t* path :
         {u"", u"Other", u"x/", u"x/y/Other", u"x/other", u"x\\Other", u"x/Empty", u"/"})
        EXPECT_EQ(Loader(path).GetDirectoryRelativePath(u"A"), u"") << CString(path);
}

TEST(DirConfigLoad, TheFlagIsSetByTheLookupAlone) {
    Loader loader(u"x/Other");
    loader.LoadDirectoryConfig();
    EXPECT_FALSE(loader.m_bLoaded);
    EXPECT_EQ(loader.m_mapDirectory.size(), 1u);
    EXPECT_EQ(loader.GetDirectoryRelativePath(u"no code"), u"");
    EXPECT_TRUE(loader.m_bLoaded);
}

TEST(DirConfigLoad, AMapThatHoldsSomethingIsLeftAlone) {
    Loader loader(u"x/Other");
    loader.m_mapDirectory[u"B"] = u"set before";
    EXPECT_EQ(loader.GetDirectoryRelativePath(u"A"), u"");
    EXPECT_EQ(loader.GetDirectoryRelativePath(u"B"), u"set before\\");
}

TEST(DirConfigLoad, AnOverrideOfTheLoadIsCalledOnce) {
    struct Own : CProjectDirectory {
        void LoadDirectoryConfig() override {
            ++calls;
            m_mapDirectory[u"ReportDirectory"] = u"own";
        }
        int calls = 0;
    } directories;
    EXPECT_EQ(directories.calls, 0);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(directories.GetReportDirectory(), TestInstallation::Directory() + u"own\\");
    EXPECT_EQ(directories.calls, 1);
}

TEST(DirConfigLoad, AnOverrideThatLoadsNothingIsCalledOnceToo) {
    struct Own : CProjectDirectory {
        void LoadDirectoryConfig() override { ++calls; }
        int calls = 0;
    } directories;
    EXPECT_EQ(directories.GetReportDirectory(), TestInstallation::Directory());
    EXPECT_EQ(directories.GetLogDirectory(), TestInstallation::Directory());
    EXPECT_EQ(directories.calls, 1);
}

TEST(DirConfigLoad, AnOverrideMayLoadTheFileAndLookCodesUp) {
    struct Own : CProjectDirectory {
        void LoadDirectoryConfig() override {
            before = GetReportDirectory();
            CDirConfigLoad::LoadDirectoryConfig();
            after = GetReportDirectory();
        }
        CString before;
        CString after;
    } directories;
    EXPECT_EQ(directories.GetReportDirectory(), TestInstallation::Directory() + u"Report\\");
    EXPECT_EQ(directories.before, TestInstallation::Directory());
    EXPECT_EQ(directories.after, TestInstallation::Directory() + u"Report\\");
}

TEST(DirConfigLoad, AnOverrideThatRaisesIsAskedAgain) {
    struct Own : CProjectDirectory {
        void LoadDirectoryConfig() override {
            if (calls++ == 0)
                throw std::bad_alloc();
            CDirConfigLoad::LoadDirectoryConfig();
        }
        int calls = 0;
    } directories;
    EXPECT_THROW(directories.GetReportDirectory(), std::bad_alloc);
    EXPECT_EQ(directories.GetReportDirectory(), TestInstallation::Directory() + u"Report\\");
}

TEST(DirConfigLoad, ThreadsThatComeFirstTogetherSeeOneLoad) {
    struct Own : CProjectDirectory {
        void LoadDirectoryConfig() override {
            ++calls;
            CDirConfigLoad::LoadDirectoryConfig();
        }
        std::atomic<int> calls{0};
    };
    for (int round = 0; round < 50; ++round) {
        Own directories;
        std::atomic<int> right{0};
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([&] {
                right += directories.GetReportDirectory() == TestInstallation::Directory() + u"Report\\";
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(right, 4);
        EXPECT_EQ(directories.calls, 1);
    }
}

TEST(ProjectDirectory, AnOverrideOfGetDirectoryReachesAllGetters) {
    struct Own : CProjectDirectory {
        CString GetDirectory(const CString& code) override { return u"<" + code + u">"; }
    } own;
    DirectoryManager::IProjectDirectory& directories = own;
    EXPECT_EQ(directories.GetProjectTemplateDirectory(), u"<ProjectTemplateDirectory>");
    EXPECT_EQ(directories.GetTemplateDirectory(), u"<TemplateDirectory>");
    EXPECT_EQ(directories.GetConfigDirectory(), u"<ConfigDirectory>");
    EXPECT_EQ(directories.GetTempFileDirectory(), u"<TempFileDirectory>");
    EXPECT_EQ(directories.GetHelpDirectory(), u"<HelpDirectory>");
    EXPECT_EQ(directories.GetProjectFileDirectory(), u"<ProjectFileDirectory>");
    EXPECT_EQ(directories.GetProgramTemplateDirectory(), u"<ProgramTemplateDirectory>");
    EXPECT_EQ(directories.GetReportDirectory(), u"<ReportDirectory>");
    EXPECT_EQ(directories.GetReportTemplateDirectory(), u"<ReportTemplateDirectory>");
    EXPECT_EQ(directories.GetBidTenderFileTemplateDirectory(), u"<BidTenderFileTemplateDirectory>");
    EXPECT_EQ(directories.GetGraphSetDirectory(), u"<GraphSetDirectory>");
    EXPECT_EQ(directories.GetSoftNetDirectory(), u"<SoftNetDirectory>");
    EXPECT_EQ(directories.GetLibVisitorDirectory(), u"<LibVisitor>");
    EXPECT_EQ(directories.GetFyhzTemplateDirectory(), u"<FyhzTemplateDirectory>");
    EXPECT_EQ(directories.GetGfsjTemplateDirectory(), u"<GfsjTemplateDirectory>");
    EXPECT_EQ(directories.GetCsxmTemplateDirectory(), u"<CsxmTemplateDirectory>");
    EXPECT_EQ(directories.GetDjzcTemplateDirectory(), u"<DjzcTemplateDirectory>");
    EXPECT_EQ(directories.GetLibraryDirectory(), u"<LibraryDirectory>");
    EXPECT_EQ(directories.GetLogDirectory(), u"<LogDirectory>");
}

TEST(ProjectDirectory, TheServiceIsOneObjectOfThatClass) {
    DirectoryManager::IProjectDirectory* const service = DirectoryManager::GetProjectDirectoryManager();
    EXPECT_EQ(service, DirectoryManager::GetProjectDirectoryManager());
    auto* const loader = dynamic_cast<CDirConfigLoad*>(service);
    ASSERT_NE(loader, nullptr);
    EXPECT_EQ(loader->GetDirectoryRelativePath(u"ReportDirectory"), u"Report\\");
}

}  // namespace
