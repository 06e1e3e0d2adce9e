#include "QsUtils/xml/XmlPlatform.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "QsUtils/platform/Process.h"

namespace QsXml {

void StartXmlPlatform(void (*initialise)()) {
    try {
        initialise();
    } catch (const xercesc::XMLException& error) {
        // The text is taken in UTF-16 as it is: the platform's own transcoder may be what failed to start.
        const XMLCh* message = error.getMessage();
        QsPlatform::ShowMessage(CString(reinterpret_cast<const char16_t*>(message)));
    }
}

void StartXmlPlatform() {
    StartXmlPlatform([] { xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale); });
}

void EndXmlPlatform() {
    xercesc::XMLPlatformUtils::Terminate();
}

bool IsXmlPlatformRunning() noexcept {
    return xercesc::XMLPlatformUtils::fgMemoryManager != nullptr;
}

}  // namespace QsXml
