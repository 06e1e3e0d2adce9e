// The files of templates in a folder and below it.
#pragma once

#include <vector>

#include "QsUtils/text/CString.h"

namespace QsUi {

struct TemplateFile {
    CString path;   ///< in full
    CString title;  ///< the name without its extension
};

/// The files below `folder`, which ends with a backslash, whose names end with `extension` in its exact case;
/// in the order of a walk that goes into a folder where it comes up among the names (see `FindEntries`). A
/// relative folder, and the empty one, begins in the current folder. None when it can't be read.
///
/// Links to folders are followed, but not into a folder that is on the way already, and into one folder
/// `MostVisitsOfFolder` times at most. Depth has no limit, nor has the length of a path.
std::vector<TemplateFile> FindTemplateFiles(const CString& folder, const CString& extension);
inline constexpr int MostVisitsOfFolder = 16;

}  // namespace QsUi
