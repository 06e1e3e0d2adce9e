#include "Language.h"

namespace Estimate {

// The environment is all that there is.
Language LanguageOfSystem() noexcept {
    return Language::English;
}

}  // namespace Estimate
