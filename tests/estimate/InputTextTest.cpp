#include <iterator>
#include <sstream>

#include <gtest/gtest.h>

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
