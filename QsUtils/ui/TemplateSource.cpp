#include "QsUtils/ui/TemplateSource.h"

#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/frame/IQsUtils.h"

namespace QsUi {

namespace {

constexpr const char16_t* LibraryWord = u"墨衡清单定额库\\";

bool BeginsWith(const CString& text, const CString& head) {
    return text.View().starts_with(head.View());
}

}  // namespace

TemplateSources::TemplateSources()
    : m_ownWord(CString(u"墨衡造价V") + IQsUtils::GetSoftVersion() + u"\\"),
      m_ownRoot(DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory()),
      m_libraryRoot(DirectoryManager::GetLibraryDirectoryManager()->GetLibraryRootDirectory()),
      m_ownCut(IQsUtils::RemoveRelativeDirectoryFromPath(m_ownRoot).GetLength()) {}

CString TemplateSources::OwnSource(const CString& path) const {
    return m_ownWord + path.Mid(m_ownCut);
}

CString TemplateSources::LibrarySource(const CString& path) const {
    return LibraryWord + path.Mid(m_libraryRoot.GetLength());
}

CString TemplateSources::PathBehind(const CString& source) const {
    if (BeginsWith(source, m_ownWord))
        return m_ownRoot + source.Mid(m_ownWord.GetLength());
    const CString libraryWord(LibraryWord);
    if (BeginsWith(source, libraryWord))
        return m_libraryRoot + source.Mid(libraryWord.GetLength());
    return CString();
}

}  // namespace QsUi
