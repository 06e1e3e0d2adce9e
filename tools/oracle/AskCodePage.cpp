// Writes what Windows answers for code page 936, as the fixture that the tests compare with. See README.md.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <windows.h>

namespace {

constexpr UINT Page = 936;

std::wstring Decode(const std::string& bytes) {
    std::wstring units(8, L'\0');
    const int length =
        MultiByteToWideChar(Page, 0, bytes.data(), static_cast<int>(bytes.size()), units.data(), 8);
    units.resize(static_cast<std::size_t>(length));
    return units;
}

std::string Encode(wchar_t unit) {
    std::string bytes(8, '\0');
    const int size = WideCharToMultiByte(Page, 0, &unit, 1, bytes.data(), 8, nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

void Require(bool held, const char* rule) {
    if (held)
        return;
    std::fprintf(stderr, "The fixture rests on a rule that doesn't hold here: %s\n", rule);
    std::exit(1);
}

bool IsLead(int byte) {
    return byte >= 0x81 && byte <= 0xFE;
}

bool IsTrail(int byte) {
    return byte >= 0x40 && byte <= 0xFE && byte != 0x7F;
}

std::string Pair(int lead, int trail) {
    return {static_cast<char>(lead), static_cast<char>(trail)};
}

void WriteSingles() {
    for (int byte = 0x80; byte <= 0xFF; ++byte) {
        const std::wstring units = Decode(std::string(1, static_cast<char>(byte)));
        Require(units.size() == 1, "a byte alone is one unit");
        if (IsLead(byte))
            Require(units[0] == L'?', "a lead byte at the end is a question mark");
        else
            std::printf("single %02X %04X\n", byte, units[0]);
    }
}

void WritePairs() {
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
        std::printf("pairs %02X ", lead);
        for (int trail = 0; trail <= 0xFF; ++trail) {
            const std::wstring units = Decode(Pair(lead, trail));
            if (trail == 0) {
                Require(units == std::wstring(L"?\0", 2), "a NUL is no trail byte");
                continue;
            }
            Require(units.size() == 1, "a lead byte takes the next one along");
            if (IsTrail(trail))
                std::printf("%04X", units[0]);
            else
                Require(units[0] == L'?', "a broken pair is a question mark");
        }
        std::printf("\n");
    }
}

/// The units that some pair stands for encode as that pair; the others that have an answer are written.
void WriteFits() {
    for (int unit = 0x80; unit <= 0xFFFF; ++unit) {
        const std::string bytes = Encode(static_cast<wchar_t>(unit));
        const std::wstring back = Decode(bytes);
        if (bytes == "?" || (back.size() == 1 && back[0] == unit))
            continue;
        std::printf("fit %04X ", unit);
        for (const char byte : bytes)
            std::printf("%02X", static_cast<unsigned char>(byte));
        std::printf("\n");
    }
}

}  // namespace

int main() {
    WriteSingles();
    WritePairs();
    WriteFits();
    return 0;
}
