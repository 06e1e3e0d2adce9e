// What a text must not hold to stand in XML.
#pragma once

#include <string_view>

#include "Message.h"

namespace Estimate {

/// Why an XML 1.0 document can't hold a UTF-8 text (Char, production 2): it has a control character other
/// than tab and line ends, one of the two noncharacters U+FFFE and U+FFFF, or bytes that are no UTF-8, such
/// as half a surrogate pair. Empty for all other texts.
Message WhyNoXml(std::string_view text);

}  // namespace Estimate
