// Programs that tests start and whose answers they look at.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

struct ProgramResult {
    /// Whether the system took it for a program.
    bool isStarted = false;
    /// What the program returned; -1 when it was not started or did not come to its end.
    int status = -1;
    std::string out;
    std::string err;
};

struct ProgramCall {
    std::filesystem::path program;
    /// In UTF-8, without the program's own name.
    std::vector<std::string> arguments;
    /// Set for the program on top of this process's own.
    std::vector<std::pair<std::string, std::string>> environment;
    /// The folder in which it starts; empty for this process's own.
    std::filesystem::path folder;
};

/// Runs a program with empty standard input to its end.
ProgramResult RunProgram(const ProgramCall& call);
