// Trees of folders for comparisons on random input, and what a tree looks like.
#pragma once

#include <filesystem>
#include <map>
#include <random>
#include <string>

#include "QsUtils/text/CString.h"

#include "tests/support/TemporaryFolder.h"

class RandomTree {
public:
    explicit RandomTree(unsigned seed) : m_random(seed) {}

    /// Fills the folder `at` of a temporary folder, which may be there already.
    void Fill(const TemporaryFolder& folder, const std::string& at, int levels = 4) {
        std::filesystem::create_directories(folder.File(at));
        for (auto count = m_random() % 5; count > 0; --count) {
            const std::string path = at + "/" + Name();
            if (folder.Has(path))
                continue;
            if (levels > 0 && m_random() % 2 == 0)
                Fill(folder, path, levels - 1);
            else
                WriteFile(folder, path);
        }
    }

    std::string Name() {
        static constexpr const char* names[] = {"a",   "B", "b.txt", "x.ec", "项目", "定额",
                                                "c d", "É", ".h",    "A_b",  "Ab"};
        return names[m_random() % std::size(names)];
    }
    std::mt19937& Random() { return m_random; }

    /// Every entry below a folder with its content, its mark and the hour it was written.
    static std::map<std::string, std::string> Picture(const std::filesystem::path& root) {
        namespace fs = std::filesystem;
        std::map<std::string, std::string> entries;
        if (!fs::exists(root))
            return entries;
        entries["."] = "folder";
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            const std::u8string name = entry.path().lexically_relative(root).generic_u8string();
            std::string& told = entries[std::string(name.begin(), name.end())];
            const bool isWritable =
                (entry.status().permissions() & fs::perms::owner_write) != fs::perms::none;
            told = isWritable ? "" : "read-only ";
            if (entry.is_directory()) {
                told += "folder";
                continue;
            }
            std::ifstream file(entry.path(), std::ios::binary);
            const auto age = std::chrono::duration_cast<std::chrono::hours>(fs::file_time_type::clock::now() -
                                                                            entry.last_write_time());
            told +=
                std::string(std::istreambuf_iterator<char>(file), {}) + " of " + std::to_string(age.count());
        }
        return entries;
    }

private:
    void WriteFile(const TemporaryFolder& folder, const std::string& path) {
        namespace fs = std::filesystem;
        folder.Write(path, std::string(m_random() % 3000, static_cast<char>('a' + m_random() % 26)));
        fs::last_write_time(folder.File(path), fs::file_time_type::clock::now() -
                                                   std::chrono::hours(m_random() % 1000) -
                                                   std::chrono::minutes(30));
        if (m_random() % 6 == 0)
            fs::permissions(folder.File(path),
                            fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                            fs::perm_options::remove);
    }

    std::mt19937 m_random;
};

/// Lets everything be removed at the end.
inline void MakeTreeWritable(const std::filesystem::path& root) {
    namespace fs = std::filesystem;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (!entry.is_symlink())
            fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
    }
}
