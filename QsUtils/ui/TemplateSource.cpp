#include "QsUtils/ui/TemplateSource.h"

#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/text/Paths.h"

namespace QsUi {

namespace {

constexpr const char16_t* LibraryWord = u"墨衡清单定额库\\";

bool BeginsWith(const CString& text, const CString& head) {
    return text.View().starts_with(head.View());
}

}  // namespace

TemplateSources::TemplateSources()
    : TemplateSources({IQsUtils::GetSoftVersion(),
                       DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory(),
                       DirectoryManager::GetLibraryDirectoryManager()->GetLibraryRootDirectory()}) {}

TemplateSources::TemplateSources(const TemplateRoots& roots)
    : m_ownWord(CString(u"墨衡造价V") + roots.version + u"\\"),
      m_ownRoot(roots.exeDirectory),
      m_libraryRoot(roots.libraryFolder) {}

// Not asked for beforehand: a folder that it refuses is no matter to those who list none of the user's.
CString TemplateSources::OwnSource(const CString& path) const {
    return m_ownWord + path.Mid(QsText::RemoveRelativeDirectoryFromPath(m_ownRoot).GetLength());
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
