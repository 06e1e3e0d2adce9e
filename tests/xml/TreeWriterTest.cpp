#include <cstdint>
#include <memory>

#include <gtest/gtest.h>
#include <xercesc/util/XMLException.hpp>

#include "QsUtils/xml/TreeReader.h"
#include "QsUtils/xml/TreeWriter.h"
#include "QsUtils/xml/XmlInput.h"

#include "tests/support/Rounds.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/xml/PlainTreeWriter.h"

namespace {

class Trees {
public:
    explicit Trees(std::uint64_t seed) : m_state(seed * 0x9E3779B97F4A7C15U + 1) {}

    std::unique_ptr<XMLNode> Next() {
        m_left = Below(12);
        m_hasOddities = Below(3) == 0;
        return std::unique_ptr<XMLNode>(Node());
    }

private:
    std::size_t Below(std::size_t limit) {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 7;
        m_state ^= m_state << 17;
        return static_cast<std::size_t>(m_state >> 11) % limit;
    }
    std::wstring Pick(std::initializer_list<const wchar_t*> choices) {
        return choices.begin()[Below(choices.size())];
    }

    std::wstring Name() {
        if (m_hasOddities && Below(20) == 0)
            return Pick({L"", L"1a", L"a b", L"a:b", L":", L"xmlns", L"x:", L"a\u00D7", L"\U00010000a",
                         L"\U000F0000", L"a\uE000", L"-", L"\xD800", L"xml:b", L"xmlns:c"}) +
                   (Below(8) == 0 ? std::wstring(1, L'\0') + L"z" : L"");
        return Pick({L"a", L"Item", L"清单", L"B-1", L"_c", L"\u9FA5", L"z.9"});
    }

    std::wstring Text() {
        std::wstring text;
        for (std::size_t i = Below(5); i > 0; --i) {
            text += Pick({L"a",      L"墙面",   L"<",      L">",     L"&",      L"\"",    L"'",
                          L"\n",     L"\r",     L"\t",     L"  ",    L"\n    ", L"]]>",   L"\U0001F3D7",
                          L"\u0080", L"\u07FF", L"\uFFFD", L"&amp;", L" ",      L"\u2028"});
            if (m_hasOddities && Below(40) == 0)
                text += Pick({L"\x1", L"\uFFFE", L"\xD800", L"\xDC00", L"\xDC00\xD800", L"\xD83C\xDFD7",
                              L"\x7F", L"\x1F"});
            if (m_hasOddities && Below(60) == 0)
                text += L'\0';
        }
        if (Below(100) == 0)
            text += std::wstring(Below(70'000), L'长');
        return text;
    }

    XMLNode* Node() {
        auto* node = new XMLNode;
        node->Name = Name();
        node->Text = Below(2) == 0 ? Text() : L"";
        node->Extra = L"never written";
        for (std::size_t i = Below(4); i > 0; --i)
            node->Attributes[Name()] = Text();
        for (std::size_t i = Below(4); i > 0 && m_left > 0; --i) {
            --m_left;
            node->Children.push_back(Node());
        }
        return node;
    }

    std::uint64_t m_state;
    std::size_t m_left = 0;
    bool m_hasOddities = false;
};

/// What came of a write: the bytes, or the kind of the exception.
template <typename Write>
std::string OutcomeOf(Write write) {
    try {
        return write();
    } catch (const xercesc::DOMLSException& exception) {
        return "DOMLSException " + std::to_string(exception.code);
    } catch (const xercesc::DOMException& exception) {
        return "DOMException " + std::to_string(exception.code);
    } catch (const xercesc::XMLException&) {
        return "XMLException";
    }
}

class TreeWriter : public ::testing::Test {
protected:
    std::string Write(const XMLNode& root, bool prettyPrint) {
        QsXml::WriteTree(root, m_folder.File("file.xml").wstring(), prettyPrint);
        return m_folder.Read("file.xml");
    }
    std::string WriteText(const std::wstring& text) {
        XMLNode root;
        root.Name = L"a";
        root.Text = text;
        return Write(root, false).substr(head.size());
    }

    const std::string head = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>";
    TemporaryFolder m_folder;
};

TEST_F(TreeWriter, WritesElementsAttributesAndTextInFront) {
    XMLNode root;
    root.Name = L"工程";
    root.Attributes = {{L"z", L"1"}, {L"b", L"<\"&\n>"}};
    root.Text = L"text";
    auto* child = new XMLNode;
    child->Name = L"b";
    root.Children = {child, nullptr};
    EXPECT_EQ(Write(root, false), head + "<工程 b=\"&lt;&quot;&amp;&#xA;>\" z=\"1\">text<b/></工程>");
    EXPECT_EQ(Write(root, true),
              head + "\n<工程 b=\"&lt;&quot;&amp;&#xA;>\" z=\"1\">text\n\n  <b/>\n\n</工程>\n");
}

TEST_F(TreeWriter, EscapesWhatMarkupNeeds) {
    EXPECT_EQ(WriteText(L"<&>\r\n\t\"'"), "<a>&lt;&amp;&gt;&#xD;\n\t\"'</a>");
    EXPECT_EQ(WriteText(L"㎡\U0001F3D7"), "<a>㎡\U0001F3D7</a>");
    EXPECT_EQ(WriteText(std::wstring(L"a\0b", 3)), "<a>a</a>") << "a text ends at its NUL";
}

TEST_F(TreeWriter, WhatTheParserReadsComesBack) {
    const std::string text = "<a><b k='1'>\n  <c/>\n</b><b/></a>";
    std::u16string error;
    const std::unique_ptr<XMLNode> root(
        QsXml::ReadTree(*QsXml::BytesInput(text, u"document"), text.size(), error));
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(Write(*root, false), head + "<a><b k=\"1\">\n  <c/></b><b/></a>")
        << "the blanks in front of the first child stay, all others go";
}

TEST_F(TreeWriter, AFailureLeavesTheFileAsItWas) {
    m_folder.Write("file.xml", "old");
    XMLNode root;
    root.Name = L"1";
    EXPECT_THROW(Write(root, false), xercesc::DOMException);
    root.Name = L"a";
    root.Text = std::wstring(100'000, L'x') + L"\x1";
    EXPECT_THROW(Write(root, false), xercesc::DOMLSException);
    EXPECT_EQ(m_folder.Read("file.xml"), "old");
    EXPECT_EQ(m_folder.Entries(), 1);
    root.Text.clear();
    EXPECT_THROW(QsXml::WriteTree(root, m_folder.File("none/file.xml").wstring(), false),
                 xercesc::XMLException);
    EXPECT_THROW(QsXml::WriteTree(root, m_folder.Path().wstring(), false), xercesc::XMLException);
}

TEST_F(TreeWriter, IndentationStopsGrowing) {
    XMLNode root;
    root.Name = L"a";
    XMLNode* last = &root;
    for (int depth = 0; depth < 3000; ++depth) {
        last->Children.push_back(new XMLNode);
        last = last->Children.back();
        last->Name = L"a";
    }
    const std::string bytes = Write(root, true);
    EXPECT_LT(bytes.size(), 3000u * 2 * (2 * 256 + 8));
    EXPECT_NE(bytes.find("\n" + std::string(512, ' ') + "<a>"), std::string::npos);
    EXPECT_EQ(bytes.find("\n" + std::string(513, ' ')), std::string::npos);
}

// The writer gives exactly the bytes of the serializer, and fails as it does.
TEST_F(TreeWriter, AgreesWithTheSerializer) {
    int good = 0;
    for (std::uint64_t seed = 1; seed <= 30; ++seed) {
        Trees trees(seed);
        for (int i = 0; i < Rounds(10'000); ++i) {
            const std::unique_ptr<XMLNode> root = trees.Next();
            const bool prettyPrint = i % 2 == 0;
            const std::string expected = OutcomeOf([&] { return PlainXml::WriteTree(*root, prettyPrint); });
            const std::string written = OutcomeOf([&] {
                xercesc::MemBufFormatTarget target;
                QsXml::WriteTree(*root, target, prettyPrint);
                return std::string(reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen());
            });
            ASSERT_EQ(written, expected) << "seed " << seed << ", tree " << i;
            good += expected.starts_with("<") ? 1 : 0;
        }
    }
    EXPECT_GT(good, Rounds(200'000));
    EXPECT_LT(good, Rounds(300'000));
}

}  // namespace
