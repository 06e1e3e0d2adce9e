#include <gtest/gtest.h>

#include "QsUtils/xml/EncodingNames.h"

namespace {

using QsXml::DeclaredEncoding;
using QsXml::NamesGb2312;

TEST(EncodingNames, StandInTheDeclaration) {
    EXPECT_EQ(DeclaredEncoding("<?xml version=\"1.0\" encoding=\"GBK\"?><a/>"), "GBK");
    EXPECT_EQ(DeclaredEncoding("<?xml version='1.0'\n encoding = 'utf-8' standalone='yes'?><a/>"), "utf-8");
    for (const char* bytes :
         {"", "<a/>", "<?xml version=\"1.0\"?><a encoding=\"GBK\"/>", "<?xml encoding?>", "<?xml encoding=?>",
          "<?xml encoding=\"GBK", "<?xml encoding", "<?xml encoding=GBK?>", " <?xml encoding=\"GBK\"?>"})
        EXPECT_EQ(DeclaredEncoding(bytes), "") << bytes;
}

TEST(EncodingNames, Gb2312IsToldWithoutCase) {
    EXPECT_TRUE(NamesGb2312("GB2312"));
    EXPECT_TRUE(NamesGb2312("gb2312"));
    for (const char* name : {"", "GB231", "GB23122", "GBK", "GB18030", "UTF-8"})
        EXPECT_FALSE(NamesGb2312(name)) << name;
}

TEST(EncodingNames, GbkIsKnown) {
    EXPECT_EQ(std::u16string_view(QsXml::GbkName()), u"GBK");
}

}  // namespace
