#include <memory>

#include <gtest/gtest.h>

#include "QsUtils/text/CString.h"
#include "QsUtils/xml/TreeReader.h"
#include "QsUtils/xml/XmlInput.h"

#include "tests/support/Rounds.h"
#include "tests/xml/PlainTreeReader.h"
#include "tests/xml/RandomDocument.h"

namespace {

const std::u16string documentName = u"document";

std::unique_ptr<XMLNode> Read(std::string_view bytes, std::u16string* error = nullptr) {
    std::u16string reason;
    std::unique_ptr<XMLNode> root(
        QsXml::ReadTree(*QsXml::BytesInput(bytes, documentName), bytes.size(), reason));
    if (error != nullptr)
        *error = reason;
    return root;
}

/// The text of the root's record.
std::wstring TextOfRoot(std::string_view bytes) {
    const std::unique_ptr<XMLNode> root = Read(bytes);
    return root == nullptr ? L"null" : root->Text;
}

std::wstring Tree(std::string_view bytes) {
    return PlainXml::TextOf(Read(bytes).get());
}

TEST(TreeReader, TheFirstChildNodeAloneMakesTheText) {
    EXPECT_EQ(Tree("<a>text<b/>more</a>"), L"(a|text|(b||))");
    EXPECT_EQ(TextOfRoot("<a><b/>more</a>"), L"");
    EXPECT_EQ(TextOfRoot("<a>\n  <b/>\n</a>"), L"\n  ");
    EXPECT_EQ(TextOfRoot("<a> text </a>"), L" text ");
    EXPECT_EQ(TextOfRoot("<a/>"), L"");
    EXPECT_EQ(TextOfRoot("<a></a>"), L"");
}

TEST(TreeReader, CommentsSectionsAndInstructionsAreChildNodes) {
    EXPECT_EQ(TextOfRoot("<a><!-- c -->text</a>"), L" c ");
    EXPECT_EQ(TextOfRoot("<a><![CDATA[<&>]]>text</a>"), L"<&>");
    EXPECT_EQ(TextOfRoot("<a><?go on?>text</a>"), L"on");
    EXPECT_EQ(TextOfRoot("<a><?go?>text</a>"), L"");
    EXPECT_EQ(TextOfRoot("<a>x<!-- c -->y</a>"), L"x");
    EXPECT_EQ(TextOfRoot("<a>x<![CDATA[y]]>z</a>"), L"x");
}

TEST(TreeReader, CharacterReferencesAndPredefinedEntitiesBelongToTheText) {
    EXPECT_EQ(TextOfRoot("<a>1&lt;2&#x20;&amp;&#x4E00;</a>"), L"1<2 &\u4E00");
    EXPECT_EQ(TextOfRoot("<a>&#x1F3D7;</a>"), L"\U0001F3D7");
}

TEST(TreeReader, AnEntityReferenceIsAChildNodeWithoutValue) {
    const std::string head = "<!DOCTYPE a [<!ENTITY e 'inside'><!ENTITY f '<b/>x<c/>'>]>";
    EXPECT_EQ(TextOfRoot(head + "<a>&e; behind</a>"), L"");
    EXPECT_EQ(TextOfRoot(head + "<a>before &e; behind</a>"), L"before ");
    EXPECT_EQ(Tree(head + "<a>&f;<d/></a>"), L"(a||(b||)(c||)(d||))") << "its elements are the element's";
    EXPECT_EQ(Tree(head + "<a k='&e;'/>"), L"(a|||k=inside)");
}

TEST(TreeReader, LineEndsAreNormalised) {
    EXPECT_EQ(TextOfRoot("<a>1\r\n2\r3</a>"), L"1\n2\n3");
    EXPECT_EQ(Tree("<a k='1\r\n2\t3'/>"), L"(a|||k=1 2 3)");
}

TEST(TreeReader, AttributesAreAscendingAndDefaultsAreThere) {
    EXPECT_EQ(Tree("<a z='1' b='2' A='3'/>"), L"(a|||A=3|b=2|z=1)");
    EXPECT_EQ(Tree("<!DOCTYPE a [<!ATTLIST a d CDATA 'x' e CDATA 'y' f CDATA #IMPLIED>]><a e='1'/>"),
              L"(a|||d=x|e=1)");
    EXPECT_EQ(Tree("<a k=''/>"), L"(a|||k=)");
}

TEST(TreeReader, NamesStandAsInTheFile) {
    EXPECT_EQ(Tree("<x:清单 xmlns:x='u' x:单位='m2'/>"), L"(x:清单|||x:单位=m2|xmlns:x=u)");
}

TEST(TreeReader, OnlyElementsBecomeRecords) {
    EXPECT_EQ(Tree("<?pi?><!--c--><a>t<!--c--><b/><?pi?><![CDATA[d]]><b/>u</a><!--c-->"),
              L"(a|t|(b||)(b||))");
}

TEST(TreeReader, KnowsTheEncodingsOfTheTrade) {
    const std::u16string body = u"<a 单位=\"㎡\">挖土</a>";
    const std::wstring tree = L"(a|挖土||单位=㎡)";
    EXPECT_EQ(Tree(PlainXml::Encode(body, "UTF-8")), tree);
    EXPECT_EQ(Tree("\xEF\xBB\xBF" + PlainXml::Encode(body, "UTF-8")), tree);
    EXPECT_EQ(Tree(PlainXml::Encode(body, "UTF-16LE")), tree);
    EXPECT_EQ(Tree(PlainXml::Encode(body, "UTF-16BE")), tree);
    for (const char* name : {"GBK", "gbk", "GB2312", "gb2312", "GB18030", "gb18030", "CP936", "windows-936"})
        EXPECT_EQ(Tree("<?xml version=\"1.0\" encoding=\"" + std::string(name) + "\"?>" +
                       PlainXml::Encode(body, "GBK")),
                  tree)
            << name;
    EXPECT_EQ(Tree("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>"), L"(a|\u00E9|)");
}

TEST(TreeReader, CharactersBeyondTheBasicPlaneSurvive) {
    // Placed so that a pair of surrogates meets every boundary of the parser's buffers.
    for (std::size_t blanks = 16'300; blanks < 16'420; ++blanks) {
        const std::string bytes = "<a>" + std::string(blanks, ' ') + "\xF0\x9F\x8F\x97</a>";
        const std::wstring text = TextOfRoot(bytes);
        EXPECT_EQ(text, std::wstring(blanks, L' ') + L"\U0001F3D7") << blanks;
    }
}

TEST(TreeReader, BadDocumentsGiveNullAndTheReason) {
    for (const char* bytes :
         {"", " ", "<", "<a>", "<a></b>", "<a/><b/>", "text", "<a b='1' b='2'/>", "<a>&none;</a>",
          "<a>\x01</a>", "<a>\xFF</a>", "<?xml version=\"1.0\" encoding=\"none\"?><a/>", "<a/>trailing",
          "<a>]]></a>", "<!DOCTYPE a", "<a><![CDATA[</a>"}) {
        std::u16string error;
        EXPECT_EQ(Read(bytes, &error), nullptr) << bytes;
        EXPECT_FALSE(error.empty()) << bytes;
    }
}

// The reader gives exactly what a walk over the DOM of the same bytes gives, for bad documents the same
// words.
TEST(TreeReader, AgreesWithTheDom) {
    int good = 0;
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        PlainXml::RandomDocument random(seed);
        for (int i = 0; i < Rounds(10'000); ++i) {
            const std::string bytes = random.Next();
            std::u16string expectedError;
            std::u16string error;
            const auto expected = PlainXml::ReadTree(bytes, expectedError);
            const auto tree = Read(bytes, &error);
            ASSERT_EQ(PlainXml::TextOf(tree.get()), PlainXml::TextOf(expected.get())) << bytes;
            if (expected == nullptr) {
                ASSERT_EQ(CString(error), CString(expectedError)) << bytes;
            }
            good += expected != nullptr ? 1 : 0;
        }
    }
    EXPECT_GT(good, Rounds(150'000));
}

}  // namespace
