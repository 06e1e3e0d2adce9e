// The tree reader against a walk over the DOM of the same bytes, and the way back against the serializer.
#include <cstdlib>
#include <memory>

#include <xercesc/framework/MemBufFormatTarget.hpp>

#include "QsUtils/xml/TreeReader.h"
#include "QsUtils/xml/TreeWriter.h"
#include "QsUtils/xml/XmlInput.h"

#include "tests/xml/PlainTreeReader.h"
#include "tests/xml/PlainTreeWriter.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

/// The written bytes, or nothing for what can't be written.
template <typename Write>
std::string Written(Write write) {
    try {
        return write();
    } catch (const xercesc::DOMException&) {
        return {};
    }
}

void RequireSameBytes(const XMLNode& root, bool prettyPrint) {
    const std::string expected = Written([&] { return PlainXml::WriteTree(root, prettyPrint); });
    const std::string written = Written([&] {
        xercesc::MemBufFormatTarget target;
        QsXml::WriteTree(root, target, prettyPrint);
        return std::string(reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen());
    });
    Require(written == expected);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::u16string name = u"document";
    std::u16string error;
    const std::unique_ptr<XMLNode> root(
        QsXml::ReadTree(*QsXml::BytesInput(bytes, name), bytes.size(), error));
    Require((root == nullptr) == !error.empty());
    // A document that is beyond the limits has nothing to be compared with.
    for (const std::u16string_view limit :
         {u"the contents ", u"the document ", u"the elements ", u"an element has"}) {
        if (error.starts_with(limit))
            return 0;
    }
    std::u16string expectedError;
    const std::unique_ptr<XMLNode> expected = PlainXml::ReadTree(bytes, expectedError);
    Require(PlainXml::TextOf(root.get()) == PlainXml::TextOf(expected.get()));
    Require(error == expectedError);
    if (root != nullptr) {
        RequireSameBytes(*root, false);
        RequireSameBytes(*root, true);
    }
    return 0;
}
