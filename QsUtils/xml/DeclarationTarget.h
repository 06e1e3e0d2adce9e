// A target that writes another name of the encoding into the XML declaration.
#pragma once

#include <string>
#include <string_view>

#include <xercesc/framework/XMLFormatter.hpp>

namespace QsXml {

/// Passes a document on to another target, with `to` in place of the encoding `from` in its declaration; for
/// encodings that extend ASCII. With an empty `to` the document passes as it is.
class DeclarationTarget final : public xercesc::XMLFormatTarget {
public:
    DeclarationTarget(xercesc::XMLFormatTarget& target, std::string_view from, std::string_view to)
        : m_target(target), m_from(from), m_to(to), m_inDeclaration(!to.empty()) {}

    void writeChars(const XMLByte* bytes, XMLSize_t count, xercesc::XMLFormatter* formatter) override;

private:
    xercesc::XMLFormatTarget& m_target;
    const std::string m_from;
    const std::string m_to;
    bool m_inDeclaration;
    std::string m_declaration;
};

}  // namespace QsXml
