// MD5 as RFC 1321 words it, step after step, for the comparison with the engine.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

inline std::array<std::uint8_t, 16> PlainMd5(std::vector<std::uint8_t> message) {
    const std::uint64_t bits = message.size() * 8;
    message.push_back(0x80);
    while (message.size() % 64 != 56)
        message.push_back(0);
    for (int i = 0; i < 8; ++i)
        message.push_back(static_cast<std::uint8_t>(bits >> (8 * i) & 0xFF));

    static constexpr int Shifts[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};
    std::uint32_t state[4] = {0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
    for (std::size_t block = 0; block < message.size(); block += 64) {
        std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
        for (std::uint32_t i = 0; i < 64; ++i) {
            const std::uint32_t f = i < 16   ? (b & c) | (~b & d)
                                    : i < 32 ? (b & d) | (c & ~d)
                                    : i < 48 ? b ^ c ^ d
                                             : c ^ (b | ~d);
            const std::uint32_t g = (i < 16 ? i : i < 32 ? 5 * i + 1 : i < 48 ? 3 * i + 5 : 7 * i) % 16;
            std::uint32_t word = 0;
            for (std::uint32_t k = 0; k < 4; ++k)
                word |= static_cast<std::uint32_t>(message[block + 4 * g + k]) << (8 * k);
            const auto constant =
                static_cast<std::uint32_t>(std::floor(std::fabs(std::sin(i + 1.0)) * 4294967296.0));
            const std::uint32_t sum = a + f + word + constant;
            const int shift = Shifts[i / 16][i % 4];
            a = d;
            d = c;
            c = b;
            b += sum << shift | sum >> (32 - shift);
        }
        state[0] += a;
        state[1] += b;
        state[2] += c;
        state[3] += d;
    }
    std::array<std::uint8_t, 16> digest{};
    for (std::size_t i = 0; i < 16; ++i)
        digest[i] = static_cast<std::uint8_t>(state[i / 4] >> (8 * (i % 4)) & 0xFF);
    return digest;
}
