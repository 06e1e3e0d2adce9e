// Texts of the C interface on their way in and out, beside the C++ functions that they come to.
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>
#include <QsUtils/c_api.h>
#include <gtest/gtest.h>

#include "tests/support/Rounds.h"

namespace {

std::u16string Taken(QsString* text) {
    const QsChar* units = nullptr;
    std::int32_t length = -1;
    EXPECT_EQ(QsString_Units(text, &units, &length), QS_OK);
    EXPECT_EQ(units[length], u'\0');
    std::u16string taken(units, static_cast<std::size_t>(length));
    QsString_Free(text);
    return taken;
}

std::vector<CString> TextsOf(const QsTextList* list) {
    std::vector<CString> texts;
    std::int32_t count = 0;
    EXPECT_EQ(QsTextList_Count(list, &count), QS_OK);
    for (std::int32_t i = 0; i < count; ++i) {
        const QsChar* units = nullptr;
        std::int32_t length = 0;
        EXPECT_EQ(QsTextList_Get(list, i, &units, &length), QS_OK);
        texts.emplace_back(units, length);
    }
    return texts;
}

/// Any units: NULs, surrogates alone and in pairs, separators.
std::u16string RandomText(std::mt19937& random) {
    static constexpr char16_t often[] = {u'\0', u'/', u'-', u'1', u'L', 0xD800, 0xDC00, 0xDBFF, 0x7816};
    std::u16string text(random() % 12, u'\0');
    for (char16_t& unit : text)
        unit = random() % 2 == 0 ? often[random() % std::size(often)] : static_cast<char16_t>(random());
    return text;
}

TEST(CApiTexts, AnyUnitsComeBackAsTheyWere) {
    std::mt19937 random(20);
    for (int i = 0; i < Rounds(100000); ++i) {
        const std::u16string text = RandomText(random);
        const auto length = static_cast<std::int32_t>(text.size());
        QsString* copy = nullptr;
        ASSERT_EQ(QsString_Create(text.data(), length, &copy), QS_OK);
        ASSERT_EQ(Taken(copy), text);
        QsXmlNode* node = nullptr;
        ASSERT_EQ(QsXmlNode_Create(text.data(), length, &node), QS_OK);
        ASSERT_EQ(QsXmlNode_GetName(node, &copy), QS_OK);
        ASSERT_EQ(Taken(copy), text) << "through a wide text";
        QsXmlNode_Free(node);
    }
}

TEST(CApiTexts, TheyAreThoseOfCpp) {
    std::mt19937 random(21);
    for (int i = 0; i < Rounds(50000); ++i) {
        const std::u16string first = RandomText(random);
        const std::u16string second = RandomText(random).substr(0, 2);
        const auto firstLength = static_cast<std::int32_t>(first.size());
        const auto secondLength = static_cast<std::int32_t>(second.size());
        CString text(first);
        QsString* result = nullptr;
        std::int32_t number = 0;
        const bool done = IQsUtils::CutLastSegment(text, CString(second));
        ASSERT_EQ(QsCutLastSegment(first.data(), firstLength, second.data(), secondLength, &result, &number),
                  QS_OK);
        ASSERT_EQ(Taken(result), text.View());
        ASSERT_EQ(number, done);
        ASSERT_EQ(QsCompareQDCode(first.data(), firstLength, second.data(), secondLength, &number), QS_OK);
        ASSERT_EQ(number, IQsUtils::CompareQDCode(CString(first), CString(second)));
        ASSERT_EQ(QsGetStreamMD5(first.data(), firstLength, &result), QS_OK);
        ASSERT_EQ(Taken(result), IQsUtils::GetStreamMD5(CString(first)).View());
    }
}

TEST(CApiTexts, ListsAreThoseOfCpp) {
    std::mt19937 random(22);
    QsTextList* list = nullptr;
    ASSERT_EQ(QsTextList_Create(&list), QS_OK);
    std::list<CString> held;
    for (int i = 0; i < Rounds(20000); ++i) {
        if (held.size() > 20) {
            held.clear();
            ASSERT_EQ(QsTextList_Clear(list), QS_OK);
        }
        const std::u16string text = RandomText(random);
        const bool unique = random() % 2 == 0;
        const bool isFound = IQsUtils::FindVariable(CString(text), held, unique);
        std::int32_t found = 7;
        ASSERT_EQ(QsFindVariable(text.data(), static_cast<std::int32_t>(text.size()), unique, list, &found),
                  QS_OK);
        ASSERT_EQ(found, isFound);
        ASSERT_EQ(TextsOf(list), std::vector<CString>(held.begin(), held.end()));
    }
    QsTextList_Free(list);
}

TEST(CApiTexts, NarrowTextsMayHoldNuls) {
    QsString* text = nullptr;
    ASSERT_EQ(QsAnsiToUnicode("a\0b", 3, &text), QS_OK);
    EXPECT_EQ(Taken(text), u"a") << "up to the first, as in C++";
    ASSERT_EQ(QsAnsiToUnicode(nullptr, 0, &text), QS_OK);
    EXPECT_EQ(Taken(text), u"");
    QsBytes* bytes = nullptr;
    ASSERT_EQ(QsUnicodeToAnsi(u"a\xD800", -1, &bytes), QS_OK);
    const char* data = nullptr;
    std::int32_t length = 0;
    ASSERT_EQ(QsBytes_Data(bytes, &data, &length), QS_OK);
    EXPECT_EQ(std::string(data, static_cast<std::size_t>(length)), "a?");
    QsBytes_Free(bytes);
}

TEST(CApiTexts, ABlockThatNoMemoryHolds) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "a sanitizer ends the process instead";
#else
    void* block = reinterpret_cast<void*>(0x10);
    EXPECT_EQ(QsAllocateExtraCostData(SIZE_MAX / 2, &block), QS_OUT_OF_MEMORY);
    EXPECT_EQ(block, nullptr);
#endif
}

TEST(CApiTexts, AnExceptionOfCppIsAStatus) {
    QsString* text = reinterpret_cast<QsString*>(0x10);
    EXPECT_EQ(QsRemoveRelativeDirectoryFromPath(u"a\\.\\b", -1, &text), QS_FAILED);
    EXPECT_EQ(text, nullptr);
}

}  // namespace
