// What happens when the module comes and goes, in which order, told by hosts that are watched from inside.
#include <string>

#include <gtest/gtest.h>

#include "tests/module/probe/EventProbe.h"
#include "tests/support/ChildProcess.h"

namespace {

constexpr const char* endOfHost = "host's static objects end\n";

void Remove(std::string& text, const std::string& part) {
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at))
        text.erase(at, part.size());
}

ProgramResult RunHost(const char* host, const char* mode, bool xmlFails = false) {
    ProgramCall call{host, {mode}, {}, {}};
    if (xmlFails)
        call.environment.emplace_back(EventProbe::failingXml, "1");
    ProgramResult result = RunProgram(call);
    Remove(result.out, "\r");
    return result;
}

/// The events of a host that ends with the module loaded at run time. One system ends such a module before
/// the program's own static objects, the other one behind them; its own order is the same.
std::string EventsOfExit(const ProgramResult& result) {
    EXPECT_GT(result.out.find(endOfHost), result.out.find("main ends\n"));
    std::string events = result.out;
    Remove(events, endOfHost);
    return events;
}

constexpr const char* endOfModule =
    "configuration reader ends\n"
    "analyser ends\n"
    "XML tool ends\n"
    "XML ends\n"
    "unit decimals end\n"
    "scanner of variables ends\n"
    "backup names end\n"
    "soft version ends\n"
    "majors end\n";

TEST(EndSequence, UnloadingEndsServicesThenXmlThenStaticObjects) {
    const ProgramResult outcome = RunHost(END_SEQUENCE_HOST, "close");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              std::string("main begins\nXML starts\n") + endOfModule + "main ends\n" + endOfHost);
    EXPECT_EQ(outcome.err, "");
}

TEST(EndSequence, ExitWithALoadedModuleEndsItInTheSameOrder) {
    const ProgramResult outcome = RunHost(END_SEQUENCE_HOST, "exit");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(EventsOfExit(outcome), std::string("main begins\nXML starts\nmain ends\n") + endOfModule);
}

TEST(EndSequence, ExitOfALinkedHostEndsTheModuleInTheSameOrder) {
    const ProgramResult outcome = RunHost(END_SEQUENCE_LINKED_HOST, "exit");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              std::string("XML starts\nmain begins\nmain ends\nhost's static objects end\n") + endOfModule);
}

TEST(EndSequence, WithoutAnyCallOnlyXmlStartsAndEnds) {
    const ProgramResult outcome = RunHost(END_SEQUENCE_LINKED_HOST, "idle");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "XML starts\nmain begins\nmain ends\nhost's static objects end\nXML ends\n");
    EXPECT_EQ(outcome.err, "");
}

TEST(EndSequence, XmlThatFailsToStartIsToldAndTheModuleStaysOfUse) {
    const ProgramResult outcome = RunHost(END_SEQUENCE_HOST, "exit", true);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(EventsOfExit(outcome), std::string("main begins\nXML starts\nmain ends\n") + endOfModule);
    EXPECT_GT(outcome.err.size(), 1u) << "the message is missing";
}

}  // namespace
