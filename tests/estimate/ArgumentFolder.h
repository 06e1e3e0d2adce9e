// A temporary folder whose files are named as arguments name them.
#pragma once

#include <string>
#include <string_view>

#include "tests/support/TemporaryFolder.h"

class ArgumentFolder : public TemporaryFolder {
public:
    std::string Path(std::string_view name) const {
        const std::u8string path = File(name).u8string();
        return std::string(path.begin(), path.end());
    }
    std::string Write(std::string_view name, std::string_view text) const {
        TemporaryFolder::Write(name, text);
        return Path(name);
    }
};
