// Where a file of the cost libraries is.
#pragma once

#include <string>
#include <vector>

namespace Estimate {

/// What is empty, but for the name, stands for all.
struct LibrarySearch {
    std::string name;
    std::string family;
    std::string section;
    std::string item;
    std::string kind;
};

struct LibraryHit {
    std::string kind;
    std::string family;
    std::string path;  ///< in the system's form
};

/// The kinds of files, in the order in which they are looked for: bill, quota, drt, config, sub, enterprise.
const std::vector<std::string>& LibraryFileKinds();

/// The first hit of each kind in each family. Bill, ".drt", ".config" and item files are found by the name of
/// a library file, quota libraries by that or the library's name, enterprise bills by the library's name.
std::vector<LibraryHit> Find(const LibrarySearch& search);

}  // namespace Estimate
