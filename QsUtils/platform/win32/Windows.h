// <windows.h> without its macros that stand in the way, and the texts of its calls.
#pragma once

#define WIN32_LEAN_AND_MEAN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <cstddef>
#include <cstdint>

#include <windows.h>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Units as the system's calls name them. Both types are UTF-16 code units of 16 bits.
inline const wchar_t* SystemUnits(const char16_t* units) noexcept {
    return reinterpret_cast<const wchar_t*>(units);
}
inline wchar_t* SystemUnits(char16_t* units) noexcept {
    return reinterpret_cast<wchar_t*>(units);
}

/// A file as the contracts hold it, which know no types of the system.
inline HANDLE SystemHandle(std::intptr_t file) noexcept {
    return reinterpret_cast<HANDLE>(file);
}

/// The most that one call reads or writes.
inline constexpr std::size_t LargestPart = std::size_t{1} << 26;

/// Most of the system's calls count in `int`.
inline constexpr std::size_t MostUnits = std::size_t{1} << 28;

}  // namespace QsPlatform
