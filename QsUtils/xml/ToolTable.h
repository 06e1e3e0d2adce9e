// The table of the tools that hosts hold.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "QsUtils/platform/Mutex.h"
#include "QsUtils/xml/CXmlAccessTool.h"

namespace QsXml {

/// Owns every living tool. Any thread may call it, so that trees can be read on several threads at once.
class ToolTable {
public:
    /// A new tool under the next number; numbers aren't used again.
    CXmlAccessTool& Add();
    /// Ends a tool; null, a foreign object and a tool that isn't in the table are left alone.
    void Remove(NS_XMLACCESS::IXmlAccessTool* tool);
    /// Ends all tools, in the order in which they were made.
    void Clear();

private:
    QsPlatform::Mutex m_lock;
    std::map<std::int32_t, std::unique_ptr<CXmlAccessTool>> m_tools;
};

/// The table of the module; it stands with the module's other static objects.
ToolTable& Tools();

}  // namespace QsXml
