#include "QsUtils/material/MaterialDigest.h"

#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "QsUtils/material/Md5.h"

namespace QsMaterial {

namespace {

void Add(Md5& digest, std::u16string_view text) {
    digest.Update(text.data(), text.size() * sizeof(char16_t));
}

/// Both digits of every byte, because a digest of a short text takes little longer than its sixteen bytes.
constexpr std::array<std::array<char16_t, 2>, 0x100> MakeDigits() {
    constexpr std::u16string_view Digits = u"0123456789abcdef";
    std::array<std::array<char16_t, 2>, 0x100> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte)
        pairs[byte] = {Digits[byte >> 4], Digits[byte & 0x0F]};
    return pairs;
}

constexpr std::array<std::array<char16_t, 2>, 0x100> HexadecimalDigits = MakeDigits();

CString Hexadecimal(const Md5::Digest& digest) {
    std::u16string text(digest.size() * 2, u'\0');
    for (std::size_t i = 0; i < digest.size(); ++i)
        std::memcpy(&text[2 * i], HexadecimalDigits[digest[i]].data(), sizeof HexadecimalDigits[0]);
    return CString(std::move(text));
}

/// A host in another language may store any non-zero byte in a flag, so the byte is read and not the bool.
bool IsSet(const bool& flag) {
    return *reinterpret_cast<const unsigned char*>(&flag) != 0;
}

}  // namespace

CString StreamMd5(const CString& text) {
    Md5 digest;
    Add(digest, text.View());
    return Hexadecimal(digest.Finish());
}

CString MaterialMd5(const CommonMaterialKey& key) {
    Md5 digest;
    const CString* const heads[] = {&key.strKeyText1, &key.strKeyText2, &key.strKeyText3, &key.strKeyText4,
                                    &key.strKeyText5, &key.strKeyText6, &key.strKeyText7};
    for (const CString* text : heads) {
        Add(digest, text->View());
        Add(digest, u"\t");
    }
    Add(digest, IsSet(key.bKeyFlag1) ? u"1\t" : u"0\t");
    Add(digest, IsSet(key.bKeyFlag2) ? u"1\t" : u"0\t");
    Add(digest, key.strKeyText8.View());
    return Hexadecimal(digest.Finish());
}

}  // namespace QsMaterial
