// What happens when the module comes and goes, in which order, told by hosts that are watched from inside.
#include <array>
#include <cstdio>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

struct Outcome {
    std::string events;
    std::string errors;
    int status;
};

std::string ReadAll(const std::string& command, int& status) {
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return "the command can't be run";
    std::string text;
    std::array<char, 4096> part{};
    while (const std::size_t count = std::fread(part.data(), 1, part.size(), pipe))
        text.append(part.data(), count);
    status = pclose(pipe);
    return text;
}

Outcome RunHost(const std::string& host, const std::string& mode) {
    Outcome outcome{};
    const std::string command = "'" + host + "' " + mode;
    outcome.events = ReadAll(command + " 2>/dev/null </dev/null", outcome.status);
    int ignored = 0;
    outcome.errors = ReadAll(command + " 2>&1 >/dev/null </dev/null", ignored);
    return outcome;
}

constexpr const char* endOfModule =
    "analyser ends\n"
    "XML tool ends\n"
    "XML ends\n"
    "scanner of variables ends\n"
    "soft version ends\n";

TEST(EndSequence, UnloadingEndsServicesThenXmlThenStaticObjects) {
    const Outcome outcome = RunHost(END_SEQUENCE_HOST, "close");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.events, std::string("main begins\nXML starts\n") + endOfModule +
                                  "main ends\nhost's static objects end\n");
    EXPECT_EQ(outcome.errors, "");
}

TEST(EndSequence, ExitWithALoadedModuleEndsItInTheSameOrder) {
    const Outcome outcome = RunHost(END_SEQUENCE_HOST, "exit");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.events, std::string("main begins\nXML starts\nmain ends\n") + endOfModule +
                                  "host's static objects end\n");
}

TEST(EndSequence, ExitOfALinkedHostEndsTheModuleInTheSameOrder) {
    const Outcome outcome = RunHost(END_SEQUENCE_LINKED_HOST, "exit");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.events,
              std::string("XML starts\nmain begins\nmain ends\nhost's static objects end\n") + endOfModule);
}

TEST(EndSequence, WithoutAnyCallOnlyXmlStartsAndEnds) {
    const Outcome outcome = RunHost(END_SEQUENCE_LINKED_HOST, "idle");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.events, "XML starts\nmain begins\nmain ends\nhost's static objects end\nXML ends\n");
    EXPECT_EQ(outcome.errors, "");
}

TEST(EndSequence, XmlThatFailsToStartIsToldAndTheModuleStaysOfUse) {
    const Outcome outcome = RunHost(END_SEQUENCE_HOST, "noxml");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.events, std::string("main begins\nXML starts\nmain ends\n") + endOfModule +
                                  "host's static objects end\n");
    EXPECT_GT(outcome.errors.size(), 1u) << "the message is missing";
}

}  // namespace
