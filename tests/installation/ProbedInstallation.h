// An installation whose host answers questions about the library.
#pragma once

#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/Escapes.h"
#include "tests/support/Installation.h"

///     ProbedInstallation installation;
///     installation.Write("MajorCode.ini", "[MajorToCode]\r\nX=1\r\n");
///     EXPECT_EQ(installation.Ask({u"code", u"X"}), Answers{u"1"});
class ProbedInstallation : public Installation {
public:
    using Answers = std::vector<std::u16string>;
    using Environment = std::vector<std::pair<std::string, std::string>>;

    explicit ProbedInstallation(std::string_view folder = "bin")
        : Installation(INSTALLATION_PROBE, INSTALLATION_MODULES, folder) {}

    /// Puts a file there as it stands in the sample installation.
    void CopySample(std::string_view name) const {
        CopyIn(std::filesystem::path(INSTALLATION_SAMPLE) / name);
    }

    /// Runs the program with commands of the probe (see InstallationProbe.cpp), one behind the other, and
    /// gives one answer for each that has one. The process is a new one with every call.
    Answers Ask(const std::vector<std::u16string>& commands, const Environment& environment = {}) const {
        std::vector<std::string> arguments;
        for (const std::u16string& each : commands)
            arguments.push_back(Escaped(each));
        const ProgramResult result = Run(arguments, environment);
        if (result.status != 0)
            throw std::runtime_error("the probe ended with status " + std::to_string(result.status) + ": " +
                                     result.err);
        Answers answers;
        std::istringstream lines(result.out);
        for (std::string line; std::getline(lines, line);)
            answers.push_back(Unescaped(line.substr(0, line.find('\r'))));
        return answers;
    }
};
