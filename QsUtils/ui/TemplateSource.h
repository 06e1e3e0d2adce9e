// The source text of a template: where it lies, for people, and the way back from there.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsUi {

/// What source texts are made of.
struct TemplateRoots {
    CString version;        ///< of the product
    CString exeDirectory;   ///< of the user's templates
    CString libraryFolder;  ///< of the cost libraries'; empty when there is none
};

/// The source texts of the templates below two roots.
class TemplateSources {
public:
    /// Of the installation, as they are at construction.
    TemplateSources();
    explicit TemplateSources(const TemplateRoots& roots);

    /// For a template of the user's; `path` is in full, without relative parts. Raises what
    /// `RemoveRelativeDirectoryFromPath` raises for the executable's folder.
    CString OwnSource(const CString& path) const;
    /// For a template of a cost library.
    CString LibrarySource(const CString& path) const;
    /// The path behind a source text; empty when it has the form of neither, as it is when the version has
    /// changed since.
    CString PathBehind(const CString& source) const;

private:
    CString m_ownWord;
    CString m_ownRoot;
    CString m_libraryRoot;
};

}  // namespace QsUi
