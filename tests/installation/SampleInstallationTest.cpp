// The sample is a whole installation: every folder code, every kind of file, templates of every kind in both
// places.
#include <filesystem>
#include <memory>
#include <set>

#include <gtest/gtest.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/xml/XmlAccess.h"

namespace {

namespace fs = std::filesystem;

fs::path Sample(std::u8string_view below) {
    return fs::path(INSTALLATION_SAMPLE) / fs::path(below);
}

std::unique_ptr<XMLNode> SampleTree(const fs::path& file) {
    return std::unique_ptr<XMLNode>(LoadXMLNode(FromNativePath(file).ToWide()));
}

std::set<std::string> EndingsIn(const fs::path& folder) {
    std::set<std::string> endings;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file())
            endings.insert(entry.path().extension().string());
    }
    return endings;
}

/// The first of `endings` that a folder lacks.
std::string FirstMissing(const fs::path& folder, const std::set<std::string>& endings) {
    const std::set<std::string> there = EndingsIn(folder);
    for (const std::string& ending : endings) {
        if (there.count(ending) == 0)
            return ending;
    }
    return {};
}

const std::set<std::string> Templates = {".fyt",  ".zfyt", ".gst", ".zgst", ".cst",
                                         ".zcst", ".flt",  ".xbb", ".qbb",  ".dbb"};

}  // namespace

TEST(SampleInstallation, EveryFolderCodeIsThereOnce) {
    const std::unique_ptr<XMLNode> root = SampleTree(Sample(u8"DirectoryConfig.xml"));
    ASSERT_NE(root, nullptr);
    XMLNode* const section = root->FindChildNode(L"ProjectDirectory");
    ASSERT_NE(section, nullptr);
    std::set<std::wstring> codes;
    std::size_t items = 0;
    for (XMLNode* const item : section->Children) {
        codes.insert(item->Attributes.at(L"Code"));
        EXPECT_NE(item->Attributes.at(L"RelativePath"), L"");
        ++items;
    }
    EXPECT_EQ(items, codes.size());
    EXPECT_EQ(codes,
              (std::set<std::wstring>{
                  L"ProjectTemplateDirectory", L"TemplateDirectory", L"ConfigDirectory", L"TempFileDirectory",
                  L"HelpDirectory", L"ProjectFileDirectory", L"ProgramTemplateDirectory", L"ReportDirectory",
                  L"ReportTemplateDirectory", L"BidTenderFileTemplateDirectory", L"GraphSetDirectory",
                  L"SoftNetDirectory", L"LibVisitor", L"FyhzTemplateDirectory", L"GfsjTemplateDirectory",
                  L"CsxmTemplateDirectory", L"DjzcTemplateDirectory", L"LibraryDirectory", L"LogDirectory"}));
}

TEST(SampleInstallation, TemplatesOfEveryKindAreTheUsersAndTheLibraries) {
    EXPECT_EQ(FirstMissing(Sample(u8"模板"), Templates), "");
    for (const char8_t* section : {u8"Library/北京/2012预算定额", u8"Library/北京/2021预算消耗量标准",
                                   u8"Library/上海/2016预算定额"}) {
        EXPECT_EQ(FirstMissing(Sample(section), Templates), "");
        EXPECT_EQ(FirstMissing(Sample(section), {".dex", ".ec", ".zkx", ".drt", ".config"}), "");
    }
}

TEST(SampleInstallation, EveryXmlFileIsRead) {
    const std::set<std::string> xml = {".xml", ".ec",   ".config", ".fyt", ".zfyt", ".gst", ".zgst",
                                       ".cst", ".zcst", ".flt",    ".xbb", ".qbb",  ".dbb"};
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(Sample(u8""))) {
        if (xml.count(entry.path().extension().string()) == 0)
            continue;
        EXPECT_NE(SampleTree(entry.path()), nullptr) << entry.path();
        ++files;
    }
    EXPECT_GT(files, 60);
}

TEST(SampleInstallation, EveryLibraryFileOfAnItemHasItsExtraCosts) {
    int libraries = 0;
    for (const auto& entry : fs::recursive_directory_iterator(Sample(u8"Library"))) {
        if (entry.path().extension() != ".zkx")
            continue;
        fs::path costs = entry.path();
        const std::unique_ptr<XMLNode> root = SampleTree(costs.replace_extension(".ec"));
        ASSERT_NE(root, nullptr) << costs;
        ASSERT_NE(root->FindChildNode(L"Overheight"), nullptr);
        ASSERT_NE(root->FindChildNode(L"ExtraCostType"), nullptr);
        EXPECT_FALSE(root->FindChildNode(L"ExtraCostType")->Children.empty());
        ++libraries;
    }
    EXPECT_EQ(libraries, 5);
}
