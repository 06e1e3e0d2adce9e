#include "QsUtils/xml/DocumentWriter.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/dom/DOMLSOutput.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include "QsUtils/platform/DeepStack.h"
#include "QsUtils/xml/DeclarationTarget.h"
#include "QsUtils/xml/EncodingNames.h"
#include "QsUtils/xml/FileTarget.h"
#include "QsUtils/xml/Release.h"
#include "QsUtils/xml/XmlText.h"

namespace QsXml {

namespace {

// The serializer calls itself once a level. Up to this depth it fits into the smallest stack that hosts give
// their threads; beyond, it gets one that the depth can't exhaust.
constexpr std::size_t ShallowDepth = 128;
constexpr std::size_t StackForLevel = 2048;
constexpr std::size_t StackForRest = std::size_t{1} << 20;

/// The next node below an element behind `node`; moves `depth` along. Null behind the whole element.
const xercesc::DOMNode* NextNode(const xercesc::DOMNode* node, std::size_t& depth) {
    if (node->getNodeType() == xercesc::DOMNode::ELEMENT_NODE) {
        if (const xercesc::DOMNode* const child = node->getFirstChild()) {
            ++depth;
            return child;
        }
    }
    while (depth > 1 && node->getNextSibling() == nullptr) {
        node = node->getParentNode();
        --depth;
    }
    return depth > 1 ? node->getNextSibling() : nullptr;
}

/// How to write a document where the serializer, left alone, would not write what it was read from.
struct OutputEncoding {
    std::string name;      // for the serializer; empty when its own choice is right
    std::string declared;  // in the declaration, if that is another one
};

OutputEncoding EncodingOf(const xercesc::DOMDocument& document) {
    const std::u16string_view input = Units(document.getInputEncoding());
    const std::string name(input.begin(), input.end());
    if (const std::string_view known = ParserEncoding(name); !known.empty())
        return {std::string(known), name};
    // The parser's own name for UTF-16 without a declaration, "UTF-16 (LE)", is none that it reads again.
    const std::size_t bracket = name.find(" (");
    if (bracket != std::string::npos && name.back() == ')')
        return {name.substr(0, bracket) + name.substr(bracket + 2, name.size() - bracket - 3), {}};
    return {};
}

}  // namespace

std::size_t DepthOf(const xercesc::DOMDocument& document) {
    std::size_t deepest = 0;
    std::size_t depth = 1;
    for (const xercesc::DOMNode* node = document.getDocumentElement(); node != nullptr;
         node = NextNode(node, depth))
        deepest = std::max(deepest, depth);
    return deepest;
}

bool WriteDocument(const xercesc::DOMDocument& document, xercesc::DOMLSSerializer& serializer,
                   const std::wstring& path) {
    FileTarget target(path);
    xercesc::DOMImplementation* const implementation =
        xercesc::DOMImplementationRegistry::getDOMImplementation(Xml(u"LS"));
    const Released<xercesc::DOMLSOutput> output(
        implementation->createLSOutput(xercesc::XMLPlatformUtils::fgMemoryManager));
    const OutputEncoding encoding = EncodingOf(document);
    DeclarationTarget declaration(target, encoding.name, encoding.declared);
    output->setByteStream(&declaration);
    if (!encoding.name.empty())
        output->setEncoding(Xml(std::u16string(encoding.name.begin(), encoding.name.end())));
    bool written = false;
    auto write = [&] { written = serializer.write(&document, output.get()); };
    const std::size_t depth = DepthOf(document);
    if (depth <= ShallowDepth) {
        write();
    } else {
        QsPlatform::RunOnDeepStack(
            StackForRest + depth * StackForLevel,
            [](void* argument) { (*static_cast<decltype(write)*>(argument))(); }, &write);
    }
    if (written)
        target.Commit();
    return written;
}

}  // namespace QsXml
