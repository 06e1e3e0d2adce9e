// An installation whose host writes the log.
#pragma once

#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Escapes.h"
#include "tests/support/Installation.h"

class ProbedLog : public Installation {
public:
    explicit ProbedLog(std::string_view folder = "bin")
        : Installation(TASK_PROBE, INSTALLATION_MODULES, folder) {}

    void MakeLogFolder() const { std::filesystem::create_directory(Folder() / "Log"); }
    bool HasLog() const { return std::filesystem::exists(Folder() / "Log" / "Tallyman.log"); }

    /// Runs the program with commands of the probe (see TaskProbe.cpp); its answers, one a line.
    std::string Do(const std::vector<std::u16string>& commands) const {
        std::vector<std::string> arguments;
        for (const std::u16string& each : commands)
            arguments.push_back(Escaped(each));
        const ProgramResult result = Run(arguments);
        if (result.status != 0)
            throw std::runtime_error("the probe ended with status " + std::to_string(result.status) + ": " +
                                     result.err);
        std::string answers = result.out;
        std::erase(answers, '\r');
        return answers;
    }

    /// The log with the moment of each line left out, and the thread's id unless `isIdKept`.
    std::string Log(bool isIdKept = false) const {
        static const char* const moment =
            "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d:\\d{3} TID:0x([0-9a-f]+) ";
        return std::regex_replace(Read("Log/Tallyman.log"), std::regex(moment), isIdKept ? "[$1] " : "> ");
    }
};
