// What others may leave under the names of shared objects.
#include <atomic>
#include <csignal>
#include <string>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/SharedText.h"

#include "tests/support/Rounds.h"
#include "tests/support/RunningProgram.h"
#include "tests/support/SharedObject.h"
#include "tests/support/posix/InChild.h"

using QsPlatform::ReadSharedText;

namespace {

constexpr uid_t Somebody = 65534;

/// A name of this process alone.
std::string Name(const char* what) {
    return "qsutils-test-" + std::to_string(::getpid()) + "-" + what;
}

CString BudgetText(const std::string& name) {
    return CString(std::u16string(name.begin(), name.end()));
}

/// A path that goes with the test.
class SharedPath {
public:
    explicit SharedPath(const std::string& name) : m_path("/dev/shm/" + name) {}
    ~SharedPath() {
        ::unlink(m_path.c_str());
        ::rmdir(m_path.c_str());
    }
    const char* c_str() const { return m_path.c_str(); }

private:
    std::string m_path;
};

TEST(SharedTextHostile, AMissingObjectIsntLeftBehind) {
    const std::string name = Name("missing");
    EXPECT_FALSE(ReadSharedText(BudgetText(name)));
    EXPECT_FALSE(SharedObject::Exists(name));
}

TEST(SharedTextHostile, AnEmptyObjectHasAnEmptyText) {
    const std::string name = Name("empty");
    const SharedObject object(name, "");
    EXPECT_EQ(ReadSharedText(BudgetText(name)), CString());
}

TEST(SharedTextHostile, HalfAUnitAtTheEndIsNone) {
    const std::string name = Name("half");
    const SharedObject object(name, TextBytes(u"A&B") + "&");
    EXPECT_EQ(ReadSharedText(BudgetText(name)), CString(u"A&B"));
}

TEST(SharedTextHostile, APipeIsntWaitedFor) {
    const std::string name = Name("pipe");
    const SharedPath path(name);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(ReadSharedText(BudgetText(name)));
}

TEST(SharedTextHostile, AFolderAndALinkAreNoObjects) {
    const std::string folder = Name("folder");
    const SharedPath folderPath(folder);
    ASSERT_EQ(::mkdir(folderPath.c_str(), 0700), 0);
    EXPECT_FALSE(ReadSharedText(BudgetText(folder)));

    const std::string target = Name("target");
    const SharedObject object(target, TextBytes(u"A&"));
    ASSERT_EQ(ReadSharedText(BudgetText(target)), CString(u"A&"));
    const std::string link = Name("link");
    const SharedPath linkPath(link);
    ASSERT_EQ(::symlink(("/dev/shm/" + target).c_str(), linkPath.c_str()), 0);
    EXPECT_FALSE(ReadSharedText(BudgetText(link)));
}

TEST(SharedTextHostile, AnObjectOfSomebodyElseDoesntCount) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make one";
    const std::string name = Name("owner");
    const SharedObject object(name, TextBytes(u"A&"));
    ASSERT_EQ(::chmod(("/dev/shm/" + name).c_str(), 0666), 0);
    EXPECT_EQ(ReadSharedText(BudgetText(name)), CString(u"A&"));
    ASSERT_EQ(::chown(("/dev/shm/" + name).c_str(), Somebody, Somebody), 0);
    EXPECT_FALSE(ReadSharedText(BudgetText(name)));
    EXPECT_EQ(InChild([&] {
                  return ::seteuid(Somebody) == 0 && ReadSharedText(BudgetText(name)) == CString(u"A&") ? 0
                                                                                                        : 1;
              }),
              0);
}

TEST(SharedTextHostile, WithoutTheRightToReadThereIsNoText) {
    const std::string name = Name("right");
    const SharedObject object(name, TextBytes(u"A&"));
    ASSERT_EQ(::chmod(("/dev/shm/" + name).c_str(), 0), 0);
    EXPECT_EQ(InChild([&] {
                  if (::geteuid() == 0 && ::seteuid(Somebody) != 0)
                      return 2;
                  return ReadSharedText(BudgetText(name)) ? 1 : 0;
              }),
              0);
}

TEST(SharedTextHostile, AnObjectOfTerabytesIsReadToTheLimit) {
    const std::string name = Name("huge");
    const SharedObject object(name, TextBytes(u"A&"));
    ASSERT_EQ(::truncate(("/dev/shm/" + name).c_str(), off_t{1} << 41), 0);
    EXPECT_EQ(ReadSharedText(BudgetText(name)), CString(u"A&"));
}

TEST(SharedTextHostile, AnOwnerMayCutAndFillMeanwhile) {
    const std::string name = Name("cut");
    const SharedObject object(name, TextBytes(u"A&"));
    const std::string path = "/dev/shm/" + name;
    std::atomic<bool> isDone{false};
    std::thread owner([&] {
        const int file = ::open(path.c_str(), O_RDWR);
        const std::string bytes(1 << 16, 'x');
        while (!isDone) {
            static_cast<void>(::ftruncate(file, 0));
            static_cast<void>(::pwrite(file, bytes.data(), bytes.size(), 0));
        }
        ::close(file);
    });
    for (int round = 0; round < Rounds(20'000); ++round) {
        const std::optional<CString> text = ReadSharedText(BudgetText(name));
        ASSERT_TRUE(text);
        for (const char16_t unit : text->View())
            ASSERT_TRUE(unit == u'\x7878' || unit == u'A' || unit == u'&') << static_cast<unsigned>(unit);
    }
    isDone = true;
    owner.join();
}

TEST(SharedTextHostile, NoDescriptorStaysOpen) {
    const std::string name = Name("leak");
    const SharedObject object(name, TextBytes(u"A&"));
    const std::string pipe = Name("leak-pipe");
    const SharedPath path(pipe);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const std::size_t before = CountHandles();
    for (int round = 0; round < 100; ++round) {
        ReadSharedText(BudgetText(name));
        ReadSharedText(BudgetText(pipe));
        ReadSharedText(BudgetText(Name("none")));
    }
    EXPECT_EQ(CountHandles(), before);
}

TEST(SharedTextHostile, NamesThatAreNone) {
    EXPECT_FALSE(ReadSharedText(CString()));
    EXPECT_FALSE(ReadSharedText(u"a/b"));
    EXPECT_FALSE(ReadSharedText(u"../etc/passwd"));
    EXPECT_FALSE(ReadSharedText(CString(u'x', 300)));
}

TEST(OpenBudgetHost, ASignalEndsItAndTakesTheObjectAway) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const std::string key = Name("signal");
        RunningProgram host({OPEN_BUDGET_HOST, {"hold", key, "A"}, {}, {}});
        const std::string line = host.ReadLine();
        ASSERT_EQ(line.substr(0, 16), "holding OPEN_YS:");
        const std::string name = line.substr(8);
        EXPECT_TRUE(SharedObject::Exists(name));
        ::kill(static_cast<pid_t>(host.Id()), signal);
        // Its input stays open: nothing but the signal ends it.
        EXPECT_EQ(host.ReadLine(), "");
        EXPECT_EQ(host.Wait(), 0);
        EXPECT_FALSE(SharedObject::Exists(name));
    }
}

TEST(OpenBudgetHost, WhatAKilledOneLeftIsReplacedOnDemand) {
    const std::string key = Name("killed");
    std::string name;
    {
        RunningProgram host({OPEN_BUDGET_HOST, {"hold", key, "A"}, {}, {}});
        name = host.ReadLine().substr(8);
        host.Kill();
        EXPECT_EQ(host.Wait(), -1);
    }
    EXPECT_TRUE(SharedObject::Exists(name));
    EXPECT_EQ(ReadSharedText(BudgetText(name)), CString(u"A&"));
    EXPECT_EQ(RunProgram({OPEN_BUDGET_HOST, {"hold", key, "B"}, {}, {}}).status, 1);
    RunningProgram host({OPEN_BUDGET_HOST, {"hold", "--replace", key, "B"}, {}, {}});
    EXPECT_EQ(host.ReadLine(), "holding " + name);
    EXPECT_EQ(ReadSharedText(BudgetText(name)), CString(u"B&"));
    host.CloseInput();
    EXPECT_EQ(host.Wait(), 0);
    EXPECT_FALSE(SharedObject::Exists(name));
}

}  // namespace
