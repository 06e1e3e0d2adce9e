// A folder of a test's own.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <system_error>

/// An empty folder that goes with the object, with all that is in it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::random_device random;
        const std::string name = "qsutils-" + std::to_string(random()) + "-" + std::to_string(random());
        m_path = std::filesystem::temp_directory_path() / name;
        std::filesystem::create_directories(m_path);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }
    /// A file in it; a name in UTF-8.
    std::filesystem::path File(const std::string& name) const {
        return m_path / std::filesystem::path(std::u8string(name.begin(), name.end()));
    }
    /// Writes a file, byte for byte.
    std::filesystem::path Write(const std::string& name, const std::string& contents) const {
        std::ofstream(File(name), std::ios::binary) << contents;
        return File(name);
    }

private:
    std::filesystem::path m_path;
};
