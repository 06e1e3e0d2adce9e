#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/frame/LazyService.h"

#include "tests/support/StartLine.h"

namespace {

std::atomic<int> made{0};
std::atomic<int> gone{0};

struct Counted {
    Counted() { ++made; }
    virtual ~Counted() { ++gone; }
};

// What it costs to be made is spent between the test for an object and its store, where a race would show.
struct Slow : Counted {
    Slow() { std::this_thread::yield(); }
};

class LazyServiceTest : public testing::Test {
protected:
    void SetUp() override {
        made = 0;
        gone = 0;
    }
};

TEST_F(LazyServiceTest, IsMadeAtItsFirstUseAndNeverAgain) {
    QsFrame::LazyService<Counted> service;
    EXPECT_EQ(service.Peek(), nullptr);
    EXPECT_EQ(made, 0);
    Counted& first = service.Get();
    EXPECT_EQ(&service.Get(), &first);
    EXPECT_EQ(service.Peek(), &first);
    EXPECT_EQ(made, 1);
    service.Destroy();
}

TEST_F(LazyServiceTest, DestroyEndsTheObjectOnce) {
    QsFrame::LazyService<Counted> service;
    service.Destroy();
    EXPECT_EQ(gone, 0);
    service.Get();
    service.Destroy();
    EXPECT_EQ(gone, 1);
    EXPECT_EQ(service.Peek(), nullptr);
    service.Destroy();
    EXPECT_EQ(gone, 1);
}

TEST_F(LazyServiceTest, ACallAfterTheEndMakesANewObject) {
    QsFrame::LazyService<Counted> service;
    service.Get();
    service.Destroy();
    service.Get();
    EXPECT_EQ(made, 2);
    service.Destroy();
    EXPECT_EQ(gone, 2);
}

TEST_F(LazyServiceTest, LeavesItsObjectToDestroy) {
    Counted* object = nullptr;
    {
        QsFrame::LazyService<Counted> service;
        object = &service.Get();
    }
    EXPECT_EQ(gone, 0);
    delete object;
}

TEST_F(LazyServiceTest, AHolderEndsItsObjectWithItself) {
    {
        QsFrame::ServiceHolder<Counted> unused;
        QsFrame::ServiceHolder<Counted> used;
        used.Get();
    }
    EXPECT_EQ(made, 1);
    EXPECT_EQ(gone, 1);
}

TEST_F(LazyServiceTest, ThreadsThatRaceGetOneObject) {
    constexpr std::size_t threadCount = 8;
    for (int round = 1; round <= 200; ++round) {
        QsFrame::ServiceHolder<Slow> service;
        std::vector<Slow*> seen(threadCount);
        StartLine together(threadCount);
        std::vector<std::thread> threads;
        for (Slow*& mine : seen) {
            threads.emplace_back([&] {
                together.Cross();
                mine = &service.Get();
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(seen, std::vector<Slow*>(threadCount, service.Peek()));
        EXPECT_EQ(made, round);
    }
}

TEST_F(LazyServiceTest, ASharedHolderEndsItsObjectWithItself) {
    {
        QsFrame::SharedServiceHolder<Counted> unused;
        QsFrame::SharedServiceHolder<Counted> used;
        Counted* first = nullptr;
        used.With([&](Counted& object) { first = &object; });
        used.With([&](Counted& object) { EXPECT_EQ(&object, first); });
        EXPECT_EQ(gone, 0);
    }
    EXPECT_EQ(made, 1);
    EXPECT_EQ(gone, 1);
}

/// A holder without the storage of an automatic one, as static objects are there when they have ended.
struct EndedHolder {
    union {
        QsFrame::SharedServiceHolder<Counted> holder;
    };
    EndedHolder() : holder() {}
    ~EndedHolder() {}
    void End() { holder.~SharedServiceHolder(); }
};

TEST_F(LazyServiceTest, WhoUsesASharedObjectKeepsItBeyondTheEnd) {
    EndedHolder ended;
    ended.holder.With([&](Counted&) {
        ended.holder.With([&](Counted&) { ended.End(); });
        EXPECT_EQ(gone, 0);
        ended.holder.With([](Counted&) { ADD_FAILURE() << "it has ended"; });
        EXPECT_EQ(gone, 0);
    });
    EXPECT_EQ(gone, 1);
    ended.holder.With([](Counted&) { ADD_FAILURE() << "it has ended"; });
    EXPECT_EQ(made, 1);
    EXPECT_EQ(gone, 1);
}

TEST_F(LazyServiceTest, ThreadsMayUseASharedObjectAsItEnds) {
    for (int round = 1; round <= 200; ++round) {
        EndedHolder ended;
        StartLine together(4);
        std::atomic<int> uses{0};
        std::vector<std::thread> threads;
        for (int i = 0; i < 3; ++i)
            threads.emplace_back([&] {
                together.Cross();
                for (int use = 0; use < 100; ++use)
                    ended.holder.With([&](Counted&) {
                        EXPECT_EQ(made - gone, 1);
                        ++uses;
                    });
            });
        together.Cross();
        while (uses < round % 100)
            std::this_thread::yield();
        ended.End();
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(made, gone);
    }
}

struct Failing {
    Failing() {
        if (++made == 1)
            throw std::runtime_error("not yet");
    }
};

TEST_F(LazyServiceTest, AConstructorThatThrowsIsTriedAgain) {
    QsFrame::ServiceHolder<Failing> service;
    EXPECT_THROW(service.Get(), std::runtime_error);
    EXPECT_EQ(service.Peek(), nullptr);
    const Failing& object = service.Get();
    EXPECT_EQ(service.Peek(), &object);
}

}  // namespace
