// The cost libraries of the installation, as the library's manager tells of them.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "Message.h"

namespace Estimate {

// All texts are UTF-8, all paths in the system's form.

struct LibraryItem {
    std::string name;
    std::string tag;  ///< under which libraries list it; empty for an item that the companion doesn't know
};

struct LibraryFile {
    std::string name;
    std::string title;  ///< under which a quota library is offered to users
    std::string tag;    ///< of a quota library's first item
    std::string path;
    bool exists = false;
    bool isOffered = false;
    std::optional<BillLibraryRule> rule;  ///< of a bill library
};

struct LibrarySection {
    std::string name;
    std::string provider;
    std::vector<LibraryItem> items;
    std::vector<LibraryFile> bills;
    std::vector<LibraryFile> quotas;
};

struct LibraryFamily {
    std::string name;
    std::string displayName;
    std::vector<LibrarySection> sections;
};

struct LibraryTree {
    std::int32_t series = -1;
    std::string root;
    std::vector<LibraryFamily> families;
};

/// Why there are no libraries at all; empty when there is a companion that answers, and a folder of
/// libraries.
Message WhatLibrariesLack();

LibraryTree ReadLibraries();

/// A tree for reading.
void WriteText(std::ostream& out, const LibraryTree& tree, Language language);
/// One JSON object.
void WriteJson(std::ostream& out, const LibraryTree& tree);

}  // namespace Estimate
