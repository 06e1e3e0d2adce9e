// The fields of an overview as they stand in files.
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/config/OverviewFile.h"
#include "QsUtils/xml/XmlAccess.h"

#include "tests/config/FieldList.h"
#include "tests/support/Rounds.h"
#include "tests/support/TemporaryFolder.h"

using QsConfig::OverviewSource;
using QsConfig::ReadOverview;

namespace {

constexpr const char* Information = "BelongType=\"工程信息\"";

class OverviewReader : public testing::Test {
protected:
    /// Reads fields below the root.
    void ReadOffer(const std::string& children) {
        m_folder.Write("f.xml", "<r>" + children + "</r>");
        ReadOverview(m_folder.Text("f.xml"), OverviewSource::Offer, m_list.fields);
    }
    /// Reads a project's file.
    void ReadProject(const std::string& contents) {
        m_folder.Write("f.xml", contents);
        ReadOverview(m_folder.Text("f.xml"), OverviewSource::Project, m_list.fields);
    }

    TemporaryFolder m_folder;
    FieldList m_list;
};

TEST_F(OverviewReader, AllAttributes) {
    ReadOffer(
        "<any Code=\"GCMC\" Name=\"工程名称\" Type=\"text\" BelongType=\"工程概况/工程特征内容\" Print=\"1\" "
        "Hide=\"0\" Mantissa=\"3\" Index1=\"7\" Index2=\"8\" UserDef=\"2\" Value=\"x\"/>");
    ASSERT_EQ(m_list.fields.size(), 1u);
    const FieldList::Field& field = m_list[0];
    EXPECT_EQ(field.strCode, u"GCMC");
    EXPECT_EQ(field.strName, u"工程名称");
    EXPECT_EQ(field.strValue, u"");
    EXPECT_EQ(field.strType, u"text");
    EXPECT_EQ(field.nBelongType, 2);
    EXPECT_TRUE(field.bPrint);
    EXPECT_TRUE(field.bUserDef);
    EXPECT_TRUE(field.bShow);
    EXPECT_EQ(field.nMantissa, 3);
    EXPECT_EQ(field.nIndex1, 1) << "numbered, whatever the file says";
    EXPECT_EQ(field.nIndex2, 8);
}

TEST_F(OverviewReader, AbsentAttributesLeaveWhatAFreshFieldHas) {
    ReadOffer("<f " + std::string(Information) + "/>");
    ReadProject("<p><CProjectOverView><f " + std::string(Information) + "/></CProjectOverView></p>");
    ASSERT_EQ(m_list.fields.size(), 2u);
    for (const FieldList::Field* field : m_list.fields) {
        EXPECT_EQ(field->strCode + field->strName + field->strType + field->strValue, u"");
        EXPECT_EQ(field->nBelongType, 1);
        EXPECT_FALSE(field->bPrint);
        EXPECT_FALSE(field->bUserDef);
        EXPECT_FALSE(field->bShow);
        EXPECT_EQ(field->nMantissa, 0);
        EXPECT_EQ(field->nIndex1, 1);
        EXPECT_EQ(field->nIndex2, 1);
    }
}

TEST_F(OverviewReader, FlagsAreWholeNumbers) {
    const auto with = [](const std::string& value) {
        return "<f " + std::string(Information) + " Print=\"" + value + "\" UserDef=\"" + value +
               "\" Hide=\"" + value + "\"/>";
    };
    ReadOffer(with("1") + with("-1") + with("12x") + with(" 3") + with("0") + with("") + with("true") +
              with("0.9") + with("x1"));
    ASSERT_EQ(m_list.fields.size(), 9u);
    for (std::size_t i = 0; i < 9; ++i) {
        EXPECT_EQ(m_list[i].bPrint, i < 4) << i;
        EXPECT_EQ(m_list[i].bUserDef, i < 4) << i;
        EXPECT_EQ(m_list[i].bShow, i >= 4) << i;
    }
}

TEST_F(OverviewReader, GroupsByTheirTexts) {
    std::string children;
    for (const char* text :
         {"工程信息", "工程概况/工程信息", "工程特征内容", "工程概况/工程特征内容", "电子招投标信息",
          "工程概况/电子招投标信息", "工程概况", "工程概况/", "x工程概况y", "工程概况/其他信息"})
        children += "<f BelongType=\"" + std::string(text) + "\"/>";
    ReadOffer(children);
    ASSERT_EQ(m_list.fields.size(), 10u);
    const int groups[] = {1, 1, 2, 2, 3, 3, 0, 0, 0, 0};
    for (std::size_t i = 0; i < 10; ++i)
        EXPECT_EQ(m_list[i].nBelongType, groups[i]) << i;
}

TEST_F(OverviewReader, OthersArePassedOverAndCounted) {
    ReadOffer("<f " + std::string(Information) +
              "/><f BelongType=\"其他信息\"/><f/><f BelongType=\"\"/><f BelongType=\"工程信息 \"/>"
              "<f BelongType=\"概况\"/><f " +
              Information + "/>");
    ASSERT_EQ(m_list.fields.size(), 2u);
    EXPECT_EQ(m_list[0].nIndex1, 1);
    EXPECT_EQ(m_list[1].nIndex1, 7);
}

TEST_F(OverviewReader, AProjectHasItsFieldsInTheFirstOverviewAndNumbersThemItself) {
    ReadProject("<p><f " + std::string(Information) + "/><x><CProjectOverView><f " + Information +
                "/></CProjectOverView></x><CProjectOverView><CColInfoLeaf Code=\"1\" Index1=\"9\" " +
                Information + "/><any Code=\"2\" " + Information + "><f " + Information +
                "/></any></CProjectOverView><CProjectOverView><CColInfoLeaf Code=\"3\" " + Information +
                "/></CProjectOverView></p>");
    ASSERT_EQ(m_list.fields.size(), 2u);
    EXPECT_EQ(m_list[0].strCode, u"1");
    EXPECT_EQ(m_list[0].nIndex1, 9);
    EXPECT_EQ(m_list[1].strCode, u"2");
    EXPECT_EQ(m_list[1].nIndex1, 1);
}

TEST_F(OverviewReader, NewFieldsComeBehindTheOldOnes) {
    m_list.Add().strCode = u"old";
    ReadProject("<p><CProjectOverView><f Code=\"new\" " + std::string(Information) +
                "/></CProjectOverView></p>");
    ASSERT_EQ(m_list.fields.size(), 2u);
    EXPECT_EQ(m_list[0].strCode, u"old");
    EXPECT_EQ(m_list[1].strCode, u"new");
}

TEST_F(OverviewReader, BadFilesAddNothing) {
    m_list.Add();
    ReadProject("<p><CProjectOverView/></p>");
    ReadProject("<p/>");
    ReadProject("<cProjectOverView/>");
    for (const char* contents : {"", "x", "<p><CProjectOverView>", "<p></q>"}) {
        ReadProject(contents);
        ReadOverview(m_folder.Text("f.xml"), OverviewSource::Offer, m_list.fields);
    }
    for (const char* name : {"none.xml", "."}) {
        ReadOverview(m_folder.Text(name), OverviewSource::Offer, m_list.fields);
        ReadOverview(m_folder.Text(name), OverviewSource::Project, m_list.fields);
    }
    ReadOverview(CString(), OverviewSource::Project, m_list.fields);
    EXPECT_EQ(m_list.fields.size(), 1u);
}

// --- Random files, compared with a reading of their trees by the rules one by one

class RandomFile {
public:
    explicit RandomFile(unsigned seed) : m_random(seed) {}

    std::string Project() {
        std::string text = "<p>";
        for (unsigned left = Below(3); left > 0; --left)
            text += Below(4) == 0 ? "<other/>" : Fields("CProjectOverView");
        return text + "</p>";
    }
    std::string Fields(const std::string& name) {
        std::string text = "<" + name + ">";
        for (unsigned left = Below(6); left > 0; --left)
            text += Field();
        return text + "</" + name + ">";
    }
    unsigned Below(unsigned count) { return static_cast<unsigned>(m_random() % count); }

private:
    std::string Field() {
        static const std::vector<std::string> groups = {"工程概况/工程信息",
                                                        "工程信息",
                                                        "工程概况/工程特征内容",
                                                        "工程特征内容",
                                                        "工程概况/电子招投标信息",
                                                        "电子招投标信息",
                                                        "其他信息",
                                                        "工程概况",
                                                        "a工程概况/工程信息",
                                                        "",
                                                        "工程信"};
        static const std::vector<std::string> values = {"0", "1", "-5", " 2x", "x", "", "99999999999", "0.5"};
        std::string text = Below(2) == 0 ? "<f" : "<CColInfoLeaf";
        const std::string name = text.substr(1);
        if (Below(6) != 0)
            text += " BelongType=\"" + groups[Below(static_cast<unsigned>(groups.size()))] + "\"";
        for (const char* attribute :
             {"Code", "Name", "Type", "Print", "Hide", "Mantissa", "Index1", "Index2", "UserDef", "More"}) {
            if (Below(3) != 0)
                text += " " + std::string(attribute) + "=\"" +
                        values[Below(static_cast<unsigned>(values.size()))] + "\"";
        }
        return text + "/>";
    }

    std::mt19937 m_random;
};

int PlainInt(const std::wstring& text) {
    try {
        return std::stoi(text);
    } catch (const std::invalid_argument&) {
        return 0;
    } catch (const std::out_of_range&) {
        return 2147483647;
    }
}

std::wstring Joined(const FieldList& list) {
    std::wstring text;
    for (const FieldList::Field* field : list.fields) {
        for (const CString& each : {field->strCode, field->strName, field->strValue, field->strType})
            text += each.ToWide() + L",";
        for (const int each : {field->nBelongType, int{field->bPrint}, int{field->bUserDef},
                               int{field->bShow}, field->nMantissa, field->nIndex1, field->nIndex2})
            text += std::to_wstring(each) + L",";
        text += L"\n";
    }
    return text;
}

/// The same lines by the rules.
std::wstring JoinedPlainly(const XMLNode* parent, bool isProject) {
    std::wstring text;
    int number = 0;
    for (const XMLNode* child : parent->Children) {
        ++number;
        const auto value = [&](const wchar_t* name, const wchar_t* absent) {
            const auto found = child->Attributes.find(name);
            return found == child->Attributes.end() ? std::wstring(absent) : found->second;
        };
        const std::wstring group = value(L"BelongType", L"");
        int type = 0;
        if (group == L"工程概况/工程信息" || group == L"工程信息")
            type = 1;
        else if (group == L"工程概况/工程特征内容" || group == L"工程特征内容")
            type = 2;
        else if (group == L"工程概况/电子招投标信息" || group == L"电子招投标信息")
            type = 3;
        else if (group.find(L"工程概况") == group.npos)
            continue;
        text += value(L"Code", L"") + L"," + value(L"Name", L"") + L",," + value(L"Type", L"") + L",";
        text += std::to_wstring(type) + L",";
        text += PlainInt(value(L"Print", L"0")) != 0 ? L"1," : L"0,";
        text += PlainInt(value(L"UserDef", L"0")) != 0 ? L"1," : L"0,";
        text += PlainInt(value(L"Hide", L"1")) == 0 ? L"1," : L"0,";
        text += std::to_wstring(PlainInt(value(L"Mantissa", L"0"))) + L",";
        text += std::to_wstring(isProject ? PlainInt(value(L"Index1", L"1")) : number) + L",";
        text += std::to_wstring(PlainInt(value(L"Index2", L"1"))) + L",\n";
    }
    return text;
}

TEST_F(OverviewReader, RandomFilesAsReadByTheRulesOneByOne) {
    RandomFile random(92);
    for (int round = 0; round < Rounds(1'500); ++round) {
        const bool isProject = random.Below(2) == 0;
        m_folder.Write("f.xml", isProject ? random.Project() : random.Fields("root"));
        const CString path = m_folder.Text("f.xml");
        FieldList list;
        ReadOverview(path, isProject ? OverviewSource::Project : OverviewSource::Offer, list.fields);
        const std::unique_ptr<XMLNode> root(LoadXMLNode(path.ToWide()));
        ASSERT_NE(root, nullptr);
        const XMLNode* parent = isProject ? root->FindChildNode(L"CProjectOverView") : root.get();
        ASSERT_EQ(Joined(list), parent == nullptr ? L"" : JoinedPlainly(parent, isProject)) << round;
    }
}

}  // namespace
