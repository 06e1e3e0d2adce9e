// The installation of this process: a temporary folder with a DirectoryConfig.xml and the scripted companion.
#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "QsUtils/library/LibraryManager.h"

#include "tests/library/ScriptedLibraries.h"

namespace TestInstallation {

/// The installation's folder, as the system and the library (with a backslash) write it. The process works in
/// its subfolder "work".
std::filesystem::path Folder();
CString Directory();

/// Where the libraries of the tests lie, in the library's form with a backslash at its end. Emptied by
/// `ClearLibraries`, which also empties the current folder.
std::wstring Base();
void ClearLibraries();

/// Makes a file, or a folder for a path that ends with a backslash, and the folders on the way. The path is
/// in the library's form.
void Make(const std::wstring& path);

/// The script whose answers count from now on.
void Use(CompanionScript& script);

}  // namespace TestInstallation

/// A test of the manager with libraries of its own.
class Libraries : public testing::Test {
protected:
    void SetUp() override;

    /// Makes a file or folder of a path kind.
    void Make(int kind, const std::wstring& family, const std::wstring& section, const std::wstring& file);
    /// The path of a file of a path kind, as the manager gives it.
    CString PathOf(int kind, const std::wstring& family, const std::wstring& section,
                   const std::wstring& file) const;
    /// What the companion has been asked since the last time.
    std::vector<std::wstring> Calls() { return std::exchange(script.calls, {}); }

    ScriptedLibraries script{TestInstallation::Base()};
    LibraryManager::ILibraryManager& manager = *LibraryManager::GetLibraryManager();
};
