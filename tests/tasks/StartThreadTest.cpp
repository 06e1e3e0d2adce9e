// Threads that hosts start.
#include <atomic>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/Process.h"
#include "QsUtils/platform/Threads.h"
#include "QsUtils/tasks/StartThread.h"

#include "tests/support/Installation.h"
#include "tests/support/TextForm.h"

namespace {

std::uint32_t StoreStartedId(void* id) {
    static_cast<std::atomic<std::uint32_t>*>(id)->store(QsPlatform::CurrentThreadId());
    return 5;
}

TEST(StartThread, RunsAtOnceAndTellsItsId) {
    std::atomic<std::uint32_t> own{0};
    std::uint32_t id = 0;
    const HANDLE thread = IQsUtils::StartThread(StoreStartedId, &own, u"worker", &id);
    ASSERT_NE(thread, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(own, id);
    EXPECT_NE(CloseHandle(thread), 0) << "the handle is the caller's";
}

TEST(StartThread, TheIdNeedntBeAskedFor) {
    std::atomic<std::uint32_t> own{0};
    const HANDLE thread = IQsUtils::StartThread(StoreStartedId, &own, u"", nullptr);
    WaitForSingleObject(thread, INFINITE);
    EXPECT_NE(own, 0u);
    CloseHandle(thread);
}

TEST(StartThread, WithoutAThreadThereIsNoHandleAndNoId) {
    std::uint32_t id = 7;
    EXPECT_EQ(IQsUtils::StartThread(nullptr, nullptr, u"none", &id), nullptr);
    EXPECT_EQ(id, 0u);
}

TEST(StartThread, OnlyTheOtherValueCountsAsAFailure) {
    std::uint32_t id = 7;
    EXPECT_EQ(QsTasks::ReportStart(INVALID_HANDLE_VALUE, 3, 8, u"x", &id), nullptr);
    EXPECT_EQ(id, 7u) << "left alone";
    EXPECT_EQ(QsTasks::ReportStart(nullptr, 0, 8, u"x", &id), nullptr);
    EXPECT_EQ(id, 0u);
    int place = 0;
    EXPECT_EQ(QsTasks::ReportStart(&place, 9, 0, u"x", &id), &place);
    EXPECT_EQ(id, 9u);
}

// The log is that of the executable: these tests run once more, as a program in a folder of their own.
TEST(StartThread, AFailureIsToldWithItsCode) {
    const Installation host(ToNativePath(QsPlatform::ExecutablePath()), INSTALLATION_MODULES);
    std::filesystem::create_directory(host.Folder() / "Log");
    EXPECT_EQ(host.Run({"--gtest_filter=StartThread.OnlyTheOtherValueCountsAsAFailure"}).status, 0);
    const std::string log = host.Read("Log/Tallyman.log");
    const std::string head(LogHead);
    EXPECT_TRUE(HasForm(log, head + "[ERROR]: Create 'x' thread failed!Error code:0x8.\r\n" + head +
                                 "[INFO]: Create 'x' thread(0x0) success!\r\n" + head +
                                 "[INFO]: Create 'x' thread(0x9) success!\r\n"))
        << log;
}

}  // namespace
