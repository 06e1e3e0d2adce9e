// What happens when the module comes and goes, in which order, told by hosts that are watched from inside.
#include <string>

#include <gtest/gtest.h>

#include "tests/module/probe/EventProbe.h"
#include "tests/support/ChildProcess.h"

namespace {

constexpr const char* endOfHost = "host's static objects end\n";
constexpr const char* endOfCompanion = "companion ends\n";

void Remove(std::string& text, const std::string& part) {
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at))
        text.erase(at, part.size());
}

ProgramResult RunHost(const char* host, const char* mode, bool xmlFails = false) {
    ProgramCall call{host, {mode}, {}, {}};
#if defined(PROBED_VIEWS)
    call.environment.emplace_back("QT_QPA_PLATFORM", "offscreen");  // no display, no views
#endif
    if (xmlFails)
        call.environment.emplace_back(EventProbe::failingXml, "1");
    ProgramResult result = RunProgram(call);
    Remove(result.out, "\r");
    return result;
}

/// The events of a host that ends with modules loaded at run time. One system ends such a module before
/// the program's own static objects, the other one behind them; its own order is the same. The companion,
/// which came last, goes first.
std::string EventsOfExit(const ProgramResult& result) {
    std::string events = result.out;
    for (const char* end : {endOfHost, endOfCompanion}) {
        EXPECT_NE(result.out.find(end), std::string::npos);
        EXPECT_GT(result.out.find(end), result.out.find("main ends\n"));
        Remove(events, end);
    }
    EXPECT_LT(result.out.find(endOfCompanion), result.out.find("common directories end\n"));
    return events;
}

#if defined(PROBED_VIEWS)
#define TIP_EVENT(event) event "\n"
#else
#define TIP_EVENT(event)
#endif

constexpr const char* endOfModule =
    "the host's data ends\n"
    "configuration reader ends\n" TIP_EVENT("tip's window ends")
    "common directories end\n"
    "project directories end\n"
    "library directories end\n"
    "analyser ends\n"
    "library manager ends\n"
    "XML tool ends\n"
    "XML ends\n"
    "unit decimals end\n"
    "scanner of variables ends\n" TIP_EVENT("tip ends")
    "backup names end\n"
    "log writer ends\n"
    "soft version ends\n"
    "majors end\n";

TEST(EndSequence, UnloadingEndsServicesThenXmlThenStaticObjects) {
    const ProgramResult outcome = RunHost(END_SEQUENCE_HOST, "close");
    EXPECT_EQ(outcome.status, 0);
    // The companion is released with the library directories. One system's loader ends it in that moment, the
    // other one when the library has left.
    EXPECT_GT(outcome.out.find(endOfCompanion), outcome.out.find("project directories end\n"));
    EXPECT_LT(outcome.out.find(endOfCompanion), outcome.out.find("main ends\n"));
    std::string events = outcome.out;
    Remove(events, endOfCompanion);
    EXPECT_EQ(events, std::string("main begins\nXML starts\n") + endOfModule + "main ends\n" + endOfHost);
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
    EXPECT_EQ(EventsOfExit(outcome), std::string("XML starts\nmain begins\nmain ends\n") + endOfModule);
    EXPECT_LT(outcome.out.find(endOfHost), outcome.out.find("common directories end\n"));
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
