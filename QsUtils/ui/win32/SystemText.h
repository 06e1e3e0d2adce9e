// Texts for the system's calls that take no length.
#pragma once

#include <string>
#include <string_view>

#include "QsUtils/platform/win32/Windows.h"

namespace QsUi {

inline std::wstring SystemText(std::u16string_view text) {
    return std::wstring(QsPlatform::SystemUnits(text.data()), text.size());
}

}  // namespace QsUi
