// What the program's own help tells of its commands and options.
#pragma once

#include <set>
#include <string>
#include <vector>

struct CommandHelp {
    std::string path;               ///< "price", "backup open"; empty for the program itself
    std::set<std::string> options;  ///< "-o" and "--output"; without those that every command has
    std::set<std::string> words;    ///< of options and arguments that take one of a set
    std::vector<std::string> commands;
};

/// The program and all its commands, each in front of its own.
std::vector<CommandHelp> AllHelp();

/// The options that every command has.
const std::set<std::string>& CommonOptions();
