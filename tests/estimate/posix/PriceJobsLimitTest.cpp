// Several bills priced at the same time, when the system has no more threads to give.
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

#include "PriceJobs.h"
#include "tests/estimate/ArgumentFolder.h"
#include "tests/estimate/BillGenerator.h"
#include "tests/support/posix/InChild.h"

namespace {

constexpr uid_t Nobody = 65534;

/// The limit doesn't hold for root, who gives itself up.
bool CanBeLimited() {
    return ::geteuid() != 0 || ::setresuid(Nobody, Nobody, Nobody) == 0;
}

bool AllowNoThreads() {
    const rlimit none{0, 0};
    pthread_t thread;
    return ::setrlimit(RLIMIT_NPROC, &none) == 0 &&
           ::pthread_create(
               &thread, nullptr, [](void* argument) { return argument; }, nullptr) != 0;
}

/// A terminal on which the bar is drawn as each bill is done; from its second drawing on there are no
/// threads.
class LimitingTerminal : public std::stringbuf {
public:
    bool IsLimited() const { return m_isLimited; }

private:
    int sync() override {
        if (++m_drawn == 2)
            m_isLimited = AllowNoThreads();
        return 0;
    }
    int m_drawn = 0;
    bool m_isLimited = false;
};

enum Outcome : int { AsPromised, NoLimit, OtherStatus, OtherReports, OtherMessages };

std::size_t CountOf(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

int PriceWithoutThreads(const std::vector<std::string>& bills, std::size_t priced) {
    constexpr unsigned longest = 120;  // seconds
    ::alarm(longest);
    if (!CanBeLimited())
        return NoLimit;
    LimitingTerminal terminal;
    std::istringstream in;
    std::ostringstream out;
    std::ostream err(&terminal);
    if (priced == 0 && !AllowNoThreads())
        return NoLimit;
    const int status = Estimate::PriceBills({}, bills, 1, {in, out, err, true});
    if (priced > 0 && !terminal.IsLimited())
        return NoLimit;
    if (status != Estimate::CannotRun)
        return OtherStatus;
    if (CountOf(out.str(), "==> ") != priced)
        return OtherReports;
    return CountOf(terminal.str(), "no thread can be had") == bills.size() - priced ? AsPromised
                                                                                    : OtherMessages;
}

class PriceJobsLimit : public testing::Test {
protected:
    PriceJobsLimit() {
        std::ostringstream large;
        GenerateBill(large, 90'000);
        std::ostringstream small;
        GenerateBill(small, 20);
        m_bills = {m_folder.Write("large.csv", large.str()), m_folder.Write("b.csv", small.str()),
                   m_folder.Write("c.csv", small.str())};
        std::filesystem::permissions(
            m_folder.File(""), std::filesystem::perms::others_read | std::filesystem::perms::others_exec,
            std::filesystem::perm_options::add);
    }

    void Expect(std::size_t priced) {
        const int outcome = InChild([&] { return PriceWithoutThreads(m_bills, priced); });
        if (outcome == NoLimit)
            GTEST_SKIP() << "this process can't keep itself from having threads";
        EXPECT_EQ(outcome, AsPromised);
    }

    ArgumentFolder m_folder;
    std::vector<std::string> m_bills;
};

TEST_F(PriceJobsLimit, BillsThatGetNoThreadAreReported) {
    Expect(0);
}

TEST_F(PriceJobsLimit, BillsThatWaitedForAThreadInVainAreReported) {
    Expect(1);
}

}  // namespace
