#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/material/Md5.h"

#include "PlainMd5.h"

using QsMaterial::Md5;

namespace {

std::string Hexadecimal(const Md5::Digest& digest) {
    std::string text;
    for (const std::uint8_t byte : digest) {
        text += "0123456789abcdef"[byte >> 4];
        text += "0123456789abcdef"[byte & 0x0F];
    }
    return text;
}

std::string DigestOf(std::string_view bytes) {
    Md5 md5;
    md5.Update(bytes.data(), bytes.size());
    return Hexadecimal(md5.Finish());
}

std::vector<std::uint8_t> RandomBytes(std::mt19937& random, std::size_t size) {
    std::vector<std::uint8_t> bytes(size);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(random());
    return bytes;
}

}  // namespace

TEST(Md5, PublishedTestSuite) {
    EXPECT_EQ(DigestOf(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(DigestOf("a"), "0cc175b9c0f1b6a831c399e269772661");
    EXPECT_EQ(DigestOf("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(DigestOf("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(DigestOf("abcdefghijklmnopqrstuvwxyz"), "c3fcd3d76192e4007dfb496cca67e13b");
    EXPECT_EQ(DigestOf("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"),
              "d174ab98d277d9f5a5611c2c9f419d9f");
    EXPECT_EQ(DigestOf("12345678901234567890123456789012345678901234567890123456789012345678901234567890"),
              "57edf4a22be3c955ac49da2e2107b67a");
}

TEST(Md5, EveryLengthAroundTheBlocks) {
    std::mt19937 random(1321);
    for (std::size_t size = 0; size <= 400; ++size) {
        const std::vector<std::uint8_t> bytes = RandomBytes(random, size);
        Md5 md5;
        md5.Update(bytes.data(), size);
        ASSERT_EQ(md5.Finish(), PlainMd5(bytes)) << size;
    }
}

TEST(Md5, AnyPiecesGiveTheSameDigest) {
    std::mt19937 random(1322);
    for (int round = 0; round < 30'000; ++round) {
        const std::vector<std::uint8_t> bytes = RandomBytes(random, random() % 600);
        Md5 md5;
        for (std::size_t at = 0; at < bytes.size();) {
            const std::size_t size = std::min<std::size_t>(random() % 130, bytes.size() - at);
            md5.Update(bytes.data() + at, size);
            at += size;
        }
        ASSERT_EQ(md5.Finish(), PlainMd5(bytes)) << round;
    }
}

TEST(Md5, NothingMayBeAddedFromNowhere) {
    Md5 md5;
    md5.Update("ab", 2);
    md5.Update(nullptr, 0);
    md5.Update("c", 1);
    EXPECT_EQ(Hexadecimal(md5.Finish()), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(Md5, BytesMayLieAnywhere) {
    std::mt19937 random(1323);
    const std::vector<std::uint8_t> bytes = RandomBytes(random, 1000);
    for (std::size_t at = 0; at < 16; ++at) {
        Md5 md5;
        md5.Update(bytes.data() + at, 700);
        const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        EXPECT_EQ(md5.Finish(), PlainMd5({from, from + 700})) << at;
    }
}

TEST(Md5, LengthsBeyondFourGigabitsCount) {
    // 512 MiB and one block: the number of bits needs more than 32 of them.
    const std::string chunk(1 << 20, 'x');
    Md5 whole;
    for (int i = 0; i < 512; ++i)
        whole.Update(chunk.data(), chunk.size());
    whole.Update(chunk.data(), 64);
    // As computed by md5sum of coreutils.
    EXPECT_EQ(Hexadecimal(whole.Finish()), "f84c8dd461bf3feb8b37c921ba6f47da");
}
