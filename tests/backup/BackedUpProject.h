// A project and its backup, as the tests of the backup lay them out and look at them.
#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/text/CString.h"

#include "tests/support/TemporaryFolder.h"

inline constexpr const char16_t* BackUpFolderName = u"db808900-b06a-486b-ba7d-de9d3236d4ea";

/// Files by their names below a folder, with slashes; folders end in one and have no bytes.
using TreeOfFiles = std::map<std::string, std::string>;

inline std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("can't read " + path.string());
    return std::string(std::istreambuf_iterator<char>(file), {});
}

inline TreeOfFiles TreeAt(const std::filesystem::path& folder) {
    TreeOfFiles tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::u8string path = entry.path().lexically_relative(folder).generic_u8string();
        const std::string name(path.begin(), path.end());
        if (entry.is_directory() && !entry.is_symlink())
            tree[name + "/"];
        else
            tree[name] = BytesOf(entry.path());
    }
    return tree;
}

inline void WriteBytes(const std::filesystem::path& path, std::string_view bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw std::runtime_error("can't write " + path.string());
}

inline void WriteTree(const std::filesystem::path& folder, const TreeOfFiles& tree) {
    std::filesystem::create_directories(folder);
    for (const auto& [name, bytes] : tree) {
        const std::filesystem::path path = folder / std::u8string(name.begin(), name.end());
        if (name.ends_with('/'))
            std::filesystem::create_directories(path);
        else
            WriteBytes(path, bytes);
    }
}

/// A project of a name of its own in a temporary folder. Its backup goes with it.
class BackedUpProject {
public:
    /// The files are named `stem`, which stands in for the project's own name when it is given.
    explicit BackedUpProject(std::string name = {}) : m_name(std::move(name)) {
        if (m_name.empty()) {
            m_name = m_folder.Path().filename().string();
        }
    }
    BackedUpProject(const BackedUpProject&) = delete;
    BackedUpProject& operator=(const BackedUpProject&) = delete;
    ~BackedUpProject() {
        std::error_code ignored;
        std::filesystem::remove_all(BackUp(), ignored);
    }

    const TemporaryFolder& Folder() const { return m_folder; }
    /// The path of the project file.
    CString Path() const { return m_folder.Text(m_name + ".gcs"); }
    std::filesystem::path DataBase() const { return m_folder.File(m_name + ".mdb"); }
    std::filesystem::path Graphics() const { return m_folder.File(m_name); }

    CString BackUpText() const {
        return QsPlatform::ExecutableFolder() + u"\\tempfile\\" + BackUpFolderName + u"\\" +
               FromNativePath(std::u8string(m_name.begin(), m_name.end()));
    }
    std::filesystem::path BackUp() const { return ToNativePath(BackUpText()); }
    std::filesystem::path WorkingDataBase() const { return BackUp() / "BackUpDataBase.mdb"; }
    std::filesystem::path SavedGraphics() const { return BackUp() / "BackUpGraphicFile"; }
    std::filesystem::path Versions() const { return BackUp() / "FileVer.ini"; }

private:
    TemporaryFolder m_folder;
    std::string m_name;
};
