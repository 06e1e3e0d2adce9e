// Whichever thread comes first, a service is made once. Every load gives the race another chance.
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/module/LoadedPlugin.h"
#include "tests/support/StartLine.h"

namespace {

constexpr std::size_t threadCount = 8;
constexpr int loads = 25;

TEST(FirstCall, ThreadsThatRaceGetOneAnalyser) {
    for (int load = 0; load < loads; ++load) {
        const LoadedPlugin plugin;
        const auto analyser = PLUGIN_FUNCTION(plugin, PluginAnalyser);
        std::vector<void*> seen(threadCount);
        StartLine together(threadCount);
        std::vector<std::thread> threads;
        for (void*& mine : seen) {
            threads.emplace_back([&] {
                together.Cross();
                mine = analyser();
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        for (void* one : seen)
            EXPECT_EQ(one, seen.front());
        EXPECT_NE(seen.front(), nullptr);
    }
}

TEST(FirstCall, EveryServiceMayBeCalledFirstByManyThreads) {
    for (int load = 0; load < loads; ++load) {
        const LoadedPlugin plugin;
        const auto call = PLUGIN_FUNCTION(plugin, PluginCallService);
        const std::size_t services = PLUGIN_FUNCTION(plugin, PluginServiceCount)();
        std::vector<char> right(threadCount, 0);
        StartLine together(threadCount);
        std::vector<std::thread> threads;
        for (std::size_t number = 0; number < threadCount; ++number) {
            // Half of the threads begin at the same service, the others each at another one.
            threads.emplace_back([&, number] {
                const std::size_t begin = static_cast<std::size_t>(load) + (number % 2 == 0 ? 0 : number);
                together.Cross();
                bool all = true;
                for (std::size_t i = 0; i < services; ++i)
                    all = call(begin + i) && all;
                right[number] = all;
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(right, std::vector<char>(threadCount, 1));
    }
}

}  // namespace
