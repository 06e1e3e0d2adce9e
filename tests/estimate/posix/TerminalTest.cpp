// What the program draws on a terminal, and that a pipe or a file gets none of it.
#include <array>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/estimate/ArgumentFolder.h"
#include "tests/estimate/BillGenerator.h"
#include "tests/estimate/TestSupport.h"
#include "tests/support/ChildProcess.h"

namespace {

constexpr std::size_t LongBill = 90'000;  // rows, more than 4 MB

std::string WriteBill(const ArgumentFolder& folder) {
    const std::string path = folder.Path("long.csv");
    std::ofstream out(path, std::ios::binary);
    GenerateBill(out, LongBill);
    return path;
}

[[noreturn]] void BecomeEstimate(std::vector<std::string> arguments, const char* kind, const char* locale) {
    std::vector<char*> texts;
    for (std::string& argument : arguments)
        texts.push_back(argument.data());
    texts.push_back(nullptr);
    setenv("LC_ALL", locale, 1);
    if (kind == nullptr)
        unsetenv("TERM");
    else
        setenv("TERM", kind, 1);
    execv(ESTIMATE_PROGRAM, texts.data());
    _exit(127);
}

/// All that the program writes to a terminal of this kind.
std::string OnTerminal(const std::vector<std::string>& arguments, const char* kind,
                       const char* locale = "C") {
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0)
        BecomeEstimate(arguments, kind, locale);
    std::string text;
    std::array<char, 4096> part{};
    for (ssize_t count = read(terminal, part.data(), part.size()); count > 0;
         count = read(terminal, part.data(), part.size()))
        text.append(part.data(), static_cast<std::size_t>(count));
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    close(terminal);
    return text;
}

}  // namespace

TEST(Terminal, ABarIsDrawnAndWipedOff) {
    const ArgumentFolder folder;
    const std::vector<std::string> call = {"estimate", "price", WriteBill(folder), "-o",
                                           folder.Path("out.txt")};
    const std::string text = OnTerminal(call, "xterm");
    EXPECT_TRUE(Has(text, "pricing [")) << text;
    EXPECT_TRUE(Has(text, "] 100 %"));
    EXPECT_TRUE(text.ends_with("\r\x1B[K")) << text;
    EXPECT_TRUE(Has(OnTerminal(call, "xterm", "zh_CN.UTF-8"), "正在计价 ["));
}

TEST(Terminal, NoBarWhereALineCannotBeWiped) {
    const ArgumentFolder folder;
    const std::vector<std::string> call = {"estimate", "price", WriteBill(folder), "-o",
                                           folder.Path("out.txt")};
    EXPECT_EQ(OnTerminal(call, "dumb"), "");
    EXPECT_EQ(OnTerminal(call, ""), "");
    EXPECT_EQ(OnTerminal(call, nullptr), "");
}

TEST(Terminal, NothingIsColoured) {
    for (const std::vector<std::string>& call : {std::vector<std::string>{"estimate", "--help"},
                                                 {"estimate", "eval", "1+1"},
                                                 {"estimate", "unit", "t"}})
        EXPECT_FALSE(Has(OnTerminal(call, "xterm-256color"), "\x1B"));
}

TEST(Terminal, APipeGetsTextAlone) {
    const ArgumentFolder folder;
    ProgramCall call;
    call.program = ESTIMATE_PROGRAM;
    call.arguments = {"price", WriteBill(folder), "--csv"};
    call.environment = {{"TERM", "xterm-256color"}};
    const ProgramResult result = RunProgram(call);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_FALSE(Has(result.out, "\x1B"));
    EXPECT_TRUE(Has(result.out, "\"total\""));
}
