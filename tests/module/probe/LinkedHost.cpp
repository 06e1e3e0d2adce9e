// A host that is linked with the library. It uses it, unless its argument is "idle".
#include <cstring>

#include "tests/module/probe/ProbedUse.h"

namespace {

struct HostStatic {
    ~HostStatic() { ProbeReport("host's static objects end"); }
} hostStatic;

}  // namespace

int main(int argc, char** argv) {
    ProbeReport("main begins");
    if (argc < 2 || std::strcmp(argv[1], "idle") != 0)
        ProbeUseLibrary();
    ProbeReport("main ends");
    return 0;
}
