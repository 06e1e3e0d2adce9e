#include "companion/FirstLines.h"

#include "companion/Text.h"

namespace Companion {

bool FirstLines::IsNew(const XmlFile& file, const Attributes& attributes, const char* name,
                       const std::wstring& value) {
    const std::size_t line = attributes.LineOf(name);
    const auto [first, isNew] = m_lines.try_emplace(value, line);
    if (!isNew)
        file.Report(line, "the " + std::string(name) + " \"" + ToUtf8(value) + "\" stands on line " +
                              std::to_string(first->second) + " already");
    return isNew;
}

}  // namespace Companion
