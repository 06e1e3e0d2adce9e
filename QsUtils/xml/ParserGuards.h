// What watches a parser that builds documents.
#pragma once

#include <string>

#include <xercesc/dom/DOMConfiguration.hpp>
#include <xercesc/dom/DOMErrorHandler.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>

namespace QsXml {

/// Keeps a parser from reading anything but what it is given, and listens to its errors: the parser hands
/// back a document for a bad file, too, when nobody does.
class ParserGuards final : public xercesc::DOMErrorHandler, public xercesc::XMLEntityResolver {
public:
    ParserGuards();

    /// Takes charge of a parser, which must not outlive this object.
    void Guard(xercesc::DOMConfiguration& parser);
    /// Forgets the errors of an earlier document.
    void Reset() {
        m_error.clear();
        m_failed = false;
    }
    bool HasFailed() const noexcept { return m_failed; }
    /// The first error.
    const std::u16string& ErrorText() const noexcept { return m_error; }

    bool handleError(const xercesc::DOMError& error) override;
    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier*) override;

private:
    xercesc::SecurityManager m_limits;
    std::u16string m_error;
    bool m_failed = false;
};

}  // namespace QsXml
