#include "QsUtils/xml/ParserGuards.h"

#include <xercesc/dom/DOMError.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "QsUtils/xml/ScanLimits.h"
#include "QsUtils/xml/XmlInput.h"
#include "QsUtils/xml/XmlText.h"

namespace QsXml {

ParserGuards::ParserGuards() {
    m_limits.setEntityExpansionLimit(MostExpansions);
}

void ParserGuards::Guard(xercesc::DOMConfiguration& parser) {
    using xercesc::XMLUni;
    parser.setParameter(XMLUni::fgXercesLoadExternalDTD, false);
    parser.setParameter(XMLUni::fgXercesDisableDefaultEntityResolution, true);
    parser.setParameter(XMLUni::fgXercesEntityResolver, static_cast<xercesc::XMLEntityResolver*>(this));
    parser.setParameter(XMLUni::fgXercesSecurityManager, &m_limits);
    parser.setParameter(XMLUni::fgDOMErrorHandler, static_cast<xercesc::DOMErrorHandler*>(this));
}

bool ParserGuards::handleError(const xercesc::DOMError& error) {
    if (error.getSeverity() == xercesc::DOMError::DOM_SEVERITY_WARNING)
        return true;
    if (!m_failed)
        m_error = Units(error.getMessage());
    m_failed = true;
    return false;
}

xercesc::InputSource* ParserGuards::resolveEntity(xercesc::XMLResourceIdentifier*) {
    return EmptyInput().release();
}

}  // namespace QsXml
