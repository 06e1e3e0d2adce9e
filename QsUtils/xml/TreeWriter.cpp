#include "QsUtils/xml/TreeWriter.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <vector>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/dom/DOMLSException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLChar.hpp>
#include <xercesc/util/XMLDOMMsg.hpp>

#include "QsUtils/xml/FileTarget.h"
#include "QsUtils/xml/Utf8Output.h"
#include "QsUtils/xml/XmlText.h"

namespace QsXml {

namespace {

constexpr unsigned DeepestIndent = 256;

/// A text as the DOM would take it.
std::u16string DomText(const std::wstring& wide) {
    std::u16string text = QsText::WideToUtf16(wide);
    text.resize(std::min(text.find(u'\0'), text.size()));
    return text;
}

/// The same without leaving the wide characters.
std::wstring_view UpToNul(const std::wstring& text) {
    return std::wstring_view(text).substr(0, text.find(L'\0'));
}

/// Whether a name is one by its ASCII letters alone, as most are.
bool IsPlainName(std::wstring_view name) {
    const auto isStart = [](wchar_t c) {
        return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_' || c == L':';
    };
    const auto isPart = [&](wchar_t c) {
        return isStart(c) || (c >= L'0' && c <= L'9') || c == L'-' || c == L'.';
    };
    return !name.empty() && isStart(name.front()) && std::all_of(name.begin(), name.end(), isPart);
}

void CheckName(const std::wstring& wide) {
    if (IsPlainName(wide))
        return;
    const std::u16string name = DomText(wide);
    if (!xercesc::XMLChar1_0::isValidName(Xml(name), name.size()))
        throw xercesc::DOMException(xercesc::DOMException::INVALID_CHARACTER_ERR, 0,
                                    xercesc::XMLPlatformUtils::fgMemoryManager);
}

/// The root's name has to be one for namespaces as well, which the DOM alone knows.
void CheckRootName(const std::wstring& name) {
    xercesc::DOMImplementation* const implementation =
        xercesc::DOMImplementationRegistry::getDOMImplementation(Xml(u"LS"));
    implementation
        ->createDocument(nullptr, Xml(DomText(name)), nullptr, xercesc::XMLPlatformUtils::fgMemoryManager)
        ->release();
}

struct Place {
    const XMLNode* node;
    std::size_t next;  // among the children
    int line;
};

/// Calls `enter` for each record before its children and `leave` behind them.
template <typename Enter, typename Leave>
void Walk(const XMLNode& root, Enter enter, Leave leave) {
    std::vector<Place> path;
    path.push_back({&root, 0, 0});
    path.back().line = enter(root, std::size_t{0});
    while (!path.empty()) {
        Place& place = path.back();
        if (place.next < place.node->Children.size()) {
            if (const XMLNode* const child = place.node->Children[place.next++]) {
                const int line = enter(*child, path.size());
                path.push_back({child, 0, line});
            }
        } else {
            const Place left = place;
            path.pop_back();
            leave(*left.node, path.size(), left.line);
        }
    }
}

void CheckNames(const XMLNode& root) {
    CheckRootName(root.Name);
    Walk(
        root,
        [](const XMLNode& node, std::size_t) {
            CheckName(node.Name);
            for (const auto& attribute : node.Attributes)
                CheckName(attribute.first);
            return 0;
        },
        [](const XMLNode&, std::size_t, int) {});
}

class TreeWriter {
public:
    TreeWriter(xercesc::XMLFormatTarget& target, bool prettyPrint)
        : m_output(target), m_prettyPrint(prettyPrint) {}

    void Write(const XMLNode& root);

private:
    int Begin(const XMLNode& node, std::size_t level);
    void End(const XMLNode& node, std::size_t level, int line);
    void WriteAttributes(const XMLNode& node);
    void SortAttributes(const XMLNode& node);
    template <typename Unit>
    void WriteAttribute(std::basic_string_view<Unit> name, std::basic_string_view<Unit> value);
    void WriteText(std::wstring_view text);
    void BreakLine();
    void Indent(std::size_t level);

    static bool HasContent(const XMLNode& node) {
        return !node.Text.empty() ||
               std::any_of(node.Children.begin(), node.Children.end(), [](auto child) { return child; });
    }

    Utf8Output m_output;
    const bool m_prettyPrint;
    // Pretty printing. Where a text of blanks has broken the line already, no second break follows, and its
    // last blanks count as indentation.
    int m_line = 0;
    bool m_textBrokeLine = false;
    std::size_t m_blanksOfText = 0;
};

void TreeWriter::Write(const XMLNode& root) {
    m_output.Plain("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\" ?>");
    Walk(
        root, [this](const XMLNode& node, std::size_t level) { return Begin(node, level); },
        [this](const XMLNode& node, std::size_t level, int line) { End(node, level, line); });
    BreakLine();
    m_output.Flush();
}

int TreeWriter::Begin(const XMLNode& node, std::size_t level) {
    if (!m_textBrokeLine) {
        if (level == 1)
            BreakLine();
        BreakLine();
    }
    m_textBrokeLine = false;
    Indent(level);
    const int line = m_line;
    m_output.Plain("<");
    m_output.Name(UpToNul(node.Name));
    WriteAttributes(node);
    if (HasContent(node)) {
        m_output.Plain(">");
        if (!node.Text.empty())
            WriteText(UpToNul(node.Text));
    } else {
        m_output.Plain("/>");
    }
    return line;
}

void TreeWriter::End(const XMLNode& node, std::size_t level, int line) {
    if (!HasContent(node))
        return;
    if (line != m_line) {
        if (!m_textBrokeLine)
            BreakLine();
        m_textBrokeLine = false;
        if (level == 0)
            BreakLine();
        Indent(level);
    }
    m_output.Plain("</");
    m_output.Name(UpToNul(node.Name));
    m_output.Plain(">");
}

template <typename Unit>
void TreeWriter::WriteAttribute(std::basic_string_view<Unit> name, std::basic_string_view<Unit> value) {
    m_output.Plain(" ");
    m_output.Name(name);
    m_output.Plain("=\"");
    m_output.AttributeValue(value);
    m_output.Plain("\"");
}

void TreeWriter::WriteAttributes(const XMLNode& node) {
    // Wide characters may stand in another order than their units, and a NUL makes names alike that differ
    // behind it. Neither happens to names of ASCII or of hanzi.
    const auto isOrdinary = [](wchar_t c) { return c != L'\0' && static_cast<char32_t>(c) < 0xD800; };
    for (const auto& attribute : node.Attributes) {
        if (!std::all_of(attribute.first.begin(), attribute.first.end(), isOrdinary)) {
            SortAttributes(node);
            return;
        }
    }
    for (const auto& [name, value] : node.Attributes)
        WriteAttribute(std::wstring_view(name), UpToNul(value));
}

void TreeWriter::SortAttributes(const XMLNode& node) {
    std::map<std::u16string, std::u16string> attributes;
    for (const auto& [name, value] : node.Attributes)
        attributes[DomText(name)] = DomText(value);  // the last of several counts
    for (const auto& [name, value] : attributes)
        WriteAttribute(std::u16string_view(name), std::u16string_view(value));
}

void TreeWriter::WriteText(std::wstring_view text) {
    m_textBrokeLine = false;
    m_blanksOfText = 0;
    if (m_prettyPrint && text.find_first_not_of(L" \t\r\n") == std::wstring_view::npos) {
        std::size_t lastBreak = text.rfind(L'\n');
        if (lastBreak == std::wstring_view::npos)
            lastBreak = text.rfind(L'\r');
        if (lastBreak != std::wstring_view::npos) {
            m_textBrokeLine = true;
            m_blanksOfText = text.size() - lastBreak;
        }
    }
    m_output.CharacterData(text);
}

void TreeWriter::BreakLine() {
    if (m_prettyPrint) {
        ++m_line;
        m_output.Plain("\n");
    }
}

void TreeWriter::Indent(std::size_t level) {
    if (!m_prettyPrint)
        return;
    level -= std::min(level, m_blanksOfText / 2);  // two blanks a level
    m_blanksOfText = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(level, DeepestIndent); ++i)
        m_output.Plain("  ");
}

}  // namespace

void WriteTree(const XMLNode& root, xercesc::XMLFormatTarget& target, bool prettyPrint) {
    CheckNames(root);
    TreeWriter(target, prettyPrint).Write(root);
}

void WriteTree(const XMLNode& root, const std::wstring& path, bool prettyPrint) {
    CheckNames(root);  // before the file, as the DOM would
    FileTarget target(path);
    TreeWriter(target, prettyPrint).Write(root);
    target.Commit();
}

}  // namespace QsXml
