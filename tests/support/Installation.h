// A fresh installation: a folder with a host program in it, to which a test adds files.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

/// Lays a program out in a temporary folder and runs it there as a process of its own, so that the library
/// finds its files beside an executable as it does in a product. All goes with the object.
class Installation {
public:
    /// `modules` are the files that the program needs beside it on this system, with "|" between them, as
    /// CMake names them; `folder` is where the program stands, below the temporary folder.
    explicit Installation(const std::filesystem::path& program, const std::string& modules = {},
                          std::string_view folder = "bin")
        : m_folder(folder), m_program(Folder() / program.filename()) {
        std::filesystem::create_directories(Folder());
        CopyIn(program);
        std::istringstream names(modules);
        for (std::string name; std::getline(names, name, '|');)
            CopyIn(name);
    }

    /// The folder of the program.
    std::filesystem::path Folder() const { return m_root.File(m_folder); }

    /// Puts a file beside the program; folders on the way are made.
    void Write(std::string_view name, std::string_view bytes) const {
        m_root.Write(m_folder + "/" + std::string(name), bytes);
    }
    std::string Read(std::string_view name) const { return m_root.Read(m_folder + "/" + std::string(name)); }
    void CopyIn(const std::filesystem::path& file) const {
        std::filesystem::copy_file(file, Folder() / file.filename());
    }

    /// The folder in which the program runs, which isn't its own.
    const std::filesystem::path& WorkFolder() const { return m_root.Path(); }

    /// Runs the program to its end. Arguments are UTF-8; the environment is set on top of this process's own.
    ProgramResult Run(std::vector<std::string> arguments,
                      std::vector<std::pair<std::string, std::string>> environment = {}) const {
        ProgramCall call;
        call.environment = std::move(environment);
        call.program = m_program;
        call.arguments = std::move(arguments);
        call.folder = WorkFolder();
        return RunProgram(call);
    }

private:
    TemporaryFolder m_root;
    std::string m_folder;
    std::filesystem::path m_program;
};
