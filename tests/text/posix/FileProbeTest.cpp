// A file that is probed while others open it.
#include <atomic>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "QsUtils/frame/IQsUtils.h"

#include "tests/support/Rounds.h"
#include "tests/support/TemporaryFolder.h"

// The kernel tells a prober of who opens the file by a signal, which must not end the process.
TEST(FileProbe, OthersMayOpenTheFileMeanwhile) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a", "x");
    std::atomic<bool> isOver{false};
    std::thread other([&] {
        while (!isOver) {
            if (const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK); file >= 0)
                ::close(file);
        }
    });
    int held = 0;
    for (int round = 0; round < Rounds(20'000); ++round)
        held += IQsUtils::IsFileOpen(folder.Text("a"));
    isOver = true;
    other.join();
    EXPECT_GT(held, 0);
    EXPECT_FALSE(IQsUtils::IsFileOpen(folder.Text("a")));
}
