// The manual pages beside the program's own help: neither tells of a command or an option that the other
// lacks.
#include <map>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "HelpText.h"
#include "TestSupport.h"

namespace {

struct Page {
    /// The options of the program, under "", and of its commands.
    std::map<std::string, std::set<std::string>> options;
    std::string text;
};

/// A line as it is read: without requests, fonts and quotes.
std::string ReadableLine(std::string line) {
    if (line.starts_with("."))
        line.erase(0, line.find(' ') + 1);
    std::string plain;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const bool isEscape = line[at] == '\\' && at + 1 < line.size();
        if (isEscape && line[at + 1] == 'f')
            at += 2;
        else if (!isEscape)
            plain += line[at] == '"' || line[at] == ',' ? ' ' : line[at];
    }
    return plain;
}

/// An entry, the line behind ".TP", is of options, or of the commands of a command.
void ReadEntry(const std::string& section, const std::string& line, Page& page) {
    std::istringstream words(ReadableLine(line));
    std::string word;
    words >> word;
    if (word == section && words >> word)
        page.options[section + " " + word];
    for (; words && word.starts_with("-"); words >> word)
        page.options[section].insert(word);
}

Page ReadPage(const std::string& path) {
    Page page;
    page.text = ReadWhole(path);
    std::istringstream in(page.text);
    bool isInside = false;
    bool isEntry = false;
    std::string section;
    for (std::string line; std::getline(in, line); isEntry = line == ".TP") {
        if (line.starts_with(".SH ")) {
            isInside =
                line == ".SH OPTIONS" || line == ".SH 选项" || line == ".SH COMMANDS" || line == ".SH 命令";
            section.clear();
        } else if (line.starts_with(".SS ")) {
            section = line.substr(4);
            page.options[section];
        } else if (isInside && isEntry) {
            ReadEntry(section, line, page);
        }
    }
    return page;
}

class Manual : public testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(Manual, TellsOfWhatTheHelpTells) {
    Page page = ReadPage(GetParam());
    std::map<std::string, std::set<std::string>> expected;
    for (const CommandHelp& help : AllHelp())
        expected[help.path] = help.options;
    ASSERT_GT(expected.size(), 15u);
    expected[""].insert(CommonOptions().begin(), CommonOptions().end());
    EXPECT_EQ(page.options, expected);
}

TEST_P(Manual, TellsTheWordsOfEachSet) {
    const std::string text = ReadPage(GetParam()).text;
    std::size_t count = 0;
    for (const CommandHelp& help : AllHelp())
        for (const std::string& word : help.words) {
            EXPECT_NE(text.find(word), std::string::npos) << word;
            ++count;
        }
    EXPECT_GT(count, 10u);
}

TEST_P(Manual, TellsEachExitStatusAndVariable) {
    const std::string text = ReadPage(GetParam()).text;
    for (const char* part : {".B 0\n", ".B 1\n", ".B 2\n", "LC_ALL", "LC_MESSAGES", "LANG", "TERM"})
        EXPECT_NE(text.find(part), std::string::npos) << part;
    EXPECT_EQ(text.find(".B 3\n"), std::string::npos);
    EXPECT_NE(text.find("estimate " ESTIMATE_VERSION), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Pages, Manual, testing::Values(ESTIMATE_MANUAL, ESTIMATE_CHINESE_MANUAL));
