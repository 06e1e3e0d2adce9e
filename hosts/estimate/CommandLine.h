// What the commands need of the command line, in the user's language.
#pragma once

#include <string>
#include <vector>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "Message.h"

namespace Estimate {

/// Takes one of these words.
CLI::Validator OneOf(const std::vector<std::string>& words, Language language);
/// Takes a whole number from `least` to `most`.
CLI::Validator Between(int least, int most, Language language);

/// What the help calls the value of an option that names a file; the program's own formatter translates it.
inline constexpr const char* FileType = "FILE";

/// Gives `app` and all its commands the help of a language; to be called when all of them are there.
void SpeakLanguage(CLI::App& app, Language language);

/// What is wrong with a command line that `app` has refused with `error`.
Message UsageFault(const CLI::App& app, const CLI::ParseError& error);

/// The words that lead to the command that was asked for: "estimate backup open".
std::string CommandPath(const CLI::App& app);

}  // namespace Estimate
