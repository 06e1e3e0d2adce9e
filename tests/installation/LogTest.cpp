// The log beside an executable, with all that the library writes to it.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/CodePage.h"

#include "tests/installation/ProbedLog.h"

namespace {

TEST(Log, StandsBesideTheExecutable) {
    const ProbedLog host;
    host.MakeLogFolder();
    host.Do({u"log", u"[INFO]: 开始 100%s", u"log", u"", u"log", u"[ERROR]: é½"});
    EXPECT_EQ(host.Log(), QsPlatform::EncodeAnsi(u"> [INFO]: 开始 100%s\r\n> [ERROR]: é?\r\n"));
}

TEST(Log, IsAppendedToByTheNextProcess) {
    const ProbedLog host;
    host.MakeLogFolder();
    host.Do({u"log", u"one"});
    host.Do({u"log", u"two"});
    EXPECT_EQ(host.Log(), "> one\r\n> two\r\n");
}

TEST(Log, WithoutItsFolderThereIsNone) {
    const ProbedLog host;
    EXPECT_EQ(host.Do({u"log", u"one", u"track", u"work", u"thread", u"t", u"tasks"}).substr(0, 2), "0x");
    EXPECT_FALSE(std::filesystem::exists(host.Folder() / "Log"));
    EXPECT_FALSE(host.HasLog());
}

TEST(Log, AFolderThatComesLaterIsFound) {
    const ProbedLog host;
    host.Do({u"log", u"lost"});
    host.MakeLogFolder();
    host.Do({u"log", u"kept"});
    EXPECT_EQ(host.Log(), "> kept\r\n");
}

TEST(Log, FoldersMayHaveAnyName) {
    const ProbedLog host("造价 100% #1");
    host.MakeLogFolder();
    host.Do({u"log", u"x"});
    EXPECT_EQ(host.Log(), "> x\r\n");
}

TEST(Log, AMessageEndsAtItsFirstNul) {
    const ProbedLog host;
    host.MakeLogFolder();
    host.Do({u"log", std::u16string(u"ab\0cd", 5), u"log", std::u16string(u"\0cd", 3)});
    EXPECT_EQ(host.Log(), "> ab\r\n");
}

TEST(Log, ATrackerAndItsCopyReport) {
    const ProbedLog host;
    host.MakeLogFolder();
    host.Do({u"track", u"计价 %d"});
    const std::string line = QsPlatform::EncodeAnsi(u"> [INFO]: 计价 %d costs ~ms.\r\n");
    EXPECT_TRUE(HasForm(host.Log(), line + line)) << host.Log();
}

/// The milliseconds that each line of a log of trackers tells.
std::vector<std::uint32_t> Costs(const std::string& log) {
    std::vector<std::uint32_t> costs;
    constexpr std::string_view mark = " costs ";
    for (std::size_t at = log.find(mark); at != std::string::npos; at = log.find(mark, at + 1))
        costs.push_back(static_cast<std::uint32_t>(std::stoul(log.substr(at + mark.size()))));
    return costs;
}

TEST(Log, ATrackerTellsHowLongItsWorkTook) {
    const ProbedLog host;
    host.MakeLogFolder();
    host.Do({u"work", u"60", u"0", u"sleep"});
    const std::vector<std::uint32_t> costs = Costs(host.Log());
    ASSERT_EQ(costs.size(), 2u);
    for (const std::uint32_t cost : costs) {
        EXPECT_GE(cost, 59u) << "a copy keeps the start; a tick may have been cut off";
        EXPECT_LT(cost, 60'000u);
    }
}

TEST(Log, ATrackersWorkMayBeginBeforeTheTicksWrap) {
    const ProbedLog host;
    host.MakeLogFolder();
    // 23 days, which few machines are up.
    host.Do({u"work", u"0", u"2000000000", u"long"});
    const std::vector<std::uint32_t> costs = Costs(host.Log());
    ASSERT_EQ(costs.size(), 2u);
    for (const std::uint32_t cost : costs) {
        EXPECT_GE(cost, 2'000'000'000u);
        EXPECT_LT(cost, 2'000'060'000u);
    }
}

TEST(Log, ANameEndsAtItsFirstNulAndItsLineGoesOn) {
    const ProbedLog host;
    host.MakeLogFolder();
    const std::u16string name(u"ab\0cd", 5);
    std::string id = host.Do({u"thread", name});
    id.pop_back();
    EXPECT_EQ(host.Log(), "> [INFO]: Create 'ab' thread(" + id + ") success!\r\n");
    host.Do({u"track", name});
    const std::string line = "> [INFO]: ab costs ~ms.\r\n";
    const std::string log = host.Log();
    EXPECT_TRUE(HasForm(std::string_view(log).substr(log.find('\n') + 1), line + line)) << log;
}

TEST(Log, AnAssignedTrackerHasTheOthersName) {
    const ProbedLog host;
    host.MakeLogFolder();
    host.Do({u"assign", u"first", u"second"});
    const std::string line = "> [INFO]: first costs ~ms.\r\n";
    EXPECT_TRUE(HasForm(host.Log(), line + line)) << host.Log();
}

TEST(Log, AStartedThreadIsToldWithItsId) {
    const ProbedLog host;
    host.MakeLogFolder();
    std::string id = host.Do({u"thread", u"工作"});
    id.pop_back();
    EXPECT_EQ(host.Log(), QsPlatform::EncodeAnsi(u"> [INFO]: Create '工作' thread(") + id + ") success!\r\n");
}

TEST(Log, AThreadThatCantBeHadIsToldAsOneWithoutAnId) {
    const ProbedLog host;
    host.MakeLogFolder();
    EXPECT_EQ(host.Do({u"nothread"}), "0x0\n");
    EXPECT_EQ(host.Log(), "> [INFO]: Create 'none' thread(0x0) success!\r\n");
}

TEST(Log, TheTaskManagerTellsItsQueues) {
    const ProbedLog host;
    host.MakeLogFolder();
    host.Do({u"tasks"});
    EXPECT_EQ(host.Log(),
              QsPlatform::EncodeAnsi(u"> [INFO]: push 第一 to active queue ok,current size:1.\r\n\r\n"
                                     u"> [INFO]: push task to wait queue ok,current size:1.\r\nsecond\r\n\r\n"
                                     u"> [Info]: Task(second) is exist in wait queue.！\r\n"
                                     u"> [INFO]: push second to active queue ok,current size:1.\r\n\r\n"
                                     u"> [INFO]: Prepare to start task from wait queue.second.\r\n"
                                     u"> [INFO]: There is no task in wait queue.\r\n"));
}

TEST(Log, ALineNamesTheThreadThatWritesIt) {
    const ProbedLog host;
    host.MakeLogFolder();
    std::string id = host.Do({u"log", u"own", u"thread", u"t", u"tasks"});
    const std::string log = host.Log(true);
    const std::string own = log.substr(0, log.find(' '));
    EXPECT_NE(log.find(own + " [INFO]: Create 't'"), std::string::npos) << "by the starting thread";
    EXPECT_NE(own, "[" + id.substr(2, id.size() - 3) + "]");
    const std::size_t next = log.find(" [INFO]: Prepare");
    EXPECT_NE(log.substr(log.rfind('\n', next) + 1, next - log.rfind('\n', next) - 1), own)
        << "by the task's thread";
}

}  // namespace
