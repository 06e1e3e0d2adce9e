// The completions of the shells beside the program's own help.
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/estimate/ArgumentFolder.h"
#include "tests/estimate/HelpText.h"
#include "tests/support/ChildProcess.h"

namespace {

using Offers = std::set<std::string>;

std::vector<std::string> WordsOf(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string word; in >> word;)
        words.push_back(word);
    return words;
}

std::string RunShell(const std::string& shell, std::vector<std::string> arguments,
                     const std::filesystem::path& folder = {}) {
    ProgramCall call;
    call.program = shell;
    call.arguments = std::move(arguments);
    call.folder = folder;
    const ProgramResult result = RunProgram(call);
    EXPECT_TRUE(result.isStarted) << "the package " << shell << " is missing";
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    return result.out;
}

/// What bash offers for the last word of a command line.
Offers InBash(const std::vector<std::string>& line, const std::filesystem::path& folder = {}) {
    std::vector<std::string> arguments = {
        "--norc", "-c",
        "source \"$0\"; COMP_WORDS=(estimate \"$@\"); COMP_CWORD=$#; _estimate; printf '%s\\n' "
        "\"${COMPREPLY[@]}\"",
        ESTIMATE_BASH_COMPLETION};
    arguments.insert(arguments.end(), line.begin(), line.end());
    std::istringstream in(RunShell("bash", arguments, folder));
    Offers offers;
    for (std::string offer; std::getline(in, offer);)
        if (!offer.empty())
            offers.insert(offer);
    return offers;
}

/// The entries that zsh's completion hands to its shell for a command, one a line; what is offered for
/// commands stands behind "command:".
std::vector<std::string> InZsh(const std::string& command) {
    const std::string script =
        "_arguments() { if [[ $1 == -C && -n $asked[1] ]]; then [[ $asked[1] == backup && $line[1] == backup "
        "]] "
        "&& { state=event; return 1 }; state=argument; line=($asked); return 1; fi; "
        "[[ $1 == -C ]] && state=command; print -rl -- \"$@\"; return 1 }\n"
        "_describe() { local each; for each in ${(P)2}; do print -r -- \"command:${each%%:*}\"; done }\n"
        "_call_program() { : }\n"
        "asked=(\"${@[2,-1]}\"); words=(estimate $asked)\n"
        "source $1\n:\n";
    std::istringstream in(RunShell("zsh", {"-f", "-c", script, "zsh", ESTIMATE_ZSH_COMPLETION, command}));
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

/// The option of an entry such as "(-o --output)--output:FILE:_files"; empty for an argument.
std::string OptionOf(std::string entry) {
    if (entry.starts_with("("))
        entry.erase(0, entry.find(')') + 1);
    if (entry.starts_with("*"))
        entry.erase(0, 1);
    return entry.starts_with("--") || (entry.starts_with("-") && entry != "-C")
               ? entry.substr(0, entry.find(':'))
               : std::string();
}

Offers WithCommon(Offers options) {
    options.insert(CommonOptions().begin(), CommonOptions().end());
    return options;
}

}  // namespace

TEST(BashCompletion, OffersTheOptionsOfTheHelp) {
    for (const CommandHelp& help : AllHelp()) {
        std::vector<std::string> line = WordsOf(help.path);
        line.emplace_back("-");
        EXPECT_EQ(InBash(line), WithCommon(help.options)) << help.path;
    }
}

TEST(BashCompletion, OffersTheCommandsOfTheHelp) {
    for (const CommandHelp& help : AllHelp()) {
        if (help.commands.empty())
            continue;
        std::vector<std::string> line = WordsOf(help.path);
        line.emplace_back("");
        EXPECT_EQ(InBash(line), Offers(help.commands.begin(), help.commands.end())) << help.path;
    }
    EXPECT_EQ(InBash({"pr"}), Offers{"price"});
    EXPECT_EQ(InBash({"--installation", "x", "pr"}), Offers{"price"});
    EXPECT_EQ(InBash({"--installation", "=", "x", "pr"}), Offers{"price"});
}

TEST(BashCompletion, OffersTheWordsOfASet) {
    EXPECT_EQ(InBash({"sort", "-k", ""}), (Offers{"bill", "quota", "item"}));
    EXPECT_EQ(InBash({"sort", "--kind", "=", "q"}), Offers{"quota"});
    EXPECT_EQ(InBash({"sort", "--kind", "="}), (Offers{"bill", "quota", "item"}));
    for (const CommandHelp& help : AllHelp()) {
        if (help.path == "marks") {
            EXPECT_EQ(InBash({"marks", ""}), help.words);
        } else if (!help.words.empty()) {
            EXPECT_EQ(InBash({help.path, "--kind", ""}), help.words) << help.path;
        }
    }
}

TEST(BashCompletion, OffersFilesByTheirEndings) {
    const ArgumentFolder folder;
    for (const char* name : {"a.csv", "B.CSV", "p.xml", "x.txt", "with blank.csv", "sub/y"})
        folder.Write(name, "");
    const auto offers = [&](const std::vector<std::string>& line) { return InBash(line, folder.Path(".")); };
    const Offers tables = {"a.csv", "B.CSV", "with blank.csv", "sub"};
    Offers projects = tables;
    projects.insert("p.xml");
    Offers all = projects;
    all.insert("x.txt");
    EXPECT_EQ(offers({"price", ""}), projects);
    EXPECT_EQ(offers({"price", "a.csv", ""}), projects);
    EXPECT_EQ(offers({"price", "--csv", ""}), projects);
    EXPECT_EQ(offers({"price", "--", ""}), projects);
    EXPECT_EQ(offers({"price", "w"}), Offers{"with blank.csv"});
    EXPECT_EQ(offers({"price", "--vars", ""}), tables);
    EXPECT_EQ(offers({"price", "--rates", "a"}), Offers{"a.csv"});
    EXPECT_EQ(offers({"price", "--output", ""}), all);
    EXPECT_EQ(offers({"price", "-o", ""}), all);
    EXPECT_EQ(offers({"convert", "-o", ""}), projects);
    EXPECT_EQ(offers({"convert", "x", "--vars-out", "="}), tables);
    EXPECT_EQ(offers({"overview", ""}), (Offers{"p.xml", "sub"}));
    EXPECT_EQ(offers({"backup", "open", ""}), all);
    EXPECT_EQ(offers({"--installation", ""}), Offers{"sub"});
    EXPECT_EQ(offers({"price", "--name", ""}), Offers{});
    EXPECT_EQ(offers({"capital", ""}), Offers{});
}

TEST(ZshCompletion, IsAScriptOfItsShell) {
    RunShell("zsh", {"-n", ESTIMATE_ZSH_COMPLETION});
}

TEST(ZshCompletion, OffersTheOptionsOfTheHelp) {
    for (const CommandHelp& help : AllHelp()) {
        if (help.path.find(' ') != std::string::npos || help.path == "backup")
            continue;
        Offers options;
        for (const std::string& entry : InZsh(help.path))
            if (const std::string option = OptionOf(entry); !option.empty())
                options.insert(option);
        EXPECT_EQ(options, WithCommon(help.options)) << help.path;
    }
}

TEST(ZshCompletion, OffersTheCommandsAndWordsOfTheHelp) {
    for (const CommandHelp& help : AllHelp()) {
        std::string all;
        Offers commands;
        if (help.path.find(' ') == std::string::npos)
            for (const std::string& line : InZsh(help.path)) {
                all += line + "\n";
                if (line.starts_with("command:"))
                    commands.insert(line.substr(std::string("command:").size()));
            }
        EXPECT_EQ(commands, Offers(help.commands.begin(), help.commands.end())) << help.path;
        for (const std::string& word : help.words)
            EXPECT_NE(all.find(word), std::string::npos) << help.path << ": " << word;
    }
}
