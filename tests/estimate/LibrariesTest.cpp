// The libraries of an installation, listed and searched by the program as a process of its own: an
// installation is named once in the life of the library.
#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ArgumentFolder.h"
#include "TestSupport.h"
#include "tests/support/ChildProcess.h"

namespace {

namespace fs = std::filesystem;

const std::string SampleRoot = ESTIMATE_INSTALLATION;

/// What the program says, with slashes and without carriage returns, the sample's folder as SAMPLE.
struct Said {
    int status = -1;
    std::string out;
    std::string err;
    std::string asItIs;  ///< the output, untouched
};

std::string Plain(std::string text) {
    std::erase(text, '\r');
    std::replace(text.begin(), text.end(), '\\', '/');
    // A system with drives puts one in front.
    for (std::size_t at = text.find(SampleRoot); at != std::string::npos; at = text.find(SampleRoot)) {
        const bool hasDrive = at >= 2 && text[at - 1] == ':';
        text.replace(hasDrive ? at - 2 : at, SampleRoot.size() + (hasDrive ? 2 : 0), "SAMPLE");
    }
    return text;
}

Said RunAlone(const fs::path& program, std::vector<std::string> arguments) {
    ProgramCall call;
    call.program = program;
    call.arguments = std::move(arguments);
    const ProgramResult result = RunProgram(call);
    return {result.status, Plain(result.out), Plain(result.err), result.out};
}

/// The program of the build, with the sample's installation or another.
Said RunIn(const std::string& installation, std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"--installation", installation});
    return RunAlone(ESTIMATE_PROGRAM, std::move(arguments));
}

Said RunInSample(std::vector<std::string> arguments) {
    return RunIn(SampleRoot, std::move(arguments));
}

const std::string Tree =
    "SAMPLE/Library/\n"
    "├─ 上海 (上海造价示例)\n"
    "│  └─ 2016预算定额 (申城数据)\n"
    "│     ├─ items\n"
    "│     │  ├─ 市政工程 [SZ]\n"
    "│     │  └─ 房屋建筑与装饰工程 [FJ]\n"
    "│     ├─ bill libraries\n"
    "│     │  ├─ 市政工程工程量计算规范(2013) [9+3]: 清单库/上海/2016预算定额/申城数据/市政工程2013.qdx\n"
    "│     │  └─ 房屋建筑与装饰工程工程量计算规范(2013) [9+3]: "
    "清单库/上海/2016预算定额/申城数据/房屋建筑与装饰工程2013.qdx\n"
    "│     └─ quota libraries\n"
    "│        ├─ 市政工程预算定额(2016) [SZ]: 上海/2016预算定额/定额库/市政2016.dex\n"
    "│        └─ 建筑和装饰工程预算定额(2016) [FJ]: 上海/2016预算定额/定额库/建筑和装饰2016.dex\n"
    "└─ 北京\n"
    "   ├─ 2012预算定额 (墨衡)\n"
    "   │  ├─ items\n"
    "   │  │  ├─ 房屋建筑与装饰工程 [FJ]\n"
    "   │  │  └─ 通用安装工程 [AZ]\n"
    "   │  ├─ bill libraries\n"
    "   │  │  ├─ 房屋建筑与装饰工程工程量计算规范(2013) [9+3]: "
    "清单库/北京/2012预算定额/墨衡/房屋建筑与装饰工程2013.qdx\n"
    "   │  │  └─ 通用安装工程工程量计算规范(2013) [9+3]: 清单库/北京/2012预算定额/墨衡/通用安装工程2013.qdx\n"
    "   │  └─ quota libraries\n"
    "   │     ├─ 房屋建筑与装饰工程预算定额(2012) [FJ]: 北京/2012预算定额/定额库/房屋建筑与装饰2012.dex\n"
    "   │     └─ 通用安装工程预算定额(2012) [AZ]: 北京/2012预算定额/定额库/通用安装2012.dex\n"
    "   └─ 2021预算消耗量标准 (墨衡)\n"
    "      ├─ items\n"
    "      │  └─ 房屋建筑与装饰工程 [FJ]\n"
    "      ├─ bill libraries\n"
    "      │  └─ 房屋建筑与装饰工程工程量计算规范(2021修订) [9+3, flag 1]: "
    "清单库/北京/2021预算消耗量标准/墨衡/房屋建筑与装饰工程2021.qdx\n"
    "      └─ quota libraries\n"
    "         ├─ 房屋建筑与装饰工程预算消耗量标准(2021) [FJ]: "
    "北京/2021预算消耗量标准/定额库/房屋建筑与装饰2021.dex\n"
    "         └─ 补充项目(2021) [FJ]: 北京/2021预算消耗量标准/定额库/补充2021.dex  (not offered)\n";

/// An installation in a temporary folder: the companion over the catalogue that a test writes.
class SmallInstallation : public ArgumentFolder {
public:
    explicit SmallInstallation(bool hasCompanion = true) {
        Write("DirectoryConfig.xml",
              "<DirectoryConfig><ProjectDirectory><DirectoryItem Code=\"LibVisitor\" "
              "RelativePath=\"LibVisitor\"/></ProjectDirectory></DirectoryConfig>");
        fs::create_directory(File("LibVisitor"));
        if (hasCompanion)
            fs::copy_file(ESTIMATE_COMPANION, File("LibVisitor") / fs::path(ESTIMATE_COMPANION).filename());
    }
    Said Run(std::vector<std::string> arguments) const { return RunIn(Path("."), std::move(arguments)); }
};

/// What stands between the fences of a page.
std::vector<std::string> CodeBlocks(const std::string& page) {
    const std::string fence = "```";
    std::vector<std::string> blocks;
    for (std::size_t at = page.find(fence); at != std::string::npos; at = page.find(fence, at)) {
        const std::size_t begin = page.find('\n', at) + 1;
        const std::size_t end = std::min(page.find(fence, begin), page.size());
        blocks.push_back(page.substr(begin, end - begin));
        at = end + fence.size();
    }
    return blocks;
}

}  // namespace

TEST(Libraries, TheSampleAsATree) {
    const Said said = RunInSample({"libraries"});
    EXPECT_EQ(said.status, 0);
    EXPECT_EQ(said.err, "") << "the companion finds nothing wrong with its catalogue";
    EXPECT_EQ(said.out, Tree);
}

TEST(Libraries, TheProgramInTheInstallationNeedsNoOption) {
    const fs::path program = fs::path(SampleRoot) / fs::path(ESTIMATE_PROGRAM).filename();
    EXPECT_EQ(RunAlone(program, {"libraries"}).out, Tree);
}

TEST(Libraries, TheSampleAsJson) {
    const Said said = RunInSample({"libraries", "--json"});
    EXPECT_EQ(said.status, 0);
    const auto json = nlohmann::json::parse(said.asItIs);
    EXPECT_EQ(json["series"], 1);
    EXPECT_EQ(Plain(json["root"]), "SAMPLE/Library/");
    ASSERT_EQ(json["families"].size(), 2u);
    EXPECT_EQ(json["families"][0]["name"], "上海");
    EXPECT_EQ(json["families"][0]["displayName"], "上海造价示例");
    EXPECT_EQ(json["families"][1]["displayName"], "北京");
    const auto& section = json["families"][1]["sections"][1];
    EXPECT_EQ(section["name"], "2021预算消耗量标准");
    EXPECT_EQ(section["provider"], "墨衡");
    EXPECT_EQ(section["items"][0]["tag"], "FJ");
    const auto& rule = section["billLibraries"][0]["rule"];
    EXPECT_EQ(rule["count1"], 9);
    EXPECT_EQ(rule["count2"], 3);
    EXPECT_EQ(rule["flag1"], true);
    EXPECT_EQ(rule["flag2"], false);
    const auto& quota = section["quotaLibraries"][1];
    EXPECT_EQ(quota["name"], "北京2021补充");
    EXPECT_EQ(quota["title"], "补充项目(2021)");
    EXPECT_EQ(Plain(quota["path"]), "SAMPLE/Library/北京/2021预算消耗量标准/定额库/补充2021.dex");
    EXPECT_EQ(quota["exists"], true);
    EXPECT_EQ(quota["offered"], false);
}

TEST(Libraries, FilesAreFoundByTheirNames) {
    const std::string section = "SAMPLE/Library/北京/2012预算定额/";
    EXPECT_EQ(RunInSample({"libraries", "--find", "房屋建筑与装饰2012.dex"}).out,
              "quota\t" + section + "定额库/房屋建筑与装饰2012.dex\ndrt\t" + section +
                  "配套文件/房屋建筑与装饰2012.drt\nconfig\t" + section +
                  "配套文件/房屋建筑与装饰2012.config\n");
    EXPECT_EQ(RunInSample({"libraries", "--find", "北京2021补充"}).out,
              "quota\tSAMPLE/Library/北京/2021预算消耗量标准/定额库/补充2021.dex\n");
    EXPECT_EQ(RunInSample({"libraries", "--find", "住宅标准清单"}).out,
              "enterprise\tSAMPLE/Library/清单库/企业清单/北京/住宅标准清单.qyx\n");
    EXPECT_EQ(RunInSample({"libraries", "--find", "安装子目2012.zkx"}).out,
              "sub\t" + section + "子库/通用安装工程/安装子目2012.zkx\n");
    EXPECT_EQ(RunInSample({"libraries", "--find", "通用安装工程2013.qdx", "--kind", "bill"}).out,
              "SAMPLE/Library/清单库/北京/2012预算定额/墨衡/通用安装工程2013.qdx\n");
    EXPECT_EQ(RunInSample({"libraries", "--find", "通用安装工程2013.qdx", "--kind", "drt"}).out,
              section + "配套文件/通用安装工程2013.drt\n");
}

TEST(Libraries, ASearchIsNarrowedDown) {
    const std::vector<std::string> find = {"libraries", "--find", "房屋建筑与装饰工程2013.qdx", "--kind",
                                           "bill"};
    const auto with = [&](std::vector<std::string> more) {
        more.insert(more.begin(), find.begin(), find.end());
        return RunInSample(std::move(more));
    };
    const std::string shanghai =
        "SAMPLE/Library/清单库/上海/2016预算定额/申城数据/房屋建筑与装饰工程2013.qdx\n";
    const std::string beijing = "SAMPLE/Library/清单库/北京/2012预算定额/墨衡/房屋建筑与装饰工程2013.qdx\n";
    EXPECT_EQ(with({}).out, shanghai + beijing);
    EXPECT_EQ(with({"--family", "北京"}).out, beijing);
    EXPECT_EQ(with({"--family", "北京", "--section", "2012预算定额"}).out, beijing);
    EXPECT_EQ(with({"--family", "北京", "--section", "2021预算消耗量标准"}).status, 1);
    EXPECT_EQ(with({"--family", "天津"}).status, 1);
    EXPECT_EQ(RunInSample({"libraries", "--find", "安装子目2012.zkx", "--item", "通用安装工程"}).status, 0);
    EXPECT_EQ(RunInSample({"libraries", "--find", "安装子目2012.zkx", "--item", "市政工程"}).status, 1);
}

TEST(Libraries, HitsAsJson) {
    const Said said = RunInSample({"libraries", "--find", "住宅标准清单", "--json"});
    const auto hits = nlohmann::json::parse(said.asItIs);
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0]["kind"], "enterprise");
    EXPECT_EQ(hits[0]["family"], "北京");
    EXPECT_EQ(Plain(hits[0]["path"]), "SAMPLE/Library/清单库/企业清单/北京/住宅标准清单.qyx");
    const Said none = RunInSample({"libraries", "--find", "none", "--json"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(nlohmann::json::parse(none.asItIs), nlohmann::json::array());
    EXPECT_EQ(none.err, "estimate: no library file is found: none\n");
}

TEST(Libraries, WhatIsMissingIsSaidPlainly) {
    const ArgumentFolder empty;
    Said said = RunIn(empty.Path(""), {"libraries"});
    EXPECT_EQ(said.status, 2);
    EXPECT_TRUE(said.err.starts_with("estimate: no installation: there is no ")) << said.err;
    EXPECT_TRUE(said.err.ends_with("/DirectoryConfig.xml\n")) << said.err;

    const SmallInstallation without(false);
    said = without.Run({"libraries", "--find", "x"});
    EXPECT_EQ(said.status, 2);
    EXPECT_TRUE(Has(said.err, "there is no companion LibraryConfigVisitor in ")) << said.err;

    const SmallInstallation withoutCatalogue;
    said = withoutCatalogue.Run({"libraries"});
    EXPECT_EQ(said.status, 2);
    EXPECT_TRUE(Has(said.err, "Catalogue.xml: the file can't be read\n")) << said.err;
    EXPECT_TRUE(Has(said.err, "can't be loaded, or has no libraries to tell of\n")) << said.err;

    const SmallInstallation withoutRoot;
    withoutRoot.Write("LibVisitor/Catalogue.xml", "<Catalogue/>");
    said = withoutRoot.Run({"libraries"});
    EXPECT_EQ(said.status, 2);
    EXPECT_TRUE(Has(said.err, "estimate: the folder of the libraries is missing: ")) << said.err;
}

TEST(Libraries, AnEmptyListIsSaidPlainly) {
    const SmallInstallation installation;
    installation.Write("LibVisitor/Catalogue.xml", "<Catalogue/>");
    fs::create_directory(installation.File("Library"));
    const Said said = installation.Run({"libraries"});
    EXPECT_EQ(said.status, 1);
    EXPECT_TRUE(Has(said.err, "offers a quota library\n")) << said.err;
    EXPECT_TRUE(said.out.ends_with("/Library/\n")) << said.out;
}

TEST(Libraries, MissingFilesAndRepeatedNamesAreShown) {
    const SmallInstallation installation;
    installation.Write("LibVisitor/Catalogue.xml",
                       "<Catalogue><Item Name=\"i\" Tag=\"T\"/><Family Name=\"f\"><Section Name=\"a\"/>"
                       "<Section Name=\"b\"/></Family></Catalogue>");
    installation.Write("LibVisitor/f/a.xml",
                       "<Section Provider=\"p\"><Bill Name=\"x\" File=\"x.qd\" Tags=\"ZJ\"/>"
                       "<Bill Name=\"y\" File=\"y.qd\"/>"
                       "<Quota Name=\"q\" File=\"q.de\" Tags=\"ZJ\" ItemTags=\"T\"/></Section>");
    installation.Write("LibVisitor/f/b.xml",
                       "<Section Provider=\"p\"><Bill Name=\"x\" File=\"x.qd\" Tags=\"ZJ\"/>"
                       "<Quota Name=\"q\" File=\"q.de\" Tags=\"ZJ\" ItemTags=\"T\"/>"
                       "<Quota Name=\"r\" File=\"r.de\" Tags=\"ZJ\"/></Section>");
    installation.Write("Library/清单库/f/b/p/x.qd", "");
    installation.Write("Library/f/a/定额库/q.de", "");
    installation.Write("Library/f/a/子库/i/x", "");
    installation.Write("Library/f/b/定额库/q.de", "");
    const Said said = installation.Run({"libraries"});
    EXPECT_EQ(said.status, 0);
    const std::string tree = said.out.substr(said.out.find('\n') + 1);
    EXPECT_EQ(tree,
              "└─ f (p)\n"
              "   ├─ a (p)\n"
              "   │  ├─ items\n"
              "   │  │  └─ i [T]\n"
              "   │  ├─ bill libraries\n"
              "   │  │  ├─ x [9+3]: 清单库/f/a/p/x.qd  (missing)\n"
              "   │  │  └─ y [9+3]: 清单库/f/a/p/y.qd  (missing)\n"
              "   │  └─ quota libraries\n"
              "   │     └─ q [T]: f/a/定额库/q.de\n"
              "   └─ b (p)\n"
              "      ├─ items: none\n"
              "      ├─ bill libraries\n"
              "      │  └─ x.qd: 清单库/f/b/p/x.qd\n"
              "      └─ quota libraries\n"
              "         ├─ q [T]: f/b/定额库/q.de  (not offered)\n"
              "         └─ r: f/b/定额库/r.de  (missing)\n");
}

TEST(Libraries, ABareNameOfTheCurrentFolderIsNoLibrary) {
    const SmallInstallation installation;
    installation.Write("LibVisitor/Catalogue.xml",
                       "<Catalogue><Family Name=\"f\"><Section Name=\"a\"/></Family></Catalogue>");
    installation.Write("LibVisitor/f/a.xml", "<Section/>");
    installation.Write("Library/f/a/x", "");
    installation.Write("here/bill.qd", "");
    ProgramCall call;
    call.program = ESTIMATE_PROGRAM;
    call.arguments = {
        "--installation", installation.Path("."), "libraries", "--find", "bill.qd", "--family", "f"};
    call.folder = installation.File("here");
    EXPECT_EQ(RunProgram(call).status, 1);
}

TEST(Libraries, EveryCommandTakesAnInstallation) {
    const SmallInstallation installation;
    installation.Write("GB50500-2008.xml", "<r><u unit=\"t\" decimal=\"1\"/></r>");
    EXPECT_TRUE(Has(installation.Run({"unit", "t"}).out, "decimals   1\n"));
    EXPECT_TRUE(Has(RunInSample({"unit", "t"}).out, "decimals   3\n"));
}

// The page for people who set up libraries shows files and what becomes of them.
TEST(Libraries, TheExampleOfThePageIsTrue) {
    const std::vector<std::string> blocks = CodeBlocks(ReadWhole(ESTIMATE_COMPANION_PAGE));
    ASSERT_GT(blocks.size(), 5u);
    const SmallInstallation installation;
    installation.Write("LibVisitor/Catalogue.xml", blocks[1]);
    installation.Write("LibVisitor/示范/2024.xml", blocks[2]);
    installation.Write("LibVisitor/示范/企业清单.xml", blocks[3]);
    for (const char* file : {"示范/2024/定额库/土建2024.dex", "示范/2024/子库/土建工程/x",
                             "清单库/示范/2024/示范数据/国标清单.qdx", "清单库/企业清单/示范/住宅.qyx"})
        installation.Write("Library/" + std::string(file), {});
    const Said said = installation.Run({"libraries"});
    EXPECT_EQ(said.err, "");
    EXPECT_EQ(said.out.substr(said.out.find('\n')), blocks[4].substr(blocks[4].find('\n')));
}

TEST(Libraries, WrongUsage) {
    const ArgumentFolder folder;
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--installation", folder.Path("none"), "libraries"},
          {"--installation", folder.Write("file", ""), "unit", "t"},
          {"--installation"},
          {"libraries", "--kind", "bill"},
          {"libraries", "--family", "x"},
          {"libraries", "--find", "x", "--kind", "other"},
          {"libraries", "--find", ""}}) {
        const ProgramRun run = RunEstimate(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err, "");
        EXPECT_EQ(run.out, "");
    }
}
