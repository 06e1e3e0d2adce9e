// The names of the chapters and sections into which the national measurement code GB 50854-2013 divides the
// items of buildings.
#pragma once

#include <string_view>

namespace Estimate {

/// Digits of a bill code that name its chapter ("0105") and its section ("010515").
inline constexpr std::size_t ChapterLength = 4;
inline constexpr std::size_t SectionLength = 6;

/// The name of a chapter or section; of a chapter of another measurement code, that code's name; empty when
/// unknown.
std::string_view ChapterName(std::string_view code);

}  // namespace Estimate
