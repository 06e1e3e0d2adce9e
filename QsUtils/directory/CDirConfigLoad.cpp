#include "QsUtils/directory/CDirConfigLoad.h"

#include <memory>
#include <mutex>
#include <vector>

#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/directory/FolderText.h"
#include "QsUtils/text/Segments.h"
#include "QsUtils/xml/XmlAccess.h"

namespace DirectoryManager {

namespace {

constexpr const wchar_t* CodeAttribute = L"Code";
constexpr const wchar_t* PathAttribute = L"RelativePath";
constexpr const wchar_t* ItemElement = L"DirectoryItem";

void AddItem(const XMLNode& item, std::map<CString, CString>& directories) {
    const auto code = item.Attributes.find(CodeAttribute);
    if (code == item.Attributes.end())
        return;
    const auto path = item.Attributes.find(PathAttribute);
    // The first item of a code counts.
    directories.emplace(code->second, path == item.Attributes.end() ? CString() : CString(path->second));
}

}  // namespace

CDirConfigLoad::~CDirConfigLoad() = default;

void CDirConfigLoad::LoadDirectoryConfig() {
    const std::lock_guard lock(m_lock);
    if (!m_mapDirectory.empty())
        return;
    std::vector<CString> names;
    QsText::TransStrToAry(m_strSectionPath, u"/", names);
    if (names.size() < 2)
        return;
    const CString path = GetCommonDirectoryManager()->GetExeDirectory() + u"DirectoryConfig.xml";
    const std::unique_ptr<XMLNode> root(LoadXMLNode(path.ToWide()));
    const XMLNode* const section = root == nullptr ? nullptr : root->FindChildNode(names[1].ToWide());
    if (section == nullptr)
        return;
    for (const XMLNode* child : section->Children) {
        if (child->Name == ItemElement)
            AddItem(*child, m_mapDirectory);
    }
}

void CDirConfigLoad::LoadOnce() {
    // An override that looks a code up while it loads sees what it has so far.
    if (m_bLoaded || m_bLoading)
        return;
    const struct Loading {
        explicit Loading(bool& loading) : flag(loading) { flag = true; }
        ~Loading() { flag = false; }
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;
        bool& flag;
    } loading(m_bLoading);
    LoadDirectoryConfig();
    m_bLoaded = true;
}

CString CDirConfigLoad::GetDirectoryRelativePath(const CString& code) {
    const std::lock_guard lock(m_lock);
    LoadOnce();
    const auto found = m_mapDirectory.find(code);
    return found == m_mapDirectory.end() ? CString() : QsDirectory::WithBackslash(found->second);
}

}  // namespace DirectoryManager
