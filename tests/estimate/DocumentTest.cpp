// Projects in XML files, priced.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ArgumentFolder.h"
#include "Files.h"
#include "ProjectDocument.h"
#include "TestSupport.h"
#include "Utf8.h"

using namespace Estimate;

namespace {

const std::string OneItemElement =
    R"(<Item Code="010401001001" Name="砖基础" Unit="m3" Formula="10" Price="100"/>)";

std::string ProjectOf(const std::string& rows, const std::string& head = {}) {
    return "<Project><Variables>" + head + "</Variables><Bill>" + rows + "</Bill></Project>";
}

class Document : public ::testing::Test {
protected:
    ProgramRun Price(std::string_view text, std::vector<std::string> options = {"--json"}) const {
        options.insert(options.begin(), {"price", m_folder.Write(Name, text)});
        return RunEstimate(options);
    }
    /// What standard error says, without the file's name.
    std::string Messages(const std::string& text) const {
        std::string err = Price(text).err;
        const std::string file = m_folder.Path(Name) + ": ";
        for (std::size_t at = err.find(file); at != std::string::npos; at = err.find(file))
            err.erase(at, file.size());
        return err;
    }
    double Total(std::string_view text, const std::vector<std::string>& options = {"--json"}) const {
        const ProgramRun run = Price(text, options);
        EXPECT_LE(run.status, 1) << run.err;
        return nlohmann::json::parse(run.out)["total"]["amount"];
    }

    static constexpr const char* Name = "project.xml";
    ArgumentFolder m_folder;
};

}  // namespace

TEST_F(Document, IsPriced) {
    const std::string text = R"(<?xml version="1.0" encoding="UTF-8"?>
<Project Name="办公楼" Area="L*2">
  <Variables><Variable Name="L" Value="36.24" Remark="长"/></Variables>
  <Bill>
    <Heading Name="砌筑工程"/>
    <Item Code="010401001001" Name="砖基础" Features="1.砖&#10;2.砂浆" Unit="m³" Formula=" L*0.25*2 " Price="452.68">
      <Quota Code="4-1" Name="砖基础 M7.5" Unit="10m3" Formula="Q/10" Price="4,526.80"/>
    </Item>
    <Item Code="010101001001" Name="平整场地" Unit="m2" Formula="10">
      <Quota Code="1-1" Name="平整" Unit="m2" Formula="Q" Price="2"/>
    </Item>
  </Bill>
</Project>)";
    const ProgramRun run = Price(text);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    const nlohmann::json report = nlohmann::json::parse(run.out);
    EXPECT_EQ(report["name"], "办公楼");
    EXPECT_EQ(report["total"]["amount"], 8222.56);
    EXPECT_EQ(report["total"]["amountPerArea"], 113.45);  // 8222.56 / 72.48
    EXPECT_EQ(report["items"][0]["code"], "010101001001");
    EXPECT_TRUE(report["items"][0]["composed"]);
    EXPECT_EQ(report["items"][1]["features"], "1.砖\n2.砂浆");
    EXPECT_EQ(report["items"][1]["unit"], "m3");
    EXPECT_EQ(report["items"][1]["quotas"][0]["price"], 4526.80);
    EXPECT_TRUE(Has(Price(text, {}).out, "工程名称  办公楼\n"));
}

TEST_F(Document, OptionsGoFirst) {
    const std::string text =
        R"(<Project Name="a" Area="0"><Variables><Variable Name="L" Value="1"/><Variable Name="B" Value="2"/></Variables>
<Bill><Item Code="010401001001" Name="x" Unit="m3" Formula="L*B*H" Price="100"/></Bill></Project>)";
    const std::string variables = m_folder.Write("v.csv", "name,value\nl,10\nH,3\n");
    const ProgramRun run = Price(text, {"--json", "--vars", variables, "--name", "b", "--area", "L"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    const nlohmann::json report = nlohmann::json::parse(run.out);
    EXPECT_EQ(report["name"], "b");
    EXPECT_EQ(report["total"]["amount"], 6000.0);
    EXPECT_EQ(report["total"]["amountPerArea"], 600.0);
    EXPECT_EQ(Price(text, {"--vars", variables, "--area", "X"}).status, 2);
}

TEST_F(Document, EncodingsAndBeginnings) {
    const std::string plain = ProjectOf(OneItemElement);
    EXPECT_EQ(Total(plain), 1000.0);
    EXPECT_EQ(Total("\xEF\xBB\xBF" + plain), 1000.0);
    EXPECT_EQ(Total("\n  " + plain), 1000.0);
    const CString text = FromUtf8(plain);
    EXPECT_EQ(Total("<?xml version='1.0' encoding='GBK'?>" + IQsUtils::UnicodeToAnsi(text.ToWide())), 1000.0);
    for (const bool swapped : {false, true}) {
        std::string bytes = swapped ? "\xFE\xFF" : "\xFF\xFE";
        for (const char16_t unit : text.View()) {
            const char low = static_cast<char>(unit & 0xFF);
            const char high = static_cast<char>(unit >> 8);
            bytes.append(swapped ? std::string{high, low} : std::string{low, high});
        }
        EXPECT_EQ(Total(bytes), 1000.0) << swapped;
    }
    EXPECT_EQ(RunEstimate({"price", m_folder.Write("名 100%#1.txt", plain)}).status, 0);
}

TEST_F(Document, WhatAReaderPassesOver) {
    EXPECT_EQ(
        Total("<Project New='1'><Else><Bill>" + OneItemElement +
              "</Bill></Else><Variables><X/></Variables><Bill>text" + "<!-- c --><Group>" + OneItemElement +
              "</Group><Item Code='010401001002' Name='a' Unit='m3' "
              "Formula='1' Price='1' Colour='red'><Note/><Quota Code='4-1' Name='b' Unit='m3' Formula='1' "
              "Price='1'><Quota/></Quota></Item></Bill><Bill>" +
              OneItemElement + "</Bill></Project>"),
        1001.0);
    EXPECT_EQ(Total("<Project><Bill/></Project>"), 0.0);
}

TEST_F(Document, RowsThatCannotBePriced) {
    EXPECT_EQ(Messages(ProjectOf(OneItemElement +
                                 "<Item Code='010401001002' Name='a' Unit='m3' Formula='X' Price='1'/>")),
              "item 2: error: formula: \"X\" is neither a number nor a known variable\n");
    EXPECT_EQ(
        Messages(ProjectOf("<Item Code='010401001002' Name='a' Unit='m3' Formula='1' Price='1'>"
                           "<Quota Code='4-1' Name='b' Unit='m3' Formula='1' Price='1'/><Heading Name='h'/>"
                           "<Quota Code='4-2' Name='b' Unit='m3' Formula='1' Price='y'/></Item>")),
        "item 1, quota 2: error: price: the unit price is no number: \"y\"\n");
    EXPECT_EQ(Messages(ProjectOf("<Item Name='a' Unit='m3' Formula='1' Price='1'>"
                                 "<Quota Code='4-1' Name='b' Unit='m3' Formula='1' Price='1'/></Item>" +
                                 OneItemElement)),
              "item 1: error: code: the code is empty\n"
              "item 1, quota 1: error: the bill item above it, at item 1, can't be priced\n");
    EXPECT_EQ(
        Messages(ProjectOf("<Item Code='4-1' Name='a' Unit='m3' Formula='1' Price='1'/>" + OneItemElement)),
        "item 1: error: code: a bill code has 12 digits, nine of the national code and three of "
        "sequence; this one holds other characters\n");
    EXPECT_EQ(Messages(ProjectOf("<Item Code='01040100101' Name='a' Unit='m3' Formula='1' Price='1'/>")),
              "item 1: error: code: a bill code has 12 digits, nine of the national code and three of "
              "sequence; this one has 11\n");
    EXPECT_EQ(Messages(ProjectOf(
                  "<Item Code='010401001002' Name='a' Unit='m3' Formula='1'><Quota Code='010401001003' "
                  "Name='b' Unit='m3' Formula='1' Price='1'/></Item>")),
              "item 1, quota 1: error: code: a code of 12 digits is that of a bill item\n"
              "item 1: error: price: the unit price is empty, and its quota row at item 1, quota 1 can't be "
              "priced\n");
    const std::string stray = "<Quota Code='4-1' Name='b' Unit='m3' Formula='1' Price='1'/>";
    EXPECT_EQ(Messages(ProjectOf(stray + OneItemElement + stray)),
              "quota 1: error: no bill item stands above the quota row\n"
              "quota 2: error: no bill item stands above the quota row\n");
    EXPECT_EQ(Messages(ProjectOf(OneItemElement + OneItemElement)),
              "item 2: warning: code: the bill code 010401001001 stands at item 1 already\n");
}

TEST_F(Document, TheOthersArePriced) {
    const std::string text = ProjectOf("<Item/>" + OneItemElement + "<Item><Quota/></Item>");
    EXPECT_EQ(Price(text).status, 1);
    EXPECT_EQ(Total(text), 1000.0);
    const nlohmann::json problem = nlohmann::json::parse(Price(text).out)["problems"].back();
    EXPECT_EQ(problem["element"], "item 3, quota 1");
    EXPECT_FALSE(problem.contains("line"));
    EXPECT_EQ(Price(ProjectOf(OneItemElement + OneItemElement)).status, 0);
}

TEST_F(Document, BadVariablesAndAreas) {
    EXPECT_EQ(Messages(ProjectOf(OneItemElement,
                                 "<Variable Name='cost' Value='1'/><Variable Name='A' Value='x'/>"
                                 "<Variable Name='B' Value='1'/><Variable Name='b' Value='1'/><Variable/>")),
              "variable 1: error: name: in a formula the name would be read as the function cos\n"
              "variable 2: error: value: the value is no number: \"x\"\n"
              "variable 4: error: name: the name is taken already (names don't differ by case)\n"
              "variable 5: error: name: the name is empty\n");
    EXPECT_EQ(Messages("<Project Area='X'><Bill>" + OneItemElement + "</Bill></Project>"),
              "error: area: \"X\" is neither a number nor a known variable\n");
    EXPECT_EQ(Messages("<Project Area='0'><Bill/></Project>"), "error: area: the area is not above 0\n");
    EXPECT_EQ(Price("<Project Area='0'><Bill/></Project>").status, 1);
    EXPECT_EQ(Price(ProjectOf(OneItemElement, "<Variable/>")).status, 1);
}

TEST_F(Document, WhatIsNoProject) {
    for (const char* text :
         {"<", "<Project>", "<Project><Bill></Project>", "<Project a='1' a='2'><Bill/></Project>",
          "<Project><Bill/></Project>x", "<?xml version='1.0' encoding='none'?><Project/>",
          "<Project><Bill Name='\xFF'/></Project>", "<项目,名称\n"}) {
        const ProgramRun run = Price(text);
        EXPECT_EQ(run.status, 2) << text;
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(run.err.starts_with("estimate: " + m_folder.Path(Name) + ": 解析Xml文档失败:"))
            << run.err;
    }
    const std::string begin = "estimate: " + m_folder.Path(Name) + ": ";
    EXPECT_EQ(Price("<Units/>").err, begin + "the document is a Units and no Project\n");
    EXPECT_EQ(Price("<Project/>").err, begin + "the project has no Bill\n");
    EXPECT_EQ(Price("<Project/>").status, 2);
}

TEST_F(Document, ComesFromAFile) {
    const ProgramRun run = RunEstimate({"price", "-"}, ProjectOf(OneItemElement));
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "estimate: a project in XML is read from a file\n");
}

TEST_F(Document, ProgressPassesThroughAllPercents) {
    const ProjectDocument document(
        m_folder.Write(Name, ProjectOf(OneItemElement + OneItemElement + OneItemElement + OneItemElement)));
    ASSERT_NE(document.root, nullptr) << document.refusal;
    std::vector<std::uint64_t> parts;
    VisitBill(
        *document.root, [](const BillRow&) {}, 1000, [&](std::uint64_t part) { parts.push_back(part); });
    EXPECT_EQ(parts, (std::vector<std::uint64_t>{250, 500, 750, 1000}));
}

TEST(Files, PathsForTheLibrary) {
    EXPECT_TRUE(LibraryPath("a.xml").has_value());
    EXPECT_TRUE(LibraryPath("目录/100% #1.xml").has_value());
    // A backslash is either the system's separator or a letter that the library's form of a path lacks.
    const bool separates = std::filesystem::path("a\\b").has_parent_path();
    EXPECT_EQ(LibraryPath("a\\b.xml").has_value(), separates);
    EXPECT_EQ(ToNativePath(CString(LibraryPath("a/b.xml").value())), std::filesystem::path("a/b.xml"));
}
