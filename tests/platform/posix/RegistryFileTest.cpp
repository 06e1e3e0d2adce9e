// The files of Wine's registry, line by line, at random and broken.
#include <map>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/platform/posix/RegistryFile.h"

#include "tests/support/Rounds.h"
#include "tests/support/SharedObject.h"

using QsPlatform::FindDefaultValue;

namespace {

const std::string Head = "WINE REGISTRY Version 2\n";

std::optional<std::string> DefaultOf(const std::string& body, std::u16string_view key = u"A\\B") {
    return FindDefaultValue(Head + body, key);
}

std::optional<std::string> Text(std::u16string text) {
    return TextBytes(text + u'\0');
}

TEST(RegistryFile, TextsUnderTheirKeys) {
    EXPECT_EQ(DefaultOf("[A\\\\B] 1\n@=\"x\"\n"), Text(u"x"));
    EXPECT_EQ(DefaultOf("[A] 1\n@=\"x\"\n"), std::nullopt);
    EXPECT_EQ(DefaultOf("[A\\\\B\\\\C] 1\n@=\"x\"\n"), std::nullopt);
    EXPECT_EQ(DefaultOf("[a\\\\b]\n@=\"x\"\n"), Text(u"x"));
    EXPECT_EQ(DefaultOf("[A\\\\B] 1\n\"n\"=\"x\"\n"), std::nullopt);
    EXPECT_EQ(DefaultOf("@=\"x\"\n[A\\\\B] 1\n"), std::nullopt);
    EXPECT_EQ(DefaultOf("[A\\\\B] 1\n[C] 1\n@=\"x\"\n"), std::nullopt);
    EXPECT_EQ(DefaultOf("[A\\\\B] 1\n#time=1\n\n;c\n  @ = \"x\""), Text(u"x"));
    EXPECT_EQ(DefaultOf("[A\\\\B] 1\n@=\"x\"\n[C]\n[A\\\\B] 1\n@=\"y\"\n"), Text(u"y"));
    EXPECT_EQ(DefaultOf("[A\\\\B] 1\n@=\"\"\n"), Text(u""));
    EXPECT_EQ(DefaultOf("[A\\\\B] 1\r\n@=\"x\"\r\n"), Text(u"x"));
}

TEST(RegistryFile, OnlyAFileWithItsFirstLineIsOne) {
    const std::string body = "[A\\\\B] 1\n@=\"x\"\n";
    EXPECT_EQ(FindDefaultValue("WINE REGISTRY Version 2\r\n" + body, u"A\\B"), Text(u"x"));
    for (const char* head : {"", "WINE REGISTRY Version 1\n", "REGEDIT4\n", "\nWINE REGISTRY Version 2\n",
                             "WINE REGISTRY Version 2 \n"})
        EXPECT_EQ(FindDefaultValue(head + body, u"A\\B"), std::nullopt) << head;
}

TEST(RegistryFile, Escapes) {
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=\"\\\"\\\\\\a\\b\\e\\f\\n\\r\\t\\v\\[\"\n"),
              Text(u"\"\\\a\b\x1B\f\n\r\t\v["));
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=\"\\x4e2dx\\x41z\\x\\0\\101\\1019\\9\"\n"),
              Text(std::u16string(u"\u4e2dxAzx") + u'\0' + u"AA99"));
    EXPECT_EQ(DefaultOf("[\\x4e2d\\]\\[]\n@=\"x\"\n", u"\u4e2d]["), Text(u"x"));
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=\"\\xffff\\777\"\n"), Text(u"\xFFFF\x01FF"));
}

TEST(RegistryFile, OtherTypes) {
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=str(2):\"x\"\n"), Text(u"x"));
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=str:\"x\"\n"), Text(u"x"));
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=dword:00360031\n"), std::string("1\0006\0", 4));
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=hex:31,00,36,00\n"), std::string("1\0006\0", 4));
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=hex(2):31,00,\\\n  36,00\n"), std::string("1\0006\0", 4));
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=hex(2):31,\\"), std::string("1"));
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=hex:\n"), std::string());
}

TEST(RegistryFile, LinesThatSayNothing) {
    for (const char* line :
         {"@", "@=", "@=\"x", "@=x", "@=dword:", "@=dword:g", "@=hex:g", "@=hex(:1", "@=hex(2:31",
          "@=str(2):x", "@=str", "@=hex", "@\"x\"", "@=\"x\\", "@=str:\"", "@=str(g):\"x\""})
        EXPECT_EQ(DefaultOf(std::string("[A\\\\B]\n") + line), std::nullopt) << line;
    EXPECT_EQ(DefaultOf("[A\\\\B\n@=\"x\"\n"), std::nullopt);
    EXPECT_EQ(DefaultOf("["), std::nullopt);
    EXPECT_EQ(DefaultOf("[A\\\\B]\n@=\"y\"\n@=\"x\n"), Text(u"y"));
}

/// A text as Wine writes it.
std::string Escaped(std::u16string_view text, std::string_view marks) {
    static constexpr std::u16string_view Controls = u"\a\b\x1B\f\n\r\t\v";
    std::string escaped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        char code[8];
        if (unit > 127)
            std::snprintf(code, sizeof code, "\\x%04x", static_cast<unsigned>(unit));
        else if (const std::size_t at = Controls.find(unit); at != Controls.npos)
            std::snprintf(code, sizeof code, "\\%c", "abefnrtv"[at]);
        else if (unit < 32)
            std::snprintf(code, sizeof code, "\\%03o", static_cast<unsigned>(unit));
        else if (unit == u'\\' || marks.find(static_cast<char>(unit)) != marks.npos)
            std::snprintf(code, sizeof code, "\\%c", static_cast<char>(unit));
        else
            std::snprintf(code, sizeof code, "%c", static_cast<char>(unit));
        escaped += code;
    }
    return escaped;
}

TEST(RegistryFile, RandomRegistriesAndBrokenOnes) {
    std::mt19937 random(136);
    const auto text = [&](std::u16string_view alphabet, unsigned length) {
        std::u16string made;
        for (auto left = random() % length + 1; left > 0; --left)
            made += alphabet[random() % alphabet.size()];
        return made;
    };
    for (int round = 0; round < Rounds(60'000); ++round) {
        std::map<std::u16string, std::u16string> values;
        std::string body;
        for (int key = 0; key < 4; ++key) {
            const std::u16string name = text(u"xy[]\\中\n\"", 4);
            const std::u16string value = text(std::u16string_view(u"ab\\\"[]中\0\n\x01", 10), 6);
            body += "[" + Escaped(name, "[]") + "] 1\n@=\"" + Escaped(value, "\"") + "\"\n";
            values[name] = value;
        }
        for (const auto& [name, value] : values)
            ASSERT_EQ(DefaultOf(body, name), Text(value)) << body;
        // Whatever becomes of the bytes, an answer comes.
        for (auto changes = random() % 8; changes > 0; --changes)
            body[random() % body.size()] = static_cast<char>(random());
        DefaultOf(body.substr(0, random() % body.size()), values.begin()->first);
    }
}

}  // namespace
