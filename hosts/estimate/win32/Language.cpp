#include "Language.h"

#include <windows.h>

namespace Estimate {

Language LanguageOfSystem() noexcept {
    return PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_CHINESE ? Language::Chinese
                                                                       : Language::English;
}

}  // namespace Estimate
