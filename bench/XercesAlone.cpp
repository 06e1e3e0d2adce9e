// A module that does nothing but start the XML platform when it is loaded and end it when it is unloaded:
// what the load of the library is measured against.
#include <xercesc/util/PlatformUtils.hpp>

namespace {

const struct Platform {
    Platform() { xercesc::XMLPlatformUtils::Initialize(); }
    ~Platform() { xercesc::XMLPlatformUtils::Terminate(); }
} thePlatform;

}  // namespace
