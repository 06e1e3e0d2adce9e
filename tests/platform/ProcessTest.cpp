#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/Process.h"

using QsPlatform::ExecutablePath;
using QsPlatform::ShowMessage;
using QsPlatform::TickCount;

TEST(Process, TheExecutableIsThisProgram) {
    const CString path = ExecutablePath();
    EXPECT_TRUE(std::filesystem::exists(ToNativePath(path)));
    EXPECT_TRUE(ToNativePath(path).is_absolute());
    EXPECT_EQ(path.Find(u'/'), -1);
    EXPECT_GE(path.ReverseFind(u'\\'), 0);
    EXPECT_EQ(ToNativePath(path).stem(), std::filesystem::path(testing::internal::GetArgvs().front()).stem());
}

TEST(Process, TicksNeverGoDownAndCountMilliseconds) {
    std::uint32_t last = TickCount();
    for (int i = 0; i < 100'000; ++i) {
        const std::uint32_t next = TickCount();
        ASSERT_LT(next - last, 0x80000000U);
        last = next;
    }
    const auto before = std::chrono::steady_clock::now();
    const std::uint32_t start = TickCount();
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
    const std::uint32_t ticks = TickCount() - start;
    const auto passed =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - before);
    // The clock of one system moves in steps of up to 16 ms.
    EXPECT_GE(ticks, 100U);
    EXPECT_LE(ticks, static_cast<std::uint32_t>(passed.count()) + 16U);
}

TEST(Process, AMessageWithoutAScreenGoesToStandardError) {
    testing::internal::CaptureStderr();
    ShowMessage(u"项目 é 𠀀");
    ShowMessage(u"");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "项目 é 𠀀\n\n");
}
