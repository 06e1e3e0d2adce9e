// The MD5 message digest (RFC 1321).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace QsMaterial {

/// A running digest. Feed it with `Update` in pieces of any size, then call `Finish` once. Lives on the
/// stack, allocates nothing, never fails. MD5 names things here; it protects nothing.
class Md5 {
public:
    using Digest = std::array<std::uint8_t, 16>;

    void Update(const void* bytes, std::size_t size) noexcept;
    /// The sixteen bytes of the digest, in their published order.
    Digest Finish() noexcept;

private:
    static constexpr std::size_t BlockSize = 64;
    using State = std::array<std::uint32_t, 4>;

    static void Compress(State& state, const std::uint8_t* blocks, std::size_t count) noexcept;

    State m_state{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
    std::uint64_t m_nSize = 0;        // bytes so far
    std::uint8_t m_block[BlockSize];  // its first m_nSize % BlockSize bytes wait for the rest of their block
};

}  // namespace QsMaterial
