// Texts out of a fuzzer's bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// A text whose units are mostly those of `alphabet`, so that the fuzzer meets the interesting ones, and now
/// and then any other.
inline std::u16string TextFromBytes(const std::uint8_t* data, std::size_t size,
                                    std::u16string_view alphabet) {
    std::u16string text;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] < alphabet.size()) {
            text += alphabet[data[i]];
        } else if (data[i] < 0xF0) {
            text += static_cast<char16_t>(data[i]);
        } else {
            const std::uint8_t low = i + 1 < size ? data[++i] : std::uint8_t{0};
            text += static_cast<char16_t>(data[i] << 8 | low);
        }
    }
    return text;
}
