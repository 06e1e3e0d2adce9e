// The files of answers that the tests of the platform compare with.
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace Fixture {

inline std::vector<std::string> Lines(const char* name) {
    const std::filesystem::path path = std::filesystem::path(PLATFORM_ANSWERS) / name;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("no fixture " + path.string());
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

inline unsigned Hexadecimal(std::string_view digits) {
    return static_cast<unsigned>(std::stoul(std::string(digits), nullptr, 16));
}

/// The bytes of a fixture: printable ASCII as it is, everything else as \xHH.
inline std::string Bytes(std::string_view field) {
    std::string bytes;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            bytes += field[i];
            continue;
        }
        bytes += static_cast<char>(Hexadecimal(field.substr(i + 2, 2)));
        i += 3;
    }
    return bytes;
}

/// The fields of a line, between tabs.
inline std::vector<std::string> Fields(std::string_view line) {
    std::vector<std::string> fields(1);
    for (const char each : line) {
        if (each == '\t')
            fields.emplace_back();
        else
            fields.back() += each;
    }
    return fields;
}

/// A text of a fixture: UTF-8 without characters of four bytes, where \uXXXX stands for a unit.
inline std::u16string Text(std::string_view field) {
    std::u16string text;
    for (std::size_t i = 0; i < field.size();) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(field.at(i + at)); };
        unsigned unit = byte(0);
        if (unit == '\\') {
            unit = Hexadecimal(field.substr(i + 2, 4));
            i += 6;
        } else if (unit < 0x80) {
            i += 1;
        } else if (unit < 0xE0) {
            unit = (unit & 0x1FU) << 6 | (byte(1) & 0x3FU);
            i += 2;
        } else {
            unit = (unit & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU);
            i += 3;
        }
        text += static_cast<char16_t>(unit);
    }
    return text;
}

}  // namespace Fixture
