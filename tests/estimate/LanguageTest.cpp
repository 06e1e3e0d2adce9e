// Which language the program speaks, and what of its output doesn't depend on it.
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ArgumentFolder.h"
#include "Language.h"
#include "TestSupport.h"
#include "tests/support/ChildProcess.h"

using Estimate::Language;

namespace {

using Environment = std::vector<std::pair<std::string, std::string>>;

std::string ErrorIn(const Environment& environment) {
    ProgramCall call;
    call.program = ESTIMATE_PROGRAM;
    call.arguments = {"price", "none.csv"};
    call.environment = environment;
    const ProgramResult result = RunProgram(call);
    EXPECT_EQ(result.status, 2);
    return result.err;
}

const std::string English = "estimate: the file can't be read: none.csv\n";
const std::string Chinese = "estimate: 无法读取文件：none.csv\n";

bool IsAscii(const std::string& text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

}  // namespace

TEST(Language, OfALocale) {
    for (const char* name : {"zh", "zh_CN", "zh_CN.UTF-8", "zh_CN.GB18030", "zh_TW", "zh-Hans", "zh.UTF-8",
                             "zh@stroke", "ZH_cn"})
        EXPECT_EQ(Estimate::LanguageOfLocale(name), Language::Chinese) << name;
    for (const char* name : {"", "C", "POSIX", "C.UTF-8", "en_US.UTF-8", "z", "zha", "zhx_CN", "_zh", "de_CH",
                             "en_ZH", "Chinese"})
        EXPECT_EQ(Estimate::LanguageOfLocale(name), Language::English) << name;
}

TEST(Language, TheFirstVariableThatIsSetDecides) {
    EXPECT_EQ(ErrorIn({{"LC_ALL", "C"}, {"LC_MESSAGES", "zh_CN"}, {"LANG", "zh_CN"}}), English);
    EXPECT_EQ(ErrorIn({{"LC_ALL", "zh_CN.UTF-8"}, {"LC_MESSAGES", "C"}, {"LANG", "C"}}), Chinese);
    EXPECT_EQ(ErrorIn({{"LC_ALL", ""}, {"LC_MESSAGES", "zh_CN"}, {"LANG", "C"}}), Chinese);
    EXPECT_EQ(ErrorIn({{"LC_ALL", ""}, {"LC_MESSAGES", "en_US.UTF-8"}, {"LANG", "zh_CN"}}), English);
    EXPECT_EQ(ErrorIn({{"LC_ALL", ""}, {"LC_MESSAGES", ""}, {"LANG", "zh_CN.UTF-8"}}), Chinese);
    EXPECT_EQ(ErrorIn({{"LC_ALL", ""}, {"LC_MESSAGES", ""}, {"LANG", "de_DE"}}), English);
}

TEST(Language, OfTheSystemWhenNoVariableIsSet) {
    const std::string expected = Estimate::LanguageOfSystem() == Language::Chinese ? Chinese : English;
    EXPECT_EQ(ErrorIn({{"LC_ALL", ""}, {"LC_MESSAGES", ""}, {"LANG", ""}}), expected);
}

TEST(Language, HelpIsInOneLanguage) {
    for (const std::string command : {"price", "convert", "eval", "vars", "capital", "sort", "unit",
                                      "libraries", "overview", "extra-costs", "marks", "history", "backup"}) {
        const std::string english = RunEstimate({command, "--help"}).out;
        EXPECT_TRUE(IsAscii(english)) << command;
        const std::string chinese = RunEstimate({command, "--help"}, {}, Language::Chinese).out;
        EXPECT_TRUE(Has(chinese, "用法: estimate " + command)) << chinese;
        EXPECT_TRUE(Has(chinese, "显示本帮助")) << chinese;
        EXPECT_TRUE(Has(chinese, "退出状态")) << chinese;
        for (const char* word : {"Usage", "Options", "OPTIONS", "Print", "TEXT", "FILE", "REQUIRED", "Needs",
                                 "Excludes", "INT", " the "})
            EXPECT_FALSE(Has(chinese, word)) << command << ": " << word;
    }
}

TEST(Language, WrongUsageIsToldInBoth) {
    struct Case {
        std::vector<std::string> arguments;
        std::string english;
        std::string chinese;
        std::string command = "estimate";
    };
    const std::vector<Case> cases = {
        {{}, "a command is missing", "缺少命令"},
        {{"priec", "x"}, "there is no command priec", "没有命令 priec"},
        {{"backup"}, "a command is missing", "缺少命令", "estimate backup"},
        {{"backup", "shut"}, "there is no command shut", "没有命令 shut", "estimate backup"},
        {{"backup", "open"}, "project is missing", "缺少 project", "estimate backup open"},
        {{"price"}, "bill is missing", "缺少 bill", "estimate price"},
        {{"convert", "-"}, "--output is missing", "缺少 --output", "estimate convert"},
        {{"price", "-", "--bom"}, "--bom needs --csv", "--bom 须与 --csv 同用", "estimate price"},
        {{"price", "-", "--json", "--csv"},
         "--json and --csv exclude each other",
         "--json 不能与 --csv 同用",
         "estimate price"},
        {{"price", "-", "--nonsense"},
         "not expected here: --nonsense",
         "此处多余：--nonsense",
         "estimate price"},
        {{"unit", "t", "m", "x", "y"}, "not expected here: x y", "此处多余：x y", "estimate unit"},
        {{"price", "-", "--name"}, "--name lacks its value", "--name 缺少值", "estimate price"},
        {{"price", "-", "--name", "a", "--name", "b"},
         "--name is given more than once",
         "--name 只能给出一次",
         "estimate price"},
        {{"sort", "-k", "x"},
         "--kind: \"x\" is none of {bill,quota,item}",
         "--kind: “x”不在 {bill,quota,item} 之中",
         "estimate sort"},
        {{"eval", "-d", "7", "1"},
         "--decimals: \"7\" is no whole number from 0 to 6",
         "--decimals: “7”不是 0 到 6 的整数",
         "estimate eval"},
        {{"price", "-", "--jobs", "0x10"},
         "--jobs: \"0x10\" is no whole number from 1 to 256",
         "--jobs: “0x10”不是 1 到 256 的整数",
         "estimate price"},
        {{"libraries", "--find", ""},
         "--find: a name is asked for",
         "--find: 名称不能为空",
         "estimate libraries"},
        {{"price", "-", "--json=x"}, "--json takes no value", "--json 不带值", "estimate price"},
    };
    for (const Case& one : cases) {
        const ProgramRun english = RunEstimate(one.arguments);
        EXPECT_EQ(english.status, 2);
        EXPECT_EQ(english.out, "");
        EXPECT_EQ(english.err,
                  "estimate: " + one.english + "\nestimate: \"" + one.command + " --help\" tells more\n");
        const ProgramRun chinese = RunEstimate(one.arguments, {}, Language::Chinese);
        EXPECT_EQ(chinese.status, 2);
        EXPECT_EQ(chinese.out, "");
        EXPECT_EQ(chinese.err,
                  "estimate: " + one.chinese + "\nestimate: 用“" + one.command + " --help”查看帮助\n");
    }
}

TEST(Language, ProblemsOfABillAreToldInBoth) {
    const std::string bill = std::string(Headings) +
                             "010401001001,砖基础,,m3,?,100\n"
                             "4-1,a,,m3,Q,1\n"
                             "010401001002,砖墙,,m3,10-2-3,\n";
    EXPECT_EQ(RunEstimate({"price", "-"}, bill, Language::Chinese).err,
              "(标准输入):2:5: 错误：工程量表达式：“?”既不是数字，也不是已知的变量\n"
              "(标准输入):3: 错误：其上方的清单项目（第 2 行）无法计价\n"
              "(标准输入):4:5: 警告：工程量表达式：第 5 个字符：减号后面的内容整体被减，10-2-3 得 11；"
              "要得 5 请写 10-(2+3)，并把加项写在前面\n"
              "(标准输入):4:6: 错误：单价：单价为空，也没有定额行可以组价\n");
    EXPECT_EQ(RunEstimate({"price", "-"}, "no table\n", Language::Chinese).err,
              "estimate: (标准输入)：没有一行含有这些列的标题：编码，名称，计量单位，工程量表达式，单价\n");
    EXPECT_EQ(RunEstimate({"eval", "1/0"}, {}, Language::Chinese).err, "1/0: 错误：除数为零\n");
}

// Scripts read these in whatever locale they run.
TEST(Language, DataIsTheSameInBoth) {
    const ArgumentFolder folder;
    const std::string bill = folder.Write(
        "b.csv", std::string(Headings) + "010401001001,砖基础,,m3,10-2-3,100\n4-1,a,,m3,?,1\nx\n");
    const std::string variables = folder.Write("v.csv", "name,value\nA,1\nB,x\n");
    const std::string project =
        folder.Write("p.xml", "<Project Area=\"0\"><Bill><Item Code=\"1\"/><Quota/></Bill></Project>");
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"price", bill, "--vars", variables},
          {"price", bill, "--vars", variables, "--json"},
          {"price", bill, "--vars", variables, "--csv"},
          {"price", project, "--json"},
          {"price", project, "--csv"},
          {"price", "-", "--csv"},
          {"price", "-", "--json"},
          {"price", bill, project, "--json"},
          {"price", bill, bill},
          {"eval", "1+1", "X"},
          {"vars", "A+B"},
          {"capital", "1", "x"},
          {"sort", "2", "1"},
          {"unit", "t"},
          {"unit", "t", "kg"},
          {"--version"}}) {
        const std::string input = "code,name,unit,formula,price\n1,,,,\n";
        const ProgramRun english = RunEstimate(arguments, input);
        const ProgramRun chinese = RunEstimate(arguments, input, Language::Chinese);
        EXPECT_NE(english.out, "") << arguments[0];
        EXPECT_EQ(english.out, chinese.out) << arguments[0];
        EXPECT_EQ(english.status, chinese.status) << arguments[0];
        EXPECT_EQ(english.err.empty(), chinese.err.empty()) << arguments[0];
        EXPECT_EQ(IsAscii(chinese.err), chinese.err.empty()) << arguments[0];
    }
}
