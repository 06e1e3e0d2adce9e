#include "QsUtils/material/Md5.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace QsMaterial {

// Words of the algorithm are little-endian, and are read and written as they lie in memory.
static_assert(std::endian::native == std::endian::little);

namespace {

using Word = std::uint32_t;

Word Load(const std::uint8_t* block, std::size_t index) noexcept {
    Word word;
    std::memcpy(&word, block + index * sizeof word, sizeof word);
    return word;
}

/// Keeps the compiler from adding in another order: what doesn't depend on the step before is summed first,
/// so that each step waits for as few operations as it can.
inline void KeepOrder(Word& word) noexcept {
#if defined(__GNUC__) && !defined(__clang_analyzer__)
    __asm__("" : "+r"(word));
#else
    static_cast<void>(word);
#endif
}

// The four rounds. In each, a is what the step changes and b what the step before has just made.

template <int Shift>
inline void StepF(Word& a, Word b, Word c, Word d, Word input) noexcept {
    a += input;
    a += ((c ^ d) & b) ^ d;
    a = std::rotl(a, Shift) + b;
}

template <int Shift>
inline void StepG(Word& a, Word b, Word c, Word d, Word input) noexcept {
    // The two halves share no bit, so they are added, and the one without b is added ahead of time.
    a += input + (c & ~d);
    KeepOrder(a);
    a += b & d;
    a = std::rotl(a, Shift) + b;
}

template <int Shift>
inline void StepH(Word& a, Word b, Word c, Word d, Word input) noexcept {
    a += input;
    a += (c ^ d) ^ b;
    a = std::rotl(a, Shift) + b;
}

template <int Shift>
inline void StepI(Word& a, Word b, Word c, Word d, Word input) noexcept {
    a += input;
    a += c ^ (b | ~d);
    a = std::rotl(a, Shift) + b;
}

}  // namespace

void Md5::Compress(State& state, const std::uint8_t* blocks, std::size_t count) noexcept {
    auto [a, b, c, d] = state;
    for (const std::uint8_t* block = blocks; count > 0; --count, block += BlockSize) {
        const State before{a, b, c, d};
        const auto word = [block](std::size_t index) { return Load(block, index); };

        StepF<7>(a, b, c, d, word(0) + 0xD76AA478);
        StepF<12>(d, a, b, c, word(1) + 0xE8C7B756);
        StepF<17>(c, d, a, b, word(2) + 0x242070DB);
        StepF<22>(b, c, d, a, word(3) + 0xC1BDCEEE);
        StepF<7>(a, b, c, d, word(4) + 0xF57C0FAF);
        StepF<12>(d, a, b, c, word(5) + 0x4787C62A);
        StepF<17>(c, d, a, b, word(6) + 0xA8304613);
        StepF<22>(b, c, d, a, word(7) + 0xFD469501);
        StepF<7>(a, b, c, d, word(8) + 0x698098D8);
        StepF<12>(d, a, b, c, word(9) + 0x8B44F7AF);
        StepF<17>(c, d, a, b, word(10) + 0xFFFF5BB1);
        StepF<22>(b, c, d, a, word(11) + 0x895CD7BE);
        StepF<7>(a, b, c, d, word(12) + 0x6B901122);
        StepF<12>(d, a, b, c, word(13) + 0xFD987193);
        StepF<17>(c, d, a, b, word(14) + 0xA679438E);
        StepF<22>(b, c, d, a, word(15) + 0x49B40821);

        StepG<5>(a, b, c, d, word(1) + 0xF61E2562);
        StepG<9>(d, a, b, c, word(6) + 0xC040B340);
        StepG<14>(c, d, a, b, word(11) + 0x265E5A51);
        StepG<20>(b, c, d, a, word(0) + 0xE9B6C7AA);
        StepG<5>(a, b, c, d, word(5) + 0xD62F105D);
        StepG<9>(d, a, b, c, word(10) + 0x02441453);
        StepG<14>(c, d, a, b, word(15) + 0xD8A1E681);
        StepG<20>(b, c, d, a, word(4) + 0xE7D3FBC8);
        StepG<5>(a, b, c, d, word(9) + 0x21E1CDE6);
        StepG<9>(d, a, b, c, word(14) + 0xC33707D6);
        StepG<14>(c, d, a, b, word(3) + 0xF4D50D87);
        StepG<20>(b, c, d, a, word(8) + 0x455A14ED);
        StepG<5>(a, b, c, d, word(13) + 0xA9E3E905);
        StepG<9>(d, a, b, c, word(2) + 0xFCEFA3F8);
        StepG<14>(c, d, a, b, word(7) + 0x676F02D9);
        StepG<20>(b, c, d, a, word(12) + 0x8D2A4C8A);

        StepH<4>(a, b, c, d, word(5) + 0xFFFA3942);
        StepH<11>(d, a, b, c, word(8) + 0x8771F681);
        StepH<16>(c, d, a, b, word(11) + 0x6D9D6122);
        StepH<23>(b, c, d, a, word(14) + 0xFDE5380C);
        StepH<4>(a, b, c, d, word(1) + 0xA4BEEA44);
        StepH<11>(d, a, b, c, word(4) + 0x4BDECFA9);
        StepH<16>(c, d, a, b, word(7) + 0xF6BB4B60);
        StepH<23>(b, c, d, a, word(10) + 0xBEBFBC70);
        StepH<4>(a, b, c, d, word(13) + 0x289B7EC6);
        StepH<11>(d, a, b, c, word(0) + 0xEAA127FA);
        StepH<16>(c, d, a, b, word(3) + 0xD4EF3085);
        StepH<23>(b, c, d, a, word(6) + 0x04881D05);
        StepH<4>(a, b, c, d, word(9) + 0xD9D4D039);
        StepH<11>(d, a, b, c, word(12) + 0xE6DB99E5);
        StepH<16>(c, d, a, b, word(15) + 0x1FA27CF8);
        StepH<23>(b, c, d, a, word(2) + 0xC4AC5665);

        StepI<6>(a, b, c, d, word(0) + 0xF4292244);
        StepI<10>(d, a, b, c, word(7) + 0x432AFF97);
        StepI<15>(c, d, a, b, word(14) + 0xAB9423A7);
        StepI<21>(b, c, d, a, word(5) + 0xFC93A039);
        StepI<6>(a, b, c, d, word(12) + 0x655B59C3);
        StepI<10>(d, a, b, c, word(3) + 0x8F0CCC92);
        StepI<15>(c, d, a, b, word(10) + 0xFFEFF47D);
        StepI<21>(b, c, d, a, word(1) + 0x85845DD1);
        StepI<6>(a, b, c, d, word(8) + 0x6FA87E4F);
        StepI<10>(d, a, b, c, word(15) + 0xFE2CE6E0);
        StepI<15>(c, d, a, b, word(6) + 0xA3014314);
        StepI<21>(b, c, d, a, word(13) + 0x4E0811A1);
        StepI<6>(a, b, c, d, word(4) + 0xF7537E82);
        StepI<10>(d, a, b, c, word(11) + 0xBD3AF235);
        StepI<15>(c, d, a, b, word(2) + 0x2AD7D2BB);
        StepI<21>(b, c, d, a, word(9) + 0xEB86D391);

        a += before[0];
        b += before[1];
        c += before[2];
        d += before[3];
    }
    state = {a, b, c, d};
}

void Md5::Update(const void* bytes, std::size_t size) noexcept {
    const auto* from = static_cast<const std::uint8_t*>(bytes);
    const std::size_t waiting = m_nSize % BlockSize;
    m_nSize += size;
    if (waiting > 0) {
        const std::size_t taken = std::min(size, BlockSize - waiting);
        if (taken > 0)
            std::memcpy(m_block + waiting, from, taken);
        if (waiting + taken < BlockSize)
            return;
        Compress(m_state, m_block, 1);
        from += taken;
        size -= taken;
    }
    // Whole blocks are read where they lie.
    const std::size_t whole = size / BlockSize;
    if (whole > 0)
        Compress(m_state, from, whole);
    if (size % BlockSize > 0)
        std::memcpy(m_block, from + whole * BlockSize, size % BlockSize);
}

Md5::Digest Md5::Finish() noexcept {
    constexpr std::size_t LengthAt = BlockSize - sizeof m_nSize;
    std::size_t used = m_nSize % BlockSize;
    m_block[used++] = 0x80;
    if (used > LengthAt) {
        std::memset(m_block + used, 0, BlockSize - used);
        Compress(m_state, m_block, 1);
        used = 0;
    }
    std::memset(m_block + used, 0, LengthAt - used);
    const std::uint64_t bits = m_nSize * 8;
    std::memcpy(m_block + LengthAt, &bits, sizeof bits);
    Compress(m_state, m_block, 1);
    Digest digest;
    std::memcpy(digest.data(), m_state.data(), digest.size());
    return digest;
}

}  // namespace QsMaterial
