// Tasks of the manager beside threads of the system, and lines of the log beside lines of a stream.
#include <atomic>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <future>
#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>
#include <benchmark/benchmark.h>
#include <pthread.h>

namespace {

constexpr int TaskCount = 20'000;

class EmptyTask : public CThreadTask {
public:
    using CThreadTask::CThreadTask;
    std::int32_t ExecuteTask(int, std::function<void()>) override { return 1; }
};

/// Without a folder for the log, as in a product that wants none.
void RemoveLog() {
    std::filesystem::remove_all(std::filesystem::read_symlink("/proc/self/exe").parent_path() / "Log");
}

void TasksOurs(benchmark::State& state) {
    RemoveLog();
    std::vector<CString> names(TaskCount);
    for (std::size_t i = 0; i < names.size(); ++i)
        names[i].Format(u"task %d", i);
    for (auto _ : state) {
        struct Counter : ITaskResultNotify {
            std::atomic<int> left{TaskCount};
            void OnTaskSuccess(const CString&) override {
                if (--left == 0)
                    left.notify_all();
            }
            void OnTaskFailed(const CString&, const CString&) override {}
        } counter;
        CQSThreadManager manager(false);
        manager.AddTaskThreadMgrObserver(&counter);
        for (const CString& name : names)
            manager.StartTask(new EmptyTask(&manager, name, nullptr));
        for (int left = counter.left; left > 0; left = counter.left)
            counter.left.wait(left);
    }
    state.SetItemsProcessed(state.iterations() * TaskCount);
}

void TasksPthread(benchmark::State& state) {
    for (auto _ : state) {
        for (int i = 0; i < TaskCount; ++i) {
            pthread_t thread;
            if (pthread_create(
                    &thread, nullptr, [](void* argument) { return argument; }, nullptr) != 0) {
                state.SkipWithError("no thread");
                return;
            }
            pthread_join(thread, nullptr);
        }
    }
    state.SetItemsProcessed(state.iterations() * TaskCount);
}

void TasksAsync(benchmark::State& state) {
    for (auto _ : state)
        for (int i = 0; i < TaskCount; ++i)
            std::async(std::launch::async, [] { return 1; }).get();
    state.SetItemsProcessed(state.iterations() * TaskCount);
}

BENCHMARK(TasksOurs)->Name("Tasks/EmptyTask/ours")->UseRealTime();
BENCHMARK(TasksPthread)->Name("Tasks/EmptyTask/pthread")->UseRealTime();
BENCHMARK(TasksAsync)->Name("Tasks/EmptyTask/async")->UseRealTime();

std::filesystem::path LogFolder() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "Log";
}

void LineOurs(benchmark::State& state) {
    std::filesystem::create_directory(LogFolder());
    std::filesystem::remove(LogFolder() / "Tallyman.log");
    const CString message = u"[INFO]: 计价 office.csv costs 1234ms.";
    for (auto _ : state)
        IQsUtils1::LogError(message);
    RemoveLog();
}

void LineStream(benchmark::State& state) {
    std::filesystem::create_directory(LogFolder());
    const std::string path = LogFolder() / "stream.log";
    for (auto _ : state) {
        std::FILE* const file = std::fopen(path.c_str(), "a+");
        const std::time_t now = std::time(nullptr);
        std::tm parts{};
        localtime_r(&now, &parts);
        std::fprintf(file, "%04d-%02d-%02d %02d:%02d:%02d:%03d TID:0x%x %s\r\n", parts.tm_year + 1900,
                     parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec, 123, 0x1234U,
                     "[INFO]: \xBC\xC6\xBC\xDB office.csv costs 1234ms.");
        std::fclose(file);
    }
    RemoveLog();
}

void LineWithoutFolder(benchmark::State& state) {
    RemoveLog();
    const CString message = u"[INFO]: 计价 office.csv costs 1234ms.";
    for (auto _ : state)
        IQsUtils1::LogError(message);
}

void OpenWithoutFolder(benchmark::State& state) {
    RemoveLog();
    const std::string path = LogFolder() / "stream.log";
    for (auto _ : state)
        benchmark::DoNotOptimize(std::fopen(path.c_str(), "a+"));
}

BENCHMARK(LineOurs)->Name("Log/Line/ours");
BENCHMARK(LineStream)->Name("Log/Line/fprintf");
BENCHMARK(LineWithoutFolder)->Name("Log/NoFolder/ours");
BENCHMARK(OpenWithoutFolder)->Name("Log/NoFolder/fopen");

}  // namespace
