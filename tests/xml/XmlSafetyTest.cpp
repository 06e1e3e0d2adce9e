// Documents that were made to hurt, or that a broken transfer left behind.
#include <functional>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <xercesc/dom/DOM.hpp>

#include "QsUtils/QsUtils.h"
#include "QsUtils/xml/DocumentWriter.h"

#include "tests/support/SmallStack.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/xml/PlainTreeReader.h"
#include "tests/xml/RandomDocument.h"

namespace {

constexpr std::size_t smallStack = std::size_t{256} << 10;

std::string Repeat(std::string_view piece, std::size_t count) {
    std::string text;
    text.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

std::string Nested(std::size_t depth, std::string_view inside = "") {
    return Repeat("<a>", depth) + std::string(inside) + Repeat("</a>", depth);
}

class XmlSafety : public ::testing::Test {
protected:
    void SetUp() override { m_tool = GetXmlAccessTool(); }
    void TearDown() override { RemoveXmlAccessTool(m_tool); }

    std::wstring Path(std::string_view name) const { return m_folder.Text(name).ToWide(); }

    /// The tree, after both ways agree on whether there is one.
    std::unique_ptr<XMLNode> Load(std::string_view bytes) {
        m_folder.Write("file.xml", bytes);
        std::unique_ptr<XMLNode> root(m_tool->LoadXMLNode(Path("file.xml")));
        const std::wstring treeError = m_tool->GetLastErrorText();
        const std::unique_ptr<XMLNode> direct(LoadXMLNode(Path("file.xml")));
        EXPECT_EQ(direct != nullptr, root != nullptr) << "with and without a tool";
        EXPECT_EQ(m_tool->LoadXmlFile(Path("file.xml")), root != nullptr);
        EXPECT_EQ(m_tool->GetLastErrorText(), treeError) << "both ways tell the same";
        EXPECT_EQ(treeError.empty(), root != nullptr);
        EXPECT_EQ(m_tool->GetDocument() != nullptr, root != nullptr);
        if (root == nullptr) {
            EXPECT_TRUE(treeError.starts_with(L"解析Xml文档失败:"));
            EXPECT_GT(treeError.size(), std::wstring_view(L"解析Xml文档失败:").size());
        }
        return root;
    }
    bool Fails(std::string_view bytes) { return Load(bytes) == nullptr; }
    bool FailsWith(std::string_view bytes, std::wstring_view reason) {
        return Fails(bytes) && m_tool->GetLastErrorText().find(reason) != std::wstring::npos;
    }

    TemporaryFolder m_folder;
    NS_XMLACCESS::IXmlAccessTool* m_tool = nullptr;
};

TEST_F(XmlSafety, NoOtherFileIsRead) {
    m_folder.Write("secret.txt", "<b>secret</b>");
    m_folder.Write("secret.dtd", "<!ENTITY e 'secret'><!ATTLIST a k CDATA 'secret'>");
    const std::string folder = FromNativePath(m_folder.Path()).IsEmpty() ? "" : m_folder.Path().string();
    for (const std::string& place : {"file://" + folder + "/", folder + "/", std::string()}) {
        for (const std::string& document : {
                 "<!DOCTYPE a [<!ENTITY x SYSTEM '" + place + "secret.txt'>]><a>&x;<c/></a>",
                 "<!DOCTYPE a [<!ENTITY x PUBLIC 'p' '" + place + "secret.txt'>]><a><c/>&x;</a>",
                 "<!DOCTYPE a [<!ENTITY % x SYSTEM '" + place + "secret.dtd'>%x;]><a><c/></a>",
                 "<!DOCTYPE a SYSTEM '" + place + "secret.dtd'><a><c/></a>",
                 "<!DOCTYPE a PUBLIC 'p' '" + place + "secret.dtd' [<!ELEMENT a ANY>]><a><c/></a>",
             }) {
            const std::unique_ptr<XMLNode> root = Load(document);
            ASSERT_NE(root, nullptr) << document << " loads as if there were nothing at that place";
            EXPECT_EQ(PlainXml::TextOf(root.get()), L"(a||(c||))") << document;
            ASSERT_TRUE(m_tool->SaveXmlFile(Path("saved.xml")));
            EXPECT_EQ(m_folder.Read("saved.xml").find(">secret<"), std::string::npos);
        }
    }
}

TEST_F(XmlSafety, MissingExternalPartsDoNotMatter) {
    EXPECT_NE(Load("<!DOCTYPE a SYSTEM 'none.dtd'><a/>"), nullptr);
    EXPECT_NE(Load("<!DOCTYPE a SYSTEM 'none.dtd' [<!ENTITY e 'x'>]><a>&e;</a>"), nullptr);
    EXPECT_NE(Load("<!DOCTYPE a SYSTEM 'http://none.invalid/none.dtd'><a/>"), nullptr);
    EXPECT_NE(Load("<a xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                   "xsi:noNamespaceSchemaLocation='none.xsd'/>"),
              nullptr);
    const auto root = Load("<a xmlns:xi='http://www.w3.org/2001/XInclude'><xi:include href='none.xml'/></a>");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->Children.size(), 1u) << "an ordinary element";
}

TEST_F(XmlSafety, AThousandPlainReferencesLoad) {
    const std::string head = "<!DOCTYPE a [<!ENTITY e '金额'><!ENTITY f '<b>&e;</b>'>]>";
    auto root = Load(head + "<a>" + Repeat("&f;", 1000) + "</a>");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->Children.size(), 1000u);
    root = Load(head + "<a k='" + Repeat("&e;", 1000) + "'/>");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->Attributes.at(L"k").size(), 2000u);
    EXPECT_NE(Load(head + Nested(1, Repeat("&e;", 40'000))), nullptr);
}

std::string Laughs(std::string_view leaf, std::size_t levels, std::size_t times, std::string_view use) {
    std::string text = "<!DOCTYPE a [<!ENTITY l0 '" + std::string(leaf) + "'>";
    for (std::size_t level = 1; level <= levels; ++level)
        text += "<!ENTITY l" + std::to_string(level) + " '" +
                Repeat("&l" + std::to_string(level - 1) + ";", times) + "'>";
    const std::string last = "&l" + std::to_string(levels) + ";";
    text += "]>";
    for (const char c : use)
        text += c == '@' ? last : std::string(1, c);
    return text;
}

TEST_F(XmlSafety, EntitiesDoNotMultiplyWithoutBound) {
    EXPECT_TRUE(Fails(Laughs("lol", 9, 10, "<a>@</a>")));
    EXPECT_TRUE(Fails(Laughs("lol", 9, 10, "<a k='@'/>")));
    EXPECT_TRUE(Fails(Laughs("", 40, 2, "<a>@</a>"))) << "not even those of nothing";
    EXPECT_TRUE(Fails(Laughs("<b/>", 9, 10, "<a>@</a>")));
    EXPECT_TRUE(Fails("<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>")) << "nor by themselves";
    EXPECT_TRUE(Fails("<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a k='&f;'/>"));
}

TEST_F(XmlSafety, AFewReferencesToALongEntityAreBoundedToo) {
    const std::wstring reason = L"exceed by far";
    EXPECT_TRUE(
        FailsWith(Laughs(std::string(1'000'000, 'x'), 0, 0, "<a>" + std::string(100, '@') + "</a>"), reason));
    EXPECT_TRUE(Fails(Laughs(std::string(100'000, 'x'), 0, 0, "<a k='" + std::string(10'000, '@') + "'/>")));
    EXPECT_NE(Load(Laughs(std::string(1'000'000, 'x'), 0, 0, "<a>@@@@</a>")), nullptr);
}

TEST_F(XmlSafety, DefaultAttributesDoNotMultiplyWithoutBound) {
    EXPECT_TRUE(FailsWith("<!DOCTYPE a [<!ATTLIST b k CDATA '" + std::string(1'000'000, 'x') + "'>]><a>" +
                              Repeat("<b/>", 1000) + "</a>",
                          L"exceed by far"));
}

std::string DoublingParameters(std::string_view leaf, int levels) {
    std::string text = "<!DOCTYPE a [<!ENTITY % p0 \"" + std::string(leaf) + "\">";
    for (int level = 1; level <= levels; ++level) {
        const std::string below = "&#37;p" + std::to_string(level - 1) + ";";
        text += "<!ENTITY % p" + std::to_string(level) + " \"" + below + below + "\">";
    }
    return text + "%p" + std::to_string(levels) + ";]><a/>";
}

TEST_F(XmlSafety, ParameterEntitiesDoNotMultiplyWithoutBound) {
    EXPECT_NE(Load(DoublingParameters("<!ELEMENT a ANY>", 3)), nullptr);
    EXPECT_TRUE(Fails(DoublingParameters("", 40)));
    EXPECT_TRUE(Fails(DoublingParameters("<!ELEMENT a ANY>", 40)));
    EXPECT_TRUE(Fails(DoublingParameters("<!--" + std::string(100'000, 'c') + "-->", 20)));
    EXPECT_TRUE(Fails(DoublingParameters("<!ENTITY e '" + std::string(100'000, 'c') + "'>", 20)));
}

TEST_F(XmlSafety, ContentModelsAreNotCompiled) {
    // As automata these would need exponential memory.
    std::string model = "(b?";
    for (int i = 0; i < 200; ++i)
        model += ",(b|c)?";
    EXPECT_NE(Load("<!DOCTYPE a [<!ELEMENT a " + model + ",(b,c)*)>]><a/>"), nullptr);
    RunOnSmallStack(smallStack, [&] {
        for (const std::string_view piece : {"(", "(b,", "(b|", "(b?,"})
            Load("<!DOCTYPE a [<!ELEMENT a " + Repeat(piece, 200'000) + "b" + std::string(200'000, ')') +
                 ">]><a/>");  // whatever comes of it
    });
}

TEST_F(XmlSafety, AHundredThousandLevelsNeedNoStack) {
    constexpr std::size_t depth = 100'000;
    m_folder.Write("file.xml", Nested(depth, "x"));
    RunOnSmallStack(smallStack, [&] {
        std::unique_ptr<XMLNode> root(LoadXMLNode(Path("file.xml")));
        ASSERT_NE(root, nullptr);
        std::size_t levels = 0;
        for (const XMLNode* node = root.get(); node != nullptr;
             node = node->Children.empty() ? nullptr : node->Children[0])
            ++levels;
        EXPECT_EQ(levels, depth);
        EXPECT_TRUE(SaveXMLNode(root.get(), Path("tree.xml"), false));
        EXPECT_TRUE(SaveXMLNode(root.get(), Path("pretty.xml"), true));
        root.reset();
        ASSERT_TRUE(m_tool->LoadXmlFile(Path("file.xml")));
        EXPECT_EQ(QsXml::DepthOf(*m_tool->GetDocument()), depth + 1) << "the text is a level";
        EXPECT_TRUE(m_tool->SaveXmlFile(Path("document.xml")));
        m_tool->Close();
    });
    const std::string expected =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>" + Nested(depth, "x");
    EXPECT_EQ(m_folder.Read("tree.xml"), expected);
    EXPECT_EQ(m_folder.Read("document.xml"), expected);
}

TEST_F(XmlSafety, ADocumentIsSavedFromASmallStackAtEveryDepth) {
    RunOnSmallStack(smallStack, [&] {
        for (std::size_t depth = 1; depth < 400; ++depth) {
            m_folder.Write("file.xml", Nested(depth, "<!--c--><b/>x"));
            ASSERT_TRUE(m_tool->LoadXmlFile(Path("file.xml")));
            ASSERT_EQ(QsXml::DepthOf(*m_tool->GetDocument()), depth + 1);
            if (depth % 40 == 0 || (depth > 124 && depth < 132)) {
                ASSERT_TRUE(m_tool->SaveXmlFile(L""));
            }
        }
    });
}

TEST_F(XmlSafety, AFailureToWriteADeepDocumentIsTheSameException) {
    m_folder.Write("file.xml", Nested(5000));
    ASSERT_TRUE(m_tool->LoadXmlFile(Path("file.xml")));
    m_tool->GetRootElement()->appendChild(m_tool->GetDocument()->createTextNode(PlainXml::X(u"\x1")));
    EXPECT_THROW(m_tool->SaveXmlFile(L""), xercesc::DOMLSException);
    EXPECT_EQ(m_folder.Read("file.xml"), Nested(5000));
    EXPECT_EQ(m_folder.Entries(), 1);
}

TEST_F(XmlSafety, BeyondAllReasonIsTooDeep) {
    RunOnSmallStack(smallStack, [&] {
        EXPECT_TRUE(FailsWith(Nested(1'000'000), L"nested too deep"));
        EXPECT_TRUE(FailsWith(Repeat("<a>", 1'000'000), L"nested too deep"));
        EXPECT_TRUE(Fails(Repeat("<a>", 200'000)));
        EXPECT_NE(Load(Nested(std::size_t{1} << 18)), nullptr);
        EXPECT_TRUE(Fails(Nested((std::size_t{1} << 18) + 1)));
    });
}

TEST_F(XmlSafety, EntitiesMayBeDeepButNotToTheBottom) {
    RunOnSmallStack(smallStack, [&] {
        EXPECT_NE(Load("<!DOCTYPE a [<!ENTITY e '" + Nested(500) + "'>]><a>&e;</a>"), nullptr);
        EXPECT_TRUE(
            FailsWith("<!DOCTYPE a [<!ENTITY e '" + Nested(100'000) + "'>]><a>&e;</a>", L"nested too deep"));
        EXPECT_NE(Load(Laughs("x", 400, 1, "<a>@</a>")), nullptr);
        EXPECT_TRUE(Fails(Laughs("x", 5000, 1, "<a>@</a>")));
        EXPECT_TRUE(Fails(Laughs("x", 5000, 1, "<a k='@'/>")));
    });
}

TEST_F(XmlSafety, ManyOfEverythingLoads) {
    auto root = Load("<a>" + Repeat("<b/>", 300'000) + "</a>");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->Children.size(), 300'000u);
    std::string names = "<a";
    for (int i = 0; i < 16'384; ++i)
        names += " k" + std::to_string(i) + "='v'";
    root = Load(names + "/>");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->Attributes.size(), 16'384u);
    root = Load("<a>" + std::string(5'000'000, 'x') + "</a>");
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(root->Text.size(), 5'000'000u);
    EXPECT_NE(
        Load("<a k='" + std::string(2'000'000, 'x') + "'><!--" + std::string(2'000'000, 'c') + "--></a>"),
        nullptr);
}

TEST_F(XmlSafety, WhatADocumentSortsIsBounded) {
    std::string attributes = "<a";
    for (int i = 0; i < 16'385; ++i)
        attributes += " k" + std::to_string(i) + "=''";
    EXPECT_TRUE(FailsWith(attributes + "/>", L"too many attributes"));
    std::string defaults = "<!DOCTYPE a [<!ATTLIST a";
    for (int i = 0; i < 20'000; ++i)
        defaults += " k" + std::to_string(i) + " CDATA ''";
    EXPECT_TRUE(FailsWith(defaults + ">]><a/>", L"too many attributes"));
    std::string entities = "<!DOCTYPE a [";
    for (int i = 0; i < 65'537; ++i)
        entities += "<!ENTITY e" + std::to_string(i) + " ''>";
    EXPECT_TRUE(FailsWith(entities + "]><a/>", L"too many entities"));
}

TEST_F(XmlSafety, AnUnfinishedFileIsNone) {
    const std::string whole =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><!DOCTYPE a [<!ENTITY e 'x'>]><!--c--><?p d?>"
        "<a 单位=\"㎡\">&e;<![CDATA[y]]><b>\n</b></a>";
    ASSERT_NE(Load(whole), nullptr);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(Fails(whole.substr(0, length))) << length;
}

TEST_F(XmlSafety, BytesOfAnotherEncodingAreAnError) {
    const std::u16string body = u"<a>挖土方，三类土㎡</a>";
    EXPECT_TRUE(Fails(PlainXml::Encode(body, "GBK"))) << "GBK that doesn't say so";
    EXPECT_TRUE(Fails("<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + PlainXml::Encode(body, "GBK")));
    EXPECT_TRUE(Fails("<?xml version=\"1.0\" encoding=\"nonsense\"?><a/>"));
    EXPECT_TRUE(Fails(PlainXml::Encode(body, "UTF-16LE").substr(0, 11))) << "half a unit";
    EXPECT_TRUE(Fails(std::string(1000, '\0')));
    EXPECT_TRUE(Fails("\xEF\xBB\xBF"));
    EXPECT_TRUE(Fails("\xFF\xFE"));
    EXPECT_TRUE(Fails("<a>\xC0\x80</a>"));
    EXPECT_TRUE(Fails("<a>\xED\xA0\x80</a>")) << "a lone surrogate";
}

}  // namespace
