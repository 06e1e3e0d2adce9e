// The tool as hosts use it, and the four functions.
#include <algorithm>
#include <filesystem>
#include <limits>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/IOException.hpp>

#include "QsUtils/QsUtils.h"
#include "QsUtils/frame/CQsUtilsApp.h"
#include "QsUtils/xml/ToolTable.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/xml/PlainTreeReader.h"
#include "tests/xml/RandomDocument.h"

using NS_XMLACCESS::IXmlAccessTool;

namespace {

namespace fs = std::filesystem;

std::int32_t firstId = 0;

/// The very first tool of the process, before any test asks for one.
class FirstTool : public ::testing::Environment {
    void SetUp() override {
        IXmlAccessTool* const tool = GetXmlAccessTool();
        firstId = static_cast<QsXml::CXmlAccessTool*>(tool)->Id();
        RemoveXmlAccessTool(tool);
    }
};
[[maybe_unused]] ::testing::Environment* const firstTool = ::testing::AddGlobalTestEnvironment(new FirstTool);

class XmlAccess : public ::testing::Test {
protected:
    void SetUp() override { m_tool = GetXmlAccessTool(); }
    void TearDown() override { RemoveXmlAccessTool(m_tool); }

    /// A path in the system's own form.
    std::wstring Path(std::string_view name) const {
        std::wstring path = m_folder.Text(name).ToWide();
        std::replace(path.begin(), path.end(), L'\\', static_cast<wchar_t>(fs::path::preferred_separator));
        return path;
    }
    bool Load(std::string_view bytes) {
        m_folder.Write("file.xml", bytes);
        return m_tool->LoadXmlFile(Path("file.xml"));
    }
    xercesc::DOMElement* Root(std::string_view bytes) {
        EXPECT_TRUE(Load(bytes)) << bytes;
        return m_tool->GetRootElement();
    }
    std::string Saved() {
        EXPECT_TRUE(m_tool->SaveXmlFile(Path("saved.xml")));
        return m_folder.Read("saved.xml");
    }

    TemporaryFolder m_folder;
    IXmlAccessTool* m_tool = nullptr;
};

TEST(XmlTools, AreNumberedFrom1001On) {
    EXPECT_EQ(firstId, 1001);
    auto* const first = static_cast<QsXml::CXmlAccessTool*>(GetXmlAccessTool());
    const std::int32_t id = first->Id();
    RemoveXmlAccessTool(first);
    auto* const second = static_cast<QsXml::CXmlAccessTool*>(GetXmlAccessTool());
    EXPECT_EQ(second->Id(), id + 1) << "numbers aren't used again";
    RemoveXmlAccessTool(second);
    EXPECT_EQ(LoadXMLNode(L"none"), nullptr);
    auto* const fourth = static_cast<QsXml::CXmlAccessTool*>(GetXmlAccessTool());
    EXPECT_EQ(fourth->Id(), id + 3) << "a tree is read by a tool of its own";
    RemoveXmlAccessTool(fourth);
}

TEST(XmlTools, OnlyToolsOfTheTableAreRemoved) {
    RemoveXmlAccessTool(nullptr);
    QsXml::CXmlAccessTool unknown(-1);
    RemoveXmlAccessTool(&unknown);
    EXPECT_EQ(unknown.GetLastErrorText(), L"");
    auto* const known = static_cast<QsXml::CXmlAccessTool*>(GetXmlAccessTool());
    QsXml::CXmlAccessTool double_(known->Id());
    RemoveXmlAccessTool(&double_);
    EXPECT_EQ(known->GetLastErrorText(), L"") << "another's number removes nobody";
    RemoveXmlAccessTool(known);
}

TEST(XmlTools, TreesAreReadOnManyThreads) {
    TemporaryFolder folder;
    folder.Write("a.xml", "<a><b/></a>");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int n = 0; n < 200; ++n) {
                const std::unique_ptr<XMLNode> root(LoadXMLNode(folder.File("a.xml").wstring()));
                ASSERT_NE(root, nullptr);
                ASSERT_EQ(root->Children.size(), 1u);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

TEST_F(XmlAccess, BeforeALoadThereIsNothing) {
    EXPECT_EQ(m_tool->GetDocument(), nullptr);
    EXPECT_EQ(m_tool->GetRootElement(), nullptr);
    EXPECT_EQ(m_tool->GetLastErrorText(), L"");
    EXPECT_FALSE(m_tool->SaveXmlFile(Path("saved.xml")));
    EXPECT_FALSE(m_tool->SaveXmlFile(L""));
    EXPECT_EQ(m_folder.Entries(), 0);
    m_tool->Close();
}

TEST_F(XmlAccess, ADocumentLivesInTheToolUntilItIsClosed) {
    const xercesc::DOMElement* const root = Root("<a><b/></a>");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(PlainXml::Wide(root->getNodeName()), L"a");
    EXPECT_EQ(m_tool->GetDocument()->getDocumentElement(), root);
    EXPECT_EQ(m_tool->GetRootElement(), root) << "the same every time";
    m_tool->Close();
    EXPECT_EQ(m_tool->GetDocument(), nullptr);
    EXPECT_EQ(m_tool->GetRootElement(), nullptr);
    EXPECT_FALSE(m_tool->SaveXmlFile(Path("saved.xml")));
    m_tool->Close();
}

TEST_F(XmlAccess, ALoadReplacesTheDocument) {
    ASSERT_TRUE(Load("<a/>"));
    const xercesc::DOMElement* const root = Root("<b/>");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(PlainXml::Wide(root->getNodeName()), L"b");
    EXPECT_FALSE(Load("<c>"));
    EXPECT_EQ(m_tool->GetDocument(), nullptr);
}

TEST_F(XmlAccess, TellsWhyAFileCanNotBeLoaded) {
    const std::wstring head = L"解析Xml文档失败:";
    EXPECT_FALSE(Load("<a>"));
    EXPECT_EQ(m_tool->GetLastErrorText(),
              head + L"input ended before all started tags were ended; last tag started is 'a'")
        << "the parser's own words";
    m_tool->Close();
    EXPECT_NE(m_tool->GetLastErrorText(), L"") << "nothing was loaded that could be closed";
    EXPECT_FALSE(m_tool->LoadXmlFile(Path("none.xml")));
    const std::wstring missing = m_tool->GetLastErrorText();
    EXPECT_TRUE(missing.starts_with(head));
    EXPECT_NE(missing.find(Path("none.xml")), std::wstring::npos) << "names the file";
    for (const std::wstring& path :
         {std::wstring(), m_folder.Path().wstring(), std::wstring(L"file\0.xml", 9)}) {
        EXPECT_FALSE(m_tool->LoadXmlFile(path));
        EXPECT_TRUE(m_tool->GetLastErrorText().starts_with(head));
        EXPECT_GT(m_tool->GetLastErrorText().size(), head.size());
    }
    EXPECT_TRUE(Load("<a/>"));
    EXPECT_EQ(m_tool->GetLastErrorText(), L"");
}

TEST_F(XmlAccess, ALaterFailureAfterTheRootIsAFailure) {
    EXPECT_FALSE(Load("<a/><b/>"));
    EXPECT_EQ(m_tool->GetDocument(), nullptr);
    EXPECT_EQ(m_tool->LoadXMLNode(Path("file.xml")), nullptr);
    EXPECT_NE(m_tool->GetLastErrorText(), L"");
}

TEST_F(XmlAccess, APathNamesAFileAndIsNoUri) {
    for (const char* name : {"100%.xml", "a#b.xml", "a b.xml", "a%20b.xml", "工程 (1).xml", "a&b;c=d.xml",
                             "sub/项目.xml", "a+b@c~.xml", "'a'.xml"}) {
        m_folder.Write(name, "<a/>");
        EXPECT_TRUE(m_tool->LoadXmlFile(Path(name))) << name;
        EXPECT_TRUE(m_tool->SaveXmlFile(L"")) << name;
        EXPECT_NE(m_folder.Read(name), "<a/>") << "written where it came from";
        const std::wstring library = m_folder.Text(name).ToWide();
        EXPECT_TRUE(m_tool->LoadXmlFile(library)) << "the library's form of the path: " << name;
        EXPECT_TRUE(m_tool->SaveXmlFile(library)) << name;
        const std::unique_ptr<XMLNode> root(LoadXMLNode(library));
        ASSERT_NE(root, nullptr) << name;
        EXPECT_TRUE(SaveXMLNode(root.get(), Path(name), false)) << name;
    }
}

TEST_F(XmlAccess, AnEmptyAttributeIsThereAndAMissingOneIsNot) {
    xercesc::DOMElement* const root = Root("<a empty=''/>");
    CString text = u"before";
    std::wstring wide = L"before";
    double real = 1;
    std::int32_t whole = 1;
    bool flag = true;
    EXPECT_TRUE(m_tool->GetCStringAttribute(text, L"empty", root));
    EXPECT_TRUE(m_tool->GetStringAttribute(wide, L"empty", root));
    EXPECT_TRUE(m_tool->GetDoubleAttribute(real, L"empty", root));
    EXPECT_TRUE(m_tool->GetIntAttribute(whole, L"empty", root));
    EXPECT_TRUE(m_tool->GetBoolAttribute(flag, L"empty", root));
    EXPECT_TRUE(text.IsEmpty() && wide.empty() && real == 0 && whole == 0 && !flag);
    text = u"before", wide = L"before", real = 1, whole = 1, flag = true;
    EXPECT_FALSE(m_tool->GetCStringAttribute(text, L"Empty", root)) << "names have a case";
    EXPECT_FALSE(m_tool->GetStringAttribute(wide, L"none", root));
    EXPECT_FALSE(m_tool->GetDoubleAttribute(real, L"none", root));
    EXPECT_FALSE(m_tool->GetIntAttribute(whole, L"none", root));
    EXPECT_FALSE(m_tool->GetBoolAttribute(flag, L"none", root));
    EXPECT_TRUE(text.IsEmpty() && wide.empty() && real == 0 && whole == 0 && !flag) << "reset all the same";
}

TEST_F(XmlAccess, WithoutElementOrNameThereIsNoAttribute) {
    xercesc::DOMElement* const root = Root("<a k='1'/>");
    std::int32_t whole = 1;
    EXPECT_FALSE(m_tool->GetIntAttribute(whole, L"k", nullptr));
    EXPECT_FALSE(m_tool->GetIntAttribute(whole, nullptr, root));
    EXPECT_EQ(whole, 0);
    m_tool->SetIntAttribute(2, L"k", nullptr);
    m_tool->SetIntAttribute(2, nullptr, root);
    EXPECT_TRUE(m_tool->GetIntAttribute(whole, L"k", root));
    EXPECT_EQ(whole, 1);
}

TEST_F(XmlAccess, ReadsTextsThroughTheAnsiCodePageOrAsTheyAre) {
    xercesc::DOMElement* const root = Root("<a k='㎡ m² \U0001F3D7 ½'/>");
    CString text;
    EXPECT_TRUE(m_tool->GetCStringAttribute(text, L"k", root));
    EXPECT_EQ(text, u"㎡ m2 ?? ?") << "what the code page lacks is lost";
    std::wstring wide;
    EXPECT_TRUE(m_tool->GetStringAttribute(wide, L"k", root));
    EXPECT_EQ(wide, L"㎡ m² \U0001F3D7 ½");
}

TEST_F(XmlAccess, WritesTextsAsTheyAre) {
    xercesc::DOMElement* const root = Root("<a/>");
    m_tool->SetCStringAttribute(u"½ ㎡ \U0001F3D7", L"c", root);
    m_tool->SetStringAttribute(L"½ \"<&>\U0001F3D7", L"单位", root);
    std::wstring wide;
    EXPECT_TRUE(m_tool->GetStringAttribute(wide, L"c", root));
    EXPECT_EQ(wide, L"½ ㎡ \U0001F3D7");
    EXPECT_TRUE(m_tool->GetStringAttribute(wide, L"单位", root));
    EXPECT_EQ(wide, L"½ \"<&>\U0001F3D7");
    EXPECT_EQ(Saved().substr(Saved().find("<a")),
              "<a c=\"½ ㎡ \U0001F3D7\" 单位=\"½ &quot;&lt;&amp;>\U0001F3D7\"/>");
    EXPECT_THROW(m_tool->SetStringAttribute(L"v", L"a b", root), xercesc::DOMException);
    EXPECT_THROW(m_tool->SetCStringAttribute(u"v", L"", root), xercesc::DOMException);
}

TEST_F(XmlAccess, ReadsTheNumberThatAValueBeginsWith) {
    const struct {
        const char* value;
        double real;
        std::int32_t whole;
    } cases[] = {{"1", 1, 1},
                 {"0.9", 0.9, 0},
                 {"abc", 0, 0},
                 {" -12.5m", -12.5, -12},
                 {"1e3", 1000, 1},
                 {"true", 0, 0},
                 {"+7", 7, 7},
                 {"0x10", 0, 0},
                 {"99999999999", 99999999999.0, 2147483647},
                 {"-99999999999", -99999999999.0, -2147483647 - 1},
                 {"1,5", 1, 1},
                 {"inf", 0, 0},
                 {".5", 0.5, 0}};
    for (const auto& one : cases) {
        xercesc::DOMElement* const root = Root("<a k='" + std::string(one.value) + "'/>");
        double real = 99;
        std::int32_t whole = 99;
        bool flag = false;
        EXPECT_TRUE(m_tool->GetDoubleAttribute(real, L"k", root));
        EXPECT_TRUE(m_tool->GetIntAttribute(whole, L"k", root));
        EXPECT_TRUE(m_tool->GetBoolAttribute(flag, L"k", root));
        EXPECT_EQ(real, one.real) << one.value;
        EXPECT_EQ(whole, one.whole) << one.value;
        EXPECT_EQ(flag, one.whole != 0) << one.value;
    }
}

TEST_F(XmlAccess, WritesNumbersInTheirOneForm) {
    xercesc::DOMElement* const root = Root("<a/>");
    std::wstring text;
    const auto written = [&] {
        EXPECT_TRUE(m_tool->GetStringAttribute(text, L"k", root));
        return text;
    };
    m_tool->SetDoubleAttribute(2, L"k", root);
    EXPECT_EQ(written(), L"2.000000");
    m_tool->SetDoubleAttribute(-1.5, L"k", root);
    EXPECT_EQ(written(), L"-1.500000");
    m_tool->SetDoubleAttribute(0.0000005, L"k", root);
    EXPECT_EQ(written(), L"0.000000");
    m_tool->SetDoubleAttribute(1e20, L"k", root);
    EXPECT_EQ(written(), L"100000000000000000000.000000");
    m_tool->SetIntAttribute(-42, L"k", root);
    EXPECT_EQ(written(), L"-42");
    m_tool->SetIntAttribute(std::numeric_limits<std::int32_t>::min(), L"k", root);
    EXPECT_EQ(written(), L"-2147483648");
    m_tool->SetBoolAttribute(true, L"k", root);
    EXPECT_EQ(written(), L"1");
    m_tool->SetBoolAttribute(false, L"k", root);
    EXPECT_EQ(written(), L"0");
}

TEST_F(XmlAccess, ATreeLeavesTheDocumentAtHand) {
    m_folder.Write("file.xml", "<a k='1'>\n <b/></a>");
    const std::unique_ptr<XMLNode> root(m_tool->LoadXMLNode(Path("file.xml")));
    ASSERT_NE(root, nullptr);
    m_folder.Write("file.xml", "<other/>");
    ASSERT_NE(m_tool->GetRootElement(), nullptr) << "parsed from what was read, not from what is there now";
    EXPECT_EQ(PlainXml::Wide(m_tool->GetRootElement()->getNodeName()), L"a");
    EXPECT_NE(Saved().find("<a k=\"1\">\n <b/></a>"), std::string::npos);
    m_tool->Close();
    EXPECT_EQ(m_tool->GetDocument(), nullptr);
    EXPECT_EQ(root->Attributes.at(L"k"), L"1") << "the tree outlives all that";
}

TEST_F(XmlAccess, TreesAreTheSameWithAndWithoutATool) {
    PlainXml::RandomDocument random(99);
    for (int i = 0; i < 5'000; ++i) {
        m_folder.Write("file.xml", random.Next());
        const std::unique_ptr<XMLNode> tree(m_tool->LoadXMLNode(Path("file.xml")));
        const std::unique_ptr<XMLNode> direct(LoadXMLNode(Path("file.xml")));
        ASSERT_EQ(PlainXml::TextOf(direct.get()), PlainXml::TextOf(tree.get())) << m_folder.Read("file.xml");
    }
    m_folder.Write("file.xml", "<a>" + std::string(1'000'000, 'x') + "<b/></a>");
    const std::unique_ptr<XMLNode> large(LoadXMLNode(Path("file.xml")));
    ASSERT_NE(large, nullptr);
    EXPECT_EQ(large->Text.size(), 1'000'000u);
}

TEST_F(XmlAccess, AFailedTreeTellsWhy) {
    m_folder.Write("file.xml", "<a>");
    EXPECT_EQ(m_tool->LoadXMLNode(Path("file.xml")), nullptr);
    EXPECT_TRUE(m_tool->GetLastErrorText().starts_with(L"解析Xml文档失败:"));
    EXPECT_EQ(LoadXMLNode(Path("file.xml")), nullptr);
    EXPECT_EQ(LoadXMLNode(Path("none.xml")), nullptr);
    EXPECT_EQ(LoadXMLNode(L""), nullptr);
}

TEST_F(XmlAccess, SavingATreeNeedsATreeAndAPath) {
    XMLNode root;
    root.Name = L"a";
    EXPECT_FALSE(m_tool->SaveXMLNode(nullptr, Path("file.xml"), false));
    EXPECT_FALSE(m_tool->SaveXMLNode(&root, L"", false));
    EXPECT_FALSE(SaveXMLNode(nullptr, Path("file.xml"), true));
    EXPECT_FALSE(SaveXMLNode(&root, L"", true));
    EXPECT_EQ(m_folder.Entries(), 0);
    EXPECT_TRUE(SaveXMLNode(&root, Path("file.xml"), true));
    EXPECT_EQ(m_folder.Read("file.xml"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>\n<a/>\n");
}

TEST_F(XmlAccess, SavingATreePutsTheDocumentOutOfReach) {
    ASSERT_TRUE(Load("<a/>"));
    XMLNode root;
    root.Name = L"b";
    EXPECT_FALSE(m_tool->SaveXMLNode(nullptr, Path("other.xml"), false));
    EXPECT_NE(m_tool->GetDocument(), nullptr);
    EXPECT_TRUE(m_tool->SaveXMLNode(&root, Path("other.xml"), false));
    EXPECT_EQ(m_tool->GetDocument(), nullptr);
    EXPECT_FALSE(m_tool->SaveXmlFile(L""));
    const std::unique_ptr<XMLNode> tree(m_tool->LoadXMLNode(Path("file.xml")));
    EXPECT_TRUE(m_tool->SaveXMLNode(tree.get(), Path("other.xml"), false));
    EXPECT_EQ(m_tool->GetDocument(), nullptr) << "also a document that wasn't parsed yet";
}

TEST_F(XmlAccess, ExceptionsOfTheParserPassToTheCaller) {
    XMLNode root;
    root.Name = L"1";
    EXPECT_THROW(SaveXMLNode(&root, Path("file.xml"), false), xercesc::DOMException);
    root.Name = L"a";
    root.Text = L"\x1";
    EXPECT_THROW(SaveXMLNode(&root, Path("file.xml"), false), xercesc::DOMLSException);
    root.Text.clear();
    EXPECT_THROW(SaveXMLNode(&root, Path("none/file.xml"), false), xercesc::IOException);
    ASSERT_TRUE(Load("<a/>"));
    EXPECT_THROW(m_tool->SaveXmlFile(Path("none/file.xml")), xercesc::IOException);
    EXPECT_EQ(m_tool->GetLastErrorText(), L"");
    EXPECT_TRUE(m_tool->SaveXmlFile(L"")) << "the document is still there";
    EXPECT_EQ(m_folder.Entries(), 1);
}

TEST_F(XmlAccess, ADocumentKeepsItsEncoding) {
    const std::u16string body = u"<a 单位=\"m2\">挖土<!--注--></a>";
    for (const char* name : {"GBK", "GB2312", "gb2312", "gb18030", "UTF-8", "utf-8"}) {
        const std::string_view encoding =
            std::string_view(name).substr(0, 1) == "g" || name[0] == 'G' ? "GBK" : "UTF-8";
        const std::string declaration =
            "<?xml version=\"1.0\" encoding=\"" + std::string(name) + "\" standalone=\"no\" ?>";
        ASSERT_TRUE(Load(declaration + PlainXml::Encode(body, encoding))) << name;
        EXPECT_EQ(Saved(), declaration + PlainXml::Encode(body, encoding)) << name;
    }
    ASSERT_TRUE(Load(PlainXml::Encode(body, "UTF-8")));
    EXPECT_TRUE(Saved().starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>"));
}

TEST_F(XmlAccess, AFileThatSaysGb2312MayHoldGbk) {
    const std::string bytes = "<?xml version=\"1.0\" encoding=\"GB2312\" standalone=\"no\" ?>" +
                              PlainXml::Encode(u"<镕 k=\"㎡\">镕</镕>", "GBK");
    ASSERT_TRUE(Load(bytes));
    EXPECT_EQ(Saved(), bytes) << "as everybody who writes such files expects";
}

TEST_F(XmlAccess, WhatWasSavedCanBeLoadedAgain) {
    for (const char* encoding : {"UTF-16LE", "UTF-16BE"}) {
        ASSERT_TRUE(Load(PlainXml::Encode(u"<a 单位=\"㎡\">挖土</a>", encoding))) << encoding;
        ASSERT_TRUE(m_tool->SaveXmlFile(L"")) << encoding;
        const std::unique_ptr<XMLNode> root(LoadXMLNode(Path("file.xml")));
        EXPECT_EQ(PlainXml::TextOf(root.get()), L"(a|挖土||单位=㎡)") << encoding;
    }
    ASSERT_TRUE(Load("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>"));
    m_tool->SetStringAttribute(L"中", L"k", m_tool->GetRootElement());
    EXPECT_EQ(Saved(),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"no\" ?><a k=\"&#x4E2D;\">\xE9</a>");
}

TEST_F(XmlAccess, ADocumentKeepsAllThatIsInIt) {
    const std::string bytes =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?><!--c--><?p d?>"
        "<!DOCTYPE a [<!ENTITY e \"x\">]>"
        "<a>\n  <b>t<![CDATA[<]]></b><?q?>&e;<!--d--></a>";
    ASSERT_TRUE(Load(bytes));
    EXPECT_EQ(Saved(), bytes);
}

TEST_F(XmlAccess, WithoutAPlatformEveryCallFailsInPeace) {
    m_folder.Write("file.xml", "<a/>");
    CQsUtilsApp app;
    app.ExitInstance();
    IXmlAccessTool* const tool = GetXmlAccessTool();
    EXPECT_FALSE(tool->LoadXmlFile(Path("file.xml")));
    EXPECT_EQ(tool->GetLastErrorText(), L"创建解析器失败!");
    EXPECT_EQ(tool->LoadXMLNode(Path("file.xml")), nullptr);
    EXPECT_EQ(LoadXMLNode(Path("file.xml")), nullptr);
    XMLNode root;
    root.Name = L"a";
    EXPECT_FALSE(SaveXMLNode(&root, Path("other.xml"), false));
    RemoveXmlAccessTool(tool);
    app.InitInstance();
    m_tool = GetXmlAccessTool();  // the other one ended with the module
}

TEST_F(XmlAccess, TheEndOfTheModuleEndsTheToolsBeforeThePlatform) {
    ASSERT_TRUE(Load("<a/>"));
    CQsUtilsApp app;
    app.ExitInstance();
    app.InitInstance();
    m_tool = GetXmlAccessTool();
    EXPECT_EQ(m_tool->GetDocument(), nullptr);
    EXPECT_TRUE(Load("<a/>"));
}

}  // namespace
