// The language in which the program talks to people.
#pragma once

#include <optional>
#include <string_view>

namespace Estimate {

enum class Language { English, Chinese };

/// The language of a locale by its name, such as "zh_CN.UTF-8": Chinese for every name whose language is
/// "zh", English for all others.
Language LanguageOfLocale(std::string_view name) noexcept;

/// What the environment asks for: the first of LC_ALL, LC_MESSAGES and LANG that isn't empty, as the C
/// library takes them; none when none is set.
std::optional<Language> LanguageOfEnvironment();

/// What the system itself is set to for this user; English where it knows of no such setting.
Language LanguageOfSystem() noexcept;

}  // namespace Estimate
