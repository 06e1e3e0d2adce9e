// A host that loads the plug-in at run time. The argument says what it does:
//   close    uses the library and unloads it before the end
//   exit     uses the library and ends with it loaded
#include <cstdio>
#include <cstring>

#include "tests/module/probe/ProbedUse.h"
#include "tests/support/SharedModule.h"

namespace {

void Report(const char* event) {
    std::printf("%s\n", event);
    std::fflush(stdout);
}

struct HostStatic {
    ~HostStatic() { Report("host's static objects end"); }
} hostStatic;

}  // namespace

int main(int argc, char** argv) {
    Report("main begins");
    // Left alone on purpose unless it is to be closed: the module is then still loaded when the process ends.
    static auto* plugin = new SharedModule(PROBED_PLUGIN);
    plugin->Function<decltype(ProbeUseLibrary)>("ProbeUseLibrary")();
    if (argc > 1 && std::strcmp(argv[1], "close") == 0) {
        delete plugin;
        plugin = nullptr;
    }
    Report("main ends");
    return 0;
}
