#include <gtest/gtest.h>

#include "QsUtils/xml/EncodingNames.h"

namespace {

using QsXml::DeclaredEncoding;
using QsXml::ParserEncoding;

TEST(EncodingNames, StandInTheDeclaration) {
    EXPECT_EQ(DeclaredEncoding("<?xml version=\"1.0\" encoding=\"GBK\"?><a/>"), "GBK");
    EXPECT_EQ(DeclaredEncoding("<?xml version='1.0'\n encoding = 'utf-8' standalone='yes'?><a/>"), "utf-8");
    for (const char* bytes :
         {"", "<a/>", "<?xml version=\"1.0\"?><a encoding=\"GBK\"/>", "<?xml encoding?>", "<?xml encoding=?>",
          "<?xml encoding=\"GBK", "<?xml encoding", "<?xml encoding=GBK?>", " <?xml encoding=\"GBK\"?>"})
        EXPECT_EQ(DeclaredEncoding(bytes), "") << bytes;
}

TEST(EncodingNames, TheNamesOfGbkAreToldAsOne) {
    for (const char* name : {"GB2312", "gb2312", "CP936", "windows-936", "MS936", "x-gbk"})
        EXPECT_EQ(ParserEncoding(name), "GBK") << name;
    for (const char* name : {"", "GB231", "GB23122", "GBK", "gbk", "UTF-8", "UTF-16", "ISO-8859-1"})
        EXPECT_EQ(ParserEncoding(name), "") << name;
    EXPECT_TRUE(ParserEncoding("gb18030").empty() || ParserEncoding("gb18030") == "GBK")
        << "where the system doesn't know it";
}

}  // namespace
