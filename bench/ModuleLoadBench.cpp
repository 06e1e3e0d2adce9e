// How long the module takes to enter a process and to leave it.
#include <benchmark/benchmark.h>
#include <dlfcn.h>

namespace {

void LoadAndUnload(benchmark::State& state, const char* path) {
    for (auto _ : state) {
        void* module = dlopen(path, RTLD_NOW | RTLD_LOCAL);
        if (module == nullptr) {
            state.SkipWithError(dlerror());
            return;
        }
        dlclose(module);
        if (void* left = dlopen(path, RTLD_NOW | RTLD_NOLOAD)) {
            dlclose(left);
            state.SkipWithError("the module has not left the process");
            return;
        }
    }
}

BENCHMARK_CAPTURE(LoadAndUnload, ours, QSUTILS_MODULE)
    ->Name("Module/Load/ours")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(LoadAndUnload, xerces, XERCES_ALONE_MODULE)
    ->Name("Module/Load/xerces")
    ->Unit(benchmark::kMicrosecond);

}  // namespace
