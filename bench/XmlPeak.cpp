// Reads one file in one way and prints the most memory, in bytes, that the process has had.
#include <cstdio>
#include <memory>
#include <string_view>

#include <sys/resource.h>

#include "QsUtils/QsUtils.h"

#include "bench/XmlDom.h"

namespace {

bool ReadTree(const std::filesystem::path& path) {
    const std::unique_ptr<XMLNode> root(LoadXMLNode(FromNativePath(path).ToWide()));
    return root != nullptr;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    const bool read = std::string_view(argv[1]) == "tree" ? ReadTree(argv[2]) : XmlDom(argv[2]).HasRoot();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%ld\n", usage.ru_maxrss * 1024);
    return read ? 0 : 1;
}
