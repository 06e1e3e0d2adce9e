// Columns of text that line up where Chinese and Latin characters mix.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Estimate {

/// How many cells of a terminal a text takes: two for wide and full-width characters, none for combining
/// ones and controls, one for all others (Unicode Standard Annex #11).
std::size_t DisplayWidth(std::string_view text);

enum class Align { Left, Right };

/// The text with blanks up to `width` cells; a longer text stays as it is.
std::string Padded(std::string_view text, std::size_t width, Align align = Align::Left);

/// The text cut to at most `width` cells, with ".." at its end when something had to go, and with a blank in
/// place of every line break and control character.
std::string Shortened(std::string_view text, std::size_t width);

}  // namespace Estimate
