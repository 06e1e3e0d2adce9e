// The source text of a template: where it lies, for people, and the way back from there.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsUi {

/// The source texts of the templates below the installation's two roots. The roots and the version of the
/// product are asked for once, at construction.
class TemplateSources {
public:
    TemplateSources();

    /// For a template of the user's; `path` is in full.
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
    int m_ownCut = 0;  // units in front of the relative part
};

}  // namespace QsUi
