// All texts of the program in both languages, and that there are no others.
#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <string_view>

#include <fmt/args.h>
#include <gtest/gtest.h>

#include "Message.h"
#include "TestSupport.h"

using namespace Estimate;

namespace {

namespace fs = std::filesystem;

bool IsAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

std::string Argument(std::size_t index) {
    return "<" + std::to_string(index) + ">";
}

std::string Filled(std::string_view format, std::size_t count) {
    fmt::dynamic_format_arg_store<fmt::format_context> arguments;
    for (std::size_t i = 0; i < count; ++i)
        arguments.push_back(Argument(i));
    return fmt::vformat(format, arguments);
}

/// A line of a source without what people don't see: remarks and the names of files.
std::string WithoutRemarks(const std::string& line) {
    if (line.starts_with("#include"))
        return {};
    return line.substr(0, line.find("//"));
}

}  // namespace

TEST(Messages, EachHasTwoWordings) {
    std::set<std::string_view> names;
    for (const Wording& wording : Wordings) {
        EXPECT_TRUE(names.insert(wording.name).second) << wording.name;
        EXPECT_NE(wording.english, "") << wording.name;
        EXPECT_NE(wording.chinese, "") << wording.name;
        EXPECT_TRUE(IsAscii(wording.english)) << wording.name;
    }
    EXPECT_GT(names.size(), 150u);
}

TEST(Messages, TheChineseOnesAreChinese) {
    // What is only an argument needs no words: "on line 3" is "第 3 行".
    const std::set<std::string_view> bare = {"OnPlace", "AtPlace"};
    const std::regex english("[a-z]{2,} [a-z]{2,}");
    for (const Wording& wording : Wordings) {
        EXPECT_TRUE(!IsAscii(wording.chinese) || bare.contains(wording.name)) << wording.name;
        EXPECT_FALSE(wording.name != "HelpFooter" && std::regex_search(std::string(wording.chinese), english))
            << wording.chinese;
        EXPECT_EQ(wording.chinese.find("'"),
                  wording.name == "HelpFooter" ? wording.chinese.find("'") : std::string_view::npos)
            << wording.chinese;
    }
}

TEST(Messages, BothWordingsTellTheSame) {
    for (const Wording& wording : Wordings) {
        const std::size_t count = ArgumentCount(wording.english);
        ASSERT_EQ(ArgumentCount(wording.chinese), count) << wording.name;
        const std::string english = Filled(wording.english, count);
        const std::string chinese = Filled(wording.chinese, count);
        for (std::size_t i = 0; i < count; ++i) {
            EXPECT_NE(english.find(Argument(i)), std::string::npos) << wording.name;
            EXPECT_NE(chinese.find(Argument(i)), std::string::npos) << wording.name;
        }
        // Options and numbers are the same in every language.
        const std::regex option("--[a-z-]+|[0-9]+");
        for (std::sregex_iterator at(english.begin(), english.end(), option), end; at != end; ++at)
            EXPECT_NE(chinese.find(at->str()), std::string::npos) << wording.name << ": " << at->str();
    }
}

TEST(Messages, ArgumentsAreCounted) {
    EXPECT_EQ(ArgumentCount(""), 0u);
    EXPECT_EQ(ArgumentCount("{{}}"), 0u);
    EXPECT_EQ(ArgumentCount("{}{}"), 2u);
    EXPECT_EQ(ArgumentCount("{1}{0}{1}"), 2u);
    EXPECT_EQ(ArgumentCount("{}{0}"), std::size_t(-1));
}

TEST(Messages, ArgumentsAreInTheLanguageOfTheirMessage) {
    const Message place = Say<Text::PlaceLine>(3);
    const Message message = Say<Text::ItemAboveBad>(place);
    EXPECT_EQ(message.In(Language::English), "the bill item above it, line 3, can't be priced");
    EXPECT_EQ(message.In(Language::Chinese), "其上方的清单项目（第 3 行）无法计价");
    EXPECT_EQ(Say<Text::NoOverview>(Text::TheInstallation).In(Language::Chinese), "安装没有工程概况");
    EXPECT_EQ(Say<Text::NoExtraCosts>("a", "b").In(Language::English), "no extra costs of a in family b");
    EXPECT_EQ(Say<Text::NoExtraCosts>("a", "b").In(Language::Chinese), "库族 b 中没有 a 的增加费");
    EXPECT_EQ(Say<Text::FileUnreadable>("{}").In(Language::Chinese), "无法读取文件：{}");
    EXPECT_TRUE(Message().empty());
    EXPECT_EQ(Message::Same("x").In(Language::Chinese), "x");
}

// Whoever adds a text puts it into the tables: no source holds a phrase of its own.
TEST(Messages, NoSourceHasEnglishTextsOfItsOwn) {
    // Words of the files that programs read, and the versions, are the same in every language.
    const std::set<std::string> data = {"\"extra cost\"",
                                        "\"extra costs\"",
                                        "\"with extra costs\"",
                                        "\"per m2\"",
                                        "\"decimals   \"",
                                        "\"\\nindicator  1 \"",
                                        "\"over-height  \"",
                                        "\"extra cost   \"",
                                        "\"each item\"",
                                        "\"the project\"",
                                        "\"the whole with all other extra costs\""};
    const std::regex phrase("\"(?:[^\"\\\\]|\\\\.)*\"");
    const std::regex words("[a-zA-Z]{2,}[ ,:;]+[a-zA-Z]");
    std::size_t literals = 0;
    for (const auto& entry : fs::recursive_directory_iterator(ESTIMATE_SOURCES)) {
        const std::string ending = entry.path().extension().string();
        if (ending != ".cpp" && ending != ".h")
            continue;
        std::istringstream source(ReadWhole(entry.path().string()));
        for (std::string line; std::getline(source, line);) {
            line = WithoutRemarks(line);
            for (std::sregex_iterator at(line.begin(), line.end(), phrase), end; at != end; ++at, ++literals)
                EXPECT_TRUE(data.contains(at->str()) || !std::regex_search(at->str(), words))
                    << entry.path() << ": " << at->str();
        }
    }
    EXPECT_GT(literals, 200u);
}

// What goes to standard error begins with the program's name or a place, and is else a message.
TEST(Messages, NothingElseGoesToStandardError) {
    const std::regex literal("err *<< *\"([^\"]*)\"");
    for (const auto& entry : fs::recursive_directory_iterator(ESTIMATE_SOURCES)) {
        if (entry.path().extension() != ".cpp")
            continue;
        const std::string source = ReadWhole(entry.path().string());
        for (std::sregex_iterator at(source.begin(), source.end(), literal), end; at != end; ++at)
            EXPECT_EQ(at->str(1), "estimate: ") << entry.path();
    }
}
