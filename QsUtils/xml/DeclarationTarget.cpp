#include "QsUtils/xml/DeclarationTarget.h"

namespace QsXml {

void DeclarationTarget::writeChars(const XMLByte* bytes, XMLSize_t count, xercesc::XMLFormatter* formatter) {
    if (!m_inDeclaration) {
        m_target.writeChars(bytes, count, formatter);
        return;
    }
    // The serializer begins with the declaration, in pieces.
    m_declaration.append(reinterpret_cast<const char*>(bytes), count);
    if (m_declaration.find("?>") == std::string::npos)
        return;
    m_inDeclaration = false;
    const std::string name = "encoding=\"" + m_from + "\"";
    if (const std::size_t at = m_declaration.find(name); at != std::string::npos)
        m_declaration.replace(at, name.size(), "encoding=\"" + m_to + "\"");
    m_target.writeChars(reinterpret_cast<const XMLByte*>(m_declaration.data()), m_declaration.size(),
                        formatter);
}

}  // namespace QsXml
