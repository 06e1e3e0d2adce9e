// An installation whose host writes the log.
#pragma once

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Escapes.h"
#include "tests/support/Installation.h"
#include "tests/support/TextForm.h"

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
        const std::string log = Read("Log/Tallyman.log");
        std::string text;
        for (std::size_t at = 0; at < log.size();) {
            const std::string_view rest = std::string_view(log).substr(at);
            const std::size_t head = FormLength(rest, LogHead).value_or(0);
            const std::size_t id = rest.find('x') + 1;
            if (head > 0)
                text += isIdKept ? "[" + std::string(rest.substr(id, head - 1 - id)) + "] " : "> ";
            const std::size_t end = std::min(rest.find('\n', head), rest.size() - 1) + 1;
            text += rest.substr(head, end - head);
            at += end;
        }
        return text;
    }
};
