// A fresh folder for one test, removed with all that is in it.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "QsUtils/platform/NativePath.h"

class TemporaryFolder {
public:
    TemporaryFolder() : TemporaryFolder(std::filesystem::temp_directory_path()) {}
    explicit TemporaryFolder(const std::filesystem::path& parent) {
        static std::atomic<unsigned> count{0};
        const auto moment = std::chrono::steady_clock::now().time_since_epoch().count();
        do {
            m_path =
                parent / ("qsutils-" + std::to_string(moment) + "-" + std::to_string(count.fetch_add(1)));
        } while (!std::filesystem::create_directory(m_path));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    const std::filesystem::path& Path() const { return m_path; }
    /// The path of an entry, `name` in UTF-8 and with slashes; in the system's form and in the library's.
    std::filesystem::path File(std::string_view name) const {
        return m_path / std::u8string(name.begin(), name.end());
    }
    CString Text(std::string_view name) const { return FromNativePath(File(name)); }

    /// Writes a file, byte for byte; folders on the way are made.
    std::filesystem::path Write(std::string_view name, std::string_view bytes) const {
        std::filesystem::path path = File(name);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream file(path, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!file.flush())
            throw std::runtime_error("can't write " + path.string());
        return path;
    }

    std::string Read(std::string_view name) const {
        std::ifstream file(File(name), std::ios::binary);
        if (!file)
            throw std::runtime_error("can't read " + File(name).string());
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    bool Has(std::string_view name) const { return std::filesystem::exists(File(name)); }

    /// The number of entries, so that a test sees what was left behind.
    std::ptrdiff_t Entries() const { return std::distance(std::filesystem::directory_iterator(m_path), {}); }

private:
    std::filesystem::path m_path;
};
