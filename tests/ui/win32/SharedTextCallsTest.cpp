// What stays behind of the calls by which shared objects are read.
#include <cstring>

#include <windows.h>
#include <gtest/gtest.h>

#include "QsUtils/platform/SharedText.h"

#include "tests/support/SharedObject.h"

using QsPlatform::ReadSharedText;

namespace {

TEST(SharedTextCalls, EveryCallThatReachesTheObjectLeavesAHandle) {
    const SharedObject object("qsutils-test-handles", TextBytes(u"A&"));
    const std::size_t before = CountHandles();
    if (before == 0)
        GTEST_SKIP() << "this system doesn't count handles";
    for (int round = 0; round < 10; ++round)
        ReadSharedText(u"qsutils-test-handles");
    EXPECT_EQ(CountHandles(), before + (SharedObject::AreReached() ? 10 : 0));
}

TEST(SharedTextCalls, AnObjectLivesOnOnceItHasBeenLookedAt) {
    {
        const SharedObject object("qsutils-test-lives-on", TextBytes(u"A&"));
        ReadSharedText(u"qsutils-test-lives-on");
    }
    EXPECT_EQ(SharedObject::Exists("qsutils-test-lives-on"), SharedObject::AreReached());
}

TEST(SharedTextCalls, AnotherKindOfObjectIsNone) {
    const HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, L"qsutils-test-event");
    ASSERT_NE(event, nullptr);
    EXPECT_FALSE(ReadSharedText(u"qsutils-test-event"));
    ::CloseHandle(event);
}

TEST(SharedTextCalls, MemoryThatIsntThereYetHasNoText) {
    const HANDLE mapping = ::CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE | SEC_RESERVE,
                                                0, 1 << 20, L"qsutils-test-reserved");
    ASSERT_NE(mapping, nullptr);
    EXPECT_TRUE(ReadSharedText(u"qsutils-test-reserved").value_or(CString()).IsEmpty());
    ::CloseHandle(mapping);
}

}  // namespace
