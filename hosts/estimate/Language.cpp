#include "Language.h"

#include <cstdlib>

namespace Estimate {

Language LanguageOfLocale(std::string_view name) noexcept {
    const std::string_view language = name.substr(0, name.find_first_of("_-.@"));
    const auto is = [&](std::size_t at, char lower) {
        return language[at] == lower || language[at] == lower - 'a' + 'A';
    };
    return language.size() == 2 && is(0, 'z') && is(1, 'h') ? Language::Chinese : Language::English;
}

std::optional<Language> LanguageOfEnvironment() {
    for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* const name = std::getenv(variable); name != nullptr && *name != '\0')
            return LanguageOfLocale(name);
    return std::nullopt;
}

}  // namespace Estimate
