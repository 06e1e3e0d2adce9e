#include "QsUtils/xml/TreeReader.h"

#include <memory>
#include <vector>

#include <xercesc/framework/XMLAttDefList.hpp>
#include <xercesc/framework/XMLAttr.hpp>

#include "QsUtils/xml/DocumentScan.h"
#include "QsUtils/xml/XmlText.h"

namespace QsXml {

namespace {

/// Makes the records. Only the first child node of an element has a say in its text; what comes later, and
/// what an entity holds, doesn't.
class TreeBuilder final : public ScanEvents {
public:
    XMLNode* Release() noexcept { return m_root.release(); }

    void StartElement(const xercesc::XMLElementDecl& element, const Attributes& attributes,
                      std::size_t count) override;
    void EndElement() override;
    void Text(std::u16string_view piece) override;
    void Node(std::u16string_view value) override;
    void StartReference() override { EndText(); }
    void EndReference() override { EndText(); }

private:
    enum class State { Empty, InText, Done };

    XMLNode& Append();
    void EndText();

    std::unique_ptr<XMLNode> m_root;
    std::vector<XMLNode*> m_path;
    State m_state = State::Done;  // of the innermost element; all others have a child already
    std::u16string m_text;        // its first child, as long as that goes on
};

XMLNode& TreeBuilder::Append() {
    auto node = std::make_unique<XMLNode>();
    XMLNode* const place = node.get();
    m_path.push_back(place);
    if (m_path.size() == 1) {
        m_root = std::move(node);
    } else {
        m_path[m_path.size() - 2]->Children.push_back(place);
        static_cast<void>(node.release());
    }
    return *place;
}

void AddDefaults(const xercesc::XMLElementDecl& element, XMLNode& node) {
    if (!element.hasAttDefs())
        return;
    const xercesc::XMLAttDefList& defaults = element.getAttDefList();
    for (XMLSize_t i = 0; i < defaults.getAttDefCount(); ++i) {
        const xercesc::XMLAttDef& attribute = defaults.getAttDef(i);
        const auto type = attribute.getDefaultType();
        if (type == xercesc::XMLAttDef::Default || type == xercesc::XMLAttDef::Fixed)
            node.Attributes.try_emplace(Wide(attribute.getFullName()), Wide(attribute.getValue()));
    }
}

void TreeBuilder::StartElement(const xercesc::XMLElementDecl& element, const Attributes& attributes,
                               std::size_t count) {
    EndText();
    XMLNode& node = Append();
    node.Name = Wide(element.getFullName());
    for (std::size_t i = 0; i < count; ++i) {
        const xercesc::XMLAttr& attribute = *attributes.elementAt(i);
        node.Attributes.try_emplace(Wide(attribute.getName()), Wide(attribute.getValue()));
    }
    AddDefaults(element, node);
    m_state = State::Empty;
}

void TreeBuilder::EndElement() {
    EndText();
    m_path.back()->Children.shrink_to_fit();
    m_path.pop_back();
    m_state = State::Done;
}

void TreeBuilder::Text(std::u16string_view piece) {
    if (m_state == State::Done)
        return;
    m_state = State::InText;
    m_text += piece;
}

void TreeBuilder::Node(std::u16string_view value) {
    if (m_state == State::Empty)
        m_path.back()->Text = QsText::Utf16ToWide(value);
    EndText();
    m_state = State::Done;
}

void TreeBuilder::EndText() {
    if (m_state == State::InText) {
        m_path.back()->Text = QsText::Utf16ToWide(m_text);
        m_text.clear();
    }
    m_state = State::Done;
}

bool Scan(const xercesc::InputSource& document, std::size_t size, ScanEvents* events, std::u16string& error) {
    ScanMemory memory(size);
    DocumentScan scan(memory, size, events);
    if (scan.Run(document))
        return true;
    error = scan.ErrorText();
    return false;
}

}  // namespace

XMLNode* ReadTree(const xercesc::InputSource& document, std::size_t size, std::u16string& error) {
    TreeBuilder builder;
    return Scan(document, size, &builder, error) ? builder.Release() : nullptr;
}

bool CheckDocument(const xercesc::InputSource& document, std::size_t size, std::u16string& error) {
    return Scan(document, size, nullptr, error);
}

}  // namespace QsXml
