// Where what must not stand twice stands first.
#pragma once

#include <map>
#include <string>

#include "companion/XmlFile.h"

namespace Companion {

class FirstLines {
public:
    /// Whether this is the first element whose attribute of that name has this value; the others are
    /// reported.
    bool IsNew(const XmlFile& file, const Attributes& attributes, const char* name,
               const std::wstring& value);

private:
    std::map<std::wstring, std::size_t> m_lines;
};

}  // namespace Companion
