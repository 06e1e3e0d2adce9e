#include "QsUtils/xml/TreeWriter.h"

#include <algorithm>
#include <string_view>
#include <utility>
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

std::u16string DomName(const std::wstring& wide) {
    std::u16string name = DomText(wide);
    if (!xercesc::XMLChar1_0::isValidName(Xml(name), name.size()))
        throw xercesc::DOMException(xercesc::DOMException::INVALID_CHARACTER_ERR, 0,
                                    xercesc::XMLPlatformUtils::fgMemoryManager);
    return name;
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
            static_cast<void>(DomName(node.Name));
            for (const auto& attribute : node.Attributes)
                static_cast<void>(DomName(attribute.first));
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
    using Attribute = std::pair<std::u16string, std::u16string>;

    int Begin(const XMLNode& node, std::size_t level);
    void End(const XMLNode& node, std::size_t level, int line);
    void WriteAttributes(const XMLNode& node);
    void WriteText(const std::u16string& text);
    void BreakLine();
    void Indent(std::size_t level);

    static bool HasContent(const XMLNode& node) {
        return !node.Text.empty() ||
               std::any_of(node.Children.begin(), node.Children.end(), [](auto child) { return child; });
    }

    Utf8Output m_output;
    const bool m_prettyPrint;
    std::vector<Attribute> m_attributes;
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
    m_output.Name(DomText(node.Name));
    WriteAttributes(node);
    if (HasContent(node)) {
        m_output.Plain(">");
        if (!node.Text.empty())
            WriteText(DomText(node.Text));
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
    m_output.Name(DomText(node.Name));
    m_output.Plain(">");
}

void TreeWriter::WriteAttributes(const XMLNode& node) {
    m_attributes.clear();
    for (const auto& [name, value] : node.Attributes)
        m_attributes.emplace_back(DomText(name), DomText(value));
    // Wide characters may stand in another order than their units, and a NUL makes names alike that differ
    // behind it: the last one counts.
    const auto isBefore = [](const Attribute& a, const Attribute& b) { return a.first < b.first; };
    if (!std::is_sorted(m_attributes.begin(), m_attributes.end(), isBefore))
        std::stable_sort(m_attributes.begin(), m_attributes.end(), isBefore);
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        const auto& [name, value] = m_attributes[i];
        if (i + 1 < m_attributes.size() && m_attributes[i + 1].first == name)
            continue;
        m_output.Plain(" ");
        m_output.Name(name);
        m_output.Plain("=\"");
        m_output.AttributeValue(value);
        m_output.Plain("\"");
    }
}

void TreeWriter::WriteText(const std::u16string& text) {
    m_output.Check(text);
    m_textBrokeLine = false;
    m_blanksOfText = 0;
    if (m_prettyPrint && text.find_first_not_of(u" \t\r\n") == std::u16string::npos) {
        std::size_t lastBreak = text.rfind(u'\n');
        if (lastBreak == std::u16string::npos)
            lastBreak = text.rfind(u'\r');
        if (lastBreak != std::u16string::npos) {
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
