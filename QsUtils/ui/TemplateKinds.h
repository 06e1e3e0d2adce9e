// The kinds of template: which files are of a kind, and in which folders they lie.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsUi {

/// As hosts number them.
enum TemplateKind : int {
    FeeSummary = 0,
    Report = 1,
    FeesAndTaxes = 2,
    Measures = 3,
    UnitPriceComposition = 4,
};

/// Where the templates of a kind lie, and in which order they are listed.
struct TemplatePlaces {
    CString extension;      ///< with its point; empty for a kind that there isn't, which has no templates
    CString ownFolder;      ///< the user's
    CString libraryFolder;  ///< the cost library's
    bool isOwnFirst = false;
    bool isOwnMade = false;  ///< the user's folder is made when it isn't there
};

/// The places of a kind for a section of a library family. `isZeroVariant` asks for the extension with the
/// letter z where a kind has one; `reportType` (0 project, 1 and 2 unit project) counts for reports alone. A
/// folder ends with a backslash; one that isn't known leaves only what is below it.
TemplatePlaces PlacesOfTemplates(int kind, bool isZeroVariant, int reportType, const CString& family,
                                 const CString& section);

}  // namespace QsUi
