// One value out of profile files: the engine, which decodes what it must, beside the plain way, which decodes
// the file and keeps all of it in lists. Both work on bytes in memory.
#include <string>

#include <benchmark/benchmark.h>

#include "QsUtils/platform/ProfileFile.h"
#include "QsUtils/platform/ProfileText.h"

#include "tests/platform/PlainProfile.h"

namespace {

/// As a history of inputs grows: sections of ten values. The one asked for stands at the end.
std::string History(int sections) {
    std::string bytes;
    for (int i = 0; i < sections; ++i) {
        bytes += "[\xCA\xE4\xC8\xEB" + std::to_string(i) + "]\r\n";
        for (int key = 1; key <= 10; ++key)
            bytes +=
                std::to_string(key) + "=\xBD\xA8\xD6\xFE\xB9\xA4\xB3\xCC " + std::to_string(i * key) + "\r\n";
    }
    return bytes + "[last]\r\nK=v\r\n";
}

using Work = void (*)(const std::string& bytes);

void ReadOurs(const std::string& bytes) {
    const QsPlatform::ProfileText text(bytes);
    benchmark::DoNotOptimize(QsPlatform::FindProfileValue(text, u"LAST", u"k"));
}

void ReadPlainly(const std::string& bytes) {
    benchmark::DoNotOptimize(PlainProfile::Find(bytes, u"LAST", u"k"));
}

void SetOurs(const std::string& bytes) {
    benchmark::DoNotOptimize(QsPlatform::SetProfileValue(bytes, u"last", u"K", u"new"));
}

void SetPlainly(const std::string& bytes) {
    benchmark::DoNotOptimize(PlainProfile::Set(bytes, u"last", u"K", u"new"));
}

void Run(benchmark::State& state, Work work) {
    const auto sections = static_cast<int>(state.range(0));
    const std::string bytes = History(sections);
    for (auto _ : state)
        work(bytes);
    state.SetItemsProcessed(state.iterations() * sections);
}

const int registered = [] {
    const auto add = [](const char* name, Work work) {
        benchmark::RegisterBenchmark(name, [work](benchmark::State& state) { Run(state, work); })
            ->Arg(5)
            ->Arg(1000);
    };
    add("Profile/Read/ours", ReadOurs);
    add("Profile/Read/plain", ReadPlainly);
    add("Profile/Write/ours", SetOurs);
    add("Profile/Write/plain", SetPlainly);
    return 0;
}();

}  // namespace
