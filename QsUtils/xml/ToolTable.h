// The table of the tools that hosts hold.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "QsUtils/xml/CXmlAccessTool.h"

namespace QsXml {

/// Owns every living tool. It has no lock: one thread at a time.
class ToolTable {
public:
    /// A new tool under the next number; numbers aren't used again.
    CXmlAccessTool& Add();
    /// Ends a tool; null, a foreign object and a tool that isn't in the table are left alone.
    void Remove(NS_XMLACCESS::IXmlAccessTool* tool);
    /// Ends all tools, in the order in which they were made.
    void Clear();
    std::size_t Size() const noexcept { return m_tools.size(); }

private:
    std::map<std::int32_t, std::unique_ptr<CXmlAccessTool>> m_tools;
};

/// The table of the module; it stands with the module's other static objects.
ToolTable& Tools();

}  // namespace QsXml
