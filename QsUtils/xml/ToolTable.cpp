#include "QsUtils/xml/ToolTable.h"

#include <mutex>
#include <utility>

namespace QsXml {

namespace {

// Beside the table and not in it: a table that was cleared goes on counting. Guarded by the table's lock.
std::int32_t nextId = 1001;

/// A tool that goes with its scope, whatever is raised.
class ScopedTool {
public:
    ScopedTool() : m_tool(Tools().Add()) {}
    ~ScopedTool() { Tools().Remove(&m_tool); }
    ScopedTool(const ScopedTool&) = delete;
    ScopedTool& operator=(const ScopedTool&) = delete;

    CXmlAccessTool* operator->() noexcept { return &m_tool; }

private:
    CXmlAccessTool& m_tool;
};

}  // namespace

CXmlAccessTool& ToolTable::Add() {
    const std::lock_guard lock(m_lock);
    auto tool = std::make_unique<CXmlAccessTool>(nextId);
    CXmlAccessTool& place = *tool;
    m_tools.emplace(nextId, std::move(tool));
    ++nextId;
    return place;
}

void ToolTable::Remove(NS_XMLACCESS::IXmlAccessTool* tool) {
    const auto* const own = dynamic_cast<CXmlAccessTool*>(tool);
    if (own == nullptr)
        return;
    std::unique_ptr<CXmlAccessTool> ended;  // behind the lock: a large document takes its time
    const std::lock_guard lock(m_lock);
    const auto found = m_tools.find(own->Id());
    if (found != m_tools.end() && found->second.get() == own) {
        ended = std::move(found->second);
        m_tools.erase(found);
    }
}

void ToolTable::Clear() {
    const std::lock_guard lock(m_lock);
    for (auto& [id, tool] : m_tools)
        tool.reset();
    m_tools.clear();
}

}  // namespace QsXml

NS_XMLACCESS::IXmlAccessTool* GetXmlAccessTool() {
    return &QsXml::Tools().Add();
}

void RemoveXmlAccessTool(NS_XMLACCESS::IXmlAccessTool* tool) {
    QsXml::Tools().Remove(tool);
}

XMLNode* LoadXMLNode(const std::wstring& path) {
    const QsXml::ScopedTool tool;  // it has nothing to do, but takes its number
    return QsXml::CXmlAccessTool::ReadTreeFile(path);
}

bool SaveXMLNode(XMLNode* root, const std::wstring& path, const bool& prettyPrint) {
    return QsXml::ScopedTool()->SaveXMLNode(root, path, prettyPrint);
}
