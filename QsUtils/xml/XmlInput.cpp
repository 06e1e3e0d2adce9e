#include "QsUtils/xml/XmlInput.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include "QsUtils/xml/EncodingNames.h"
#include "QsUtils/xml/XmlText.h"

namespace QsXml {

std::unique_ptr<xercesc::InputSource> BytesInput(std::string_view bytes, const std::u16string& name) {
    auto input = std::make_unique<xercesc::MemBufInputSource>(reinterpret_cast<const XMLByte*>(bytes.data()),
                                                              bytes.size(), Xml(name), false,
                                                              xercesc::XMLPlatformUtils::fgMemoryManager);
    input->setCopyBufToStream(false);
    if (NamesGb2312(DeclaredEncoding(bytes)))
        input->setEncoding(Xml(GbkName()));
    return input;
}

std::unique_ptr<xercesc::InputSource> EmptyInput() {
    static constexpr XMLByte nothing = 0;
    return std::make_unique<xercesc::MemBufInputSource>(&nothing, 0, Xml(u""), false,
                                                        xercesc::XMLPlatformUtils::fgMemoryManager);
}

}  // namespace QsXml
