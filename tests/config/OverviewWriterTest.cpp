// Overviews that are written into the files of projects.
#include <filesystem>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/config/OverviewFile.h"
#include "QsUtils/xml/XmlAccess.h"

#include "tests/config/FieldList.h"
#include "tests/support/TemporaryFolder.h"

using QsConfig::OverviewSource;
using QsConfig::ReadOverview;
using QsConfig::WriteOverview;

namespace {

class OverviewWriter : public testing::Test {
protected:
    void SetUp() override { m_folder.Write("项目 1.xml", "<?xml version=\"1.0\"?><p a=\"1\"><b/></p>"); }
    CString Path() const { return m_folder.Text("项目 1.xml"); }
    bool Write() { return WriteOverview(Path(), m_list.fields); }
    std::unique_ptr<XMLNode> Tree() const { return std::unique_ptr<XMLNode>(LoadXMLNode(Path().ToWide())); }

    TemporaryFolder m_folder;
    FieldList m_list;
};

TEST_F(OverviewWriter, EveryAttribute) {
    FieldList::Field& field = m_list.Add();
    field.strCode = u"a&b";
    field.strName = u"工程\"名\"称";
    field.strValue = u"not written";
    field.strType = u"t";
    field.nBelongType = 3;
    field.bPrint = true;
    field.bShow = true;
    field.nMantissa = -2;
    field.nIndex1 = 2147483647;
    field.nIndex2 = 5;
    field.bUserDef = true;
    ASSERT_TRUE(Write());
    const std::string bytes = m_folder.Read("项目 1.xml");
    EXPECT_NE(bytes.find("<p a=\"1\"><b/><CProjectOverView><CColInfoLeaf "), bytes.npos) << bytes;
    for (const char* attribute :
         {" Code=\"a&amp;b\"", " Name=\"工程&quot;名&quot;称\"", " Type=\"t\"",
          " BelongType=\"工程概况/电子招投标信息\"", " Print=\"1\"", " Hide=\"0\"", " Mantissa=\"-2\"",
          " Index1=\"2147483647\"", " Index2=\"5\"", " UserDef=\"1\""}) {
        const std::size_t found = bytes.find(attribute);
        EXPECT_NE(found, bytes.npos) << attribute << " in " << bytes;
        EXPECT_EQ(bytes.find(attribute, found + 1), bytes.npos);
    }
    EXPECT_EQ(bytes.find("not written"), bytes.npos);
}

TEST_F(OverviewWriter, AFreshFieldIsHidden) {
    m_list.Add();
    ASSERT_TRUE(Write());
    const std::unique_ptr<XMLNode> root = Tree();
    const XMLNode* const overview = root->FindChildNode(L"CProjectOverView");
    ASSERT_NE(overview, nullptr);
    ASSERT_EQ(overview->Children.size(), 1u);
    const std::map<std::wstring, std::wstring> expected = {
        {L"Code", L""},    {L"Name", L""},    {L"Type", L""},      {L"BelongType", L"工程概况/工程信息"},
        {L"Print", L"0"},  {L"Hide", L"1"},   {L"Mantissa", L"0"}, {L"Index1", L"1"},
        {L"Index2", L"1"}, {L"UserDef", L"0"}};
    EXPECT_EQ(overview->Children[0]->Attributes, expected);
    EXPECT_EQ(overview->Children[0]->Name, L"CColInfoLeaf");
}

TEST_F(OverviewWriter, WhatIsWrittenIsRead) {
    for (int number = 1; number <= 3; ++number) {
        FieldList::Field& field = m_list.Add();
        field.strCode.Format(u"码%d", number);
        field.nBelongType = number;
        field.bShow = number == 2;
        field.bPrint = number != 2;
        field.nIndex1 = 10 - number;
        field.strValue = u"lost";
    }
    ASSERT_TRUE(Write());
    FieldList read;
    ReadOverview(Path(), OverviewSource::Project, read.fields);
    ASSERT_EQ(read.fields.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(read[i].strCode, m_list[i].strCode);
        EXPECT_EQ(read[i].nBelongType, m_list[i].nBelongType);
        EXPECT_EQ(read[i].bShow, m_list[i].bShow);
        EXPECT_EQ(read[i].bPrint, m_list[i].bPrint);
        EXPECT_EQ(read[i].nIndex1, m_list[i].nIndex1);
        EXPECT_EQ(read[i].strValue, u"");
    }
}

TEST_F(OverviewWriter, GroupsOutsideOfTheThreeDontComeBack) {
    for (const int group : {0, 4, -1, 2147483647})
        m_list.Add().nBelongType = group;
    ASSERT_TRUE(Write());
    const std::unique_ptr<XMLNode> root = Tree();
    for (const XMLNode* field : root->FindChildNode(L"CProjectOverView")->Children)
        EXPECT_EQ(field->Attributes.at(L"BelongType"), L"其他信息");
    FieldList read;
    ReadOverview(Path(), OverviewSource::Project, read.fields);
    EXPECT_TRUE(read.fields.empty());
}

TEST_F(OverviewWriter, AnotherOverviewStandsBehindTheFirst) {
    m_list.Add().strCode = u"first";
    ASSERT_TRUE(Write());
    m_list[0].strCode = u"second";
    ASSERT_TRUE(Write());
    const std::unique_ptr<XMLNode> root = Tree();
    ASSERT_EQ(root->Children.size(), 3u);
    EXPECT_EQ(root->Children[2]->Children[0]->Attributes.at(L"Code"), L"second");
    FieldList read;
    ReadOverview(Path(), OverviewSource::Project, read.fields);
    ASSERT_EQ(read.fields.size(), 1u);
    EXPECT_EQ(read[0].strCode, u"first");
}

TEST_F(OverviewWriter, AnEmptyListIsAnEmptyOverview) {
    ASSERT_TRUE(Write());
    EXPECT_NE(m_folder.Read("项目 1.xml").find("<CProjectOverView/>"), std::string::npos);
}

TEST_F(OverviewWriter, ANullFieldIsPassedOver) {
    m_list.Add().strCode = u"a";
    m_list.fields.push_front(nullptr);
    m_list.fields.push_back(nullptr);
    ASSERT_TRUE(Write());
    FieldList read;
    ReadOverview(Path(), OverviewSource::Project, read.fields);
    EXPECT_EQ(read.fields.size(), 1u);
}

TEST_F(OverviewWriter, TheEncodingOfTheFileStays) {
    m_folder.Write("项目 1.xml", "<?xml version=\"1.0\" encoding=\"GBK\"?><p/>");
    m_list.Add().strName = u"砖";
    ASSERT_TRUE(Write());
    EXPECT_NE(m_folder.Read("项目 1.xml").find("Name=\"\xD7\xA9\""), std::string::npos);
}

TEST_F(OverviewWriter, AFileThatCantBeOpenedIsRefused) {
    EXPECT_FALSE(WriteOverview(m_folder.Text("none.xml"), m_list.fields));
    EXPECT_FALSE(WriteOverview(CString(), m_list.fields));
    m_folder.Write("项目 1.xml", "<p>");
    EXPECT_FALSE(Write());
    EXPECT_EQ(m_folder.Read("项目 1.xml"), "<p>");
    EXPECT_FALSE(m_folder.Has("none.xml"));
}

TEST_F(OverviewWriter, AWriteThatFailsIsNotTold) {
    const std::string before = m_folder.Read("项目 1.xml");
    m_list.Add().strName = CString(u"\x01");
    EXPECT_TRUE(Write()) << "no character of XML";
    EXPECT_EQ(m_folder.Read("项目 1.xml"), before);
    m_list[0].strName = u"good";
    using std::filesystem::perms;
    std::filesystem::permissions(m_folder.File("项目 1.xml"), perms::owner_read);
    EXPECT_TRUE(Write()) << "read-only";
    std::filesystem::permissions(m_folder.File("项目 1.xml"), perms::owner_read | perms::owner_write);
    EXPECT_EQ(m_folder.Read("项目 1.xml"), before);
    EXPECT_EQ(m_folder.Entries(), 1) << "something was left behind";
}

}  // namespace
