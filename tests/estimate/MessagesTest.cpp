// All texts of the program in both languages, and that there are no others.
#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

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

bool IsLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

/// Whether a word of two letters and more is followed by another one.
bool HasPhrase(std::string_view text, std::string_view between) {
    std::size_t letters = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        letters = IsLetter(text[at]) ? letters + 1 : 0;
        const std::size_t next = text.find_first_not_of(between, at + 1);
        if (letters >= 2 && next != std::string_view::npos && next > at + 1 && IsLetter(text[next]))
            return true;
    }
    return false;
}

/// The options and the numbers in a text.
std::vector<std::string> FixedParts(std::string_view text) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < text.size();) {
        const bool isOption = text.substr(at).starts_with("--");
        const std::string_view taken = isOption ? "-abcdefghijklmnopqrstuvwxyz" : "0123456789";
        const std::size_t end = std::min(text.find_first_not_of(taken, at), text.size());
        if (end > at)
            parts.emplace_back(text.substr(at, end - at));
        at = std::max(end, at + 1);
    }
    return parts;
}

/// What stands between the quotes of a line of a source.
std::vector<std::string> Literals(std::string_view line) {
    std::vector<std::string> literals;
    for (std::size_t at = line.find('"'); at != std::string_view::npos; at = line.find('"', at)) {
        std::size_t end = at + 1;
        while (end < line.size() && line[end] != '"')
            end += line[end] == '\\' ? 2 : 1;
        literals.emplace_back(line.substr(at + 1, std::min(end, line.size()) - at - 1));
        at = std::min(end + 1, line.size());
    }
    return literals;
}

/// A line of a source without what people don't see: remarks and the names of files.
std::string WithoutRemarks(const std::string& line) {
    if (line.starts_with("#include"))
        return {};
    return line.substr(0, line.find("//"));
}

/// The lines of all sources of the program.
template <typename Visit>
void VisitSources(const Visit& visit) {
    for (const auto& entry : fs::recursive_directory_iterator(ESTIMATE_SOURCES)) {
        const std::string ending = entry.path().extension().string();
        if (ending != ".cpp" && ending != ".h")
            continue;
        std::istringstream source(ReadWhole(entry.path().string()));
        for (std::string line; std::getline(source, line);)
            visit(entry.path(), WithoutRemarks(line));
    }
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
    for (const Wording& wording : Wordings) {
        EXPECT_TRUE(!IsAscii(wording.chinese) || bare.contains(wording.name)) << wording.name;
        if (wording.name != "HelpFooter") {  // it shows a command
            EXPECT_FALSE(HasPhrase(wording.chinese, " ")) << wording.chinese;
        }
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
        for (const std::string& part : FixedParts(english))
            EXPECT_NE(chinese.find(part), std::string::npos) << wording.name << ": " << part;
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
    const std::set<std::string> data = {"extra cost",
                                        "extra costs",
                                        "with extra costs",
                                        "per m2",
                                        "decimals   ",
                                        "\\nindicator  1 ",
                                        "extra cost   ",
                                        "over-height  ",
                                        "each item",
                                        "the project",
                                        "the whole with all other extra costs"};
    std::size_t count = 0;
    VisitSources([&](const fs::path& path, const std::string& line) {
        for (const std::string& literal : Literals(line)) {
            EXPECT_TRUE(data.contains(literal) || !HasPhrase(literal, " ,:;")) << path << ": " << literal;
            ++count;
        }
    });
    EXPECT_GT(count, 200u);
}

// What goes to standard error begins with the program's name or a place, and is else a message.
TEST(Messages, NothingElseGoesToStandardError) {
    std::size_t count = 0;
    VisitSources([&](const fs::path& path, const std::string& line) {
        const std::size_t at = line.find("err << \"");
        if (at == std::string::npos)
            return;
        EXPECT_EQ(Literals(line.substr(at)).front(), "estimate: ") << path;
        ++count;
    });
    EXPECT_GE(count, 2u);
}

TEST(Messages, PhrasesAreSeen) {
    EXPECT_TRUE(HasPhrase("the file", " "));
    EXPECT_TRUE(HasPhrase("9 is: no number", " ,:;"));
    EXPECT_FALSE(HasPhrase("m x", " "));
    EXPECT_FALSE(HasPhrase("file-name", " "));
    EXPECT_EQ(FixedParts("--vars-out and 10-2"), (std::vector<std::string>{"--vars-out", "10", "2"}));
    EXPECT_EQ(Literals(R"(a "b \" c" + "d")"), (std::vector<std::string>{R"(b \" c)", "d"}));
}
