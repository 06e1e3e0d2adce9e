#include <iterator>
#include <sstream>

#include <gtest/gtest.h>

#include "EnglishText.h"
#include "InputText.h"

using namespace Estimate;

namespace {

struct Detected {
    InputText text;
    std::string rest;
};

Detected Detect(const std::string& bytes) {
    std::istringstream in(bytes);
    Detected detected;
    detected.text = DetectText(in);
    detected.rest.assign(std::istreambuf_iterator<char>(in), {});
    return detected;
}

}  // namespace

TEST(InputText, Utf8WithAndWithoutMark) {
    EXPECT_EQ(Detect("编码").text.encoding, Encoding::Utf8);
    EXPECT_EQ(Detect("编码").rest, "编码");
    EXPECT_EQ(Detect("\xEF\xBB\xBF编码").text.encoding, Encoding::Utf8);
    EXPECT_EQ(Detect("\xEF\xBB\xBF编码").rest, "编码");
    EXPECT_EQ(Detect("").text.encoding, Encoding::Utf8);
    EXPECT_EQ(Detect("\xEF\xBB\xBF编码").text.size, 9u);
}

TEST(InputText, EverythingElseIsGbk) {
    EXPECT_EQ(Detect("\xB1\xE0\xC2\xEB").text.encoding, Encoding::Gbk);
    EXPECT_EQ(Detect("\xB1\xE0\xC2\xEB").rest, "\xB1\xE0\xC2\xEB");
    // One malformed byte at the very end of a long text decides.
    EXPECT_EQ(Detect(std::string(600'000, 'a') + "\xE4").text.encoding, Encoding::Gbk);
    EXPECT_EQ(DecodeField("\xB1\xE0\xC2\xEB", Encoding::Gbk), "编码");
    EXPECT_EQ(DecodeField("编码", Encoding::Utf8), "编码");
}

TEST(InputText, NoText) {
    EXPECT_EQ(Detect("\xFF\xFE"
                     "a")
                  .text.refusal,
              "the text is UTF-16; save it as CSV in UTF-8 or GBK");
    EXPECT_EQ(Detect("\xFE\xFF"
                     "a")
                  .text.refusal,
              "the text is UTF-16; save it as CSV in UTF-8 or GBK");
    EXPECT_EQ(Detect(std::string("a\0b", 3)).text.refusal, "this is no text: it holds NUL bytes");
    EXPECT_EQ(Detect("a").text.refusal, "");
}

namespace {

bool StartsMarkup(const std::string& bytes) {
    std::istringstream in(bytes);
    const bool is = IsMarkup(in);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), bytes);
    return is;
}

std::string Wide(const std::string& ascii, bool swapped) {
    std::string bytes;
    for (const char byte : ascii)
        bytes.append(swapped ? std::string{0, byte} : std::string{byte, 0});
    return bytes;
}

}  // namespace

TEST(InputText, MarkupIsToldByItsFirstCharacter) {
    const std::string document = "<Project/>";
    EXPECT_TRUE(StartsMarkup(document));
    EXPECT_TRUE(StartsMarkup(" \t\r\n" + document));
    EXPECT_TRUE(StartsMarkup("\xEF\xBB\xBF" + document));
    EXPECT_TRUE(StartsMarkup("\xEF\xBB\xBF\n" + document));
    for (const bool swapped : {false, true}) {
        const std::string mark = swapped ? "\xFE\xFF" : "\xFF\xFE";
        EXPECT_TRUE(StartsMarkup(mark + Wide(document, swapped)));
        EXPECT_TRUE(StartsMarkup(mark + Wide(" \n" + document, swapped)));
        EXPECT_TRUE(StartsMarkup(Wide(document, swapped)));
        EXPECT_FALSE(StartsMarkup(mark + Wide("code", swapped)));
    }
    EXPECT_TRUE(StartsMarkup(std::string(1 << 20, ' ') + document));
    for (const char* text :
         {"", " ", "code,name", ",<", "\"<\"", "\xEF\xBB\xBF", "\xEF\xBB<", "x<a/>", "\xFF<"})
        EXPECT_FALSE(StartsMarkup(text)) << text;
    EXPECT_FALSE(StartsMarkup(std::string(1 << 20, ' ')));
}
