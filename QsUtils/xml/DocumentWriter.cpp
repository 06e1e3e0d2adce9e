#include "QsUtils/xml/DocumentWriter.h"

#include <algorithm>
#include <memory>

#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/dom/DOMLSOutput.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include "QsUtils/platform/DeepStack.h"
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
    output->setByteStream(&target);
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
