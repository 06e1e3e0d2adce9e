// A fresh installation: a folder with a host program in it, to which a test adds files.
#pragma once

#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/ChildProcess.h"
#include "tests/support/Escapes.h"
#include "tests/support/TemporaryFolder.h"

/// Lays the host out in a temporary folder and runs it as a process of its own, so that the library reads its
/// files beside an executable as it does in a product:
///
///     Installation installation;
///     installation.Write("MajorCode.ini", "[MajorToCode]\r\nX=1\r\n");
///     EXPECT_EQ(installation.Ask({u"code", u"X"}), Answers{u"1"});
class Installation {
public:
    using Answers = std::vector<std::u16string>;

    /// `folder` is where the program stands, below the temporary folder.
    explicit Installation(std::string_view folder = "bin") : m_folder(folder) {
        std::filesystem::create_directories(Folder());
        CopyIn(INSTALLATION_PROBE);
        std::istringstream modules(INSTALLATION_MODULES);
        for (std::string module; std::getline(modules, module, '|');)
            CopyIn(module);
    }

    /// The folder of the program.
    std::filesystem::path Folder() const { return m_root.File(m_folder); }

    /// Puts a file beside the program; folders on the way are made.
    void Write(std::string_view name, std::string_view bytes) const {
        m_root.Write(m_folder + "/" + std::string(name), bytes);
    }
    /// Puts a file there as it stands in the sample installation.
    void CopySample(std::string_view name) const {
        CopyIn(std::filesystem::path(INSTALLATION_SAMPLE) / std::u8string(name.begin(), name.end()));
    }

    /// Runs the program with commands of the probe (see InstallationProbe.cpp), one behind the other, and
    /// gives one answer for each that has one. The process starts anew with every call, in a folder of no
    /// meaning.
    Answers Ask(const std::vector<std::u16string>& commands) const {
        ProgramCall call;
        call.program = Folder() / std::filesystem::path(INSTALLATION_PROBE).filename();
        for (const std::u16string& each : commands)
            call.arguments.push_back(Escaped(each));
        call.folder = m_root.Path();
        const ProgramResult result = RunProgram(call);
        if (result.status != 0)
            throw std::runtime_error("the probe ended with status " + std::to_string(result.status) + ": " +
                                     result.err);
        Answers answers;
        std::istringstream lines(result.out);
        for (std::string line; std::getline(lines, line);)
            answers.push_back(Unescaped(line.substr(0, line.find('\r'))));
        return answers;
    }

private:
    void CopyIn(const std::filesystem::path& file) const {
        std::filesystem::copy_file(file, Folder() / file.filename());
    }

    TemporaryFolder m_root;
    std::string m_folder;
};
