#include <array>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/frame/IQsUtils1.h"
#include "QsUtils/material/MaterialDigest.h"

#include "PlainMd5.h"

using QsMaterial::MaterialMd5;
using QsMaterial::StreamMd5;

namespace {

CString PlainDigest(const CString& text) {
    std::vector<std::uint8_t> bytes;
    for (const char16_t unit : text.View()) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    CString result;
    for (const std::uint8_t byte : PlainMd5(bytes))
        result.AppendFormat(u"%02x", static_cast<int>(byte));
    return result;
}

std::array<CString*, 8> TextFields(CommonMaterialKey& key) {
    return {&key.strKeyText1, &key.strKeyText2, &key.strKeyText3, &key.strKeyText4,
            &key.strKeyText5, &key.strKeyText6, &key.strKeyText7, &key.strKeyText8};
}

/// Ten texts joined by tabs, as the digest of a record is told.
CString PlainMaterialDigest(CommonMaterialKey key) {
    const auto texts = TextFields(key);
    CString joined = *texts[0];
    for (std::size_t i = 1; i < 7; ++i)
        joined += u'\t' + *texts[i];
    joined += key.bKeyFlag1 ? u"\t1" : u"\t0";
    joined += key.bKeyFlag2 ? u"\t1" : u"\t0";
    return PlainDigest(joined + u'\t' + *texts[7]);
}

CommonMaterialKey Steel() {
    CommonMaterialKey key;
    key.strKeyText1 = u"01010401";
    key.strKeyText2 = u"螺纹钢筋";
    key.strKeyText3 = u"HRB400 Φ16";
    key.strKeyText4 = u"t";
    key.bKeyFlag2 = true;
    key.strKeyText8 = u"3860.00";
    return key;
}

}  // namespace

TEST(StreamMd5, TheEmptyTextHasTheDigestOfNoBytes) {
    EXPECT_EQ(StreamMd5(u""), u"d41d8cd98f00b204e9800998ecf8427e");
}

TEST(StreamMd5, EachLetterIsTwoBytes) {
    EXPECT_EQ(StreamMd5(u"abc"), u"ce1473cf80c6b3fda8e3dfc006adc315");
    EXPECT_NE(StreamMd5(u"abc"), u"900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(StreamMd5(u"钢筋"), u"11253d295c9a88b7b7b8d731c04901b4");
}

TEST(StreamMd5, ACharacterOutsideOfThePlaneIsItsTwoSurrogates) {
    EXPECT_EQ(StreamMd5(u"𠀀"), u"9b67e18ebac15bf37b46807752b86aa6");
    EXPECT_EQ(StreamMd5(u"\xD840\xDC00"), StreamMd5(u"𠀀"));
}

TEST(StreamMd5, NulsCount) {
    using namespace std::string_literals;
    EXPECT_NE(StreamMd5(u"a\0b"s), StreamMd5(u"a"s));
    EXPECT_EQ(StreamMd5(u"a\0b"s), PlainDigest(u"a\0b"s));
}

TEST(StreamMd5, DigitsAreLowerCaseHexadecimal) {
    for (int i = 0; i < 200; ++i) {
        CString text;
        text.Format(u"%d", i);
        const CString digest = StreamMd5(text);
        EXPECT_EQ(digest.GetLength(), 32);
        EXPECT_EQ(digest.SpanIncluding(u"0123456789abcdef"), digest);
    }
}

TEST(StreamMd5, RandomTextsAgreeWithThePlainDigest) {
    std::mt19937 random(12);
    for (int round = 0; round < 10'000; ++round) {
        std::u16string text(random() % 150, u'\0');
        for (char16_t& unit : text)
            unit = static_cast<char16_t>(random());
        ASSERT_EQ(StreamMd5(text), PlainDigest(text));
    }
}

TEST(MaterialMd5, AnEmptyRecordIsNineTabsAndTwoZeros) {
    EXPECT_EQ(MaterialMd5(CommonMaterialKey()), StreamMd5(u"\t\t\t\t\t\t\t0\t0\t"));
    EXPECT_EQ(MaterialMd5(CommonMaterialKey()), u"e033423dae71a24c2a78e562d2010618");
}

TEST(MaterialMd5, FieldsAreJoinedByTabs) {
    EXPECT_EQ(MaterialMd5(Steel()), StreamMd5(u"01010401\t螺纹钢筋\tHRB400 Φ16\tt\t\t\t\t0\t1\t3860.00"));
}

TEST(MaterialMd5, SwappedFieldsChangeTheDigest) {
    CommonMaterialKey key = Steel();
    const CString before = MaterialMd5(key);
    swap(key.strKeyText1, key.strKeyText2);
    EXPECT_NE(MaterialMd5(key), before);
}

TEST(MaterialMd5, ALetterMovedToTheNextFieldChangesTheDigest) {
    CommonMaterialKey a;
    a.strKeyText1 = u"ab";
    a.strKeyText2 = u"c";
    CommonMaterialKey b;
    b.strKeyText1 = u"a";
    b.strKeyText2 = u"bc";
    EXPECT_NE(MaterialMd5(a), MaterialMd5(b));
}

TEST(MaterialMd5, NothingIsTrimmedOrFolded) {
    const CommonMaterialKey key = Steel();
    CommonMaterialKey blank = key;
    blank.strKeyText2 += u' ';
    EXPECT_NE(MaterialMd5(blank), MaterialMd5(key));
    CommonMaterialKey upper = key;
    upper.strKeyText4 = u"T";
    EXPECT_NE(MaterialMd5(upper), MaterialMd5(key));
}

TEST(MaterialMd5, ATabInAFieldIsNotEscaped) {
    CommonMaterialKey a;
    a.strKeyText1 = u"x\t";
    a.strKeyText2 = u"";
    EXPECT_EQ(MaterialMd5(a), StreamMd5(u"x\t\t\t\t\t\t\t\t0\t0\t"));
}

TEST(MaterialMd5, AnyFlagByteButZeroIsOne) {
    CommonMaterialKey one;
    one.bKeyFlag1 = one.bKeyFlag2 = true;
    CommonMaterialKey odd;
    std::memset(static_cast<void*>(&odd.bKeyFlag1), 0x80, 1);
    std::memset(static_cast<void*>(&odd.bKeyFlag2), 0x02, 1);
    EXPECT_EQ(MaterialMd5(odd), MaterialMd5(one));
    EXPECT_NE(MaterialMd5(odd), MaterialMd5(CommonMaterialKey()));
}

TEST(MaterialMd5, RandomRecordsAgreeWithThePlainDigest) {
    std::mt19937 random(13);
    for (int round = 0; round < 10'000; ++round) {
        CommonMaterialKey key;
        for (CString* text : TextFields(key)) {
            std::u16string units(random() % 4 == 0 ? random() % 80 : random() % 8, u'\0');
            for (char16_t& unit : units)
                unit = random() % 8 == 0 ? u'\t' : static_cast<char16_t>(random());
            *text = units;
        }
        key.bKeyFlag1 = random() % 2 == 0;
        key.bKeyFlag2 = random() % 2 == 0;
        ASSERT_EQ(MaterialMd5(key), PlainMaterialDigest(key)) << round;
    }
}

TEST(MaterialMd5, FacadesForward) {
    CommonMaterialKey key = Steel();
    EXPECT_EQ(IQsUtils1::GenerateMaterialMD5(&key), MaterialMd5(key));
    EXPECT_EQ(IQsUtils::GetStreamMD5(u"钢筋"), StreamMd5(u"钢筋"));
}
